#include "bridge/operation/FileChoice.h"
#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "record/info/GUI_CustomInfoDialog.h"
#include "record/info/JS_Mediator_CustomInfoDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/pages/Pages.h"
#include "workbench/tour/PageHand.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

using namespace PageHand;

// The page that edits custom information, by real clicks and keys. Effects are read from the
// documents.

class TestCustomInfoPage : public TestBase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void fitsItsWindow_data();
    void fitsItsWindow();
    void beginsWithTheCurrentDocument();
    void tellsWhichFlagTheTicksAre_data();
    void tellsWhichFlagTheTicksAre();
    void selectsByTheMouse();
    void selectsByKeys();
    void ordersTheItemsByTheCurrentDocument();
    void showsWhatDiffersAsMixed();
    void leavesWhatNobodyWrote_data();
    void leavesWhatNobodyWrote();
    void writesAMixedValueToAll();
    void writesAnEmptyTextWhereOneWasErased();
    void editsByKeysFromCellToCell();
    void givesUpByEscape();
    void takesWhatWasWrittenWhenTheFocusGoes();
    void renamesWhereTheItemIs();
    void refusesNames_data();
    void refusesNames();
    void staysOpenWhileANameIsRefused();
    void ticksAllThatHaveTheItem();
    void ticksByKeys();
    void ticksAllThatAreShown();
    void addsToAllSelected();
    void refusesNewNames_data();
    void refusesNewNames();
    void addsWhatStandsThereOnOk();
    void deletesFromThoseThatHaveIt();
    void deletesWhatWasRenamedJustNow();
    void searches();
    void keepsRowsInPlaceWhileASearchHolds_data();
    void keepsRowsInPlaceWhileASearchHolds();
    void staysAtTheOnlyMatchByKeys_data();
    void staysAtTheOnlyMatchByKeys();
    void keepsRowsInPlaceWhereAnItemIsAdded();
    void asksBeforeItemsAreReplaced();
    void asksBeforeItemsOfOneAreReplaced();
    void loadsIntoEmptyDocumentsAtOnce();
    void savesTheCurrentDocument();
    void okKeepsTheEdits();
    void cancelBringsAllBack();
    void frameBringsAllBackFromAnOpenEditor();
    void textsAreNoMarkup();
    void textsStayAsTheyAre();
    void writesLines();
    void followsDocumentsThatGo();
    void leavesAnEditorWhoseDocumentHasGone_data();
    void leavesAnEditorWhoseDocumentHasGone();
    void keepsAnEditorThroughARefresh();
    void takesAnEditorAlongWithItsItem();
    void keepsAnEditorInViewThatMoves();
    void takesARefusedNameAlongWithItsItem();
    void keepsAnEditorWhateverTheSearchSays();
    void leavesTheFocusBesideAnEditorThatMoves();
    void givesUpAnEditorWhoseItemHasGone();
    void tellsWhatIsEmpty_data();
    void tellsWhatIsEmpty();
    void tellsAFailure();
    void tellsItemsThatCouldNotBeRead_data();
    void tellsItemsThatCouldNotBeRead();
    void writesNothingWhileItemsAreNotRead();
    void showsWhatTheDocumentsHoldBehindAFailure();
    void tellsTheUserLog();
    void keepsManyItemsAtHand();
};

namespace {

QVariantMap stored(const QString &name, const QString &value, const QString &unit,
                   const QString &display, const QString &useFileName)
{
    return {{"name", name},
            {"value", value},
            {"unit", unit},
            {"display", display},
            {"usefilename", useFileName}};
}

/// Three cameras, of which the second is current: a speed that differs and whose display is off in
/// the third, a number that all share, a distance that the second has not, and an angle of the
/// third alone.
struct Cameras
{
    Cameras()
    {
        host.state().mainWidget = &mainWidget;
        for (int i = 1; i <= 3; ++i) {
            StandInCamera *camera = host.addCamera();
            camera->state().documentName = QStringLiteral("Camera %1").arg(i);
            host.select(camera->key(), true);
        }
        list(1) = {stored("Speed", "1", "m/s", "on", "on"), stored("TestNo", "10", "", "", "on"),
                   stored("Distance", "100", "mm", "on", "on")};
        list(2) = {stored("TestNo", "10", "", "", "on"), stored("Speed", "2", "km/h", "on", "")};
        list(3) = {stored("Speed", "3", "m/s", "", "on"), stored("TestNo", "10", "", "", "on"),
                   stored("Distance", "100", "mm", "on", "on"),
                   stored("Angle", "30", "deg", "on", "on")};
        host.makeCurrent(2);
    }

    QVariantList &list(int number) { return host.camera(DOCKEY(number))->state().customInfo; }

    /// "name=value unit D F", with the letters of the flags that are on, one behind the other.
    QString records(int number)
    {
        QStringList texts;
        for (const QVariant &each : qAsConst(list(number))) {
            const QVariantMap record = each.toMap();
            texts.append(record["name"].toString() + "=" + record["value"].toString() +
                         record["unit"].toString() + (record["display"] == "on" ? " D" : "") +
                         (record["usefilename"] == "on" ? " F" : ""));
        }
        return texts.join(", ");
    }

    QWidget mainWidget;
    StandInHost host;
};

struct Shown : Cameras
{
    Shown() = default;
    ~Shown() { delete dialog; }

    /// Opens the dialog on the cameras as they are now.
    bool open()
    {
        dialog = new GUI_CustomInfoDialog(&host, nullptr, false);
        dialog->show();
        dialog->activateWindow();
        view()->setFocus();
        const bool drawn = QTest::qWaitForWindowActive(dialog) && QTest::qWaitFor([this] {
                               return read(view(), "document.readyState === 'complete' && "
                                                   "document.body.classList.contains('light')")
                                   .toBool();
                           });
        host.clearJournal();
        return drawn;
    }

    GUI_WebView *view() const { return dialog->webView(); }

    /// Ctrl+A in the list of documents.
    bool selectAll()
    {
        return click(view(), "#document1") && press(view(), Qt::Key_A, Qt::ControlModifier);
    }

    bool clickWith(const QString &selector, Qt::KeyboardModifiers modifiers)
    {
        const QVariantList at = read(view(), "var box = document.querySelector('" + selector +
                                                 "').getBoundingClientRect();"
                                                 "[box.left + box.width / 2,"
                                                 " box.top + box.height / 2]")
                                    .toList();
        QTest::mouseClick(view(), Qt::LeftButton, modifiers,
                          QPoint(at.value(0).toInt(), at.value(1).toInt()));
        QTest::qWait(30);
        return !at.isEmpty();
    }

    /// Writes into a cell, in place of what is there, and takes it.
    bool write(const QString &cell, const QString &text)
    {
        return click(view(), cell) && type(view(), text) && press(view(), Qt::Key_Return);
    }

    /// The selected rows, "1 3".
    QString selection() const
    {
        return read(view(), "Array.from(document.querySelectorAll('.document[aria-selected=true]'))"
                            ".map(function (row) { return row.dataset.key; }).join(' ')")
            .toString();
    }

    /// The rows that are shown, "[x] name|value|unit" each: x ticked, - mixed. What is mixed or
    /// partial stands in parentheses.
    QStringList items() const
    {
        return read(
                   view(),
                   "Array.from(document.querySelectorAll('#items .item')).sort(function (a, b) {"
                   "    return a.dataset.place - b.dataset.place;"
                   "})"
                   ".map(function (row) {"
                   "    var box = row.querySelector('input');"
                   "    var texts = ['name', 'value', 'unit'].map(function (column) {"
                   "        var cell = row.querySelector('.' + column);"
                   "        var isPartial = column === 'name' && row.classList.contains('partial');"
                   "        return isPartial || cell.classList.contains('mixed') ?"
                   "            '(' + cell.textContent + ')' : cell.textContent;"
                   "    });"
                   "    return '[' + (box.indeterminate ? '-' : box.checked ? 'x' : ' ') + '] ' +"
                   "        texts.join('|');"
                   "})")
            .toStringList();
    }

    QString focused() const { return read(view(), "document.activeElement.id").toString(); }

    QPointer<GUI_CustomInfoDialog> dialog;
};

const QString Refresh = QStringLiteral("refreshDocumentInfo(true)");

}

void TestCustomInfoPage::initTestCase()
{
    Pages::registerResources();
}

void TestCustomInfoPage::cleanup()
{
    FileChoice::setAnswer(FileChoice::Answer());
    TestBase::cleanup();
}

void TestCustomInfoPage::fitsItsWindow_data()
{
    QTest::addColumn<QString>("style");
    QTest::newRow("light") << "light";
    QTest::newRow("dark") << "dark";
}

void TestCustomInfoPage::fitsItsWindow()
{
    QFETCH(QString, style);
    Shown shown;
    QVERIFY(shown.open());
    shown.host.settings().setValue(Keys::application.style, style);
    emit shown.dialog->mediator()->update();
    QVERIFY(read(shown.view(), "document.body.classList.contains('" + style + "')").toBool());
    QVERIFY(shown.selectAll());
    QCOMPARE(cutTexts(shown.view()), QStringList());
    QVERIFY(read(shown.view(), "document.documentElement.scrollHeight <= innerHeight").toBool());
    QVERIFY(read(shown.view(), "document.getElementById('items').clientHeight >= 130").toBool());
    for (int type : {17, 5}) {
        shown.dialog->setCallbackType(type);
        emit shown.dialog->mediator()->update();
        QVERIFY(read(shown.view(), "var flag = document.getElementById('flag');"
                                   "flag.getBoundingClientRect().right <="
                                   "    flag.parentNode.getBoundingClientRect().right - 4")
                    .toBool());
    }
}

void TestCustomInfoPage::beginsWithTheCurrentDocument()
{
    Shown shown;
    QVERIFY(shown.open());
    QCOMPARE(count(shown.view(), ".document"), 3);
    QCOMPARE(text(shown.view(), "#document3"), QString("Camera 3"));
    QCOMPARE(shown.selection(), QString("2"));
    QCOMPARE(shown.items(), QStringList({"[ ] TestNo|10|", "[x] Speed|2|km/h"}));
}

void TestCustomInfoPage::tellsWhichFlagTheTicksAre_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QStringList>("items");
    QTest::newRow("display") << 17 << "Display"
                             << QStringList({"[ ] TestNo|10|", "[x] Speed|2|km/h"});
    QTest::newRow("file names") << 5 << "File name"
                                << QStringList({"[x] TestNo|10|", "[ ] Speed|2|km/h"});
}

void TestCustomInfoPage::tellsWhichFlagTheTicksAre()
{
    QFETCH(int, type);
    Shown shown;
    QVERIFY(shown.open());
    shown.dialog->setCallbackType(type);
    emit shown.dialog->mediator()->update();
    QTEST(text(shown.view(), "#flag"), "label");
    QTEST(shown.items(), "items");
}

void TestCustomInfoPage::selectsByTheMouse()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#document1"));
    QCOMPARE(shown.selection(), QString("1"));
    QVERIFY(shown.clickWith("#document3", Qt::ControlModifier));
    QCOMPARE(shown.selection(), QString("1 3"));
    QVERIFY(shown.clickWith("#document1", Qt::ControlModifier));
    QCOMPARE(shown.selection(), QString("3"));
    QVERIFY(click(shown.view(), "#document3"));
    QVERIFY(shown.clickWith("#document1", Qt::ShiftModifier));
    QCOMPARE(shown.selection(), QString("1 2 3"));
    QVERIFY(shown.clickWith("#document2", Qt::ShiftModifier));
    QCOMPARE(shown.selection(), QString("2 3"));
    QVERIFY(text(shown.view(), "#about").startsWith("2 documents."));
    QVERIFY(shown.clickWith("#document2", Qt::ControlModifier));
    QVERIFY(shown.clickWith("#document3", Qt::ControlModifier));
    QCOMPARE(shown.selection(), QString());
    QVERIFY(text(shown.view(), "#state").startsWith("Select the documents"));
    QVERIFY(!isEnabled(shown.view(), "#add"));
}

void TestCustomInfoPage::selectsByKeys()
{
    Shown shown;
    QVERIFY(shown.open());
    GUI_WebView *view = shown.view();
    QVERIFY(click(view, "#document1"));
    QVERIFY(press(view, Qt::Key_Down));
    QCOMPARE(shown.selection(), QString("2"));
    QVERIFY(press(view, Qt::Key_Down, Qt::ShiftModifier));
    QCOMPARE(shown.selection(), QString("2 3"));
    QVERIFY(press(view, Qt::Key_Up, Qt::ControlModifier));
    QVERIFY(press(view, Qt::Key_Up, Qt::ControlModifier));
    QCOMPARE(shown.selection(), QString("2 3"));
    QCOMPARE(shown.focused(), QString("document1"));
    QVERIFY(press(view, Qt::Key_Space));
    QCOMPARE(shown.selection(), QString("1 2 3"));
    QVERIFY(press(view, Qt::Key_Space));
    QCOMPARE(shown.selection(), QString("2 3"));
    QVERIFY(press(view, Qt::Key_Return));
    QCOMPARE(shown.selection(), QString("1"));
    QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
    QCOMPARE(shown.selection(), QString("1 2 3"));
}

// The last row that came is current; its order comes first.
void TestCustomInfoPage::ordersTheItemsByTheCurrentDocument()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(shown.clickWith("#document3", Qt::ControlModifier));
    QCOMPARE(text(shown.view(), ".document[aria-current=true]"), QString("Camera 3"));
    QCOMPARE(shown.items(),
             QStringList({"[-] Speed|(mixed)|(mixed)", "[ ] TestNo|10|",
                          "[x] (Distance)|(mixed)|(mixed)", "[x] (Angle)|(mixed)|(mixed)"}));
    QVERIFY(shown.clickWith("#document3", Qt::ControlModifier));
    QCOMPARE(text(shown.view(), ".document[aria-current=true]"), QString("Camera 2"));
    QCOMPARE(shown.items(), QStringList({"[ ] TestNo|10|", "[x] Speed|2|km/h"}));
}

void TestCustomInfoPage::showsWhatDiffersAsMixed()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#document1"));
    QVERIFY(shown.clickWith("#document3", Qt::ControlModifier));
    QCOMPARE(shown.items(), QStringList({"[-] Speed|(mixed)|m/s", "[ ] TestNo|10|",
                                         "[x] Distance|100|mm", "[x] (Angle)|(mixed)|(mixed)"}));
    QCOMPARE(shown.host.commands(), QStringList());
}

void TestCustomInfoPage::leavesWhatNobodyWrote_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<int>("key");
    for (int key : {int(Qt::Key_Return), int(Qt::Key_Tab), int(Qt::Key_Escape)}) {
        QTest::addRow("mixed value, %x", key) << "#valueCell0" << key;
        QTest::addRow("mixed unit, %x", key) << "#unitCell0" << key;
        QTest::addRow("common value, %x", key) << "#valueCell1" << key;
        QTest::addRow("name, %x", key) << "#nameCell1" << key;
    }
}

void TestCustomInfoPage::leavesWhatNobodyWrote()
{
    QFETCH(QString, cell);
    QFETCH(int, key);
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(shown.selectAll());
    const QStringList items = shown.items();
    QVERIFY(click(shown.view(), cell));
    QVERIFY(isShown(shown.view(), "#editor"));
    QVERIFY(press(shown.view(), key));
    QVERIFY(click(shown.view(), "#search"));
    QVERIFY(!isShown(shown.view(), "#editor"));
    QCOMPARE(shown.items(), items);
    QCOMPARE(shown.host.commands(), QStringList());
}

// The unit of each stays its own; a document without the item gets one.
void TestCustomInfoPage::writesAMixedValueToAll()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(shown.selectAll());
    QCOMPARE(shown.items().at(0), QString("[-] Speed|(mixed)|(mixed)"));
    QVERIFY(shown.write("#valueCell0", "7.5"));
    QCOMPARE(shown.items().at(0), QString("[-] Speed|7.5|(mixed)"));
    QCOMPARE(shown.items().at(2), QString("[x] (Distance)|(mixed)|(mixed)"));
    QVERIFY(shown.write("#valueCell2", "80"));
    QCOMPARE(shown.items().at(2), QString("[x] Distance|80|mm"));
    QCOMPARE(shown.records(1), QString("Speed=7.5m/s D F, TestNo=10 F, Distance=80mm D F"));
    QCOMPARE(shown.records(2), QString("TestNo=10 F, Speed=7.5km/h D, Distance=80mm D F"));
    QCOMPARE(shown.records(3),
             QString("Speed=7.5m/s F, TestNo=10 F, Distance=80mm D F, Angle=30deg D F"));
}

void TestCustomInfoPage::writesAnEmptyTextWhereOneWasErased()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(shown.selectAll());
    QVERIFY(click(shown.view(), "#valueCell0"));
    QVERIFY(type(shown.view(), "x"));
    QVERIFY(press(shown.view(), Qt::Key_Backspace));
    QVERIFY(press(shown.view(), Qt::Key_Return));
    QCOMPARE(shown.items().at(0), QString("[-] Speed||(mixed)"));
    QCOMPARE(shown.records(2), QString("TestNo=10 F, Speed=km/h D"));
}

void TestCustomInfoPage::editsByKeysFromCellToCell()
{
    Shown shown;
    QVERIFY(shown.open());
    GUI_WebView *view = shown.view();
    QVERIFY(click(view, "#search"));
    QVERIFY(press(view, Qt::Key_Down));
    QCOMPARE(shown.focused(), QString("nameCell0"));
    QVERIFY(press(view, Qt::Key_Right));
    QVERIFY(press(view, Qt::Key_Down));
    QCOMPARE(shown.focused(), QString("valueCell1"));
    QVERIFY(press(view, Qt::Key_Up));
    QVERIFY(press(view, Qt::Key_F2));
    QVERIFY(type(view, "11"));
    QVERIFY(press(view, Qt::Key_Tab));
    QVERIFY(type(view, "pcs"));
    QVERIFY(press(view, Qt::Key_Tab));
    QVERIFY(type(view, "Pace"));
    QVERIFY(press(view, Qt::Key_Return));
    QCOMPARE(shown.focused(), QString("nameCell1"));
    QCOMPARE(shown.records(2), QString("TestNo=11pcs F, Pace=2km/h D"));
    QVERIFY(press(view, Qt::Key_Return));
    QVERIFY(press(view, Qt::Key_Tab, Qt::ShiftModifier));
    QVERIFY(type(view, "m"));
    QVERIFY(press(view, Qt::Key_Return));
    QCOMPARE(shown.records(2), QString("TestNo=11m F, Pace=2km/h D"));
    QVERIFY(press(view, Qt::Key_End));
    QCOMPARE(shown.focused(), QString("unitCell1"));
    QVERIFY(press(view, Qt::Key_Return));
    QVERIFY(press(view, Qt::Key_Tab));
    QCOMPARE(shown.focused(), QString("newName"));
}

void TestCustomInfoPage::givesUpByEscape()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#valueCell0"));
    QVERIFY(type(shown.view(), "lost"));
    QVERIFY(press(shown.view(), Qt::Key_Escape));
    QCOMPARE(shown.items().at(0), QString("[ ] TestNo|10|"));
    QCOMPARE(shown.focused(), QString("valueCell0"));
    QVERIFY(press(shown.view(), Qt::Key_Escape));
    QVERIFY(shown.dialog->isVisible());
    QCOMPARE(shown.host.commands(), QStringList());
}

void TestCustomInfoPage::takesWhatWasWrittenWhenTheFocusGoes()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#valueCell0"));
    QVERIFY(type(shown.view(), "12"));
    QVERIFY(click(shown.view(), "#unitCell1"));
    QCOMPARE(shown.records(2), QString("TestNo=12 F, Speed=2km/h D"));
    QVERIFY(type(shown.view(), "kn"));
    QVERIFY(click(shown.view(), "#document1"));
    QCOMPARE(shown.records(2), QString("TestNo=12 F, Speed=2kn D"));
    QCOMPARE(shown.selection(), QString("1"));
}

void TestCustomInfoPage::renamesWhereTheItemIs()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(shown.selectAll());
    QVERIFY(shown.write("#nameCell2", "Way"));
    QCOMPARE(shown.records(1), QString("Speed=1m/s D F, TestNo=10 F, Way=100mm D F"));
    QCOMPARE(shown.records(2), QString("TestNo=10 F, Speed=2km/h D"));
    QCOMPARE(shown.host.commands(),
             QStringList({"[1].renameCustomInfo(\"Distance\", \"Way\")",
                          "[1].setCustomInfo(\"Way\", \"100\", \"mm\", true, true)",
                          "[3].renameCustomInfo(\"Distance\", \"Way\")",
                          "[3].setCustomInfo(\"Way\", \"100\", \"mm\", true, true)", Refresh}));
}

void TestCustomInfoPage::refusesNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << ""
                           << "An item needs a name.";
    QTest::newRow("blanks") << "  "
                            << "An item needs a name.";
    QTest::newRow("double") << "TestNo"
                            << "There is an item of this name already.";
    QTest::newRow("double in another document") << "Angle"
                                                << "There is an item of this name already.";
}

void TestCustomInfoPage::refusesNames()
{
    QFETCH(QString, name);
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(shown.selectAll());
    QVERIFY(click(shown.view(), "#nameCell0"));
    QVERIFY(type(shown.view(), name));
    if (name.isEmpty())
        QVERIFY(press(shown.view(), Qt::Key_Backspace));
    QVERIFY(press(shown.view(), Qt::Key_Return));
    QTEST(text(shown.view(), "#reason"), "reason");
    QVERIFY(read(shown.view(), "var reason = document.getElementById('reason');"
                               "var editor = document.getElementById('editor');"
                               "Math.abs(reason.getBoundingClientRect().top -"
                               "    editor.getBoundingClientRect().bottom) <= 2")
                .toBool());
    QCOMPARE(shown.focused(), QString("editor"));
    QCOMPARE(shown.host.commands(), QStringList());
    QVERIFY(press(shown.view(), Qt::Key_Escape));
    QVERIFY(!isShown(shown.view(), "#reason"));
    QCOMPARE(shown.items().at(0), QString("[-] Speed|(mixed)|(mixed)"));
}

void TestCustomInfoPage::staysOpenWhileANameIsRefused()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#nameCell0"));
    QVERIFY(type(shown.view(), "Speed"));
    QVERIFY(click(shown.view(), "#ok"));
    QVERIFY(shown.dialog->isVisible());
    QVERIFY(isShown(shown.view(), "#reason"));
    QCOMPARE(shown.focused(), QString("editor"));
    QVERIFY(type(shown.view(), "2"));
    QVERIFY(click(shown.view(), "#ok"));
    QVERIFY(!shown.dialog->isVisible());
    QCOMPARE(shown.records(2), QString("Speed2=10 F, Speed=2km/h D"));
}

void TestCustomInfoPage::ticksAllThatHaveTheItem()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(shown.selectAll());
    QVERIFY(click(shown.view(), "#tick0")); // mixed
    QCOMPARE(shown.items().at(0), QString("[x] Speed|(mixed)|(mixed)"));
    QCOMPARE(shown.records(3),
             QString("Speed=3m/s D F, TestNo=10 F, Distance=100mm D F, Angle=30deg D F"));
    shown.host.clearJournal();
    QVERIFY(click(shown.view(), "#tick3"));
    QCOMPARE(shown.host.commands(),
             QStringList({"[3].setCustomInfo(\"Angle\", \"30\", \"deg\", false, true)", Refresh}));
    QCOMPARE(shown.items().at(3), QString("[ ] (Angle)|(mixed)|(mixed)"));
}

void TestCustomInfoPage::ticksByKeys()
{
    Shown shown;
    QVERIFY(shown.open());
    GUI_WebView *view = shown.view();
    QVERIFY(click(view, "#search"));
    QVERIFY(press(view, Qt::Key_Down));
    QVERIFY(press(view, Qt::Key_Space)); // on the name
    QCOMPARE(shown.records(2), QString("TestNo=10 D F, Speed=2km/h D"));
    QVERIFY(press(view, Qt::Key_Left));
    QCOMPARE(shown.focused(), QString("tick0"));
    QVERIFY(press(view, Qt::Key_Space)); // on the box
    QCOMPARE(shown.records(2), QString("TestNo=10 F, Speed=2km/h D"));
    QVERIFY(press(view, Qt::Key_Down));
    QVERIFY(press(view, Qt::Key_Space));
    QCOMPARE(shown.records(2), QString("TestNo=10 F, Speed=2km/h"));
}

void TestCustomInfoPage::ticksAllThatAreShown()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#document3"));
    QVERIFY(click(shown.view(), "#search"));
    QVERIFY(type(shown.view(), "m"));
    QCOMPARE(shown.items(), QStringList({"[ ] Speed|3|m/s", "[x] Distance|100|mm"}));
    QVERIFY(click(shown.view(), "#tickAll"));
    QCOMPARE(shown.records(3),
             QString("Speed=3m/s D F, TestNo=10 F, Distance=100mm D F, Angle=30deg D F"));
    QVERIFY(click(shown.view(), "#tickAll"));
    QCOMPARE(shown.records(3),
             QString("Speed=3m/s F, TestNo=10 F, Distance=100mm F, Angle=30deg D F"));
}

void TestCustomInfoPage::addsToAllSelected()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#document1"));
    QVERIFY(shown.clickWith("#document2", Qt::ControlModifier));
    QVERIFY(click(shown.view(), "#newName"));
    QVERIFY(type(shown.view(), "Mass"));
    QVERIFY(press(shown.view(), Qt::Key_Tab));
    QVERIFY(type(shown.view(), "1.5"));
    QVERIFY(press(shown.view(), Qt::Key_Tab));
    QVERIFY(type(shown.view(), "kg"));
    QVERIFY(press(shown.view(), Qt::Key_Return));
    QCOMPARE(shown.records(1),
             QString("Speed=1m/s D F, TestNo=10 F, Distance=100mm D F, Mass=1.5kg D F"));
    QCOMPARE(shown.records(2), QString("TestNo=10 F, Speed=2km/h D, Mass=1.5kg D F"));
    QVERIFY(!shown.records(3).contains("Mass"));
    QCOMPARE(shown.focused(), QString("newName"));
    QVERIFY(shown.items().contains("[x] Mass|1.5|kg"));
    QVERIFY(type(shown.view(), "Comments"));
    QVERIFY(click(shown.view(), "#add"));
    QVERIFY(shown.records(1).endsWith("Comments= D F"));
}

void TestCustomInfoPage::refusesNewNames_data()
{
    refusesNames_data();
}

void TestCustomInfoPage::refusesNewNames()
{
    QFETCH(QString, name);
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(shown.selectAll());
    QVERIFY(click(shown.view(), "#newName"));
    QVERIFY(type(shown.view(), name));
    QVERIFY(press(shown.view(), Qt::Key_Return));
    QTEST(text(shown.view(), "#addReason"), "reason");
    QCOMPARE(shown.focused(), QString("newName"));
    QVERIFY(read(shown.view(), "document.documentElement.scrollHeight <= innerHeight").toBool());
    QVERIFY(type(shown.view(), "x"));
    QVERIFY(!isShown(shown.view(), "#addReason"));
    QCOMPARE(shown.host.commands(), QStringList());
}

void TestCustomInfoPage::addsWhatStandsThereOnOk()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#newValue"));
    QVERIFY(type(shown.view(), "1.5"));
    QVERIFY(click(shown.view(), "#ok"));
    QVERIFY(shown.dialog->isVisible());
    QVERIFY(isShown(shown.view(), "#addReason"));
    QVERIFY(type(shown.view(), "Mass"));
    QVERIFY(click(shown.view(), "#ok"));
    QVERIFY(!shown.dialog->isVisible());
    QCOMPARE(shown.records(2), QString("TestNo=10 F, Speed=2km/h D, Mass=1.5 D F"));
}

void TestCustomInfoPage::deletesFromThoseThatHaveIt()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(shown.selectAll());
    QVERIFY(!isEnabled(shown.view(), "#delete"));
    QVERIFY(click(shown.view(), "#valueCell2"));
    QVERIFY(click(shown.view(), "#delete"));
    QCOMPARE(shown.host.commands(), QStringList({"[1].removeCustomInfo(\"Distance\")",
                                                 "[3].removeCustomInfo(\"Distance\")", Refresh}));
    QCOMPARE(shown.records(1), QString("Speed=1m/s D F, TestNo=10 F"));
    QCOMPARE(shown.focused(), QString("valueCell2")); // the item in its place
    QVERIFY(press(shown.view(), Qt::Key_Delete));
    QCOMPARE(shown.records(3), QString("Speed=3m/s F, TestNo=10 F"));
    QCOMPARE(shown.focused(), QString("valueCell1"));
}

void TestCustomInfoPage::deletesWhatWasRenamedJustNow()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#nameCell0"));
    QVERIFY(type(shown.view(), "Run"));
    QVERIFY(click(shown.view(), "#delete"));
    QCOMPARE(shown.host.commands(),
             QStringList({"[2].renameCustomInfo(\"TestNo\", \"Run\")",
                          "[2].setCustomInfo(\"Run\", \"10\", \"\", false, true)", Refresh,
                          "[2].removeCustomInfo(\"Run\")", Refresh}));
    QCOMPARE(shown.records(2), QString("Speed=2km/h D"));
}

void TestCustomInfoPage::searches()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#document3"));
    QVERIFY(click(shown.view(), "#search"));
    QVERIFY(type(shown.view(), "DEG"));
    QCOMPARE(shown.items(), QStringList({"[x] Angle|30|deg"}));
    QVERIFY(type(shown.view(), "x"));
    QCOMPARE(shown.items(), QStringList());
    QCOMPARE(text(shown.view(), "#state"), QString("No item matches the search."));
    QVERIFY(press(shown.view(), Qt::Key_Escape));
    QCOMPARE(shown.items().size(), 4);
    QVERIFY(!isShown(shown.view(), "#state"));
    QCOMPARE(shown.host.commands(), QStringList());
}

void TestCustomInfoPage::keepsRowsInPlaceWhileASearchHolds_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("first");
    QTest::newRow("name") << "s"
                          << "#nameCell0"
                          << "Way"
                          << "Way=1km/h D F";
    QTest::newRow("value") << "1"
                           << "#valueCell0"
                           << "7"
                           << "Speed=7km/h D F";
    QTest::newRow("unit") << "m"
                          << "#unitCell0"
                          << "kn"
                          << "Speed=1kn D F";
}

// What the mouse presses is what it clicks, also where the press takes what was written.
void TestCustomInfoPage::keepsRowsInPlaceWhileASearchHolds()
{
    QFETCH(QString, search);
    QFETCH(QString, cell);
    QFETCH(QString, written);
    QFETCH(QString, first);
    Shown shown;
    shown.list(2) = {stored("Speed", "1", "km/h", "on", "on"), stored("Angle", "3", "", "", ""),
                     stored("Distance", "100", "mm", "on", "on"),
                     stored("Mass", "12", "t", "on", "on")};
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#search"));
    QVERIFY(type(shown.view(), search));
    QCOMPARE(shown.items().size(), 3);
    QVERIFY(click(shown.view(), cell));
    QVERIFY(type(shown.view(), written));
    QVERIFY(click(shown.view(), "#tick1"));
    QCOMPARE(shown.records(2), first + ", Angle=3, Distance=100mm F, Mass=12t D F");
    QVERIFY(click(shown.view(), "#valueCell1"));
    QVERIFY(type(shown.view(), "200"));
    QVERIFY(click(shown.view(), "#tick2"));
    QCOMPARE(shown.records(2), first + ", Angle=3, Distance=200mm F, Mass=12t F");
    QCOMPARE(shown.items().size(), 3);
    // Another search shows what matches it.
    QVERIFY(click(shown.view(), "#search"));
    QVERIFY(press(shown.view(), Qt::Key_Backspace));
    QCOMPARE(shown.items().size(), 4);
    QVERIFY(type(shown.view(), "mass"));
    QCOMPARE(shown.items(), QStringList("[ ] Mass|12|t"));
}

void TestCustomInfoPage::staysAtTheOnlyMatchByKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("focused");
    QTest::newRow("Enter") << int(Qt::Key_Return) << "valueCell0";
    QTest::newRow("Tab") << int(Qt::Key_Tab) << "editor";
}

void TestCustomInfoPage::staysAtTheOnlyMatchByKeys()
{
    QFETCH(int, key);
    QFETCH(QString, focused);
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#search"));
    QVERIFY(type(shown.view(), "10"));
    QCOMPARE(shown.items(), QStringList("[ ] TestNo|10|"));
    QVERIFY(click(shown.view(), "#valueCell0"));
    QVERIFY(type(shown.view(), "7"));
    QVERIFY(press(shown.view(), key));
    QCOMPARE(shown.focused(), focused);
    QCOMPARE(shown.records(2), QString("TestNo=7 F, Speed=2km/h D"));
}

// The current document, which gives the order, gets the item behind its others.
void TestCustomInfoPage::keepsRowsInPlaceWhereAnItemIsAdded()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#document3"));
    QVERIFY(shown.clickWith("#document2", Qt::ControlModifier));
    QCOMPARE(shown.items(),
             QStringList({"[ ] TestNo|10|", "[-] Speed|(mixed)|(mixed)",
                          "[x] (Distance)|(mixed)|(mixed)", "[x] (Angle)|(mixed)|(mixed)"}));
    QVERIFY(click(shown.view(), "#nameCell0"));
    QVERIFY(type(shown.view(), "Run"));
    QVERIFY(click(shown.view(), "#valueCell3"));
    QVERIFY(type(shown.view(), "7"));
    QVERIFY(click(shown.view(), "#tick2"));
    QCOMPARE(shown.records(2), QString("Run=10 F, Speed=2km/h D, Angle=7deg D F"));
    QCOMPARE(shown.records(3), QString("Speed=3m/s F, Run=10 F, Distance=100mm F, Angle=7deg D F"));
    QCOMPARE(shown.items(), QStringList({"[ ] Run|10|", "[-] Speed|(mixed)|(mixed)",
                                         "[ ] (Distance)|(mixed)|(mixed)", "[x] Angle|7|deg"}));
    // One that is added again is a new one.
    QVERIFY(click(shown.view(), "#valueCell0"));
    QVERIFY(click(shown.view(), "#delete"));
    QVERIFY(click(shown.view(), "#newName"));
    QVERIFY(type(shown.view(), "Run"));
    QVERIFY(press(shown.view(), Qt::Key_Return));
    QCOMPARE(shown.items(),
             QStringList({"[-] Speed|(mixed)|(mixed)", "[ ] (Distance)|(mixed)|(mixed)",
                          "[x] Angle|7|deg", "[x] Run||"}));
    QVERIFY(click(shown.view(), "#document2"));
    QVERIFY(shown.clickWith("#document3", Qt::ControlModifier));
    QCOMPARE(shown.items(),
             QStringList({"[-] Speed|(mixed)|(mixed)", "[ ] (Distance)|(mixed)|(mixed)",
                          "[x] Angle|7|deg", "[x] Run||"}));
}

void TestCustomInfoPage::asksBeforeItemsAreReplaced()
{
    QTemporaryDir folder;
    QFile file(folder.filePath("job.xml"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<job><Sf_TestCode>77</Sf_TestCode></job>");
    file.close();
    int asked = 0;
    FileChoice::setAnswer([&](const FileChoice::Question &) {
        ++asked;
        return QStringList(file.fileName());
    });
    Shown shown;
    LogCapture log;
    QVERIFY(shown.open());
    QVERIFY(shown.selectAll());
    QVERIFY(click(shown.view(), "#load"));
    QCOMPARE(text(shown.view(), "#questionText"),
             QString("Loading a file replaces the items of 3 documents. A comment in the file "
                     "replaces theirs for good."));
    QCOMPARE(cutTexts(shown.view()), QStringList());
    QCOMPARE(shown.focused(), QString("yes"));
    QVERIFY(press(shown.view(), Qt::Key_Tab));
    QCOMPARE(shown.focused(), QString("no"));
    QVERIFY(press(shown.view(), Qt::Key_Tab));
    QCOMPARE(shown.focused(), QString("yes"));
    QVERIFY(press(shown.view(), Qt::Key_Escape));
    QVERIFY(!isShown(shown.view(), "#question"));
    QVERIFY(click(shown.view(), "#load"));
    QVERIFY(click(shown.view(), "#no"));
    QCOMPARE(asked, 0);
    QCOMPARE(shown.host.commands(), QStringList());
    QVERIFY(click(shown.view(), "#load"));
    QVERIFY(click(shown.view(), "#yes"));
    QCOMPARE(asked, 1);
    for (int i = 1; i <= 3; ++i)
        QCOMPARE(shown.records(i), QString("TestNo=77 D F"));
    QCOMPARE(shown.items(), QStringList({"[x] TestNo|77|"}));
}

void TestCustomInfoPage::asksBeforeItemsOfOneAreReplaced()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#load"));
    QCOMPARE(text(shown.view(), "#questionText"),
             QString("Loading a file replaces the items of the document. A comment in the file "
                     "replaces its own for good."));
    QVERIFY(click(shown.view(), "#no"));
    QCOMPARE(shown.host.commands(), QStringList());
}

void TestCustomInfoPage::loadsIntoEmptyDocumentsAtOnce()
{
    int asked = 0;
    FileChoice::setAnswer([&](const FileChoice::Question &) {
        ++asked;
        return QStringList();
    });
    Shown shown;
    shown.list(2).clear();
    QVERIFY(shown.open());
    QVERIFY(text(shown.view(), "#state").startsWith("There are no items."));
    QVERIFY(click(shown.view(), "#load"));
    QVERIFY(!isShown(shown.view(), "#question"));
    QCOMPARE(asked, 1);
}

void TestCustomInfoPage::savesTheCurrentDocument()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("items.xml");
    FileChoice::setAnswer([&](const FileChoice::Question &) { return QStringList(path); });
    Shown shown;
    LogCapture log;
    QVERIFY(shown.open());
    QVERIFY(shown.clickWith("#document1", Qt::ControlModifier));
    QCOMPARE(text(shown.view(), "#about"),
             QString("2 documents. Save takes the items of Camera 1"));
    QVERIFY(click(shown.view(), "#valueCell0"));
    QVERIFY(type(shown.view(), "9"));
    QVERIFY(click(shown.view(), "#save"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString content = QString::fromUtf8(file.readAll());
    for (const char *part : {"<name>Speed</name>", "<value>9</value>", "<unit>m/s</unit>",
                             "<name>TestNo</name>", "<name>Distance</name>"})
        QVERIFY2(content.contains(part), part);
    QVERIFY(!content.contains("km/h"));
}

void TestCustomInfoPage::okKeepsTheEdits()
{
    Shown shown;
    QVERIFY(shown.open());
    QSignalSpy finished(shown.dialog, &QDialog::finished);
    QVERIFY(click(shown.view(), "#valueCell0"));
    QVERIFY(type(shown.view(), "12"));
    QVERIFY(click(shown.view(), "#ok"));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(shown.dialog->result(), int(QDialog::Accepted));
    QCOMPARE(shown.records(2), QString("TestNo=12 F, Speed=2km/h D"));
}

void TestCustomInfoPage::cancelBringsAllBack()
{
    Shown shown;
    const QString before = shown.records(2);
    QVERIFY(shown.open());
    QSignalSpy finished(shown.dialog, &QDialog::finished);
    QVERIFY(shown.write("#valueCell0", "12"));
    QVERIFY(shown.records(2) != before);
    QVERIFY(click(shown.view(), "#valueCell1"));
    QVERIFY(type(shown.view(), "lost"));
    QVERIFY(click(shown.view(), "#cancel"));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(shown.dialog->result(), int(QDialog::Rejected));
    QCOMPARE(shown.records(2), before);
}

void TestCustomInfoPage::frameBringsAllBackFromAnOpenEditor()
{
    Shown shown;
    LogCapture log; // the frame is traced
    const QString before = shown.records(2);
    QVERIFY(shown.open());
    QVERIFY(shown.write("#valueCell0", "12"));
    QVERIFY(click(shown.view(), "#valueCell1"));
    QVERIFY(type(shown.view(), "lost"));
    shown.dialog->close();
    QTest::qWait(50);
    QCOMPARE(shown.records(2), before);
    QCOMPARE(shown.host.commands().last(), Refresh);
}

void TestCustomInfoPage::textsAreNoMarkup()
{
    const QString text = "<img src=x onerror='window.hit=1'>&lt;b&gt;\"'";
    Shown shown;
    shown.list(2) = {stored(text, text, text, "on", "on")};
    shown.host.camera(2)->state().documentName = text;
    QVERIFY(shown.open());
    QVERIFY(shown.selectAll());
    QCOMPARE(PageHand::text(shown.view(), "#document2"), text);
    QCOMPARE(shown.items().last(), "[x] (" + text + ")|(mixed)|(mixed)");
    QVERIFY(click(shown.view(), "#document2"));
    QCOMPARE(shown.items(), QStringList("[x] " + text + "|" + text + "|" + text));
    QVERIFY(click(shown.view(), "#valueCell0"));
    QCOMPARE(read(shown.view(), "document.getElementById('editor').value").toString(), text);
    QCOMPARE(count(shown.view(), "img"), 0);
    QCOMPARE(read(shown.view(), "typeof window.hit").toString(), QString("undefined"));
}

// Also where a neighbour is written.
void TestCustomInfoPage::textsStayAsTheyAre()
{
    const QStringList texts = {"one\ntwo\r\nthree\rfour\tfive ", "a{Separator}b%1\"'<&>",
                               QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd \u202e1"),
                               QString::fromUtf8("\U0001F3A5 \U00010348")};
    Shown shown;
    shown.list(2).clear();
    for (const QString &text : texts)
        shown.list(2).append(stored("n" + text, text, "", "on", "on"));
    QVERIFY(shown.open());
    for (int i = 0; i < texts.size(); ++i) {
        for (const char *column : {"name", "value"}) {
            QVERIFY(click(shown.view(), "#" + QString(column) + "Cell" + QString::number(i)));
            QVERIFY(press(shown.view(), Qt::Key_Return));
        }
        QVERIFY(shown.write("#unitCell" + QString::number(i), "u"));
    }
    QVERIFY(shown.items().first().contains(QString::fromUtf8("one \u21b5 two \u21b5 three")));
    for (int i = 0; i < texts.size(); ++i)
        QCOMPARE(shown.list(2).at(i).toMap(),
                 stored("n" + texts.at(i), texts.at(i), "u", "on", "on"));
}

void TestCustomInfoPage::writesLines()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#valueCell0"));
    QVERIFY(type(shown.view(), "one"));
    QVERIFY(press(shown.view(), Qt::Key_Return, Qt::ShiftModifier));
    QVERIFY(type(shown.view(), "two"));
    QVERIFY(press(shown.view(), Qt::Key_Return));
    QCOMPARE(shown.list(2).at(0).toMap().value("value").toString(), QString("one\ntwo"));
}

void TestCustomInfoPage::followsDocumentsThatGo()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(shown.selectAll());
    shown.host.closeDocument(1);
    QVERIFY(shown.write("#valueCell1", "12")); // nothing is told to the one that has gone
    QCOMPARE(shown.selection(), QString("2 3"));
    QCOMPARE(count(shown.view(), ".document"), 2);
    QCOMPARE(shown.records(2), QString("TestNo=12 F, Speed=2km/h D"));
    QCOMPARE(shown.host.handledErrors(), QStringList());
    shown.host.closeDocument(2);
    shown.host.closeDocument(3);
    emit shown.dialog->mediator()->update();
    QVERIFY(text(shown.view(), "#state").startsWith("No document is selected"));
    QVERIFY(click(shown.view(), "#ok"));
    QVERIFY(!shown.dialog->isVisible());
}

void TestCustomInfoPage::leavesAnEditorWhoseDocumentHasGone_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("Enter") << int(Qt::Key_Return) << int(Qt::NoModifier);
    QTest::newRow("Tab") << int(Qt::Key_Tab) << int(Qt::NoModifier);
    QTest::newRow("Shift+Tab") << int(Qt::Key_Backtab) << int(Qt::ShiftModifier);
}

// A script error would be in the log, which fails the test.
void TestCustomInfoPage::leavesAnEditorWhoseDocumentHasGone()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    Shown shown;
    const QString before = shown.records(1);
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#valueCell0"));
    QVERIFY(type(shown.view(), "12"));
    shown.host.closeDocument(2);
    QVERIFY(press(shown.view(), key, Qt::KeyboardModifiers(modifiers)));
    QVERIFY(!isShown(shown.view(), "#editor"));
    QCOMPARE(shown.items(), QStringList());
    QVERIFY(text(shown.view(), "#state").startsWith("Select the documents"));
    QCOMPARE(shown.records(1), before);
    QCOMPARE(shown.host.handledErrors(), QStringList());
    QVERIFY(click(shown.view(), "#document1"));
    QCOMPARE(shown.items().size(), 3);
}

void TestCustomInfoPage::keepsAnEditorThroughARefresh()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#valueCell0"));
    QVERIFY(type(shown.view(), "12"));
    emit shown.dialog->mediator()->update();
    QVERIFY(type(shown.view(), "34"));
    QVERIFY(press(shown.view(), Qt::Key_Return));
    QCOMPARE(shown.records(2), QString("TestNo=1234 F, Speed=2km/h D"));
}

void TestCustomInfoPage::takesAnEditorAlongWithItsItem()
{
    Shown shown;
    QVERIFY(shown.open());
    GUI_WebView *view = shown.view();
    QVERIFY(click(view, "#valueCell0"));
    QVERIFY(type(view, "12"));
    QVERIFY(press(view, Qt::Key_Left));
    shown.list(2).prepend(stored("Angle", "30", "", "", ""));
    emit shown.dialog->mediator()->update();
    QVERIFY(isShown(view, "#valueCell1 #editor"));
    QCOMPARE(shown.items().at(0), QString("[ ] Angle|30|"));
    QCOMPARE(shown.focused(), QString("editor"));
    QVERIFY(type(view, "3"));
    shown.list(2).removeFirst();
    emit shown.dialog->mediator()->update();
    QVERIFY(isShown(view, "#valueCell0 #editor"));
    QCOMPARE(shown.items().at(1), QString("[x] Speed|2|km/h"));
    QCOMPARE(shown.host.commands(), QStringList());
    QVERIFY(press(view, Qt::Key_Return));
    QCOMPARE(shown.records(2), QString("TestNo=132 F, Speed=2km/h D"));
    QCOMPARE(shown.focused(), QString("valueCell0"));
    // And nothing where nobody wrote.
    QVERIFY(click(view, "#valueCell1"));
    shown.list(2).removeFirst();
    shown.host.clearJournal();
    emit shown.dialog->mediator()->update();
    QVERIFY(press(view, Qt::Key_Return));
    QCOMPARE(shown.focused(), QString("valueCell0"));
    QCOMPARE(shown.host.commands(), QStringList());
}

void TestCustomInfoPage::keepsAnEditorInViewThatMoves()
{
    const QString isInView = "var list = document.getElementById('items').getBoundingClientRect();"
                             "var editor = document.getElementById('editor')"
                             "    .getBoundingClientRect();"
                             "editor.top >= list.top && editor.bottom <= list.bottom";
    Shown shown;
    QVERIFY(shown.open());
    GUI_WebView *view = shown.view();
    QVERIFY(click(view, "#valueCell0"));
    QVERIFY(type(view, "1"));
    for (int i = 0; i < 50; ++i)
        shown.list(2).prepend(stored(QString("Item %1").arg(i), "", "", "", ""));
    emit shown.dialog->mediator()->update();
    QVERIFY(read(view, isInView).toBool());
    QVERIFY(type(view, "2"));
    for (int i = 0; i < 50; ++i)
        shown.list(2).removeFirst();
    emit shown.dialog->mediator()->update();
    QVERIFY(read(view, isInView).toBool());
    QVERIFY(type(view, "3"));
    QVERIFY(press(view, Qt::Key_Return));
    QCOMPARE(shown.records(2), QString("TestNo=123 F, Speed=2km/h D"));
}

void TestCustomInfoPage::takesARefusedNameAlongWithItsItem()
{
    Shown shown;
    QVERIFY(shown.open());
    GUI_WebView *view = shown.view();
    QVERIFY(click(view, "#nameCell0"));
    QVERIFY(type(view, "Speed"));
    QVERIFY(press(view, Qt::Key_Return));
    QVERIFY(isShown(view, "#reason"));
    shown.list(2).prepend(stored("Angle", "30", "", "", ""));
    emit shown.dialog->mediator()->update();
    QVERIFY(isShown(view, "#nameCell1 #editor"));
    QVERIFY(read(view, "var reason = document.getElementById('reason');"
                       "var editor = document.getElementById('editor');"
                       "Math.abs(reason.getBoundingClientRect().top -"
                       "    editor.getBoundingClientRect().bottom) <= 2")
                .toBool());
    QVERIFY(read(view, "var box = document.getElementById('reason').getBoundingClientRect();"
                       "document.elementFromPoint(box.left + 20, box.top + 12).id === 'reason'")
                .toBool()); // over the row below, which is newer
    QVERIFY(type(view, "2"));
    QVERIFY(press(view, Qt::Key_Return));
    QCOMPARE(shown.records(2), QString("Angle=30, Speed2=10 F, Speed=2km/h D"));
}

void TestCustomInfoPage::keepsAnEditorWhateverTheSearchSays()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#search"));
    QVERIFY(type(shown.view(), "10"));
    QVERIFY(click(shown.view(), "#unitCell0"));
    QVERIFY(type(shown.view(), "p"));
    shown.list(2)[0] = stored("TestNo", "99", "", "", "on");
    emit shown.dialog->mediator()->update();
    QVERIFY(type(shown.view(), "cs"));
    QVERIFY(press(shown.view(), Qt::Key_Return));
    QCOMPARE(shown.records(2), QString("TestNo=99pcs F, Speed=2km/h D"));
}

void TestCustomInfoPage::leavesTheFocusBesideAnEditorThatMoves()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#nameCell0"));
    QVERIFY(type(shown.view(), "Speed"));
    QVERIFY(click(shown.view(), "#newValue")); // the name is refused
    QVERIFY(isShown(shown.view(), "#nameCell0 #editor"));
    QCOMPARE(shown.focused(), QString("newValue"));
    shown.list(2).prepend(stored("Angle", "30", "", "", ""));
    emit shown.dialog->mediator()->update();
    QVERIFY(isShown(shown.view(), "#nameCell1 #editor"));
    QCOMPARE(shown.focused(), QString("newValue"));
}

void TestCustomInfoPage::givesUpAnEditorWhoseItemHasGone()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(click(shown.view(), "#valueCell0"));
    QVERIFY(type(shown.view(), "12"));
    shown.list(2).removeFirst();
    emit shown.dialog->mediator()->update();
    QVERIFY(!isShown(shown.view(), "#editor"));
    QCOMPARE(shown.items(), QStringList("[x] Speed|2|km/h"));
    QCOMPARE(shown.focused(), QString("valueCell0"));
    QCOMPARE(shown.host.commands(), QStringList());
}

void TestCustomInfoPage::tellsWhatIsEmpty_data()
{
    QTest::addColumn<int>("documents");
    QTest::addColumn<QString>("state");
    QTest::newRow("no document") << 0 << "No document is selected in the application.";
    QTest::newRow("current one is not among them")
        << 2 << "Select the documents whose items you want to edit.";
}

void TestCustomInfoPage::tellsWhatIsEmpty()
{
    QFETCH(int, documents);
    Shown shown;
    for (int i = documents + 1; i <= 3; ++i)
        shown.host.select(DOCKEY(i), false);
    if (documents == 2) {
        shown.host.addCamera();
        shown.host.makeCurrent(4);
        shown.host.select(4, false);
    }
    QVERIFY(shown.open());
    QTEST(text(shown.view(), "#state"), "state");
    for (const char *id : {"#add", "#load", "#save", "#search", "#delete", "#tickAll"})
        QVERIFY2(!isEnabled(shown.view(), id), id);
    QVERIFY(isEnabled(shown.view(), "#ok"));
    QVERIFY(isEnabled(shown.view(), "#cancel"));
}

void TestCustomInfoPage::tellsAFailure()
{
    Shown shown;
    shown.host.failOn("documentName");
    QVERIFY(shown.open());
    QCOMPARE(text(shown.view(), "#state"), QString("The documents could not be read."));
    QVERIFY(read(shown.view(), "document.getElementById('state').classList.contains('error')")
                .toBool());
    emit shown.dialog->mediator()->update();
    QCOMPARE(shown.selection(), QString("2"));
    QCOMPARE(shown.items().size(), 2);
}

void TestCustomInfoPage::tellsItemsThatCouldNotBeRead_data()
{
    QTest::addColumn<bool>("isWithOthers");
    QTest::addColumn<int>("failed");
    QTest::newRow("the only document") << false << 1;
    QTest::newRow("first of three") << true << 1;
    QTest::newRow("last of three") << true << 3;
}

// Items that are not known are not none.
void TestCustomInfoPage::tellsItemsThatCouldNotBeRead()
{
    QFETCH(bool, isWithOthers);
    QFETCH(int, failed);
    const QStringList inputs = {"#search", "#newName", "#newValue", "#newUnit",
                                "#add",    "#load",    "#save"};
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(!isWithOthers || shown.selectAll());
    const QString selection = shown.selection();
    const QStringList items = shown.items();
    shown.host.failOn("customInfoList", failed);
    emit shown.dialog->mediator()->update();
    QCOMPARE(text(shown.view(), "#state"), QString("The documents could not be read."));
    QVERIFY(read(shown.view(), "document.getElementById('state').classList.contains('error')")
                .toBool());
    QCOMPARE(shown.items(), QStringList());
    for (const QString &input : inputs)
        QVERIFY2(!isEnabled(shown.view(), input), qPrintable(input));
    QCOMPARE(shown.host.handledErrors(), QStringList("customInfoList failed"));
    shown.host.clearJournal();
    emit shown.dialog->mediator()->update();
    QVERIFY(!isShown(shown.view(), "#state"));
    QCOMPARE(shown.selection(), selection);
    QCOMPARE(shown.items(), items);
    for (const QString &input : inputs)
        QVERIFY2(isEnabled(shown.view(), input), qPrintable(input));
    QCOMPARE(shown.host.commands(), QStringList());
}

void TestCustomInfoPage::writesNothingWhileItemsAreNotRead()
{
    Shown shown;
    QVERIFY(shown.open());
    QVERIFY(shown.selectAll());
    QVERIFY(click(shown.view(), "#newName"));
    QVERIFY(type(shown.view(), "Speed")); // there is one, which cannot be seen now
    shown.host.failOn("customInfoList", 2);
    emit shown.dialog->mediator()->update();
    shown.host.clearJournal();
    QVERIFY(press(shown.view(), Qt::Key_Return));
    QVERIFY(click(shown.view(), "#ok"));
    QVERIFY(shown.dialog->isVisible());
    QCOMPARE(shown.host.commands(), QStringList());
    emit shown.dialog->mediator()->update();
    QVERIFY(click(shown.view(), "#add"));
    QCOMPARE(text(shown.view(), "#addReason"), QString("There is an item of this name already."));
    QCOMPARE(shown.host.commands(), QStringList());
}

void TestCustomInfoPage::showsWhatTheDocumentsHoldBehindAFailure()
{
    Shown shown;
    QVERIFY(shown.open());
    shown.host.failOn("setCustomInfo");
    QVERIFY(shown.write("#valueCell0", "12"));
    QCOMPARE(shown.items().at(0), QString("[ ] TestNo|10|"));
    QCOMPARE(shown.host.handledErrors(), QStringList("setCustomInfo failed"));
}

void TestCustomInfoPage::tellsTheUserLog()
{
    Shown shown;
    QVERIFY(shown.open());
    LogCapture log;
    QVERIFY(click(shown.view(), "#tick0"));
    const QStringList lines = log.texts();
    const int user = lines.indexOf("[USER] \"[URL:qrc:/custominfo.html] [ID:tick0] "
                                   "[Control:CheckBox] [Operation:changed] [Value:true] \"");
    const int enter =
        lines.indexOf("[ENTER] \"JS_Mediator_CustomInfoDialog::enableCustomData\" \"\"");
    QVERIFY(user >= 0);
    QVERIFY(enter > user);
}

// Those alone that are in view are elements.
void TestCustomInfoPage::keepsManyItemsAtHand()
{
    constexpr int Many = 10000;
    Shown shown;
    for (int i = shown.list(2).size(); i < Many; ++i)
        shown.list(2).append(stored(QString("Item %1").arg(i), QString::number(i), "", "", ""));
    QVERIFY(shown.open());
    GUI_WebView *view = shown.view();
    QVERIFY(count(view, "#items .item") < 30);
    QVERIFY(click(view, "#search"));
    QVERIFY(press(view, Qt::Key_Down));
    QVERIFY(press(view, Qt::Key_End));
    QCOMPARE(shown.focused(), QString("nameCell9999"));
    QVERIFY(press(view, Qt::Key_PageUp));
    QVERIFY(press(view, Qt::Key_Home));
    QCOMPARE(shown.focused(), QString("nameCell0"));
    QVERIFY(press(view, Qt::Key_End));
    QVERIFY(press(view, Qt::Key_Right));
    QVERIFY(press(view, Qt::Key_Return));
    // What is written goes on where the row is out of view.
    read(view, "document.getElementById('items').scrollTop = 0");
    QTest::qWait(50);
    QVERIFY(isShown(view, "#nameCell0"));
    QVERIFY(type(view, "last"));
    QVERIFY(press(view, Qt::Key_Return));
    QCOMPARE(shown.list(2).last().toMap().value("value").toString(), QString("last"));
    QVERIFY(count(view, "#items .item") < 60);
    QVERIFY(click(view, "#search"));
    QVERIFY(type(view, "item 777"));
    QCOMPARE(shown.items().size(), 11);
}

int main(int argc, char **argv)
{
    TestCustomInfoPage test;
    return runTest(argc, argv, test);
}

#include "test_custom_info_page.moc"
