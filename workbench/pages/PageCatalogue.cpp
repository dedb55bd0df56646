#include "workbench/pages/PageCatalogue.h"

#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/mediator/JS_Mediator.h"
#include "contract/DOC_Interface.h"
#include "device/control/JS_Mediator_DeviceControl.h"
#include "device/discovery/GUI_CameraNetworkSettingDialog.h"
#include "device/discovery/GUI_DiscoverySearchDialog.h"
#include "device/edit/GUI_AddDeviceDialog.h"
#include "device/edit/JS_Mediator_EditDeviceDialog.h"
#include "device/list/JS_Mediator_DeviceList.h"
#include "device/names/JS_Mediator_AutoCameraName.h"
#include "device/settingsfile/JS_Mediator_CameraSettingsDialog.h"
#include "foundation/Clock.h"
#include "foundation/SaveModes.h"
#include "record/comment/GUI_CommentDialog.h"
#include "record/display/GUI_EditInfoDialog.h"
#include "record/format/GUI_FrameFormatDialog.h"
#include "record/format/GUI_RecordRateFormatDialog.h"
#include "record/format/GUI_RectimeFormatDialog.h"
#include "record/format/GUI_ShutterSpeedFormatDialog.h"
#include "record/info/GUI_CustomInfoDialog.h"
#include "record/timecode/GUI_TimeCodeCustomDialog.h"
#include "save/convert/GUI_ConvertParameterEditDialog.h"
#include "save/dialog/GUI_FileSaveDialog.h"
#include "save/dialog/JS_Mediator_SaveFile.h"
#include "save/number/GUI_AddNumberDialog.h"
#include "standin/host/StandInHost.h"

#include <QDateTime>

#include <algorithm>

namespace {

using Kind = PageEntry::Kind;

// A dialog that takes its parent from the host.
template <class Dialog>
std::unique_ptr<QDialog> makeOwn(StandInHost &host, const PageEntry &, QWidget *)
{
    return std::make_unique<Dialog>(&host);
}

// With what a search finds now.
std::unique_ptr<QDialog> makeDiscoverySearch(StandInHost &host, const PageEntry &, QWidget *parent)
{
    return std::make_unique<GUI_DiscoverySearchDialog>(&host, host.searchNetwork(), parent);
}

std::unique_ptr<QDialog> makeNetworkSetting(StandInHost &host, const PageEntry &, QWidget *parent)
{
    return std::make_unique<GUI_CameraNetworkSettingDialog>(&host, parent);
}

std::unique_ptr<QDialog> makeCustomInfo(StandInHost &host, const PageEntry &, QWidget *parent)
{
    return std::make_unique<GUI_CustomInfoDialog>(&host, parent, false);
}

std::unique_ptr<QDialog> makeTimeCode(StandInHost &host, const PageEntry &, QWidget *parent)
{
    return std::make_unique<GUI_TimeCodeCustomDialog>(&host, parent);
}

std::unique_ptr<QDialog> makeAddDevice(StandInHost &host, const PageEntry &, QWidget *parent)
{
    return std::make_unique<GUI_AddDeviceDialog>(&host, true, parent);
}

// Its name field completes as that of a new camera does.
std::unique_ptr<QDialog> makeEditDevice(StandInHost &host, const PageEntry &page, QWidget *parent)
{
    auto *mediator = new JS_Mediator_EditDeviceDialog(&host, page.mediator); // the dialog's
    auto dialog =
        std::make_unique<GUI_WebViewDialog>(&host, page.title, page.url, mediator, parent);
    dialog->addMediator(new JS_Mediator_AutoCameraName(&host, "editdeviceAutoCameraName"));
    return dialog;
}

// What is written into files of this type, of the current document as it is now.
template <int FileType>
std::unique_ptr<QDialog> makeSaveInfo(StandInHost &host, const PageEntry &, QWidget *)
{
    return std::make_unique<GUI_EditInfoDialog>(&host, FileType, true, nullptr, 0,
                                                QList<DOC_Interface *>(), Clock::now());
}

// Of the files of recordings, for the selected cameras.
std::unique_ptr<QDialog> makeNumber(StandInHost &host, const PageEntry &, QWidget *parent)
{
    QList<DOCKEY> selected;
    host.selectedDocKeys(selected, true);
    DOC_Interface *current = host.currentDocument();
    DOC_HeadInterface *heads = current ? current->headInterface() : nullptr;
    return std::make_unique<GUI_AddNumberDialog>(&host, parent,
                                                 SaveModes::fileNameKind(SaveModes::Family::Export),
                                                 selected.size(), heads ? heads->headCount() : 0);
}

// The kind of save follows from the name of the mediator.
std::unique_ptr<QDialog> makeSave(StandInHost &host, const PageEntry &page, QWidget *parent)
{
    auto dialog =
        std::make_unique<GUI_FileSaveDialog>(&host, page.title, page.url, page.mediator, parent);
    dialog->addMediator(new JS_Mediator_SaveFile(&host, page.mediator)); // the dialog's
    return dialog;
}

// Of all recordings, the current one shown.
std::unique_ptr<QDialog> makeConvertParameters(StandInHost &host, const PageEntry &,
                                               QWidget *parent)
{
    QVariantList keys;
    for (DOCKEY key : host.documentKeys(true, false))
        keys.append(QString::number(key));
    return std::make_unique<GUI_ConvertParameterEditDialog>(&host, parent, keys,
                                                            host.currentDocKey(), 1);
}

template <class Mediator>
std::unique_ptr<JS_Mediator> makePanelMediator(StandInHost &host, const QString &name)
{
    return std::make_unique<Mediator>(&host, name);
}

PageEntry panel(const QString &name, const QString &title, const QString &url,
                const QString &mediator, PageEntry::MakeMediator make)
{
    PageEntry page{name, Kind::Panel, "", "", {}, title, url, mediator, {}};
    page.makeMediator = make;
    return page;
}

// What its page does with the settings of the selected cameras.
template <int Mode>
std::unique_ptr<QDialog> makeCameraSettings(StandInHost &host, const PageEntry &page,
                                            QWidget *parent)
{
    auto *mediator = new JS_Mediator_CameraSettingsDialog(&host, Mode); // the dialog's
    return std::make_unique<GUI_WebViewDialog>(&host, page.title, page.url, mediator, parent);
}

PageEntry cameraSettings(const QString &name, const QString &entry, const QString &title,
                         PageEntry::Make make)
{
    return {name,
            Kind::Dialog,
            "Cameras",
            entry,
            {},
            title,
            "qrc:/camerasettings.html",
            "camerasettings",
            QSize(500, 330),
            make};
}

PageEntry save(const QString &mediator, const QString &entry, const QKeySequence &shortcut,
               const QString &title)
{
    return {
        mediator, Kind::Dialog,    "Save",  entry, shortcut, title, "qrc:/" + mediator + ".html",
        mediator, QSize(880, 720), makeSave};
}

PageEntry saveInfo(const QString &name, const QString &entry, PageEntry::Make make)
{
    return {name,
            Kind::Dialog,
            "Information",
            entry,
            {},
            "edit information",
            "qrc:/saveinfoview.html",
            "editInfo",
            QSize(850, 680),
            make};
}

// name, kind, menu, entry, shortcut, title, URL, mediator, size, maker, command
QVector<PageEntry> makePages()
{
    return {
        {"views", Kind::Panel, "", "", {}, "Views", "qrc:/viewarea.html", "viewareapage", {}},
        panel("devices", "Devices", "qrc:/devices.html", "devicepanel",
              makePanelMediator<JS_Mediator_DeviceList>),
        panel("devicecontrol", "Selection", "qrc:/devicecontrol.html", "devicecontrol",
              makePanelMediator<JS_Mediator_DeviceControl>),
        {"status", Kind::Panel, "", "", {}, "Status", "qrc:/status.html", "statuspanel", {}},
        {"partitions", Kind::List, "", "", {}, "Partitions", "qrc:/selectbox.html", "items", {}},
        {"prefs", Kind::Dialog, "Edit", "&Preferences...", QKeySequence("Ctrl+,"), "Preferences",
         "qrc:/prefs.html", "preferences", QSize(420, 300), nullptr,
         [](JS_Mediator &commands) { commands.openPrefsDialog(); }},
        {"discoverysearch",
         Kind::Dialog,
         "Cameras",
         "&Search for cameras...",
         {},
         "Discovery search",
         "qrc:/discoverysearch.html",
         "discoverysearch",
         {},
         makeDiscoverySearch},
        {"cameranetworksetting",
         Kind::Dialog,
         "Cameras",
         "Settings of the searc&h...",
         {},
         "Camera network setting",
         "qrc:/cameranetworksetting.html",
         "cameranetworksetting",
         {},
         makeNetworkSetting},
        {"ethernet",
         Kind::Dialog,
         "Cameras",
         "&Ethernet settings...",
         {},
         "Ethernet settings",
         "qrc:/ethernet.html",
         "ethernet",
         QSize(430, 250),
         nullptr,
         [](JS_Mediator &commands) { commands.openPrefsEthernetSettings(); }},
        {"addDevice",
         Kind::Dialog,
         "Cameras",
         "Add a camera &by address...",
         {},
         "Add Device",
         "qrc:/livecontrol_adddevice.html",
         "adddevice",
         {},
         makeAddDevice},
        {"editDevice",
         Kind::Dialog,
         "Cameras",
         "E&dit the camera...",
         {},
         "Edit Device",
         "qrc:/editdevice.html",
         "editdevice",
         QSize(430, 460),
         makeEditDevice},
        cameraSettings("cameraSettingsSave", "Sa&ve settings...", "Save camera settings",
                       makeCameraSettings<JS_Mediator_CameraSettingsDialog::SaveFile>),
        cameraSettings("cameraSettingsLoad", "&Load settings...", "Load camera settings",
                       makeCameraSettings<JS_Mediator_CameraSettingsDialog::LoadFile>),
        cameraSettings("cameraPresets", "Prese&ts...", "Camera presets",
                       makeCameraSettings<JS_Mediator_CameraSettingsDialog::ApplyPresets>),
        {"editinfo",
         Kind::Dialog,
         "Information",
         "&Displayed information...",
         {},
         "edit information",
         "qrc:/editinfo.html",
         "editInfo",
         QSize(340, 680),
         makeOwn<GUI_EditInfoDialog>},
        saveInfo("saveinfo", "Information in s&aved recordings...", makeSaveInfo<1>),
        saveInfo("saveinfoLayout", "Information in saved &layouts...", makeSaveInfo<4>),
        saveInfo("saveinfoConvert", "Information in con&verted files...", makeSaveInfo<6>),
        saveInfo("saveinfoReport", "Information in re&ports...", makeSaveInfo<16>),
        {"custominfo",
         Kind::Dialog,
         "Information",
         "C&ustom information...",
         {},
         "Custom info",
         "qrc:/custominfo.html",
         "CustomInfoDialog",
         {},
         makeCustomInfo},
        {"comments",
         Kind::Dialog,
         "Information",
         "&Comments...",
         {},
         "Comment",
         "qrc:/commentview.html",
         "comment_mediator",
         {},
         makeOwn<GUI_CommentDialog>},
        {"timeCode",
         Kind::Dialog,
         "Information",
         "&Time code...",
         {},
         "Current Time Setting",
         "qrc:/prefs_customize_timecode.html",
         "timecode_custom_mediator",
         {},
         makeTimeCode},
        {"shutterSpeed",
         Kind::Dialog,
         "Information",
         "&Shutter speed...",
         {},
         "Shutter speed disp",
         "qrc:/shutterspeed_format_dialog.html",
         "shutter_format_dlg",
         {},
         makeOwn<GUI_ShutterSpeedFormatDialog>},
        {"recordRate",
         Kind::Dialog,
         "Information",
         "&Record rate...",
         {},
         "recordrate disp",
         "qrc:/recordrate_format_dialog.html",
         "recordRateFormatDialog",
         {},
         makeOwn<GUI_RecordRateFormatDialog>},
        {"frameNumber",
         Kind::Dialog,
         "Information",
         "&Frame number...",
         {},
         "frame disp",
         "qrc:/frame_format_dialog.html",
         "frameFormatDialog",
         {},
         makeOwn<GUI_FrameFormatDialog>},
        {"recordingTime",
         Kind::Dialog,
         "Information",
         "Recording t&ime...",
         {},
         "Recording time disp",
         "qrc:/rectime_format_dialog.html",
         "rectime_format_dlg",
         {},
         makeOwn<GUI_RectimeFormatDialog>},
        save("exportdialog", "&Recordings...", QKeySequence("Ctrl+S"), "Save recordings"),
        save("snapshotdialog", "&Pictures...", {}, "Save pictures"),
        save("reportExportDialog", "R&eports...", {}, "Save reports"),
        save("layoutsavedialog", "&Layout...", {}, "Save the layout"),
        save("batchconverter", "&Convert recordings...", {}, "Convert recordings"),
        {"convertparametereditdialog",
         Kind::Dialog,
         "Save",
         "&Automatic conversion...",
         {},
         "Saved after the automatic conversion",
         "qrc:/convertparametereditdialog.html",
         "convertparametereditdialog",
         {},
         makeConvertParameters},
        save("fileopendialog", "&Import recordings...", {}, "Open recordings"),
        {"addnumberdialog",
         Kind::Dialog,
         "Save",
         "&Numbers of recordings...",
         {},
         "Adding a number",
         "qrc:/addnumberdialog.html",
         "addnumberdialog",
         {},
         makeNumber},
        {"about",
         Kind::Dialog,
         "Help",
         "&About",
         {},
         "About the workbench",
         "qrc:/about.html",
         "about",
         QSize(380, 210),
         nullptr,
         [](JS_Mediator &commands) { commands.openAbouOrvixDialog(); }},
    };
}

}

const QVector<PageEntry> &PageCatalogue::pages()
{
    static const QVector<PageEntry> pages = makePages();
    return pages;
}

const PageEntry &PageCatalogue::page(const QString &name)
{
    const auto found = std::find_if(pages().begin(), pages().end(),
                                    [&](const PageEntry &page) { return page.name == name; });
    Q_ASSERT(found != pages().end());
    return *found;
}
