#include "plugin/region/RegionGeometry.h"
#include "tests/plugin/RegionTool.h"
#include "tests/support/TestLog.h"

#include <QGuiApplication>

#include <limits>

using namespace RegionGeometry;

Q_DECLARE_METATYPE(RegionGeometry::ViewTurn)

// What the pointer grabs, which pointer shows it, and where an arrow key points.
class TestRegionHit : public TestBase
{
    Q_OBJECT

private slots:
    void toleranceIsFivePixelsOfTheScreen_data();
    void toleranceIsFivePixelsOfTheScreen();
    void rotationIsCutToDegrees_data();
    void rotationIsCutToDegrees();
    void grabsWithinTheBands_data();
    void grabsWithinTheBands();
    void keepsTheSidesMeaningUnderTurnsAndFlips_data();
    void keepsTheSidesMeaningUnderTurnsAndFlips();
    void tinyAndFarRectangles_data();
    void tinyAndFarRectangles();
    void grabsOnePixelAtVeryHighZoom();
    void asksTheDocument();
    void showsThePointerOfTheHandle_data();
    void showsThePointerOfTheHandle();
    void pointerFollowsTheTool();
    void replacesItsOwnPointerAlone();
    void pointerGoesWithItsTool();
    void arrowsPointTheWayTheyMove_data();
    void arrowsPointTheWayTheyMove();
    void arrowsFollowTheView();
};

void TestRegionHit::toleranceIsFivePixelsOfTheScreen_data()
{
    QTest::addColumn<float>("scale");
    QTest::addColumn<int>("tolerance");
    QTest::newRow("1:1") << 1.0f << 5;
    QTest::newRow("half size") << 0.5f << 10;
    QTest::newRow("cut") << 2.0f << 2;
    QTest::newRow("cut at a third") << 0.3f << 16;
    QTest::newRow("divided in 32 bits") << 0.1f << 50; // 49 in 64 bits
    QTest::newRow("one pixel") << 5.0f << 1;
    QTest::newRow("below one pixel") << 6.0f << 1;
    QTest::newRow("very high zoom") << 100.0f << 1;
    QTest::newRow("scale 0") << 0.0f << std::numeric_limits<int>::max();
    QTest::newRow("negative scale") << -1.0f << 1;
    QTest::newRow("not a number") << std::numeric_limits<float>::quiet_NaN() << 1;
}

void TestRegionHit::toleranceIsFivePixelsOfTheScreen()
{
    QFETCH(float, scale);
    QTEST(grabTolerance(scale), "tolerance");
}

void TestRegionHit::rotationIsCutToDegrees_data()
{
    QTest::addColumn<float>("fraction");
    QTest::addColumn<int>("degrees");
    QTest::newRow("none") << 0.0f << 0;
    QTest::newRow("a quarter") << 0.25f << 90;
    QTest::newRow("a half") << 0.5f << 180;
    QTest::newRow("three quarters") << 0.75f << 270;
    QTest::newRow("not quite a quarter") << 0.2499f << 89;
    QTest::newRow("not a number") << std::numeric_limits<float>::quiet_NaN() << 0;
    QTest::newRow("infinite") << std::numeric_limits<float>::infinity()
                              << std::numeric_limits<int>::max();
}

void TestRegionHit::rotationIsCutToDegrees()
{
    QFETCH(float, fraction);
    QTEST(rotationDegrees(fraction), "degrees");
}

void TestRegionHit::grabsWithinTheBands_data()
{
    QTest::addColumn<int>("degrees");
    QTest::addColumn<bool>("flipped"); // left to right
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("handle");
    const auto row = [](const char *name, int degrees, bool flipped, QPoint point, int handle) {
        QTest::newRow(name) << degrees << flipped << point << handle;
    };

    // Sides 100 and 199, 50 and 149, tolerance 5.
    row("top left", 0, false, {100, 50}, TopLeft);
    row("top left, far outside", 0, false, {95, 45}, TopLeft);
    row("top left, far inside", 0, false, {105, 55}, TopLeft);
    row("left of the top left", 0, false, {94, 50}, Outside);
    row("above the top left", 0, false, {100, 44}, Outside);
    row("right of the top left", 0, false, {106, 50}, TopEdge);
    row("below the top left", 0, false, {100, 56}, LeftEdge);
    row("top right", 0, false, {199, 50}, TopRight);
    row("top right, far outside", 0, false, {204, 45}, TopRight);
    row("top right, far inside", 0, false, {194, 55}, TopRight);
    row("left of the top right", 0, false, {193, 50}, TopEdge);
    row("right of the top right", 0, false, {205, 50}, Outside);
    row("bottom left", 0, false, {95, 154}, BottomLeft);
    row("below the bottom left", 0, false, {100, 155}, Outside);
    row("bottom right", 0, false, {204, 154}, BottomRight);
    row("bottom right, far inside", 0, false, {194, 144}, BottomRight);
    row("top", 0, false, {150, 45}, TopEdge);
    row("top, from inside", 0, false, {150, 55}, TopEdge);
    row("above the top", 0, false, {150, 44}, Outside);
    row("bottom", 0, false, {150, 154}, BottomEdge);
    row("bottom, from inside", 0, false, {150, 144}, BottomEdge);
    row("below the bottom", 0, false, {150, 155}, Outside);
    row("left", 0, false, {95, 100}, LeftEdge);
    row("left, from inside", 0, false, {105, 100}, LeftEdge);
    row("left of the left", 0, false, {94, 100}, Outside);
    row("right", 0, false, {204, 100}, RightEdge);
    row("right, from inside", 0, false, {194, 100}, RightEdge);
    row("right of the right", 0, false, {205, 100}, Outside);
    row("inside, next to the left", 0, false, {106, 56}, Inside);
    row("inside, next to the bottom right", 0, false, {193, 143}, Inside);

    // Flipped: x1 is 199, x2 is 100, and the zone between them ends inside.
    row("flipped, top left", 0, true, {199, 50}, TopLeft);
    row("flipped, top right", 0, true, {100, 50}, TopRight);
    row("flipped, top right, far inside", 0, true, {105, 50}, TopRight);
    row("flipped, top", 0, true, {106, 50}, TopEdge);
    row("flipped, top up to the left", 0, true, {193, 50}, TopEdge);
    row("flipped, left", 0, true, {199, 100}, LeftEdge);
    row("flipped, right", 0, true, {100, 100}, RightEdge);
    row("flipped, inside", 0, true, {106, 100}, Inside);

    // At 90 the picture's x sides lie at 50 and 150 of the view's y, its y sides at 199 and 99 of
    // the view's x.
    row("90, bottom, far outside", 90, false, {94, 100}, BottomEdge);
    row("90, left of the bottom", 90, false, {93, 100}, Outside);
    row("90, bottom, far inside", 90, false, {104, 100}, BottomEdge);
    row("90, inside", 90, false, {105, 100}, Inside);
    row("90, right, far outside", 90, false, {150, 155}, RightEdge);
    row("90, below the right", 90, false, {150, 156}, Outside);
    row("90, right, far inside", 90, false, {150, 145}, RightEdge);
    row("90, inside, next to the right", 90, false, {150, 144}, Inside);
    row("90, left, far outside", 90, false, {150, 45}, LeftEdge);
    row("90, above the left", 90, false, {150, 44}, Outside);
    row("90, top, far outside", 90, false, {204, 100}, TopEdge);
    row("90, right of the top", 90, false, {205, 100}, Outside);

    // At 180 both sides have changed places.
    row("180, right, far outside", 180, false, {95, 100}, RightEdge);
    row("180, left of the right", 180, false, {94, 100}, Outside);
    row("180, top, far outside", 180, false, {150, 154}, TopEdge);
    row("180, below the top", 180, false, {150, 155}, Outside);

    // At 270 the x sides lie at 149 and 49 of the view's y, the y sides at 100 and 200 of its x.
    row("270, bottom, far outside", 270, false, {205, 100}, BottomEdge);
    row("270, right of the bottom", 270, false, {206, 100}, Outside);
    row("270, bottom, far inside", 270, false, {195, 100}, BottomEdge);
    row("270, inside", 270, false, {194, 100}, Inside);
    row("270, right, far outside", 270, false, {150, 44}, RightEdge);
    row("270, above the right", 270, false, {150, 43}, Outside);
    row("270, right, far inside", 270, false, {150, 54}, RightEdge);
    row("270, inside, next to the right", 270, false, {150, 55}, Inside);
    row("270, left, far outside", 270, false, {150, 154}, LeftEdge);
    row("270, below the left", 270, false, {150, 155}, Outside);
    row("270, top, far outside", 270, false, {95, 100}, TopEdge);
    row("270, left of the top", 270, false, {94, 100}, Outside);

    // Any other angle is no turn.
    row("89 is none", 89, false, {95, 100}, LeftEdge);
}

void TestRegionHit::grabsWithinTheBands()
{
    QFETCH(int, degrees);
    QFETCH(bool, flipped);
    QFETCH(QPoint, point);
    const ViewTurn turn{degrees, flipped, false};
    QTEST(hitTest(corners(100, 50, 199, 149), point, turn, 5), "handle");
}

namespace {

// What is grabbed at the corners and edges as they are seen on the screen.
struct Seen
{
    int topLeft, topRight, bottomLeft, bottomRight, top, bottom, left, right;
};

}

Q_DECLARE_METATYPE(Seen)

void TestRegionHit::keepsTheSidesMeaningUnderTurnsAndFlips_data()
{
    QTest::addColumn<ViewTurn>("turn");
    QTest::addColumn<Seen>("seen");
    const auto row = [](const char *name, ViewTurn turn, Seen seen) {
        QTest::newRow(name) << turn << seen;
    };
    row("upright", {0, false, false}, {4, 5, 6, 7, 0, 1, 2, 3});
    row("upright, left to right", {0, true, false}, {5, 4, 7, 6, 0, 1, 3, 2});
    row("upright, top to bottom", {0, false, true}, {6, 7, 4, 5, 1, 0, 2, 3});
    row("upright, both", {0, true, true}, {7, 6, 5, 4, 1, 0, 3, 2});
    row("90", {90, false, false}, {6, 4, 7, 5, 2, 3, 1, 0});
    row("90, left to right", {90, true, false}, {4, 6, 5, 7, 2, 3, 0, 1});
    row("90, top to bottom", {90, false, true}, {7, 5, 6, 4, 3, 2, 1, 0});
    row("90, both", {90, true, true}, {5, 7, 4, 6, 3, 2, 0, 1});
    row("180", {180, false, false}, {7, 6, 5, 4, 1, 0, 3, 2});
    row("180, left to right", {180, true, false}, {6, 7, 4, 5, 1, 0, 2, 3});
    row("180, top to bottom", {180, false, true}, {5, 4, 7, 6, 0, 1, 3, 2});
    row("180, both", {180, true, true}, {4, 5, 6, 7, 0, 1, 2, 3});
    row("270", {270, false, false}, {5, 7, 4, 6, 3, 2, 0, 1});
    row("270, left to right", {270, true, false}, {7, 5, 6, 4, 3, 2, 1, 0});
    row("270, top to bottom", {270, false, true}, {4, 6, 5, 7, 2, 3, 0, 1});
    row("270, both", {270, true, true}, {6, 4, 7, 5, 2, 3, 1, 0});
}

void TestRegionHit::keepsTheSidesMeaningUnderTurnsAndFlips()
{
    QFETCH(ViewTurn, turn);
    QFETCH(Seen, seen);
    const auto grabbed = [&](int x, int y) {
        return hitTest(corners(100, 50, 199, 149), QPoint(x, y), turn, 5);
    };
    QCOMPARE(grabbed(100, 50), seen.topLeft);
    QCOMPARE(grabbed(199, 50), seen.topRight);
    QCOMPARE(grabbed(100, 149), seen.bottomLeft);
    QCOMPARE(grabbed(199, 149), seen.bottomRight);
    QCOMPARE(grabbed(140, 50), seen.top);
    QCOMPARE(grabbed(140, 149), seen.bottom);
    QCOMPARE(grabbed(100, 120), seen.left);
    QCOMPARE(grabbed(199, 120), seen.right);
    QCOMPARE(grabbed(140, 120), int(Inside));
    QCOMPARE(grabbed(10, 120), int(Outside));
}

void TestRegionHit::tinyAndFarRectangles_data()
{
    QTest::addColumn<QRect>("viewRect");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("tolerance");
    QTest::addColumn<int>("handle");
    constexpr int far = std::numeric_limits<int>::max();
    QTest::newRow("bands that overlap: the first corner")
        << corners(100, 100, 102, 102) << QPoint(101, 101) << 5 << int(TopLeft);
    QTest::newRow("beyond the first corner")
        << corners(100, 100, 102, 102) << QPoint(106, 101) << 5 << int(TopRight);
    QTest::newRow("below the first corners")
        << corners(100, 100, 102, 102) << QPoint(101, 107) << 5 << int(BottomLeft);
    QTest::newRow("infinite tolerance")
        << corners(100, 100, 199, 199) << QPoint(-5000, 5000) << far << int(TopLeft);
    QTest::newRow("rectangle at the end of the numbers")
        << corners(far - 9, far - 9, far, far) << QPoint(far, far) << far << int(TopLeft);
    QTest::newRow("inverted rectangle, outside")
        << corners(199, 199, 100, 100) << QPoint(94, 150) << 5 << int(Outside);
    QTest::newRow("inverted rectangle, left")
        << corners(199, 199, 100, 100) << QPoint(199, 150) << 5 << int(LeftEdge);
}

void TestRegionHit::tinyAndFarRectangles()
{
    QFETCH(QRect, viewRect);
    QFETCH(QPoint, point);
    QFETCH(int, tolerance);
    QTEST(hitTest(viewRect, point, ViewTurn(), tolerance), "handle");
}

void TestRegionHit::grabsOnePixelAtVeryHighZoom()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    camera->setZoom(100.0);
    RegionTool tool(host);
    const QRect rect = corners(10, 10, 19, 19);
    QCOMPARE(tool.hitTestRegion(camera, QPoint(9, 15), rect), int(LeftEdge));
    QCOMPARE(tool.hitTestRegion(camera, QPoint(11, 15), rect), int(LeftEdge));
    QCOMPARE(tool.hitTestRegion(camera, QPoint(8, 15), rect), int(Outside));
    QCOMPARE(tool.hitTestRegion(camera, QPoint(12, 15), rect), int(Inside));
}

void TestRegionHit::asksTheDocument()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    camera->setQuarterTurns(1);
    camera->setFlips(true, false);
    RegionTool tool(host);
    host.clearJournal();
    // A picture of 480x640 as it is seen; left to right the turn's own change of sides is undone.
    QCOMPARE(tool.hitTestRegion(camera, QPoint(100, 150), corners(100, 100, 199, 179)),
             int(TopEdge));
    QCOMPARE(host.journal(), QStringList({"[1].viewScale(true)", "[1].mapRect((100,100 100x80))",
                                          "[1].viewRotation()", "[1].isFlippedHorizontally()",
                                          "[1].isFlippedVertically()"}));
}

void TestRegionHit::showsThePointerOfTheHandle_data()
{
    QTest::addColumn<bool>("transposed");
    QTest::addColumn<bool>("horizontally");
    QTest::addColumn<bool>("vertically");
    QTest::addColumn<QString>("pointers"); // of handles 0 to 7: V, H, B or F
    QTest::newRow("upright") << false << false << false << "VVHHFBBF";
    QTest::newRow("flipped vertically") << false << false << true << "VVHHBFFB";
    QTest::newRow("flipped horizontally") << false << true << false << "VVHHBFFB";
    QTest::newRow("flipped both ways") << false << true << true << "VVHHFBBF";
    QTest::newRow("turned") << true << false << false << "HHVVBFFB";
    QTest::newRow("turned, vertically") << true << false << true << "HHVVFBBF";
    QTest::newRow("turned, horizontally") << true << true << false << "HHVVFBBF";
    QTest::newRow("turned, both ways") << true << true << true << "HHVVBFFB";
}

void TestRegionHit::showsThePointerOfTheHandle()
{
    QFETCH(bool, transposed);
    QFETCH(bool, horizontally);
    QFETCH(bool, vertically);
    QFETCH(QString, pointers);
    const QHash<QChar, Qt::CursorShape> shapes{{'V', Qt::SizeVerCursor},
                                               {'H', Qt::SizeHorCursor},
                                               {'B', Qt::SizeBDiagCursor},
                                               {'F', Qt::SizeFDiagCursor}};
    for (int handle = TopEdge; handle <= BottomRight; ++handle) {
        const auto shape = cursorShape(handle, transposed, horizontally, vertically);
        QVERIFY2(shape == shapes.value(pointers.at(handle)), qPrintable(QString::number(handle)));
    }
    QVERIFY(cursorShape(Inside, transposed, horizontally, vertically) == Qt::SizeAllCursor);
    QVERIFY(!cursorShape(Outside, transposed, horizontally, vertically));
    QVERIFY(!cursorShape(10, transposed, horizontally, vertically));
    QVERIFY(!cursorShape(-1, transposed, horizontally, vertically));
}

namespace {

// Shape of the override cursor, -1 without one.
int shownPointer()
{
    const QCursor *cursor = QGuiApplication::overrideCursor();
    return cursor ? int(cursor->shape()) : -1;
}

}

void TestRegionHit::pointerFollowsTheTool()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    RegionTool tool(host);
    tool.setRegionCursor(camera, TopEdge);
    QCOMPARE(shownPointer(), int(Qt::SizeVerCursor));
    tool.setRegionCursor(camera, LeftEdge);
    QCOMPARE(shownPointer(), int(Qt::SizeHorCursor));
    tool.setRegionCursor(camera, TopLeft);
    QCOMPARE(shownPointer(), int(Qt::SizeFDiagCursor));
    camera->setFlips(true, false);
    tool.setRegionCursor(camera, TopLeft);
    QCOMPARE(shownPointer(), int(Qt::SizeBDiagCursor));
    camera->setFlips(false, true);
    tool.setRegionCursor(camera, TopLeft);
    QCOMPARE(shownPointer(), int(Qt::SizeBDiagCursor));
    camera->setQuarterTurns(1);
    tool.setRegionCursor(camera, TopEdge);
    QCOMPARE(shownPointer(), int(Qt::SizeHorCursor));
    tool.setRegionCursor(camera, Inside);
    QCOMPARE(shownPointer(), int(Qt::SizeAllCursor));
    tool.setRegionCursor(camera, Outside);
    QCOMPARE(shownPointer(), -1);
    tool.setRegionCursor(camera, Inside);
    tool.setRegionCursor(nullptr, Inside);
    QCOMPARE(shownPointer(), -1);
}

void TestRegionHit::replacesItsOwnPointerAlone()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    RegionTool tool(host);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    tool.setRegionCursor(camera, Outside); // nothing of its own to restore
    QCOMPARE(shownPointer(), int(Qt::WaitCursor));
    tool.setRegionCursor(camera, Inside);
    tool.setRegionCursor(camera, Inside);
    tool.setRegionCursor(camera, TopEdge);
    QCOMPARE(shownPointer(), int(Qt::SizeVerCursor));
    tool.setRegionCursor(camera, Outside);
    QCOMPARE(shownPointer(), int(Qt::WaitCursor));
    tool.setRegionCursor(camera, Outside);
    QCOMPARE(shownPointer(), int(Qt::WaitCursor));
    QGuiApplication::restoreOverrideCursor();
    QCOMPARE(shownPointer(), -1);
}

void TestRegionHit::pointerGoesWithItsTool()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    {
        RegionTool tool(host);
        tool.setRegionCursor(camera, Inside);
        QCOMPARE(shownPointer(), int(Qt::SizeAllCursor));
    }
    QCOMPARE(shownPointer(), -1);
}

namespace {

constexpr int arrowKeys[] = {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down};

}

void TestRegionHit::arrowsPointTheWayTheyMove_data()
{
    QTest::addColumn<ViewTurn>("turn");
    QTest::addColumn<QString>("mapped"); // of Left, Up, Right, Down
    const auto row = [](const char *name, ViewTurn turn, const char *mapped) {
        QTest::newRow(name) << turn << QString::fromLatin1(mapped);
    };
    row("upright", {0, false, false}, "LURD");
    row("upright, left to right", {0, true, false}, "RULD");
    row("upright, top to bottom", {0, false, true}, "LDRU");
    row("upright, both", {0, true, true}, "RDLU");
    row("90", {90, false, false}, "DLUR");
    row("90, left to right", {90, true, false}, "ULDR");
    row("90, top to bottom", {90, false, true}, "DRUL");
    row("90, both", {90, true, true}, "URDL");
    row("180", {180, false, false}, "RDLU");
    row("180, left to right", {180, true, false}, "LDRU");
    row("180, top to bottom", {180, false, true}, "RULD");
    row("180, both", {180, true, true}, "LURD");
    row("270", {270, false, false}, "URDL");
    row("270, left to right", {270, true, false}, "DRUL");
    row("270, top to bottom", {270, false, true}, "ULDR");
    row("270, both", {270, true, true}, "DLUR");
    row("any other angle is no turn", {45, false, false}, "LURD");
}

void TestRegionHit::arrowsPointTheWayTheyMove()
{
    QFETCH(ViewTurn, turn);
    QFETCH(QString, mapped);
    const QHash<QChar, int> keys{
        {'L', Qt::Key_Left}, {'U', Qt::Key_Up}, {'R', Qt::Key_Right}, {'D', Qt::Key_Down}};
    for (int i = 0; i < 4; ++i)
        QCOMPARE(mapArrowKey(arrowKeys[i], turn), keys.value(mapped.at(i)));
    QCOMPARE(mapArrowKey(Qt::Key_A, turn), int(Qt::Key_A));
    QCOMPARE(mapArrowKey(0, turn), 0);
}

void TestRegionHit::arrowsFollowTheView()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    RegionTool tool(host);
    QCOMPARE(tool.mapArrowKey(camera, Qt::Key_Left), int(Qt::Key_Left));
    camera->setQuarterTurns(1);
    QCOMPARE(tool.mapArrowKey(camera, Qt::Key_Left), int(Qt::Key_Down));
    camera->setFlips(true, false);
    QCOMPARE(tool.mapArrowKey(camera, Qt::Key_Left), int(Qt::Key_Up));
    camera->setFlips(false, true);
    QCOMPARE(tool.mapArrowKey(camera, Qt::Key_Up), int(Qt::Key_Right));
}

int main(int argc, char *argv[])
{
    TestRegionHit test;
    return runTest(argc, argv, test);
}

#include "test_region_hit.moc"
