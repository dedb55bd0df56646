#include "standin/host/StandInHost.h"
#include "tests/plugin/ProbeTool.h"
#include "tests/support/TestLog.h"

class TestPlgFlow : public TestBase
{
    Q_OBJECT

private slots:
    void activateCallsTheHostInOrder_data();
    void activateCallsTheHostInOrder();
    void activateOpensATransaction_data();
    void activateOpensATransaction();
    void activateHoldsTheViewInsideAPause();
    void activateOfADialogToolHoldsNoView();
    void activateTellsTheWholeStory_data();
    void activateTellsTheWholeStory();
    void deactivateCallsTheHostInOrder_data();
    void deactivateCallsTheHostInOrder();
    void deactivateForgetsViewAndChanges();
    void lockToolNameNeverReachesToolState_data();
    void lockToolNameNeverReachesToolState();
    void panelIsAskedThroughItsVirtualGetter();
    void everyGetterIsAskedAnew();
    void closedRollsAnOpenTransactionBackOnce();
    void transactionIsOpenWhileTheHostHasIt_data();
    void transactionIsOpenWhileTheHostHasIt();
    void closedAsksForTheRollBackOnce();
    void closedWithoutTransactionOnlyClearsUndo();
    void closedWithoutPanelDoesNothing();
    void closedForgetsTheChangesBehindTheRollBack();
    void closedReleasesTheView();
    void okAndAcceptCommitAndLeave_data();
    void okAndAcceptCommitAndLeave();
    void cancelRollsBackAndLeaves();
    void finishingClosesCurrentWhenAsked_data();
    void finishingClosesCurrentWhenAsked();
    void finishingWithoutPanelChangesNothing();
    void applyClearsChangesAndUndo();
    void applyGuardedPausesWithoutRefresh();
    void guardedStepsAreTheToolsOwn();
    void resetGoesToTheHost();
    void resetGuardedPausesWithoutRefresh();
    void quickToolIsChosenOnlyWhenExclusive();
    void closeToolClosesOnlyADialogTool();
    void checkedNeedsADocumentAndAnAllowedMode();
    void checkedOnlyWhereTheToolAllowsIt();
    void checkedByKind_data();
    void checkedByKind();
    void checkedByTheDocument();
    void checkedByTheCurrentPlugin();
    void checkedByTheLock();
    void checkedByTheZoom();
    void checkedByTheNameThatItGives();
    void checkedByItself();
    void failureOfTheHostPassesOn();
};

namespace {

ProbeTool *toolOn(StandInHost &host, std::unique_ptr<ProbeTool> &owner,
                  const QString &name = QStringLiteral("t_probe"))
{
    owner = std::make_unique<ProbeTool>(name);
    owner->setHost(&host);
    return owner.get();
}

}

void TestPlgFlow::activateCallsTheHostInOrder_data()
{
    QTest::addColumn<int>("buttonKind");
    QTest::addColumn<bool>("hasPanel");
    QTest::addColumn<int>("quickToolMode");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("plain command") << 0 << false << 0 << QStringList();
    QTest::newRow("panel") << 0 << true << 0 << QStringList({"setToolState(\"t_probe\", false)"});
    QTest::newRow("panel, exclusive quick tool")
        << 0 << true << 1 << QStringList({"setQuickTool(\"\")", "setToolState(\"t_probe\", true)"});
    QTest::newRow("panel, other quick tool mode")
        << 0 << true << 2 << QStringList({"setToolState(\"t_probe\", false)"});
    QTest::newRow("toggle") << 1 << false << 0
                            << QStringList({"setToolState(\"t_probe\", true)",
                                            "setToolActive(\"t_probe\", true)"});
    QTest::newRow("toggle with panel")
        << 1 << true << 0 << QStringList({"setToolState(\"t_probe\", true)"});
    QTest::newRow("custom toggle")
        << 4 << false << 0
        << QStringList({"setToolState(\"t_probe\", true)", "setToolActive(\"t_probe\", true)"});
    QTest::newRow("another button")
        << 2 << false << 0 << QStringList({"setToolState(\"t_probe\", true)"});
}

void TestPlgFlow::activateCallsTheHostInOrder()
{
    QFETCH(int, buttonKind);
    QFETCH(bool, hasPanel);
    QFETCH(int, quickToolMode);
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_buttonKind = buttonKind;
    tool.m_hasPanel = hasPanel;
    tool.m_quickToolMode = quickToolMode;
    tool.activate();
    QTEST(host.journal(), "calls");
}

void TestPlgFlow::activateOpensATransaction_data()
{
    QTest::addColumn<int>("checkKind");
    QTest::addColumn<int>("transactionKind");
    QTest::addColumn<QString>("call");
    QTest::addColumn<bool>("open");
    QTest::newRow("check 2, kind 0")
        << 2 << 0 << "beginTransaction(\"t_probe\", true, true)" << true;
    QTest::newRow("check 2, kind 1")
        << 2 << 1 << "beginTransaction(\"t_probe\", false, true)" << true;
    QTest::newRow("check 3, kind 0")
        << 3 << 0 << "beginTransaction(\"t_probe\", true, true)" << true;
    QTest::newRow("another kind opens without a call") << 2 << 2 << QString() << true;
    QTest::newRow("check 1") << 1 << 0 << QString() << false;
    QTest::newRow("check 4") << 4 << 0 << QString() << false;
}

void TestPlgFlow::activateOpensATransaction()
{
    QFETCH(int, checkKind);
    QFETCH(int, transactionKind);
    QFETCH(QString, call);
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = true;
    tool.m_checkKind = checkKind;
    tool.m_transactionKind = transactionKind;
    tool.activate();
    QStringList expected({"setToolState(\"t_probe\", false)"});
    if (!call.isEmpty())
        expected.append(call);
    QCOMPARE(host.journal(), expected);
    QTEST(tool.m_transactionOpen, "open");
}

void TestPlgFlow::activateHoldsTheViewInsideAPause()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.setMode(StandInHost::Mode::Live);
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_suspendsView = true;
    host.clearJournal();
    tool.activate();
    const QString refresh = QStringLiteral("[%1].refresh(true)").arg(camera->key());
    QCOMPARE(host.commands(),
             QStringList({"pauseLive(false)", "suspendView(false)", refresh, "resumeLive()"}));
}

void TestPlgFlow::activateOfADialogToolHoldsNoView()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_suspendsView = true;
    tool.m_checkKind = 6;
    tool.activate();
    QCOMPARE(host.journal(), QStringList());
}

void TestPlgFlow::activateTellsTheWholeStory_data()
{
    QTest::addColumn<bool>("hasPanel");
    QTest::addColumn<int>("buttonKind");
    QTest::addColumn<int>("quickToolMode");
    QTest::addColumn<QStringList>("calls");
    const QStringList hold({"documentsMutex()", "isLiveMode()", "pausePlayback()",
                            "suspendView(false)", "resumePlayback()"});
    const QString begin = QStringLiteral("beginTransaction(\"t_probe\", true, true)");
    QTest::newRow("panel") << true << 0 << 0
                           << QStringList({"setToolState(\"t_probe\", false)", begin}) + hold;
    QTest::newRow("panel, quick tool")
        << true << 0 << 1
        << QStringList({"setQuickTool(\"\")", "setToolState(\"t_probe\", true)", begin}) + hold;
    QTest::newRow("toggle with panel")
        << true << 1 << 1 << QStringList({"setToolState(\"t_probe\", true)", begin}) + hold;
    QTest::newRow("toggle") << false << 1 << 0
                            << QStringList({"setToolState(\"t_probe\", true)",
                                            "setToolActive(\"t_probe\", true)"}) +
                                   hold;
    QTest::newRow("custom toggle")
        << false << 4 << 1
        << QStringList({"setToolState(\"t_probe\", true)", "setToolActive(\"t_probe\", true)"}) +
               hold;
    QTest::newRow("command") << false << 0 << 1 << hold;
}

void TestPlgFlow::activateTellsTheWholeStory()
{
    QFETCH(bool, hasPanel);
    QFETCH(int, buttonKind);
    QFETCH(int, quickToolMode);
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = hasPanel;
    tool.m_buttonKind = buttonKind;
    tool.m_quickToolMode = quickToolMode;
    tool.m_checkKind = 3;
    tool.m_suspendsView = true;
    host.clearJournal();
    tool.activate();
    QTEST(host.journal(), "calls");
    QCOMPARE(tool.m_transactionOpen, hasPanel);
}

void TestPlgFlow::deactivateCallsTheHostInOrder_data()
{
    QTest::addColumn<int>("buttonKind");
    QTest::addColumn<bool>("hasPanel");
    QTest::addColumn<bool>("closeCurrent");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("plain command") << 0 << false << false << QStringList();
    QTest::newRow("panel") << 0 << true << false << QStringList({"returnFromPlugin()"});
    QTest::newRow("panel that closes")
        << 0 << true << true << QStringList({"closeCurrentPlugin()"});
    QTest::newRow("toggle") << 1 << false << false
                            << QStringList({"setToolActive(\"t_probe\", false)"});
    QTest::newRow("custom toggle") << 4 << false << false << QStringList();
    QTest::newRow("toggle with panel") << 1 << true << false << QStringList({"returnFromPlugin()"});
}

void TestPlgFlow::deactivateCallsTheHostInOrder()
{
    QFETCH(int, buttonKind);
    QFETCH(bool, hasPanel);
    QFETCH(bool, closeCurrent);
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_buttonKind = buttonKind;
    tool.m_hasPanel = hasPanel;
    tool.setCloseCurrentOnFinish(closeCurrent);
    tool.deactivate();
    QTEST(host.journal(), "calls");
}

void TestPlgFlow::deactivateForgetsViewAndChanges()
{
    StandInHost host;
    QWidget view;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_viewWidget = &view;
    tool.setModified(true);
    tool.deactivate();
    QVERIFY(tool.viewWidget() == nullptr);
    QVERIFY(tool.isModified());
    tool.m_hasPanel = true;
    tool.deactivate();
    QVERIFY(!tool.isModified());
}

void TestPlgFlow::lockToolNameNeverReachesToolState_data()
{
    QTest::addColumn<int>("buttonKind");
    for (int kind = 0; kind <= 5; ++kind)
        QTest::addRow("button kind %d", kind) << kind;
}

void TestPlgFlow::lockToolNameNeverReachesToolState()
{
    QFETCH(int, buttonKind);
    StandInHost host;
    ProbeTool tool(QStringLiteral("t_multilock"));
    tool.setHost(&host);
    tool.m_buttonKind = buttonKind;
    tool.activate();
    tool.deactivate();
    QCOMPARE(host.journal(), QStringList());
    tool.m_hasPanel = true;
    tool.activate();
    QCOMPARE(host.journal(), QStringList());
}

namespace {

class VirtualPanel : public ProbeTool
{
public:
    QString name() override { return QStringLiteral("t_virtual"); }
    bool hasPanel() override { return true; }
};

}

void TestPlgFlow::panelIsAskedThroughItsVirtualGetter()
{
    StandInHost host;
    VirtualPanel tool;
    tool.setHost(&host);
    tool.m_checkKind = 2;
    tool.activate();
    tool.onReset();
    tool.onOk();
    QCOMPARE(host.journal(),
             QStringList({"setToolState(\"t_virtual\", false)",
                          "beginTransaction(\"t_virtual\", true, true)",
                          "resetTransaction(\"t_virtual\")",
                          "commitTransaction(true, \"t_virtual\")", "returnFromPlugin()"}));
}

namespace {

// A tool whose answers are not its fields.
class AnsweringTool : public ProbeTool
{
public:
    AnsweringTool() : ProbeTool(QStringLiteral("t_multilock"))
    {
        m_allowedModes = 0;
        m_closeOnForbiddenMode = false;
    }

    QString name() override { return QStringLiteral("t_answer"); }
    bool hasPanel() override { return panel; }
    bool closeCurrentOnFinish() override { return true; }
    bool isModeAllowed(int mode) override { return mode == 1; }
    bool isDialogVisible() override { return true; }
    bool customChecked() override { return true; }

    bool panel = true;
};

}

void TestPlgFlow::everyGetterIsAskedAnew()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.setMode(StandInHost::Mode::Memory);
    AnsweringTool tool;
    tool.setHost(&host);
    tool.m_checkKind = 2;
    host.clearJournal();
    tool.activate();
    tool.onReset();
    tool.onApply();
    tool.onOk();
    tool.activate();
    tool.onAccept();
    tool.activate();
    tool.onCancel();
    tool.activate();
    tool.deactivate();
    tool.onClosed();
    const QStringList open(
        {"setToolState(\"t_answer\", false)", "beginTransaction(\"t_answer\", true, true)"});
    const QStringList commit({"commitTransaction(true, \"t_answer\")", "closeCurrentPlugin()"});
    QCOMPARE(host.journal(),
             open + QStringList({"resetTransaction(\"t_answer\")", "clearUndoStack()"}) + commit +
                 open + commit + open +
                 QStringList({"rollbackTransaction(\"t_answer\")", "closeCurrentPlugin()"}) + open +
                 QStringList({"closeCurrentPlugin()", "clearUndoStack()",
                              "rollbackTransaction(\"t_answer\")"}));

    tool.panel = false;
    tool.m_buttonKind = 1;
    tool.m_quickToolMode = 1;
    host.clearJournal();
    tool.activate();
    tool.deactivate();
    tool.onClosed();
    tool.onOk();
    tool.onSelectQuickTool();
    tool.slotModelessPatternDialogClosed();
    QCOMPARE(host.journal(),
             QStringList({"setToolState(\"t_answer\", true)", "setToolActive(\"t_answer\", true)",
                          "setToolActive(\"t_answer\", false)", "setQuickTool(\"t_answer\")",
                          "deterUpdateUI(true)", "closePluginByName(\"t_answer\")",
                          "deterUpdateUI(false)"}));

    // Neither the lock nor the document's own tool state by a name that is a field alone: the quick
    // tool that was chosen is on, under its name.
    host.clearJournal();
    tool.m_checkKind = 6;
    QVERIFY(tool.isChecked(camera, false));
    tool.m_checkKind = 0;
    QVERIFY(tool.isChecked(camera, false));
    tool.m_buttonKind = 4;
    QVERIFY(tool.isChecked(camera, false));
    host.setMode(StandInHost::Mode::Live);
    QVERIFY(!tool.isChecked(camera, false));
    QCOMPARE(host.journal(),
             QStringList({"currentMode()", "currentMode()", "[1].isToolOn(\"t_answer\")",
                          "currentMode()", "currentMode()"}));
}

void TestPlgFlow::closedRollsAnOpenTransactionBackOnce()
{
    StandInHost host;
    QWidget view;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = true;
    tool.m_checkKind = 2;
    tool.activate();
    tool.m_viewWidget = &view;
    host.clearJournal();
    tool.onClosed();
    QVERIFY(tool.viewWidget() == nullptr);
    QCOMPARE(host.journal(), QStringList({"clearUndoStack()", "rollbackTransaction(\"t_probe\")"}));
    QVERIFY(!tool.m_transactionOpen);
    host.clearJournal();
    tool.onClosed();
    QCOMPARE(host.journal(), QStringList({"clearUndoStack()"}));
}

void TestPlgFlow::transactionIsOpenWhileTheHostHasIt_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<bool>("open");
    QTest::newRow("not begun") << "beginTransaction" << false;
    QTest::newRow("not committed") << "commitTransaction" << true;
    QTest::newRow("not rolled back") << "rollbackTransaction" << true;
}

// One that the host failed to begin is not rolled back, one that it failed to end is.
void TestPlgFlow::transactionIsOpenWhileTheHostHasIt()
{
    QFETCH(QString, failing);
    QFETCH(bool, open);
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = true;
    tool.m_checkKind = 2;
    host.failOn(failing);
    try {
        tool.activate();
        tool.setModified(true);
        failing == QLatin1String("commitTransaction") ? tool.onOk() : tool.onCancel();
        QFAIL("the host did not fail");
    } catch (const std::runtime_error &) {
    }
    QCOMPARE(tool.m_transactionOpen, open);
    QCOMPARE(tool.isModified(), open);
    host.clearFaults();
    host.clearJournal();
    tool.onClosed();
    QCOMPARE(host.journal(),
             QStringList({"clearUndoStack()"}) +
                 (open ? QStringList({"rollbackTransaction(\"t_probe\")"}) : QStringList()));
    QVERIFY(!tool.m_transactionOpen);
}

// A closed panel has no transaction any more, also where the host fails to roll it back.
void TestPlgFlow::closedAsksForTheRollBackOnce()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = true;
    tool.m_checkKind = 2;
    tool.activate();
    host.failOn(QStringLiteral("rollbackTransaction"));
    QVERIFY_EXCEPTION_THROWN(tool.onClosed(), std::runtime_error);
    QVERIFY(!tool.m_transactionOpen);
    host.clearJournal();
    tool.onClosed();
    QCOMPARE(host.journal(), QStringList({"clearUndoStack()"}));
}

void TestPlgFlow::closedWithoutTransactionOnlyClearsUndo()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = true;
    tool.m_transactionOpen = true;
    tool.onClosed();
    QCOMPARE(host.journal(), QStringList({"clearUndoStack()"}));
}

void TestPlgFlow::closedWithoutPanelDoesNothing()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_checkKind = 2;
    tool.m_transactionOpen = true;
    tool.onClosed();
    QCOMPARE(host.journal(), QStringList());
}

namespace {

// Notes whether its transaction was still open when its changes were forgotten.
class ForgettingTool : public ProbeTool
{
public:
    QList<bool> openThen;
    void setModified(bool modified) override
    {
        if (!modified)
            openThen.append(m_transactionOpen);
        ProbeTool::setModified(modified);
    }
};

}

void TestPlgFlow::closedForgetsTheChangesBehindTheRollBack()
{
    StandInHost host;
    ForgettingTool tool;
    tool.setHost(&host);
    tool.m_checkKind = 2;
    tool.setModified(true);
    tool.onClosed();
    QVERIFY(tool.isModified()); // without a panel nothing is to be accepted
    tool.m_hasPanel = true;
    tool.activate();
    tool.onClosed();
    QVERIFY(!tool.isModified());
    QCOMPARE(tool.openThen, QList<bool>({false}));
    tool.m_checkKind = 0;
    tool.setModified(true);
    tool.onClosed();
    QVERIFY(!tool.isModified());
}

void TestPlgFlow::closedReleasesTheView()
{
    StandInHost host;
    host.setMode(StandInHost::Mode::File);
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_suspendsView = true;
    host.clearJournal();
    tool.onClosed();
    QCOMPARE(host.commands(),
             QStringList({"pausePlayback()", "resumeView(false)", "resumePlayback()"}));
}

void TestPlgFlow::okAndAcceptCommitAndLeave_data()
{
    QTest::addColumn<bool>("accept");
    QTest::addColumn<int>("checkKind");
    QTest::addColumn<QStringList>("calls");
    const QStringList leave({"returnFromPlugin()"});
    const QStringList commit({"commitTransaction(true, \"t_probe\")", "returnFromPlugin()"});
    QTest::newRow("ok, check 2") << false << 2 << commit;
    QTest::newRow("ok, check 3") << false << 3 << commit;
    QTest::newRow("ok, check 0") << false << 0 << leave;
    QTest::newRow("accept, check 2") << true << 2 << commit;
    QTest::newRow("accept, check 3") << true << 3 << commit;
    QTest::newRow("accept, check 4") << true << 4 << leave;
}

void TestPlgFlow::okAndAcceptCommitAndLeave()
{
    QFETCH(bool, accept);
    QFETCH(int, checkKind);
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = true;
    tool.m_checkKind = checkKind;
    tool.activate();
    tool.setModified(true);
    host.clearJournal();
    if (accept)
        tool.onAccept();
    else
        tool.onOk();
    QTEST(host.journal(), "calls");
    QVERIFY(!tool.m_transactionOpen);
    QVERIFY(!tool.isModified());
}

void TestPlgFlow::cancelRollsBackAndLeaves()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = true;
    tool.m_checkKind = 3;
    tool.activate();
    tool.setModified(true);
    host.clearJournal();
    tool.onCancel();
    QCOMPARE(host.journal(),
             QStringList({"rollbackTransaction(\"t_probe\")", "returnFromPlugin()"}));
    QVERIFY(!tool.m_transactionOpen);
    QVERIFY(!tool.isModified());
}

void TestPlgFlow::finishingClosesCurrentWhenAsked_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("ok") << 0;
    QTest::newRow("accept") << 1;
    QTest::newRow("cancel") << 2;
}

void TestPlgFlow::finishingClosesCurrentWhenAsked()
{
    QFETCH(int, which);
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = true;
    tool.setCloseCurrentOnFinish(true);
    if (which == 0)
        tool.onOk();
    else if (which == 1)
        tool.onAccept();
    else
        tool.onCancel();
    QCOMPARE(host.journal(), QStringList({"closeCurrentPlugin()"}));
}

void TestPlgFlow::finishingWithoutPanelChangesNothing()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_checkKind = 2;
    tool.m_transactionOpen = true;
    tool.setModified(true);
    tool.onCancel();
    tool.onOk();
    tool.onAccept();
    tool.onApply();
    tool.onReset();
    QCOMPARE(host.journal(), QStringList());
    QVERIFY(tool.isModified());
    QVERIFY(tool.m_transactionOpen);
}

void TestPlgFlow::applyClearsChangesAndUndo()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = true;
    tool.setModified(true);
    tool.onApply();
    QVERIFY(!tool.isModified());
    QCOMPARE(host.journal(), QStringList({"clearUndoStack()"}));
    host.clearJournal();
    tool.applyGuarded(false);
    QCOMPARE(host.journal(), QStringList({"clearUndoStack()"}));
}

void TestPlgFlow::applyGuardedPausesWithoutRefresh()
{
    StandInHost host;
    host.addCamera();
    host.setMode(StandInHost::Mode::Live);
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = true;
    host.clearJournal();
    tool.applyGuarded(true);
    QCOMPARE(host.journal(), QStringList({"documentsMutex()", "isLiveMode()", "pauseLive(false)",
                                          "clearUndoStack()", "resumeLive()"}));
}

namespace {

class SteppingTool : public ProbeTool
{
public:
    QStringList steps;
    void onApply() override { steps.append("apply"); }
    void onReset() override { steps.append("reset"); }
    void onMouseRelease(const QPoint &pos, int docId) override
    {
        steps.append(QStringLiteral("release %1,%2 %3").arg(pos.x()).arg(pos.y()).arg(docId));
    }
};

}

void TestPlgFlow::guardedStepsAreTheToolsOwn()
{
    StandInHost host;
    host.addCamera();
    SteppingTool tool;
    tool.setHost(&host);
    for (const bool guarded : {true, false}) {
        tool.applyGuarded(guarded);
        tool.resetGuarded(guarded);
    }
    tool.onMousePress(QPoint(3, 4), 1);
    tool.finishMouse(1);
    QCOMPARE(tool.steps, QStringList({"apply", "reset", "apply", "reset", "release 3,4 1"}));
}

void TestPlgFlow::resetGoesToTheHost()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = true;
    tool.onReset();
    tool.resetGuarded(false);
    QCOMPARE(host.journal(),
             QStringList({"resetTransaction(\"t_probe\")", "resetTransaction(\"t_probe\")"}));
}

void TestPlgFlow::resetGuardedPausesWithoutRefresh()
{
    StandInHost host;
    host.addCamera();
    host.setMode(StandInHost::Mode::Live);
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_hasPanel = true;
    host.clearJournal();
    tool.resetGuarded(true);
    QCOMPARE(host.commands(),
             QStringList({"pauseLive(false)", "resetTransaction(\"t_probe\")", "resumeLive()"}));
}

void TestPlgFlow::quickToolIsChosenOnlyWhenExclusive()
{
    StandInHost host;
    ProbeTool tool;
    tool.setHost(&host);
    tool.onSelectQuickTool();
    tool.m_quickToolMode = 2;
    tool.onSelectQuickTool();
    QCOMPARE(host.journal(), QStringList());
    tool.m_quickToolMode = 1;
    tool.onSelectQuickTool();
    QCOMPARE(host.journal(), QStringList({"setQuickTool(\"t_probe\")"}));
}

namespace {

class ClosingProbe : public ProbeTool
{
public:
    int closings = 0;
    void closeDialog() override { ++closings; }
};

}

void TestPlgFlow::closeToolClosesOnlyADialogTool()
{
    StandInHost host;
    ClosingProbe tool;
    tool.setHost(&host);
    for (int kind = 0; kind <= 5; ++kind) {
        tool.m_checkKind = kind;
        tool.closeTool();
    }
    QCOMPARE(tool.closings, 0);
    tool.m_checkKind = 6;
    tool.closeTool();
    QCOMPARE(tool.closings, 1);
}

void TestPlgFlow::checkedNeedsADocumentAndAnAllowedMode()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.setMode(StandInHost::Mode::Memory);
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_checkKind = 1;
    host.clearJournal();
    QVERIFY(!tool.isChecked(nullptr, false));
    QCOMPARE(host.journal(), QStringList());
    QVERIFY(tool.isChecked(camera, false));
    tool.m_allowedModes = 5;
    QVERIFY(!tool.isChecked(camera, false));
}

namespace {

class ChoosyTool : public ProbeTool
{
public:
    bool isAllowedInCurrentMode() override { return allowed; }
    bool allowed = false;
};

}

void TestPlgFlow::checkedOnlyWhereTheToolAllowsIt()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    ChoosyTool tool;
    tool.setHost(&host);
    tool.m_checkKind = 1;
    QVERIFY(!tool.isChecked(camera, false));
    tool.allowed = true;
    tool.m_allowedModes = 0;
    QVERIFY(tool.isChecked(camera, false));
}

void TestPlgFlow::checkedByKind_data()
{
    QTest::addColumn<int>("checkKind");
    QTest::addColumn<bool>("checked");
    QTest::newRow("1 is always on") << 1 << true;
    QTest::newRow("5 is always on") << 5 << true;
    QTest::newRow("6 without a dialog") << 6 << false;
}

void TestPlgFlow::checkedByKind()
{
    QFETCH(int, checkKind);
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    ProbeTool tool;
    tool.setHost(&host);
    tool.m_checkKind = checkKind;
    QTEST(tool.isChecked(camera, true), "checked");
}

void TestPlgFlow::checkedByTheDocument()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.setMode(StandInHost::Mode::Live);
    ProbeTool tool;
    tool.setHost(&host);
    const QString document = QStringLiteral("[%1].").arg(camera->key());
    for (int kind : {2, 3}) {
        tool.m_checkKind = kind;
        host.clearJournal();
        const bool checked = tool.isChecked(camera, true);
        QCOMPARE(host.journal(),
                 QStringList({"currentMode()", document + "isToolAvailable(\"t_probe\", true)"}));
        QCOMPARE(checked, camera->isToolAvailable(QStringLiteral("t_probe"), true));
    }
    for (int kind : {0, 7, -1}) {
        tool.m_checkKind = kind;
        host.clearJournal();
        QVERIFY(!tool.isChecked(camera, false));
        QCOMPARE(host.journal(),
                 QStringList({"currentMode()", document + "isToolOn(\"t_probe\")"}));
    }
    host.setToolState(QStringLiteral("t_probe"), true);
    QVERIFY(tool.isChecked(camera, false));
}

void TestPlgFlow::checkedByTheCurrentPlugin()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    ProbeTool tool;
    ProbeTool other(QStringLiteral("t_other"));
    host.addPlugin(&tool);
    host.addPlugin(&other);
    tool.m_checkKind = 4;
    tool.m_hasPanel = other.m_hasPanel = true;
    QVERIFY(!tool.isChecked(camera, false));
    host.openPluginByName(QStringLiteral("t_other"));
    QVERIFY(!tool.isChecked(camera, false));
    host.openPluginByName(QStringLiteral("t_probe"));
    QVERIFY(tool.isChecked(camera, false));
    host.removePlugin(&tool);
    host.removePlugin(&other);
}

void TestPlgFlow::checkedByTheLock()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    ProbeTool tool(QStringLiteral("t_multilock"));
    tool.setHost(&host);
    tool.m_buttonKind = 1;
    QVERIFY(!tool.isChecked(camera, false));
    host.setTrelvikLock(true);
    host.clearJournal();
    QVERIFY(tool.isChecked(camera, false));
    QCOMPARE(host.journal(), QStringList({"currentMode()", "isTrelvikLocked()"}));
    QVERIFY(!tool.isChecked(nullptr, false));
}

void TestPlgFlow::checkedByTheZoom()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    ProbeTool tool(QStringLiteral("t_zoomfit"));
    tool.setHost(&host);
    host.clearJournal();
    const bool checked = tool.isChecked(camera, false);
    QCOMPARE(host.journal(), QStringList({"currentMode()", "zoomFactor(0)"}));
    QCOMPARE(checked, host.zoomFactor(0) <= 0.0f);
    for (const double zoom : {2.0, 1.0, 0.25}) {
        camera->state().zoom = zoom;
        QVERIFY(!tool.isChecked(camera, false));
    }
    camera->state().zoom = 0.0;
    QVERIFY(tool.isChecked(camera, false));
    camera->state().zoom = -1.0;
    QVERIFY(tool.isChecked(camera, false));
}

namespace {

class RenamedTool : public ProbeTool
{
public:
    QString given = QStringLiteral("t_given");
    QString name() override { return given; }
};

}

void TestPlgFlow::checkedByTheNameThatItGives()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    RenamedTool tool;
    host.addPlugin(&tool);
    const auto asked = [&](int checkKind) {
        tool.m_checkKind = checkKind;
        host.clearJournal();
        tool.isChecked(camera, true);
        return host.journal().mid(1);
    };
    QCOMPARE(asked(0), QStringList({"[1].isToolOn(\"t_given\")"}));
    QCOMPARE(asked(2), QStringList({"[1].isToolAvailable(\"t_given\", true)"}));
    tool.m_hasPanel = true;
    host.openPlugin(&tool);
    tool.m_checkKind = 4;
    QVERIFY(tool.isChecked(camera, false));
    tool.given = QStringLiteral("t_zoomfit");
    QCOMPARE(asked(0), QStringList({"zoomFactor(0)"}));
    tool.given = QStringLiteral("t_multilock");
    QCOMPARE(asked(0), QStringList({"isTrelvikLocked()"}));
    tool.given = QStringLiteral("t_given");
    host.removePlugin(&tool);
}

namespace {

class CheckedByItself : public ProbeTool
{
public:
    bool customChecked() override { return true; }
};

}

void TestPlgFlow::checkedByItself()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    CheckedByItself tool;
    tool.setHost(&host);
    tool.m_buttonKind = 4;
    host.clearJournal();
    QVERIFY(tool.isChecked(camera, false));
    QCOMPARE(host.journal(), QStringList({"currentMode()"}));
    tool.m_buttonKind = 1;
    QVERIFY(!tool.isChecked(camera, false));
    ProbeTool plain;
    plain.setHost(&host);
    plain.m_buttonKind = 4;
    QVERIFY(!plain.isChecked(camera, false));
}

void TestPlgFlow::failureOfTheHostPassesOn()
{
    StandInHost host;
    std::unique_ptr<ProbeTool> owner;
    ProbeTool *tool = toolOn(host, owner);
    tool->m_buttonKind = 1;
    host.failOn(QStringLiteral("setToolState"), 1);
    QVERIFY_EXCEPTION_THROWN(tool->activate(), std::runtime_error);
    QCOMPARE(host.handledErrors(), QStringList());
}

int main(int argc, char *argv[])
{
    TestPlgFlow test;
    return runTest(argc, argv, test);
}

#include "test_plg_flow.moc"
