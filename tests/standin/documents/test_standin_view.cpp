#include "standin/drawing/SceneRenderer.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QElapsedTimer>
#include <QPainter>
#include <QSignalSpy>

#include <limits>

class TestStandInView : public TestBase
{
    Q_OBJECT

private slots:
    void mapsAPixelAtEachRotationAndFlip_data();
    void mapsAPixelAtEachRotationAndFlip();
    void mapsBackEveryPixel_data();
    void mapsBackEveryPixel();
    void mapPointStaysInside_data();
    void mapPointStaysInside();
    void mapsRectanglesAtAnyScale();
    void emptyRectanglesStayEmpty();
    void takesZoomAndPlaceFromAScreenPixel_data();
    void takesZoomAndPlaceFromAScreenPixel();
    void mapsRectanglesFarOutsideOfAnyPicture();
    void transposedAtQuarterTurns();
    void rotationIsAFractionOfATurn();
    void scaleFitsIntoTheView();
    void zoomIsTheScale();
    void binningKeepsTheSizeOnTheScreen();
    void scaleDividerMakesThePictureSmaller();
    void pictureIsCentredInItsView();
    void drawnPictureLiesWhereItIsMapped();
    void cursorPositionIsKept();
    void imageFormatIsAnswered();
    void zoomFactorIsThatOfTheCurrentDocument();
    void viewStateOfAKey();
    void eventsTellOfChanges();

    void sceneMovesFromFrameToFrame();
    void sceneShowsTheRegion();
    void sceneIsDarkerWithAShorterExposure();
    void sceneSmearsWhatMovesWhileItIsExposed();
    void sceneCountsItsFrames();
    void sceneStandsBeforeAGrid();
    void sceneBearsNoText();
    void emptySceneIsNull();
    void previewsFitTheirSize();
    void framesAreFastEnoughForTwoViews();
};

namespace {

StandInCamera *addCamera(StandInHost &host, const QSize &size)
{
    StandInCamera::Description description;
    description.region = QRect(QPoint(0, 0), size);
    return host.addCamera(description);
}

}

void TestStandInView::mapsAPixelAtEachRotationAndFlip_data()
{
    QTest::addColumn<int>("turns");
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<QPoint>("shown"); // of the image pixel (2,3) of a 40x20 picture

    QTest::newRow("as it is") << 0 << false << false << QPoint(2, 3);
    QTest::newRow("flipped left to right") << 0 << true << false << QPoint(37, 3);
    QTest::newRow("flipped top to bottom") << 0 << false << true << QPoint(2, 16);
    QTest::newRow("flipped both ways") << 0 << true << true << QPoint(37, 16);
    // A quarter clockwise: the top row becomes the right column.
    QTest::newRow("90") << 1 << false << false << QPoint(16, 2);
    QTest::newRow("90, left to right") << 1 << true << false << QPoint(3, 2);
    QTest::newRow("90, top to bottom") << 1 << false << true << QPoint(16, 37);
    QTest::newRow("90, both") << 1 << true << true << QPoint(3, 37);
    QTest::newRow("180") << 2 << false << false << QPoint(37, 16);
    QTest::newRow("180, left to right") << 2 << true << false << QPoint(2, 16);
    QTest::newRow("180, top to bottom") << 2 << false << true << QPoint(37, 3);
    QTest::newRow("180, both") << 2 << true << true << QPoint(2, 3);
    QTest::newRow("270") << 3 << false << false << QPoint(3, 37);
    QTest::newRow("270, left to right") << 3 << true << false << QPoint(16, 37);
    QTest::newRow("270, top to bottom") << 3 << false << true << QPoint(3, 2);
    QTest::newRow("270, both") << 3 << true << true << QPoint(16, 2);
}

void TestStandInView::mapsAPixelAtEachRotationAndFlip()
{
    QFETCH(int, turns);
    QFETCH(bool, horizontal);
    QFETCH(bool, vertical);
    QFETCH(QPoint, shown);
    StandInHost host;
    StandInCamera *camera = addCamera(host, QSize(40, 20));
    camera->setQuarterTurns(turns);
    camera->setFlips(horizontal, vertical);
    QCOMPARE(camera->mapRect(QRect(2, 3, 1, 1)), QRect(shown, QSize(1, 1)));
    QCOMPARE(camera->mapPoint(shown, true), QPoint(2, 3));
}

void TestStandInView::mapsBackEveryPixel_data()
{
    QTest::addColumn<double>("zoom");
    for (double zoom : {1.0, 2.0, 3.7})
        QTest::newRow(qPrintable(QString::number(zoom))) << zoom;
}

void TestStandInView::mapsBackEveryPixel()
{
    QFETCH(double, zoom);
    StandInHost host;
    StandInCamera *camera = addCamera(host, QSize(24, 16));
    camera->setZoom(zoom);
    host.setJournalEnabled(false);
    for (int way = 0; way < 16; ++way) {
        camera->setQuarterTurns(way / 4);
        camera->setFlips(way & 1, way & 2);
        for (int x = 0; x < 24; ++x) {
            for (int y = 0; y < 16; ++y) {
                const QRect shown = camera->mapRect(QRect(x, y, 1, 1));
                QCOMPARE(camera->mapPoint(shown.center(), true), QPoint(x, y));
            }
        }
    }
}

void TestStandInView::mapPointStaysInside_data()
{
    QTest::addColumn<QPoint>("view");
    QTest::addColumn<QPoint>("image");
    QTest::newRow("first pixel") << QPoint(0, 0) << QPoint(0, 0);
    QTest::newRow("last pixel") << QPoint(39, 19) << QPoint(39, 19);
    QTest::newRow("left of it") << QPoint(-1, 5) << QPoint(0, 5);
    QTest::newRow("above") << QPoint(5, -100) << QPoint(5, 0);
    QTest::newRow("right of it") << QPoint(40, 5) << QPoint(39, 5);
    QTest::newRow("below") << QPoint(5, 20) << QPoint(5, 19);
    QTest::newRow("far away") << QPoint(INT_MAX, INT_MIN) << QPoint(39, 0);
}

void TestStandInView::mapPointStaysInside()
{
    QFETCH(QPoint, view);
    QFETCH(QPoint, image);
    StandInHost host;
    QCOMPARE(addCamera(host, QSize(40, 20))->mapPoint(view, true), image);
}

// What a tool is told does not depend on zoom and place, what is drawn does.
void TestStandInView::mapsRectanglesAtAnyScale()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host, QSize(40, 20));
    for (double zoom : {0.5, 1.0, 2.0, 8.0}) {
        camera->setZoom(zoom);
        camera->setQuarterTurns(0);
        QCOMPARE(camera->mapRect(QRect(3, 4, 5, 6)), QRect(3, 4, 5, 6));
        camera->setQuarterTurns(1); // 20 wide, 40 high
        QCOMPARE(camera->mapRect(QRect(3, 4, 5, 6)), QRect(20 - 10, 3, 6, 5));
    }
    camera->setZoom(2.0);
    QCOMPARE(camera->geometry().toScreen(QRect(3, 4, 5, 6)), QRect(2 * (20 - 10), 6, 12, 10));
    camera->setQuarterTurns(0);
    QCOMPARE(camera->geometry().toScreen(QRect(3, 4, 5, 6)), QRect(6, 8, 10, 12));
    camera->setZoom(0.5);
    QCOMPARE(camera->geometry().toScreen(QRect(4, 4, 8, 4)), QRect(2, 2, 4, 2));
    QCOMPARE(camera->geometry().toScreen(QRect(4, 4, 1, 1)), QRect(2, 2, 1, 1)); // never empty
    QCOMPARE(camera->geometry().toScreen(QRect(5, 5, 1, 1)), QRect(2, 2, 1, 1));
}

void TestStandInView::emptyRectanglesStayEmpty()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host, QSize(40, 20));
    for (int way = 0; way < 16; ++way) {
        camera->setQuarterTurns(way / 4);
        camera->setFlips(way & 1, way & 2);
        QVERIFY(camera->mapRect(QRect(QPoint(0, 0), QPoint(-1, -1))).isEmpty());
        QVERIFY(camera->mapRect(QRect(5, 6, 0, 3)).isEmpty());
    }
}

void TestStandInView::takesZoomAndPlaceFromAScreenPixel_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QPoint>("origin");
    QTest::addColumn<QPoint>("screen");
    QTest::addColumn<QPoint>("view");
    QTest::newRow("as it is") << 1.0 << QPoint() << QPoint(7, 9) << QPoint(7, 9);
    QTest::newRow("first of eight") << 8.0 << QPoint() << QPoint(16, 24) << QPoint(2, 3);
    QTest::newRow("last of eight") << 8.0 << QPoint() << QPoint(23, 31) << QPoint(2, 3);
    QTest::newRow("half the size") << 0.5 << QPoint() << QPoint(3, 4) << QPoint(6, 8);
    QTest::newRow("with a margin") << 1.0 << QPoint(100, 50) << QPoint(107, 59) << QPoint(7, 9);
    QTest::newRow("scrolled") << 8.0 << QPoint(-160, -8) << QPoint(0, 0) << QPoint(20, 1);
    QTest::newRow("beside it") << 8.0 << QPoint(100, 50) << QPoint(99, 49) << QPoint(-1, -1);
    QTest::newRow("a scale that is no whole number")
        << 2.5 << QPoint() << QPoint(4, 5) << QPoint(1, 2);
    QTest::newRow("a scale that rounds") << 0.1 << QPoint() << QPoint(3, 6) << QPoint(30, 60);
}

void TestStandInView::takesZoomAndPlaceFromAScreenPixel()
{
    QFETCH(double, scale);
    QFETCH(QPoint, origin);
    QFETCH(QPoint, screen);
    ViewGeometry geometry;
    geometry.picture = QSize(640, 480);
    geometry.scale = scale;
    geometry.origin = origin;
    QTEST(geometry.fromScreen(screen), "view");
    geometry.quarterTurns = 3; // the picture as it is seen, however that is
    geometry.flippedVertically = true;
    QTEST(geometry.fromScreen(screen), "view");
}

void TestStandInView::mapsRectanglesFarOutsideOfAnyPicture()
{
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    ViewGeometry geometry;
    geometry.picture = QSize(640, 480);
    geometry.scale = 100.0;
    const QRect everything(QPoint(least, least), QPoint(most, most));
    const QRect largest(QPoint(-1000000000, -1000000000), QPoint(1000000000, 1000000000));
    QCOMPARE(geometry.toScreen(everything), largest);
    for (int turns = 0; turns < 4; ++turns) {
        geometry.quarterTurns = turns;
        QCOMPARE(geometry.toView(everything), largest);
        QCOMPARE(geometry.toImage(QPoint(least, most)).x() % 639, 0); // at a corner
    }
    geometry.scale = 1e300;
    QCOMPARE(geometry.toScreen(everything).topLeft(), QPoint(-1000000000, -1000000000));
}

void TestStandInView::transposedAtQuarterTurns()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host, QSize(40, 20));
    const bool expected[] = {false, true, false, true};
    for (int turns = 0; turns < 4; ++turns) {
        camera->setQuarterTurns(turns);
        QCOMPARE(camera->isTransposed(), expected[turns]);
        QCOMPARE(camera->imageSize(), QSize(40, 20)); // the image itself is not turned
    }
}

void TestStandInView::rotationIsAFractionOfATurn()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    const float expected[] = {0.0f, 0.25f, 0.5f, 0.75f};
    for (int turns = 0; turns < 4; ++turns) {
        camera->setQuarterTurns(turns);
        QCOMPARE(camera->viewRotation(), expected[turns]);
        QCOMPARE(host.rotation(1), expected[turns]);
    }
    camera->setQuarterTurns(-1);
    QCOMPARE(camera->viewRotation(), 0.75f);
    camera->setQuarterTurns(6);
    QCOMPARE(camera->viewRotation(), 0.5f);
}

void TestStandInView::scaleFitsIntoTheView()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host, QSize(400, 200));
    QCOMPARE(camera->viewScale(true), 1.0f); // shown nowhere
    camera->setViewSize(QSize(200, 200));
    QCOMPARE(camera->viewScale(true), 0.5f);
    camera->setQuarterTurns(1); // 200 wide, 400 high
    QCOMPARE(camera->viewScale(true), 0.5f);
    camera->setViewSize(QSize(400, 1200));
    QCOMPARE(camera->viewScale(true), 2.0f);
    camera->setZoom(-1.0); // as 0: fit
    QCOMPARE(camera->viewScale(true), 2.0f);
}

void TestStandInView::zoomIsTheScale()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host, QSize(400, 200));
    camera->setViewSize(QSize(200, 200));
    camera->setZoom(3.0);
    QCOMPARE(camera->viewScale(true), 3.0f);
}

void TestStandInView::binningKeepsTheSizeOnTheScreen()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host, QSize(400, 200));
    camera->setZoom(1.5);
    camera->setBinningLevel(2);
    QCOMPARE(camera->binningLevel(), 2); // the exponent: 4
    QCOMPARE(camera->imageSize(), QSize(100, 50));
    QCOMPARE(camera->frame(0).size(), QSize(100, 50));
    QCOMPARE(camera->viewScale(true), 6.0f);
    QCOMPARE(camera->mapRect(QRect(0, 0, 100, 50)), QRect(0, 0, 100, 50));
    QCOMPARE(camera->geometry().toScreen(QRect(0, 0, 100, 50)), QRect(0, 0, 600, 300));
    camera->setBinningLevel(1);
    QCOMPARE(camera->imageSize(), QSize(200, 100));
    QCOMPARE(camera->viewScale(true), 3.0f);
}

void TestStandInView::scaleDividerMakesThePictureSmaller()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host, QSize(400, 200));
    camera->state().scaleDivider = 2;
    QCOMPARE(camera->scaleDivider(), 2);
    QVERIFY(!camera->hasScaleDivider(false));
    QVERIFY(!camera->usesScaleDivider(false));
    QCOMPARE(camera->imageSize(), QSize(400, 200));
    camera->state().hasScaleDivider = true;
    camera->state().usesScaleDivider = true;
    QVERIFY(camera->hasScaleDivider(false));
    QVERIFY(camera->usesScaleDivider(false));
    QCOMPARE(camera->imageSize(), QSize(200, 100));
}

void TestStandInView::pictureIsCentredInItsView()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host, QSize(400, 200));
    camera->setViewSize(QSize(200, 200));
    QCOMPARE(camera->geometry().toScreen(QRect(0, 0, 400, 200)), QRect(0, 50, 200, 100));
    QCOMPARE(camera->geometry().fromScreen(QPoint(0, 0)), QPoint(0, -100)); // above the picture
    QCOMPARE(camera->geometry().fromScreen(QPoint(100, 100)), QPoint(200, 100));
    QCOMPARE(camera->mapRect(QRect(0, 0, 400, 200)), QRect(0, 0, 400, 200));
    QCOMPARE(camera->mapPoint(QPoint(0, -100), true), QPoint(0, 0));
}

void TestStandInView::drawnPictureLiesWhereItIsMapped()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host, QSize(40, 20));
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(Qt::black);
    picture.setPixelColor(2, 3, Qt::white);
    for (int way = 0; way < 16; ++way) {
        camera->setQuarterTurns(way / 4);
        camera->setFlips(way & 1, way & 2);
        camera->setZoom(2.0);
        QImage view(80, 80, QImage::Format_RGB32);
        view.fill(Qt::black);
        QPainter painter(&view);
        painter.setTransform(camera->geometry().transform());
        painter.drawImage(0, 0, picture);
        painter.end();
        const QRect place = camera->geometry().toScreen(QRect(2, 3, 1, 1));
        for (int x = 0; x < 80; ++x) {
            for (int y = 0; y < 80; ++y)
                QCOMPARE(view.pixelColor(x, y) == QColor(Qt::white), place.contains(x, y));
        }
    }
}

void TestStandInView::cursorPositionIsKept()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    QCOMPARE(camera->cursorPosition(), QPoint(0, 0));
    camera->reportCursorPosition(QPoint(7, 8));
    QCOMPARE(camera->cursorPosition(), QPoint(7, 8));
}

void TestStandInView::imageFormatIsAnswered()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->state().imageFormat = {16, 12};
    ImageFormat format;
    QVERIFY(camera->imageFormat(format));
    QCOMPARE(format.bits, 16);
    QCOMPARE(format.realBits, 12);
    camera->state().hasImageFormat = false;
    format = {1, 2};
    QVERIFY(!camera->imageFormat(format));
    QCOMPARE(format.bits, 1);
    QCOMPARE(format.realBits, 2);
}

void TestStandInView::zoomFactorIsThatOfTheCurrentDocument()
{
    StandInHost host;
    QCOMPARE(host.zoomFactor(0), 0.0f);
    host.addCamera();
    host.addCamera()->setZoom(2.5);
    QCOMPARE(host.zoomFactor(0), 0.0f); // fit to the window
    host.setCurrentDoc(2, true);
    QCOMPARE(host.zoomFactor(0), 2.5f);
}

void TestStandInView::viewStateOfAKey()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->setFlips(true, false);
    QVERIFY(host.flipHorizontal(1));
    QVERIFY(!host.flipVertical(1));
    QVERIFY(camera->isFlippedHorizontally());
    QVERIFY(!camera->isFlippedVertically());
    camera->setFlips(false, true);
    QVERIFY(!host.flipHorizontal(1));
    QVERIFY(host.flipVertical(1));
    QVERIFY(!host.flipVertical(9));
    QCOMPARE(host.rotation(9), 0.0f);
    QVERIFY(!host.isDisplayInfoShowing());
    host.setDisplayInfoShowing(true);
    QVERIFY(host.isDisplayInfoShowing());
    QVERIFY(!host.isViewCycling());
    host.state().isViewCycling = true;
    QVERIFY(host.isViewCycling());
}

void TestStandInView::eventsTellOfChanges()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    QSignalSpy spy(host.events(), &StandInEvents::viewChanged);
    camera->setQuarterTurns(1);
    camera->setFlips(true, true);
    camera->setZoom(2);
    camera->setBinningLevel(1);
    camera->setViewSize(QSize(10, 10));
    camera->setViewSize(QSize(10, 10)); // as it is
    QCOMPARE(spy.count(), 5);
    camera->scrollBy(QPoint(-3, 0));
    camera->scrollBy(QPoint(0, 0));
    QCOMPARE(spy.count(), 6);
}

void TestStandInView::sceneMovesFromFrameToFrame()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    const QImage first = camera->frame(10);
    QCOMPARE(first.size(), QSize(640, 480));
    QVERIFY(first == camera->frame(10));
    QVERIFY(first != camera->frame(11));
}

void TestStandInView::sceneShowsTheRegion()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host, QSize(1024, 1024));
    // A part of the sensor shows what the whole picture shows there, but for the timing bar.
    const QRect part(500, 400, 200, 160);
    const QRect free(10, 40, 180, 100);
    const QImage whole = camera->frame(5).copy(part).copy(free);
    camera->setSensorRegion(part);
    const QImage alone = camera->frame(5).copy(free);
    int different = 0;
    for (int x = 0; x < free.width(); ++x) {
        for (int y = 0; y < free.height(); ++y)
            different += whole.pixel(x, y) != alone.pixel(x, y);
    }
    QVERIFY2(different < free.width() * free.height() / 100,
             qPrintable(QString::number(different)));
}

void TestStandInView::sceneIsDarkerWithAShorterExposure()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    const QPoint ground(320, 426); // the line that the ball falls on
    const int bright = camera->frame(0).pixelColor(ground).value();
    camera->setShutterSpeed(8000);
    const int dark = camera->frame(0).pixelColor(ground).value();
    QVERIFY2(dark < bright * 2 / 3, qPrintable(QStringLiteral("%1 %2").arg(bright).arg(dark)));
    QVERIFY(dark > 20);
    QCOMPARE(SceneRenderer::exposureGain(1000), 1.0);
    QVERIFY(SceneRenderer::exposureGain(500) > 1.0);
    QVERIFY(SceneRenderer::exposureGain(0) > 1.0); // no division by it
}

void TestStandInView::sceneSmearsWhatMovesWhileItIsExposed()
{
    // The ball is the only red thing: its area grows with the exposure.
    const auto redPixels = [](uint shutterSpeed) {
        SceneRenderer scene;
        scene.region = QRect(192, 272, 640, 480);
        scene.frame = 20;
        scene.recordRate = 50;
        scene.shutterSpeed = shutterSpeed;
        const QImage image = scene.render();
        int count = 0;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                const QColor color = image.pixelColor(x, y);
                count += color.red() > 30 && 2 * color.red() > 3 * color.green();
            }
        }
        return count;
    };
    const int sharp = redPixels(100000);
    const int smeared = redPixels(50);
    QVERIFY2(sharp > 2500, qPrintable(QString::number(sharp))); // a disc of 64 pixels: 3217
    QVERIFY2(smeared > sharp * 5 / 4, qPrintable(QStringLiteral("%1 %2").arg(sharp).arg(smeared)));
}

void TestStandInView::sceneCountsItsFrames()
{
    SceneRenderer scene;
    scene.region = QRect(192, 272, 640, 480);
    // The timing bar fills over a hundred frames.
    const auto bar = [&](quint64 frame) {
        scene.frame = frame;
        const QImage image = scene.render();
        int filled = 0;
        while (filled < 640 && image.pixelColor(filled, 479).green() > 100)
            ++filled;
        return filled;
    };
    QCOMPARE(bar(0), 6); // 640 * 1 / 100
    QCOMPARE(bar(49), 320);
    QCOMPARE(bar(99), 640);
    QCOMPARE(bar(100), 6);
}

void TestStandInView::sceneStandsBeforeAGrid()
{
    SceneRenderer scene;
    scene.region = QRect(96, 64, 640, 40); // above all that moves
    const auto levels = [&](const QSize &picture, const QVector<QPoint> &points) {
        scene.picture = picture;
        const QImage image = scene.render();
        QVector<int> found;
        for (const QPoint &point : points)
            found.append(image.pixelColor(point).red());
        return found;
    };
    // A line each 32 pixels of the sensor, each fourth of them is brighter and lies above the
    // others.
    QCOMPARE(
        levels({640, 40}, {{0, 10}, {1, 10}, {31, 10}, {32, 10}, {33, 10}, {64, 10}, {160, 10}}),
        QVector<int>({66, 40, 40, 104, 40, 66, 104}));
    QCOMPARE(levels({640, 40}, {{10, 0}, {32, 0}, {10, 1}, {10, 31}, {10, 32}, {10, 33}}),
             QVector<int>({66, 104, 40, 40, 66, 40}));
    QCOMPARE(levels({320, 20}, {{0, 5}, {15, 5}, {16, 5}, {17, 5}, {80, 5}, {5, 0}, {5, 16}}),
             QVector<int>({66, 40, 104, 40, 104, 66, 66}));
    // Two lines share a column.
    QCOMPARE(levels({10, 40}, {{0, 10}, {1, 10}, {2, 10}}), QVector<int>({104, 66, 104}));
    scene.region.moveTop(128);
    QCOMPARE(levels({640, 40}, {{10, 0}, {64, 0}, {10, 32}, {32, 32}}),
             QVector<int>({104, 104, 66, 104}));
}

// What a saved picture bears is the choice of its user.
void TestStandInView::sceneBearsNoText()
{
    SceneRenderer scene;
    scene.region = QRect(0, 0, 640, 40); // above all that moves
    scene.picture = scene.region.size();
    const QRect overTheBar(0, 0, 640, 30);
    const QImage first = scene.render();
    scene.frame = 12345678;
    QCOMPARE(scene.render().copy(overTheBar), first.copy(overTheBar));
}

void TestStandInView::emptySceneIsNull()
{
    SceneRenderer scene;
    scene.picture = QSize(0, 10);
    QVERIFY(scene.render().isNull());
    scene.picture = QSize(10, 10);
    scene.region = QRect();
    QVERIFY(scene.render().isNull());
    scene.region = QRect(0, 0, 1, 1);
    scene.picture = QSize(1, 1);
    scene.recordRate = 0;
    scene.shutterSpeed = 0;
    QCOMPARE(scene.render().size(), QSize(1, 1));
}

void TestStandInView::previewsFitTheirSize()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    QCOMPARE(camera->previewPixmap(1, 320, 320, 1, false, QDateTime()).size(), QSize(320, 240));
    QCOMPARE(camera->documentThumbnail(1, 64, 480, 1, 0, QDateTime()).size(), QSize(64, 48));
    QVERIFY(camera->previewPixmap(1, 0, 10, 1, false, QDateTime()).isNull());
    QVERIFY(host.addGroup("none", {})->previewPixmap(1, 9, 9, 1, false, QDateTime()).isNull());
    QCOMPARE(camera->documentResolution(1, 1, true), QSize(640, 480));
}

void TestStandInView::framesAreFastEnoughForTwoViews()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    constexpr int Frames = 50;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < Frames; ++i)
        camera->frame(quint64(i));
    const double msec = double(timer.elapsed()) / Frames;
    QVERIFY2(msec < 20.0, qPrintable(QString::number(msec))); // two views, 25 pictures a second
}

int main(int argc, char **argv)
{
    TestStandInView test;
    return runTest(argc, argv, test);
}

#include "test_standin_view.moc"
