#include "bridge/operation/ConcurrentTask.h"
#include "contract/HostGuard.h"
#include "foundation/exceptions/APP_ConcurrentException.h"
#include "foundation/exceptions/APP_Exception.h"
#include "foundation/exceptions/DOC_ReadFileException.h"
#include "foundation/exceptions/UTL_Exception.h"
#include "standin/host/StandInHost.h"
#include "standin/journal/StandInFault.h"
#include "tests/support/TestLog.h"

#include <QThread>

#include <atomic>
#include <functional>
#include <stdexcept>

using Work = std::function<void()>;
Q_DECLARE_METATYPE(Work)

namespace {

/// A host that returns at once, without a look at the task.
class ImpatientHost : public StandInHost
{
public:
    void runWithProgress(const QString &, QFutureWatcher<void> &) override {}
};

/// A host that waits for the task and keeps its failure to itself.
class SilentHost : public StandInHost
{
public:
    void runWithProgress(const QString &, QFutureWatcher<void> &watcher) override
    {
        try {
            watcher.future().waitForFinished();
        } catch (const std::exception &) {
        }
    }
};

}

class TestConcurrentTask : public TestBase
{
    Q_OBJECT

private slots:
    void runsOnThePoolWhileTheHostShowsProgress();
    void appExceptionArrivesAsOne_data();
    void appExceptionArrivesAsOne();
    void anythingElseArrivesUnhandled_data();
    void anythingElseArrivesUnhandled();
    void waitsForTheTaskWhenTheHostFails();
    void hostsFailureGoesBeforeTheTasks();
    void waitsForAHostThatDoesNot();
    void failureArrivesThroughAHostThatIsSilent();
    void slotReportsOnce();
    void manyInARow();
};

void TestConcurrentTask::runsOnThePoolWhileTheHostShowsProgress()
{
    StandInHost host;
    QThread *worker = nullptr;
    ConcurrentTask::run(&host, "Saving...", [&] { worker = QThread::currentThread(); });
    QVERIFY(worker);
    QVERIFY(worker != QThread::currentThread());
    QCOMPARE(host.journal().size(), 1);
    QVERIFY2(host.journal().first().startsWith("runWithProgress(\"Saving...\""),
             qPrintable(host.journal().first()));
}

void TestConcurrentTask::appExceptionArrivesAsOne_data()
{
    QTest::addColumn<Work>("work");
    QTest::addColumn<QString>("text");
    QTest::addColumn<uint>("code");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("APP_Exception")
        << Work([] { throw APP_Exception("Failed to save support file.", 0); })
        << "Failed to save support file." << 0u
        << QStringList{R"("APP_Exception:[message:Failed to save support file.] [errorCode:0] ")"};
    QTest::newRow("UTL_Exception")
        << Work([] { throw UTL_Exception("Invalid filename.", 7); }) << "Invalid filename." << 7u
        << QStringList{R"("APP_Exception:[message:Invalid filename.] [errorCode:7] ")"};
    QTest::newRow("DOC_ReadFileException")
        << Work([] { throw DOC_ReadFileException("D:/a.xml"); }) << "File read failed." << 1u
        << QStringList{R"("APP_Exception:[message:File read failed.] [errorCode:1] ")",
                       R"("DOC_FileException:[message:File read failed.] [path:D:/a.xml] )"
                       R"([errorCode:1] ")"};
}

void TestConcurrentTask::appExceptionArrivesAsOne()
{
    QFETCH(Work, work);
    QFETCH(QString, text);
    QFETCH(uint, code);
    QFETCH(QStringList, lines);
    LogCapture log;
    StandInHost host;
    bool caught = false;
    try {
        ConcurrentTask::run(&host, "Saving...", work);
    } catch (const APP_ConcurrentException &) {
        QFAIL("the wrapper arrived");
    } catch (const DOC_Exception &) {
        QFAIL("what was thrown arrived itself");
    } catch (const APP_Exception &failure) {
        caught = true;
        QCOMPARE(QString(failure.what()), text);
        QCOMPARE(failure.errorCode(), code);
    }
    QVERIFY(caught);
    QCOMPARE(log.texts(), lines);
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestConcurrentTask::anythingElseArrivesUnhandled_data()
{
    QTest::addColumn<Work>("work");
    QTest::newRow("std::runtime_error") << Work([] { throw std::runtime_error("disk"); });
    QTest::newRow("std::bad_alloc") << Work([] { throw std::bad_alloc(); });
    QTest::newRow("no exception class") << Work([] { throw 42; });
}

void TestConcurrentTask::anythingElseArrivesUnhandled()
{
    QFETCH(Work, work);
    LogCapture log;
    StandInHost host;
    QVERIFY_EXCEPTION_THROWN(ConcurrentTask::run(&host, "Saving...", work), QUnhandledException);
    QVERIFY_EXCEPTION_THROWN(ConcurrentTask::run(&host, "Saving...", work), std::exception);
    QCOMPARE(log.texts(), QStringList());
}

void TestConcurrentTask::waitsForTheTaskWhenTheHostFails()
{
    StandInHost host;
    host.failOn("runWithProgress");
    std::atomic<bool> ended{false};
    QVERIFY_EXCEPTION_THROWN(ConcurrentTask::run(&host, "Saving...",
                                                 [&] {
                                                     QThread::msleep(50);
                                                     ended = true;
                                                 }),
                             StandInFault);
    QVERIFY(ended);
}

void TestConcurrentTask::hostsFailureGoesBeforeTheTasks()
{
    LogCapture log;
    StandInHost host;
    host.failOn("runWithProgress");
    const Work work = [] {
        QThread::msleep(20);
        throw APP_Exception("Failed to save support file.", 0);
    };
    QVERIFY_EXCEPTION_THROWN(ConcurrentTask::run(&host, "Saving...", work), StandInFault);
    QCOMPARE(
        log.texts(),
        QStringList({R"("APP_Exception:[message:Failed to save support file.] [errorCode:0] ")"}));
}

void TestConcurrentTask::waitsForAHostThatDoesNot()
{
    ImpatientHost host;
    std::atomic<bool> ended{false};
    ConcurrentTask::run(&host, "Saving...", [&] {
        QThread::msleep(50);
        ended = true;
    });
    QVERIFY(ended);
}

void TestConcurrentTask::failureArrivesThroughAHostThatIsSilent()
{
    LogCapture log;
    SilentHost host;
    const Work work = [] { throw APP_Exception("Failed to save support file.", 3); };
    try {
        ConcurrentTask::run(&host, "Saving...", work);
        QFAIL("the failure was lost");
    } catch (const APP_Exception &failure) {
        QCOMPARE(failure.errorCode(), 3u);
    }
    QCOMPARE(log.texts().size(), 1);
}

void TestConcurrentTask::slotReportsOnce()
{
    LogCapture log;
    StandInHost host;
    guarded(&host, [&] {
        ConcurrentTask::run(&host, "Saving...",
                            [] { throw UTL_Exception("Invalid filename.", 0); });
        host.info("Please attach preserved file to a mail.", nullptr);
    });
    QCOMPARE(host.handledErrors(), QStringList({"Invalid filename."}));
    QCOMPARE(host.messages().size(), 0);
    QCOMPARE(log.texts(), QStringList({R"("APP_Exception:[message:Invalid filename.] )"
                                       R"([errorCode:0] ")"}));
}

void TestConcurrentTask::manyInARow()
{
    LogCapture log;
    StandInHost host;
    int failures = 0;
    for (int i = 0; i < 200; ++i) {
        // What the task uses lies on this stack and goes with each round.
        QString text = QString("round %1").arg(i);
        try {
            ConcurrentTask::run(&host, "Saving...", [&] {
                text += " done";
                if (i % 2)
                    throw APP_Exception(text, uint(i));
            });
        } catch (const APP_Exception &failure) {
            ++failures;
            QCOMPARE(QString(failure.what()), QString("round %1 done").arg(i));
        }
        QCOMPARE(text, QString("round %1 done").arg(i));
    }
    QCOMPARE(failures, 100);
    QCOMPARE(log.texts().size(), 100);
}

int main(int argc, char **argv)
{
    TestConcurrentTask test;
    return runTest(argc, argv, test);
}

#include "test_concurrent_task.moc"
