#include "plugin/PLG_Button.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/window/ToolBar.h"

#include <QAction>
#include <QToolButton>

#include <stdexcept>

namespace {

// A tool whose answers a test sets.
class ProbeTool final : public PLG_Button
{
public:
    explicit ProbeTool(const QString &name, int buttonKind = 1, uint modes = 7)
    {
        m_toolName = name;
        m_buttonKind = buttonKind;
        m_allowedModes = modes;
    }

    void activate() override
    {
        calls.append("activate");
        fail();
    }

    void deactivate() override
    {
        calls.append("deactivate");
        fail();
    }

    void onClosed() override { calls.append("onClosed"); }

    bool isChecked(DOC_Interface *doc, bool) override
    {
        fail();
        return doc && checked;
    }

    QStringList calls;
    void closeTool() override { calls.append("closeTool"); }

    void usePanel() { m_hasPanel = true; }
    void useDialog() { m_checkKind = 6; }

    bool checked = false;
    bool failing = false;

private:
    void fail() const
    {
        if (failing)
            throw std::runtime_error("the tool is out of order");
    }
};

}

class TestToolBar : public TestBase
{
    Q_OBJECT

private slots:
    void showsWhatIsCheckedAnswers();
    void activatesAndDeactivatesAToggle();
    void showsTheAnswerAndNotThePress();
    void activatesACommandAtEachPress();
    void opensAndClosesAPanel();
    void opensAndClosesADialogTool();
    void disablesAToolInAForbiddenMode();
    void asksForTheCurrentDocument();
    void handsAFailingPressToTheHost();
    void tellsOnceThatAToolCannotAnswer();
    void removesTheButtonOfATool();
    void showsALabelAsItIs();
    void pressesByKey();
    void logsThePress();

private:
    static QToolButton *button(ToolBar &bar, PLG_Interface &tool)
    {
        return qobject_cast<QToolButton *>(bar.widgetForAction(bar.action(&tool)));
    }
};

void TestToolBar::showsWhatIsCheckedAnswers()
{
    StandInHost host;
    host.addCamera();
    ProbeTool tool("t_probe");
    host.addPlugin(&tool);
    ToolBar bar(host);
    bar.addTool(&tool);
    QVERIFY(bar.action(&tool)->isCheckable());
    QVERIFY(!bar.action(&tool)->isChecked());
    tool.checked = true;
    bar.refresh();
    QVERIFY(bar.action(&tool)->isChecked());
    tool.checked = false;
    bar.refresh();
    QVERIFY(!bar.action(&tool)->isChecked());
    QCOMPARE(tool.calls, QStringList());
}

void TestToolBar::activatesAndDeactivatesAToggle()
{
    StandInHost host;
    host.addCamera();
    ProbeTool tool("t_probe");
    host.addPlugin(&tool);
    ToolBar bar(host);
    bar.addTool(&tool);
    bar.show();
    QTest::mouseClick(button(bar, tool), Qt::LeftButton);
    QCOMPARE(tool.calls, QStringList("activate"));
    tool.checked = true;
    bar.refresh();
    QTest::mouseClick(button(bar, tool), Qt::LeftButton);
    QCOMPARE(tool.calls, QStringList({"activate", "deactivate", "onClosed"}));
}

void TestToolBar::showsTheAnswerAndNotThePress()
{
    StandInHost host;
    host.addCamera();
    ProbeTool tool("t_probe");
    host.addPlugin(&tool);
    ToolBar bar(host);
    bar.addTool(&tool);
    bar.show();
    QTest::mouseClick(button(bar, tool), Qt::LeftButton);
    QVERIFY(!bar.action(&tool)->isChecked());
    QTest::mouseClick(button(bar, tool), Qt::LeftButton);
    QCOMPARE(tool.calls, QStringList({"activate", "activate"}));
}

void TestToolBar::activatesACommandAtEachPress()
{
    StandInHost host;
    host.addCamera();
    ProbeTool command("t_command", 0);
    ProbeTool custom("t_custom", 4);
    host.addPlugin(&command);
    host.addPlugin(&custom);
    ToolBar bar(host);
    bar.addTool(&command);
    bar.addTool(&custom);
    bar.show();
    QVERIFY(!bar.action(&command)->isCheckable());
    QVERIFY(bar.action(&custom)->isCheckable());
    QTest::mouseClick(button(bar, command), Qt::LeftButton);
    QTest::mouseClick(button(bar, command), Qt::LeftButton);
    QCOMPARE(command.calls, QStringList({"activate", "activate"}));
    QCOMPARE(custom.calls, QStringList());
}

void TestToolBar::opensAndClosesAPanel()
{
    StandInHost host;
    host.addCamera();
    ProbeTool tool("t_probe", 0);
    tool.usePanel();
    host.addPlugin(&tool);
    ToolBar bar(host);
    bar.addTool(&tool);
    bar.show();
    int closeRequests = 0;
    connect(&bar, &ToolBar::panelCloseRequested, this, [&] { ++closeRequests; });
    QVERIFY(bar.action(&tool)->isCheckable());
    QTest::mouseClick(button(bar, tool), Qt::LeftButton);
    QCOMPARE(host.currentPlugin(), &tool);
    QCOMPARE(tool.calls, QStringList("activate"));
    QCOMPARE(host.commands(), QStringList());
    QCOMPARE(closeRequests, 0);

    tool.checked = true;
    bar.refresh();
    QTest::mouseClick(button(bar, tool), Qt::LeftButton);
    QCOMPARE(closeRequests, 1);
    QVERIFY(bar.action(&tool)->isChecked()); // the panel may have stayed
    QCOMPARE(tool.calls, QStringList("activate"));

    host.closeCurrentPlugin();
    tool.calls.clear();
    QTest::mouseClick(button(bar, tool), Qt::LeftButton); // down for another reason
    QCOMPARE(host.currentPlugin(), &tool);
    QCOMPARE(tool.calls, QStringList("activate"));
    QCOMPARE(closeRequests, 1);
}

void TestToolBar::opensAndClosesADialogTool()
{
    StandInHost host;
    host.addCamera();
    ProbeTool tool("t_probe", 0);
    tool.useDialog();
    host.addPlugin(&tool);
    ToolBar bar(host);
    bar.addTool(&tool);
    bar.show();
    QTest::mouseClick(button(bar, tool), Qt::LeftButton);
    QVERIFY(host.isPluginOpen(&tool));
    QCOMPARE(tool.calls, QStringList("activate"));
    tool.checked = true;
    bar.refresh();
    QTest::mouseClick(button(bar, tool), Qt::LeftButton);
    QCOMPARE(tool.calls, QStringList({"activate", "closeTool"}));
}

void TestToolBar::disablesAToolInAForbiddenMode()
{
    StandInHost host;
    host.addCamera();
    ProbeTool tool("t_probe", 1, 1); // live mode only
    host.addPlugin(&tool);
    ToolBar bar(host);
    bar.addTool(&tool);
    QVERIFY(bar.action(&tool)->isEnabled());
    host.setMode(StandInHost::Mode::Memory);
    bar.refresh();
    QVERIFY(!bar.action(&tool)->isEnabled());
    host.setMode(StandInHost::Mode::Live);
    bar.refresh();
    QVERIFY(bar.action(&tool)->isEnabled());
}

void TestToolBar::asksForTheCurrentDocument()
{
    StandInHost host;
    ProbeTool tool("t_probe");
    tool.checked = true;
    host.addPlugin(&tool);
    ToolBar bar(host);
    bar.addTool(&tool);
    QVERIFY(!bar.action(&tool)->isChecked());
    host.addCamera();
    bar.refresh();
    QVERIFY(bar.action(&tool)->isChecked());
}

void TestToolBar::handsAFailingPressToTheHost()
{
    StandInHost host;
    host.addCamera();
    ProbeTool tool("t_probe");
    ProbeTool other("t_other");
    host.addPlugin(&tool);
    host.addPlugin(&other);
    ToolBar bar(host);
    bar.addTool(&tool);
    bar.addTool(&other);
    bar.show();
    tool.failing = true;
    QTest::mouseClick(button(bar, tool), Qt::LeftButton);
    QVERIFY(host.handledErrors().contains("the tool is out of order"));
    QTest::mouseClick(button(bar, other), Qt::LeftButton);
    QCOMPARE(other.calls, QStringList("activate"));
}

void TestToolBar::tellsOnceThatAToolCannotAnswer()
{
    StandInHost host;
    host.addCamera();
    ProbeTool tool("t_probe");
    ProbeTool other("t_other");
    host.addPlugin(&tool);
    host.addPlugin(&other);
    ToolBar bar(host);
    bar.addTool(&tool);
    bar.addTool(&other);
    tool.failing = true;
    other.checked = true;
    bar.refresh();
    bar.refresh();
    QCOMPARE(host.handledErrors(), QStringList("the tool is out of order"));
    QVERIFY(!bar.action(&tool)->isEnabled());
    QVERIFY(bar.action(&other)->isChecked());

    tool.failing = false;
    tool.checked = true;
    bar.refresh();
    QVERIFY(bar.action(&tool)->isEnabled());
    QVERIFY(bar.action(&tool)->isChecked());
    tool.failing = true;
    bar.refresh();
    QCOMPARE(host.handledErrors().size(), 2);
}

void TestToolBar::removesTheButtonOfATool()
{
    StandInHost host;
    host.addCamera();
    ProbeTool other("t_other");
    host.addPlugin(&other);
    ToolBar bar(host);
    {
        ProbeTool tool("t_probe");
        host.addPlugin(&tool);
        bar.addTool(&tool);
        bar.addTool(&other);
        QCOMPARE(bar.toolActions().size(), 2);
        bar.removeTool(&tool);
        host.removePlugin(&tool);
    }
    bar.refresh();
    QCOMPARE(bar.toolActions(), QList<QAction *>{bar.action(&other)});
    QCOMPARE(bar.actions(), bar.toolActions());
}

void TestToolBar::showsALabelAsItIs()
{
    StandInHost host;
    ProbeTool tool("t_save&go");
    host.addPlugin(&tool);
    ToolBar bar(host);
    bar.addTool(&tool);
    QCOMPARE(bar.action(&tool)->text(), QString("t_save&&go"));
    QCOMPARE(bar.action(&tool)->objectName(), QString("t_save&go"));
    QCOMPARE(bar.action(&tool)->toolTip(), QString("t_save&go (tool \"t_save&go\")"));
}

void TestToolBar::pressesByKey()
{
    StandInHost host;
    host.addCamera();
    ProbeTool tool("t_probe");
    host.addPlugin(&tool);
    ToolBar bar(host);
    bar.addTool(&tool);
    bar.show();
    QCOMPARE(button(bar, tool)->focusPolicy(), Qt::StrongFocus);
    QTest::keyClick(button(bar, tool), Qt::Key_Space);
    QCOMPARE(tool.calls, QStringList("activate"));
}

void TestToolBar::logsThePress()
{
    LogCapture capture;
    StandInHost host;
    host.addCamera();
    ProbeTool tool("t_probe");
    host.addPlugin(&tool);
    ToolBar bar(host);
    bar.addTool(&tool);
    bar.show();
    QTest::mouseClick(button(bar, tool), Qt::LeftButton);
    QCOMPARE(capture.texts(QtInfoMsg),
             QStringList("[USER] \"[URL:ToolBar] [ID:t_probe] [Control:Button] [Operation:toggled] "
                         "[Value:true] \""));
}

int main(int argc, char **argv)
{
    TestToolBar test;
    return runTest(argc, argv, test);
}

#include "test_tool_bar.moc"
