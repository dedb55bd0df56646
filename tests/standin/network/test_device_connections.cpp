#include "foundation/exceptions/DOC_Exception.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <functional>

// How the list of documents follows the network: connecting, adding, addresses, losses.

Q_DECLARE_METATYPE(NetworkSetting)

class TestDeviceConnections : public TestBase
{
    Q_OBJECT

private slots:
    void listedCameraIsADevice();
    void dummyIsNoDevice();
    void freeDeviceIsConnected();
    void headsAreListed();
    void whatCannotBeConnectedIsNamed();
    void connectedDeviceIsNotListedTwice();
    void removedDeviceIsFreeAgain();
    void lostDeviceFindsItsRow();
    void deviceFindsItsRowUnderAnotherAddress();
    void readdressedDeviceOfAForeignSubnetConnects();
    void deviceThatLeavesItsSubnetIsLost();
    void deviceIsHeldElsewhereMeanwhile();
    void connectedDeviceStaysBesideItsDouble();
    void doubleConnectsWhenTheOtherLeaves();
    void networkSettingsAreRefused_data();
    void networkSettingsAreRefused();
    void cameraSettingGoesByTheSameRules_data();
    void cameraSettingGoesByTheSameRules();
    void settingOfAnotherEthernetTypeWaits();
    void settingCountsForAllHeads();
    void dummyTakesAnyAddress();
    void addedCameraIsConnected();
    void addedCameraThatIsListedKeepsItsRow();
    void addedCameraWaitsForItsAddress();
    void addedCameraOfTwoHeadsGetsBoth();
    void waitingCameraIsReaddressed();
    void waitingCameraGoesWhereTheDeviceHasItsRow();
    void sameAddressWaitsOnce();
    void camerasThatWaitForOneAddressFollowTogether();
    void fiveNumbersAreNeverFound();
    void changesAreTold();
};

namespace {

const QString Mask = QStringLiteral("255.255.255.0");

NetworkDevice device(const QString &serialNumber, const QString &address, int heads = 1)
{
    NetworkDevice device;
    device.serialNumber = serialNumber;
    device.hardwareAddress = "02:00:5E:00:00:0" + serialNumber;
    device.heads = heads;
    device.setting = {address, Mask, ""};
    return device;
}

// What the list shows: for each camera its name, serial number, head, address and state.
QStringList rows(const StandInHost &host)
{
    QStringList rows;
    for (const StandInCamera *camera : host.cameras()) {
        const DocumentState &state = camera->state();
        rows.append(
            QStringList({camera->name(), camera->serialNumber(),
                         QString::number(state.headNumber) + '/' + QString::number(state.headCount),
                         state.ipAddress, state.isConnected ? "connected" : "",
                         state.isFound ? "found" : ""})
                .join(' '));
    }
    return rows;
}

// What the call fails with, empty when it does not.
QString failure(const std::function<void()> &call)
{
    LogCapture log; // which an exception writes to
    try {
        call();
    } catch (const DOC_Exception &e) {
        return QString::fromUtf8(e.what());
    }
    return QString();
}

QString readdress(StandInHost &host, const QString &serialNumber, const NetworkSetting &setting)
{
    const QString hardwareAddress = host.network().device(serialNumber)->hardwareAddress;
    return failure([&] {
        host.setNetworkSettings("192.168.0.1", setting.ipAddress, setting.subnetMask,
                                setting.defaultGateway, hardwareAddress);
    });
}

}

void TestDeviceConnections::listedCameraIsADevice()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    const NetworkDevice *device = host.network().device(camera->serialNumber());
    QVERIFY(device);
    QCOMPARE(device->setting.ipAddress, camera->ipAddress());
    QCOMPARE(device->setting.subnetMask, Mask);
    QCOMPARE(device->model, camera->model());
    QCOMPARE(device->heads, 1);
    QVERIFY(device->isPlugged);
    QVERIFY(host.connections().isConnected(camera->serialNumber()));

    StandInCamera::Description head;
    head.serialNumber = "7";
    head.headCount = 2;
    head.isFound = false;
    host.addCamera(head);
    head.headNumber = 2;
    host.addCamera(head);
    QCOMPARE(host.network().device("7")->heads, 2);
    QVERIFY(!host.network().device("7")->isPlugged);
    QCOMPARE(host.connections().heads("7").size(), 2);
}

void TestDeviceConnections::dummyIsNoDevice()
{
    StandInHost host;
    host.addDevice("Dummy", "999.999.999.1", true);
    QVERIFY(host.network().devices().isEmpty());
    QCOMPARE(host.cameras().size(), 1);
    QVERIFY(host.camera(1)->state().isDummy);
    QVERIFY(!host.camera(1)->state().isConnected);
    QCOMPARE(host.camera(1)->name(), QString("Dummy"));
    QCOMPARE(host.camera(1)->state().ipAddress, QString("999.999.999.1"));
    QVERIFY(host.connections().heads(host.camera(1)->serialNumber()).isEmpty());
}

void TestDeviceConnections::freeDeviceIsConnected()
{
    StandInHost host;
    NetworkDevice free = device("1", "192.168.0.20");
    free.model = "S-2048";
    free.setting.defaultGateway = "192.168.0.254";
    host.network().addDevice(free);
    QCOMPARE(rows(host), QStringList());
    host.connectDevices({"192.168.0.020"}); // zeros in front do not count
    QCOMPARE(rows(host), QStringList({"Camera 1 1 1/1 192.168.0.20 connected found"}));
    const EditDeviceData data = host.camera(1)->editDeviceData();
    QCOMPARE(data.modelName, QString("S-2048"));
    QCOMPARE(data.network.subnetMask, Mask);
    QCOMPARE(data.network.defaultGateway, QString("192.168.0.254"));
    QVERIFY(!host.camera(1)->sharesDevice());
    QVERIFY(host.connections().isConnected("1"));
}

void TestDeviceConnections::headsAreListed()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20", 3));
    host.connectDevices({"192.168.0.20"});
    QCOMPARE(rows(host), QStringList({"Camera 1 1 1/3 192.168.0.20 connected found",
                                      "Camera 1 1 2/3 192.168.0.20 connected found",
                                      "Camera 1 1 3/3 192.168.0.20 connected found"}));
    QSet<QString> headSerialNumbers;
    for (StandInCamera *camera : host.cameras()) {
        QVERIFY(camera->sharesDevice());
        QCOMPARE(camera->cameraNumber(), 0);
        headSerialNumbers.insert(camera->editDeviceData().headSerialNumber);
    }
    QCOMPARE(headSerialNumbers.size(), 3);
}

void TestDeviceConnections::whatCannotBeConnectedIsNamed()
{
    StandInHost host;
    NetworkDevice held = device("3", "192.168.0.22");
    held.isHeldElsewhere = true;
    for (const NetworkDevice &entry :
         {device("1", "192.168.0.20"), device("2", "172.16.0.5"), held, device("4", "192.168.0.23"),
          device("5", "192.168.0.23"), device("6", "192.168.0.1"), device("7", "192.168.0.21")})
        host.network().addDevice(entry);
    QCOMPARE(failure([&] {
                 host.connectDevices({"172.16.0.5", "192.168.0.20", "192.168.0.22", "192.168.0.23",
                                      "192.168.0.1", "", "192.168.0.99", "192.168.0.21"});
             }),
             QString("These cameras could not be connected:\n"
                     "172.16.0.5: it is in the subnet of no network adapter\n"
                     "192.168.0.22: another application is connected to it\n"
                     "192.168.0.23: several devices have this address\n"
                     "192.168.0.1: several devices have this address\n"
                     ": no camera answers there\n"
                     "192.168.0.99: no camera answers there"));
    QCOMPARE(rows(host), QStringList({"Camera 1 1 1/1 192.168.0.20 connected found",
                                      "Camera 2 7 1/1 192.168.0.21 connected found"}));
}

void TestDeviceConnections::connectedDeviceIsNotListedTwice()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20"));
    host.connectDevices({"192.168.0.20", "192.168.0.20"});
    host.connectDevices({"192.168.0.20"});
    QCOMPARE(host.cameras().size(), 1);
}

void TestDeviceConnections::removedDeviceIsFreeAgain()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    const QString serialNumber = camera->serialNumber();
    const QString address = camera->ipAddress();
    host.removeDocument(camera->key());
    QVERIFY(!host.connections().isConnected(serialNumber));
    host.connectDevices({address});
    QCOMPARE(host.cameras().size(), 1);
    QCOMPARE(host.cameras().first()->serialNumber(), serialNumber);
}

void TestDeviceConnections::lostDeviceFindsItsRow()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20", 2));
    host.connectDevices({"192.168.0.20"});
    const QList<StandInCamera *> before = host.cameras();
    host.network().setPlugged("1", false);
    QCOMPARE(rows(host), QStringList({"Camera 1 1 1/2 192.168.0.20  ", //
                                      "Camera 1 1 2/2 192.168.0.20  "}));
    QCOMPARE(failure([&] { host.connectDevices({"192.168.0.20"}); }),
             QString("These cameras could not be connected:\n"
                     "192.168.0.20: no camera answers there"));
    host.network().setPlugged("1", true);
    QCOMPARE(rows(host), QStringList({"Camera 1 1 1/2 192.168.0.20 connected found",
                                      "Camera 1 1 2/2 192.168.0.20 connected found"}));
    QCOMPARE(host.cameras(), before);
}

void TestDeviceConnections::deviceFindsItsRowUnderAnotherAddress()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->state().cameraName = "Front";
    const QString serialNumber = camera->serialNumber();
    host.network().setPlugged(serialNumber, false);
    NetworkDevice moved = *host.network().device(serialNumber);
    moved.setting.ipAddress = "192.168.0.77";
    moved.isPlugged = true;
    host.network().addDevice(moved);
    QCOMPARE(rows(host),
             QStringList({"Front " + serialNumber + " 1/1 192.168.0.77 connected found"}));
    QCOMPARE(host.cameras().first(), camera);
    QCOMPARE(camera->editDeviceData().network.ipAddress, QString("192.168.0.77"));
}

void TestDeviceConnections::readdressedDeviceOfAForeignSubnetConnects()
{
    StandInHost host;
    host.network().addDevice(device("1", "172.16.0.5"));
    QCOMPARE(failure([&] { host.connectDevices({"172.16.0.5"}); }),
             QString("These cameras could not be connected:\n"
                     "172.16.0.5: it is in the subnet of no network adapter"));
    QCOMPARE(readdress(host, "1", {"192.168.0.30", Mask, "192.168.0.254"}), QString());
    QCOMPARE(host.network().device("1")->setting.ipAddress, QString("192.168.0.30"));
    QCOMPARE(host.network().device("1")->setting.defaultGateway, QString("192.168.0.254"));
    QCOMPARE(rows(host), QStringList()); // which nobody asked for
    host.connectDevices({"192.168.0.30"});
    QCOMPARE(rows(host), QStringList({"Camera 1 1 1/1 192.168.0.30 connected found"}));
}

void TestDeviceConnections::deviceThatLeavesItsSubnetIsLost()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20"));
    host.connectDevices({"192.168.0.20"});
    QCOMPARE(readdress(host, "1", {"10.0.0.20", "255.0.0.0", ""}), QString());
    QCOMPARE(rows(host), QStringList({"Camera 1 1 1/1 10.0.0.20  found"}));
    QCOMPARE(readdress(host, "1", {"192.168.0.21", Mask, ""}), QString());
    QCOMPARE(rows(host), QStringList({"Camera 1 1 1/1 192.168.0.21 connected found"}));
}

void TestDeviceConnections::deviceIsHeldElsewhereMeanwhile()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20"));
    host.connectDevices({"192.168.0.20"});
    host.network().setHeldElsewhere("1", true);
    QCOMPARE(rows(host), QStringList({"Camera 1 1 1/1 192.168.0.20  found"}));
    host.network().setHeldElsewhere("1", false);
    QCOMPARE(rows(host), QStringList({"Camera 1 1 1/1 192.168.0.20 connected found"}));
}

void TestDeviceConnections::connectedDeviceStaysBesideItsDouble()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20"));
    host.connectDevices({"192.168.0.20"});
    host.network().addDevice(device("2", "192.168.0.20"));
    QVERIFY(host.connections().isConnected("1"));
    QCOMPARE(failure([&] { host.connectDevices({"192.168.0.20"}); }),
             QString("These cameras could not be connected:\n"
                     "192.168.0.20: several devices have this address"));
    QCOMPARE(host.cameras().size(), 1);
}

void TestDeviceConnections::doubleConnectsWhenTheOtherLeaves()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20"));
    host.connectDevices({"192.168.0.20"});
    host.network().setPlugged("1", false);
    host.network().addDevice(device("2", "192.168.0.20"));
    host.network().setPlugged("1", true); // now two have it
    QVERIFY(!host.connections().isConnected("1"));
    QCOMPARE(readdress(host, "2", {"192.168.0.21", Mask, ""}), QString());
    QVERIFY(host.connections().isConnected("1"));
}

void TestDeviceConnections::networkSettingsAreRefused_data()
{
    QTest::addColumn<QStringList>("values"); // adapter, address, mask, gateway, hardware address
    QTest::addColumn<QString>("reason");
    const QString adapter = "192.168.0.1";
    const QString mac = "02:00:5E:00:00:01";
    const auto row = [](const char *name, const QStringList &values, const QString &reason) {
        QTest::newRow(name) << values << reason;
    };
    row("unknown adapter", {"192.168.0.2", "192.168.0.30", Mask, "", mac},
        "No network adapter has the address \"192.168.0.2\".");
    row("no adapter", {"", "192.168.0.30", Mask, "", mac},
        "No network adapter has the address \"\".");
    row("unknown device", {adapter, "192.168.0.30", Mask, "", "02:00:5E:00:00:77"},
        "No camera in the network has the hardware address \"02:00:5E:00:00:77\".");
    row("malformed", {adapter, "192.168.0", Mask, "", mac},
        "\"192.168.0\" is not an address of four numbers from 0 to 255.");
    row("taken by a camera", {adapter, "192.168.0.21", Mask, "", mac},
        "The address 192.168.0.21 is used by another device.");
    row("taken by the adapter", {adapter, adapter, Mask, "", mac},
        "The address 192.168.0.1 is used by another device.");
    row("subnet's own", {adapter, "192.168.0.0", Mask, "", mac},
        "192.168.0.0 is the address of the subnet itself.");
    row("broadcast", {adapter, "192.168.0.255", Mask, "", mac},
        "192.168.0.255 is the address of all devices of the subnet.");
    row("gateway outside", {adapter, "192.168.0.30", Mask, "10.0.0.1", mac},
        "The gateway 10.0.0.1 is not in the subnet of the camera.");
}

void TestDeviceConnections::networkSettingsAreRefused()
{
    QFETCH(QStringList, values);
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20"));
    host.network().addDevice(device("2", "192.168.0.21"));
    host.connectDevices({"192.168.0.20"});
    const QStringList before = rows(host);
    QTEST(failure([&] {
              host.setNetworkSettings(values.at(0), values.at(1), values.at(2), values.at(3),
                                      values.at(4));
          }),
          "reason");
    QCOMPARE(rows(host), before);
    QCOMPARE(host.network().device("1")->setting.ipAddress, QString("192.168.0.20"));
}

void TestDeviceConnections::cameraSettingGoesByTheSameRules_data()
{
    QTest::addColumn<int>("etherType");
    QTest::addColumn<NetworkSetting>("setting");
    QTest::addColumn<QString>("reason");
    for (int type : {0, 1}) {
        const auto row = [type](const char *name, const NetworkSetting &setting,
                                const QString &reason) {
            QTest::addRow("%s, type %d", name, type) << type << setting << reason;
        };
        row("good", {"192.168.0.30", Mask, "192.168.0.254"}, "");
        row("its own", {"192.168.0.10", Mask, ""}, "");
        row("malformed", {"x", Mask, ""}, "\"x\" is not an address of four numbers from 0 to 255.");
        row("taken", {"192.168.0.11", Mask, ""},
            "The address 192.168.0.11 is used by another device.");
        row("subnet's own", {"192.168.0.0", Mask, ""},
            "192.168.0.0 is the address of the subnet itself.");
        row("broadcast", {"192.168.0.255", Mask, ""},
            "192.168.0.255 is the address of all devices of the subnet.");
        row("gateway outside", {"192.168.0.30", Mask, "10.0.0.1"},
            "The gateway 10.0.0.1 is not in the subnet of the camera.");
    }
}

void TestDeviceConnections::cameraSettingGoesByTheSameRules()
{
    QFETCH(int, etherType);
    QFETCH(NetworkSetting, setting);
    QFETCH(QString, reason);
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.addCamera();
    QCOMPARE(failure([&] { camera->setNetworkSetting(etherType, setting); }), reason);
    const bool isSet = reason.isEmpty() && etherType == 0;
    QCOMPARE(camera->ipAddress(), isSet ? setting.ipAddress : QString("192.168.0.10"));
    QCOMPARE(camera->editDeviceData().network.defaultGateway,
             isSet ? setting.defaultGateway : QString("192.168.0.254"));
    QCOMPARE(host.network().device(camera->serialNumber())->setting.ipAddress, camera->ipAddress());
    QCOMPARE(camera->state().networkSettings.contains(1), reason.isEmpty() && etherType == 1);
    QVERIFY(camera->isConnected());
}

void TestDeviceConnections::settingOfAnotherEthernetTypeWaits()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->setNetworkSetting(1, {"10.0.0.7", "255.0.0.0", ""});
    QCOMPARE(camera->ipAddress(), QString("192.168.0.10"));
    camera->setEtherType(1);
    QCOMPARE(camera->ipAddress(), QString("10.0.0.7"));
    QCOMPARE(host.network().device(camera->serialNumber())->setting.ipAddress, QString("10.0.0.7"));
    QVERIFY(!camera->isConnected()); // no adapter there
    camera->setEtherType(0);
    QCOMPARE(camera->ipAddress(), QString("192.168.0.10"));
    QVERIFY(camera->isConnected());
    camera->setEtherType(2); // without a setting of its own
    QCOMPARE(camera->editDeviceData().etherType, 2);
    QCOMPARE(camera->ipAddress(), QString("192.168.0.10"));
}

void TestDeviceConnections::settingCountsForAllHeads()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20", 2));
    host.connectDevices({"192.168.0.20"});
    host.camera(2)->setNetworkSetting(0, {"192.168.0.30", Mask, ""});
    QCOMPARE(host.camera(1)->ipAddress(), QString("192.168.0.30"));
    QCOMPARE(host.camera(2)->ipAddress(), QString("192.168.0.30"));
    host.camera(1)->setNetworkSetting(1, {"192.168.0.31", Mask, ""});
    host.camera(2)->setEtherType(1);
    for (StandInCamera *camera : host.cameras()) {
        QCOMPARE(camera->ipAddress(), QString("192.168.0.31"));
        QCOMPARE(camera->editDeviceData().etherType, 1);
    }
}

void TestDeviceConnections::dummyTakesAnyAddress()
{
    StandInHost host;
    host.addDevice("Dummy", "999.999.999.1", true);
    host.camera(1)->setNetworkSetting(0, {"999.999.999.2", "", ""});
    QCOMPARE(host.camera(1)->ipAddress(), QString("999.999.999.2"));
    QVERIFY(host.network().devices().isEmpty());
}

void TestDeviceConnections::addedCameraIsConnected()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20"));
    host.addDevice("Front", "192.168.0.20", false);
    QCOMPARE(rows(host), QStringList({"Front 1 1/1 192.168.0.20 connected found"}));
    QCOMPARE(host.camera(1)->deviceName(), QString("S-1024"));
    QCOMPARE(host.camera(1)->editDeviceData().headSerialNumber, QString("1-1"));
}

void TestDeviceConnections::addedCameraThatIsListedKeepsItsRow()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.addDevice("Front", camera->ipAddress(), false);
    QCOMPARE(host.cameras().size(), 1);
    QCOMPARE(camera->name(), QString("Camera 1"));
    camera->state().isConnected = false; // the user disconnected it
    host.addDevice("Front", camera->ipAddress(), false);
    QCOMPARE(host.cameras().size(), 1);
    QVERIFY(camera->state().isConnected);
}

void TestDeviceConnections::addedCameraWaitsForItsAddress()
{
    StandInHost host;
    host.addDevice("Front", "192.168.0.20", false);
    QCOMPARE(rows(host), QStringList({"Front  1/1 192.168.0.20  "}));
    QVERIFY(host.network().devices().isEmpty());
    NetworkDevice held = device("1", "192.168.0.20");
    held.isHeldElsewhere = true;
    host.network().addDevice(held);
    QCOMPARE(rows(host), QStringList({"Front  1/1 192.168.0.20  found"}));
    host.network().setPlugged("1", false);
    QCOMPARE(rows(host), QStringList({"Front  1/1 192.168.0.20  "}));
    host.network().addDevice(device("2", "192.168.0.20"));
    QCOMPARE(rows(host), QStringList({"Front 2 1/1 192.168.0.20 connected found"}));
    host.network().addDevice(device("2", "192.168.0.21")); // it is known by now
    QCOMPARE(rows(host), QStringList({"Front 2 1/1 192.168.0.21 connected found"}));
}

void TestDeviceConnections::addedCameraOfTwoHeadsGetsBoth()
{
    StandInHost host;
    host.addCamera();
    host.addDevice("Front", "192.168.0.20", false);
    host.network().addDevice(device("1", "192.168.0.20", 2));
    QCOMPARE(rows(host).mid(1), QStringList({"Front 1 1/2 192.168.0.20 connected found",
                                             "Camera 2 1 2/2 192.168.0.20 connected found"}));
    QCOMPARE(host.cameras().at(2)->cameraNumber(), host.cameras().at(1)->cameraNumber());
}

void TestDeviceConnections::waitingCameraIsReaddressed()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.21"));
    host.addDevice("Front", "192.168.0.20", false);
    QCOMPARE(failure([&] {
                 host.camera(1)->setNetworkSetting(0, {"x", Mask, ""});
             }),
             QString("\"x\" is not an address of four numbers from 0 to 255."));
    host.camera(1)->setNetworkSetting(0, {"192.168.0.21", Mask, ""}); // where a camera is
    QCOMPARE(rows(host), QStringList({"Front 1 1/1 192.168.0.21 connected found"}));
}

void TestDeviceConnections::waitingCameraGoesWhereTheDeviceHasItsRow()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20"));
    host.connectDevices({"192.168.0.20"});
    host.addDevice("Front", "192.168.0.30", false);
    QCOMPARE(host.cameras().size(), 2);
    QCOMPARE(readdress(host, "1", {"192.168.0.30", Mask, ""}), QString());
    QCOMPARE(rows(host), QStringList({"Camera 1 1 1/1 192.168.0.30 connected found"}));
}

void TestDeviceConnections::sameAddressWaitsOnce()
{
    StandInHost host;
    host.addDevice("Front", "192.168.0.20", false);
    host.addDevice("Rear", "192.168.0.20", false);
    QCOMPARE(rows(host), QStringList({"Front  1/1 192.168.0.20  "}));
    host.removeDocument(1);
    host.addDevice("Rear", "192.168.0.20", false);
    QCOMPARE(rows(host), QStringList({"Rear  1/1 192.168.0.20  "}));
}

void TestDeviceConnections::camerasThatWaitForOneAddressFollowTogether()
{
    StandInHost host;
    host.addDevice("Front", "192.168.0.20", false);
    host.addDevice("Rear", "192.168.0.21", false);
    host.camera(2)->setNetworkSetting(0, {"192.168.0.20", Mask, ""});
    NetworkDevice held = device("1", "192.168.0.20");
    held.isHeldElsewhere = true;
    host.network().addDevice(held);
    QCOMPARE(rows(host), QStringList({"Front  1/1 192.168.0.20  found", //
                                      "Rear  1/1 192.168.0.20  found"}));
    host.network().setHeldElsewhere("1", false);
    QCOMPARE(rows(host), QStringList({"Front 1 1/1 192.168.0.20 connected found"}));
}

void TestDeviceConnections::fiveNumbersAreNeverFound()
{
    StandInHost host;
    host.network().addDevice(device("1", "1.2.3.4"));
    host.addDevice("Front", "1.2.3.4.5", false);
    QCOMPARE(rows(host), QStringList({"Front  1/1 1.2.3.4.5  "}));
}

void TestDeviceConnections::changesAreTold()
{
    StandInHost host;
    host.addCamera();
    QSignalSpy changes(host.events(), &StandInEvents::documentsChanged);
    host.network().setPlugged(host.cameras().first()->serialNumber(), false);
    QCOMPARE(changes.count(), 1);
    host.network().addDevice(device("9", "192.168.0.99")); // in no row
    QCOMPARE(changes.count(), 1);
    host.connectDevices({"192.168.0.99"});
    QVERIFY(changes.count() > 1);
}

int main(int argc, char **argv)
{
    TestDeviceConnections test;
    return runTest(argc, argv, test);
}

#include "test_device_connections.moc"
