#include "bridge/page/GUI_WebView.h"
#include "device/discovery/GUI_CameraNetworkSettingDialog.h"
#include "device/discovery/GUI_DiscoverySearchDialog.h"
#include "device/discovery/JS_Mediator_CameraNetworkSettingDialog.h"
#include "device/discovery/JS_Mediator_DiscoverySearchDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/OwnMethods.h"
#include "tests/support/TestLog.h"

#include <QWidget>

#include <functional>

// The dialogs that find cameras in the network, and what their pages see.

using Discovery = JS_Mediator_DiscoverySearchDialog;
using Setting = JS_Mediator_CameraNetworkSettingDialog;
using DiscoveryCall = std::function<void(Discovery &)>;
using SettingCall = std::function<void(Setting &)>;
Q_DECLARE_METATYPE(DiscoveryCall)
Q_DECLARE_METATYPE(SettingCall)

class TestDiscoveryDialogs : public TestBase
{
    Q_OBJECT

private slots:
    void windowsAreAsTold();
    void methodsStandInOrder();
    void openingResultIsHandedOnUntouched();
    void newSearchIsTheHosts();
    void addressesAreConnected_data();
    void addressesAreConnected();
    void networkSettingsAreNormalised_data();
    void networkSettingsAreNormalised();
    void freshInstallationHasItsDefaults();
    void searchIsSet();
    void callsAreTraced_data();
    void callsAreTraced();
    void settingCallsAreTraced_data();
    void settingCallsAreTraced();
    void failuresGiveNeutralValues();
    void dialogsOwnSlotsEndIt();
    void discoveryStory();
    void settingStory_data();
    void settingStory();
    void failureWhileConstructedReachesTheCaller();
};

namespace {

// Host calls of a slot, those aside that a search itself makes.
QStringList callsOf(StandInHost &host)
{
    QStringList calls;
    for (const QString &line : host.journal()) {
        if (line.startsWith("connectDevices(") || line.startsWith("setNetworkSettings("))
            calls.append(line);
    }
    return calls;
}

QString deep(QChar opening)
{
    return QString(100000, opening);
}

}

void TestDiscoveryDialogs::windowsAreAsTold()
{
    QWidget parent;
    StandInHost host;
    host.state().translations.insert("Discovery search", "Suche");
    host.state().translations.insert("Camera network setting", "Netz");
    const GUI_DiscoverySearchDialog search(&host, "[]", &parent);
    QCOMPARE(search.parentWidget(), &parent);
    QCOMPARE(search.windowTitle(), QStringLiteral("Suche"));
    QCOMPARE(search.mediator()->objectName(), QStringLiteral("discoverysearch"));
    QVERIFY(dynamic_cast<Discovery *>(search.mediator()));
    QCOMPARE(search.size(), QSize(780, 520));

    const GUI_CameraNetworkSettingDialog setting(&host, &parent);
    QCOMPARE(setting.parentWidget(), &parent);
    QCOMPARE(setting.windowTitle(), QStringLiteral("Netz"));
    QCOMPARE(setting.mediator()->objectName(), QStringLiteral("cameranetworksetting"));
    QVERIFY(dynamic_cast<Setting *>(setting.mediator()));
    QCOMPARE(setting.size(), QSize(460, 300));
}

void TestDiscoveryDialogs::methodsStandInOrder()
{
    QCOMPARE(ownMethods(Discovery::staticMetaObject),
             QStringList({"QString getSearchResults()", "QString getSearchAgainResults()",
                          "void connect(QString)", "void setNetworkSettings(QString)"}));
    QCOMPARE(ownMethods(Setting::staticMetaObject),
             QStringList({"int getCameraSearchWay()", "QString getCameraSearchIPAddress()",
                          "void setCameraSearchWay(int)", "void setCameraSearchIPAddress(QString)",
                          "void ok()", "void cancel()"}));
    QCOMPARE(ownMethods(GUI_CameraNetworkSettingDialog::staticMetaObject),
             QStringList({"void ok()", "void cancel()"}));
    QCOMPARE(ownMethods(GUI_DiscoverySearchDialog::staticMetaObject), QStringList());
}

void TestDiscoveryDialogs::openingResultIsHandedOnUntouched()
{
    StandInHost host;
    const QString results = QString::fromUtf8(" { \"no\" : JSON, %1 \u30ab } ");
    Discovery mediator(&host, results);
    QCOMPARE(mediator.getSearchResults(), results);
    mediator.getSearchAgainResults();
    QCOMPARE(mediator.getSearchResults(), results);
    QCOMPARE(Discovery(&host, QString()).getSearchResults(), QString());
}

void TestDiscoveryDialogs::newSearchIsTheHosts()
{
    StandInHost host;
    Discovery mediator(&host, "[\"old\"]");
    const QString result = mediator.getSearchAgainResults();
    QCOMPARE(host.journal(), QStringList({"searchAgain()"}));
    QCOMPARE(result, host.searchAgain());
    QVERIFY(!result.isEmpty());
}

void TestDiscoveryDialogs::addressesAreConnected_data()
{
    QTest::addColumn<QString>("json");
    QTest::addColumn<QString>("call"); // empty: none
    const auto row = [](const char *name, const QString &json, const QString &call) {
        QTest::newRow(name) << json << call;
    };
    row("one", "[\"10.0.0.1\"]", "connectDevices([\"10.0.0.1\"])");
    row("two", "[\"10.0.0.1\", \"10.0.0.2\"]", "connectDevices([\"10.0.0.1\", \"10.0.0.2\"])");
    row("as they are", "[\"010.0.0.001\"]", "connectDevices([\"010.0.0.001\"])");
    row("the same twice", "[\"a\", \"a\"]", "connectDevices([\"a\", \"a\"])");
    row("what is no text", "[7, \"10.0.0.1\", null, true, {}, []]",
        "connectDevices([\"\", \"10.0.0.1\", \"\", \"\", \"\", \"\"])");
    row("empty text", "[\"\"]", "connectDevices([\"\"])");
    row("empty array", "[]", "");
    row("object", "{\"a\": \"10.0.0.1\"}", "");
    row("text", "\"10.0.0.1\"", "");
    row("no JSON", "10.0.0.1", "");
    row("cut off", "[\"10.0.0.1\"", "");
    row("nothing", "", "");
    row("100,000 deep", deep('['), "");
}

void TestDiscoveryDialogs::addressesAreConnected()
{
    QFETCH(QString, json);
    QFETCH(QString, call);
    StandInHost host;
    host.failOn("connectDevices"); // nobody is there; what counts is the call
    Discovery mediator(&host, "[]");
    mediator.connect(json);
    QCOMPARE(host.journal().mid(0, 1), call.isEmpty() ? QStringList() : QStringList({call}));
    QCOMPARE(host.handledErrors().size(), call.isEmpty() ? 0 : 1);
}

void TestDiscoveryDialogs::networkSettingsAreNormalised_data()
{
    QTest::addColumn<QString>("json");
    QTest::addColumn<QString>("call");
    const auto row = [](const char *name, const QString &json, const QString &arguments) {
        QTest::newRow(name) << json << "setNetworkSettings(" + arguments + ")";
    };
    const QString nothing = "\"\", \"\", \"\", \"\", \"\"";
    row("leading zeros go",
        "{\"adapteraddress\": \"192.168.000.001\", \"ipaddress\": \"192.168.000.010\","
        " \"subnetmask\": \"255.255.255.000\", \"defaultgateway\": \"192.168.000.254\","
        " \"macaddress\": \"00:0A:35:00:00:01\"}",
        "\"192.168.0.1\", \"192.168.0.10\", \"255.255.255.0\", \"192.168.0.254\","
        " \"00:0A:35:00:00:01\"");
    row("absent keys are empty", "{\"ipaddress\": \"10.0.0.1\", \"mac\": \"x\"}",
        "\"\", \"10.0.0.1\", \"\", \"\", \"\"");
    row("what is no text is empty", "{\"ipaddress\": 7, \"macaddress\": [\"a\"]}", nothing);
    row("array", "[\"10.0.0.1\"]", nothing);
    row("no JSON", "ipaddress", nothing);
    row("cut off", "{\"ipaddress\": \"10.0.0.1\"", nothing);
    row("empty text", "", nothing);
    row("100,000 deep", "{\"ipaddress\":" + deep('['), nothing);
}

void TestDiscoveryDialogs::networkSettingsAreNormalised()
{
    QFETCH(QString, json);
    QFETCH(QString, call);
    StandInHost host;
    host.failOn("setNetworkSettings");
    Discovery mediator(&host, "[]");
    mediator.setNetworkSettings(json);
    QCOMPARE(callsOf(host), QStringList({call}));
}

void TestDiscoveryDialogs::freshInstallationHasItsDefaults()
{
    StandInHost host;
    Setting mediator(&host);
    QCOMPARE(mediator.getCameraSearchIPAddress(), QStringLiteral("192.168.0.0"));
    QCOMPARE(mediator.getCameraSearchWay(), 0);
    QCOMPARE(host.journal(),
             QStringList({"getPrefString(\"cameraconnection/SearchIP\", \"192.168.0.0\")",
                          "getPrefInt(\"cameraconnection/SearchWay\", invalid)"}));
}

void TestDiscoveryDialogs::searchIsSet()
{
    StandInHost host;
    Setting mediator(&host);
    mediator.setCameraSearchWay(1);
    mediator.setCameraSearchIPAddress("10.20.0.0");
    QCOMPARE(host.journal(),
             QStringList({"setPref(\"cameraconnection/SearchWay\", 1)",
                          "setPref(\"cameraconnection/SearchIP\", \"10.20.0.0\")"}));
    QCOMPARE(mediator.getCameraSearchWay(), 1);
    QCOMPARE(mediator.getCameraSearchIPAddress(), QStringLiteral("10.20.0.0"));
}

void TestDiscoveryDialogs::callsAreTraced_data()
{
    QTest::addColumn<DiscoveryCall>("call");
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QString>("arguments");
    const auto row = [](const QString &slot, const QString &arguments, const DiscoveryCall &call) {
        QTest::newRow(qPrintable(slot)) << call << slot << arguments;
    };
    row("getSearchResults", "", [](Discovery &mediator) { mediator.getSearchResults(); });
    row("getSearchAgainResults", "", [](Discovery &mediator) { mediator.getSearchAgainResults(); });
    row("connect", "[json:[]]", [](Discovery &mediator) { mediator.connect("[]"); });
    row("setNetworkSettings", "[json:none]",
        [](Discovery &mediator) { mediator.setNetworkSettings("none"); });
}

void TestDiscoveryDialogs::callsAreTraced()
{
    QFETCH(DiscoveryCall, call);
    QFETCH(QString, slot);
    QFETCH(QString, arguments);
    StandInHost host;
    host.failOn("setNetworkSettings");
    Discovery mediator(&host, "[]");
    LogCapture log;
    call(mediator);
    const QString name = "\"JS_Mediator_DiscoverySearchDialog::" + slot + "\"";
    QCOMPARE(log.texts(QtInfoMsg),
             QStringList({"[ENTER] " + name + " \"" + arguments + "\"", "[LEAVE] " + name}));
    QVERIFY(!host.journal().contains("updateUI(63, true)"));
}

void TestDiscoveryDialogs::settingCallsAreTraced_data()
{
    QTest::addColumn<SettingCall>("call");
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QString>("arguments");
    const auto row = [](const QString &slot, const QString &arguments, const SettingCall &call) {
        QTest::newRow(qPrintable(slot)) << call << slot << arguments;
    };
    row("getCameraSearchWay", "", [](Setting &mediator) { mediator.getCameraSearchWay(); });
    row("getCameraSearchIPAddress", "",
        [](Setting &mediator) { mediator.getCameraSearchIPAddress(); });
    row("setCameraSearchWay", "[mode:1]",
        [](Setting &mediator) { mediator.setCameraSearchWay(1); });
    row("setCameraSearchIPAddress", "[ipAddress:10.0.0.0]",
        [](Setting &mediator) { mediator.setCameraSearchIPAddress("10.0.0.0"); });
    row("ok", "", [](Setting &mediator) { mediator.ok(); });
    row("cancel", "", [](Setting &mediator) { mediator.cancel(); });
}

void TestDiscoveryDialogs::settingCallsAreTraced()
{
    QFETCH(SettingCall, call);
    QFETCH(QString, slot);
    QFETCH(QString, arguments);
    StandInHost host;
    Setting mediator(&host);
    LogCapture log;
    call(mediator);
    const QString name = "\"JS_Mediator_CameraNetworkSettingDialog::" + slot + "\"";
    QCOMPARE(log.texts(QtInfoMsg),
             QStringList({"[ENTER] " + name + " \"" + arguments + "\"", "[LEAVE] " + name}));
    QVERIFY(!host.journal().contains("updateUI(63, true)"));
}

void TestDiscoveryDialogs::failuresGiveNeutralValues()
{
    StandInHost host;
    Discovery discovery(&host, "[]");
    Setting setting(&host);
    host.failFromCall(1);
    QCOMPARE(discovery.getSearchAgainResults(), QString());
    discovery.connect("[\"10.0.0.1\"]");
    discovery.setNetworkSettings("{}");
    QCOMPARE(setting.getCameraSearchWay(), 0);
    QCOMPARE(setting.getCameraSearchIPAddress(), QString());
    setting.setCameraSearchWay(1);
    setting.setCameraSearchIPAddress("10.0.0.0");
    QCOMPARE(host.handledErrors(),
             QStringList({"searchAgain failed", "connectDevices failed",
                          "setNetworkSettings failed", "getPrefInt failed", "getPrefString failed",
                          "setPref failed", "setPref failed"}));
}

void TestDiscoveryDialogs::dialogsOwnSlotsEndIt()
{
    StandInHost host;
    GUI_CameraNetworkSettingDialog accepted(&host, nullptr);
    accepted.show();
    accepted.ok();
    QCOMPARE(accepted.result(), int(QDialog::Accepted));
    QVERIFY(!accepted.isVisible());
    GUI_CameraNetworkSettingDialog rejected(&host, nullptr);
    rejected.setResult(7);
    rejected.show();
    rejected.cancel();
    QCOMPARE(rejected.result(), int(QDialog::Rejected));
    QVERIFY(!rejected.isVisible());
}

// From opening to closing: all that the host is asked and told.
void TestDiscoveryDialogs::discoveryStory()
{
    QWidget mainWidget;
    StandInHost host;
    host.state().mainWidget = &mainWidget;
    {
        GUI_DiscoverySearchDialog dialog(&host, "[\"found\"]", &mainWidget);
        PageProbe page(dialog.webView());
        dialog.show();
        QVERIFY(page.waitLoaded());
        QCOMPARE(dialog.webView()->url(), QUrl("qrc:/discoverysearch.html"));
        QCOMPARE(page.call("JSON.parse(discoverysearch.getSearchResults())"),
                 QStringLiteral("[\"found\"]"));
        page.call("discoverysearch.getSearchAgainResults()");
        page.call("discoverysearch.connect('[]')");
        page.call("discoverysearch.accept()");
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }
    QCOMPARE(host.journal(),
             QStringList({"needsDialogEnterNotice()", "translate(\"Discovery search\")",
                          "attachMediator(GUI_WebView, JS_Mediator_DiscoverySearchDialog)",
                          "deterUpdateUI(true)", "mainWidget()", "deterUpdateUI(false)",
                          "updateUI(4294967295, true)", "searchAgain()"}));
}

void TestDiscoveryDialogs::settingStory_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("result");
    QTest::newRow("ok") << "ok" << int(QDialog::Accepted);
    QTest::newRow("cancel") << "cancel" << int(QDialog::Rejected);
}

// What was written stays on both ways out.
void TestDiscoveryDialogs::settingStory()
{
    QFETCH(QString, way);
    QFETCH(int, result);
    QWidget mainWidget;
    StandInHost host;
    host.state().mainWidget = &mainWidget;
    {
        GUI_CameraNetworkSettingDialog dialog(&host, &mainWidget);
        PageProbe page(dialog.webView());
        dialog.show();
        QVERIFY(page.waitLoaded());
        QCOMPARE(dialog.webView()->url(), QUrl("qrc:/cameranetworksetting.html"));
        page.call("cameranetworksetting.setCameraSearchWay(1)");
        page.call("cameranetworksetting." + way + "()");
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), result);
    }
    QCOMPARE(host.settings().value("cameraconnection/SearchWay", QVariant()).toInt(), 1);
    QCOMPARE(
        host.journal(),
        QStringList({"needsDialogEnterNotice()", "translate(\"Camera network setting\")",
                     "attachMediator(GUI_WebView, JS_Mediator_CameraNetworkSettingDialog)",
                     "deterUpdateUI(true)", "mainWidget()", "deterUpdateUI(false)",
                     "updateUI(4294967295, true)", "setPref(\"cameraconnection/SearchWay\", 1)"}));
}

void TestDiscoveryDialogs::failureWhileConstructedReachesTheCaller()
{
    for (const char *operation : {"translate", "attachMediator"}) {
        StandInHost host;
        host.failOn(operation);
        QVERIFY_EXCEPTION_THROWN(GUI_DiscoverySearchDialog(&host, "[]", nullptr), StandInFault);
        host.failOn(operation);
        QVERIFY_EXCEPTION_THROWN(GUI_CameraNetworkSettingDialog(&host, nullptr), StandInFault);
        QCOMPARE(host.deterrals(), 0);
    }
}

int main(int argc, char **argv)
{
    TestDiscoveryDialogs test;
    return runTest(argc, argv, test);
}

#include "test_discovery_dialogs.moc"
