#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

// Presets of devices, and the restart that some of them wait for.

class TestCameraPresets : public TestBase
{
    Q_OBJECT

private slots:
    void presetBringsItsSettings();
    void presetWithoutSettingsChangesNothing();
    void allHeadsOfADeviceTakeIt();
    void settingsAreClamped();
    void presetIsOneUndoStep();
    void presetActsWhenTheCameraIsRestarted();
    void laterPresetTakesThePlaceOfOneThatWaits();
    void restartWithoutAWaitingPresetChangesNothing();
};

namespace {

CameraSettings settings(uint recordRate)
{
    CameraSettings result;
    result.recordRate = recordRate;
    result.shutterSpeed = 30000;
    result.region = QRect(0, 0, 64, 32);
    return result;
}

StandInCamera *addCamera(StandInHost &host, int cameraNumber = -1)
{
    StandInCamera::Description description;
    description.cameraNumber = cameraNumber;
    description.presets = {{1, "Fast", true}, {2, "Slow", false}, {3, "Reboot", false}};
    description.presetSettings = {{1, settings(5000)}, {3, settings(100)}};
    description.presetsWithReboot = {3};
    return host.addCamera(description);
}

}

void TestCameraPresets::presetBringsItsSettings()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host);
    StandInCamera *other = addCamera(host);
    camera->applyPreset(1);
    QCOMPARE(camera->settings(), settings(5000));
    QCOMPARE(camera->deviceSettings(), settings(5000));
    QCOMPARE(other->recordRate(), 1000u);
    QCOMPARE(other->state().appliedPreset, 0);
}

void TestCameraPresets::presetWithoutSettingsChangesNothing()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host);
    const CameraSettings before = camera->settings();
    camera->applyPreset(2);
    QCOMPARE(camera->settings(), before);
    QVERIFY(camera->presets().at(1).selected);
    QVERIFY(!camera->presets().at(0).selected);
    camera->applyPreset(9);
    QCOMPARE(camera->settings(), before);
    QCOMPARE(camera->state().appliedPreset, 9);
    QCOMPARE(host.undoSteps()->count(), 0);
}

void TestCameraPresets::allHeadsOfADeviceTakeIt()
{
    StandInHost host;
    StandInCamera *first = addCamera(host, 4);
    StandInCamera *second = addCamera(host, 4);
    first->applyPreset(1);
    QCOMPARE(second->settings(), settings(5000));
    QCOMPARE(second->state().appliedPreset, 1);
    first->applyPreset(3);
    host.restartCamera(second->key());
    QCOMPARE(first->recordRate(), 100u);
    QCOMPARE(second->recordRate(), 100u);
}

void TestCameraPresets::settingsAreClamped()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host);
    camera->state().presetSettings[2] = settings(1000000);
    camera->applyPreset(2);
    QCOMPARE(camera->recordRate(), 20000u);
}

void TestCameraPresets::presetIsOneUndoStep()
{
    StandInHost host;
    StandInCamera *first = addCamera(host, 4);
    StandInCamera *second = addCamera(host, 4);
    first->applyPreset(1);
    QCOMPARE(host.undoSteps()->count(), 1);
    QCOMPARE(host.undoSteps()->text(0), QStringLiteral("Preset 1 of Camera 5"));
    host.undo();
    QCOMPARE(first->recordRate(), 1000u);
    QCOMPARE(second->recordRate(), 1000u);
}

void TestCameraPresets::presetActsWhenTheCameraIsRestarted()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host);
    camera->applyPreset(3);
    QVERIFY(camera->presetNeedsReboot(3));
    QCOMPARE(camera->recordRate(), 1000u);
    host.restartCamera(camera->key());
    QCOMPARE(camera->settings(), settings(100));
    camera->setRecordRate(2000);
    host.restartCamera(camera->key()); // it acts once
    QCOMPARE(camera->recordRate(), 2000u);
}

void TestCameraPresets::laterPresetTakesThePlaceOfOneThatWaits()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host);
    camera->applyPreset(3);
    camera->applyPreset(1);
    QCOMPARE(camera->recordRate(), 5000u);
    host.restartCamera(camera->key());
    QCOMPARE(camera->recordRate(), 5000u);
}

void TestCameraPresets::restartWithoutAWaitingPresetChangesNothing()
{
    StandInHost host;
    StandInCamera *camera = addCamera(host);
    const CameraSettings before = camera->settings();
    host.restartCamera(camera->key());
    host.restartCamera(77);
    QCOMPARE(camera->settings(), before);
    QCOMPARE(host.undoSteps()->count(), 0);
}

int main(int argc, char **argv)
{
    TestCameraPresets test;
    return runTest(argc, argv, test);
}

#include "test_camera_presets.moc"
