#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "contract/HostGuard.h"
#include "contract/HostValues.h"
#include "tests/plugin/RegionTool.h"
#include "tests/support/TestLog.h"

#include <QGuiApplication>
#include <QKeyEvent>

// Whole stories: each kind of tool is opened by the host, edits, and is left in every way. All that
// the host is told and asked is compared, in its order.

namespace {

const QString Name = QStringLiteral("t_story");

enum class Way {
    Ok,
    Accept,
    ApplyThenOk,
    ResetThenOk,
    Cancel,
    Button,    // the host closes the tool that is switched off
    SwitchOff, // the tool alone is told
    Mode,
    OtherTool,
    HostGoes
};

struct Kind
{
    const char *name;
    int buttonKind;
    int checkKind;
    bool panel;
    int quickToolMode;
};

const Kind Kinds[] = {
    {"command", ButtonKind::Plain, CheckKind::ByName, false, 0},
    {"toggle", ButtonKind::Toggle, CheckKind::ByName, false, 0},
    {"custom toggle", ButtonKind::CustomToggle, CheckKind::ByName, false, 0},
    {"panel", ButtonKind::Plain, CheckKind::CurrentPlugin, true, 0},
    {"panel with transaction", ButtonKind::Plain, CheckKind::Transaction, true, 0},
    {"quick tool", ButtonKind::Plain, CheckKind::CurrentPlugin, true, QuickToolMode::Exclusive},
    {"dialog", ButtonKind::Plain, CheckKind::Dialog, false, QuickToolMode::Exclusive},
};

const QPair<const char *, Way> Ways[] = {
    {"ok", Way::Ok},
    {"accept", Way::Accept},
    {"apply, then ok", Way::ApplyThenOk},
    {"reset, then ok", Way::ResetThenOk},
    {"cancel", Way::Cancel},
    {"button", Way::Button},
    {"switched off", Way::SwitchOff},
    {"mode", Way::Mode},
    {"another tool", Way::OtherTool},
    {"host goes", Way::HostGoes},
};

// A dialog of a page that is empty at once, with no mediator to be shown.
class StoryDialog : public GUI_ModelessPatternDialog
{
public:
    explicit StoryDialog(HostServices *host)
        : GUI_ModelessPatternDialog(host, QStringLiteral("Story"), QString(), nullptr, nullptr)
    {
    }
};

// Its answers come from the virtual getters alone: the fields behind them say something else.
class StoryTool : public RegionTool
{
public:
    StoryTool(StandInHost &host, const Kind &kind) : RegionTool(host), m_panel(kind.panel)
    {
        m_toolName = QStringLiteral("t_multilock");
        m_hasPanel = !kind.panel;
        m_allowedModes = 0;
        m_closeOnForbiddenMode = false;
        m_buttonKind = kind.buttonKind;
        m_checkKind = kind.checkKind;
        m_quickToolMode = kind.quickToolMode;
        setCloseCurrentOnFinish(true);
        setApplyOnEdit(false);
        setApplyToAllWhenLocked(true);
    }

    QString name() override { return Name; }
    bool hasPanel() override { return m_panel; }
    bool closeCurrentOnFinish() override { return false; }
    bool isModeAllowed(int mode) override { return mode == HostMode::Live; }
    bool closesOnForbiddenMode() override { return true; }
    bool applyOnEdit() override { return true; }
    bool applyToAllWhenLocked() override { return false; }

    GUI_ModelessPatternDialog *createModelessPatternDialog(bool) override
    {
        return new StoryDialog(m_host);
    }

private:
    bool m_panel;
};

// Opened alone beside the tool of the story.
class OtherTool : public ProbeTool
{
public:
    OtherTool() : ProbeTool(QStringLiteral("t_other")) { m_hasPanel = true; }
};

// What the words say, in the words' order.
class Story
{
public:
    Story(const Kind &kind, bool suspends) : m_kind(kind), m_suspends(suspends) {}

    QStringList opening() const
    {
        QStringList calls;
        if (m_kind.buttonKind != ButtonKind::Plain)
            calls += QStringList({"setToolState(\"t_story\", true)"});
        else if (m_kind.panel && m_kind.quickToolMode == QuickToolMode::Exclusive)
            calls += QStringList({"setQuickTool(\"\")", "setToolState(\"t_story\", true)"});
        else if (m_kind.panel)
            calls += QStringList({"setToolState(\"t_story\", false)"});
        if (hasTransaction())
            calls += QStringList({"beginTransaction(\"t_story\", true, true)"});
        if (!m_kind.panel && m_kind.buttonKind != ButtonKind::Plain)
            calls += QStringList({"setToolActive(\"t_story\", true)"});
        if (isDialog())
            calls += QStringList({"needsDialogEnterNotice()", "translate(\"Story\")",
                                  "attachMediator(GUI_WebView, null)",
                                  // its page, which is empty, loads at once
                                  "deterUpdateUI(true)", "mainWidget()",
                                  "getPrefInt(\"main/scrno\", invalid)", "deterUpdateUI(false)",
                                  "updateUI(4294967295, true)"});
        if (m_suspends)
            calls += paused("suspendView(false)");
        if (isDialog())
            calls += QStringList({"setQuickTool(\"\")", "setToolState(\"t_story\", true)"});
        return calls;
    }

    QStringList leaving(Way way) const
    {
        const QStringList leave = {"returnFromPlugin()"};
        const QStringList commit = hasTransaction()
                                       ? QStringList({"commitTransaction(true, \"t_story\")"})
                                       : QStringList();
        const QStringList rollBack =
            hasTransaction() ? QStringList({"rollbackTransaction(\"t_story\")"}) : QStringList();
        const QStringList finished = m_kind.panel ? leave + closed({}) : QStringList();
        switch (way) {
        case Way::Ok:
        case Way::Accept:
            return m_kind.panel ? commit + finished : QStringList();
        case Way::ApplyThenOk:
            return m_kind.panel ? QStringList({"clearUndoStack()"}) + commit + finished
                                : QStringList();
        case Way::ResetThenOk:
            return m_kind.panel ? QStringList({"resetTransaction(\"t_story\")"}) + commit + finished
                                : QStringList();
        case Way::Cancel:
            return m_kind.panel ? rollBack + finished : QStringList();
        case Way::Button:
            return QStringList({"closePluginByName(\"t_story\")"}) + leftByHost(rollBack);
        case Way::SwitchOff:
            if (m_kind.panel)
                return leave + closed(rollBack);
            return switchedOff();
        case Way::Mode:
            return isDialog() ? dialogClosed(released(false), false) : QStringList();
        case Way::OtherTool:
            return QStringList({"openPluginByName(\"t_other\")"}) +
                   (m_kind.panel ? closed(rollBack) : QStringList()) +
                   QStringList({"setToolState(\"t_other\", false)"});
        case Way::HostGoes:
            return leftByHost(rollBack);
        }
        return {};
    }

private:
    bool isDialog() const { return m_kind.checkKind == CheckKind::Dialog; }
    bool hasTransaction() const { return m_kind.checkKind == CheckKind::Transaction; }

    // A call inside a pause of the live view, or of the playback where the mode has changed.
    static QStringList paused(const QString &call, bool live = true)
    {
        if (!live)
            return {"documentsMutex()", "isLiveMode()", "pausePlayback()", call,
                    "resumePlayback()"};
        return {
            "documentsMutex()", "isLiveMode()",      "pauseLive(false)",     call,
            "isLivePaused()",   "liveDocKeys(true)", "deviceByKey(1, true)", "[1].refresh(true)",
            "resumeLive()"};
    }

    QStringList released(bool live = true) const
    {
        return m_suspends ? paused("resumeView(false)", live) : QStringList();
    }

    // onClosed()
    QStringList closed(const QStringList &rollBack) const
    {
        return (m_kind.panel ? QStringList({"clearUndoStack()"}) + rollBack : QStringList()) +
               released();
    }

    // deactivate() of a tool without a panel
    QStringList switchedOff() const
    {
        return m_kind.buttonKind == ButtonKind::Toggle
                   ? QStringList({"setToolActive(\"t_story\", false)"})
                   : QStringList();
    }

    // The dialog's own end; `left` is what the host does when it is told of it.
    QStringList dialogClosed(const QStringList &left, bool live = true) const
    {
        return released(live) +
               QStringList({"deterUpdateUI(true)", "closePluginByName(\"t_story\")"}) + left +
               QStringList({"deterUpdateUI(false)"});
    }

    // What follows when the host itself closes the tool.
    QStringList leftByHost(const QStringList &rollBack) const
    {
        if (m_kind.panel)
            return closed(rollBack);
        if (isDialog())
            return dialogClosed({}) + closed({});
        return switchedOff() + closed({});
    }

    const Kind &m_kind;
    bool m_suspends;
};

bool pointerIsChanged()
{
    return QGuiApplication::overrideCursor() != nullptr;
}

}

class TestPlgStories : public TestBase
{
    Q_OBJECT

private slots:
    void story_data();
    void story();
    void everyCallMayFail_data();
    void everyCallMayFail();
};

namespace {

// A host with a camera in live mode, the tool of a story, and another one.
struct Stage
{
    Stage(const Kind &kind, bool suspends)
    {
        camera = addPlainCamera(host);
        tool = std::make_unique<StoryTool>(host, kind);
        tool->m_suspendsView = suspends;
        host.addPlugin(tool.get());
        host.addPlugin(&other);
        host.setTrelvikLock(true); // of which this tool wants to know nothing
        host.clearJournal();
    }

    ~Stage()
    {
        host.clearFaults();
        host.removePlugin(&other);
        if (tool)
            host.removePlugin(tool.get());
    }

    QStringList take()
    {
        const QStringList lines = host.journal();
        host.clearJournal();
        return lines;
    }

    // A drag of the inside by five to the right and three up, then one more by a key.
    void edit()
    {
        const int doc = int(camera->key());
        tool->onMousePress(QPoint(150, 140), doc);
        tool->onMouseMove(QPoint(155, 137), doc);
        tool->onMouseRelease(QPoint(155, 137), doc);
        QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
        tool->onKeyPress(&right);
        tool->onKeyRelease();
        tool->onMouseMove(QPoint(155, 137), doc); // the pointer of the region
    }

    void leave(Way way)
    {
        switch (way) {
        case Way::Ok:
            return tool->onOk();
        case Way::Accept:
            return tool->onAccept();
        case Way::ApplyThenOk:
            tool->onApply();
            return tool->onOk();
        case Way::ResetThenOk:
            tool->onReset();
            return tool->onOk();
        case Way::Cancel:
            return tool->onCancel();
        case Way::Button:
            return host.closePluginByName(Name);
        case Way::SwitchOff:
            return tool->deactivate();
        case Way::Mode:
            return host.setMode(StandInHost::Mode::Memory);
        case Way::OtherTool:
            return host.openPluginByName(other.name());
        case Way::HostGoes:
            return host.removePlugin(tool.get());
        }
    }

    StandInHost host;
    StandInCamera *camera;
    OtherTool other;
    std::unique_ptr<StoryTool> tool;
};

void addStories()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("suspends");
    QTest::addColumn<int>("way");
    for (size_t kind = 0; kind < std::size(Kinds); ++kind) {
        for (const bool suspends : {false, true}) {
            for (const auto &way : Ways)
                QTest::addRow("%s%s: %s", Kinds[kind].name, suspends ? ", view held" : "",
                              way.first)
                    << int(kind) << suspends << int(way.second);
        }
    }
}

}

void TestPlgStories::story_data()
{
    addStories();
}

void TestPlgStories::story()
{
    QFETCH(int, kind);
    QFETCH(bool, suspends);
    QFETCH(int, way);
    Stage stage(Kinds[kind], suspends);
    const Story story(Kinds[kind], suspends);

    stage.host.openPlugin(stage.tool.get());
    QCOMPARE(stage.take().join("\n"), story.opening().join("\n"));

    stage.edit();
    QCOMPARE(stage.host.commands(),
             QStringList({"beginUndoMacro(\"\")", "[1].reportCursorPosition((155,137))",
                          "tool.setRegion((105,97 100x80), true)", "[1].notifyChange(1, false)",
                          "updateUI(4, false)", "endUndoMacro()", "[1].notifyChange(1, false)",
                          "updateUI(4, false)", "tool.setRegion((106,97 100x80), true)",
                          "[1].notifyChange(1, false)", "updateUI(4, false)",
                          "[1].reportCursorPosition((155,137))"}));
    QVERIFY(pointerIsChanged());
    stage.host.clearJournal();

    stage.leave(Way(way));
    QCOMPARE(stage.take().join("\n"), story.leaving(Way(way)).join("\n"));

    stage.tool->deactivate(); // where the way was none for this kind
    QVERIFY(!pointerIsChanged());
}

void TestPlgStories::everyCallMayFail_data()
{
    addStories();
}

// Each call fails in turn, in the middle of a drag: afterwards nothing is held that only this tool
// could give back.
void TestPlgStories::everyCallMayFail()
{
    QFETCH(int, kind);
    QFETCH(bool, suspends);
    QFETCH(int, way);
    int failures = 0;
    for (int failing = 1;; ++failing) {
        Stage stage(Kinds[kind], suspends);
        const int doc = int(stage.camera->key());
        stage.host.openPlugin(stage.tool.get());
        stage.tool->onMouseMove(QPoint(150, 140), doc);
        stage.tool->onMousePress(QPoint(150, 140), doc);
        stage.host.clearJournal();
        stage.host.failAtCall(failing);
        try {
            stage.leave(Way(way));
        } catch (const std::exception &) {
        }
        const QString failed = stage.take().value(failing - 1);
        stage.host.clearFaults();
        // Closed by the host: only a failure of the steps themselves keeps view or transaction.
        const bool closedByHost = Way(way) == Way::Button || Way(way) == Way::HostGoes;
        const QStringList ownSteps = {"documentsMutex()",
                                      "isLiveMode()",
                                      "pauseLive(false)",
                                      "resumeView(false)",
                                      "deterUpdateUI(true)",
                                      "closePluginByName(\"t_story\")",
                                      "rollbackTransaction(\"t_story\")"};
        if (closedByHost && !ownSteps.contains(failed)) {
            QVERIFY2(!stage.host.isViewSuspended(), qPrintable(failed));
            QVERIFY2(!stage.host.isTransactionOpen(Name), qPrintable(failed));
        }
        guarded(&stage.host, [&] { stage.tool->deactivate(); });
        QVERIFY2(!stage.tool->isDragging(), qPrintable(QString::number(failing)));
        QCOMPARE(stage.tool->m_dragHandle, 9);
        QVERIFY2(!pointerIsChanged(), qPrintable(QString::number(failing)));
        QCOMPARE(stage.host.deterrals(), failed == "deterUpdateUI(false)" ? 1 : 0);
        QCOMPARE(stage.host.livePauses(), failed == "resumeLive()" ? 1 : 0);
        if (failed.isEmpty())
            break;
        ++failures;
    }
    // The end of the drag's macro comes before all that the way itself tells.
    QVERIFY(failures >= Story(Kinds[kind], suspends).leaving(Way(way)).size());
}

int main(int argc, char *argv[])
{
    TestPlgStories test;
    return runTest(argc, argv, test);
}

#include "test_plg_stories.moc"
