#include "foundation/InfoItems.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>

using Mode = StandInHost::Mode;

class TestDocumentOverlay : public TestBase
{
    Q_OBJECT

private slots:
    void cameraShowsItsTickedItems();
    void memoryShowsWhatAPartitionHas();
    void fileShowsWhatItHas();
    void recordingIsTheStateOfTheCamera();
    void countersChangeWithEveryFrame();
    void settingsAreTakenOverWhenMarked_data();
    void settingsAreTakenOverWhenMarked();
    void valuesNeedNoMark();
    void otherModeNeedsNoMark();
    void labelsAreTranslated();
    void logoOfTheSettingsAndOfTheDocument();
    void shownCustomItemsAlone();
    void toolsOfTheView();
    void smallAreaHasSmallerText();
    void emptyAreaIsNotPainted();

    void savedPictureHasItsOwnSettings();
    void nothingTickedIsThePictureAlone();
    void savedPictureFollowsItsSettingsAtOnce();
    void stripsCountInTheResolution();
    void sidesOfAThumbnail_data();
    void sidesOfAThumbnail();
    void thumbnailTellsItsTime();
    void thumbnailTellsItsPartition();
    void languageOfSavedTexts_data();
    void languageOfSavedTexts();
    void markIsSetByTheContract();
    void switchTellsOfItsChange();
};

namespace {

// The lines over a picture on the screen.
QStringList shown(StandInDocument *document, quint64 frame = 0, const QSize &size = {640, 480})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    document->overlay().paint(painter, image.rect(), frame);
    return document->overlay().shownTexts();
}

void showItems(StandInHost &host, const QString &display)
{
    QVERIFY(host.settings().setValue("info/display", display));
    host.markInfoDirty();
}

// Only one group of the saved information, and these items in it.
void saveItems(StandInHost &host, int ticked, const QString &display)
{
    for (int group = 0; group < 7; ++group) {
        const QString key = "saveinfo/display" + QString::number(group);
        QVERIFY(host.settings().setValue(key, group == ticked ? display : QString()));
    }
}

QImage thumbnail(DOC_Interface *document, int width, int height, int partition = 0,
                 const QDateTime &time = QDateTime())
{
    return document->documentThumbnail(10, width, height, partition, 0, time).toImage();
}

StandInCamera *recordedCamera(StandInHost &host)
{
    StandInCamera::Description description;
    description.partitions = {{1, "A", 100, 500}, {2, "B", 2000, 1000}};
    return host.addCamera(description);
}

}

void TestDocumentOverlay::cameraShowsItsTickedItems()
{
    StandInHost host;
    // With a blank line for each separator; what has no value draws nothing.
    QCOMPARE(shown(host.addCamera()),
             QStringList({"CameraState: LIVE", "", "Camera 1", "", "Head number: 1",
                          "Partition number: 1", "", "", "Frame rate: 1000 fps",
                          "Shutter speed: 1/1000 sec", "Resolution: 640 x 480", "",
                          "Current Time: +00:00:00", "", ""}));
    QVERIFY(host.settings().setValue("info/BlankLine", false));
    host.markInfoDirty();
    QCOMPARE(shown(host.camera(1)),
             QStringList({"CameraState: LIVE", "Camera 1", "Head number: 1", "Partition number: 1",
                          "Frame rate: 1000 fps", "Shutter speed: 1/1000 sec",
                          "Resolution: 640 x 480", "Current Time: +00:00:00"}));
}

void TestDocumentOverlay::memoryShowsWhatAPartitionHas()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    showItems(host, "CameraState:true,PartitionNumber:true,FrameRate:true,FrameNumber:true,"
                    "MaxFrames:true,Length:true,File name:true");
    QCOMPARE(shown(camera),
             QStringList({"CameraState: LIVE", "Partition number: 1", "Frame rate: 1000 fps"}));
    host.setMode(Mode::Memory);
    QCOMPARE(shown(camera, 9),
             QStringList({"Partition number: 1", "Frame rate: 500 fps", "Frame No: 10",
                          "Frame Count: 100", "Rec Time: 0.2 sec"}));
    camera->selectPartition(2);
    QCOMPARE(shown(camera, 9),
             QStringList({"Partition number: 2", "Frame rate: 1000 fps", "Frame No: 10",
                          "Frame Count: 2000", "Rec Time: 2 sec"}));
}

void TestDocumentOverlay::fileShowsWhatItHas()
{
    QTemporaryDir dir;
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(Qt::black);
    for (int i = 0; i < 3; ++i)
        QVERIFY(image.save(dir.filePath(QString("shot%1.png").arg(i))));
    StandInHost host;
    StandInRecording *recording = host.openRecording(dir.path());
    recording->state().fileRecordRate = 1500;
    recording->state().recordDate = "2024/1/2";
    recording->state().recordTime = "03:04";
    host.setMode(Mode::File);
    showItems(host, "CameraState:true,Device:true,Head:true,RecDateTime:true,FrameRate:true,"
                    "ShutterSpeed:true,Resolution:true,FrameNumber:true,MaxFrames:true,"
                    "TimeIrigCode:true");
    QCOMPARE(
        shown(recording, 2, QSize(640, 480)),
        QStringList({"Date/Time Rec: 2024/1/2 03:04", "Frame rate: 1500 fps", "Resolution: 64 x 48",
                     "Frame No: 3", "Frame Count: 3", "Current Time: +00:00:00.001333333"}));
}

void TestDocumentOverlay::recordingIsTheStateOfTheCamera()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    showItems(host, "CameraState:true");
    QCOMPARE(shown(camera), QStringList({"CameraState: LIVE"}));
    host.state().isRecording = true;
    QCOMPARE(shown(camera), QStringList({"CameraState: REC"}));
}

void TestDocumentOverlay::countersChangeWithEveryFrame()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    host.setMode(Mode::Memory);
    showItems(host, "FrameNumber:true,TimeIrigCode:true");
    QCOMPARE(shown(camera, 0), QStringList({"Frame No: 1", "Current Time: +00:00:00"}));
    QCOMPARE(shown(camera, 1), QStringList({"Frame No: 2", "Current Time: +00:00:00.002"}));
    QCOMPARE(shown(camera, 2), QStringList({"Frame No: 3", "Current Time: +00:00:00.004"}));
}

void TestDocumentOverlay::settingsAreTakenOverWhenMarked_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("mark") << "mark";
    QTest::newRow("updateUI") << "updateUI";
    QTest::newRow("refreshDocumentInfo") << "refreshDocumentInfo";
}

void TestDocumentOverlay::settingsAreTakenOverWhenMarked()
{
    QFETCH(QString, way);
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    showItems(host, "FrameRate:true");
    QCOMPARE(shown(camera), QStringList({"Frame rate: 1000 fps"}));
    QVERIFY(host.settings().setValue("info/display", "FrameRate:true,TimeIrigCode:true"));
    QVERIFY(host.settings().setValue("display/recordRateInsertDelimiter", true));
    TimeCodeRecord record;
    record.timeCodeIndex = 1;
    host.setTimeCodeSetting(record);
    QCOMPARE(shown(camera), QStringList({"Frame rate: 1000 fps"})); // nobody said so
    if (way == "mark")
        camera->markInfoOverlayDirty();
    else if (way == "updateUI")
        host.updateUI(~0u, true);
    else
        host.refreshDocumentInfo(true);
    QCOMPARE(shown(camera), QStringList({"Frame rate: 1,000 fps", "Current Time: +000.0000 deg"}));
    QVERIFY(!camera->state().isInfoOverlayDirty);
}

void TestDocumentOverlay::valuesNeedNoMark()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    showItems(host, "Camera name:true,ShutterSpeed:true,Comment:true,FanStatus:true");
    QCOMPARE(shown(camera), QStringList({"Camera 1", "Shutter speed: 1/1000 sec"}));
    camera->setShutterSpeed(2000);
    camera->setDocumentComment("a{Separator}b");
    camera->state().infoReadings.insert("FanStatus", "quiet");
    camera->setCameraName("Left");
    QCOMPARE(shown(camera),
             QStringList({"Left", "Shutter speed: 1/2000 sec", "a", "b", "Fan: quiet"}));
}

void TestDocumentOverlay::otherModeNeedsNoMark()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    showItems(host, "CameraState:true,FrameNumber:true");
    QCOMPARE(shown(camera), QStringList({"CameraState: LIVE"}));
    host.setMode(Mode::Memory);
    QCOMPARE(shown(camera), QStringList({"Frame No: 1"}));
}

void TestDocumentOverlay::labelsAreTranslated()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.state().translations.insert("Frame rate", "Bildrate");
    host.state().infoItemLabels.insert("ShutterSpeed", "Belichtung");
    showItems(host, "FrameRate:true,ShutterSpeed:true");
    host.clearJournal();
    QCOMPARE(shown(camera), QStringList({"Bildrate: 1000 fps", "Belichtung: 1/1000 sec"}));
    QCOMPARE(host.journal(), QStringList()); // a picture is no call of the library
}

void TestDocumentOverlay::logoOfTheSettingsAndOfTheDocument()
{
    QTemporaryDir dir;
    const auto logo = [&](const char *name, const QColor &colour) {
        QImage image(16, 16, QImage::Format_RGB32);
        image.fill(colour);
        const QString path = dir.filePath(name);
        return image.save(path) ? path : QString();
    };
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    showItems(host, "Logo:true,Camera name:true");
    const auto colourAtLogo = [&] {
        host.markInfoDirty();
        QImage image(640, 480, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        camera->overlay().paint(painter, image.rect(), 0);
        return image.pixelColor(10, 10);
    };
    QVERIFY(host.settings().setValue("info/LogoPath", logo("red.png", Qt::red)));
    QCOMPARE(colourAtLogo(), QColor(Qt::red));
    camera->applyLogoPath(logo("green.png", Qt::green));
    QCOMPARE(colourAtLogo(), QColor(Qt::green));
    camera->applyLogoPath("/no/such/logo.png");
    colourAtLogo();
    QCOMPARE(shown(camera), QStringList({"Camera 1"})); // without a gap
}

void TestDocumentOverlay::shownCustomItemsAlone()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->addCustomInfo("Mass", "80", "kg", true, false);
    camera->addCustomInfo("Secret", "x", "", false, true);
    camera->addCustomInfo("Engineer", "M", "", true, true);
    showItems(host, "Custom:true");
    QCOMPARE(shown(camera), QStringList({"Mass: 80 kg", "Engineer: M"}));
}

void TestDocumentOverlay::toolsOfTheView()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    showItems(host, "LUT:true,ZoomRate:true,CrossCursor:true");
    QCOMPARE(shown(camera), QStringList());
    camera->setToolOn("lut", true);
    camera->setToolOn("t_crosscursor", true);
    camera->reportCursorPosition(QPoint(3, 4));
    camera->setViewSize(QSize(320, 240));
    QCOMPARE(shown(camera), QStringList({"LUT: on", "Zoom rate: 50 %", "Cross cursor: 3, 4"}));
}

void TestDocumentOverlay::smallAreaHasSmallerText()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    showItems(host, "Camera name:true");
    const auto height = [&](const QSize &size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        camera->overlay().paint(painter, image.rect(), 0);
        int last = 0;
        int first = size.height();
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                if (qGray(image.pixel(x, y)) > 100) {
                    first = qMin(first, y);
                    last = y;
                }
            }
        }
        return last - first + 1;
    };
    const int full = height(QSize(640, 480));
    QCOMPARE(height(QSize(2000, 2000)), full); // never larger than the settings say
    QCOMPARE(height(QSize(300, 400)), full);
    const int smallest = height(QSize(640, 280));
    QVERIFY(smallest < full);
    QCOMPARE(height(QSize(200, 150)), smallest); // nor too small to be read
}

void TestDocumentOverlay::emptyAreaIsNotPainted()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(Qt::black);
    const QImage before = image;
    QPainter painter(&image);
    camera->overlay().paint(painter, QRect(), 0);
    camera->overlay().paint(painter, QRect(2, 2, 1, 1), 0);
    painter.end();
    QCOMPARE(image, before);
}

void TestDocumentOverlay::savedPictureHasItsOwnSettings()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    saveItems(host, 6, "Camera name:true"); // at the bottom right
    QVERIFY(host.settings().setValue("saveinfo/UseBackgroundColor6", true));
    QVERIFY(host.settings().setValue("saveinfo/BackgroundColor6", "#ff0000"));
    QVERIFY(host.settings().setValue("saveinfo/Width6", "200"));
    const QImage picture = thumbnail(camera, 640, 480);
    QCOMPARE(picture.size(), QSize(640, 480));
    QCOMPARE(picture.pixelColor(639, 479), QColor(Qt::red));
    QCOMPARE(picture.pixelColor(441, 479), QColor(Qt::red)); // 200 pixels wide
    QVERIFY(picture.pixelColor(438, 470) != QColor(Qt::red));
    QCOMPARE(picture.copy(0, 0, 640, 400), camera->frame(0).copy(0, 0, 640, 400));
    // Half as large it takes the same share.
    const QImage half = thumbnail(camera, 320, 240);
    QCOMPARE(half.pixelColor(319, 239), QColor(Qt::red));
    QCOMPARE(half.pixelColor(221, 239), QColor(Qt::red));
    QVERIFY(half.pixelColor(218, 236) != QColor(Qt::red));
}

void TestDocumentOverlay::nothingTickedIsThePictureAlone()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    saveItems(host, 0, "Camera name:false,Head:false");
    QCOMPARE(thumbnail(camera, 640, 480), camera->frame(0));
    QVERIFY(host.settings().setValue("saveinfo/WithinImage", false));
    QCOMPARE(thumbnail(camera, 640, 480), camera->frame(0));
    QCOMPARE(camera->documentResolution(1, 0, false), QSize(640, 480));
}

void TestDocumentOverlay::savedPictureFollowsItsSettingsAtOnce()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    saveItems(host, 1, "Camera name:true");
    const QImage before = thumbnail(camera, 640, 480);
    QVERIFY(host.settings().setValue("saveinfo/ForegroundColor1", "#ff0000"));
    const QImage after = thumbnail(camera, 640, 480);
    QVERIFY(after != before);
    // The view of the screen has no part in it.
    camera->setQuarterTurns(1);
    QCOMPARE(thumbnail(camera, 640, 480), after);
}

void TestDocumentOverlay::stripsCountInTheResolution()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    saveItems(host, 0, "Camera name:true");
    QCOMPARE(camera->documentResolution(1, 0, false), QSize(640, 480));
    QVERIFY(host.settings().setValue("saveinfo/WithinImage", false));
    const QSize whole = camera->documentResolution(1, 0, false);
    QCOMPARE(whole.width(), 640);
    QVERIFY(whole.height() > 490 && whole.height() < 530); // one line
    QCOMPARE(camera->documentResolution(1, 0, true), QSize(640, 480));
    const QImage picture = thumbnail(camera, whole.width(), whole.height());
    QCOMPARE(picture.size(), whole);
    QCOMPARE(picture.copy(0, 0, 640, 480), camera->frame(0)); // nothing of it is covered
    saveItems(host, 0, "Camera name:true,Head:true,Resolution:true,FrameRate:true");
    QVERIFY(camera->documentResolution(1, 0, false).height() > whole.height());
    StandInGroup *group = host.addGroup("none", {});
    QCOMPARE(group->documentResolution(1, 0, false), group->documentResolution(1, 0, true));
}

void TestDocumentOverlay::sidesOfAThumbnail_data()
{
    QTest::addColumn<QSize>("wanted");
    QTest::addColumn<QSize>("size");
    QTest::newRow("fits") << QSize(320, 240) << QSize(320, 240);
    QTest::newRow("too high") << QSize(320, 1000) << QSize(320, 240);
    QTest::newRow("too wide") << QSize(1000, 240) << QSize(320, 240);
    QTest::newRow("larger") << QSize(1280, 960) << QSize(640, 480);
    QTest::newRow("larger, no height") << QSize(100000, 0) << QSize(640, 480);
    QTest::newRow("larger, no width") << QSize(0, 100000) << QSize(640, 480);
    QTest::newRow("no height") << QSize(320, 0) << QSize(320, 240);
    QTest::newRow("no width") << QSize(0, 240) << QSize(320, 240);
    QTest::newRow("neither") << QSize(0, 0) << QSize(0, 0);
    QTest::newRow("below zero") << QSize(-1, 240) << QSize(0, 0);
    QTest::newRow("one pixel") << QSize(1, 0) << QSize(1, 1);
    QTest::newRow("without end") << QSize(2000000000, 3) << QSize(4, 3);
}

void TestDocumentOverlay::sidesOfAThumbnail()
{
    QFETCH(QSize, wanted);
    StandInHost host;
    QTEST(thumbnail(host.addCamera(), wanted.width(), wanted.height()).size(), "size");
}

void TestDocumentOverlay::thumbnailTellsItsTime()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    saveItems(host, 1, "Date:true,Time:true");
    QCOMPARE(thumbnail(camera, 640, 480), camera->frame(0)); // no time, no lines
    const QDateTime time(QDate(2024, 2, 3), QTime(4, 5, 6));
    const QImage first = thumbnail(camera, 640, 480, 0, time);
    QVERIFY(first != camera->frame(0));
    QVERIFY(thumbnail(camera, 640, 480, 0, time.addSecs(1)) != first);
    QCOMPARE(thumbnail(camera, 640, 480, 0, time), first);
}

void TestDocumentOverlay::thumbnailTellsItsPartition()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    host.setMode(Mode::Memory);
    saveItems(host, 1, "PartitionNumber:true");
    const QImage first = thumbnail(camera, 640, 480, 1);
    const QImage second = thumbnail(camera, 640, 480, 2);
    QVERIFY(first != second);
    QCOMPARE(thumbnail(camera, 640, 480, 0), first); // the current one
    QCOMPARE(thumbnail(camera, 640, 480, 77), first);
    camera->selectPartition(2);
    QCOMPARE(thumbnail(camera, 640, 480, 0), second);
}

void TestDocumentOverlay::languageOfSavedTexts_data()
{
    QTest::addColumn<int>("output");
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("translated");
    QTest::newRow("as the user reads") << 0 << "de" << true;
    QTest::newRow("English") << 1 << "de" << false;
    QTest::newRow("English, where the user reads Japanese") << 1 << "ja" << false;
    QTest::newRow("Japanese that is there") << 2 << "ja" << true;
    QTest::newRow("Japanese that is not there") << 2 << "de" << false;
    QTest::newRow("unknown") << 5 << "de" << true;
}

void TestDocumentOverlay::languageOfSavedTexts()
{
    QFETCH(int, output);
    QFETCH(QString, language);
    QFETCH(bool, translated);
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    saveItems(host, 1, "FrameRate:true");
    const QImage english = thumbnail(camera, 640, 480);
    host.state().translations.insert("Frame rate", "Bildrate und noch mehr");
    const QImage other = thumbnail(camera, 640, 480);
    QVERIFY(english != other);
    QVERIFY(host.settings().setValue("display/outputLanguage", output));
    QVERIFY(host.settings().setValue("display/language", language));
    QCOMPARE(thumbnail(camera, 640, 480), translated ? other : english);
    // What is on the screen speaks the user's language.
    showItems(host, "FrameRate:true");
    QVERIFY(shown(camera).value(0).startsWith("Bildrate und"));
}

void TestDocumentOverlay::markIsSetByTheContract()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    shown(first);
    shown(second);
    first->markInfoOverlayDirty();
    QVERIFY(first->state().isInfoOverlayDirty && !second->state().isInfoOverlayDirty);
    host.refreshDocumentInfo(true);
    QVERIFY(second->state().isInfoOverlayDirty);
}

void TestDocumentOverlay::switchTellsOfItsChange()
{
    StandInHost host;
    QSignalSpy changes(host.events(), &StandInEvents::displayInfoChanged);
    host.setDisplayInfoShowing(true);
    host.setDisplayInfoShowing(true);
    host.showDisplayInfo(false);
    QCOMPARE(changes.size(), 2);
    QCOMPARE(changes.at(0).at(0).toBool(), true);
    QCOMPARE(changes.at(1).at(0).toBool(), false);
    QCOMPARE(host.journal(),
             QStringList({"setDisplayInfoShowing(true)", "setDisplayInfoShowing(true)"}));
    QVERIFY(!host.isDisplayInfoShowing());
}

int main(int argc, char *argv[])
{
    TestDocumentOverlay test;
    return runTest(argc, argv, test);
}

#include "test_document_overlay.moc"
