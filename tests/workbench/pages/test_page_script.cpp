#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/dialog/GUI_PageDialog.h"
#include "bridge/mediator/JS_Mediator_ModelessPatternDialog.h"
#include "bridge/page/GUI_WebView.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/pages/Pages.h"
#include "workbench/tour/PageHand.h"

using namespace PageHand;

namespace {

/// A dialog whose page is told of text boxes.
class TypingMediator : public JS_Mediator_ModelessPatternDialog
{
public:
    explicit TypingMediator(StandInHost &host) : JS_Mediator_ModelessPatternDialog(&host, "typing")
    {
    }

    void onOpen() override {}
    void onClose() override {}
};

struct TypingDialog : GUI_ModelessPatternDialog
{
    explicit TypingDialog(StandInHost &host)
        : GUI_ModelessPatternDialog(&host, "Typing", "qrc:/typing.html", new TypingMediator(host),
                                    nullptr)
    {
    }

    bool appear()
    {
        show();
        activateWindow();
        return QTest::qWaitForWindowActive(this) &&
               QTest::qWaitFor([this] { return read(webView(), "drawn").toInt() > 0; });
    }
};

}

/// A dialog that its page works directly: `open` and `update` are slots that every dialog has.
class OwnSlotsDialog : public GUI_PageDialog
{
    Q_OBJECT

public:
    explicit OwnSlotsDialog(StandInHost &host) : GUI_PageDialog(&host, "Typing", nullptr)
    {
        loadPage("qrc:/typing.html");
    }

public slots:
    void populateJavaScriptWindowObject() override { showToPage("typing"); }
    QString getStyle() { return style(); }
    QString translate(const QString &text) { return translated(text); }
};

/// What the script that all pages share does for a page: the pages of the folder script/.
class TestPageScript : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void countsWhatTakesText_data();
    void countsWhatTakesText();
    void countsATextBoxAsLeft_data();
    void countsATextBoxAsLeft();
    void goesFromTextBoxToTextBox();
    void submitsNoForm_data();
    void submitsNoForm();
    void drawsForADialogWhoseOpenAndUpdateAreSlots();
    void goesThroughAListByKeys_data();
    void goesThroughAListByKeys();
    void goesToTheRowThatBeginsWithLetters_data();
    void goesToTheRowThatBeginsWithLetters();
    void beginsANewWordAfterAPause();
    void hasOneRowInTheTabOrder();
    void choosesARow();
    void keepsTheFocusInAList_data();
    void keepsTheFocusInAList();
    void leavesKeysToWhatARowHolds();
    void choosesSeveralRows_data();
    void choosesSeveralRows();
    void choosesSeveralRowsByTheMouse();
    void rangeGoesOnWhenRowsComeAnew();
};

void TestPageScript::init()
{
    TestBase::init();
    Pages::registerResources();
}

void TestPageScript::countsWhatTakesText_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<bool>("isText");
    for (const char *id : {"text", "password", "search", "number", "area", "editable"})
        QTest::newRow(id) << id << true;
    for (const char *id : {"checkbox", "radio", "submit"})
        QTest::newRow(id) << id << false;
}

void TestPageScript::countsWhatTakesText()
{
    QFETCH(QString, id);
    QFETCH(bool, isText);
    StandInHost host;
    TypingDialog dialog(host);
    QVERIFY(dialog.appear());
    read(dialog.webView(), "document.getElementById('" + id + "').focus()");
    QCOMPARE(read(dialog.webView(), "document.activeElement.id").toString(), id);
    QCOMPARE(host.state().textBoxFocus, isText);
}

void TestPageScript::countsATextBoxAsLeft_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("another control") << "document.getElementById('checkbox').focus()";
    QTest::newRow("the box loses the focus") << "document.getElementById('password').blur()";
    QTest::newRow("the box hides") << "document.getElementById('password').hidden = true";
    QTest::newRow("the box goes") << "document.getElementById('password').remove()";
    QTest::newRow("its form goes") << "document.getElementById('password').parentNode.remove()";
    QTest::newRow("the dialog hides") << QString();
}

void TestPageScript::countsATextBoxAsLeft()
{
    QFETCH(QString, script);
    StandInHost host;
    TypingDialog dialog(host);
    QVERIFY(dialog.appear());
    QVERIFY(click(dialog.webView(), "#password"));
    QVERIFY(host.state().textBoxFocus);
    if (script.isEmpty())
        dialog.hide();
    else
        read(dialog.webView(), script);
    QTRY_VERIFY(!host.state().textBoxFocus);
}

void TestPageScript::goesFromTextBoxToTextBox()
{
    StandInHost host;
    TypingDialog dialog(host);
    QVERIFY(dialog.appear());
    QVERIFY(click(dialog.webView(), "#text"));
    QVERIFY(press(dialog.webView(), Qt::Key_Tab));
    QCOMPARE(read(dialog.webView(), "document.activeElement.id").toString(), QString("password"));
    QVERIFY(host.state().textBoxFocus);
}

void TestPageScript::submitsNoForm_data()
{
    QTest::addColumn<QString>("id");
    for (const char *id : {"text", "password", "search", "number", "submit"})
        QTest::newRow(id) << id;
}

void TestPageScript::submitsNoForm()
{
    QFETCH(QString, id);
    StandInHost host;
    TypingDialog dialog(host);
    QVERIFY(dialog.appear());
    QSignalSpy loads(dialog.webView(), &QWebView::loadStarted);
    QVERIFY(click(dialog.webView(), '#' + id));
    QVERIFY(type(dialog.webView(), "5") && press(dialog.webView(), Qt::Key_Return));
    QTest::qWait(20);
    QCOMPARE(dialog.webView()->url(), QUrl("qrc:/typing.html"));
    QCOMPARE(loads.size(), 0);
    if (id == "submit")
        QCOMPARE(read(dialog.webView(), "sent.join()").toString(), QString("clicked,clicked"));
}

// What connects to a slot throws, which would be in the log.
void TestPageScript::drawsForADialogWhoseOpenAndUpdateAreSlots()
{
    StandInHost host;
    OwnSlotsDialog dialog(host);
    dialog.show();
    QTRY_COMPARE(read(dialog.webView(), "drawn").toInt(), 1);
    QCOMPARE(read(dialog.webView(), "document.body.className").toString(), QString("light"));

    PagePanel panel(host, "typing", "qrc:/typing.html", "Typing");
    QTRY_VERIFY(panel.isLoaded());
    QCOMPARE(read(panel.view(), "drawn").toInt(), 2); // as the page starts, and on `open`
    panel.refresh();
    QCOMPARE(read(panel.view(), "drawn").toInt(), 3);
}

namespace {

/// Thirty rows, of which some five are in view, the third is selected.
const char *const ThirtyRows = "fillRows(Array.from({ length: 30 }, function (none, at) {"
                               "    return 'row ' + (at + 1); }), 'row 3')";

struct Rows
{
    bool open(const QString &fill = ThirtyRows)
    {
        panel.resize(300, 240);
        panel.show();
        panel.activateWindow();
        if (!QTest::qWaitForWindowActive(&panel) ||
            !QTest::qWaitFor([this] { return panel.isLoaded(); }))
            return false;
        read(view(), fill);
        return true;
    }

    GUI_WebView *view() { return panel.view(); }
    QString focused() { return read(view(), "document.activeElement.id").toString(); }
    QString chosen() { return read(view(), "chosen.join()").toString(); }

    StandInHost host;
    PagePanel panel{host, "rows", "qrc:/rows.html", "Rows"};
};

}

void TestPageScript::goesThroughAListByKeys_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("to");
    QTest::newRow("down") << "row3" << int(Qt::Key_Down) << "row4";
    QTest::newRow("up") << "row3" << int(Qt::Key_Up) << "row2";
    QTest::newRow("up from the first") << "row1" << int(Qt::Key_Up) << "row1";
    QTest::newRow("down from the last") << "row30" << int(Qt::Key_Down) << "row30";
    QTest::newRow("home") << "row20" << int(Qt::Key_Home) << "row1";
    QTest::newRow("end") << "row20" << int(Qt::Key_End) << "row30";
    // Five rows are in view; one stays.
    QTest::newRow("page down") << "row3" << int(Qt::Key_PageDown) << "row7";
    QTest::newRow("page up") << "row20" << int(Qt::Key_PageUp) << "row16";
    QTest::newRow("page up near the first") << "row2" << int(Qt::Key_PageUp) << "row1";
    QTest::newRow("page down near the last") << "row29" << int(Qt::Key_PageDown) << "row30";
}

void TestPageScript::goesThroughAListByKeys()
{
    QFETCH(QString, from);
    QFETCH(int, key);
    QFETCH(QString, to);
    Rows rows;
    QVERIFY(rows.open());
    read(rows.view(), "document.getElementById('" + from + "').focus()");
    QVERIFY(press(rows.view(), key));
    QCOMPARE(rows.focused(), to);
    QVERIFY(read(rows.view(),
                 "var box = document.activeElement.getBoundingClientRect();"
                 "var around = document.getElementById('rows').getBoundingClientRect();"
                 "box.top >= around.top && box.bottom <= around.bottom")
                .toBool());
    QCOMPARE(rows.chosen(), QString());
}

void TestPageScript::goesToTheRowThatBeginsWithLetters_data()
{
    QTest::addColumn<QString>("letters");
    QTest::addColumn<QString>("row");
    QTest::newRow("the first of them") << "l"
                                       << "Left";
    QTest::newRow("a word") << "low"
                            << "LowLeft";
    QTest::newRow("capitals") << "R"
                              << "right";
    QTest::newRow("the present row goes on to fit") << "top"
                                                    << "Top";
    QTest::newRow("round the end") << "b"
                                   << "Bottom";
    QTest::newRow("nothing begins so") << "x"
                                       << "Centre";
}

void TestPageScript::goesToTheRowThatBeginsWithLetters()
{
    QFETCH(QString, letters);
    QFETCH(QString, row);
    Rows rows;
    QVERIFY(rows.open("fillRows(['Bottom', 'Centre', 'Left', 'Low Left', 'right', 'Top'], '')"));
    read(rows.view(), "document.getElementById('Centre').focus()");
    QVERIFY(type(rows.view(), letters));
    QCOMPARE(rows.focused(), row);
}

void TestPageScript::beginsANewWordAfterAPause()
{
    Rows rows;
    QVERIFY(rows.open("fillRows(['Left', 'Low Left', 'Over'], 'Left')"));
    read(rows.view(), "list.focus(); var now = 5000; Date.now = function () { return now; }");
    QVERIFY(type(rows.view(), "l"));
    QCOMPARE(rows.focused(), QString("LowLeft"));
    read(rows.view(), "now = 6000");
    QVERIFY(type(rows.view(), "o")); // within a pause this would be "lo"
    QCOMPARE(rows.focused(), QString("Over"));
}

void TestPageScript::hasOneRowInTheTabOrder()
{
    Rows rows;
    QVERIFY(rows.open());
    rows.view()->setFocus();
    QCOMPARE(count(rows.view(), "[role=option]"), 30);
    QCOMPARE(count(rows.view(), "[role=option][tabindex='0']"), 1);
    read(rows.view(), "document.getElementById('before').focus()");
    QVERIFY(press(rows.view(), Qt::Key_Tab));
    QCOMPARE(rows.focused(), QString("row3")); // the selected one
    QVERIFY(press(rows.view(), Qt::Key_Down) && press(rows.view(), Qt::Key_Tab));
    QCOMPARE(rows.focused(), QString("after"));
    QVERIFY(press(rows.view(), Qt::Key_Backtab, Qt::ShiftModifier));
    QCOMPARE(rows.focused(), QString("row4")); // where it was left
    QCOMPARE(count(rows.view(), "[role=option][tabindex='0']"), 1);
}

void TestPageScript::choosesARow()
{
    Rows rows;
    QVERIFY(rows.open());
    LogCapture log;
    QVERIFY(click(rows.view(), "#row2"));
    QVERIFY(press(rows.view(), Qt::Key_Down) && press(rows.view(), Qt::Key_Return));
    QVERIFY(press(rows.view(), Qt::Key_Down));
    QVERIFY(press(rows.view(), Qt::Key_Space, Qt::ControlModifier));
    QCOMPARE(rows.chosen(), QString("row2,row3,with control: row4"));
    QCOMPARE(log.texts(QtInfoMsg).filter("[Control:Li] [Operation:clicked]").size(), 3);
    QVERIFY(log.texts(QtInfoMsg).first().contains("[ID:row2]"));
}

void TestPageScript::keepsTheFocusInAList_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("texts");
    QTest::addColumn<QString>("after");
    QTest::newRow("same row") << "row2"
                              << "['row 1', 'row 2', 'row 3']"
                              << "row2";
    QTest::newRow("the row moves") << "row2"
                                   << "['row 0', 'row 1', 'row 2']"
                                   << "row2";
    QTest::newRow("the row goes") << "row2"
                                  << "['row 1', 'row 3', 'row 4']"
                                  << "row3";
    QTest::newRow("the last row goes") << "row30"
                                       << "['row 1', 'row 3']"
                                       << "row3";
    QTest::newRow("all rows go") << "row2"
                                 << "[]"
                                 << "";
    QTest::newRow("the focus is elsewhere") << "after"
                                            << "['row 1', 'row 2']"
                                            << "after";
}

void TestPageScript::keepsTheFocusInAList()
{
    QFETCH(QString, before);
    QFETCH(QString, texts);
    QFETCH(QString, after);
    Rows rows;
    QVERIFY(rows.open());
    read(rows.view(), "document.getElementById('" + before + "').focus()");
    read(rows.view(), "fillRows(" + texts + ", '')");
    QCOMPARE(rows.focused(), after);
    QCOMPARE(count(rows.view(), "[role=option][tabindex='0']"), texts == "[]" ? 0 : 1);
}

void TestPageScript::leavesKeysToWhatARowHolds()
{
    Rows rows;
    QVERIFY(rows.open());
    read(rows.view(), "var box = document.createElement('input'); box.id = 'inside';"
                      "document.getElementById('row3').appendChild(box); box.focus()");
    QVERIFY(type(rows.view(), "r 1") && press(rows.view(), Qt::Key_Home));
    QCOMPARE(read(rows.view(), "box.value").toString(), QString("r 1"));
    QCOMPARE(rows.focused(), QString("inside"));
    QCOMPARE(rows.chosen(), QString());
}

void TestPageScript::choosesSeveralRows_data()
{
    using Keys = QVector<int>;
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<int>("changes");
    const int down = Qt::Key_Down;
    const int up = Qt::Key_Up;
    const int space = Qt::Key_Space;
    const int shift = int(Qt::SHIFT);
    const int ctrl = int(Qt::CTRL);
    QTest::newRow("going on chooses nothing") << Keys{down, down} << "" << 0;
    QTest::newRow("one") << Keys{down, space} << "b" << 1;
    QTest::newRow("another one alone") << Keys{space, down, int(Qt::Key_Return)} << "b" << 2;
    QTest::newRow("one more") << Keys{space, down, down, ctrl | space} << "a,c" << 2;
    QTest::newRow("one less") << Keys{space, ctrl | space} << "" << 2;
    QTest::newRow("range") << Keys{space, down, down, shift | space} << "a,b,c" << 2;
    QTest::newRow("range upwards")
        << Keys{down, down, down, space, up, up, shift | space} << "b,c,d" << 2;
    QTest::newRow("range that shrinks")
        << Keys{down, space, shift | down, shift | down, shift | up} << "b,c" << 4;
    QTest::newRow("range from the last one chosen alone")
        << Keys{space, down, ctrl | space, down, down, shift | space} << "b,c,d" << 3;
    QTest::newRow("range to the end")
        << Keys{down, space, shift | int(Qt::Key_End)} << "b,c,d,e" << 2;
    QTest::newRow("range from nowhere") << Keys{down, shift | space} << "b" << 1;
    QTest::newRow("all") << Keys{down, ctrl | int(Qt::Key_A)} << "a,b,c,d,e" << 1;
}

void TestPageScript::choosesSeveralRows()
{
    QFETCH(QVector<int>, keys);
    QFETCH(QString, chosen);
    QFETCH(int, changes);
    Rows rows;
    QVERIFY(rows.open("fillSeveral()"));
    read(rows.view(), "several.focus()");
    for (const int key : keys)
        QVERIFY(press(rows.view(), key & ~Qt::KeyboardModifierMask,
                      Qt::KeyboardModifiers(key & Qt::KeyboardModifierMask)));
    QCOMPARE(read(rows.view(), "several.chosen().map(function (row) { return row.id; }).join()")
                 .toString(),
             chosen);
    QCOMPARE(read(rows.view(), "changes").toInt(), changes);
}

void TestPageScript::choosesSeveralRowsByTheMouse()
{
    Rows rows;
    QVERIFY(rows.open("fillSeveral()"));
    const auto clickWith = [&](const QString &row, Qt::KeyboardModifiers modifiers) {
        read(rows.view(), "var box = Page.get('" + row + "').getBoundingClientRect()");
        const QPoint place(read(rows.view(), "box.left + 5").toInt(),
                           read(rows.view(), "box.top + 5").toInt());
        QTest::mouseClick(rows.view(), Qt::LeftButton, modifiers, place);
        return read(rows.view(), "several.chosen().map(function (row) { return row.id; }).join()")
            .toString();
    };
    QCOMPARE(clickWith("d", Qt::NoModifier), QString("d"));
    QCOMPARE(clickWith("b", Qt::ShiftModifier), QString("b,c,d"));
    QCOMPARE(clickWith("c", Qt::ControlModifier), QString("b,d"));
    QCOMPARE(clickWith("e", Qt::NoModifier), QString("e"));
    QCOMPARE(read(rows.view(), "changes").toInt(), 4);
}

void TestPageScript::rangeGoesOnWhenRowsComeAnew()
{
    Rows rows;
    QVERIFY(rows.open("fillSeveral()"));
    read(rows.view(), "several.focus()");
    QVERIFY(press(rows.view(), Qt::Key_Down) && press(rows.view(), Qt::Key_Space));
    read(rows.view(), "fillSeveral()");
    QVERIFY(press(rows.view(), Qt::Key_Down) && press(rows.view(), Qt::Key_Down));
    QVERIFY(press(rows.view(), Qt::Key_Space, Qt::ShiftModifier));
    QCOMPARE(read(rows.view(), "several.chosen().map(function (row) { return row.id; }).join()")
                 .toString(),
             QString("b,c,d"));
}

int main(int argc, char **argv)
{
    TestPageScript test;
    return runTest(argc, argv, test);
}

#include "test_page_script.moc"
