#include "bridge/page/GUI_WebView.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/save/support/SaveVisit.h"
#include "workbench/tour/PageHand.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>

using namespace PageHand;

/// The page of what follows an automatic conversion.
class TestConvertPage : public TestBase
{
    Q_OBJECT

private slots:
    void hasItsSize();
    void showsThePath();
    void storesAtOnceWhateverCloses_data();
    void storesAtOnceWhateverCloses();
    void opensFromTheExportPage();
    void tellsTheFolderOfTheRecording();
    void tellsThatNothingIsChosen();
};

void TestConvertPage::hasItsSize()
{
    SaveVisit visit;
    QVERIFY(visit.open("convertparametereditdialog", [&](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(dialog.size(), QSize(600, 920));
        QCOMPARE(cutTexts(view), QStringList());
        QVERIFY(!isShown(view, "#notice"));
    }));
}

void TestConvertPage::showsThePath()
{
    SaveVisit visit;
    visit.set("convert/filename", "Converted");
    QVERIFY(visit.open("convertparametereditdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownPath(view), QString("Converted"));
        QCOMPARE(text(view, "#path .base"), visit.base());
        QCOMPARE(text(view, "#count"), QString("2 chosen"));
        QVERIFY(click(view, "#subUse"));
        QVERIFY(typeInto(view, "subName", "Movies"));
        QVERIFY(waitForPath(view, "Movies/Converted"));
    }));
    QCOMPARE(visit.host.commands().filter("Planned").filter("add"), QStringList());
}

void TestConvertPage::storesAtOnceWhateverCloses_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("result");
    QTest::newRow("OK") << "#save" << int(QDialog::Accepted);
    QTest::newRow("Cancel") << "#cancel" << int(QDialog::Rejected);
}

void TestConvertPage::storesAtOnceWhateverCloses()
{
    QFETCH(QString, button);
    SaveVisit visit;
    int end = -1;
    QVERIFY(visit.open("convertparametereditdialog", [&](QDialog &dialog, GUI_WebView *view) {
        QObject::connect(&dialog, &QDialog::finished, [&](int result) { end = result; });
        QVERIFY(typeInto(view, "fileName", "Mine"));
        QVERIFY(click(view, button));
    }));
    QTEST(end, "result");
    QCOMPARE(visit.setting("convert/filename").toString(), QString("Mine"));
}

void TestConvertPage::opensFromTheExportPage()
{
    SaveVisit visit;
    visit.set("convert/filename", "Converted");
    bool opened = false;
    QVERIFY(visit.open("exportdialog", [&](QDialog &dialog, GUI_WebView *view) {
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            auto *over = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            if (!over || over == &dialog)
                return;
            look.stop();
            auto *page = over->findChild<GUI_WebView *>();
            opened = QTest::qWaitFor([&] { return shownPath(page) == "Converted"; });
            over->reject();
        });
        look.start(5);
        QVERIFY(click(view, "#convert"));
        QVERIFY(dialog.isVisible());
    }));
    QVERIFY(opened);
}

// Of a recording that is no file yet, the folder of its own save.
void TestConvertPage::tellsTheFolderOfTheRecording()
{
    SaveVisit visit;
    visit.set("convert/dirasoriginal", true);
    visit.set("convert/filename", "Converted");
    visit.set("export/subdir", true);
    visit.set("export/subdirname", "Raw");
    QVERIFY(visit.open("convertparametereditdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#path .base"), visit.base() + "Raw/");
        QVERIFY(!isEnabled(view, "#folder"));
        QCOMPARE(linesOf(view, "warnings"), QStringList());
    }));
}

void TestConvertPage::tellsThatNothingIsChosen()
{
    SaveVisit visit;
    visit.host.removeDocument(1);
    visit.host.removeDocument(2);
    QVERIFY(visit.open("convertparametereditdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(text(view, "#noTargets").startsWith("No recording is chosen."));
        QVERIFY(isEnabled(view, "#save"));
    }));
}

int main(int argc, char **argv)
{
    TestConvertPage test;
    return runTest(argc, argv, test);
}

#include "test_convert_page.moc"
