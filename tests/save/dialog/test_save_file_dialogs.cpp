#include "bridge/operation/DialogRun.h"
#include "bridge/operation/FileChoice.h"
#include "record/info/GUI_CustomInfoDialog.h"
#include "save/dialog/JS_Mediator_SaveFile.h"
#include "save/number/GUI_AddNumberDialog.h"
#include "save/number/JS_Mediator_AddNumberDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QPointer>
#include <QWidget>

#include <memory>

// The dialogs that a page that saves opens: of numbers, of custom information, of folders.

class TestSaveFileDialogs : public TestBase
{
    Q_OBJECT

private slots:
    void cleanup();
    void numberDialogSetsTheLevelOfThePage_data();
    void numberDialogSetsTheLevelOfThePage();
    void numberDialogGetsTheSelection();
    void numberDialogIsOpenedOverTheMainWidget_data();
    void numberDialogIsOpenedOverTheMainWidget();
    void customInfoShowsTheFlagOfTheLevel_data();
    void customInfoShowsTheFlagOfTheLevel();
    void dialogThatCannotBeMadeIsNotRun_data();
    void dialogThatCannotBeMadeIsNotRun();
    void mediatorMayGoWhileADialogIsOpen_data();
    void mediatorMayGoWhileADialogIsOpen();
    void parentMayGoWhileADialogIsOpen_data();
    void parentMayGoWhileADialogIsOpen();
    void folderIsChosen_data();
    void folderIsChosen();
    void failedChoiceGivesNothing_data();
    void failedChoiceGivesNothing();
    void mediatorMayGoWhileAFolderIsChosen();
};

namespace {

const char *const DialogSlots[] = {"numberSetting4GroupDir", "numberSetting4SubDir",
                                   "numberSetting4FileName", "editCustom"};

/// A host with a camera that is selected, and the mediator of a page.
struct Scene
{
    explicit Scene(const QString &page = QString())
        : mainWidget(new QWidget), mediator(new JS_Mediator_SaveFile(&host, page))
    {
        host.state().mainWidget = mainWidget;
        host.select(host.addCamera()->key(), true);
        host.clearJournal();
    }
    ~Scene()
    {
        delete mediator;
        delete mainWidget;
    }

    void call(const QByteArray &slot)
    {
        if (slot == "editCustom")
            mediator->editCustom(false);
        else
            QMetaObject::invokeMethod(mediator, slot);
    }

    StandInHost host;
    QPointer<QWidget> mainWidget;
    QPointer<JS_Mediator_SaveFile> mediator;
};

void addDialogSlots()
{
    QTest::addColumn<QByteArray>("slot");
    for (const char *slot : DialogSlots)
        QTest::newRow(slot) << QByteArray(slot);
}

// Between them stands what the dialog itself tells.
QStringList firstAndLast(const QStringList &lines)
{
    return lines.isEmpty() ? lines : QStringList({lines.first(), lines.last()});
}

QStringList traceOf(const QString &slot, const QString &arguments = QString())
{
    const QString name = "\"JS_Mediator_SaveFile::" + slot + "\"";
    return {"[ENTER] " + name + " \"" + arguments + "\"", "[LEAVE] " + name};
}

}

void TestSaveFileDialogs::cleanup()
{
    DialogRun::setAnswer({});
    FileChoice::setAnswer({});
    TestBase::cleanup();
}

void TestSaveFileDialogs::numberDialogSetsTheLevelOfThePage_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QList<int>>("kinds"); // group directory, sub directory, file name
    QTest::newRow("layout, whose group directory is that of an export")
        << "layoutsavedialog" << QList<int>{0, 15, 16};
    QTest::newRow("snapshot") << "snapshotdialog" << QList<int>{6, 7, 8};
    QTest::newRow("batch converter") << "batchconverter" << QList<int>{3, 4, 5};
    QTest::newRow("conversion's settings") << "convertparametereditdialog" << QList<int>{3, 4, 5};
    QTest::newRow("report, which sets those of an export")
        << "reportExportDialog" << QList<int>{0, 1, 2};
    QTest::newRow("export") << "exportdialog" << QList<int>{0, 1, 2};
}

void TestSaveFileDialogs::numberDialogSetsTheLevelOfThePage()
{
    QFETCH(QString, page);
    Scene scene(page);
    QList<int> kinds;
    DialogRun::setAnswer([&](QDialog &dialog) {
        auto &number = dynamic_cast<GUI_AddNumberDialog &>(dialog);
        auto *mediator = dynamic_cast<JS_Mediator_AddNumberDialog *>(number.mediator());
        kinds.append(mediator->getCallbackType());
        return int(QDialog::Rejected);
    });
    for (const char *slot :
         {"numberSetting4GroupDir", "numberSetting4SubDir", "numberSetting4FileName"})
        scene.call(slot);
    QTEST(kinds, "kinds");
    QCOMPARE(scene.host.handledErrors(), QStringList());
}

void TestSaveFileDialogs::numberDialogGetsTheSelection()
{
    Scene scene;
    QStringList digits;
    DialogRun::setAnswer([&](QDialog &dialog) {
        auto &number = dynamic_cast<GUI_AddNumberDialog &>(dialog);
        auto *mediator = dynamic_cast<JS_Mediator_AddNumberDialog *>(number.mediator());
        digits.append(QStringLiteral("%1 %2")
                          .arg(mediator->getAutoDeviceDigits())
                          .arg(mediator->getAutoHeadDigits()));
        return int(QDialog::Rejected);
    });
    scene.call("numberSetting4FileName"); // nothing was selected yet
    scene.mediator->selectedDocCount(12);
    scene.call("numberSetting4FileName");
    scene.mediator->selectedDocHeadCount(100);
    scene.call("numberSetting4GroupDir");
    scene.mediator->selectedDocCount(2);
    scene.mediator->selectedDocHeadCount(1);
    scene.call("numberSetting4SubDir");
    QCOMPARE(digits, QStringList({"1 0", "2 0", "2 3", "1 0"}));
}

void TestSaveFileDialogs::numberDialogIsOpenedOverTheMainWidget_data()
{
    QTest::addColumn<QByteArray>("slot");
    for (const char *slot :
         {"numberSetting4GroupDir", "numberSetting4SubDir", "numberSetting4FileName"})
        QTest::newRow(slot) << QByteArray(slot);
}

// It is made, run and gone, inside the trace of its slot.
void TestSaveFileDialogs::numberDialogIsOpenedOverTheMainWidget()
{
    QFETCH(QByteArray, slot);
    Scene scene;
    int runs = 0;
    bool isGone = false;
    bool isInPlace = false;
    DialogRun::setAnswer([&](QDialog &dialog) {
        ++runs;
        isInPlace = dialog.parentWidget() == scene.mainWidget && dialog.isWindow();
        connect(&dialog, &QObject::destroyed, this, [&] { isGone = true; });
        return int(QDialog::Accepted);
    });
    LogCapture log;
    scene.call(slot);
    QCOMPARE(firstAndLast(log.texts()), traceOf(slot));
    QCOMPARE(runs, 1);
    QVERIFY(isGone);
    QVERIFY(isInPlace);
    QCOMPARE(
        scene.host.journal(),
        QStringList({"mainWidget()", "needsDialogEnterNotice()", "translate(\"Adding a number\")",
                     "attachMediator(GUI_WebView, JS_Mediator_AddNumberDialog)",
                     "deterUpdateUI(true)", "deterUpdateUI(false)"}));
}

void TestSaveFileDialogs::customInfoShowsTheFlagOfTheLevel_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<bool>("forTemporary");
    QTest::addColumn<int>("kind");
    const QMap<QString, int> kinds = {{"layoutsavedialog", 16},   {"snapshotdialog", 8},
                                      {"batchconverter", 5},      {"convertparametereditdialog", 5},
                                      {"reportExportDialog", 11}, {"exportdialog", 2}};
    for (auto each = kinds.cbegin(); each != kinds.cend(); ++each) {
        for (bool forTemporary : {false, true})
            QTest::newRow(qPrintable(each.key() + (forTemporary ? ", temporary" : "")))
                << each.key() << forTemporary << *each;
    }
}

void TestSaveFileDialogs::customInfoShowsTheFlagOfTheLevel()
{
    QFETCH(QString, page);
    QFETCH(bool, forTemporary);
    QFETCH(int, kind);
    Scene scene(page);
    QList<int> kinds;
    bool isInPlace = false;
    DialogRun::setAnswer([&](QDialog &dialog) {
        int shown = -1;
        auto &customInfo = dynamic_cast<GUI_CustomInfoDialog &>(dialog);
        QMetaObject::invokeMethod(customInfo.mediator(), "getCallbackType",
                                  Q_RETURN_ARG(int, shown));
        kinds.append(shown);
        isInPlace = dialog.parentWidget() == scene.mainWidget;
        return int(QDialog::Rejected);
    });
    LogCapture log;
    scene.mediator->editCustom(forTemporary);
    QCOMPARE(kinds, QList<int>({kind}));
    QVERIFY(isInPlace);
    QCOMPARE(firstAndLast(log.texts()),
             traceOf("editCustom", forTemporary ? "[forTemporary:true]" : "[forTemporary:false]"));
    QCOMPARE(scene.host.journal().contains("temporaryDocumentKeys()"), forTemporary);
    QCOMPARE(scene.host.journal().contains("selectedDocKeys(true)"), !forTemporary);
}

void TestSaveFileDialogs::dialogThatCannotBeMadeIsNotRun_data()
{
    addDialogSlots();
}

void TestSaveFileDialogs::dialogThatCannotBeMadeIsNotRun()
{
    QFETCH(QByteArray, slot);
    for (const char *operation : {"mainWidget", "translate", "attachMediator"}) {
        Scene scene;
        int runs = 0;
        DialogRun::setAnswer([&](QDialog &) { return ++runs; });
        scene.host.failOn(operation);
        scene.call(slot);
        QCOMPARE(scene.host.handledErrors(), QStringList(operation + QString(" failed")));
        QCOMPARE(runs, 0);
        QCOMPARE(scene.host.deterrals(), 0);
    }
}

void TestSaveFileDialogs::mediatorMayGoWhileADialogIsOpen_data()
{
    addDialogSlots();
}

void TestSaveFileDialogs::mediatorMayGoWhileADialogIsOpen()
{
    QFETCH(QByteArray, slot);
    Scene scene;
    DialogRun::setAnswer([&](QDialog &) {
        delete scene.mediator;
        return int(QDialog::Accepted);
    });
    scene.call(slot);
    QVERIFY(!scene.mediator);
    QCOMPARE(scene.host.handledErrors(), QStringList());
}

void TestSaveFileDialogs::parentMayGoWhileADialogIsOpen_data()
{
    addDialogSlots();
}

void TestSaveFileDialogs::parentMayGoWhileADialogIsOpen()
{
    QFETCH(QByteArray, slot);
    Scene scene;
    DialogRun::setAnswer([&](QDialog &) {
        delete scene.mainWidget; // and the dialog with it
        return int(QDialog::Rejected);
    });
    scene.call(slot);
    QVERIFY(!scene.mainWidget);
    QCOMPARE(scene.host.handledErrors(), QStringList());
}

void TestSaveFileDialogs::folderIsChosen_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("chosen");
    QTest::newRow("folder") << "/data/run"
                            << "/data/run/";
    QTest::newRow("root") << "/"
                          << "/";
    QTest::newRow("with a slash") << "/data/"
                                  << "/data/";
    QTest::newRow("cancelled") << ""
                               << "";
}

void TestSaveFileDialogs::folderIsChosen()
{
    QFETCH(QString, answer);
    Scene scene;
    scene.host.state().translations.insert("Select folder", "Ordner");
    QVector<FileChoice::Question> questions;
    FileChoice::setAnswer([&](const FileChoice::Question &question) {
        questions.append(question);
        return answer.isEmpty() ? QStringList() : QStringList(answer);
    });
    LogCapture log;
    const QString chosen = scene.mediator->selectFolder("/start");
    QTEST(chosen, "chosen");
    QCOMPARE(log.texts(), traceOf("selectFolder", "[dir:/start]"));
    QCOMPARE(questions.size(), 1);
    QCOMPARE(questions.first().kind, FileChoice::Kind::Folder);
    QCOMPARE(questions.first().parent, scene.mainWidget.data());
    QCOMPARE(questions.first().caption, QStringLiteral("Ordner"));
    QCOMPARE(questions.first().start, QStringLiteral("/start"));
    QCOMPARE(questions.first().options, QFileDialog::Options(QFileDialog::ShowDirsOnly));
    QCOMPARE(scene.host.journal(), QStringList({"mainWidget()", "translate(\"Select folder\")"}));
}

void TestSaveFileDialogs::failedChoiceGivesNothing_data()
{
    QTest::addColumn<QString>("operation");
    QTest::newRow("mainWidget") << "mainWidget";
    QTest::newRow("translate") << "translate";
}

void TestSaveFileDialogs::failedChoiceGivesNothing()
{
    QFETCH(QString, operation);
    Scene scene;
    FileChoice::setAnswer([](const FileChoice::Question &) { return QStringList("/data"); });
    scene.host.failOn(operation);
    QCOMPARE(scene.mediator->selectFolder(QString()), QString());
    QCOMPARE(scene.host.handledErrors(), QStringList(operation + " failed"));
}

void TestSaveFileDialogs::mediatorMayGoWhileAFolderIsChosen()
{
    Scene scene;
    FileChoice::setAnswer([&](const FileChoice::Question &) {
        delete scene.mediator;
        return QStringList("/data");
    });
    QCOMPARE(scene.mediator->selectFolder(QString()), QStringLiteral("/data/"));
    QVERIFY(!scene.mediator);
}

int main(int argc, char **argv)
{
    TestSaveFileDialogs test;
    return runTest(argc, argv, test);
}

#include "test_save_file_dialogs.moc"
