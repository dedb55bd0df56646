#include "bridge/operation/FileChoice.h"
#include "device/control/JS_Mediator_DeviceControl.h"
#include "device/edit/GUI_AddDeviceDialog.h"
#include "device/edit/JS_Mediator_AddDeviceDialog.h"
#include "device/edit/JS_Mediator_EditDeviceDialog.h"
#include "device/list/JS_Mediator_DeviceList.h"
#include "device/names/JS_Mediator_AutoCameraName.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "device/selectbox/JS_Mediator_SelectBox.h"
#include "device/settingsfile/GUI_CameraFileDialog.h"
#include "device/settingsfile/JS_Mediator_CameraSettingsDialog.h"
#include "plugin/PLG_Common.h"
#include "tests/bridge/support/FaultMatrix.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QTemporaryDir>

// The classes of device/.

namespace {

class LiveTool : public PLG_Common
{
public:
    LiveTool()
    {
        m_toolName = QStringLiteral("livecontrol");
        m_hasPanel = true;
    }
};

/// The mediator of a box whose host has the live control tool open. The tool goes with the host.
QObject *makeLiveSelectBox(StandInHost &host)
{
    auto *tool = new LiveTool;
    tool->setParent(host.events());
    host.addPlugin(tool);
    host.openPluginByName(QStringLiteral("livecontrol"));
    return new JS_Mediator_SelectBox(&host);
}

/// A tool with the control's page.
class ControlTool : public PLG_Common
{
public:
    ControlTool()
    {
        m_toolName = QStringLiteral("devicecontrol");
        m_hasPanel = true;
        m_checkKind = 2;
    }
};

/// The mediator of the control whose tool is there. The tool goes with the host.
QObject *makeDeviceControl(StandInHost &host)
{
    auto *tool = new ControlTool;
    tool->setParent(host.events());
    host.addPlugin(tool);
    return new JS_Mediator_DeviceControl(&host, QStringLiteral("devicecontrol"));
}

void groupBoth(FaultScene &scene)
{
    scene.host.addGroup(QStringLiteral("pair"), {scene.host.camera(1), scene.host.camera(2)});
}

// The document is there, both heads of a device are, or both members of a group.
QVector<SlotCase> deviceListCases()
{
    const auto headsOfOne = [](FaultScene &scene) {
        for (DOCKEY key : {1, 2}) {
            scene.host.camera(key)->state().cameraNumber = 0;
            scene.host.camera(key)->state().headCount = 2;
        }
    };
    return {
        {"selectDoc(QVariant)", {1}, {}},
        {"unselectDoc(QVariant)", {"2"}, {}},
        {"deleteDoc(DOCKEY)", {1}, {}},
        {"deleteDoc(DOCKEY)", {2}, headsOfOne},
        {"deleteAllDocs(bool)", {false}, {}},
        {"deleteAllDocs(bool)", {true}, {}},
        {"isSelectedDoc(QVariant)", {1}, {}},
        {"isSelectedMultiDoc(QVariant)", {1}, {}},
        {"isMultiHead(QVariant)", {1}, headsOfOne},
    };
}

QVector<SlotCase> deviceControlCases()
{
    const auto inFiles = [](FaultScene &scene) { scene.host.setMode(StandInHost::Mode::File); };
    return {
        {"selectDoc(QVariant)", {1}, {}},          {"selectDoc(QVariant)", {2}, groupBoth},
        {"selectDoc(QVariant)", {"1"}, inFiles},   {"unselectDoc(QVariant)", {1}, {}},
        {"unselectDoc(QVariant)", {3}, groupBoth},
    };
}

QVector<SlotCase> addDeviceCases()
{
    const auto withDummies = [](FaultScene &scene) {
        scene.host.camera(1)->state().isDummy = true;
        scene.host.camera(2)->state().isDummy = true;
    };
    return {{"getAddDeviceDialogSettings()", {}, withDummies},
            {"ok(QString,QString,bool)", {"Left", "192.168.0.20", false}, {}},
            {"ok(QString,QString,bool)", {"Left", "999.999.999.3", true}, withDummies}};
}

QVector<SlotCase> cameraNameCases()
{
    const auto withFile = [](FaultScene &scene) {
        scene.host.settings().setValue("usercustom/completeCameraNames", true);
        scene.host.settings().setValue("usercustom/cameraNameFilePath", "/proc/self/mem");
    };
    return {{"existsAutoCompleteFile()", {}, withFile}, {"autoCompleteCameraList()", {}, withFile}};
}

/// A folder with a file "a.qcfg" of the settings of the first two cameras.
const QTemporaryDir &settingsFolder()
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a.qcfg")));
    if (!file.exists() && file.open(QIODevice::WriteOnly))
        file.write(R"({"format":"qcfg","cameras":[{"serialNumber":"10001"},)"
                   R"({"serialNumber":"10002"}]})");
    return folder;
}

void furnishSettings(FaultScene &scene)
{
    StandInSettings &settings = scene.host.settings();
    settings.setValue(QStringLiteral("qcfg/path"), settingsFolder().path());
    settings.setValue(QStringLiteral("qcfg/userFileName"), QStringLiteral("a"));
    settings.setValue(QStringLiteral("qcfg/filenameasoriginal"), true);
    for (StandInCamera *camera : scene.host.cameras()) {
        camera->state().presets = {{1, QString(), true}, {2, QString(), false}};
        camera->state().presetsWithReboot = {1};
    }
}

/// The mediator of a dialog for which a file has been chosen.
QObject *makeCameraSettings(StandInHost &host)
{
    auto *mediator =
        new JS_Mediator_CameraSettingsDialog(&host, JS_Mediator_CameraSettingsDialog::ApplyPresets);
    FileChoice::setAnswer([](const FileChoice::Question &) {
        return QStringList(settingsFolder().filePath(QStringLiteral("a.qcfg")));
    });
    mediator->openFile();
    return mediator;
}

/// The dialog in which a preset has been chosen for each camera.
QObject *makeCameraFile(StandInHost &host)
{
    auto *dialog = new GUI_CameraFileDialog(&host, QFileDialog::AcceptOpen, nullptr);
    dialog->findChild<QCheckBox *>(QStringLiteral("checkLoadCamera"))->setChecked(true);
    const auto boxes =
        dialog->findChild<QWidget *>(QStringLiteral("cameras"))->findChildren<QComboBox *>();
    for (QComboBox *box : boxes)
        box->setCurrentIndex(1);
    return dialog;
}

}

QVector<PageClass> devicePageClasses()
{
    const QString presets =
        QStringLiteral(R"("presetList":[{"key":"1","value":1},{"key":"2","value":2}]})");
    return {
        {&JS_Mediator_AddDeviceDialog::staticMetaObject,
         [](StandInHost &host) -> QObject * {
             return new JS_Mediator_AddDeviceDialog(&host, true);
         },
         addDeviceCases()},
        {&GUI_AddDeviceDialog::staticMetaObject,
         [](StandInHost &host) -> QObject * {
             return new GUI_AddDeviceDialog(&host, true, nullptr);
         },
         {}},
        {&JS_Mediator_AutoCameraName::staticMetaObject,
         [](StandInHost &host) -> QObject * {
             return new JS_Mediator_AutoCameraName(&host, "adddeviceAutoCameraName");
         },
         cameraNameCases()},
        {&JS_Mediator_EditDeviceDialog::staticMetaObject,
         [](StandInHost &host) -> QObject * {
             return new JS_Mediator_EditDeviceDialog(&host, "editdevice");
         },
         {{"getEditDeviceDialogSettings()",
           {},
           [](FaultScene &scene) {
               scene.host.camera(1)->state().headCount = 2;
               scene.host.camera(2)->state().headCount = 2;
           }}}},
        {&JS_Mediator_DeviceControl::staticMetaObject, makeDeviceControl, deviceControlCases()},
        {&JS_Mediator_DeviceList::staticMetaObject,
         [](StandInHost &host) -> QObject * {
             return new JS_Mediator_DeviceList(&host, QStringLiteral("devicepanel"));
         },
         deviceListCases()},
        {&JS_Mediator_CameraSettingsDialog::staticMetaObject,
         makeCameraSettings,
         {{"getPresetList()", {}, furnishSettings},
          {"getFileName(bool)",
           {true},
           [](FaultScene &scene) {
               scene.host.settings().setValue(QStringLiteral("qcfg/filenameasoriginal"), false);
           }},
          {"sendFileNameDialogData(QString)",
           {R"({"userFileName":"a","original":true,"addTime":true,"addTimeFormat":"hh"})"},
           {}},
          {"ok(QString)", {R"({"dialogMode":0})"}, furnishSettings},
          {"ok(QString)", {R"({"dialogMode":0})"}, {}}, // nothing to save to
          {"ok(QString)",
           {R"({"dialogMode":0})"},
           [](FaultScene &scene) {
               furnishSettings(scene);
               scene.host.setMode(StandInHost::Mode::Memory);
           }},
          {"ok(QString)", {R"({"dialogMode":1})"}, furnishSettings},
          {"ok(QString)", {QStringLiteral(R"({"dialogMode":2,)") + presets}, {}}}},
        {&GUI_CameraFileDialog::staticMetaObject,
         makeCameraFile,
         {{"accept()", {}, furnishSettings}, {"on_ok_clicked()", {}, furnishSettings}}},
        {&JS_Mediator_SelectBox::staticMetaObject,
         makeLiveSelectBox,
         {{"slotNotifyPartition(QString)", {"1"}, {}},
          {"slotNotifyPartition(QString)",
           {"1"},
           [](FaultScene &scene) { scene.host.setMode(StandInHost::Mode::Memory); }},
          {"slotNotifyVariable(QString)", {"go-variable"}, {}}}},
        {&GUI_SelectBox::staticMetaObject,
         [](StandInHost &host) -> QObject * { return new GUI_SelectBox(&host); },
         {{"onLoadFinish(bool)", {false}, {}}}},
    };
}
