#include "bridge/operation/FileChoice.h"
#include "bridge/page/GUI_WebView.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/save/support/SaveVisit.h"
#include "workbench/tour/PageHand.h"

#include <QDialog>

using namespace PageHand;

namespace {

const QString Offered =
    QStringLiteral("No recording is offered. Open a folder to bring in those that it holds.");
const QString HandedOver =
    QStringLiteral("The recordings of the folder were handed over to the application.");

/// A folder with an information file of a recording, which the chooser answers with while it lives.
struct ImportVisit : SaveVisit
{
    ImportVisit()
    {
        touch("run.rih");
        choose({folder.path()});
    }
    ~ImportVisit() { FileChoice::setAnswer(nullptr); }

    static void choose(const QStringList &answer)
    {
        FileChoice::setAnswer([answer](const FileChoice::Question &) { return answer; });
    }

    bool open(const std::function<void(QDialog &, GUI_WebView *)> &body)
    {
        return SaveVisit::open("fileopendialog", body);
    }
};

}

/// What the page that imports says of a folder that was opened.
class TestImportFolder : public TestBase
{
    Q_OBJECT

private slots:
    void tellsThatRecordingsWereHandedOver();
    void tellsNothingOfAFolderThatWasNotChosen();
    void listsWhatIsOffered();
};

void TestImportFolder::tellsThatRecordingsWereHandedOver()
{
    ImportVisit visit;
    QVERIFY(visit.open([&](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(text(view, "#noTargets"), Offered);
        QVERIFY(goTo(view, "folder"));
        QVERIFY(press(view, Qt::Key_Space));
        QCOMPARE(text(view, "#noTargets"), HandedOver);
        QCOMPARE(visit.host.commands().filter("openFiles").size(), 1);
        QCOMPARE(cutTexts(view), QStringList());
        QVERIFY(dialog.isVisible());
        QVERIFY(!isEnabled(view, "#import"));
    }));
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) { // anew
        QCOMPARE(text(view, "#noTargets"), Offered);
    }));
}

void TestImportFolder::tellsNothingOfAFolderThatWasNotChosen()
{
    ImportVisit visit;
    visit.choose({});
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#folder"));
        QCOMPARE(text(view, "#noTargets"), Offered);
        QCOMPARE(visit.host.commands().filter("openFiles"), QStringList());
    }));
}

void TestImportFolder::listsWhatIsOffered()
{
    ImportVisit visit;
    visit.host.state().temporaryKeys = {1};
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(count(view, "#targets .target"), 1);
        QVERIFY(!isShown(view, "#noTargets"));
        QVERIFY(click(view, "#folder"));
        QVERIFY(!isShown(view, "#noTargets"));
        QVERIFY(isEnabled(view, "#import"));
    }));
}

int main(int argc, char **argv)
{
    TestImportFolder test;
    return runTest(argc, argv, test);
}

#include "test_import_folder.moc"
