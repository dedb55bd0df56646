#include "bridge/page/GUI_WebView.h"
#include "record/comment/GUI_CommentDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/OwnMethods.h"
#include "tests/support/TestLog.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>

// The dialog of comments, worked by its page, on three cameras.

class TestCommentDialog : public TestBase
{
    Q_OBJECT

private slots:
    void windowIsAsTold();
    void slotsStandInOrder();
    void objectsComeBackWithEachPage();
    void documentsAreAskedFor_data();
    void documentsAreAskedFor();
    void keyWithoutADocumentMakesNoRow();
    void separatorsBecomeLines();
    void textsPassUnchanged_data();
    void textsPassUnchanged();
    void rowsAreListed();
    void initialRow_data();
    void initialRow();
    void documentThatHasGoneHasNoName();
    void selectionFollowsThePage_data();
    void selectionFollowsThePage();
    void oneEditGoesToAllSelectedRows();
    void editWithoutASelectionChangesNothing();
    void rowsBeyondTheListAreEmpty_data();
    void rowsBeyondTheListAreEmpty();
    void wholeStory();
    void cancelLeavesTheDocuments();
    void frameLeavesTheDocuments();
    void formChangesOnEveryOk();
    void documentThatHasGoneIsPassedOver();
    void newDocumentIsNoneOfTheList();
    void newDocumentAtAnOldAddressIsNoneOfTheList();
    void failedOkStaysOpen();
    void failuresGiveNeutralValues();
    void failureWhileConstructedReachesTheCaller();
    void escapeIsIgnored();
    void dialogMayGoWhileItsHostIsAsked_data();
    void dialogMayGoWhileItsHostIsAsked();
};

namespace {

const QString Object = QStringLiteral("comment_mediator.");

// Has another document at the address of each one, on demand.
class RenumberingHost : public StandInHost
{
public:
    DOCKEY documentKeyOf(DOC_Interface *doc) override
    {
        return StandInHost::documentKeyOf(doc) + (isRenumbered ? 70 : 0);
    }
    DOC_Interface *deviceByKey(DOCKEY key, bool flag) override
    {
        if (!isRenumbered)
            return StandInHost::deviceByKey(key, flag);
        return key > 70 ? StandInHost::deviceByKey(key - 70, flag) : nullptr;
    }

    bool isRenumbered = false;
};

/// A host with three cameras, of which all are selected.
struct Cameras
{
    Cameras()
    {
        host.state().mainWidget = &mainWidget;
        for (int i = 1; i <= 3; ++i) {
            StandInCamera *camera = host.addCamera();
            camera->state().documentName = QStringLiteral("Camera %1").arg(i);
            camera->state().comment = QStringLiteral("Comment %1").arg(i);
            keys.append(camera->key());
            host.select(camera->key(), true);
        }
        host.clearJournal();
    }

    QString comment(int number) { return host.camera(keys.at(number - 1))->state().comment; }
    DOC_Interface *document(int number) { return host.camera(keys.at(number - 1))->contract(); }

    QWidget mainWidget;
    RenumberingHost host;
    QList<DOCKEY> keys;
};

struct Shown : Cameras
{
    Shown() { open(); }
    ~Shown()
    {
        page.reset();
        delete dialog;
    }

    void open()
    {
        page.reset();
        delete dialog;
        dialog = new GUI_CommentDialog(&host);
        page = std::make_unique<PageProbe>(dialog->webView());
        dialog->show();
        loaded = page->waitLoaded();
        host.clearJournal();
    }

    QString call(const QString &slot) { return page->call(Object + slot); }

    QPointer<GUI_CommentDialog> dialog;
    std::unique_ptr<PageProbe> page;
    bool loaded = false;
};

QString shown(GUI_CommentDialog &dialog, int row)
{
    dialog.setSelectedItems({row});
    return dialog.getComment();
}

QJsonObject infos(GUI_CommentDialog &dialog)
{
    return QJsonDocument::fromJson(dialog.getDocInfos().toUtf8()).object();
}

}

void TestCommentDialog::windowIsAsTold()
{
    Cameras cameras;
    cameras.host.state().translations.insert("Comment", "Kommentar");
    GUI_CommentDialog dialog(&cameras.host);
    QCOMPARE(dialog.parentWidget(), &cameras.mainWidget);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Kommentar"));
    QCOMPARE(dialog.minimumSize(), QSize(340, 440));
    QCOMPARE(dialog.maximumSize(), QSize(340, 440));
    QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));
    QCOMPARE(dialog.webView()->parentWidget(), static_cast<QWidget *>(&dialog));
}

void TestCommentDialog::slotsStandInOrder()
{
    QCOMPARE(ownMethods(GUI_CommentDialog::staticMetaObject),
             QStringList({"void comment_ok()", "void comment_cancel()",
                          "void populateJavaScriptWindowObject()", "QString getComment()",
                          "void setComment(QString)", "QString translate(QString)",
                          "QString getStyle()", "void setSelectedItems(QList<int>)",
                          "QString getDocInfos()", "QList<int> getSelectedItems()"}));
}

void TestCommentDialog::objectsComeBackWithEachPage()
{
    Shown shown;
    QVERIFY(shown.page->isFound());
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(shown.page->call("typeof comment_mediator + app.objectName"),
                 QStringLiteral("\"objectapp\""));
        shown.dialog->webView()->reload();
        QVERIFY(shown.page->waitLoaded());
        QCOMPARE(shown.host.journal(), QStringList({"appScriptObject()"}));
        shown.host.clearJournal();
    }
}

void TestCommentDialog::documentsAreAskedFor_data()
{
    QTest::addColumn<bool>("forADocument");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("selected") << false
                              << QStringList({"mainWidget()", "translate(\"Comment\")",
                                              "selectedDocKeys(true)", "deviceByKey(1, true)",
                                              "[1].documentComment()", "documentKeyOf([1])",
                                              "deviceByKey(2, true)", "[2].documentComment()",
                                              "documentKeyOf([2])", "deviceByKey(3, true)",
                                              "[3].documentComment()", "documentKeyOf([3])"});
    QTest::newRow("of a document")
        << true
        << QStringList({"mainWidget()", "translate(\"Comment\")", "targetDocKeys(true, 0)",
                        "deviceByKey(3, true)", "[3].documentComment()", "documentKeyOf([3])",
                        "deviceByKey(1, true)", "[1].documentComment()", "documentKeyOf([1])"});
}

void TestCommentDialog::documentsAreAskedFor()
{
    QFETCH(bool, forADocument);
    QFETCH(QStringList, calls);
    Cameras cameras;
    QCOMPARE(cameras.keys, QList<DOCKEY>({1, 2, 3}));
    cameras.host.state().targetKeys = {3, 1};
    GUI_CommentDialog dialog(&cameras.host, forADocument ? cameras.document(1) : nullptr);
    QCOMPARE(cameras.host.journal(), calls);
    QCOMPARE(shown(dialog, 1),
             forADocument ? QStringLiteral("Comment 3") : QStringLiteral("Comment 1"));
}

void TestCommentDialog::keyWithoutADocumentMakesNoRow()
{
    Cameras cameras;
    cameras.host.state().targetKeys = {77, 2};
    GUI_CommentDialog dialog(&cameras.host, cameras.document(2));
    QCOMPARE(infos(dialog).value("Records").toArray().size(), 1);
    QCOMPARE(shown(dialog, 1), QStringLiteral("Comment 2"));
}

void TestCommentDialog::separatorsBecomeLines()
{
    Cameras cameras;
    cameras.host.camera(1)->state().comment = "one{Separator}two{Separator}";
    GUI_CommentDialog dialog(&cameras.host);
    QCOMPARE(shown(dialog, 1), QStringLiteral("one\ntwo\n"));
    QCOMPARE(cameras.comment(1), QStringLiteral("one{Separator}two{Separator}"));
}

void TestCommentDialog::textsPassUnchanged_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("markup") << "<b onclick=\"x()\">'&amp;'</b>";
    QTest::newRow("lines") << "one\n\ntwo\t\\n";
    QTest::newRow("right to left") << QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd \u202e1");
    QTest::newRow("beyond the first plane") << QString::fromUtf8("\U0001F3A5 \U00010348");
    QTest::newRow("empty") << "";
}

// From the page to the document and back.
void TestCommentDialog::textsPassUnchanged()
{
    QFETCH(QString, text);
    Shown shown;
    shown.call("setSelectedItems([2])");
    shown.call("setComment(" + scriptText(text) + ")");
    QCOMPARE(shown.call("getComment() === " + scriptText(text)), QStringLiteral("true"));
    shown.call("comment_ok()");
    QCOMPARE(shown.comment(2), text);
    shown.host.camera(2)->state().documentName = text;
    shown.open();
    shown.call("setSelectedItems([2])");
    QCOMPARE(shown.call("getComment() === " + scriptText(text)), QStringLiteral("true"));
    QCOMPARE(shown.page->call("JSON.parse(comment_mediator.getDocInfos()).Records[1].name === " +
                              scriptText(text)),
             QStringLiteral("true"));
}

void TestCommentDialog::rowsAreListed()
{
    Shown shown;
    shown.host.makeCurrent(2);
    shown.host.clearJournal();
    const QJsonObject expected =
        QJsonDocument::fromJson("{\"Records\":[{\"recid\":1,\"name\":\"Camera 1\"},"
                                "{\"recid\":2,\"name\":\"Camera 2\"},"
                                "{\"recid\":3,\"name\":\"Camera 3\"}],\"InitSelect\":2}")
            .object();
    const QString text = shown.dialog->getDocInfos();
    QCOMPARE(QJsonDocument::fromJson(text.toUtf8()).object(), expected);
    QVERIFY(!text.contains('\n') && !text.contains(": "));
    QCOMPARE(shown.host.journal(),
             QStringList({"currentDocument()", "deviceByKey(1, true)", "[1].documentName()",
                          "deviceByKey(2, true)", "[2].documentName()", "deviceByKey(3, true)",
                          "[3].documentName()"}));
}

void TestCommentDialog::initialRow_data()
{
    QTest::addColumn<int>("opened");
    QTest::addColumn<int>("current");
    QTest::addColumn<QList<DOCKEY>>("targets");
    QTest::addColumn<int>("row");
    QTest::newRow("document of the dialog") << 1 << 2 << QList<DOCKEY>({3, 1}) << 2;
    QTest::newRow("the last row of it") << 1 << 2 << QList<DOCKEY>({1, 3, 1}) << 3;
    QTest::newRow("document that is not listed") << 1 << 2 << QList<DOCKEY>({3, 2}) << 0;
    QTest::newRow("current document") << 0 << 3 << QList<DOCKEY>() << 3;
    QTest::newRow("no document") << 0 << 0 << QList<DOCKEY>() << 0;
}

void TestCommentDialog::initialRow()
{
    QFETCH(int, opened);
    QFETCH(int, current);
    QFETCH(QList<DOCKEY>, targets);
    Cameras cameras;
    cameras.host.state().targetKeys = targets;
    if (current != 0)
        cameras.host.makeCurrent(DOCKEY(current));
    else
        cameras.host.answerNullOn(QStringLiteral("currentDocument"), 0);
    GUI_CommentDialog dialog(&cameras.host, opened ? cameras.document(opened) : nullptr);
    QTEST(infos(dialog).value("InitSelect").toInt(-1), "row");
}

void TestCommentDialog::documentThatHasGoneHasNoName()
{
    Shown shown;
    shown.host.makeCurrent(1);
    shown.host.closeDocument(2);
    const QJsonArray rows = infos(*shown.dialog).value("Records").toArray();
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows.at(1).toObject().value("recid").toInt(), 2);
    QCOMPARE(rows.at(1).toObject().value("name"), QJsonValue(QString("")));
    QCOMPARE(rows.at(2).toObject().value("name").toString(), QStringLiteral("Camera 3"));
}

void TestCommentDialog::selectionFollowsThePage_data()
{
    QTest::addColumn<QStringList>("selections");
    QTest::addColumn<QString>("comment");
    QTest::newRow("nothing") << QStringList() << "";
    QTest::newRow("one") << QStringList({"[2]"}) << "Comment 2";
    QTest::newRow("none again") << QStringList({"[2]", "[]"}) << "";
    QTest::newRow("last added") << QStringList({"[1]", "[1,2,3]"}) << "Comment 3";
    QTest::newRow("stays") << QStringList({"[1]", "[1,2,3]", "[2,3]"}) << "Comment 3";
    QTest::newRow("next one") << QStringList({"[1]", "[1,2]", "[1,2,3]", "[1,2]"}) << "Comment 1";
    QTest::newRow("none of the old") << QStringList({"[1]", "[1,2]", "[3,1]"}) << "Comment 1";
}

void TestCommentDialog::selectionFollowsThePage()
{
    QFETCH(QStringList, selections);
    Shown shown;
    for (const QString &ids : selections)
        shown.call("setSelectedItems(" + ids + ")");
    QTEST(shown.dialog->getComment(), "comment");
    QCOMPARE(shown.call("getSelectedItems()"), selections.isEmpty() ? "[]" : selections.last());
    QCOMPARE(shown.host.journal(), QStringList());
}

void TestCommentDialog::oneEditGoesToAllSelectedRows()
{
    Shown shown;
    shown.call("setSelectedItems([3,1])");
    shown.call("setComment('both')");
    for (int row : {1, 2, 3})
        QCOMPARE(::shown(*shown.dialog, row),
                 row == 2 ? QStringLiteral("Comment 2") : QStringLiteral("both"));
    QCOMPARE(shown.host.journal(), QStringList());
    QCOMPARE(shown.comment(1), QStringLiteral("Comment 1"));
    shown.call("setSelectedItems([1,2,3])");
    shown.call("setComment('all')");
    for (int row : {1, 2, 3})
        QCOMPARE(::shown(*shown.dialog, row), QStringLiteral("all"));
}

void TestCommentDialog::editWithoutASelectionChangesNothing()
{
    Shown shown;
    shown.call("setSelectedItems([1])");
    shown.call("setSelectedItems([])");
    shown.call("setComment('lost')");
    for (int row : {1, 2, 3})
        QCOMPARE(::shown(*shown.dialog, row), QStringLiteral("Comment %1").arg(row));
}

void TestCommentDialog::rowsBeyondTheListAreEmpty_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("behind the list") << 4;
    QTest::newRow("no row") << 0;
    QTest::newRow("below zero") << -1;
}

void TestCommentDialog::rowsBeyondTheListAreEmpty()
{
    QFETCH(int, row);
    Cameras cameras;
    GUI_CommentDialog dialog(&cameras.host);
    QCOMPARE(shown(dialog, row), QString());
    dialog.setSelectedItems({row, 3});
    dialog.setComment(QStringLiteral("other"));
    QCOMPARE(shown(dialog, row), QString());
    QCOMPARE(shown(dialog, 1), QStringLiteral("Comment 1"));
    QCOMPARE(shown(dialog, 3), QStringLiteral("other"));
}

// From opening to closing: what the host is asked and told, and what stands in the log.
void TestCommentDialog::wholeStory()
{
    Cameras cameras;
    cameras.host.select(2, false);
    cameras.host.clearJournal();
    LogCapture log;
    {
        GUI_CommentDialog dialog(&cameras.host);
        PageProbe page(dialog.webView());
        QSignalSpy finished(&dialog, &QDialog::finished);
        dialog.show();
        QVERIFY(page.waitLoaded());
        page.call(Object + "setSelectedItems([2])");
        page.call(Object + "setComment('a\\nb')");
        page.call(Object + "comment_ok()");
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(finished.count(), 1);
    }
    QCOMPARE(cameras.host.journal(),
             QStringList({"mainWidget()", "translate(\"Comment\")", "selectedDocKeys(true)",
                          "deviceByKey(1, true)", "[1].documentComment()", "documentKeyOf([1])",
                          "deviceByKey(3, true)", "[3].documentComment()", "documentKeyOf([3])",
                          "appScriptObject()", "deviceByKey(1, true)",
                          "[1].setDocumentComment(\"Comment 1\")", "deviceByKey(3, true)",
                          "[3].setDocumentComment(\"a\\nb\")"}));
    QCOMPARE(log.texts(), QStringList({"[USER] \"[URL:GUI_CommentDialog] [ID:close] "
                                       "[Control:Button] [Operation:clicked] [Value:] \""}));
}

void TestCommentDialog::cancelLeavesTheDocuments()
{
    Shown shown;
    shown.call("setSelectedItems([1,2,3])");
    shown.call("setComment('lost')");
    LogCapture log;
    shown.call("comment_cancel()");
    QVERIFY(!shown.dialog->isVisible());
    QCOMPARE(shown.dialog->result(), int(QDialog::Rejected));
    QCOMPARE(shown.host.journal(), QStringList());
    QCOMPARE(log.texts().size(), 1); // the closed dialog's
}

void TestCommentDialog::frameLeavesTheDocuments()
{
    Shown shown;
    shown.call("setSelectedItems([1,2,3])");
    shown.call("setComment('lost')");
    LogCapture log; // the frame is traced
    QVERIFY(shown.dialog->close());
    QCOMPARE(shown.dialog->result(), int(QDialog::Rejected));
    QCOMPARE(shown.host.journal(), QStringList());
}

void TestCommentDialog::formChangesOnEveryOk()
{
    Shown shown;
    for (int i = 1; i <= 3; ++i)
        shown.host.camera(DOCKEY(i))->state().comment = QStringLiteral("%1{Separator}").arg(i);
    shown.open();
    shown.call("comment_ok()");
    for (int i = 1; i <= 3; ++i)
        QCOMPARE(shown.comment(i), QStringLiteral("%1\n").arg(i));
}

void TestCommentDialog::documentThatHasGoneIsPassedOver()
{
    Shown shown;
    shown.call("setSelectedItems([1,2,3])");
    shown.call("setComment('all')");
    shown.host.closeDocument(2);
    shown.host.clearJournal();
    shown.call("comment_ok()");
    QCOMPARE(shown.host.journal(),
             QStringList({"deviceByKey(1, true)", "[1].setDocumentComment(\"all\")",
                          "deviceByKey(2, true)", "deviceByKey(3, true)",
                          "[3].setDocumentComment(\"all\")"}));
    QVERIFY(!shown.dialog->isVisible());
}

void TestCommentDialog::newDocumentIsNoneOfTheList()
{
    Shown shown;
    shown.host.closeDocument(2);
    StandInCamera *camera = shown.host.addCamera();
    camera->state().comment = "new";
    shown.call("setSelectedItems([1,2,3])");
    shown.call("setComment('all')");
    QCOMPARE(infos(*shown.dialog).value("Records").toArray().size(), 3);
    shown.call("comment_ok()");
    QCOMPARE(camera->state().comment, QStringLiteral("new"));
}

void TestCommentDialog::newDocumentAtAnOldAddressIsNoneOfTheList()
{
    Cameras cameras;
    GUI_CommentDialog dialog(&cameras.host, cameras.document(2));
    QCOMPARE(infos(dialog).value("InitSelect").toInt(), 2);
    cameras.host.isRenumbered = true;
    const QJsonObject shown = infos(dialog);
    QCOMPARE(shown.value("InitSelect").toInt(), 0);
    for (const QJsonValue &record : shown.value("Records").toArray())
        QCOMPARE(record.toObject().value("name").toString(), QString());
    dialog.setSelectedItems({1, 2, 3});
    dialog.setComment(QStringLiteral("all"));
    dialog.comment_ok();
    for (int i = 1; i <= 3; ++i)
        QCOMPARE(cameras.comment(i), QStringLiteral("Comment %1").arg(i));
}

void TestCommentDialog::failedOkStaysOpen()
{
    Shown shown;
    shown.call("setSelectedItems([1,2,3])");
    shown.call("setComment('all')");
    shown.host.failOn(QStringLiteral("setDocumentComment"), 2);
    shown.call("comment_ok()");
    QCOMPARE(shown.host.handledErrors(), QStringList({"setDocumentComment failed"}));
    QVERIFY(shown.dialog->isVisible());
    QCOMPARE(shown.comment(1), QStringLiteral("all"));
    QCOMPARE(shown.comment(3), QStringLiteral("Comment 3"));
    shown.call("comment_ok()");
    QVERIFY(!shown.dialog->isVisible());
    QCOMPARE(shown.comment(3), QStringLiteral("all"));
}

void TestCommentDialog::failuresGiveNeutralValues()
{
    Shown shown;
    shown.host.settings().setValue("env/style", "dark");
    shown.host.state().translations.insert("Name", "Bezeichnung");
    QCOMPARE(shown.call("getStyle()"), QStringLiteral("\"dark\""));
    QCOMPARE(shown.call("translate('Name')"), QStringLiteral("\"Bezeichnung\""));
    shown.host.failOn(QStringLiteral("getPrefString"));
    shown.host.failOn(QStringLiteral("translate"));
    shown.host.failOn(QStringLiteral("documentName"), 2);
    QCOMPARE(shown.call("getStyle()"), QStringLiteral("\"light\""));
    QCOMPARE(shown.call("translate('Name')"), QStringLiteral("\"\""));
    QCOMPARE(shown.call("getDocInfos()"), QStringLiteral("\"\""));
    QCOMPARE(shown.host.handledErrors(),
             QStringList({"getPrefString failed", "translate failed", "documentName failed"}));
}

void TestCommentDialog::failureWhileConstructedReachesTheCaller()
{
    for (const char *operation : {"mainWidget", "translate", "selectedDocKeys", "deviceByKey",
                                  "documentComment", "documentKeyOf"}) {
        Cameras cameras;
        cameras.host.failOn(QString::fromLatin1(operation));
        QVERIFY_EXCEPTION_THROWN(GUI_CommentDialog dialog(&cameras.host), StandInFault);
    }
}

void TestCommentDialog::escapeIsIgnored()
{
    Shown shown;
    QTest::keyClick(shown.dialog, Qt::Key_Escape);
    QTest::keyClick(shown.dialog->webView(), Qt::Key_Escape);
    QVERIFY(shown.dialog->isVisible());
}

void TestCommentDialog::dialogMayGoWhileItsHostIsAsked_data()
{
    QTest::addColumn<QByteArray>("slot");
    for (const char *slot : {"comment_ok", "getDocInfos"})
        QTest::newRow(slot) << QByteArray(slot);
}

void TestCommentDialog::dialogMayGoWhileItsHostIsAsked()
{
    QFETCH(QByteArray, slot);
    Shown shown;
    shown.page.reset();
    connect(shown.host.events(), &StandInEvents::callJournalled, shown.dialog,
            [&] { delete shown.dialog; });
    QMetaObject::invokeMethod(shown.dialog, slot);
    QVERIFY(!shown.dialog);
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

int main(int argc, char **argv)
{
    TestCommentDialog test;
    return runTest(argc, argv, test);
}

#include "test_comment_dialog.moc"
