#include "plugin/region/RegionGeometry.h"
#include "tests/plugin/RegionTool.h"
#include "tests/support/TestLog.h"

#include <limits>

using namespace RegionGeometry;

// What a panel shows of the region.
class TestRegionInfo : public TestBase
{
    Q_OBJECT

private slots:
    void emptyWithoutRegion();
    void holdsAllKeys();
    void valuesKeepToTheirLimits_data();
    void valuesKeepToTheirLimits();
    void fixedWithoutAspectIsLoose();
    void transposedPicturesSwapImageAndMinimum();
    void minimumIsNotScaled();
    void absurdValuesDoNoHarm_data();
    void absurdValuesDoNoHarm();
};

void TestRegionInfo::emptyWithoutRegion()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    RegionTool tool(host);
    const QRect rect = corners(100, 100, 199, 179);
    const auto info = [&](DOC_Interface *doc) {
        return tool.regionInfo(doc, QSize(640, 480), rect, false, false, 0.0, 100);
    };
    QVERIFY(!info(camera).isEmpty());
    QVERIFY(info(nullptr).isEmpty());
    tool.edits = false;
    host.clearJournal();
    QVERIFY(info(camera).isEmpty());
    QCOMPARE(host.journal(), QStringList());
}

void TestRegionInfo::holdsAllKeys()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    RegionTool tool(host);
    tool.m_minSize = QSize(16, 12);
    const QVariantMap info =
        tool.regionInfo(camera, QSize(640, 480), corners(100, 110, 199, 189), true, true, 0.5, 50);
    // 540 pixels to the right and 370 below; at an aspect of 0.5 that is 540x270.
    const QVariantMap expected{{"Width", 100},
                               {"WidthMin", 32},
                               {"WidthMax", 540},
                               {"WidthStep", 1},
                               {"Height", 80},
                               {"HeightMin", 12},
                               {"HeightMax", 270},
                               {"HeightStep", 1},
                               {"PosX", 100},
                               {"PosXMin", 0},
                               {"PosXMax", 540},
                               {"PosXStep", 1},
                               {"PosY", 110},
                               {"PosYMin", 0},
                               {"PosYMax", 400},
                               {"PosYStep", 1},
                               {"AspectRatio", 0.5},
                               {"FixAspect", true},
                               {"OriginalAspect", true},
                               {"CurrentWidth", 640},
                               {"CurrentHeight", 480},
                               {"ZoomRate", 50},
                               {"ZoomResolution", "50,40"}};
    tool.aspectFixed = true; // for the minimum alone
    tool.aspect = 0.5;
    const QVariantMap again =
        tool.regionInfo(camera, QSize(640, 480), corners(100, 110, 199, 189), true, true, 0.5, 50);
    QCOMPARE(again, expected);
    for (auto entry = expected.begin(); entry != expected.end(); ++entry)
        QCOMPARE(again.value(entry.key()).userType(), entry.value().userType());
    QCOMPARE(info.value("WidthMin").toInt(), 16);

    const QVariantMap loose = tool.regionInfo(camera, QSize(640, 480), corners(100, 110, 199, 189),
                                              false, false, 0.75, 100);
    QCOMPARE(loose.value("FixAspect"), QVariant(false));
    QCOMPARE(loose.value("OriginalAspect"), QVariant(false));
    QCOMPARE(loose.value("AspectRatio"), QVariant(0.75));
    QCOMPARE(loose.value("HeightMax"), QVariant(370));
    QCOMPARE(loose.value("ZoomRate"), QVariant(100));
}

void TestRegionInfo::valuesKeepToTheirLimits_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<double>("aspect"); // fixed when it is not 0
    QTest::addColumn<QSize>("maximum");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("maximumPosition");
    QTest::addColumn<int>("zoomRate");
    QTest::addColumn<QSize>("zoomed");
    const auto row = [](const char *name, QRect rect, double aspect, QSize maximum, QSize size,
                        QPoint maximumPosition, int zoomRate, QSize zoomed) {
        QTest::newRow(name) << rect << aspect << maximum << size << maximumPosition << zoomRate
                            << zoomed;
    };
    // A picture of 640x480, minimum 16x12.
    row("loose", corners(100, 80, 199, 159), 0.0, {540, 400}, {100, 80}, {540, 400}, 100,
        {100, 80});
    row("raised to the minimum", corners(100, 80, 103, 84), 0.0, {540, 400}, {16, 12}, {624, 468},
        100, {16, 12});
    row("cut to the maximum", corners(600, 460, 699, 539), 0.0, {40, 20}, {40, 20}, {600, 460}, 100,
        {40, 20});
    row("maximum below the minimum", corners(630, 475, 639, 479), 0.0, {10, 5}, {10, 5}, {630, 475},
        100, {10, 5});
    row("fixed, width decides", corners(100, 80, 199, 159), 0.5, {540, 270}, {100, 80}, {540, 400},
        100, {100, 80});
    row("fixed, height decides", corners(100, 80, 199, 159), 2.0, {200, 400}, {100, 80}, {540, 400},
        100, {100, 80});
    row("fixed, just as high as wide", corners(240, 80, 339, 179), 1.0, {400, 400}, {100, 100},
        {540, 380}, 100, {100, 100});
    row("fixed, rounded height", corners(589, 80, 598, 89), 0.5, {52, 26}, {16, 12}, {624, 468},
        100, {16, 12});
    row("fixed, raised height", corners(630, 80, 639, 89), 0.5, {24, 12}, {16, 12}, {624, 468}, 100,
        {16, 12});
    row("fixed, raised width", corners(100, 460, 109, 469), 2.0, {16, 32}, {16, 12}, {624, 468},
        100, {16, 12});
    row("fixed, height that fits and is raised", corners(630, 470, 639, 479), 1.0, {12, 12},
        {12, 12}, {628, 468}, 100, {12, 12});
    row("negative aspect", corners(100, 80, 199, 159), -0.5, {540, 400}, {100, 80}, {540, 400}, 100,
        {100, 80});
    row("half", corners(100, 80, 200, 158), 0.0, {540, 400}, {101, 79}, {539, 401}, 50, {51, 40});
    row("a third", corners(100, 80, 199, 159), 0.0, {540, 400}, {100, 80}, {540, 400}, 33,
        {33, 26});
    row("double", corners(100, 80, 199, 159), 0.0, {540, 400}, {100, 80}, {540, 400}, 200,
        {200, 160});
    row("0 per cent", corners(100, 80, 199, 159), 0.0, {540, 400}, {100, 80}, {540, 400}, 0,
        {1, 1});
    row("below 0 per cent", corners(100, 80, 199, 159), 0.0, {540, 400}, {100, 80}, {540, 400}, -50,
        {1, 1});
    row("one side rounded to 0", corners(100, 80, 199, 99), 0.0, {540, 400}, {100, 20}, {540, 460},
        1, {1, 1});
    row("left of the picture", corners(-10, -20, 89, 59), 0.0, {650, 500}, {100, 80}, {540, 400},
        100, {100, 80});
}

void TestRegionInfo::valuesKeepToTheirLimits()
{
    QFETCH(QRect, rect);
    QFETCH(double, aspect);
    QFETCH(int, zoomRate);
    const PanelValues values =
        panelValues(QSize(640, 480), rect, QSize(16, 12), false, aspect != 0.0, aspect, zoomRate);
    QTEST(values.maximum, "maximum");
    QTEST(values.size, "size");
    QTEST(values.maximumPosition, "maximumPosition");
    QTEST(values.zoomed, "zoomed");
    QCOMPARE(values.minimum, QSize(16, 12));
    QCOMPARE(values.position, rect.topLeft());
    QCOMPARE(values.image, QSize(640, 480));
}

void TestRegionInfo::fixedWithoutAspectIsLoose()
{
    const PanelValues values = panelValues(QSize(640, 480), corners(100, 80, 199, 159),
                                           QSize(16, 12), false, true, 0.0, 100);
    QCOMPARE(values.maximum, QSize(540, 400));
}

void TestRegionInfo::transposedPicturesSwapImageAndMinimum()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    camera->setQuarterTurns(1);
    RegionTool tool(host);
    tool.m_minSize = QSize(16, 12);
    const QVariantMap info = tool.regionInfo(camera, QSize(640, 480), corners(100, 110, 104, 119),
                                             false, false, 0.0, 100);
    QCOMPARE(info.value("CurrentWidth").toInt(), 480);
    QCOMPARE(info.value("CurrentHeight").toInt(), 640);
    QCOMPARE(info.value("WidthMax").toInt(), 380);
    QCOMPARE(info.value("HeightMax").toInt(), 530);
    QCOMPARE(info.value("WidthMin").toInt(), 12);
    QCOMPARE(info.value("HeightMin").toInt(), 16);
    QCOMPARE(info.value("Width").toInt(), 12);
    QCOMPARE(info.value("Height").toInt(), 16);
    QCOMPARE(info.value("PosX").toInt(), 100);
    QCOMPARE(info.value("PosXMax").toInt(), 468);
    QCOMPARE(info.value("PosYMax").toInt(), 624);
}

void TestRegionInfo::minimumIsNotScaled()
{
    StandInHost host;
    StandInCamera *camera = addPlainCamera(host);
    camera->state().usesScaleDivider = true;
    camera->state().scaleDivider = 3;
    RegionTool tool(host);
    tool.m_minSize = QSize(16, 12);
    const QVariantMap info =
        tool.regionInfo(camera, QSize(640, 480), corners(0, 0, 99, 99), false, false, 0.0, 100);
    QCOMPARE(info.value("WidthMin").toInt(), 16);
    QCOMPARE(info.value("HeightMin").toInt(), 12);
}

void TestRegionInfo::absurdValuesDoNoHarm_data()
{
    QTest::addColumn<double>("aspect");
    QTest::newRow("tiny") << 1e-300;
    QTest::newRow("huge") << 1e300;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
}

void TestRegionInfo::absurdValuesDoNoHarm()
{
    QFETCH(double, aspect);
    constexpr int far = std::numeric_limits<int>::max();
    constexpr int near = std::numeric_limits<int>::min();
    for (const QSize &image : {QSize(640, 480), QSize(1, 1), QSize(0, 0), QSize(near, far)}) {
        for (const QRect &rect : {corners(near, near, far, far), corners(far, far, near, near),
                                  corners(5, 5, 9, 9), corners(0, 0, -1, -1)}) {
            for (int zoomRate : {near, -1, 0, 1, far}) {
                const PanelValues values =
                    panelValues(image, rect, QSize(16, 12), false, true, aspect, zoomRate);
                QVERIFY(values.zoomed.width() >= 1 && values.zoomed.height() >= 1);
                QVERIFY(values.size.width() <= values.maximum.width());
                QVERIFY(values.size.height() <= values.maximum.height());
            }
        }
    }
}

int main(int argc, char *argv[])
{
    TestRegionInfo test;
    return runTest(argc, argv, test);
}

#include "test_region_info.moc"
