#include "plugin/region/RegionGeometry.h"
#include "tests/plugin/RegionTool.h"
#include "tests/support/TestLog.h"

#include <cmath>
#include <limits>

using RegionGeometry::SensorScale;

namespace {

constexpr int IntMax = std::numeric_limits<int>::max();
constexpr int IntMin = std::numeric_limits<int>::min();
const double Infinite = std::numeric_limits<double>::infinity();
const double NotANumber = std::numeric_limits<double>::quiet_NaN();

}

// The numbers that an edit keeps to, scaled to the camera's sensor.
class TestRegionLimits : public TestBase
{
    Q_OBJECT

private slots:
    void roundsByTheFormula_data();
    void roundsByTheFormula();
    void scalesALimit_data();
    void scalesALimit();
    void scalesBothPartsOfPointsAndSizes();
    void enlargesTheMinimumForTheAspect_data();
    void enlargesTheMinimumForTheAspect();
    void dividesDownToTheSensor_data();
    void dividesDownToTheSensor();
    void dividerOfTheDocumentCountsWhenItIsInUse();
    void binningCountsWhenTheFeatureIsOn();
    void minimumIsScaledOnRequest();
    void minimumOfAPassIsTheToolsOwn();
    void toSensorAsksForItsOwnDivider();
    void toSensorWithoutDocumentKeepsTheRectangle();
    void saturatedRectanglesHaveASize_data();
    void saturatedRectanglesHaveASize();
};

void TestRegionLimits::roundsByTheFormula_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("rounded");
    QTest::newRow("0") << 0.0 << 0;
    QTest::newRow("below a half") << 2.4999 << 2;
    QTest::newRow("a half") << 2.5 << 3;
    QTest::newRow("the first half") << 0.5 << 1;
    QTest::newRow("negative, below a half") << -0.4 << 0;
    QTest::newRow("negative half") << -0.5 << 0;
    QTest::newRow("negative, just above a half") << std::nextafter(-0.5, -1.0) << -1;
    QTest::newRow("negative, above a half") << -0.6 << -1;
    QTest::newRow("negative whole") << -3.0 << -3;
    QTest::newRow("a further negative half") << -2.5 << -2;
    QTest::newRow("beyond a negative half") << -2.6 << -3;
    QTest::newRow("rounds up to the largest") << 2147483646.6 << IntMax;
    QTest::newRow("too large") << 1e300 << IntMax;
    QTest::newRow("too small") << -1e300 << IntMin;
    QTest::newRow("infinite") << Infinite << IntMax;
    QTest::newRow("infinite below") << -Infinite << IntMin;
    QTest::newRow("not a number") << NotANumber << 0;
}

void TestRegionLimits::roundsByTheFormula()
{
    QFETCH(double, value);
    QTEST(RegionGeometry::roundHalfAway(value), "rounded");
}

void TestRegionLimits::scalesALimit_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("divider");
    QTest::addColumn<int>("binningLevel");
    QTest::addColumn<int>("result");
    QTest::newRow("neither") << 8 << 1 << 0 << 8;
    QTest::newRow("divider") << 8 << 3 << 0 << 24;
    QTest::newRow("binning 2x2") << 8 << 1 << 1 << 16;
    QTest::newRow("binning 4x4") << 8 << 1 << 2 << 32;
    QTest::newRow("both") << 8 << 3 << 1 << 48;
    QTest::newRow("no limit stays none") << -1 << 3 << 1 << -6;
    QTest::newRow("0 stays 0") << 0 << 3 << 2000000000 << 0;
    QTest::newRow("divider 0") << 8 << 0 << 0 << 0;
    QTest::newRow("a fraction is cut") << 5 << 1 << -1 << 2;
    QTest::newRow("too large by the divider") << IntMax << 2 << 0 << IntMax;
    QTest::newRow("too large by the binning") << 3 << 1 << 31 << IntMax;
    QTest::newRow("absurd exponent") << 3 << 1 << IntMax << IntMax;
    QTest::newRow("absurd exponent of a negative value") << -3 << 1 << IntMax << IntMin;
    QTest::newRow("absurd exponent below 0") << 3 << 1 << IntMin << 0;
    QTest::newRow("absurd divider") << IntMin << IntMin << 0 << IntMax;
}

void TestRegionLimits::scalesALimit()
{
    QFETCH(int, value);
    QFETCH(int, divider);
    QFETCH(int, binningLevel);
    QTEST(RegionGeometry::scaled(value, SensorScale{divider, binningLevel}), "result");
}

void TestRegionLimits::scalesBothPartsOfPointsAndSizes()
{
    const SensorScale scale{3, 1};
    QCOMPARE(RegionGeometry::scaled(QPoint(1, 2), scale), QPoint(6, 12));
    QCOMPARE(RegionGeometry::scaled(QSize(4, -1), scale), QSize(24, -6));
}

void TestRegionLimits::enlargesTheMinimumForTheAspect_data()
{
    QTest::addColumn<QSize>("minimum");
    QTest::addColumn<bool>("aspectFixed");
    QTest::addColumn<double>("aspect");
    QTest::addColumn<QSize>("effective");
    QTest::newRow("not fixed") << QSize(16, 16) << false << 0.5 << QSize(16, 16);
    QTest::newRow("no aspect") << QSize(16, 16) << true << 0.0 << QSize(16, 16);
    QTest::newRow("negative aspect") << QSize(16, 16) << true << -0.5 << QSize(16, 16);
    QTest::newRow("not a number") << QSize(16, 16) << true << NotANumber << QSize(16, 16);
    QTest::newRow("wide") << QSize(16, 16) << true << 0.5 << QSize(32, 16);
    QTest::newRow("tall") << QSize(16, 16) << true << 2.0 << QSize(16, 32);
    QTest::newRow("square") << QSize(16, 12) << true << 1.0 << QSize(16, 12);
    QTest::newRow("each side from itself") << QSize(30, 10) << true << 0.5 << QSize(60, 10);
    QTest::newRow("rounded") << QSize(2, 5) << true << 0.8 << QSize(3, 5);
    QTest::newRow("tiny aspect") << QSize(16, 16) << true << 1e-300 << QSize(IntMax, 16);
    QTest::newRow("huge aspect") << QSize(16, 16) << true << 1e300 << QSize(16, IntMax);
    QTest::newRow("infinite aspect") << QSize(16, 0) << true << Infinite << QSize(16, 0);
}

void TestRegionLimits::enlargesTheMinimumForTheAspect()
{
    QFETCH(QSize, minimum);
    QFETCH(bool, aspectFixed);
    QFETCH(double, aspect);
    QTEST(RegionGeometry::effectiveMinimum(minimum, aspectFixed, aspect), "effective");
}

void TestRegionLimits::dividesDownToTheSensor_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<int>("divider");
    QTest::addColumn<int>("binningLevel");
    QTest::addColumn<QRect>("sensor");
    const QRect rect = corners(5, 7, 14, 21);
    QTest::newRow("neither") << rect << 1 << 0 << rect;
    QTest::newRow("binning 2x2") << rect << 1 << 1 << corners(2, 3, 7, 10);
    QTest::newRow("divider") << rect << 3 << 0 << corners(1, 2, 4, 7);
    QTest::newRow("both") << rect << 3 << 1 << corners(0, 1, 2, 3);
    QTest::newRow("cut towards 0") << corners(-5, -7, 5, 7) << 1 << 1 << corners(-2, -3, 2, 3);
    QTest::newRow("at least 1 by 1") << corners(4, 5, 2, 1) << 1 << 0 << corners(4, 5, 4, 5);
    QTest::newRow("width at least 1") << corners(4, 3, 2, 9) << 1 << 0 << corners(4, 3, 4, 9);
    QTest::newRow("height at least 1") << corners(3, 4, 9, 2) << 1 << 0 << corners(3, 4, 9, 4);
    QTest::newRow("width at least 1, further down")
        << corners(3, 9, 1, 12) << 1 << 0 << corners(3, 9, 3, 12);
    QTest::newRow("height at least 1, further right")
        << corners(9, 3, 12, 1) << 1 << 0 << corners(9, 3, 12, 3);
    QTest::newRow("divider 0 counts as 1") << rect << 0 << 0 << rect;
    QTest::newRow("negative divider counts as 1") << rect << -3 << 0 << rect;
    QTest::newRow("exponent below 0 counts as 1") << rect << 1 << -1 << rect;
    QTest::newRow("absurd exponent") << rect << 1 << IntMax << corners(0, 0, 0, 0);
    QTest::newRow("absurd divider and exponent") << rect << IntMax << 40 << corners(0, 0, 0, 0);
}

void TestRegionLimits::dividesDownToTheSensor()
{
    QFETCH(QRect, rect);
    QFETCH(int, divider);
    QFETCH(int, binningLevel);
    QTEST(RegionGeometry::toSensor(rect, SensorScale{divider, binningLevel}), "sensor");
}

void TestRegionLimits::dividerOfTheDocumentCountsWhenItIsInUse()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    RegionTool tool(host);
    tool.m_minSize = QSize(16, 12);
    camera->state().scaleDivider = 3;
    QCOMPARE(tool.effectiveMinSize(camera, true), QSize(16, 12));
    camera->state().usesScaleDivider = true;
    QCOMPARE(tool.effectiveMinSize(camera, true), QSize(48, 36));
    camera->state().usesScaleDivider = false;
    camera->state().hasScaleDivider = true; // that one is for the way to the sensor
    QCOMPARE(tool.effectiveMinSize(camera, true), QSize(16, 12));
}

void TestRegionLimits::binningCountsWhenTheFeatureIsOn()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    RegionTool tool(host);
    tool.m_minSize = QSize(16, 12);
    camera->setBinningLevel(2);
    QCOMPARE(tool.effectiveMinSize(camera, true), QSize(16, 12));
    host.state().features.insert(QStringLiteral("binning"));
    host.clearJournal();
    QCOMPARE(tool.effectiveMinSize(camera, true), QSize(64, 48));
    QCOMPARE(host.journal(),
             QStringList({"[1].usesScaleDivider(false)", "isFeatureOn(\"binning\", [1], false)",
                          "[1].binningLevel()"}));
}

void TestRegionLimits::minimumIsScaledOnRequest()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    RegionTool tool(host);
    tool.m_minSize = QSize(16, 12);
    tool.aspectFixed = true;
    tool.aspect = 0.5;
    camera->state().usesScaleDivider = true;
    camera->state().scaleDivider = 2;
    QCOMPARE(tool.effectiveMinSize(camera, false), QSize(32, 12));
    QCOMPARE(tool.effectiveMinSize(camera, true), QSize(64, 24));
}

// Whatever aspect a pass is given, the minimum goes by that of the tool: 20x20 becomes 40x20.
void TestRegionLimits::minimumOfAPassIsTheToolsOwn()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    RegionTool tool(host);
    tool.m_minSize = QSize(20, 20);
    tool.aspectFixed = true;
    tool.aspect = 0.5;
    QRect rect = corners(100, 100, 109, 109);
    tool.constrainRegion(camera, RegionGeometry::BottomRight, 1.0, rect, rect);
    QCOMPARE(rect, corners(100, 100, 139, 119));
}

void TestRegionLimits::toSensorAsksForItsOwnDivider()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    RegionTool tool(host);
    const QRect rect = corners(12, 24, 35, 47);
    camera->state().scaleDivider = 3;
    camera->state().usesScaleDivider = true; // that one is for the limits
    QCOMPARE(tool.regionToSensor(camera, rect), rect);
    camera->state().hasScaleDivider = true;
    QCOMPARE(tool.regionToSensor(camera, rect), corners(4, 8, 11, 15));
    camera->setBinningLevel(1);
    QCOMPARE(tool.regionToSensor(camera, rect), corners(4, 8, 11, 15));
    host.state().features.insert(QStringLiteral("binning"));
    host.clearJournal();
    QCOMPARE(tool.regionToSensor(camera, rect), corners(2, 4, 5, 7));
    QCOMPARE(host.journal(),
             QStringList({"isFeatureOn(\"binning\", [1], false)", "[1].binningLevel()",
                          "[1].hasScaleDivider(false)", "[1].scaleDivider()"}));
}

void TestRegionLimits::toSensorWithoutDocumentKeepsTheRectangle()
{
    StandInHost host;
    RegionTool tool(host);
    QCOMPARE(tool.regionToSensor(nullptr, corners(1, 2, 3, 4)), corners(1, 2, 3, 4));
}

void TestRegionLimits::saturatedRectanglesHaveASize_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QRect>("result");
    QTest::newRow("ordinary") << corners(1, 2, 3, 4) << corners(1, 2, 3, 4);
    QTest::newRow("inverted") << corners(3, 4, 1, 2) << corners(3, 4, 1, 2);
    QTest::newRow("everything") << corners(IntMin, IntMin, IntMax, 0)
                                << corners(1, -2147483646, IntMax, 0);
    QTest::newRow("everything, inverted")
        << corners(IntMax, 5, IntMin, 0) << corners(0, 5, IntMin, 0);
}

void TestRegionLimits::saturatedRectanglesHaveASize()
{
    QFETCH(QRect, rect);
    QTEST(RegionGeometry::saturated(rect), "result");
}

int main(int argc, char *argv[])
{
    TestRegionLimits test;
    return runTest(argc, argv, test);
}

#include "test_region_limits.moc"
