#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QSignalSpy>

class TestStandInUndo : public TestBase
{
    Q_OBJECT

private slots:
    void nothingToUndoAtTheStart();
    void undoesAndRedoesEachKindOfChange();
    void unchangedSettingsAreNoStep();
    void stepsBearTheirNames();
    void macroIsOneStep();
    void macroWithEmptyTextWorks();
    void emptyMacroLeavesNoStep();
    void emptyMacroForgetsNothingThatWasUndone();
    void emptyMacrosInsideOneAnotherLeaveNoStep();
    void macrosNest();
    void clearForgetsAll();
    void clearInsideAMacroToleratesItsEnd();
    void endWithoutBeginIsNoticed();
    void newChangeForgetsWhatWasUndone();
    void undoneChangeReachesTheDevice();
    void eventsTellOfChanges();
    void hostGoesWithStepsLeft();
};

void TestStandInUndo::nothingToUndoAtTheStart()
{
    StandInHost host;
    host.addCamera();
    QVERIFY(!host.canUndo());
    QVERIFY(!host.canRedo());
    host.undo();
    host.redo();
}

void TestStandInUndo::undoesAndRedoesEachKindOfChange()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->setShutterSpeed(2000);
    camera->setRecordRate(500);
    camera->setSensorRegion(QRect(0, 0, 64, 64));
    QVERIFY(host.canUndo());
    host.undo();
    QCOMPARE(camera->sensorRegion(), QRect(192, 272, 640, 480));
    QCOMPARE(camera->recordRate(), 500u);
    host.undo();
    QCOMPARE(camera->recordRate(), 1000u);
    QCOMPARE(camera->shutterSpeed(), 2000u);
    host.undo();
    QCOMPARE(camera->shutterSpeed(), 1000u);
    QVERIFY(!host.canUndo());
    QVERIFY(host.canRedo());
    host.redo();
    host.redo();
    host.redo();
    QCOMPARE(camera->shutterSpeed(), 2000u);
    QCOMPARE(camera->recordRate(), 500u);
    QCOMPARE(camera->sensorRegion(), QRect(0, 0, 64, 64));
    QVERIFY(!host.canRedo());
}

void TestStandInUndo::unchangedSettingsAreNoStep()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->setShutterSpeed(1000);
    camera->setRecordRate(1000);
    camera->setSensorRegion(camera->sensorRegion());
    camera->editSettings(camera->settings());
    QVERIFY(!host.canUndo());
    camera->setRecordRate(0); // the slowest: 50
    QVERIFY(host.canUndo());
    host.clearUndoStack();
    camera->setRecordRate(1);
    QVERIFY(!host.canUndo());
}

void TestStandInUndo::stepsBearTheirNames()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->setShutterSpeed(2000);
    QCOMPARE(host.undoSteps()->undoText(), QString("Shutter speed of Camera 1"));
    camera->setRecordRate(500);
    QCOMPARE(host.undoSteps()->undoText(), QString("Record rate of Camera 1"));
    camera->setSensorRegion(QRect(0, 0, 64, 64));
    QCOMPARE(host.undoSteps()->undoText(), QString("Region of Camera 1"));
}

void TestStandInUndo::macroIsOneStep()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.beginUndoMacro("Drag");
    QCOMPARE(host.openMacros(), 1);
    camera->setSensorRegion(QRect(0, 0, 64, 64));
    camera->setSensorRegion(QRect(1, 0, 64, 64));
    camera->setSensorRegion(QRect(2, 0, 64, 64));
    QVERIFY(!host.canUndo()); // not while it is open
    host.endUndoMacro();
    QCOMPARE(host.openMacros(), 0);
    QVERIFY(host.canUndo());
    QCOMPARE(host.undoSteps()->undoText(), QString("Drag"));
    host.undo();
    QCOMPARE(camera->sensorRegion(), QRect(192, 272, 640, 480));
    QVERIFY(!host.canUndo());
}

void TestStandInUndo::macroWithEmptyTextWorks()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.beginUndoMacro(QString());
    camera->setShutterSpeed(2000);
    host.endUndoMacro();
    host.undo();
    QCOMPARE(camera->shutterSpeed(), 1000u);
}

void TestStandInUndo::emptyMacroLeavesNoStep()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->setShutterSpeed(2000);
    host.beginUndoMacro(QString());
    host.endUndoMacro();
    host.beginUndoMacro("Drag");
    host.endUndoMacro();
    QCOMPARE(host.openMacros(), 0);
    QCOMPARE(host.undoSteps()->count(), 1);
    host.undo(); // the change before them
    QCOMPARE(camera->shutterSpeed(), 1000u);
    QVERIFY(!host.canUndo());
}

void TestStandInUndo::emptyMacroForgetsNothingThatWasUndone()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->setShutterSpeed(2000);
    host.undo();
    host.beginUndoMacro(QString());
    host.endUndoMacro();
    QVERIFY(host.canRedo());
    host.redo();
    QCOMPARE(camera->shutterSpeed(), 2000u);
}

void TestStandInUndo::emptyMacrosInsideOneAnotherLeaveNoStep()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.beginUndoMacro("outer");
    host.beginUndoMacro("inner");
    host.endUndoMacro();
    QCOMPARE(host.openMacros(), 1);
    host.endUndoMacro();
    QVERIFY(!host.canUndo());
    QCOMPARE(host.undoSteps()->count(), 0);

    host.beginUndoMacro("outer");
    host.beginUndoMacro("inner");
    host.endUndoMacro();
    camera->setShutterSpeed(2000);
    host.endUndoMacro();
    QCOMPARE(host.undoSteps()->count(), 1);
    host.undo();
    QCOMPARE(camera->shutterSpeed(), 1000u);
}

void TestStandInUndo::macrosNest()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.beginUndoMacro("outer");
    host.beginUndoMacro("inner");
    QCOMPARE(host.openMacros(), 2);
    camera->setShutterSpeed(2000);
    host.endUndoMacro();
    camera->setRecordRate(500);
    host.endUndoMacro();
    host.undo();
    QCOMPARE(camera->shutterSpeed(), 1000u);
    QCOMPARE(camera->recordRate(), 1000u);
    QVERIFY(!host.canUndo());
}

void TestStandInUndo::clearForgetsAll()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->setShutterSpeed(2000);
    camera->setRecordRate(500);
    host.undo();
    host.clearUndoStack();
    QVERIFY(!host.canUndo());
    QVERIFY(!host.canRedo());
    QCOMPARE(camera->shutterSpeed(), 2000u); // the settings stay
}

void TestStandInUndo::clearInsideAMacroToleratesItsEnd()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.beginUndoMacro(QString());
    camera->setShutterSpeed(2000);
    host.clearUndoStack();
    host.endUndoMacro(); // of the press, whose steps were accepted meanwhile
    QVERIFY(!host.canUndo());
    QCOMPARE(host.openMacros(), 0);
    host.beginUndoMacro("next");
    camera->setShutterSpeed(3000);
    host.endUndoMacro();
    QVERIFY(host.canUndo());
}

void TestStandInUndo::endWithoutBeginIsNoticed()
{
    StandInHost host;
    LogCapture log;
    host.endUndoMacro();
    QCOMPARE(log.texts(), QStringList("end without its beginning: endUndoMacro"));
    QCOMPARE(host.openMacros(), 0);
}

void TestStandInUndo::newChangeForgetsWhatWasUndone()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->setShutterSpeed(2000);
    host.undo();
    camera->setShutterSpeed(3000);
    QVERIFY(!host.canRedo());
}

void TestStandInUndo::undoneChangeReachesTheDevice()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->setShutterSpeed(2000);
    QCOMPARE(camera->deviceSettings().shutterSpeed, 2000u);
    host.undo();
    QCOMPARE(camera->deviceSettings().shutterSpeed, 1000u);
    host.redo();
    QCOMPARE(camera->deviceSettings().shutterSpeed, 2000u);
}

void TestStandInUndo::eventsTellOfChanges()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    QSignalSpy undo(host.events(), &StandInEvents::undoChanged);
    QSignalSpy settings(host.events(), &StandInEvents::cameraSettingsChanged);
    camera->setShutterSpeed(2000);
    QVERIFY(undo.count() > 0);
    QCOMPARE(settings.count(), 1);
    undo.clear();
    host.undo();
    QVERIFY(undo.count() > 0);
    QCOMPARE(settings.count(), 2);
}

void TestStandInUndo::hostGoesWithStepsLeft()
{
    int heard = 0;
    QObject listener;
    {
        StandInHost host;
        StandInCamera *camera = host.addCamera();
        camera->setShutterSpeed(2000);
        host.beginUndoMacro(QString());
        camera->setShutterSpeed(3000);
        connect(host.events(), &StandInEvents::undoChanged, &listener, [&] { ++heard; });
    }
    QCOMPARE(heard, 0);
}

int main(int argc, char **argv)
{
    TestStandInUndo test;
    return runTest(argc, argv, test);
}

#include "test_standin_undo.moc"
