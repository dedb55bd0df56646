#include "plugin/region/RegionCursor.h"
#include "plugin/region/RegionGeometry.h"
#include "tests/plugin/RegionTool.h"
#include "tests/support/TestLog.h"

#include <QGuiApplication>

#include <limits>

using namespace RegionGeometry;

namespace {

// Shape of the override cursor, -1 without one.
int shownPointer()
{
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor ? int(cursor->shape()) : -1;
}

// A tool on a camera whose view and image coordinates are the same; the region is at 100 to 199,
// 100 to 179.
struct Scene
{
    Scene() : camera(addPlainCamera(host)), doc(int(camera->key())), tool(host)
    {
        host.clearJournal();
    }

    void press(int x, int y) { tool.onMousePress(QPoint(x, y), doc); }
    void move(int x, int y) { tool.onMouseMove(QPoint(x, y), doc); }
    void release(int x, int y) { tool.onMouseRelease(QPoint(x, y), doc); }

    QStringList takeCommands()
    {
        const QStringList commands = host.commands();
        host.clearJournal();
        return commands;
    }

    StandInHost host;
    StandInCamera *camera;
    int doc;
    RegionTool tool;
};

}

// Press, move and release on a picture: what the tool does, and what the host is told in which
// order.
class TestRegionFlow : public TestBase
{
    Q_OBJECT

private slots:
    void cleanup();
    void wholeDragInTheToldOrder();
    void pressGrabs();
    void pressForgetsTheAnchorOnly();
    void hoverShowsThePointer();
    void dragOfEachHandle_data();
    void dragOfEachHandle();
    void dragPastTheBorderStopsThere();
    void dragGoesOnFromThePress();
    void symmetricDragMirrorsAndRecentres();
    void aspectDragKeepsItsAnchor();
    void aspectDragKeepsItsOwnMinimum();
    void outsideDragChangesNothing();
    void lockPushesToAll();
    void lockIsNotAskedWhenTheToolKeepsToOne();
    void withoutApplyNothingIsPushed();
    void rectanglesWithoutSizeAreNotStored();
    void toolWithoutRegionIsLeftAlone();
    void crossCursorTakesTheMouse();
    void crossCursorInMidDragHoldsIt();
    void documentThatGoesInMidDrag();
    void documentThatGoesWhileItIsStored();
    void documentThatGoesAtTheEndOfTheMacro();
    void pressThatLosesItsDocument();
    void releaseWithoutPress();
    void releaseWithoutPressLeavesForeignMacrosOpen();
    void secondPressOpensNoSecondMacro();
    void pointerGoesWhereNothingIsEdited();
    void releaseForADocumentThatTheToolDisowns();
    void pressOnADocumentThatTheToolDisowns();
    void toolChoosesItsOwnPointer();
    void finishReleasesWhereThePointerWasLast();
    void leaveTakesBackThePointer();
    void pointerGoesWithItsOwner();
    void pointerOfTheSameShapeIsNotTheToolsOwn();
    void pointerThatSomebodyTookBackIsShownAnew();
    void failingQuestionLeavesTheMacroClosable();
    void failingBeginStartsNoDrag();
    void failingMoveIsNoted();
    void failingEndStillEndsTheDrag();
    void absurdDocumentsDoNoHarm_data();
    void absurdDocumentsDoNoHarm();
    void undoTakesBackAWholeDrag();
};

void TestRegionFlow::cleanup()
{
    QCOMPARE(shownPointer(), -1); // no test leaves one behind
    TestBase::cleanup();
}

void TestRegionFlow::wholeDragInTheToldOrder()
{
    Scene scene;
    scene.press(150, 140);
    QCOMPARE(scene.host.journal(),
             QStringList({"deviceByKey(1, true)", "beginUndoMacro(\"\")", "deviceByKey(1, true)",
                          "isToolRunning(\"t_crosscursor\")", "[1].viewScale(true)",
                          "[1].mapRect((100,100 100x80))", "[1].viewRotation()",
                          "[1].isFlippedHorizontally()", "[1].isFlippedVertically()"}));
    scene.host.clearJournal();

    scene.move(155, 137);
    const QStringList moved = scene.host.journal();
    QCOMPARE(moved.filter(QStringLiteral("deviceByKey")),
             QStringList({"deviceByKey(1, true)", "deviceByKey(1, true)", "deviceByKey(1, true)"}));
    QCOMPARE(moved.mid(0, 5),
             QStringList({"deviceByKey(1, true)", "deviceByKey(1, true)",
                          "[1].mapPoint((155,137), true)", "[1].reportCursorPosition((155,137))",
                          "isToolRunning(\"t_crosscursor\")"}));
    QVERIFY(moved.contains(QStringLiteral("[1].mapPoint((150,140), true)")));
    QCOMPARE(
        scene.takeCommands(),
        QStringList({"[1].reportCursorPosition((155,137))", "tool.setRegion((105,97 100x80), true)",
                     "[1].notifyChange(1, false)", "updateUI(4, false)"}));

    scene.release(155, 137);
    QVERIFY(!scene.host.journal().contains(QStringLiteral("deviceByKey(1, false)")));
    QCOMPARE(scene.takeCommands(),
             QStringList({"endUndoMacro()", "[1].notifyChange(1, false)", "updateUI(4, false)"}));
}

void TestRegionFlow::pressGrabs()
{
    Scene scene;
    scene.press(150, 140);
    QVERIFY(scene.tool.isDragging());
    QCOMPARE(scene.tool.m_dragHandle, int(Inside));
    QCOMPARE(scene.tool.m_pressRegion, corners(100, 100, 199, 179));
    QCOMPARE(scene.tool.pressPosition(), QPoint(150, 140));
    QCOMPARE(scene.tool.lastMousePosition(), QPoint(150, 140));
    scene.move(151, 141);
    QCOMPARE(scene.tool.lastMousePosition(), QPoint(151, 141));
    QCOMPARE(scene.tool.pressPosition(), QPoint(150, 140));
    QCOMPARE(scene.tool.m_pressRegion, corners(100, 100, 199, 179));
    QCOMPARE(scene.tool.currentDocId(), scene.doc);
    QCOMPARE(scene.tool.documentPoint(scene.doc), QPoint(151, 141));
    scene.release(151, 141);
    QVERIFY(!scene.tool.isDragging());
    QCOMPARE(scene.tool.m_dragHandle, int(Outside));
    QCOMPARE(scene.tool.m_anchorCorner, int(AnchorUndecided));
}

void TestRegionFlow::pressForgetsTheAnchorOnly()
{
    Scene scene;
    scene.tool.m_anchorCorner = 1;
    scene.tool.onMousePress(QPoint(150, 140), 4711);
    QCOMPARE(scene.tool.m_anchorCorner, 4);
    QVERIFY(!scene.tool.isDragging());
    QCOMPARE(scene.takeCommands(), QStringList());
}

void TestRegionFlow::hoverShowsThePointer()
{
    Scene scene;
    scene.tool.m_dragHandle = RightEdge; // counts in a drag alone
    scene.move(100, 140);
    QCOMPARE(shownPointer(), int(Qt::SizeHorCursor));
    QCOMPARE(scene.takeCommands(), QStringList({"[1].reportCursorPosition((100,140))"}));
    scene.move(150, 100);
    QCOMPARE(shownPointer(), int(Qt::SizeVerCursor));
    scene.move(100, 100);
    QCOMPARE(shownPointer(), int(Qt::SizeFDiagCursor));
    scene.move(199, 100);
    QCOMPARE(shownPointer(), int(Qt::SizeBDiagCursor));
    scene.move(150, 140);
    QCOMPARE(shownPointer(), int(Qt::SizeAllCursor));
    scene.press(150, 140);
    scene.move(160, 150);
    QCOMPARE(shownPointer(), int(Qt::SizeAllCursor));
    scene.release(160, 150);
    QCOMPARE(shownPointer(), -1);
    scene.move(160, 150);
    QCOMPARE(shownPointer(), int(Qt::SizeAllCursor));
    scene.move(300, 300);
    QCOMPARE(shownPointer(), -1);
    QCOMPARE(scene.tool.rect, corners(110, 110, 209, 189));
}

void TestRegionFlow::dragOfEachHandle_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRect>("result");
    QTest::newRow("top") << QPoint(150, 100) << QPoint(155, 90) << corners(100, 90, 199, 179);
    QTest::newRow("bottom") << QPoint(150, 179) << QPoint(155, 190) << corners(100, 100, 199, 190);
    QTest::newRow("left") << QPoint(100, 140) << QPoint(90, 150) << corners(90, 100, 199, 179);
    QTest::newRow("right") << QPoint(199, 140) << QPoint(220, 150) << corners(100, 100, 220, 179);
    QTest::newRow("top left") << QPoint(100, 100) << QPoint(90, 80) << corners(90, 80, 199, 179);
    QTest::newRow("top right") << QPoint(199, 100) << QPoint(220, 80) << corners(100, 80, 220, 179);
    QTest::newRow("bottom left") << QPoint(100, 179) << QPoint(90, 200)
                                 << corners(90, 100, 199, 200);
    QTest::newRow("bottom right") << QPoint(199, 179) << QPoint(220, 200)
                                  << corners(100, 100, 220, 200);
    QTest::newRow("inside") << QPoint(150, 140) << QPoint(170, 130) << corners(120, 90, 219, 169);
    // Grabbed five pixels beside the side: the side goes to the pointer.
    QTest::newRow("left, grabbed beside it")
        << QPoint(105, 140) << QPoint(106, 140) << corners(106, 100, 199, 179);
}

void TestRegionFlow::dragOfEachHandle()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    Scene scene;
    scene.press(from.x(), from.y());
    scene.move(to.x(), to.y());
    QTEST(scene.tool.rect, "result");
    scene.release(to.x(), to.y());
    QTEST(scene.tool.rect, "result");
}

void TestRegionFlow::dragPastTheBorderStopsThere()
{
    Scene scene;
    scene.tool.rect = corners(500, 100, 599, 179);
    scene.press(550, 140);
    scene.move(639, 140);
    QCOMPARE(scene.tool.rect, corners(540, 100, 639, 179));
    scene.move(5000, 140); // the document maps it to its border
    QCOMPARE(scene.tool.rect, corners(540, 100, 639, 179));
    scene.release(5000, 140);
}

void TestRegionFlow::dragGoesOnFromThePress()
{
    // Each step starts at the press, not at the step before: what the border held back comes back.
    Scene scene;
    scene.press(150, 140);
    scene.move(20, 140);
    QCOMPARE(scene.tool.rect, corners(0, 100, 99, 179));
    scene.move(80, 140);
    QCOMPARE(scene.tool.rect, corners(30, 100, 129, 179));
    scene.release(80, 140);
}

void TestRegionFlow::symmetricDragMirrorsAndRecentres()
{
    StandInHost host;
    StandInCamera::Description description;
    description.limits.sensorSize = QSize(642, 480);
    description.region = QRect(0, 0, 640, 480);
    StandInCamera *camera = host.addCamera(description);
    camera->setZoom(1.0);
    RegionTool tool(host);
    tool.m_symmetricX = true;
    tool.rect = corners(200, 100, 439, 179);
    tool.onMousePress(QPoint(200, 140), 1);
    host.clearJournal();
    tool.onMouseMove(QPoint(150, 140), 1);
    // The right side goes to 640 - 1 - 150 = 489; those 340 pixels are then centred on the sensor's
    // 642.
    QCOMPARE(tool.rect, corners(151, 100, 490, 179));
    tool.onMouseRelease(QPoint(150, 140), 1);
}

void TestRegionFlow::aspectDragKeepsItsAnchor()
{
    Scene scene;
    scene.tool.aspectFixed = true;
    scene.tool.aspect = 0.5;
    scene.tool.rect = corners(300, 200, 399, 249);
    scene.press(350, 200);
    QCOMPARE(scene.tool.m_anchorCorner, int(AnchorUndecided));
    scene.move(350, 150);
    QCOMPARE(scene.tool.rect, corners(200, 150, 399, 249));
    QCOMPARE(scene.tool.m_anchorCorner, int(AnchorBottomRight));
    scene.move(350, 50);
    QCOMPARE(scene.tool.rect, corners(0, 50, 399, 249));
    scene.move(350, 200);
    QCOMPARE(scene.tool.rect, corners(300, 200, 399, 249));
    QCOMPARE(scene.tool.m_anchorCorner, int(AnchorBottomRight));
    scene.release(350, 200);
    QCOMPARE(scene.tool.m_anchorCorner, int(AnchorUndecided));
}

void TestRegionFlow::aspectDragKeepsItsOwnMinimum()
{
    // 20x20 becomes 40x20 at an aspect of 0.5, twice as much by the divider.
    Scene scene;
    scene.tool.aspectFixed = true;
    scene.tool.aspect = 0.5;
    scene.tool.m_minSize = QSize(20, 20);
    scene.camera->state().usesScaleDivider = true;
    scene.camera->state().scaleDivider = 2;
    scene.tool.rect = corners(300, 200, 399, 249);
    scene.press(399, 225);
    scene.move(378, 225); // 79 wide, one too few
    QCOMPARE(scene.tool.rect, corners(300, 200, 399, 249));
    scene.move(379, 225);
    QCOMPARE(scene.tool.rect, corners(300, 200, 379, 239));
    scene.release(379, 225);
}

void TestRegionFlow::outsideDragChangesNothing()
{
    Scene scene;
    scene.tool.rect = corners(-50, 100, 49, 179); // as no pass would leave it
    scene.press(400, 400);
    QCOMPARE(scene.tool.m_dragHandle, int(Outside));
    scene.move(300, 300);
    scene.release(300, 300);
    QCOMPARE(scene.tool.rect, corners(-50, 100, 49, 179));
    QCOMPARE(scene.takeCommands(),
             QStringList({"beginUndoMacro(\"\")", "[1].reportCursorPosition((300,300))",
                          "endUndoMacro()", "[1].notifyChange(1, false)", "updateUI(4, false)"}));
}

void TestRegionFlow::lockPushesToAll()
{
    Scene scene;
    scene.host.setTrelvikLock(true);
    scene.press(150, 140);
    scene.host.clearJournal();
    scene.move(151, 140);
    QCOMPARE(scene.takeCommands(), QStringList({"[1].reportCursorPosition((151,140))",
                                                "tool.setRegion((101,100 100x80), true)",
                                                "updateUI(1, false)", "updateUI(4, false)"}));
    scene.release(151, 140);
    QCOMPARE(scene.takeCommands(),
             QStringList({"endUndoMacro()", "updateUI(1, false)", "updateUI(4, false)"}));
}

void TestRegionFlow::lockIsNotAskedWhenTheToolKeepsToOne()
{
    Scene scene;
    scene.host.setTrelvikLock(true);
    scene.tool.setApplyToAllWhenLocked(false);
    scene.press(150, 140);
    scene.host.clearJournal();
    scene.release(150, 140);
    QVERIFY(!scene.host.journal().contains(QStringLiteral("isTrelvikLocked()")));
    QCOMPARE(scene.takeCommands(),
             QStringList({"endUndoMacro()", "[1].notifyChange(1, false)", "updateUI(4, false)"}));
}

void TestRegionFlow::withoutApplyNothingIsPushed()
{
    Scene scene;
    scene.tool.setApplyOnEdit(false);
    scene.press(150, 140);
    scene.move(151, 140);
    scene.release(151, 140);
    QCOMPARE(scene.takeCommands(),
             QStringList({"beginUndoMacro(\"\")", "[1].reportCursorPosition((151,140))",
                          "tool.setRegion((101,100 100x80), true)", "endUndoMacro()"}));
}

void TestRegionFlow::rectanglesWithoutSizeAreNotStored()
{
    Scene scene;
    scene.tool.m_maxSize = QSize(0, 0);
    scene.tool.m_minSize = QSize(0, 0);
    scene.press(150, 140);
    scene.host.clearJournal();
    scene.move(151, 140);
    QCOMPARE(scene.takeCommands(),
             QStringList({"[1].reportCursorPosition((151,140))", "[1].notifyChange(1, false)",
                          "updateUI(4, false)"}));
    scene.release(151, 140);
}

void TestRegionFlow::toolWithoutRegionIsLeftAlone()
{
    Scene scene;
    scene.tool.edits = false;
    scene.move(150, 140);
    QCOMPARE(shownPointer(), -1);
    scene.press(150, 140);
    QVERIFY(scene.tool.isDragging());
    QCOMPARE(scene.tool.m_dragHandle, int(Outside));
    QCOMPARE(scene.tool.m_pressRegion, corners(0, 0, -1, -1));
    scene.move(170, 150);
    scene.release(170, 150);
    QCOMPARE(scene.tool.rect, corners(100, 100, 199, 179));
    QVERIFY(!scene.host.journal().contains(QStringLiteral("isToolRunning(\"t_crosscursor\")")));
    QCOMPARE(scene.takeCommands(),
             QStringList({"[1].reportCursorPosition((150,140))", "beginUndoMacro(\"\")",
                          "[1].reportCursorPosition((170,150))", "endUndoMacro()"}));
}

void TestRegionFlow::crossCursorTakesTheMouse()
{
    Scene scene;
    scene.host.state().runningTools.insert(QStringLiteral("t_crosscursor"));
    scene.move(150, 140);
    QCOMPARE(shownPointer(), -1);
    scene.press(150, 140);
    QVERIFY(scene.tool.isDragging());
    QCOMPARE(scene.tool.m_dragHandle, int(Outside));
    scene.move(170, 150);
    QCOMPARE(scene.tool.rect, corners(100, 100, 199, 179));
    QCOMPARE(scene.takeCommands(),
             QStringList({"[1].reportCursorPosition((150,140))", "beginUndoMacro(\"\")",
                          "[1].reportCursorPosition((170,150))"}));
    scene.release(170, 150);
    QCOMPARE(scene.takeCommands(),
             QStringList({"endUndoMacro()", "[1].notifyChange(1, false)", "updateUI(4, false)"}));
}

void TestRegionFlow::crossCursorInMidDragHoldsIt()
{
    Scene scene;
    scene.press(150, 140);
    scene.host.state().runningTools.insert(QStringLiteral("t_crosscursor"));
    scene.move(170, 150);
    QCOMPARE(scene.tool.rect, corners(100, 100, 199, 179));
    scene.host.state().runningTools.clear();
    scene.move(170, 150);
    QCOMPARE(scene.tool.rect, corners(120, 110, 219, 189));
    scene.release(170, 150);
}

void TestRegionFlow::documentThatGoesInMidDrag()
{
    Scene scene;
    scene.move(150, 140); // its pointer is to go with the drag
    scene.press(150, 140);
    scene.host.closeDocument(scene.camera->key());
    scene.host.clearJournal();
    scene.move(170, 150);
    QCOMPARE(scene.tool.lastMousePosition(), QPoint(150, 140));
    QVERIFY(scene.tool.isDragging());
    scene.release(170, 150);
    QVERIFY(!scene.tool.isDragging());
    QCOMPARE(scene.tool.m_dragHandle, int(Outside));
    QCOMPARE(shownPointer(), -1);
    QCOMPARE(scene.takeCommands(), QStringList({"endUndoMacro()"}));
    QCOMPARE(scene.host.openMacros(), 0);
}

void TestRegionFlow::documentThatGoesWhileItIsStored()
{
    Scene scene;
    scene.press(150, 140);
    scene.tool.whenStored = [&] { scene.host.closeDocument(scene.camera->key()); };
    scene.host.clearJournal();
    scene.move(151, 140);
    QCOMPARE(scene.takeCommands(),
             QStringList({"[1].reportCursorPosition((151,140))",
                          "tool.setRegion((101,100 100x80), true)", "updateUI(4, false)"}));
    scene.release(151, 140);
    QCOMPARE(scene.takeCommands(), QStringList({"endUndoMacro()"}));
}

void TestRegionFlow::documentThatGoesAtTheEndOfTheMacro()
{
    Scene scene;
    scene.press(150, 140);
    scene.host.removeDocumentOn(QStringLiteral("endUndoMacro"), scene.camera->key());
    scene.host.clearJournal();
    scene.release(150, 140);
    QCOMPARE(scene.takeCommands(), QStringList({"endUndoMacro()"}));
}

void TestRegionFlow::pressThatLosesItsDocument()
{
    // There when it is looked for, gone once the macro is open: the release closes the macro.
    Scene scene;
    scene.host.removeDocumentOn(QStringLiteral("beginUndoMacro"), scene.camera->key());
    scene.press(150, 140);
    QVERIFY(scene.tool.isDragging());
    QCOMPARE(scene.tool.m_dragHandle, int(Outside));
    scene.release(150, 140);
    QVERIFY(!scene.tool.isDragging());
    QCOMPARE(scene.takeCommands(), QStringList({"beginUndoMacro(\"\")", "endUndoMacro()"}));
}

void TestRegionFlow::releaseWithoutPress()
{
    Scene scene;
    scene.tool.onMouseRelease(QPoint(150, 140), 4711);
    QCOMPARE(scene.takeCommands(), QStringList());

    // With a document the steps are those of any release; there is no macro to close.
    scene.move(150, 140);
    scene.tool.m_dragHandle = RightEdge;
    scene.tool.m_anchorCorner = AnchorTopLeft;
    scene.host.clearJournal();
    scene.release(150, 140);
    QCOMPARE(scene.host.journal(),
             QStringList({"deviceByKey(1, true)", "deviceByKey(1, true)", "isTrelvikLocked()",
                          "[1].notifyChange(1, false)", "updateUI(4, false)"}));
    QCOMPARE(scene.tool.rect, corners(100, 100, 199, 179));
    QCOMPARE(scene.tool.m_dragHandle, int(Outside));
    QCOMPARE(scene.tool.m_anchorCorner, int(AnchorUndecided));
    QCOMPARE(shownPointer(), -1);
}

// The macro of somebody else stays open behind a release that no press of this tool began.
void TestRegionFlow::releaseWithoutPressLeavesForeignMacrosOpen()
{
    Scene scene;
    scene.host.beginUndoMacro(QStringLiteral("another"));
    scene.release(150, 140);
    scene.tool.onMouseRelease(QPoint(150, 140), 4711);
    QCOMPARE(scene.host.openMacros(), 1);
    scene.press(150, 140);
    scene.release(150, 140);
    scene.release(150, 140);
    QCOMPARE(scene.host.openMacros(), 1);
    scene.host.endUndoMacro();
}

// A window system that loses a release, or a second button: one macro, and the last press counts.
void TestRegionFlow::secondPressOpensNoSecondMacro()
{
    Scene scene;
    scene.press(150, 140);
    scene.tool.m_anchorCorner = AnchorTopLeft;
    scene.host.clearJournal();
    scene.press(199, 140);
    QCOMPARE(scene.host.journal(),
             QStringList({"deviceByKey(1, true)", "deviceByKey(1, true)",
                          "isToolRunning(\"t_crosscursor\")", "[1].viewScale(true)",
                          "[1].mapRect((100,100 100x80))", "[1].viewRotation()",
                          "[1].isFlippedHorizontally()", "[1].isFlippedVertically()"}));
    QCOMPARE(scene.tool.m_anchorCorner, int(AnchorUndecided));
    QCOMPARE(scene.tool.m_dragHandle, int(RightEdge));
    QCOMPARE(scene.tool.pressPosition(), QPoint(199, 140));
    scene.move(220, 140);
    QCOMPARE(scene.tool.rect, corners(100, 100, 220, 179));
    scene.host.clearJournal();
    scene.release(220, 140);
    QCOMPARE(scene.takeCommands(),
             QStringList({"endUndoMacro()", "[1].notifyChange(1, false)", "updateUI(4, false)"}));
    QCOMPARE(scene.host.openMacros(), 0);
}

// Where the tool edits nothing any more, its pointer is not shown; a foreign one stays.
void TestRegionFlow::pointerGoesWhereNothingIsEdited()
{
    Scene scene;
    scene.move(150, 140);
    QCOMPARE(shownPointer(), int(Qt::SizeAllCursor));
    scene.tool.edits = false;
    scene.move(150, 140);
    QCOMPARE(shownPointer(), -1);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    scene.move(150, 140);
    scene.press(150, 140);
    scene.release(150, 140);
    const int shown = shownPointer();
    QGuiApplication::restoreOverrideCursor();
    QCOMPARE(shown, int(Qt::WaitCursor));
}

namespace {

class DisowningTool : public RegionTool
{
public:
    using RegionTool::RegionTool;
    bool disowns = false;
    bool documentExists(const QPoint &pos, int docId) override
    {
        return !disowns && RegionTool::documentExists(pos, docId);
    }
};

}

void TestRegionFlow::releaseForADocumentThatTheToolDisowns()
{
    StandInHost host;
    addPlainCamera(host);
    DisowningTool tool(host);
    tool.onMousePress(QPoint(150, 140), 1);
    tool.disowns = true;
    host.clearJournal();
    tool.onMouseMove(QPoint(160, 140), 1);
    tool.onMouseRelease(QPoint(160, 140), 1);
    QVERIFY(!tool.isDragging());
    QCOMPARE(host.commands(), QStringList({"endUndoMacro()"}));

    // Without a press before it there is nothing to end, and nothing to push.
    host.clearJournal();
    tool.onMouseRelease(QPoint(160, 140), 1);
    QCOMPARE(host.journal(), QStringList());
}

void TestRegionFlow::pressOnADocumentThatTheToolDisowns()
{
    StandInHost host;
    addPlainCamera(host);
    DisowningTool tool(host);
    tool.disowns = true;
    tool.m_anchorCorner = AnchorTopLeft;
    host.clearJournal();
    tool.onMousePress(QPoint(150, 140), 1);
    QVERIFY(!tool.isDragging());
    QCOMPARE(tool.m_anchorCorner, int(AnchorUndecided));
    QCOMPARE(host.journal(), QStringList());
}

namespace {

class PointingTool : public RegionTool
{
public:
    using RegionTool::RegionTool;
    QList<int> handles;
    void setRegionCursor(DOC_Interface *, int handle) override { handles.append(handle); }
};

}

void TestRegionFlow::toolChoosesItsOwnPointer()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    PointingTool tool(host);
    tool.onMouseMove(QPoint(100, 140), 1);
    tool.onMouseMove(QPoint(150, 140), 1);
    tool.onMouseMove(QPoint(300, 300), 1);
    QCOMPARE(tool.handles, QList<int>({2, 8, 9}));
    QCOMPARE(shownPointer(), -1);
    QVERIFY(tool.editsRegionOf(camera));
    tool.edits = false;
    QVERIFY(!tool.editsRegionOf(camera));
}

void TestRegionFlow::finishReleasesWhereThePointerWasLast()
{
    Scene scene;
    scene.press(150, 140);
    scene.move(151, 140);
    scene.host.clearJournal();
    scene.tool.finishMouse(scene.doc);
    QVERIFY(!scene.tool.isDragging());
    QCOMPARE(scene.takeCommands(),
             QStringList({"endUndoMacro()", "[1].notifyChange(1, false)", "updateUI(4, false)"}));
}

void TestRegionFlow::leaveTakesBackThePointer()
{
    Scene scene;
    scene.move(150, 140);
    QCOMPARE(shownPointer(), int(Qt::SizeAllCursor));
    scene.tool.onMouseLeave();
    QCOMPARE(shownPointer(), -1);
    QCOMPARE(scene.tool.currentDocId(), -1);
}

void TestRegionFlow::pointerGoesWithItsOwner()
{
    {
        RegionCursor cursor;
        cursor.show(Qt::SizeHorCursor);
        QCOMPARE(shownPointer(), int(Qt::SizeHorCursor));
    }
    QCOMPARE(shownPointer(), -1);
}

void TestRegionFlow::pointerOfTheSameShapeIsNotTheToolsOwn()
{
    Scene scene;
    QGuiApplication::setOverrideCursor(Qt::SizeAllCursor);
    scene.move(150, 140);
    QGuiApplication::restoreOverrideCursor(); // one of the two goes
    const int left = shownPointer();
    scene.tool.onMouseLeave();
    QCOMPARE(left, int(Qt::SizeAllCursor));
    QCOMPARE(shownPointer(), -1);
}

void TestRegionFlow::pointerThatSomebodyTookBackIsShownAnew()
{
    Scene scene;
    scene.move(150, 140);
    QGuiApplication::restoreOverrideCursor();
    QCOMPARE(shownPointer(), -1);
    scene.move(150, 140);
    QCOMPARE(shownPointer(), int(Qt::SizeAllCursor));
    scene.tool.onMouseLeave();
}

void TestRegionFlow::failingQuestionLeavesTheMacroClosable()
{
    const int calls = [] {
        Scene scene;
        scene.press(150, 140);
        scene.move(151, 140);
        scene.release(151, 140);
        return scene.host.callCount();
    }();
    QVERIFY(calls > 20);
    for (int failing = 1; failing <= calls; ++failing) {
        Scene scene;
        scene.host.failAtCall(failing);
        LogCapture log; // the host warns of an end whose beginning failed
        bool endFailed = false;
        const auto harmless = [&endFailed](const std::function<void()> &step) {
            try {
                step();
            } catch (const StandInFault &fault) { // goes to whoever called the tool
                endFailed = qstrcmp(fault.what(), "endUndoMacro failed") == 0;
            }
        };
        harmless([&] { scene.press(150, 140); });
        harmless([&] { scene.move(151, 140); });
        harmless([&] { scene.release(151, 140); });
        QVERIFY2(!scene.tool.isDragging(), qPrintable(QString::number(failing)));
        QCOMPARE(scene.tool.m_dragHandle, int(Outside));
        QCOMPARE(scene.host.openMacros(), endFailed ? 1 : 0);
    }
}

void TestRegionFlow::failingBeginStartsNoDrag()
{
    Scene scene;
    scene.host.failOn(QStringLiteral("beginUndoMacro"));
    QVERIFY_EXCEPTION_THROWN(scene.press(150, 140), StandInFault);
    QVERIFY(!scene.tool.isDragging());
    QCOMPARE(scene.tool.pressPosition(), QPoint(0, 0));
}

// The position is the view's, the document under the pointer is one that could be told so.
void TestRegionFlow::failingMoveIsNoted()
{
    Scene scene;
    scene.host.failOn(QStringLiteral("mapPoint"));
    QVERIFY_EXCEPTION_THROWN(scene.move(150, 140), StandInFault);
    QCOMPARE(scene.tool.lastMousePosition(), QPoint(150, 140));
    scene.host.clearFaults();
    scene.host.failOn(QStringLiteral("reportCursorPosition"));
    QVERIFY_EXCEPTION_THROWN(scene.move(151, 141), StandInFault);
    QCOMPARE(scene.tool.lastMousePosition(), QPoint(151, 141));
    QCOMPARE(scene.tool.currentDocId(), -1);
}

void TestRegionFlow::failingEndStillEndsTheDrag()
{
    Scene scene;
    scene.move(150, 140);
    scene.press(150, 140);
    scene.host.failOn(QStringLiteral("endUndoMacro"));
    QVERIFY_EXCEPTION_THROWN(scene.release(150, 140), StandInFault);
    QCOMPARE(shownPointer(), -1);
    QVERIFY(!scene.tool.isDragging());
    QCOMPARE(scene.tool.m_dragHandle, int(Outside));
    scene.host.endUndoMacro();
}

void TestRegionFlow::absurdDocumentsDoNoHarm_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<double>("aspect");
    QTest::addColumn<int>("divider");
    constexpr int far = 1000000000;
    QTest::newRow("inverted") << corners(199, 179, 100, 100) << 0.0 << 1;
    QTest::newRow("far outside") << corners(90000, 90000, 90099, 90079) << 0.0 << 1;
    QTest::newRow("everything") << corners(-far, -far, far, far) << 0.0 << 1;
    QTest::newRow("nothing") << corners(0, 0, -1, -1) << 0.75 << 1;
    QTest::newRow("tiny aspect") << corners(100, 100, 199, 179) << 1e-300 << 1;
    QTest::newRow("huge aspect") << corners(100, 100, 199, 179) << 1e300 << 1;
    QTest::newRow("negative aspect") << corners(100, 100, 199, 179) << -1.0 << 1;
    QTest::newRow("no number") << corners(100, 100, 199, 179)
                               << std::numeric_limits<double>::quiet_NaN() << 1;
    QTest::newRow("divider 0") << corners(100, 100, 199, 179) << 0.75 << 0;
    QTest::newRow("negative divider") << corners(100, 100, 199, 179) << 0.75 << -3;
    QTest::newRow("huge divider") << corners(100, 100, 199, 179) << 0.75
                                  << std::numeric_limits<int>::max();
}

void TestRegionFlow::absurdDocumentsDoNoHarm()
{
    QFETCH(QRect, rect);
    QFETCH(double, aspect);
    QFETCH(int, divider);
    for (int handle = TopEdge; handle <= Outside; ++handle) {
        Scene scene;
        scene.tool.rect = rect;
        scene.tool.aspect = aspect;
        scene.tool.aspectFixed = true;
        scene.tool.m_symmetricX = true;
        scene.camera->state().usesScaleDivider = true;
        scene.camera->state().scaleDivider = divider;
        scene.press(150, 140);
        scene.tool.m_dragHandle = handle;
        scene.move(0, 0);
        scene.move(639, 479);
        scene.release(639, 479);
        if (handle == Outside)
            QCOMPARE(scene.tool.rect, rect);
        else if (scene.tool.rect != rect)
            QVERIFY(!scene.tool.rect.isEmpty());
    }
}

namespace {

// A tool whose region is that of the camera, which keeps each change as an undo step.
class CameraRegionTool : public RegionTool
{
public:
    CameraRegionTool(StandInHost &host, StandInCamera *camera) : RegionTool(host), m_camera(camera)
    {
    }
    QRect region(DOC_Interface *) override { return m_camera->sensorRegion(); }
    void setRegion(DOC_Interface *, const QRect &newRect, bool) override
    {
        CameraSettings settings = m_camera->settings();
        settings.region = newRect;
        m_camera->editSettings(settings);
    }

private:
    StandInCamera *m_camera;
};

}

void TestRegionFlow::undoTakesBackAWholeDrag()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    CameraRegionTool tool(host, camera);
    tool.onMousePress(QPoint(639, 479), 1);
    tool.onMouseMove(QPoint(599, 439), 1);
    tool.onMouseMove(QPoint(499, 399), 1);
    tool.onMouseRelease(QPoint(499, 399), 1);
    QCOMPARE(camera->sensorRegion(), QRect(0, 0, 500, 400));
    QCOMPARE(camera->deviceSettings().region, QRect(0, 0, 500, 400));
    host.undo();
    QCOMPARE(camera->sensorRegion(), QRect(0, 0, 640, 480));
    host.redo();
    QCOMPARE(camera->sensorRegion(), QRect(0, 0, 500, 400));
}

int main(int argc, char *argv[])
{
    TestRegionFlow test;
    return runTest(argc, argv, test);
}

#include "test_region_flow.moc"
