#include "bridge/operation/DialogRun.h"
#include "bridge/page/GUI_WebView.h"
#include "foundation/Clock.h"
#include "save/convert/GUI_ConvertParameterEditDialog.h"
#include "save/convert/JS_Mediator_ConvertParameterEditDialog.h"
#include "save/number/GUI_AddNumberDialog.h"
#include "save/number/JS_Mediator_AddNumberDialog.h"
#include "save/path/PathComposer.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/OwnMethods.h"
#include "tests/support/TestLog.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>

// What follows an automatic conversion: the dialog, what its page sees, and when it opens.

class TestConvertParameters : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void methodsStandInOrder();
    void windowIsAsTold();
    void failureWhileConstructedReachesTheCaller();
    void pageFindsBothObjects();
    void countsReachTheDialogOfNumbers();
    void dialogMayEndWhileHeadsAreTold_data();
    void dialogMayEndWhileHeadsAreTold();
    void selectionIsThatOfTheCaller();
    void targetsGetTheOption_data();
    void targetsGetTheOption();
    void targetsKeepTheirNumbers();
    void targetsAreThoseOfTheCaller();
    void directoryIsThatOfConversions();
    void directoryBesideTheOriginal();
    void directoryOfAnotherPartition();
    void directoryOfAMissingPartition();
    void directoryWithoutADocument();
    void previewLeavesNothingBehind();
    void partitionAndPlanComeBackAtEachFailure();
    void refusedPathIsTold();
    void tracesAreThoseOfTheBase();
    void dialogIsOpened_data();
    void dialogIsOpened();
    void dialogIsNotOpenedWithoutADirectory_data();
    void dialogIsNotOpenedWithoutADirectory();
    void dialogIsNotOpenedWhileConverting();
    void failureOpensNothing();
    void dialogBelongsToTheWindowOfThePage();
    void mediatorMayGoWhileTheDialogRuns();
    void wholeStory_data();
    void wholeStory();

private:
    void set(const QString &key, const QVariant &value) { m_host->settings().setValue(key, value); }
    std::unique_ptr<JS_Mediator_ConvertParameterEditDialog> make(DOCKEY key, int partition);

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<StandInHost> m_host;
    std::unique_ptr<Clock::Fixed> m_clock;
};

namespace {

const QDateTime Noon(QDate(2024, 5, 6), QTime(12, 0));
const QVariantList Both = {2, QStringLiteral("1")};
const QStringList PlanCleared = {"clearPlannedGroupDir()", "clearPlannedDirs()",
                                 "clearPlannedFiles()"};

}

// Two cameras in memory, whose exports go to folders by the name of the partition.
void TestConvertParameters::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
    m_host = std::make_unique<StandInHost>();
    m_clock = std::make_unique<Clock::Fixed>(Noon);
    m_host->setMode(StandInHost::Mode::Memory);
    for (int i = 0; i < 2; ++i) {
        StandInCamera *camera = m_host->addCamera();
        camera->state().partitions = {{1, QStringLiteral("P1"), 10, 1000},
                                      {2, QStringLiteral("P2"), 20, 1000},
                                      {3, QStringLiteral("P3"), 20, 1000}};
        camera->state().currentPartition = 3;
    }
    set("convert/dir", m_dir->path() + "/converted");
    set("export/dir", m_dir->path());
    set("export/filenameaspartitionname", true);
    set("export/subdir", true);
    set("export/subdirasfilename", true);
    set("export/filename", "Shot");
}

void TestConvertParameters::cleanup()
{
    DialogRun::setAnswer(DialogRun::Answer());
    m_host.reset();
    m_clock.reset();
    m_dir.reset();
    TestBase::cleanup();
}

std::unique_ptr<JS_Mediator_ConvertParameterEditDialog> TestConvertParameters::make(DOCKEY key,
                                                                                    int partition)
{
    auto page = std::make_unique<JS_Mediator_ConvertParameterEditDialog>(m_host.get(), Both, key,
                                                                         partition);
    m_host->clearJournal();
    return page;
}

void TestConvertParameters::methodsStandInOrder()
{
    QCOMPARE(ownMethods(JS_Mediator_ConvertParameterEditDialog::staticMetaObject),
             QStringList({"QString list(bool)", "QString list()", "QVariantList getTargetItems()",
                          "QString getExportPath()"}));
}

void TestConvertParameters::windowIsAsTold()
{
    m_host->state().translations.insert("Saved after the automatic conversion", "Danach");
    QWidget parent;
    const GUI_ConvertParameterEditDialog dialog(m_host.get(), &parent, Both, 1, 2);
    QCOMPARE(dialog.parentWidget(), &parent);
    QCOMPARE(dialog.windowTitle(), QString("Danach"));
    QCOMPARE(dialog.minimumSize(), QSize(600, 920));
    QCOMPARE(dialog.maximumSize(), QSize(600, 920));
    QVERIFY(dialog.windowFlags() & Qt::WindowCloseButtonHint);
    QCOMPARE(dialog.mediator()->pageName(), QString("convertparametereditdialog"));
}

void TestConvertParameters::failureWhileConstructedReachesTheCaller()
{
    for (const char *operation :
         {"clearPlannedGroupDir", "needsDialogEnterNotice", "translate", "attachMediator"}) {
        m_host->failOn(QString::fromLatin1(operation));
        QVERIFY_EXCEPTION_THROWN(GUI_ConvertParameterEditDialog(m_host.get(), nullptr, Both, 1, 2),
                                 StandInFault);
        QCOMPARE(m_host->handledErrors(), QStringList());
    }
    m_host->failOn("attachMediator", 2);
    QVERIFY_EXCEPTION_THROWN(GUI_ConvertParameterEditDialog(m_host.get(), nullptr, Both, 1, 2),
                             StandInFault);
}

void TestConvertParameters::pageFindsBothObjects()
{
    GUI_ConvertParameterEditDialog dialog(m_host.get(), nullptr, Both, 1, 2);
    PageProbe page(dialog.webView());
    dialog.show();
    QVERIFY(page.waitLoaded());
    QCOMPARE(page.call("convertparametereditdialog.getSelectDocKey()"), QString("1"));
    QCOMPARE(page.call("convertparametereditdialog.getSelectPartitionNo()"), QString("2"));
    QCOMPARE(page.call("convertparametereditdialog.getTargetItems().map(String)"),
             QString("[\"2\",\"1\"]"));
    QCOMPARE(page.call("convertparametereditdialog.list()"), QString("\"\""));
    QCOMPARE(page.call("convertparametereditdialog.getExportPath()"),
             "\"" + m_dir->path() + "/converted/\"");
    QCOMPARE(page.call("savefile.isConvertMode()"), QString("true"));
    QCOMPARE(page.call("savefile.getParentWidgetName()"),
             QString("\"convertparametereditdialog\""));
}

// Through the page, which connects the one object to the other.
void TestConvertParameters::countsReachTheDialogOfNumbers()
{
    GUI_ConvertParameterEditDialog dialog(m_host.get(), nullptr, Both, 1, 2);
    PageProbe page(dialog.webView());
    dialog.show();
    QVERIFY(page.waitLoaded());
    for (const char *name : {"selectedDocCount", "selectedDocHeadCount"})
        page.evaluate(
            QString("convertparametereditdialog.%1.connect(savefile.%1)").arg(QLatin1String(name)));
    auto *mediator = dynamic_cast<JS_Mediator_FileDialog *>(dialog.mediator());
    emit mediator->selectedDocCount(12);
    emit mediator->selectedDocHeadCount(3);
    QList<int> digits;
    DialogRun::setAnswer([&](QDialog &number) {
        auto *numbers = dynamic_cast<JS_Mediator_AddNumberDialog *>(
            dynamic_cast<GUI_AddNumberDialog &>(number).mediator());
        digits.append(numbers->getAutoDeviceDigits());
        digits.append(numbers->getAutoHeadDigits());
        return int(QDialog::Rejected);
    });
    page.call("savefile.numberSetting4FileName()");
    QCOMPARE(digits, QList<int>({2, 1}));
    QCOMPARE(m_host->handledErrors(), QStringList());
}

void TestConvertParameters::dialogMayEndWhileHeadsAreTold_data()
{
    QTest::addColumn<bool>("isDeleted");
    QTest::newRow("closed") << false;
    QTest::newRow("deleted by its owner") << true;
}

// By the page, from inside the signal; the picture is that of the document all the same.
void TestConvertParameters::dialogMayEndWhileHeadsAreTold()
{
    QFETCH(bool, isDeleted);
    const QPointer<GUI_ConvertParameterEditDialog> dialog(
        new GUI_ConvertParameterEditDialog(m_host.get(), nullptr, Both, 1, 2));
    auto page = std::make_unique<PageProbe>(dialog->webView());
    dialog->show();
    QVERIFY(page->waitLoaded());
    page->evaluate("convertparametereditdialog.selectedDocHeadCount.connect("
                   "function () { convertparametereditdialog.reject(); })");
    int result = QDialog::Accepted;
    connect(dialog.data(), &QDialog::finished, [&](int end) {
        result = end;
        if (!isDeleted)
            return;
        page.reset();
        delete dialog;
    });
    auto *mediator = dynamic_cast<JS_Mediator_FileDialog *>(dialog->mediator());
    QVERIFY(!mediator->select(1, 2, 8, 8).isEmpty());
    QCOMPARE(result, int(QDialog::Rejected));
    QCOMPARE(dialog.isNull(), isDeleted);
    QVERIFY(isDeleted || !dialog->isVisible());
    QCOMPARE(m_host->handledErrors(), QStringList());
    page.reset();
    delete dialog;
}

void TestConvertParameters::selectionIsThatOfTheCaller()
{
    JS_Mediator_ConvertParameterEditDialog page(m_host.get(), {}, NoDocKey - 1, -3);
    QCOMPARE(page.getSelectDocKey(), NoDocKey - 1);
    QCOMPARE(page.getSelectPartitionNo(), -3);
}

void TestConvertParameters::targetsGetTheOption_data()
{
    QTest::addColumn<bool>("temporary");
    QTest::addColumn<bool>("on");
    QTest::newRow("on") << false << true;
    QTest::newRow("off") << false << false;
    QTest::newRow("temporary") << true << true;
}

// In the order of the targets; one that has gone is passed over.
void TestConvertParameters::targetsGetTheOption()
{
    QFETCH(bool, temporary);
    QFETCH(bool, on);
    set("convert/saveinfo", on);
    set("export/saveinfo", !on);
    JS_Mediator_ConvertParameterEditDialog page(
        m_host.get(), {2, QStringLiteral("9"), QStringLiteral("1"), QStringLiteral("x")}, 1, 1);
    m_host->clearJournal();
    QCOMPARE(page.list(temporary), QString());
    const QString flag(on ? "true" : "false");
    QCOMPARE(m_host->journal(),
             QStringList({"getPrefBool(\"convert/saveinfo\", invalid)", "deviceByKey(2, true)",
                          "[2].setSaveInfoOption(" + flag + ")", "deviceByKey(9, true)",
                          "deviceByKey(1, true)", "[1].setSaveInfoOption(" + flag + ")",
                          "deviceByKey(0, true)"}));
}

// A page's numbers are doubles; texts hold more than those.
void TestConvertParameters::targetsKeepTheirNumbers()
{
    JS_Mediator_ConvertParameterEditDialog page(
        m_host.get(),
        {1000000.0, 9007199254740992.0, QStringLiteral("9007199254740993"),
         QStringLiteral("18446744073709551614"), QVariant::fromValue(NoDocKey - 1)},
        1, 1);
    m_host->clearJournal();
    page.list(false);
    QCOMPARE(m_host->journal().mid(1),
             QStringList({"deviceByKey(1000000, true)", "deviceByKey(9007199254740992, true)",
                          "deviceByKey(9007199254740993, true)",
                          "deviceByKey(18446744073709551614, true)",
                          "deviceByKey(18446744073709551614, true)"}));
}

void TestConvertParameters::targetsAreThoseOfTheCaller()
{
    const auto page = make(1, 1);
    QCOMPARE(page->getTargetItems(), Both);
    QCOMPARE(page->list(), QString());
    QCOMPARE(m_host->journal().filter("Option"),
             QStringList({"[2].setSaveInfoOption(false)", "[1].setSaveInfoOption(false)"}));
}

void TestConvertParameters::directoryIsThatOfConversions()
{
    const auto page = make(1, 2);
    QCOMPARE(page->getExportPath(), m_dir->path() + "/converted/");
    QCOMPARE(
        m_host->journal().mid(0, 2),
        QStringList({"getPrefBool(\"convert/dirasoriginal\", invalid)", "deviceByKey(1, true)"}));
    QCOMPARE(m_host->commands(), QStringList());
}

void TestConvertParameters::directoryBesideTheOriginal()
{
    set("convert/dirasoriginal", true);
    const auto page = make(1, 2);
    QMap<int, QString> groups;
    QMap<int, QString> dirs;
    QMap<int, QString> paths;
    m_host->camera(1)->state().currentPartition = 2;
    PathComposer::composeTargetPaths(m_host.get(), 1, m_host->camera(1), false, groups, dirs, paths,
                                     Noon, 0);
    const QStringList composing = m_host->journal();
    m_host->camera(1)->state().currentPartition = 3;
    m_host->savePlan() = SavePlan();
    m_host->clearJournal();

    QCOMPARE(page->getExportPath(), m_dir->path() + "/P2/");
    QCOMPARE(m_host->journal(),
             QStringList({"getPrefBool(\"convert/dirasoriginal\", invalid)", "deviceByKey(1, true)",
                          "[1].selectPartition(2)"}) +
                 composing + QStringList({"deviceByKey(1, true)", "[1].selectPartition(3)"}) +
                 PlanCleared);
    QCOMPARE(m_host->camera(1)->state().currentPartition, 3);
}

void TestConvertParameters::directoryOfAnotherPartition()
{
    set("convert/dirasoriginal", true);
    QCOMPARE(make(2, 1)->getExportPath(), m_dir->path() + "/P1/");
    QCOMPARE(make(2, 3)->getExportPath(), m_dir->path() + "/P3/");
}

void TestConvertParameters::directoryOfAMissingPartition()
{
    set("convert/dirasoriginal", true);
    QCOMPARE(make(1, 7)->getExportPath(), QString());
    QCOMPARE(m_host->camera(1)->state().currentPartition, 3);
    m_host->camera(1)->state().partitions.clear();
    QCOMPARE(make(1, 1)->getExportPath(), QString());
    QCOMPARE(m_host->handledErrors(), QStringList());
}

void TestConvertParameters::directoryWithoutADocument()
{
    set("convert/dirasoriginal", true);
    const auto page = make(9, 1);
    QCOMPARE(page->getExportPath(), QString());
    QCOMPARE(m_host->journal(), QStringList({"getPrefBool(\"convert/dirasoriginal\", invalid)",
                                             "deviceByKey(9, true)"}));
    const auto other = make(1, 1);
    QVERIFY(!other->getExportPath().isEmpty());
    m_host->closeDocument(1);
    QCOMPARE(other->getExportPath(), QString());
}

void TestConvertParameters::previewLeavesNothingBehind()
{
    set("convert/dirasoriginal", true);
    set("export/groupdir", true);
    set("export/groupdirname", "Batch");
    const auto page = make(1, 2);
    QCOMPARE(page->getExportPath(), m_dir->path() + "/Batch/P2/");
    const QStringList planned = m_host->commands().filter("Planned");
    QVERIFY(planned.contains("addPlannedDir(\"" + m_dir->path() + "/Batch/P2/\")"));
    const SavePlan &plan = m_host->savePlan();
    QVERIFY(plan.groupDir().isEmpty());
    for (int i = 1; i <= 3; ++i) {
        const QString dir = QString("%1/Batch/P%2/").arg(m_dir->path()).arg(i);
        QVERIFY(!plan.hasDir(dir));
        QVERIFY(!plan.hasFile(dir + QString("P%1").arg(i)));
    }
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void TestConvertParameters::partitionAndPlanComeBackAtEachFailure()
{
    set("convert/dirasoriginal", true);
    set("export/groupdir", true);
    set("export/groupdirname", "Batch");
    const auto page = make(1, 2);
    page->getExportPath();
    const QStringList lines = m_host->journal();
    const int selecting = lines.indexOf("[1].selectPartition(2)") + 1;
    const int restoring = lines.indexOf("[1].selectPartition(3)") + 1;
    QVERIFY(selecting > 0 && restoring > selecting + 20);
    for (int nth = 1; nth <= lines.size(); ++nth) {
        m_host->camera(1)->state().currentPartition = 3;
        m_host->clearHandledErrors();
        m_host->clearJournal();
        m_host->failAtCall(nth);
        const QString result = page->getExportPath();
        m_host->clearFaults();
        QCOMPARE(m_host->handledErrors().size(), 1);
        const QString failing = lines.at(nth - 1);
        if (nth < restoring - 1)
            QVERIFY2(result.isEmpty(), qPrintable(failing));
        const bool restores = nth != restoring && nth != restoring - 1;
        QCOMPARE(m_host->camera(1)->state().currentPartition, restores ? 3 : 2);
        QStringList cleared = m_host->commands().filter("clearPlanned");
        cleared = cleared.filter(QRegularExpression("^clear"));
        QCOMPARE(cleared, nth < selecting ? QStringList() : PlanCleared);
        m_host->savePlan() = SavePlan();
    }
}

void TestConvertParameters::refusedPathIsTold()
{
    set("convert/dirasoriginal", true);
    set("export/filenameaspartitionname", false);
    set("export/filename", "");
    set("save/EnableBlankFilename", false);
    m_host->camera(1)->state().nameAddition = QString("");
    const auto page = make(1, 2);
    LogCapture log;
    QCOMPARE(page->getExportPath(), QString());
    QCOMPARE(m_host->handledErrors(), QStringList("Invalid filename."));
    QCOMPARE(m_host->camera(1)->state().currentPartition, 3);
    QCOMPARE(m_host->commands().mid(m_host->commands().size() - 5),
             QStringList({"[1].selectPartition(3)"}) + PlanCleared +
                 QStringList("errorHandler(\"Invalid filename.\")"));
}

// Its own slots leave none.
void TestConvertParameters::tracesAreThoseOfTheBase()
{
    const auto page = make(1, 2);
    LogCapture log;
    page->list();
    page->getTargetItems();
    QCOMPARE(log.texts(), QStringList());
    page->getExportPath();
    QCOMPARE(log.texts(), QStringList({"[ENTER] \"JS_Mediator_FileDialog::getExportPath\" \"\"",
                                       "[LEAVE] \"JS_Mediator_FileDialog::getExportPath\""}));
    log.clear();
    set("convert/dirasoriginal", true);
    page->getExportPath();
    QCOMPARE(log.texts(), QStringList());
}

void TestConvertParameters::dialogIsOpened_data()
{
    QTest::addColumn<int>("result");
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("accepted") << int(QDialog::Accepted) << true;
    QTest::newRow("rejected") << int(QDialog::Rejected) << false;
    QTest::newRow("another end") << 7 << false;
}

// The directory is composed by an object of its own, which clears the group like every new one.
void TestConvertParameters::dialogIsOpened()
{
    QFETCH(int, result);
    JS_Mediator_FileDialog page(m_host.get(), "filesavedialog");
    page.setSelectDocKey(2);
    page.setSelectPartitionNo(3);
    m_host->clearJournal();
    QVariantList targets;
    DOCKEY key = 0;
    int partition = 0;
    DialogRun::setAnswer([&](QDialog &dialog) {
        auto &edit = dynamic_cast<GUI_ConvertParameterEditDialog &>(dialog);
        auto *mediator = dynamic_cast<JS_Mediator_ConvertParameterEditDialog *>(edit.mediator());
        targets = mediator->getTargetItems();
        key = mediator->getSelectDocKey();
        partition = mediator->getSelectPartitionNo();
        return result;
    });
    LogCapture log;
    QTEST(page.openConvertParameterEditDialog(Both), "isAccepted");
    QCOMPARE(targets, Both);
    QCOMPARE(key, DOCKEY(2));
    QCOMPARE(partition, 3);
    QCOMPARE(
        m_host->journal().mid(0, 4),
        QStringList({"isConverting()", "clearPlannedGroupDir()",
                     "getPrefBool(\"convert/dirasoriginal\", invalid)", "deviceByKey(2, true)"}));
    QCOMPARE(
        m_host->journal().mid(m_host->journal().lastIndexOf("clearPlannedGroupDir()")),
        QStringList({"clearPlannedGroupDir()", "needsDialogEnterNotice()",
                     "translate(\"Saved after the automatic conversion\")",
                     "attachMediator(GUI_WebView, JS_Mediator_ConvertParameterEditDialog)",
                     "deterUpdateUI(true)", "attachMediator(GUI_WebView, JS_Mediator_SaveFile)",
                     "deterUpdateUI(false)"}));
    QCOMPARE(log.texts().filter("JS_Mediator_FileDialog::open"),
             QStringList({"[ENTER] \"JS_Mediator_FileDialog::openConvertParameterEditDialog\" "
                          "\"[dockeyList:[2,\\\"1\\\"]]\"",
                          "[LEAVE] \"JS_Mediator_FileDialog::openConvertParameterEditDialog\""}));
}

void TestConvertParameters::dialogIsNotOpenedWithoutADirectory_data()
{
    QTest::addColumn<bool>("asOriginal");
    QTest::addColumn<DOCKEY>("key");
    QTest::newRow("no directory for conversions") << false << DOCKEY(1);
    QTest::newRow("beside an original that has gone") << true << DOCKEY(9);
}

void TestConvertParameters::dialogIsNotOpenedWithoutADirectory()
{
    QFETCH(bool, asOriginal);
    QFETCH(DOCKEY, key);
    set("convert/dir", "");
    set("convert/dirasoriginal", asOriginal);
    JS_Mediator_FileDialog page(m_host.get(), "filesavedialog");
    page.setSelectDocKey(key);
    bool opened = false;
    DialogRun::setAnswer([&](QDialog &) {
        opened = true;
        return int(QDialog::Accepted);
    });
    QVERIFY(!page.openConvertParameterEditDialog(Both));
    QVERIFY(!opened);
    QCOMPARE(m_host->messages().size(), 0);
    QCOMPARE(m_host->handledErrors(), QStringList());
}

void TestConvertParameters::dialogIsNotOpenedWhileConverting()
{
    m_host->state().isConverting = true;
    JS_Mediator_FileDialog page(m_host.get(), "filesavedialog");
    m_host->clearJournal();
    DialogRun::setAnswer([](QDialog &) { return int(QDialog::Accepted); });
    QVERIFY(!page.openConvertParameterEditDialog(Both));
    const QString text("You can not edit during the conversion process.");
    QCOMPARE(m_host->journal(), QStringList({"isConverting()", "translate(\"" + text + "\")",
                                             "warn(\"" + text + "\", null)"}));
}

// But for that of the page's load, which is told by itself.
void TestConvertParameters::failureOpensNothing()
{
    JS_Mediator_FileDialog page(m_host.get(), "filesavedialog");
    page.setSelectDocKey(1);
    bool opened = false;
    QStringList calls;
    DialogRun::setAnswer([&](QDialog &) {
        opened = true;
        calls = m_host->journal();
        return int(QDialog::Accepted);
    });
    m_host->clearJournal();
    QVERIFY(page.openConvertParameterEditDialog(Both));
    const QStringList lines = calls;
    for (int nth = 1; nth <= lines.size(); ++nth) {
        const bool isLoad = lines.at(nth - 1) == "deterUpdateUI(true)";
        opened = false;
        m_host->clearHandledErrors();
        m_host->failAtCall(nth);
        QCOMPARE(page.openConvertParameterEditDialog(Both), isLoad);
        m_host->clearFaults();
        QCOMPARE(opened, isLoad);
        QCOMPARE(m_host->handledErrors().size(), 1);
    }
}

void TestConvertParameters::dialogBelongsToTheWindowOfThePage()
{
    QWidget window;
    GUI_WebView view(m_host.get(), &window);
    JS_Mediator_FileDialog page(m_host.get(), "filesavedialog");
    m_host->attachMediator(&view, &page);
    page.setSelectDocKey(1);
    QWidget *parent = nullptr;
    DialogRun::setAnswer([&](QDialog &dialog) {
        parent = dialog.parentWidget();
        return int(QDialog::Accepted);
    });
    page.openConvertParameterEditDialog(Both);
    QCOMPARE(parent, &window);
}

void TestConvertParameters::mediatorMayGoWhileTheDialogRuns()
{
    auto page = std::make_unique<JS_Mediator_FileDialog>(m_host.get(), "filesavedialog");
    page->setSelectDocKey(1);
    DialogRun::setAnswer([&](QDialog &) {
        page.reset();
        return int(QDialog::Accepted);
    });
    QVERIFY(page->openConvertParameterEditDialog(Both));
    QVERIFY(!page);
}

void TestConvertParameters::wholeStory_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("accept") << "convertparametereditdialog.accept()" << true;
    QTest::newRow("reject") << "convertparametereditdialog.reject()" << false;
    QTest::newRow("title bar") << "" << false;
}

// The page stores its settings itself; the end of the dialog changes none.
void TestConvertParameters::wholeStory()
{
    QFETCH(QString, way);
    QFETCH(bool, isAccepted);
    m_host->clearJournal();
    {
        GUI_ConvertParameterEditDialog dialog(m_host.get(), nullptr, Both, 1, 2);
        PageProbe page(dialog.webView());
        dialog.show();
        QVERIFY(page.waitLoaded());
        page.call("convertparametereditdialog.setPrefBool('convert/subdir', true, false)");
        LogCapture log;
        if (way.isEmpty())
            QVERIFY(dialog.close());
        else
            page.call(way);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(isAccepted ? QDialog::Accepted : QDialog::Rejected));
    }
    QCOMPARE(
        m_host->journal(),
        QStringList({"clearPlannedGroupDir()", "needsDialogEnterNotice()",
                     "translate(\"Saved after the automatic conversion\")",
                     "attachMediator(GUI_WebView, JS_Mediator_ConvertParameterEditDialog)",
                     "deterUpdateUI(true)", "attachMediator(GUI_WebView, JS_Mediator_SaveFile)",
                     "mainWidget()", "getPrefInt(\"main/scrno\", invalid)", "deterUpdateUI(false)",
                     "updateUI(4294967295, true)", "setPrefBool(\"convert/subdir\", true)"}));
}

int main(int argc, char *argv[])
{
    TestConvertParameters test;
    return runTest(argc, argv, test);
}

#include "test_convert_parameters.moc"
