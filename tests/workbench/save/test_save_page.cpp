#include "bridge/operation/FileChoice.h"
#include "bridge/page/GUI_WebView.h"
#include "save/dialog/GUI_FileSaveDialog.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/save/support/SaveVisit.h"
#include "workbench/tour/PageHand.h"

#include <QDialog>
#include <QDir>
#include <QRegularExpression>
#include <QStorageInfo>

using namespace PageHand;

/// The pages that save: where a save goes, while the user sets it.
class TestSavePage : public TestBase
{
    Q_OBJECT

private slots:
    void showsThePathInParts();
    void namesThePartsInWords();
    void growsWhileTheUserTypes();
    void asksOnceBehindAPause();
    void dropsAnAnswerThatIsOutOfDate();
    void storesEachSetting_data();
    void storesEachSetting();
    void typesIntoItsOwnFamily_data();
    void typesIntoItsOwnFamily();
    void tellsWhichNumberComesNext_data();
    void tellsWhichNumberComesNext();
    void sharesAGroupDirectory();
    void tellsTheLimit();
    void tellsAMissingName();
    void refusesNames_data();
    void refusesNames();
    void warns_data();
    void warns();
    void tellsTheFreeSpace();
    void showsSamples();
    void choosesAFolder();
    void namesFilesAfterThePartition();
    void listsTargets();
    void showsThePictureOfATarget();
    void handsTheTargetsOver();
    void handsNothingOverOnCancel();
    void goesByKeysAlone();
    void tellsWhatIsMissing_data();
    void tellsWhatIsMissing();
    void tellsARunningConversion();
    void skipsFrames();
    void reportSetsItsOwnDigits();
    void layoutHasNoGroupDirectory();
    void tellsAFailure();
    void eachSettingMovesThePath_data();
    void eachSettingMovesThePath();
    void tellsWhyADirectoryHasItsNumber();
    void tellsWhatExistsAndWhatIsPlanned();
    void tellsWhatLiveModeHas();
};

void TestSavePage::showsThePathInParts()
{
    SaveVisit visit;
    visit.numberFiles();
    visit.set("export/groupdir", true);
    visit.set("export/groupdirname", "Run");
    visit.set("export/subdir", true);
    visit.set("export/subdirname", "Sub");
    visit.set("export/filenameaddtime", true);
    visit.set("export/filenameaddtimeformat", "'now'");
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownParts(view),
                 QString("group=Run sub=Sub file=Shot fileNumber=S0001 fileTime=now"));
        QCOMPARE(shownPath(view), QString("Run/Sub/Shot_S0001_now"));
        QCOMPARE(text(view, "#path .base"), visit.base());
    }));
}

void TestSavePage::namesThePartsInWords()
{
    SaveVisit visit;
    visit.numberFiles();
    visit.set("export/groupdir", true);
    visit.set("export/groupdirname", "Run");
    visit.set("export/subdir", true);
    visit.set("export/subdirname", "Sub");
    visit.set("export/filenameaddtime", true);
    visit.set("export/filenameaddtimeformat", "'now'");
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        const QStringList labels =
            read(view, "Array.from(document.querySelectorAll('#legend .key')).map("
                       "function (each) { return each.textContent; })")
                .toStringList();
        QCOMPARE(labels, QStringList({"Folder", "Group directory", "Sub directory", "Name",
                                      "Number", "Time"}));
        // Each kind has a line of its own, beside its colour.
        const QStringList lines =
            read(view, "Array.from(document.querySelectorAll('#path .piece')).map("
                       "function (each) {"
                       "    var style = getComputedStyle(each);"
                       "    return style.borderBottomStyle + style.borderBottomWidth;"
                       "})")
                .toStringList();
        QCOMPARE(QSet<QString>(lines.begin(), lines.end()).size(), 6);
    }));
}

void TestSavePage::growsWhileTheUserTypes()
{
    SaveVisit visit;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(typeInto(view, "fileName", "Run"));
        QVERIFY(waitForPath(view, "Run"));
        QCOMPARE(visit.setting("export/filename").toString(), QString("Run"));
        QVERIFY(type(view, "42"));
        QVERIFY(waitForPath(view, "Run42"));
        QCOMPARE(shownIn(view, "fileName").toString(), QString("Run42"));
        // While the user types nothing else is refreshed.
        QVERIFY(visit.host.journal().filter("refresh").isEmpty());
    }));
}

void TestSavePage::asksOnceBehindAPause()
{
    SaveVisit visit;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#fileName"));
        QVERIFY(press(view, Qt::Key_End));
        visit.host.clearJournal();
        read(view, "SavePage.pause = 400; 0");
        QVERIFY(type(view, "_abcdef"));
        QCOMPARE(visit.stored(), QStringList());
        QCOMPARE(shownPath(view), QString("Shot"));
        QVERIFY(waitForPath(view, "Shot_abcdef"));
        QCOMPARE(visit.stored(),
                 QStringList("setPrefString(\"export/filename\", \"Shot_abcdef\")"));
        QCOMPARE(visit.host.journal().filter("fileNameAddition").size(), 1);
    }));
}

// A call of the round takes its time, and the user goes on under it.
void TestSavePage::dropsAnAnswerThatIsOutOfDate()
{
    SaveVisit visit;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#fileName"));
        QVERIFY(press(view, Qt::Key_End));
        read(view, "SavePage.pause = 400; var shown = [];"
                   "new MutationObserver(function () {"
                   "    shown.push(document.getElementById('path').dataset.path);"
                   "}).observe(document.getElementById('path'), { attributes: true }); 0");
        int rounds = 0;
        visit.host.callJournal().setListener([&](const QString &line) {
            if (line.contains("fileNameAddition") && ++rounds == 1)
                type(view, "2");
        });
        QVERIFY(type(view, "1"));
        QVERIFY(waitForPath(view, "Shot12"));
        visit.host.callJournal().setListener({});
        QCOMPARE(rounds, 2);
        QCOMPARE(read(view, "shown").toStringList(), QStringList(visit.base() + "Shot12"));
    }));
}

void TestSavePage::storesEachSetting_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    const auto box = [](const char *id, const char *key) {
        QTest::newRow(key) << id << key << QVariant(true);
    };
    const auto text = [](const char *id, const char *key, const char *value) {
        QTest::newRow(key) << id << key << QVariant(value);
    };
    box("groupUse", "export/groupdir");
    text("groupName", "export/groupdirname", "G");
    box("groupAsFile", "export/groupdirasfilename");
    box("groupNumber", "export/groupdiraddnumber");
    box("groupTime", "export/groupdiraddtime");
    text("groupTimeFormat", "export/groupdiraddtimeformat", "yy");
    box("subUse", "export/subdir");
    text("subName", "export/subdirname", "S");
    box("subAsFile", "export/subdirasfilename");
    box("subNumber", "export/subdiraddnumber");
    box("subTime", "export/subdiraddtime");
    text("subTimeFormat", "export/subdiraddtimeformat", "yy");
    text("fileName", "export/filename", "F");
    text("fileText", "export/filenameaddtextvalue", "T");
    box("fileNumber", "export/filenameaddnumber");
    box("fileTime", "export/filenameaddtime");
    text("fileTimeFormat", "export/filenameaddtimeformat", "yy");
    box("saveinfo", "export/saveinfo");
    box("savecorrect", "export/savecorrect");
    box("savescale", "export/savescale");
    box("savethumbnail", "export/savethumbnail");
}

void TestSavePage::storesEachSetting()
{
    QFETCH(QString, id);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    SaveVisit visit;
    for (const char *each : {"groupdir", "subdir"})
        visit.set(QString("export/%1").arg(each), key != QString("export/%1").arg(each));
    for (const char *each : {"groupdir", "subdir", "filename"}) {
        const QString time = QString("export/%1addtime").arg(each);
        visit.set(time, key != time);
    }
    if (value.type() == QVariant::Bool)
        visit.set(key, false);
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        if (value.type() == QVariant::Bool) {
            QVERIFY(click(view, '#' + id));
        } else {
            QVERIFY(typeInto(view, id, value.toString()));
            QVERIFY(press(view, Qt::Key_Tab));
        }
        QCOMPARE(visit.setting(key), value);
    }));
}

void TestSavePage::typesIntoItsOwnFamily_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("key");
    QTest::newRow("export") << "exportdialog"
                            << "export/filename";
    QTest::newRow("convert") << "batchconverter"
                             << "convert/filename";
    QTest::newRow("snap") << "snapshotdialog"
                          << "snap/filename";
    QTest::newRow("report") << "reportExportDialog"
                            << "report/filename";
    QTest::newRow("layout") << "layoutsavedialog"
                            << "layout/filename";
    QTest::newRow("automatic conversion") << "convertparametereditdialog"
                                          << "convert/filename";
}

void TestSavePage::typesIntoItsOwnFamily()
{
    QFETCH(QString, page);
    QFETCH(QString, key);
    SaveVisit visit;
    QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(typeInto(view, "fileName", "Mine"));
        QVERIFY(waitForPath(view, "Mine"));
    }));
    QCOMPARE(visit.setting(key).toString(), QString("Mine"));
    QCOMPARE(visit.stored(), QStringList("setPrefString(\"" + key + "\", \"Mine\")"));
}

void TestSavePage::tellsWhichNumberComesNext_data()
{
    QTest::addColumn<int>("existing");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("none") << 0 << "Shot_S0001"
                          << "File name 0001: none is taken yet";
    QTest::newRow("one") << 1 << "Shot_S0002"
                         << "File name 0002: 0001 exists";
    QTest::newRow("six") << 6 << "Shot_S0007"
                         << "File name 0007: 0001 to 0006 exist";
}

void TestSavePage::tellsWhichNumberComesNext()
{
    QFETCH(int, existing);
    QFETCH(QString, path);
    QFETCH(QString, reason);
    SaveVisit visit;
    visit.numberFiles();
    for (int i = 1; i <= existing; ++i)
        visit.touch(QString("shot_s000%1.avi").arg(i));
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownPath(view), path);
        QCOMPARE(linesOf(view, "reasons").value(0), reason);
    }));
}

void TestSavePage::sharesAGroupDirectory()
{
    SaveVisit visit;
    visit.numberFiles();
    visit.set("export/groupdir", true);
    visit.set("export/groupdirname", "Run");
    visit.set("export/groupdiraddnumber", true);
    visit.set("export/groupdiraddnumberformat", "");
    visit.set("export/groupdiraddnumbercameranodigits", 1);
    visit.set("export/groupdiraddnumberheadnodigits", 0);
    visit.set("export/groupdiraddnumbersessionnodigits", 2);
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#target-1-1"));
        QCOMPARE(shownPath(view), QString("Run_C1S01/Shot_S0001"));
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QCOMPARE(shownPath(view), QString("Run_C1S01/Shot_S0001"));
        QVERIFY(click(view, "#nextTarget"));
        QCOMPARE(shownPath(view), QString("Run_C1S01/Shot_S0002"));
        QVERIFY(
            linesOf(view, "reasons").contains("The first target gives all its group directory."));
        QVERIFY(linesOf(view, "reasons").contains("File name 0002: 0001 is taken by this save"));
        QVERIFY(click(view, "#previousTarget"));
        QCOMPARE(shownPath(view), QString("Run_C1S01/Shot_S0001"));
        QVERIFY(click(view, "#target-2-1"));
        QCOMPARE(shownPath(view), QString("Run_C2S01/Shot_S0001"));
    }));
    QCOMPARE(visit.host.commands().filter("addPlanned"), QStringList());
    QCOMPARE(visit.host.commands().filter("setPlanned"), QStringList());
}

void TestSavePage::tellsTheLimit()
{
    SaveVisit visit;
    const int most = 245 - visit.base().size();
    visit.set("export/filename", QString(most, 'x'));
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(linesOf(view, "refusal"), QStringList());
        QVERIFY(linesOf(view, "reasons").contains("245 of 245 characters"));
        QVERIFY(isEnabled(view, "#save"));
        QVERIFY(typeInto(view, "fileName", QString(most + 1, 'x')));
        QVERIFY(waitForPath(view, QString(most + 1, 'x')));
        QCOMPARE(linesOf(view, "refusal"),
                 QStringList("The path has 246 characters. 245 are the most that a save takes."));
        QVERIFY(!isEnabled(view, "#save"));
    }));
}

void TestSavePage::tellsAMissingName()
{
    SaveVisit visit;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(typeInto(view, "fileName", ""));
        QVERIFY(waitForPath(view, ""));
        QCOMPARE(linesOf(view, "refusal"), QStringList("The file has no name."));
        QVERIFY(!isEnabled(view, "#save"));
    }));
}

void TestSavePage::refusesNames_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("reason");
    QTest::newRow("slash") << "fileName"
                           << "export/filename"
                           << "a/b"
                           << "A name cannot hold /";
    QTest::newRow("several") << "fileName"
                             << "export/filename"
                             << "a?b*"
                             << "A name cannot hold ? *";
    QTest::newRow("dots") << "fileName"
                          << "export/filename"
                          << ".."
                          << ".. is no name.";
    QTest::newRow("group") << "groupName"
                           << "export/groupdirname"
                           << "a:b"
                           << "A name cannot hold :";
    QTest::newRow("sub") << "subName"
                         << "export/subdirname"
                         << "%1"
                         << "A name cannot hold %";
    QTest::newRow("folder") << "folder"
                            << "export/dir"
                            << "/da|ta"
                            << "A name cannot hold |";
}

void TestSavePage::refusesNames()
{
    QFETCH(QString, id);
    QFETCH(QString, key);
    QFETCH(QString, typed);
    QFETCH(QString, reason);
    SaveVisit visit;
    visit.set("export/groupdir", true);
    visit.set("export/groupdirname", "Run");
    visit.set("export/subdir", true);
    visit.set("export/subdirname", "Sub");
    QVERIFY(visit.open("exportdialog", [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(!isShown(view, '#' + id + "Reason"));
        read(view, "SavePage.pause = 0; 0");
        QVERIFY(typeInto(view, id, typed));
        QCOMPARE(text(view, '#' + id + "Reason"), reason);
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(shownIn(view, id).toString(), typed);
        QVERIFY(visit.setting(key).toString() != typed);
        QVERIFY(click(view, "#save"));
        QVERIFY(dialog.isVisible());
        QCOMPARE(read(view, "document.activeElement.id").toString(), id);
        QVERIFY(typeInto(view, id, "good"));
        QVERIFY(!isShown(view, '#' + id + "Reason"));
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(visit.setting(key).toString(), QString("good"));
    }));
}

void TestSavePage::warns_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("warning");
    const auto row = [](const char *name, const char *key, const QVariant &value,
                        const char *warning) {
        QTest::newRow(name) << QString(key) << value << QString(warning);
    };
    row("exists", "export/filename", "Old", "A file with the name Old exists already.");
    row("leading blank", "export/filename", " Shot",
        "File name: the name begins or ends with a blank.");
    row("trailing blank", "export/filename", "Shot ",
        "File name: the name begins or ends with a blank.");
    row("trailing dot", "export/filename", "Shot.", "File name: the name ends with a dot.");
    row("colon of a time", "export/filenameaddtimeformat", "'a:'",
        "File name: the time brings : into the name.");
    row("slash of a time", "export/filenameaddtimeformat", "'a/'",
        "File name: the time brings / into the name.");
    row("bytes", "export/filename", QString(130, QChar(0xe4)),
        "File name: the name has more than 255 bytes.");
    row("stored by someone else", "export/filename", "a*", "File name: A name cannot hold *");
    row("folder", "export/dir", "/no/such/folder", "The folder does not exist.");
    row("no folder", "export/dir", "", "No folder is chosen.");
}

void TestSavePage::warns()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(QString, warning);
    SaveVisit visit;
    visit.touch("Old.avi");
    visit.set("export/filenameaddtime", key.contains("time"));
    visit.set(key, value);
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(linesOf(view, "warnings"), QStringList(warning));
        QCOMPARE(linesOf(view, "refusal"), QStringList());
    }));
}

void TestSavePage::tellsTheFreeSpace()
{
    SaveVisit visit;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        const QRegularExpression told("^\\d+\\.\\d\\d[KMGT]B free \\(volume /\\)");
        const QString shown = text(view, "#space");
        QVERIFY2(told.match(shown).hasMatch(), qPrintable(shown));
    }));
    if (QStorageInfo("/proc").rootPath() == "/")
        return;
    visit.set("export/dir", "/proc");
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        const QString shown = text(view, "#space");
        QVERIFY2(shown.endsWith("The target lies on another volume: /proc, 0.00KB free."),
                 qPrintable(shown));
    }));
}

void TestSavePage::showsSamples()
{
    SaveVisit visit;
    visit.numberFiles();
    visit.set("export/filenameaddtime", true);
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#fileNumberSample"), QString("S0001"));
        QVERIFY(typeInto(view, "fileTimeFormat", "'at' 'x'"));
        QTRY_COMPARE(text(view, "#fileTimeSample"), QString("at x"));
        QCOMPARE(shownParts(view), QString("file=Shot fileNumber=S0001 fileTime=at x"));
    }));
}

void TestSavePage::choosesAFolder()
{
    SaveVisit visit;
    QDir(visit.folder.path()).mkdir("there");
    FileChoice::setAnswer([&](const FileChoice::Question &question) {
        return question.start == visit.folder.path() ? QStringList(visit.folder.filePath("there"))
                                                     : QStringList();
    });
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#chooseFolder"));
        QCOMPARE(shownIn(view, "folder").toString(), visit.folder.filePath("there/"));
        QCOMPARE(text(view, "#path .base"), visit.folder.filePath("there/"));
    }));
    FileChoice::setAnswer(nullptr);
}

void TestSavePage::namesFilesAfterThePartition()
{
    SaveVisit visit;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(chooseByKeys(view, "fileSource", 2));
        QCOMPARE(shownPath(view), QString("A"));
        QVERIFY(!isEnabled(view, "#fileName"));
        QCOMPARE(visit.setting("export/filenameaspartitionname"), QVariant(true));
        QVERIFY(chooseByKeys(view, "fileSource", 0));
        QCOMPARE(shownPath(view), QString("Shot"));
        QCOMPARE(visit.setting("export/filenameaspartitionname"), QVariant(false));
    }));
}

void TestSavePage::listsTargets()
{
    SaveVisit visit;
    visit.host.camera(2)->state().partitions = {
        {1, "A", 100, 1000}, {2, "B", 0, 1000}, {3, "C", 7, 1000}};
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(count(view, "#targets .target"), 3);
        QVERIFY(isShown(view, "#target-2-3"));
        QVERIFY(!isShown(view, "#target-2-2"));
        QVERIFY(text(view, "#target-2-3 .facts").startsWith("7 frames"));
        QVERIFY(click(view, "#target-1-1"));
        QVERIFY(press(view, Qt::Key_Down, Qt::ShiftModifier));
        QCOMPARE(text(view, "#count"), QString("2 chosen"));
    }));
}

void TestSavePage::showsThePictureOfATarget()
{
    SaveVisit visit;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(isShown(view, "#preview"));
        QVERIFY(read(view, "document.getElementById('preview').naturalWidth").toInt() > 0);
        visit.host.clearJournal();
        QVERIFY(click(view, "#nextFrame"));
        QCOMPARE(visit.host.commands().filter("showNextPreview").size(), 1);
        QVERIFY(click(view, "#previousFrame"));
        QCOMPARE(visit.host.commands().filter("showPreviousPreview").size(), 1);
    }));
}

void TestSavePage::handsTheTargetsOver()
{
    SaveVisit visit;
    QList<PARTITIONNUMBER> partitions;
    int result = -1;
    QVERIFY(visit.open("exportdialog", [&](QDialog &dialog, GUI_WebView *view) {
        auto *shown = dynamic_cast<GUI_FileSaveDialog *>(&dialog);
        QVERIFY(shown);
        QObject::connect(&dialog, &QDialog::finished, [&, shown](int end) {
            result = end;
            partitions = shown->partitions();
        });
        QVERIFY(click(view, "#target-1-1"));
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QVERIFY(click(view, "#save"));
    }));
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(partitions, QList<PARTITIONNUMBER>({1, 1}));
}

void TestSavePage::handsNothingOverOnCancel()
{
    SaveVisit visit;
    int result = -1;
    QVERIFY(visit.open("exportdialog", [&](QDialog &dialog, GUI_WebView *view) {
        auto *shown = dynamic_cast<GUI_FileSaveDialog *>(&dialog);
        QVERIFY(shown);
        QObject::connect(&dialog, &QDialog::finished, [&, shown](int end) {
            result = end;
            QCOMPARE(shown->partitions(), QList<PARTITIONNUMBER>());
        });
        QVERIFY(click(view, "#cancel"));
    }));
    QCOMPARE(result, int(QDialog::Rejected));
}

void TestSavePage::goesByKeysAlone()
{
    SaveVisit visit;
    int result = -1;
    QVERIFY(visit.open("exportdialog", [&](QDialog &dialog, GUI_WebView *view) {
        QObject::connect(&dialog, &QDialog::finished, [&](int end) { result = end; });
        QVERIFY(goTo(view, "groupUse"));
        QVERIFY(press(view, Qt::Key_Space));
        QVERIFY(goTo(view, "groupName"));
        QVERIFY(type(view, "Run"));
        QVERIFY(waitForPath(view, "Run/Shot"));
        QVERIFY(goTo(view, "save"));
        QVERIFY(press(view, Qt::Key_Return));
    }));
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(visit.setting("export/groupdirname").toString(), QString("Run"));
}

void TestSavePage::tellsWhatIsMissing_data()
{
    QTest::addColumn<bool>("hasCameras");
    QTest::addColumn<QString>("told");
    QTest::newRow("no camera") << false << "No camera is connected, and no recording is open.";
    QTest::newRow("nothing recorded")
        << true << "There is nothing to save: no partition has frames.";
}

void TestSavePage::tellsWhatIsMissing()
{
    QFETCH(bool, hasCameras);
    QFETCH(QString, told);
    SaveVisit visit;
    for (DOCKEY key : {1, 2}) {
        if (hasCameras)
            visit.host.camera(key)->state().partitions = {{1, "A", 0, 1000}};
        else
            visit.host.removeDocument(key);
    }
    for (const char *page : {"exportdialog", "snapshotdialog", "layoutsavedialog",
                             "reportExportDialog", "batchconverter"}) {
        QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
            QCOMPARE(text(view, "#noTargets"), told);
            QVERIFY(!isEnabled(view, "#save"));
        }));
    }
}

void TestSavePage::tellsARunningConversion()
{
    SaveVisit visit;
    visit.host.state().isBackgroundConverting = true;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(text(view, "#conversion").startsWith("A conversion is running."));
    }));
    visit.host.state().isBackgroundConverting = false;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(!isShown(view, "#conversion"));
    }));
}

void TestSavePage::skipsFrames()
{
    SaveVisit visit;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(typeInto(view, "skip", "5"));
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(visit.setting("export/skipsaveframe").toInt(), 5);
        QVERIFY(typeInto(view, "skip", "many"));
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(text(view, "#skipState"), QString("This is a number above 0."));
        QCOMPARE(shownIn(view, "skip").toString(), QString("5"));
        QCOMPARE(visit.setting("export/skipsaveframe").toInt(), 5);
    }));
}

void TestSavePage::reportSetsItsOwnDigits()
{
    SaveVisit visit;
    visit.numberFiles("report");
    visit.set("report/filename", "Report");
    QVERIFY(visit.open("reportExportDialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownPath(view), QString("Report_S0001"));
        QVERIFY(!isShown(view, "#groupNumber"));
        QVERIFY(chooseByKeys(view, "fileDigits", 2));
        QCOMPARE(shownPath(view), QString("Report_S01"));
        QCOMPARE(visit.setting("report/filenameaddnumbersessionnodigits").toInt(), 2);
        QCOMPARE(visit.setting("export/filenameaddnumbersessionnodigits").toInt(), 4);
    }));
}

void TestSavePage::layoutHasNoGroupDirectory()
{
    SaveVisit visit;
    visit.set("export/groupdir", true);
    visit.set("export/groupdirname", "Run");
    visit.set("layout/filename", "Layout");
    QVERIFY(visit.open("layoutsavedialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(!isShown(view, "#group"));
        QCOMPARE(shownPath(view), QString("Layout"));
    }));
}

void TestSavePage::tellsAFailure()
{
    SaveVisit visit;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        visit.host.failOn("fileNameAddition");
        QVERIFY(typeInto(view, "fileName", "Run"));
        QTRY_COMPARE(text(view, "#failure"), QString("The path could not be made."));
        QVERIFY(!isEnabled(view, "#save"));
        QVERIFY(type(view, "2"));
        QVERIFY(waitForPath(view, "Run2"));
        QVERIFY(!isShown(view, "#failure"));
        QVERIFY(isEnabled(view, "#save"));
    }));
    QCOMPARE(visit.host.handledErrors(), QStringList("fileNameAddition failed"));
}

void TestSavePage::eachSettingMovesThePath_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("typed"); // null: a box that is clicked
    QTest::addColumn<QVariantMap>("more");
    QTest::addColumn<QString>("path");
    const auto box = [](const char *id, const char *path, const QVariantMap &more = {}) {
        QTest::newRow(id) << id << QString() << more << path;
    };
    const auto text = [](const char *id, const char *typed, const char *path,
                         const QVariantMap &more = {}) {
        QTest::newRow(id) << id << typed << more << path;
    };
    const QVariantMap time{{"filenameaddtime", true}};
    QVariantMap group = time;
    group["groupdirasfilename"] = true;
    QVariantMap sub = time;
    sub["subdirasfilename"] = true;
    box("groupUse", "Sub/Shot");
    box("groupAsFile", "Shot/Sub/Shot");
    box("groupWithOptions", "Shot_f/Sub/Shot_f", group);
    box("groupNumber", "Run_S01/Sub/Shot");
    box("groupTime", "Run_g/Sub/Shot");
    box("subUse", "Run/Shot");
    box("subAsFile", "Run/Shot/Shot");
    box("subWithOptions", "Run/Shot_f/Shot_f", sub);
    box("subNumber", "Run/Sub_S01/Shot");
    box("subTime", "Run/Sub_s/Shot");
    box("fileNumber", "Run/Sub/Shot_S0001");
    box("fileTime", "Run/Sub/Shot_f");
    text("groupName", "G", "G/Sub/Shot");
    text("subName", "S", "Run/S/Shot");
    text("fileName", "F", "Run/Sub/F");
    text("fileText", "T", "Run/Sub/Shot_T");
    text("groupTimeFormat", "'x'", "Run_x/Sub/Shot", {{"groupdiraddtime", true}});
    text("subTimeFormat", "'x'", "Run/Sub_x/Shot", {{"subdiraddtime", true}});
    text("fileTimeFormat", "'x'", "Run/Sub/Shot_x", time);
}

void TestSavePage::eachSettingMovesThePath()
{
    QFETCH(QString, id);
    QFETCH(QString, typed);
    QFETCH(QVariantMap, more);
    QFETCH(QString, path);
    SaveVisit visit;
    visit.numberFiles();
    visit.set("export/filenameaddnumber", false);
    for (const QString level : {"export/groupdir", "export/subdir"}) {
        visit.set(level, true);
        visit.set(level + "addnumberformat", "");
        visit.set(level + "addnumbercameranodigits", 0);
        visit.set(level + "addnumberheadnodigits", 0);
        visit.set(level + "addnumbersessionnodigits", 2);
    }
    visit.set("export/groupdirname", "Run");
    visit.set("export/subdirname", "Sub");
    visit.set("export/groupdiraddtimeformat", "'g'");
    visit.set("export/subdiraddtimeformat", "'s'");
    visit.set("export/filenameaddtimeformat", "'f'");
    for (auto each = more.cbegin(); each != more.cend(); ++each)
        visit.set("export/" + each.key(), each.value());
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        if (typed.isNull())
            QVERIFY(click(view, '#' + id));
        else
            QVERIFY(typeInto(view, id, typed) && press(view, Qt::Key_Tab));
        QCOMPARE(shownPath(view), path); // at once, without a pause
    }));
}

void TestSavePage::tellsWhyADirectoryHasItsNumber()
{
    SaveVisit visit;
    visit.numberFiles();
    for (const QString level : {"export/groupdir", "export/subdir"}) {
        visit.set(level, true);
        visit.set(level + "addnumber", true);
        visit.set(level + "addnumberformat", "");
        visit.set(level + "addnumbercameranodigits", 0);
        visit.set(level + "addnumberheadnodigits", 0);
        visit.set(level + "addnumbersessionnodigits", 2);
    }
    visit.set("export/groupdirname", "Run");
    visit.set("export/subdirname", "Sub");
    visit.touch("Run_S01/x");
    visit.touch("Sub_S01/x");
    visit.touch("Sub_S02/x");
    const LogCapture log; // "exists"
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownPath(view), QString("Run_S02/Sub_S03/Shot_S0001"));
        QCOMPARE(
            linesOf(view, "reasons").mid(0, 2),
            QStringList({"Group directory 02: 01 exists", "Sub directory 03: 01 to 02 exist"}));
    }));
}

void TestSavePage::tellsWhatExistsAndWhatIsPlanned()
{
    SaveVisit visit;
    visit.numberFiles();
    visit.touch("Shot_S0001.avi");
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#target-1-1"));
        QVERIFY(press(view, Qt::Key_A, Qt::ControlModifier));
        QVERIFY(click(view, "#nextTarget"));
        QCOMPARE(shownPath(view), QString("Shot_S0003"));
        QVERIFY(linesOf(view, "reasons")
                    .contains(
                        "File name 0003: of 0001 to 0002 exist 1, and this save takes the others"));
    }));
}

void TestSavePage::tellsWhatLiveModeHas()
{
    SaveVisit visit;
    visit.host.setMode(StandInHost::Mode::Live);
    for (DOCKEY key : {1, 2})
        visit.host.camera(key)->state().currentPartition = 1;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(count(view, "#targets .target"), 2);
        QCOMPARE(text(view, "#noPreview"), QString("Live pictures are not shown here."));
        QVERIFY(!isEnabled(view, "#nextFrame"));
    }));
    for (DOCKEY key : {1, 2})
        visit.host.camera(key)->state().partitions = {{1, "A", 0, 1000}};
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#noTargets"), QString("Nothing is recorded yet."));
    }));
}

int main(int argc, char **argv)
{
    TestSavePage test;
    return runTest(argc, argv, test);
}

#include "test_save_page.moc"
