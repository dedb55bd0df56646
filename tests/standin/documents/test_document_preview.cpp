#include "standin/host/StandInHost.h"
#include "standin/settings/StandInDefaults.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QTemporaryDir>

using Mode = StandInHost::Mode;

// Pictures of a document as a save would write them.
class TestDocumentPreview : public TestBase
{
    Q_OBJECT

private slots:
    void sizes_data();
    void sizes();
    void pictureOfTheAskedPartition();
    void currentPartitionForAnother();
    void livePicturesAreTheSameForAll();
    void partitionsShowDifferentScenes();
    void movesBetweenFirstAndLastFrame();
    void everyPartitionHasItsFrame();
    void currentPartitionMovesBeforeAnyPreview();
    void emptyPartitionStays();
    void fewerFramesThanBefore();
    void movesThroughTheFilesOfAFolder();
    void thumbnailShowsTheSameFrame();
    void groupHasNone();

    void informationIsAnOption();
    void tellsTheNameOfTheFile_data();
    void tellsTheNameOfTheFile();
    void nameIsThatOfTheNextFreeNumber();
    void namingIsTheHostsOwnMatter();
    void nameIsLookedForWhereItIsShown();
    void turnedAndFlippedAsSeen_data();
    void turnedAndFlippedAsSeen();
    void undoesTheScaleDivider();
    void dividerBeyondWhatCamerasHave_data();
    void dividerBeyondWhatCamerasHave();
    void optionsActTogether();
    void thumbnailAlwaysHasTheInformation();
    void resolutionIsThatOfTheSavedPicture();
};

namespace {

QImage preview(DOC_Interface *document, int partition = 1, const QSize &size = {640, 480})
{
    return document->previewPixmap(10, size.width(), size.height(), partition, false, QDateTime())
        .toImage();
}

StandInCamera *recordedCamera(StandInHost &host)
{
    StandInCamera::Description description;
    description.partitions = {{1, "A", 3, 1000}, {2, "B", 50, 1000}, {3, "C", 0, 0}};
    host.setMode(Mode::Memory);
    return host.addCamera(description);
}

// Shows nothing but its number.
QImage numbered(int number)
{
    QImage image(32, 24, QImage::Format_RGB32);
    image.fill(QColor(number * 40, number * 40, number * 40));
    return image;
}

// A recording of one picture whose quarters have colours of their own.
StandInRecording *openQuarters(StandInHost &host, const QTemporaryDir &folder)
{
    QImage image(40, 20, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, QColor(x < 20 ? 200 : 0, y < 10 ? 200 : 0, 100));
    }
    return image.save(folder.filePath("1.png")) ? host.openRecording(folder.path()) : nullptr;
}

// The quarters from top left over top right and bottom left to bottom right: "r" for what was left,
// "g" for what was at the top, "x" for both, "-" for neither.
QString quarters(const QImage &image)
{
    QString text;
    for (int y : {1, 3}) {
        for (int x : {1, 3}) {
            const QColor colour = image.pixelColor(image.width() * x / 4, image.height() * y / 4);
            const bool left = colour.red() > 100;
            const bool top = colour.green() > 100;
            text += left && top ? "x" : left ? "r" : top ? "g" : "-";
        }
    }
    return text;
}

// Only the caption is saved, and this in it.
void captionOnly(StandInHost &host, const QString &display = "PartitionNumber:true")
{
    for (int group = 0; group < 7; ++group) {
        const QString key = "saveinfo/display" + QString::number(group);
        QVERIFY(host.settings().setValue(key, group == 0 ? display : QString()));
    }
}

void nameOnly(StandInHost &host)
{
    captionOnly(host, "PartitionNumber:false,File name:true");
}

}

void TestDocumentPreview::sizes_data()
{
    QTest::addColumn<QSize>("wanted");
    QTest::addColumn<QSize>("size");
    QTest::newRow("half") << QSize(320, 240) << QSize(320, 240);
    QTest::newRow("high") << QSize(320, 1000) << QSize(320, 240);
    QTest::newRow("wide") << QSize(1000, 120) << QSize(160, 120);
    QTest::newRow("as it is") << QSize(640, 480) << QSize(640, 480);
    QTest::newRow("never larger") << QSize(1280, 960) << QSize(640, 480);
    QTest::newRow("without end") << QSize(100000, 100000) << QSize(640, 480);
    QTest::newRow("as wide as numbers go") << QSize(2147483647, 3) << QSize(4, 3);
    QTest::newRow("a pixel") << QSize(1, 1) << QSize(1, 1);
    QTest::newRow("no width") << QSize(0, 100) << QSize(0, 0);
    QTest::newRow("no height") << QSize(100, 0) << QSize(0, 0);
    QTest::newRow("nothing") << QSize(0, 0) << QSize(0, 0);
    QTest::newRow("below zero") << QSize(-1, 100) << QSize(0, 0);
    QTest::newRow("both below zero") << QSize(-100000, -100000) << QSize(0, 0);
}

void TestDocumentPreview::sizes()
{
    QFETCH(QSize, wanted);
    for (bool withInfo : {false, true}) {
        StandInHost host;
        DOC_Interface *camera = host.addCamera();
        camera->setSaveInfoOption(withInfo);
        QTEST(preview(camera, 1, wanted).size(), "size");
    }
}

void TestDocumentPreview::pictureOfTheAskedPartition()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    QCOMPARE(preview(camera, 1), camera->partitionFrame(0, 1));
    QCOMPARE(preview(camera, 2), camera->partitionFrame(0, 2));
    QVERIFY(preview(camera, 1) != preview(camera, 2));
}

void TestDocumentPreview::currentPartitionForAnother()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    camera->state().currentPartition = 2;
    for (int other : {0, 7, -1})
        QCOMPARE(preview(camera, other), camera->partitionFrame(0, 2));
    QCOMPARE(camera->frame(3), camera->partitionFrame(3, 2));
}

void TestDocumentPreview::livePicturesAreTheSameForAll()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    host.setMode(Mode::Live);
    QCOMPARE(preview(camera, 1), preview(camera, 2));
}

void TestDocumentPreview::partitionsShowDifferentScenes()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    camera->state().partitions = {{1, "A", 9, 1000}, {2, "B", 9, 1000}, {3, "slow", 9, 100}};
    QVERIFY(camera->partitionFrame(0, 1) != camera->partitionFrame(0, 2));
    QVERIFY(camera->partitionFrame(0, 2) != camera->partitionFrame(0, 3));
    // A slow recording shows in one frame what a fast one shows in ten.
    camera->state().partitions = {{1, "A", 9, 100}};
    const QImage slow = camera->partitionFrame(1, 1);
    camera->state().partitions = {{1, "A", 99, 1000}};
    const QImage fast = camera->partitionFrame(10, 1);
    // But for the bar at the bottom, which counts frames.
    const QRect scene(0, 0, 640, 460);
    QCOMPARE(slow.copy(scene), fast.copy(scene));
    QVERIFY(slow != fast);
}

void TestDocumentPreview::movesBetweenFirstAndLastFrame()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    const auto shown = [&] {
        const QImage picture = preview(camera, 1);
        for (int frame = 0; frame < 5; ++frame) {
            if (picture == camera->partitionFrame(quint64(frame), 1))
                return frame;
        }
        return -1;
    };
    QCOMPARE(shown(), 0);
    camera->showPreviousPreview();
    QCOMPARE(shown(), 0);
    QList<int> forwards;
    QList<int> backwards;
    for (int i = 0; i < 4; ++i) {
        camera->showNextPreview();
        forwards.append(shown());
    }
    for (int i = 0; i < 4; ++i) {
        camera->showPreviousPreview();
        backwards.append(shown());
    }
    QCOMPARE(forwards, QList<int>({1, 2, 2, 2}));
    QCOMPARE(backwards, QList<int>({1, 0, 0, 0}));
}

void TestDocumentPreview::everyPartitionHasItsFrame()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    preview(camera, 2);
    camera->showNextPreview();
    camera->showNextPreview();
    QCOMPARE(preview(camera, 1), camera->partitionFrame(0, 1));
    camera->showNextPreview();
    QCOMPARE(preview(camera, 1), camera->partitionFrame(1, 1));
    QCOMPARE(preview(camera, 2), camera->partitionFrame(2, 2));
    // A picture of another partition leaves the one that is moved as it is.
    camera->documentThumbnail(10, 64, 48, 1, 0, QDateTime());
    camera->showNextPreview();
    QCOMPARE(preview(camera, 2), camera->partitionFrame(3, 2));
    QCOMPARE(preview(camera, 1), camera->partitionFrame(1, 1));
}

void TestDocumentPreview::currentPartitionMovesBeforeAnyPreview()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    camera->state().currentPartition = 2;
    camera->showNextPreview();
    QCOMPARE(preview(camera, 1), camera->partitionFrame(0, 1));
    QCOMPARE(preview(camera, 2), camera->partitionFrame(1, 2));
}

void TestDocumentPreview::emptyPartitionStays()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    const QImage first = preview(camera, 3);
    QCOMPARE(first.size(), QSize(640, 480));
    camera->showNextPreview();
    QCOMPARE(preview(camera, 3), first);
    camera->state().partitions = {};
    camera->showNextPreview();
    QCOMPARE(preview(camera, 3).size(), QSize(640, 480));
}

void TestDocumentPreview::fewerFramesThanBefore()
{
    StandInHost host;
    StandInCamera *camera = recordedCamera(host);
    preview(camera, 2);
    for (int i = 0; i < 20; ++i)
        camera->showNextPreview();
    camera->state().partitions[1].frames = 5;
    QCOMPARE(preview(camera, 2), camera->partitionFrame(4, 2));
    camera->showPreviousPreview();
    QCOMPARE(preview(camera, 2), camera->partitionFrame(3, 2));
}

void TestDocumentPreview::movesThroughTheFilesOfAFolder()
{
    QTemporaryDir folder;
    for (int i = 1; i <= 3; ++i)
        QVERIFY(numbered(i).save(folder.filePath(QString::number(i) + ".png")));
    StandInHost host;
    DOC_Interface *recording = host.openRecording(folder.path());
    const QSize size(32, 24);
    QCOMPARE(preview(recording, 1, size), numbered(1));
    recording->showNextPreview();
    QCOMPARE(preview(recording, 1, size), numbered(2));
    recording->showNextPreview();
    recording->showNextPreview();
    QCOMPARE(preview(recording, 1, size), numbered(3));
    recording->showPreviousPreview();
    QCOMPARE(preview(recording, 1, size), numbered(2));
}

void TestDocumentPreview::thumbnailShowsTheSameFrame()
{
    StandInHost host;
    captionOnly(host, "");
    StandInCamera *camera = recordedCamera(host);
    preview(camera, 2);
    camera->showNextPreview();
    QCOMPARE(camera->documentThumbnail(10, 640, 480, 2, 0, QDateTime()).toImage(),
             camera->partitionFrame(1, 2));
    QCOMPARE(camera->documentThumbnail(10, 640, 480, 1, 0, QDateTime()).toImage(),
             camera->partitionFrame(0, 1));
}

void TestDocumentPreview::groupHasNone()
{
    StandInHost host;
    DOC_Interface *group = host.addGroup("both", {});
    for (bool withInfo : {false, true}) {
        group->setSaveInfoOption(withInfo);
        group->setSaveCorrectOption(withInfo);
        group->setSaveScaleOption(withInfo);
        group->showNextPreview();
        QVERIFY(preview(group).isNull());
        QVERIFY(group->documentThumbnail(10, 64, 48, 1, 0, QDateTime()).isNull());
    }
}

void TestDocumentPreview::informationIsAnOption()
{
    StandInHost host;
    captionOnly(host);
    StandInCamera *camera = recordedCamera(host);
    const QImage bare = camera->partitionFrame(0, 2);
    QCOMPARE(preview(camera, 2), bare);
    camera->setSaveInfoOption(true);
    const QImage second = preview(camera, 2);
    QCOMPARE(second, camera->documentThumbnail(10, 640, 480, 2, 0, QDateTime()).toImage());
    QVERIFY(second != bare);
    camera->setSaveInfoOption(false);
    QCOMPARE(preview(camera, 2), bare);

    // Strips beside the picture belong to what is saved.
    QVERIFY(host.settings().setValue("saveinfo/WithinImage", false));
    QCOMPARE(preview(camera, 2, {2000, 2000}).size(), QSize(640, 480));
    camera->setSaveInfoOption(true);
    const QSize withStrips = preview(camera, 2, {2000, 2000}).size();
    QCOMPARE(withStrips.width(), 640);
    QVERIFY(withStrips.height() > 480);
}

void TestDocumentPreview::tellsTheNameOfTheFile_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("family");
    QTest::newRow("file") << 9 << "export";
    QTest::newRow("export") << 10 << "export";
    QTest::newRow("convert") << 11 << "convert";
    QTest::newRow("report") << 17 << "report";
    QTest::newRow("layout") << 18 << "layout";
}

void TestDocumentPreview::tellsTheNameOfTheFile()
{
    QFETCH(int, mode);
    QFETCH(QString, family);
    StandInHost host;
    nameOnly(host);
    DOC_Interface *camera = host.addCamera();
    camera->setSaveInfoOption(true);
    const auto shown = [&] {
        return camera->previewPixmap(mode, 640, 480, 1, false, QDateTime()).toImage();
    };
    const auto rename = [&](const QString &of, const QString &name) {
        return host.settings().setValue(of + "/filename", name);
    };
    const QImage first = shown();
    QVERIFY(rename(family, "crash"));
    const QImage second = shown();
    QVERIFY(second != first);
    for (const QString other : {"export", "convert", "snap", "report", "layout"}) {
        if (other != family)
            QVERIFY(rename(other, "other"));
    }
    QCOMPARE(shown(), second);
    QCOMPARE(camera->documentThumbnail(mode, 640, 480, 1, 0, QDateTime()).toImage(), second);
    QVERIFY(rename(family, ""));
    QVERIFY(host.settings().setValue(family + "/filenameaddnumber", false));
    QCOMPARE(shown(), host.camera(1)->frame(0)); // no name, no line
}

void TestDocumentPreview::nameIsThatOfTheNextFreeNumber()
{
    QTemporaryDir folder;
    StandInHost host;
    nameOnly(host);
    host.settings().setSaveFolder(folder.path());
    DOC_Interface *camera = host.addCamera();
    camera->setSaveInfoOption(true);
    const QImage first = preview(camera);
    QFile file(folder.filePath("Recording_C1S0001.avi"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(preview(camera) != first);
    QVERIFY(file.remove());
    QCOMPARE(preview(camera), first);
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void TestDocumentPreview::namingIsTheHostsOwnMatter()
{
    StandInHost host;
    nameOnly(host);
    DOC_Interface *camera = host.addCamera();
    camera->setSaveInfoOption(true);
    const QImage named = preview(camera);
    host.addPlannedFile("somewhere");
    host.clearJournal();
    host.failOn("getPrefString", 0);
    host.failAtCall(2);
    QCOMPARE(preview(camera), named);
    QCOMPARE(host.journal(), QStringList({"[1].previewPixmap(10, 640, 480, 1, false, invalid)"}));
    QCOMPARE(host.callCount(), 1);
    host.clearFaults();
    // The plan of the save stays as it is.
    QVERIFY(host.isPlannedFile("somewhere"));
    QVERIFY(!host.isPlannedFile(StandInDefaults::saveFolder() + "/Recording_C1S0001"));
}

void TestDocumentPreview::nameIsLookedForWhereItIsShown()
{
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir("Run_C1S0001"));
    StandInHost host;
    host.settings().setSaveFolder(folder.path());
    QVERIFY(host.settings().setValue("export/groupdir", true));
    QVERIFY(host.settings().setValue("export/groupdirname", "Run"));
    QVERIFY(host.settings().setValue("export/groupdiraddnumber", true));
    DOC_Interface *camera = host.addCamera();
    camera->setSaveInfoOption(true);
    LogCapture log; // of a directory that was passed over on the way to the name
    captionOnly(host);
    preview(camera);
    QCOMPARE(log.texts(), QStringList());
    nameOnly(host);
    preview(camera);
    QCOMPARE(log.texts(), QStringList("exists \"" + folder.path() + "/Run_C1S0001/\""));
    log.clear();
    camera->setSaveInfoOption(false);
    preview(camera);
    QCOMPARE(log.texts(), QStringList());
}

void TestDocumentPreview::turnedAndFlippedAsSeen_data()
{
    QTest::addColumn<int>("turns");
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<QString>("seen");
    QTest::newRow("as it is") << 0 << false << false << "xgr-";
    QTest::newRow("clockwise") << 1 << false << false << "rx-g";
    QTest::newRow("half a turn") << 2 << false << false << "-rgx";
    QTest::newRow("the other way") << 3 << false << false << "g-xr";
    QTest::newRow("left is right") << 0 << true << false << "gx-r";
    QTest::newRow("top is bottom") << 0 << false << true << "r-xg";
    // Turned first, then flipped as it is seen.
    QTest::newRow("turned and flipped") << 1 << true << false << "xrg-";
}

void TestDocumentPreview::turnedAndFlippedAsSeen()
{
    QFETCH(int, turns);
    QFETCH(bool, horizontal);
    QFETCH(bool, vertical);
    QTemporaryDir folder;
    StandInHost host;
    StandInRecording *recording = openQuarters(host, folder);
    QVERIFY(recording);
    recording->setQuarterTurns(turns);
    recording->setFlips(horizontal, vertical);
    // Zoom and scroll are matters of the view.
    recording->setZoom(3.0);
    recording->setViewSize({20, 20});
    recording->scrollBy({5, 5});
    QCOMPARE(quarters(preview(recording)), QString("xgr-"));
    recording->setSaveCorrectOption(true);
    const QImage corrected = preview(recording);
    QTEST(quarters(corrected), "seen");
    QCOMPARE(corrected.size(), turns % 2 == 1 ? QSize(20, 40) : QSize(40, 20));
    QCOMPARE(preview(recording, 1, {10, 10}).size(), turns % 2 == 1 ? QSize(5, 10) : QSize(10, 5));
}

void TestDocumentPreview::undoesTheScaleDivider()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->state().hasScaleDivider = true;
    camera->state().scaleDivider = 4;
    QCOMPARE(preview(camera).size(), QSize(160, 120));
    camera->setSaveScaleOption(true);
    QCOMPARE(preview(camera).size(), QSize(640, 480));
    QCOMPARE(preview(camera, 1, {100000, 100000}).size(), QSize(640, 480));
    QCOMPARE(preview(camera, 1, {320, 320}).size(), QSize(320, 240));
    camera->state().hasScaleDivider = false;
    camera->setSaveScaleOption(true);
    QCOMPARE(preview(camera, 1, {1000, 1000}).size(), QSize(640, 480));
}

void TestDocumentPreview::dividerBeyondWhatCamerasHave_data()
{
    QTest::addColumn<int>("divider");
    QTest::addColumn<int>("width");
    QTest::newRow("none") << 1 << 40;
    QTest::newRow("nothing") << 0 << 40;
    QTest::newRow("below zero") << -5 << 40;
    QTest::newRow("two") << 2 << 80;
    QTest::newRow("a million") << 1000000 << 640;
}

void TestDocumentPreview::dividerBeyondWhatCamerasHave()
{
    QFETCH(int, divider);
    QTemporaryDir folder;
    StandInHost host;
    StandInRecording *recording = openQuarters(host, folder);
    QVERIFY(recording);
    recording->state().hasScaleDivider = true;
    recording->state().scaleDivider = divider;
    recording->setSaveScaleOption(true);
    QTEST(preview(recording, 1, {100000, 100000}).width(), "width");
}

void TestDocumentPreview::optionsActTogether()
{
    QTemporaryDir folder;
    StandInHost host;
    captionOnly(host);
    QVERIFY(host.settings().setValue("saveinfo/WithinImage", false));
    StandInRecording *recording = openQuarters(host, folder);
    QVERIFY(recording);
    recording->state().hasScaleDivider = true;
    recording->state().scaleDivider = 10;
    recording->setQuarterTurns(1);
    recording->setSaveScaleOption(true);
    recording->setSaveCorrectOption(true);
    recording->setSaveInfoOption(true);
    const QImage picture = preview(recording, 1, {2000, 2000});
    QCOMPARE(picture.width(), 200);
    QVERIFY(picture.height() > 400);
    QCOMPARE(quarters(picture.copy(0, 0, 200, 400)), QString("rx-g"));
    QCOMPARE(picture.size(), recording->documentResolution(1, 1, false));
}

void TestDocumentPreview::thumbnailAlwaysHasTheInformation()
{
    StandInHost host;
    captionOnly(host);
    StandInCamera *camera = recordedCamera(host);
    camera->setQuarterTurns(1);
    const auto thumbnail = [&] {
        return camera->documentThumbnail(10, 640, 640, 2, 0, QDateTime()).toImage();
    };
    const QImage upright = thumbnail();
    QCOMPARE(upright.size(), QSize(640, 480));
    QVERIFY(upright != camera->partitionFrame(0, 2));
    camera->setSaveInfoOption(true);
    QCOMPARE(thumbnail(), upright);
    camera->setSaveCorrectOption(true);
    QCOMPARE(thumbnail().size(), QSize(480, 640));
    QCOMPARE(thumbnail(), preview(camera, 2, {640, 640}));
}

void TestDocumentPreview::resolutionIsThatOfTheSavedPicture()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->state().hasScaleDivider = true;
    camera->state().scaleDivider = 2;
    camera->setQuarterTurns(3);
    QCOMPARE(camera->documentResolution(1, 1, true), QSize(320, 240));
    QCOMPARE(camera->documentResolution(1, 1, false), QSize(320, 240));
    camera->setSaveScaleOption(true);
    QCOMPARE(camera->documentResolution(1, 1, false), QSize(640, 480));
    camera->setSaveCorrectOption(true);
    QCOMPARE(camera->documentResolution(1, 1, false), QSize(480, 640));
    QCOMPARE(camera->documentResolution(1, 1, true), QSize(320, 240));
}

int main(int argc, char *argv[])
{
    TestDocumentPreview test;
    return runTest(argc, argv, test);
}

#include "test_document_preview.moc"
