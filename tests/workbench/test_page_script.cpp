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

int main(int argc, char **argv)
{
    TestPageScript test;
    return runTest(argc, argv, test);
}

#include "test_page_script.moc"
