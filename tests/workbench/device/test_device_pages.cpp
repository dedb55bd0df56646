#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/DialogRun.h"
#include "bridge/page/GUI_WebView.h"
#include "device/control/JS_Mediator_DeviceControl.h"
#include "device/list/JS_Mediator_DeviceList.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/TestLog.h"

#include <QDialog>

#include <memory>

namespace {

const QString Longer =
    "Heads connected to the same device are also removed from the list. Is it OK?";

/// A host and a page with its mediator, which draws itself anew behind each change, as in a window.
template <class Mediator> struct Shown
{
    Shown(const QString &name, const QString &pageUrl, int cameras)
        : mediator(std::make_unique<Mediator>(&host, name)), url(pageUrl)
    {
        for (int i = 0; i < cameras; ++i)
            host.addCamera();
    }
    ~Shown()
    {
        page.reset();
        view.reset(); // before what it sees
    }

    bool open()
    {
        view = std::make_unique<GUI_WebView>(&host, nullptr);
        page = std::make_unique<PageProbe>(view.get());
        host.showMediator(view.get(), mediator.get());
        view->resize(300, 420);
        view->show();
        view->activateWindow();
        view->load(QUrl(url));
        if (!QTest::qWaitForWindowActive(view.get()) || !page->waitLoaded())
            return false;
        const auto update = [this] {
            Mediator *shown = mediator.get();
            PageSignal::send(shown, [shown] { emit shown->update(); });
        };
        const StandInEvents *events = host.events();
        const auto queued = Qt::QueuedConnection;
        Mediator *shown = mediator.get();
        QObject::connect(events, &StandInEvents::updated, shown, update, queued);
        QObject::connect(events, &StandInEvents::documentsChanged, shown, update, queued);
        QObject::connect(events, &StandInEvents::selectionChanged, shown, update, queued);
        QObject::connect(events, &StandInEvents::currentDocumentChanged, shown, update, queued);
        QObject::connect(events, &StandInEvents::displayInfoChanged, shown, update, queued);
        host.clearJournal();
        view->setFocus();
        const QString pictures = qEnvironmentVariable("ORVIX_TEST_PICTURES");
        if (!pictures.isEmpty())
            view->grab().save(pictures + '/' + QTest::currentTestFunction() + ".png");
        return true;
    }

    void clickWith(const QString &id, Qt::KeyboardModifiers modifiers)
    {
        const QString row = "document.getElementById('" + id + "')";
        page->evaluate(row + ".scrollIntoView()");
        const QString box = row + ".getBoundingClientRect()";
        const QPoint place(page->evaluate(box + ".left").toInt() + 12,
                           page->evaluate(box + ".top").toInt() + 8);
        QTest::mouseClick(view.get(), Qt::LeftButton, modifiers, place);
    }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(view.get(), Qt::Key(key), modifiers);
    }

    void focus(const QString &id)
    {
        page->evaluate("document.getElementById('" + id + "').focus()");
    }

    bool isEnabled(const QString &id)
    {
        return !page->evaluate("document.getElementById('" + id + "').disabled").toBool();
    }

    bool isShown(const QString &selector)
    {
        return page->evaluate("document.querySelector('" + selector + "').offsetHeight > 0")
            .toBool();
    }

    QString focused() { return page->evaluate("document.activeElement.id").toString(); }
    int rows() { return page->evaluate("Page.get('devices').children.length").toInt(); }

    QString selectedRows()
    {
        return page
            ->evaluate("Array.from(document.querySelectorAll('[aria-selected=true]'))"
                       ".map(function (row) { return row.dataset.key; }).join()")
            .toString();
    }

    QStringList messages() const
    {
        QStringList texts;
        for (const StandInHost::Message &message : host.messages())
            texts.append(message.text);
        return texts;
    }

    void addDevice(int heads)
    {
        StandInCamera::Description description;
        description.cameraNumber = 40;
        description.headCount = heads;
        for (description.headNumber = 1; description.headNumber <= heads; ++description.headNumber)
            host.addCamera(description);
    }

    StandInHost host;
    std::unique_ptr<Mediator> mediator;
    QString url;
    std::unique_ptr<GUI_WebView> view;
    std::unique_ptr<PageProbe> page;
};

struct List : Shown<JS_Mediator_DeviceList>
{
    explicit List(int cameras = 0)
        : Shown(QStringLiteral("devicepanel"), QStringLiteral("qrc:/devices.html"), cameras)
    {
    }
};

struct Control : Shown<JS_Mediator_DeviceControl>
{
    explicit Control(int cameras = 0)
        : Shown(QStringLiteral("devicecontrol"), QStringLiteral("qrc:/devicecontrol.html"), cameras)
    {
    }
};

}

// The pages that list the devices and work on the selection, as a user works them.
class TestDevicePages : public TestBase
{
    Q_OBJECT

private slots:
    void cleanup();
    void listSelectsSeveralByTheMouse();
    void listSelectsSeveralByKeys();
    void listShowsWhatCouldNotBeSelected();
    void listSelectsNone();
    void listMarksSeveralHeads();
    void listAdds();
    void listRemovesWhatIsSelected();
    void listKeepsWhatTheUserKeeps();
    void listRemovesAHeadWithTheOthers();
    void listRemovesByTheKeyDelete();
    void listRemovesAllWhenToldTwice_data();
    void listRemovesAllWhenToldTwice();
    void listUsesItsButtonsWhereTheyDoSomething();
    void controlSelectsOneAsOneStep();
    void controlSelectsSeveralAsOneStep();
    void controlSelectsAGroup();
    void controlTakesAMemberOut();
    void controlLeavesNoStepOpen();
    void controlSwitchesTheInformation();
    void controlOpensTheEditors_data();
    void controlOpensTheEditors();
    void controlTellsOfTheCurrentCamera();
    void controlSelectsAll();
    void controlWithoutACameraSaysSo();
    void listMarksHeadsThatACameraTurnsOutToHave();
};

void TestDevicePages::cleanup()
{
    DialogRun::setAnswer(DialogRun::Answer());
    TestBase::cleanup();
}

void TestDevicePages::listSelectsSeveralByTheMouse()
{
    List shown(4);
    QVERIFY(shown.open());
    shown.clickWith("device-2", Qt::NoModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({2}));
    shown.clickWith("device-4", Qt::ControlModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({2, 4}));
    QCOMPARE(shown.host.currentKey(), DOCKEY(4));
    QTRY_COMPARE(shown.selectedRows(), QString("2,4"));
    shown.clickWith("device-2", Qt::ControlModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({4}));
    shown.clickWith("device-1", Qt::NoModifier);
    shown.clickWith("device-3", Qt::ShiftModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({1, 2, 3}));
    QCOMPARE(shown.host.currentKey(), DOCKEY(3));
    QTRY_COMPARE(shown.selectedRows(), QString("1,2,3"));
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

void TestDevicePages::listSelectsSeveralByKeys()
{
    List shown(4);
    QVERIFY(shown.open());
    shown.focus("device-1");
    shown.press(Qt::Key_Down);
    shown.press(Qt::Key_Space);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({2}));
    shown.press(Qt::Key_Down, Qt::ShiftModifier);
    shown.press(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({2, 3, 4}));
    shown.press(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({2, 3}));
    shown.press(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({2}));
    shown.press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(shown.host.selection().size(), 4);
    QCOMPARE(shown.focused(), QString("device-3"));
}

void TestDevicePages::listShowsWhatCouldNotBeSelected()
{
    List shown(2);
    shown.host.camera(2)->state().isSelectable = false;
    QVERIFY(shown.open());
    shown.clickWith("device-2", Qt::ControlModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({1}));
    QCOMPARE(shown.selectedRows(), QString("1"));
}

void TestDevicePages::listSelectsNone()
{
    List shown(2);
    QVERIFY(shown.open());
    shown.page->click("selectNone");
    QCOMPARE(shown.host.selection(), QList<DOCKEY>());
    QCOMPARE(shown.host.documents().size(), 2);
    QTRY_VERIFY(!shown.isEnabled("selectNone"));
    QVERIFY(!shown.isEnabled("remove"));
}

void TestDevicePages::listMarksSeveralHeads()
{
    List shown(1);
    shown.addDevice(2);
    QVERIFY(shown.open());
    QVERIFY(!shown.isShown("#device-1 .isMultiHead"));
    QVERIFY(shown.isShown("#device-3 .isMultiHead"));
    QVERIFY(shown.page->evaluate("document.querySelector('#device-3 .about').textContent")
                .toString()
                .endsWith("head 2"));
}

void TestDevicePages::listAdds()
{
    List shown(1);
    QVERIFY(shown.open());
    QStringList run;
    DialogRun::setAnswer([&](QDialog &dialog) {
        run.append(dialog.metaObject()->className());
        shown.host.addCamera();
        return int(QDialog::Accepted);
    });
    shown.page->click("add");
    QCOMPARE(run, QStringList("GUI_AddDeviceDialog"));
    QTRY_COMPARE(shown.rows(), 2);
}

void TestDevicePages::listRemovesWhatIsSelected()
{
    List shown(3);
    QVERIFY(shown.open());
    shown.host.answerConfirm(true);
    shown.clickWith("device-3", Qt::ControlModifier);
    shown.page->click("remove");
    QCOMPARE(shown.host.documentKeys(true, false), QList<DOCKEY>({2}));
    QCOMPARE(shown.messages(), QStringList({"Do you want to delete?", "Do you want to delete?"}));
    QTRY_COMPARE(shown.rows(), 1);
}

void TestDevicePages::listKeepsWhatTheUserKeeps()
{
    List shown(2);
    QVERIFY(shown.open());
    shown.host.answerConfirm(false);
    shown.page->click("remove");
    QCOMPARE(shown.messages(), QStringList("Do you want to delete?"));
    QCOMPARE(shown.host.documents().size(), 2);
}

void TestDevicePages::listRemovesAHeadWithTheOthers()
{
    List shown(1);
    shown.addDevice(2);
    QVERIFY(shown.open());
    shown.host.answerConfirm(true);
    shown.clickWith("device-2", Qt::NoModifier);
    shown.clickWith("device-3", Qt::ControlModifier);
    shown.page->click("remove");
    QCOMPARE(shown.messages(), QStringList(Longer)); // the second head had gone by then
    QCOMPARE(shown.host.documentKeys(true, false), QList<DOCKEY>({1}));
}

void TestDevicePages::listRemovesByTheKeyDelete()
{
    List shown(2);
    QVERIFY(shown.open());
    shown.host.answerConfirm(true);
    shown.focus("device-2");
    shown.press(Qt::Key_Delete);
    QCOMPARE(shown.host.documentKeys(true, false), QList<DOCKEY>({1}));
    QTRY_COMPARE(shown.focused(), QString("device-1"));
}

void TestDevicePages::listRemovesAllWhenToldTwice_data()
{
    QTest::addColumn<bool>("yes");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void TestDevicePages::listRemovesAllWhenToldTwice()
{
    QFETCH(bool, yes);
    List shown(2);
    QVERIFY(shown.open());
    shown.host.answerConfirm(yes);
    shown.page->click("removeAll");
    QCOMPARE(shown.messages(),
             QStringList("Do you want to remove all cameras and recordings from the list?"));
    QCOMPARE(shown.host.documents().size(), yes ? 0 : 2);
}

void TestDevicePages::listUsesItsButtonsWhereTheyDoSomething()
{
    List shown;
    QVERIFY(shown.open());
    for (const char *id : {"selectAll", "selectNone", "remove", "removeAll"})
        QVERIFY2(!shown.isEnabled(id), id);
    QVERIFY(shown.isEnabled("add"));
    shown.host.addCamera();
    for (const char *id : {"selectAll", "selectNone", "remove", "removeAll"})
        QTRY_VERIFY2(shown.isEnabled(id), id);
}

void TestDevicePages::controlSelectsOneAsOneStep()
{
    Control shown(3);
    QVERIFY(shown.open());
    shown.host.select(2, true);
    QTRY_COMPARE(shown.selectedRows(), QString("1,2"));
    QVERIFY(!shown.isEnabled("undo"));
    shown.clickWith("control-3", Qt::NoModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({3}));
    QCOMPARE(shown.host.currentKey(), DOCKEY(3));
    QCOMPARE(shown.host.openMacros(), 0);
    QTRY_VERIFY(shown.isEnabled("undo"));
    shown.page->click("undo");
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({1, 2}));
    QCOMPARE(shown.host.currentKey(), DOCKEY(1));
    QTRY_COMPARE(shown.selectedRows(), QString("1,2"));
    QVERIFY(!shown.isEnabled("undo"));
    shown.page->click("redo");
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({3}));
}

void TestDevicePages::controlSelectsSeveralAsOneStep()
{
    Control shown(4);
    QVERIFY(shown.open());
    shown.focus("control-1");
    shown.press(Qt::Key_Space);
    shown.press(Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({1, 2, 3, 4}));
    QCOMPARE(shown.host.currentKey(), DOCKEY(4));
    shown.host.undo();
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({1}));
}

void TestDevicePages::controlSelectsAGroup()
{
    Control shown(3);
    shown.host.addGroup("pair", {shown.host.camera(2), shown.host.camera(3)});
    QVERIFY(shown.open());
    shown.clickWith("control-2", Qt::NoModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({2, 3}));
    QCOMPARE(shown.host.currentKey(), DOCKEY(2));
    QTRY_COMPARE(shown.selectedRows(), QString("2,3"));
    shown.page->click("undo");
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({1}));
    QTRY_COMPARE(shown.selectedRows(), QString("1"));
    shown.page->click("redo");
    QTRY_COMPARE(shown.selectedRows(), QString("2,3"));
    shown.clickWith("control-3", Qt::NoModifier); // the others of its group stay with it
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({3, 2}));
    QCOMPARE(shown.host.currentKey(), DOCKEY(3));
}

void TestDevicePages::controlTakesAMemberOut()
{
    Control shown(3);
    shown.host.addGroup("pair", {shown.host.camera(2), shown.host.camera(3)});
    QVERIFY(shown.open());
    shown.clickWith("control-3", Qt::ControlModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({1, 3, 2}));
    shown.clickWith("control-2", Qt::ControlModifier);
    QCOMPARE(shown.host.selection(), QList<DOCKEY>({1})); // the group goes together
}

void TestDevicePages::controlLeavesNoStepOpen()
{
    Control shown(2);
    QVERIFY(shown.open());
    bool loaded = false;
    connect(shown.view.get(), &QWebView::loadFinished, this, [&] { loaded = true; });
    shown.page->evaluate("Page.bridge.beginMacro()");
    QCOMPARE(shown.host.openMacros(), 1);
    shown.view->reload();
    QTRY_VERIFY(loaded);
    QCOMPARE(shown.host.openMacros(), 0);
    shown.page->evaluate("Page.bridge.beginMacro()");
    QCOMPARE(shown.host.openMacros(), 1);
    shown.page.reset();
    shown.view.reset();
    shown.mediator.reset();
    QCOMPARE(shown.host.openMacros(), 0);
}

void TestDevicePages::controlOpensTheEditors_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("dialog");
    QTest::newRow("information") << "editInfo"
                                 << "GUI_EditInfoDialog";
    QTest::newRow("comments") << "editComment"
                              << "GUI_CommentDialog";
    QTest::newRow("custom information") << "editCustom"
                                        << "GUI_CustomInfoDialog";
}

void TestDevicePages::controlOpensTheEditors()
{
    QFETCH(QString, button);
    Control shown(1);
    QVERIFY(shown.open());
    QStringList run;
    DialogRun::setAnswer([&](QDialog &dialog) {
        run.append(dialog.metaObject()->className());
        return int(QDialog::Rejected);
    });
    shown.page->click(button);
    QCOMPARE(run.size(), 1);
    QTEST(run.first(), "dialog");
}

void TestDevicePages::controlTellsOfTheCurrentCamera()
{
    Control shown;
    StandInCamera::Description left;
    left.name = "<b>Left</b>";
    shown.host.addCamera(left);
    StandInCamera::Description dummy;
    dummy.name = "Dummy";
    dummy.isDummy = true;
    shown.host.addCamera(dummy);
    QVERIFY(shown.open());
    QCOMPARE(shown.page->text("current"), QString("<b>Left</b>"));
    QVERIFY(!shown.isShown("#dummy"));
    shown.host.makeCurrent(2);
    QTRY_COMPARE(shown.page->text("current"), QString("Dummy"));
    QVERIFY(shown.isShown("#dummy"));
}

void TestDevicePages::controlSelectsAll()
{
    Control shown(3);
    QVERIFY(shown.open());
    shown.page->click("viewAll");
    QCOMPARE(shown.host.selection().size(), 3);
    QTRY_COMPARE(shown.selectedRows(), QString("1,2,3"));
}

void TestDevicePages::controlWithoutACameraSaysSo()
{
    Control shown;
    QVERIFY(shown.open());
    QCOMPARE(shown.page->text("state"), QString("There is no camera to select."));
    QCOMPARE(shown.page->text("current"), QString("No current document"));
    for (const char *id : {"undo", "redo", "viewAll", "editInfo", "editComment", "editCustom"})
        QVERIFY2(!shown.isEnabled(id), id);
    QVERIFY(shown.isEnabled("showInfo"));
}

void TestDevicePages::controlSwitchesTheInformation()
{
    Control shown(1);
    QVERIFY(shown.open());
    const auto isChecked = [&] { return shown.page->evaluate("Page.get('showInfo').checked"); };
    QVERIFY(!isChecked().toBool());
    shown.page->click("showInfo");
    QVERIFY(shown.host.isInfoShowing());
    shown.host.showDisplayInfo(false);
    QTRY_VERIFY(!isChecked().toBool());
}

void TestDevicePages::listMarksHeadsThatACameraTurnsOutToHave()
{
    List shown;
    shown.host.addDevice("Front", "192.168.0.20", false); // nobody answers there yet
    QVERIFY(shown.open());
    QVERIFY(!shown.isShown("#device-1 .isMultiHead"));
    NetworkDevice device;
    device.serialNumber = "1";
    device.hardwareAddress = "02:00:5E:00:00:01";
    device.heads = 2;
    device.setting = {"192.168.0.20", "255.255.255.0", ""};
    shown.host.network().addDevice(device);
    QTRY_COMPARE(shown.rows(), 2);
    QVERIFY(shown.isShown("#device-2 .isMultiHead"));
    QVERIFY(shown.isShown("#device-1 .isMultiHead"));
}

int main(int argc, char **argv)
{
    TestDevicePages test;
    return runTest(argc, argv, test);
}

#include "test_device_pages.moc"
