#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "contract/HostValues.h"
#include "standin/host/StandInHost.h"
#include "tests/plugin/ProbeTool.h"
#include "tests/support/TestLog.h"

#include <QFile>
#include <QSignalSpy>

// The page of a tool and the life of its modeless dialog.

class TestPlgDialog : public TestBase
{
    Q_OBJECT

private slots:
    void pageIsTheResourceNamedAfterTheTool();
    void pageIsReadAnewAtEachCall();
    void pageIsReadAsText();
    void missingPageLeavesOneWarning();
    void emptyNameLooksForTheBareExtension();
    void noDialogWithoutCreate();
    void failedCreationIsTriedAgain();
    void dialogIsMadeOnceAndConnected();
    void showEmitsOpenBeforeTheDialogIsSeen();
    void showOnAVisibleDialogDoesNothing();
    void showRestoresAMinimisedDialog();
    void showRestoresADialogThatWasHiddenWhileMinimised();
    void dialogThatGoesAtOpenIsNotShown();
    void visibilityWithoutADialogDoesNoHarm();
    void toolDecidesWhetherItsDialogIsSeen();
    void showPausesAndTakesTheQuickTool();
    void showHoldsTheLiveViewOnceTheDialogIsSeen();
    void plainToolLeavesViewAndQuickToolAlone_data();
    void plainToolLeavesViewAndQuickToolAlone();
    void dialogWithoutMediatorIsShown();
    void showWithoutDialogDoesNothing();
    void hideLeavesItOpen();
    void closeLeadsToClosed();
    void closeOnAHiddenDialogDoesNothing();
    void closedReleasesViewAndClosesThePlugin();
    void closedRefreshesTheLiveView();
    void dialogIsHiddenBeforeThePluginCloses();
    void dialogThatMayNotFinishStays();
    void dialogIsAskedOnceWhetherItMayFinish();
    void pageThatClosesAHiddenDialogClosesNothing();
    void pageThatClosesAgainClosesOnce();
    void failureWhileClosingIsHandedToTheHost();
    void deferralEndsWhenClosingFails();
    void modeGoesToAVisibleDialog();
    void forbiddenModeClosesIt();
    void forbiddenModeLeavesItWhenToldSo();
    void toolDecidesAnewWhetherAForbiddenModeClosesIt();
    void toolDecidesWhichModeIsForbidden();
    void modeWithoutVisibleDialogDoesNothing();
    void checkKindSixFollowsTheDialog();
    void closeToolOfADialogToolClosesIt();
    void dialogGoesWithTheTool();
    void dialogThatItsParentDestroyedIsMadeAnew();
};

namespace {

class PatternDialog : public GUI_ModelessPatternDialog
{
public:
    PatternDialog(HostServices *host, JS_Mediator_Dialog *mediator, QWidget *parent)
        : GUI_ModelessPatternDialog(host, QStringLiteral("Pattern"), QStringLiteral("about:blank"),
                                    mediator, parent)
    {
    }

    bool mayFinish() override
    {
        ++questions;
        return finishes;
    }
    void modeChanged(int mode) override { modes.append(mode); }

    bool finishes = true;
    int questions = 0;
    QList<int> modes;
};

class DialogTool : public ProbeTool
{
public:
    explicit DialogTool(HostServices *services)
    {
        setHost(services);
        m_checkKind = 6;
    }

    GUI_ModelessPatternDialog *createModelessPatternDialog(bool) override
    {
        ++creations;
        if (fails)
            return nullptr;
        auto *bridge =
            hasMediator ? new JS_Mediator_Dialog(m_host, QStringLiteral("pattern")) : nullptr;
        return new PatternDialog(m_host, bridge, dialogParent);
    }
    void slotModelessPatternDialogShown() override { ++shownSeen; }

    PatternDialog *dialog() { return static_cast<PatternDialog *>(m_modelessDialog.data()); }

    bool closesOnForbiddenMode() override { return closes && ProbeTool::closesOnForbiddenMode(); }

    bool fails = false;
    bool hasMediator = true;
    bool closes = true;
    int creations = 0;
    int shownSeen = 0;
    QWidget *dialogParent = nullptr;
};

const QStringList LivePause = {"pauseLive",   "beginExclusiveUpdate", "pauseLiveExclusive",
                               "suspendView", "resumeView",           "[1].refresh",
                               "resumeLive"};

// Notes whether the tool's dialog is seen while the host does its part.
class WatchingHost : public StandInHost
{
public:
    void suspendView(bool flag) override
    {
        seen.append(tool->isDialogVisible());
        StandInHost::suspendView(flag);
    }
    void closePluginByName(const QString &name) override
    {
        seen.append(tool->isDialogVisible());
        StandInHost::closePluginByName(name);
    }

    PLG_Interface *tool = nullptr;
    QList<bool> seen;
};

QStringList onlyOf(const QStringList &calls, const QStringList &names)
{
    QStringList result;
    for (const QString &call : calls) {
        if (names.contains(call.section(QLatin1Char('('), 0, 0)))
            result.append(call);
    }
    return result;
}

}

void TestPlgDialog::pageIsTheResourceNamedAfterTheTool()
{
    ProbeTool tool;
    QFile file(QStringLiteral(":/t_probe.html"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString page = tool.pageHtml();
    QCOMPARE(page, QString::fromUtf8(file.readAll()));
    QVERIFY(page.contains(QString::fromUtf8("Prüfwerkzeug")));

    class RenamedTool : public ProbeTool
    {
    public:
        RenamedTool() : ProbeTool(QStringLiteral("t_absent")) {}
        QString name() override { return QStringLiteral("t_probe"); }
    };
    RenamedTool renamed;
    QCOMPARE(renamed.pageHtml(), page);
}

void TestPlgDialog::pageIsReadAnewAtEachCall()
{
    ProbeTool tool;
    QVERIFY(!tool.pageHtml().isEmpty());
    tool.m_toolName = QStringLiteral("t_absent");
    LogCapture log;
    QCOMPARE(tool.pageHtml(), QString());
    tool.m_toolName = QStringLiteral("t_probe");
    QVERIFY(!tool.pageHtml().isEmpty());
}

void TestPlgDialog::pageIsReadAsText()
{
    QFile file(QStringLiteral(":/t_lines.html"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("<p>One</p>\r\n<p>Two</p>\r\n"));
    ProbeTool tool(QStringLiteral("t_lines"));
    QCOMPARE(tool.pageHtml(), QStringLiteral("<p>One</p>\n<p>Two</p>\n"));
}

void TestPlgDialog::missingPageLeavesOneWarning()
{
    ProbeTool tool(QStringLiteral("t_absent"));
    LogCapture log;
    QCOMPARE(tool.pageHtml(), QString());
    QCOMPARE(log.texts(), QStringList({"Not Found \":/t_absent.html\""}));
    QCOMPARE(log.lines().first().type, QtWarningMsg);
}

void TestPlgDialog::emptyNameLooksForTheBareExtension()
{
    ProbeTool tool{QString()};
    LogCapture log;
    QCOMPARE(tool.pageHtml(), QString());
    QCOMPARE(log.texts(QtWarningMsg), QStringList({"Not Found \":/.html\""}));
}

void TestPlgDialog::noDialogWithoutCreate()
{
    StandInHost host;
    DialogTool tool(&host);
    QVERIFY(tool.ensureDialog(false) == nullptr);
    QCOMPARE(tool.creations, 0);
}

void TestPlgDialog::failedCreationIsTriedAgain()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.fails = true;
    QVERIFY(tool.ensureDialog(true) == nullptr);
    tool.fails = false;
    QVERIFY(tool.ensureDialog(true) != nullptr);
    QCOMPARE(tool.creations, 2);
}

void TestPlgDialog::dialogIsMadeOnceAndConnected()
{
    StandInHost host;
    DialogTool tool(&host);
    GUI_ModelessPatternDialog *dialog = tool.ensureDialog(true);
    QVERIFY(dialog->isHidden());
    QCOMPARE(tool.ensureDialog(true), dialog);
    QCOMPARE(tool.ensureDialog(false), dialog);
    QCOMPARE(tool.creations, 1);
    emit dialog->shown();
    QCOMPARE(tool.shownSeen, 1);
    host.clearJournal();
    emit dialog->closed();
    QCOMPARE(onlyOf(host.commands(), {"closePluginByName"}),
             QStringList({"closePluginByName(\"t_probe\")"}));
}

void TestPlgDialog::showEmitsOpenBeforeTheDialogIsSeen()
{
    StandInHost host;
    DialogTool tool(&host);
    GUI_ModelessPatternDialog *dialog = tool.ensureDialog(true);
    QList<bool> hiddenAtOpen;
    connect(dialog->mediator(), &JS_Mediator::open, this,
            [&] { hiddenAtOpen.append(dialog->isHidden()); });
    tool.showDialog();
    QCOMPARE(hiddenAtOpen, QList<bool>({true}));
    QVERIFY(tool.isDialogVisible());
    QCOMPARE(tool.shownSeen, 1);
}

void TestPlgDialog::showOnAVisibleDialogDoesNothing()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.m_suspendsView = true;
    tool.m_quickToolMode = 1;
    GUI_ModelessPatternDialog *dialog = tool.ensureDialog(true);
    tool.showDialog();
    QSignalSpy opens(dialog->mediator(), &JS_Mediator::open);
    host.clearJournal();
    tool.showDialog();
    QCOMPARE(opens.count(), 0);
    QCOMPARE(host.commands(), QStringList());
}

void TestPlgDialog::showRestoresAMinimisedDialog()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.m_suspendsView = true;
    GUI_ModelessPatternDialog *dialog = tool.ensureDialog(true);
    tool.showDialog();
    dialog->setWindowState(Qt::WindowMinimized);
    QVERIFY(dialog->isMinimized());
    QSignalSpy opens(dialog->mediator(), &JS_Mediator::open);
    host.clearJournal();
    tool.showDialog();
    QVERIFY(!dialog->isMinimized());
    QVERIFY(dialog->isVisible());
    dialog->setWindowState(Qt::WindowMinimized | Qt::WindowMaximized);
    tool.showDialog();
    QCOMPARE(dialog->windowState(), Qt::WindowStates(Qt::WindowNoState));
    QCOMPARE(opens.count(), 2);
    QCOMPARE(onlyOf(host.commands(), {"suspendView"}),
             QStringList({"suspendView(false)", "suspendView(false)"}));
}

// The page hears of it when the window is as it will be seen.
void TestPlgDialog::showRestoresADialogThatWasHiddenWhileMinimised()
{
    StandInHost host;
    DialogTool tool(&host);
    GUI_ModelessPatternDialog *dialog = tool.ensureDialog(true);
    tool.showDialog();
    dialog->setWindowState(Qt::WindowMinimized);
    tool.hideDialog();
    QVERIFY(dialog->isHidden());
    QVERIFY(dialog->isMinimized());
    QList<bool> minimisedAtOpen;
    connect(dialog->mediator(), &JS_Mediator::open, this,
            [&] { minimisedAtOpen.append(dialog->isMinimized()); });
    tool.showDialog();
    QCOMPARE(minimisedAtOpen, QList<bool>({false}));
    QVERIFY(dialog->isVisible());
    QVERIFY(!dialog->isMinimized());
}

void TestPlgDialog::dialogThatGoesAtOpenIsNotShown()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.m_suspendsView = true;
    tool.m_quickToolMode = 1;
    const std::unique_ptr<GUI_ModelessPatternDialog> dialog(tool.ensureDialog(true));
    connect(dialog->mediator(), &JS_Mediator::open, this, [&] { tool.m_modelessDialog.clear(); });
    host.clearJournal();
    tool.showDialog();
    QVERIFY(dialog->isHidden());
    QCOMPARE(host.commands(), QStringList());
}

namespace {

class AlwaysVisibleTool : public DialogTool
{
public:
    using DialogTool::DialogTool;
    bool isDialogVisible() override { return true; }
};

}

void TestPlgDialog::toolDecidesWhetherItsDialogIsSeen()
{
    class UnseenTool : public DialogTool
    {
    public:
        using DialogTool::DialogTool;
        bool isDialogVisible() override { return seen; }
        bool seen = false;
    };
    StandInHost host;
    UnseenTool tool(&host);
    tool.ensureDialog(true);
    tool.showDialog();
    tool.hideDialog();
    QVERIFY(tool.dialog()->isVisible());
    tool.onModeChanged(2);
    QCOMPARE(tool.dialog()->modes, QList<int>());
    tool.seen = true;
    tool.hideDialog();
    QVERIFY(!tool.dialog()->isVisible());
}

// A tool may answer for itself whether its dialog is seen.
void TestPlgDialog::visibilityWithoutADialogDoesNoHarm()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    AlwaysVisibleTool tool(&host);
    tool.m_allowedModes = 1;
    host.clearJournal();
    tool.hideDialog();
    tool.onModeChanged(0);
    tool.onModeChanged(2);
    tool.closeDialog();
    tool.closeTool();
    tool.showDialog();
    QCOMPARE(host.journal(), QStringList());
    QVERIFY(tool.isChecked(camera, false));

    // With one the mode reaches it as ever, seen or not.
    tool.ensureDialog(true);
    tool.onModeChanged(2);
    QCOMPARE(tool.dialog()->modes, QList<int>({2}));
    tool.hideDialog();
    QVERIFY(tool.dialog()->isHidden());
}

void TestPlgDialog::showPausesAndTakesTheQuickTool()
{
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    DialogTool tool(&host);
    tool.m_suspendsView = true;
    tool.m_quickToolMode = 1;
    tool.ensureDialog(true);
    host.clearJournal();
    tool.showDialog();
    QCOMPARE(onlyOf(host.commands(), {"pausePlayback", "suspendView", "resumePlayback",
                                      "setQuickTool", "setToolState"}),
             QStringList({"pausePlayback()", "suspendView(false)", "resumePlayback()",
                          "setQuickTool(\"\")", "setToolState(\"t_probe\", true)"}));
}

void TestPlgDialog::showHoldsTheLiveViewOnceTheDialogIsSeen()
{
    WatchingHost host;
    host.addCamera();
    DialogTool tool(&host);
    host.tool = &tool;
    tool.m_suspendsView = true;
    tool.ensureDialog(true);
    host.clearJournal();
    tool.showDialog();
    QCOMPARE(host.seen, QList<bool>({true}));
    QCOMPARE(onlyOf(host.commands(), LivePause),
             QStringList(
                 {"pauseLive(false)", "suspendView(false)", "[1].refresh(true)", "resumeLive()"}));
}

void TestPlgDialog::plainToolLeavesViewAndQuickToolAlone_data()
{
    QTest::addColumn<int>("quickToolMode");
    QTest::newRow("no quick tool") << 0;
    QTest::newRow("other quick tool mode") << 2;
}

void TestPlgDialog::plainToolLeavesViewAndQuickToolAlone()
{
    QFETCH(int, quickToolMode);
    StandInHost host;
    DialogTool tool(&host);
    tool.m_quickToolMode = quickToolMode;
    tool.ensureDialog(true);
    host.clearJournal();
    tool.showDialog();
    QCOMPARE(host.commands(), QStringList());
    tool.closeDialog();
    QCOMPARE(host.commands(), QStringList({"deterUpdateUI(true)", "closePluginByName(\"t_probe\")",
                                           "deterUpdateUI(false)"}));
}

void TestPlgDialog::dialogWithoutMediatorIsShown()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.hasMediator = false;
    tool.ensureDialog(true);
    tool.showDialog();
    QVERIFY(tool.isDialogVisible());
    tool.closeDialog();
    QVERIFY(!tool.isDialogVisible());
}

void TestPlgDialog::showWithoutDialogDoesNothing()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.m_suspendsView = true;
    tool.showDialog();
    tool.hideDialog();
    tool.closeDialog();
    QVERIFY(!tool.isDialogVisible());
    QCOMPARE(host.journal(), QStringList());
}

void TestPlgDialog::hideLeavesItOpen()
{
    StandInHost host;
    DialogTool tool(&host);
    QSignalSpy closings(tool.ensureDialog(true), &GUI_ModelessPatternDialog::closed);
    tool.showDialog();
    tool.hideDialog();
    QVERIFY(!tool.isDialogVisible());
    QVERIFY(tool.m_modelessDialog);
    QCOMPARE(closings.count(), 0);
}

void TestPlgDialog::closeLeadsToClosed()
{
    StandInHost host;
    DialogTool tool(&host);
    QSignalSpy closings(tool.ensureDialog(true), &GUI_ModelessPatternDialog::closed);
    tool.showDialog();
    tool.closeDialog();
    QCOMPARE(closings.count(), 1);
    QVERIFY(tool.dialog()->isHidden());
}

void TestPlgDialog::closeOnAHiddenDialogDoesNothing()
{
    StandInHost host;
    DialogTool tool(&host);
    QSignalSpy closings(tool.ensureDialog(true), &GUI_ModelessPatternDialog::closed);
    tool.closeDialog();
    QCOMPARE(closings.count(), 0);
}

void TestPlgDialog::closedReleasesViewAndClosesThePlugin()
{
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    DialogTool tool(&host);
    tool.m_suspendsView = true;
    tool.ensureDialog(true);
    tool.showDialog();
    host.clearJournal();
    tool.closeDialog();
    QCOMPARE(onlyOf(host.commands(), {"pausePlayback", "resumeView", "resumePlayback",
                                      "deterUpdateUI", "closePluginByName"}),
             QStringList({"pausePlayback()", "resumeView(false)", "resumePlayback()",
                          "deterUpdateUI(true)", "closePluginByName(\"t_probe\")",
                          "deterUpdateUI(false)"}));
}

void TestPlgDialog::closedRefreshesTheLiveView()
{
    StandInHost host;
    host.addCamera();
    DialogTool tool(&host);
    tool.m_suspendsView = true;
    tool.ensureDialog(true);
    tool.showDialog();
    host.clearJournal();
    tool.closeDialog();
    QCOMPARE(onlyOf(host.commands(), LivePause),
             QStringList(
                 {"pauseLive(false)", "resumeView(false)", "[1].refresh(true)", "resumeLive()"}));
}

// What the application asks of the tool while it closes it is answered for a hidden dialog.
void TestPlgDialog::dialogIsHiddenBeforeThePluginCloses()
{
    WatchingHost host;
    DialogTool tool(&host);
    host.tool = &tool;
    tool.ensureDialog(true);
    tool.showDialog();
    tool.slotModelessPatternDialogClosed();
    QCOMPARE(host.seen, QList<bool>({false}));
    QVERIFY(!tool.isDialogVisible());
}

void TestPlgDialog::dialogThatMayNotFinishStays()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.ensureDialog(true);
    tool.showDialog();
    tool.dialog()->finishes = false;
    host.clearJournal();
    tool.closeDialog();
    tool.slotModelessPatternDialogClosed();
    QVERIFY(tool.isDialogVisible());
    QCOMPARE(onlyOf(host.commands(), {"deterUpdateUI", "closePluginByName"}), QStringList());
    tool.dialog()->finishes = true;
    tool.closeDialog();
    QVERIFY(!tool.isDialogVisible());
}

void TestPlgDialog::dialogIsAskedOnceWhetherItMayFinish()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.ensureDialog(true);
    tool.showDialog();
    tool.closeDialog();
    QCOMPARE(tool.dialog()->questions, 1);
    QVERIFY(!tool.isDialogVisible());
}

void TestPlgDialog::pageThatClosesAHiddenDialogClosesNothing()
{
    StandInHost host;
    DialogTool tool(&host);
    QSignalSpy closings(tool.ensureDialog(true), &GUI_ModelessPatternDialog::closed);
    tool.showDialog();
    tool.hideDialog();
    host.clearJournal();
    emit tool.dialog()->mediator()->reject();
    emit tool.dialog()->mediator()->accept();
    QCOMPARE(closings.count(), 0);
    QCOMPARE(host.commands(), QStringList());
}

void TestPlgDialog::pageThatClosesAgainClosesOnce()
{
    StandInHost host;
    DialogTool tool(&host);
    QSignalSpy closings(tool.ensureDialog(true), &GUI_ModelessPatternDialog::closed);
    JS_Mediator_Dialog *mediator = tool.dialog()->mediator();
    QSignalSpy rejections(mediator, &JS_Mediator_Dialog::rejected);
    connect(mediator, &JS_Mediator_Dialog::rejected, mediator, &JS_Mediator_Dialog::reject);
    tool.showDialog();
    tool.closeDialog();
    QCOMPARE(closings.count(), 1);
    QCOMPARE(rejections.count(), 1);
}

void TestPlgDialog::failureWhileClosingIsHandedToTheHost()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.ensureDialog(true);
    tool.showDialog();
    host.failOn(QStringLiteral("closePluginByName"), 1);
    tool.closeDialog();
    QCOMPARE(host.handledErrors().size(), 1);
    QVERIFY(!tool.isDialogVisible());
}

void TestPlgDialog::deferralEndsWhenClosingFails()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.ensureDialog(true);
    tool.showDialog();
    host.failOn(QStringLiteral("closePluginByName"), 1);
    host.clearJournal();
    tool.closeDialog();
    QCOMPARE(onlyOf(host.commands(), {"deterUpdateUI"}),
             QStringList({"deterUpdateUI(true)", "deterUpdateUI(false)"}));
}

void TestPlgDialog::modeGoesToAVisibleDialog()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.ensureDialog(true);
    tool.showDialog();
    tool.onModeChanged(2);
    QCOMPARE(tool.dialog()->modes, QList<int>({2}));
    QVERIFY(tool.isDialogVisible());
}

void TestPlgDialog::forbiddenModeClosesIt()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.m_allowedModes = 1;
    tool.ensureDialog(true);
    tool.showDialog();
    tool.onModeChanged(1);
    QCOMPARE(tool.dialog()->modes, QList<int>({1}));
    QVERIFY(!tool.isDialogVisible());
    tool.m_allowedModes = ~0u;
    tool.showDialog();
    tool.onModeChanged(3); // no such mode
    QCOMPARE(tool.dialog()->modes, QList<int>({1, 3}));
    QVERIFY(!tool.isDialogVisible());
}

void TestPlgDialog::forbiddenModeLeavesItWhenToldSo()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.m_allowedModes = 1;
    tool.setClosesOnForbiddenMode(false);
    tool.ensureDialog(true);
    tool.showDialog();
    tool.onModeChanged(1);
    QVERIFY(tool.isDialogVisible());
}

void TestPlgDialog::toolDecidesAnewWhetherAForbiddenModeClosesIt()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.m_allowedModes = 1;
    tool.ensureDialog(true);
    tool.showDialog();
    tool.closes = false;
    tool.onModeChanged(1);
    QVERIFY(tool.isDialogVisible());
    tool.closes = true;
    tool.onModeChanged(1);
    QVERIFY(!tool.isDialogVisible());
}

void TestPlgDialog::toolDecidesWhichModeIsForbidden()
{
    class AllowingTool : public DialogTool
    {
    public:
        using DialogTool::DialogTool;
        bool isModeAllowed(int mode) override { return mode == HostMode::Memory; }
    };
    StandInHost host;
    AllowingTool tool(&host);
    tool.m_allowedModes = 0;
    tool.ensureDialog(true);
    tool.showDialog();
    tool.onModeChanged(HostMode::Memory);
    QVERIFY(tool.isDialogVisible());
    tool.m_allowedModes = 7;
    tool.onModeChanged(HostMode::File);
    QVERIFY(!tool.isDialogVisible());
}

void TestPlgDialog::modeWithoutVisibleDialogDoesNothing()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.m_allowedModes = 1;
    tool.onModeChanged(2);
    QSignalSpy closings(tool.ensureDialog(true), &GUI_ModelessPatternDialog::closed);
    tool.onModeChanged(2);
    QCOMPARE(tool.dialog()->modes, QList<int>());
    QCOMPARE(closings.count(), 0);
}

void TestPlgDialog::checkKindSixFollowsTheDialog()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    DialogTool tool(&host);
    tool.ensureDialog(true);
    QVERIFY(!tool.isChecked(camera, false));
    tool.showDialog();
    QVERIFY(tool.isChecked(camera, false));
    tool.hideDialog();
    QVERIFY(!tool.isChecked(camera, false));
}

void TestPlgDialog::closeToolOfADialogToolClosesIt()
{
    StandInHost host;
    DialogTool tool(&host);
    tool.ensureDialog(true);
    tool.showDialog();
    tool.closeTool();
    QVERIFY(!tool.isDialogVisible());
}

void TestPlgDialog::dialogGoesWithTheTool()
{
    StandInHost host;
    QPointer<GUI_ModelessPatternDialog> dialog;
    {
        DialogTool tool(&host);
        dialog = tool.ensureDialog(true);
        tool.showDialog();
    }
    QVERIFY(dialog.isNull());
}

void TestPlgDialog::dialogThatItsParentDestroyedIsMadeAnew()
{
    StandInHost host;
    DialogTool tool(&host);
    auto parent = std::make_unique<QWidget>();
    tool.dialogParent = parent.get();
    tool.ensureDialog(true);
    parent.reset();
    tool.dialogParent = nullptr;
    QVERIFY(!tool.isDialogVisible());
    tool.showDialog();
    QVERIFY(tool.ensureDialog(false) == nullptr);
    QVERIFY(tool.ensureDialog(true) != nullptr);
    QCOMPARE(tool.creations, 2);
}

int main(int argc, char *argv[])
{
    TestPlgDialog test;
    return runTest(argc, argv, test);
}

#include "test_plg_dialog.moc"
