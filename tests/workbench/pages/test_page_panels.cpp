#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "standin/documents/StandInCamera.h"
#include "tests/support/TestLog.h"
#include "workbench/log/LogModel.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/window/MainWindow.h"

#include <QMessageBox>
#include <QTimer>

using namespace PageHand;

namespace {

using Change = void (*)(StandInHost &);

/// The window with both panels, loaded.
struct Shown
{
    explicit Shown(int cameras = 0, const QString &style = QStringLiteral("light"))
    {
        host.settings().setValue(Keys::application.style, style);
        for (int i = 0; i < cameras; ++i)
            host.addCamera();
    }

    bool open()
    {
        window = std::make_unique<MainWindow>(host, log);
        window->show();
        window->activateWindow();
        return QTest::qWaitForWindowActive(window.get()) && QTest::qWaitFor([this] {
                   return window->statusPanel()->isLoaded() && window->devicePanel()->isLoaded();
               });
    }

    GUI_WebView *status() { return window->statusPanel()->view(); }
    GUI_WebView *devices() { return window->devicePanel()->view(); }

    StandInHost host;
    LogModel log{100};
    std::unique_ptr<MainWindow> window;
};

QString classesOf(GUI_WebView *view, const QString &selector)
{
    QStringList classes =
        read(view, "document.querySelector('" + selector + "').className").toString().split(' ');
    classes.sort();
    return classes.join(' ');
}

}

Q_DECLARE_METATYPE(Change)

class TestPagePanels : public TestBase
{
    Q_OBJECT

private slots:
    void takesTheStyle_data();
    void takesTheStyle();
    void followsAChangeOfTheStyle();
    void enablesTheControlsOfTheStatus_data();
    void enablesTheControlsOfTheStatus();
    void commandsReachTheHost_data();
    void commandsReachTheHost();
    void showsWhatIsOn();
    void drawsOnUpdateOnly();
    void showsTheClassesOfADevice();
    void showsWhatADeviceIsOnlyWhereItIs();
    void selectsTheDeviceThatIsClicked();
    void selectsByKeys();
    void selectsAllDevices();
    void showsConnectedDevicesOnlyWhenAsked();
    void showsAllDevicesInOtherModes();
    void saysThatThereIsNoDevice();
    void showsNamesAsTheyStand();
    void keepsTheFocusWhenItIsDrawnAnew();
    void reportsWhatAHandlerThrows();
    void translatesItsTexts();
    void logsWhatTheUserDoes();
    void hearsOpenOnceAfterEachLoad();
};

void TestPagePanels::takesTheStyle_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("back");
    QTest::newRow("light") << "light"
                           << "rgb(242, 243, 245)";
    QTest::newRow("dark") << "dark"
                          << "rgb(43, 45, 48)";
    QTest::newRow("dark in capitals") << "DARK"
                                      << "rgb(43, 45, 48)";
    QTest::newRow("unknown") << "blue"
                             << "rgb(242, 243, 245)";
}

void TestPagePanels::takesTheStyle()
{
    QFETCH(QString, style);
    QFETCH(QString, back);
    Shown shown(1, style);
    QVERIFY(shown.open());
    for (GUI_WebView *view : {shown.status(), shown.devices()})
        QCOMPARE(read(view, "getComputedStyle(document.body).backgroundColor").toString(), back);
}

void TestPagePanels::followsAChangeOfTheStyle()
{
    Shown shown(1);
    QVERIFY(shown.open());
    shown.window->devicePanel()->mediator()->setStyle("dark");
    for (GUI_WebView *view : {shown.status(), shown.devices()})
        QTRY_COMPARE(read(view, "document.body.className").toString(), QString("dark"));
    shown.window->devicePanel()->mediator()->setStyle("light");
    QTRY_COMPARE(read(shown.status(), "document.body.className").toString(), QString("light"));
}

void TestPagePanels::enablesTheControlsOfTheStatus_data()
{
    QTest::addColumn<int>("cameras");
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("enabled");
    const auto row = [](const char *name, int cameras, Change change, const char *enabled) {
        QTest::newRow(name) << cameras << change << QString(enabled);
    };
    row(
        "no document", 0, [](StandInHost &) {}, "prefs support");
    row(
        "a camera", 1, [](StandInHost &) {}, "partition selectAll copy toolsOff prefs support");
    row(
        "recording", 1, [](StandInHost &host) { host.state().isRecording = true; }, "copy");
    row(
        "preferences open", 1, [](StandInHost &host) { host.state().isPrefsDialogOpen = true; },
        "partition selectAll copy toolsOff support");
    row(
        "a modal dialog", 1, [](StandInHost &host) { host.state().isModalDialogOpen = true; },
        "partition selectAll copy toolsOff");
    row(
        "file mode", 1, [](StandInHost &host) { host.setMode(StandInHost::Mode::File); },
        "selectAll copy toolsOff prefs support");
    row(
        "no window in view", 1, [](StandInHost &host) { host.state().visibleWindowCount = 0; },
        "partition selectAll toolsOff prefs support");
}

void TestPagePanels::enablesTheControlsOfTheStatus()
{
    QFETCH(int, cameras);
    QFETCH(Change, change);
    QFETCH(QString, enabled);
    Shown shown(cameras);
    change(shown.host);
    QVERIFY(shown.open());
    QStringList seen;
    for (const char *id : {"partition", "selectAll", "copy", "toolsOff", "prefs", "support"}) {
        if (isEnabled(shown.status(), QString("#") + id))
            seen.append(id);
    }
    QCOMPARE(seen.join(' '), enabled);
}

void TestPagePanels::commandsReachTheHost_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("call");
    QTest::newRow("select all") << "#selectAll"
                                << "selectAllDocs(JS_Mediator_Page)";
    QTest::newRow("copy") << "#copy"
                          << "copySelectArea(2)";
    QTest::newRow("quick tools off") << "#toolsOff"
                                     << "setQuickTool(\"\")";
    QTest::newRow("preferences") << "#prefs"
                                 << "prefsDialog.exec()";
}

void TestPagePanels::commandsReachTheHost()
{
    QFETCH(QString, button);
    QFETCH(QString, call);
    Shown shown(1);
    QVERIFY(shown.open());
    QStringList calls;
    connect(shown.host.events(), &StandInEvents::callJournalled, this,
            [&](const QString &line) { calls.append(line); });
    QVERIFY(click(shown.status(), button));
    QCOMPARE(calls.count(call), 1);
}

void TestPagePanels::showsWhatIsOn()
{
    Shown shown(2);
    shown.host.state().recordingState = 2;
    QVERIFY(shown.open());
    QCOMPARE(classesOf(shown.status(), "#IsLiveMode"), QString(" on"));
    QCOMPARE(classesOf(shown.status(), "#IsMemoryMode"), QString(""));
    QVERIFY(isShown(shown.status(), "#IsMemoryMode"));
    QVERIFY(isShown(shown.status(), "#IsReady"));
    QVERIFY(!isShown(shown.status(), "#IsRecordingError"));
    QVERIFY(!isShown(shown.status(), "#IsAllTrelvikLockDevice"));
    shown.host.setTrelvikLock(true);
    QTRY_VERIFY(isShown(shown.status(), "#IsAllTrelvikLockDevice"));
    shown.host.setMode(StandInHost::Mode::Memory);
    QTRY_COMPARE(classesOf(shown.status(), "#IsMemoryMode"), QString(" on"));
    QCOMPARE(classesOf(shown.status(), "#IsLiveMode"), QString(""));
}

void TestPagePanels::drawsOnUpdateOnly()
{
    Shown shown(1);
    QVERIFY(shown.open());
    QTest::qWait(50);
    QVERIFY(isEnabled(shown.status(), "#prefs"));
    shown.host.state().isRecording = true;
    QTest::qWait(50);
    QVERIFY(isEnabled(shown.status(), "#prefs"));
    shown.host.updateUI(63, true);
    QTRY_VERIFY(!isEnabled(shown.status(), "#prefs"));
}

void TestPagePanels::showsTheClassesOfADevice()
{
    Shown shown;
    shown.host.addCamera();
    StandInCamera::Description bare;
    bare.isFound = false;
    shown.host.addCamera(bare);
    StandInCamera::Description full;
    full.isDummy = true;
    full.isMobile = true;
    StandInCamera *camera = shown.host.addCamera(full);
    camera->state().capabilities = {112, 117};
    camera->state().wirelessState = 1;
    camera->state().linkSpeedState = 1;
    QVERIFY(shown.open());
    QCOMPARE(count(shown.devices(), ".device"), 3);
    QCOMPARE(classesOf(shown.devices(), "#device-1"), QString("device found ui-selected"));
    QCOMPARE(classesOf(shown.devices(), "#device-2"), QString("device"));
    QCOMPARE(classesOf(shown.devices(), "#device-3"),
             QString("connected device dummy found mobile sup-linkspeed sup-shutdown sup-wifi"));
}

void TestPagePanels::showsWhatADeviceIsOnlyWhereItIs()
{
    Shown shown;
    StandInCamera::Description missing;
    missing.name = "Left";
    missing.address = "10.0.0.7";
    missing.isFound = false;
    missing.headNumber = 2;
    shown.host.addCamera(missing);
    QVERIFY(shown.open());
    QCOMPARE(text(shown.devices(), "#device-1 .name"), QString("Left"));
    QVERIFY(text(shown.devices(), "#device-1 .about").endsWith(", 10.0.0.7, head 2"));
    QVERIFY(isShown(shown.devices(), "#device-1 .isMissing"));
    for (const char *mark :
         {"isDummy", "isMobile", "isWireless", "isConnected", "isLinkSpeed", "isShutdown"})
        QVERIFY2(!isShown(shown.devices(), QString("#device-1 .") + mark), mark);
}

void TestPagePanels::selectsTheDeviceThatIsClicked()
{
    Shown shown(2);
    QVERIFY(shown.open());
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({1}));
    QStringList calls;
    connect(shown.host.events(), &StandInEvents::callJournalled, this,
            [&](const QString &line) { calls.append(line); });
    QVERIFY(click(shown.devices(), "#device-2 .name"));
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({2}));
    QCOMPARE(calls.filter("selectDocs"), QStringList("selectDocs([2], false)"));
    QTRY_COMPARE(classesOf(shown.devices(), "#device-2"), QString("device found ui-selected"));
    QCOMPARE(classesOf(shown.devices(), "#device-1"), QString("device found"));
}

void TestPagePanels::selectsByKeys()
{
    Shown shown(3);
    QVERIFY(shown.open());
    shown.devices()->setFocus();
    read(shown.devices(), "document.getElementById('device-1').focus()");
    QVERIFY(press(shown.devices(), Qt::Key_Down) && press(shown.devices(), Qt::Key_Down));
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({1}));
    QVERIFY(press(shown.devices(), Qt::Key_Space));
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({3}));
    QVERIFY(press(shown.devices(), Qt::Key_Up));
    QVERIFY(press(shown.devices(), Qt::Key_Return));
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({2}));
}

void TestPagePanels::selectsAllDevices()
{
    Shown shown(3);
    QVERIFY(shown.open());
    QVERIFY(click(shown.devices(), "#selectAll"));
    QCOMPARE(shown.host.selection().size(), 3);
    QTRY_COMPARE(count(shown.devices(), ".ui-selected"), 3);
}

void TestPagePanels::showsConnectedDevicesOnlyWhenAsked()
{
    Shown shown(1);
    StandInCamera::Description missing;
    missing.isFound = false;
    shown.host.addCamera(missing);
    QVERIFY(shown.open());
    QCOMPARE(count(shown.devices(), ".device"), 2);
    QVERIFY(click(shown.devices(), "#connectedOnly"));
    QTRY_COMPARE(count(shown.devices(), ".device"), 1);
    QVERIFY(count(shown.devices(), "#device-1") == 1);
    QVERIFY(shown.host.settings()
                .value("devicemanager/connectedCameraOnlyShowing", QVariant())
                .toBool());
    QVERIFY(!isShown(shown.devices(), "#state"));
    shown.host.closeDocument(1);
    QTRY_COMPARE(count(shown.devices(), ".device"), 0);
    QCOMPARE(text(shown.devices(), "#state"),
             QString("No camera is connected. The others are hidden."));
    QVERIFY(click(shown.devices(), "#connectedOnly"));
    QTRY_COMPARE(count(shown.devices(), ".device"), 1);
    QVERIFY(!shown.host.settings()
                 .value("devicemanager/connectedCameraOnlyShowing", QVariant())
                 .toBool());
}

void TestPagePanels::showsAllDevicesInOtherModes()
{
    Shown shown;
    StandInCamera::Description missing;
    missing.isFound = false;
    shown.host.addCamera(missing);
    shown.host.settings().setValue("devicemanager/connectedCameraOnlyShowing", true);
    QVERIFY(shown.open());
    QCOMPARE(count(shown.devices(), ".device"), 0);
    QVERIFY(read(shown.devices(), "document.getElementById('connectedOnly').checked").toBool());
    shown.host.setMode(StandInHost::Mode::Memory);
    QTRY_COMPARE(count(shown.devices(), ".device"), 1);
}

void TestPagePanels::saysThatThereIsNoDevice()
{
    Shown shown;
    QVERIFY(shown.open());
    QCOMPARE(text(shown.devices(), "#state"),
             QString("There is no camera. Cameras, Add camera brings one."));
    QVERIFY(!isEnabled(shown.devices(), "#selectAll"));
    QVERIFY(!isShown(shown.devices(), "#devices"));
    shown.host.addCamera();
    QTRY_VERIFY(isShown(shown.devices(), "#devices"));
    QVERIFY(!isShown(shown.devices(), "#state"));
}

void TestPagePanels::showsNamesAsTheyStand()
{
    Shown shown;
    StandInCamera::Description camera;
    camera.name = "<b onclick=\"x()\">A & B</b> \"%1\"";
    shown.host.addCamera(camera);
    QVERIFY(shown.open());
    QCOMPARE(text(shown.devices(), "#device-1 .name"), camera.name);
    QCOMPARE(count(shown.devices(), "#device-1 b"), 0);
}

void TestPagePanels::keepsTheFocusWhenItIsDrawnAnew()
{
    Shown shown(2);
    QVERIFY(shown.open());
    read(shown.devices(), "document.getElementById('device-2').focus()");
    shown.host.addCamera();
    QTRY_COMPARE(count(shown.devices(), ".device"), 3);
    QCOMPARE(read(shown.devices(), "document.activeElement.id").toString(), QString("device-2"));
}

void TestPagePanels::reportsWhatAHandlerThrows()
{
    Shown shown(1);
    QVERIFY(shown.open());
    LogCapture log;
    read(shown.status(), "Page.connect(statuspanel.update, function () { throw Error('lost'); })");
    read(shown.status(), "Page.listen(document, 'keydown', function () { nothing.there(); })");
    shown.host.updateUI(63, true);
    QTRY_COMPARE(log.texts(QtCriticalMsg).filter("Error: lost").size(), 1);
    QVERIFY(press(shown.status(), Qt::Key_F7));
    QCOMPARE(log.texts(QtCriticalMsg).filter("ReferenceError").size(), 1);
    // What follows is drawn as ever.
    shown.host.state().isRecording = true;
    shown.host.updateUI(63, true);
    QTRY_VERIFY(!isEnabled(shown.status(), "#prefs"));
}

void TestPagePanels::translatesItsTexts()
{
    Shown shown(1);
    shown.host.state().translations = {{"Select all", "Alle"},
                                       {"Live", "Direkt"},
                                       {"Partition %1", "%1. Bereich"},
                                       {"Partition of the current camera", "Bereich"}};
    QVERIFY(shown.open());
    QCOMPARE(text(shown.status(), "#selectAll"), QString("Alle"));
    QCOMPARE(text(shown.devices(), "#selectAll"), QString("Alle"));
    QCOMPARE(text(shown.status(), "#IsLiveMode"), QString("Direkt"));
    QCOMPARE(text(shown.status(), "#partition"), QString("1. Bereich"));
    QCOMPARE(read(shown.status(), "document.getElementById('partition').getAttribute('aria-label')")
                 .toString(),
             QString("Bereich"));
}

void TestPagePanels::logsWhatTheUserDoes()
{
    Shown shown(1);
    QVERIFY(shown.open());
    LogCapture log;
    QVERIFY(click(shown.status(), "#copy"));
    const QStringList lines = log.texts(QtInfoMsg);
    QVERIFY(lines.value(0).contains("[URL:qrc:/status.html] [ID:copy] [Control:Button] "
                                    "[Operation:clicked]"));
    QVERIFY(lines.value(1).contains("JS_Mediator::copySelectAreaToClipboard"));
    log.clear();
    QVERIFY(click(shown.devices(), "#connectedOnly"));
    QCOMPARE(log.texts(QtInfoMsg)
                 .filter("[ID:connectedOnly] [Control:CheckBox] [Operation:changed] [Value:true]")
                 .size(),
             1);
}

void TestPagePanels::hearsOpenOnceAfterEachLoad()
{
    StandInHost host;
    PagePanel panel(host, "statuspanel", "qrc:/status.html", "Status");
    int opened = 0;
    connect(panel.mediator(), &JS_Mediator::open, this, [&] { ++opened; });
    panel.refresh(); // not loaded yet: nothing to draw
    QTRY_COMPARE(opened, 1);
    panel.view()->reload();
    QTRY_COMPARE(opened, 2);
    QVERIFY(panel.isLoaded());
    PagePanel none(host, "nobody", "qrc:/nothing.html", "Nothing");
    connect(none.mediator(), &JS_Mediator::open, this, [&] { ++opened; });
    QTest::qWait(100);
    QVERIFY(!none.isLoaded());
    QCOMPARE(opened, 2);
}

int main(int argc, char **argv)
{
    TestPagePanels test;
    return runTest(argc, argv, test);
}

#include "test_page_panels.moc"
