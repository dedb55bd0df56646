#include "device/control/JS_Mediator_DeviceControl.h"
#include "device/edit/GUI_AddDeviceDialog.h"
#include "device/edit/JS_Mediator_AddDeviceDialog.h"
#include "device/edit/JS_Mediator_EditDeviceDialog.h"
#include "device/list/JS_Mediator_DeviceList.h"
#include "device/names/JS_Mediator_AutoCameraName.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "device/selectbox/JS_Mediator_SelectBox.h"
#include "plugin/PLG_Common.h"
#include "tests/bridge/support/FaultMatrix.h"

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

}

QVector<PageClass> devicePageClasses()
{
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
