#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/page/AfterScript.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/ObjectCount.h"
#include "tests/support/TestLog.h"

#include <QEventLoop>
#include <QTimer>
#include <QVBoxLayout>
#include <QWebFrame>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

// Views and pages that are deleted while script of their page is on the stack.

class TestViewLifetime : public TestBase
{
    Q_OBJECT

private slots:
    void viewGoesWhenItsScriptHasReturned_data();
    void viewGoesWhenItsScriptHasReturned();
    void messageOfAPageHoldsItsView();
    void pageLoadsAgainUnderItsOwnHandler();
    void slotOfALoadHoldsTheView();
    void pageOfADeletedViewWaitsForTheSlotOfItsLoad();
    void viewWithoutScriptGoesAtOnce();
    void scriptIsSeenWithoutAFrame();
    void scriptIsSeenWhereItsStackIsFull();
    void waitingTaskRunsOnce();
    void viewThatFoundAnotherWindowGoesWithIt();
    void dialogGoesWhenItsScriptHasReturned_data();
    void dialogGoesWhenItsScriptHasReturned();
    void dialogUnderAnotherPagesScriptGoesWithItsMediator();
};

namespace {

const QUrl Calls(QStringLiteral("qrc:/pages/calls.html"));

/// Its page starts what a test puts in, from a slot and from a signal.
class NestingMediator : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    explicit NestingMediator(HostServices *host)
        : JS_Mediator_Dialog(host, QStringLiteral("bridge"))
    {
        connect(this, &NestingMediator::nested, this, &NestingMediator::nest);
    }

    std::function<void()> body;
    QStringList *trace = nullptr;

signals:
    void nested();

public slots:
    void nest()
    {
        body();
        note(objectName()); // what belongs to the mediator is still there
    }
    void note(const QString &text) const
    {
        if (trace)
            trace->append(text);
    }
};

/// Runs what a user could do next, in an event loop of its own.
void runNested(const std::function<void()> &first, const std::function<void()> &last)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, first);
    QTimer::singleShot(30, &loop, [&] {
        last();
        loop.quit();
    });
    loop.exec();
}

/// A view in a window, as a panel stands in it.
struct Window
{
    Window()
    {
        auto *middle = new QWidget(top);
        view = new GUI_WebView(&host, middle);
        page.emplace(view);
        (new QVBoxLayout(top))->addWidget(middle);
        (new QVBoxLayout(middle))->addWidget(view);
        mediator.trace = &trace;
        host.attachMediator(view, &mediator);
        top->resize(400, 300);
        top->show();
        view->load(Calls);
        loaded = page->waitLoaded();
    }
    ~Window()
    {
        page.reset();
        delete top.data();
    }

    StandInHost host;
    NestingMediator mediator{&host};
    QStringList trace;
    QPointer<QWidget> top = new QWidget;
    QPointer<GUI_WebView> view;
    std::optional<PageProbe> page;
    bool loaded = false;
};

void settle()
{
    QTest::qWait(100); // a script that a timer of the page starts runs, too
    ObjectCount::settle();
}

}

void TestViewLifetime::viewGoesWhenItsScriptHasReturned_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("way");
    const auto rows = [](const char *name, const QString &script) {
        for (const char *way :
             {"view, later", "parent, later", "window, later", "view", "parent", "window"})
            QTest::addRow("%s: %s", name, way) << script << QString::fromLatin1(way);
    };
    const QString nest = QStringLiteral("function () { bridge.nest(); bridge.note('after'); }");
    rows("slot", "bridge.nest(); bridge.note('after')");
    rows("signal that the page emits", "bridge.nested(); bridge.note('after')");
    rows("click", "document.getElementById('run').onclick = " + nest);
    rows("handler of a signal", "bridge.update.connect(" + nest + ")");
    rows("timer", "setTimeout(" + nest + ", 1)");
    rows("timer without script of its own", "setTimeout(bridge.nest, 1)");
    rows("promise", "Promise.resolve().then(" + nest + ")");
}

void TestViewLifetime::viewGoesWhenItsScriptHasReturned()
{
    QFETCH(QString, script);
    QFETCH(QString, way);
    Window window;
    QVERIFY(window.loaded);
    const QPointer<QWebPage> page = window.view->page();
    const bool later = way.endsWith(QLatin1String("later"));
    QWidget *going = window.top;
    if (way.startsWith(QLatin1String("view")))
        going = window.view;
    else if (way.startsWith(QLatin1String("parent")))
        going = window.view->parentWidget();
    bool viewHeld = false;
    bool pageHeld = false;
    window.mediator.body = [&] {
        runNested([&] { later ? going->deleteLater() : delete going; },
                  [&] {
                      viewHeld = window.view;
                      pageHeld = page;
                  });
    };
    window.page->evaluate(script);
    if (script.contains(QLatin1String("onclick")))
        window.page->click(QStringLiteral("run"));
    emit window.mediator.update();
    QStringList trace({"bridge"});
    if (script.contains(QLatin1String("after")))
        trace.append("after");
    QTRY_COMPARE(window.trace, trace); // a timer of the page may start the script
    QCOMPARE(viewHeld, later);
    QVERIFY(pageHeld);
    ObjectCount::settle();
    QVERIFY(!window.view);
    QVERIFY(!page);
    QCOMPARE(window.trace, trace);
}

// A message of the page itself runs an event loop, and no slot is on the stack.
void TestViewLifetime::messageOfAPageHoldsItsView()
{
    Window window;
    QVERIFY(window.loaded);
    bool viewHeld = false;
    QTimer::singleShot(0, this, [&] {
        window.view->deleteLater();
        QTimer::singleShot(30, this, [&] {
            viewHeld = window.view;
            if (QWidget *message = QApplication::activeModalWidget())
                message->close();
        });
    });
    window.page->evaluate("alert('sure?'); bridge.note('after')");
    QVERIFY(viewHeld);
    QCOMPARE(window.trace, QStringList({"after"}));
    ObjectCount::settle();
    QVERIFY(!window.view);
}

void TestViewLifetime::pageLoadsAgainUnderItsOwnHandler()
{
    Window window;
    QVERIFY(window.loaded);
    bool loadedAgain = false;
    window.mediator.body = [&] {
        runNested([&] { window.view->reload(); }, [&] { loadedAgain = window.page->waitLoaded(); });
    };
    window.page->evaluate("bridge.update.connect("
                          "function () { bridge.nest(); bridge.note('after'); })");
    emit window.mediator.update();
    QVERIFY(loadedAgain);
    QCOMPARE(window.trace, QStringList({"bridge", "after"}));
    window.mediator.body = [] {};
    emit window.mediator.update(); // the handler went with its page
    QCOMPARE(window.trace, QStringList({"bridge", "after"}));
    ObjectCount::settle();
    QCOMPARE(window.mediator.children().size(), 1);
    QCOMPARE(window.page->call("1 + 1"), QStringLiteral("2"));
}

// The engine tells of a load while it works, without script.
void TestViewLifetime::slotOfALoadHoldsTheView()
{
    Window window;
    QVERIFY(window.loaded);
    bool once = false;
    bool viewHeld = false;
    connect(window.view, &QWebView::loadFinished, this, [&] {
        if (!std::exchange(once, true))
            runNested([&] { window.view->deleteLater(); }, [&] { viewHeld = window.view; });
    });
    window.view->reload();
    QVERIFY(QTest::qWaitFor([&] { return !window.view; }));
    QVERIFY(once);
    QVERIFY(viewHeld);
}

void TestViewLifetime::pageOfADeletedViewWaitsForTheSlotOfItsLoad()
{
    Window window;
    QVERIFY(window.loaded);
    const QPointer<QWebPage> page = window.view->page();
    bool once = false;
    bool pageWaited = false;
    bool otherWaited = true;
    connect(window.view, &QWebView::loadFinished, this, [&] {
        if (std::exchange(once, true))
            return;
        runNested(
            [&] {
                delete window.view;
                AfterScript::run([&] { otherWaited = false; });
            },
            [&] { pageWaited = page; });
    });
    window.view->reload();
    QVERIFY(QTest::qWaitFor([&] { return !page; }));
    QVERIFY(pageWaited);
    QVERIFY(!otherWaited);
}

void TestViewLifetime::viewWithoutScriptGoesAtOnce()
{
    Window window;
    QVERIFY(window.loaded);
    window.page->evaluate("bridge.note('before')");
    window.view->deleteLater();
    QCoreApplication::sendPostedEvents(window.view, QEvent::DeferredDelete);
    QVERIFY(!window.view);
}

void TestViewLifetime::scriptIsSeenWithoutAFrame()
{
    Window window;
    QVERIFY(window.loaded);
    bool seen = false;
    window.mediator.body = [&] { seen = AfterScript::isScriptRunning(nullptr); };
    QVERIFY(!AfterScript::isScriptRunning(nullptr));
    window.page->evaluate("bridge.nest()");
    QVERIFY(seen);
    QVERIFY(!AfterScript::isScriptRunning(nullptr));
}

// The deepest calls leave no room for a look at the stack.
void TestViewLifetime::scriptIsSeenWhereItsStackIsFull()
{
    Window window;
    QVERIFY(window.loaded);
    int looks = 0;
    int seen = 0;
    window.mediator.body = [&] {
        ++looks;
        if (AfterScript::isScriptRunning(window.view->page()->mainFrame()))
            ++seen;
    };
    window.page->evaluate("var left = 100;"
                          "(function deeper() {"
                          "    try { deeper(); } catch (full) { }"
                          "    if (left-- > 0)"
                          "        try { bridge.nest(); } catch (full) { }"
                          "})()");
    QVERIFY(looks > 0);
    QCOMPARE(seen, looks);
}

void TestViewLifetime::waitingTaskRunsOnce()
{
    auto token = std::make_unique<QObject>();
    int runs = 0;
    int runsBehindTheToken = 0;
    AfterScript::run([&] { ++runsBehindTheToken; }, token.get());
    AfterScript::run([&] { ++runs; });
    settle();
    QCOMPARE(runs, 1);
    QCOMPARE(runsBehindTheToken, 0);
    token.reset();
    settle();
    QCOMPARE(runs, 1);
    QCOMPARE(runsBehindTheToken, 1);
}

void TestViewLifetime::viewThatFoundAnotherWindowGoesWithIt()
{
    Window window;
    QVERIFY(window.loaded);
    QPointer<QWidget> other = new QWidget;
    bool heldByFormer = true;
    bool heldByOther = false;
    window.mediator.body = [&] {
        window.view->parentWidget()->setParent(other);
        runNested([&] { window.top->deleteLater(); }, [&] { heldByFormer = window.top; });
        runNested([&] { other->deleteLater(); }, [&] { heldByOther = other; });
    };
    window.page->evaluate("bridge.nest(); bridge.note('after')");
    QVERIFY(!heldByFormer);
    QVERIFY(heldByOther);
    QCOMPARE(window.trace, QStringList({"bridge", "after"}));
    ObjectCount::settle();
    QVERIFY(!other);
    QVERIFY(!window.view);
}

void TestViewLifetime::dialogGoesWhenItsScriptHasReturned_data()
{
    QTest::addColumn<bool>("later");
    QTest::newRow("later") << true;
    QTest::newRow("at once") << false;
}

// The mediator outlives its slot; the dialog does where its owner lets it.
void TestViewLifetime::dialogGoesWhenItsScriptHasReturned()
{
    QFETCH(bool, later);
    StandInHost host;
    QStringList trace;
    QPointer<NestingMediator> mediator = new NestingMediator(&host);
    mediator->trace = &trace;
    QPointer<GUI_WebViewDialog> dialog =
        new GUI_WebViewDialog(&host, QStringLiteral("Calls"), Calls.toString(), mediator, nullptr);
    const QPointer<QWebPage> page = dialog->webView()->page();
    auto probe = std::make_unique<PageProbe>(dialog->webView());
    dialog->show();
    QVERIFY(probe->waitLoaded());
    bool dialogHeld = false;
    bool mediatorHeld = false;
    mediator->body = [&] {
        runNested(
            [&] {
                QWidget *going = dialog;
                probe.reset();
                later ? going->deleteLater() : delete going;
            },
            [&] {
                dialogHeld = dialog;
                mediatorHeld = mediator;
            });
    };
    page->mainFrame()->evaluateJavaScript(
        QStringLiteral("var own = bridge; own.nest(); own.note('after')"));
    QCOMPARE(dialogHeld, later);
    QVERIFY(mediatorHeld);
    QCOMPARE(trace, QStringList({"bridge", "after"}));
    settle();
    QVERIFY(!dialog);
    QVERIFY(!mediator);
    QVERIFY(!page);
    QCOMPARE(host.state().openDialogs, 0);
}

// As a slot of a panel's page opens a dialog, and goes on when it has gone.
void TestViewLifetime::dialogUnderAnotherPagesScriptGoesWithItsMediator()
{
    Window window;
    QVERIFY(window.loaded);
    QPointer<JS_Mediator_Dialog> mediator;
    bool gone = false;
    window.mediator.body = [&] {
        {
            mediator = new JS_Mediator_Dialog(&window.host, QStringLiteral("second"));
            GUI_WebViewDialog dialog(&window.host, QStringLiteral("Calls"), Calls.toString(),
                                     mediator, nullptr);
            PageProbe page(dialog.webView());
            QTimer::singleShot(0, &dialog, [&] {
                page.waitLoaded();
                page.evaluate("second.getStyle(); second.accept()");
            });
            dialog.exec();
        }
        gone = !mediator;
    };
    window.page->evaluate("bridge.nest(); bridge.note('after')");
    QVERIFY(gone);
    QCOMPARE(window.trace, QStringList({"bridge", "after"}));
}

int main(int argc, char **argv)
{
    TestViewLifetime test;
    return runTest(argc, argv, test);
}

#include "test_view_lifetime.moc"
