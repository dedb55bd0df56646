#include "bridge/mediator/PageSignal.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/TestLog.h"

#include <QWebFrame>
#include <QWebSettings>

#include <stdexcept>

// Signals from native code to a page whose script may fail.

class TestPageSignal : public TestBase
{
    Q_OBJECT

private slots:
    void handlerHearsTheSignal();
    void throwingHandlerIsLoggedAndThePageGoesOn_data();
    void throwingHandlerIsLoggedAndThePageGoesOn();
    void whatIsThrownShowsAsText_data();
    void whatIsThrownShowsAsText();
    void failingHandlerBesideOthers();
    void handlerThatCallsASlotThatSignals();
    void nothingIsLeftInThePage();
    void withoutAPageItIsSentDirectly();
    void afterTheViewHasGoneItIsSentDirectly();
    void pageWithoutScriptIsSentTo();
    void nativeFailureReachesTheSender();
    void keptFrameCannotSendAgain();
};

namespace {

void sendUpdate(JS_Mediator *mediator)
{
    PageSignal::send(mediator, [mediator] { emit mediator->update(); });
}

}

void TestPageSignal::handlerHearsTheSignal()
{
    DialogPage shown;
    shown.page.evaluate("var heard = 0; bridge.update.connect(function () { ++heard; });");
    sendUpdate(shown.mediator);
    sendUpdate(shown.mediator);
    QCOMPARE(shown.page.evaluate("heard").toInt(), 2);
}

void TestPageSignal::throwingHandlerIsLoggedAndThePageGoesOn_data()
{
    QTest::addColumn<QString>("signal");
    QTest::newRow("open") << "open";
    QTest::newRow("update") << "update";
    QTest::newRow("rejected") << "rejected";
}

void TestPageSignal::throwingHandlerIsLoggedAndThePageGoesOn()
{
    QFETCH(QString, signal);
    DialogPage shown;
    shown.page.evaluate(QStringLiteral("var heard = 0; bridge.%1.connect(function () { ++heard; "
                                       "throw new Error('no element'); });")
                            .arg(signal));
    JS_Mediator_Dialog *mediator = shown.mediator;
    const std::function<void()> emission = [&] {
        if (signal == QLatin1String("open"))
            emit mediator->open();
        else if (signal == QLatin1String("update"))
            emit mediator->update();
        else
            emit mediator->rejected();
    };
    LogCapture log;
    PageSignal::send(mediator, emission);
    PageSignal::send(mediator, emission);
    const QStringList lines = log.texts(QtCriticalMsg);
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines.first().startsWith("[SCRIPT] \"Error: no element"), qPrintable(lines.first()));
    QCOMPARE(shown.page.evaluate("heard").toInt(), 2);
    QCOMPARE(shown.page.call("bridge.getPrefInt('a/b', 3)"), QStringLiteral("3"));
}

void TestPageSignal::whatIsThrownShowsAsText_data()
{
    QTest::addColumn<QString>("thrown");
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << "'broken'"
                          << "broken";
    QTest::newRow("number") << "42"
                            << "42";
    QTest::newRow("null") << "null"
                          << "null";
    QTest::newRow("undefined") << "undefined"
                               << "undefined";
    QTest::newRow("object without text") << "({ toString: function () { throw 1; } })"
                                         << "unknown";
    QTest::newRow("quotes") << "'a \"b\"'"
                            << "a \\\"b\\\"";
}

void TestPageSignal::whatIsThrownShowsAsText()
{
    QFETCH(QString, thrown);
    QFETCH(QString, text);
    DialogPage shown;
    shown.page.evaluate(
        QStringLiteral("bridge.update.connect(function () { throw %1; });").arg(thrown));
    LogCapture log;
    sendUpdate(shown.mediator);
    QCOMPARE(log.texts(), QStringList({QStringLiteral("[SCRIPT] \"%1\"").arg(text)}));
}

void TestPageSignal::failingHandlerBesideOthers()
{
    DialogPage shown;
    shown.page.evaluate("var heard = '';"
                        "bridge.update.connect(function () { heard += 'a'; });"
                        "bridge.update.connect(function () { throw new Error('x'); });"
                        "bridge.update.connect(function () { heard += 'c'; });");
    LogCapture log;
    sendUpdate(shown.mediator);
    QCOMPARE(shown.page.evaluate("heard").toString(), QStringLiteral("ac"));
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
}

void TestPageSignal::handlerThatCallsASlotThatSignals()
{
    DialogPage shown;
    int depth = 0;
    connect(shown.mediator, &JS_Mediator::enterQtWidget, this, [&] {
        if (++depth < 3)
            sendUpdate(shown.mediator);
    });
    shown.page.evaluate("var heard = 0;"
                        "bridge.update.connect(function () { ++heard; bridge.enterQtWidget(); });");
    sendUpdate(shown.mediator);
    QCOMPARE(shown.page.evaluate("heard").toInt(), 3);
    QCOMPARE(depth, 3);
}

void TestPageSignal::nothingIsLeftInThePage()
{
    DialogPage shown;
    shown.page.evaluate("var seen = []; bridge.update.connect(function () {"
                        "    seen = Object.keys(window).filter(function (n) {"
                        "        return n.indexOf('ignal') >= 0; }); });");
    sendUpdate(shown.mediator);
    QCOMPARE(shown.page.evaluate("seen.length").toInt(), 0);
    QCOMPARE(shown.page.evaluate("typeof window.__pageSignal").toString(),
             QStringLiteral("undefined"));
}

void TestPageSignal::withoutAPageItIsSentDirectly()
{
    StandInHost host;
    JS_Mediator mediator(&host, QStringLiteral("page"));
    QSignalSpy heard(&mediator, &JS_Mediator::update);
    sendUpdate(&mediator);
    QCOMPARE(heard.count(), 1);
}

void TestPageSignal::afterTheViewHasGoneItIsSentDirectly()
{
    StandInHost host;
    JS_Mediator mediator(&host, QStringLiteral("page"));
    QSignalSpy heard(&mediator, &JS_Mediator::update);
    {
        GUI_WebView view(&host, nullptr);
        host.attachMediator(&view, &mediator);
        QCOMPARE(mediator.webView(), &view);
        sendUpdate(&mediator);
    }
    QCOMPARE(mediator.webView(), static_cast<GUI_WebView *>(nullptr));
    sendUpdate(&mediator);
    QCOMPARE(heard.count(), 2);
}

void TestPageSignal::pageWithoutScriptIsSentTo()
{
    StandInHost host;
    JS_Mediator mediator(&host, QStringLiteral("page"));
    GUI_WebView view(&host, nullptr);
    view.settings()->setAttribute(QWebSettings::JavascriptEnabled, false);
    host.attachMediator(&view, &mediator);
    QSignalSpy heard(&mediator, &JS_Mediator::update);
    sendUpdate(&mediator);
    QCOMPARE(heard.count(), 1);
}

void TestPageSignal::nativeFailureReachesTheSender()
{
    DialogPage shown;
    LogCapture log;
    QVERIFY_EXCEPTION_THROWN(
        PageSignal::send(shown.mediator, [] { throw std::runtime_error("broken"); }),
        std::runtime_error);
    QCOMPARE(log.texts(), QStringList());
    QCOMPARE(shown.page.call("1 + 1"), QStringLiteral("2"));
}

void TestPageSignal::keptFrameCannotSendAgain()
{
    DialogPage shown;
    shown.page.evaluate("var kept; Object.defineProperty(window, '__pageSignal', {"
                        "    set: function (frame) { kept = frame; }, configurable: true,"
                        "    get: function () { return kept; } });");
    int sent = 0;
    PageSignal::send(shown.mediator, [&] { ++sent; });
    shown.page.evaluate("if (kept) { try { kept.run(); } catch (e) {} }");
    QCOMPARE(sent, 1);
}

int main(int argc, char **argv)
{
    TestPageSignal test;
    return runTest(argc, argv, test);
}

#include "test_page_signal.moc"
