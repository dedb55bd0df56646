#include "bridge/page/GUI_WebView.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "device/selectbox/JS_Mediator_SelectBox.h"
#include "device/selectbox/SelectBoxPlacement.h"
#include "plugin/PLG_Common.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/TestLog.h"

#include <QDir> // Q_INIT_RESOURCE
#include <QMetaMethod>
#include <QWebFrame>
#include <QWebSettings>

#include <malloc.h>

#include <functional>
#include <optional>

// The pop-up list for partitions and variables, chosen from by real clicks.

using Setup = std::function<void(StandInHost &)>;
Q_DECLARE_METATYPE(Setup)

class TestSelectBox : public TestBase
{
    Q_OBJECT

private slots:
    void signalsAndSlotsStandInOrder();
    void partitionIsChosen_data();
    void partitionIsChosen();
    void switchRefreshesTheFirstSelectedCamera();
    void variableIsChosen_data();
    void variableIsChosen();
    void registrationReachesTheOpenTool_data();
    void registrationReachesTheOpenTool();
    void currentPartitionIsTold();
    void boxClosesBeforeTheValueTakesEffect_data();
    void boxClosesBeforeTheValueTakesEffect();
    void choiceIsTraced_data();
    void choiceIsTraced();
    void failureGoesToTheHost_data();
    void failureGoesToTheHost();
    void boxWaitsForItsPage();
    void shownBoxWaitsForItsPage_data();
    void shownBoxWaitsForItsPage();
    void boxWaitsForAReload();
    void boxWithoutItsPageShowsAtTheEndOfTheLoad();
    void boxHiddenBeforeItsPageIsReadyStaysHidden_data();
    void boxHiddenBeforeItsPageIsReadyStaysHidden();
    void boxThatIsReadyShowsAtOnce();
    void closedBoxStaysClosedAfterAReload();
    void boxIsFilledOncePerRequest();
    void boxHasItsPage();
    void emptyBoxCloses_data();
    void emptyBoxCloses();
    void emptyBoxThatNobodyWantsStaysHidden();
    void missingPageIsLoadedWhenItIsThere();
    void missingPageIsTriedOncePerRequest();
    void pageIsFilled_data();
    void pageIsFilled();
    void clickChooses();
    void objectsAreShownInOrder();
    void missingScriptObjectsAreLeftOut();
    void styleFollowsTheSetting_data();
    void styleFollowsTheSetting();
    void boxMayGoWhileItsStyleIsRead();
    void escapeClosesIt();
    void otherWindowClosesIt();
    void throwingPageIsSurvived();
    void boxStandsByItsField_data();
    void boxStandsByItsField();
    void boxLeavesNothingBehind();
};

// In no namespace, since that is where the functions of a resource are.
static void takePageAway()
{
    Q_CLEANUP_RESOURCE(selectbox);
}

static void putPageBack()
{
    Q_INIT_RESOURCE(selectbox);
}

namespace {

/// While it lives there is no page for a box.
struct MissingPage
{
    MissingPage()
    {
        takePageAway();
        QWebSettings::clearMemoryCaches();
    }
    ~MissingPage() { putPageBack(); }
};

class LiveTool : public PLG_Common
{
public:
    explicit LiveTool(const QString &name = QStringLiteral("livecontrol"))
    {
        m_toolName = name;
        m_hasPanel = true;
    }

    void hookE(int value) override { hooks.append(QString::number(value)); }
    void textHook(const QString &text) override { hooks.append(text); }

    QStringList hooks;
};

/// A host with a live control tool and the bridge of a select box.
struct Bridge
{
    explicit Bridge(const QString &tool = QStringLiteral("livecontrol")) : plugin(tool)
    {
        host.addPlugin(&plugin);
        host.openPluginByName(tool);
        QObject::connect(&mediator, &JS_Mediator::close, &mediator, [this] {
            ++closings;
            callsAtClose = host.callCount();
        });
        host.clearJournal();
    }
    ~Bridge() { host.removePlugin(&plugin); }

    StandInHost host;
    LiveTool plugin;
    JS_Mediator_SelectBox mediator{&host};
    int closings = 0;
    int callsAtClose = -1;
};

struct Box
{
    Box() : box(&host), page(box.webView()) { loaded = page.waitLoaded(); }

    StandInHost host;
    GUI_SelectBox box;
    PageProbe page;
    bool loaded = false;
};

const QRect Field(100, 80, 120, 20);

void setPartitions(StandInCamera *camera, int count)
{
    camera->state().partitions.clear();
    for (int number = 1; number <= count; ++number)
        camera->state().partitions.append({number, QString(), 100, 1000});
}

}

void TestSelectBox::signalsAndSlotsStandInOrder()
{
    const QMetaObject &meta = JS_Mediator_SelectBox::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    QCOMPARE(methods,
             QStringList({"signalShowPartition(QVariantList)", "signalShowVariable(QString)",
                          "signalShowVariableRegist(QString)", "signalSetHeight(int)",
                          "slotNotifyPartition(QString)", "slotNotifyVariable(QString)",
                          "getCurrentPartition()", "slotNotifyVariableRegist(QString)"}));
    const QMetaObject &window = GUI_SelectBox::staticMetaObject;
    methods.clear();
    for (int i = window.methodOffset(); i < window.methodCount(); ++i)
        methods.append(QString::fromLatin1(window.method(i).methodSignature()));
    QCOMPARE(methods,
             QStringList({"addJSObject()", "onLoadFinish(bool)", "onClose()", "onUpdate()"}));
}

void TestSelectBox::partitionIsChosen_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<QStringList>("calls");
    const Setup threePartitions = [](StandInHost &host) { setPartitions(host.addCamera(), 3); };
    const auto switched = [](const char *number) {
        return QStringList(
            {"currentDocument()", "[1].partitionNumbers()",
             QStringLiteral("selectCameraPartition(%1, true)").arg(QLatin1String(number)),
             "selectedDocKeys(true)", "deviceByKey(1, true)", "[1].refreshCamera()", "isLiveMode()",
             "openPluginByName(\"s_record\")", "updateUI(63, true)"});
    };
    const QStringList refused = {"currentDocument()", "[1].partitionNumbers()"};
    QTest::newRow("inside") << "2" << threePartitions << switched("2");
    QTest::newRow("last") << "3" << threePartitions << switched("3");
    QTest::newRow("above the count") << "4" << threePartitions << refused;
    QTest::newRow("no number is 0") << "x" << threePartitions << switched("0");
    QTest::newRow("counted in tens")
        << "010" << Setup([](StandInHost &host) { setPartitions(host.addCamera(), 10); })
        << switched("10");
    QTest::newRow("not in sixteens") << "0x2" << threePartitions << switched("0");
    QTest::newRow("negative") << "-1" << threePartitions << switched("-1");
    QTest::newRow("no document") << "1" << Setup([](StandInHost &) {})
                                 << QStringList({"currentDocument()"});
    QStringList memory = switched("2").mid(0, 7);
    QTest::newRow("memory mode opens no page") << "2" << Setup([](StandInHost &host) {
        setPartitions(host.addCamera(), 3);
        host.setMode(StandInHost::Mode::Memory);
    }) << memory;
    QStringList unselected = switched("2");
    unselected.removeAt(4);
    unselected.removeAt(4);
    QTest::newRow("nothing selected") << "2" << Setup([](StandInHost &host) {
        setPartitions(host.addCamera(), 3);
        host.select(1, false);
    }) << unselected;
}

void TestSelectBox::partitionIsChosen()
{
    QFETCH(QString, value);
    QFETCH(Setup, setup);
    Bridge bridge;
    setup(bridge.host);
    bridge.host.clearJournal();
    bridge.mediator.slotNotifyPartition(value);
    QCOMPARE(bridge.closings, 1);
    QTEST(bridge.host.journal(), "calls");
    QCOMPARE(bridge.host.handledErrors(), QStringList());
}

void TestSelectBox::switchRefreshesTheFirstSelectedCamera()
{
    Bridge bridge;
    for (int i = 0; i < 3; ++i)
        setPartitions(bridge.host.addCamera(), 2);
    bridge.host.select(1, false);
    bridge.host.select(3, true);
    bridge.host.select(2, true);
    bridge.host.clearJournal();
    bridge.mediator.slotNotifyPartition(QStringLiteral("1"));
    // In the order of the list; the one that has gone is passed over.
    QCOMPARE(bridge.host.journal().filter("refreshCamera"), QStringList({"[2].refreshCamera()"}));
    bridge.host.answerNullOn(QStringLiteral("deviceByKey"), 1);
    bridge.host.clearJournal();
    bridge.mediator.slotNotifyPartition(QStringLiteral("1"));
    QCOMPARE(bridge.host.journal().filter("refreshCamera"), QStringList({"[3].refreshCamera()"}));
}

void TestSelectBox::variableIsChosen_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("tool");
    QTest::addColumn<bool>("live");
    QTest::addColumn<QStringList>("selected");
    QTest::addColumn<QStringList>("hooks");
    const QStringList page = {"2"};
    QTest::newRow("number") << "5"
                            << "livecontrol" << true << QStringList({"selectVariable(5)"}) << page;
    QTest::newRow("only there") << "go-variable"
                                << "livecontrol" << true << QStringList() << page;
    QTest::newRow("in capitals it is a number")
        << "GO-VARIABLE"
        << "livecontrol" << true << QStringList({"selectVariable(0)"}) << page;
    QTest::newRow("no number is 0")
        << "x"
        << "livecontrol" << true << QStringList({"selectVariable(0)"}) << page;
    QTest::newRow("counted in tens")
        << "010"
        << "livecontrol" << true << QStringList({"selectVariable(10)"}) << page;
    QTest::newRow("negative is 0")
        << "-3"
        << "livecontrol" << true << QStringList({"selectVariable(0)"}) << page;
    QTest::newRow("other tool") << "5"
                                << "lut" << true << QStringList({"selectVariable(5)"})
                                << QStringList();
    QTest::newRow("not in live mode")
        << "5"
        << "livecontrol" << false << QStringList({"selectVariable(5)"}) << QStringList();
}

void TestSelectBox::variableIsChosen()
{
    QFETCH(QString, value);
    QFETCH(QString, tool);
    QFETCH(bool, live);
    Bridge bridge(tool);
    if (!live)
        bridge.host.setMode(StandInHost::Mode::File);
    bridge.host.clearJournal();
    bridge.mediator.slotNotifyVariable(value);
    QCOMPARE(bridge.closings, 1);
    QTEST(bridge.host.commands(), "selected");
    QTEST(bridge.plugin.hooks, "hooks");
}

void TestSelectBox::registrationReachesTheOpenTool_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<bool>("open");
    QTest::addColumn<bool>("live");
    QTest::addColumn<bool>("document");
    QTest::addColumn<QStringList>("hooks");
    QTest::newRow("open") << "livecontrol" << true << true << true << QStringList({"{7}"});
    QTest::newRow("closed") << "livecontrol" << false << true << true << QStringList();
    QTest::newRow("other tool") << "lut" << true << true << true << QStringList();
    QTest::newRow("not in live mode") << "livecontrol" << true << false << true << QStringList();
    QTest::newRow("no document") << "livecontrol" << true << true << false << QStringList();
}

void TestSelectBox::registrationReachesTheOpenTool()
{
    QFETCH(QString, tool);
    QFETCH(bool, open);
    QFETCH(bool, live);
    QFETCH(bool, document);
    Bridge bridge(tool);
    if (!open)
        bridge.host.closePluginByName(tool);
    if (!live)
        bridge.host.setMode(StandInHost::Mode::Memory);
    if (document)
        bridge.host.addCamera();
    bridge.host.clearJournal();
    bridge.mediator.slotNotifyVariableRegist(QStringLiteral("{7}"));
    QCOMPARE(bridge.closings, 1);
    QTEST(bridge.plugin.hooks, "hooks");
    QCOMPARE(bridge.host.commands(), QStringList());
}

void TestSelectBox::currentPartitionIsTold()
{
    Bridge bridge;
    LogCapture log;
    QCOMPARE(bridge.mediator.getCurrentPartition(), 0);
    StandInCamera *camera = bridge.host.addCamera();
    setPartitions(camera, 3);
    camera->state().currentPartition = 3;
    QCOMPARE(bridge.mediator.getCurrentPartition(), 3);
    QCOMPARE(bridge.closings, 0);
    QCOMPARE(log.texts(), QStringList());
    bridge.host.failOn("currentDocument");
    QCOMPARE(bridge.mediator.getCurrentPartition(), 0);
    QCOMPARE(bridge.host.handledErrors(), QStringList("currentDocument failed"));
}

void TestSelectBox::boxClosesBeforeTheValueTakesEffect_data()
{
    QTest::addColumn<QString>("slot");
    for (const char *slot :
         {"slotNotifyPartition", "slotNotifyVariable", "slotNotifyVariableRegist"})
        QTest::newRow(slot) << QString::fromLatin1(slot);
}

void TestSelectBox::boxClosesBeforeTheValueTakesEffect()
{
    QFETCH(QString, slot);
    Bridge bridge;
    setPartitions(bridge.host.addCamera(), 3);
    bridge.host.clearJournal();
    QVERIFY(QMetaObject::invokeMethod(&bridge.mediator, qPrintable(slot),
                                      Q_ARG(QString, QStringLiteral("1"))));
    QCOMPARE(bridge.callsAtClose, 0);
    QVERIFY(bridge.host.callCount() > 0);
}

void TestSelectBox::choiceIsTraced_data()
{
    boxClosesBeforeTheValueTakesEffect_data();
}

void TestSelectBox::choiceIsTraced()
{
    QFETCH(QString, slot);
    Bridge bridge;
    QObject::connect(&bridge.mediator, &JS_Mediator::close, this, [] { qInfo("closed"); });
    LogCapture log;
    QVERIFY(QMetaObject::invokeMethod(&bridge.mediator, qPrintable(slot),
                                      Q_ARG(QString, QStringLiteral("7"))));
    const QString name = QStringLiteral("JS_Mediator_SelectBox::") + slot;
    QCOMPARE(log.texts(), QStringList({"[ENTER] \"" + name + "\" \"[value:7]\"", "closed",
                                       "[LEAVE] \"" + name + "\""}));
}

void TestSelectBox::failureGoesToTheHost_data()
{
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QString>("operation");
    QTest::newRow("document") << "slotNotifyPartition"
                              << "currentDocument";
    QTest::newRow("partitions") << "slotNotifyPartition"
                                << "partitionNumbers";
    QTest::newRow("switch") << "slotNotifyPartition"
                            << "selectCameraPartition";
    QTest::newRow("keys") << "slotNotifyPartition"
                          << "selectedDocKeys";
    QTest::newRow("device") << "slotNotifyPartition"
                            << "deviceByKey";
    QTest::newRow("camera") << "slotNotifyPartition"
                            << "refreshCamera";
    QTest::newRow("mode") << "slotNotifyPartition"
                          << "isLiveMode";
    QTest::newRow("page") << "slotNotifyPartition"
                          << "openPluginByName";
    QTest::newRow("variable") << "slotNotifyVariable"
                              << "selectVariable";
    QTest::newRow("tool") << "slotNotifyVariable"
                          << "currentPlugin";
    QTest::newRow("mode of the tool") << "slotNotifyVariable"
                                      << "isLiveMode";
    QTest::newRow("registration") << "slotNotifyVariableRegist"
                                  << "currentDocument";
}

void TestSelectBox::failureGoesToTheHost()
{
    QFETCH(QString, slot);
    QFETCH(QString, operation);
    Bridge bridge;
    setPartitions(bridge.host.addCamera(), 3);
    bridge.host.failOn(operation);
    LogCapture log;
    QVERIFY(QMetaObject::invokeMethod(&bridge.mediator, qPrintable(slot),
                                      Q_ARG(QString, QStringLiteral("1"))));
    QCOMPARE(bridge.host.handledErrors(), QStringList({operation + " failed"}));
    QCOMPARE(bridge.closings, 1);
    QVERIFY(log.texts().last().startsWith("[LEAVE]"));
    QVERIFY(operation == QLatin1String("openPluginByName") ||
            !bridge.host.commands().contains("updateUI(63, true)"));
    QCOMPARE(bridge.plugin.hooks, QStringList()); // the failure ends the whole slot
}

void TestSelectBox::boxWaitsForItsPage()
{
    StandInHost host;
    GUI_SelectBox box(&host);
    PageProbe page(box.webView());
    box.showPartitions({1, 2}, Field);
    QVERIFY(!box.isVisible());
    QVERIFY(page.waitLoaded());
    QVERIFY(box.isVisible());
    QCOMPARE(page.text(QStringLiteral("row-2")), QStringLiteral("2"));
}

void TestSelectBox::shownBoxWaitsForItsPage_data()
{
    QTest::addColumn<QByteArray>("way");
    for (const char *way : {"show", "showNormal", "setVisible"})
        QTest::newRow(way) << QByteArray(way);
}

void TestSelectBox::shownBoxWaitsForItsPage()
{
    QFETCH(QByteArray, way);
    StandInHost host;
    GUI_SelectBox box(&host);
    PageProbe page(box.webView());
    if (way == "setVisible")
        box.setVisible(true);
    else
        QVERIFY(QMetaObject::invokeMethod(&box, way));
    QVERIFY(!box.isVisible());
    QVERIFY(page.waitLoaded());
    QVERIFY(box.isVisible());
    box.hide();
    box.show();
    QVERIFY(box.isVisible()); // its page is there
}

void TestSelectBox::boxWaitsForAReload()
{
    Box shown;
    shown.box.webView()->reload();
    shown.box.showPartitions({1, 2}, Field);
    QVERIFY(!shown.box.isVisible());
    QVERIFY(shown.page.waitLoaded());
    QVERIFY(shown.box.isVisible());
    QCOMPARE(shown.page.text(QStringLiteral("row-2")), QStringLiteral("2"));
}

void TestSelectBox::boxWithoutItsPageShowsAtTheEndOfTheLoad()
{
    MissingPage missing;
    StandInHost host;
    GUI_SelectBox box(&host);
    PageProbe page(box.webView());
    box.show();
    QVERIFY(!box.isVisible());
    QVERIFY(page.waitLoaded());
    QVERIFY(!page.isFound());
    QVERIFY(box.isVisible());
    box.hide();
    box.show(); // nothing is under way that it could wait for
    QVERIFY(box.isVisible());
}

void TestSelectBox::boxHiddenBeforeItsPageIsReadyStaysHidden_data()
{
    QTest::addColumn<bool>("byMediator");
    QTest::newRow("mediator") << true;
    QTest::newRow("application") << false;
}

void TestSelectBox::boxHiddenBeforeItsPageIsReadyStaysHidden()
{
    QFETCH(bool, byMediator);
    StandInHost host;
    GUI_SelectBox box(&host);
    PageProbe page(box.webView());
    box.showPartitions({1, 2}, Field);
    if (byMediator)
        emit box.mediator()->close();
    else
        box.hide();
    QVERIFY(page.waitLoaded());
    QVERIFY(!box.isVisible());
    box.showPartitions({1, 2}, Field);
    QVERIFY(box.isVisible());
}

void TestSelectBox::boxThatIsReadyShowsAtOnce()
{
    Box shown;
    QVERIFY(shown.loaded);
    QVERIFY(!shown.box.isVisible()); // nobody has asked for it
    shown.box.showPartitions({1, 2}, Field);
    QVERIFY(shown.box.isVisible());
    QCOMPARE(shown.page.evaluate("height").toInt(), shown.box.height());
}

void TestSelectBox::closedBoxStaysClosedAfterAReload()
{
    Box shown;
    shown.box.showPartitions({1, 2}, Field);
    emit shown.box.mediator()->close();
    QVERIFY(!shown.box.isVisible());
    shown.box.webView()->reload();
    QVERIFY(shown.page.waitLoaded());
    QVERIFY(!shown.box.isVisible());
}

void TestSelectBox::boxIsFilledOncePerRequest()
{
    Box shown;
    QSignalSpy filled(shown.box.mediator(), &JS_Mediator_SelectBox::signalShowPartition);
    QSignalSpy sized(shown.box.mediator(), &JS_Mediator_SelectBox::signalSetHeight);
    shown.box.showPartitions({1, 2}, Field);
    QCOMPARE(filled.count(), 1);
    shown.box.webView()->reload();
    QVERIFY(shown.page.waitLoaded());
    QVERIFY(shown.box.isVisible());
    QCOMPARE(filled.count(), 1);
    QCOMPARE(sized.count(), 1);
    QCOMPARE(shown.page.text(QStringLiteral("list")), QString());
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

void TestSelectBox::boxHasItsPage()
{
    Box shown;
    QVERIFY(shown.page.isFound());
    QCOMPARE(shown.box.webView()->url(), QUrl(QStringLiteral("qrc:/selectbox.html")));
    shown.box.showPartitions({1, 2}, Field);
    QCOMPARE(shown.box.webView()->geometry(), shown.box.rect());
    QCOMPARE(shown.box.focusProxy(), shown.box.webView());
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    QCoreApplication::sendEvent(&shown.box, &key);
    QVERIFY(!key.isAccepted()); // it is not the box's
}

void TestSelectBox::emptyBoxCloses_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("Escape") << "escape";
    QTest::newRow("other window") << "window";
    QTest::newRow("mediator") << "mediator";
}

void TestSelectBox::emptyBoxCloses()
{
    QFETCH(QString, way);
    MissingPage missing;
    StandInHost host;
    GUI_SelectBox box(&host);
    PageProbe page(box.webView());
    box.showPartitions({1, 2}, Field);
    QVERIFY(page.waitLoaded());
    QVERIFY(!page.isFound());
    QVERIFY(box.isVisible()); // as it was wanted, with nothing in it
    if (way == QLatin1String("escape")) {
        QTest::keyClick(box.webView(), Qt::Key_Escape);
    } else if (way == QLatin1String("window")) {
        QEvent deactivated(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(&box, &deactivated);
    } else {
        emit box.mediator()->close();
    }
    QVERIFY(!box.isVisible());
}

void TestSelectBox::emptyBoxThatNobodyWantsStaysHidden()
{
    MissingPage missing;
    StandInHost host;
    GUI_SelectBox box(&host);
    PageProbe page(box.webView());
    box.showPartitions({1, 2}, Field);
    emit box.mediator()->close();
    QVERIFY(page.waitLoaded());
    QVERIFY(!page.isFound());
    QVERIFY(!box.isVisible());
}

void TestSelectBox::missingPageIsLoadedWhenItIsThere()
{
    StandInHost host;
    std::optional<MissingPage> missing(std::in_place);
    GUI_SelectBox box(&host);
    PageProbe page(box.webView());
    box.showPartitions({1, 2}, Field);
    QVERIFY(page.waitLoaded());
    QVERIFY(!page.isFound());
    emit box.mediator()->close();
    missing.reset();
    box.showPartitions({5}, Field);
    QVERIFY(!box.isVisible());
    QVERIFY(page.waitLoaded());
    QVERIFY(box.isVisible());
    QCOMPARE(page.text(QStringLiteral("list")), QStringLiteral("5"));
    page.click(QStringLiteral("row-5"));
    QVERIFY(!box.isVisible());
}

void TestSelectBox::missingPageIsTriedOncePerRequest()
{
    MissingPage missing;
    StandInHost host;
    GUI_SelectBox box(&host);
    QSignalSpy loads(box.webView(), &QWebView::loadFinished);
    box.showPartitions({1}, Field);
    box.showPartitions({1, 2}, Field); // while the first load is under way
    QTRY_COMPARE(loads.count(), 1);
    QTest::qWait(50);
    QCOMPARE(loads.count(), 1);
    box.showPartitions({1, 2, 3}, Field);
    QTRY_COMPARE(loads.count(), 2);
    QTest::qWait(50);
    QCOMPARE(loads.count(), 2);
    QVERIFY(box.isVisible());
}

void TestSelectBox::pageIsFilled_data()
{
    QTest::addColumn<QString>("what");
    QTest::newRow("partitions") << "partitions";
    QTest::newRow("variables") << "variables";
    QTest::newRow("registration") << "registration";
}

void TestSelectBox::pageIsFilled()
{
    QFETCH(QString, what);
    Box shown;
    if (what == QLatin1String("partitions"))
        shown.box.showPartitions({5}, Field);
    else if (what == QLatin1String("variables"))
        shown.box.showVariables(QStringLiteral("[5]"), 1, Field);
    else
        shown.box.showVariableRegistration(QStringLiteral("5"), Field);
    QVERIFY(shown.box.isVisible());
    LogCapture log;
    shown.page.click(QStringLiteral("row-5"));
    const QStringList slot = log.texts().filter("[ENTER]");
    QCOMPARE(slot.size(), 1);
    const QString expected = what == QLatin1String("partitions")  ? "slotNotifyPartition"
                             : what == QLatin1String("variables") ? "slotNotifyVariable"
                                                                  : "slotNotifyVariableRegist";
    QCOMPARE(slot.first(), "[ENTER] \"JS_Mediator_SelectBox::" + expected + "\" \"[value:5]\"");
    QVERIFY(!shown.box.isVisible());
}

void TestSelectBox::clickChooses()
{
    Box shown;
    StandInCamera *camera = shown.host.addCamera();
    setPartitions(camera, 3);
    shown.box.showPartitions({1, 2, 3}, Field);
    shown.host.clearJournal();
    shown.page.click(QStringLiteral("row-3"));
    QVERIFY(!shown.box.isVisible());
    QCOMPARE(shown.host.commands().first(), QStringLiteral("selectCameraPartition(3, true)"));
    QVERIFY(shown.host.commands().contains("openPluginByName(\"s_record\")"));
}

void TestSelectBox::objectsAreShownInOrder()
{
    Box shown;
    QCOMPARE(shown.host.journal().filter("ScriptObject").mid(0, 2),
             QStringList({"appScriptObject()", "mainScriptObject()"}));
    QCOMPARE(shown.page.evaluate("typeof app + typeof main + typeof items").toString(),
             QStringLiteral("objectobjectobject"));
    QCOMPARE(shown.page.evaluate("items.getPrefInt('main/scrno', 4)").toInt(), 4);
}

void TestSelectBox::missingScriptObjectsAreLeftOut()
{
    StandInHost host;
    host.failOn(QStringLiteral("appScriptObject"), 0);
    GUI_SelectBox box(&host);
    PageProbe page(box.webView());
    QVERIFY(page.waitLoaded());
    QVERIFY(!host.handledErrors().isEmpty());
    QCOMPARE(page.evaluate("typeof app").toString(), QStringLiteral("undefined"));
    QCOMPARE(page.evaluate("typeof items").toString(), QStringLiteral("object"));
}

void TestSelectBox::styleFollowsTheSetting_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("sheet");
    QTest::newRow("light") << "light"
                           << "background:#eee;";
    QTest::newRow("dark") << "dark"
                          << "background:#333;";
    QTest::newRow("other case") << "Light"
                                << "background:#333;";
    QTest::newRow("unknown") << "blue"
                             << "background:#333;";
    QTest::newRow("empty") << ""
                           << "background:#333;";
}

void TestSelectBox::styleFollowsTheSetting()
{
    QFETCH(QString, style);
    Box shown;
    QCOMPARE(shown.box.webView()->styleSheet(), QStringLiteral("background:#eee;"));
    shown.host.settings().setValue("env/style", style);
    shown.host.clearJournal();
    emit shown.box.mediator()->update();
    QTEST(shown.box.webView()->styleSheet(), "sheet");
    QCOMPARE(shown.host.journal(), QStringList({"getPref(\"env/style\", invalid)"}));
}

void TestSelectBox::boxMayGoWhileItsStyleIsRead()
{
    StandInHost host;
    QPointer<GUI_SelectBox> box(new GUI_SelectBox(&host));
    connect(host.events(), &StandInEvents::callJournalled, this, [&] { delete box; });
    QVERIFY(QMetaObject::invokeMethod(box, "onUpdate"));
    QVERIFY(!box);
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestSelectBox::escapeClosesIt()
{
    Box shown;
    shown.box.showPartitions({1}, Field);
    QTest::keyClick(shown.box.webView(), Qt::Key_A);
    QVERIFY(shown.box.isVisible());
    QTest::keyClick(shown.box.webView(), Qt::Key_Escape);
    QVERIFY(!shown.box.isVisible());
}

void TestSelectBox::otherWindowClosesIt()
{
    Box shown;
    shown.box.showPartitions({1}, Field);
    QEvent deactivated(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&shown.box, &deactivated);
    QVERIFY(!shown.box.isVisible());
}

void TestSelectBox::throwingPageIsSurvived()
{
    Box shown;
    shown.page.evaluate("items.signalShowPartition.connect(function () { throw 'broken'; })");
    LogCapture log;
    shown.box.showPartitions({1}, Field);
    QCOMPARE(log.texts(QtCriticalMsg), QStringList({"[SCRIPT] \"broken\""}));
    QVERIFY(shown.box.isVisible());
    QCOMPARE(shown.page.text(QStringLiteral("row-1")), QStringLiteral("1"));
}

void TestSelectBox::boxStandsByItsField_data()
{
    QTest::addColumn<QRect>("field");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QRect>("place");
    QTest::addColumn<QRect>("screen");
    const QRect screen(0, 0, 800, 600);
    const auto row = [](const char *name, const QRect &on, const QRect &field, int rows,
                        const QRect &place) {
        QTest::newRow(name) << field << rows << place << on;
    };
    // With rows of 24 and a border of 1.
    row("below, as wide", screen, QRect(100, 80, 120, 20), 3, QRect(100, 100, 120, 74));
    row("above, where there is more room", screen, QRect(100, 560, 120, 20), 3,
        QRect(100, 486, 120, 74));
    row("cut below", screen, QRect(100, 100, 120, 20), 100, QRect(100, 120, 120, 480));
    row("cut above", screen, QRect(100, 400, 120, 20), 100, QRect(100, 0, 120, 400));
    row("narrow field", screen, QRect(100, 80, 10, 20), 1, QRect(100, 100, 80, 26));
    row("at the right edge", screen, QRect(750, 80, 120, 20), 1, QRect(680, 100, 120, 26));
    row("left of the screen", screen, QRect(-50, 80, 120, 20), 1, QRect(0, 100, 120, 26));
    row("no rows", screen, QRect(100, 80, 120, 20), 0, QRect(100, 100, 120, 26));
    row("negative rows", screen, QRect(100, 80, 120, 20), -5, QRect(100, 100, 120, 26));
    row("wider than the screen", screen, QRect(0, 80, 2000, 20), 1, QRect(0, 100, 800, 26));
    row("row count out of range", screen, QRect(100, 80, 120, 20), 2147483647,
        QRect(100, 100, 120, 500));
    const QRect second(1000, 200, 800, 600);
    row("just fits below", second, QRect(1100, 706, 120, 20), 3, QRect(1100, 726, 120, 74));
    row("as much room above as below", second, QRect(1100, 490, 120, 20), 100,
        QRect(1100, 510, 120, 290));
    row("cut above on a lower screen", second, QRect(1100, 760, 120, 20), 100,
        QRect(1100, 200, 120, 560));
    row("lower than a row and the field", QRect(0, 0, 800, 30), QRect(100, 5, 120, 20), 1,
        QRect(100, 6, 120, 24));
}

void TestSelectBox::boxStandsByItsField()
{
    QFETCH(QRect, field);
    QFETCH(int, rows);
    QFETCH(QRect, screen);
    QTEST(SelectBoxPlacement::place(field, rows, screen), "place");
}

void TestSelectBox::boxLeavesNothingBehind()
{
    StandInHost host;
    QPointer<JS_Mediator> mediator;
    QPointer<QWidget> view;
    {
        GUI_SelectBox box(&host);
        mediator = box.mediator();
        view = box.webView();
        box.showPartitions({1}, Field);
    }
    QVERIFY(!mediator);
    QVERIFY(!view);
}

int main(int argc, char **argv)
{
    mallopt(M_PERTURB, 0xa5); // what has gone reads as nonsense
    TestSelectBox test;
    return runTest(argc, argv, test);
}

#include "test_select_box.moc"
