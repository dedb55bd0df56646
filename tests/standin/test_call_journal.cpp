#include "contract/PLG_Interface.h"
#include "foundation/LogGroups.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QThread>
#include <QtConcurrent>

class TestCallJournal : public TestBase
{
    Q_OBJECT

private slots:
    void writesEachKindOfArgument_data();
    void writesEachKindOfArgument();
    void namesDocumentsAndObjects();
    void keepsCallsInOrder();
    void masksPasswords();
    void commandsLeaveOutQuestions();
    void clearForgetsLinesAndCountButNoFaults();
    void keepsTheLastLinesOnly();
    void countsCallsWithoutLines();
    void failsTheNthCallOfAName();
    void failsEveryCallOfAName();
    void failsOnOneDocumentOnly();
    void countsFromTheMomentOfAsking();
    void failsAtTheNthCallOfAnyKind();
    void failsFromTheNthCallOn();
    void errorHandlerFailsByNameOnly();
    void failedCallsAreWrittenToo();
    void failedCallsDoNothing();
    void clearFaultsForgetsAll();
    void answersNull();
    void answersEmpty();
    void delays();
    void documentGoesAwayInACall();
    void documentGoesAwayInItsOwnCall();
    void faultsWorkWithoutLines();
    void linesOfAllThreadsArrive();
    void listenerGetsEachLine();
    void ownCallsLeaveNoTrace();
    void ownCallsAreThoseOfTheirThread();
};

namespace {

// Text of the exception that the call throws, empty when it throws none.
template <class Call> QString failureOf(Call call)
{
    try {
        call();
    } catch (const std::runtime_error &failure) {
        return QString::fromUtf8(failure.what());
    }
    return QString();
}

}

void TestCallJournal::writesEachKindOfArgument_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QString &written, const char *expected) {
        QTest::newRow(name) << written << QString::fromUtf8(expected);
    };
    using JournalText::text;
    row("true", text(true), "true");
    row("false", text(false), "false");
    row("int", text(-12), "-12");
    row("all bits of a uint", text(~0u), "4294967295");
    row("64 bits", text(DOCKEY(18446744073709551614ULL)), "18446744073709551614");
    row("no document", text(NoDocKey), "-1");
    row("double", text(0.1), "0.1");
    row("whole double", text(2.0), "2");
    row("text", text(QString("D:/x \"y\"")), "\"D:/x \"y\"\"");
    row("empty text", text(QString()), "\"\"");
    row("line breaks", text(QString("a\nb\r")), "\"a\\nb\\r\"");
    row("bytes", text(QByteArray("\xc3\xa4")), "\"ä\"");
    row("list of texts", text(QStringList({"a", "b"})), "[\"a\", \"b\"]");
    row("empty list", text(QStringList()), "[]");
    row("keys", text(QList<DOCKEY>({1, NoDocKey, 3})), "[1, -1, 3]");
    row("records", text(QList<SavedRecord>({{"s1", "d1"}, {"s2", "d2"}})),
        "[(\"s1\", \"d1\"), (\"s2\", \"d2\")]");
    row("invalid variant", text(QVariant()), "invalid");
    row("bool variant", text(QVariant(true)), "true");
    row("number variant", text(QVariant(7)), "7");
    row("double variant", text(QVariant(0.5)), "0.5");
    row("text variant", text(QVariant(QString("x"))), "\"x\"");
    row("list variant", text(QVariant(QVariantList({1, "b"}))), "[1, \"b\"]");
    row("size variant", text(QVariant(QSize(10, 20))), "10x20");
    row("map", text(QVariantMap({{"k", 1}, {"l", "m"}})), "{k: 1, l: \"m\"}");
    row("empty map", text(QVariantMap()), "{}");
    row("point", text(QPoint(3, 4)), "(3,4)");
    row("size", text(QSize(10, 20)), "10x20");
    row("rectangle", text(QRect(1, 2, 30, 40)), "(1,2 30x40)");
    row("time", text(QDateTime(QDate(2024, 2, 3), QTime(4, 5, 6))), "\"2024-02-03T04:05:06\"");
    row("invalid time", text(QDateTime()), "invalid");
    row("secret", text(JournalText::Secret()), "***");
    row("null widget", text(static_cast<QWidget *>(nullptr)), "null");
    row("null document", text(static_cast<DOC_Interface *>(nullptr)), "null");
    row("null plug-in", text(static_cast<PLG_Interface *>(nullptr)), "null");
}

void TestCallJournal::writesEachKindOfArgument()
{
    QFETCH(QString, written);
    QFETCH(QString, expected);
    QCOMPARE(written, expected);
}

void TestCallJournal::namesDocumentsAndObjects()
{
    StandInHost host;
    host.addCamera();
    StandInCamera *second = host.addCamera();
    QLabel label;
    HostServices &services = host;
    services.documentKeyOf(second);
    services.info("x", &label);
    services.setCurrentDoc(NoDocKey, true);
    second->refresh(true);
    QCOMPARE(host.journal(), QStringList({"documentKeyOf([2])", "info(\"x\", QLabel)",
                                          "setCurrentDoc(-1, true)", "[2].refresh(true)"}));
}

void TestCallJournal::keepsCallsInOrder()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.settings().declare({"display/x"});
    QCOMPARE(host.journal(), QStringList());
    host.setTrelvikLock(true);
    host.getPrefInt("display/x", QVariant());
    camera->refresh(true);
    host.isTrelvikLocked();
    QCOMPARE(host.journal(),
             QStringList({"setTrelvikLock(true)", "getPrefInt(\"display/x\", invalid)",
                          "[1].refresh(true)", "isTrelvikLocked()"}));
}

void TestCallJournal::masksPasswords()
{
    StandInHost host;
    host.state().kelvaultDrives = {{1, 2, 0, "K1", "geheim", true, 0.0, 0, false}};
    QVERIFY(host.unlockKelvaultDrive(1, 2, "geheim"));
    QVERIFY(host.changeDrivePassword(1, 2, "geheim", "neu"));
    QCOMPARE(host.journal(), QStringList({"unlockKelvaultDrive(1, 2, ***)",
                                          "changeDrivePassword(1, 2, ***, ***)"}));
    QCOMPARE(LogGroups::masked(), QString("***"));
    host.clearJournal();
    host.settings().declare({"usercustom/drivePassword", "passage/name"});
    host.setPref("usercustom/drivePassword", "hunter2");
    host.setPrefString("usercustom/drivePassword", "hunter2");
    host.setPrefString("passage/name", "shown");
    QCOMPARE(host.journal(), QStringList({"setPref(\"usercustom/drivePassword\", ***)",
                                          "setPrefString(\"usercustom/drivePassword\", ***)",
                                          "setPrefString(\"passage/name\", \"shown\")"}));
    QCOMPARE(JournalText::text(QVariantMap{{"password", "hunter2"}, {"user", "lab"}}),
             QString("{password: ***, user: \"lab\"}"));
}

void TestCallJournal::commandsLeaveOutQuestions()
{
    StandInHost host;
    host.settings().declare({"a/b"});
    StandInCamera *camera = host.addCamera();
    QList<DOCKEY> keys;
    host.isLiveMode();
    host.setPrefInt("a/b", 1);
    host.deviceKeys(keys, true);
    camera->isToolOn("lut");
    camera->notifyChange(1, false);
    host.confirm("Sure?", nullptr, {});
    QCOMPARE(host.commands(), QStringList({"setPrefInt(\"a/b\", 1)", "[1].notifyChange(1, false)",
                                           "confirm(\"Sure?\", null, {})"}));
    QCOMPARE(host.journal().size(), 6);
}

void TestCallJournal::clearForgetsLinesAndCountButNoFaults()
{
    StandInHost host;
    host.failOn("openPluginByName", 2);
    host.openPluginByName("lut");
    host.clearJournal();
    QCOMPARE(host.journal(), QStringList());
    QCOMPARE(host.commands(), QStringList());
    QCOMPARE(host.callCount(), 0);
    QCOMPARE(failureOf([&] { host.openPluginByName("lut"); }), QString("openPluginByName failed"));
}

void TestCallJournal::keepsTheLastLinesOnly()
{
    StandInHost host;
    host.settings().declare({"a", "b"});
    for (int i = 0; i < 10; ++i)
        host.setPrefInt("a", i);
    host.setJournalLimit(3);
    QCOMPARE(host.journal(),
             QStringList({"setPrefInt(\"a\", 7)", "setPrefInt(\"a\", 8)", "setPrefInt(\"a\", 9)"}));
    for (int i = 0; i < 25; ++i) {
        host.isReady();
        host.setPrefInt("b", i);
        QCOMPARE(host.journal().size(), 3);
        QCOMPARE(host.journal().last(), QStringLiteral("setPrefInt(\"b\", %1)").arg(i));
    }
    QCOMPARE(host.commands(), QStringList({"setPrefInt(\"b\", 23)", "setPrefInt(\"b\", 24)"}));
    QCOMPARE(host.callCount(), 60);
    host.setJournalLimit(0);
    host.isReady();
    host.isReady();
    QVERIFY(host.journal().size() >= 5);
}

void TestCallJournal::countsCallsWithoutLines()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.isReady();
    host.setJournalEnabled(false);
    host.isReady();
    camera->refresh(true);
    std::runtime_error error("x");
    host.errorHandler(error);
    host.setJournalEnabled(true);
    host.isLiveMode();
    host.errorHandler(error);
    QCOMPARE(host.journal(), QStringList({"isReady()", "isLiveMode()", "errorHandler(\"x\")"}));
    QCOMPARE(host.handledErrors(), QStringList({"x", "x"}));
    QCOMPARE(host.callCount(), 4); // without errorHandler
}

void TestCallJournal::failsTheNthCallOfAName()
{
    StandInHost host;
    host.failOn("openPluginByName", 2);
    const auto open = [&] { host.openPluginByName("lut"); };
    QCOMPARE(failureOf(open), QString());
    host.closePluginByName("lut");
    QCOMPARE(failureOf(open), QString("openPluginByName failed"));
    QCOMPARE(failureOf(open), QString());
}

void TestCallJournal::failsEveryCallOfAName()
{
    StandInHost host;
    host.failOn("isReady", 0);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(failureOf([&] { host.isReady(); }), QString("isReady failed"));
    QCOMPARE(failureOf([&] { host.isLiveMode(); }), QString());
}

void TestCallJournal::failsOnOneDocumentOnly()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    host.failOn("[2].refresh");
    QCOMPARE(failureOf([&] { first->refresh(true); }), QString());
    QCOMPARE(failureOf([&] { second->refresh(true); }), QString("refresh failed"));
    host.failOn("refresh", 2);
    QCOMPARE(failureOf([&] { second->refresh(true); }), QString());
    QCOMPARE(failureOf([&] { first->refresh(true); }), QString("refresh failed"));
}

void TestCallJournal::countsFromTheMomentOfAsking()
{
    StandInHost host;
    host.isReady();
    host.isReady();
    host.failOn("isReady", 1);
    QCOMPARE(failureOf([&] { host.isReady(); }), QString("isReady failed"));
    host.failAtCall(1);
    QCOMPARE(failureOf([&] { host.isFileMode(); }), QString("isFileMode failed"));
}

void TestCallJournal::failsAtTheNthCallOfAnyKind()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.failAtCall(3);
    QCOMPARE(failureOf([&] { host.isReady(); }), QString());
    QCOMPARE(failureOf([&] { camera->refresh(true); }), QString());
    QCOMPARE(failureOf([&] { camera->isConnected(); }), QString("isConnected failed"));
    QCOMPARE(failureOf([&] { host.isReady(); }), QString());
}

void TestCallJournal::failsFromTheNthCallOn()
{
    StandInHost host;
    host.failFromCall(2);
    QCOMPARE(failureOf([&] { host.isReady(); }), QString());
    QCOMPARE(failureOf([&] { host.isLiveMode(); }), QString("isLiveMode failed"));
    QCOMPARE(failureOf([&] { host.isReady(); }), QString("isReady failed"));
}

void TestCallJournal::errorHandlerFailsByNameOnly()
{
    StandInHost host;
    std::runtime_error error("broken");
    const auto handle = [&] { host.errorHandler(error); };
    host.failAtCall(1);
    QCOMPARE(failureOf(handle), QString());
    QCOMPARE(failureOf([&] { host.isReady(); }),
             QString("isReady failed")); // the first that counts
    host.failFromCall(1);
    QCOMPARE(failureOf(handle), QString());
    host.clearFaults();
    host.failOn("errorHandler");
    QCOMPARE(failureOf(handle), QString("errorHandler failed"));
    QCOMPARE(host.handledErrors(), QStringList({"broken", "broken"}));
    QCOMPARE(host.callCount(), 1);
}

void TestCallJournal::failedCallsAreWrittenToo()
{
    StandInHost host;
    host.failOn("setTrelvikLock");
    failureOf([&] { host.setTrelvikLock(true); });
    QCOMPARE(host.journal(), QStringList({"setTrelvikLock(true)"}));
}

void TestCallJournal::failedCallsDoNothing()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.failOn("setTrelvikLock");
    host.failOn("setDocumentComment");
    failureOf([&] { host.setTrelvikLock(true); });
    failureOf([&] { camera->setDocumentComment("x"); });
    QVERIFY(!host.isLockOn());
    QCOMPARE(camera->state().comment, QString());
}

void TestCallJournal::clearFaultsForgetsAll()
{
    StandInHost host;
    host.addCamera();
    host.failOn("isReady", 0);
    host.failFromCall(1);
    host.answerNullOn("currentDocument", 0);
    host.removeDocumentOn("isReady", 1);
    host.clearFaults();
    QCOMPARE(failureOf([&] { host.isReady(); }), QString());
    QVERIFY(host.currentDocument());
}

void TestCallJournal::answersNull()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    DOC_Interface *const doc = camera;
    host.answerNullOn("deviceByKey", 2);
    QCOMPARE(host.deviceByKey(1, true), doc);
    QCOMPARE(host.deviceByKey(1, true), nullptr);
    QCOMPARE(host.deviceByKey(1, true), doc);
    host.answerNullOn("currentDocument", 0);
    QCOMPARE(host.currentDocument(), nullptr);
    QCOMPARE(host.currentDocument(), nullptr);
    host.answerNullOn("documentByKey");
    QCOMPARE(host.documentByKey(1), nullptr);
    host.answerNullOn("headInterface");
    QVERIFY(!camera->headInterface());
    QVERIFY(camera->headInterface());
}

void TestCallJournal::answersEmpty()
{
    StandInHost host;
    host.addCamera();
    QList<DOCKEY> keys{9};
    host.answerEmptyOn("liveDocKeys");
    host.liveDocKeys(keys, true);
    QCOMPARE(keys, QList<DOCKEY>());
    host.liveDocKeys(keys, true);
    QCOMPARE(keys, QList<DOCKEY>({1}));
    host.answerEmptyOn("documentKeys", 2);
    QCOMPARE(host.documentKeys(true, false), QList<DOCKEY>({1}));
    QCOMPARE(host.documentKeys(true, false), QList<DOCKEY>());
    host.answerEmptyOn("selectedDocKeys", 0);
    keys = {9};
    host.selectedDocKeys(keys, true);
    QCOMPARE(keys, QList<DOCKEY>());
}

void TestCallJournal::delays()
{
    StandInHost host;
    host.delayOn("isReady", 100);
    QElapsedTimer timer;
    timer.start();
    host.isReady();
    host.isReady();
    QVERIFY2(timer.elapsed() >= 200, qPrintable(QString::number(timer.elapsed())));
    host.clearFaults();
    timer.restart();
    host.isReady();
    QVERIFY2(timer.elapsed() < 100, qPrintable(QString::number(timer.elapsed())));
}

void TestCallJournal::documentGoesAwayInACall()
{
    StandInHost host;
    host.addCamera();
    host.addCamera();
    host.removeDocumentOn("isLivePaused", 2);
    QVERIFY(host.deviceByKey(2, true));
    host.isLivePaused();
    QCOMPARE(host.deviceByKey(2, true), nullptr);
    QVERIFY(host.deviceByKey(1, true));
    host.isLivePaused(); // only once
    QCOMPARE(host.documentCount(), 1);

    // A query that makes its own document go away does not find it any more.
    host.removeDocumentOn("deviceByKey", 1);
    QCOMPARE(host.deviceByKey(1, true), nullptr);
}

void TestCallJournal::documentGoesAwayInItsOwnCall()
{
    StandInHost host;
    DOC_Interface *doc = host.addCamera();
    host.removeDocumentOn("mapPoint", 1);
    QCOMPARE(doc->mapPoint(QPoint(3, 4), true), QPoint(3, 4)); // the call itself still ends
    QCOMPARE(host.documentCount(), 0);

    // Whoever goes on with it is noticed.
    LogCapture log;
    doc->refresh(true);
    QCOMPARE(log.texts(QtCriticalMsg), QStringList({"call on the closed document [1] refresh"}));
}

void TestCallJournal::faultsWorkWithoutLines()
{
    StandInHost host;
    host.setJournalEnabled(false);
    host.isReady();
    host.failOn("isReady", 2);
    QCOMPARE(failureOf([&] { host.isReady(); }), QString());
    QCOMPARE(failureOf([&] { host.isReady(); }), QString("isReady failed"));
    QCOMPARE(failureOf([&] { host.isReady(); }), QString());
    QCOMPARE(host.journal(), QStringList());
    QCOMPARE(host.callCount(), 4);
}

void TestCallJournal::linesOfAllThreadsArrive()
{
    constexpr int Threads = 4;
    constexpr int Calls = 500;
    StandInHost host;
    host.failOn("saveCameraSettings", Calls + 1);
    QAtomicInt failures;
    QList<QFuture<void>> tasks;
    for (int i = 0; i < Threads; ++i) {
        tasks.append(QtConcurrent::run([&host, &failures, i] {
            for (int k = 0; k < Calls; ++k) {
                try {
                    host.saveCameraSettings(QString::number(i), {DOCKEY(k)});
                } catch (const StandInFault &) {
                    failures.ref();
                }
            }
        }));
    }
    for (QFuture<void> &task : tasks)
        task.waitForFinished();
    QCOMPARE(failures.loadAcquire(), 1);
    QCOMPARE(host.callCount(), Threads * Calls);
    const QStringList lines = host.journal();
    QCOMPARE(lines.size(), Threads * Calls);
    for (int i = 0; i < Threads; ++i) {
        // Each thread's calls stand in their order.
        const QStringList own = lines.filter(QStringLiteral("saveCameraSettings(\"%1\", ").arg(i));
        QCOMPARE(own.size(), Calls);
        for (int k = 0; k < Calls; ++k)
            QCOMPARE(own.at(k), QStringLiteral("saveCameraSettings(\"%1\", [%2])").arg(i).arg(k));
    }
}

void TestCallJournal::listenerGetsEachLine()
{
    StandInHost host;
    QStringList heard;
    connect(host.events(), &StandInEvents::callJournalled, this,
            [&](const QString &line) { heard.append(line); });
    host.setTrelvikLock(true);
    host.setJournalEnabled(false);
    host.setTrelvikLock(false);
    QCOMPARE(heard, QStringList({"setTrelvikLock(true)"}));
}

void TestCallJournal::ownCallsLeaveNoTrace()
{
    QStringList heard;
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.callJournal().setListener([&](const QString &line) { heard.append(line); });
    host.failOn("isReady", 1);
    host.failAtCall(2);
    {
        const CallJournal::OwnCalls outer;
        {
            const CallJournal::OwnCalls inner;
            QVERIFY(host.isReady());
        }
        QCOMPARE(camera->partitionNumbers(), QList<int>({1}));
        host.setTrelvikLock(true);
    }
    QVERIFY(host.isLockOn()); // it was done
    QCOMPARE(host.journal(), QStringList());
    QCOMPARE(host.callCount(), 0);
    QCOMPARE(heard, QStringList());
    // The faults wait for the calls of others.
    QCOMPARE(failureOf([&] { host.isReady(); }), QString("isReady failed"));
    QCOMPARE(failureOf([&] { camera->partitionNumbers(); }), QString("partitionNumbers failed"));
    QCOMPARE(heard, QStringList({"isReady()", "[1].partitionNumbers()"}));
}

void TestCallJournal::ownCallsAreThoseOfTheirThread()
{
    StandInHost host;
    const CallJournal::OwnCalls own;
    // A thread of its own: who waits for a task of the pool may run it himself.
    const std::unique_ptr<QThread> other(QThread::create([&] { host.isReady(); }));
    other->start();
    QVERIFY(other->wait());
    host.isUpdateIgnore();
    QCOMPARE(host.journal(), QStringList({"isReady()"}));
}

int main(int argc, char **argv)
{
    TestCallJournal test;
    return runTest(argc, argv, test);
}

#include "test_call_journal.moc"
