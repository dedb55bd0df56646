#include "plugin/region/RegionGeometry.h"
#include "tests/plugin/RegionTool.h"
#include "tests/support/TestLog.h"

#include <QRandomGenerator>

#include <limits>

using namespace RegionGeometry;

namespace {

constexpr int IntMax = std::numeric_limits<int>::max();
constexpr int IntMin = std::numeric_limits<int>::min();

}

// How a rectangle is brought into the picture.
class TestRegionClamp : public TestBase
{
    Q_OBJECT

private slots:
    void movesRatherThanCuts_data();
    void movesRatherThanCuts();
    void cutsToTheMaximum_data();
    void cutsToTheMaximum();
    void turnsRoundAsRectanglesDo_data();
    void turnsRoundAsRectanglesDo();
    void whatFitsEndsInside();
};

void TestRegionClamp::movesRatherThanCuts_data()
{
    QTest::addColumn<QSize>("image");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("result");
    const QSize image(640, 480);
    QTest::newRow("inside") << image << corners(100, 100, 199, 179) << corners(100, 100, 199, 179);
    QTest::newRow("the whole picture")
        << image << corners(0, 0, 639, 479) << corners(0, 0, 639, 479);
    QTest::newRow("above") << image << corners(100, -10, 199, 69) << corners(100, 0, 199, 79);
    QTest::newRow("left") << image << corners(-10, 100, 89, 179) << corners(0, 100, 99, 179);
    QTest::newRow("below") << image << corners(100, 450, 199, 529) << corners(100, 400, 199, 479);
    QTest::newRow("right") << image << corners(600, 100, 699, 179) << corners(540, 100, 639, 179);
    QTest::newRow("one pixel above") << image << corners(0, -1, 9, 8) << corners(0, 0, 9, 9);
    QTest::newRow("one pixel right") << image << corners(631, 0, 640, 9) << corners(630, 0, 639, 9);
    QTest::newRow("above left") << image << corners(-10, -20, 89, 59) << corners(0, 0, 99, 79);
    QTest::newRow("below right") << image << corners(600, 450, 699, 529)
                                 << corners(540, 400, 639, 479);
    QTest::newRow("far outside") << image << corners(-5000, 5000, -4901, 5079)
                                 << corners(0, 400, 99, 479);
    QTest::newRow("wider: flush with the right")
        << image << corners(0, 100, 799, 179) << corners(-160, 100, 639, 179);
    QTest::newRow("higher: flush with the bottom")
        << image << corners(100, 50, 199, 649) << corners(100, -120, 199, 479);
    QTest::newRow("larger, out at the left")
        << image << corners(-200, -200, 599, 399) << corners(-160, -120, 639, 479);
    QTest::newRow("inverted") << image << corners(199, 179, 100, 100)
                              << corners(100, 100, 199, 179);
    QTest::newRow("inverted and outside")
        << image << corners(699, 100, 600, 179) << corners(540, 100, 639, 179);
    QTest::newRow("empty") << image << corners(0, 0, -1, -1) << corners(0, 0, -1, -1);
    QTest::newRow("empty and outside")
        << image << corners(-9, 500, -10, 499) << corners(0, 480, -1, 479);
    QTest::newRow("picture of one pixel")
        << QSize(1, 1) << corners(5, 5, 5, 5) << corners(0, 0, 0, 0);
    QTest::newRow("larger than one pixel")
        << QSize(1, 1) << corners(5, 5, 7, 6) << corners(-2, -1, 0, 0);
    QTest::newRow("empty picture") << QSize(0, 0) << corners(5, 5, 5, 5) << corners(-1, -1, -1, -1);
    QTest::newRow("no picture") << QSize() << corners(5, 5, 6, 5) << corners(-3, -2, -2, -2);
    QTest::newRow("everything") << image << corners(IntMin, IntMin, IntMax, IntMax)
                                << corners(639 - (IntMax - 1), 479 - (IntMax - 1), 639, 479);
    QTest::newRow("the far end") << image << corners(IntMax, IntMax, IntMax, IntMax)
                                 << corners(639, 479, 639, 479);
    QTest::newRow("the near end") << image << corners(IntMin, IntMin, IntMin, IntMin)
                                  << corners(0, 0, 0, 0);
}

void TestRegionClamp::movesRatherThanCuts()
{
    QFETCH(QSize, image);
    QFETCH(QRect, rect);
    Limits limits;
    limits.image = image;
    limits.transposed = true; // the picture's own size is never swapped
    QTEST(clamped(rect, limits), "result");
}

void TestRegionClamp::cutsToTheMaximum_data()
{
    QTest::addColumn<QSize>("maximum");
    QTest::addColumn<bool>("transposed");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("result");
    const QRect rect = corners(100, 100, 199, 199);
    QTest::newRow("both") << QSize(50, 40) << false << rect << corners(100, 100, 149, 139);
    QTest::newRow("transposed") << QSize(50, 40) << true << rect << corners(100, 100, 139, 149);
    QTest::newRow("width alone") << QSize(50, 100) << false << rect << corners(100, 100, 149, 199);
    QTest::newRow("height alone") << QSize(100, 40) << false << rect << corners(100, 100, 199, 139);
    QTest::newRow("no maximum for the width") << QSize(-1, 40) << false << rect << rect;
    QTest::newRow("no maximum for the height") << QSize(50, -1) << false << rect << rect;
    QTest::newRow("0") << QSize(0, 0) << false << rect << corners(100, 100, 99, 99);
    QTest::newRow("moved first, then cut")
        << QSize(50, 40) << false << corners(600, 450, 699, 549) << corners(540, 380, 589, 419);
    QTest::newRow("larger than the picture: cut where it was moved to")
        << QSize(50, 40) << false << corners(0, 0, 799, 599) << corners(-160, -120, -111, -81);
}

void TestRegionClamp::cutsToTheMaximum()
{
    QFETCH(QSize, maximum);
    QFETCH(bool, transposed);
    QFETCH(QRect, rect);
    Limits limits;
    limits.image = QSize(640, 480);
    limits.maximum = maximum;
    limits.transposed = transposed;
    QTEST(clamped(rect, limits), "result");
}

void TestRegionClamp::turnsRoundAsRectanglesDo_data()
{
    QTest::addColumn<int>("right");
    for (int right = 40; right <= 60; ++right)
        QTest::newRow(qPrintable(QString::number(right))) << right;
}

void TestRegionClamp::turnsRoundAsRectanglesDo()
{
    QFETCH(int, right);
    Limits limits;
    limits.image = QSize(100, 100);
    const QRect rect = corners(50, 50, right, right);
    QCOMPARE(clamped(rect, limits), rect.normalized());
}

void TestRegionClamp::whatFitsEndsInside()
{
    QRandomGenerator random(1);
    for (int i = 0; i < 100000; ++i) {
        Limits limits;
        limits.image = QSize(random.bounded(1, 50), random.bounded(1, 50));
        limits.maximum = QSize(random.bounded(-1, 60), random.bounded(-1, 60));
        limits.transposed = random.bounded(2);
        const QRect rect(random.bounded(-100, 100), random.bounded(-100, 100),
                         random.bounded(1, limits.image.width() + 1),
                         random.bounded(1, limits.image.height() + 1));
        const QRect result = clamped(rect, limits);
        const QRect picture(QPoint(0, 0), limits.image);
        if (!result.isEmpty())
            QVERIFY(picture.contains(result));
        QVERIFY(result.width() <= rect.width() && result.height() <= rect.height());
    }
}

int main(int argc, char *argv[])
{
    TestRegionClamp test;
    return runTest(argc, argv, test);
}

#include "test_region_clamp.moc"
