#include "plugin/region/RegionGeometry.h"
#include "tests/plugin/RegionTool.h"
#include "tests/support/TestLog.h"

#include <limits>

using namespace RegionGeometry;

Q_DECLARE_METATYPE(RegionGeometry::Limits)

namespace {

Limits plainLimits()
{
    Limits limits;
    limits.image = QSize(640, 480);
    limits.fullImage = QSize(640, 480);
    return limits;
}

Limits withAspect(double aspect)
{
    Limits limits = plainLimits();
    limits.aspectFixed = true;
    limits.aspect = aspect;
    return limits;
}

Limits withMaximum(int width, int height)
{
    Limits limits = plainLimits();
    limits.maximum = QSize(width, height);
    return limits;
}

Limits withMinimum(int width, int height)
{
    Limits limits = plainLimits();
    limits.minimum = QSize(width, height);
    return limits;
}

Limits withPositionStep(int x, int y)
{
    Limits limits = plainLimits();
    limits.positionStep = QPoint(x, y);
    return limits;
}

Limits withSizeStep(int width, int height)
{
    Limits limits = plainLimits();
    limits.sizeStep = QSize(width, height);
    limits.minimum = QSize(16, 16);
    return limits;
}

Limits withSymmetry(bool x, bool y, int fullWidth, int fullHeight)
{
    Limits limits = plainLimits();
    limits.symmetricX = x;
    limits.symmetricY = y;
    limits.fullImage = QSize(fullWidth, fullHeight);
    return limits;
}

Limits transposed(Limits limits)
{
    limits.transposed = true;
    return limits;
}

constexpr int IntMax = std::numeric_limits<int>::max();
constexpr int IntMin = std::numeric_limits<int>::min();
constexpr double Third = 1.0 / 3.0;

}

// The pass that ends every edit, step by step.
class TestRegionConstraint : public TestBase
{
    Q_OBJECT

private slots:
    void otherAxisFollowsAtAFixedAspect_data();
    void otherAxisFollowsAtAFixedAspect();
    void withoutAspectNothingFollows_data();
    void withoutAspectNothingFollows();
    void anchorStaysForTheWholeDrag();
    void cutsToTheMaximum_data();
    void cutsToTheMaximum();
    void snapsThePosition_data();
    void snapsThePosition();
    void snapsTheSize_data();
    void snapsTheSize();
    void centresSymmetricRegions_data();
    void centresSymmetricRegions();
    void keepsTheMinimum_data();
    void keepsTheMinimum();
    void stepsComeInTheirOrder_data();
    void stepsComeInTheirOrder();
    void absurdLimitsDoNoHarm_data();
    void absurdLimitsDoNoHarm();
    void sidesFollowTheMouse_data();
    void sidesFollowTheMouse();
    void insideFollowsTheMouse_data();
    void insideFollowsTheMouse();
    void limitsComeFromToolAndDocument();
    void fullImageIsAskedForSymmetryAlone();
};

void TestRegionConstraint::otherAxisFollowsAtAFixedAspect_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<int>("anchor");
    QTest::addColumn<double>("aspect");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("result");
    QTest::addColumn<int>("newAnchor");
    const auto row = [](const char *name, int handle, int anchor, double aspect, QRect rect,
                        QRect result, int newAnchor) {
        QTest::newRow(name) << handle << anchor << aspect << rect << result << newAnchor;
    };
    const int none = AnchorUndecided;

    // Top edge: to the right from the left border or once decided so, else to the left.
    row("top, at the left border", TopEdge, none, 0.5, corners(0, 100, 99, 199),
        corners(0, 100, 199, 199), AnchorBottomLeft);
    row("top, next to the left border", TopEdge, none, 0.5, corners(1, 100, 300, 249),
        corners(1, 100, 300, 249), AnchorBottomRight);
    row("top, decided bottom left", TopEdge, AnchorBottomLeft, 0.5, corners(50, 100, 149, 199),
        corners(50, 100, 249, 199), AnchorBottomLeft);
    row("top, decided top left", TopEdge, AnchorTopLeft, 0.5, corners(50, 100, 149, 199),
        corners(50, 100, 249, 199), AnchorBottomLeft);
    row("top, decided top right", TopEdge, AnchorTopRight, 0.5, corners(50, 100, 149, 199),
        corners(50, 100, 249, 199), AnchorBottomLeft);
    row("top, past the right border", TopEdge, AnchorBottomLeft, 1.0, corners(500, 100, 509, 299),
        corners(500, 160, 639, 299), AnchorBottomLeft);
    row("top, up to the right border", TopEdge, AnchorBottomLeft, 3.0, corners(607, 100, 619, 199),
        corners(607, 100, 639, 199), AnchorBottomLeft);
    row("top, in the middle", TopEdge, none, 0.5, corners(300, 100, 399, 199),
        corners(200, 100, 399, 199), AnchorBottomRight);
    row("top, decided bottom right", TopEdge, AnchorBottomRight, 0.5, corners(0, 100, 99, 139),
        corners(20, 100, 99, 139), AnchorBottomRight);
    row("top, past the left border", TopEdge, none, 1.0, corners(100, 100, 149, 299),
        corners(0, 150, 149, 299), AnchorBottomRight);
    row("top, up to the left border", TopEdge, none, 3.0, corners(20, 100, 32, 199),
        corners(0, 100, 32, 199), AnchorBottomRight);

    // Bottom edge: to the left from the right border or once decided so, else to the right.
    row("bottom, at the right border", BottomEdge, none, 0.5, corners(500, 100, 639, 199),
        corners(440, 100, 639, 199), AnchorTopRight);
    row("bottom, next to the right border", BottomEdge, none, 0.5, corners(600, 100, 638, 118),
        corners(600, 100, 637, 118), AnchorTopLeft);
    row("bottom, decided top right", BottomEdge, AnchorTopRight, 0.5, corners(300, 100, 399, 199),
        corners(200, 100, 399, 199), AnchorTopRight);
    row("bottom, decided bottom left", BottomEdge, AnchorBottomLeft, 0.5,
        corners(300, 100, 399, 199), corners(200, 100, 399, 199), AnchorTopRight);
    row("bottom, decided bottom right", BottomEdge, AnchorBottomRight, 0.5,
        corners(300, 100, 399, 199), corners(200, 100, 399, 199), AnchorTopRight);
    row("bottom, past the left border", BottomEdge, AnchorTopRight, 1.0,
        corners(100, 100, 149, 299), corners(0, 100, 149, 249), AnchorTopRight);
    row("bottom, up to the left border", BottomEdge, AnchorTopRight, 3.0, corners(20, 100, 32, 199),
        corners(0, 100, 32, 198), AnchorTopRight);
    row("bottom, in the middle", BottomEdge, none, 0.5, corners(300, 100, 399, 199),
        corners(300, 100, 499, 199), AnchorTopLeft);
    row("bottom, decided top left", BottomEdge, AnchorTopLeft, 0.5, corners(540, 100, 639, 139),
        corners(540, 100, 619, 139), AnchorTopLeft);
    row("bottom, past the right border", BottomEdge, none, 1.0, corners(500, 100, 509, 299),
        corners(500, 100, 639, 239), AnchorTopLeft);
    row("bottom, up to the right border", BottomEdge, none, 3.0, corners(607, 100, 619, 199),
        corners(607, 100, 639, 199), AnchorTopLeft);

    // Left edge: downwards from the top border or once decided so, else upwards.
    row("left, at the top border", LeftEdge, none, 0.5, corners(100, 0, 299, 49),
        corners(100, 0, 299, 99), AnchorTopRight);
    row("left, next to the top border", LeftEdge, none, 0.5, corners(100, 1, 199, 99),
        corners(100, 50, 199, 99), AnchorBottomRight);
    row("left, decided top right", LeftEdge, AnchorTopRight, 0.5, corners(100, 50, 299, 99),
        corners(100, 50, 299, 149), AnchorTopRight);
    row("left, decided top left", LeftEdge, AnchorTopLeft, 0.5, corners(100, 50, 299, 99),
        corners(100, 50, 299, 149), AnchorTopRight);
    row("left, decided bottom left", LeftEdge, AnchorBottomLeft, 0.5, corners(100, 50, 299, 99),
        corners(100, 50, 299, 149), AnchorTopRight);
    row("left, past the bottom border", LeftEdge, AnchorTopRight, 0.5, corners(100, 450, 299, 460),
        corners(240, 450, 299, 479), AnchorTopRight);
    row("left, up to the bottom border", LeftEdge, AnchorTopRight, Third,
        corners(100, 447, 199, 450), corners(100, 447, 199, 479), AnchorTopRight);
    row("left, in the middle", LeftEdge, none, 0.5, corners(100, 200, 299, 249),
        corners(100, 150, 299, 249), AnchorBottomRight);
    row("left, decided bottom right", LeftEdge, AnchorBottomRight, 0.5, corners(100, 0, 199, 99),
        corners(100, 50, 199, 99), AnchorBottomRight);
    row("left, past the top border", LeftEdge, none, 0.5, corners(100, 20, 399, 99),
        corners(200, 0, 399, 99), AnchorBottomRight);
    row("left, up to the top border", LeftEdge, none, Third, corners(100, 20, 199, 32),
        corners(101, 0, 199, 32), AnchorBottomRight);

    // Right edge: upwards from the bottom border or once decided so, else downwards.
    row("right, at the bottom border", RightEdge, none, 0.5, corners(100, 450, 299, 479),
        corners(100, 380, 299, 479), AnchorBottomLeft);
    row("right, next to the bottom border", RightEdge, none, 0.5, corners(100, 400, 199, 478),
        corners(100, 400, 199, 449), AnchorTopLeft);
    row("right, decided bottom left", RightEdge, AnchorBottomLeft, 0.5, corners(100, 200, 299, 249),
        corners(100, 150, 299, 249), AnchorBottomLeft);
    row("right, decided top right", RightEdge, AnchorTopRight, 0.5, corners(100, 200, 299, 249),
        corners(100, 150, 299, 249), AnchorBottomLeft);
    row("right, decided bottom right", RightEdge, AnchorBottomRight, 0.5,
        corners(100, 200, 299, 249), corners(100, 150, 299, 249), AnchorBottomLeft);
    row("right, past the top border: two wider", RightEdge, AnchorTopRight, 0.5,
        corners(100, 20, 399, 99), corners(100, 0, 301, 99), AnchorBottomLeft);
    row("right, up to the top border: two wider", RightEdge, AnchorBottomLeft, Third,
        corners(100, 20, 199, 32), corners(100, 0, 200, 32), AnchorBottomLeft);
    row("right, two wider and back from the border", RightEdge, AnchorBottomLeft, 0.5,
        corners(439, 20, 639, 99), corners(438, 0, 639, 99), AnchorBottomLeft);
    row("right, in the middle", RightEdge, none, 0.5, corners(100, 100, 299, 149),
        corners(100, 100, 299, 199), AnchorTopLeft);
    row("right, decided top left", RightEdge, AnchorTopLeft, 0.5, corners(100, 420, 199, 479),
        corners(100, 420, 199, 469), AnchorTopLeft);
    row("right, past the bottom border", RightEdge, none, 0.5, corners(100, 450, 299, 460),
        corners(100, 450, 159, 479), AnchorTopLeft);
    row("right, up to the bottom border", RightEdge, none, Third, corners(100, 447, 199, 450),
        corners(100, 447, 199, 479), AnchorTopLeft);

    // Corners: the opposite one stays, whatever was decided.
    row("top left", TopLeft, none, 0.5, corners(100, 200, 299, 249), corners(100, 150, 299, 249),
        AnchorBottomRight);
    row("top left, decided otherwise", TopLeft, AnchorTopRight, 0.5, corners(100, 200, 299, 249),
        corners(100, 150, 299, 249), AnchorBottomRight);
    row("top left, past the top border: the bottom goes there", TopLeft, none, 0.5,
        corners(100, 20, 399, 99), corners(298, 0, 399, 50), AnchorBottomRight);
    row("top left, up to the top border: the bottom goes there", TopLeft, none, Third,
        corners(100, 20, 199, 32), corners(197, 0, 199, 0), AnchorBottomRight);
    row("top right", TopRight, none, 0.5, corners(100, 100, 199, 199), corners(100, 100, 299, 199),
        AnchorBottomLeft);
    row("top right, decided otherwise", TopRight, AnchorTopLeft, 0.5, corners(100, 100, 199, 199),
        corners(100, 100, 299, 199), AnchorBottomLeft);
    row("top right, past the right border", TopRight, none, 1.0, corners(500, 100, 509, 299),
        corners(500, 160, 639, 299), AnchorBottomLeft);
    row("top right, up to the right border", TopRight, none, 3.0, corners(607, 100, 619, 199),
        corners(607, 100, 639, 199), AnchorBottomLeft);
    row("bottom left", BottomLeft, none, 0.5, corners(100, 200, 299, 220),
        corners(100, 200, 299, 299), AnchorTopRight);
    row("bottom left, decided otherwise", BottomLeft, AnchorBottomRight, 0.5,
        corners(100, 200, 299, 220), corners(100, 200, 299, 299), AnchorTopRight);
    row("bottom left, past the bottom border", BottomLeft, none, 0.5, corners(100, 450, 299, 460),
        corners(240, 450, 299, 479), AnchorTopRight);
    row("bottom left, up to the bottom border", BottomLeft, none, Third,
        corners(100, 447, 199, 450), corners(100, 447, 199, 479), AnchorTopRight);
    row("bottom right", BottomRight, none, 0.5, corners(100, 100, 199, 199),
        corners(100, 100, 299, 199), AnchorTopLeft);
    row("bottom right, decided otherwise", BottomRight, AnchorBottomLeft, 0.5,
        corners(100, 100, 199, 199), corners(100, 100, 299, 199), AnchorTopLeft);
    row("bottom right, past the right border", BottomRight, none, 1.0, corners(500, 100, 509, 299),
        corners(500, 100, 639, 239), AnchorTopLeft);
    row("bottom right, up to the right border", BottomRight, none, 3.0, corners(607, 100, 619, 199),
        corners(607, 100, 639, 199), AnchorTopLeft);

    // No rule.
    row("inside", Inside, none, 0.5, corners(100, 100, 199, 199), corners(100, 100, 199, 199),
        none);
    row("inside, decided", Inside, AnchorTopLeft, 0.5, corners(100, 100, 199, 199),
        corners(100, 100, 199, 199), AnchorTopLeft);
    row("outside", Outside, none, 0.5, corners(100, 100, 199, 199), corners(100, 100, 199, 199),
        none);

    // Halves are rounded away.
    row("width of two and a half", BottomRight, none, 0.8, corners(10, 10, 19, 11),
        corners(10, 10, 12, 11), AnchorTopLeft);
    row("height of two and a half", BottomLeft, none, 0.5, corners(10, 10, 14, 99),
        corners(10, 10, 14, 12), AnchorTopRight);
}

void TestRegionConstraint::otherAxisFollowsAtAFixedAspect()
{
    QFETCH(int, handle);
    QFETCH(int, anchor);
    QFETCH(double, aspect);
    QFETCH(QRect, rect);
    QTEST(constrained(rect, handle, rect, withAspect(aspect), anchor), "result");
    QTEST(anchor, "newAnchor");
}

void TestRegionConstraint::withoutAspectNothingFollows_data()
{
    QTest::addColumn<bool>("fixed");
    QTest::addColumn<double>("aspect");
    QTest::newRow("not fixed") << false << 0.5;
    QTest::newRow("0") << true << 0.0;
    QTest::newRow("below 0") << true << -0.5;
    QTest::newRow("not a number") << true << std::numeric_limits<double>::quiet_NaN();
}

void TestRegionConstraint::withoutAspectNothingFollows()
{
    QFETCH(bool, fixed);
    QFETCH(double, aspect);
    Limits limits = withAspect(aspect);
    limits.aspectFixed = fixed;
    const QRect rect = corners(100, 100, 199, 199);
    for (int handle = TopEdge; handle <= Outside; ++handle) {
        int anchor = AnchorUndecided;
        QCOMPARE(constrained(rect, handle, rect, limits, anchor), rect);
        QCOMPARE(anchor, int(AnchorUndecided));
    }
}

void TestRegionConstraint::anchorStaysForTheWholeDrag()
{
    // The first step holds the bottom right; at the left border, where a new drag would hold the
    // bottom left, this one goes on as it began.
    const Limits limits = withAspect(0.5);
    int anchor = AnchorUndecided;
    QRect rect = corners(300, 100, 399, 199);
    rect = constrained(rect, TopEdge, rect, limits, anchor);
    QCOMPARE(rect, corners(200, 100, 399, 199));
    rect.setTop(0);
    rect = constrained(rect, TopEdge, rect, limits, anchor);
    QCOMPARE(rect, corners(0, 0, 399, 199));
    rect.setTop(150);
    rect = constrained(rect, TopEdge, rect, limits, anchor);
    QCOMPARE(rect, corners(300, 150, 399, 199));
    QCOMPARE(anchor, int(AnchorBottomRight));
}

void TestRegionConstraint::cutsToTheMaximum_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<Limits>("limits");
    QTest::addColumn<QRect>("reference");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("result");
    const auto row = [](const char *name, int handle, const Limits &limits, QRect reference,
                        QRect rect, QRect result) {
        QTest::newRow(name) << handle << limits << reference << rect << result;
    };
    const Limits limits = withMaximum(100, 80);
    const QRect reference = corners(200, 200, 289, 269);

    row("top", TopEdge, limits, reference, corners(200, 150, 289, 269),
        corners(200, 190, 289, 269));
    row("top, mirrored", TopEdge, limits, reference, corners(200, 150, 289, 329),
        corners(200, 190, 289, 269));
    row("bottom", BottomEdge, limits, reference, corners(200, 200, 289, 349),
        corners(200, 200, 289, 279));
    row("bottom, mirrored", BottomEdge, limits, reference, corners(200, 130, 289, 349),
        corners(200, 200, 289, 279));
    row("left", LeftEdge, limits, reference, corners(150, 200, 289, 269),
        corners(190, 200, 289, 269));
    row("left, mirrored", LeftEdge, limits, reference, corners(150, 200, 489, 269),
        corners(190, 200, 289, 269));
    row("right", RightEdge, limits, reference, corners(200, 200, 349, 269),
        corners(200, 200, 299, 269));
    row("right, mirrored", RightEdge, limits, reference, corners(150, 200, 349, 269),
        corners(200, 200, 299, 269));
    row("top left", TopLeft, limits, reference, corners(150, 150, 289, 269),
        corners(190, 190, 289, 269));
    row("top right", TopRight, limits, reference, corners(200, 150, 349, 269),
        corners(200, 190, 299, 269));
    row("bottom left", BottomLeft, limits, reference, corners(150, 200, 289, 349),
        corners(190, 200, 289, 279));
    row("bottom right", BottomRight, limits, reference, corners(200, 200, 349, 349),
        corners(200, 200, 299, 279));
    row("inside: right and bottom go", Inside, limits, reference, corners(150, 150, 299, 299),
        corners(150, 150, 249, 229));
    row("outside: right and bottom go", Outside, limits, reference, corners(150, 150, 299, 299),
        corners(150, 150, 249, 229));
    row("the top moves no x side", TopEdge, limits, reference, corners(150, 190, 299, 269),
        corners(150, 190, 249, 269));
    row("one axis alone", BottomRight, limits, reference, corners(200, 200, 349, 279),
        corners(200, 200, 299, 279));
    row("just the maximum, mirrored", LeftEdge, limits, reference, corners(250, 200, 349, 269),
        corners(250, 200, 349, 269));
    row("no maximum for the width", BottomRight, withMaximum(-1, 80), reference,
        corners(200, 200, 349, 349), corners(200, 200, 349, 349));
    row("no maximum for the height", BottomRight, withMaximum(100, -1), reference,
        corners(200, 200, 349, 349), corners(200, 200, 349, 349));
    row("transposed", BottomRight, transposed(limits), reference, corners(200, 200, 349, 349),
        corners(200, 200, 279, 299));
    row("moved back past the border, and inside again", LeftEdge, limits, corners(0, 0, 9, 9),
        corners(150, 200, 289, 269), corners(0, 200, 99, 269));
    row("maximum 0 ends at the minimum", BottomRight, withMaximum(0, 0), reference,
        corners(200, 200, 349, 349), corners(200, 200, 200, 200));
}

void TestRegionConstraint::cutsToTheMaximum()
{
    QFETCH(int, handle);
    QFETCH(Limits, limits);
    QFETCH(QRect, reference);
    QFETCH(QRect, rect);
    int anchor = AnchorUndecided;
    QTEST(constrained(rect, handle, reference, limits, anchor), "result");
}

void TestRegionConstraint::snapsThePosition_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<Limits>("limits");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("result");
    const auto row = [](const char *name, int handle, const Limits &limits, QRect rect,
                        QRect result) {
        QTest::newRow(name) << handle << limits << rect << result;
    };
    row("up", Inside, withPositionStep(8, 4), corners(101, 103, 200, 182),
        corners(104, 104, 203, 183));
    row("down", Inside, withPositionStep(8, 4), corners(99, 101, 198, 180),
        corners(96, 100, 195, 179));
    row("half a step goes up", Inside, withPositionStep(8, 4), corners(100, 102, 199, 181),
        corners(104, 104, 203, 183));
    row("half of an odd step is cut", Inside, withPositionStep(5, 5), corners(102, 101, 199, 179),
        corners(105, 100, 202, 178));
    row("on the grid", Inside, withPositionStep(8, 4), corners(96, 100, 195, 179),
        corners(96, 100, 195, 179));
    row("x alone", Inside, withPositionStep(8, 1), corners(101, 103, 200, 182),
        corners(104, 103, 203, 182));
    row("y alone", Inside, withPositionStep(1, 4), corners(101, 103, 200, 182),
        corners(101, 104, 200, 183));
    row("x alone by 2", Inside, withPositionStep(2, 1), corners(101, 103, 200, 182),
        corners(102, 103, 201, 182));
    row("y alone by 2", Inside, withPositionStep(1, 2), corners(101, 103, 200, 182),
        corners(101, 104, 200, 183));
    row("no step", Inside, withPositionStep(1, 1), corners(101, 103, 200, 182),
        corners(101, 103, 200, 182));
    row("0 counts as 1", Inside, withPositionStep(0, 4), corners(101, 103, 200, 182),
        corners(101, 104, 200, 183));
    row("below 0 counts as 1", Inside, withPositionStep(8, -4), corners(101, 103, 200, 182),
        corners(104, 103, 203, 182));
    row("transposed", Inside, transposed(withPositionStep(8, 4)), corners(101, 103, 200, 182),
        corners(100, 104, 199, 183));
    row("past the border and back", Inside, withPositionStep(8, 4), corners(637, 477, 639, 479),
        corners(637, 476, 639, 478));
    for (int handle = TopEdge; handle <= BottomRight; ++handle)
        row(qPrintable(QStringLiteral("handle %1 has no grid").arg(handle)), handle,
            withPositionStep(8, 4), corners(101, 103, 200, 182), corners(101, 103, 200, 182));
    row("outside has no grid", Outside, withPositionStep(8, 4), corners(101, 103, 200, 182),
        corners(101, 103, 200, 182));
}

void TestRegionConstraint::snapsThePosition()
{
    QFETCH(int, handle);
    QFETCH(Limits, limits);
    QFETCH(QRect, rect);
    int anchor = AnchorUndecided;
    QTEST(constrained(rect, handle, rect, limits, anchor), "result");
}

void TestRegionConstraint::snapsTheSize_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<Limits>("limits");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("result");
    const auto row = [](const char *name, int handle, const Limits &limits, QRect rect,
                        QRect result) {
        QTest::newRow(name) << handle << limits << rect << result;
    };
    const Limits limits = withSizeStep(4, 4);
    // 19 wide and 23 high: three too many on either axis.
    const QRect rect = corners(100, 100, 118, 122);
    row("top", TopEdge, limits, rect, corners(100, 103, 118, 122));
    row("bottom", BottomEdge, limits, rect, corners(100, 100, 118, 119));
    row("left", LeftEdge, limits, rect, corners(103, 100, 118, 122));
    row("right", RightEdge, limits, rect, corners(100, 100, 115, 122));
    row("top left", TopLeft, limits, rect, corners(103, 103, 118, 122));
    row("top right", TopRight, limits, rect, corners(100, 103, 115, 122));
    row("bottom left", BottomLeft, limits, rect, corners(103, 100, 118, 119));
    row("bottom right: width 19 ends at 16", BottomRight, limits, rect,
        corners(100, 100, 115, 119));
    row("inside", Inside, limits, rect, rect);
    row("outside", Outside, limits, rect, rect);
    row("whole steps above the minimum", BottomRight, limits, corners(100, 100, 119, 123),
        corners(100, 100, 119, 123));
    row("counted from the minimum", BottomRight, withSizeStep(5, 5), corners(100, 100, 119, 121),
        corners(100, 100, 115, 120));
    row("below the minimum, right", RightEdge, limits, corners(100, 100, 113, 119),
        corners(100, 100, 115, 119));
    row("below the minimum, top left", TopLeft, limits, corners(100, 100, 113, 113),
        corners(98, 98, 113, 113));
    row("width alone", BottomRight, withSizeStep(4, 1), rect, corners(100, 100, 115, 122));
    row("height alone", BottomRight, withSizeStep(1, 4), rect, corners(100, 100, 118, 119));
    row("width alone by 2", BottomRight, withSizeStep(2, 1), rect, corners(100, 100, 117, 122));
    row("height alone by 2", BottomRight, withSizeStep(1, 2), rect, corners(100, 100, 118, 121));
    row("no step", BottomRight, withSizeStep(1, 1), rect, rect);
    Limits flat = withSizeStep(4, 4);
    flat.minimum = QSize(18, 13);
    row("each axis from its own minimum", BottomRight, flat, rect, corners(100, 100, 117, 120));
    row("0 counts as 1", BottomRight, withSizeStep(0, 4), rect, corners(100, 100, 118, 119));
    row("below 0 counts as 1", BottomRight, withSizeStep(4, -4), rect, corners(100, 100, 115, 122));
    row("transposed", BottomRight, transposed(withSizeStep(8, 2)), rect,
        corners(100, 100, 117, 115));
    row("past the border and back, then to the minimum", RightEdge, limits,
        corners(630, 100, 639, 119), corners(628, 100, 643, 119));
}

void TestRegionConstraint::snapsTheSize()
{
    QFETCH(int, handle);
    QFETCH(Limits, limits);
    QFETCH(QRect, rect);
    int anchor = AnchorUndecided;
    QTEST(constrained(rect, handle, rect, limits, anchor), "result");
}

void TestRegionConstraint::centresSymmetricRegions_data()
{
    QTest::addColumn<Limits>("limits");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("result");
    const QRect rect = corners(10, 20, 109, 69);
    QTest::newRow("x") << withSymmetry(true, false, 640, 480) << rect << corners(270, 20, 369, 69);
    QTest::newRow("y") << withSymmetry(false, true, 640, 480) << rect << corners(10, 215, 109, 264);
    QTest::newRow("both") << withSymmetry(true, true, 640, 480) << rect
                          << corners(270, 215, 369, 264);
    QTest::newRow("neither") << withSymmetry(false, false, 640, 480) << rect << rect;
    QTest::newRow("odd sizes are cut") << withSymmetry(true, true, 640, 480)
                                       << corners(10, 20, 110, 70) << corners(269, 214, 369, 264);
    QTest::newRow("centred on the whole sensor")
        << withSymmetry(true, true, 700, 500) << rect << corners(300, 225, 399, 274);
    QTest::newRow("beyond the picture and back")
        << withSymmetry(true, false, 2000, 480) << rect << corners(540, 20, 639, 69);
    QTest::newRow("sensor smaller than the region")
        << withSymmetry(true, false, 99, 480) << rect << corners(0, 20, 99, 69);
    QTest::newRow("transposed pictures swap nothing here")
        << transposed(withSymmetry(true, false, 640, 480)) << rect << corners(270, 20, 369, 69);
}

void TestRegionConstraint::centresSymmetricRegions()
{
    QFETCH(Limits, limits);
    QFETCH(QRect, rect);
    int anchor = AnchorUndecided;
    QTEST(constrained(rect, LeftEdge, rect, limits, anchor), "result");
}

void TestRegionConstraint::keepsTheMinimum_data()
{
    QTest::addColumn<Limits>("limits");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("result");
    const QRect rect = corners(100, 100, 104, 105);
    QTest::newRow("both") << withMinimum(16, 12) << rect << corners(100, 100, 115, 111);
    QTest::newRow("width alone") << withMinimum(16, 3) << rect << corners(100, 100, 115, 105);
    QTest::newRow("height alone") << withMinimum(3, 12) << rect << corners(100, 100, 104, 111);
    QTest::newRow("no minimum for the width") << withMinimum(-1, 12) << rect << rect;
    QTest::newRow("no minimum for the height") << withMinimum(16, -1) << rect << rect;
    QTest::newRow("0") << withMinimum(0, 0) << rect << rect;
    QTest::newRow("0 for the width") << withMinimum(0, 12) << rect << corners(100, 100, 104, 111);
    QTest::newRow("0 for the height") << withMinimum(16, 0) << rect << corners(100, 100, 115, 105);
    QTest::newRow("transposed pictures swap nothing here")
        << transposed(withMinimum(16, 12)) << rect << corners(100, 100, 115, 111);
    QTest::newRow("beyond the border, since no clamp follows")
        << withMinimum(16, 12) << corners(638, 478, 639, 479) << corners(638, 478, 653, 489);
    QTest::newRow("above the picture")
        << withMinimum(700, 500) << rect << corners(100, 100, 799, 599);
    Limits above = withMinimum(16, 16);
    above.maximum = QSize(10, 10);
    QTest::newRow("above the maximum")
        << above << corners(100, 100, 149, 149) << corners(100, 100, 115, 115);
}

void TestRegionConstraint::keepsTheMinimum()
{
    QFETCH(Limits, limits);
    QFETCH(QRect, rect);
    int anchor = AnchorUndecided;
    QTEST(constrained(rect, BottomRight, rect, limits, anchor), "result");
}

void TestRegionConstraint::stepsComeInTheirOrder_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<Limits>("limits");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("result");
    QTest::newRow("dragged past the right side: stops at the border")
        << int(Inside) << plainLimits() << corners(600, 100, 699, 199)
        << corners(540, 100, 639, 199);

    // Clamped before the aspect: at the left border the top edge grows to the right.
    QTest::newRow("picture before aspect")
        << int(TopEdge) << withAspect(0.5) << corners(-10, 100, 89, 199)
        << corners(0, 100, 199, 199);

    // The aspect gives 200x100, the grid of eight above 1x1 leaves 193x97 by the moved sides.
    Limits aspectAndSize = withAspect(0.5);
    aspectAndSize.sizeStep = QSize(8, 8);
    QTest::newRow("aspect before size grid")
        << int(BottomRight) << aspectAndSize << corners(100, 100, 299, 199)
        << corners(100, 100, 292, 196);

    // Snapped to 200, then centred: 270, which is not on the position's grid.
    Limits gridAndSymmetry = withSymmetry(true, false, 640, 480);
    gridAndSymmetry.positionStep = QPoint(100, 1);
    QTest::newRow("position grid before symmetry")
        << int(Inside) << gridAndSymmetry << corners(180, 20, 279, 69) << corners(270, 20, 369, 69);

    // 19 becomes 16 wide by the left side, then it is centred.
    Limits sizeAndSymmetry = withSymmetry(true, false, 640, 480);
    sizeAndSymmetry.sizeStep = QSize(4, 1);
    sizeAndSymmetry.minimum = QSize(16, 16);
    QTest::newRow("size grid before symmetry")
        << int(LeftEdge) << sizeAndSymmetry << corners(100, 20, 118, 69)
        << corners(312, 20, 327, 69);

    // 5 wide is centred at 317; the minimum then grows to the right alone.
    Limits symmetryAndMinimum = withSymmetry(true, false, 640, 480);
    symmetryAndMinimum.minimum = QSize(16, 16);
    QTest::newRow("symmetry before minimum")
        << int(LeftEdge) << symmetryAndMinimum << corners(100, 20, 104, 69)
        << corners(317, 20, 332, 69);

    // The maximum cuts the height to 80 first, and the aspect follows that.
    Limits maximumAndAspect = withAspect(0.5);
    maximumAndAspect.maximum = QSize(400, 80);
    QTest::newRow("maximum before aspect")
        << int(BottomRight) << maximumAndAspect << corners(100, 100, 299, 299)
        << corners(100, 100, 259, 179);

    // After the aspect the clamp cuts once more.
    Limits aspectAndMaximum = withAspect(0.5);
    aspectAndMaximum.maximum = QSize(150, 200);
    QTest::newRow("the clamp behind the aspect cuts to the maximum")
        << int(BottomRight) << aspectAndMaximum << corners(100, 100, 199, 199)
        << corners(100, 100, 249, 199);
}

void TestRegionConstraint::stepsComeInTheirOrder()
{
    QFETCH(int, handle);
    QFETCH(Limits, limits);
    QFETCH(QRect, rect);
    int anchor = AnchorUndecided;
    QTEST(constrained(rect, handle, rect, limits, anchor), "result");
}

void TestRegionConstraint::absurdLimitsDoNoHarm_data()
{
    QTest::addColumn<Limits>("limits");
    QTest::newRow("tiny aspect") << withAspect(1e-300);
    QTest::newRow("smallest aspect") << withAspect(std::numeric_limits<double>::denorm_min());
    QTest::newRow("huge aspect") << withAspect(1e300);
    QTest::newRow("infinite aspect") << withAspect(std::numeric_limits<double>::infinity());
    QTest::newRow("largest steps") << withSizeStep(IntMax, IntMax);
    QTest::newRow("smallest steps") << withSizeStep(IntMin, IntMin);
    QTest::newRow("largest position step") << withPositionStep(IntMax, IntMax);
    QTest::newRow("smallest position step") << withPositionStep(IntMin, IntMin);
    QTest::newRow("largest minimum") << withMinimum(IntMax, IntMax);
    QTest::newRow("smallest minimum") << withMinimum(IntMin, IntMin);
    QTest::newRow("largest sensor") << withSymmetry(true, true, IntMax, IntMax);
    QTest::newRow("smallest sensor") << withSymmetry(true, true, IntMin, IntMin);
    Limits tiny = withAspect(0.75);
    tiny.image = QSize(1, 1);
    QTest::newRow("picture of one pixel") << tiny;
    tiny.image = QSize(0, 0);
    QTest::newRow("empty picture") << tiny;
    tiny.image = QSize(IntMin, IntMin);
    QTest::newRow("negative picture") << tiny;
    tiny.image = QSize(IntMax, IntMax);
    QTest::newRow("largest picture") << tiny;
}

void TestRegionConstraint::absurdLimitsDoNoHarm()
{
    QFETCH(Limits, limits);
    const QRect rects[] = {corners(100, 100, 199, 199),
                           corners(199, 199, 100, 100),
                           corners(0, 0, -1, -1),
                           corners(IntMin, IntMin, IntMax, IntMax),
                           corners(IntMax, IntMax, IntMin, IntMin),
                           corners(IntMax, IntMin, IntMax, IntMin)};
    for (const QRect &rect : rects) {
        for (const QRect &reference : rects) {
            for (int handle = -1; handle <= 10; ++handle) {
                for (int first = 0; first <= AnchorUndecided; ++first) {
                    int anchor = first;
                    const QRect result = constrained(rect, handle, reference, limits, anchor);
                    QVERIFY(anchor >= 0 && anchor <= AnchorUndecided);
                    QCOMPARE(saturated(result), result);
                    const QRect moved = dragged(rect, handle, QPoint(IntMax, IntMin), limits);
                    QCOMPARE(saturated(moved), moved);
                }
            }
        }
    }
}

void TestRegionConstraint::sidesFollowTheMouse_data()
{
    QTest::addColumn<int>("handle");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QString>("symmetry"); // of x, y
    QTest::addColumn<QRect>("result");
    const auto row = [](const char *name, int handle, QPoint point, const char *symmetry,
                        QRect result) {
        QTest::newRow(name) << handle << point << QString::fromLatin1(symmetry) << result;
    };
    // At least 16 wide and 12 high.
    const QRect rect = corners(100, 100, 199, 179);
    row("top, up", TopEdge, {7, 20}, "", corners(100, 20, 199, 179));
    row("top, down to the minimum", TopEdge, {7, 168}, "", corners(100, 168, 199, 179));
    row("top, beyond the minimum", TopEdge, {7, 169}, "", rect);
    row("top, mirrored", TopEdge, {7, 20}, "xy", corners(100, 20, 199, 459));
    row("top is no x side", TopEdge, {7, 20}, "x", corners(100, 20, 199, 179));
    row("bottom, down", BottomEdge, {7, 300}, "", corners(100, 100, 199, 300));
    row("bottom, up to the minimum", BottomEdge, {7, 111}, "", corners(100, 100, 199, 111));
    row("bottom, beyond the minimum", BottomEdge, {7, 110}, "", rect);
    row("bottom, mirrored", BottomEdge, {7, 400}, "y", corners(100, 79, 199, 400));
    row("left, to the left", LeftEdge, {20, 7}, "", corners(20, 100, 199, 179));
    row("left, right to the minimum", LeftEdge, {184, 7}, "", corners(184, 100, 199, 179));
    row("left, beyond the minimum", LeftEdge, {185, 7}, "", rect);
    row("left, mirrored", LeftEdge, {50, 7}, "xy", corners(50, 100, 589, 179));
    row("left is no y side", LeftEdge, {50, 7}, "y", corners(50, 100, 199, 179));
    row("right, to the right", RightEdge, {300, 7}, "", corners(100, 100, 300, 179));
    row("right, left to the minimum", RightEdge, {115, 7}, "", corners(100, 100, 115, 179));
    row("right, beyond the minimum", RightEdge, {114, 7}, "", rect);
    row("right, mirrored", RightEdge, {500, 7}, "x", corners(139, 100, 500, 179));
    row("top left", TopLeft, {20, 30}, "", corners(20, 30, 199, 179));
    row("top left, minimum of both", TopLeft, {184, 168}, "", corners(184, 168, 199, 179));
    row("top left, x beyond", TopLeft, {185, 30}, "", rect);
    row("top left, y beyond", TopLeft, {20, 169}, "", rect);
    row("top left, mirrored", TopLeft, {20, 30}, "xy", corners(20, 30, 619, 449));
    row("top left, x mirrored", TopLeft, {20, 30}, "x", corners(20, 30, 619, 179));
    row("top right", TopRight, {300, 30}, "", corners(100, 30, 300, 179));
    row("top right, x beyond", TopRight, {114, 30}, "", rect);
    row("top right, y beyond", TopRight, {300, 169}, "", rect);
    row("top right, mirrored", TopRight, {600, 30}, "xy", corners(39, 30, 600, 449));
    row("bottom left", BottomLeft, {20, 300}, "", corners(20, 100, 199, 300));
    row("bottom left, x beyond", BottomLeft, {185, 300}, "", rect);
    row("bottom left, y beyond", BottomLeft, {20, 110}, "", rect);
    row("bottom left, mirrored", BottomLeft, {20, 300}, "xy", corners(20, 179, 619, 300));
    row("bottom right", BottomRight, {300, 310}, "", corners(100, 100, 300, 310));
    row("bottom right, x beyond", BottomRight, {114, 310}, "", rect);
    row("bottom right, y beyond", BottomRight, {300, 110}, "", rect);
    row("bottom right, mirrored", BottomRight, {400, 310}, "xy", corners(239, 169, 400, 310));
    row("inside", Inside, {20, 20}, "xy", rect);
    row("outside", Outside, {20, 20}, "xy", rect);
}

void TestRegionConstraint::sidesFollowTheMouse()
{
    QFETCH(int, handle);
    QFETCH(QPoint, point);
    QFETCH(QString, symmetry);
    Limits limits = withMinimum(16, 12);
    limits.symmetricX = symmetry.contains(QLatin1Char('x'));
    limits.symmetricY = symmetry.contains(QLatin1Char('y'));
    QTEST(dragged(corners(100, 100, 199, 179), handle, point, limits), "result");
}

void TestRegionConstraint::insideFollowsTheMouse_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("start");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRect>("result");
    const QRect rect = corners(100, 100, 199, 179);
    QTest::newRow("by the way of the pointer")
        << rect << rect << QPoint(10, 20) << QPoint(15, 14) << corners(105, 94, 204, 173);
    QTest::newRow("from where the press was, not from where it is")
        << corners(300, 300, 399, 379) << rect << QPoint(10, 20) << QPoint(15, 14)
        << corners(105, 94, 204, 173);
    QTest::newRow("keeps its own size") << corners(300, 300, 319, 309) << rect << QPoint(10, 10)
                                        << QPoint(10, 10) << corners(140, 135, 159, 144);
    QTest::newRow("odd sizes") << corners(0, 0, 2, 4) << corners(10, 10, 12, 14) << QPoint(0, 0)
                               << QPoint(1, 1) << corners(11, 11, 13, 15);
    QTest::newRow("centres below 0 are cut")
        << corners(-6, -7, -3, -3) << corners(-6, -7, -3, -3) << QPoint(0, 0) << QPoint(0, 0)
        << corners(-5, -7, -2, -3);
    QTest::newRow("the end of the numbers")
        << corners(0, 0, 9, 9) << corners(IntMax, IntMax, IntMax, IntMax) << QPoint(IntMin, IntMin)
        << QPoint(IntMax, IntMax) << corners(IntMax, IntMax, IntMax, IntMax);
}

void TestRegionConstraint::insideFollowsTheMouse()
{
    QFETCH(QRect, rect);
    QFETCH(QRect, start);
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QTEST(moved(rect, start, from, to), "result");
}

void TestRegionConstraint::limitsComeFromToolAndDocument()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    host.state().features.insert(QStringLiteral("binning"));
    RegionTool tool(host);
    const auto constrainedBy = [&](int handle, QRect rect) {
        tool.constrainRegion(camera, handle, tool.aspect, rect, rect);
        return rect;
    };
    tool.m_positionStep = QPoint(8, 4);
    QCOMPARE(constrainedBy(Inside, corners(101, 103, 200, 182)), corners(104, 104, 203, 183));
    camera->state().usesScaleDivider = true;
    camera->state().scaleDivider = 2;
    QCOMPARE(constrainedBy(Inside, corners(101, 103, 200, 182)), corners(96, 104, 195, 183));

    tool.m_positionStep = QPoint(1, 1);
    camera->state().scaleDivider = 1;
    camera->setQuarterTurns(1); // the steps swap their axes, the minimum does not
    tool.m_sizeStep = QSize(8, 2);
    tool.m_minSize = QSize(16, 12);
    QCOMPARE(constrainedBy(BottomRight, corners(100, 100, 118, 122)), corners(100, 100, 117, 119));
    camera->setBinningLevel(1); // doubles steps and minimum: 32x24 and whole steps of 4x16
    QCOMPARE(constrainedBy(BottomRight, corners(100, 100, 138, 142)), corners(100, 100, 135, 139));

    camera->setBinningLevel(0);
    tool.m_sizeStep = QSize(1, 1);
    tool.m_maxSize = QSize(50, 60);
    QCOMPARE(constrainedBy(BottomRight, corners(100, 100, 199, 199)), corners(100, 100, 159, 149));
    QRect clampedRect = corners(-10, -10, 89, 89);
    tool.clampRegion(camera, clampedRect);
    QCOMPARE(clampedRect, corners(0, 0, 59, 49));

    tool.m_maxSize = QSize(-1, -1);
    tool.aspectFixed = true;
    tool.aspect = 0.5;
    QCOMPARE(constrainedBy(BottomRight, corners(100, 100, 199, 199)), corners(100, 100, 299, 199));
    QCOMPARE(tool.m_anchorCorner, int(AnchorTopLeft));
    QRect byArgument = corners(100, 100, 199, 199); // the aspect that is given counts
    tool.constrainRegion(camera, BottomRight, 1.0, byArgument, byArgument);
    QCOMPARE(byArgument, corners(100, 100, 199, 199));
}

void TestRegionConstraint::fullImageIsAskedForSymmetryAlone()
{
    StandInHost host;
    StandInCamera::Description description;
    description.limits.sensorSize = QSize(700, 500);
    description.region = QRect(0, 0, 640, 480);
    StandInCamera *camera = host.addCamera(description);
    RegionTool tool(host);
    const QString question = QStringLiteral("[1].fullImageSize()");
    const QRect reference = corners(10, 20, 109, 69);
    QRect rect = reference;
    tool.constrainRegion(camera, LeftEdge, 0.0, rect, reference);
    QCOMPARE(rect, reference);
    QVERIFY(!host.journal().contains(question));
    tool.m_symmetricX = true;
    tool.constrainRegion(camera, LeftEdge, 0.0, rect, reference);
    QCOMPARE(rect, corners(300, 20, 399, 69));
    QVERIFY(host.journal().contains(question));
    tool.m_symmetricX = false;
    tool.m_symmetricY = true;
    tool.constrainRegion(camera, LeftEdge, 0.0, rect, reference);
    QCOMPARE(rect, corners(300, 225, 399, 274));
}

int main(int argc, char *argv[])
{
    TestRegionConstraint test;
    return runTest(argc, argv, test);
}

#include "test_region_constraint.moc"
