#include "bridge/page/GUI_WebView.h"
#include "standin/documents/StandInCamera.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/support/PageVisit.h"
#include "workbench/tour/PageHand.h"

#include <QDialog>

using namespace PageHand;

namespace {

/// A host with cameras of these comments, all of which are selected; the first is current.
struct CommentVisit : PageVisit
{
    explicit CommentVisit(const QStringList &comments)
    {
        for (const QString &comment : comments) {
            StandInCamera *camera = host.addCamera();
            keys.append(camera->key());
            camera->state().documentName = QString("Camera %1").arg(keys.size());
            camera->state().comment = comment;
            host.select(camera->key(), true);
        }
        if (!keys.isEmpty())
            host.makeCurrent(keys.first());
    }

    bool open(const std::function<void(QDialog &, GUI_WebView *)> &body)
    {
        return PageVisit::open("comments", [&](QDialog &dialog, GUI_WebView *view) {
            QObject::connect(&dialog, &QDialog::finished, [this](int end) { result = end; });
            body(dialog, view);
        });
    }

    QStringList comments() const
    {
        QStringList texts;
        for (const DOCKEY key : keys)
            texts.append(host.camera(key) ? host.camera(key)->state().comment : "gone");
        return texts;
    }

    QList<DOCKEY> keys;
    int result = -1;
};

QString shownRows(GUI_WebView *view, const QString &selector)
{
    return read(view, "Page.all('#documents " + selector +
                          "').map(function (row) { return row.textContent; }).join()")
        .toString();
}

QString chosenRows(GUI_WebView *view)
{
    return shownRows(view, "li[aria-selected=true]");
}

QString editor(GUI_WebView *view)
{
    return shownIn(view, "comment").toString();
}

bool isMixed(GUI_WebView *view)
{
    return count(view, "#comment.mixed") == 1;
}

// Goes to the list and chooses rows by keys: "1", "1+3" with Ctrl, "1-3" with Shift.
bool choose(GUI_WebView *view, const QString &rows)
{
    if (!click(view, "#row-" + rows.left(1)))
        return false;
    if (rows.size() < 3)
        return true;
    for (int i = rows.at(0).digitValue(); i < rows.at(2).digitValue(); ++i)
        press(view, Qt::Key_Down, rows.at(1) == '-' ? Qt::ShiftModifier : Qt::NoModifier);
    return rows.at(1) == '-' || press(view, Qt::Key_Space, Qt::ControlModifier);
}

const char *const Nameless = "No name, or no longer open";
const char *const StillOpen = "Only what is still open is stored.";
const char *const Differ = "The comments differ. What is written here replaces all of them.";

}

/// The page that edits the comments of several documents.
class TestCommentPage : public TestBase
{
    Q_OBJECT

private slots:
    void beginsWithTheCurrentDocument_data();
    void beginsWithTheCurrentDocument();
    void showsTheCommentOfTheChosenRows_data();
    void showsTheCommentOfTheChosenRows();
    void oneEditGoesToAllChosenRows();
    void looksAtMixedCommentsLeaveThemAlone();
    void mixedCommentsAreReplacedByWhatIsWritten();
    void editsStayWithTheirRows();
    void worksByKeysAlone();
    void storesOnlyByOk_data();
    void storesOnlyByOk();
    void escapeLeavesItOpen();
    void textsPassUnchanged_data();
    void textsPassUnchanged();
    void markupInNamesRunsNothing();
    void marksDocumentsThatVanish();
    void storesTheCommentOfADocumentWithoutAName();
    void goesOnWhenAllDocumentsVanish();
    void tellsThatNothingIsSelected();
    void tellsWhatCouldNotBeRead();
    void keepsWhatCouldNotBeStored();
    void hasRoomForAll();
};

void TestCommentPage::beginsWithTheCurrentDocument_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<bool>("isSelected");
    QTest::addColumn<QString>("chosen");
    QTest::newRow("current document") << 2 << true << "Camera 2";
    QTest::newRow("one that is not listed") << 3 << false << "Camera 1";
}

void TestCommentPage::beginsWithTheCurrentDocument()
{
    QFETCH(int, current);
    QFETCH(bool, isSelected);
    QFETCH(QString, chosen);
    CommentVisit visit({"one", "two", "three"});
    visit.host.makeCurrent(visit.keys.at(current - 1));
    for (const DOCKEY key : qAsConst(visit.keys))
        visit.host.select(key, isSelected || key != visit.keys.at(current - 1));
    QVERIFY(visit.open([&](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(dialog.size(), QSize(340, 440));
        QCOMPARE(shownRows(view, "li"),
                 QString(isSelected ? "Camera 1,Camera 2,Camera 3" : "Camera 1,Camera 2"));
        QCOMPARE(chosenRows(view), chosen);
        QCOMPARE(editor(view), QString(current == 2 ? "two" : "one"));
        QVERIFY(type(view, "!")); // it has the focus
        QVERIFY(editor(view).contains('!'));
    }));
}

void TestCommentPage::showsTheCommentOfTheChosenRows_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("note");
    QTest::newRow("one") << "2"
                         << "same"
                         << "";
    QTest::newRow("the same twice") << "2-3"
                                    << "same"
                                    << "One comment for 2 documents";
    QTest::newRow("different ones") << "1+3"
                                    << ""
                                    << "2 documents, mixed comments";
    QTest::newRow("one of them empty") << "3-4"
                                       << ""
                                       << "2 documents, mixed comments";
    QTest::newRow("all") << "1-4"
                         << ""
                         << "4 documents, mixed comments";
}

void TestCommentPage::showsTheCommentOfTheChosenRows()
{
    QFETCH(QString, rows);
    QFETCH(QString, shown);
    QFETCH(QString, note);
    CommentVisit visit({"one", "same", "same", ""});
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(choose(view, rows));
        QCOMPARE(editor(view), shown);
        QCOMPARE(isMixed(view), note.contains("mixed"));
        QCOMPARE(shownIn(view, "comment", "placeholder").toString(),
                 QString(note.contains("mixed") ? Differ : ""));
        QCOMPARE(text(view, "#note"), note);
    }));
}

void TestCommentPage::oneEditGoesToAllChosenRows()
{
    CommentVisit visit({"same", "same", "three"});
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(choose(view, "1-2"));
        QVERIFY(click(view, "#comment"));
        QVERIFY(press(view, Qt::Key_End, Qt::ControlModifier));
        QVERIFY(type(view, "!"));
        QCOMPARE(visit.comments(), QStringList({"same", "same", "three"}));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.comments(), QStringList({"same!", "same!", "three"}));
    QCOMPARE(visit.result, int(QDialog::Accepted));
}

void TestCommentPage::looksAtMixedCommentsLeaveThemAlone()
{
    CommentVisit visit({"one", "two", "three"});
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(choose(view, "1-3"));
        QVERIFY(isMixed(view));
        QVERIFY(click(view, "#comment")); // nothing is written
        QVERIFY(press(view, Qt::Key_Delete));
        QVERIFY(press(view, Qt::Key_Tab));
        QVERIFY(choose(view, "2"));
        QCOMPARE(editor(view), QString("two"));
        QVERIFY(choose(view, "1-3"));
        QVERIFY(isMixed(view));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.comments(), QStringList({"one", "two", "three"}));
}

void TestCommentPage::mixedCommentsAreReplacedByWhatIsWritten()
{
    CommentVisit visit({"one", "two", "three"});
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(choose(view, "1+3"));
        QVERIFY(click(view, "#comment"));
        QVERIFY(type(view, "x"));
        QVERIFY(!isMixed(view));
        QCOMPARE(text(view, "#note"), QString("One comment for 2 documents"));
        QVERIFY(press(view, Qt::Key_Backspace)); // an empty comment is one too
        QVERIFY(!isMixed(view));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.comments(), QStringList({"", "two", ""}));
}

void TestCommentPage::editsStayWithTheirRows()
{
    CommentVisit visit({"one", "two"});
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(choose(view, "1"));
        QVERIFY(typeInto(view, "comment", "first"));
        QVERIFY(choose(view, "2"));
        QCOMPARE(editor(view), QString("two"));
        QVERIFY(typeInto(view, "comment", "second"));
        QVERIFY(choose(view, "1"));
        QCOMPARE(editor(view), QString("first"));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.comments(), QStringList({"first", "second"}));
}

void TestCommentPage::worksByKeysAlone()
{
    CommentVisit visit({"one", "two", "three"});
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(goTo(view, "row-1"));
        QVERIFY(press(view, Qt::Key_Down));
        QVERIFY(press(view, Qt::Key_Space));
        QVERIFY(press(view, Qt::Key_Down, Qt::ShiftModifier));
        QCOMPARE(chosenRows(view), QString("Camera 2,Camera 3"));
        QVERIFY(press(view, Qt::Key_Tab));
        QVERIFY(type(view, "a"));
        QVERIFY(press(view, Qt::Key_Return));
        QVERIFY(type(view, "b"));
        QVERIFY(goTo(view, "ok"));
        QVERIFY(press(view, Qt::Key_Return));
    }));
    QCOMPARE(visit.comments(), QStringList({"one", "a\nb", "a\nb"}));
}

void TestCommentPage::storesOnlyByOk_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"ok", "cancel", "title bar"})
        QTest::newRow(way) << way;
}

void TestCommentPage::storesOnlyByOk()
{
    QFETCH(QString, way);
    CommentVisit visit({"one{Separator}line", "two"});
    QVERIFY(visit.open([&](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(editor(view), QString("one\nline"));
        QVERIFY(choose(view, "2"));
        QVERIFY(typeInto(view, "comment", "new"));
        QVERIFY(way == "title bar" ? dialog.close() : click(view, '#' + way));
        QVERIFY(!dialog.isVisible());
    }));
    const bool isOk = way == "ok";
    QCOMPARE(visit.comments(),
             isOk ? QStringList({"one\nline", "new"}) : QStringList({"one{Separator}line", "two"}));
    QCOMPARE(visit.host.commands().filter("setDocumentComment").size(), isOk ? 2 : 0);
    QCOMPARE(visit.result, int(isOk ? QDialog::Accepted : QDialog::Rejected));
}

void TestCommentPage::escapeLeavesItOpen()
{
    CommentVisit visit({"one"});
    QVERIFY(visit.open([&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(typeInto(view, "comment", "new"));
        QVERIFY(press(view, Qt::Key_Escape));
        QVERIFY(dialog.isVisible());
        QCOMPARE(editor(view), QString("new"));
    }));
    QCOMPARE(visit.comments(), QStringList("one"));
}

void TestCommentPage::textsPassUnchanged_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("markup") << "<b onclick=\"x()\">'&amp;'</b>";
    QTest::newRow("lines") << "one\n\ntwo\t\\n";
    QTest::newRow("right to left") << QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd \u202e1");
    QTest::newRow("beyond the first plane") << QString::fromUtf8("\U0001F3A5 \U00010348");
    QTest::newRow("percent") << "%1 %2 {0}";
    QTest::newRow("blanks") << "   ";
}

// As a text that stays, and one that an edit is added to.
void TestCommentPage::textsPassUnchanged()
{
    QFETCH(QString, text);
    CommentVisit visit({text, text});
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(editor(view), text);
        QVERIFY(click(view, "#comment"));
        QVERIFY(press(view, Qt::Key_End, Qt::ControlModifier));
        QVERIFY(type(view, "!"));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.comments(), QStringList({text + '!', text}));
}

void TestCommentPage::markupInNamesRunsNothing()
{
    CommentVisit visit({"one"});
    const QString name("<img src=x onerror=\"document.title='run'\"><b>&amp;");
    visit.host.camera(visit.keys.first())->state().documentName = name;
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownRows(view, "li"), name);
        QCOMPARE(count(view, "#documents img, #documents b"), 0);
        QCOMPARE(read(view, "document.title").toString(), QString("Comment"));
    }));
}

void TestCommentPage::marksDocumentsThatVanish()
{
    CommentVisit visit({"one", "two", "three"});
    QVERIFY(visit.open([&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(choose(view, "2-3"));
        QVERIFY(click(view, "#comment"));
        QVERIFY(type(view, "new"));
        visit.host.closeDocument(visit.keys.at(1));
        QTRY_COMPARE(shownRows(view, "li.nameless"), QString(Nameless));
        QCOMPARE(shownRows(view, "li"), QString("Camera 1,%1,Camera 3").arg(Nameless));
        QCOMPARE(chosenRows(view), QString("%1,Camera 3").arg(Nameless));
        QCOMPARE(editor(view), QString("new")); // not lost
        QCOMPARE(text(view, "#note"), QString(StillOpen));
        QVERIFY(type(view, "er")); // and the focus stays
        QVERIFY(click(view, "#ok"));
        QVERIFY(!dialog.isVisible());
    }));
    QCOMPARE(visit.comments(), QStringList({"one", "gone", "newer"}));
    QCOMPARE(visit.host.handledErrors(), QStringList());
}

// The page cannot tell it from one that has gone, and says so.
void TestCommentPage::storesTheCommentOfADocumentWithoutAName()
{
    CommentVisit visit({"one", "two"});
    visit.host.camera(visit.keys.at(1))->state().documentName.clear();
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownRows(view, "li"), QString("Camera 1,%1").arg(Nameless));
        QVERIFY(read(view, "Page.get('row-2').scrollWidth <= Page.get('row-2').clientWidth")
                    .toBool()); // not cut
        QVERIFY(choose(view, "2"));
        QCOMPARE(editor(view), QString("two"));
        QCOMPARE(text(view, "#note"), QString(StillOpen));
        QVERIFY(typeInto(view, "comment", "new"));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.comments(), QStringList({"one", "new"}));
}

void TestCommentPage::goesOnWhenAllDocumentsVanish()
{
    CommentVisit visit({"one", "two"});
    QVERIFY(visit.open([&](QDialog &dialog, GUI_WebView *view) {
        for (const DOCKEY key : qAsConst(visit.keys))
            visit.host.closeDocument(key);
        QTRY_COMPARE(count(view, "#documents li.nameless"), 2);
        visit.host.addCamera(); // none of the list
        QTest::qWait(50);
        QCOMPARE(count(view, "#documents li.nameless"), 2);
        QVERIFY(choose(view, "1-2"));
        QVERIFY(typeInto(view, "comment", "new"));
        QVERIFY(click(view, "#ok"));
        QVERIFY(!dialog.isVisible());
    }));
    QCOMPARE(visit.host.commands().filter("setDocumentComment"), QStringList());
    QCOMPARE(visit.host.handledErrors(), QStringList());
}

void TestCommentPage::tellsThatNothingIsSelected()
{
    CommentVisit visit({});
    QVERIFY(visit.open([&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(!isShown(view, "#documents"));
        QCOMPARE(text(view, "#state"), QString("No camera and no recording is selected."));
        QVERIFY(!isEnabled(view, "#comment"));
        QVERIFY(click(view, "#ok"));
        QVERIFY(!dialog.isVisible());
    }));
}

void TestCommentPage::tellsWhatCouldNotBeRead()
{
    CommentVisit visit({"one", "two"});
    visit.host.failOn("documentName", 1);
    LogCapture log;
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#state"), QString("The documents could not be read."));
        QCOMPARE(log.texts(QtCriticalMsg),
                 QStringList("[USER][ERROR] \"The documents could not be read.\""));
        QVERIFY(!isEnabled(view, "#comment"));
        visit.host.closeDocument(visit.keys.at(1)); // tells it of documents again
        QTRY_COMPARE(shownRows(view, "li"), QString("Camera 1,%1").arg(Nameless));
        QVERIFY(!isShown(view, "#state"));
        QCOMPARE(editor(view), QString("one"));
    }));
    QCOMPARE(visit.host.handledErrors(), QStringList("documentName failed"));
}

void TestCommentPage::keepsWhatCouldNotBeStored()
{
    CommentVisit visit({"one", "two"});
    QVERIFY(visit.open([&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(choose(view, "1-2"));
        QVERIFY(typeInto(view, "comment", "new"));
        visit.host.failOn("setDocumentComment", 2);
        QVERIFY(click(view, "#ok"));
        QVERIFY(dialog.isVisible());
        QCOMPARE(visit.comments(), QStringList({"new", "two"}));
        QCOMPARE(editor(view), QString("new"));
        QVERIFY(click(view, "#ok"));
        QVERIFY(!dialog.isVisible());
    }));
    QCOMPARE(visit.comments(), QStringList({"new", "new"}));
    QCOMPARE(visit.host.handledErrors(), QStringList("setDocumentComment failed"));
}

void TestCommentPage::hasRoomForAll()
{
    QStringList comments;
    for (int i = 1; i <= 30; ++i)
        comments.append(QString::number(i));
    CommentVisit visit(comments);
    visit.host.camera(visit.keys.first())->state().documentName = QString(200, 'W');
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(choose(view, "1-3"));
        QVERIFY(read(view, "document.documentElement.scrollHeight <= innerHeight &&"
                           "document.documentElement.scrollWidth <= innerWidth")
                    .toBool());
        for (const char *part : {"#documents", "#note", "#comment", "#ok"})
            QVERIFY2(isShown(view, part), part);
        QVERIFY(read(view, "Page.get('comment').clientHeight >= 100").toBool());
        QVERIFY(click(view, "#row-30")); // scrolled to
        QCOMPARE(editor(view), QString("30"));
    }));
}

int main(int argc, char **argv)
{
    TestCommentPage test;
    return runTest(argc, argv, test);
}

#include "test_comment_page.moc"
