#include "bridge/operation/DialogRun.h"
#include "foundation/Clock.h"
#include "record/display/GUI_EditInfoDialog.h"
#include "record/timecode/GUI_TimeCodeCustomDialog.h"
#include "save/dialog/JS_Mediator_FileDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QDialog>

#include <functional>
#include <memory>

// The dialogs that a save page opens.

using Slot = std::function<bool(JS_Mediator_FileDialog &)>;
Q_DECLARE_METATYPE(Slot)

class TestFileDialogEditors : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void timeCodeDialogIsRun_data();
    void timeCodeDialogIsRun();
    void infoDialogIsRun_data();
    void infoDialogIsRun();
    void infoDialogIsThatOfThePage_data();
    void infoDialogIsThatOfThePage();
    void conversionKeepsTheDialogsShut_data();
    void conversionKeepsTheDialogsShut();
    void failuresGiveFalse_data();
    void failuresGiveFalse();
    void mediatorMayGoWhileTheDialogRuns_data();
    void mediatorMayGoWhileTheDialogRuns();
    void parentMayGoWhileTheDialogRuns_data();
    void parentMayGoWhileTheDialogRuns();

private:
    std::unique_ptr<QWidget> m_mainWidget;
    std::unique_ptr<StandInHost> m_host;
    std::unique_ptr<JS_Mediator_FileDialog> m_page;
};

namespace {

const QDateTime Noon(QDate(2024, 5, 6), QTime(12, 0));

bool openTimeCode(JS_Mediator_FileDialog &page)
{
    return page.openCustumTimeCodeDialog();
}

bool editInfo(JS_Mediator_FileDialog &page)
{
    return page.saveInfoView({2, QStringLiteral("9"), QStringLiteral("1")});
}

void addSlots()
{
    QTest::addColumn<Slot>("open");
    QTest::newRow("time code") << Slot(openTimeCode);
    QTest::newRow("information") << Slot(editInfo);
}

void addResults()
{
    QTest::addColumn<int>("result");
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("accepted") << int(QDialog::Accepted) << true;
    QTest::newRow("rejected") << int(QDialog::Rejected) << false;
    QTest::newRow("another end") << 7 << false;
}

}

void TestFileDialogEditors::init()
{
    TestBase::init();
    const Clock::Fixed clock(Noon);
    m_host = std::make_unique<StandInHost>();
    m_mainWidget = std::make_unique<QWidget>();
    m_host->state().mainWidget = m_mainWidget.get();
    m_host->addCamera();
    m_host->addCamera();
    m_page = std::make_unique<JS_Mediator_FileDialog>(m_host.get(), "filesavedialog");
    m_page->setSelectDocKey(2);
    m_page->setSelectPartitionNo(3);
    m_host->clearJournal();
}

void TestFileDialogEditors::cleanup()
{
    DialogRun::setAnswer(DialogRun::Answer());
    m_page.reset();
    m_host.reset();
    m_mainWidget.reset();
    TestBase::cleanup();
}

void TestFileDialogEditors::timeCodeDialogIsRun_data()
{
    addResults();
}

void TestFileDialogEditors::timeCodeDialogIsRun()
{
    QFETCH(int, result);
    QStringList before;
    QWidget *parent = nullptr;
    bool isTimeCode = false;
    DialogRun::setAnswer([&](QDialog &dialog) {
        before = m_host->journal();
        parent = dialog.parentWidget();
        isTimeCode = dynamic_cast<GUI_TimeCodeCustomDialog *>(&dialog) != nullptr;
        return result;
    });
    LogCapture log;
    QTEST(m_page->openCustumTimeCodeDialog(), "isAccepted");
    QVERIFY(isTimeCode);
    QCOMPARE(parent, m_mainWidget.get());
    QCOMPARE(before.mid(0, 2), QStringList({"isConverting()", "mainWidget()"}));
    QCOMPARE(m_host->journal(), before);
    QCOMPARE(log.texts(),
             QStringList({"[ENTER] \"JS_Mediator_FileDialog::openCustumTimeCodeDialog\" \"\"",
                          "[LEAVE] \"JS_Mediator_FileDialog::openCustumTimeCodeDialog\""}));
}

void TestFileDialogEditors::infoDialogIsRun_data()
{
    addResults();
}

// In the save form, for the selected document and partition.
void TestFileDialogEditors::infoDialogIsRun()
{
    QFETCH(int, result);
    QStringList opening;
    QString thumbnail;
    QSize size;
    DialogRun::setAnswer([&](QDialog &dialog) {
        opening = m_host->journal();
        auto &info = dynamic_cast<GUI_EditInfoDialog &>(dialog);
        size = info.size();
        m_host->clearJournal();
        info.getThumbnail(8, 8);
        thumbnail = m_host->journal().last();
        return result;
    });
    LogCapture log;
    QTEST(editInfo(*m_page), "isAccepted");
    QCOMPARE(size, QSize(850, 680)); // of the save form
    QCOMPARE(opening.mid(0, 5),
             QStringList({"isConverting()", "deviceByKey(2, true)", "deviceByKey(9, true)",
                          "deviceByKey(1, true)", "deviceByKey(2, true)"}));
    QVERIFY2(thumbnail.startsWith("[2].documentThumbnail(") &&
                 thumbnail.endsWith(", 8, 8, 3, 0, \"2024-05-06T12:00:00\")"),
             qPrintable(thumbnail));
    QCOMPARE(log.texts().filter("FileDialog"),
             QStringList({"[ENTER] \"JS_Mediator_FileDialog::saveInfoView\" "
                          "\"[targets:[2,\\\"9\\\",\\\"1\\\"]]\"",
                          "[LEAVE] \"JS_Mediator_FileDialog::saveInfoView\""}));
}

void TestFileDialogEditors::infoDialogIsThatOfThePage_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("filesavedialog") << 1;
    QTest::newRow("fileopendialog") << 1;
    QTest::newRow("layoutsavedialog") << 4;
    QTest::newRow("batchconverter") << 6;
    QTest::newRow("convertparametereditdialog") << 6;
    QTest::newRow("snapshotdialog") << 7;
    QTest::newRow("reportExportDialog") << 16;
}

void TestFileDialogEditors::infoDialogIsThatOfThePage()
{
    QFETCH(int, mode);
    m_page = std::make_unique<JS_Mediator_FileDialog>(m_host.get(), QTest::currentDataTag());
    m_page->setSelectDocKey(1);
    QString resolution;
    DialogRun::setAnswer([&](QDialog &dialog) {
        m_host->clearJournal();
        dynamic_cast<GUI_EditInfoDialog &>(dialog).getResolutionStr();
        resolution = m_host->journal().filter("documentResolution").join(' ');
        return 0;
    });
    m_page->saveInfoView({});
    QVERIFY2(resolution.startsWith(QString("[1].documentResolution(%1, ").arg(mode)),
             qPrintable(resolution));
}

void TestFileDialogEditors::conversionKeepsTheDialogsShut_data()
{
    addSlots();
}

void TestFileDialogEditors::conversionKeepsTheDialogsShut()
{
    QFETCH(Slot, open);
    const QString text("You can not edit during the conversion process.");
    m_host->state().isConverting = true;
    m_host->state().translations.insert(text, "Nicht jetzt");
    DialogRun::setAnswer([](QDialog &) { return int(QDialog::Accepted); });
    QVERIFY(!open(*m_page));
    QCOMPARE(m_host->journal(), QStringList({"isConverting()", "translate(\"" + text + "\")",
                                             "warn(\"Nicht jetzt\", null)"}));
    QCOMPARE(m_host->handledErrors(), QStringList());
}

void TestFileDialogEditors::failuresGiveFalse_data()
{
    QTest::addColumn<Slot>("open");
    QTest::addColumn<QString>("operation");
    for (const char *operation : {"isConverting", "mainWidget", "translate"}) {
        QTest::addRow("time code, %s", operation) << Slot(openTimeCode) << QString(operation);
        QTest::addRow("information, %s", operation) << Slot(editInfo) << QString(operation);
    }
    QTest::newRow("information, deviceByKey") << Slot(editInfo) << "deviceByKey";
}

// None is opened then.
void TestFileDialogEditors::failuresGiveFalse()
{
    QFETCH(Slot, open);
    QFETCH(QString, operation);
    bool opened = false;
    DialogRun::setAnswer([&](QDialog &) {
        opened = true;
        return int(QDialog::Accepted);
    });
    m_host->failOn(operation);
    QVERIFY(!open(*m_page));
    QVERIFY(!opened);
    QCOMPARE(m_host->handledErrors(), QStringList(operation + " failed"));
}

void TestFileDialogEditors::mediatorMayGoWhileTheDialogRuns_data()
{
    addSlots();
}

void TestFileDialogEditors::mediatorMayGoWhileTheDialogRuns()
{
    QFETCH(Slot, open);
    DialogRun::setAnswer([&](QDialog &) {
        m_page.reset();
        return int(QDialog::Accepted);
    });
    QVERIFY(open(*m_page));
    QVERIFY(!m_page);
}

void TestFileDialogEditors::parentMayGoWhileTheDialogRuns_data()
{
    addSlots();
}

void TestFileDialogEditors::parentMayGoWhileTheDialogRuns()
{
    QFETCH(Slot, open);
    DialogRun::setAnswer([&](QDialog &) {
        m_mainWidget.reset();
        return int(QDialog::Accepted);
    });
    QVERIFY(open(*m_page));
    QVERIFY(open(*m_page)); // without a parent
}

int main(int argc, char *argv[])
{
    TestFileDialogEditors test;
    return runTest(argc, argv, test);
}

#include "test_file_dialog_editors.moc"
