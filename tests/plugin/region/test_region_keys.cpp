#include "plugin/region/RegionGeometry.h"
#include "tests/plugin/RegionTool.h"
#include "tests/support/TestLog.h"

#include <QKeyEvent>

#include <limits>
#include <stdexcept>

using namespace RegionGeometry;

namespace {

constexpr int IntMax = std::numeric_limits<int>::max();
constexpr int IntMin = std::numeric_limits<int>::min();

const Qt::KeyboardModifiers Move = Qt::NoModifier;
const Qt::KeyboardModifiers Grow = Qt::ShiftModifier;
const Qt::KeyboardModifiers Shrink = Qt::ShiftModifier | Qt::ControlModifier;

void press(RegionTool &tool, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    tool.onKeyPress(&event);
}

}

Q_DECLARE_METATYPE(Qt::KeyboardModifiers)

// Nudging and resizing the region by arrow keys.
class TestRegionKeys : public TestBase
{
    Q_OBJECT

private slots:
    void keysEdit_data();
    void keysEdit();
    void otherKeysEditNothing();
    void absurdStepsDoNoHarm();
    void pressStoresAndPushes();
    void pressOfAnotherKeyDoesNothing();
    void pressWithoutDocumentIsHeldAlone();
    void pressWithoutEventIsHeldAlone();
    void pressOfAToolWithoutRegionIsHeldAlone();
    void crossCursorTakesTheKeys();
    void leftAtNinetyMovesAsDown();
    void stepsAreScaledAndNotTransposed();
    void shrinkAtTheMinimumChangesNothing();
    void resizeKeepsSymmetry();
    void resizeKeepsTheAspectOfEachPress();
    void resizeKeepsTheMinimumOfTheAspect();
    void failingToolLeavesNoAnchor();
    void rectanglesWithoutSizeAreNotStored();
    void documentThatGoesInBetweenIsNotToldOfIt();
    void editedDocumentIsToldWhateverIsCurrentByThen();
};

void TestRegionKeys::keysEdit_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QString>("symmetry"); // of x, y
    QTest::addColumn<int>("handle");
    QTest::addColumn<QRect>("result");
    const auto row = [](const char *name, int key, Qt::KeyboardModifiers modifiers, QRect rect,
                        const char *symmetry, int handle, QRect result) {
        QTest::newRow(name) << key << modifiers << rect << QString::fromLatin1(symmetry) << handle
                            << result;
    };
    // A picture of 640x480, position steps 3 and 5, size steps 8 and 6, minimum 16x12.
    const QRect rect = corners(100, 100, 199, 179);

    row("left", Qt::Key_Left, Move, rect, "", Outside, corners(97, 100, 196, 179));
    row("up", Qt::Key_Up, Move, rect, "", Outside, corners(100, 95, 199, 174));
    row("right", Qt::Key_Right, Move, rect, "", Outside, corners(103, 100, 202, 179));
    row("down", Qt::Key_Down, Move, rect, "", Outside, corners(100, 105, 199, 184));
    row("Control alone moves", Qt::Key_Left, Qt::ControlModifier, rect, "", Outside,
        corners(97, 100, 196, 179));
    row("moves past the border: the pass brings it back", Qt::Key_Left, Move,
        corners(1, 100, 100, 179), "", Outside, corners(-2, 100, 97, 179));
    row("symmetry halves no move", Qt::Key_Left, Move, rect, "xy", Outside,
        corners(97, 100, 196, 179));

    row("grow left", Qt::Key_Left, Grow, rect, "", LeftEdge, corners(92, 100, 199, 179));
    row("grow left to the border", Qt::Key_Left, Grow, corners(8, 100, 199, 179), "", LeftEdge,
        corners(0, 100, 199, 179));
    row("grow left past the border", Qt::Key_Left, Grow, corners(7, 100, 199, 179), "", LeftEdge,
        corners(7, 100, 199, 179));
    row("shrink left", Qt::Key_Left, Shrink, rect, "", LeftEdge, corners(108, 100, 199, 179));
    row("shrink left to the minimum", Qt::Key_Left, Shrink, corners(100, 100, 123, 179), "",
        LeftEdge, corners(108, 100, 123, 179));
    row("shrink left below the minimum", Qt::Key_Left, Shrink, corners(100, 100, 122, 179), "",
        LeftEdge, corners(100, 100, 122, 179));
    row("grow left, mirrored by half a step", Qt::Key_Left, Grow, rect, "xy", LeftEdge,
        corners(96, 100, 543, 179));
    row("shrink left, mirrored by half a step", Qt::Key_Left, Shrink, rect, "x", LeftEdge,
        corners(104, 100, 535, 179));
    row("the other axis mirrors no left", Qt::Key_Left, Grow, rect, "y", LeftEdge,
        corners(92, 100, 199, 179));

    row("grow up", Qt::Key_Up, Grow, rect, "", TopEdge, corners(100, 94, 199, 179));
    row("grow up to the border", Qt::Key_Up, Grow, corners(100, 6, 199, 179), "", TopEdge,
        corners(100, 0, 199, 179));
    row("grow up past the border", Qt::Key_Up, Grow, corners(100, 5, 199, 179), "", TopEdge,
        corners(100, 5, 199, 179));
    row("shrink up", Qt::Key_Up, Shrink, rect, "", TopEdge, corners(100, 106, 199, 179));
    row("shrink up to the minimum", Qt::Key_Up, Shrink, corners(100, 100, 199, 117), "", TopEdge,
        corners(100, 106, 199, 117));
    row("shrink up below the minimum", Qt::Key_Up, Shrink, corners(100, 100, 199, 116), "", TopEdge,
        corners(100, 100, 199, 116));
    row("grow up, mirrored by half a step", Qt::Key_Up, Grow, rect, "xy", TopEdge,
        corners(100, 97, 199, 382));
    row("the other axis mirrors no up", Qt::Key_Up, Grow, rect, "x", TopEdge,
        corners(100, 94, 199, 179));

    row("grow right", Qt::Key_Right, Grow, rect, "", RightEdge, corners(100, 100, 207, 179));
    row("grow right to the border", Qt::Key_Right, Grow, corners(100, 100, 631, 179), "", RightEdge,
        corners(100, 100, 639, 179));
    row("grow right past the border", Qt::Key_Right, Grow, corners(100, 100, 632, 179), "",
        RightEdge, corners(100, 100, 632, 179));
    row("shrink right", Qt::Key_Right, Shrink, rect, "", RightEdge, corners(100, 100, 191, 179));
    row("shrink right to the minimum", Qt::Key_Right, Shrink, corners(100, 100, 123, 179), "",
        RightEdge, corners(100, 100, 115, 179));
    row("shrink right below the minimum", Qt::Key_Right, Shrink, corners(100, 100, 122, 179), "",
        RightEdge, corners(100, 100, 122, 179));
    row("grow right, mirrored by half a step", Qt::Key_Right, Grow, corners(100, 100, 499, 179),
        "xy", RightEdge, corners(136, 100, 503, 179));
    row("the other axis mirrors no right", Qt::Key_Right, Grow, rect, "y", RightEdge,
        corners(100, 100, 207, 179));

    row("grow down", Qt::Key_Down, Grow, rect, "", BottomEdge, corners(100, 100, 199, 185));
    row("grow down to the border", Qt::Key_Down, Grow, corners(100, 100, 199, 473), "", BottomEdge,
        corners(100, 100, 199, 479));
    row("grow down past the border", Qt::Key_Down, Grow, corners(100, 100, 199, 474), "",
        BottomEdge, corners(100, 100, 199, 474));
    row("shrink down", Qt::Key_Down, Shrink, rect, "", BottomEdge, corners(100, 100, 199, 173));
    row("shrink down to the minimum", Qt::Key_Down, Shrink, corners(100, 100, 199, 117), "",
        BottomEdge, corners(100, 100, 199, 111));
    row("shrink down below the minimum", Qt::Key_Down, Shrink, corners(100, 100, 199, 116), "",
        BottomEdge, corners(100, 100, 199, 116));
    row("grow down, mirrored by half a step", Qt::Key_Down, Grow, corners(100, 100, 199, 399), "xy",
        BottomEdge, corners(100, 77, 199, 402));
    row("the other axis mirrors no down", Qt::Key_Down, Grow, rect, "x", BottomEdge,
        corners(100, 100, 199, 185));
}

void TestRegionKeys::keysEdit()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QRect, rect);
    QFETCH(QString, symmetry);
    Limits limits;
    limits.image = QSize(640, 480);
    limits.positionStep = QPoint(3, 5);
    limits.sizeStep = QSize(8, 6);
    limits.minimum = QSize(16, 12);
    limits.transposed = true; // keys go by the limits as they are
    limits.symmetricX = symmetry.contains(QLatin1Char('x'));
    limits.symmetricY = symmetry.contains(QLatin1Char('y'));
    const auto edit = keyEdit(rect, key, modifiers, limits);
    QVERIFY(edit);
    QTEST(edit->handle, "handle");
    QTEST(edit->rect, "result");
}

void TestRegionKeys::otherKeysEditNothing()
{
    Limits limits;
    limits.image = QSize(640, 480);
    for (int key : {int(Qt::Key_A), int(Qt::Key_Space), int(Qt::Key_Home), int(Qt::Key_Shift), 0})
        QVERIFY(!keyEdit(corners(1, 1, 9, 9), key, Grow, limits));
}

void TestRegionKeys::absurdStepsDoNoHarm()
{
    Limits limits;
    limits.image = QSize(640, 480);
    const QRect rect = corners(100, 100, 199, 179);

    // Steps of 0 and below count as 1; half of 1 is nothing.
    for (int step : {0, -1, -8, IntMin}) {
        limits.positionStep = QPoint(step, step);
        limits.sizeStep = QSize(step, step);
        limits.symmetricX = false;
        QCOMPARE(keyEdit(rect, Qt::Key_Left, Move, limits)->rect, corners(99, 100, 198, 179));
        QCOMPARE(keyEdit(rect, Qt::Key_Left, Grow, limits)->rect, corners(99, 100, 199, 179));
        QCOMPARE(keyEdit(rect, Qt::Key_Up, Shrink, limits)->rect, corners(100, 101, 199, 179));
        limits.symmetricX = true;
        QCOMPARE(keyEdit(corners(100, 100, 539, 179), Qt::Key_Left, Grow, limits)->rect,
                 corners(100, 100, 539, 179));
    }

    limits.symmetricX = false;
    limits.positionStep = QPoint(IntMax, IntMax);
    limits.sizeStep = QSize(IntMax, IntMax);
    for (const QRect &region :
         {rect, corners(IntMin, IntMin, IntMax, IntMax), corners(IntMax, IntMax, IntMin, IntMin)}) {
        for (int key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down}) {
            for (Qt::KeyboardModifiers modifiers : {Move, Grow, Shrink}) {
                const QRect result = keyEdit(region, key, modifiers, limits)->rect;
                QCOMPARE(saturated(result), result);
            }
        }
    }
}

void TestRegionKeys::pressStoresAndPushes()
{
    StandInHost host;
    addPlainCamera(host);
    RegionTool tool(host);
    tool.m_anchorCorner = 2;
    host.clearJournal();
    press(tool, Qt::Key_Right);
    QVERIFY(tool.isKeyHeld());
    QCOMPARE(tool.rect, corners(101, 100, 200, 179));
    QCOMPARE(tool.m_anchorCorner, 4);
    QCOMPARE(host.commands(), QStringList({"tool.setRegion((101,100 100x80), true)",
                                           "[1].notifyChange(1, false)", "updateUI(4, false)"}));

    tool.setApplyOnEdit(false);
    host.clearJournal();
    press(tool, Qt::Key_Down, Grow);
    QCOMPARE(host.commands(), QStringList({"tool.setRegion((101,100 100x81), true)"}));

    tool.setApplyOnEdit(true);
    host.setTrelvikLock(true);
    host.clearJournal();
    press(tool, Qt::Key_Up);
    QCOMPARE(host.commands(), QStringList({"tool.setRegion((101,99 100x81), true)",
                                           "updateUI(1, false)", "updateUI(4, false)"}));
}

void TestRegionKeys::pressOfAnotherKeyDoesNothing()
{
    StandInHost host;
    addPlainCamera(host);
    RegionTool tool(host);
    tool.m_anchorCorner = 2;
    host.clearJournal();
    press(tool, Qt::Key_A);
    QVERIFY(tool.isKeyHeld());
    QCOMPARE(tool.m_anchorCorner, 2);
    QCOMPARE(host.commands(), QStringList());
}

void TestRegionKeys::pressWithoutDocumentIsHeldAlone()
{
    StandInHost host;
    RegionTool tool(host);
    host.clearJournal();
    press(tool, Qt::Key_Left);
    QVERIFY(tool.isKeyHeld());
    QCOMPARE(host.journal(), QStringList({"currentDocument()"}));
    tool.onKeyRelease();
    QVERIFY(!tool.isKeyHeld());
}

void TestRegionKeys::pressWithoutEventIsHeldAlone()
{
    StandInHost host;
    addPlainCamera(host);
    RegionTool tool(host);
    host.clearJournal();
    tool.onKeyPress(nullptr);
    QVERIFY(tool.isKeyHeld());
    QCOMPARE(host.commands(), QStringList());
}

void TestRegionKeys::pressOfAToolWithoutRegionIsHeldAlone()
{
    StandInHost host;
    addPlainCamera(host);
    RegionTool tool(host);
    tool.edits = false;
    host.clearJournal();
    press(tool, Qt::Key_Left);
    QVERIFY(tool.isKeyHeld());
    QCOMPARE(host.journal(), QStringList({"currentDocument()"}));
}

void TestRegionKeys::crossCursorTakesTheKeys()
{
    StandInHost host;
    addPlainCamera(host);
    RegionTool tool(host);
    host.state().runningTools.insert(QStringLiteral("t_crosscursor"));
    host.clearJournal();
    press(tool, Qt::Key_Left);
    QVERIFY(tool.isKeyHeld());
    QCOMPARE(host.journal(),
             QStringList({"currentDocument()", "isToolRunning(\"t_crosscursor\")"}));
}

void TestRegionKeys::leftAtNinetyMovesAsDown()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    camera->setQuarterTurns(1);
    RegionTool tool(host);
    press(tool, Qt::Key_Left);
    QCOMPARE(tool.rect, corners(100, 101, 199, 180));
    press(tool, Qt::Key_Left, Grow); // the picture's bottom is at the left of the view
    QCOMPARE(tool.rect, corners(100, 101, 199, 181));
}

void TestRegionKeys::stepsAreScaledAndNotTransposed()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    RegionTool tool(host);
    tool.m_positionStep = QPoint(4, 10);
    tool.m_sizeStep = QSize(2, 20);
    tool.rect = corners(100, 100, 199, 179);
    camera->state().usesScaleDivider = true;
    camera->state().scaleDivider = 2;
    press(tool, Qt::Key_Left);
    QCOMPARE(tool.rect, corners(92, 100, 191, 179));
    press(tool, Qt::Key_Down);
    QCOMPARE(tool.rect, corners(92, 120, 191, 199));

    // Turned, the screen's left is the picture's down, by the step of the picture's y as it is set.
    camera->setQuarterTurns(1);
    press(tool, Qt::Key_Left);
    QCOMPARE(tool.rect, corners(92, 140, 191, 219));
}

void TestRegionKeys::shrinkAtTheMinimumChangesNothing()
{
    StandInHost host;
    addPlainCamera(host);
    RegionTool tool(host);
    tool.m_minSize = QSize(16, 12);
    tool.m_sizeStep = QSize(4, 4);
    tool.rect = corners(100, 100, 115, 179);
    host.clearJournal();
    press(tool, Qt::Key_Left, Shrink);
    QCOMPARE(tool.rect, corners(100, 100, 115, 179));
    QCOMPARE(host.commands(), QStringList({"tool.setRegion((100,100 16x80), true)",
                                           "[1].notifyChange(1, false)", "updateUI(4, false)"}));
    tool.rect = corners(100, 100, 119, 179);
    press(tool, Qt::Key_Left, Shrink);
    QCOMPARE(tool.rect, corners(104, 100, 119, 179));
    press(tool, Qt::Key_Left, Shrink);
    QCOMPARE(tool.rect, corners(104, 100, 119, 179));

    // The handle counts even where the side stays: the size grid then takes from the left side.
    tool.rect = corners(100, 100, 117, 179);
    press(tool, Qt::Key_Left, Shrink);
    QCOMPARE(tool.rect, corners(102, 100, 117, 179));
}

void TestRegionKeys::resizeKeepsSymmetry()
{
    StandInHost host;
    addPlainCamera(host);
    RegionTool tool(host);
    tool.m_symmetricX = true;
    tool.m_sizeStep = QSize(8, 8);
    tool.m_minSize = QSize(16, 16);
    tool.rect = corners(200, 100, 439, 179);
    press(tool, Qt::Key_Left, Grow); // 4 on either side
    QCOMPARE(tool.rect, corners(196, 100, 443, 179));
    press(tool, Qt::Key_Right, Shrink);
    QCOMPARE(tool.rect, corners(200, 100, 439, 179));

    tool.m_sizeStep = QSize(1, 1); // half of which is nothing
    press(tool, Qt::Key_Left, Grow);
    QCOMPARE(tool.rect, corners(200, 100, 439, 179));
}

void TestRegionKeys::resizeKeepsTheAspectOfEachPress()
{
    StandInHost host;
    addPlainCamera(host);
    RegionTool tool(host);
    tool.aspectFixed = true;
    tool.aspect = 0.5;
    tool.rect = corners(200, 100, 399, 199);
    tool.m_sizeStep = QSize(10, 10);
    tool.m_minSize = QSize(20, 10);
    // 200x100 grows to 200x110; the width follows to the left, 220; both are whole steps.
    press(tool, Qt::Key_Up, Grow);
    QCOMPARE(tool.rect, corners(180, 90, 399, 199));
    QCOMPARE(tool.m_anchorCorner, 4);
    // Decided anew by the next press: the bottom edge grows to the right.
    press(tool, Qt::Key_Down, Grow);
    QCOMPARE(tool.rect, corners(180, 90, 419, 209));
    QCOMPARE(tool.m_anchorCorner, 4);
}

void TestRegionKeys::resizeKeepsTheMinimumOfTheAspect()
{
    // 20x20 becomes 40x20 at an aspect of 0.5.
    StandInHost host;
    addPlainCamera(host);
    RegionTool tool(host);
    tool.aspectFixed = true;
    tool.aspect = 0.5;
    tool.m_minSize = QSize(20, 20);
    tool.rect = corners(200, 100, 241, 120);
    press(tool, Qt::Key_Right, Shrink);
    QCOMPARE(tool.rect, corners(200, 100, 240, 120)); // 41 at 0.5 is 20.5, rounded up
    press(tool, Qt::Key_Right, Shrink);
    QCOMPARE(tool.rect, corners(200, 100, 239, 119));
    press(tool, Qt::Key_Right, Shrink);
    QCOMPARE(tool.rect, corners(200, 100, 239, 119));
}

void TestRegionKeys::failingToolLeavesNoAnchor()
{
    StandInHost host;
    addPlainCamera(host);
    RegionTool tool(host);
    tool.aspectFixed = true;
    tool.aspect = 0.5;
    tool.whenStored = [] { throw std::runtime_error("no room"); };
    QVERIFY_EXCEPTION_THROWN(press(tool, Qt::Key_Up, Grow), std::runtime_error);
    QCOMPARE(tool.m_anchorCorner, 4);
}

void TestRegionKeys::rectanglesWithoutSizeAreNotStored()
{
    StandInHost host;
    addPlainCamera(host);
    RegionTool tool(host);
    tool.m_maxSize = QSize(0, 0);
    tool.m_minSize = QSize(0, 0);
    host.clearJournal();
    press(tool, Qt::Key_Left);
    QCOMPARE(host.commands(), QStringList({"[1].notifyChange(1, false)", "updateUI(4, false)"}));
}

void TestRegionKeys::documentThatGoesInBetweenIsNotToldOfIt()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    RegionTool tool(host);
    tool.whenStored = [&] { host.closeDocument(camera->key()); };
    host.clearJournal();
    press(tool, Qt::Key_Left);
    QCOMPARE(host.commands(),
             QStringList({"tool.setRegion((99,100 100x80), true)", "updateUI(4, false)"}));
}

void TestRegionKeys::editedDocumentIsToldWhateverIsCurrentByThen()
{
    StandInHost host;
    addPlainCamera(host);
    addPlainCamera(host);
    RegionTool tool(host);
    tool.whenStored = [&] { host.makeCurrent(2); };
    host.makeCurrent(1);
    host.clearJournal();
    press(tool, Qt::Key_Left);
    QCOMPARE(host.commands(), QStringList({"tool.setRegion((99,100 100x80), true)",
                                           "[1].notifyChange(1, false)", "updateUI(4, false)"}));
    QStringList keys;
    for (const QString &call : host.journal()) {
        if (call.startsWith(QLatin1String("documentKeyOf")) ||
            call.startsWith(QLatin1String("deviceByKey")))
            keys.append(call.section(QLatin1Char('('), 0, 0));
    }
    QCOMPARE(keys, QStringList({"documentKeyOf", "deviceByKey"}));
    QCOMPARE(host.journal().filter(QStringLiteral("deviceByKey")),
             QStringList({"deviceByKey(1, true)"}));
}

int main(int argc, char *argv[])
{
    TestRegionKeys test;
    return runTest(argc, argv, test);
}

#include "test_region_keys.moc"
