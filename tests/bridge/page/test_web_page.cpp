#include "bridge/page/GUI_WebPage.h"
#include "plugin/PLG_Common.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/TestLog.h"

#include <QLabel>
#include <QLineEdit>
#include <QWebElement>
#include <QWebFrame>

// Native widgets in pages, and what a page may not do.

class TestWebPage : public TestBase
{
    Q_OBJECT

private slots:
    void multiDocumentAreaNeedsNoPlugin();
    void classIdNamesAPlugin_data();
    void classIdNamesAPlugin();
    void noWidgetWithoutPlugin_data();
    void noWidgetWithoutPlugin();
    void unknownClassIdGivesNothing_data();
    void unknownClassIdGivesNothing();
    void failingHostGivesNothing_data();
    void failingHostGivesNothing();
    void pageShowsTheWidget();
    void unknownTagLeavesThePageWhole();
    void widgetLivesOnAfterAReload();
    void widgetLivesOnAfterManyReloads();
    void widgetLeavesThePageWithItsTag();
    void widgetComesBackWhenItsTagIsShownAgain();
    void widgetLivesOnAfterTheView();
    void widgetKeepsTheFocusFromAPageThatGoes();
    void focusGoesOnWhenTheViewHides();
    void widgetMayGoBeforeAPageThatOutlivesItsView();
    void widgetLivesOnAfterAPageThatOutlivesItsView();
    void widgetLivesOnAfterADialog();
    void widgetMovesToAnotherPage();
    void sameWidgetTwiceInAPage();
    void oneWidgetUnderTwoClassIds();
    void ownerStillDeletesIt();
    void ownerDeletesItLaterWhenItIsFree();
    void consoleMessageLeavesNoTrace();
};

namespace {

struct Tool : PLG_Common
{
    explicit Tool(const QString &name) { m_toolName = name; }
};

class OpenPage : public GUI_WebPage
{
public:
    explicit OpenPage(HostServices *host) : GUI_WebPage(host, nullptr) {}
    QObject *make(const QString &classid) { return createPlugin(classid, QUrl(), {}, {}); }
};

/// A host whose multi-document area stands in the page of a view.
struct Embedding
{
    Embedding() : area(new QLabel(QStringLiteral("area")))
    {
        host.state().webPageEmbeddedMdi = area;
        load();
    }
    ~Embedding() { delete area; }

    void load()
    {
        view.reset(new GUI_WebView(&host, nullptr));
        PageProbe probe(view.data());
        view->resize(400, 300);
        view->show();
        view->load(QUrl(QStringLiteral("qrc:/pages/embed.html")));
        loaded = probe.waitLoaded();
    }

    void reload()
    {
        PageProbe probe(view.data());
        view->reload();
        loaded = probe.waitLoaded();
    }

    void run(const QString &script) { view->page()->mainFrame()->evaluateJavaScript(script); }

    bool isShown() const
    {
        return area && area->parentWidget() == view.data() && area->isVisible();
    }
    bool isFree() const { return area && !area->parentWidget() && !area->isVisible(); }

    StandInHost host;
    QPointer<QLabel> area;
    QScopedPointer<GUI_WebView> view;
    bool loaded = false;
};

// How often a widget has got the focus.
class FocusCount : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        comings += event->type() == QEvent::FocusIn ? 1 : 0;
        return false;
    }

    int comings = 0;
};

// Everything that is to be deleted later is deleted.
void settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

void addClassIds()
{
    QTest::addColumn<QString>("classid");
    QTest::addColumn<QString>("plugin");
    const char *const table[][2] = {
        {"histogram", "histogram"},
        {"lineprofile", "lineprofile"},
        {"lut", "lut"},
        {"sensorlut", "m_sensorlut"},
        {"livecontrol_hwimage_trigger_histogram", "livecontrol"},
        {"livecontrol_auto_exposure_histogram", "livecontrol"},
        {"imagetrigger_histogram", "imagetrigger"},
        {"analoggain", "m_analoggain"},
        {"focuscheck", "m_focuscheck"},
        {"colorcorrection_histgram", "colorcorrection"},
    };
    for (const auto &line : table)
        QTest::newRow(line[0]) << QString::fromLatin1(line[0]) << QString::fromLatin1(line[1]);
}

}

void TestWebPage::multiDocumentAreaNeedsNoPlugin()
{
    StandInHost host;
    QWidget area;
    host.state().webPageEmbeddedMdi = &area;
    OpenPage page(&host);
    QCOMPARE(page.make(QStringLiteral("mdi")), static_cast<QObject *>(&area));
    QCOMPARE(host.journal(), QStringList({"webPageEmbeddedMdi()"}));
}

void TestWebPage::classIdNamesAPlugin_data()
{
    addClassIds();
}

void TestWebPage::classIdNamesAPlugin()
{
    QFETCH(QString, classid);
    QFETCH(QString, plugin);
    StandInHost host;
    Tool tool(plugin);
    QWidget widget;
    host.addPlugin(&tool);
    host.state().embeddedWidgets.insert(&tool, &widget);
    OpenPage page(&host);
    QCOMPARE(page.make(classid), static_cast<QObject *>(&widget));
    QCOMPARE(host.journal(),
             QStringList({QStringLiteral("pluginByName(\"%1\")").arg(plugin),
                          QStringLiteral("prepareEmbeddedWidget(PLG_Common, \"%1\")").arg(classid),
                          "embeddedWidget(PLG_Common)"}));
    host.removePlugin(&tool);
}

void TestWebPage::noWidgetWithoutPlugin_data()
{
    addClassIds();
}

void TestWebPage::noWidgetWithoutPlugin()
{
    QFETCH(QString, classid);
    QFETCH(QString, plugin);
    StandInHost host;
    OpenPage page(&host);
    QCOMPARE(page.make(classid), static_cast<QObject *>(nullptr));
    QCOMPARE(host.journal(), QStringList({QStringLiteral("pluginByName(\"%1\")").arg(plugin)}));
}

void TestWebPage::unknownClassIdGivesNothing_data()
{
    QTest::addColumn<QString>("classid");
    QTest::newRow("empty") << "";
    QTest::newRow("unknown") << "clock";
    QTest::newRow("plug-in name that is no class id") << "m_sensorlut";
    QTest::newRow("other case") << "LUT";
    QTest::newRow("spelled well") << "colorcorrection_histogram";
}

void TestWebPage::unknownClassIdGivesNothing()
{
    QFETCH(QString, classid);
    StandInHost host;
    OpenPage page(&host);
    QCOMPARE(page.make(classid), static_cast<QObject *>(nullptr));
    QCOMPARE(host.journal(), QStringList());
}

void TestWebPage::failingHostGivesNothing_data()
{
    QTest::addColumn<QString>("classid");
    QTest::addColumn<QString>("operation");
    QTest::newRow("area") << "mdi"
                          << "webPageEmbeddedMdi";
    QTest::newRow("plug-in") << "lut"
                             << "pluginByName";
    QTest::newRow("preparation") << "lut"
                                 << "prepareEmbeddedWidget";
    QTest::newRow("widget") << "lut"
                            << "embeddedWidget";
}

void TestWebPage::failingHostGivesNothing()
{
    QFETCH(QString, classid);
    QFETCH(QString, operation);
    StandInHost host;
    Tool tool(QStringLiteral("lut"));
    QWidget widget;
    host.addPlugin(&tool);
    host.state().embeddedWidgets.insert(&tool, &widget);
    host.state().webPageEmbeddedMdi = &widget;
    host.failOn(operation);
    OpenPage page(&host);
    QCOMPARE(page.make(classid), static_cast<QObject *>(nullptr));
    QCOMPARE(host.handledErrors(), QStringList({operation + " failed"}));
    host.removePlugin(&tool);
}

void TestWebPage::pageShowsTheWidget()
{
    Embedding shown;
    QVERIFY(shown.loaded);
    QVERIFY(shown.isShown());
    QCOMPARE(shown.area->size(), QSize(200, 100));
}

void TestWebPage::unknownTagLeavesThePageWhole()
{
    Embedding shown;
    shown.run("document.getElementById('place').innerHTML = '<object id=\"odd\" "
              "type=\"application/x-qt-plugin\" classid=\"clock\"></object><p id=\"p\">text</p>'");
    QTRY_COMPARE(PageProbe(shown.view.data()).text("p"), QStringLiteral("text"));
    QVERIFY(shown.isShown());
}

void TestWebPage::widgetLivesOnAfterAReload()
{
    Embedding shown;
    shown.reload();
    settle();
    QVERIFY(shown.area);
    QVERIFY(shown.isShown());
    QCOMPARE(shown.area->text(), QStringLiteral("area"));
}

void TestWebPage::widgetLivesOnAfterManyReloads()
{
    Embedding shown;
    for (int i = 0; i < 20; ++i) {
        shown.reload();
        QVERIFY(shown.isShown());
    }
    settle();
    QVERIFY(shown.isShown());
    shown.run("document.getElementById('widget').remove()");
    settle();
    QVERIFY(shown.isFree());
}

void TestWebPage::widgetLeavesThePageWithItsTag()
{
    Embedding shown;
    shown.run("document.getElementById('widget').remove()");
    settle();
    QVERIFY(shown.isFree());
}

void TestWebPage::widgetComesBackWhenItsTagIsShownAgain()
{
    Embedding shown;
    shown.run("document.getElementById('widget').style.display = 'none'");
    settle();
    QVERIFY(shown.isFree());
    shown.run("document.getElementById('widget').style.display = 'inline'");
    settle();
    QTRY_VERIFY(shown.isShown());

    // Without a turn of the event loop in between, too.
    shown.run("var w = document.getElementById('widget'); w.style.display = 'none';"
              "w.offsetHeight; w.style.display = 'inline'; w.offsetHeight;");
    settle();
    QTRY_VERIFY(shown.isShown());

    // Several times, which the engine asks for as one deletion.
    shown.run("for (var i = 0; i < 3; ++i) {"
              "    w.style.display = 'none'; w.offsetHeight;"
              "    w.style.display = 'inline'; w.offsetHeight; }");
    settle();
    QTRY_VERIFY(shown.isShown());
    shown.run("w.remove()");
    settle();
    QVERIFY(shown.isFree());
}

void TestWebPage::widgetLivesOnAfterTheView()
{
    Embedding shown;
    shown.view.reset();
    QVERIFY(shown.isFree());
    settle();
    QVERIFY(shown.isFree());
    shown.load(); // and can be shown again
    QVERIFY(shown.isShown());
}

void TestWebPage::widgetKeepsTheFocusFromAPageThatGoes()
{
    Embedding shown;
    QVERIFY(QTest::qWaitForWindowActive(shown.view.data()));
    auto *field = new QLineEdit(shown.area);
    field->show();
    field->setFocus();
    QCOMPARE(QApplication::focusWidget(), field);
    FocusCount count;
    shown.view->installEventFilter(&count);
    shown.reload();
    QVERIFY(shown.isShown());
    QCOMPARE(count.comings, 0);

    field->setFocus();
    QCOMPARE(QApplication::focusWidget(), field);
    shown.view.reset();
    QCOMPARE(count.comings, 0);
    QVERIFY(shown.isFree());

    shown.load();
    QVERIFY(shown.isShown());
    QVERIFY(QTest::qWaitForWindowActive(shown.view.data()));
    shown.area->setFocusPolicy(Qt::StrongFocus);
    shown.area->setFocus();
    QCOMPARE(QApplication::focusWidget(), shown.area);
    shown.view->installEventFilter(&count);
    shown.run(QStringLiteral("document.getElementById('widget').style.display = 'none'"));
    settle();
    QCOMPARE(count.comings, 0);
}

void TestWebPage::focusGoesOnWhenTheViewHides()
{
    QWidget window;
    QLineEdit next(&window);
    Embedding shown;
    shown.view->setParent(&window);
    shown.view->show();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QVERIFY(shown.isShown());
    shown.area->setFocusPolicy(Qt::StrongFocus);
    shown.area->setFocus();
    QCOMPARE(QApplication::focusWidget(), shown.area);
    shown.view->hide();
    QCOMPARE(QApplication::focusWidget(), &next);
}

namespace {

// Deletes the view while the engine tells of its load: the page goes later.
void loseTheView(Embedding &page)
{
    QObject::connect(page.view.data(), &QWebView::loadFinished, page.area.data(),
                     [&page] { page.view.reset(); });
    page.view->reload();
    QTRY_VERIFY(!page.view);
}

}

void TestWebPage::widgetMayGoBeforeAPageThatOutlivesItsView()
{
    Embedding page;
    QVERIFY(page.isShown());
    QObject::connect(page.view.data(), &QWebView::loadFinished, page.area.data(), [&page] {
        page.view.reset();
        QVERIFY(page.isFree());
        delete page.area;
    });
    page.view->reload();
    QTRY_VERIFY(!page.area);
    settle(); // the page goes here
}

void TestWebPage::widgetLivesOnAfterAPageThatOutlivesItsView()
{
    Embedding page;
    loseTheView(page);
    settle();
    QVERIFY(page.isFree());
    page.load();
    QVERIFY(page.isShown());
}

void TestWebPage::widgetLivesOnAfterADialog()
{
    QPointer<QLabel> area(new QLabel);
    {
        StandInHost host;
        host.state().webPageEmbeddedMdi = area;
        GUI_WebViewDialog dialog(&host, QStringLiteral("Embed"),
                                 QStringLiteral("qrc:/pages/embed.html"), nullptr, nullptr);
        PageProbe probe(dialog.webView());
        dialog.show();
        QVERIFY(probe.waitLoaded());
        QVERIFY(area->isVisible());
    }
    settle();
    QVERIFY(area);
    QVERIFY(!area->parentWidget());
    delete area;
}

void TestWebPage::widgetMovesToAnotherPage()
{
    Embedding shown;
    QScopedPointer<GUI_WebView> first(shown.view.take());
    shown.load();
    QVERIFY(shown.isShown());
    settle();
    QVERIFY(shown.isShown());
    QVERIFY(first->page()->mainFrame()->findFirstElement("#widget").isNull());
    first.reset();
    settle();
    QVERIFY(shown.isShown());
    shown.view.reset();
    settle();
    QVERIFY(shown.isFree());
}

void TestWebPage::sameWidgetTwiceInAPage()
{
    Embedding shown;
    shown.run("document.getElementById('place').innerHTML = '<object type=\"application/x-qt-"
              "plugin\" classid=\"mdi\"></object>'");
    settle();
    QVERIFY(shown.area);
    shown.view.reset();
    settle();
    QVERIFY(shown.isFree());
}

void TestWebPage::oneWidgetUnderTwoClassIds()
{
    StandInHost host;
    Tool tool(QStringLiteral("livecontrol"));
    QPointer<QWidget> widget(new QWidget);
    host.addPlugin(&tool);
    host.state().embeddedWidgets.insert(&tool, widget);
    GUI_WebView view(&host, nullptr);
    view.show();
    const QString tag = QStringLiteral("<object type='application/x-qt-plugin' classid='%1' "
                                       "width='20' height='10'></object>");
    view.setHtml(tag.arg(QLatin1String("livecontrol_hwimage_trigger_histogram")) +
                 tag.arg(QLatin1String("livecontrol_auto_exposure_histogram")));
    QTRY_COMPARE(widget->parentWidget(), static_cast<QWidget *>(&view));
    QWebFrame *frame = view.page()->mainFrame();
    frame->evaluateJavaScript("document.querySelector('object').remove()");
    settle();
    QVERIFY(widget && widget->parentWidget() == &view && widget->isVisible());
    frame->evaluateJavaScript("document.querySelector('object').remove()");
    settle();
    QVERIFY(widget && !widget->parentWidget());
    host.removePlugin(&tool);
    delete widget;
}

void TestWebPage::ownerStillDeletesIt()
{
    Embedding shown;
    delete shown.area;
    settle();
    shown.reload(); // the tag stays empty
    QVERIFY(shown.loaded);
    shown.view.reset();
}

void TestWebPage::ownerDeletesItLaterWhenItIsFree()
{
    Embedding shown;
    shown.run("document.getElementById('widget').remove()");
    settle();
    QVERIFY(shown.area);
    shown.area->deleteLater();
    settle();
    QVERIFY(!shown.area);
}

void TestWebPage::consoleMessageLeavesNoTrace()
{
    LogCapture log;
    Embedding shown;
    shown.run("console.log('a'); console.warn('b'); console.error('c');");
    shown.run("throw new Error('d')");
    QCOMPARE(log.texts(), QStringList());
}

int main(int argc, char **argv)
{
    TestWebPage test;
    return runTest(argc, argv, test);
}

#include "test_web_page.moc"
