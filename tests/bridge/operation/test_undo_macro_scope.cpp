#include "bridge/operation/UndoMacroScope.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <stdexcept>

// An undo step that ends on every way out.

class TestUndoMacroScope : public TestBase
{
    Q_OBJECT

private slots:
    void stepEndsOnEveryWayOut_data();
    void stepEndsOnEveryWayOut();
    void changesBecomeOneStep();
    void failedBeginEndsNothing();
    void failedEndIsTold();
};

void TestUndoMacroScope::stepEndsOnEveryWayOut_data()
{
    QTest::addColumn<bool>("failing");
    QTest::newRow("straight") << false;
    QTest::newRow("failing") << true;
}

void TestUndoMacroScope::stepEndsOnEveryWayOut()
{
    QFETCH(bool, failing);
    StandInHost host;
    bool thrown = false;
    try {
        UndoMacroScope macro(&host);
        QCOMPARE(host.journal(), QStringList("beginUndoMacro(\"\")"));
        if (failing)
            throw std::runtime_error("body");
    } catch (const std::runtime_error &) {
        thrown = true;
    }
    QCOMPARE(thrown, failing);
    QCOMPARE(host.journal(), QStringList({"beginUndoMacro(\"\")", "endUndoMacro()"}));
    QCOMPARE(host.openMacros(), 0);
}

void TestUndoMacroScope::changesBecomeOneStep()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    {
        UndoMacroScope macro(&host);
        camera->setShutterSpeed(2000);
        camera->setRecordRate(500);
    }
    host.undo();
    QCOMPARE(camera->shutterSpeed(), 1000u);
    QCOMPARE(camera->recordRate(), 1000u);
    QVERIFY(!host.canUndo());
}

void TestUndoMacroScope::failedBeginEndsNothing()
{
    StandInHost host;
    host.failOn("beginUndoMacro");
    QVERIFY_EXCEPTION_THROWN(UndoMacroScope{&host}, StandInFault);
    QCOMPARE(host.journal(), QStringList("beginUndoMacro(\"\")"));
}

void TestUndoMacroScope::failedEndIsTold()
{
    StandInHost host;
    host.failOn("endUndoMacro");
    {
        UndoMacroScope macro(&host);
    }
    QCOMPARE(host.handledErrors(), QStringList("endUndoMacro failed"));
}

int main(int argc, char *argv[])
{
    TestUndoMacroScope test;
    return runTest(argc, argv, test);
}

#include "test_undo_macro_scope.moc"
