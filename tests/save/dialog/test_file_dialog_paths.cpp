#include "contract/DOC_Interface.h"
#include "foundation/Clock.h"
#include "save/dialog/JS_Mediator_FileDialog.h"
#include "save/path/PathComposer.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>

#include <functional>
#include <memory>

// The paths that a save page shows: what is composed for it, in which order, and what is left of
// the host's save plan.

class TestFileDialogPaths : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void directoryIsThatOfThePage_data();
    void directoryIsThatOfThePage();
    void failedDirectoryIsTold();
    void fileOfThePreviewedDocument();
    void fileOfAnotherDocument();
    void fileWithoutAGroup();
    void groupIsComposedInOrder();
    void groupIsRemembered();
    void groupOfAFreshDialogIsThatOfNoDocument_data();
    void groupOfAFreshDialogIsThatOfNoDocument();
    void nothingSelectedNeedsNoGroup_data();
    void nothingSelectedNeedsNoGroup();
    void groupOfOneArgumentTakesPartitionZero();
    void groupTakesTheSelectionForItsTime();
    void groupOfTheFirstCamera();
    void groupWithoutACamera();
    void layoutHasNoGroup();
    void subDirectoryIsComposedInOrder();
    void subDirectoryOfAnotherDocument();
    void includeOptionIsThatOfThePage_data();
    void includeOptionIsThatOfThePage();
    void fileNameIsAsked_data();
    void fileNameIsAsked();
    void failureClearsTheGroup_data();
    void failureClearsTheGroup();
    void failedGroupIsToldAndTheRestRuns();
    void failedGroupRestoresTheSelection();
    void refusedNameIsTold();
    void documentThatHasGone();
    void documentWithoutPartitionsOrHeads_data();
    void documentWithoutPartitionsOrHeads();
    void namesHaveTheTimeOfTheDialog();
    void entriesOfOthersStay();
    void nothingIsWritten();
    void tracesNameTheirArguments_data();
    void tracesNameTheirArguments();
    void namesAreThoseOfThePage_data();
    void namesAreThoseOfThePage();

private:
    using Preview = std::function<QString(JS_Mediator_FileDialog &)>;

    void set(const QString &key, const QVariant &value) { m_host->settings().setValue(key, value); }
    void useGroups();
    std::unique_ptr<JS_Mediator_FileDialog> open(const char *page = "filesavedialog");
    QStringList composing(const std::function<void()> &compose);
    DOC_Interface *doc(DOCKEY key) { return m_host->camera(key); }
    QStringList files() const;

    static const QDateTime Noon;

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<StandInHost> m_host;
    std::unique_ptr<Clock::Fixed> m_clock;
};

Q_DECLARE_METATYPE(std::function<QString(JS_Mediator_FileDialog &)>)

const QDateTime TestFileDialogPaths::Noon = QDateTime(QDate(2024, 5, 6), QTime(12, 0));

namespace {

using DialogPreview = std::function<QString(JS_Mediator_FileDialog &)>;

// Of the file, and of the sub directory.
void addPreviewsOfTheSelection()
{
    QTest::addColumn<DialogPreview>("preview");
    QTest::newRow("file") << DialogPreview(
        [](JS_Mediator_FileDialog &page) { return page.getExportFile(); });
    QTest::newRow("sub directory")
        << DialogPreview([](JS_Mediator_FileDialog &page) { return page.getExportSubDir(); });
}

// Notes how the name is asked for.
class NotingDialog : public JS_Mediator_FileDialog
{
    Q_OBJECT

public:
    using JS_Mediator_FileDialog::JS_Mediator_FileDialog;

    QStringList asked;

protected:
    QString exportFileName(bool withAdditions) override
    {
        asked.append(QString("%1 of [%2].%3")
                         .arg(withAdditions ? "full name" : "bare name")
                         .arg(selectDocKey())
                         .arg(selectPartitionNo()));
        return QStringLiteral("Own");
    }
};

}

// Two cameras in memory, whose saves go to a folder on the disk.
void TestFileDialogPaths::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
    m_host = std::make_unique<StandInHost>();
    m_clock = std::make_unique<Clock::Fixed>(Noon);
    m_host->setMode(StandInHost::Mode::Memory);
    for (const char *number : {"1", "2"}) {
        StandInCamera *camera = m_host->addCamera();
        camera->state().partitions = {{1, QStringLiteral("P1"), 10, 1000},
                                      {2, QStringLiteral("P2"), 20, 1000}};
        camera->state().nameAddition = "C" + QString(number);
    }
    for (const char *family : {"export", "convert", "snap", "report", "layout"}) {
        set(QString("%1/dir").arg(family), m_dir->path());
        set(QString("%1/filename").arg(family), QString("Shot"));
    }
}

void TestFileDialogPaths::cleanup()
{
    m_host.reset();
    m_clock.reset();
    m_dir.reset();
    TestBase::cleanup();
}

// Group directories that are named as the file, in full.
void TestFileDialogPaths::useGroups()
{
    for (const char *family : {"export", "convert", "snap", "report"}) {
        const QString prefix = QLatin1String(family) + QLatin1String("/groupdir");
        set(prefix, true);
        set(prefix + "asfilename", true);
        set(prefix + "asfilenameincludeoption", true);
    }
}

std::unique_ptr<JS_Mediator_FileDialog> TestFileDialogPaths::open(const char *page)
{
    auto dialog = std::make_unique<JS_Mediator_FileDialog>(m_host.get(), QLatin1String(page));
    m_host->clearJournal();
    return dialog;
}

// The calls of the composer alone.
QStringList TestFileDialogPaths::composing(const std::function<void()> &compose)
{
    const QStringList before = m_host->journal();
    m_host->clearJournal();
    compose();
    const QStringList lines = m_host->journal();
    m_host->clearJournal();
    return lines;
}

QStringList TestFileDialogPaths::files() const
{
    QStringList paths;
    QDirIterator entries(m_dir->path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        entries.next();
        const QFileInfo info = entries.fileInfo();
        paths.append(QString("%1 %2 %3")
                         .arg(info.filePath(), QString::number(info.size()),
                              info.lastModified().toString(Qt::ISODateWithMs)));
    }
    paths.sort();
    return paths;
}

void TestFileDialogPaths::directoryIsThatOfThePage_data()
{
    QTest::addColumn<QString>("family");
    QTest::newRow("filesavedialog") << "export";
    QTest::newRow("fileopendialog") << "export";
    QTest::newRow("batchconverter") << "convert";
    QTest::newRow("convertparametereditdialog") << "convert";
    QTest::newRow("reportExportDialog") << "report";
    QTest::newRow("snapshotdialog") << "snap";
    QTest::newRow("layoutsavedialog") << "layout";
}

void TestFileDialogPaths::directoryIsThatOfThePage()
{
    QFETCH(QString, family);
    set(family + "/dir", "/saves/of/" + family);
    const auto page = open(QTest::currentDataTag());
    page->setSelectDocKey(2);
    QCOMPARE(page->getExportPath(), "/saves/of/" + family + "/");
    QCOMPARE(m_host->journal().first(), QString("deviceByKey(2, true)"));
    QCOMPARE(m_host->commands(), QStringList());
}

// At each call of the host.
void TestFileDialogPaths::failedDirectoryIsTold()
{
    set("export/singlepath", false);
    const auto page = open();
    page->setSelectDocKey(2);
    QCOMPARE(page->getExportPath(), m_dir->path() + "/");
    const QStringList lines = m_host->journal();
    QVERIFY(lines.size() > 4);
    for (int nth = 1; nth <= lines.size(); ++nth) {
        m_host->clearHandledErrors();
        m_host->failAtCall(nth);
        QCOMPARE(page->getExportPath(), QString());
        m_host->clearFaults();
        const QString operation = lines.at(nth - 1).section('(', 0, 0).section('.', -1);
        QCOMPARE(m_host->handledErrors(), QStringList(operation + " failed"));
    }
    QCOMPARE(page->getExportPath(), m_dir->path() + "/");
}

void TestFileDialogPaths::fileOfThePreviewedDocument()
{
    useGroups();
    const auto page = open();
    page->setSelectDocKey(1);
    page->setSelectPartitionNo(2);
    page->getExportGroupDir(1, 2);
    const QStringList composed =
        composing([&] { PathComposer::composeFileName(m_host.get(), 1, doc(1), 2, true, Noon); });
    QCOMPARE(page->getExportFile(), QString("Shot_C1"));
    QCOMPARE(m_host->journal(), QStringList({"clearPlannedFiles()", "deviceByKey(1, true)"}) +
                                    composed + QStringList("clearPlannedGroupDir()"));
}

// Its group is that of the batch, which the document of the last group directory gave.
void TestFileDialogPaths::fileOfAnotherDocument()
{
    useGroups();
    const auto page = open();
    page->getExportGroupDir(1, 2);
    page->setSelectDocKey(2);
    page->setSelectPartitionNo(1);
    m_host->savePlan().clearGroupDir();
    const QStringList groupName =
        composing([&] { PathComposer::composeFileName(m_host.get(), 1, doc(1), 2, true, Noon); });
    const QStringList group =
        composing([&] { PathComposer::composeGroupDir(m_host.get(), 1, doc(1), "Shot_C1", Noon); });
    m_host->savePlan().setGroupDir("Shot_C1");
    const QStringList name =
        composing([&] { PathComposer::composeFileName(m_host.get(), 1, doc(2), 1, true, Noon); });
    m_host->savePlan().clearGroupDir();

    QCOMPARE(page->getExportFile(), QString("Shot_C2"));
    QCOMPARE(m_host->journal(),
             QStringList({"getPrefBool(\"export/groupdirasfilenameincludeoption\", invalid)",
                          "clearPlannedFiles()", "deviceByKey(1, true)"}) +
                 groupName + QStringList("deviceByKey(1, true)") + group +
                 QStringList({"setPlannedGroupDir(\"Shot_C1\")", "clearPlannedFiles()",
                              "deviceByKey(2, true)"}) +
                 name + QStringList("clearPlannedGroupDir()"));
    QCOMPARE(m_host->savePlan().groupDir(), QString());
    QCOMPARE(page->getSelectDocKey(), DOCKEY(2));
    QCOMPARE(page->getSelectPartitionNo(), 1);
}

void TestFileDialogPaths::fileWithoutAGroup()
{
    const auto page = open();
    page->getExportGroupDir(1, 1);
    page->setSelectDocKey(2);
    m_host->clearJournal();
    QCOMPARE(page->getExportFile(), QString("Shot_C2"));
    QCOMPARE(m_host->commands(),
             QStringList({"clearPlannedFiles()", "clearPlannedFiles()", "clearPlannedGroupDir()"}));
}

void TestFileDialogPaths::groupIsComposedInOrder()
{
    useGroups();
    const auto page = open();
    const QStringList name =
        composing([&] { PathComposer::composeFileName(m_host.get(), 1, doc(2), 1, true, Noon); });
    const QStringList group =
        composing([&] { PathComposer::composeGroupDir(m_host.get(), 1, doc(2), "Shot_C2", Noon); });
    QCOMPARE(page->getExportGroupDir(2, 1), QString("Shot_C2"));
    QCOMPARE(m_host->journal(),
             QStringList({"getPrefBool(\"export/groupdirasfilenameincludeoption\", invalid)",
                          "clearPlannedFiles()", "deviceByKey(2, true)"}) +
                 name + QStringList("deviceByKey(2, true)") + group);
    QCOMPARE(m_host->commands(), QStringList("clearPlannedFiles()"));
}

void TestFileDialogPaths::groupIsRemembered()
{
    useGroups();
    const auto page = open();
    page->setSelectDocKey(2);
    page->getExportGroupDir(2, 1);
    page->getExportGroupDir(1, 2);
    m_host->clearJournal();
    page->getExportFile();
    QVERIFY(m_host->commands().contains("setPlannedGroupDir(\"Shot_C1\")"));
}

void TestFileDialogPaths::groupOfAFreshDialogIsThatOfNoDocument_data()
{
    addPreviewsOfTheSelection();
}

// A dialog that has shown no group directory yet has that of key 0 and partition 0.
void TestFileDialogPaths::groupOfAFreshDialogIsThatOfNoDocument()
{
    QFETCH(Preview, preview);
    useGroups();
    set("export/subdir", true);
    set("export/subdirasfilenameincludeoption", true);
    NotingDialog named(m_host.get(), "filesavedialog");
    named.setSelectDocKey(1);
    named.setSelectPartitionNo(5);
    preview(named);
    QCOMPARE(named.asked, QStringList({"full name of [0].0", "full name of [1].5"}));

    const auto page = open();
    page->setSelectDocKey(1);
    preview(*page);
    const QStringList documents = m_host->journal().filter("deviceByKey");
    QCOMPARE(documents.mid(0, 3),
             QStringList({"deviceByKey(0, true)", "deviceByKey(0, true)", "deviceByKey(1, true)"}));
    QVERIFY(m_host->commands().contains("setPlannedGroupDir(\"Shot\")"));
    QCOMPARE(m_host->savePlan().groupDir(), QString());
}

void TestFileDialogPaths::nothingSelectedNeedsNoGroup_data()
{
    addPreviewsOfTheSelection();
}

void TestFileDialogPaths::nothingSelectedNeedsNoGroup()
{
    QFETCH(Preview, preview);
    useGroups();
    set("export/subdir", true);
    set("export/subdirasfilenameincludeoption", true);
    NotingDialog page(m_host.get(), "filesavedialog");
    m_host->clearJournal();
    preview(page);
    QCOMPARE(page.asked, QStringList("full name of [0].0"));
    QCOMPARE(m_host->journal().filter("groupdirasfilenameincludeoption"), QStringList());
    QCOMPARE(m_host->commands().filter("setPlanned"), QStringList());
}

void TestFileDialogPaths::groupOfOneArgumentTakesPartitionZero()
{
    useGroups();
    NotingDialog page(m_host.get(), "filesavedialog");
    QCOMPARE(page.getExportGroupDir(2), QString("Own"));
    page.setSelectDocKey(1);
    page.getExportFile();
    QCOMPARE(page.asked,
             QStringList({"full name of [2].0", "full name of [2].0", "full name of [1].0"}));
}

void TestFileDialogPaths::groupTakesTheSelectionForItsTime()
{
    NotingDialog page(m_host.get(), "filesavedialog");
    page.setSelectDocKey(2);
    page.setSelectPartitionNo(7);
    page.getExportGroupDir(1, 3);
    QCOMPARE(page.asked, QStringList("bare name of [1].3"));
    QCOMPARE(page.getSelectDocKey(), DOCKEY(2));
    QCOMPARE(page.getSelectPartitionNo(), 7);
}

void TestFileDialogPaths::groupOfTheFirstCamera()
{
    useGroups();
    NotingDialog page(m_host.get(), "filesavedialog");
    m_host->clearJournal();
    QCOMPARE(page.getExportGroupDir(), QString("Own"));
    QCOMPARE(page.asked, QStringList("full name of [1].1"));
    QCOMPARE(m_host->journal().mid(0, 3),
             QStringList({"clearPlannedDirs()", "liveDocumentKeys(true)",
                          "getPrefBool(\"export/groupdirasfilenameincludeoption\", invalid)"}));
    page.setSelectDocKey(2);
    page.asked.clear();
    page.getExportFile();
    QCOMPARE(page.asked, QStringList({"full name of [1].1", "full name of [2].0"}));
}

void TestFileDialogPaths::groupWithoutACamera()
{
    useGroups();
    m_host->closeDocument(1);
    m_host->closeDocument(2);
    const auto page = open();
    QCOMPARE(page->getExportGroupDir(), QString());
    QCOMPARE(m_host->journal(), QStringList({"clearPlannedDirs()", "liveDocumentKeys(true)"}));
}

void TestFileDialogPaths::layoutHasNoGroup()
{
    useGroups();
    const auto page = open("layoutsavedialog");
    QCOMPARE(page->getExportGroupDir(1, 1), QString());
    page->setSelectDocKey(2);
    m_host->clearJournal();
    QCOMPARE(page->getExportFile(), QString("Shot_C2"));
    QCOMPARE(m_host->commands().filter("setPlanned"), QStringList());
}

void TestFileDialogPaths::subDirectoryIsComposedInOrder()
{
    set("export/subdir", true);
    set("export/subdirasfilename", true);
    set("export/subdirasfilenameincludeoption", true);
    const auto page = open();
    page->setSelectDocKey(1);
    page->setSelectPartitionNo(2);
    page->getExportGroupDir(1, 2);
    const QStringList name =
        composing([&] { PathComposer::composeFileName(m_host.get(), 1, doc(1), 2, true, Noon); });
    const QStringList sub =
        composing([&] { PathComposer::composeSubDir(m_host.get(), 1, doc(1), "Shot_C1", Noon); });
    QCOMPARE(page->getExportSubDir(), QString("Shot_C1"));
    QCOMPARE(m_host->journal(),
             QStringList({"clearPlannedDirs()",
                          "getPrefBool(\"export/subdirasfilenameincludeoption\", invalid)",
                          "clearPlannedFiles()", "deviceByKey(1, true)"}) +
                 name + QStringList("deviceByKey(1, true)") + sub +
                 QStringList("clearPlannedGroupDir()"));
}

void TestFileDialogPaths::subDirectoryOfAnotherDocument()
{
    useGroups();
    set("export/subdir", true);
    set("export/subdirname", "Sub");
    const auto page = open();
    page->getExportGroupDir(1, 1);
    page->setSelectDocKey(2);
    m_host->clearJournal();
    QCOMPARE(page->getExportSubDir(), QString("Sub"));
    QCOMPARE(m_host->commands(),
             QStringList({"clearPlannedFiles()", "setPlannedGroupDir(\"Shot_C1\")",
                          "clearPlannedDirs()", "clearPlannedFiles()", "clearPlannedGroupDir()"}));
    QCOMPARE(m_host->savePlan().groupDir(), QString());
}

void TestFileDialogPaths::includeOptionIsThatOfThePage_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("sub");
    QTest::newRow("filesavedialog") << "export"
                                    << "export";
    QTest::newRow("batchconverter") << "convert"
                                    << "convert";
    QTest::newRow("convertparametereditdialog") << "convert"
                                                << "convert";
    QTest::newRow("reportExportDialog") << "report"
                                        << "report";
    QTest::newRow("snapshotdialog") << "snap"
                                    << "snap";
    QTest::newRow("layoutsavedialog") << "export"
                                      << "layout";
}

void TestFileDialogPaths::includeOptionIsThatOfThePage()
{
    QFETCH(QString, group);
    QFETCH(QString, sub);
    const QString groupKey = group + "/groupdirasfilenameincludeoption";
    const QString subKey = sub + "/subdirasfilenameincludeoption";
    for (bool on : {false, true}) {
        set(groupKey, on);
        set(subKey, !on);
        NotingDialog page(m_host.get(), QLatin1String(QTest::currentDataTag()));
        page.setSelectDocKey(1);
        page.getExportGroupDir(1, 1);
        page.getExportSubDir();
        const QString full("full name of [1].%1");
        const QString bare("bare name of [1].%1");
        QCOMPARE(page.asked, QStringList({(on ? full : bare).arg(1), (on ? bare : full).arg(0)}));
    }
}

void TestFileDialogPaths::fileNameIsAsked_data()
{
    QTest::addColumn<Preview>("preview");
    QTest::addColumn<QString>("result");
    using Page = JS_Mediator_FileDialog;
    QTest::newRow("file") << Preview([](Page &page) { return page.getExportFile(); }) << "Own";
    QTest::newRow("group") << Preview([](Page &page) { return page.getExportGroupDir(1, 1); })
                           << "Own";
    QTest::newRow("sub") << Preview([](Page &page) { return page.getExportSubDir(); }) << "Own";
}

// A page of another kind may name its files by itself.
void TestFileDialogPaths::fileNameIsAsked()
{
    QFETCH(Preview, preview);
    useGroups();
    set("export/subdir", true);
    set("export/subdirasfilename", true);
    NotingDialog page(m_host.get(), "filesavedialog");
    page.setSelectDocKey(1);
    page.getExportGroupDir(1, 0);
    page.asked.clear();
    QTEST(preview(page), "result");
    QCOMPARE(page.asked.size(), 1);
}

void TestFileDialogPaths::failureClearsTheGroup_data()
{
    QTest::addColumn<bool>("sub");
    QTest::newRow("file") << false;
    QTest::newRow("sub directory") << true;
}

// Each call of the host fails in turn.
void TestFileDialogPaths::failureClearsTheGroup()
{
    QFETCH(bool, sub);
    useGroups();
    set("export/subdir", true);
    set("export/subdirasfilename", true);
    const auto page = open();
    page->getExportGroupDir(1, 1);
    page->setSelectDocKey(2);
    const auto preview = [&] { return sub ? page->getExportSubDir() : page->getExportFile(); };
    m_host->clearJournal();
    preview();
    const QStringList lines = m_host->journal();
    QVERIFY(lines.size() > 20);
    for (int nth = 1; nth <= lines.size(); ++nth) {
        const QString failing = lines.at(nth - 1);
        m_host->savePlan().clearGroupDir();
        m_host->clearJournal();
        m_host->clearHandledErrors();
        m_host->failAtCall(nth);
        LogCapture log;
        preview();
        m_host->clearFaults();
        QCOMPARE(m_host->handledErrors().size(), 1);
        QCOMPARE(m_host->journal().filter("clearPlannedGroupDir()").size(), 1);
        if (failing != "clearPlannedGroupDir()")
            QVERIFY2(m_host->savePlan().groupDir().isEmpty(), qPrintable(failing));
        QCOMPARE(page->getSelectDocKey(), DOCKEY(2));
        QCOMPARE(page->getSelectPartitionNo(), 0);
    }
}

void TestFileDialogPaths::failedGroupIsToldAndTheRestRuns()
{
    useGroups();
    const auto page = open();
    page->getExportGroupDir(1, 1);
    page->setSelectDocKey(2);
    m_host->clearJournal();
    m_host->failOn("clearPlannedFiles", 1);
    QCOMPARE(page->getExportFile(), QString("Shot_C2"));
    QCOMPARE(m_host->handledErrors(), QStringList("clearPlannedFiles failed"));
    QCOMPARE(m_host->commands(),
             QStringList({"clearPlannedFiles()", "errorHandler(\"clearPlannedFiles failed\")",
                          "clearPlannedFiles()", "clearPlannedGroupDir()"}));
}

void TestFileDialogPaths::failedGroupRestoresTheSelection()
{
    const auto page = open();
    page->setSelectDocKey(2);
    page->setSelectPartitionNo(7);
    for (const char *operation : {"getPrefBool", "clearPlannedFiles", "deviceByKey"}) {
        m_host->failOn(QLatin1String(operation));
        QCOMPARE(page->getExportGroupDir(1, 3), QString());
        QCOMPARE(page->getSelectDocKey(), DOCKEY(2));
        QCOMPARE(page->getSelectPartitionNo(), 7);
    }
    QCOMPARE(m_host->handledErrors().size(), 3);
}

// The last call before the failure is told clears the plan.
void TestFileDialogPaths::refusedNameIsTold()
{
    useGroups();
    const auto page = open();
    page->setSelectDocKey(1);
    page->getExportGroupDir(1, 0);
    m_host->clearJournal();
    m_host->failOn("fileNameAddition");
    QCOMPARE(page->getExportFile(), QString());
    QCOMPARE(m_host->commands(), QStringList({"clearPlannedFiles()", "clearPlannedGroupDir()",
                                              "errorHandler(\"fileNameAddition failed\")"}));
}

void TestFileDialogPaths::documentThatHasGone()
{
    useGroups();
    const auto page = open();
    page->getExportGroupDir(1, 1);
    page->setSelectDocKey(2);
    page->setSelectPartitionNo(1);
    m_host->closeDocument(1);
    m_host->closeDocument(2);
    QCOMPARE(page->getExportFile(), QString("Shot"));
    QCOMPARE(page->getExportSubDir(), QString());
    QCOMPARE(page->getExportPath(), m_dir->path() + "/");
    QCOMPARE(page->getExportGroupDir(2, 1), QString("Shot"));
    QCOMPARE(m_host->handledErrors(), QStringList());
    QCOMPARE(m_host->savePlan().groupDir(), QString());
}

void TestFileDialogPaths::documentWithoutPartitionsOrHeads_data()
{
    QTest::addColumn<bool>("partitions");
    QTest::newRow("without partitions") << false;
    QTest::newRow("without heads") << true;
}

void TestFileDialogPaths::documentWithoutPartitionsOrHeads()
{
    QFETCH(bool, partitions);
    useGroups();
    set("export/groupdiraddnumber", true);
    set("export/groupdiraddnumberformat", "auto");
    if (partitions)
        m_host->camera(1)->state().headCount = 0;
    else
        m_host->camera(1)->state().partitions.clear();
    const auto page = open();
    page->setSelectDocKey(1);
    page->setSelectPartitionNo(1);
    QVERIFY(page->getExportGroupDir(1, 1).startsWith("Shot"));
    QCOMPARE(page->getExportFile(), QString("Shot_C1"));
    QCOMPARE(page->getExportSubDir(), QString());
    QCOMPARE(m_host->handledErrors(), QStringList());
}

void TestFileDialogPaths::namesHaveTheTimeOfTheDialog()
{
    useGroups();
    set("export/filenameaddtime", true);
    set("export/filenameaddtimeformat", "yyyyMMdd-HHmm");
    set("export/subdir", true);
    set("export/subdirasfilename", true);
    set("export/subdirasfilenameincludeoption", true);
    const auto page = open();
    m_clock->setTime(QDateTime(QDate(2025, 1, 1), QTime(0, 0)));
    page->setSelectDocKey(1);
    for (const QString &name :
         {page->getExportGroupDir(1, 0), page->getExportFile(), page->getExportSubDir()})
        QVERIFY2(name.contains("20240506-1200"), qPrintable(name));
}

// A save that goes on has planned its own.
void TestFileDialogPaths::entriesOfOthersStay()
{
    const auto page = open();
    page->setSelectDocKey(1);
    page->getExportGroupDir(1, 0);
    m_host->savePlan().addDir("/d/");
    m_host->savePlan().addFile("/d/f");
    page->getExportFile();
    QVERIFY(m_host->savePlan().hasDir("/d/"));
    QVERIFY(!m_host->savePlan().hasFile("/d/f"));
    m_host->savePlan().setTargetDir("/alternative");
    page->getExportSubDir();
    QVERIFY(!m_host->savePlan().hasDir("/d/"));
    QCOMPARE(m_host->savePlan().targetDir(), QString("/alternative"));
    QCOMPARE(m_host->commands().filter("addPlanned"), QStringList());
}

void TestFileDialogPaths::nothingIsWritten()
{
    useGroups();
    set("export/subdir", true);
    set("export/subdirname", "Sub");
    QVERIFY(QDir(m_dir->path()).mkpath("Shot_C1/Sub"));
    const QStringList before = files();
    for (const char *name :
         {"filesavedialog", "fileopendialog", "batchconverter", "convertparametereditdialog",
          "reportExportDialog", "snapshotdialog", "layoutsavedialog"}) {
        const auto page = open(name);
        page->list();
        page->select(2, 1, 16, 16);
        page->getExportGroupDir();
        page->getExportGroupDir(1, 1);
        page->setSelectDocKey(2);
        page->getExportPath();
        page->getExportFile();
        page->getExportSubDir();
        QCOMPARE(files(), before);
    }
}

void TestFileDialogPaths::tracesNameTheirArguments_data()
{
    QTest::addColumn<Preview>("preview");
    QTest::addColumn<QStringList>("lines");
    using Page = JS_Mediator_FileDialog;
    const auto enter = [](const char *name, const char *arguments = "") {
        return QString("[ENTER] \"JS_Mediator_FileDialog::%1\" \"%2\"").arg(name, arguments);
    };
    const auto leave = [](const char *name) {
        return QString("[LEAVE] \"JS_Mediator_FileDialog::%1\"").arg(name);
    };
    const QStringList group = {enter("getExportGroupDir", "[docKey:9] [partitionNo:3]"),
                               leave("getExportGroupDir")};
    QTest::newRow("path") << Preview([](Page &page) { return page.getExportPath(); })
                          << QStringList({enter("getExportPath"), leave("getExportPath")});
    QTest::newRow("file") << Preview([](Page &page) { return page.getExportFile(); })
                          << QStringList({enter("getExportFile"), leave("getExportFile")});
    QTest::newRow("sub") << Preview([](Page &page) { return page.getExportSubDir(); })
                         << QStringList({enter("getExportSubDir"), leave("getExportSubDir")});
    QTest::newRow("group") << Preview([](Page &page) { return page.getExportGroupDir(9, 3); })
                           << group;
    QTest::newRow("group of a document")
        << Preview([](Page &page) { return page.getExportGroupDir(9); })
        << QStringList({enter("getExportGroupDir", "[docKey:9] [partitionNo:0]"), group.last()});
    QTest::newRow("group of the first camera")
        << Preview([](Page &page) { return page.getExportGroupDir(); })
        << QStringList({enter("getExportGroupDir"),
                        enter("getExportGroupDir", "[docKey:1] [partitionNo:1]"), group.last(),
                        group.last()});
}

void TestFileDialogPaths::tracesNameTheirArguments()
{
    QFETCH(Preview, preview);
    const auto page = open();
    LogCapture log;
    preview(*page);
    QTEST(log.texts(), "lines");
}

void TestFileDialogPaths::namesAreThoseOfThePage_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("mode");
    QTest::newRow("filesavedialog") << "export" << 1;
    QTest::newRow("fileopendialog") << "export" << 1;
    QTest::newRow("batchconverter") << "convert" << 6;
    QTest::newRow("convertparametereditdialog") << "convert" << 6;
    QTest::newRow("reportExportDialog") << "report" << 16;
    QTest::newRow("snapshotdialog") << "snap" << 7;
    QTest::newRow("layoutsavedialog") << "layout" << 4;
}

void TestFileDialogPaths::namesAreThoseOfThePage()
{
    QFETCH(QString, family);
    QFETCH(int, mode);
    for (const QString each : {"export", "convert", "snap", "report", "layout"}) {
        set(each + "/filename", each);
        set(each + "/subdir", true);
        set(each + "/subdirname", each + " sub");
        if (each == "layout")
            continue;
        set(each + "/groupdir", true);
        set(each + "/groupdirname", each + " group");
    }
    const auto page = open(QTest::currentDataTag());
    page->setSelectDocKey(1);
    QCOMPARE(page->getExportGroupDir(1, 0), family == "layout" ? QString() : family + " group");
    m_host->clearJournal();
    QCOMPARE(page->getExportFile(), family + "_C1");
    const QString asked = m_host->journal().filter("fileNameAddition(").value(0);
    QVERIFY2(asked.startsWith(QString("[1].fileNameAddition(%1, 0, 1, ").arg(mode)),
             qPrintable(asked));
    QCOMPARE(page->getExportSubDir(), family + " sub");
}

int main(int argc, char *argv[])
{
    TestFileDialogPaths test;
    return runTest(argc, argv, test);
}

#include "test_file_dialog_paths.moc"
