#include "bridge/page/GUI_WebView.h"
#include "save/number/GUI_AddNumberDialog.h"
#include "save/number/JS_Mediator_AddNumberDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/OwnMethods.h"
#include "tests/support/TestLog.h"

#include <QWidget>

#include <memory>

// The dialog that sets the digits of a number, and what its page sees.

class TestAddNumberDialog : public TestBase
{
    Q_OBJECT

private slots:
    void windowIsAsTold();
    void slotsStandInOrder();
    void kindIsHandedOn_data();
    void kindIsHandedOn();
    void digitsFollowFromTheSelection_data();
    void digitsFollowFromTheSelection();
    void fileModeIsThatOfTheHostAndOfConversions_data();
    void fileModeIsThatOfTheHostAndOfConversions();
    void previewIsTheFirstNumber_data();
    void previewIsTheFirstNumber();
    void failuresGiveNeutralValues();
    void pageWorksThem();
    void wholeStory_data();
    void wholeStory();
    void failureWhileConstructedReachesTheCaller();
};

void TestAddNumberDialog::windowIsAsTold()
{
    QWidget parent;
    StandInHost host;
    host.state().translations.insert("Adding a number", "Nummer");
    const GUI_AddNumberDialog dialog(&host, &parent, 2, 1, 1);
    QCOMPARE(dialog.parentWidget(), &parent);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Nummer"));
    QCOMPARE(dialog.mediator()->objectName(), QStringLiteral("addnumberdialog"));
    QCOMPARE(dialog.mediator()->pageName(), QStringLiteral("addnumberdialog"));
    QVERIFY(dynamic_cast<JS_Mediator_AddNumberDialog *>(dialog.mediator()));
}

void TestAddNumberDialog::slotsStandInOrder()
{
    QCOMPARE(
        ownMethods(JS_Mediator_AddNumberDialog::staticMetaObject),
        QStringList({"bool isFileMode()", "int getCallbackType()", "QString preview(int,int,int)",
                     "int getAutoDeviceDigits()", "int getAutoHeadDigits()"}));
}

void TestAddNumberDialog::kindIsHandedOn_data()
{
    QTest::addColumn<int>("kind");
    for (int kind : {0, 1, 5, 13, 16, -1})
        QTest::addRow("%d", kind) << kind;
}

void TestAddNumberDialog::kindIsHandedOn()
{
    QFETCH(int, kind);
    StandInHost host;
    JS_Mediator_AddNumberDialog mediator(&host, kind, 1, 1);
    QCOMPARE(mediator.getCallbackType(), kind);
    QCOMPARE(host.journal(), QStringList());
}

void TestAddNumberDialog::digitsFollowFromTheSelection_data()
{
    QTest::addColumn<int>("documents");
    QTest::addColumn<int>("heads");
    QTest::addColumn<int>("deviceDigits");
    QTest::addColumn<int>("headDigits");
    QTest::newRow("nothing") << 0 << 0 << 1 << 0;
    QTest::newRow("two documents, one head") << 2 << 1 << 1 << 0;
    QTest::newRow("two heads") << 1 << 2 << 1 << 1;
    QTest::newRow("nine") << 9 << 9 << 1 << 1;
    QTest::newRow("ten") << 10 << 10 << 2 << 2;
    QTest::newRow("twelve documents") << 12 << 1 << 2 << 0;
    QTest::newRow("hundred") << 100 << 100 << 3 << 3;
}

void TestAddNumberDialog::digitsFollowFromTheSelection()
{
    QFETCH(int, documents);
    QFETCH(int, heads);
    StandInHost host;
    JS_Mediator_AddNumberDialog mediator(&host, 0, documents, heads);
    QTEST(mediator.getAutoDeviceDigits(), "deviceDigits");
    QTEST(mediator.getAutoHeadDigits(), "headDigits");
}

void TestAddNumberDialog::fileModeIsThatOfTheHostAndOfConversions_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("isConversion");
    for (int kind = -1; kind <= 17; ++kind)
        QTest::addRow("%d", kind) << kind << (kind == 3 || kind == 4 || kind == 5);
}

void TestAddNumberDialog::fileModeIsThatOfTheHostAndOfConversions()
{
    QFETCH(int, kind);
    QFETCH(bool, isConversion);
    for (StandInHost::Mode mode :
         {StandInHost::Mode::Live, StandInHost::Mode::Memory, StandInHost::Mode::File}) {
        StandInHost host;
        host.setMode(mode);
        host.clearJournal();
        JS_Mediator_AddNumberDialog mediator(&host, kind, 1, 1);
        JS_Mediator &base = mediator;
        QCOMPARE(base.isFileMode(), mode == StandInHost::Mode::File || isConversion);
        QCOMPARE(host.journal(), QStringList({"isFileMode()"}));
    }
}

void TestAddNumberDialog::previewIsTheFirstNumber_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("isFileMode");
    QTest::addColumn<QList<int>>("digits");
    QTest::addColumn<QString>("text");
    QTest::newRow("sub directory of an export") << 1 << false << QList<int>{2, 1, 3} << "C01H1S001";
    QTest::newRow("sub directory of a conversion") << 4 << false << QList<int>{2, 1, 3} << "S001";
    QTest::newRow("group directory of a conversion") << 3 << false << QList<int>{2, 1, 3} << "S001";
    QTest::newRow("file of a conversion") << 5 << false << QList<int>{2, 1, 3} << "S001";
    QTest::newRow("files") << 1 << true << QList<int>{2, 1, 3} << "S001";
    QTest::newRow("no head") << 2 << false << QList<int>{3, 0, 4} << "C001S0001";
    QTest::newRow("nothing") << 2 << false << QList<int>{0, 0, 0} << "";
    QTest::newRow("below nothing") << 2 << false << QList<int>{-1, -2, 1} << "S1";
}

void TestAddNumberDialog::previewIsTheFirstNumber()
{
    QFETCH(int, kind);
    QFETCH(bool, isFileMode);
    QFETCH(QList<int>, digits);
    StandInHost host;
    if (isFileMode)
        host.setMode(StandInHost::Mode::File);
    JS_Mediator_AddNumberDialog mediator(&host, kind, 1, 1);
    QTEST(mediator.preview(digits.at(0), digits.at(1), digits.at(2)), "text");
}

void TestAddNumberDialog::failuresGiveNeutralValues()
{
    StandInHost host;
    host.failOn("isFileMode");
    JS_Mediator_AddNumberDialog exporting(&host, 1, 1, 1);
    QCOMPARE(exporting.isFileMode(), false);
    QCOMPARE(host.handledErrors(), QStringList({"isFileMode failed"}));
    host.failOn("isFileMode");
    QCOMPARE(exporting.preview(2, 1, 3), QString());
    QCOMPARE(host.handledErrors().size(), 2);
    host.failOn("isFileMode");
    JS_Mediator_AddNumberDialog converting(&host, 4, 1, 1);
    QCOMPARE(converting.isFileMode(), true); // which does not hang on the host
}

void TestAddNumberDialog::pageWorksThem()
{
    StandInHost host;
    const auto dialog = std::make_unique<GUI_AddNumberDialog>(&host, nullptr, 13, 12, 3);
    PageProbe page(dialog->webView());
    dialog->show();
    QVERIFY(page.waitLoaded());
    QCOMPARE(page.call("addnumberdialog.isFileMode()"), QStringLiteral("false"));
    QCOMPARE(page.call("addnumberdialog.getCallbackType()"), QStringLiteral("13"));
    QCOMPARE(page.call("addnumberdialog.preview(2, 1, 3)"), QStringLiteral("\"C01H1S001\""));
    QVERIFY(page.call("addnumberdialog.preview('2', null, 3)").startsWith("error: "));
    QCOMPARE(page.call("addnumberdialog.getAutoDeviceDigits()"), QStringLiteral("2"));
    QCOMPARE(page.call("addnumberdialog.getAutoHeadDigits()"), QStringLiteral("1"));
}

void TestAddNumberDialog::wholeStory_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("result");
    QTest::newRow("accept") << "accept" << int(QDialog::Accepted);
    QTest::newRow("reject") << "reject" << int(QDialog::Rejected);
}

// From opening to closing: all that the host is asked and told. The page writes, the dialog does
// not.
void TestAddNumberDialog::wholeStory()
{
    QFETCH(QString, way);
    QFETCH(int, result);
    QWidget mainWidget;
    StandInHost host;
    host.state().mainWidget = &mainWidget;
    {
        GUI_AddNumberDialog dialog(&host, &mainWidget, 2, 1, 1);
        PageProbe page(dialog.webView());
        dialog.show();
        QVERIFY(page.waitLoaded());
        page.call("addnumberdialog.setPrefInt('export/filenameaddnumbersessionnodigits', 6)");
        page.call("addnumberdialog." + way + "()");
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), result);
    }
    QCOMPARE(host.settings().value("export/filenameaddnumbersessionnodigits", QVariant()).toInt(),
             6);
    QCOMPARE(host.journal(),
             QStringList({"needsDialogEnterNotice()", "translate(\"Adding a number\")",
                          "attachMediator(GUI_WebView, JS_Mediator_AddNumberDialog)",
                          "deterUpdateUI(true)", "mainWidget()", "deterUpdateUI(false)",
                          "updateUI(4294967295, true)",
                          "setPrefInt(\"export/filenameaddnumbersessionnodigits\", 6)",
                          "updateUI(63, true)"}));
}

void TestAddNumberDialog::failureWhileConstructedReachesTheCaller()
{
    for (const char *operation : {"translate", "attachMediator"}) {
        StandInHost host;
        host.failOn(operation);
        QVERIFY_EXCEPTION_THROWN(GUI_AddNumberDialog(&host, nullptr, 2, 1, 1), StandInFault);
        QCOMPARE(host.deterrals(), 0);
    }
}

int main(int argc, char **argv)
{
    TestAddNumberDialog test;
    return runTest(argc, argv, test);
}

#include "test_add_number_dialog.moc"
