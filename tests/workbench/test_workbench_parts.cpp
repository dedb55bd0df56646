#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/base/ElidingLabel.h"
#include "workbench/base/SettingChoices.h"
#include "workbench/base/SettingsText.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/PlaybackBar.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/CameraPanel.h"

#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QSlider>
#include <QToolButton>

class TestWorkbenchParts : public TestBase
{
    Q_OBJECT

private slots:
    void offersTheRecordRatesOfTheCamera();
    void offersNoExposureLongerThanAFrame();
    void writesSettingsAsTheUserReadsThem();
    void cutsATextThatDoesNotFit();
    void showsCameraNameFrameAndSettings();
    void cutsTheSettingsBeforeTheFrame();
    void marksTheLockAndTheCurrentView();
    void isChosenByMouseAndKeys();
    void staysInsideARecording();
    void tellsTheDocumentHowLargeItsViewIs();
    void setsTheCameraThatIsShown();
    void tellsWhyThereIsNothingToSet();
    void movesAndPlays();
    void followsTheListOfCameras();
    void drawsEachPictureOnceInARefresh();
    void holdsTheLivePicture();
    void showsNothingOfAnEmptyMemory();
    void playsEachRecordingOnItsOwn();
};

void TestWorkbenchParts::offersTheRecordRatesOfTheCamera()
{
    CameraLimits limits;
    limits.minRecordRate = 100;
    limits.maxRecordRate = 3000;
    QCOMPARE(SettingChoices::recordRates(limits, 250),
             QVector<uint>({100, 125, 250, 500, 1000, 2000, 3000}));
    QCOMPARE(SettingChoices::recordRates(limits, 333),
             QVector<uint>({100, 125, 250, 333, 500, 1000, 2000, 3000}));
    limits.maxRecordRate = 100;
    QCOMPARE(SettingChoices::recordRates(limits, 100), QVector<uint>({100}));
}

void TestWorkbenchParts::offersNoExposureLongerThanAFrame()
{
    CameraLimits limits;
    limits.maxShutterSpeed = 10000;
    QCOMPARE(SettingChoices::shutterSpeeds(limits, 2000, 4000),
             QVector<uint>({2000, 4000, 5000, 8000, 10000}));
    QCOMPARE(SettingChoices::shutterSpeeds(limits, 3000, 7000),
             QVector<uint>({3000, 4000, 5000, 7000, 8000, 10000}));
    // Faster than its shutter: the frame is the limit.
    QCOMPARE(SettingChoices::shutterSpeeds(limits, 20000, 20000), QVector<uint>({20000}));
}

void TestWorkbenchParts::writesSettingsAsTheUserReadsThem()
{
    QCOMPARE(SettingsText::shutter(2000), QString("1/2000 s"));
    QCOMPARE(SettingsText::recordRate(1000), QString("1000 fps"));
    QCOMPARE(SettingsText::size(QSize(640, 480)), QString("640 × 480"));
    StandInHost host;
    QCOMPARE(SettingsText::ofDocument(*host.addCamera()),
             QString("1/1000 s   1000 fps   640 × 480"));
}

void TestWorkbenchParts::cutsATextThatDoesNotFit()
{
    ElidingLabel label;
    label.setText("A name that is much longer than its place");
    QVERIFY(label.minimumSizeHint().width() < label.sizeHint().width() / 4);

    // Painted within its place: the last column of pixels of a narrow label shows no letter.
    label.resize(60, label.sizeHint().height());
    const QImage narrow = label.grab().toImage();
    label.setText("A name");
    label.resize(label.sizeHint());
    QVERIFY(label.grab().toImage() != narrow);
    QVERIFY(label.width() < 60 + label.fontMetrics().horizontalAdvance("that is much"));
}

void TestWorkbenchParts::showsCameraNameFrameAndSettings()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    DocumentView view(*camera);
    view.showFrame(17);
    QCOMPARE(view.title(), QString("Camera 1"));
    QCOMPARE(view.frameText(), QString("Frame 17"));
    QCOMPARE(view.settingsText(), QString("1/1000 s   1000 fps   640 × 480"));
    QCOMPARE(view.picture(), camera->frame(17));
    QCOMPARE(view.accessibleName(), QString("Camera 1"));

    camera->setShutterSpeed(4000);
    view.refresh();
    QCOMPARE(view.settingsText(), QString("1/4000 s   1000 fps   640 × 480"));

    view.setEmptyText("Nothing");
    QVERIFY(view.picture().isNull());
    QCOMPARE(view.frameText(), QString());
}

void TestWorkbenchParts::cutsTheSettingsBeforeTheFrame()
{
    StandInHost host;
    DocumentView view(*host.addCamera());
    view.showFrame(17);
    view.resize(view.minimumSizeHint());
    view.show();
    const QList<ElidingLabel *> labels = view.findChildren<ElidingLabel *>();
    const auto label = [&](const QString &text) {
        return *std::find_if(labels.begin(), labels.end(),
                             [&](ElidingLabel *found) { return found->text() == text; });
    };
    QVERIFY(label(view.settingsText())->width() < label(view.settingsText())->sizeHint().width());
    QCOMPARE(label(view.frameText())->width(), label(view.frameText())->sizeHint().width());
    view.resize(600, 400);
    QCoreApplication::processEvents();
    QCOMPARE(label(view.settingsText())
                 ->mapTo(&view, QPoint(label(view.settingsText())->width(), 0))
                 .x(),
             view.width() - 11);
}

void TestWorkbenchParts::marksTheLockAndTheCurrentView()
{
    StandInHost host;
    DocumentView view(*host.addCamera());
    view.resize(300, 260);
    view.show();
    QVERIFY(!view.showsLock());
    QVERIFY(!view.isCurrent());
    const QImage plain = view.grab().toImage();
    view.setCurrent(true);
    QVERIFY(view.isCurrent());
    QVERIFY(view.grab().toImage() != plain);
    QVERIFY(view.accessibleDescription().startsWith("current, "));

    host.setTrelvikLock(true);
    view.refresh();
    QVERIFY(view.showsLock());
    QVERIFY(view.accessibleDescription().endsWith(", locked"));
}

void TestWorkbenchParts::isChosenByMouseAndKeys()
{
    StandInHost host;
    DocumentView view(*host.addCamera());
    view.show();
    QSignalSpy chosen(&view, &DocumentView::chosen);
    QTest::mouseClick(&view, Qt::LeftButton);
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen.at(0).at(0).value<DOCKEY>(), DOCKEY(1));
    QTest::mouseClick(&view, Qt::RightButton);
    QCOMPARE(chosen.size(), 1);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(&view, key);
    QCOMPARE(chosen.size(), 4);
    QTest::keyClick(&view, Qt::Key_A);
    QCOMPARE(chosen.size(), 4);
}

void TestWorkbenchParts::staysInsideARecording()
{
    StandInHost host;
    DocumentView view(*host.addCamera());
    view.setFrameCount(20);
    view.showFrame(19);
    QCOMPARE(view.frameText(), QString("Frame 20 of 20"));
    view.showFrame(20);
    QCOMPARE(view.frameNumber(), quint64(19));
    view.setFrameCount(5);
    QCOMPARE(view.frameText(), QString("Frame 5 of 5"));
    view.setFrameCount(0);
    view.showFrame(1000);
    QCOMPARE(view.frameNumber(), quint64(1000));
}

void TestWorkbenchParts::tellsTheDocumentHowLargeItsViewIs()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    DocumentView view(*camera);
    view.resize(400, 400);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QSize small = camera->state().viewSize;
    QVERIFY(small.width() > 300 && small.width() < 400);
    view.resize(800, 800);
    QTRY_COMPARE(camera->state().viewSize, small + QSize(400, 400));
}

void TestWorkbenchParts::setsTheCameraThatIsShown()
{
    LogCapture capture;
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    CameraPanel panel(host);
    panel.setCamera(camera);
    panel.show();
    auto *shutter = panel.findChild<QComboBox *>("shutter");
    auto *rate = panel.findChild<QComboBox *>("recordRate");
    QCOMPARE(shutter->currentText(), QString("1/1000 s"));
    QCOMPARE(rate->currentText(), QString("1000 fps"));
    QCOMPARE(panel.findChild<QLabel *>("imageSize")->text(), QString("640 × 480"));
    QCOMPARE(panel.findChild<QLabel *>("imagePosition")->text(), QString("192, 272"));
    QCOMPARE(panel.findChild<QLabel *>("lockState")->text(), QString("Released, set alone"));

    QTest::keyClick(shutter, Qt::Key_Down);
    QCOMPARE(camera->shutterSpeed(), 2000u);
    QCOMPARE(shutter->currentText(), QString("1/2000 s"));
    QTest::keyClick(rate, Qt::Key_End);
    QCOMPARE(camera->recordRate(), 20000u);
    // No longer than the frame: the camera has moved the shutter itself.
    QCOMPARE(shutter->currentText(), QString("1/20000 s"));
    QCOMPARE(capture.texts().filter("[ID:shutter]").size(), 1);
    QCOMPARE(capture.texts().filter("[ID:recordRate]").size(), 1);
}

void TestWorkbenchParts::tellsWhyThereIsNothingToSet()
{
    StandInHost host;
    CameraPanel panel(host);
    panel.setHint("No camera here");
    panel.show();
    QVERIFY(panel.findChild<QLabel *>("cameraHint")->isVisible());
    QCOMPARE(panel.findChild<QLabel *>("cameraHint")->text(), QString("No camera here"));
    QVERIFY(!panel.findChild<QComboBox *>("shutter")->isVisible());
    panel.setCamera(host.addCamera());
    QVERIFY(!panel.findChild<QLabel *>("cameraHint")->isVisible());
    QVERIFY(panel.findChild<QComboBox *>("shutter")->isVisible());
}

void TestWorkbenchParts::movesAndPlays()
{
    PlaybackBar bar;
    bar.show();
    QVERIFY(!bar.isEnabled());
    QCOMPARE(bar.findChild<QLabel *>("framePosition")->text(), QString("No frame"));
    QSignalSpy moved(&bar, &PlaybackBar::frameChosen);
    bar.setPosition(4, 20);
    QVERIFY(bar.isEnabled());
    QCOMPARE(bar.findChild<QLabel *>("framePosition")->text(), QString("Frame 5 of 20"));
    QCOMPARE(moved.size(), 0);
    QTest::keyClick(bar.findChild<QSlider *>("frame"), Qt::Key_Right);
    QCOMPARE(moved.size(), 1);
    QCOMPARE(moved.at(0).at(0).value<quint64>(), quint64(5));

    QSignalSpy play(&bar, &PlaybackBar::playRequested);
    auto *button = bar.findChild<QToolButton *>("play");
    QCOMPARE(button->text(), QString("Play"));
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(play.at(0).at(0).toBool(), true);
    bar.setPlaying(true);
    QCOMPARE(button->text(), QString("Stop"));
    QVERIFY(bar.isPlaying());
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(play.at(1).at(0).toBool(), false);
}

void TestWorkbenchParts::followsTheListOfCameras()
{
    LogCapture capture;
    StandInHost host;
    ViewArea area(host);
    area.setRunning(false);
    QVERIFY(area.views().isEmpty());
    QSignalSpy wanted(&area, &ViewArea::addCameraRequested);
    area.show();
    QTest::mouseClick(area.findChild<QWidget *>("emptyButton"), Qt::LeftButton);
    QCOMPARE(wanted.size(), 1);

    host.addCamera();
    host.addCamera();
    area.rebuild();
    QCOMPARE(area.views().size(), 2);
    DocumentView *second = area.view(2);
    QVERIFY(area.view(1)->isCurrent());
    QVERIFY(!area.view(3));
    QTest::mouseClick(second, Qt::LeftButton);
    QCOMPARE(host.currentKey(), DOCKEY(2));
    QCOMPARE(host.selection(), QList<DOCKEY>{2});

    host.closeDocument(1);
    area.rebuild();
    QCOMPARE(area.views(), QList<DocumentView *>{second});
    QVERIFY(second->isCurrent());
}

// Each picture made has a number of its own, the upper half of its key.
void TestWorkbenchParts::drawsEachPictureOnceInARefresh()
{
    StandInHost host;
    host.addCamera();
    ViewArea area(host);
    area.setRunning(false);
    DocumentView *view = area.views().first();
    const auto made = [view] { return view->picture().cacheKey() >> 32; };
    qint64 before = made();
    view->refresh();
    const qint64 once = made() - before;
    QVERIFY(once > 0);
    before = made();
    area.refresh();
    QCOMPARE(made() - before, once);
}

void TestWorkbenchParts::holdsTheLivePicture()
{
    StandInHost host;
    host.addCamera();
    ViewArea area(host);
    area.setRunning(false);
    area.advance();
    QCOMPARE(area.view(1)->frameNumber(), quint64(1));
    area.setLiveHeld(true);
    area.advance();
    QCOMPARE(area.view(1)->frameNumber(), quint64(1));
    area.setLiveHeld(false);
    area.advance();
    QCOMPARE(area.view(1)->frameNumber(), quint64(2));

    area.setRunning(true);
    QTRY_VERIFY(area.view(1)->frameNumber() > 5);
}

void TestWorkbenchParts::showsNothingOfAnEmptyMemory()
{
    StandInHost host;
    host.addCamera();
    StandInCamera::Description recorded;
    recorded.partitions = {{1, "Partition1", 30, 1000}};
    host.addCamera(recorded);
    host.setMode(StandInHost::Mode::Memory);
    ViewArea area(host);
    area.setRunning(false);
    QVERIFY(area.view(1)->picture().isNull());
    QVERIFY(!area.view(2)->picture().isNull());
    QCOMPARE(area.view(2)->frameText(), QString("Frame 1 of 30"));
}

void TestWorkbenchParts::playsEachRecordingOnItsOwn()
{
    LogCapture capture;
    StandInHost host;
    StandInCamera::Description recorded;
    recorded.partitions = {{1, "Partition1", 3, 1000}};
    host.addCamera(recorded);
    host.addCamera(recorded);
    host.setMode(StandInHost::Mode::Memory);
    ViewArea area(host);
    area.setRunning(false);
    area.show();
    auto *play = area.findChild<QToolButton *>("play");
    QTest::mouseClick(play, Qt::LeftButton);
    area.advance();
    QCOMPARE(area.view(1)->frameNumber(), quint64(1));
    QCOMPARE(area.view(2)->frameNumber(), quint64(0));

    // The bar belongs to the current one.
    area.stepCurrent(1);
    area.refresh();
    QCOMPARE(host.currentKey(), DOCKEY(2));
    QCOMPARE(play->text(), QString("Play"));
    area.stepCurrent(-1);
    area.refresh();
    QCOMPARE(play->text(), QString("Stop"));
    area.advance();
    area.advance();
    QCOMPARE(area.view(1)->frameNumber(), quint64(0));
    area.stepCurrent(-1);
    QCOMPARE(host.currentKey(), DOCKEY(2));
}

int main(int argc, char **argv)
{
    TestWorkbenchParts test;
    return runTest(argc, argv, test);
}

#include "test_workbench_parts.moc"
