#include "device/edit/GUI_AddDeviceDialog.h"
#include "device/edit/JS_Mediator_AddDeviceDialog.h"
#include "device/edit/JS_Mediator_EditDeviceDialog.h"
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
