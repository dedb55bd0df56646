#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/page/GUI_WebView.h"
#include "plugin/PLG_Common.h"
#include "standin/tools/PluginLoader.h"
#include "tests/bridge/support/FaultMatrix.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/TestLog.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QWebFrame>

#include <cstdio>

// A tool with a page from a module of its own: its copy of the toolkit meets the application's.

class TestModulePage : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void classesAreKnownByName();
    void pageCallsTheModule();
    void failureMadeInTheModuleIsHandled();
    void refreshReachesThePage();
    void dialogOfTheModuleLives();
    void embeddedWidgetMovesBetweenTheCopies();
    void nothingEscapesFromItsPage();

private:
    PluginLoader *m_loader = nullptr;
    PLG_Interface *m_tool = nullptr;
};

namespace {

/// Calls the slots of the tool's mediator from the tool's page, in a view of the application.
class PageCaller : public FaultMatrix::Caller
{
public:
    explicit PageCaller(PLG_Interface *tool) : m_tool(tool) {}

    void begin(StandInHost &host) override
    {
        m_host = &host;
        host.addPlugin(m_tool);
        m_view = std::make_unique<GUI_WebView>(&host, nullptr);
        host.attachMediator(m_view.get(), m_tool->mediator());
        m_view->setHtml(m_tool->pageHtml(), QUrl(QStringLiteral("qrc:/t_page.html")));
    }
    void call(const QMetaMethod &slot, const QVariantList &arguments) override
    {
        if (slot.parameterTypes().contains("std::exception&") ||
            slot.parameterTypes().contains("DOC_Interface*"))
            return; // no page can
        const QString texts = QString::fromUtf8(
            QJsonDocument(QJsonArray::fromVariantList(arguments)).toJson(QJsonDocument::Compact));
        const QString script = QStringLiteral("try { t_page['%1'].apply(t_page, %2); 'called' }"
                                              "catch (e) { String(e) }")
                                   .arg(QString::fromLatin1(slot.methodSignature()), texts);
        const QString answer = m_view->page()->mainFrame()->evaluateJavaScript(script).toString();
        if (answer != QLatin1String("called"))
            failures.append(QString::fromLatin1(slot.methodSignature()) + ": " + answer);
    }
    void end() override
    {
        m_view.reset();
        m_host->removePlugin(m_tool);
    }

    QStringList failures;

private:
    PLG_Interface *m_tool;
    StandInHost *m_host = nullptr;
    std::unique_ptr<GUI_WebView> m_view;
};

/// The tool's page in a view of the application.
struct Panel
{
    explicit Panel(PLG_Interface *loaded) : tool(loaded), view(&host, nullptr), page(&view)
    {
        host.addPlugin(tool);
        host.attachMediator(&view, tool->mediator());
        view.resize(400, 300);
        view.show();
        host.settings().declare({"a/b"});
        view.setHtml(tool->pageHtml(), QUrl(QStringLiteral("qrc:/t_page.html")));
        ready = page.waitLoaded();
        host.clearJournal();
    }
    ~Panel() { host.removePlugin(tool); }

    StandInHost host;
    PLG_Interface *tool;
    GUI_WebView view;
    PageProbe page;
    bool ready = false;
};

}

void TestModulePage::init()
{
    TestBase::init();
    m_loader = new PluginLoader;
    m_tool = m_loader->load(QStringLiteral(MODULE_FILE));
    QVERIFY2(m_tool, m_loader->failures().isEmpty()
                         ? "no reason"
                         : qPrintable(m_loader->failures().first().text()));
}

void TestModulePage::cleanup()
{
    delete m_loader; // the module goes, with all that it brought
    m_loader = nullptr;
    TestBase::cleanup();
}

void TestModulePage::classesAreKnownByName()
{
    StandInHost host;
    host.addPlugin(m_tool);
    QObject *mediator = m_tool->mediator();
    QVERIFY(mediator->inherits("JS_Mediator_Page"));
    QVERIFY(dynamic_cast<JS_Mediator *>(mediator));
    QVERIFY(mediator->metaObject()->superClass() != &JS_Mediator_Page::staticMetaObject);
    QVERIFY(!qobject_cast<JS_Mediator_Page *>(mediator)); // it is of the other copy
    host.removePlugin(m_tool);
}

void TestModulePage::pageCallsTheModule()
{
    Panel panel(m_tool);
    QVERIFY(panel.ready);
    panel.host.state().visibleWindowCount = 3;
    QCOMPARE(panel.page.call("t_page.windows()"), QStringLiteral("3"));
    QCOMPARE(panel.page.call("t_page.getPrefInt('a/b', 7)"), QStringLiteral("7"));
    QCOMPARE(panel.host.journal(),
             QStringList({"countMdiWindow(true, 2)", "getPrefInt(\"a/b\", 7)"}));
    panel.host.failOn(QStringLiteral("countMdiWindow"));
    QCOMPARE(panel.page.call("t_page.windows()"), QStringLiteral("-1"));
    QCOMPARE(panel.host.handledErrors(), QStringList({"countMdiWindow failed"}));
}

void TestModulePage::failureMadeInTheModuleIsHandled()
{
    Panel panel(m_tool);
    LogCapture log;
    QCOMPARE(panel.page.call("t_page.fail('no disk')"), QStringLiteral("undefined"));
    QCOMPARE(panel.host.handledErrors(), QStringList({"no disk"}));
    QCOMPARE(log.texts(QtCriticalMsg),
             QStringList({"\"APP_Exception:[message:no disk] [errorCode:3] \""}));
}

void TestModulePage::refreshReachesThePage()
{
    Panel panel(m_tool);
    panel.page.evaluate("var heard = 0; t_page.update.connect(function () {"
                        "    ++heard; throw new Error('no element'); })");
    LogCapture log;
    panel.page.call("t_page.setPrefInt('a/b', 1)");
    panel.host.updateUI(63, true);
    QCOMPARE(panel.page.evaluate("heard").toInt(), 2);
    QCOMPARE(log.texts(QtCriticalMsg).filter("[SCRIPT] \"Error: no element").size(), 2);
}

void TestModulePage::dialogOfTheModuleLives()
{
    StandInHost host;
    host.addPlugin(m_tool);
    QPointer<GUI_ModelessPatternDialog> dialog(m_tool->ensureDialog(true));
    QVERIFY(dialog);
    PageProbe page(dialog->webView());
    dialog->resize(400, 300);
    m_tool->showDialog();
    QVERIFY(page.waitLoaded());
    host.clearJournal();
    page.call("pattern.setTextBoxFocusState(true)");
    page.call("pattern.reject()");
    QVERIFY(!m_tool->isDialogVisible());
    QCOMPARE(host.commands(),
             QStringList({"setTextBoxFocusState(true)", "deterUpdateUI(true)",
                          "closePluginByName(\"t_page\")", "deterUpdateUI(false)"}));
    host.removePlugin(m_tool);
}

void TestModulePage::embeddedWidgetMovesBetweenTheCopies()
{
    StandInHost host;
    QPointer<QWidget> area(new QWidget);
    host.state().webPageEmbeddedMdi = area;
    host.addPlugin(m_tool);
    const QString tag = QStringLiteral(
        "<object type='application/x-qt-plugin' classid='mdi' width='20' height='10'></object>");
    QPointer<GUI_ModelessPatternDialog> dialog(m_tool->ensureDialog(true));
    dialog->webView()->setHtml(tag); // the module's view
    dialog->show();
    QTRY_COMPARE(area->parentWidget(), static_cast<QWidget *>(dialog->webView()));
    GUI_WebView view(&host, nullptr); // the application's
    view.show();
    view.setHtml(tag);
    QTRY_COMPARE(area->parentWidget(), static_cast<QWidget *>(&view));
    delete dialog;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(area);
    QCOMPARE(area->parentWidget(), static_cast<QWidget *>(&view));
    host.removePlugin(m_tool);
    delete area;
}

void TestModulePage::nothingEscapesFromItsPage()
{
    StandInHost host;
    host.addPlugin(m_tool);
    const QMetaObject *meta = m_tool->mediator()->metaObject();
    QVector<PageClass> classes = bridgePageClasses();
    classes.append({meta, {}, {}});
    host.removePlugin(m_tool);

    PageCaller caller(m_tool);
    FaultMatrix matrix;
    matrix.leaveOut("fail(QString)"); // it fails by itself
    matrix.walk(*meta, classes, caller);
    std::printf("fault matrix of a module's page: %d slots, %d call sites, %d runs\n",
                matrix.slotCount(), matrix.callSites(), matrix.runs());
    QVERIFY2(matrix.problems().isEmpty(),
             qPrintable(matrix.problems().mid(0, 10).join(QLatin1Char('\n'))));
    QCOMPARE(caller.failures, QStringList());
    QVERIFY(matrix.slotCount() > 84);
    QVERIFY(matrix.callSites() > 300);
}

int main(int argc, char **argv)
{
    TestModulePage test;
    return runTest(argc, argv, test);
}

#include "test_module_page.moc"
