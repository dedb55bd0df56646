#include "standin/network/BuiltInNetwork.h"
#include "standin/network/CameraNetwork.h"
#include "standin/network/Ipv4.h"
#include "tests/support/TestLog.h"

// The network as a model: addresses, who can be reached, and who may have which address.

using Obstacle = CameraNetwork::Obstacle;
Q_DECLARE_METATYPE(CameraNetwork::Obstacle)
Q_DECLARE_METATYPE(NetworkSetting)

class TestCameraNetwork : public TestBase
{
    Q_OBJECT

private slots:
    void addressesAreRead_data();
    void addressesAreRead();
    void masksAreRead_data();
    void masksAreRead();
    void addressesAreWritten();
    void firstNetworkHasOneAdapter();
    void deviceIsItsSerialNumber();
    void hardwareAddressFindsADevice();
    void missingHardwareAddressIsMade();
    void leadingZerosDoNotCount();
    void obstacles_data();
    void obstacles();
    void adapterIsTheOneThatHears();
    void settingsAreRefused_data();
    void settingsAreRefused();
    void addressOfAnotherIsRefused_data();
    void addressOfAnotherIsRefused();
    void freeAddressIsTheLowest();
    void fullSubnetHasNoFreeAddress();
    void changesAreTold();
    void planIsTakenBeside();
    void builtInNetworkHoldsEveryCase();
};

namespace {

const NetworkSetting Good{"192.168.0.20", "255.255.255.0", "192.168.0.254"};

NetworkDevice device(const QString &serialNumber, const QString &address)
{
    NetworkDevice device;
    device.serialNumber = serialNumber;
    device.setting = {address, "255.255.255.0", ""};
    return device;
}

}

void TestCameraNetwork::addressesAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isAddress");
    QTest::addColumn<uint>("number");
    const auto row = [](const char *text, bool isAddress, uint number) {
        QTest::newRow(*text ? text : "empty") << text << isAddress << number;
    };
    row("192.168.0.10", true, 0xc0a8000a);
    row("0.0.0.0", true, 0);
    row("255.255.255.255", true, 0xffffffff);
    row("010.000.00.007", true, 0x0a000007);
    row("256.0.0.1", false, 0);
    row("999.999.999.1", false, 0);
    row("1.2.3", false, 0);
    row("1.2.3.4.5", false, 0);
    row("1.2.3.", false, 0);
    row("1.2.3.0004", false, 0);
    row("1.2.3.+4", false, 0);
    row("1.2.3.-4", false, 0);
    row("1.2.3. 4", false, 0);
    row("1.2.3.x", false, 0);
    row("", false, 0);
}

void TestCameraNetwork::addressesAreRead()
{
    QFETCH(QString, text);
    QFETCH(bool, isAddress);
    QFETCH(uint, number);
    const std::optional<quint32> address = Ipv4::address(text);
    QCOMPARE(address.has_value(), isAddress);
    QCOMPARE(address.value_or(0), number);
    QVERIFY(!Ipv4::address(QString::fromUtf8("1.2.3.\u0663"))); // a digit, but not one of these
}

void TestCameraNetwork::masksAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isMask");
    const auto row = [](const char *text, bool isMask) { QTest::newRow(text) << text << isMask; };
    row("255.255.255.0", true);
    row("255.0.0.0", true);
    row("128.0.0.0", true);
    row("255.255.255.252", true);
    row("255.255.255.254", false);
    row("255.255.255.255", false);
    row("0.0.0.0", false);
    row("255.0.255.0", false);
    row("0.255.255.255", false);
    row("255.255.255.256", false);
    row("24", false);
}

void TestCameraNetwork::masksAreRead()
{
    QFETCH(QString, text);
    QTEST(Ipv4::mask(text).has_value(), "isMask");
}

void TestCameraNetwork::addressesAreWritten()
{
    QCOMPARE(Ipv4::text(0xc0a8000a), QString("192.168.0.10"));
    QCOMPARE(Ipv4::normalized("010.000.00.007"), QString("10.0.0.7"));
    QCOMPARE(Ipv4::normalized("1.2.3.4.5"), QString("1.2.3.4.5"));
    QCOMPARE(Ipv4::ownAddress(0xc0a8000a, 0xffffff00), 0xc0a80000u);
    QCOMPARE(Ipv4::broadcastAddress(0xc0a8000a, 0xffffff00), 0xc0a800ffu);
}

void TestCameraNetwork::firstNetworkHasOneAdapter()
{
    const CameraNetwork network;
    QCOMPARE(network.adapters().size(), 1);
    QCOMPARE(network.adapters().first().address, QString("192.168.0.1"));
    QCOMPARE(network.adapters().first().mask, QString("255.255.255.0"));
    QVERIFY(network.devices().isEmpty());
    QVERIFY(!network.device("1"));
}

void TestCameraNetwork::deviceIsItsSerialNumber()
{
    CameraNetwork network;
    network.addDevice(device("1", "192.168.0.20"));
    network.addDevice(device("2", "192.168.0.21"));
    network.addDevice(device("1", "192.168.0.22"));
    QCOMPARE(network.devices().size(), 2);
    QCOMPARE(network.device("1")->setting.ipAddress, QString("192.168.0.22"));
    QVERIFY(network.devicesAt("192.168.0.20").isEmpty());
}

void TestCameraNetwork::hardwareAddressFindsADevice()
{
    CameraNetwork network;
    NetworkDevice camera = device("1", "172.16.0.1");
    camera.hardwareAddress = "02:00:5E:00:00:aB";
    network.addDevice(camera);
    QCOMPARE(network.deviceByHardwareAddress("02:00:5e:00:00:Ab"), network.device("1"));
    QVERIFY(!network.deviceByHardwareAddress("02:00:5e:00:00:ac"));
    QVERIFY(!network.deviceByHardwareAddress(""));
    network.setPlugged("1", false);
    QVERIFY(!network.deviceByHardwareAddress(camera.hardwareAddress));
    camera.hardwareAddress = "02:00:5E:00:00:01";
    network.addDevice(camera); // in its place
    QVERIFY(!network.deviceByHardwareAddress("02:00:5E:00:00:aB"));
    QVERIFY(network.deviceByHardwareAddress("02:00:5E:00:00:01"));
}

void TestCameraNetwork::missingHardwareAddressIsMade()
{
    CameraNetwork network;
    NetworkDevice camera = device("1", "192.168.0.20");
    camera.hardwareAddress = "02:00:00:00:00:02";
    network.addDevice(camera);
    network.addDevice(device("2", "192.168.0.21"));
    network.addDevice(device("3", "192.168.0.22"));
    QSet<QString> addresses;
    for (const NetworkDevice &entry : network.devices())
        addresses.insert(entry.hardwareAddress);
    QCOMPARE(addresses.size(), 3);
    QVERIFY(!addresses.contains(QString()));
}

void TestCameraNetwork::leadingZerosDoNotCount()
{
    CameraNetwork network;
    NetworkPlan plan;
    plan.adapters = {{"A", "010.000.000.001", "255.000.000.000"}};
    plan.devices = {device("1", "010.000.000.007")};
    network.load(plan);
    QCOMPARE(network.adapters().first().address, QString("10.0.0.1"));
    QCOMPARE(network.device("1")->setting.ipAddress, QString("10.0.0.7"));
    QCOMPARE(network.refusal("2", {"010.0.0.007", "255.0.0.0", ""}),
             QString("The address 010.0.0.007 is used by another device."));
    network.setSetting("1", {"10.0.0.008", "255.0.0.0", "10.00.0.1"});
    QCOMPARE(network.device("1")->setting.ipAddress, QString("10.0.0.8"));
    QCOMPARE(network.device("1")->setting.defaultGateway, QString("10.0.0.1"));
}

void TestCameraNetwork::obstacles_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("isHeld");
    QTest::addColumn<Obstacle>("obstacle");
    const auto row = [](const char *name, const char *address, bool isHeld, Obstacle obstacle) {
        QTest::newRow(name) << address << isHeld << obstacle;
    };
    row("in the subnet", "192.168.0.20", false, Obstacle::None);
    row("in the subnet of the second adapter", "10.1.2.3", false, Obstacle::None);
    row("just outside", "192.168.1.20", false, Obstacle::Unreachable);
    row("no address", "", false, Obstacle::Unreachable);
    row("of another", "192.168.0.30", false, Obstacle::AddressUsedTwice);
    row("of an adapter", "192.168.0.1", false, Obstacle::AddressUsedTwice);
    row("of one that is not plugged in", "192.168.0.31", false, Obstacle::None);
    row("outside, of another", "172.16.0.5", false, Obstacle::Unreachable);
    row("held", "192.168.0.20", true, Obstacle::HeldElsewhere);
    row("held outside", "172.16.0.5", true, Obstacle::HeldElsewhere);
}

void TestCameraNetwork::obstacles()
{
    QFETCH(QString, address);
    QFETCH(bool, isHeld);
    CameraNetwork network;
    NetworkPlan plan;
    plan.adapters = {{"A", "192.168.0.1", "255.255.255.0"}, {"B", "10.0.0.1", "255.0.0.0"}};
    plan.devices = {device("1", "192.168.0.30"), device("2", "192.168.0.31"),
                    device("3", "172.16.0.5"), device("4", address)};
    network.load(plan);
    network.setPlugged("2", false);
    network.setHeldElsewhere("4", isHeld);
    QTEST(network.obstacle(*network.device("4")), "obstacle");
}

void TestCameraNetwork::adapterIsTheOneThatHears()
{
    CameraNetwork network;
    NetworkPlan plan;
    plan.adapters = {{"A", "192.168.0.1", "255.255.255.0"}, {"B", "10.0.0.1", "255.0.0.0"}};
    plan.devices = {device("1", "10.1.1.1"), device("2", "172.16.0.5"), device("3", "0.0.0.0")};
    plan.devices.last().adapter = "10.0.0.1";
    network.load(plan);
    QCOMPARE(network.adapterOf(*network.device("1"))->name, QString("B")); // by the subnet
    QCOMPARE(network.adapterOf(*network.device("2"))->name, QString("A")); // the first
    QCOMPARE(network.adapterOf(*network.device("3"))->name, QString("B")); // its own
    network.load(NetworkPlan());
    QVERIFY(!network.adapterOf(*network.device("1")));
}

void TestCameraNetwork::settingsAreRefused_data()
{
    QTest::addColumn<NetworkSetting>("setting");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const NetworkSetting &setting, const QString &reason) {
        QTest::newRow(name) << setting << reason;
    };
    const QString no = "\"%1\" is not an address of four numbers from 0 to 255.";
    row("good", Good, "");
    row("no gateway", {"192.168.0.20", "255.255.255.0", ""}, "");
    row("gateway of zeros", {"192.168.0.20", "255.255.255.0", "0.0.0.0"}, "");
    row("five numbers", {"1.2.3.4.5", "255.255.255.0", ""}, no.arg("1.2.3.4.5"));
    row("too large", {"192.168.0.256", "255.255.255.0", ""}, no.arg("192.168.0.256"));
    row("empty", {"", "255.255.255.0", ""}, no.arg(""));
    row("no mask", {"192.168.0.20", "", ""}, "\"\" is not a subnet mask.");
    row("mask with a hole", {"192.168.0.20", "255.0.255.0", ""},
        "\"255.0.255.0\" is not a subnet mask.");
    row("subnet", {"192.168.0.0", "255.255.255.0", ""},
        "192.168.0.0 is the address of the subnet itself.");
    row("subnet of a wide mask", {"10.0.0.0", "255.0.0.0", ""},
        "10.0.0.0 is the address of the subnet itself.");
    row("no subnet in a wide mask", {"10.0.1.0", "255.0.0.0", ""}, "");
    row("broadcast", {"192.168.0.255", "255.255.255.0", ""},
        "192.168.0.255 is the address of all devices of the subnet.");
    row("broadcast of half a subnet", {"192.168.0.127", "255.255.255.128", ""},
        "192.168.0.127 is the address of all devices of the subnet.");
    row("gateway outside", {"192.168.0.20", "255.255.255.0", "192.168.1.254"},
        "The gateway 192.168.1.254 is not in the subnet of the camera.");
    row("gateway that is none", {"192.168.0.20", "255.255.255.0", "router"}, no.arg("router"));
}

void TestCameraNetwork::settingsAreRefused()
{
    QFETCH(NetworkSetting, setting);
    QTEST(CameraNetwork::formRefusal(setting), "reason");
    QTEST(CameraNetwork().refusal("1", setting), "reason");
}

void TestCameraNetwork::addressOfAnotherIsRefused_data()
{
    QTest::addColumn<QString>("serialNumber");
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("isRefused");
    const auto row = [](const char *name, const char *serialNumber, const char *address,
                        bool isRefused) {
        QTest::newRow(name) << serialNumber << address << isRefused;
    };
    row("of a camera", "2", "192.168.0.30", true);
    row("its own", "1", "192.168.0.30", false);
    row("of an adapter", "2", "192.168.0.1", true);
    row("of nobody", "2", "192.168.0.32", false);
    row("of one that is not plugged in", "2", "192.168.0.31", false);
}

void TestCameraNetwork::addressOfAnotherIsRefused()
{
    QFETCH(QString, serialNumber);
    QFETCH(QString, address);
    QFETCH(bool, isRefused);
    CameraNetwork network;
    network.addDevice(device("1", "192.168.0.30"));
    network.addDevice(device("3", "192.168.0.31"));
    network.setPlugged("3", false);
    QCOMPARE(network.refusal(serialNumber, {address, "255.255.255.0", ""}),
             isRefused ? "The address " + address + " is used by another device." : QString());
}

void TestCameraNetwork::freeAddressIsTheLowest()
{
    CameraNetwork network;
    const auto address = [&network] { return network.freeAddress(network.adapters().first()); };
    QCOMPARE(address(), QString("192.168.0.2"));
    network.addDevice(device("1", "192.168.0.2"));
    network.addDevice(device("2", "192.168.0.3"));
    QCOMPARE(address(), QString("192.168.0.4"));
    network.setPlugged("1", false);
    QCOMPARE(address(), QString("192.168.0.2"));
    QCOMPARE(network.freeAddress({"C", "", ""}), QString());
}

void TestCameraNetwork::fullSubnetHasNoFreeAddress()
{
    CameraNetwork network;
    NetworkPlan plan;
    plan.adapters = {{"A", "192.168.0.1", "255.255.255.252"}};
    network.load(plan);
    QCOMPARE(network.freeAddress(network.adapters().first()), QString("192.168.0.2"));
    network.addDevice(device("1", "192.168.0.2"));
    QCOMPARE(network.freeAddress(network.adapters().first()), QString());
}

void TestCameraNetwork::changesAreTold()
{
    CameraNetwork network;
    QList<QSet<QString>> told;
    network.setListener([&told](const QSet<QString> &addresses) { told.append(addresses); });
    network.addDevice(device("1", "192.168.0.20"));
    network.setPlugged("1", false);
    network.setSetting("1", {"192.168.0.21", "255.255.255.0", ""});
    network.setHeldElsewhere("1", true);
    network.addDevice(device("1", "192.168.0.22"));
    network.setPlugged("2", true); // there is none
    const QList<QSet<QString>> expected = {{"192.168.0.20"},
                                           {"192.168.0.20"},
                                           {"192.168.0.20", "192.168.0.21"},
                                           {"192.168.0.21"},
                                           {"192.168.0.21", "192.168.0.22"}};
    QCOMPARE(told, expected);
}

void TestCameraNetwork::planIsTakenBeside()
{
    CameraNetwork network;
    network.addDevice(device("1", "192.168.0.20"));
    NetworkPlan plan;
    plan.adapters = {{"A", "10.0.0.1", "255.0.0.0"}};
    plan.devices = {device("2", "10.0.0.2")};
    plan.searchTime = 70;
    network.load(plan);
    QCOMPARE(network.adapters().size(), 1);
    QCOMPARE(network.adapters().first().name, QString("A"));
    QVERIFY(network.device("1"));
    QVERIFY(network.device("2"));
    QCOMPARE(network.searchTime(), 70);
}

void TestCameraNetwork::builtInNetworkHoldsEveryCase()
{
    CameraNetwork network;
    network.load(BuiltInNetwork::plan());
    QCOMPARE(network.adapters().size(), 2);
    QMap<Obstacle, int> obstacles;
    int heads = 0;
    int slow = 0;
    for (const NetworkDevice &entry : network.devices()) {
        ++obstacles[network.obstacle(entry)];
        heads = std::max(heads, entry.heads);
        slow += entry.delay > 0;
        QVERIFY(entry.delay < network.searchTime());
    }
    QCOMPARE(obstacles.value(Obstacle::None), 3);
    QCOMPARE(obstacles.value(Obstacle::Unreachable), 2);
    QCOMPARE(obstacles.value(Obstacle::HeldElsewhere), 1);
    QCOMPARE(obstacles.value(Obstacle::AddressUsedTwice), 3);
    QCOMPARE(heads, 2);
    QCOMPARE(slow, 1);
}

int main(int argc, char **argv)
{
    TestCameraNetwork test;
    return runTest(argc, argv, test);
}

#include "test_camera_network.moc"
