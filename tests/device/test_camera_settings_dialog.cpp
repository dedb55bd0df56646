#include "bridge/operation/FileChoice.h"
#include "bridge/page/GUI_WebView.h"
#include "device/settingsfile/JS_Mediator_CameraSettingsDialog.h"
#include "foundation/Clock.h"
#include "foundation/exceptions/APP_Exception.h"
#include "standin/host/StandInHost.h"
#include "tests/support/OwnMethods.h"
#include "tests/support/TestLog.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>

// What the page sees that saves and loads the settings of cameras and applies presets.

class TestCameraSettingsDialog : public TestBase
{
    Q_OBJECT

private slots:
    void cleanup();
    void slotsStandInOrder();
    void modeIsThatOfTheCaller();
    void nameFollowsTheSettings_data();
    void nameFollowsTheSettings();
    void suffixStandsOnlyWhereAskedFor();
    void originalFlagIsLogged_data();
    void originalFlagIsLogged();
    void nameDataIsReadFromTheSettings();
    void nameDataIsWrittenToTheSettings_data();
    void nameDataIsWrittenToTheSettings();
    void timeIsFormatted();
    void fileIsChosen();
    void fileIsKeptWhenTheUserCancels();
    void folderIsChosenAndStored();
    void folderIsKeptWhenTheUserCancels();
    void pathSettingsBeginWithThoseStored();
    void presetsAreListed();
    void deviceIsListedOnce();
    void documentThatHasGoneMakesNoRow();
    void presetListCostsAFixedNumberOfCalls();
    void settingsAreSaved();
    void saveOutsideLiveModePausesNothing_data();
    void saveOutsideLiveModePausesNothing();
    void saveNeedsAFolder();
    void nameIsRefused_data();
    void nameIsRefused();
    void folderInPlaceOfTheFileIsRefused();
    void pathOf260CharactersIsTheLongest_data();
    void pathOf260CharactersIsTheLongest();
    void fileThatIsThereIsAskedFor_data();
    void fileThatIsThereIsAskedFor();
    void failedTaskLeavesTheDialogOpen();
    void fileIsLoaded();
    void nothingIsLoadedWithoutAFile();
    void presetsAreApplied();
    void presetOf0OrBelowAppliesNothing_data();
    void presetOf0OrBelowAppliesNothing();
    void cameraThatHasGoneIsPassedOver();
    void otherModesDoNothing_data();
    void otherModesDoNothing();
    void okTakesWhatItUnderstands_data();
    void okTakesWhatItUnderstands();
    void cancelRejects();
    void mediatorMayGoWhileAFileIsChosen_data();
    void mediatorMayGoWhileAFileIsChosen();
    void failuresGiveNeutralValues();
    void messagesAreTranslatedAndStandAlone();
    void choosersStandOverTheWindow();
    void nameIsThatOfTheFirstSelectedCamera();
    void fileThatCannotBeWrittenIsTold();
};

namespace {

using Mediator = JS_Mediator_CameraSettingsDialog;

const QString NoDefault = QStringLiteral("invalid");

/// A host with selected cameras in live mode, and the mediator of a dialog.
struct Scene
{
    explicit Scene(int mode = Mediator::SaveFile, int cameras = 2)
        : mediator(new Mediator(&host, mode)), accepted(mediator, &Mediator::accept),
          rejected(mediator, &Mediator::reject)
    {
        for (int i = 0; i < cameras; ++i) {
            StandInCamera *camera = host.addCamera();
            camera->state().presets = {{2, "", false}, {1, "Fast", true}};
            host.select(camera->key(), true);
            keys.append(camera->key());
        }
        set("path", dir.path());
        set("userFileName", "test");
        set("filenameasoriginal", true);
        set("filenameaddtime", false);
        host.clearJournal();
    }
    ~Scene() { delete mediator; }

    void set(const QString &key, const QVariant &value)
    {
        host.settings().setValue("qcfg/" + key, value);
    }

    QStringList messages() const
    {
        QStringList texts;
        for (const StandInHost::Message &message : host.messages())
            texts.append(message.kind + ": " + message.text);
        return texts;
    }

    QTemporaryDir dir;
    StandInHost host;
    QList<DOCKEY> keys;
    QPointer<Mediator> mediator;
    QSignalSpy accepted;
    QSignalSpy rejected;
};

QJsonObject objectOf(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

QString presetsText(int mode, const QList<QPair<QString, int>> &pairs)
{
    QJsonArray list;
    for (const auto &pair : pairs)
        list.append(QJsonObject{{"key", pair.first}, {"value", pair.second}});
    return QJsonDocument(QJsonObject{{"dialogMode", mode}, {"presetList", list}}).toJson();
}

// The lines of a save of two cameras up to its path, with a name that is the user's.
QStringList nameLines()
{
    return {"getPrefString(\"qcfg/path\", " + NoDefault + ")",
            "getPrefString(\"qcfg/userFileName\", " + NoDefault + ")",
            "getPrefBool(\"qcfg/filenameasoriginal\", " + NoDefault + ")",
            "getPrefBool(\"qcfg/filenameaddtime\", " + NoDefault + ")",
            "getPrefString(\"qcfg/filenameaddtimeformat\", \"yyyyMMdd_HHmmss\")"};
}

}

void TestCameraSettingsDialog::cleanup()
{
    FileChoice::setAnswer({});
    TestBase::cleanup();
}

void TestCameraSettingsDialog::slotsStandInOrder()
{
    QCOMPARE(ownMethods(Mediator::staticMetaObject),
             QStringList({"int getDialogMode()", "bool openFile()", "bool openFolder()",
                          "QString getFilePathSettings()", "QVariantList getPresetList()",
                          "QString addDateTime(QString)", "QString recvFileNameDialogData()",
                          "void sendFileNameDialogData(QString)", "QString getFileName(bool)",
                          "QString getFileName()", "void ok(QString)", "void cancel()"}));
}

void TestCameraSettingsDialog::modeIsThatOfTheCaller()
{
    StandInHost host;
    Mediator mediator(&host, 7);
    QCOMPARE(mediator.getDialogMode(), 7);
    QCOMPARE(mediator.objectName(), QStringLiteral("camerasettings"));
    QCOMPARE(host.journal(), QStringList());
}

void TestCameraSettingsDialog::nameFollowsTheSettings_data()
{
    QTest::addColumn<bool>("original");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("addTime");
    QTest::addColumn<QString>("name");
    QTest::newRow("typed") << true << "test" << false << "test";
    QTest::newRow("typed and time") << true << "test" << true << "test_20260102_030405";
    QTest::newRow("nothing typed, time") << true << "" << true << "20260102_030405";
    QTest::newRow("nothing typed") << true << "" << false << "";
    QTest::newRow("first camera") << false << "test" << false << "Camera 1";
    QTest::newRow("first camera and time") << false << "test" << true << "Camera 1_20260102_030405";
}

void TestCameraSettingsDialog::nameFollowsTheSettings()
{
    QFETCH(bool, original);
    QFETCH(QString, typed);
    QFETCH(bool, addTime);
    QFETCH(QString, name);
    const Clock::Fixed time(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5)));
    Scene scene;
    scene.set("filenameasoriginal", original);
    scene.set("userFileName", typed);
    scene.set("filenameaddtime", addTime);
    QCOMPARE(scene.mediator->getFileName(), name);
    QCOMPARE(scene.mediator->getFileName(false), name);
    QCOMPARE(scene.mediator->getFileName(true), name + ".qcfg");
}

void TestCameraSettingsDialog::suffixStandsOnlyWhereAskedFor()
{
    Scene scene(Mediator::SaveFile, 0);
    scene.set("filenameasoriginal", false); // and there is no camera
    QCOMPARE(scene.mediator->getFileName(true), QStringLiteral(".qcfg"));
    QCOMPARE(scene.mediator->getFileName(), QString());
}

void TestCameraSettingsDialog::originalFlagIsLogged_data()
{
    QTest::addColumn<bool>("original");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void TestCameraSettingsDialog::originalFlagIsLogged()
{
    QFETCH(bool, original);
    Scene scene;
    scene.set("filenameasoriginal", original);
    LogCapture log;
    scene.mediator->getFileName();
    const QStringList lines = log.texts(QtInfoMsg);
    QCOMPARE(lines.size(), 1);
    QCOMPARE(lines.first().simplified(),
             QStringLiteral("original-> ") + (original ? "true" : "false"));
}

void TestCameraSettingsDialog::nameDataIsReadFromTheSettings()
{
    Scene scene;
    scene.set("filenameaddtimeformat", "hhmm");
    scene.set("filenameaddtime", true);
    QCOMPARE(objectOf(scene.mediator->recvFileNameDialogData()),
             (QJsonObject{{"userFileName", "test"},
                          {"original", true},
                          {"addTime", true},
                          {"addTimeFormat", "hhmm"}}));
}

void TestCameraSettingsDialog::nameDataIsWrittenToTheSettings_data()
{
    QTest::addColumn<QString>("data");
    QTest::addColumn<QStringList>("commands");
    QTest::newRow("all") << R"({"userFileName":"a","original":false,"addTime":true,)"
                            R"("addTimeFormat":"hh"})"
                         << QStringList({"setPrefString(\"qcfg/userFileName\", \"a\")",
                                         "setPrefBool(\"qcfg/filenameasoriginal\", false)",
                                         "setPrefBool(\"qcfg/filenameaddtime\", true)",
                                         "setPrefString(\"qcfg/filenameaddtimeformat\", \"hh\")"});
    QTest::newRow("one") << R"({"addTime":false})"
                         << QStringList({"setPrefBool(\"qcfg/filenameaddtime\", false)"});
    QTest::newRow("values of other types")
        << R"({"userFileName":1,"original":"true","addTime":1,"addTimeFormat":null})"
        << QStringList();
    QTest::newRow("no object") << "[1]" << QStringList();
    QTest::newRow("no JSON") << "{\"userFileName\"" << QStringList();
    QTest::newRow("empty") << "" << QStringList();
    QTest::newRow("deep") << QString(100000, '[') + QString(100000, ']') << QStringList();
    QTest::newRow("deep object") << QStringLiteral("{\"a\":").repeated(100000) << QStringList();
}

void TestCameraSettingsDialog::nameDataIsWrittenToTheSettings()
{
    QFETCH(QString, data);
    QFETCH(QStringList, commands);
    Scene scene;
    scene.mediator->sendFileNameDialogData(data);
    QCOMPARE(scene.host.journal(), commands);
}

void TestCameraSettingsDialog::timeIsFormatted()
{
    const Clock::Fixed time(QDateTime(QDate(2026, 3, 2), QTime(3, 4, 5)));
    Scene scene;
    QCOMPARE(scene.mediator->addDateTime("yyyyMMdd_HHmmss"), QStringLiteral("20260302_030405"));
    QCOMPARE(scene.mediator->addDateTime("MMM"), QStringLiteral("Mar"));
    QCOMPARE(scene.mediator->addDateTime(""), QString());
    QCOMPARE(scene.host.journal(), QStringList());
}

void TestCameraSettingsDialog::fileIsChosen()
{
    Scene scene;
    FileChoice::setAnswer([&](const FileChoice::Question &question) {
        [&] {
            QCOMPARE(question.kind, FileChoice::Kind::OpenFile);
            QCOMPARE(question.caption, QStringLiteral("Select folder"));
            QCOMPARE(question.start, scene.dir.path());
            QCOMPARE(question.filter, QStringLiteral("*.qcfg\n*.QCFG"));
        }();
        return QStringList("/data/some.QCFG");
    });
    QVERIFY(scene.mediator->openFile());
    QCOMPARE(scene.host.journal(), QStringList({"getPrefString(\"qcfg/path\", " + NoDefault + ")",
                                                "translate(\"Select folder\")"}));
    QCOMPARE(objectOf(scene.mediator->getFilePathSettings()),
             (QJsonObject{{"FolderPath", scene.dir.path()}, {"FileName", "some.QCFG"}}));
}

void TestCameraSettingsDialog::fileIsKeptWhenTheUserCancels()
{
    Scene scene;
    FileChoice::setAnswer([](const FileChoice::Question &) { return QStringList("/data/a.qcfg"); });
    QVERIFY(scene.mediator->openFile());
    FileChoice::setAnswer([](const FileChoice::Question &) { return QStringList(); });
    QVERIFY(!scene.mediator->openFile());
    QCOMPARE(objectOf(scene.mediator->getFilePathSettings()).value("FileName").toString(),
             QStringLiteral("a.qcfg"));
}

void TestCameraSettingsDialog::folderIsChosenAndStored()
{
    Scene scene;
    FileChoice::setAnswer([&](const FileChoice::Question &question) {
        [&] {
            QCOMPARE(question.kind, FileChoice::Kind::Folder);
            QCOMPARE(question.caption, QStringLiteral("Select folder"));
            QCOMPARE(question.start, scene.dir.path());
        }();
        return QStringList("/data/other");
    });
    QVERIFY(scene.mediator->openFolder());
    QCOMPARE(scene.host.journal(), QStringList({"getPrefString(\"qcfg/path\", " + NoDefault + ")",
                                                "translate(\"Select folder\")",
                                                "setPrefString(\"qcfg/path\", \"/data/other\")"}));
    QCOMPARE(objectOf(scene.mediator->getFilePathSettings()).value("FolderPath").toString(),
             QStringLiteral("/data/other"));
}

void TestCameraSettingsDialog::folderIsKeptWhenTheUserCancels()
{
    Scene scene;
    FileChoice::setAnswer([](const FileChoice::Question &) { return QStringList(); });
    QVERIFY(!scene.mediator->openFolder());
    QCOMPARE(scene.host.commands(), QStringList());
}

void TestCameraSettingsDialog::pathSettingsBeginWithThoseStored()
{
    Scene scene;
    QCOMPARE(objectOf(scene.mediator->getFilePathSettings()),
             (QJsonObject{{"FolderPath", scene.dir.path()}, {"FileName", ""}}));
    FileChoice::setAnswer([](const FileChoice::Question &) { return QStringList("/mine"); });
    QVERIFY(scene.mediator->openFolder());
    scene.set("path", "/of/somebody/else");
    QCOMPARE(objectOf(scene.mediator->getFilePathSettings()).value("FolderPath").toString(),
             QStringLiteral("/mine"));
}

void TestCameraSettingsDialog::presetsAreListed()
{
    Scene scene;
    DocumentState &second = scene.host.camera(scene.keys.at(1))->state();
    second.presets = {{1, "", false}};
    second.documentName = "Document";
    second.deviceName = "Model";
    second.ipAddress = "10.0.0.1";
    const QVariantList rows = scene.mediator->getPresetList();
    QCOMPARE(rows.size(), 2);
    QCOMPARE(objectOf(rows.at(0).toString()).value("presets").toArray(),
             (QJsonArray{QJsonObject{{"presetno", 1}, {"selected", true}},
                         QJsonObject{{"presetno", 2}, {"selected", false}}}));
    QCOMPARE(objectOf(rows.at(0).toString()).value("selNone"), QJsonValue(false));
    QCOMPARE(
        objectOf(rows.at(1).toString()),
        (QJsonObject{{"key", QString::number(scene.keys.at(1))},
                     {"name", "Document"},
                     {"ipaddress", "10.0.0.1"},
                     {"devicename", "Model"},
                     {"presets", QJsonArray{QJsonObject{{"presetno", 1}, {"selected", false}}}},
                     {"selNone", true}}));
}

void TestCameraSettingsDialog::deviceIsListedOnce()
{
    Scene scene(Mediator::ApplyPresets, 3);
    scene.host.camera(scene.keys.at(1))->state().cameraNumber = 0; // a head of the first device
    const QVariantList rows = scene.mediator->getPresetList();
    QCOMPARE(rows.size(), 2);
    QCOMPARE(objectOf(rows.at(0).toString()).value("key").toString(),
             QString::number(scene.keys.at(0)));
    QCOMPARE(objectOf(rows.at(1).toString()).value("key").toString(),
             QString::number(scene.keys.at(2)));
}

void TestCameraSettingsDialog::documentThatHasGoneMakesNoRow()
{
    Scene scene;
    scene.host.answerNullOn("deviceByKey"); // the first that is asked for
    const QVariantList rows = scene.mediator->getPresetList();
    QCOMPARE(rows.size(), 1);
    QCOMPARE(objectOf(rows.at(0).toString()).value("key").toString(),
             QString::number(scene.keys.at(1)));
}

void TestCameraSettingsDialog::presetListCostsAFixedNumberOfCalls()
{
    QList<int> calls;
    for (int cameras : {1, 11, 101}) {
        Scene scene(Mediator::ApplyPresets, cameras);
        QCOMPARE(scene.mediator->getPresetList().size(), cameras);
        calls.append(scene.host.journal().size());
    }
    QCOMPARE(calls.at(1) - calls.at(0), 10 * (calls.at(0) - 1));
    QCOMPARE(calls.at(2) - calls.at(0), 100 * (calls.at(0) - 1));
}

void TestCameraSettingsDialog::settingsAreSaved()
{
    Scene scene;
    const QString path = scene.dir.filePath("test.qcfg");
    LogCapture log;
    scene.mediator->ok("{\"dialogMode\":0}");
    QCOMPARE(scene.accepted.size(), 1);
    const QStringList task{"runWithProgress(\"Saving...\")",
                           "saveCameraSettings(\"" + path + "\", [1, 2])"};
    const QStringList start =
        QStringList({"isLiveMode()", "documentsMutex()", "isLiveMode()", "pauseLive(false)"}) +
        nameLines() + QStringList("selectedDocKeys(true)");
    QStringList journal = scene.host.journal();
    if (journal.value(start.size()) == task.last()) // on a thread of its own
        journal.swapItemsAt(start.size(), start.size() + 1);
    QCOMPARE(journal, start + task + QStringList("resumeLive()"));
    QCOMPARE(scene.host.livePauses(), 0);
    QCOMPARE(log.texts(QtInfoMsg).first(),
             QStringLiteral("[ENTER] \"JS_Mediator_CameraSettingsDialog::ok\" "
                            "\"[sendData:{\\\"dialogMode\\\":0}]\""));
    QCOMPARE(log.texts(QtInfoMsg).last(),
             QStringLiteral("[LEAVE] \"JS_Mediator_CameraSettingsDialog::ok\""));
}

void TestCameraSettingsDialog::saveOutsideLiveModePausesNothing_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("memory") << int(StandInHost::Mode::Memory);
    QTest::newRow("file") << int(StandInHost::Mode::File);
}

void TestCameraSettingsDialog::saveOutsideLiveModePausesNothing()
{
    QFETCH(int, mode);
    Scene scene;
    scene.host.setMode(StandInHost::Mode(mode));
    scene.host.clearJournal();
    scene.mediator->ok("{}");
    QCOMPARE(scene.accepted.size(), 1);
    QVERIFY(scene.host.commands().contains("runWithProgress(\"Saving...\")"));
    QVERIFY(scene.host.commands().join(' ').contains("saveCameraSettings"));
    QVERIFY(!scene.host.journal().contains("documentsMutex()"));
    QVERIFY(!scene.host.journal().contains("pausePlayback()"));
}

void TestCameraSettingsDialog::saveNeedsAFolder()
{
    Scene scene;
    scene.set("path", "");
    scene.mediator->ok("{}");
    QCOMPARE(scene.messages(), QStringList("warn: Invalid filename."));
    QCOMPARE(scene.accepted.size(), 0);
    QCOMPARE(scene.host.livePauses(), 0);
}

void TestCameraSettingsDialog::nameIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << "";
    for (const char letter : {'\\', '/', '*', '?', '|', '\t', '\n', '"', ':', '<', '>', '%'})
        QTest::addRow("character %d", int(letter)) << QString("a%1b").arg(QLatin1Char(letter));
}

void TestCameraSettingsDialog::nameIsRefused()
{
    QFETCH(QString, name);
    Scene scene;
    scene.host.state().translations.insert("Invalid filename.", "Falscher Name.");
    scene.set("userFileName", name);
    scene.mediator->ok("{}");
    QCOMPARE(scene.messages(), QStringList("warn: Falscher Name."));
    QCOMPARE(scene.accepted.size(), 0);
    QVERIFY(QDir(scene.dir.path()).isEmpty());
}

void TestCameraSettingsDialog::folderInPlaceOfTheFileIsRefused()
{
    Scene scene;
    QVERIFY(QDir(scene.dir.path()).mkdir("test.qcfg"));
    scene.mediator->ok("{}");
    QCOMPARE(scene.messages(), QStringList("warn: Invalid filename."));
    QCOMPARE(scene.accepted.size(), 0);
}

void TestCameraSettingsDialog::pathOf260CharactersIsTheLongest_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QStringList>("messages");
    QTest::newRow("260") << 260 << QStringList();
    QTest::newRow("261") << 261 << QStringList("warn: The path of the target is too long.");
}

void TestCameraSettingsDialog::pathOf260CharactersIsTheLongest()
{
    QFETCH(int, length);
    QFETCH(QStringList, messages);
    Scene scene;
    const QString end = ".qcfg";
    const int rest = length - scene.dir.path().size() - 1 - end.size();
    // Names have a limit of their own, below that of paths.
    const QString folder = scene.dir.path() + '/' + QString(60, 'd');
    QVERIFY(QDir().mkpath(folder));
    scene.set("path", folder);
    scene.set("userFileName", QString(rest - 61, 'n'));
    if (!messages.isEmpty()) { // nobody is asked about a file that is there
        QFile file(folder + '/' + QString(rest - 61, 'n') + end);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    scene.mediator->ok("{}");
    QCOMPARE(scene.messages(), messages);
    QCOMPARE(scene.accepted.size(), messages.isEmpty() ? 1 : 0);
    QCOMPARE(scene.host.commands().join(' ').contains("saveCameraSettings"), messages.isEmpty());
}

void TestCameraSettingsDialog::fileThatIsThereIsAskedFor_data()
{
    QTest::addColumn<bool>("yes");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void TestCameraSettingsDialog::fileThatIsThereIsAskedFor()
{
    QFETCH(bool, yes);
    Scene scene;
    QFile file(scene.dir.filePath("test.qcfg"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    scene.host.answerConfirm(yes);
    scene.mediator->ok("{}");
    QCOMPARE(scene.messages(), QStringList("confirm: Do you want to overwrite it?"));
    QCOMPARE(scene.accepted.size(), yes ? 1 : 0);
    QCOMPARE(scene.host.commands().join(' ').contains("saveCameraSettings"), yes);
    QCOMPARE(scene.host.livePauses(), 0);
}

void TestCameraSettingsDialog::failedTaskLeavesTheDialogOpen()
{
    Scene scene;
    scene.host.failOn("saveCameraSettings");
    LogCapture log;
    scene.mediator->ok("{}");
    QCOMPARE(scene.host.handledErrors().size(), 1);
    QCOMPARE(scene.accepted.size(), 0);
    QCOMPARE(scene.host.livePauses(), 0);
}

void TestCameraSettingsDialog::fileIsLoaded()
{
    Scene scene(Mediator::LoadFile);
    const QString path = scene.dir.filePath("test.qcfg");
    scene.mediator->ok("{\"dialogMode\":0}");
    QCOMPARE(scene.accepted.size(), 1); // the file is there now
    FileChoice::setAnswer([&](const FileChoice::Question &) { return QStringList(path); });
    QVERIFY(scene.mediator->openFile());
    scene.host.clearJournal();
    scene.mediator->ok("{\"dialogMode\":1}");
    QCOMPARE(scene.mediator->getDialogMode(), 1);
    QCOMPARE(scene.accepted.size(), 2);
    QCOMPARE(scene.host.journal(),
             QStringList({"documentsMutex()", "isLiveMode()", "beginExclusiveUpdate()",
                          "beginExclusiveRefresh()", "pauseLiveExclusive(false, true, true)",
                          "selectedDocKeys(true)", "loadCameraSettings(\"" + path + "\", [1, 2])",
                          "resumeLive()", "endExclusiveUpdate()", "endExclusiveRefresh()"}));
}

void TestCameraSettingsDialog::nothingIsLoadedWithoutAFile()
{
    Scene scene(Mediator::LoadFile);
    scene.mediator->ok("{}");
    QCOMPARE(scene.accepted.size(), 0);
    QCOMPARE(scene.host.journal(), QStringList());
}

void TestCameraSettingsDialog::presetsAreApplied()
{
    Scene scene(Mediator::ApplyPresets, 3);
    scene.mediator->ok(presetsText(Mediator::ApplyPresets, {{"3", 1}, {"1", 2}}));
    QCOMPARE(scene.accepted.size(), 1);
    QCOMPARE(scene.host.journal(),
             QStringList({"documentsMutex()", "isLiveMode()", "beginExclusiveUpdate()",
                          "beginExclusiveRefresh()", "pauseLiveExclusive(false, true, true)",
                          "deviceByKey(1, true)", "[1].applyPreset(2)", "deviceByKey(3, true)",
                          "[3].applyPreset(1)", "resumeLive()", "endExclusiveUpdate()",
                          "endExclusiveRefresh()"}));
}

void TestCameraSettingsDialog::presetOf0OrBelowAppliesNothing_data()
{
    QTest::addColumn<int>("value");
    QTest::newRow("0") << 0;
    QTest::newRow("-1") << -1;
}

void TestCameraSettingsDialog::presetOf0OrBelowAppliesNothing()
{
    QFETCH(int, value);
    Scene scene(Mediator::ApplyPresets);
    scene.mediator->ok(presetsText(Mediator::ApplyPresets, {{"1", value}, {"2", 1}}));
    QCOMPARE(scene.accepted.size(), 1);
    QCOMPARE(scene.host.camera(1)->state().appliedPreset, 0);
    QCOMPARE(scene.host.camera(2)->state().appliedPreset, 1);
    QVERIFY(!scene.host.journal().contains("deviceByKey(1, true)"));
}

void TestCameraSettingsDialog::cameraThatHasGoneIsPassedOver()
{
    Scene scene(Mediator::ApplyPresets);
    scene.host.removeDocumentOn("applyPreset", 2);
    scene.mediator->ok(presetsText(Mediator::ApplyPresets, {{"1", 1}, {"2", 1}, {"77", 1}}));
    QCOMPARE(scene.accepted.size(), 1);
    QVERIFY(!scene.host.journal().contains("[2].applyPreset(1)"));
}

void TestCameraSettingsDialog::otherModesDoNothing_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("-1") << -1;
    QTest::newRow("3") << 3;
}

void TestCameraSettingsDialog::otherModesDoNothing()
{
    QFETCH(int, mode);
    Scene scene;
    scene.mediator->ok(presetsText(mode, {{"1", 1}}));
    QCOMPARE(scene.mediator->getDialogMode(), mode);
    QCOMPARE(scene.accepted.size(), 0);
    QCOMPARE(scene.host.journal(), QStringList());
}

void TestCameraSettingsDialog::okTakesWhatItUnderstands_data()
{
    QTest::addColumn<QString>("data");
    QTest::addColumn<QList<int>>("applied"); // to the cameras 1 and 2
    QTest::newRow("pairs") << R"({"presetList":[{"key":"1","value":1},{"key":"2","value":2}]})"
                           << QList<int>{1, 2};
    QTest::newRow("key as a number")
        << R"({"presetList":[{"key":2,"value":1}]})" << QList<int>{0, 1};
    QTest::newRow("key that is none")
        << R"({"presetList":[{"key":"x","value":1},{"key":null,"value":1},{"value":1},)"
           R"({"key":"2","value":1}]})"
        << QList<int>{0, 1};
    QTest::newRow("value of another type")
        << R"({"presetList":[{"key":"1","value":"1"},{"key":"2","value":1.5}]})"
        << QList<int>{0, 0};
    QTest::newRow("elements that are no objects")
        << R"({"presetList":[1,"1",[],{}]})" << QList<int>{0, 0};
    QTest::newRow("list that is none")
        << R"({"presetList":{"key":"1","value":1}})" << QList<int>{0, 0};
    QTest::newRow("mode of another type")
        << R"({"dialogMode":"0","presetList":[]})" << QList<int>{0, 0};
    QTest::newRow("no JSON") << "{" << QList<int>{0, 0};
    QTest::newRow("empty") << "" << QList<int>{0, 0};
    QTest::newRow("deep") << QStringLiteral("{\"presetList\":[").repeated(50000)
                          << QList<int>{0, 0};
}

void TestCameraSettingsDialog::okTakesWhatItUnderstands()
{
    QFETCH(QString, data);
    QFETCH(QList<int>, applied);
    Scene scene(Mediator::ApplyPresets);
    scene.mediator->ok(data);
    QCOMPARE(scene.mediator->getDialogMode(), int(Mediator::ApplyPresets));
    QCOMPARE(scene.host.camera(1)->state().appliedPreset, applied.at(0));
    QCOMPARE(scene.host.camera(2)->state().appliedPreset, applied.at(1));
    QCOMPARE(scene.accepted.size(), 1);
}

void TestCameraSettingsDialog::cancelRejects()
{
    Scene scene;
    LogCapture log;
    scene.mediator->cancel();
    QCOMPARE(scene.rejected.size(), 1);
    QCOMPARE(scene.accepted.size(), 0);
    QCOMPARE(scene.host.journal(), QStringList());
    QCOMPARE(log.texts(), QStringList({"[ENTER] \"JS_Mediator_CameraSettingsDialog::cancel\" \"\"",
                                       "[LEAVE] \"JS_Mediator_CameraSettingsDialog::cancel\""}));
}

void TestCameraSettingsDialog::mediatorMayGoWhileAFileIsChosen_data()
{
    QTest::addColumn<bool>("folder");
    QTest::newRow("file") << false;
    QTest::newRow("folder") << true;
}

void TestCameraSettingsDialog::mediatorMayGoWhileAFileIsChosen()
{
    QFETCH(bool, folder);
    Scene scene;
    FileChoice::setAnswer([&](const FileChoice::Question &) {
        delete scene.mediator;
        return QStringList("/data/x");
    });
    QVERIFY(!(folder ? scene.mediator->openFolder() : scene.mediator->openFile()));
    QCOMPARE(scene.host.commands(), QStringList());
}

void TestCameraSettingsDialog::failuresGiveNeutralValues()
{
    Scene scene;
    const auto failing = [&](const char *operation) {
        scene.host.clearHandledErrors();
        scene.host.failOn(operation);
    };
    failing("getPrefString");
    QCOMPARE(scene.mediator->openFile(), false);
    failing("getPrefString");
    QCOMPARE(scene.mediator->openFolder(), false);
    failing("getPrefString");
    QCOMPARE(scene.mediator->getFilePathSettings(), QString());
    failing("presets");
    QCOMPARE(scene.mediator->getPresetList(), QVariantList());
    QCOMPARE(scene.host.handledErrors(), QStringList("presets failed"));
    failing("getPrefBool");
    QCOMPARE(scene.mediator->recvFileNameDialogData(), QString());
    failing("getPrefBool");
    QCOMPARE(scene.mediator->getFileName(true), QString());
    failing("setPrefString");
    scene.mediator->sendFileNameDialogData("{\"userFileName\":\"a\"}");
    QCOMPARE(scene.host.handledErrors(), QStringList("setPrefString failed"));
    failing("applyPreset");
    scene.mediator->ok(presetsText(Mediator::ApplyPresets, {{"1", 1}}));
    QCOMPARE(scene.host.handledErrors(), QStringList("applyPreset failed"));
    QCOMPARE(scene.accepted.size(), 0);
    QCOMPARE(scene.host.livePauses(), 0);
    QCOMPARE(scene.host.exclusiveUpdates(), 0);
    QCOMPARE(scene.host.exclusiveRefreshes(), 0);
}

void TestCameraSettingsDialog::messagesAreTranslatedAndStandAlone()
{
    Scene scene;
    scene.host.state().translations.insert("Do you want to overwrite it?", "Ersetzen?");
    scene.host.state().translations.insert("The path of the target is too long.", "Zu lang.");
    QFile file(scene.dir.filePath("test.qcfg"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    scene.host.answerConfirm(false);
    scene.mediator->ok("{}");
    scene.set("userFileName", QString(260, 'n'));
    scene.mediator->ok("{}");
    QCOMPARE(scene.messages(), QStringList({"confirm: Ersetzen?", "warn: Zu lang."}));
    QVERIFY(scene.host.journal().contains("confirm(\"Ersetzen?\", null, {})"));
    QVERIFY(scene.host.journal().contains("warn(\"Zu lang.\", null)"));
}

void TestCameraSettingsDialog::choosersStandOverTheWindow()
{
    Scene scene;
    QWidget window;
    GUI_WebView view(&scene.host, &window);
    QList<QWidget *> parents;
    FileChoice::setAnswer([&](const FileChoice::Question &question) {
        parents.append(question.parent);
        return QStringList();
    });
    scene.mediator->openFile();
    scene.mediator->openFolder();
    scene.host.attachMediator(&view, scene.mediator);
    scene.mediator->openFile();
    scene.mediator->openFolder();
    QCOMPARE(parents, QList<QWidget *>({nullptr, nullptr, &window, &window}));
    delete scene.mediator; // before its view
}

void TestCameraSettingsDialog::nameIsThatOfTheFirstSelectedCamera()
{
    Scene scene(Mediator::SaveFile, 3);
    scene.set("filenameasoriginal", false);
    scene.host.camera(2)->state().cameraName = "Front";
    scene.host.select(1, false);
    scene.host.clearJournal();
    QCOMPARE(scene.mediator->getFileName(), QStringLiteral("Front"));
    QCOMPARE(scene.host.journal(),
             nameLines().mid(1) + QStringList({"selectedDocKeys(true)", "deviceByKey(2, true)",
                                               "[2].cameraName()"}));
}

void TestCameraSettingsDialog::fileThatCannotBeWrittenIsTold()
{
    Scene scene;
    scene.set("path", scene.dir.filePath("missing"));
    LogCapture log;
    scene.mediator->ok("{}");
    QCOMPARE(scene.host.handledErrors(), QStringList("File write failed."));
    QCOMPARE(scene.messages(), QStringList());
    QCOMPARE(scene.accepted.size(), 0);
    QCOMPARE(scene.host.livePauses(), 0);
}

int main(int argc, char **argv)
{
    TestCameraSettingsDialog test;
    return runTest(argc, argv, test);
}

#include "test_camera_settings_dialog.moc"
