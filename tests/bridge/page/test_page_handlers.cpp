#include "bridge/page/PageHandlers.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/TestLog.h"

#include <QWebFrame>

// What a page's handlers throw, on signals that native code emits with no script on the stack.

class TestPageHandlers : public TestBase
{
    Q_OBJECT

private slots:
    void throwingHandlerIsLoggedWithItsPlace();
    void everySignalIsGuarded_data();
    void everySignalIsGuarded();
    void signalBySignatureIsGuarded_data();
    void signalBySignatureIsGuarded();
    void overloadBySignatureIsGuarded();
    void reloadedPageIsGuarded();
    void handlersEndWithTheirPage();
    void secondViewIsGuarded();
    void attachedTwiceIsLoggedOnce();
    void guardOutlivesTheCollector();
    void mediatorMayGoWhileItsPageLives();
    void pageCannotDeleteTheGuard();
    void pageConnectsAsEver_data();
    void pageConnectsAsEver();
    void badConnectionFailsAsEver_data();
    void badConnectionFailsAsEver();
    void argumentsArrive();
    void emissionMeetsLivingHandlersOnly_data();
    void emissionMeetsLivingHandlersOnly();
    void pageMayDisconnectWhatItConnected();
};

namespace {

class CountedMediator : public JS_Mediator
{
public:
    explicit CountedMediator(HostServices *host) : JS_Mediator(host, QStringLiteral("bridge")) {}
    using QObject::receivers;
};

const QString Throwing = QStringLiteral("function () { throw new Error('no element'); }");

}

void TestPageHandlers::throwingHandlerIsLoggedWithItsPlace()
{
    DialogPage shown;
    shown.page.call("bridge.update.connect(" + Throwing + ")");
    LogCapture log;
    emit shown.mediator->update();
    QCOMPARE(log.lines().size(), 1);
    QCOMPARE(log.lines().first().type, QtCriticalMsg);
    const QString line = log.texts().first();
    QVERIFY2(QRegularExpression("^\\[SCRIPT\\] \"Error: no element( \\(.*:\\d+\\))?\"$")
                 .match(line)
                 .hasMatch(),
             qPrintable(line));
    QCOMPARE(shown.page.call("1 + 1"), QStringLiteral("2"));
}

void TestPageHandlers::everySignalIsGuarded_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"open", "update", "close", "enterQtWidget", "rejected", "objectNameChanged"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestPageHandlers::everySignalIsGuarded()
{
    QFETCH(QString, name);
    DialogPage shown;
    shown.page.evaluate("bridge." + name + ".connect(" + Throwing + ")");
    LogCapture log;
    if (name == QLatin1String("objectNameChanged"))
        shown.mediator->setObjectName(QStringLiteral("other"));
    else
        QVERIFY(QMetaObject::invokeMethod(shown.mediator, qPrintable(name)));
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
}

void TestPageHandlers::signalBySignatureIsGuarded_data()
{
    everySignalIsGuarded_data();
}

void TestPageHandlers::signalBySignatureIsGuarded()
{
    QFETCH(QString, name);
    const bool ofName = name == QLatin1String("objectNameChanged");
    const QString signature = name + QLatin1String(ofName ? "(QString)" : "()");
    DialogPage shown;
    shown.page.evaluate("bridge['" + signature + "'].connect(" + Throwing + ")");
    LogCapture log;
    if (ofName)
        shown.mediator->setObjectName(QStringLiteral("other"));
    else
        QVERIFY(QMetaObject::invokeMethod(shown.mediator, qPrintable(name)));
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
}

void TestPageHandlers::overloadBySignatureIsGuarded()
{
    DialogPage shown;
    auto *second = new JS_Mediator(&shown.host, QStringLiteral("second"));
    shown.host.attachMediator(shown.dialog.webView(), second);
    shown.page.evaluate("second['destroyed(QObject*)'].connect(" + Throwing + ");" +
                        "second['destroyed()'].connect(" + Throwing + ")");
    LogCapture log;
    delete second;
    QCOMPARE(log.texts(QtCriticalMsg).size(), 2);
}

void TestPageHandlers::reloadedPageIsGuarded()
{
    DialogPage shown;
    PageProbe probe(shown.dialog.webView());
    shown.page.evaluate("bridge.update.connect(" + Throwing + ")");
    shown.dialog.webView()->reload();
    QVERIFY(probe.waitLoaded());
    LogCapture log;
    emit shown.mediator->update(); // the old page's handlers are gone
    QCOMPARE(log.texts(), QStringList());
    shown.page.evaluate("bridge.update.connect(" + Throwing + ")");
    emit shown.mediator->update();
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
}

void TestPageHandlers::handlersEndWithTheirPage()
{
    DialogPage shown;
    PageProbe probe(shown.dialog.webView());
    for (int i = 0; i < 3; ++i) {
        shown.page.evaluate("bridge.update.connect(function () { bridge.hideSelectBox(); })");
        shown.host.clearJournal();
        emit shown.mediator->update();
        QCOMPARE(shown.host.commands(), QStringList({"hideSelectBox()"}));
        shown.dialog.webView()->reload();
        QVERIFY(probe.waitLoaded());
    }
    shown.host.clearJournal();
    emit shown.mediator->update();
    QCOMPARE(shown.host.commands(), QStringList());
}

void TestPageHandlers::secondViewIsGuarded()
{
    DialogPage shown;
    GUI_WebView second(&shown.host, nullptr);
    shown.host.attachMediator(&second, shown.mediator);
    second.page()->mainFrame()->evaluateJavaScript("bridge.update.connect(" + Throwing + ")");
    LogCapture log;
    emit shown.mediator->update();
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
}

void TestPageHandlers::attachedTwiceIsLoggedOnce()
{
    DialogPage shown;
    shown.host.attachMediator(shown.dialog.webView(), shown.mediator);
    shown.page.evaluate("bridge.update.connect(" + Throwing + ")");
    LogCapture log;
    emit shown.mediator->update();
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
    QCOMPARE(shown.mediator->findChildren<PageHandlers *>().size(), 1);
}

void TestPageHandlers::guardOutlivesTheCollector()
{
    DialogPage shown;
    shown.page.evaluate("for (var i = 0; i < 300000; ++i) { var rubbish = { a: [i, {}] }; }"
                        "bridge.update.connect(" +
                        Throwing + ")");
    shown.page.evaluate("for (var i = 0; i < 300000; ++i) { var rubbish = { a: [i, {}] }; }");
    LogCapture log;
    emit shown.mediator->update();
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
}

void TestPageHandlers::mediatorMayGoWhileItsPageLives()
{
    StandInHost host;
    GUI_WebView view(&host, nullptr);
    PageProbe page(&view);
    view.resize(400, 300);
    auto mediator = std::make_unique<JS_Mediator>(&host, QStringLiteral("bridge"));
    host.attachMediator(&view, mediator.get());
    view.load(QUrl(QStringLiteral("qrc:/pages/calls.html")));
    QVERIFY(page.waitLoaded());
    page.evaluate("bridge.destroyed.connect(" + Throwing + ")");
    LogCapture log;
    mediator.reset();
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
    QVERIFY(page.call("bridge.getStyle()").startsWith("error: "));
    QCOMPARE(page.call("1 + 1"), QStringLiteral("2"));
    page.evaluate("location.reload()");
    QVERIFY(page.waitLoaded());
    QCOMPARE(page.call("typeof bridge"), QStringLiteral("\"undefined\""));
}

void TestPageHandlers::pageCannotDeleteTheGuard()
{
    DialogPage shown;
    const auto *guard = shown.mediator->findChild<PageHandlers *>();
    QVERIFY(guard);
    shown.page.evaluate("Object.getOwnPropertyNames(window).forEach(function (name) {"
                        "    var kept = window[name];"
                        "    if (kept && kept[0] && kept[0].deleteLater) kept[0].deleteLater();"
                        "}); bridge.update.connect(function () { throw new Error('late'); })");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(shown.mediator->findChild<PageHandlers *>(), guard);
    LogCapture log;
    emit shown.mediator->update();
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
    QVERIFY(log.texts(QtCriticalMsg).first().contains("late"));
}

void TestPageHandlers::pageConnectsAsEver_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("heard");
    const QString handler = QStringLiteral("function h() { heard += 'h'; }");
    QTest::newRow("function") << handler + "bridge.update.connect(h)"
                              << "h";
    QTest::newRow("twice fires twice")
        << handler + "bridge.update.connect(h); bridge.update.connect(h)"
        << "hh";
    QTest::newRow("disconnected") << handler +
                                         "bridge.update.connect(h); bridge.update.disconnect(h)"
                                  << "";
    QTest::newRow("twice, disconnected once")
        << handler +
               "bridge.update.connect(h); bridge.update.connect(h); bridge.update.disconnect(h)"
        << "h";
    QTest::newRow("receiver and function")
        << "var o = { n: 'o' }; bridge.update.connect(o, function () { heard += this.n; })"
        << "o";
    QTest::newRow("receiver and name")
        << "var o = { n: 'o', f: function () { heard += this.n; } }; bridge.update.connect(o, 'f')"
        << "o";
    QTest::newRow("receiver and name, disconnected")
        << "var o = { n: 'o', f: function () { heard += this.n; } };"
           "bridge.update.connect(o, 'f'); bridge.update.disconnect(o, 'f')"
        << "";
    QTest::newRow("receiver and function, other receiver stays")
        << "function f() { heard += this.n; } var a = { n: 'a' }, b = { n: 'b' };"
           "bridge.update.connect(a, f); bridge.update.connect(b, f);"
           "bridge.update.disconnect(a, f)"
        << "b";
    QTest::newRow("slot of the object")
        << "bridge.update.connect(bridge.hideSelectBox); heard = 'slot'"
        << "slot";
    QTest::newRow("in the order of connecting")
        << "bridge.update.connect(function () { heard += 1; });"
           "bridge.update.connect(function () { heard += 2; });"
        << "12";
    QTest::newRow("window as receiver")
        << "bridge.update.connect(function () { heard += this === window; })"
        << "true";
}

void TestPageHandlers::pageConnectsAsEver()
{
    QFETCH(QString, script);
    QFETCH(QString, heard);
    DialogPage shown;
    shown.page.evaluate("var heard = '';" + script);
    emit shown.mediator->update();
    QCOMPARE(shown.page.evaluate("heard").toString(), heard);
    QCOMPARE(shown.host.commands(),
             heard == QLatin1String("slot") ? QStringList({"hideSelectBox()"}) : QStringList());
}

void TestPageHandlers::badConnectionFailsAsEver_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("nothing") << "bridge.update.connect()";
    QTest::newRow("number") << "bridge.update.connect(5)";
    QTest::newRow("null") << "bridge.update.connect(null)";
    QTest::newRow("receiver without the function") << "bridge.update.connect({}, 'f')";
    QTest::newRow("no receiver") << "bridge.update.connect(null, 'f')";
    QTest::newRow("no receiver for a function") << "bridge.update.connect(null, function () {})";
    QTest::newRow("nothing twice") << "bridge.update.connect(undefined, undefined)";
    QTest::newRow("number as receiver") << "bridge.update.connect(5, 'f')";
    QTest::newRow("disconnect without receiver") << "bridge.update.disconnect(null, 'f')";
    QTest::newRow("not connected") << "bridge.update.disconnect(function () {})";
    QTest::newRow("no signal") << "bridge.getStyle.connect(function () {})";
}

void TestPageHandlers::badConnectionFailsAsEver()
{
    QFETCH(QString, script);
    DialogPage shown;
    QVERIFY(shown.page.call(script).startsWith("error: "));
    emit shown.mediator->update();
    QCOMPARE(shown.page.call("1 + 1"), QStringLiteral("2"));
}

void TestPageHandlers::argumentsArrive()
{
    DialogPage shown;
    shown.page.evaluate("var heard; bridge.objectNameChanged.connect(function (name) {"
                        "    heard = name + arguments.length; })");
    shown.mediator->setObjectName(QStringLiteral("other"));
    QCOMPARE(shown.page.evaluate("heard").toString(), QStringLiteral("other1"));
}

void TestPageHandlers::emissionMeetsLivingHandlersOnly_data()
{
    QTest::addColumn<bool>("reloads");
    QTest::newRow("views") << false;
    QTest::newRow("reloads") << true;
}

// A mediator that lives longer than its pages, as that of a tool with a panel.
void TestPageHandlers::emissionMeetsLivingHandlersOnly()
{
    QFETCH(bool, reloads);
    StandInHost host;
    CountedMediator mediator(&host);
    std::unique_ptr<GUI_WebView> view;
    for (int i = 0; i < 40; ++i) {
        const bool makes = !reloads || !view;
        if (makes) {
            view = std::make_unique<GUI_WebView>(&host, nullptr);
            host.attachMediator(view.get(), &mediator);
        }
        PageProbe page(view.get());
        if (makes)
            view->load(QUrl(QStringLiteral("qrc:/pages/calls.html")));
        else
            view->reload();
        QVERIFY(page.waitLoaded());
        page.evaluate("bridge.update.connect(function () { bridge.hideSelectBox(); });"
                      "bridge.update.connect(bridge, function () {});"
                      "bridge.open.connect(function () {})");
        QCOMPARE(mediator.receivers(SIGNAL(update())), 2);
        QCOMPARE(mediator.receivers(SIGNAL(open())), 1);
        QCOMPARE(mediator.findChildren<PageHandlers *>().size(), 1);
    }
    host.clearJournal();
    emit mediator.update();
    QCOMPARE(host.commands(), QStringList({"hideSelectBox()"}));
    view.reset();
    QCOMPARE(mediator.receivers(SIGNAL(update())), 0);
    QCOMPARE(mediator.children().size(), 0);
}

void TestPageHandlers::pageMayDisconnectWhatItConnected()
{
    StandInHost host;
    CountedMediator mediator(&host);
    auto view = std::make_unique<GUI_WebView>(&host, nullptr);
    host.attachMediator(view.get(), &mediator);
    PageProbe page(view.get());
    view->load(QUrl(QStringLiteral("qrc:/pages/calls.html")));
    QVERIFY(page.waitLoaded());
    page.evaluate("function h() {} for (var i = 0; i < 100; ++i) {"
                  "    bridge.update.connect(h); bridge.update.disconnect(h); }"
                  "bridge.update.connect(h)");
    QCOMPARE(mediator.receivers(SIGNAL(update())), 1);
}

int main(int argc, char **argv)
{
    TestPageHandlers test;
    return runTest(argc, argv, test);
}

#include "test_page_handlers.moc"
