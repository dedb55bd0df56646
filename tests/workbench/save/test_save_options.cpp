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

int main(int argc, char **argv)
{
    TestSaveOptions test;
    return runTest(argc, argv, test);
}

#include "test_save_options.moc"
