#include "plugin/region/RegionGeometry.h"
#include "tests/plugin/RegionTool.h"
#include "tests/support/TestLog.h"

#include <QGuiApplication>
#include <QKeyEvent>

using namespace RegionGeometry;

// Drags on pictures that are turned, flipped and zoomed in their view: whatever lies under the
// pointer on the screen is what moves in the picture.
class TestRegionView : public TestBase
{
    Q_OBJECT

private slots:
    void handlesLandWhereTheyAreDragged_data();
    void handlesLandWhereTheyAreDragged();
    void arrowsMoveAsTheyPoint_data();
    void arrowsMoveAsTheyPoint();
    void binnedPicturesKeepTheGridOfTheSensor();
};

namespace {

constexpr double Zoom = 2.0;
const QSize Picture(320, 240);

struct Turned
{
    int quarterTurns;
    bool horizontally;
    bool vertically;
};

// An image pixel in the view, which is not zoomed: turned clockwise, then flipped as it is seen.
QPoint inView(const QPoint &pixel, const Turned &view)
{
    double x = pixel.x() + 0.5;
    double y = pixel.y() + 0.5;
    double width = Picture.width();
    double height = Picture.height();
    for (int turn = 0; turn < view.quarterTurns; ++turn) {
        const double turnedX = height - y;
        y = x;
        x = turnedX;
        std::swap(width, height);
    }
    if (view.horizontally)
        x = width - x;
    if (view.vertically)
        y = height - y;
    return QPoint(int(x), int(y));
}

StandInCamera *addTurnedCamera(StandInHost &host, const Turned &view)
{
    StandInCamera::Description description;
    description.limits.sensorSize = Picture;
    description.region = QRect(QPoint(0, 0), Picture);
    StandInCamera *camera = host.addCamera(description);
    camera->setZoom(Zoom);
    camera->setQuarterTurns(view.quarterTurns);
    camera->setFlips(view.horizontally, view.vertically);
    return camera;
}

void addViews(const std::function<void(const QString &, const Turned &)> &row)
{
    for (int turns = 0; turns < 4; ++turns) {
        for (bool horizontally : {false, true}) {
            for (bool vertically : {false, true}) {
                const QString name = QStringLiteral("%1%2%3")
                                         .arg(turns * 90)
                                         .arg(horizontally ? QStringLiteral(" left to right") : "")
                                         .arg(vertically ? QStringLiteral(" top to bottom") : "");
                row(name, {turns, horizontally, vertically});
            }
        }
    }
}

}

Q_DECLARE_METATYPE(Turned)

void TestRegionView::handlesLandWhereTheyAreDragged_data()
{
    QTest::addColumn<Turned>("view");
    QTest::addColumn<QPoint>("from"); // in the picture
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRect>("result");
    addViews([](const QString &view, const Turned &turned) {
        const auto row = [&](const char *handle, QPoint from, QPoint to, QRect result) {
            QTest::newRow(qPrintable(view + QLatin1String(": ") + QLatin1String(handle)))
                << turned << from << to << result;
        };
        // The region is at 80 to 199, 60 to 159.
        row("top", {140, 60}, {150, 41}, corners(80, 41, 199, 159));
        row("bottom", {140, 159}, {130, 201}, corners(80, 60, 199, 201));
        row("left", {80, 110}, {31, 120}, corners(31, 60, 199, 159));
        row("right", {199, 110}, {271, 100}, corners(80, 60, 271, 159));
        row("top left", {80, 60}, {31, 41}, corners(31, 41, 199, 159));
        row("top right", {199, 60}, {271, 41}, corners(80, 41, 271, 159));
        row("bottom left", {80, 159}, {31, 201}, corners(31, 60, 199, 201));
        row("bottom right", {199, 159}, {271, 201}, corners(80, 60, 271, 201));
        row("inside", {140, 110}, {147, 99}, corners(87, 49, 206, 148));
        row("outside", {20, 20}, {40, 50}, corners(80, 60, 199, 159));
    });
}

void TestRegionView::handlesLandWhereTheyAreDragged()
{
    QFETCH(Turned, view);
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    StandInHost host;
    const int doc = int(addTurnedCamera(host, view)->key());
    RegionTool tool(host);
    tool.rect = corners(80, 60, 199, 159);
    tool.onMouseMove(inView(from, view), doc);
    tool.onMousePress(inView(from, view), doc);
    tool.onMouseMove(inView(to, view), doc);
    QTEST(tool.rect, "result");
    tool.onMouseRelease(inView(to, view), doc);
    QTEST(tool.rect, "result");
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestRegionView::arrowsMoveAsTheyPoint_data()
{
    QTest::addColumn<Turned>("view");
    addViews([](const QString &name, const Turned &turned) {
        QTest::newRow(qPrintable(name)) << turned;
    });
}

void TestRegionView::arrowsMoveAsTheyPoint()
{
    QFETCH(Turned, view);
    StandInHost host;
    StandInCamera *camera = addTurnedCamera(host, view);
    RegionTool tool(host);
    const QRect start = corners(80, 60, 199, 159);
    const QPoint seen = camera->mapRect(start).topLeft();
    const QList<QPair<int, QPoint>> arrows{{Qt::Key_Left, QPoint(-1, 0)},
                                           {Qt::Key_Up, QPoint(0, -1)},
                                           {Qt::Key_Right, QPoint(1, 0)},
                                           {Qt::Key_Down, QPoint(0, 1)}};
    for (const auto &arrow : arrows) {
        tool.rect = start;
        QKeyEvent event(QEvent::KeyPress, arrow.first, Qt::NoModifier);
        tool.onKeyPress(&event);
        QCOMPARE(camera->mapRect(tool.rect).topLeft() - seen, arrow.second);
        QCOMPARE(tool.rect.size(), start.size());
    }
}

void TestRegionView::binnedPicturesKeepTheGridOfTheSensor()
{
    // Binned 2x2 the limits count double.
    StandInHost host;
    StandInCamera *camera = addTurnedCamera(host, {1, false, false});
    camera->setBinningLevel(1); // a picture of 160x120, shown as large as before
    host.state().features.insert(QStringLiteral("binning"));
    RegionTool tool(host);
    tool.m_positionStep = QPoint(4, 8);
    tool.rect = corners(40, 32, 99, 79);
    const QPoint from = camera->mapRect(QRect(70, 55, 1, 1)).center();
    const QPoint to = camera->mapRect(QRect(73, 60, 1, 1)).center();
    tool.onMousePress(from, int(camera->key()));
    tool.onMouseMove(to, int(camera->key()));
    // Moved to 43, 37. Turned, the steps change places: 16 for x, which gives 48, 8 for y: 40.
    QCOMPARE(tool.rect, corners(48, 40, 107, 87));
    tool.onMouseRelease(to, int(camera->key()));
}

int main(int argc, char *argv[])
{
    TestRegionView test;
    return runTest(argc, argv, test);
}

#include "test_region_view.moc"
