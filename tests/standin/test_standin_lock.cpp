#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QSignalSpy>

class TestStandInLock : public TestBase
{
    Q_OBJECT

private slots:
    void withoutTheLockAChangeStaysAlone();
    void turningItOnChangesNoSettings();
    void changeReachesTheOtherCamera_data();
    void changeReachesTheOtherCamera();
    void changeReachesAllThree_data();
    void changeReachesAllThree();
    void clampsToWhatEachCameraCanDo();
    void ownClampedValueIsWhatArrives();
    void onlyTheChangedValueArrives();
    void exposureIsNeverLongerThanAFrame();
    void regionIsMovedInside_data();
    void regionIsMovedInside();
    void releasedCamerasAreAlone();
    void newCameraJoinsTheLock();
    void cameraTakenOutStaysAlone();
    void answersWhoIsLocked();
    void undoTakesBackAllInOneStep();
    void undoPassesOverClosedCameras();
    void updateUISendsToAllLockedDevices();
    void updateUIWithoutLockSendsOneDevice();
    void resentChangesCanBeUndone();
    void updateUIWithOtherFlagsSendsNothing();
    void notifyChangeSendsOneDocument();
    void eventsTellOfChanges();
};

namespace {

CameraLimits slowLimits()
{
    CameraLimits limits;
    limits.minRecordRate = 100;
    limits.maxRecordRate = 5000;
    limits.maxShutterSpeed = 50000;
    limits.sensorSize = QSize(512, 512);
    limits.minRegion = QSize(64, 64);
    return limits;
}

StandInCamera *addSlowCamera(StandInHost &host)
{
    StandInCamera::Description description;
    description.limits = slowLimits();
    return host.addCamera(description);
}

}

void TestStandInLock::withoutTheLockAChangeStaysAlone()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    first->setShutterSpeed(2000);
    first->setRecordRate(500);
    first->setSensorRegion(QRect(0, 0, 100, 100));
    QCOMPARE(first->shutterSpeed(), 2000u);
    QCOMPARE(first->recordRate(), 500u);
    QCOMPARE(first->sensorRegion(), QRect(0, 0, 100, 100));
    QCOMPARE(second->shutterSpeed(), 1000u);
    QCOMPARE(second->recordRate(), 1000u);
    QCOMPARE(second->sensorRegion(), QRect(192, 272, 640, 480));
}

void TestStandInLock::turningItOnChangesNoSettings()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    first->setShutterSpeed(2000);
    host.setTrelvikLock(true);
    QCOMPARE(first->shutterSpeed(), 2000u);
    QCOMPARE(second->shutterSpeed(), 1000u);
}

void TestStandInLock::changeReachesTheOtherCamera_data()
{
    QTest::addColumn<int>("changed");
    QTest::addColumn<int>("other");
    QTest::newRow("from the first") << 1 << 2;
    QTest::newRow("from the second") << 2 << 1;
}

void TestStandInLock::changeReachesTheOtherCamera()
{
    QFETCH(int, changed);
    QFETCH(int, other);
    StandInHost host;
    host.addCamera();
    host.addCamera();
    host.setTrelvikLock(true);
    StandInCamera *source = host.camera(DOCKEY(changed));
    StandInCamera *target = host.camera(DOCKEY(other));
    source->setShutterSpeed(4000);
    QCOMPARE(target->shutterSpeed(), 4000u);
    QCOMPARE(target->deviceSettings().shutterSpeed, 4000u);
    source->setRecordRate(2000);
    QCOMPARE(target->recordRate(), 2000u);
    QCOMPARE(target->deviceSettings().recordRate, 2000u);
    source->setSensorRegion(QRect(16, 32, 256, 128));
    QCOMPARE(target->sensorRegion(), QRect(16, 32, 256, 128));
    QCOMPARE(target->deviceSettings().region, QRect(16, 32, 256, 128));
    QCOMPARE(target->imageSize(), QSize(256, 128));
}

void TestStandInLock::changeReachesAllThree_data()
{
    QTest::addColumn<DOCKEY>("changed");
    for (DOCKEY key = 1; key <= 3; ++key)
        QTest::addRow("camera %d", int(key)) << key;
}

void TestStandInLock::changeReachesAllThree()
{
    QFETCH(DOCKEY, changed);
    StandInHost host;
    for (int i = 0; i < 3; ++i)
        host.addCamera();
    host.setTrelvikLock(true);
    host.camera(changed)->setShutterSpeed(8000);
    host.camera(changed)->setRecordRate(2000);
    host.camera(changed)->setSensorRegion(QRect(64, 32, 320, 240));
    for (const StandInCamera *camera : host.cameras()) {
        QCOMPARE(camera->shutterSpeed(), 8000u);
        QCOMPARE(camera->recordRate(), 2000u);
        QCOMPARE(camera->sensorRegion(), QRect(64, 32, 320, 240));
    }
}

void TestStandInLock::clampsToWhatEachCameraCanDo()
{
    StandInHost host;
    StandInCamera *fast = host.addCamera();
    StandInCamera *slow = addSlowCamera(host);
    StandInCamera *third = host.addCamera();
    host.setTrelvikLock(true);

    fast->setShutterSpeed(200000);
    QCOMPARE(fast->shutterSpeed(), 200000u);
    QCOMPARE(slow->shutterSpeed(), 50000u);
    QCOMPARE(third->shutterSpeed(), 200000u);

    fast->setRecordRate(10000);
    QCOMPARE(slow->recordRate(), 5000u);
    QCOMPARE(third->recordRate(), 10000u);
    fast->setRecordRate(60);
    QCOMPARE(fast->recordRate(), 60u);
    QCOMPARE(slow->recordRate(), 100u);

    fast->setSensorRegion(QRect(900, 900, 32, 32));
    QCOMPARE(slow->sensorRegion(), QRect(448, 448, 64, 64));
    fast->setSensorRegion(QRect(0, 0, 1024, 1024));
    QCOMPARE(fast->sensorRegion(), QRect(0, 0, 1024, 1024));
    QCOMPARE(slow->sensorRegion(), QRect(0, 0, 512, 512));
}

void TestStandInLock::ownClampedValueIsWhatArrives()
{
    StandInHost host;
    StandInCamera *fast = host.addCamera();
    StandInCamera *slow = addSlowCamera(host);
    host.setTrelvikLock(true);
    slow->setShutterSpeed(900000);
    QCOMPARE(slow->shutterSpeed(), 50000u);
    QCOMPARE(fast->shutterSpeed(), 50000u); // though it could do more
    slow->setRecordRate(0);
    QCOMPARE(slow->recordRate(), 100u);
    QCOMPARE(fast->recordRate(), 100u);
}

void TestStandInLock::onlyTheChangedValueArrives()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    second->setShutterSpeed(16000);
    second->setSensorRegion(QRect(0, 0, 64, 64));
    host.setTrelvikLock(true);
    first->setRecordRate(2000);
    QCOMPARE(second->recordRate(), 2000u);
    QCOMPARE(second->shutterSpeed(), 16000u);
    QCOMPARE(second->sensorRegion(), QRect(0, 0, 64, 64));
}

void TestStandInLock::exposureIsNeverLongerThanAFrame()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    second->setShutterSpeed(6000);
    host.setTrelvikLock(true);
    first->setRecordRate(4000);
    QCOMPARE(first->shutterSpeed(), 4000u); // was 1000
    QCOMPARE(second->shutterSpeed(), 6000u);
    first->setShutterSpeed(1);
    QCOMPARE(first->shutterSpeed(), 4000u);
    QCOMPARE(second->shutterSpeed(), 4000u);
}

void TestStandInLock::regionIsMovedInside_data()
{
    QTest::addColumn<QRect>("wanted");
    QTest::addColumn<QRect>("taken");
    QTest::newRow("inside") << QRect(10, 20, 100, 200) << QRect(10, 20, 100, 200);
    QTest::newRow("left and above") << QRect(-5, -7, 100, 100) << QRect(0, 0, 100, 100);
    QTest::newRow("right and below") << QRect(1000, 990, 100, 100) << QRect(924, 924, 100, 100);
    QTest::newRow("too small") << QRect(500, 500, 3, 1) << QRect(500, 500, 16, 16);
    QTest::newRow("too large") << QRect(10, 10, 5000, 5000) << QRect(0, 0, 1024, 1024);
    QTest::newRow("empty") << QRect() << QRect(0, 0, 16, 16);
}

void TestStandInLock::regionIsMovedInside()
{
    QFETCH(QRect, wanted);
    QFETCH(QRect, taken);
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->setSensorRegion(wanted);
    QCOMPARE(camera->sensorRegion(), taken);
}

void TestStandInLock::releasedCamerasAreAlone()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    host.setTrelvikLock(true);
    host.setTrelvikLock(false);
    first->setShutterSpeed(4000);
    QCOMPARE(second->shutterSpeed(), 1000u);
}

void TestStandInLock::newCameraJoinsTheLock()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    host.setTrelvikLock(true);
    StandInCamera *second = host.addCamera();
    QVERIFY(second->isLocked());
    first->setShutterSpeed(4000);
    QCOMPARE(second->shutterSpeed(), 4000u);
    second->setRecordRate(500);
    QCOMPARE(first->recordRate(), 500u);
}

void TestStandInLock::cameraTakenOutStaysAlone()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    StandInCamera *third = host.addCamera();
    host.setTrelvikLock(true);
    third->setLockedTogether(false);
    first->setShutterSpeed(4000);
    QCOMPARE(second->shutterSpeed(), 4000u);
    QCOMPARE(third->shutterSpeed(), 1000u);
    third->setShutterSpeed(9000);
    QCOMPARE(first->shutterSpeed(), 4000u);
    QVERIFY(host.isTrelvikLocked());
    QVERIFY(!host.areAllDevicesLocked());
}

void TestStandInLock::answersWhoIsLocked()
{
    StandInHost host;
    host.setTrelvikLock(true);
    QVERIFY(host.isTrelvikLocked());
    QVERIFY(!host.areAllDevicesLocked()); // there is none
    host.setTrelvikLock(false);
    StandInCamera *camera = host.addCamera();
    QVERIFY(!camera->isLocked());
    QVERIFY(!host.isTrelvikLocked());
    QVERIFY(!host.areAllDevicesLocked());
    host.setTrelvikLock(true);
    QVERIFY(camera->isLocked());
    QVERIFY(host.areAllDevicesLocked());
    QVERIFY(!host.addGroup("x", {camera})->isLocked());
    QVERIFY(host.areAllDevicesLocked()); // a group is no device
    QVERIFY(!host.isTrelvikRunning());
    host.addCamera();
    QVERIFY(host.isTrelvikRunning());
}

void TestStandInLock::undoTakesBackAllInOneStep()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = addSlowCamera(host);
    StandInCamera *third = host.addCamera();
    third->setShutterSpeed(3000);
    host.clearUndoStack();
    host.setTrelvikLock(true);
    first->setShutterSpeed(90000);
    QCOMPARE(second->shutterSpeed(), 50000u);
    QVERIFY(host.canUndo());
    host.undo();
    QCOMPARE(first->shutterSpeed(), 1000u);
    QCOMPARE(second->shutterSpeed(), 1000u);
    QCOMPARE(third->shutterSpeed(), 3000u);
    QCOMPARE(third->deviceSettings().shutterSpeed, 3000u);
    QVERIFY(!host.canUndo());
    host.redo();
    QCOMPARE(first->shutterSpeed(), 90000u);
    QCOMPARE(second->shutterSpeed(), 50000u);
    QCOMPARE(third->shutterSpeed(), 90000u);
}

void TestStandInLock::undoPassesOverClosedCameras()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    host.addCamera();
    host.setTrelvikLock(true);
    first->setShutterSpeed(4000);
    host.removeDocument(2);
    host.undo();
    QCOMPARE(first->shutterSpeed(), 1000u);
    host.redo();
    QCOMPARE(first->shutterSpeed(), 4000u);
}

void TestStandInLock::updateUISendsToAllLockedDevices()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    StandInCamera *slow = addSlowCamera(host);
    host.setTrelvikLock(true);

    CameraSettings settings = first->settings();
    settings.region = QRect(0, 0, 800, 600);
    settings.shutterSpeed = 60000;
    first->editSettings(settings);
    QCOMPARE(first->sensorRegion(), QRect(0, 0, 800, 600));
    QCOMPARE(first->deviceSettings().region, QRect(192, 272, 640, 480)); // not sent yet
    QCOMPARE(second->sensorRegion(), QRect(192, 272, 640, 480));

    host.updateUI(1, false);
    QCOMPARE(first->deviceSettings().region, QRect(0, 0, 800, 600));
    QCOMPARE(second->deviceSettings().region, QRect(0, 0, 800, 600));
    QCOMPARE(second->shutterSpeed(), 60000u);
    QCOMPARE(slow->deviceSettings().region, QRect(0, 0, 512, 512));
    QCOMPARE(slow->shutterSpeed(), 50000u);
    QCOMPARE(first->sendCount(), 1);
    QCOMPARE(second->sendCount(), 1);
}

void TestStandInLock::updateUIWithoutLockSendsOneDevice()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    CameraSettings settings = first->settings();
    settings.shutterSpeed = 2000;
    first->editSettings(settings);
    host.updateUI(1, false);
    QCOMPARE(first->deviceSettings().shutterSpeed, 2000u);
    QCOMPARE(second->shutterSpeed(), 1000u);
    QCOMPARE(second->sendCount(), 0);
    StandInHost().updateUI(1, false); // without a document
}

void TestStandInLock::resentChangesCanBeUndone()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    host.setTrelvikLock(true);
    host.beginUndoMacro(QString());
    CameraSettings settings = first->settings();
    settings.region = QRect(0, 0, 100, 100);
    first->editSettings(settings);
    host.updateUI(1, false);
    settings.region = QRect(5, 5, 100, 100);
    first->editSettings(settings);
    host.updateUI(1, false);
    host.endUndoMacro();
    QCOMPARE(second->sensorRegion(), QRect(5, 5, 100, 100));
    host.undo();
    QCOMPARE(first->sensorRegion(), QRect(192, 272, 640, 480));
    QCOMPARE(first->deviceSettings().region, QRect(192, 272, 640, 480));
    QCOMPARE(second->sensorRegion(), QRect(192, 272, 640, 480));
    QVERIFY(!host.canUndo());
}

void TestStandInLock::updateUIWithOtherFlagsSendsNothing()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    first->setShutterSpeed(2000);
    host.setTrelvikLock(true);
    const int sent = first->sendCount();
    host.updateUI(4, false);
    host.updateUI(62, true);
    QCOMPARE(first->sendCount(), sent);
    QCOMPARE(second->shutterSpeed(), 1000u);
    host.updateUI(63, true); // what ends a page operation
    host.updateUI(~0u, true);
    QCOMPARE(first->sendCount(), sent);
    QCOMPARE(second->shutterSpeed(), 1000u);
    host.deterUpdateUI(true);
    host.updateUI(1, false); // an edit, held back
    host.updateUI(63, true);
    QCOMPARE(second->shutterSpeed(), 1000u);
    host.deterUpdateUI(false);
    QCOMPARE(first->sendCount(), sent + 1);
    QCOMPARE(second->shutterSpeed(), 2000u);
}

void TestStandInLock::notifyChangeSendsOneDocument()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    host.setTrelvikLock(true);
    CameraSettings settings = first->settings();
    settings.shutterSpeed = 2000;
    first->editSettings(settings);
    QCOMPARE(first->deviceSettings().shutterSpeed, 1000u);
    first->notifyChange(4, false); // something else
    QCOMPARE(first->deviceSettings().shutterSpeed, 1000u);
    first->notifyChange(1, false);
    QCOMPARE(first->deviceSettings().shutterSpeed, 2000u);
    QCOMPARE(second->shutterSpeed(), 1000u);
    QCOMPARE(second->sendCount(), 0);
}

void TestStandInLock::eventsTellOfChanges()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    host.addCamera();
    QSignalSpy lock(host.events(), &StandInEvents::lockChanged);
    host.setTrelvikLock(true);
    host.setTrelvikLock(true);
    QCOMPARE(lock.count(), 1);
    QCOMPARE(lock.last().first().toBool(), true);

    QList<DOCKEY> changed;
    connect(host.events(), &StandInEvents::cameraSettingsChanged, this,
            [&](DOCKEY key) { changed.append(key); });
    first->setShutterSpeed(4000);
    QCOMPARE(changed, QList<DOCKEY>({1, 2}));
    first->setShutterSpeed(4000); // as it is
    QCOMPARE(changed.size(), 2);
    host.setTrelvikLock(false);
    QCOMPARE(lock.count(), 2);
    QCOMPARE(lock.last().first().toBool(), false);
}

int main(int argc, char **argv)
{
    TestStandInLock test;
    return runTest(argc, argv, test);
}

#include "test_standin_lock.moc"
