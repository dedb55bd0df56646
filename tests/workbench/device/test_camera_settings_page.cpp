#include "bridge/operation/FileChoice.h"
#include "bridge/page/GUI_WebView.h"
#include "foundation/Clock.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/support/PageVisit.h"
#include "workbench/tour/PageHand.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace PageHand;

/// The page that saves and loads the settings of cameras and applies presets.
class TestCameraSettingsPage : public TestBase
{
    Q_OBJECT

private slots:
    void cleanup();
    void nothingIsDoneWithoutASelectedCamera_data();
    void nothingIsDoneWithoutASelectedCamera();
    void showsWhatItsModeNeeds_data();
    void showsWhatItsModeNeeds();
    void showsTheNameWhileItIsTyped();
    void saysWhatIsWrongWithTheName_data();
    void saysWhatIsWrongWithTheName();
    void needsAFolder();
    void savesUnderTheNameThatItShows();
    void staysOpenWhenTheFileIsKept();
    void everyOtherWayTakesTheNameBack_data();
    void everyOtherWayTakesTheNameBack();
    void formatThatIsNotOfferedStays();
    void loadsTheFileThatIsChosen();
    void staysOpenWhenTheFileIsNone();
    void appliesWhatIsChosenByKeys();
    void choiceStaysOverARefresh();
    void tellsWhichPresetACameraHas();
    void cameraWithoutPresetsHasNothingToChoose();
    void manyCamerasScroll();
    void failureToReadIsTold();
    void escapeLeavesItOpen();
    void staysOpenWhenTheFileCannotBeWritten();
};

namespace {

const char *const Save = "cameraSettingsSave";
const char *const Load = "cameraSettingsLoad";
const char *const Presets = "cameraPresets";

/// A host with two selected cameras and a folder.
struct Visit : PageVisit
{
    explicit Visit(int cameras = 2)
    {
        for (int i = 0; i < cameras; ++i) {
            StandInCamera::Description camera;
            camera.presets = {{1, "Fast", false}, {2, "Slow", false}};
            camera.presetSettings.insert(2, settings(5000));
            host.select(host.addCamera(camera)->key(), true);
        }
        set("path", dir.path());
        set("userFileName", "run");
        set("filenameasoriginal", true);
    }

    static CameraSettings settings(uint recordRate)
    {
        CameraSettings result;
        result.recordRate = recordRate;
        result.shutterSpeed = recordRate;
        return result;
    }

    void set(const QString &key, const QVariant &value)
    {
        host.settings().setValue("qcfg/" + key, value);
    }
    QVariant qcfg(const QString &key) { return setting("qcfg/" + key); }

    QTemporaryDir dir;
};

void addModes()
{
    QTest::addColumn<QString>("page");
    for (const char *page : {Save, Load, Presets})
        QTest::newRow(page) << page;
}

void answerWith(const QString &path)
{
    FileChoice::setAnswer([path](const FileChoice::Question &) { return QStringList(path); });
}

}

void TestCameraSettingsPage::cleanup()
{
    FileChoice::setAnswer({});
    TestBase::cleanup();
}

void TestCameraSettingsPage::nothingIsDoneWithoutASelectedCamera_data()
{
    addModes();
}

void TestCameraSettingsPage::nothingIsDoneWithoutASelectedCamera()
{
    QFETCH(QString, page);
    Visit visit(0);
    QVERIFY(visit.open(page, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#state"), QString("No camera is selected."));
        QVERIFY(!isEnabled(view, "#ok"));
        for (const char *part : {"#save", "#load", "#presets"})
            QVERIFY(!isShown(view, part));
    }));
}

void TestCameraSettingsPage::showsWhatItsModeNeeds_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("focus");
    QTest::newRow("save") << Save << "#save"
                          << "Save"
                          << "Save camera settings"
                          << "name";
    QTest::newRow("load") << Load << "#load"
                          << "Load"
                          << "Load camera settings"
                          << "chooseFile";
    QTest::newRow("presets") << Presets << "#presets"
                             << "Apply"
                             << "Camera presets"
                             << "preset1";
}

void TestCameraSettingsPage::showsWhatItsModeNeeds()
{
    QFETCH(QString, page);
    QFETCH(QString, part);
    QFETCH(QString, action);
    QFETCH(QString, title);
    QFETCH(QString, focus);
    Visit visit;
    QVERIFY(visit.open(page, [&](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(dialog.windowTitle(), title);
        for (const QString each : {"#save", "#load", "#presets"})
            QCOMPARE(isShown(view, each), each == part);
        QCOMPARE(text(view, "#ok"), action);
        QCOMPARE(text(view, "#cameras"), QString("Camera 1, Camera 2"));
        QCOMPARE(read(view, "document.activeElement.id").toString(), focus);
        QCOMPARE(cutTexts(view), QStringList());
        QVERIFY(!isShown(view, "#state"));
    }));
}

void TestCameraSettingsPage::showsTheNameWhileItIsTyped()
{
    const Clock::Fixed time(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5)));
    Visit visit;
    QVERIFY(visit.open(Save, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#folder"), visit.dir.path());
        QCOMPARE(text(view, "#file"), QString("run.qcfg"));
        QVERIFY(press(view, Qt::Key_End));
        QVERIFY(type(view, "a"));
        QCOMPARE(text(view, "#file"), QString("runa.qcfg"));
        QVERIFY(type(view, "b"));
        QCOMPARE(text(view, "#file"), QString("runab.qcfg"));
        QVERIFY(!isEnabled(view, "#format"));
        QVERIFY(goTo(view, "addTime"));
        QVERIFY(press(view, Qt::Key_Space));
        QCOMPARE(text(view, "#file"), QString("runab_20260102_030405.qcfg"));
        QVERIFY(chooseByKeys(view, "format", 2));
        QCOMPARE(text(view, "#file"), QString("runab_20260102.qcfg"));
        QVERIFY(click(view, "#camera"));
        QCOMPARE(text(view, "#file"), QString("Camera 1_20260102.qcfg"));
        QVERIFY(!isEnabled(view, "#name"));
        QVERIFY(click(view, "#typed"));
        QCOMPARE(text(view, "#file"), QString("runab_20260102.qcfg"));
        QVERIFY(isEnabled(view, "#ok"));
    }));
}

void TestCameraSettingsPage::saysWhatIsWrongWithTheName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("note");
    QTest::newRow("none") << ""
                          << "Type a name.";
    for (const char letter : {'\\', '/', '*', '?', '|', '"', ':', '<', '>', '%'}) {
        QTest::addRow("character %c", letter)
            << QString("a%1b").arg(QLatin1Char(letter))
            << "A name cannot have any of these characters: \\ / * ? | \" : < > %";
    }
    QTest::newRow("good") << "a.b"
                          << "";
}

void TestCameraSettingsPage::saysWhatIsWrongWithTheName()
{
    QFETCH(QString, name);
    QFETCH(QString, note);
    Visit visit;
    QVERIFY(visit.open(Save, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(typeInto(view, "name", name));
        QCOMPARE(text(view, "#note"), note);
        QCOMPARE(isEnabled(view, "#ok"), note.isEmpty());
        QCOMPARE(read(view, "document.activeElement.id").toString(), QString("name"));
        QCOMPARE(cutTexts(view), QStringList());
    }));
}

void TestCameraSettingsPage::needsAFolder()
{
    Visit visit;
    visit.set("path", "");
    QVERIFY(visit.open(Save, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#folder"), QString("None"));
        QCOMPARE(text(view, "#note"), QString("Choose a folder."));
        QVERIFY(!isEnabled(view, "#ok"));
        answerWith(visit.dir.path());
        QVERIFY(click(view, "#chooseFolder"));
        QCOMPARE(text(view, "#folder"), visit.dir.path());
        QCOMPARE(text(view, "#note"), QString());
        QVERIFY(isEnabled(view, "#ok"));
        answerWith(visit.dir.path() + '/' + QString(260, 'd'));
        QVERIFY(click(view, "#chooseFolder"));
        QCOMPARE(text(view, "#note"), QString("The path of the target is too long."));
        QVERIFY(!isEnabled(view, "#ok"));
    }));
}

void TestCameraSettingsPage::savesUnderTheNameThatItShows()
{
    Visit visit;
    QString shown;
    QVERIFY(visit.open(Save, [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(typeInto(view, "name", "fast"));
        shown = text(view, "#file");
        QVERIFY(click(view, "#ok"));
        QVERIFY(!dialog.isVisible());
    }));
    QCOMPARE(QDir(visit.dir.path()).entryList(QDir::Files), QStringList(shown));
    QCOMPARE(shown, QString("fast.qcfg"));
    QCOMPARE(visit.qcfg("userFileName"), QVariant("fast"));
    QVERIFY(visit.host.commands().contains("saveCameraSettings(\"" +
                                           visit.dir.filePath("fast.qcfg") + "\", [1, 2])"));
}

void TestCameraSettingsPage::staysOpenWhenTheFileIsKept()
{
    Visit visit;
    QFile file(visit.dir.filePath("run.qcfg"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    visit.host.answerConfirm(false);
    QVERIFY(visit.open(Save, [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(click(view, "#ok"));
        QVERIFY(dialog.isVisible());
        QVERIFY(isEnabled(view, "#ok"));
    }));
    QCOMPARE(file.size(), 0);
}

void TestCameraSettingsPage::everyOtherWayTakesTheNameBack_data()
{
    QTest::addColumn<bool>("byButton");
    QTest::newRow("Cancel") << true;
    QTest::newRow("closed by its frame") << false;
}

void TestCameraSettingsPage::everyOtherWayTakesTheNameBack()
{
    QFETCH(bool, byButton);
    Visit visit;
    QVERIFY(visit.open(Save, [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(typeInto(view, "name", "other"));
        QVERIFY(click(view, "#addTime"));
        QCOMPARE(visit.qcfg("userFileName"), QVariant("other"));
        if (byButton)
            QVERIFY(click(view, "#cancel"));
        else
            dialog.close();
        QVERIFY(!dialog.isVisible());
    }));
    QCOMPARE(visit.qcfg("userFileName"), QVariant("run"));
    QCOMPARE(visit.qcfg("filenameaddtime"), QVariant(false));
    QVERIFY(QDir(visit.dir.path()).isEmpty());
}

void TestCameraSettingsPage::formatThatIsNotOfferedStays()
{
    const Clock::Fixed time(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5)));
    Visit visit;
    visit.set("filenameaddtimeformat", "'at'ss");
    visit.set("filenameaddtime", true);
    QVERIFY(visit.open(Save, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#file"), QString("run_at05.qcfg"));
        QCOMPARE(shownIn(view, "format"), QVariant("'at'ss"));
    }));
}

void TestCameraSettingsPage::loadsTheFileThatIsChosen()
{
    Visit visit;
    const QString path = visit.dir.filePath("a.qcfg");
    visit.host.saveCameraSettings(path, {1, 2});
    visit.host.camera(1)->setRecordRate(5000);
    visit.host.camera(2)->setRecordRate(6000);
    QVERIFY(visit.open(Load, [&](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(text(view, "#chosen"), QString("None"));
        QCOMPARE(text(view, "#note"), QString("Choose a file."));
        QVERIFY(!isEnabled(view, "#ok"));
        answerWith(path);
        QVERIFY(press(view, Qt::Key_Return));
        QCOMPARE(text(view, "#chosen"), QString("a.qcfg"));
        QCOMPARE(text(view, "#note"), QString());
        QVERIFY(click(view, "#ok"));
        QVERIFY(!dialog.isVisible());
    }));
    QCOMPARE(visit.host.camera(1)->recordRate(), 1000u);
    QCOMPARE(visit.host.camera(2)->recordRate(), 1000u);
}

void TestCameraSettingsPage::staysOpenWhenTheFileIsNone()
{
    Visit visit;
    LogCapture log; // of the failure
    QVERIFY(visit.open(Load, [&](QDialog &dialog, GUI_WebView *view) {
        answerWith(visit.dir.filePath("missing.qcfg"));
        QVERIFY(click(view, "#chooseFile"));
        QVERIFY(click(view, "#ok"));
        QCOMPARE(visit.host.handledErrors(), QStringList("File read failed."));
        QVERIFY(dialog.isVisible());
        QVERIFY(isEnabled(view, "#ok"));
    }));
}

void TestCameraSettingsPage::appliesWhatIsChosenByKeys()
{
    Visit visit;
    QVERIFY(visit.open(Presets, [&](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(count(view, "#presets li"), 2);
        QVERIFY(!isEnabled(view, "#ok"));
        QCOMPARE(text(view, "#note"), QString("A camera with None stays as it is."));
        QVERIFY(chooseByKeys(view, "preset2", 2));
        QVERIFY(isEnabled(view, "#ok"));
        QVERIFY(goTo(view, "ok"));
        QVERIFY(press(view, Qt::Key_Return));
        QVERIFY(!dialog.isVisible());
    }));
    QCOMPARE(visit.host.commands().filter("applyPreset"), QStringList("[2].applyPreset(2)"));
    QCOMPARE(visit.host.camera(1)->recordRate(), 1000u);
    QCOMPARE(visit.host.camera(2)->recordRate(), 5000u);
}

void TestCameraSettingsPage::choiceStaysOverARefresh()
{
    Visit visit;
    QVERIFY(visit.open(Presets, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(chooseByKeys(view, "preset2", 1));
        visit.host.updateUI(~0u, true);
        QTest::qWait(50);
        QCOMPARE(shownIn(view, "preset2"), QVariant("1"));
        QCOMPARE(read(view, "document.activeElement.id").toString(), QString("preset2"));
        QVERIFY(isEnabled(view, "#ok"));
        visit.host.closeDocument(2);
        QTRY_COMPARE(count(view, "#presets li"), 1);
        QVERIFY(!isEnabled(view, "#ok"));
    }));
}

void TestCameraSettingsPage::tellsWhichPresetACameraHas()
{
    Visit visit;
    visit.host.camera(2)->applyPreset(2);
    QVERIFY(visit.open(Presets, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#presets li:first-child .who"), QString("Camera 1 192.168.0.10"));
        QCOMPARE(text(view, "#presets li:last-child .who"),
                 QString("Camera 2 192.168.0.11, has preset 2"));
        QCOMPARE(shownIn(view, "preset2"), QVariant("0"));
    }));
}

void TestCameraSettingsPage::cameraWithoutPresetsHasNothingToChoose()
{
    Visit visit(1);
    visit.host.camera(1)->state().presets.clear();
    QVERIFY(visit.open(Presets, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(!isEnabled(view, "#preset1"));
        QVERIFY(!isEnabled(view, "#ok"));
    }));
}

void TestCameraSettingsPage::manyCamerasScroll()
{
    Visit visit(40);
    visit.host.camera(1)->state().documentName = QString("Camera with a long name ").repeated(8);
    QVERIFY(visit.open(Presets, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(count(view, "#presets li"), 40);
        QVERIFY(read(view, "document.getElementById('presets').scrollHeight > "
                           "document.getElementById('presets').clientHeight")
                    .toBool());
        QVERIFY(isShown(view, "#ok"));
        QVERIFY(chooseByKeys(view, "preset40", 1));
        QVERIFY(view->rect().contains(focusedPlace(view)));
    }));
    QVERIFY(visit.open(Save, [&](QDialog &, GUI_WebView *view) {
        QVERIFY(read(view, "var ok = document.getElementById('ok').getBoundingClientRect();"
                           "ok.bottom <= window.innerHeight")
                    .toBool());
    }));
}

void TestCameraSettingsPage::failureToReadIsTold()
{
    Visit visit;
    visit.host.failOn("getPrefBool");
    QVERIFY(visit.open(Save, [&](QDialog &, GUI_WebView *view) {
        QCOMPARE(text(view, "#state"), QString("The settings of the name could not be read."));
        QVERIFY(!isShown(view, "#save"));
        QVERIFY(!isEnabled(view, "#ok"));
    }));
    QCOMPARE(visit.stored(), QStringList());
}

void TestCameraSettingsPage::escapeLeavesItOpen()
{
    Visit visit;
    QVERIFY(visit.open(Save, [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(typeInto(view, "name", "other"));
        QVERIFY(press(view, Qt::Key_Escape));
        QVERIFY(dialog.isVisible());
        QCOMPARE(shownIn(view, "name"), QVariant("other"));
    }));
}

void TestCameraSettingsPage::staysOpenWhenTheFileCannotBeWritten()
{
    Visit visit;
    visit.set("path", visit.dir.filePath("missing"));
    LogCapture log; // of the failure
    QVERIFY(visit.open(Save, [&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(click(view, "#ok"));
        QCOMPARE(visit.host.handledErrors(), QStringList("File write failed."));
        QVERIFY(dialog.isVisible());
        QVERIFY(isEnabled(view, "#ok"));
    }));
}

int main(int argc, char *argv[])
{
    TestCameraSettingsPage test;
    return runTest(argc, argv, test);
}

#include "test_camera_settings_page.moc"
