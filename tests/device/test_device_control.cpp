#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/operation/DialogRun.h"
#include "bridge/page/GUI_WebView.h"
#include "device/control/JS_Mediator_DeviceControl.h"
#include "plugin/PLG_Common.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/OwnMethods.h"
#include "tests/support/TestLog.h"

#include <QMutex>

#include <functional>
#include <memory>

// The bridge of the page that works on the selection: its selection is one undo step, made while
// the views rest, and its tool gets what the page's buttons say.

class TestDeviceControl : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void slotsStandInOrder();
    void nameIsThatOfThePage();
    void buttonsReachTheTool_data();
    void buttonsReachTheTool();
    void withoutAToolNothingHappens_data();
    void withoutAToolNothingHappens();
    void undoAndRedoAreTheHosts();
    void macrosOfThePageNest();
    void endWithoutABeginningIsNoMistake();
    void openMacrosEndWithTheMediator();
    void openMacrosEndWhenThePageLoadsAnew();
    void failedMacroIsNotEnded();
    void mediatorMayGoWhileAMacroBegins();
    void dummyIsTold();
    void titleIsThatOfTheCurrentWindow();
    void displayInformationIsSwitched();
    void editorsAreOpened_data();
    void editorsAreOpened();
    void customInformationStandsOverItsPage();
    void failedEditorIsTold();
    void documentIsSelected_data();
    void documentIsSelected();
    void documentThatCannotBeSelectedOpensNoMacro_data();
    void documentThatCannotBeSelectedOpensNoMacro();
    void groupIsSelectedWithIt();
    void membersThatCannotBeSelectedAreLeftOut();
    void memberCostsAFixedNumberOfCalls_data();
    void memberCostsAFixedNumberOfCalls();
    void documentIsUnselected();
    void unknownKeyIsPassedOn();
    void groupIsUnselectedWithIt();
    void memberThatHasGoneIsLeftAlone();
    void failureEndsWhatWasBegun_data();
    void failureEndsWhatWasBegun();
    void busyListIsNoReasonToWait();
    void selectionIsTraced();
    void allAreSelectedAndShown();
    void mediatorMayGoBeforeAllAreSelected();
    void failedUnselectionEndsWhatWasBegun_data();
    void failedUnselectionEndsWhatWasBegun();
    void documentIsUnselectedInEachMode_data();
    void documentIsUnselectedInEachMode();
    void membersThatCannotBeSelectedAreUnselectedToo();
    void editorsWorkOnTheSelection_data();
    void editorsWorkOnTheSelection();
    void callIsTracedFirst_data();
    void callIsTracedFirst();
};

namespace {

const QString Name = QStringLiteral("devicecontrol");

/// A tool that notes what is asked of it.
class NotingTool : public PLG_Common
{
public:
    explicit NotingTool(const QString &name) { m_toolName = name; }

    void update() override { note("update"); }
    void applyGuarded(bool guarded) override { note(guarded ? "apply, guarded" : "apply"); }
    void resetGuarded(bool guarded) override { note(guarded ? "reset, guarded" : "reset"); }
    void onOk() override { note("ok"); }
    void onCancel() override { note("cancel"); }
    void hideDialog() override { note("hide"); }

    QStringList notes;

private:
    void note(const char *what) { notes.append(QString::fromLatin1(what)); }
};

/// A host with the control's bridge and, unless `named` says otherwise, its tool.
struct Control
{
    explicit Control(const QString &named = Name) : tool(named)
    {
        host.addPlugin(&tool);
        host.clearJournal();
    }
    ~Control() { host.removePlugin(&tool); }

    StandInHost host;
    NotingTool tool;
    std::unique_ptr<JS_Mediator_DeviceControl> mediator =
        std::make_unique<JS_Mediator_DeviceControl>(&host, Name);
};

const QStringList PausedInLiveMode = {"prepareSelectAll()", "documentsMutex()", "isLiveMode()",
                                      "pauseLive(false)"};
const QStringList PausedElsewhere = {"prepareSelectAll()", "documentsMutex()", "isLiveMode()",
                                     "pausePlayback()"};

QStringList dialogsRun;
QVector<QWidget *> parentsOfRun;

// Whatever `operation` has failed in, nothing that was begun goes on.
void checkEnd(StandInHost &host, const QString &operation, bool macro)
{
    QStringList end = {"resumeLive()", "errorHandler(\"" + operation + " failed\")"};
    if (macro)
        end.prepend("endUndoMacro()");
    QCOMPARE(host.commands().mid(host.commands().size() - end.size()), end);
    QCOMPARE(host.openMacros(), 0);
    QCOMPARE(host.livePauses(), 0);
    QVERIFY(host.documentsMutex()->tryLock());
    host.documentsMutex()->unlock();
}

}

Q_DECLARE_METATYPE(StandInHost::Mode)

void TestDeviceControl::init()
{
    TestBase::init();
    dialogsRun.clear();
    parentsOfRun.clear();
    DialogRun::setAnswer([](QDialog &dialog) {
        dialogsRun.append(QString::fromLatin1(dialog.metaObject()->className()));
        parentsOfRun.append(dialog.parentWidget());
        return int(QDialog::Accepted);
    });
}

void TestDeviceControl::cleanup()
{
    DialogRun::setAnswer(DialogRun::Answer());
    TestBase::cleanup();
}

void TestDeviceControl::slotsStandInOrder()
{
    const QMetaObject &meta = JS_Mediator_DeviceControl::staticMetaObject;
    QCOMPARE(
        ownMethods(meta),
        QStringList({"bool isDisplayInfoShowing()", "void setDisplayInfoShowing(bool)",
                     "void editInfo()", "void editComment()", "void editCustom()",
                     "void selectDoc(QVariant)", "void unselectDoc(QVariant)", "void viewAll()"}));
    QCOMPARE(QLatin1String(meta.superClass()->className()), QLatin1String("JS_Mediator_Plugin"));
}

void TestDeviceControl::nameIsThatOfThePage()
{
    Control control;
    QCOMPARE(control.mediator->name(), QString("devicecontrol"));
    QCOMPARE(control.host.journal(), QStringList());
    QCOMPARE(control.mediator->uiName(), QString("devicecontrol"));
    QCOMPARE(control.host.journal(), QStringList("translate(\"devicecontrol\")"));
    control.host.failOn("translate");
    QCOMPARE(control.mediator->uiName(), QString());
    QCOMPARE(control.host.handledErrors(), QStringList("translate failed"));
}

using Press = std::function<void(JS_Mediator_DeviceControl &)>;
Q_DECLARE_METATYPE(Press)

static void addButtons()
{
    QTest::addColumn<Press>("press");
    QTest::addColumn<QString>("traced"); // empty: no trace and no refresh
    QTest::addColumn<QStringList>("notes");
    QTest::addColumn<QStringList>("commands");
    using Mediator = JS_Mediator_DeviceControl;
    QTest::newRow("open") << Press([](Mediator &m) { m.onOpen(); }) << QString()
                          << QStringList("update") << QStringList();
    QTest::newRow("apply") << Press([](Mediator &m) { m.onApply(); })
                           << QString("JS_Mediator_DeviceControl::onApply")
                           << QStringList("apply, guarded") << QStringList();
    QTest::newRow("ok") << Press([](Mediator &m) { m.onOK(); })
                        << QString("JS_Mediator_DeviceControl::onOK") << QStringList("ok")
                        << QStringList();
    QTest::newRow("cancel") << Press([](Mediator &m) { m.onCancel(); })
                            << QString("JS_Mediator_DeviceControl::onCancel")
                            << QStringList("cancel") << QStringList();
    QTest::newRow("reset") << Press([](Mediator &m) { m.onReset(); })
                           << QString("JS_Mediator_DeviceControl::onReset")
                           << QStringList("reset, guarded") << QStringList();
    QTest::newRow("close") << Press([](Mediator &m) { m.onClose(); }) << QString()
                           << QStringList("hide") << QStringList();
    QTest::newRow("closed") << Press([](Mediator &m) { m.onClosed(); }) << QString()
                            << QStringList() << QStringList("closePluginByName(\"devicecontrol\")");
}

void TestDeviceControl::buttonsReachTheTool_data()
{
    addButtons();
}

void TestDeviceControl::buttonsReachTheTool()
{
    QFETCH(Press, press);
    QFETCH(QString, traced);
    QFETCH(QStringList, commands);
    Control control;
    LogCapture log;
    press(*control.mediator);
    QFETCH(QStringList, notes);
    if (!traced.isEmpty())
        notes.append("update"); // by the refresh
    QCOMPARE(control.tool.notes, notes);
    QStringList calls = QStringList("pluginByName(\"devicecontrol\")") + commands;
    QStringList lines;
    if (!traced.isEmpty()) {
        calls.append("updateUI(63, true)");
        lines = QStringList({"[ENTER] \"" + traced + "\" \"\"", "[LEAVE] \"" + traced + "\""});
    }
    QCOMPARE(control.host.journal(), calls);
    QCOMPARE(log.texts(), lines);
    control.host.failOn("pluginByName");
    press(*control.mediator);
    QCOMPARE(control.host.handledErrors(), QStringList("pluginByName failed"));
}

void TestDeviceControl::withoutAToolNothingHappens_data()
{
    addButtons();
}

void TestDeviceControl::withoutAToolNothingHappens()
{
    QFETCH(Press, press);
    QFETCH(QString, traced);
    Control control(QStringLiteral("other"));
    press(*control.mediator);
    control.tool.notes.removeAll("update"); // by the refresh
    QCOMPARE(control.tool.notes, QStringList());
    QCOMPARE(control.host.commands(),
             traced.isEmpty() ? QStringList() : QStringList("updateUI(63, true)"));
}

void TestDeviceControl::undoAndRedoAreTheHosts()
{
    Control control;
    LogCapture log;
    control.mediator->undo();
    control.mediator->redo();
    QCOMPARE(control.host.journal(),
             QStringList({"undo()", "updateUI(63, true)", "redo()", "updateUI(63, true)"}));
    QCOMPARE(log.texts(), QStringList({"[ENTER] \"JS_Mediator_DeviceControl::undo\" \"\"",
                                       "[LEAVE] \"JS_Mediator_DeviceControl::undo\"",
                                       "[ENTER] \"JS_Mediator_DeviceControl::redo\" \"\"",
                                       "[LEAVE] \"JS_Mediator_DeviceControl::redo\""}));
    control.host.failOn("undo");
    control.host.failOn("redo");
    control.mediator->undo();
    control.mediator->redo();
    QCOMPARE(control.host.handledErrors(), QStringList({"undo failed", "redo failed"}));
}

void TestDeviceControl::macrosOfThePageNest()
{
    Control control;
    control.mediator->beginMacro();
    control.mediator->beginMacro();
    QCOMPARE(control.host.openMacros(), 2);
    control.mediator->endMacro();
    QCOMPARE(control.host.openMacros(), 1);
    control.mediator->endMacro();
    QCOMPARE(control.host.journal(), QStringList({"beginUndoMacro(\"\")", "beginUndoMacro(\"\")",
                                                  "endUndoMacro()", "endUndoMacro()"}));
}

void TestDeviceControl::endWithoutABeginningIsNoMistake()
{
    Control control;
    control.mediator->endMacro();
    QCOMPARE(control.host.journal(), QStringList());
    control.mediator->beginMacro();
    control.mediator->endMacro();
    control.mediator->endMacro();
    QCOMPARE(control.host.journal(), QStringList({"beginUndoMacro(\"\")", "endUndoMacro()"}));
}

void TestDeviceControl::openMacrosEndWithTheMediator()
{
    Control control;
    control.mediator->beginMacro();
    control.mediator->beginMacro();
    control.mediator.reset();
    QCOMPARE(control.host.journal(), QStringList({"beginUndoMacro(\"\")", "beginUndoMacro(\"\")",
                                                  "endUndoMacro()", "endUndoMacro()"}));
}

void TestDeviceControl::openMacrosEndWhenThePageLoadsAnew()
{
    Control control;
    GUI_WebView view(&control.host, nullptr);
    PageProbe page(&view);
    control.host.showMediator(&view, control.mediator.get());
    view.resize(400, 300);
    view.show();
    view.load(QUrl("qrc:/pages/calls.html"));
    QVERIFY(page.waitLoaded());
    QCOMPARE(page.call("devicecontrol.beginMacro(); devicecontrol.beginMacro()"),
             QString("undefined"));
    QCOMPARE(control.host.openMacros(), 2);
    view.reload();
    QVERIFY(page.waitLoaded());
    QCOMPARE(control.host.openMacros(), 0);
    QCOMPARE(page.call("devicecontrol.beginMacro(); devicecontrol.endMacro()"),
             QString("undefined"));
    QCOMPARE(control.host.openMacros(), 0);
    QCOMPARE(control.host.handledErrors(), QStringList());
}

void TestDeviceControl::failedMacroIsNotEnded()
{
    Control control;
    control.host.failOn("beginUndoMacro");
    control.mediator->beginMacro();
    control.mediator->endMacro();
    QCOMPARE(control.host.handledErrors(), QStringList("beginUndoMacro failed"));
    QCOMPARE(control.host.commands().filter("endUndoMacro"), QStringList());
}

void TestDeviceControl::mediatorMayGoWhileAMacroBegins()
{
    Control control;
    QObject::connect(control.host.events(), &StandInEvents::callJournalled, &control.tool,
                     [&](const QString &call) {
                         if (call.startsWith("beginUndoMacro"))
                             control.mediator.reset();
                     });
    control.mediator->beginMacro();
    QVERIFY(!control.mediator);
    QCOMPARE(control.host.openMacros(), 0);
}

void TestDeviceControl::dummyIsTold()
{
    Control control;
    QVERIFY(!control.mediator->isCurrentDummy());
    QCOMPARE(control.host.journal(), QStringList("currentDocument()"));
    control.host.addCamera();
    QVERIFY(!control.mediator->isCurrentDummy());
    control.host.camera(1)->state().isDummy = true;
    QVERIFY(control.mediator->isCurrentDummy());
    control.host.failOn("isDummy");
    QVERIFY(!control.mediator->isCurrentDummy());
    QCOMPARE(control.host.handledErrors(), QStringList("isDummy failed"));
}

void TestDeviceControl::titleIsThatOfTheCurrentWindow()
{
    Control control;
    QCOMPARE(control.mediator->getCurrentWindowTitle(), QString());
    StandInCamera::Description description;
    description.name = QStringLiteral("Left");
    control.host.addCamera(description);
    QCOMPARE(control.mediator->getCurrentWindowTitle(), QString("Left"));
    control.host.failOn("currentWindowTitle");
    QCOMPARE(control.mediator->getCurrentWindowTitle(), QString());
    QCOMPARE(control.host.handledErrors(), QStringList("currentWindowTitle failed"));
}

void TestDeviceControl::displayInformationIsSwitched()
{
    Control control;
    LogCapture log;
    QVERIFY(!control.mediator->isDisplayInfoShowing());
    control.mediator->setDisplayInfoShowing(true);
    QVERIFY(control.mediator->isDisplayInfoShowing());
    control.mediator->setDisplayInfoShowing(false);
    QCOMPARE(control.host.journal(),
             QStringList({"isDisplayInfoShowing()", "setDisplayInfoShowing(true)",
                          "isDisplayInfoShowing()", "setDisplayInfoShowing(false)"}));
    const QString name = "\"JS_Mediator_DeviceControl::setDisplayInfoShowing\"";
    QCOMPARE(log.texts(),
             QStringList({"[ENTER] " + name + " \"[show:true]\"", "[LEAVE] " + name,
                          "[ENTER] " + name + " \"[show:false]\"", "[LEAVE] " + name}));
    control.host.showDisplayInfo(true);
    control.host.failOn("isDisplayInfoShowing");
    QVERIFY(!control.mediator->isDisplayInfoShowing());
    control.host.failOn("setDisplayInfoShowing");
    control.mediator->setDisplayInfoShowing(false);
    QCOMPARE(control.host.handledErrors(),
             QStringList({"isDisplayInfoShowing failed", "setDisplayInfoShowing failed"}));
}

void TestDeviceControl::editorsAreOpened_data()
{
    QTest::addColumn<Press>("press");
    QTest::addColumn<QString>("dialog");
    using Mediator = JS_Mediator_DeviceControl;
    QTest::newRow("displayed information")
        << Press([](Mediator &m) { m.editInfo(); }) << QString("GUI_EditInfoDialog");
    QTest::newRow("comments") << Press([](Mediator &m) { m.editComment(); })
                              << QString("GUI_CommentDialog");
    QTest::newRow("custom information")
        << Press([](Mediator &m) { m.editCustom(); }) << QString("GUI_CustomInfoDialog");
}

void TestDeviceControl::editorsAreOpened()
{
    QFETCH(Press, press);
    Control control;
    QWidget window;
    control.host.state().mainWidget = &window;
    control.host.addCamera();
    press(*control.mediator);
    QCOMPARE(dialogsRun.size(), 1);
    QTEST(dialogsRun.first(), "dialog");
    QCOMPARE(parentsOfRun.first(), &window);
    QCOMPARE(window.findChildren<QDialog *>().size(), 0); // gone again
    QCOMPARE(control.host.handledErrors(), QStringList());
}

void TestDeviceControl::customInformationStandsOverItsPage()
{
    Control control;
    QWidget window;
    control.host.state().mainWidget = &window;
    QWidget panel;
    GUI_WebView view(&control.host, &panel);
    control.host.showMediator(&view, control.mediator.get());
    control.mediator->editCustom();
    QCOMPARE(parentsOfRun.first(), &panel);
}

void TestDeviceControl::failedEditorIsTold()
{
    Control control;
    DialogRun::setAnswer([](QDialog &) -> int { throw std::runtime_error("no screen"); });
    control.mediator->editInfo();
    QCOMPARE(control.host.handledErrors(), QStringList("no screen"));
}

void TestDeviceControl::documentIsSelected_data()
{
    QTest::addColumn<StandInHost::Mode>("mode");
    QTest::addColumn<QVariant>("key");
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QString>("after");
    using Mode = StandInHost::Mode;
    QTest::newRow("live") << Mode::Live << QVariant(2) << PausedInLiveMode << "resumeLive()";
    QTest::newRow("live, text") << Mode::Live << QVariant("2") << PausedInLiveMode
                                << "resumeLive()";
    QTest::newRow("memory") << Mode::Memory << QVariant(2.0) << PausedElsewhere
                            << "resumePlayback()";
    QTest::newRow("file") << Mode::File << QVariant(2) << PausedElsewhere << "resumePlayback()";
}

void TestDeviceControl::documentIsSelected()
{
    QFETCH(StandInHost::Mode, mode);
    QFETCH(QVariant, key);
    QFETCH(QStringList, before);
    QFETCH(QString, after);
    Control control;
    control.host.addCamera();
    control.host.addCamera();
    control.host.setMode(mode);
    control.host.clearJournal();
    control.mediator->selectDoc(key);
    QCOMPARE(control.host.journal(),
             before +
                 QStringList({"deviceByKey(2, true)", "[2].isSelectable()", "beginUndoMacro(\"\")",
                              "setCurrentDoc(2, true)", "[2].setSelected(true)",
                              "[2].groupMembers()", "endUndoMacro()"}) +
                 QStringList(after));
    QCOMPARE(control.host.selection(), QList<DOCKEY>({1, 2}));
    QCOMPARE(control.host.currentKey(), DOCKEY(2));
    QVERIFY(control.host.documentsMutex()->tryLock());
    control.host.documentsMutex()->unlock();
}

void TestDeviceControl::documentThatCannotBeSelectedOpensNoMacro_data()
{
    QTest::addColumn<QVariant>("key");
    QTest::addColumn<QStringList>("asked");
    QTest::newRow("unknown") << QVariant(7) << QStringList("deviceByKey(7, true)");
    QTest::newRow("no number") << QVariant("x") << QStringList("deviceByKey(0, true)");
    QTest::newRow("not selectable")
        << QVariant(2) << QStringList({"deviceByKey(2, true)", "[2].isSelectable()"});
}

void TestDeviceControl::documentThatCannotBeSelectedOpensNoMacro()
{
    QFETCH(QVariant, key);
    QFETCH(QStringList, asked);
    Control control;
    control.host.addCamera();
    control.host.addCamera()->state().isSelectable = false;
    control.mediator->selectDoc(key);
    QCOMPARE(control.host.journal(), PausedInLiveMode + asked + QStringList("resumeLive()"));
    QCOMPARE(control.host.selection(), QList<DOCKEY>({1}));
}

void TestDeviceControl::groupIsSelectedWithIt()
{
    Control control;
    StandInCamera *first = control.host.addCamera();
    control.host.addCamera();
    StandInCamera *third = control.host.addCamera();
    StandInGroup *group = control.host.addGroup("pair", {third, first});
    control.host.select(1, false);
    control.host.clearJournal();
    control.mediator->selectDoc(3);
    const QStringList selected = {"[3].setSelected(true)", "[1].setSelected(true)"};
    QCOMPARE(control.host.commands(),
             QStringList({"prepareSelectAll()", "pauseLive(false)", "beginUndoMacro(\"\")",
                          "setCurrentDoc(3, true)"}) +
                 selected + QStringList({"endUndoMacro()", "resumeLive()"}));
    QCOMPARE(control.host.selection(), QList<DOCKEY>({3, 1}));
    QCOMPARE(control.host.currentKey(), DOCKEY(3));

    control.host.removeAllDocuments(0, true);
    control.host.clearJournal();
    control.mediator->selectDoc(QString::number(group->key()));
    QCOMPARE(control.host.selection(), QList<DOCKEY>({4, 1, 3}));
    QCOMPARE(control.host.currentKey(), DOCKEY(4));
}

void TestDeviceControl::membersThatCannotBeSelectedAreLeftOut()
{
    Control control;
    StandInCamera *first = control.host.addCamera();
    StandInCamera *second = control.host.addCamera();
    StandInCamera *third = control.host.addCamera();
    control.host.addGroup("all", {first, second, third});
    second->state().isSelectable = false;
    control.mediator->selectDoc(1);
    QCOMPARE(control.host.selection(), QList<DOCKEY>({1, 3}));
}

void TestDeviceControl::memberCostsAFixedNumberOfCalls_data()
{
    QTest::addColumn<int>("members");
    QTest::newRow("2") << 2;
    QTest::newRow("10") << 10;
    QTest::newRow("1000") << 1000;
}

// Each other member is looked for, asked and selected.
void TestDeviceControl::memberCostsAFixedNumberOfCalls()
{
    QFETCH(int, members);
    Control control;
    QList<StandInDocument *> cameras;
    for (int i = 0; i < members; ++i)
        cameras.append(control.host.addCamera());
    control.host.addGroup("all", cameras);
    control.host.clearJournal();
    control.mediator->selectDoc(1);
    QCOMPARE(control.host.journal().size(), 12 + 3 * (members - 1));
    QCOMPARE(control.host.selection().size(), members);
}

void TestDeviceControl::documentIsUnselected()
{
    Control control;
    control.host.addCamera();
    control.mediator->unselectDoc(1);
    QCOMPARE(control.host.journal(),
             PausedInLiveMode +
                 QStringList({"deviceByKey(1, true)", "beginUndoMacro(\"\")", "unselectDoc(1)",
                              "[1].groupMembers()", "endUndoMacro()", "resumeLive()"}));
    QCOMPARE(control.host.selection(), QList<DOCKEY>());
}

void TestDeviceControl::unknownKeyIsPassedOn()
{
    Control control;
    control.mediator->unselectDoc("18446744073709551615");
    QCOMPARE(control.host.journal(),
             PausedInLiveMode + QStringList({"deviceByKey(-1, true)", "beginUndoMacro(\"\")",
                                             "unselectDoc(-1)", "endUndoMacro()", "resumeLive()"}));
}

void TestDeviceControl::groupIsUnselectedWithIt()
{
    Control control;
    StandInCamera *first = control.host.addCamera();
    StandInCamera *second = control.host.addCamera();
    control.host.addGroup("pair", {first, second});
    control.host.select(2, true);
    control.host.clearJournal();
    control.mediator->unselectDoc(2);
    QCOMPARE(control.host.commands(),
             QStringList({"prepareSelectAll()", "pauseLive(false)", "beginUndoMacro(\"\")",
                          "unselectDoc(2)", "unselectDoc(1)", "endUndoMacro()", "resumeLive()"}));
    QCOMPARE(control.host.selection(), QList<DOCKEY>());
}

void TestDeviceControl::memberThatHasGoneIsLeftAlone()
{
    Control control;
    StandInCamera *first = control.host.addCamera();
    StandInCamera *second = control.host.addCamera();
    StandInCamera *third = control.host.addCamera();
    control.host.addGroup("all", {first, second, third});
    QObject::connect(control.host.events(), &StandInEvents::callJournalled, &control.tool,
                     [&](const QString &call) {
                         if (call == QLatin1String("[2].setSelected(true)"))
                             control.host.closeDocument(3);
                     });
    control.mediator->selectDoc(1); // a call on a closed document would be told
    QCOMPARE(control.host.selection(), QList<DOCKEY>({1, 2}));
}

void TestDeviceControl::failureEndsWhatWasBegun_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<bool>("macro");
    QTest::newRow("document") << "deviceByKey" << false;
    QTest::newRow("current") << "setCurrentDoc" << true;
    QTest::newRow("selected") << "setSelected" << true;
    QTest::newRow("group") << "groupMembers" << true;
}

void TestDeviceControl::failureEndsWhatWasBegun()
{
    QFETCH(QString, operation);
    QFETCH(bool, macro);
    Control control;
    control.host.addCamera();
    control.host.clearJournal();
    control.host.failOn(operation);
    control.mediator->selectDoc(1);
    checkEnd(control.host, operation, macro);
}

void TestDeviceControl::busyListIsNoReasonToWait()
{
    Control control;
    control.host.addCamera();
    control.host.addCamera();
    control.host.documentsMutex()->lock();
    control.mediator->selectDoc(2);
    control.host.documentsMutex()->unlock(); // it is still ours
    QCOMPARE(control.host.selection(), QList<DOCKEY>({1, 2}));
}

void TestDeviceControl::selectionIsTraced()
{
    Control control;
    LogCapture log;
    control.mediator->selectDoc("5");
    control.mediator->unselectDoc(6);
    QCOMPARE(log.texts(),
             QStringList({"[ENTER] \"JS_Mediator_DeviceControl::selectDoc\" \"[key:5]\"",
                          "[LEAVE] \"JS_Mediator_DeviceControl::selectDoc\"",
                          "[ENTER] \"JS_Mediator_DeviceControl::unselectDoc\" \"[key:6]\"",
                          "[LEAVE] \"JS_Mediator_DeviceControl::unselectDoc\""}));
}

void TestDeviceControl::allAreSelectedAndShown()
{
    Control control;
    control.host.addCamera();
    control.host.addCamera();
    control.host.clearJournal();
    control.mediator->viewAll();
    QCOMPARE(control.host.journal(),
             QStringList({"prepareSelectAll()", "selectAllDocs(JS_Mediator_DeviceControl)",
                          "showAllDocuments()"}));
    QCOMPARE(control.host.selection(), QList<DOCKEY>({1, 2}));
    control.host.clearJournal();
    control.host.failOn("selectAllDocs");
    control.mediator->viewAll();
    QCOMPARE(control.host.commands().filter("showAllDocuments"), QStringList());
    QCOMPARE(control.host.handledErrors(), QStringList("selectAllDocs failed"));
}

void TestDeviceControl::mediatorMayGoBeforeAllAreSelected()
{
    Control control;
    QObject::connect(control.host.events(), &StandInEvents::callJournalled, &control.tool,
                     [&] { control.mediator.reset(); });
    control.mediator->viewAll();
    QCOMPARE(control.host.journal(), QStringList({"prepareSelectAll()", "showAllDocuments()"}));
}

void TestDeviceControl::failedUnselectionEndsWhatWasBegun_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<bool>("macro");
    QTest::newRow("document") << "deviceByKey" << false;
    QTest::newRow("unselected") << "unselectDoc" << true;
    QTest::newRow("group") << "groupMembers" << true;
    QTest::newRow("member") << "documentKeyOf" << true;
}

void TestDeviceControl::failedUnselectionEndsWhatWasBegun()
{
    QFETCH(QString, operation);
    QFETCH(bool, macro);
    Control control;
    StandInCamera *first = control.host.addCamera();
    StandInCamera *second = control.host.addCamera();
    control.host.addGroup("pair", {first, second});
    control.host.clearJournal();
    control.host.failOn(operation);
    control.mediator->unselectDoc(1);
    checkEnd(control.host, operation, macro);
}

void TestDeviceControl::documentIsUnselectedInEachMode_data()
{
    QTest::addColumn<StandInHost::Mode>("mode");
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QString>("after");
    using Mode = StandInHost::Mode;
    QTest::newRow("live") << Mode::Live << PausedInLiveMode << "resumeLive()";
    QTest::newRow("memory") << Mode::Memory << PausedElsewhere << "resumePlayback()";
    QTest::newRow("file") << Mode::File << PausedElsewhere << "resumePlayback()";
}

void TestDeviceControl::documentIsUnselectedInEachMode()
{
    QFETCH(StandInHost::Mode, mode);
    QFETCH(QStringList, before);
    QFETCH(QString, after);
    Control control;
    control.host.addCamera();
    control.host.setMode(mode);
    control.host.clearJournal();
    control.mediator->unselectDoc(1);
    QCOMPARE(control.host.journal(),
             before + QStringList({"deviceByKey(1, true)", "beginUndoMacro(\"\")", "unselectDoc(1)",
                                   "[1].groupMembers()", "endUndoMacro()", after}));
    QCOMPARE(control.host.selection(), QList<DOCKEY>());
}

void TestDeviceControl::membersThatCannotBeSelectedAreUnselectedToo()
{
    Control control;
    StandInCamera *first = control.host.addCamera();
    StandInCamera *second = control.host.addCamera();
    StandInGroup *group = control.host.addGroup("pair", {first, second});
    second->state().isSelectable = false;
    control.host.select(2, true);
    control.mediator->unselectDoc(1);
    QCOMPARE(control.host.selection(), QList<DOCKEY>());
    for (DOCKEY key : {DOCKEY(1), DOCKEY(2), group->key()})
        control.host.select(key, true);
    control.mediator->unselectDoc(QString::number(group->key()));
    QCOMPARE(control.host.selection(), QList<DOCKEY>());
}

void TestDeviceControl::editorsWorkOnTheSelection_data()
{
    QTest::addColumn<Press>("press");
    using Mediator = JS_Mediator_DeviceControl;
    QTest::newRow("comments") << Press([](Mediator &m) { m.editComment(); });
    QTest::newRow("custom information") << Press([](Mediator &m) { m.editCustom(); });
}

void TestDeviceControl::editorsWorkOnTheSelection()
{
    QFETCH(Press, press);
    Control control;
    control.host.addCamera();
    control.host.clearJournal();
    press(*control.mediator);
    QVERIFY(control.host.journal().contains("selectedDocKeys(true)"));
    QCOMPARE(control.host.journal().filter("targetDocKeys"), QStringList());
    QCOMPARE(control.host.journal().filter("temporaryDocumentKeys"), QStringList());
}

void TestDeviceControl::callIsTracedFirst_data()
{
    QTest::addColumn<Press>("press");
    using Mediator = JS_Mediator_DeviceControl;
    QTest::newRow("selectDoc") << Press([](Mediator &m) { m.selectDoc(1); });
    QTest::newRow("unselectDoc") << Press([](Mediator &m) { m.unselectDoc(1); });
    QTest::newRow("setDisplayInfoShowing")
        << Press([](Mediator &m) { m.setDisplayInfoShowing(true); });
}

void TestDeviceControl::callIsTracedFirst()
{
    QFETCH(Press, press);
    Control control;
    control.host.addCamera();
    LogCapture log;
    QList<QStringList> before; // what stood in the log at each call of the host
    QObject context;
    QObject::connect(control.host.events(), &StandInEvents::callJournalled, &context,
                     [&] { before.append(log.texts()); });
    press(*control.mediator);
    QCOMPARE(before.value(0).size(), 1);
    QVERIFY(before.first().first().startsWith(
        QString("[ENTER] \"JS_Mediator_DeviceControl::%1\" \"[").arg(QTest::currentDataTag())));
}

int main(int argc, char *argv[])
{
    TestDeviceControl test;
    return runTest(argc, argv, test);
}

#include "test_device_control.moc"
