#include "bridge/operation/PartitionRestoreScope.h"
#include "bridge/operation/SavePlanScope.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <stdexcept>

// What a look at a save's path takes back on every way out.

class TestSaveScopes : public TestBase
{
    Q_OBJECT

private slots:
    void planIsCleared_data();
    void planIsCleared();
    void failedClearLeavesTheRest_data();
    void failedClearLeavesTheRest();
    void partitionComesBack();
    void partitionOfADocumentThatHasGone();
    void failedSelectionRestoresNothing();
    void failedRestoreIsTold();
};

namespace {

const QStringList WholePlan = {"clearPlannedGroupDir()", "clearPlannedDirs()",
                               "clearPlannedFiles()"};

// Leaves as a failure does where `failing` is set.
template <class Scope> void leave(const Scope &, bool failing)
{
    if (failing)
        throw std::runtime_error("body");
}

StandInCamera *addRecording(StandInHost &host)
{
    StandInCamera *camera = host.addCamera();
    camera->state().partitions = {{1, QStringLiteral("P1"), 1, 1},
                                  {2, QStringLiteral("P2"), 1, 1},
                                  {3, QStringLiteral("P3"), 1, 1}};
    camera->state().currentPartition = 3;
    return camera;
}

}

void TestSaveScopes::planIsCleared_data()
{
    QTest::addColumn<bool>("everything");
    QTest::addColumn<bool>("failing");
    QTest::newRow("group") << false << false;
    QTest::newRow("group, failing") << false << true;
    QTest::newRow("everything") << true << false;
    QTest::newRow("everything, failing") << true << true;
}

void TestSaveScopes::planIsCleared()
{
    QFETCH(bool, everything);
    QFETCH(bool, failing);
    StandInHost host;
    host.savePlan().setGroupDir("Batch");
    host.savePlan().addDir("/d/");
    host.savePlan().addFile("/d/f");
    bool thrown = false;
    try {
        SavePlanScope plan(&host, everything ? SavePlanScope::Clear::Everything
                                             : SavePlanScope::Clear::GroupDir);
        QCOMPARE(host.journal(), QStringList());
        leave(plan, failing);
    } catch (const std::runtime_error &) {
        thrown = true;
    }
    QCOMPARE(thrown, failing);
    QCOMPARE(host.journal(), WholePlan.mid(0, everything ? 3 : 1));
    QVERIFY(host.savePlan().groupDir().isEmpty());
    QCOMPARE(host.savePlan().hasDir("/d/"), !everything);
    QCOMPARE(host.savePlan().hasFile("/d/f"), !everything);
}

void TestSaveScopes::failedClearLeavesTheRest_data()
{
    QTest::addColumn<QString>("operation");
    for (const char *operation : {"clearPlannedGroupDir", "clearPlannedDirs", "clearPlannedFiles"})
        QTest::newRow(operation) << QString::fromLatin1(operation);
}

void TestSaveScopes::failedClearLeavesTheRest()
{
    QFETCH(QString, operation);
    StandInHost host;
    host.failOn(operation);
    {
        SavePlanScope plan(&host, SavePlanScope::Clear::Everything);
    }
    QCOMPARE(host.handledErrors(), QStringList(operation + " failed"));
    QStringList lines = host.journal();
    lines.removeAll("errorHandler(\"" + operation + " failed\")");
    QCOMPARE(lines, WholePlan);
}

void TestSaveScopes::partitionComesBack()
{
    for (bool failing : {false, true}) {
        StandInHost host;
        StandInCamera *camera = addRecording(host);
        try {
            PartitionRestoreScope partition(&host, camera, 1, 2);
            QCOMPARE(camera->state().currentPartition, 2);
            leave(partition, failing);
        } catch (const std::runtime_error &) {
        }
        QCOMPARE(host.journal(), QStringList({"[1].selectPartition(2)", "deviceByKey(1, true)",
                                              "[1].selectPartition(3)"}));
        QCOMPARE(camera->state().currentPartition, 3);
    }
}

void TestSaveScopes::partitionOfADocumentThatHasGone()
{
    StandInHost host;
    StandInCamera *camera = addRecording(host);
    {
        PartitionRestoreScope partition(&host, camera, 1, 2);
        host.closeDocument(1);
    }
    QCOMPARE(host.journal(), QStringList({"[1].selectPartition(2)", "deviceByKey(1, true)"}));
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestSaveScopes::failedSelectionRestoresNothing()
{
    StandInHost host;
    StandInCamera *camera = addRecording(host);
    host.failOn("selectPartition");
    QVERIFY_EXCEPTION_THROWN(PartitionRestoreScope(&host, camera, 1, 2), StandInFault);
    QCOMPARE(host.journal(), QStringList("[1].selectPartition(2)"));
    QCOMPARE(camera->state().currentPartition, 3);
}

void TestSaveScopes::failedRestoreIsTold()
{
    StandInHost host;
    StandInCamera *camera = addRecording(host);
    host.failOn("selectPartition", 2);
    {
        PartitionRestoreScope partition(&host, camera, 1, 2);
    }
    QCOMPARE(host.handledErrors(), QStringList("selectPartition failed"));
}

int main(int argc, char *argv[])
{
    TestSaveScopes test;
    return runTest(argc, argv, test);
}

#include "test_save_scopes.moc"
