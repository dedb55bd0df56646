#include "bridge/operation/FileChoice.h"
#include "bridge/page/GUI_WebView.h"
#include "foundation/Clock.h"
#include "save/dialog/JS_Mediator_FileDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/support/OwnMethods.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPixmap>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <functional>
#include <limits>
#include <memory>

#include <sys/resource.h>

// What a save page lists, selects and imports, by the calls of its host.

using Change = std::function<void(StandInHost &)>;
Q_DECLARE_METATYPE(Change)

using Flag = bool DocMainState::*;
Q_DECLARE_METATYPE(Flag)

class TestFileDialogTargets : public TestBase
{
    Q_OBJECT

private slots:
    void cleanup();
    void slotsStandInOrder();
    void newDialogTakesNoGroupOver();
    void failureWhileConstructedReachesTheCaller();
    void fileIsListed();
    void recordedCameraIsListed();
    void liveCamerasAreListed();
    void keysAreChosen_data();
    void keysAreChosen();
    void temporaryTargetsAreSortedByName();
    void optionsFollowThePage_data();
    void optionsFollowThePage();
    void cameraBeingSavedIsSkipped();
    void fileBeingSavedIsListed();
    void eitherWayToSkipCountsForFiles_data();
    void eitherWayToSkipCountsForFiles();
    void everyMediumCounts_data();
    void everyMediumCounts();
    void recordingSettingsAreReadTogether_data();
    void recordingSettingsAreReadTogether();
    void memoryMaySelectWhatHasFrames_data();
    void memoryMaySelectWhatHasFrames();
    void plainListIsNotTemporary();
    void documentThatHasGoneIsLeftOut();
    void documentThatGoesWhileListedMakesNoRow_data();
    void documentThatGoesWhileListedMakesNoRow();
    void failedListIsEmpty_data();
    void failedListIsEmpty();
    void selectedPictureIsPng();
    void selectInLiveModeStoresAlone();
    void previewModeFollowsThePage_data();
    void previewModeFollowsThePage();
    void pictureHasTheTimeOfTheDialog();
    void headsAreTold_data();
    void headsAreTold();
    void openedRecordingHasNoHeads();
    void pageMayCloseWhatItIsToldOf();
    void documentMayGoWhileItIsSelected_data();
    void documentMayGoWhileItIsSelected();
    void failedSelectKeepsTheSelection_data();
    void failedSelectKeepsTheSelection();
    void missingDocumentHasNoPicture();
    void oddSizesAreAnswered_data();
    void oddSizesAreAnswered();
    void hugeSizesAreAnsweredInBoundedMemory_data();
    void hugeSizesAreAnsweredInBoundedMemory();
    void selectionIsKept();
    void targetsAreHandedOver();
    void failedHandOverIsTold();
    void selectedDocumentsAreCounted();
    void folderIsImported();
    void folderIsAskedForOverTheWindow();
    void mediatorMayGoWhileTheFolderIsChosen();
    void folderWithoutRecordings();
    void noFolderChangesNothing();
    void failedImportIsNone_data();
    void failedImportIsNone();
    void tracesNameTheirArguments_data();
    void tracesNameTheirArguments();
};

namespace {

const QString ExportPage = QStringLiteral("filesavedialog");
const QString NoSetting = QStringLiteral("invalid");

QString boolRead(const char *key)
{
    return QString("getPrefBool(\"%1\", %2)").arg(QLatin1String(key), NoSetting);
}

// Reads of an exporting page, before it looks for documents.
QStringList exportOptions()
{
    return {boolRead("export/saveinfo"), boolRead("export/savecorrect"),
            boolRead("export/savescale")};
}

QVariantMap partitionsOf(const QList<int> &frames)
{
    QVariantList maps;
    for (int count : frames)
        maps.append(QVariantMap{{"totalframesplain", count}});
    return {{"partitions", maps}};
}

// A document with partitions of so many frames.
StandInCamera *addTarget(StandInHost &host, const QList<int> &frames, int kind = 0)
{
    StandInCamera *camera = host.addCamera();
    camera->state().infoMap = partitionsOf(frames);
    camera->state().documentKind = kind;
    return camera;
}

QJsonArray rowsOf(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8()).array();
}

QStringList values(const QString &text, const char *key)
{
    QStringList texts;
    const QJsonArray rows = rowsOf(text);
    for (const QJsonValue &row : rows)
        texts.append(row.toObject().value(QLatin1String(key)).toVariant().toString());
    return texts;
}

QImage pictureOf(const QString &text)
{
    const QByteArray png = QByteArray::fromBase64(text.toLatin1());
    return QImage::fromData(png, "PNG");
}

// What the process has held at most, in megabytes.
double mostMemory()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024.0;
}

QString operationOf(const QString &line)
{
    return line.section('(', 0, 0).section('.', -1);
}

// The lines of one kind of call.
QStringList calls(const StandInHost &host, const QString &operation)
{
    return host.journal().filter(operation + "(");
}

}

void TestFileDialogTargets::cleanup()
{
    FileChoice::setAnswer(FileChoice::Answer());
    TestBase::cleanup();
}

void TestFileDialogTargets::slotsStandInOrder()
{
    QCOMPARE(ownMethods(JS_Mediator_FileDialog::staticMetaObject),
             QStringList({"void selectedDocCount(int)",
                          "void selectedDocHeadCount(int)",
                          "bool openFolder()",
                          "bool openCustumTimeCodeDialog()",
                          "bool openConvertParameterEditDialog(QVariantList)",
                          "void importTarget(QVariantList)",
                          "QString list(bool)",
                          "QString list()",
                          "QString select(DOCKEY,PARTITIONNUMBER,int,int)",
                          "bool saveInfoView(QVariantList)",
                          "DOCKEY getSelectDocKey()",
                          "void setSelectDocKey(DOCKEY)",
                          "int getSelectPartitionNo()",
                          "void setSelectPartitionNo(int)",
                          "QString getExportPath()",
                          "QString getExportFile()",
                          "QString getExportGroupDir(DOCKEY,PARTITIONNUMBER)",
                          "QString getExportGroupDir(DOCKEY)",
                          "QString getExportGroupDir()",
                          "QString getExportSubDir()",
                          "int countSelectedDocs()",
                          "void setSkipMode(int)",
                          "int getSkipMode()",
                          "void setSkipFrames(double)",
                          "double getSkipFrames()",
                          "void refreshSkipFrame(QVariantMap)"}));
}

void TestFileDialogTargets::newDialogTakesNoGroupOver()
{
    StandInHost host;
    host.savePlan().setGroupDir("Batch");
    host.savePlan().addDir("/d/");
    const JS_Mediator_FileDialog page(&host, ExportPage);
    QCOMPARE(host.journal(), QStringList("clearPlannedGroupDir()"));
    QCOMPARE(page.objectName(), ExportPage);
    QVERIFY(host.savePlan().hasDir("/d/"));
}

void TestFileDialogTargets::failureWhileConstructedReachesTheCaller()
{
    StandInHost host;
    host.failOn("clearPlannedGroupDir");
    QVERIFY_EXCEPTION_THROWN(JS_Mediator_FileDialog(&host, ExportPage), StandInFault);
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestFileDialogTargets::fileIsListed()
{
    StandInHost host;
    host.setMode(StandInHost::Mode::File);
    StandInCamera *file = addTarget(host, {4, 0, 6}, 2);
    file->state().infoMap["partitions"] =
        QVariantList({QVariantMap{{"totalframesplain", 4}, {"filename", "Shot"}, {"dockey", "1"}},
                      QVariantMap{{"totalframesplain", 0}}, QVariantMap{{"totalframesplain", 6}}});
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    const QString text = page.list(false);
    QCOMPARE(host.journal(),
             exportOptions() +
                 QStringList({"isLiveMode()", "documentKeys(true, false)", "deviceByKey(1, true)",
                              "deviceByKey(1, true)", "[1].documentKind()",
                              "[1].setSaveInfoOption(false)", "[1].setSaveCorrectOption(false)",
                              "[1].setSaveScaleOption(false)",
                              "[1].documentInfoMap(true, false, false, false, true)",
                              "deviceByKey(1, true)", "[1].supportsMultiSkip()",
                              "[1].supportsFileMultiSkip()", "[1].isOnSdCard()",
                              "[1].isOnKelvault()", "[1].isOnCFast()"}));
    QCOMPARE(values(text, "recid"), QStringList({"1", "2"}));
    QCOMPARE(values(text, "partitionno"), QStringList({"1", "3"}));
    QCOMPARE(values(text, "filename"), QStringList({"Shot", ""}));
    QCOMPARE(values(text, "dockey"), QStringList({"1", ""}));
}

void TestFileDialogTargets::recordedCameraIsListed()
{
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    StandInCamera *camera = addTarget(host, {4, 5});
    camera->state().currentPartition = 2;
    camera->state().isRecordedOnce = true;
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    const QString text = page.list(false);
    QCOMPARE(host.journal(),
             exportOptions() +
                 QStringList({"isLiveMode()", "documentKeys(true, false)", "deviceByKey(1, true)",
                              "deviceByKey(1, true)", "[1].documentKind()", "[1].isBusySaving()",
                              "[1].setSaveInfoOption(false)", "[1].setSaveCorrectOption(false)",
                              "[1].setSaveScaleOption(false)",
                              "[1].documentInfoMap(true, false, false, false, true)",
                              "deviceByKey(1, true)", "[1].supportsMultiSkip()",
                              boolRead("recording/LoopRecord"),
                              boolRead("recording/StopRecordingAfterLastPartition"),
                              "[1].currentPartition()", "isLiveMode()",
                              "isPartitionSelectionAuto()", "[1].isRecordedOnce()"}));
    QCOMPARE(values(text, "partitionno"), QStringList({"1", "2"}));
    QCOMPARE(values(text, "selected"), QStringList({"false", "true"}));
}

// With no loop recording only the current partition of each.
void TestFileDialogTargets::liveCamerasAreListed()
{
    StandInHost host;
    addTarget(host, {4, 5})->state().currentPartition = 2;
    addTarget(host, {6, 7})->state().currentPartition = 1;
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    const QString text = page.list(false);
    QCOMPARE(host.journal().mid(0, 7),
             exportOptions() + QStringList({"isLiveMode()", "liveDocumentKeys(true)",
                                            "deviceByKey(1, true)", "deviceByKey(2, true)"}));
    QCOMPARE(values(text, "totalframesplain"), QStringList({"5", "6"}));
    QCOMPARE(values(text, "partitionno"), QStringList({"2", "1"}));
    QCOMPARE(values(text, "recid"), QStringList({"1", "2"}));
}

void TestFileDialogTargets::keysAreChosen_data()
{
    QTest::addColumn<bool>("temporary");
    QTest::addColumn<Change>("change");
    QTest::addColumn<QStringList>("questions");
    const auto row = [](const char *name, bool temporary, const Change &change,
                        const QStringList &questions) {
        QTest::newRow(name) << temporary << change << questions;
    };
    row("live", false, [](StandInHost &) {}, {"isLiveMode()", "liveDocumentKeys(true)"});
    row("memory", false, [](StandInHost &host) { host.setMode(StandInHost::Mode::Memory); },
        {"isLiveMode()", "documentKeys(true, false)"});
    row("none temporary", true, [](StandInHost &) {}, {"temporaryDocumentKeys()"});
    row("first has gone", true,
        [](StandInHost &host) {
            host.state().temporaryKeys = {9, 1};
        },
        {"temporaryDocumentKeys()", "deviceByKey(9, true)", "deviceByKey(9, true)",
         "deviceByKey(1, true)"});
    row("first on a card", true,
        [](StandInHost &host) {
            host.state().temporaryKeys = {2, 1};
            host.camera(2)->state().isOnSdCard = true;
        },
        {"temporaryDocumentKeys()", "deviceByKey(2, true)", "[2].isOnSdCard()",
         "deviceByKey(2, true)", "deviceByKey(1, true)"});
    row("first in a drive", true,
        [](StandInHost &host) {
            host.state().temporaryKeys = {2, 1};
            host.camera(2)->state().isOnKelvault = true;
        },
        {"temporaryDocumentKeys()", "deviceByKey(2, true)", "[2].isOnSdCard()",
         "[2].isOnKelvault()", "deviceByKey(2, true)", "deviceByKey(1, true)"});
    row("first on the other card", true,
        [](StandInHost &host) {
            host.state().temporaryKeys = {2, 1};
            host.camera(2)->state().isOnCFast = true;
        },
        {"temporaryDocumentKeys()", "deviceByKey(2, true)", "[2].isOnSdCard()",
         "[2].isOnKelvault()", "[2].isOnCFast()", "deviceByKey(2, true)", "deviceByKey(1, true)"});
}

void TestFileDialogTargets::keysAreChosen()
{
    QFETCH(bool, temporary);
    QFETCH(Change, change);
    QFETCH(QStringList, questions);
    StandInHost host;
    addTarget(host, {1});
    addTarget(host, {1});
    change(host);
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    page.list(temporary);
    QCOMPARE(host.journal().mid(3, questions.size()), questions);
}

// Numbers in names count as numbers.
void TestFileDialogTargets::temporaryTargetsAreSortedByName()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    StandInHost host;
    const QStringList names = {"shot 10", "shot 9", "Alpha"};
    for (int i = 0; i < names.size(); ++i)
        addTarget(host, {i + 1}, 2)->state().documentName = names.at(i);
    host.state().temporaryKeys = {1, 2, 3};
    JS_Mediator_FileDialog page(&host, ExportPage);
    QCOMPARE(values(page.list(true), "totalframesplain"), QStringList({"3", "2", "1"}));
    host.camera(1)->state().isOnSdCard = true;
    QCOMPARE(values(page.list(true), "totalframesplain"), QStringList({"1", "2", "3"}));
    QLocale::setDefault(before);
}

void TestFileDialogTargets::optionsFollowThePage_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("reads");
    QTest::addColumn<QStringList>("told");
    const QStringList all = exportOptions();
    const QStringList ofExport = {"[1].setSaveInfoOption(true)", "[1].setSaveCorrectOption(true)",
                                  "[1].setSaveScaleOption(true)",
                                  "[1].documentInfoMap(true, false, false, false, true)"};
    const auto row = [](const char *name, const QStringList &reads, const QStringList &told) {
        QTest::newRow(name) << name << reads << told;
    };
    const QStringList ofConversion = {
        "[1].setSaveInfoOption(false)", "[1].setSaveCorrectOption(false)",
        "[1].setSaveScaleOption(false)", "[1].documentInfoMap(true, false, true, false, true)"};
    row("filesavedialog", all, ofExport);
    row("fileopendialog", all, ofExport);
    row("snapshotdialog", all, ofExport);
    row("reportExportDialog", all, ofExport);
    row("layoutsavedialog", all.mid(0, 2),
        {"[1].setSaveInfoOption(true)", "[1].setSaveCorrectOption(true)",
         "[1].setSaveScaleOption(false)", "[1].documentInfoMap(true, false, false, true, true)"});
    row("batchconverter", {boolRead("convert/saveinfo")}, ofConversion);
    row("convertparametereditdialog", {boolRead("convert/saveinfo")}, ofConversion);
    row("BatchConverter", all, ofExport);
}

void TestFileDialogTargets::optionsFollowThePage()
{
    QFETCH(QString, name);
    QFETCH(QStringList, reads);
    QFETCH(QStringList, told);
    StandInHost host;
    addTarget(host, {1}, 2);
    host.settings().setValue("export/saveinfo", true);
    host.settings().setValue("export/savecorrect", true);
    host.settings().setValue("export/savescale", true);
    JS_Mediator_FileDialog page(&host, name);
    host.clearJournal();
    page.list(false);
    QCOMPARE(host.journal().mid(0, reads.size()), reads);
    QCOMPARE(host.journal().at(reads.size()), QString("isLiveMode()"));
    QCOMPARE(host.journal().filter("Option(") + calls(host, "documentInfoMap"), told);
    QCOMPARE(host.camera(1)->state().saveInfoOption, told.first().contains("true"));
}

void TestFileDialogTargets::cameraBeingSavedIsSkipped()
{
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    addTarget(host, {1})->state().isBusySaving = true;
    addTarget(host, {2});
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    QCOMPARE(values(page.list(false), "totalframesplain"), QStringList("2"));
    QCOMPARE(host.journal().filter("[1]."),
             QStringList({"[1].documentKind()", "[1].isBusySaving()"}));
}

void TestFileDialogTargets::fileBeingSavedIsListed()
{
    StandInHost host;
    host.setMode(StandInHost::Mode::File);
    addTarget(host, {1}, 2)->state().isBusySaving = true;
    JS_Mediator_FileDialog page(&host, ExportPage);
    QCOMPARE(values(page.list(false), "recid"), QStringList("1"));
}

void TestFileDialogTargets::eitherWayToSkipCountsForFiles_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("plain");
    QTest::addColumn<bool>("ofFiles");
    QTest::addColumn<QString>("skips");
    QTest::newRow("file, neither") << 2 << false << false << "false";
    QTest::newRow("file, plain") << 2 << true << false << "true";
    QTest::newRow("file, of files") << 2 << false << true << "true";
    QTest::newRow("camera, neither") << 0 << false << false << "false";
    QTest::newRow("camera, plain") << 0 << true << false << "true";
    QTest::newRow("camera, of files") << 1 << false << true << "false";
}

void TestFileDialogTargets::eitherWayToSkipCountsForFiles()
{
    QFETCH(int, kind);
    QFETCH(bool, plain);
    QFETCH(bool, ofFiles);
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    StandInCamera *target = addTarget(host, {1}, kind);
    target->state().supportsMultiSkip = plain;
    target->state().supportsFileMultiSkip = ofFiles;
    JS_Mediator_FileDialog page(&host, ExportPage);
    QFETCH(QString, skips);
    QCOMPARE(values(page.list(false), "multiskip"), QStringList(skips));
}

void TestFileDialogTargets::everyMediumCounts_data()
{
    QTest::addColumn<Flag>("medium");
    QTest::newRow("card") << &DocMainState::isOnSdCard;
    QTest::newRow("drive") << &DocMainState::isOnKelvault;
    QTest::newRow("other card") << &DocMainState::isOnCFast;
}

void TestFileDialogTargets::everyMediumCounts()
{
    QFETCH(Flag, medium);
    StandInHost host;
    StandInCamera *file = addTarget(host, {1}, 2);
    file->state().infoMap["partitions"] =
        QVariantList({QVariantMap{{"totalframesplain", 1}, {"filename", "F"}, {"name", "N"}}});
    JS_Mediator_FileDialog page(&host, ExportPage);
    QCOMPARE(values(page.list(false), "filename"), QStringList("F"));
    file->state().*medium = true;
    QCOMPARE(values(page.list(false), "filename"), QStringList("N"));
    QCOMPARE(values(page.list(false), "style"), QStringList("")); // nobody has looked for copies
}

void TestFileDialogTargets::recordingSettingsAreReadTogether_data()
{
    QTest::addColumn<bool>("loop");
    QTest::addColumn<bool>("increment");
    QTest::addColumn<bool>("stop");
    QTest::addColumn<QStringList>("listed");
    QTest::newRow("neither") << false << false << true << QStringList("2");
    QTest::newRow("loop alone") << true << false << true << QStringList("2");
    QTest::newRow("increment alone") << false << true << true << QStringList("2");
    QTest::newRow("both") << true << true << false << QStringList({"1", "2", "3"});
    QTest::newRow("both, stops at the last") << true << true << true << QStringList({"2", "3"});
}

void TestFileDialogTargets::recordingSettingsAreReadTogether()
{
    QFETCH(bool, loop);
    QFETCH(bool, increment);
    QFETCH(bool, stop);
    StandInHost host;
    addTarget(host, {1, 1, 1})->state().currentPartition = 2;
    host.settings().setValue("recording/LoopRecord", loop);
    host.settings().setValue("recording/AutoIncrementPartition", increment);
    host.settings().setValue("recording/StopRecordingAfterLastPartition", stop);
    JS_Mediator_FileDialog page(&host, ExportPage);
    QTEST(values(page.list(false), "partitionno"), "listed");
}

void TestFileDialogTargets::memoryMaySelectWhatHasFrames_data()
{
    QTest::addColumn<bool>("isAuto");
    QTest::addColumn<bool>("memory");
    QTest::addColumn<QStringList>("selected");
    QTest::newRow("by hand") << false << true << QStringList({"false", "true", "false"});
    QTest::newRow("by itself") << true << true << QStringList({"true", "true", "true"});
    QTest::newRow("by itself, files") << true << false << QStringList({"false", "true", "false"});
}

void TestFileDialogTargets::memoryMaySelectWhatHasFrames()
{
    QFETCH(bool, isAuto);
    QFETCH(bool, memory);
    StandInHost host;
    host.setMode(memory ? StandInHost::Mode::Memory : StandInHost::Mode::File);
    host.state().isPartitionSelectionAuto = isAuto;
    StandInCamera *camera = addTarget(host, {1, 1, 1});
    camera->state().currentPartition = 2;
    camera->state().isRecordedOnce = true;
    JS_Mediator_FileDialog page(&host, ExportPage);
    QTEST(values(page.list(false), "selected"), "selected");
}

void TestFileDialogTargets::plainListIsNotTemporary()
{
    StandInHost host;
    addTarget(host, {1});
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    const QString text = page.list();
    QCOMPARE(calls(host, "temporaryDocumentKeys"), QStringList());
    QCOMPARE(text, page.list(false));
    QVERIFY(!rowsOf(text).isEmpty());
}

void TestFileDialogTargets::documentThatHasGoneIsLeftOut()
{
    StandInHost host;
    addTarget(host, {1}, 2);
    addTarget(host, {2}, 2);
    host.state().temporaryKeys = {1, 2};
    JS_Mediator_FileDialog page(&host, ExportPage);
    QCOMPARE(values(page.list(true), "totalframesplain"), QStringList({"1", "2"}));
    host.closeDocument(1);
    QCOMPARE(values(page.list(true), "totalframesplain"), QStringList("2"));
    host.closeDocument(2);
    QCOMPARE(page.list(true), QString("[]"));
}

void TestFileDialogTargets::documentThatGoesWhileListedMakesNoRow_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<DOCKEY>("gone");
    QTest::addColumn<QStringList>("questions"); // on what goes
    QTest::addColumn<QStringList>("frames");
    const QStringList asked = {"documentKind()", "setSaveInfoOption(false)",
                               "setSaveCorrectOption(false)", "setSaveScaleOption(false)",
                               "documentInfoMap(true, false, false, false, true)"};
    const QStringList askedOfCamera =
        asked.mid(0, 1) + QStringList("isBusySaving()") + asked.mid(1);
    const QStringList none;
    QTest::newRow("file, another's information")
        << 2 << "documentInfoMap" << DOCKEY(2) << none << QStringList("1");
    QTest::newRow("file, its own information")
        << 2 << "documentInfoMap" << DOCKEY(1) << asked << QStringList("2");
    QTest::newRow("camera, another's information")
        << 0 << "documentInfoMap" << DOCKEY(2) << none << QStringList("1");
    QTest::newRow("camera, its own information")
        << 0 << "documentInfoMap" << DOCKEY(1) << askedOfCamera << QStringList("2");
    QTest::newRow("camera, another's options")
        << 0 << "setSaveScaleOption" << DOCKEY(2) << none << QStringList("1");
}

// Nothing more is asked of it.
void TestFileDialogTargets::documentThatGoesWhileListedMakesNoRow()
{
    QFETCH(int, kind);
    QFETCH(QString, operation);
    QFETCH(DOCKEY, gone);
    QFETCH(QStringList, questions);
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    addTarget(host, {1}, kind);
    addTarget(host, {2}, kind);
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    host.removeDocumentOn(operation, gone);
    const QString text = page.list(false);
    QTEST(values(text, "totalframesplain"), "frames");
    QCOMPARE(values(text, "recid"), QStringList("1"));
    const QString name = QString("[%1].").arg(gone);
    QStringList lines;
    for (const QString &question : qAsConst(questions))
        lines.append(name + question);
    QCOMPARE(host.journal().filter(name), lines);
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestFileDialogTargets::failedListIsEmpty_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("temporary");
    QTest::newRow("files") << 2 << false;
    QTest::newRow("cameras") << 0 << false;
    QTest::newRow("temporary") << 2 << true;
}

// Each call of the host fails in turn, and is told once.
void TestFileDialogTargets::failedListIsEmpty()
{
    QFETCH(int, kind);
    QFETCH(bool, temporary);
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    host.settings().setValue("recording/LoopRecord", true);
    addTarget(host, {1}, kind);
    addTarget(host, {2}, kind);
    host.state().temporaryKeys = {1, 2};
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    QCOMPARE(rowsOf(page.list(temporary)).size(), 2);
    const QStringList lines = host.journal();
    QVERIFY(lines.filter("documentInfoMap").size() == 2);
    for (int nth = 1; nth <= lines.size(); ++nth) {
        host.clearHandledErrors();
        host.failAtCall(nth);
        QCOMPARE(page.list(temporary), QString());
        host.clearFaults();
        QCOMPARE(host.handledErrors(), QStringList(operationOf(lines.at(nth - 1)) + " failed"));
    }
}

void TestFileDialogTargets::selectedPictureIsPng()
{
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    host.addCamera();
    const QDateTime noon(QDate(2024, 5, 6), QTime(12, 0));
    const Clock::Fixed clock(noon);
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    const QString text = page.select(1, 3, 64, 48);
    QCOMPARE(host.journal(),
             QStringList({"isLiveMode()", "deviceByKey(1, true)", "[1].headInterface()",
                          "deviceByKey(1, true)", "[1].headCount()", "deviceByKey(1, true)",
                          "[1].previewPixmap(10, 64, 48, 3, false, \"2024-05-06T12:00:00\")"}));
    const QImage picture = pictureOf(text);
    QVERIFY(!picture.isNull());
    QCOMPARE(picture.size(), QSize(64, 48));
    QCOMPARE(page.getSelectDocKey(), DOCKEY(1));
    QCOMPARE(page.getSelectPartitionNo(), 3);
}

void TestFileDialogTargets::selectInLiveModeStoresAlone()
{
    StandInHost host;
    host.addCamera();
    JS_Mediator_FileDialog page(&host, ExportPage);
    QSignalSpy heads(&page, &JS_Mediator_FileDialog::selectedDocHeadCount);
    host.clearJournal();
    QCOMPARE(page.select(1, 3, 64, 48), QString());
    QCOMPARE(host.journal(), QStringList("isLiveMode()"));
    QCOMPARE(heads.count(), 0);
    QCOMPARE(page.getSelectDocKey(), DOCKEY(1));
    QCOMPARE(page.getSelectPartitionNo(), 3);
}

void TestFileDialogTargets::previewModeFollowsThePage_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("batchconverter") << 11;
    QTest::newRow("convertparametereditdialog") << 11;
    QTest::newRow("fileopendialog") << 9;
    QTest::newRow("reportExportDialog") << 17;
    QTest::newRow("layoutsavedialog") << 18;
    QTest::newRow("snapshotdialog") << 10;
    QTest::newRow("filesavedialog") << 10;
    QTest::newRow("FileOpenDialog") << 10;
    QTest::newRow("") << 10;
}

void TestFileDialogTargets::previewModeFollowsThePage()
{
    QFETCH(int, mode);
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    host.addCamera();
    JS_Mediator_FileDialog page(&host, QString::fromLatin1(QTest::currentDataTag()));
    host.clearJournal();
    page.select(1, 1, 8, 8);
    QVERIFY2(host.journal().last().startsWith(QString("[1].previewPixmap(%1, ").arg(mode)),
             qPrintable(host.journal().last()));
}

void TestFileDialogTargets::pictureHasTheTimeOfTheDialog()
{
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    host.addCamera();
    Clock::Fixed clock(QDateTime(QDate(2024, 5, 6), QTime(12, 0)));
    JS_Mediator_FileDialog page(&host, ExportPage);
    clock.setTime(QDateTime(QDate(2025, 1, 1), QTime(0, 0)));
    host.clearJournal();
    page.select(1, 1, 8, 8);
    QVERIFY(host.journal().last().endsWith("\"2024-05-06T12:00:00\")"));
}

void TestFileDialogTargets::headsAreTold_data()
{
    QTest::addColumn<int>("heads");
    QTest::addColumn<QVariantList>("told");
    QTest::newRow("one") << 1 << QVariantList({1});
    QTest::newRow("three") << 3 << QVariantList({3});
    QTest::newRow("no heads") << 0 << QVariantList();
}

void TestFileDialogTargets::headsAreTold()
{
    QFETCH(int, heads);
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    host.addCamera()->state().headCount = heads;
    JS_Mediator_FileDialog page(&host, ExportPage);
    QSignalSpy told(&page, &JS_Mediator_FileDialog::selectedDocHeadCount);
    QVERIFY(!page.select(1, 1, 8, 8).isEmpty());
    QVariantList counts;
    for (const QVariantList &each : told)
        counts.append(each.first());
    QTEST(counts, "told");
}

// Though the device that recorded it had some.
void TestFileDialogTargets::openedRecordingHasNoHeads()
{
    const QTemporaryDir folder;
    QImage frame(16, 8, QImage::Format_RGB32);
    frame.fill(Qt::gray);
    QVERIFY(frame.save(folder.filePath("frame1.png")));
    StandInHost host;
    host.setMode(StandInHost::Mode::File);
    StandInRecording *recording = host.openRecording(folder.path());
    recording->state().headCount = 2;
    JS_Mediator_FileDialog page(&host, ExportPage);
    QSignalSpy told(&page, &JS_Mediator_FileDialog::selectedDocHeadCount);
    QVERIFY(!pictureOf(page.select(recording->key(), 1, 8, 8)).isNull());
    QCOMPARE(told.count(), 0);
    QCOMPARE(calls(host, "headCount"), QStringList());
}

void TestFileDialogTargets::pageMayCloseWhatItIsToldOf()
{
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    host.addCamera();
    JS_Mediator_FileDialog page(&host, ExportPage);
    connect(&page, &JS_Mediator_FileDialog::selectedDocHeadCount,
            [&host] { host.closeDocument(1); });
    QCOMPARE(page.select(1, 1, 8, 8), QString());
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestFileDialogTargets::documentMayGoWhileItIsSelected_data()
{
    QTest::addColumn<QStringList>("questions"); // of the document
    QTest::addColumn<int>("told");
    QTest::newRow("isLiveMode") << QStringList() << 0;
    QTest::newRow("deviceByKey") << QStringList() << 0;
    QTest::newRow("headInterface") << QStringList("[1].headInterface()") << 0;
    QTest::newRow("headCount") << QStringList({"[1].headInterface()", "[1].headCount()"}) << 1;
}

// Nothing more is asked of it.
void TestFileDialogTargets::documentMayGoWhileItIsSelected()
{
    QFETCH(QStringList, questions);
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    host.addCamera();
    JS_Mediator_FileDialog page(&host, ExportPage);
    QSignalSpy told(&page, &JS_Mediator_FileDialog::selectedDocHeadCount);
    host.clearJournal();
    host.removeDocumentOn(QTest::currentDataTag(), 1);
    QCOMPARE(page.select(1, 1, 8, 8), QString());
    QCOMPARE(host.journal().filter("[1]."), questions);
    QTEST(told.count(), "told");
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestFileDialogTargets::failedSelectKeepsTheSelection_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("nth");
    QTest::newRow("isLiveMode") << "isLiveMode" << 1;
    QTest::newRow("deviceByKey") << "deviceByKey" << 1;
    QTest::newRow("deviceByKey, behind the heads") << "deviceByKey" << 2;
    QTest::newRow("deviceByKey, behind their count") << "deviceByKey" << 3;
    QTest::newRow("headInterface") << "headInterface" << 1;
    QTest::newRow("headCount") << "headCount" << 1;
    QTest::newRow("previewPixmap") << "previewPixmap" << 1;
}

void TestFileDialogTargets::failedSelectKeepsTheSelection()
{
    QFETCH(QString, operation);
    QFETCH(int, nth);
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    host.addCamera();
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.failOn(operation, nth);
    QCOMPARE(page.select(1, 3, 8, 8), QString());
    QCOMPARE(host.handledErrors(), QStringList(operation + " failed"));
    QCOMPARE(page.getSelectDocKey(), DOCKEY(1));
    QCOMPARE(page.getSelectPartitionNo(), 3);
}

void TestFileDialogTargets::missingDocumentHasNoPicture()
{
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    QCOMPARE(page.select(9, 1, 8, 8), QString());
    QCOMPARE(host.journal(), QStringList({"isLiveMode()", "deviceByKey(9, true)"}));
    QCOMPARE(page.getSelectDocKey(), DOCKEY(9));
}

void TestFileDialogTargets::oddSizesAreAnswered_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("none") << QSize(0, 0);
    QTest::newRow("no width") << QSize(0, 48);
    QTest::newRow("no height") << QSize(64, 0);
    QTest::newRow("negative") << QSize(-1, -1);
    QTest::newRow("least") << QSize(std::numeric_limits<int>::min(), 1);
}

void TestFileDialogTargets::oddSizesAreAnswered()
{
    QFETCH(QSize, size);
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    host.addCamera();
    JS_Mediator_FileDialog page(&host, ExportPage);
    QCOMPARE(page.select(1, 1, size.width(), size.height()), QString());
    QCOMPARE(host.handledErrors(), QStringList());
    QCOMPARE(calls(host, "previewPixmap").size(), 1);
}

void TestFileDialogTargets::hugeSizesAreAnsweredInBoundedMemory_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("100,000 each way") << QSize(100000, 100000);
    QTest::newRow("wide") << QSize(100000, 480);
    QTest::newRow("most") << QSize(std::numeric_limits<int>::max(),
                                   std::numeric_limits<int>::max());
}

// The picture of a document is never larger than the document.
void TestFileDialogTargets::hugeSizesAreAnsweredInBoundedMemory()
{
    QFETCH(QSize, size);
    StandInHost host;
    host.setMode(StandInHost::Mode::Memory);
    host.addCamera();
    JS_Mediator_FileDialog page(&host, ExportPage);
    page.select(1, 1, 640, 480);
    const double before = mostMemory();
    const QImage picture = pictureOf(page.select(1, 1, size.width(), size.height()));
    QCOMPARE(picture.size(), QSize(640, 480));
    QVERIFY(mostMemory() - before < 64.0);
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestFileDialogTargets::selectionIsKept()
{
    StandInHost host;
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    QCOMPARE(page.getSelectDocKey(), DOCKEY(0));
    QCOMPARE(page.getSelectPartitionNo(), 0);
    page.setSelectDocKey(0xfedcba9876543210);
    page.setSelectPartitionNo(-4);
    QCOMPARE(page.getSelectDocKey(), DOCKEY(0xfedcba9876543210));
    QCOMPARE(page.getSelectPartitionNo(), -4);
    QCOMPARE(host.journal(), QStringList());
}

void TestFileDialogTargets::targetsAreHandedOver()
{
    StandInHost host;
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    page.importTarget({1, QStringLiteral("18446744073709551614"), 2.0, QStringLiteral("x")});
    page.importTarget({});
    QCOMPARE(host.journal(),
             QStringList({"importTargets([1, 18446744073709551614, 2, 0])", "importTargets([])"}));
}

void TestFileDialogTargets::failedHandOverIsTold()
{
    StandInHost host;
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.failOn("importTargets");
    page.importTarget({1, 2});
    QCOMPARE(host.handledErrors(), QStringList("importTargets failed"));
}

void TestFileDialogTargets::selectedDocumentsAreCounted()
{
    StandInHost host;
    host.addCamera();
    host.addCamera();
    host.select(1, true);
    host.select(2, true);
    JS_Mediator_FileDialog page(&host, ExportPage);
    QCOMPARE(page.countSelectedDocs(), 2);
    host.failOn("selectedDocumentCount");
    QCOMPARE(page.countSelectedDocs(), 0);
    QCOMPARE(host.handledErrors(), QStringList("selectedDocumentCount failed"));
}

void TestFileDialogTargets::folderIsImported()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("deep"));
    for (const char *name : {"b.rih", "deep/a.RIHX", "c.txt"}) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    StandInHost host;
    host.state().translations.insert("Select folder", "Ordner");
    host.settings().setValue("import/dir", "/before");
    host.addCamera();
    host.addCamera();
    host.state().openedKeys = {2, 9, 1};
    QList<FileChoice::Question> questions;
    FileChoice::setAnswer([&](const FileChoice::Question &question) {
        questions.append(question);
        return QStringList(folder.path());
    });
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    QVERIFY(page.openFolder());
    QCOMPARE(questions.size(), 1);
    QCOMPARE(questions.first().kind, FileChoice::Kind::Folder);
    QCOMPARE(questions.first().caption, QString("Ordner"));
    QCOMPARE(questions.first().start, QString("/before"));
    const QString files = QString("[\"%1/b.rih\", \"%1/deep/a.RIHX\"]").arg(folder.path());
    QCOMPARE(host.journal(),
             QStringList(
                 {"getPref(\"import/dir\", invalid)", "translate(\"Select folder\")",
                  "setPref(\"import/dir\", \"" + folder.path() + "\")", "closeFileDocuments(false)",
                  "openFiles(" + files + ", true, true, true, false, false)",
                  "openedDocumentKeys()", "deviceByKey(2, true)", "[2].setOpenedByImport(true)",
                  "deviceByKey(9, true)", "deviceByKey(1, true)", "[1].setOpenedByImport(true)"}));
    QVERIFY(host.camera(1)->state().isOpenedByImport);
}

void TestFileDialogTargets::folderIsAskedForOverTheWindow()
{
    StandInHost host;
    QWidget window;
    GUI_WebView view(&host, &window);
    JS_Mediator_FileDialog page(&host, ExportPage);
    QList<QWidget *> parents;
    FileChoice::setAnswer([&](const FileChoice::Question &question) {
        parents.append(question.parent);
        return QStringList();
    });
    page.openFolder();
    host.attachMediator(&view, &page);
    page.openFolder();
    QCOMPARE(parents, QList<QWidget *>({nullptr, &window}));
}

// The folder is imported all the same.
void TestFileDialogTargets::mediatorMayGoWhileTheFolderIsChosen()
{
    const QTemporaryDir folder;
    StandInHost host;
    host.addCamera();
    host.state().openedKeys = {1};
    auto page = std::make_unique<JS_Mediator_FileDialog>(&host, ExportPage);
    FileChoice::setAnswer([&](const FileChoice::Question &) {
        page.reset();
        return QStringList(folder.path());
    });
    host.clearJournal();
    QVERIFY(page->openFolder());
    QVERIFY(!page);
    QCOMPARE(host.commands(),
             QStringList(
                 {"setPref(\"import/dir\", \"" + folder.path() + "\")", "closeFileDocuments(false)",
                  "openFiles([], true, true, true, false, false)", "[1].setOpenedByImport(true)"}));
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestFileDialogTargets::folderWithoutRecordings()
{
    const QTemporaryDir folder;
    FileChoice::setAnswer([&](const FileChoice::Question &) { return QStringList(folder.path()); });
    StandInHost host;
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    QVERIFY(page.openFolder());
    QCOMPARE(host.journal().mid(3), QStringList({"closeFileDocuments(false)",
                                                 "openFiles([], true, true, true, false, false)",
                                                 "openedDocumentKeys()"}));
}

void TestFileDialogTargets::noFolderChangesNothing()
{
    FileChoice::setAnswer([](const FileChoice::Question &) { return QStringList(); });
    StandInHost host;
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.clearJournal();
    QVERIFY(!page.openFolder());
    QCOMPARE(host.commands(), QStringList());
}

void TestFileDialogTargets::failedImportIsNone_data()
{
    QTest::addColumn<QString>("operation");
    for (const char *operation :
         {"getPref", "translate", "setPref", "closeFileDocuments", "openFiles",
          "openedDocumentKeys", "deviceByKey", "setOpenedByImport"})
        QTest::newRow(operation) << QString::fromLatin1(operation);
}

void TestFileDialogTargets::failedImportIsNone()
{
    QFETCH(QString, operation);
    const QTemporaryDir folder;
    FileChoice::setAnswer([&](const FileChoice::Question &) { return QStringList(folder.path()); });
    StandInHost host;
    host.addCamera();
    host.state().openedKeys = {1};
    JS_Mediator_FileDialog page(&host, ExportPage);
    host.failOn(operation);
    QVERIFY(!page.openFolder());
    QCOMPARE(host.handledErrors(), QStringList(operation + " failed"));
}

void TestFileDialogTargets::tracesNameTheirArguments_data()
{
    QTest::addColumn<Change>("call");
    QTest::addColumn<QString>("line");
    const auto row = [](const char *name, const char *arguments,
                        const std::function<void(JS_Mediator_FileDialog &)> &call) {
        const Change change = [call](StandInHost &host) {
            JS_Mediator_FileDialog page(&host, ExportPage);
            call(page);
        };
        QTest::newRow(name)
            << change
            << QString("[ENTER] \"JS_Mediator_FileDialog::%1\" \"%2\"").arg(name, arguments);
    };
    using Page = JS_Mediator_FileDialog;
    row("openFolder", "", [](Page &page) { page.openFolder(); });
    row("importTarget", "[dockeyList:[1,\\\"2\\\"]]", [](Page &page) {
        page.importTarget({1, "2"});
    });
    row("list", "[temporary:true]", [](Page &page) { page.list(true); });
    row("select", "[dockey:7] [partitionNo:2] [width:30] [height:40]",
        [](Page &page) { page.select(7, 2, 30, 40); });
    row("getSelectDocKey", "", [](Page &page) { page.getSelectDocKey(); });
    row("setSelectDocKey", "[dockey:7]", [](Page &page) { page.setSelectDocKey(7); });
    row("getSelectPartitionNo", "", [](Page &page) { page.getSelectPartitionNo(); });
    row("setSelectPartitionNo", "[partitionNo:7]",
        [](Page &page) { page.setSelectPartitionNo(7); });
    row("countSelectedDocs", "", [](Page &page) { page.countSelectedDocs(); });
}

void TestFileDialogTargets::tracesNameTheirArguments()
{
    QFETCH(Change, call);
    QFETCH(QString, line);
    FileChoice::setAnswer([](const FileChoice::Question &) { return QStringList(); });
    StandInHost host;
    LogCapture log;
    call(host);
    const QString name = line.section('"', 1, 1);
    QCOMPARE(log.texts(), QStringList({line, "[LEAVE] \"" + name + "\""}));
}

int main(int argc, char *argv[])
{
    TestFileDialogTargets test;
    return runTest(argc, argv, test);
}

#include "test_file_dialog_targets.moc"
