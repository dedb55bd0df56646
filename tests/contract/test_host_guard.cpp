#include "contract/HostGuard.h"
#include "foundation/exceptions/DOC_Exception.h"
#include "standin/host/StandInHost.h"
#include "standin/journal/StandInFault.h"
#include "tests/support/TestLog.h"

#include <memory>
#include <stdexcept>

namespace {

/// A host that looks at the failure itself, and may fail with it.
class LookingHost : public StandInHost
{
public:
    bool sawDocumentFailure = false;
    uint errorCode = 0;
    std::exception *seen = nullptr;
    bool throwsNumber = false;

    void errorHandler(std::exception &failure) override
    {
        StandInHost::errorHandler(failure);
        seen = &failure;
        if (auto *document = dynamic_cast<DOC_Exception *>(&failure)) {
            sawDocumentFailure = true;
            errorCode = document->errorCode();
        }
        if (throwsNumber)
            throw 42;
    }
};

}

class TestHostGuard : public TestBase
{
    Q_OBJECT

private slots:
    void givesTheBodysResult();
    void givesTheNeutralValueOnFailure();
    void runsABodyWithoutResult();
    void handsTheFailureItselfToTheHost();
    void keepsWhatWasDoneBeforeTheFailure();
    void letsPassWhatIsNoException();
    void survivesAnErrorHandlerThatFails();
    void survivesAnErrorHandlerThatThrowsNoException();
    void takesResultsThatCanOnlyBeMoved();
    void nests();
};

void TestHostGuard::givesTheBodysResult()
{
    StandInHost host;
    QCOMPARE(guarded(&host, 7, [] { return 8; }), 8);
    QCOMPARE(guarded(&host, false, [&] { return host.isLiveMode(); }), true);
    QCOMPARE(guarded(&host, QString(), [] { return QString("text"); }), QString("text"));
    QCOMPARE(host.journal(), QStringList({"isLiveMode()"}));
}

void TestHostGuard::givesTheNeutralValueOnFailure()
{
    StandInHost host;
    host.failOn("isLiveMode");
    QCOMPARE(guarded(&host, false, [&] { return host.isLiveMode(); }), false);
    QCOMPARE(host.handledErrors(), QStringList({"isLiveMode failed"}));

    const int number = guarded(&host, -1, []() -> int { throw std::runtime_error("no number"); });
    QCOMPARE(number, -1);
    QCOMPARE(host.handledErrors(), QStringList({"isLiveMode failed", "no number"}));

    const QString text =
        guarded(&host, QString("neutral"), []() -> QString { throw std::bad_alloc(); });
    QCOMPARE(text, QString("neutral"));
    QCOMPARE(host.handledErrors().size(), 3);
}

void TestHostGuard::runsABodyWithoutResult()
{
    StandInHost host;
    guarded(&host, [&] { host.setTrelvikLock(true); });
    QCOMPARE(host.journal(), QStringList({"setTrelvikLock(true)"}));
    QCOMPARE(host.handledErrors(), QStringList());

    host.failOn("setTrelvikLock");
    guarded(&host, [&] { host.setTrelvikLock(false); });
    QCOMPARE(host.handledErrors(), QStringList({"setTrelvikLock failed"}));
}

void TestHostGuard::handsTheFailureItselfToTheHost()
{
    LogCapture log;
    LookingHost host;
    std::exception *thrown = nullptr;
    guarded(&host, [&] {
        try {
            throw DOC_Exception("The drive is locked.", 407);
        } catch (DOC_Exception &failure) {
            thrown = &failure;
            throw;
        }
    });
    QVERIFY(host.sawDocumentFailure);
    QCOMPARE(host.errorCode, 407u);
    QCOMPARE(host.seen, thrown);
    QCOMPARE(host.handledErrors(), QStringList({"The drive is locked."}));
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
}

void TestHostGuard::keepsWhatWasDoneBeforeTheFailure()
{
    StandInHost host;
    host.failOn("hideSelectBox");
    guarded(&host, [&] {
        host.setTrelvikLock(true);
        host.hideSelectBox();
        host.setTrelvikLock(false);
    });
    QVERIFY(host.isTrelvikLocked());
    QCOMPARE(host.handledErrors(), QStringList({"hideSelectBox failed"}));
}

void TestHostGuard::letsPassWhatIsNoException()
{
    StandInHost host;
    int caught = 0;
    try {
        guarded(&host, [] { throw 42; });
    } catch (int number) {
        caught = number;
    }
    QCOMPARE(caught, 42);
    caught = 0;
    try {
        guarded(&host, 0, []() -> int { throw 43; });
    } catch (int number) {
        caught = number;
    }
    QCOMPARE(caught, 43);
    QCOMPARE(host.handledErrors(), QStringList());
    QCOMPARE(host.journal(), QStringList());
}

void TestHostGuard::survivesAnErrorHandlerThatFails()
{
    LogCapture log;
    StandInHost host;
    host.failOn("errorHandler");
    host.failOn("isLiveMode");
    QCOMPARE(guarded(&host, true, [&] { return host.isLiveMode(); }), true);
    QCOMPARE(log.texts(QtCriticalMsg),
             QStringList({"The error handler failed: errorHandler failed"}));
    QCOMPARE(host.journal().size(), 2);
    QVERIFY(host.journal().at(1).startsWith("errorHandler("));
}

void TestHostGuard::survivesAnErrorHandlerThatThrowsNoException()
{
    LogCapture log;
    LookingHost host;
    host.throwsNumber = true;
    QCOMPARE(guarded(&host, 7, []() -> int { throw std::runtime_error("no number"); }), 7);
    QCOMPARE(host.handledErrors(), QStringList({"no number"}));
    QCOMPARE(log.texts(QtCriticalMsg), QStringList({"The error handler failed."}));
}

void TestHostGuard::takesResultsThatCanOnlyBeMoved()
{
    StandInHost host;
    const std::unique_ptr<int> result =
        guarded(&host, std::unique_ptr<int>(), [] { return std::make_unique<int>(5); });
    QVERIFY(result);
    QCOMPARE(*result, 5);
    const std::unique_ptr<int> neutral =
        guarded(&host, std::make_unique<int>(6),
                []() -> std::unique_ptr<int> { throw std::runtime_error("no result"); });
    QVERIFY(neutral);
    QCOMPARE(*neutral, 6);
}

void TestHostGuard::nests()
{
    StandInHost host;
    const int outer = guarded(&host, 0, [&] {
        const int inner =
            guarded(&host, 1, []() -> int { throw std::runtime_error("the inner one"); });
        return inner + 10;
    });
    QCOMPARE(outer, 11);
    QCOMPARE(host.handledErrors(), QStringList({"the inner one"}));
}

int main(int argc, char **argv)
{
    TestHostGuard test;
    return runTest(argc, argv, test);
}

#include "test_host_guard.moc"
