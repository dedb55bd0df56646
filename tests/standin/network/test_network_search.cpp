#include "foundation/Keys.h"
#include "standin/host/StandInHost.h"
#include "standin/network/NetworkSearch.h"
#include "standin/network/SearchText.h"
#include "tests/support/TestLog.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

// Searches for devices: who answers, how long they take, and the result as pages read it.

class TestNetworkSearch : public TestBase
{
    Q_OBJECT

private slots:
    void devicesOfTheWayAnswer_data();
    void devicesOfTheWayAnswer();
    void quickAnswersNeedNoWait();
    void slowAnswersAreWaitedFor();
    void timeLimitEndsIt();
    void cancellingEndsIt();
    void cancelledBeforeItRuns();
    void deviceThatGoesIsLeftOut();
    void resultIsDocumented();
    void emptyNetwork();
    void statesAreTold();
    void settingsChooseTheWay();
    void hostIsCancelled();
    void progressHasCancel();
    void quickSearchShowsNoProgress();
    void quietHostShowsNoProgress();
};

namespace {

constexpr int Never = -1;
constexpr int Long = 5000; // milliseconds, more than any test waits

NetworkDevice device(const QString &serialNumber, const QString &address, int delay = 0)
{
    NetworkDevice device;
    device.serialNumber = serialNumber;
    device.hardwareAddress = "02:00:5E:00:00:0" + serialNumber;
    device.setting = {address, "255.255.255.0", ""};
    device.delay = delay;
    return device;
}

CameraNetwork networkOf(const QList<NetworkDevice> &devices, int searchTime = 3000)
{
    NetworkPlan plan;
    plan.adapters = {{"A", "192.168.0.1", "255.255.255.0"}, {"B", "10.0.0.1", "255.0.0.0"}};
    plan.devices = devices;
    plan.searchTime = searchTime;
    CameraNetwork network;
    network.load(plan);
    return network;
}

QJsonObject objectOf(const QString &json)
{
    return QJsonDocument::fromJson(json.toUtf8()).object();
}

// The devices of a result, by serial number, with their states.
QStringList statesOf(const QString &json)
{
    QStringList states;
    for (const QJsonValue &row : objectOf(json).value("devices").toArray())
        states.append(row.toObject().value("serial").toString() + ' ' +
                      row.toObject().value("state").toString());
    return states;
}

}

void TestNetworkSearch::devicesOfTheWayAnswer_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<QString>("address");
    QTest::addColumn<QStringList>("found");
    const auto row = [](const char *name, int way, const QString &address,
                        const QStringList &found) {
        QTest::newRow(name) << way << address << found;
    };
    const int all = NetworkSearch::Broadcast;
    const int subnet = NetworkSearch::Subnet;
    row("broadcast finds foreign subnets", all, "192.168.0.0", {"1", "2", "3", "4", "5"});
    row("broadcast asks for no address", all, "", {"1", "2", "3", "4", "5"});
    row("subnet of an adapter", subnet, "192.168.0.0", {"1", "2"});
    row("an address of it", subnet, "192.168.0.77", {"1", "2"});
    row("wide mask of its adapter", subnet, "10.9.9.9", {"3", "4"});
    row("foreign subnet of 256", subnet, "172.16.5.0", {"5"});
    row("foreign subnet, other third number", subnet, "172.16.6.0", {});
    row("no address", subnet, "subnet", {});
}

void TestNetworkSearch::devicesOfTheWayAnswer()
{
    QFETCH(int, way);
    QFETCH(QString, address);
    CameraNetwork network = networkOf({device("1", "192.168.0.20"), device("2", "192.168.0.21"),
                                       device("3", "10.0.0.20"), device("4", "10.1.2.3"),
                                       device("5", "172.16.5.20"), device("6", "192.168.0.22")});
    network.setPlugged("6", false);
    NetworkSearch search(network, NetworkSearch::Way(way), address);
    const NetworkSearch::Result result = search.run();
    QTEST(result.serialNumbers, "found");
    QVERIFY(result.isComplete);
}

void TestNetworkSearch::quickAnswersNeedNoWait()
{
    const CameraNetwork network = networkOf({device("1", "192.168.0.20")});
    NetworkSearch search(network, NetworkSearch::Broadcast, QString());
    QCOMPARE(search.duration(), 0);
    QSignalSpy reports(&search, &NetworkSearch::progressed);
    QVERIFY(search.run().isComplete);
    QCOMPARE(reports.count(), 0);
}

void TestNetworkSearch::slowAnswersAreWaitedFor()
{
    const CameraNetwork network =
        networkOf({device("1", "192.168.0.20", 120), device("2", "192.168.0.21")});
    NetworkSearch search(network, NetworkSearch::Broadcast, QString());
    QCOMPARE(search.duration(), 120);
    QSignalSpy reports(&search, &NetworkSearch::progressed);
    QElapsedTimer clock;
    clock.start();
    const NetworkSearch::Result result = search.run();
    QVERIFY(clock.elapsed() >= 120);
    QCOMPARE(result.serialNumbers, QStringList({"1", "2"}));
    QVERIFY(result.isComplete);
    QVERIFY(reports.count() >= 1);
    QCOMPARE(reports.last().first().toInt(), 120);
}

void TestNetworkSearch::timeLimitEndsIt()
{
    const CameraNetwork network =
        networkOf({device("1", "192.168.0.20", Never), device("2", "192.168.0.21", Long),
                   device("3", "192.168.0.22", 10)},
                  60);
    NetworkSearch search(network, NetworkSearch::Broadcast, QString());
    QCOMPARE(search.duration(), 60);
    const NetworkSearch::Result result = search.run();
    QCOMPARE(result.serialNumbers, QStringList({"3"}));
    QVERIFY(!result.isComplete);
}

void TestNetworkSearch::cancellingEndsIt()
{
    const CameraNetwork network =
        networkOf({device("1", "192.168.0.20"), device("2", "192.168.0.21", Long)}, Long);
    NetworkSearch search(network, NetworkSearch::Broadcast, QString());
    QTimer::singleShot(20, &search, &NetworkSearch::cancel);
    QElapsedTimer clock;
    clock.start();
    const NetworkSearch::Result result = search.run();
    QVERIFY(clock.elapsed() < Long);
    QCOMPARE(result.serialNumbers, QStringList({"1"}));
    QVERIFY(!result.isComplete);
}

void TestNetworkSearch::cancelledBeforeItRuns()
{
    const CameraNetwork network = networkOf({device("1", "192.168.0.20", Long)}, Long);
    NetworkSearch search(network, NetworkSearch::Broadcast, QString());
    search.cancel();
    QVERIFY(!search.run().isComplete);
}

void TestNetworkSearch::deviceThatGoesIsLeftOut()
{
    CameraNetwork network =
        networkOf({device("1", "192.168.0.20"), device("2", "192.168.0.21", 60)});
    NetworkSearch search(network, NetworkSearch::Broadcast, QString());
    QTimer::singleShot(10, &search, [&network] { network.setPlugged("1", false); });
    QCOMPARE(search.run().serialNumbers, QStringList({"2"}));
}

void TestNetworkSearch::resultIsDocumented()
{
    NetworkDevice camera = device("1", "192.168.0.20");
    camera.model = "S-2048";
    camera.heads = 2;
    camera.setting.defaultGateway = "192.168.0.254";
    const CameraNetwork network = networkOf({camera});
    NetworkSearch::Result result;
    result.serialNumbers = QStringList({"1", "gone"});
    result.isComplete = false;
    const QString json = SearchText::compactText(network, result, {{"1", "Front"}}, {"1"});
    const QJsonObject expected{
        {"complete", false},
        {"adapters", QJsonArray{QJsonObject{{"name", "A"},
                                            {"adapteraddress", "192.168.0.1"},
                                            {"subnetmask", "255.255.255.0"},
                                            {"freeaddress", "192.168.0.2"}},
                                QJsonObject{{"name", "B"},
                                            {"adapteraddress", "10.0.0.1"},
                                            {"subnetmask", "255.0.0.0"},
                                            {"freeaddress", "10.0.0.2"}}}},
        {"devices", QJsonArray{QJsonObject{{"serial", "1"},
                                           {"model", "S-2048"},
                                           {"heads", 2},
                                           {"macaddress", "02:00:5E:00:00:01"},
                                           {"ipaddress", "192.168.0.20"},
                                           {"subnetmask", "255.255.255.0"},
                                           {"defaultgateway", "192.168.0.254"},
                                           {"adapteraddress", "192.168.0.1"},
                                           {"name", "Front"},
                                           {"state", "connected"}}}}};
    QCOMPARE(objectOf(json), expected);
    QVERIFY(!json.contains('\n'));
}

void TestNetworkSearch::emptyNetwork()
{
    StandInHost host;
    host.network().load(NetworkPlan());
    const QJsonObject expected{
        {"complete", true}, {"adapters", QJsonArray()}, {"devices", QJsonArray()}};
    QCOMPARE(objectOf(host.searchAgain()), expected);
}

void TestNetworkSearch::statesAreTold()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20"));
    host.network().addDevice(device("2", "192.168.0.21"));
    host.network().addDevice(device("3", "172.16.0.5"));
    host.network().addDevice(device("4", "192.168.0.22"));
    host.network().addDevice(device("5", "192.168.0.22"));
    NetworkDevice held = device("6", "192.168.0.23");
    held.isHeldElsewhere = true;
    host.network().addDevice(held);
    host.connectDevices({"192.168.0.21"});
    host.camera(1)->state().cameraName = "Front";
    const QString json = host.searchAgain();
    QCOMPARE(statesOf(json), QStringList({"1 free", "2 connected", "3 unreachable", "4 duplicate",
                                          "5 duplicate", "6 elsewhere"}));
    const QJsonArray rows = objectOf(json).value("devices").toArray();
    QCOMPARE(rows.at(0).toObject().value("name").toString(), QString());
    QCOMPARE(rows.at(1).toObject().value("name").toString(), QString("Front"));
    host.camera(1)->state().isConnected = false; // listed, and can be connected again
    QCOMPARE(statesOf(host.searchAgain()).at(1), QString("2 free"));
}

void TestNetworkSearch::settingsChooseTheWay()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20"));
    host.network().addDevice(device("2", "172.16.5.20"));
    QCOMPARE(statesOf(host.searchAgain()).size(), 2);
    host.setPref(Keys::cameraConnection.searchWay, 1);
    QCOMPARE(statesOf(host.searchAgain()), QStringList({"1 free"}));
    host.setPref(Keys::cameraConnection.searchIp, "172.16.5.0");
    QCOMPARE(statesOf(host.searchAgain()), QStringList({"2 unreachable"}));
    host.setPref(Keys::cameraConnection.searchWay, 7); // shown as a search for all
    QCOMPARE(statesOf(host.searchAgain()).size(), 2);
}

void TestNetworkSearch::hostIsCancelled()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20"));
    host.network().addDevice(device("2", "192.168.0.21", Long));
    host.cancelSearch(); // there is none
    QTimer::singleShot(20, host.events(), [&host] { host.cancelSearch(); });
    const QString json = host.searchAgain();
    QCOMPARE(statesOf(json), QStringList({"1 free"}));
    QCOMPARE(objectOf(json).value("complete"), QJsonValue(false));
}

void TestNetworkSearch::progressHasCancel()
{
    StandInHost host;
    host.setInteractive(true);
    host.network().addDevice(device("1", "192.168.0.20"));
    host.network().addDevice(device("2", "192.168.0.21", Never));
    QString text;
    int steps = 0;
    QTimer clicks;
    connect(&clicks, &QTimer::timeout, this, [&] {
        auto *progress = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        if (!progress || !progress->isVisible())
            return;
        text = progress->labelText();
        steps = progress->maximum();
        QTest::mouseClick(progress->findChild<QPushButton *>(), Qt::LeftButton);
    });
    clicks.start(20);
    QElapsedTimer clock;
    clock.start();
    const QString json = host.searchAgain();
    QVERIFY(clock.elapsed() < host.network().searchTime());
    QCOMPARE(text, QString("Searching for cameras..."));
    QCOMPARE(steps, host.network().searchTime());
    QCOMPARE(statesOf(json), QStringList({"1 free"}));
    QCOMPARE(objectOf(json).value("complete"), QJsonValue(false));
    QVERIFY(!QApplication::activeModalWidget());
}

void TestNetworkSearch::quickSearchShowsNoProgress()
{
    StandInHost host;
    host.setInteractive(true);
    host.network().addDevice(device("1", "192.168.0.20", 60));
    bool isShown = false;
    QTimer looks;
    connect(&looks, &QTimer::timeout, this,
            [&isShown] { isShown = isShown || QApplication::activeModalWidget(); });
    looks.start(5);
    QCOMPARE(statesOf(host.searchAgain()), QStringList({"1 free"}));
    QVERIFY(!isShown);
}

void TestNetworkSearch::quietHostShowsNoProgress()
{
    StandInHost host;
    host.network().addDevice(device("1", "192.168.0.20", 400)); // longer than a short search
    bool isShown = false;
    QTimer looks;
    connect(&looks, &QTimer::timeout, this,
            [&isShown] { isShown = isShown || QApplication::activeModalWidget(); });
    looks.start(5);
    QCOMPARE(statesOf(host.searchAgain()), QStringList({"1 free"}));
    QVERIFY(!isShown);
}

int main(int argc, char **argv)
{
    TestNetworkSearch test;
    return runTest(argc, argv, test);
}

#include "test_network_search.moc"
