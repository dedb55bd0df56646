#include "contract/ViewPauseGuard.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QSemaphore>
#include <QThread>

#include <memory>
#include <stdexcept>

using Mode = StandInHost::Mode;
Q_DECLARE_METATYPE(StandInHost::Mode)

namespace {

/// Another thread that holds the mutex of the document list.
class MutexHolder
{
public:
    explicit MutexHolder(QMutex *mutex)
        : m_thread(QThread::create([this, mutex] {
              mutex->lock();
              m_locked.release();
              m_release.acquire();
              mutex->unlock();
          }))
    {
        m_thread->start();
        m_locked.acquire();
    }

    ~MutexHolder()
    {
        m_release.release();
        m_thread->wait();
    }

private:
    QSemaphore m_locked;
    QSemaphore m_release;
    std::unique_ptr<QThread> m_thread;
};

// Whether nobody holds the mutex, as another thread sees it.
bool isFree(QMutex *mutex)
{
    bool got = false;
    std::unique_ptr<QThread> thread(QThread::create([&] {
        got = mutex->tryLock();
        if (got)
            mutex->unlock();
    }));
    thread->start();
    thread->wait();
    return got;
}

QMutex *mutexOf(StandInHost &host)
{
    QMutex *mutex = host.documentsMutex();
    host.clearJournal();
    return mutex;
}

QStringList entering(const QStringList &calls)
{
    return QStringList({"documentsMutex()", "isLiveMode()"}) + calls;
}

const QStringList RefreshOfTwo = {"isLivePaused()",       "liveDocKeys(true)",
                                  "deviceByKey(1, true)", "[1].refresh(true)",
                                  "deviceByKey(2, true)", "[2].refresh(true)"};

}

class TestViewPauseGuard : public TestBase
{
    Q_OBJECT

private slots:
    void callsInOrder_data();
    void callsInOrder();
    void goesOnWhileTheMutexIsBusy_data();
    void goesOnWhileTheMutexIsBusy();
    void waitsAMillisecondForABusyMutex();
    void holdsTheMutexMeanwhile();
    void resumesWhatWasPausedWhenTheModeChanges_data();
    void resumesWhatWasPausedWhenTheModeChanges();
    void refreshesOnlyWhileLiveIsPaused();
    void passesOverDocumentsThatHaveGone();
    void refreshesNothingWithoutLiveDocuments();
    void resumesWhenItsScopeFails_data();
    void resumesWhenItsScopeFails();
    void takesBackWhatAFailureOnEntryLeft_data();
    void takesBackWhatAFailureOnEntryLeft();
    void goesOnPastAFailureOnLeaving_data();
    void goesOnPastAFailureOnLeaving();
    void survivesEveryCallThatFails();
    void nests();
};

void TestViewPauseGuard::callsInOrder_data()
{
    QTest::addColumn<StandInHost::Mode>("mode");
    QTest::addColumn<bool>("exclusive");
    QTest::addColumn<bool>("refreshDocuments");
    QTest::addColumn<QStringList>("onEntry");
    QTest::addColumn<QStringList>("onLeaving");

    const QStringList pauseLive = entering({"pauseLive(false)"});
    const QStringList pauseExclusive =
        entering({"beginExclusiveUpdate()", "beginExclusiveRefresh()",
                  "pauseLiveExclusive(false, true, true)"});
    const QStringList pausePlayback = entering({"pausePlayback()"});
    const QStringList endExclusive = {"endExclusiveUpdate()", "endExclusiveRefresh()"};

    QTest::newRow("live") << Mode::Live << false << false << pauseLive
                          << QStringList({"resumeLive()"});
    QTest::newRow("live, refresh")
        << Mode::Live << false << true << pauseLive << RefreshOfTwo + QStringList({"resumeLive()"});
    QTest::newRow("live, exclusive") << Mode::Live << true << false << pauseExclusive
                                     << QStringList({"resumeLive()"}) + endExclusive;
    QTest::newRow("live, exclusive, refresh")
        << Mode::Live << true << true << pauseExclusive
        << RefreshOfTwo + QStringList({"resumeLive()"}) + endExclusive;
    for (const bool exclusive : {false, true}) {
        for (const bool refresh : {false, true}) {
            const QString flags = QString("exclusive %1, refresh %2").arg(exclusive).arg(refresh);
            QTest::newRow(qPrintable("memory, " + flags))
                << Mode::Memory << exclusive << refresh << pausePlayback
                << QStringList({"resumePlayback()"});
            QTest::newRow(qPrintable("file, " + flags))
                << Mode::File << exclusive << refresh << pausePlayback
                << QStringList({"resumePlayback()"});
        }
    }
}

void TestViewPauseGuard::callsInOrder()
{
    QFETCH(StandInHost::Mode, mode);
    QFETCH(bool, exclusive);
    QFETCH(bool, refreshDocuments);
    StandInHost host;
    host.addCamera();
    host.addCamera();
    host.setMode(mode);
    QMutex *mutex = mutexOf(host);
    {
        const ViewPauseGuard guard(&host, exclusive, refreshDocuments);
        QTEST(host.journal(), "onEntry");
        QVERIFY(!isFree(mutex));
        host.clearJournal();
    }
    QTEST(host.journal(), "onLeaving");
    QVERIFY(isFree(mutex));
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestViewPauseGuard::goesOnWhileTheMutexIsBusy_data()
{
    QTest::addColumn<StandInHost::Mode>("mode");
    QTest::newRow("live") << Mode::Live;
    QTest::newRow("memory") << Mode::Memory;
}

void TestViewPauseGuard::goesOnWhileTheMutexIsBusy()
{
    QFETCH(StandInHost::Mode, mode);
    StandInHost host;
    host.setMode(mode);
    QMutex *mutex = mutexOf(host);
    {
        const MutexHolder holder(mutex);
        {
            QElapsedTimer timer;
            timer.start();
            const ViewPauseGuard guard(&host, false, false);
            QVERIFY2(timer.elapsed() < 500, "waits far longer than a millisecond");
            QCOMPARE(host.journal().size(), 3);
        }
        QCOMPARE(host.journal().size(), 4);
        QVERIFY2(!isFree(mutex), "released what another thread holds");
    }
    QVERIFY(isFree(mutex));
}

void TestViewPauseGuard::waitsAMillisecondForABusyMutex()
{
    StandInHost host;
    const MutexHolder holder(mutexOf(host));
    for (int i = 0; i < 5; ++i) { // all of them by chance, no machine is that slow
        QElapsedTimer timer;
        timer.start();
        const ViewPauseGuard guard(&host, false, false);
        QVERIFY(timer.nsecsElapsed() >= 1000000);
    }
}

void TestViewPauseGuard::holdsTheMutexMeanwhile()
{
    StandInHost host;
    QMutex *mutex = mutexOf(host);
    {
        const ViewPauseGuard guard(&host, false, false);
        QVERIFY(!isFree(mutex));
    }
    QVERIFY(isFree(mutex));
}

void TestViewPauseGuard::resumesWhatWasPausedWhenTheModeChanges_data()
{
    QTest::addColumn<StandInHost::Mode>("before");
    QTest::addColumn<StandInHost::Mode>("after");
    QTest::addColumn<QString>("resume");
    QTest::newRow("live to file") << Mode::Live << Mode::File << "resumeLive()";
    QTest::newRow("file to live") << Mode::File << Mode::Live << "resumePlayback()";
}

void TestViewPauseGuard::resumesWhatWasPausedWhenTheModeChanges()
{
    QFETCH(StandInHost::Mode, before);
    QFETCH(StandInHost::Mode, after);
    QFETCH(QString, resume);
    StandInHost host;
    host.setMode(before);
    {
        const ViewPauseGuard guard(&host, false, false);
        host.setMode(after);
        host.clearJournal();
    }
    QCOMPARE(host.journal(), QStringList({resume}));
}

void TestViewPauseGuard::refreshesOnlyWhileLiveIsPaused()
{
    StandInHost host;
    host.addCamera();
    {
        const ViewPauseGuard guard(&host, false, true);
        host.state().isLivePaused = false;
        host.clearJournal();
    }
    QCOMPARE(host.journal(), QStringList({"isLivePaused()", "resumeLive()"}));
}

void TestViewPauseGuard::passesOverDocumentsThatHaveGone()
{
    StandInHost host;
    host.addCamera();
    host.addCamera();
    host.addCamera();
    host.removeDocumentOn("deviceByKey", 2);
    {
        const ViewPauseGuard guard(&host, false, true);
        host.clearJournal();
    }
    QCOMPARE(host.journal(),
             QStringList({"isLivePaused()", "liveDocKeys(true)", "deviceByKey(1, true)",
                          "[1].refresh(true)", "deviceByKey(2, true)", "deviceByKey(3, true)",
                          "[3].refresh(true)", "resumeLive()"}));
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestViewPauseGuard::refreshesNothingWithoutLiveDocuments()
{
    StandInHost host;
    {
        const ViewPauseGuard guard(&host, false, true);
        host.clearJournal();
    }
    QCOMPARE(host.journal(), QStringList({"isLivePaused()", "liveDocKeys(true)", "resumeLive()"}));
}

void TestViewPauseGuard::resumesWhenItsScopeFails_data()
{
    callsInOrder_data();
}

void TestViewPauseGuard::resumesWhenItsScopeFails()
{
    QFETCH(StandInHost::Mode, mode);
    QFETCH(bool, exclusive);
    QFETCH(bool, refreshDocuments);
    StandInHost host;
    host.addCamera();
    host.addCamera();
    host.setMode(mode);
    QMutex *mutex = mutexOf(host);
    bool caught = false;
    try {
        const ViewPauseGuard guard(&host, exclusive, refreshDocuments);
        host.clearJournal();
        throw std::runtime_error("the change failed");
    } catch (const std::runtime_error &failure) {
        caught = true;
        QCOMPARE(QString(failure.what()), QString("the change failed"));
    }
    QVERIFY(caught);
    QTEST(host.journal(), "onLeaving");
    QVERIFY(isFree(mutex));
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestViewPauseGuard::takesBackWhatAFailureOnEntryLeft_data()
{
    QTest::addColumn<StandInHost::Mode>("mode");
    QTest::addColumn<bool>("exclusive");
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QStringList>("taken back");
    QTest::newRow("mutex") << Mode::Live << false << "documentsMutex" << QStringList();
    QTest::newRow("mode") << Mode::Live << false << "isLiveMode" << QStringList();
    QTest::newRow("live") << Mode::Live << false << "pauseLive" << QStringList();
    QTest::newRow("playback") << Mode::File << false << "pausePlayback" << QStringList();
    QTest::newRow("exclusive update")
        << Mode::Live << true << "beginExclusiveUpdate" << QStringList();
    QTest::newRow("exclusive refresh")
        << Mode::Live << true << "beginExclusiveRefresh" << QStringList({"endExclusiveUpdate()"});
    QTest::newRow("exclusive live")
        << Mode::Live << true << "pauseLiveExclusive"
        << QStringList({"endExclusiveUpdate()", "endExclusiveRefresh()"});
}

void TestViewPauseGuard::takesBackWhatAFailureOnEntryLeft()
{
    QFETCH(StandInHost::Mode, mode);
    QFETCH(bool, exclusive);
    QFETCH(QString, failing);
    StandInHost host;
    host.addCamera();
    host.setMode(mode);
    QMutex *mutex = mutexOf(host);
    host.failOn(failing);
    bool caught = false;
    try {
        const ViewPauseGuard guard(&host, exclusive, true);
        QFAIL("the failure was lost");
    } catch (const std::exception &failure) {
        caught = true;
        QCOMPARE(QString(failure.what()), failing + " failed");
    }
    QVERIFY(caught);
    const QStringList journal = host.journal();
    int at = 0;
    while (!journal.at(at).startsWith(failing + "("))
        ++at;
    QTEST(QStringList(journal.mid(at + 1)), "taken back");
    QVERIFY(isFree(mutex));
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestViewPauseGuard::goesOnPastAFailureOnLeaving_data()
{
    QTest::addColumn<StandInHost::Mode>("mode");
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QStringList>("onLeaving");
    const QStringList rest = {"resumeLive()", "endExclusiveUpdate()", "endExclusiveRefresh()"};
    QTest::newRow("playback") << Mode::File << "resumePlayback"
                              << QStringList({"resumePlayback()"});
    QTest::newRow("question whether it is paused")
        << Mode::Live << "isLivePaused" << QStringList({"isLivePaused()"}) + rest;
    QTest::newRow("live documents") << Mode::Live << "liveDocKeys"
                                    << QStringList({"isLivePaused()", "liveDocKeys(true)"}) + rest;
    QTest::newRow("first document")
        << Mode::Live << "deviceByKey"
        << QStringList({"isLivePaused()", "liveDocKeys(true)", "deviceByKey(1, true)",
                        "deviceByKey(2, true)", "[2].refresh(true)"}) +
               rest;
    QTest::newRow("refresh of the first document")
        << Mode::Live << "refresh" << RefreshOfTwo + rest;
    QTest::newRow("live") << Mode::Live << "resumeLive" << RefreshOfTwo + rest;
    QTest::newRow("exclusive update") << Mode::Live << "endExclusiveUpdate" << RefreshOfTwo + rest;
    QTest::newRow("exclusive refresh")
        << Mode::Live << "endExclusiveRefresh" << RefreshOfTwo + rest;
}

void TestViewPauseGuard::goesOnPastAFailureOnLeaving()
{
    QFETCH(StandInHost::Mode, mode);
    QFETCH(QString, failing);
    QFETCH(QStringList, onLeaving);
    StandInHost host;
    host.addCamera();
    host.addCamera();
    host.setMode(mode);
    QMutex *mutex = mutexOf(host);
    {
        const ViewPauseGuard guard(&host, true, true);
        host.clearJournal();
        host.failOn(failing);
    }
    QStringList calls = host.journal();
    const QStringList reports = calls.filter("errorHandler(");
    for (const QString &report : reports)
        calls.removeAll(report);
    QCOMPARE(calls, onLeaving);
    QCOMPARE(reports.size(), 1);
    QCOMPARE(host.handledErrors(), QStringList({failing + " failed"}));
    QVERIFY(isFree(mutex));
}

void TestViewPauseGuard::survivesEveryCallThatFails()
{
    StandInHost host;
    host.addCamera();
    host.addCamera();
    QMutex *mutex = mutexOf(host);
    int calls = 0;
    {
        const ViewPauseGuard guard(&host, true, true);
    }
    calls = host.callCount();
    QCOMPARE(calls, 14);
    for (int nth = 1; nth <= calls; ++nth) {
        for (const bool fromThere : {false, true}) {
            host.clearFaults();
            if (fromThere)
                host.failFromCall(nth);
            else
                host.failAtCall(nth);
            try {
                const ViewPauseGuard guard(&host, true, true);
            } catch (const std::exception &) {
                QVERIFY(nth <= 5);
            }
            host.clearFaults();
            QVERIFY2(isFree(mutex), qPrintable(QString("call %1").arg(nth)));
        }
    }
}

void TestViewPauseGuard::nests()
{
    StandInHost host;
    QMutex *mutex = mutexOf(host);
    {
        const ViewPauseGuard outer(&host, false, false);
        {
            // The mutex is held by the outer one, and the work goes on all the same.
            const ViewPauseGuard inner(&host, false, false);
        }
        QVERIFY(!isFree(mutex));
        host.clearJournal();
    }
    QCOMPARE(host.journal(), QStringList({"resumeLive()"}));
    QVERIFY(isFree(mutex));
}

int main(int argc, char **argv)
{
    TestViewPauseGuard test;
    return runTest(argc, argv, test);
}

#include "test_view_pause_guard.moc"
