#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "plugin/region/RegionGeometry.h"
#include "tests/plugin/RegionTool.h"
#include "tests/support/TestLog.h"

#include <QGuiApplication>

#include <memory>

using namespace RegionGeometry;

// A tool that is left in the middle of a drag takes back its pointer and closes its undo macro
// before anything else, and nothing of the drag is there when it comes back.
class TestPlgLeaving : public TestBase
{
    Q_OBJECT

private slots:
    void cleanup();
    void leavingEndsTheDragFirst_data();
    void leavingEndsTheDragFirst();
    void leavingWithoutADragTellsNoMacro_data();
    void leavingWithoutADragTellsNoMacro();
    void leavingTakesBackThePointer_data();
    void leavingTakesBackThePointer();
    void leavingKeepsForeignPointers_data();
    void leavingKeepsForeignPointers();
    void leftToolEditsNothingWithoutAPress_data();
    void leftToolEditsNothingWithoutAPress();
    void failingEndOfTheMacroEndsTheDrag_data();
    void failingEndOfTheMacroEndsTheDrag();
    void macroThatFailedToEndIsNotEndedAgain();
    void toolsOwnStepsComeBetween();
    void toolMayEndItsDragItself();
    void dialogThatMayNotFinishLosesTheDragAlone();
    void lockToolReleasesTheLockBehindItsMacro();
    void deletedToolTakesBackThePointerAndCallsNobody();
    void toolOutlivesItsHost();
    void pointerGoesBeforeTheDialog();
    void releaseBehindTheLeavingEndsNoMacro();
    void finishingTellsTheWholeStory_data();
    void finishingTellsTheWholeStory();
    void applyForgetsTheChangesFirst();
    void closedFromInsideRollsNothingBack_data();
    void closedFromInsideRollsNothingBack();
    void cancelInMidDragEndsIt();
    void hostThatLeavesTheToolInMidMoveEndsTheDrag();
};

namespace {

// Shape of the override cursor, -1 without one.
int shownPointer()
{
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor ? int(cursor->shape()) : -1;
}

// Tells of what the base does to itself as well: `tool.setModified(false, true)` while a
// transaction is open.
class StoryTool : public RegionTool
{
public:
    explicit StoryTool(StandInHost &host) : RegionTool(host), m_story(host.callJournal())
    {
        setHost(&host);
    }

    void setModified(bool modified) override
    {
        m_story.command(QStringLiteral("tool"), "setModified", modified, m_transactionOpen);
        RegionTool::setModified(modified);
    }
    void clearViewWidget() override
    {
        m_story.command(QStringLiteral("tool"), "clearViewWidget");
        RegionTool::clearViewWidget();
    }
    GUI_ModelessPatternDialog *createModelessPatternDialog(bool) override
    {
        return new GUI_ModelessPatternDialog(m_host, QStringLiteral("Region"),
                                             QStringLiteral("about:blank"), nullptr, nullptr);
    }

    using PLG_Common::endDrag;

private:
    CallJournal &m_story;
};

enum Way { Deactivated, Closed, DialogClosed };

void leave(PLG_Common &tool, int way)
{
    if (way == Deactivated)
        tool.deactivate();
    else if (way == Closed)
        tool.onClosed();
    else
        tool.slotModelessPatternDialogClosed();
}

void addWays()
{
    QTest::addColumn<int>("way");
    QTest::newRow("deactivated") << int(Deactivated);
    QTest::newRow("closed") << int(Closed);
    QTest::newRow("dialog closed") << int(DialogClosed);
}

// A tool on a camera whose view and image coordinates are the same; the region is at 100 to 199,
// 100 to 179.
struct Scene
{
    Scene() : camera(addPlainCamera(host)), doc(int(camera->key())), tool(host)
    {
        host.clearJournal();
    }

    void hover(int x, int y) { tool.onMouseMove(QPoint(x, y), doc); }
    void press(int x, int y) { tool.onMousePress(QPoint(x, y), doc); }
    void release(int x, int y) { tool.onMouseRelease(QPoint(x, y), doc); }

    // The right side is held, and a corner stays where it is.
    void beginDrag()
    {
        hover(199, 140);
        press(199, 140);
        tool.m_anchorCorner = AnchorTopLeft;
        host.clearJournal();
    }

    bool isIdle() const
    {
        return !const_cast<StoryTool &>(tool).isDragging() && tool.m_dragHandle == Outside &&
               tool.m_anchorCorner == AnchorUndecided;
    }

    StandInHost host;
    StandInCamera *camera;
    int doc;
    StoryTool tool;
};

const QStringList Pause({"documentsMutex()", "isLiveMode()", "pausePlayback()"});

}

void TestPlgLeaving::cleanup()
{
    QCOMPARE(shownPointer(), -1); // no test leaves one behind
    TestBase::cleanup();
}

void TestPlgLeaving::leavingEndsTheDragFirst_data()
{
    QTest::addColumn<int>("way");
    QTest::addColumn<bool>("hasPanel");
    QTest::addColumn<int>("checkKind");
    QTest::addColumn<int>("buttonKind");
    QTest::addColumn<QStringList>("journal");
    const QString clear = QStringLiteral("tool.clearViewWidget()");
    const QString clean = QStringLiteral("tool.setModified(false, false)");
    const QString endMacro = QStringLiteral("endUndoMacro()");
    const QStringList release = Pause + QStringList({"resumeView(false)", "resumePlayback()"});
    QTest::newRow("command deactivated")
        << int(Deactivated) << false << 0 << 0 << QStringList({endMacro, clear});
    QTest::newRow("toggle deactivated")
        << int(Deactivated) << false << 0 << 1
        << QStringList({endMacro, clear, "setToolActive(\"t_regionprobe\", false)"});
    QTest::newRow("panel deactivated")
        << int(Deactivated) << true << 0 << 0
        << QStringList({endMacro, clear, clean, "returnFromPlugin()"});
    QTest::newRow("panel with transaction deactivated")
        << int(Deactivated) << true << 2 << 0
        << QStringList({endMacro, clear, "tool.setModified(false, true)", "returnFromPlugin()"});
    QTest::newRow("toggle closed")
        << int(Closed) << false << 0 << 1 << QStringList({endMacro}) + release;
    QTest::newRow("panel closed") << int(Closed) << true << 0 << 0
                                  << QStringList({endMacro, clear, "clearUndoStack()", clean}) +
                                         release;
    QTest::newRow("panel with transaction closed")
        << int(Closed) << true << 3 << 0
        << QStringList({endMacro, clear, "clearUndoStack()",
                        "rollbackTransaction(\"t_regionprobe\")", clean}) +
               release;
    QTest::newRow("dialog closed")
        << int(DialogClosed) << false << 6 << 0
        << QStringList({endMacro}) + release +
               QStringList({"deterUpdateUI(true)", "closePluginByName(\"t_regionprobe\")",
                            "deterUpdateUI(false)"});
}

void TestPlgLeaving::leavingEndsTheDragFirst()
{
    QFETCH(int, way);
    QFETCH(bool, hasPanel);
    QFETCH(int, checkKind);
    QFETCH(int, buttonKind);
    Scene scene;
    scene.host.setMode(StandInHost::Mode::Memory);
    scene.tool.m_hasPanel = hasPanel;
    scene.tool.m_checkKind = checkKind;
    scene.tool.m_buttonKind = buttonKind;
    scene.tool.m_suspendsView = true;
    scene.tool.activate();
    scene.tool.RegionTool::setModified(true);
    scene.beginDrag();
    leave(scene.tool, way);
    QTEST(scene.host.journal(), "journal");
    QVERIFY(scene.isIdle());
    QCOMPARE(scene.host.openMacros(), 0);
    QCOMPARE(scene.tool.rect, corners(100, 100, 199, 179));
    if (hasPanel)
        QVERIFY(!scene.tool.isModified());
    if (way == Closed)
        QVERIFY(!scene.tool.m_transactionOpen);
}

void TestPlgLeaving::leavingWithoutADragTellsNoMacro_data()
{
    addWays();
}

void TestPlgLeaving::leavingWithoutADragTellsNoMacro()
{
    QFETCH(int, way);
    Scene scene;
    scene.beginDrag();
    scene.release(199, 140);
    scene.host.clearJournal();
    leave(scene.tool, way);
    leave(scene.tool, way);
    QVERIFY(!scene.host.journal().contains(QStringLiteral("endUndoMacro()")));
    QVERIFY(scene.isIdle());
}

void TestPlgLeaving::leavingTakesBackThePointer_data()
{
    addWays();
}

void TestPlgLeaving::leavingTakesBackThePointer()
{
    QFETCH(int, way);
    Scene scene;
    scene.hover(199, 140);
    QCOMPARE(shownPointer(), int(Qt::SizeHorCursor));
    // It has gone by the time that the host hears anything.
    scene.host.failFromCall(1);
    try {
        leave(scene.tool, way);
    } catch (const StandInFault &) { // no other matter
    }
    QCOMPARE(shownPointer(), -1);
    scene.host.clearFaults();
    leave(scene.tool, way);
    QCOMPARE(shownPointer(), -1);
}

void TestPlgLeaving::leavingKeepsForeignPointers_data()
{
    addWays();
}

void TestPlgLeaving::leavingKeepsForeignPointers()
{
    QFETCH(int, way);
    Scene scene;
    scene.press(400, 400); // beside the region: no pointer of the tool's own
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    leave(scene.tool, way);
    const int shown = shownPointer();
    QGuiApplication::restoreOverrideCursor();
    QCOMPARE(shown, int(Qt::WaitCursor));
}

void TestPlgLeaving::leftToolEditsNothingWithoutAPress_data()
{
    addWays();
}

void TestPlgLeaving::leftToolEditsNothingWithoutAPress()
{
    QFETCH(int, way);
    Scene scene;
    scene.beginDrag();
    leave(scene.tool, way);
    scene.tool.activate();
    scene.host.clearJournal();
    scene.hover(250, 140);
    QCOMPARE(scene.tool.rect, corners(100, 100, 199, 179));
    QCOMPARE(scene.host.commands(), QStringList({"[1].reportCursorPosition((250,140))"}));
    QCOMPARE(shownPointer(), -1);
}

void TestPlgLeaving::failingEndOfTheMacroEndsTheDrag_data()
{
    addWays();
}

void TestPlgLeaving::failingEndOfTheMacroEndsTheDrag()
{
    QFETCH(int, way);
    Scene scene;
    scene.beginDrag();
    scene.host.failOn(QStringLiteral("endUndoMacro"));
    if (way == DialogClosed)
        leave(scene.tool, way); // the page may have closed it
    else
        QVERIFY_EXCEPTION_THROWN(leave(scene.tool, way), StandInFault);
    QCOMPARE(scene.host.handledErrors().size(), way == DialogClosed ? 1 : 0);
    QVERIFY(scene.isIdle());
    QCOMPARE(shownPointer(), -1);
    scene.host.endUndoMacro();
}

// What the host refused is over for the tool: leaving it once more goes through.
void TestPlgLeaving::macroThatFailedToEndIsNotEndedAgain()
{
    Scene scene;
    scene.tool.m_hasPanel = true;
    scene.beginDrag();
    scene.host.failOn(QStringLiteral("endUndoMacro"));
    QVERIFY_EXCEPTION_THROWN(scene.tool.onClosed(), StandInFault);
    scene.host.clearJournal();
    scene.tool.onClosed();
    QCOMPARE(scene.host.journal(), QStringList({"tool.clearViewWidget()", "clearUndoStack()",
                                                "tool.setModified(false, false)"}));
}

namespace {

class OverridingTool : public StoryTool
{
public:
    explicit OverridingTool(StandInHost &host) : StoryTool(host), m_told(host) {}

    bool endsFirst = false;

    void deactivate() override
    {
        if (endsFirst)
            endDrag();
        m_told.callJournal().command(QStringLiteral("tool"), "ownStep", isDragging());
        StoryTool::deactivate();
    }

private:
    StandInHost &m_told;
};

}

// A tool that puts steps of its own before those of the base may still ask what was dragged.
void TestPlgLeaving::toolsOwnStepsComeBetween()
{
    StandInHost host;
    addPlainCamera(host);
    OverridingTool tool(host);
    tool.onMousePress(QPoint(150, 140), 1);
    host.clearJournal();
    tool.deactivate();
    QCOMPARE(host.journal(),
             QStringList({"tool.ownStep(true)", "endUndoMacro()", "tool.clearViewWidget()"}));
    QVERIFY(!tool.isDragging());
}

void TestPlgLeaving::toolMayEndItsDragItself()
{
    StandInHost host;
    addPlainCamera(host);
    OverridingTool tool(host);
    tool.endsFirst = true;
    tool.onMousePress(QPoint(150, 140), 1);
    host.clearJournal();
    tool.deactivate();
    QCOMPARE(host.journal(),
             QStringList({"endUndoMacro()", "tool.ownStep(false)", "tool.clearViewWidget()"}));
}

namespace {

class StayingDialog : public GUI_ModelessPatternDialog
{
public:
    using GUI_ModelessPatternDialog::GUI_ModelessPatternDialog;
    bool mayFinish() override { return false; }
};

class StayingTool : public StoryTool
{
public:
    using StoryTool::StoryTool;
    GUI_ModelessPatternDialog *createModelessPatternDialog(bool) override
    {
        return new StayingDialog(m_host, QStringLiteral("Region"), QStringLiteral("about:blank"),
                                 nullptr, nullptr);
    }
};

}

void TestPlgLeaving::dialogThatMayNotFinishLosesTheDragAlone()
{
    StandInHost host;
    addPlainCamera(host);
    StayingTool tool(host);
    tool.m_suspendsView = true;
    tool.ensureDialog(true);
    tool.showDialog();
    tool.onMousePress(QPoint(150, 140), 1);
    host.clearJournal();
    tool.slotModelessPatternDialogClosed();
    QCOMPARE(host.journal(), QStringList({"endUndoMacro()"}));
    QVERIFY(tool.isDialogVisible());
    QVERIFY(!tool.isDragging());
}

namespace {

// As the lock tool: no region, and a state of the host that it sets behind the base's steps.
class LockingTool : public ProbeTool
{
public:
    LockingTool() : ProbeTool(QStringLiteral("t_multilock")) { m_buttonKind = 1; }
    void activate() override
    {
        PLG_Common::activate();
        m_host->setTrelvikLock(true);
    }
    void deactivate() override
    {
        PLG_Common::deactivate();
        m_host->setTrelvikLock(false);
    }
};

}

void TestPlgLeaving::lockToolReleasesTheLockBehindItsMacro()
{
    StandInHost host;
    const int doc = int(addPlainCamera(host)->key());
    LockingTool tool;
    tool.setHost(&host);
    tool.activate();
    tool.onMousePress(QPoint(150, 140), doc);
    host.clearJournal();
    tool.deactivate();
    QCOMPARE(host.journal(), QStringList({"endUndoMacro()", "setTrelvikLock(false)"}));
    host.clearJournal();
    tool.deactivate();
    QCOMPARE(host.journal(), QStringList({"setTrelvikLock(false)"}));
}

void TestPlgLeaving::deletedToolTakesBackThePointerAndCallsNobody()
{
    StandInHost host;
    const int doc = int(addPlainCamera(host)->key());
    auto tool = std::make_unique<StoryTool>(host);
    tool->onMouseMove(QPoint(199, 140), doc);
    tool->onMousePress(QPoint(199, 140), doc);
    QCOMPARE(shownPointer(), int(Qt::SizeHorCursor));
    host.clearJournal();
    tool.reset();
    QCOMPARE(shownPointer(), -1);
    QCOMPARE(host.journal(), QStringList());
    host.endUndoMacro(); // who deletes a tool in mid-drag ends what it began
}

void TestPlgLeaving::toolOutlivesItsHost()
{
    auto host = std::make_unique<StandInHost>();
    const int doc = int(addPlainCamera(*host)->key());
    auto tool = std::make_unique<ProbeTool>();
    tool->setHost(host.get());
    tool->onMousePress(QPoint(199, 140), doc);
    tool->setRegionCursor(host->deviceByKey(DOCKEY(doc), true), LeftEdge);
    host.reset();
    QCOMPARE(shownPointer(), int(Qt::SizeHorCursor));
    tool.reset();
    QCOMPARE(shownPointer(), -1);
}

// What goes with the tool is not drawn under its pointer.
void TestPlgLeaving::pointerGoesBeforeTheDialog()
{
    StandInHost host;
    const int doc = int(addPlainCamera(host)->key());
    auto tool = std::make_unique<StoryTool>(host);
    int shownAtTheEnd = 0;
    connect(tool->ensureDialog(true), &QObject::destroyed, this,
            [&] { shownAtTheEnd = shownPointer(); });
    tool->onMouseMove(QPoint(199, 140), doc);
    tool.reset();
    QCOMPARE(shownAtTheEnd, -1);
}

void TestPlgLeaving::releaseBehindTheLeavingEndsNoMacro()
{
    Scene scene;
    scene.tool.m_hasPanel = true;
    scene.beginDrag();
    scene.tool.onClosed();
    scene.host.clearJournal();
    scene.release(199, 140);
    QCOMPARE(scene.host.commands(),
             QStringList({"[1].notifyChange(1, false)", "updateUI(4, false)"}));
}

namespace {

void finish(PLG_Common &tool, const QString &way)
{
    if (way == QLatin1String("ok"))
        tool.onOk();
    else if (way == QLatin1String("accept"))
        tool.onAccept();
    else
        tool.onCancel();
}

}

void TestPlgLeaving::finishingTellsTheWholeStory_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("checkKind");
    QTest::addColumn<bool>("closesCurrent");
    QTest::addColumn<QStringList>("journal");
    const QString commit = QStringLiteral("commitTransaction(true, \"t_regionprobe\")");
    const QString rollBack = QStringLiteral("rollbackTransaction(\"t_regionprobe\")");
    const QString clean = QStringLiteral("tool.setModified(false, false)");
    const QString leave = QStringLiteral("returnFromPlugin()");
    const QString close = QStringLiteral("closeCurrentPlugin()");
    QTest::newRow("ok") << "ok" << 2 << false << QStringList({commit, clean, leave});
    QTest::newRow("ok closes") << "ok" << 3 << true << QStringList({commit, clean, close});
    QTest::newRow("ok without transaction") << "ok" << 4 << false << QStringList({clean, leave});
    QTest::newRow("accept") << "accept" << 3 << false << QStringList({commit, clean, leave});
    QTest::newRow("accept closes") << "accept" << 2 << true << QStringList({commit, clean, close});
    QTest::newRow("cancel") << "cancel" << 2 << false << QStringList({rollBack, clean, leave});
    QTest::newRow("cancel closes")
        << "cancel" << 3 << true << QStringList({rollBack, clean, close});
    QTest::newRow("cancel without transaction")
        << "cancel" << 0 << true << QStringList({clean, close});
}

void TestPlgLeaving::finishingTellsTheWholeStory()
{
    QFETCH(QString, way);
    QFETCH(int, checkKind);
    QFETCH(bool, closesCurrent);
    Scene scene;
    scene.tool.m_hasPanel = true;
    scene.tool.m_checkKind = checkKind;
    scene.tool.setCloseCurrentOnFinish(closesCurrent);
    scene.tool.activate();
    scene.host.clearJournal();
    finish(scene.tool, way);
    QTEST(scene.host.journal(), "journal");
}

void TestPlgLeaving::applyForgetsTheChangesFirst()
{
    Scene scene;
    scene.tool.m_hasPanel = true;
    scene.tool.onApply();
    QCOMPARE(scene.host.journal(),
             QStringList({"tool.setModified(false, false)", "clearUndoStack()"}));
}

void TestPlgLeaving::closedFromInsideRollsNothingBack_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("end");
    QTest::newRow("ok") << "ok"
                        << "commitTransaction(true, \"t_regionprobe\")";
    QTest::newRow("accept") << "accept"
                            << "commitTransaction(true, \"t_regionprobe\")";
    QTest::newRow("cancel") << "cancel"
                            << "rollbackTransaction(\"t_regionprobe\")";
}

void TestPlgLeaving::closedFromInsideRollsNothingBack()
{
    QFETCH(QString, way);
    QFETCH(QString, end);
    Scene scene;
    scene.tool.m_hasPanel = true;
    scene.tool.m_checkKind = 2;
    scene.host.addPlugin(&scene.tool);
    scene.host.openPluginByName(QStringLiteral("t_regionprobe"));
    QVERIFY(scene.tool.m_transactionOpen);
    scene.host.clearJournal();
    finish(scene.tool, way);
    QCOMPARE(scene.host.commands(),
             QStringList({end, "tool.setModified(false, false)", "returnFromPlugin()",
                          "tool.clearViewWidget()", "clearUndoStack()",
                          "tool.setModified(false, false)"}));
    scene.host.removePlugin(&scene.tool);
}

// The host leaves the panel inside the tool's own steps, and closes the tool with it.
void TestPlgLeaving::cancelInMidDragEndsIt()
{
    Scene scene;
    scene.tool.m_hasPanel = true;
    scene.tool.m_checkKind = 2;
    scene.host.addPlugin(&scene.tool);
    scene.host.openPluginByName(QStringLiteral("t_regionprobe"));
    scene.beginDrag();
    scene.tool.onCancel();
    QCOMPARE(
        scene.host.commands(),
        QStringList({"rollbackTransaction(\"t_regionprobe\")", "tool.setModified(false, false)",
                     "returnFromPlugin()", "endUndoMacro()", "tool.clearViewWidget()",
                     "clearUndoStack()", "tool.setModified(false, false)"}));
    QVERIFY(scene.isIdle());
    scene.host.removePlugin(&scene.tool);
}

void TestPlgLeaving::hostThatLeavesTheToolInMidMoveEndsTheDrag()
{
    Scene scene;
    scene.tool.m_hasPanel = true;
    scene.host.addPlugin(&scene.tool);
    scene.host.openPluginByName(QStringLiteral("t_regionprobe"));
    scene.beginDrag();
    scene.tool.whenStored = [&] { scene.host.closeCurrentPlugin(); };
    scene.hover(220, 140);
    QVERIFY(scene.isIdle());
    QCOMPARE(scene.host.openMacros(), 0);
    QCOMPARE(shownPointer(), -1);
    scene.host.removePlugin(&scene.tool);
}

int main(int argc, char *argv[])
{
    TestPlgLeaving test;
    return runTest(argc, argv, test);
}

#include "test_plg_leaving.moc"
