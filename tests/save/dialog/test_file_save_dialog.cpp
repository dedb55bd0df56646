#include "bridge/page/GUI_WebView.h"
#include "save/dialog/GUI_FileSaveDialog.h"
#include "save/dialog/JS_Mediator_FileSaveDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/OwnMethods.h"
#include "tests/support/TestLog.h"

#include <QSignalSpy>

#include <functional>
#include <memory>

// The dialog that saves opened files, worked by a page, and what its page sees.

using Ask = std::function<void(JS_Mediator_FileSaveDialog &)>;
Q_DECLARE_METATYPE(Ask)

class TestFileSaveDialog : public TestBase
{
    Q_OBJECT

private slots:
    void methodsStandInOrder();
    void windowIsAsTold();
    void failureWhileConstructedReachesTheCaller();
    void pageChoosesPartitions();
    void chosenPartitionMustBeThere_data();
    void chosenPartitionMustBeThere();
    void failedChoiceIsTold();
    void dialogMayGoWhileAPartitionIsChosen();
    void buttonsReachWhoListens_data();
    void buttonsReachWhoListens();
    void countReachesThePage();
    void handlerThatThrowsHarmsNothing();
    void listenerMayDeleteWhatCounts();
    void documentAnswers();
    void missingDocumentAnswersNeutrally();
    void failuresGiveNeutralValues();
    void previewMoves();
    void previewOfAMissingDocument();
    void tracesAreOfThePreviewAlone();
    void targetsAreThoseOfTheBase();
    void wholeStory_data();
    void wholeStory();
};

namespace {

const QString PageName = QStringLiteral("filesavedialog");
const QString Calls = QStringLiteral("qrc:/pages/calls.html");

// A shown dialog, with a camera of two partitions.
struct Shown
{
    Shown()
    {
        StandInCamera *camera = host.addCamera();
        camera->state().partitions = {{1, QStringLiteral("P1"), 1, 1},
                                      {2, QStringLiteral("P2"), 1, 1}};
        dialog = new GUI_FileSaveDialog(&host, QStringLiteral("Export"), Calls, PageName, nullptr);
        page = std::make_unique<PageProbe>(dialog->webView());
        dialog->show();
        loaded = page->waitLoaded();
        host.clearJournal();
    }
    ~Shown()
    {
        page.reset();
        delete dialog;
    }

    QString call(const QString &code) { return page->call(PageName + "." + code); }

    StandInHost host;
    QPointer<GUI_FileSaveDialog> dialog;
    std::unique_ptr<PageProbe> page;
    bool loaded = false;
};

}

void TestFileSaveDialog::methodsStandInOrder()
{
    QCOMPARE(ownMethods(JS_Mediator_FileSaveDialog::staticMetaObject),
             QStringList({"void exportTarget(DOCKEY,PARTITIONNUMBER)", "void saveAction()",
                          "void applyAction()", "void cancelAction()", "void exportDocCount(int)",
                          "int getHeadNo(DOCKEY)", "bool isMultiTrimming(DOCKEY)",
                          "QString getMultiTrimmingLabel(DOCKEY)", "void prevPreivew(DOCKEY)",
                          "void nextPreivew(DOCKEY)"}));
}

void TestFileSaveDialog::windowIsAsTold()
{
    StandInHost host;
    host.state().translations.insert("Export", "Ausgabe");
    QWidget parent;
    const GUI_FileSaveDialog dialog(&host, "Export", Calls, "fileopendialog", &parent);
    QCOMPARE(dialog.parentWidget(), &parent);
    QCOMPARE(dialog.windowTitle(), QString("Ausgabe"));
    QCOMPARE(dialog.mediator()->pageName(), QString("fileopendialog"));
    QCOMPARE(dialog.partitions(), QList<PARTITIONNUMBER>());
}

void TestFileSaveDialog::failureWhileConstructedReachesTheCaller()
{
    for (const char *operation :
         {"clearPlannedGroupDir", "needsDialogEnterNotice", "translate", "attachMediator"}) {
        StandInHost host;
        host.failOn(QString::fromLatin1(operation));
        QVERIFY_EXCEPTION_THROWN(GUI_FileSaveDialog(&host, "Export", Calls, PageName, nullptr),
                                 StandInFault);
        QCOMPARE(host.handledErrors(), QStringList());
    }
}

// In the order in which they come, repeats included.
void TestFileSaveDialog::pageChoosesPartitions()
{
    Shown shown;
    QVERIFY(shown.loaded);
    shown.call("exportTarget(1, 2)");
    shown.call("exportTarget('1', 1)");
    shown.call("exportTarget(1, 2)");
    QCOMPARE(shown.dialog->partitions(), QList<PARTITIONNUMBER>({2, 1, 2}));
    QCOMPARE(shown.host.journal().mid(0, 2),
             QStringList({"deviceByKey(1, true)", "[1].partitionNumbers()"}));
}

void TestFileSaveDialog::chosenPartitionMustBeThere_data()
{
    QTest::addColumn<DOCKEY>("key");
    QTest::addColumn<int>("partition");
    QTest::newRow("partition 0") << DOCKEY(1) << 0;
    QTest::newRow("behind the last") << DOCKEY(1) << 3;
    QTest::newRow("negative") << DOCKEY(1) << -1;
    QTest::newRow("no such document") << DOCKEY(9) << 1;
    QTest::newRow("no document") << NoDocKey << 1;
}

void TestFileSaveDialog::chosenPartitionMustBeThere()
{
    QFETCH(DOCKEY, key);
    QFETCH(int, partition);
    Shown shown;
    auto *page = static_cast<JS_Mediator_FileSaveDialog *>(shown.dialog->mediator());
    emit page->exportTarget(key, partition);
    QCOMPARE(shown.dialog->partitions(), QList<PARTITIONNUMBER>());
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

void TestFileSaveDialog::failedChoiceIsTold()
{
    for (const char *operation : {"deviceByKey", "partitionNumbers"}) {
        Shown shown;
        shown.host.failOn(QString::fromLatin1(operation));
        QCOMPARE(shown.call("exportTarget(1, 1)"), QString("undefined"));
        QCOMPARE(shown.host.handledErrors(),
                 QStringList(QString::fromLatin1(operation) + " failed"));
        QCOMPARE(shown.dialog->partitions(), QList<PARTITIONNUMBER>());
        shown.call("exportTarget(1, 1)");
        QCOMPARE(shown.dialog->partitions(), QList<PARTITIONNUMBER>({1}));
    }
}

void TestFileSaveDialog::dialogMayGoWhileAPartitionIsChosen()
{
    Shown shown;
    shown.page.reset();
    auto *page = static_cast<JS_Mediator_FileSaveDialog *>(shown.dialog->mediator());
    connect(shown.host.events(), &StandInEvents::callJournalled, shown.dialog, [&] {
        if (shown.host.journal().last() == "[1].partitionNumbers()")
            delete shown.dialog;
    });
    emit page->exportTarget(1, 1);
    QVERIFY(!shown.dialog);
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

void TestFileSaveDialog::buttonsReachWhoListens_data()
{
    QTest::addColumn<QByteArray>("signal");
    for (const char *name : {"saveAction()", "applyAction()", "cancelAction()"})
        QTest::newRow(name) << QByteArray(name);
}

void TestFileSaveDialog::buttonsReachWhoListens()
{
    QFETCH(QByteArray, signal);
    Shown shown;
    QSignalSpy spy(shown.dialog->mediator(), ("2" + signal).constData());
    QVERIFY(spy.isValid());
    QCOMPARE(shown.call(QString::fromLatin1(signal)), QString("undefined"));
    QCOMPARE(spy.count(), 1);
    QVERIFY(shown.dialog->isVisible());
    QCOMPARE(shown.host.journal(), QStringList());
}

void TestFileSaveDialog::countReachesThePage()
{
    Shown shown;
    shown.call("selectedDocCount.connect(function (count) { window.heard = count; })");
    auto *page = static_cast<JS_Mediator_FileSaveDialog *>(shown.dialog->mediator());
    page->exportDocCount(3);
    QCOMPARE(shown.page->evaluate("window.heard"), QVariant(3));
    shown.call("exportDocCount(7)");
    QCOMPARE(shown.page->evaluate("window.heard"), QVariant(7));
}

void TestFileSaveDialog::handlerThatThrowsHarmsNothing()
{
    Shown shown;
    shown.call("selectedDocCount.connect(function () { throw new Error('page'); })");
    auto *page = static_cast<JS_Mediator_FileSaveDialog *>(shown.dialog->mediator());
    LogCapture log;
    page->exportDocCount(3);
    QVERIFY(log.texts().join(' ').contains("page"));
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

void TestFileSaveDialog::listenerMayDeleteWhatCounts()
{
    StandInHost host;
    const QPointer<JS_Mediator_FileSaveDialog> page(
        new JS_Mediator_FileSaveDialog(&host, PageName));
    QList<int> counts;
    connect(page.data(), &JS_Mediator_FileDialog::selectedDocCount, [&](int count) {
        counts.append(count);
        delete page;
    });
    page->exportDocCount(3);
    QVERIFY(!page);
    QCOMPARE(counts, QList<int>({3}));
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestFileSaveDialog::documentAnswers()
{
    StandInHost host;
    StandInCamera::Description description;
    description.headNumber = 3;
    StandInCamera *camera = host.addCamera(description);
    camera->state().isMultiTrimming = true;
    camera->state().multiTrimmingLabel = "2 ranges";
    JS_Mediator_FileSaveDialog page(&host, PageName);
    host.clearJournal();
    QCOMPARE(page.getHeadNo(1), 3);
    QCOMPARE(page.isMultiTrimming(1), true);
    QCOMPARE(page.getMultiTrimmingLabel(1), QString("2 ranges"));
    QCOMPARE(host.journal(), QStringList({"deviceByKey(1, true)", "[1].headNumber()",
                                          "deviceByKey(1, true)", "[1].isMultiTrimming()",
                                          "deviceByKey(1, true)", "[1].multiTrimmingLabel()"}));
}

void TestFileSaveDialog::missingDocumentAnswersNeutrally()
{
    StandInHost host;
    JS_Mediator_FileSaveDialog page(&host, PageName);
    QCOMPARE(page.getHeadNo(9), 0);
    QCOMPARE(page.isMultiTrimming(9), false);
    QCOMPARE(page.getMultiTrimmingLabel(9), QString());
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestFileSaveDialog::failuresGiveNeutralValues()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->state().isMultiTrimming = true;
    camera->state().multiTrimmingLabel = "2 ranges";
    JS_Mediator_FileSaveDialog page(&host, PageName);
    for (const char *operation : {"headNumber", "isMultiTrimming", "multiTrimmingLabel",
                                  "showPreviousPreview", "showNextPreview"})
        host.failOn(QString::fromLatin1(operation));
    QCOMPARE(page.getHeadNo(1), 0);
    QCOMPARE(page.isMultiTrimming(1), false);
    QCOMPARE(page.getMultiTrimmingLabel(1), QString());
    page.prevPreivew(1);
    page.nextPreivew(1);
    QCOMPARE(
        host.handledErrors(),
        QStringList({"headNumber failed", "isMultiTrimming failed", "multiTrimmingLabel failed",
                     "showPreviousPreview failed", "showNextPreview failed"}));
}

void TestFileSaveDialog::previewMoves()
{
    StandInHost host;
    host.addCamera();
    JS_Mediator_FileSaveDialog page(&host, PageName);
    host.clearJournal();
    page.prevPreivew(1);
    page.nextPreivew(1);
    QCOMPARE(host.journal(), QStringList({"deviceByKey(1, true)", "[1].showPreviousPreview()",
                                          "deviceByKey(1, true)", "[1].showNextPreview()"}));
}

void TestFileSaveDialog::previewOfAMissingDocument()
{
    StandInHost host;
    JS_Mediator_FileSaveDialog page(&host, PageName);
    host.clearJournal();
    LogCapture log;
    page.prevPreivew(9);
    page.nextPreivew(9);
    QCOMPARE(host.journal(), QStringList({"deviceByKey(9, true)", "deviceByKey(9, true)"}));
    QCOMPARE(log.texts(),
             QStringList({"[ENTER] \"JS_Mediator_FileSaveDialog::prevPreivew\" \"[dockey:9]\"",
                          "[LEAVE] \"JS_Mediator_FileSaveDialog::prevPreivew\"",
                          "[ENTER] \"JS_Mediator_FileSaveDialog::nextPreivew\" \"[dockey:9]\"",
                          "[LEAVE] \"JS_Mediator_FileSaveDialog::nextPreivew\""}));
}

void TestFileSaveDialog::tracesAreOfThePreviewAlone()
{
    StandInHost host;
    JS_Mediator_FileSaveDialog page(&host, PageName);
    LogCapture log;
    page.exportDocCount(1);
    page.getHeadNo(1);
    page.isMultiTrimming(1);
    page.getMultiTrimmingLabel(1);
    QCOMPARE(log.texts(), QStringList());
}

void TestFileSaveDialog::targetsAreThoseOfTheBase()
{
    Shown shown;
    shown.host.camera(1)->state().infoMap = {
        {"partitions", QVariantList({QVariantMap{{"totalframesplain", 4}}})}};
    shown.host.camera(1)->state().currentPartition = 1;
    QCOMPARE(shown.page->call("JSON.parse(filesavedialog.list()).length"), QString("1"));
    QCOMPARE(shown.page->call("JSON.parse(filesavedialog.list(true)).length"), QString("0"));
    QCOMPARE(shown.call("getExportGroupDir()"), QString("\"\""));
    QCOMPARE(shown.call("getExportGroupDir(1)"), QString("\"\""));
    QCOMPARE(shown.call("getExportGroupDir(1, 1)"), QString("\"\""));
    QCOMPARE(shown.call("select(1, 2, 8, 8)"), QString("\"\""));
    QCOMPARE(shown.call("getSelectDocKey()"), QString("1"));
    QCOMPARE(shown.call("getSelectPartitionNo()"), QString("2"));
}

void TestFileSaveDialog::wholeStory_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("accept") << "accept()" << true;
    QTest::newRow("reject") << "reject()" << false;
    QTest::newRow("title bar") << "" << false;
}

void TestFileSaveDialog::wholeStory()
{
    QFETCH(QString, way);
    QFETCH(bool, isAccepted);
    StandInHost host;
    host.state().needsDialogEnterNotice = true;
    {
        GUI_FileSaveDialog dialog(&host, "Export", Calls, PageName, nullptr);
        PageProbe page(dialog.webView());
        dialog.show();
        QVERIFY(page.waitLoaded());
        if (way.isEmpty()) {
            LogCapture log;
            QVERIFY(dialog.close());
        } else {
            page.call(PageName + "." + way);
        }
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(isAccepted ? QDialog::Accepted : QDialog::Rejected));
    }
    QCOMPARE(host.journal(),
             QStringList(
                 {"clearPlannedGroupDir()", "needsDialogEnterNotice()", "notifyDialogEntered()",
                  "translate(\"Export\")",
                  "attachMediator(GUI_WebView, JS_Mediator_FileSaveDialog)", "deterUpdateUI(true)",
                  "mainWidget()", "getPrefInt(\"main/scrno\", invalid)", "deterUpdateUI(false)",
                  "updateUI(4294967295, true)", "isDialogExitSuppressed()", "notifyDialogLeft()"}));
}

int main(int argc, char *argv[])
{
    TestFileSaveDialog test;
    return runTest(argc, argv, test);
}

#include "test_file_save_dialog.moc"
