#include "device/settingsfile/GUI_CameraFileDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/support/OwnMethods.h"
#include "tests/support/TestLog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

#include <memory>

// The chooser of files with camera settings, and of presets in their place.

class TestCameraFileDialog : public TestBase
{
    Q_OBJECT

private slots:
    void slotsStandInOrder();
    void opensWithItsOwnButtons_data();
    void opensWithItsOwnButtons();
    void beginsInTheFolderOfTheSettings();
    void camerasAreListed();
    void noCameraIsSaid();
    void checkShowsThePresets();
    void checkIsLogged();
    void saveHasNoPresets();
    void presetsAreApplied();
    void everyPresetOfNoneAppliesNothing();
    void waitingPresetsAreTold();
    void hiddenPresetsCountAsNone();
    void fileIsLoaded_data();
    void fileIsLoaded();
    void fileThatIsNoneIsRefused_data();
    void fileThatIsNoneIsRefused();
    void folderIsOpened();
    void suffixIsAddedWhereThereIsNoSuchFile();
    void saveHandsItsPathBack_data();
    void saveHandsItsPathBack();
    void saveIsRefused_data();
    void saveIsRefused();
    void fileThatIsThereIsAskedFor_data();
    void fileThatIsThereIsAskedFor();
    void cancelIsLoggedAndRejects();
    void failureLeavesTheDialogOpen_data();
    void failureLeavesTheDialogOpen();
    void cameraMayGo_data();
    void cameraMayGo();
    void dialogMayGoInACall();
    void failureWhileConstructedReachesTheCaller();
    void messagesAreTranslatedAndStandOverTheDialog();
    void cameraThatHasGoneMakesNoRow();
    void partsHaveTheirPlaces();
    void saveTakesNamesThatAreNew();
};

namespace {

/// A host with two cameras, of which the second has a preset that waits for a restart.
struct Scene
{
    Scene()
    {
        for (const char *name : {"Left", "Right"}) {
            StandInCamera::Description description;
            description.name = name;
            description.presets = {{2, "Slow", false}, {1, "", true}};
            host.select(host.addCamera(description)->key(), true);
        }
        host.camera(2)->state().presetsWithReboot = {2};
        host.settings().setValue("qcfg/path", dir.path());
        QFile file(dir.filePath("a.qcfg"));
        file.open(QIODevice::WriteOnly);
        file.write(R"({"format":"qcfg","cameras":[{"serialNumber":"10001"},)"
                   R"({"serialNumber":"10002"}]})");
        host.clearJournal();
    }

    void open(QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen)
    {
        dialog = std::make_unique<GUI_CameraFileDialog>(&host, mode, nullptr);
        dialog->show();
        host.clearJournal();
    }
    template <class Widget> Widget *find(const char *name)
    {
        return dialog->findChild<Widget *>(name);
    }
    void click(const char *button) { QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton); }
    void type(const QString &name) { find<QLineEdit>("fileNameEdit")->setText(name); }
    void check(bool on = true) { find<QCheckBox>("checkLoadCamera")->setChecked(on); }
    QList<QComboBox *> presets() { return find<QWidget>("cameras")->findChildren<QComboBox *>(); }
    QStringList messages() const
    {
        QStringList texts;
        for (const StandInHost::Message &message : host.messages())
            texts.append(message.kind + ": " + message.text);
        return texts;
    }

    QTemporaryDir dir;
    StandInHost host;
    std::unique_ptr<GUI_CameraFileDialog> dialog;
};

QStringList paused(const QStringList &lines)
{
    const QStringList end{"isLivePaused()",    "liveDocKeys(true)",    "deviceByKey(1, true)",
                          "[1].refresh(true)", "deviceByKey(2, true)", "[2].refresh(true)",
                          "resumeLive()",      "endExclusiveUpdate()", "endExclusiveRefresh()"};
    return QStringList({"documentsMutex()", "isLiveMode()", "beginExclusiveUpdate()",
                        "beginExclusiveRefresh()", "pauseLiveExclusive(false, true, true)"}) +
           lines + end;
}

QString userLine(const QString &id, const QString &operation, const QString &value)
{
    return QStringLiteral("[USER] \"[URL:GUI_CameraFileDialog] [ID:%1] [Control:Button] "
                          "[Operation:%2] [Value:%3] \"")
        .arg(id, operation, value);
}

}

void TestCameraFileDialog::slotsStandInOrder()
{
    QCOMPARE(ownMethods(GUI_CameraFileDialog::staticMetaObject),
             QStringList({"void on_checkLoadCamera_change(bool)", "void accept()",
                          "void on_ok_clicked()", "void on_cancel_clicked()"}));
}

void TestCameraFileDialog::opensWithItsOwnButtons_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("title");
    QTest::newRow("open") << int(QFileDialog::AcceptOpen) << "Open camera settings";
    QTest::newRow("save") << int(QFileDialog::AcceptSave) << "Save camera settings";
}

void TestCameraFileDialog::opensWithItsOwnButtons()
{
    QFETCH(int, mode);
    QFETCH(QString, title);
    QWidget parent;
    StandInHost host;
    host.state().translations.insert(title, "Title");
    GUI_CameraFileDialog dialog(&host, QFileDialog::AcceptMode(mode), &parent);
    QCOMPARE(dialog.parentWidget(), &parent);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Title"));
    dialog.show();
    QVERIFY(!dialog.findChild<QDialogButtonBox *>()->isVisible());
    QVERIFY(dialog.findChild<QPushButton *>("ok")->isEnabled());
    QVERIFY(dialog.findChild<QPushButton *>("cancel")->isEnabled());
}

void TestCameraFileDialog::beginsInTheFolderOfTheSettings()
{
    Scene scene;
    scene.open();
    QCOMPARE(scene.dialog->directory().absolutePath(), scene.dir.path());
    QVERIFY(scene.dialog->nameFilters().join(' ').contains("*.qcfg"));
    QVERIFY(scene.dialog->nameFilters().join(' ').contains("*.QCFG"));
}

void TestCameraFileDialog::camerasAreListed()
{
    Scene scene;
    scene.host.state().translations.insert("None", "Nichts");
    StandInCamera::Description head;
    head.cameraNumber = 0; // of the first device
    scene.host.addCamera(head);
    StandInCamera::Description gone;
    gone.isConnected = false;
    scene.host.addCamera(gone);
    scene.open();
    QCOMPARE(scene.presets().size(), 2);
    QStringList names;
    for (const QLabel *label : scene.find<QWidget>("cameras")->findChildren<QLabel *>())
        names.append(label->text());
    QCOMPARE(names, QStringList({"Left", "Right"}));
    for (const QComboBox *box : scene.presets()) {
        QCOMPARE(box->count(), 3);
        QCOMPARE(box->currentIndex(), 0);
        QCOMPARE(box->itemText(0), QStringLiteral("Nichts"));
        QCOMPARE(box->itemData(0).toInt(), 0);
        QCOMPARE(box->itemText(1), QStringLiteral("1"));
        QCOMPARE(box->itemData(1).toInt(), 1);
        QCOMPARE(box->itemText(2), QStringLiteral("2: Slow"));
        QCOMPARE(box->itemData(2).toInt(), 2);
    }
}

void TestCameraFileDialog::noCameraIsSaid()
{
    StandInHost host;
    GUI_CameraFileDialog dialog(&host, QFileDialog::AcceptOpen, nullptr);
    const auto labels = dialog.findChild<QWidget *>("cameras")->findChildren<QLabel *>();
    QCOMPARE(labels.size(), 1);
    QCOMPARE(labels.first()->text(), QStringLiteral("No camera is connected."));
}

void TestCameraFileDialog::checkShowsThePresets()
{
    Scene scene;
    scene.open();
    const QSize files = scene.dialog->size();
    auto *forward = scene.find<QWidget>("forwardButton"); // there is nothing to go on to
    QVERIFY(!scene.find<QWidget>("cameras")->isVisible());
    QVERIFY(!forward->isEnabled());
    scene.check();
    const QSize presets = scene.dialog->size();
    QVERIFY(scene.find<QWidget>("cameras")->isVisible());
    QVERIFY(!scene.find<QWidget>("fileNameEdit")->isEnabled());
    QVERIFY(!scene.find<QWidget>("splitter")->isEnabled());
    QVERIFY(scene.find<QWidget>("ok")->isEnabled());
    QVERIFY(scene.presets().first()->isEnabled());
    QVERIFY(presets.width() > files.width());
    scene.check(false);
    QVERIFY(!scene.find<QWidget>("cameras")->isVisible());
    QVERIFY(scene.find<QWidget>("fileNameEdit")->isEnabled());
    QVERIFY(scene.find<QWidget>("splitter")->isEnabled());
    QVERIFY(!forward->isEnabled());
    QCOMPARE(scene.dialog->size(), files);
    scene.check();
    QCOMPARE(scene.dialog->size(), presets);
    QVERIFY(!scene.find<QWidget>("fileNameEdit")->isEnabled());
}

void TestCameraFileDialog::checkIsLogged()
{
    Scene scene;
    scene.open();
    LogCapture log;
    QTest::mouseClick(scene.find<QCheckBox>("checkLoadCamera"), Qt::LeftButton, {},
                      QPoint(8, scene.find<QCheckBox>("checkLoadCamera")->height() / 2));
    scene.check(false);
    QCOMPARE(log.texts(QtInfoMsg), QStringList({userLine("checkLoadCamera", "toggled", "ON"),
                                                userLine("checkLoadCamera", "toggled", "OFF")}));
}

void TestCameraFileDialog::saveHasNoPresets()
{
    Scene scene;
    scene.open(QFileDialog::AcceptSave);
    QVERIFY(!scene.find<QCheckBox>("checkLoadCamera"));
    QVERIFY(!scene.find<QWidget>("cameras"));
    const QSize size = scene.dialog->size();
    scene.dialog->on_checkLoadCamera_change(true);
    QVERIFY(scene.find<QWidget>("fileNameEdit")->isEnabled());
    QCOMPARE(scene.dialog->size(), size);
}

void TestCameraFileDialog::presetsAreApplied()
{
    Scene scene;
    scene.open();
    scene.check();
    scene.presets().at(0)->setCurrentIndex(2);
    scene.presets().at(1)->setCurrentIndex(1);
    LogCapture log;
    scene.click("ok");
    QCOMPARE(scene.host.journal(),
             paused({"deviceByKey(1, true)", "[1].applyPreset(2)", "deviceByKey(1, true)",
                     "[1].presetNeedsReboot(2)", "deviceByKey(2, true)", "[2].applyPreset(1)",
                     "deviceByKey(2, true)", "[2].presetNeedsReboot(1)"}));
    QCOMPARE(scene.dialog->result(), int(QDialog::Accepted));
    QVERIFY(!scene.dialog->isVisible());
    QCOMPARE(scene.dialog->path(), QString());
    QCOMPARE(log.texts(QtInfoMsg).first(), userLine("ok", "clicked", ""));
}

void TestCameraFileDialog::everyPresetOfNoneAppliesNothing()
{
    Scene scene;
    scene.open();
    scene.check();
    scene.click("ok");
    QCOMPARE(scene.host.journal(), paused({}));
    QVERIFY(!scene.dialog->isVisible());
}

void TestCameraFileDialog::waitingPresetsAreTold()
{
    Scene scene;
    scene.host.camera(1)->state().presetsWithReboot = {1, 2};
    scene.open();
    scene.check();
    scene.presets().at(0)->setCurrentIndex(1);
    scene.presets().at(1)->setCurrentIndex(2);
    scene.click("ok");
    QCOMPARE(scene.messages(),
             QStringList("warn: The following camera preset is loaded after rebooting. Please "
                         "restart the camera.\nLeft\nRight"));
    QVERIFY(!scene.dialog->isVisible());
    QCOMPARE(scene.host.livePauses(), 0);
}

void TestCameraFileDialog::hiddenPresetsCountAsNone()
{
    Scene scene;
    scene.open();
    scene.check();
    scene.presets().at(0)->setCurrentIndex(1);
    scene.check(false);
    scene.type("a.qcfg");
    scene.click("ok");
    QVERIFY(!scene.dialog->isVisible());
    QVERIFY(!scene.host.journal().contains("[1].applyPreset(1)"));
}

void TestCameraFileDialog::fileIsLoaded_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("by its button") << "button";
    QTest::newRow("by the Enter key") << "key";
}

void TestCameraFileDialog::fileIsLoaded()
{
    QFETCH(QString, way);
    Scene scene;
    scene.open();
    scene.type("a.qcfg");
    const QString path = scene.dir.filePath("a.qcfg");
    scene.host.select(1, false);
    scene.host.clearJournal();
    if (way == "button")
        scene.click("ok");
    else
        QTest::keyClick(scene.find<QLineEdit>("fileNameEdit"), Qt::Key_Return);
    QCOMPARE(scene.host.journal(),
             paused({"selectedDocKeys(true)", "loadCameraSettings(\"" + path + "\", [2])"}));
    QVERIFY(!scene.dialog->isVisible());
    QCOMPARE(scene.dialog->result(), int(QDialog::Accepted));
    QCOMPARE(scene.dialog->path(), path);
}

void TestCameraFileDialog::fileThatIsNoneIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << "";
    QTest::newRow("missing") << "b.qcfg";
}

void TestCameraFileDialog::fileThatIsNoneIsRefused()
{
    QFETCH(QString, name);
    Scene scene;
    scene.open();
    scene.type(name);
    scene.click("ok");
    QCOMPARE(scene.messages(), QStringList("warn: Invalid filename."));
    QVERIFY(scene.dialog->isVisible());
    QVERIFY(!scene.host.commands().join(' ').contains("loadCameraSettings"));
}

void TestCameraFileDialog::folderIsOpened()
{
    Scene scene;
    QVERIFY(QDir(scene.dir.path()).mkdir("sub"));
    scene.open();
    scene.type("sub");
    scene.click("ok");
    QVERIFY(scene.dialog->isVisible());
    QCOMPARE(scene.dialog->directory().absolutePath(), scene.dir.filePath("sub"));
    QCOMPARE(scene.host.journal(), QStringList());
}

void TestCameraFileDialog::suffixIsAddedWhereThereIsNoSuchFile()
{
    Scene scene;
    QVERIFY(QFile::copy(scene.dir.filePath("a.qcfg"), scene.dir.filePath("plain")));
    scene.open();
    scene.type("a");
    scene.click("ok");
    QCOMPARE(scene.dialog->path(), scene.dir.filePath("a.qcfg"));
    scene.open();
    scene.type("plain");
    scene.click("ok");
    QCOMPARE(scene.dialog->path(), scene.dir.filePath("plain"));
}

void TestCameraFileDialog::saveHandsItsPathBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::newRow("no suffix") << "b"
                               << "b.qcfg";
    QTest::newRow("suffix") << "b.qcfg"
                            << "b.qcfg";
    QTest::newRow("capital suffix") << "b.QCFG"
                                    << "b.QCFG";
    QTest::newRow("another suffix") << "b.txt"
                                    << "b.txt.qcfg";
}

void TestCameraFileDialog::saveHandsItsPathBack()
{
    QFETCH(QString, name);
    QFETCH(QString, file);
    Scene scene;
    scene.open(QFileDialog::AcceptSave);
    scene.type(name);
    scene.click("ok");
    QVERIFY(!scene.dialog->isVisible());
    QCOMPARE(scene.dialog->result(), int(QDialog::Accepted));
    QCOMPARE(scene.dialog->path(), scene.dir.filePath(file));
    QCOMPARE(scene.host.journal(), QStringList());
}

void TestCameraFileDialog::saveIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    QTest::newRow("no name") << ""
                             << "warn: Invalid filename.";
    QTest::newRow("forbidden character") << "a:b"
                                         << "warn: Invalid filename.";
    QTest::newRow("too long") << QString(260, 'a') << "warn: The path of the target is too long.";
}

void TestCameraFileDialog::saveIsRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, message);
    Scene scene;
    scene.open(QFileDialog::AcceptSave);
    scene.type(name);
    scene.click("ok");
    QCOMPARE(scene.messages(), QStringList(message));
    QVERIFY(scene.dialog->isVisible());
    QCOMPARE(scene.dialog->path(), QString());
}

void TestCameraFileDialog::fileThatIsThereIsAskedFor_data()
{
    QTest::addColumn<bool>("yes");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void TestCameraFileDialog::fileThatIsThereIsAskedFor()
{
    QFETCH(bool, yes);
    Scene scene;
    scene.host.answerConfirm(yes);
    scene.open(QFileDialog::AcceptSave);
    scene.type("a.qcfg");
    scene.click("ok");
    QCOMPARE(scene.messages(), QStringList("confirm: Do you want to overwrite it?"));
    QCOMPARE(scene.dialog->isVisible(), !yes);
}

void TestCameraFileDialog::cancelIsLoggedAndRejects()
{
    Scene scene;
    scene.open();
    scene.check();
    scene.presets().at(0)->setCurrentIndex(1);
    LogCapture log;
    scene.click("cancel");
    QCOMPARE(log.texts(QtInfoMsg), QStringList(userLine("cancel", "clicked", "")));
    QVERIFY(!scene.dialog->isVisible());
    QCOMPARE(scene.dialog->result(), int(QDialog::Rejected));
    QCOMPARE(scene.host.journal(), QStringList());
}

void TestCameraFileDialog::failureLeavesTheDialogOpen_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<bool>("withFile");
    for (const char *operation : {"documentsMutex", "applyPreset", "presetNeedsReboot", "warn"})
        QTest::newRow(operation) << operation << false;
    for (const char *operation : {"selectedDocKeys", "loadCameraSettings"})
        QTest::newRow(operation) << operation << true;
}

void TestCameraFileDialog::failureLeavesTheDialogOpen()
{
    QFETCH(QString, operation);
    QFETCH(bool, withFile);
    Scene scene;
    scene.open();
    scene.check(!withFile);
    scene.presets().at(1)->setCurrentIndex(2);
    scene.type("a.qcfg");
    scene.host.failOn(operation);
    scene.click("ok");
    QCOMPARE(scene.host.handledErrors(), QStringList(operation + " failed"));
    QVERIFY(scene.dialog->isVisible());
    QCOMPARE(scene.host.livePauses(), 0);
    QCOMPARE(scene.host.exclusiveUpdates(), 0);
    QCOMPARE(scene.host.exclusiveRefreshes(), 0);
}

void TestCameraFileDialog::cameraMayGo_data()
{
    QTest::addColumn<QString>("operation");
    QTest::newRow("before its preset") << "documentsMutex";
    QTest::newRow("with its preset") << "applyPreset";
}

void TestCameraFileDialog::cameraMayGo()
{
    QFETCH(QString, operation);
    Scene scene;
    scene.open();
    scene.check();
    scene.presets().at(1)->setCurrentIndex(2);
    scene.host.removeDocumentOn(operation, 2);
    scene.click("ok");
    QVERIFY(!scene.host.journal().contains("[2].presetNeedsReboot(2)"));
    QCOMPARE(scene.messages(), QStringList());
    QVERIFY(!scene.dialog->isVisible());
}

void TestCameraFileDialog::dialogMayGoInACall()
{
    Scene counted;
    counted.host.camera(1)->state().presetsWithReboot = {1};
    counted.open();
    counted.check();
    counted.presets().at(0)->setCurrentIndex(1);
    counted.dialog->on_ok_clicked();
    const int calls = counted.host.journal().size();
    QVERIFY(calls > 10);
    for (int nth = 1; nth <= calls; ++nth) {
        Scene scene;
        scene.host.camera(1)->state().presetsWithReboot = {1};
        scene.open();
        scene.check();
        scene.presets().at(0)->setCurrentIndex(1);
        int count = 0;
        connect(scene.host.events(), &StandInEvents::callJournalled, [&] {
            if (++count == nth)
                scene.dialog.reset();
        });
        scene.dialog->on_ok_clicked();
        QVERIFY(!scene.dialog);
        QCOMPARE(scene.host.livePauses(), 0);
    }
}

void TestCameraFileDialog::failureWhileConstructedReachesTheCaller()
{
    for (const char *operation : {"translate", "getPrefString", "deviceKeys", "presets"}) {
        Scene scene;
        scene.host.failOn(operation);
        QVERIFY_EXCEPTION_THROWN(scene.open(), StandInFault);
    }
}

void TestCameraFileDialog::messagesAreTranslatedAndStandOverTheDialog()
{
    Scene scene;
    scene.host.state().translations.insert("Invalid filename.", "Falscher Name.");
    scene.host.state().translations.insert(
        "The following camera preset is loaded after rebooting. Please restart the camera.",
        "Neu starten:");
    scene.host.camera(1)->state().presetsWithReboot = {1};
    scene.open();
    scene.type("b.qcfg");
    scene.click("ok");
    scene.check();
    scene.presets().at(0)->setCurrentIndex(1);
    scene.click("ok");
    QCOMPARE(scene.messages(), QStringList({"warn: Falscher Name.", "warn: Neu starten:\nLeft"}));
    const QStringList warnings = scene.host.journal().filter("warn(");
    QCOMPARE(warnings.size(), 2);
    for (const QString &warning : warnings)
        QVERIFY2(warning.endsWith(", GUI_CameraFileDialog)"), qPrintable(warning));
}

void TestCameraFileDialog::cameraThatHasGoneMakesNoRow()
{
    Scene scene;
    scene.host.answerNullOn("deviceByKey"); // the first that is asked for
    scene.open();
    QCOMPARE(scene.presets().size(), 1);
}

// A part as it lies in the dialog.
void TestCameraFileDialog::partsHaveTheirPlaces()
{
    Scene scene;
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false);
    scene.host.clearJournal();
    scene.dialog =
        std::make_unique<GUI_CameraFileDialog>(&scene.host, QFileDialog::AcceptOpen, nullptr);
    const QStringList asked =
        scene.host.journal().filter("deviceKeys") + scene.host.journal().filter("deviceByKey");
    QCOMPARE(asked,
             QStringList({"deviceKeys(true)", "deviceByKey(1, true)", "deviceByKey(2, true)"}));
    QVERIFY(!QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs)); // as it was
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QVERIFY(scene.dialog->testOption(QFileDialog::DontUseNativeDialog));
    QCOMPARE(scene.dialog->fileMode(), QFileDialog::ExistingFile);
    scene.dialog->show();
    scene.check();
    QVERIFY(QTest::qWaitForWindowExposed(scene.dialog.get()));

    const QRect inside = scene.dialog->rect();
    const auto place = [&](const QWidget *widget) {
        return QRect(widget->mapTo(scene.dialog.get(), QPoint()), widget->size());
    };
    auto *ok = scene.find<QPushButton>("ok");
    const QRect check = place(scene.find<QCheckBox>("checkLoadCamera"));
    const QRect cancel = place(scene.find<QPushButton>("cancel"));
    const QRect cameras = place(scene.find<QWidget>("cameras"));
    const QRect files = place(scene.find<QWidget>("splitter"));
    QVERIFY(ok->isDefault());
    // The buttons stand in a row below all, at its right end.
    QVERIFY(place(ok).top() > files.bottom() && place(ok).top() > cameras.bottom());
    QVERIFY(qAbs(place(ok).center().y() - check.center().y()) < 5);
    QVERIFY(qAbs(place(ok).center().y() - cancel.center().y()) < 5);
    QVERIFY(check.right() < place(ok).left() && place(ok).right() < cancel.left());
    QVERIFY(check.left() < 20 && inside.right() - cancel.right() < 20);
    // The cameras stand to the right of the files, as high as all of the chooser.
    QVERIFY(cameras.left() > files.right());
    QVERIFY(cameras.top() < 20 && cameras.bottom() > files.bottom());
    QVERIFY(inside.right() - cameras.right() < 20);

    const QList<QLabel *> labels = scene.find<QWidget>("cameras")->findChildren<QLabel *>();
    QCOMPARE(labels.size(), scene.presets().size());
    for (int i = 0; i < labels.size(); ++i) {
        const QComboBox *box = scene.presets().at(i);
        const QRect name = place(labels.at(i));
        QCOMPARE(labels.at(i)->textFormat(), Qt::PlainText);
        QCOMPARE(labels.at(i)->buddy(), box);
        QCOMPARE(box->accessibleName(), labels.at(i)->text());
        QVERIFY(qAbs(name.center().y() - place(box).center().y()) < 5);
        QVERIFY(name.right() < place(box).left());
        QVERIFY(name.left() - cameras.left() < 20);
        QVERIFY(cameras.right() - place(box).right() < 20);  // what is left of the width
        QVERIFY(place(box).bottom() < cameras.center().y()); // above the room that is left
    }
}

void TestCameraFileDialog::saveTakesNamesThatAreNew()
{
    Scene scene;
    scene.open(QFileDialog::AcceptSave);
    QCOMPARE(scene.dialog->fileMode(), QFileDialog::AnyFile);
}

int main(int argc, char **argv)
{
    TestCameraFileDialog test;
    return runTest(argc, argv, test);
}

#include "test_camera_file_dialog.moc"
