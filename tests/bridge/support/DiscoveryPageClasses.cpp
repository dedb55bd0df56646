#include "device/discovery/GUI_CameraNetworkSettingDialog.h"
#include "device/discovery/GUI_DiscoverySearchDialog.h"
#include "device/discovery/JS_Mediator_CameraNetworkSettingDialog.h"
#include "device/discovery/JS_Mediator_DiscoverySearchDialog.h"
#include "tests/bridge/support/FaultMatrix.h"

// The classes of device/ that find cameras in the network.

namespace {

const QString Results = QStringLiteral("[]");

// One that can be connected, and be given an address.
void addDevice(FaultScene &scene)
{
    NetworkDevice device;
    device.serialNumber = QStringLiteral("7");
    device.hardwareAddress = QStringLiteral("02:00:5E:00:00:07");
    device.setting = {QStringLiteral("192.168.0.77"), QStringLiteral("255.255.255.0"), QString()};
    scene.host.network().addDevice(device);
}

}

QVector<PageClass> discoveryPageClasses()
{
    const QString setting = QStringLiteral("{\"adapteraddress\": \"192.168.0.1\","
                                           " \"ipaddress\": \"192.168.0.78\","
                                           " \"subnetmask\": \"255.255.255.0\","
                                           " \"macaddress\": \"02:00:5E:00:00:07\"}");
    return {
        {&JS_Mediator_DiscoverySearchDialog::staticMetaObject,
         [](StandInHost &host) -> QObject * {
             return new JS_Mediator_DiscoverySearchDialog(&host, Results);
         },
         {{"connect(QString)", {"[\"192.168.0.77\"]"}, addDevice},
          {"connect(QString)", {"[\"192.168.0.99\"]"}, addDevice},
          {"setNetworkSettings(QString)", {setting}, addDevice}}},
        {&GUI_DiscoverySearchDialog::staticMetaObject,
         [](StandInHost &host) -> QObject * {
             return new GUI_DiscoverySearchDialog(&host, Results, nullptr);
         },
         {}},
        {&JS_Mediator_CameraNetworkSettingDialog::staticMetaObject,
         [](StandInHost &host) -> QObject * {
             return new JS_Mediator_CameraNetworkSettingDialog(&host);
         },
         {}},
        {&GUI_CameraNetworkSettingDialog::staticMetaObject,
         [](StandInHost &host) -> QObject * {
             return new GUI_CameraNetworkSettingDialog(&host, nullptr);
         },
         {}},
    };
}
