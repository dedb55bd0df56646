#include "standin/network/NetworkFile.h"
#include "tests/support/TestLog.h"

#include <QTemporaryDir>

#include <sys/stat.h>

// A network that stands in a file.

class TestNetworkFile : public TestBase
{
    Q_OBJECT

private slots:
    void networkIsRead();
    void absentValuesHaveTheirDefaults();
    void wrongContentIsRefused_data();
    void wrongContentIsRefused();
    void fileIsRead();
    void whatIsNoPlainFileIsRefused();
    void largeFileIsRefused();
};

namespace {

QString deviceText(const QString &entries)
{
    return "{\"devices\": [{\"serialNumber\": \"1\", \"address\": \"10.0.0.2\","
           " \"mask\": \"255.0.0.0\"" +
           entries + "}]}";
}

}

void TestNetworkFile::networkIsRead()
{
    const NetworkFile::Outcome outcome = NetworkFile::parse(R"({
        "searchTime": 500,
        "adapters": [{"name": "A", "address": "10.0.0.1", "mask": "255.0.0.0"}],
        "devices": [{"serialNumber": "7", "hardwareAddress": "02:00:5E:00:00:07",
                     "model": "S-2048", "heads": 2, "address": "10.0.0.7", "mask": "255.0.0.0",
                     "gateway": "10.0.0.254", "adapter": "10.0.0.1", "delay": -1,
                     "heldElsewhere": true, "plugged": false}]})");
    QCOMPARE(outcome.reason, QString());
    const NetworkPlan &plan = outcome.plan;
    QCOMPARE(plan.searchTime, 500);
    QCOMPARE(plan.adapters.size(), 1);
    QCOMPARE(plan.adapters.first().name, QString("A"));
    QCOMPARE(plan.adapters.first().address, QString("10.0.0.1"));
    QCOMPARE(plan.adapters.first().mask, QString("255.0.0.0"));
    QCOMPARE(plan.devices.size(), 1);
    const NetworkDevice &device = plan.devices.first();
    QCOMPARE(device.serialNumber, QString("7"));
    QCOMPARE(device.hardwareAddress, QString("02:00:5E:00:00:07"));
    QCOMPARE(device.model, QString("S-2048"));
    QCOMPARE(device.heads, 2);
    QCOMPARE(device.setting.ipAddress, QString("10.0.0.7"));
    QCOMPARE(device.setting.subnetMask, QString("255.0.0.0"));
    QCOMPARE(device.setting.defaultGateway, QString("10.0.0.254"));
    QCOMPARE(device.adapter, QString("10.0.0.1"));
    QCOMPARE(device.delay, -1);
    QVERIFY(device.isHeldElsewhere);
    QVERIFY(!device.isPlugged);
}

void TestNetworkFile::absentValuesHaveTheirDefaults()
{
    const NetworkFile::Outcome empty = NetworkFile::parse("{}");
    QCOMPARE(empty.reason, QString());
    QVERIFY(empty.plan.adapters.isEmpty());
    QVERIFY(empty.plan.devices.isEmpty());
    QCOMPARE(empty.plan.searchTime, 3000);
    const NetworkFile::Outcome outcome = NetworkFile::parse(deviceText("").toUtf8());
    QCOMPARE(outcome.reason, QString());
    const NetworkDevice &device = outcome.plan.devices.first();
    QCOMPARE(device.hardwareAddress, QString());
    QCOMPARE(device.model, QString("S-1024"));
    QCOMPARE(device.heads, 1);
    QCOMPARE(device.setting.defaultGateway, QString());
    QCOMPARE(device.delay, 0);
    QVERIFY(!device.isHeldElsewhere);
    QVERIFY(device.isPlugged);
}

void TestNetworkFile::wrongContentIsRefused_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const QString &content, const QString &reason) {
        QTest::newRow(name) << content << reason;
    };
    row("nothing", "", "illegal value");
    row("array", "[]", "it holds no JSON object");
    row("deep", "{\"devices\": " + QString(100000, '['), "too deeply nested document");
    row("time", "{\"searchTime\": 0}",
        "the network: its \"searchTime\" is no whole number from 1 to 60000");
    row("no array", "{\"devices\": {}}", "the network: its \"devices\" is no array");
    row("adapter without address", "{\"adapters\": [{}]}",
        "adapter 1: its \"address\" is no address");
    row("adapter with a wrong mask",
        "{\"adapters\": [{\"address\": \"10.0.0.1\", \"mask\": \"8\"}]}",
        "adapter 1: its \"mask\" is no subnet mask");
    row("name that is no text",
        "{\"adapters\": [{\"name\": 1, \"address\": \"10.0.0.1\", \"mask\": \"255.0.0.0\"}]}",
        "adapter 1: its \"name\" is no text");
    row("device that is no object", "{\"devices\": [7]}", "device 1: it has no \"serialNumber\"");
    row("same serial number",
        deviceText("}, {\"serialNumber\": \"1\", \"address\": \"10.0.0.3\","
                   " \"mask\": \"255.0.0.0\""),
        "device 2: its \"serialNumber\" stands there twice");
    row("same hardware address",
        deviceText(", \"hardwareAddress\": \"aa\"}, {\"serialNumber\": \"2\","
                   " \"hardwareAddress\": \"AA\", \"address\": \"10.0.0.3\","
                   " \"mask\": \"255.0.0.0\""),
        "device 2: its \"hardwareAddress\" stands there twice");
    row("heads", deviceText(", \"heads\": 17"),
        "device 1: its \"heads\" is no whole number from 1 to 16");
    row("half a head", deviceText(", \"heads\": 1.5"),
        "device 1: its \"heads\" is no whole number from 1 to 16");
    row("delay", deviceText(", \"delay\": \"1\""),
        "device 1: its \"delay\" is no whole number from -1 to 60000");
    row("flag", deviceText(", \"plugged\": 1"),
        "device 1: its \"plugged\" is neither true nor false");
    row("first reason", "{\"searchTime\": 0, \"devices\": [7]}",
        "the network: its \"searchTime\" is no whole number from 1 to 60000");
}

void TestNetworkFile::wrongContentIsRefused()
{
    QFETCH(QString, content);
    QTEST(NetworkFile::parse(content.toUtf8()).reason, "reason");
}

void TestNetworkFile::fileIsRead()
{
    QTemporaryDir dir;
    QFile file(dir.filePath("network.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"searchTime\": 70}");
    file.close();
    const NetworkFile::Outcome outcome = NetworkFile::read(file.fileName());
    QCOMPARE(outcome.reason, QString());
    QCOMPARE(outcome.plan.searchTime, 70);
}

void TestNetworkFile::whatIsNoPlainFileIsRefused()
{
    QTemporaryDir dir;
    const QString none = QStringLiteral("it is no file");
    QCOMPARE(NetworkFile::read(dir.filePath("absent")).reason, none);
    QCOMPARE(NetworkFile::read(dir.path()).reason, none);
    QCOMPARE(NetworkFile::read(QString()).reason, none);
    const QString pipe = dir.filePath("pipe");
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QCOMPARE(NetworkFile::read(pipe).reason, none);
}

void TestNetworkFile::largeFileIsRefused()
{
    QTemporaryDir dir;
    QFile file(dir.filePath("network.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{}");
    file.write(QByteArray(NetworkFile::LargestFile - 2, ' '));
    file.close();
    QCOMPARE(NetworkFile::read(file.fileName()).reason, QString());
    QVERIFY(file.open(QIODevice::Append));
    file.write(" ");
    file.close();
    QCOMPARE(NetworkFile::read(file.fileName()).reason, QString("it is larger than 1048576 bytes"));
}

int main(int argc, char **argv)
{
    TestNetworkFile test;
    return runTest(argc, argv, test);
}

#include "test_network_file.moc"
