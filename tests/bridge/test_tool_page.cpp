#include "bridge/mediator/JS_Mediator_Page.h"
#include "plugin/PLG_Common.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/TestLog.h"

// A tool's page in a panel of the application: it hears of refreshes, and may close its own tool.

class TestToolPage : public TestBase
{
    Q_OBJECT

private slots:
    void pageHearsOfARefresh();
    void pageThatChangesSomethingHearsOfItsOwnRefresh();
    void throwingHandlerDoesNotStopTheRefresh();
    void refreshFromAHandlerEnds();
    void failingRefreshInAClosingScope_data();
    void failingRefreshInAClosingScope();
    void failingErrorHandlerIsSurvived();
    void pageClosesItsOwnTool_data();
    void pageClosesItsOwnTool();
    void mediatorMayGoInItsOwnSlot_data();
    void mediatorMayGoInItsOwnSlot();
    void mediatorMayGoWhileItsPageLives();
};

namespace {

class PanelTool : public PLG_Common
{
public:
    explicit PanelTool(HostServices *host)
    {
        m_toolName = QStringLiteral("t_panel");
        m_hasPanel = true;
        setHost(host);
        m_mediator = std::make_unique<JS_Mediator_Page>(host, QStringLiteral("tool"));
    }

    void onClosed() override
    {
        PLG_Common::onClosed();
        ++closings;
        if (dropsMediator)
            m_mediator.reset();
    }
    void update() override
    {
        PLG_Common::update();
        ++updates;
    }
    void dropMediator() { m_mediator.reset(); }

    int closings = 0;
    int updates = 0;
    bool dropsMediator = false;
};

/// An open tool whose page stands in a view of the application.
struct Panel
{
    Panel() : tool(&host), view(&host, nullptr), page(&view)
    {
        host.settings().declare({"a/b"});
        host.addPlugin(&tool);
        host.attachMediator(&view, tool.mediator());
        view.resize(400, 300);
        view.show();
        view.load(QUrl(QStringLiteral("qrc:/pages/calls.html")));
        loaded = page.waitLoaded();
        host.openPluginByName(QStringLiteral("t_panel"));
        tool.updates = 0;
        host.clearJournal();
    }
    ~Panel() { host.removePlugin(&tool); }

    StandInHost host;
    PanelTool tool;
    GUI_WebView view;
    PageProbe page;
    bool loaded = false;
};

QStringList traceOf(const LogCapture &log)
{
    QStringList lines;
    for (const QString &line : log.texts()) {
        if (line.startsWith(QLatin1String("[ENTER]")) || line.startsWith(QLatin1String("[LEAVE]")))
            lines.append(line.section(QLatin1String(" \""), 0, 1));
    }
    return lines;
}

}

void TestToolPage::pageHearsOfARefresh()
{
    Panel panel;
    QVERIFY(panel.loaded);
    panel.page.evaluate("var heard = 0; tool.update.connect(function () { ++heard; })");
    panel.host.updateUI(63, true);
    QCOMPARE(panel.page.evaluate("heard").toInt(), 1);
}

void TestToolPage::pageThatChangesSomethingHearsOfItsOwnRefresh()
{
    Panel panel;
    panel.page.evaluate("var shown; tool.update.connect(function () {"
                        "    shown = tool.getPrefInt('a/b'); })");
    panel.page.call("tool.setPrefInt('a/b', 7)");
    QCOMPARE(panel.page.evaluate("shown").toInt(), 7);
    panel.page.call("tool.setPrefInt('a/b', 8, false)");
    QCOMPARE(panel.page.evaluate("shown").toInt(), 7);
}

void TestToolPage::throwingHandlerDoesNotStopTheRefresh()
{
    Panel panel;
    panel.page.evaluate("tool.update.connect(function () { throw new Error('no element'); })");
    LogCapture log;
    QCOMPARE(panel.page.call("tool.setPrefInt('a/b', 7)"), QStringLiteral("undefined"));
    panel.host.updateUI(63, true);
    QCOMPARE(panel.tool.updates, 2);
    QCOMPARE(log.texts(QtCriticalMsg).filter("[SCRIPT] \"Error: no element").size(), 2);
    QCOMPARE(panel.host.handledErrors(), QStringList());
}

void TestToolPage::refreshFromAHandlerEnds()
{
    Panel panel;
    panel.page.evaluate("var depth = 0; tool.update.connect(function () {"
                        "    if (++depth < 5) tool.updateUI(); })");
    panel.host.updateUI(63, true);
    QCOMPARE(panel.page.evaluate("depth").toInt(), 5);
    QCOMPARE(panel.tool.updates, 5);
}

void TestToolPage::failingRefreshInAClosingScope_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("trace");
    const auto row = [](const char *script, const char *name) {
        QTest::newRow(script) << QString::fromLatin1(script)
                              << QStringList({QStringLiteral("[ENTER] \"%1\"").arg(name),
                                              QStringLiteral("[LEAVE] \"%1\"").arg(name)});
    };
    row("tool.setPrefInt('a/b', 1)", "JS_Mediator::setPrefInt");
    row("tool.openPlugin('lut')", "JS_Mediator::openPlugin");
    row("tool.setStyle('dark')", "JS_Mediator::setStyle");
    row("tool.setSelectDoc('1')", "JS_Mediator::setSelectDocSub");
    row("tool.selectAllDocs()", "JS_Mediator::selectAllDocsSub");
}

void TestToolPage::failingRefreshInAClosingScope()
{
    QFETCH(QString, script);
    Panel panel;
    panel.host.failOn(QStringLiteral("updateUI"));
    LogCapture log;
    QCOMPARE(panel.page.call(script), QStringLiteral("undefined"));
    QCOMPARE(panel.host.handledErrors(), QStringList({"updateUI failed"}));
    QTEST(traceOf(log), "trace");
}

void TestToolPage::failingErrorHandlerIsSurvived()
{
    Panel panel;
    panel.host.failOn(QStringLiteral("setPrefInt"));
    panel.host.failOn(QStringLiteral("errorHandler"));
    LogCapture log;
    QCOMPARE(panel.page.call("tool.setPrefInt('a/b', 1)"), QStringLiteral("undefined"));
    QCOMPARE(log.texts(QtCriticalMsg),
             QStringList({"The error handler failed: errorHandler failed"}));
    QCOMPARE(traceOf(log).size(), 2);
}

void TestToolPage::pageClosesItsOwnTool_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("current one") << "tool.closePlugin()";
    QTest::newRow("by name") << "tool.closePlugin('t_panel')";
}

void TestToolPage::pageClosesItsOwnTool()
{
    QFETCH(QString, script);
    Panel panel;
    QVERIFY(panel.host.isPluginOpen(&panel.tool));
    LogCapture log;
    QCOMPARE(panel.page.call(script), QStringLiteral("undefined"));
    QVERIFY(!panel.host.isPluginOpen(&panel.tool));
    QCOMPARE(panel.tool.closings, 1);
    QCOMPARE(traceOf(log), QStringList({"[ENTER] \"JS_Mediator::closePlugin\"",
                                        "[LEAVE] \"JS_Mediator::closePlugin\""}));
    QCOMPARE(panel.page.call("tool.getPrefInt('a/b', 3)"), QStringLiteral("3")); // it lives on
    QCOMPARE(panel.host.deterrals(), 0);
}

void TestToolPage::mediatorMayGoInItsOwnSlot_data()
{
    pageClosesItsOwnTool_data();
}

void TestToolPage::mediatorMayGoInItsOwnSlot()
{
    QFETCH(QString, script);
    Panel panel;
    panel.tool.dropsMediator = true;
    LogCapture log;
    panel.page.call(script);
    QCOMPARE(panel.tool.mediator(), static_cast<JS_Mediator *>(nullptr));
    QCOMPARE(traceOf(log), QStringList({"[ENTER] \"JS_Mediator::closePlugin\"",
                                        "[LEAVE] \"JS_Mediator::closePlugin\""}));
    // Nothing is left to refresh with.
    QVERIFY(!panel.host.commands().contains("updateUI(63, true)"));
    QVERIFY(panel.page.call("tool.getStyle()").startsWith("error: "));
    QCOMPARE(panel.page.call("1 + 1"), QStringLiteral("2"));
    QCOMPARE(panel.host.deterrals(), 0);
}

void TestToolPage::mediatorMayGoWhileItsPageLives()
{
    Panel panel;
    panel.page.evaluate("var kept = tool; var heard = 0;"
                        "tool.update.connect(function () { ++heard; })");
    panel.tool.dropMediator();
    panel.host.updateUI(63, true);
    QCOMPARE(panel.page.evaluate("heard").toInt(), 0);
    QVERIFY(panel.page.call("tool.getStyle()").startsWith("error: "));
    QVERIFY(panel.page.call("kept.closePlugin()").startsWith("error: "));
    QVERIFY(panel.page.call("kept.update.connect(function () {})").startsWith("error: "));
    QCOMPARE(panel.page.call("1 + 1"), QStringLiteral("2"));
}

int main(int argc, char **argv)
{
    TestToolPage test;
    return runTest(argc, argv, test);
}

#include "test_tool_page.moc"
