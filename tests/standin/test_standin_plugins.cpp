#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "plugin/PLG_Button.h"
#include "standin/host/StandInHost.h"
#include "standin/tools/PluginLoader.h"
#include "tests/support/TestLog.h"

#include <QFile>
#include <QResource>
#include <QSignalSpy>

#include <stdexcept>

namespace {

/// A tool that notes what the host does with it.
class NotingTool : public PLG_Common
{
public:
    explicit NotingTool(const QString &name, bool panel = true)
    {
        m_toolName = name;
        m_hasPanel = panel;
        m_buttonKind = panel ? 0 : 1;
    }

    void setTransaction(int checkKind) { m_checkKind = checkKind; }
    void setQuick() { m_quickToolMode = 1; }
    void setClosesCurrent(bool closes) { m_closeCurrentOnFinish = closes; }

    void setHost(HostServices *services) override
    {
        notes.append("setHost");
        PLG_Common::setHost(services);
    }
    void update() override { notes.append("update"); }
    void activate() override
    {
        notes.append("activate");
        PLG_Common::activate();
        if (failing)
            throw std::runtime_error("the tool is out of order");
    }
    void deactivate() override
    {
        notes.append("deactivate");
        PLG_Common::deactivate();
    }
    void closeTool() override
    {
        notes.append("closeTool");
        PLG_Common::closeTool();
    }
    void onClosed() override
    {
        notes.append("onClosed");
        PLG_Common::onClosed();
    }
    void onModeChanged(int mode) override
    {
        notes.append(QStringLiteral("onModeChanged %1").arg(mode));
        PLG_Common::onModeChanged(mode);
    }

    QStringList notes;
    bool failing = false;
};

/// A tool that is on while its dialog is shown.
class DialogTool : public NotingTool
{
public:
    DialogTool() : NotingTool(QStringLiteral("lut"), false) { m_checkKind = 6; }

    void update() override {} // comes with the loading of the page, sooner or later

    GUI_ModelessPatternDialog *createModelessPatternDialog(bool) override
    {
        notes.append("create");
        return new GUI_ModelessPatternDialog(host(), QStringLiteral("LUT"),
                                             QStringLiteral("about:blank"), nullptr,
                                             nullptr); // owned by the tool
    }
};

}

class TestStandInPlugins : public TestBase
{
    Q_OBJECT

private slots:
    void setHostComesFirst();
    void findsByName();
    void opensAPanel();
    void opensAButtonTool();
    void opensADialogTool();
    void unknownNameOpensNothing();
    void toolThatFailsToOpenIsNotOpen_data();
    void toolThatFailsToOpenIsNotOpen();
    void anotherPanelClosesTheFirst();
    void closesTheCurrentOne();
    void closesByName();
    void returnLeavesThePanelOnly();
    void toolThatClosesItselfIsClosedOnce();
    void removedPluginIsClosedAndForgotten();
    void pluginIsNotOwned();
    void updateReachesAllPlugins();
    void deterredUpdatesComeAtTheEnd();
    void ignoredUpdatesReachNobody();
    void modeChangesReachAllPlugins();
    void toolStates();
    void quickToolsExcludeEachOther();
    void quickToolThatIsExcludedRunsNoMore();
    void otherToolsAreNoQuickTools();
    void transactionRollsBack();
    void transactionResetsAndGoesOn();
    void transactionCommits();
    void transactionsOfTwoTools();
    void panelToolRollsBackThroughTheContract();
    void pausesAreBalanced();
    void livePausedCanBeAnswered();
    void embeddedWidgets();
    void labelComesFromTheModule();
    void labelFollowsTheLanguage_data();
    void labelFollowsTheLanguage();
    void unknownLabelIsTheName();
    void deletedPluginIsForgotten();
    void unloadedModuleLeavesNothingBehind();
    void twoPluginsShareAMessageFile();
    void lockToolLocks();
    void eventsTellOfChanges();
};

void TestStandInPlugins::setHostComesFirst()
{
    StandInHost host;
    NotingTool tool("lut");
    host.addPlugin(&tool);
    QCOMPARE(tool.notes, QStringList({"setHost"}));
    host.addPlugin(&tool); // is there already
    host.addPlugin(nullptr);
    QCOMPARE(tool.notes, QStringList({"setHost"}));
    QCOMPARE(host.plugins(), QList<PLG_Interface *>({&tool}));
    QCOMPARE(host.journal(), QStringList());
}

void TestStandInPlugins::findsByName()
{
    StandInHost host;
    NotingTool tool("lut");
    QCOMPARE(host.pluginByName("lut"), nullptr);
    host.addPlugin(&tool);
    QCOMPARE(host.pluginByName("lut"), &tool);
    QCOMPARE(host.pluginByName("LUT"), nullptr);
    host.answerNullOn("pluginByName");
    QCOMPARE(host.pluginByName("lut"), nullptr);
}

void TestStandInPlugins::opensAPanel()
{
    StandInHost host;
    NotingTool tool("lut");
    host.addPlugin(&tool);
    QCOMPARE(host.currentPlugin(), nullptr);
    QCOMPARE(host.currentPluginName(), QString());
    host.clearJournal();
    host.openPluginByName("lut");
    QCOMPARE(host.journal(),
             QStringList({"openPluginByName(\"lut\")", "setToolState(\"lut\", false)"}));
    QCOMPARE(tool.notes, QStringList({"setHost", "activate"}));
    QCOMPARE(host.currentPlugin(), &tool);
    QCOMPARE(host.currentPluginName(), QString("lut"));
    QVERIFY(host.isToolRunning("lut"));
    host.openPluginByName("lut"); // is open
    QCOMPARE(tool.notes, QStringList({"setHost", "activate"}));
}

void TestStandInPlugins::opensAButtonTool()
{
    StandInHost host;
    NotingTool panel("lut");
    NotingTool button("t_zoom", false);
    host.addPlugin(&panel);
    host.addPlugin(&button);
    host.openPluginByName("lut");
    host.openPluginByName("t_zoom");
    QCOMPARE(host.currentPlugin(), &panel); // a button has no panel
    QVERIFY(host.isPluginOpen(&button));
    QVERIFY(host.toolState("t_zoom"));
    host.closePluginByName("t_zoom");
    QCOMPARE(button.notes,
             QStringList({"setHost", "activate", "closeTool", "deactivate", "onClosed"}));
    QVERIFY(!host.toolState("t_zoom"));
    QVERIFY(!host.isPluginOpen(&button));
    QCOMPARE(host.currentPlugin(), &panel);
}

void TestStandInPlugins::opensADialogTool()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    DialogTool tool;
    host.addPlugin(&tool);
    host.openPluginByName("lut");
    QCOMPARE(tool.notes, QStringList({"setHost", "activate", "create"}));
    QVERIFY(tool.isDialogVisible());
    QVERIFY(tool.isChecked(camera, false));
    tool.notes.clear();

    tool.closeDialog(); // the user closes it: the tool asks the host to close it too
    QVERIFY(!tool.isDialogVisible());
    QVERIFY(!host.isPluginOpen(&tool));
    QCOMPARE(tool.notes, QStringList({"closeTool", "deactivate", "onClosed"}));
    tool.notes.clear();

    host.openPluginByName("lut");
    QCOMPARE(tool.notes, QStringList({"activate"})); // the dialog is still there
    QVERIFY(tool.isDialogVisible());
    host.closePluginByName("lut");
    QVERIFY(!tool.isDialogVisible());
    QCOMPARE(tool.notes, QStringList({"activate", "closeTool", "deactivate", "onClosed"}));
}

void TestStandInPlugins::unknownNameOpensNothing()
{
    StandInHost host;
    LogCapture log; // there is no such tool
    host.openPluginByName("nowhere");
    host.closePluginByName("nowhere");
    host.closeCurrentPlugin();
    host.returnFromPlugin();
    QCOMPARE(host.currentPlugin(), nullptr);
}

void TestStandInPlugins::toolThatFailsToOpenIsNotOpen_data()
{
    QTest::addColumn<bool>("panel");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("panel") << true << QStringList({"closeTool", "onClosed"});
    QTest::newRow("button") << false << QStringList({"closeTool", "deactivate", "onClosed"});
}

void TestStandInPlugins::toolThatFailsToOpenIsNotOpen()
{
    QFETCH(bool, panel);
    QFETCH(QStringList, left);
    StandInHost host;
    NotingTool tool("lut", panel);
    tool.setTransaction(2);
    host.addPlugin(&tool);
    tool.notes.clear();
    tool.failing = true;
    QVERIFY_EXCEPTION_THROWN(host.openPluginByName("lut"), std::runtime_error);
    QCOMPARE(tool.notes, QStringList("activate") + left);
    QVERIFY(!host.isPluginOpen(&tool));
    QCOMPARE(host.currentPlugin(), nullptr);
    QVERIFY(!host.isTransactionOpen("lut"));
    QCOMPARE(host.handledErrors(), QStringList()); // whoever opens it hears of it

    tool.failing = false;
    tool.notes.clear();
    host.openPluginByName("lut");
    QCOMPARE(tool.notes, QStringList("activate"));
    QVERIFY(host.isPluginOpen(&tool));
    QCOMPARE(host.isTransactionOpen("lut"), panel);
}

void TestStandInPlugins::anotherPanelClosesTheFirst()
{
    StandInHost host;
    NotingTool first("lut");
    NotingTool second("histogram");
    host.addPlugin(&first);
    host.addPlugin(&second);
    host.openPluginByName("lut");
    host.openPluginByName("histogram");
    QCOMPARE(first.notes, QStringList({"setHost", "activate", "closeTool", "onClosed"}));
    QCOMPARE(host.currentPlugin(), &second);
    QVERIFY(!host.isPluginOpen(&first));
}

void TestStandInPlugins::closesTheCurrentOne()
{
    StandInHost host;
    NotingTool tool("lut");
    host.addPlugin(&tool);
    host.openPluginByName("lut");
    host.clearJournal();
    host.closeCurrentPlugin();
    QCOMPARE(tool.notes, QStringList({"setHost", "activate", "closeTool", "onClosed"}));
    QCOMPARE(host.journal(), QStringList({"closeCurrentPlugin()", "clearUndoStack()"}));
    QCOMPARE(host.currentPlugin(), nullptr);
    QVERIFY(!host.isPluginOpen(&tool));
    host.closeCurrentPlugin();
    QCOMPARE(tool.notes.size(), 4);
}

void TestStandInPlugins::closesByName()
{
    StandInHost host;
    NotingTool tool("lut");
    host.addPlugin(&tool);
    host.closePluginByName("lut"); // is not open
    QCOMPARE(tool.notes, QStringList({"setHost"}));
    host.openPluginByName("lut");
    host.closePluginByName("lut");
    QCOMPARE(tool.notes, QStringList({"setHost", "activate", "closeTool", "onClosed"}));
    QCOMPARE(host.currentPlugin(), nullptr);
}

void TestStandInPlugins::returnLeavesThePanelOnly()
{
    StandInHost host;
    NotingTool tool("lut");
    host.addPlugin(&tool);
    host.openPluginByName("lut");
    host.returnFromPlugin();
    QCOMPARE(tool.notes, QStringList({"setHost", "activate", "onClosed"}));
    QCOMPARE(host.currentPlugin(), nullptr);
    QVERIFY(host.isPluginOpen(&tool));
    host.openPluginByName("lut");
    QCOMPARE(host.currentPlugin(), &tool);
}

void TestStandInPlugins::toolThatClosesItselfIsClosedOnce()
{
    StandInHost host;
    NotingTool tool("lut");
    tool.setClosesCurrent(true);
    host.addPlugin(&tool);
    host.openPluginByName("lut");
    tool.notes.clear();
    tool.deactivate(); // asks the host to close it
    QCOMPARE(tool.notes, QStringList({"deactivate", "closeTool", "onClosed"}));
    QCOMPARE(host.currentPlugin(), nullptr);
}

void TestStandInPlugins::removedPluginIsClosedAndForgotten()
{
    StandInHost host;
    NotingTool tool("lut");
    host.addPlugin(&tool);
    host.openPluginByName("lut");
    host.removePlugin(&tool);
    QCOMPARE(tool.notes, QStringList({"setHost", "activate", "closeTool", "onClosed"}));
    QCOMPARE(host.currentPlugin(), nullptr);
    QCOMPARE(host.pluginByName("lut"), nullptr);
    host.removePlugin(&tool);
    host.removePlugin(nullptr);
    host.updateUI(4, false);
    QCOMPARE(tool.notes.size(), 4);
}

void TestStandInPlugins::pluginIsNotOwned()
{
    auto tool = std::make_unique<NotingTool>("lut");
    const QPointer<QObject> alive(tool.get());
    {
        StandInHost host;
        host.addPlugin(tool.get());
    }
    QVERIFY(alive);
}

void TestStandInPlugins::updateReachesAllPlugins()
{
    StandInHost host;
    NotingTool first("a");
    NotingTool second("b");
    host.addPlugin(&first);
    host.addPlugin(&second);
    QSignalSpy updated(host.events(), &StandInEvents::updated);
    QSignalSpy refreshed(host.events(), &StandInEvents::documentRefreshed);
    host.addCamera();
    host.updateUI(8, false);
    QCOMPARE(first.notes, QStringList({"setHost", "update"}));
    QCOMPARE(second.notes, QStringList({"setHost", "update"}));
    QCOMPARE(updated.count(), 1);
    QCOMPARE(updated.last().first().toUInt(), 8u);
    QCOMPARE(refreshed.count(), 0);
    host.updateUI(4, false); // the display
    QCOMPARE(refreshed.count(), 1);
}

void TestStandInPlugins::deterredUpdatesComeAtTheEnd()
{
    StandInHost host;
    NotingTool tool("a");
    host.addPlugin(&tool);
    QSignalSpy updated(host.events(), &StandInEvents::updated);
    host.deterUpdateUI(true);
    host.deterUpdateUI(true);
    QCOMPARE(host.deterrals(), 2);
    host.updateUI(8, false);
    host.updateUI(16, true);
    host.deterUpdateUI(false);
    QCOMPARE(updated.count(), 0);
    QCOMPARE(tool.notes, QStringList({"setHost"}));
    host.deterUpdateUI(false);
    QCOMPARE(host.deterrals(), 0);
    QCOMPARE(updated.count(), 1);
    QCOMPARE(updated.last().first().toUInt(), 24u);
    QCOMPARE(tool.notes, QStringList({"setHost", "update"}));
    host.deterUpdateUI(true);
    host.deterUpdateUI(false); // nothing was held back
    QCOMPARE(updated.count(), 1);
}

void TestStandInPlugins::ignoredUpdatesReachNobody()
{
    StandInHost host;
    NotingTool tool("a");
    host.addPlugin(&tool);
    host.state().isUpdateIgnore = true;
    host.updateUI(~0u, true);
    QCOMPARE(tool.notes, QStringList({"setHost"}));
    QVERIFY(host.isUpdateIgnore());
}

void TestStandInPlugins::modeChangesReachAllPlugins()
{
    StandInHost host;
    NotingTool tool("a");
    host.addPlugin(&tool);
    QSignalSpy spy(host.events(), &StandInEvents::modeChanged);
    QCOMPARE(host.currentMode(), 0);
    QVERIFY(host.isLiveMode() && !host.isMemoryMode() && !host.isFileMode());
    host.setMode(StandInHost::Mode::Live); // as it is
    host.setMode(StandInHost::Mode::Memory);
    QCOMPARE(host.currentMode(), 1);
    QVERIFY(!host.isLiveMode() && host.isMemoryMode() && !host.isFileMode());
    host.setMode(StandInHost::Mode::File);
    QCOMPARE(host.currentMode(), 2);
    QVERIFY(!host.isLiveMode() && !host.isMemoryMode() && host.isFileMode());
    QCOMPARE(tool.notes, QStringList({"setHost", "onModeChanged 1", "onModeChanged 2"}));
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.last().first().toInt(), 2);
}

void TestStandInPlugins::toolStates()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    QVERIFY(!first->isToolOn("lut"));
    host.setToolState("lut", true);
    QVERIFY(first->isToolOn("lut"));
    second->setToolOn("lut", false); // this document's own
    QVERIFY(!second->isToolOn("lut"));
    QVERIFY(!host.isToolRunning("lut"));
    host.setToolActive("lut", true);
    QVERIFY(host.isToolRunning("lut"));
    QVERIFY(host.isToolActive("lut"));
    host.setToolActive("lut", false);
    QVERIFY(!first->isToolOn("lut"));
    QVERIFY(!host.isToolRunning("lut"));
    host.state().runningTools.insert("t_crosscursor");
    QVERIFY(host.isToolRunning("t_crosscursor"));

    QVERIFY(!first->isToolAvailable("lut", false));
    first->state().availableTools.insert("lut");
    QVERIFY(first->isToolAvailable("lut", false));
    QVERIFY(!second->isToolAvailable("lut", false));
    host.beginTransaction("lut", true, true);
    QVERIFY(second->isToolAvailable("lut", false));
    QVERIFY(!second->isToolAvailable("histogram", false));
    host.commitTransaction(true, "lut");
    QVERIFY(!second->isToolAvailable("lut", false));

    QCOMPARE(host.quickTool(), QString());
    host.setQuickTool("lut");
    QCOMPARE(host.quickTool(), QString("lut"));
    host.setQuickTool(QString());
    QCOMPARE(host.quickTool(), QString());
}

void TestStandInPlugins::quickToolsExcludeEachOther()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    NotingTool first("a");
    NotingTool second("b");
    for (NotingTool *tool : {&first, &second}) {
        tool->setQuick();
        host.addPlugin(tool);
    }
    first.activate();
    QVERIFY(camera->isToolOn("a"));
    second.activate();
    QVERIFY(camera->isToolOn("b"));
    QVERIFY(!camera->isToolOn("a"));
    first.onSelectQuickTool();
    QCOMPARE(host.quickTool(), QString("a"));
    QVERIFY(camera->isToolOn("a"));
    QVERIFY(!camera->isToolOn("b"));
    host.setToolState("b", true);
    QVERIFY(!camera->isToolOn("a"));
    QCOMPARE(host.quickTool(), QString());
    host.setQuickTool(QString());
    QVERIFY(!camera->isToolOn("a"));
    QVERIFY(!camera->isToolOn("b"));
}

void TestStandInPlugins::quickToolThatIsExcludedRunsNoMore()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    NotingTool toggle("t_crosscursor");
    NotingTool other("b");
    for (NotingTool *tool : {&toggle, &other}) {
        tool->setQuick();
        host.addPlugin(tool);
    }
    host.setToolState("t_crosscursor", true);
    host.setToolActive("t_crosscursor", true);
    QVERIFY(host.isToolRunning("t_crosscursor"));
    host.setToolState("b", true);
    QVERIFY(!host.isToolRunning("t_crosscursor"));
    QVERIFY(!camera->isToolOn("t_crosscursor"));
    host.setToolActive("t_crosscursor", true);
    host.setQuickTool(QString());
    QVERIFY(!host.isToolRunning("t_crosscursor"));
}

void TestStandInPlugins::otherToolsAreNoQuickTools()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    NotingTool quick("a");
    quick.setQuick();
    NotingTool plain("b");
    host.addPlugin(&quick);
    host.addPlugin(&plain);
    host.setToolState("b", true);
    host.setToolState("a", true);
    QVERIFY(camera->isToolOn("b"));
    host.setToolState("b", true);
    QVERIFY(camera->isToolOn("a"));
    host.setQuickTool(QString());
    QVERIFY(camera->isToolOn("b"));
    QVERIFY(!camera->isToolOn("a"));
}

void TestStandInPlugins::transactionRollsBack()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    host.beginTransaction("binning", true, true);
    QVERIFY(host.isTransactionOpen("binning"));
    first->setShutterSpeed(4000);
    second->setSensorRegion(QRect(0, 0, 64, 64));
    host.rollbackTransaction("binning");
    QCOMPARE(first->shutterSpeed(), 1000u);
    QCOMPARE(first->deviceSettings().shutterSpeed, 1000u);
    QCOMPARE(second->sensorRegion(), QRect(192, 272, 640, 480));
    QVERIFY(!host.isTransactionOpen("binning"));
    first->setShutterSpeed(2000);
    {
        LogCapture log;
        host.rollbackTransaction("binning"); // none is open
        QCOMPARE(log.texts(),
                 QStringList("end without its beginning: rollbackTransaction binning"));
    }
    QCOMPARE(first->shutterSpeed(), 2000u);
}

void TestStandInPlugins::transactionResetsAndGoesOn()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.beginTransaction("binning", true, true);
    for (int i = 0; i < 2; ++i) {
        camera->setShutterSpeed(4000);
        host.resetTransaction("binning");
        QCOMPARE(camera->shutterSpeed(), 1000u);
        QVERIFY(host.isTransactionOpen("binning"));
    }
}

void TestStandInPlugins::transactionCommits()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.beginTransaction("binning", true, true);
    camera->setShutterSpeed(4000);
    host.commitTransaction(true, "binning");
    QCOMPARE(camera->shutterSpeed(), 4000u);
    QVERIFY(!host.isTransactionOpen("binning"));
    LogCapture log;
    host.rollbackTransaction("binning");
    QCOMPARE(log.texts(), QStringList("end without its beginning: rollbackTransaction binning"));
    QCOMPARE(camera->shutterSpeed(), 4000u);
}

void TestStandInPlugins::transactionsOfTwoTools()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.beginTransaction("a", true, true);
    camera->setShutterSpeed(2000);
    host.beginTransaction("b", false, true);
    camera->setShutterSpeed(4000);
    host.rollbackTransaction("b");
    QCOMPARE(camera->shutterSpeed(), 2000u);
    QVERIFY(host.isTransactionOpen("a"));
    host.rollbackTransaction("a");
    QCOMPARE(camera->shutterSpeed(), 1000u);
}

void TestStandInPlugins::panelToolRollsBackThroughTheContract()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    NotingTool tool("binning");
    tool.setTransaction(2);
    host.addPlugin(&tool);
    host.openPluginByName("binning");
    QVERIFY(host.isTransactionOpen("binning"));
    camera->setShutterSpeed(4000);
    tool.onCancel();
    QCOMPARE(camera->shutterSpeed(), 1000u);
    QVERIFY(!host.isTransactionOpen("binning"));

    host.openPluginByName("binning");
    camera->setShutterSpeed(4000);
    host.closeCurrentPlugin(); // neither accepted nor cancelled
    QCOMPARE(camera->shutterSpeed(), 1000u);
}

void TestStandInPlugins::pausesAreBalanced()
{
    StandInHost host;
    QVERIFY(!host.isLivePaused());
    host.pauseLive(false);
    host.pauseLiveExclusive(false, true, true);
    QVERIFY(host.isLivePaused());
    QCOMPARE(host.livePauses(), 2);
    host.resumeLive();
    QVERIFY(host.isLivePaused());
    host.resumeLive();
    QVERIFY(!host.isLivePaused());
    QCOMPARE(host.livePauses(), 0);

    host.pausePlayback();
    QCOMPARE(host.playbackPauses(), 1);
    host.resumePlayback();
    QCOMPARE(host.playbackPauses(), 0);
    host.suspendView(false);
    QVERIFY(host.isViewSuspended());
    host.resumeView(false);
    QVERIFY(!host.isViewSuspended());
    host.beginExclusiveUpdate();
    host.beginExclusiveRefresh();
    host.beginExclusiveRefresh();
    QCOMPARE(host.exclusiveUpdates(), 1);
    QCOMPARE(host.exclusiveRefreshes(), 2);
    host.endExclusiveUpdate();
    host.endExclusiveRefresh();
    QCOMPARE(host.exclusiveUpdates(), 0);
    QCOMPARE(host.exclusiveRefreshes(), 1);
}

void TestStandInPlugins::livePausedCanBeAnswered()
{
    StandInHost host;
    host.state().isLivePaused = true;
    QVERIFY(host.isLivePaused());
    host.pauseLive(false);
    host.state().isLivePaused = false;
    QVERIFY(!host.isLivePaused());
    host.state().isLivePaused.reset();
    QVERIFY(host.isLivePaused());
}

void TestStandInPlugins::embeddedWidgets()
{
    StandInHost host;
    NotingTool tool("lut");
    host.addPlugin(&tool);
    auto widget = std::make_unique<QWidget>();
    host.state().embeddedWidgets.insert(&tool, widget.get());
    QCOMPARE(host.embeddedWidget(&tool), nullptr); // not made ready
    host.prepareEmbeddedWidget(&tool, "lut");
    QCOMPARE(host.embeddedWidget(&tool), widget.get());
    widget.reset(); // the page destroyed it
    QCOMPARE(host.embeddedWidget(&tool), nullptr);
}

void TestStandInPlugins::labelComesFromTheModule()
{
    StandInHost host;
    PluginLoader loader;
    PLG_Interface *tool = loader.load(LOCK_TOOL);
    QVERIFY(tool);
    QCOMPARE(host.translationFiles(), QStringList());
    host.addPlugin(tool);
    QCOMPARE(host.translationFiles(), QStringList({"lockcameratr_en.qm"}));
    QCOMPARE(host.toolLabel(tool), QString("Lock Camera"));
    host.removePlugin(tool);
    QCOMPARE(host.translationFiles(), QStringList());
}

void TestStandInPlugins::labelFollowsTheLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("label");
    QTest::newRow("English") << "en"
                             << "label_en.qm"
                             << "Lock all";
    QTest::newRow("Japanese") << "ja"
                              << "label_ja.qm" << QString::fromUtf8("ロック");
    QTest::newRow("without a file") << "de"
                                    << ""
                                    << "Lock Camera";
}

void TestStandInPlugins::labelFollowsTheLanguage()
{
    QFETCH(QString, language);
    QFETCH(QString, file);
    QFETCH(QString, label);
    const QStringList files = file.isEmpty() ? QStringList() : QStringList(file);
    StandInHost host;
    host.settings().setValue("display/language", language);
    NotingTool tool("t_multilock", false);
    QVERIFY(QResource::registerResource(LABELS)); // what loading a module does
    host.addPlugin(&tool);
    QVERIFY(QResource::unregisterResource(LABELS)); // the host has copied it
    QCOMPARE(host.translationFiles(), files);
    QCOMPARE(host.toolLabel(&tool), label);
    host.removePlugin(&tool);
    QCOMPARE(host.translationFiles(), QStringList());
    QCOMPARE(host.toolLabel(&tool), QString("Lock Camera")); // the source text
}

void TestStandInPlugins::unknownLabelIsTheName()
{
    StandInHost host;
    NotingTool tool("t_zoom");
    host.addPlugin(&tool);
    QCOMPARE(host.toolLabel(&tool), QString("t_zoom"));
    QCOMPARE(host.toolLabel(nullptr), QString());
}

void TestStandInPlugins::deletedPluginIsForgotten()
{
    StandInHost host;
    auto tool = std::make_unique<NotingTool>("lut");
    host.addPlugin(tool.get());
    host.openPluginByName("lut");
    tool.reset();
    QCOMPARE(host.currentPlugin(), nullptr);
    QCOMPARE(host.pluginByName("lut"), nullptr);
    QCOMPARE(host.plugins().size(), 0);
    host.updateUI(4, false);
    host.closePluginByName("lut");
    host.setMode(StandInHost::Mode::File);
}

void TestStandInPlugins::unloadedModuleLeavesNothingBehind()
{
    StandInHost host;
    host.addCamera();
    {
        PluginLoader loader;
        PLG_Interface *tool = loader.load(LOCK_TOOL);
        QVERIFY(tool);
        host.addPlugin(tool);
        tool->activate();
        loader.unload(tool);
        QVERIFY(!QFile::exists(":/lockcameratr_en.qm"));
    }
    QCOMPARE(host.plugins().size(), 0);
    QCOMPARE(host.translationFiles(), QStringList());
    QCOMPARE(QCoreApplication::translate("mutlicamera", "Lock Camera"), QString("Lock Camera"));
    QVERIFY(host.isLockOn());
    QCOMPARE(host.journal().last(), QString("setTrelvikLock(true)"));
}

void TestStandInPlugins::twoPluginsShareAMessageFile()
{
    StandInHost host;
    PluginLoader loader;
    PLG_Interface *tool = loader.load(LOCK_TOOL);
    QVERIFY(tool);
    NotingTool other("lut");
    host.addPlugin(tool);
    host.addPlugin(&other);
    host.removePlugin(tool);
    QCOMPARE(host.translationFiles(), QStringList({"lockcameratr_en.qm"}));
    host.removePlugin(&other);
    QCOMPARE(host.translationFiles(), QStringList());
}

void TestStandInPlugins::lockToolLocks()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    PluginLoader loader;
    PLG_Interface *tool = loader.load(LOCK_TOOL);
    QVERIFY(tool);
    host.addPlugin(tool);
    QVERIFY(!tool->isChecked(first, false));
    host.clearJournal();
    tool->activate();
    QCOMPARE(host.journal(), QStringList({"setTrelvikLock(true)"}));
    QVERIFY(tool->isChecked(first, false));
    QVERIFY(!tool->isChecked(nullptr, false));
    second->setShutterSpeed(4000);
    QCOMPARE(first->shutterSpeed(), 4000u);
    tool->deactivate();
    second->setShutterSpeed(8000);
    QCOMPARE(first->shutterSpeed(), 4000u);
    host.removePlugin(tool);
}

void TestStandInPlugins::eventsTellOfChanges()
{
    StandInHost host;
    NotingTool tool("lut");
    QSignalSpy plugins(host.events(), &StandInEvents::pluginsChanged);
    QSignalSpy tools(host.events(), &StandInEvents::toolStateChanged);
    QSignalSpy pauses(host.events(), &StandInEvents::livePauseChanged);
    host.addPlugin(&tool);
    QCOMPARE(plugins.count(), 1);
    host.openPluginByName("lut");
    QCOMPARE(plugins.count(), 2);
    QCOMPARE(tools.count(), 1);
    QCOMPARE(tools.last().first().toString(), QString("lut"));
    host.closeCurrentPlugin();
    QCOMPARE(plugins.count(), 3);
    host.pauseLive(false);
    QCOMPARE(pauses.last().first().toInt(), 1);
    host.resumeLive();
    QCOMPARE(pauses.last().first().toInt(), 0);
    host.removePlugin(&tool);
    QCOMPARE(plugins.count(), 4);
}

int main(int argc, char **argv)
{
    TestStandInPlugins test;
    return runTest(argc, argv, test);
}

#include "test_standin_plugins.moc"
