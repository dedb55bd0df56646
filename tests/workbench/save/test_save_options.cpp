#include "bridge/page/GUI_WebView.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/save/support/SaveVisit.h"
#include "workbench/tour/PageHand.h"

#include <QDialog>

using namespace PageHand;

namespace {

const QString Other = QStringLiteral("export/filenameusecustomfromtarget");
const QString OtherKey = QStringLiteral("export/filenameusecustomfromtargetkey");

/// Cameras "Left" and "Right", whose custom information "L" and "R" names their files.
struct CustomVisit : SaveVisit
{
    CustomVisit()
    {
        const auto describe = [&](DOCKEY key, const char *name, const char *value) {
            host.camera(key)->state().cameraName = name;
            host.camera(key)->state().customInfo = {
                QVariantMap{{"name", "N"}, {"value", value}, {"unit", ""}, {"usefilename", "on"}}};
        };
        describe(1, "Left", "L");
        describe(2, "Right", "R");
        for (const char *family : {"export", "convert"})
            set(QString("%1/filenameusecustom").arg(family), true);
    }
};

QStringList optionsOf(GUI_WebView *view, const QString &id)
{
    return read(view, "Array.from(document.getElementById('" + id +
                          "').options).map(function (each) { return each.textContent; })")
        .toStringList();
}

QString chosenIn(GUI_WebView *view, const QString &id)
{
    return read(view, "(function (list) {"
                      "    return list.options[list.selectedIndex].textContent;"
                      "})(document.getElementById('" +
                          id + "'))")
        .toString();
}

}

/// Settings of a save that change its path, or what is saved.
class TestSaveOptions : public TestBase
{
    Q_OBJECT

private slots:
    void namesAFileAfterAnotherRecording();
    void offersEachRecordingOnce();
    void keepsARecordingThatHasGone();
    void keepsThatNoneIsChosen();
    void hidesTheOtherRecording();
    void namesAConversionAfterAnotherRecording();
    void followsTheTargets();
    void storesWhatIsSaved_data();
    void storesWhatIsSaved();
    void offersBayerWhereFilesAreRaw();
    void namesTheSmallPicture();
    void refusesTheNameOfTheSmallPicture();
    void tellsThatTheSmallPictureIsTooLong();
    void allowsAMissingName_data();
    void allowsAMissingName();
    void tellsThatTheTestNumberNames_data();
    void tellsThatTheTestNumberNames();
    void showsDigitsThatAreNotOffered_data();
    void showsDigitsThatAreNotOffered();
    void tellsPartsApartByMoreThanColour();
};

void TestSaveOptions::namesAFileAfterAnotherRecording()
{
    CustomVisit visit;
    visit.set(OtherKey, 2);
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#target-1-1"));
        QCOMPARE(shownPath(view), QString("L"));
        QVERIFY(!isEnabled(view, "#fileOtherKey"));
        visit.host.clearJournal();
        QVERIFY(goTo(view, "fileOther"));
        QVERIFY(press(view, Qt::Key_Space));
        QCOMPARE(shownPath(view), QString("R"));
        QVERIFY(isEnabled(view, "#fileOtherKey"));
        QVERIFY(chooseByKeys(view, "fileOtherKey", 1));
        QCOMPARE(shownPath(view), QString("L"));
        QVERIFY(click(view, "#target-2-1"));
        QCOMPARE(shownPath(view), QString("L"));
        QCOMPARE(visit.stored(), QStringList({"setPrefBool(\"" + Other + "\", true)",
                                              "setPrefInt(\"" + OtherKey + "\", 1)"}));
    }));
}

void TestSaveOptions::offersEachRecordingOnce()
{
    CustomVisit visit;
    visit.host.camera(1)->state().partitions = {{1, "A", 100, 1000}, {2, "B", 100, 1000}};
    visit.host.camera(2)->state().cameraName = "";
    visit.host.camera(2)->state().deviceName = "";
    visit.set(OtherKey, 1);
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(optionsOf(view, "fileOtherKey"),
                 QStringList({"No recording is chosen", "Left", "Recording 2"}));
    }));
}

void TestSaveOptions::keepsARecordingThatHasGone()
{
    CustomVisit visit;
    visit.set(Other, true);
    visit.set(OtherKey, 7);
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(chosenIn(view, "fileOtherKey"), QString("Recording 7, not a target now"));
        QCOMPARE(shownPath(view), QString("L"));
        QVERIFY(click(view, "#fileUnit"));
        QVERIFY(click(view, "#save"));
    }));
    QCOMPARE(visit.setting(OtherKey), QVariant(7));
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(chooseByKeys(view, "fileOtherKey", 2));
        QCOMPARE(visit.setting(OtherKey), QVariant(2));
        QCOMPARE(optionsOf(view, "fileOtherKey"),
                 QStringList({"No recording is chosen", "Left", "Right"}));
        QCOMPARE(chosenIn(view, "fileOtherKey"), QString("Right"));
    }));
}

void TestSaveOptions::keepsThatNoneIsChosen()
{
    CustomVisit visit;
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#fileOther"));
        QCOMPARE(chosenIn(view, "fileOtherKey"), QString("No recording is chosen"));
        QCOMPARE(shownPath(view), QString("L"));
    }));
    QCOMPARE(visit.setting(OtherKey), QVariant(-1));
}

// Where no custom information names the file.
void TestSaveOptions::hidesTheOtherRecording()
{
    CustomVisit visit;
    visit.set("export/filenameusecustom", false);
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(!isShown(view, "#fileOther"));
        QVERIFY(!isShown(view, "#fileUnit"));
        QVERIFY(chooseByKeys(view, "fileSource", 3));
        QVERIFY(isShown(view, "#fileOther"));
        QVERIFY(isShown(view, "#fileUnit"));
    }));
}

void TestSaveOptions::namesAConversionAfterAnotherRecording()
{
    CustomVisit visit;
    visit.set("convert/filenameusecustomfromtarget", true);
    QVERIFY(visit.open("convertparametereditdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(optionsOf(view, "fileOtherKey"),
                 QStringList({"No recording is chosen", "Left", "Right"}));
        QCOMPARE(shownPath(view), QString("L"));
        QVERIFY(chooseByKeys(view, "fileOtherKey", 2));
        QCOMPARE(shownPath(view), QString("R"));
        QCOMPARE(cutTexts(view), QStringList());
    }));
    QCOMPARE(visit.setting("convert/filenameusecustomfromtargetkey"), QVariant(2));
}

// A recording that goes while the page is there.
void TestSaveOptions::followsTheTargets()
{
    CustomVisit visit;
    visit.set(Other, true);
    visit.set(OtherKey, 2);
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(chosenIn(view, "fileOtherKey"), QString("Right"));
        visit.host.removeDocument(2);
        QVERIFY(click(view, "#editDestinations"));
        QVERIFY(click(view, "#closeDestinations"));
        QTRY_COMPARE(chosenIn(view, "fileOtherKey"), QString("Recording 2, not a target now"));
    }));
    QCOMPARE(visit.setting(OtherKey), QVariant(2));
}

void TestSaveOptions::storesWhatIsSaved_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("key");
    const auto rows = [](const char *page, const char *family) {
        for (const char *format : {"raww", "mraw", "tiff"}) {
            QTest::addRow("%s, %s", page, format) << page << QString("%1-bayersave").arg(format)
                                                  << QString("%1/%2/bayersave").arg(family, format);
        }
        QTest::addRow("%s, small picture", page)
            << page << "savethumbnail" << QString("%1/savethumbnail").arg(family);
    };
    rows("exportdialog", "export");
    rows("batchconverter", "convert");
    rows("convertparametereditdialog", "convert");
}

void TestSaveOptions::storesWhatIsSaved()
{
    QFETCH(QString, page);
    QFETCH(QString, id);
    QFETCH(QString, key);
    SaveVisit visit;
    QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(!shownIn(view, id, "checked").toBool());
        QVERIFY(goTo(view, id));
        QVERIFY(press(view, Qt::Key_Space));
        QCOMPARE(visit.setting(key), QVariant(true));
        QVERIFY(click(view, '#' + id));
        QCOMPARE(visit.setting(key), QVariant(false));
        QVERIFY(click(view, '#' + id));
    }));
    QCOMPARE(visit.stored(), QStringList({"setPrefBool(\"" + key + "\", true)",
                                          "setPrefBool(\"" + key + "\", false)",
                                          "setPrefBool(\"" + key + "\", true)"}));
    QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(shownIn(view, id, "checked").toBool());
    }));
}

void TestSaveOptions::offersBayerWhereFilesAreRaw()
{
    SaveVisit visit;
    for (const char *page : {"snapshotdialog", "reportExportDialog", "layoutsavedialog"}) {
        QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
            QCOMPARE(count(view, "#raww-bayersave"), 0);
            QCOMPARE(count(view, "#thumbnailText"), 0);
        }));
    }
}

void TestSaveOptions::namesTheSmallPicture()
{
    SaveVisit visit;
    QVERIFY(visit.open("batchconverter", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(!isEnabled(view, "#thumbnailText"));
        QVERIFY(click(view, "#savethumbnail"));
        QVERIFY(isEnabled(view, "#thumbnailText"));
        QVERIFY(typeInto(view, "thumbnailText", ".."));
        QVERIFY(!isShown(view, "#thumbnailTextReason"));
        QVERIFY(typeInto(view, "thumbnailText", "_small"));
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(visit.setting("convert/savethumbnailaddtextvalue"), QVariant("_small"));
    }));
    QVERIFY(visit.open("batchconverter", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(isEnabled(view, "#thumbnailText"));
        QCOMPARE(shownIn(view, "thumbnailText").toString(), QString("_small"));
    }));
}

void TestSaveOptions::refusesTheNameOfTheSmallPicture()
{
    SaveVisit visit;
    visit.set("export/savethumbnail", true);
    QVERIFY(visit.open("exportdialog", [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(typeInto(view, "thumbnailText", "a/b"));
        QCOMPARE(text(view, "#thumbnailTextReason"), QString("A name cannot hold /"));
        QVERIFY(click(view, "#save"));
        QVERIFY(dialog.isVisible());
        QCOMPARE(visit.setting("export/savethumbnailaddtextvalue"), QVariant(""));
        QCOMPARE(cutTexts(view), QStringList());
    }));
}

void TestSaveOptions::tellsThatTheSmallPictureIsTooLong()
{
    SaveVisit visit;
    visit.set("export/savethumbnail", true);
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        QVERIFY(typeInto(view, "thumbnailText", QString(240, 't')));
        QTRY_VERIFY(
            linesOf(view, "refusal").value(0).startsWith("The path of the small picture has "));
        QVERIFY(click(view, "#savethumbnail"));
        QCOMPARE(linesOf(view, "refusal"), QStringList());
    }));
}

void TestSaveOptions::allowsAMissingName_data()
{
    QTest::addColumn<QString>("page");
    for (const char *page : {"exportdialog", "snapshotdialog", "reportExportDialog",
                             "layoutsavedialog", "batchconverter", "convertparametereditdialog"})
        QTest::newRow(page) << page;
}

void TestSaveOptions::allowsAMissingName()
{
    QFETCH(QString, page);
    SaveVisit visit;
    visit.set("export/filename", "");
    visit.set("report/filenameadddetail", false);
    QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(linesOf(view, "refusal"), QStringList("The file has no name."));
        QVERIFY(goTo(view, "fileBlank"));
        QVERIFY(press(view, Qt::Key_Space));
        QCOMPARE(linesOf(view, "refusal"), QStringList());
        QVERIFY(isEnabled(view, "#save"));
        QVERIFY(click(view, "#fileBlank"));
        QCOMPARE(linesOf(view, "refusal"), QStringList("The file has no name."));
    }));
    QCOMPARE(visit.stored(), QStringList({"setPrefBool(\"save/EnableBlankFilename\", true)",
                                          "setPrefBool(\"save/EnableBlankFilename\", false)"}));
}

void TestSaveOptions::tellsThatTheTestNumberNames_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("media");
    QTest::addColumn<bool>("all");
    QTest::addColumn<QString>("own");
    QTest::addColumn<bool>("isTold");
    const auto row = [](const char *name, const char *page, const char *media, bool all,
                        const char *own, bool isTold) {
        QTest::newRow(name) << page << media << all << own << isTold;
    };
    row("export", "exportdialog", "file", true, "export", true);
    row("convert", "batchconverter", "file", true, "convert", true);
    row("automatic conversion", "convertparametereditdialog", "file", true, "convert", true);
    row("other media", "exportdialog", "camera", true, "export", false);
    row("no information files", "exportdialog", "file", false, "export", false);
    row("none of recordings", "exportdialog", "file", true, "convert", false);
    row("none of conversions", "batchconverter", "file", true, "export", false);
    row("a picture", "snapshotdialog", "file", true, "export", false);
}

void TestSaveOptions::tellsThatTheTestNumberNames()
{
    QFETCH(QString, page);
    QFETCH(QString, media);
    QFETCH(bool, all);
    QFETCH(QString, own);
    QFETCH(bool, isTold);
    SaveVisit visit;
    for (const char *family : {"export", "convert", "snap"})
        visit.set(QString("%1/filename").arg(family), "Shot");
    visit.set("export/media", media);
    visit.set("save/SaveInfFile", all);
    visit.set(own + "/saveinf", true);
    visit.set("export/inf_testno", "T-7");
    QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(isShown(view, "#testNumber"), isTold);
        QCOMPARE(shownPath(view), QString(isTold ? "T-7" : "Shot"));
        if (isTold)
            QVERIFY(text(view, "#testNumber").startsWith("The test number names the file,"));
        QVERIFY(typeInto(view, "fileName", "Mine"));
        QVERIFY(waitForPath(view, isTold ? "T-7" : "Mine"));
    }));
}

void TestSaveOptions::showsDigitsThatAreNotOffered_data()
{
    QTest::addColumn<int>("digits");
    for (int digits : {-1, 10, 12})
        QTest::addRow("%d", digits) << digits;
}

void TestSaveOptions::showsDigitsThatAreNotOffered()
{
    QFETCH(int, digits);
    SaveVisit visit;
    visit.numberFiles("report");
    visit.set("report/filename", "Report");
    visit.set("report/filenameadddetail", false);
    visit.set("report/filenameaddnumbersessionnodigits", digits);
    QVERIFY(visit.open("reportExportDialog", [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownIn(view, "fileDigits").toInt(), digits);
        QCOMPARE(chosenIn(view, "fileDigits"), QString::number(digits));
        QCOMPARE(visit.stored(), QStringList());
        QVERIFY(chooseByKeys(view, "fileDigits", 4));
        QCOMPARE(shownPath(view), QString("Report_S0001"));
        QCOMPARE(chosenIn(view, "fileDigits"), QString("4"));
    }));
    QCOMPARE(visit.setting("report/filenameaddnumbersessionnodigits"), QVariant(4));
}

// Each kind of part has a line of another style.
void TestSaveOptions::tellsPartsApartByMoreThanColour()
{
    SaveVisit visit;
    visit.numberFiles();
    for (const char *level : {"groupdir", "subdir"}) {
        visit.set(QString("export/%1").arg(level), true);
        visit.set(QString("export/%1name").arg(level), level);
    }
    visit.set("export/filenameaddtime", true);
    visit.set("export/filenameaddtimeformat", "'now'");
    QVERIFY(visit.open("exportdialog", [&](QDialog &, GUI_WebView *view) {
        const QStringList lines =
            read(view, "Array.from(document.querySelectorAll('#path .piece')).map("
                       "function (each) {"
                       "    var style = getComputedStyle(each);"
                       "    return style.backgroundImage === 'none' ? style.borderBottomStyle :"
                       "        style.backgroundImage.split('(')[0];"
                       "})")
                .toStringList();
        QCOMPARE(lines, QStringList({"none", "double", "dashed", "solid", "dotted",
                                     "repeating-linear-gradient"}));
    }));
}

int main(int argc, char **argv)
{
    TestSaveOptions test;
    return runTest(argc, argv, test);
}

#include "test_save_options.moc"
