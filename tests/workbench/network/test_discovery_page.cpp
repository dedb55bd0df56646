#include "bridge/page/GUI_WebView.h"
#include "device/discovery/GUI_DiscoverySearchDialog.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/support/PageVisit.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Options.h"
#include "workbench/tour/PageHand.h"

#include <QDialog>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

using namespace PageHand;

namespace {

constexpr int Never = -1;
const QString Mask = QStringLiteral("255.255.255.0");

NetworkDevice device(const QString &serialNumber, const QString &address)
{
    NetworkDevice device;
    device.serialNumber = serialNumber;
    device.hardwareAddress = "02:00:5E:00:00:0" + serialNumber;
    device.setting = {address, Mask, ""};
    return device;
}

/// A host whose network has a camera of each state: 1 free, 2 of a foreign subnet, 3 held
/// elsewhere, 4 and 5 with one address, 6 connected, 7 free with two heads.
struct DiscoveryVisit : PageVisit
{
    DiscoveryVisit()
    {
        NetworkDevice foreign = device("2", "172.16.5.20");
        foreign.setting.defaultGateway = "172.16.5.1";
        NetworkDevice held = device("3", "192.168.0.22");
        held.isHeldElsewhere = true;
        NetworkDevice large = device("7", "192.168.0.25");
        large.heads = 2;
        large.model = "S-2048";
        for (const NetworkDevice &entry :
             {device("1", "192.168.0.20"), foreign, held, device("4", "192.168.0.23"),
              device("5", "192.168.0.23"), device("6", "192.168.0.24"), large})
            host.network().addDevice(entry);
        host.connectDevices({"192.168.0.24"});
    }

    bool open(const std::function<void(GUI_WebView *)> &body)
    {
        return PageVisit::open("discoverysearch",
                               [&](QDialog &, GUI_WebView *view) { body(view); });
    }

    QString commandsOf(const QString &operation) const
    {
        return host.commands().filter(operation + '(').join('\n');
    }

    QStringList connected() const
    {
        QStringList serialNumbers;
        for (const StandInCamera *camera : host.cameras())
            serialNumbers.append(camera->serialNumber());
        return serialNumbers;
    }
};

QString row(GUI_WebView *view, const QString &serialNumber)
{
    QStringList parts;
    for (const char *part : {" .address", " .about", " .badge"})
        parts.append(text(view, "#camera-" + serialNumber + part));
    return parts.join(" | ");
}

QStringList fields(GUI_WebView *view)
{
    return {shownIn(view, "address").toString(), shownIn(view, "mask").toString(),
            shownIn(view, "gateway").toString()};
}

bool choose(GUI_WebView *view, const QString &serialNumber)
{
    return click(view, "#camera-" + serialNumber);
}

QString chosen(GUI_WebView *view)
{
    return read(view, "Page.all('.camera[aria-selected=true]').map(function (row) {"
                      " return row.id.slice(7); }).join()")
        .toString();
}

}

/// The page that shows the cameras of the network.
class TestDiscoveryPage : public TestBase
{
    Q_OBJECT

private slots:
    void rowsTellTheirState();
    void foreignCameraIsReaddressedAndConnected();
    void doubleIsOfferedAFreeAddress();
    void heldCameraSaysWhy();
    void connectedCameraSaysItsName();
    void severalAreConnected();
    void onlyThoseThatCanAreConnected();
    void rowsAreChosenByKeys();
    void wrongValuesAreSaid_data();
    void wrongValuesAreSaid();
    void refusedAddressChangesNothing();
    void enterChangesTheAddress();
    void fieldsKeepWhatIsTyped();
    void failedSearchKeepsTheRows();
    void failedOpeningSaysSo();
    void incompleteSearchSaysSo();
    void cancelledSearchSaysSo();
    void emptyNetworkSaysSo();
    void networkWithoutAdapterOffersNoAddress();
    void namesRunNothing();
    void closeEndsIt();
    void workbenchHasItsNetwork();
    void addressIsOfTheAdapterThatHearsTheCamera();
};

void TestDiscoveryPage::rowsTellTheirState()
{
    DiscoveryVisit visit;
    QVERIFY(visit.open([](GUI_WebView *view) {
        QCOMPARE(count(view, ".camera"), 7);
        QCOMPARE(row(view, "1"), QString("192.168.0.20 | S-1024, 1 | ready"));
        QCOMPARE(row(view, "2"), QString("172.16.5.20 | S-1024, 2 | cannot be reached"));
        QCOMPARE(row(view, "3"), QString("192.168.0.22 | S-1024, 3 | in use elsewhere"));
        QCOMPARE(row(view, "4"), QString("192.168.0.23 | S-1024, 4 | address used twice"));
        QCOMPARE(row(view, "5"), QString("192.168.0.23 | S-1024, 5 | address used twice"));
        QCOMPARE(row(view, "6"), QString("192.168.0.24 | S-1024, 6, Camera 1 | connected"));
        QCOMPARE(row(view, "7"), QString("192.168.0.25 | S-2048, 7, 2 heads | ready"));
        QCOMPARE(text(view, "#found"), QString("7 cameras were found."));
        QVERIFY(!isEnabled(view, "#connect")); // nothing is chosen
        QVERIFY(!isShown(view, "#network"));
    }));
}

void TestDiscoveryPage::foreignCameraIsReaddressedAndConnected()
{
    DiscoveryVisit visit;
    QVERIFY(visit.open([&visit](GUI_WebView *view) {
        QVERIFY(choose(view, "2"));
        QCOMPARE(text(view, "#reason"),
                 QString("172.16.5.20 is in the subnet of no network adapter of this computer. "
                         "Give the camera another address."));
        QVERIFY(!isEnabled(view, "#connect"));
        QCOMPARE(text(view, "#networkTitle"), QString("Address of the camera 2"));
        QCOMPARE(fields(view), QStringList({"192.168.0.2", Mask, ""}));
        visit.host.clearJournal();
        QVERIFY(click(view, "#change"));
        QCOMPARE(visit.host.commands(),
                 QStringList({"setNetworkSettings(\"192.168.0.1\", \"192.168.0.2\", "
                              "\"255.255.255.0\", \"\", \"02:00:5E:00:00:02\")",
                              "searchAgain()"}));
        QCOMPARE(row(view, "2"), QString("192.168.0.2 | S-1024, 2 | ready"));
        QCOMPARE(chosen(view), QString("2"));
        QCOMPARE(text(view, "#reason"), QString());
        visit.host.clearJournal();
        QVERIFY(click(view, "#connect"));
        QCOMPARE(visit.host.commands(),
                 QStringList({"connectDevices([\"192.168.0.2\"])", "searchAgain()"}));
        QCOMPARE(row(view, "2"), QString("192.168.0.2 | S-1024, 2, Camera 2 | connected"));
        QVERIFY(!isEnabled(view, "#connect"));
        QCOMPARE(read(view, "document.activeElement.id").toString(), QString("camera-2"));
    }));
    QCOMPARE(visit.connected(), QStringList({"6", "2"}));
    QVERIFY(visit.host.connections().isConnected("2"));
}

void TestDiscoveryPage::doubleIsOfferedAFreeAddress()
{
    DiscoveryVisit visit;
    QVERIFY(visit.open([](GUI_WebView *view) {
        QVERIFY(choose(view, "5"));
        QCOMPARE(text(view, "#reason"), QString("Another device has the address 192.168.0.23 too. "
                                                "Give the camera another one."));
        QCOMPARE(fields(view), QStringList({"192.168.0.2", Mask, ""}));
        QVERIFY(click(view, "#change"));
        QCOMPARE(row(view, "5"), QString("192.168.0.2 | S-1024, 5 | ready"));
        QCOMPARE(row(view, "4"), QString("192.168.0.23 | S-1024, 4 | ready"));
    }));
}

void TestDiscoveryPage::heldCameraSaysWhy()
{
    DiscoveryVisit visit;
    QVERIFY(visit.open([&visit](GUI_WebView *view) {
        QVERIFY(choose(view, "3"));
        QCOMPARE(text(view, "#reason"), QString("Another application is connected to this camera. "
                                                "Disconnect it there, then search again."));
        QVERIFY(!isEnabled(view, "#connect"));
        QVERIFY(!isShown(view, "#network"));
        visit.host.network().setHeldElsewhere("3", false);
        QVERIFY(click(view, "#again"));
        QCOMPARE(row(view, "3"), QString("192.168.0.22 | S-1024, 3 | ready"));
        QVERIFY(isEnabled(view, "#connect"));
    }));
}

void TestDiscoveryPage::connectedCameraSaysItsName()
{
    DiscoveryVisit visit;
    visit.host.cameras().first()->state().cameraName = "Front";
    QVERIFY(visit.open([](GUI_WebView *view) {
        QVERIFY(choose(view, "6"));
        QCOMPARE(text(view, "#reason"), QString("This camera is connected as Front."));
        QCOMPARE(fields(view), QStringList({"192.168.0.24", Mask, ""}));
        QVERIFY(!isEnabled(view, "#connect"));
    }));
}

void TestDiscoveryPage::severalAreConnected()
{
    DiscoveryVisit visit;
    QVERIFY(visit.open([&visit](GUI_WebView *view) {
        QVERIFY(choose(view, "1"));
        QVERIFY(press(view, Qt::Key_End));
        QVERIFY(press(view, Qt::Key_Space, Qt::ControlModifier));
        QCOMPARE(chosen(view), QString("1,7"));
        QVERIFY(!isShown(view, "#network")); // an address is for one
        visit.host.clearJournal();
        QVERIFY(click(view, "#connect"));
        QCOMPARE(visit.commandsOf("connectDevices"),
                 QString("connectDevices([\"192.168.0.20\", \"192.168.0.25\"])"));
        QCOMPARE(row(view, "7"),
                 QString("192.168.0.25 | S-2048, 7, 2 heads, Camera 3 | connected"));
    }));
    QCOMPARE(visit.connected(), QStringList({"6", "1", "7", "7"}));
}

void TestDiscoveryPage::onlyThoseThatCanAreConnected()
{
    DiscoveryVisit visit;
    QVERIFY(visit.open([&visit](GUI_WebView *view) {
        QVERIFY(choose(view, "1"));
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QCOMPARE(chosen(view), QString("1,2,3,4,5,6,7"));
        QCOMPARE(text(view, "#reason"), QString("2 of the chosen cameras can be connected."));
        visit.host.clearJournal();
        QVERIFY(click(view, "#connect"));
        QCOMPARE(visit.commandsOf("connectDevices"),
                 QString("connectDevices([\"192.168.0.20\", \"192.168.0.25\"])"));
        QCOMPARE(chosen(view), QString("1,2,3,4,5,6,7"));
        QCOMPARE(text(view, "#reason"), QString("None of the chosen cameras can be connected."));
        QVERIFY(!isEnabled(view, "#connect"));
    }));
    QCOMPARE(visit.host.handledErrors(), QStringList());
}

void TestDiscoveryPage::rowsAreChosenByKeys()
{
    DiscoveryVisit visit;
    QVERIFY(visit.open([](GUI_WebView *view) {
        QCOMPARE(read(view, "document.activeElement.id").toString(), QString("camera-1"));
        QVERIFY(press(view, Qt::Key_Down));
        QVERIFY(press(view, Qt::Key_Return));
        QCOMPARE(chosen(view), QString("2"));
        QVERIFY(press(view, Qt::Key_Down, Qt::ShiftModifier));
        QCOMPARE(chosen(view), QString("2,3"));
        QVERIFY(press(view, Qt::Key_Home));
        QVERIFY(press(view, Qt::Key_Space));
        QCOMPARE(chosen(view), QString("1"));
        QVERIFY(goTo(view, "connect"));
        QVERIFY(press(view, Qt::Key_Return));
        QCOMPARE(row(view, "1"), QString("192.168.0.20 | S-1024, 1, Camera 2 | connected"));
    }));
}

void TestDiscoveryPage::wrongValuesAreSaid_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("hint"); // empty: it is right
    const auto row = [](const char *field, const char *value, const QString &hint) {
        QTest::addRow("%s, %s", field, value) << field << value << hint;
    };
    const QString address = "An address has four numbers from 0 to 255, such as 192.168.0.10.";
    const QString mask = "A subnet mask is an address such as 255.255.255.0.";
    const QString gateway = "The gateway is an address, or empty for none.";
    row("address", "192.168.0.256", address);
    row("address", "192.168.0", address);
    row("address", "1.2.3.4.5", address);
    row("address", "", address);
    row("address", "192.168.000.020", "");
    row("mask", "255.255.0.255", mask);
    row("mask", "255.255.255.255", mask);
    row("mask", "0.0.0.0", mask);
    row("mask", "", mask);
    row("mask", "255.128.0.0", "");
    row("gateway", "router", gateway);
    row("gateway", "", "");
    row("gateway", "192.168.0.254", "");
}

void TestDiscoveryPage::wrongValuesAreSaid()
{
    QFETCH(QString, field);
    QFETCH(QString, value);
    QFETCH(QString, hint);
    DiscoveryVisit visit;
    QVERIFY(visit.open([&](GUI_WebView *view) {
        QVERIFY(choose(view, "1"));
        QVERIFY(typeInto(view, field, value));
        QCOMPARE(text(view, "#wrong"), hint);
        QCOMPARE(isEnabled(view, "#change"), hint.isEmpty());
        QCOMPARE(count(view, "input.wrong"), hint.isEmpty() ? 0 : 1);
        QCOMPARE(count(view, '#' + field + ".wrong"), hint.isEmpty() ? 0 : 1);
        visit.host.clearJournal();
        press(view, Qt::Key_Return);
        QCOMPARE(visit.commandsOf("setNetworkSettings").isEmpty(), !hint.isEmpty());
    }));
}

void TestDiscoveryPage::refusedAddressChangesNothing()
{
    DiscoveryVisit visit;
    QVERIFY(visit.open([&visit](GUI_WebView *view) {
        QVERIFY(choose(view, "2"));
        QVERIFY(typeInto(view, "address", "192.168.0.24")); // of camera 6
        LogCapture log;
        QVERIFY(click(view, "#change"));
        QCOMPARE(visit.host.handledErrors(),
                 QStringList({"The address 192.168.0.24 is used by another device."}));
        QCOMPARE(row(view, "2"), QString("172.16.5.20 | S-1024, 2 | cannot be reached"));
        QCOMPARE(fields(view), QStringList({"192.168.0.24", Mask, ""})); // to be mended
    }));
    QCOMPARE(visit.host.network().device("2")->setting.ipAddress, QString("172.16.5.20"));
}

void TestDiscoveryPage::enterChangesTheAddress()
{
    DiscoveryVisit visit;
    QVERIFY(visit.open([&visit](GUI_WebView *view) {
        QVERIFY(choose(view, "2"));
        QVERIFY(typeInto(view, "address", "192.168.000.077"));
        QVERIFY(press(view, Qt::Key_Return));
        QCOMPARE(visit.host.network().device("2")->setting.ipAddress, QString("192.168.0.77"));
        QCOMPARE(row(view, "2"), QString("192.168.0.77 | S-1024, 2 | ready"));
        QCOMPARE(fields(view), QStringList({"192.168.0.77", Mask, ""}));
    }));
}

void TestDiscoveryPage::fieldsKeepWhatIsTyped()
{
    DiscoveryVisit visit;
    QVERIFY(visit.open([](GUI_WebView *view) {
        QVERIFY(choose(view, "1"));
        QVERIFY(typeInto(view, "address", "192.168.0.99"));
        QVERIFY(click(view, "#again"));
        QCOMPARE(fields(view).first(), QString("192.168.0.99"));
        QVERIFY(choose(view, "6"));
        QCOMPARE(fields(view).first(), QString("192.168.0.24"));
    }));
}

void TestDiscoveryPage::failedSearchKeepsTheRows()
{
    DiscoveryVisit visit;
    LogCapture log; // the page tells it there
    QVERIFY(visit.open([&visit](GUI_WebView *view) {
        visit.host.failOn("searchAgain");
        QVERIFY(click(view, "#again"));
        QCOMPARE(visit.host.handledErrors(), QStringList({"searchAgain failed"}));
        QCOMPARE(count(view, ".camera"), 7);
        QCOMPARE(text(view, "#state"),
                 QString("The search failed. The cameras are those of the last one."));
        QVERIFY(click(view, "#again"));
        QVERIFY(!isShown(view, "#state"));
        QCOMPARE(count(view, ".camera"), 7);
    }));
}

void TestDiscoveryPage::failedOpeningSaysSo()
{
    DiscoveryVisit visit; // makes the pages known
    LogCapture log;
    for (const char *results : {"", "[]", "{\"devices\": 7}"}) {
        GUI_DiscoverySearchDialog dialog(&visit.host, results, nullptr);
        dialog.show();
        GUI_WebView *view = dialog.webView();
        QTRY_VERIFY(isDrawn(view));
        QCOMPARE(text(view, "#state"), QString("The search failed. Search again."));
        QVERIFY(click(view, "#again"));
        QCOMPARE(count(view, ".camera"), 7);
        QVERIFY(!isShown(view, "#state"));
    }
}

void TestDiscoveryPage::incompleteSearchSaysSo()
{
    DiscoveryVisit visit;
    NetworkPlan plan;
    plan.adapters = visit.host.network().adapters();
    plan.searchTime = 40;
    visit.host.network().load(plan);
    QVERIFY(visit.open([&visit](GUI_WebView *view) {
        NetworkDevice silent = device("8", "192.168.0.26");
        silent.delay = Never;
        visit.host.network().addDevice(silent);
        QVERIFY(click(view, "#again"));
        QCOMPARE(count(view, ".camera"), 7);
        QCOMPARE(text(view, "#found"),
                 QString("7 cameras were found. The search ended before all had answered: there "
                         "may be more."));
    }));
}

void TestDiscoveryPage::cancelledSearchSaysSo()
{
    DiscoveryVisit visit;
    QVERIFY(visit.open([&visit](GUI_WebView *view) {
        NetworkDevice slow = device("1", "192.168.0.20");
        slow.delay = 2500;
        visit.host.network().addDevice(slow);
        QTimer::singleShot(30, view, [&visit] { visit.host.cancelSearch(); });
        QVERIFY(click(view, "#again"));
        QCOMPARE(count(view, ".camera"), 6);
        QVERIFY(text(view, "#found").startsWith("6 cameras were found. The search ended"));
    }));
}

void TestDiscoveryPage::emptyNetworkSaysSo()
{
    PageVisit visit;
    QVERIFY(visit.open("discoverysearch", [](QDialog &, GUI_WebView *view) {
        QVERIFY(isShown(view, "#state"));
        QVERIFY(text(view, "#state").startsWith("No camera answered."));
        QVERIFY(!isShown(view, "#cameras"));
        QVERIFY(!isEnabled(view, "#connect"));
        QCOMPARE(read(view, "document.activeElement.id").toString(), QString("again"));
    }));
}

void TestDiscoveryPage::networkWithoutAdapterOffersNoAddress()
{
    DiscoveryVisit visit;
    visit.host.network().load(NetworkPlan());
    QVERIFY(visit.open([](GUI_WebView *view) {
        QVERIFY(choose(view, "1"));
        QCOMPARE(row(view, "1"), QString("192.168.0.20 | S-1024, 1 | cannot be reached"));
        QVERIFY(!isShown(view, "#network"));
    }));
}

void TestDiscoveryPage::namesRunNothing()
{
    PageVisit visit;
    NetworkDevice camera = device("1", "192.168.0.20");
    camera.model = "<img src=x onerror=\"document.title='run'\">";
    visit.host.network().addDevice(camera);
    QVERIFY(visit.open("discoverysearch", [&camera](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#camera-1 .about"), camera.model + ", 1");
        QCOMPARE(count(view, "img"), 0);
    }));
}

void TestDiscoveryPage::closeEndsIt()
{
    DiscoveryVisit visit;
    int result = -1;
    QVERIFY(visit.PageVisit::open("discoverysearch", [&result](QDialog &dialog, GUI_WebView *view) {
        connect(&dialog, &QDialog::finished, [&result](int end) { result = end; });
        QVERIFY(press(view, Qt::Key_Escape));
        QVERIFY(dialog.isVisible());
        QVERIFY(click(view, "#close"));
    }));
    QCOMPARE(result, int(QDialog::Accepted));
}

// The one of the file, else the built-in one; the cameras of the start are devices in it.
void TestDiscoveryPage::workbenchHasItsNetwork()
{
    QTemporaryDir dir;
    Options options;
    options.settingsFile = dir.filePath("settings.ini");
    options.pluginFolder = dir.path();
    options.cameras = 1;
    {
        Workbench workbench(options);
        workbench.start(options);
        const CameraNetwork &network = workbench.host().network();
        QCOMPARE(network.adapters().size(), 2);
        QCOMPARE(network.devices().size(), 10); // nine and the camera
        QVERIFY(workbench.host().connections().isConnected(
            workbench.host().cameras().first()->serialNumber()));
    }
    QFile file(dir.filePath("network.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(R"({"adapters": [{"name": "A", "address": "10.0.0.1", "mask": "255.0.0.0"}]})");
    file.close();
    options.networkFile = file.fileName();
    Workbench workbench(options);
    workbench.start(options);
    QCOMPARE(workbench.host().network().adapters().size(), 1);
    QCOMPARE(workbench.host().network().adapters().first().name, QString("A"));
    QCOMPARE(workbench.host().network().devices().size(), 1);
}

void TestDiscoveryPage::addressIsOfTheAdapterThatHearsTheCamera()
{
    DiscoveryVisit visit;
    NetworkPlan plan;
    plan.adapters = visit.host.network().adapters();
    plan.adapters.append({"Second", "10.0.0.1", "255.0.0.0"});
    NetworkDevice lost = device("8", "0.0.0.0");
    lost.adapter = "10.0.0.1";
    plan.devices = {lost};
    visit.host.network().load(plan);
    QVERIFY(visit.open([&visit](GUI_WebView *view) {
        QVERIFY(choose(view, "8"));
        QCOMPARE(fields(view), QStringList({"10.0.0.2", "255.0.0.0", ""}));
        visit.host.clearJournal();
        QVERIFY(click(view, "#change"));
        QCOMPARE(visit.commandsOf("setNetworkSettings"),
                 QString("setNetworkSettings(\"10.0.0.1\", \"10.0.0.2\", \"255.0.0.0\", \"\", "
                         "\"02:00:5E:00:00:08\")"));
        QCOMPARE(row(view, "8"), QString("10.0.0.2 | S-1024, 8 | ready"));
    }));
}

int main(int argc, char **argv)
{
    TestDiscoveryPage test;
    return runTest(argc, argv, test);
}

#include "test_discovery_page.moc"
