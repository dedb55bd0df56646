#include "bridge/operation/FileChoice.h"
#include "bridge/page/GUI_WebView.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/save/support/SaveVisit.h"
#include "workbench/tour/PageHand.h"

#include <QDialog>

using namespace PageHand;

/// The page that imports recordings.
class TestFileOpenPage : public TestBase
{
    Q_OBJECT

private slots:
    void handsOverWhatIsChosen();
    void handsOverNothingOnCancel();
    void tellsThatNothingIsOffered();
    void opensAFolder();
};

void TestFileOpenPage::handsOverWhatIsChosen()
{
    SaveVisit visit;
    visit.host.state().temporaryKeys = {1, 2};
    int result = -1;
    QVERIFY(visit.open("fileopendialog", [&](QDialog &dialog, GUI_WebView *view) {
        QObject::connect(&dialog, &QDialog::finished, [&](int end) { result = end; });
        QCOMPARE(count(view, "#targets .target"), 2);
        QVERIFY(click(view, "#target-1-1"));
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QCOMPARE(text(view, "#count"), QString("2 chosen"));
        QVERIFY(click(view, "#import"));
    }));
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(visit.host.commands().filter("importTargets"), QStringList("importTargets([1, 2])"));
}

void TestFileOpenPage::handsOverNothingOnCancel()
{
    SaveVisit visit;
    visit.host.state().temporaryKeys = {1};
    QVERIFY(visit.open("fileopendialog", [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(click(view, "#cancel"));
        QVERIFY(!dialog.isVisible());
    }));
    QCOMPARE(visit.host.commands().filter("importTargets"), QStringList());
}

void TestFileOpenPage::tellsThatNothingIsOffered()
{
    SaveVisit visit;
    QVERIFY(visit.open("fileopendialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(text(view, "#noTargets").startsWith("No recording is offered."));
        QVERIFY(!isEnabled(view, "#import"));
    }));
}

void TestFileOpenPage::opensAFolder()
{
    SaveVisit visit;
    visit.touch("shot.rih");
    FileChoice::setAnswer(
        [&](const FileChoice::Question &) { return QStringList(visit.folder.path()); });
    QVERIFY(visit.open("fileopendialog", [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(click(view, "#folder"));
        QVERIFY(dialog.isVisible());
    }));
    FileChoice::setAnswer(nullptr);
    QCOMPARE(visit.host.commands().filter("openFiles"),
             QStringList("openFiles([\"" + visit.base() +
                         "shot.rih\"], true, true, true, false, false)"));
}

int main(int argc, char **argv)
{
    TestFileOpenPage test;
    return runTest(argc, argv, test);
}

#include "test_file_open_page.moc"
