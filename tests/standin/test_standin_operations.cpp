#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QFile>
#include <QFutureWatcher>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <stdexcept>

// Each operation of the contract once, in the order of its table, and the line that it leaves in
// the journal.

namespace {

enum CallKind { Question, Command };

struct HostCall
{
    void (*call)(StandInHost &);
    const char *line;
    CallKind kind;
};

struct DocumentCall
{
    void (*call)(DOC_Interface &);
    const char *line;
    CallKind kind;
};

const HostCall HostMainCalls[] = {
    {[](StandInHost &h) { h.updateUI(7u, true); }, "updateUI(7, true)", Command},
    {[](StandInHost &h) { h.hideSelectBox(); }, "hideSelectBox()", Command},
    {[](StandInHost &h) { h.isShownDropBox(); }, "isShownDropBox()", Question},
    {[](StandInHost &h) { h.showDropDownBox(QStringLiteral("key"), QRect(1, 2, 30, 40)); },
     "showDropDownBox(\"key\", (1,2 30x40))", Command},
    {[](StandInHost &h) { h.hideDropDownBox(QStringLiteral("key"), QPoint(3, -4)); },
     "hideDropDownBox(\"key\", (3,-4))", Command},
    {[](StandInHost &h) { h.hideDropDownBox(QStringLiteral("key")); }, "hideDropDownBox(\"key\")",
     Command},
    {[](StandInHost &h) { h.needsDialogEnterNotice(); }, "needsDialogEnterNotice()", Question},
    {[](StandInHost &h) { h.webPageEmbeddedMdi(); }, "webPageEmbeddedMdi()", Question},
    {[](StandInHost &h) { h.attachMediator(nullptr, nullptr); }, "attachMediator(null, null)",
     Command},
    {[](StandInHost &h) { h.currentMode(); }, "currentMode()", Question},
    {[](StandInHost &h) { h.isLiveMode(); }, "isLiveMode()", Question},
    {[](StandInHost &h) { h.isMemoryMode(); }, "isMemoryMode()", Question},
    {[](StandInHost &h) { h.isFileMode(); }, "isFileMode()", Question},
    {[](StandInHost &h) { h.mainWidget(); }, "mainWidget()", Question},
    {[](StandInHost &h) {
         std::runtime_error error("went wrong");
         h.errorHandler(error);
     },
     "errorHandler(\"went wrong\")", Command},
    {[](StandInHost &h) { h.info(QStringLiteral("text"), nullptr); }, "info(\"text\", null)",
     Command},
    {[](StandInHost &h) {
         h.warn(QStringLiteral("text"), QStringList({QStringLiteral("a"), QStringLiteral("b")}),
                nullptr);
     },
     "warn(\"text\", [\"a\", \"b\"], null)", Command},
    {[](StandInHost &h) { h.warn(QStringLiteral("text"), nullptr); }, "warn(\"text\", null)",
     Command},
    {[](StandInHost &h) {
         h.alert(QStringLiteral("text"), QStringList({QStringLiteral("a"), QStringLiteral("b")}),
                 nullptr);
     },
     "alert(\"text\", [\"a\", \"b\"], null)", Command},
    {[](StandInHost &h) { h.alert(QStringLiteral("text"), nullptr); }, "alert(\"text\", null)",
     Command},
    {[](StandInHost &h) {
         h.confirm(QStringLiteral("text"), nullptr, QVariantMap{{QStringLiteral("k"), 7}});
     },
     "confirm(\"text\", null, {k: 7})", Command},
    {[](StandInHost &h) { h.translate(QStringLiteral("text")); }, "translate(\"text\")", Question},
    {[](StandInHost &h) { h.setAllQuickToolsDisabledRefresh(); },
     "setAllQuickToolsDisabledRefresh()", Command},
    {[](StandInHost &h) { h.prefsDialog(); }, "prefsDialog()", Question},
    {[](StandInHost &h) { h.openAboutDialog(); }, "openAboutDialog()", Command},
    {[](StandInHost &h) { h.isToolRunning(QStringLiteral("tool")); }, "isToolRunning(\"tool\")",
     Question},
    {[](StandInHost &h) { h.isFeatureOn(QStringLiteral("key"), h.document(1)->contract(), false); },
     "isFeatureOn(\"key\", [1], false)", Question},
    {[](StandInHost &h) { h.isReady(); }, "isReady()", Question},
    {[](StandInHost &h) { h.isDialogExitSuppressed(); }, "isDialogExitSuppressed()", Question},
    {[](StandInHost &h) { h.isUpdateIgnore(); }, "isUpdateIgnore()", Question},
    {[](StandInHost &h) { h.deterUpdateUI(false); }, "deterUpdateUI(false)", Command},
    {[](StandInHost &h) {
         SupportSnapshot out;
         h.exportSupportSnapshot(out);
     },
     "exportSupportSnapshot()", Question},
    {[](StandInHost &h) { h.writeSupportFile(QStringLiteral("path"), SupportSnapshot()); },
     "writeSupportFile(\"path\", {screen: 0x0, trelvikWindow: 0x0, frame: 0x0, texts: []})",
     Command},
    {[](StandInHost &h) { h.isAutoCameraNameEnabled(); }, "isAutoCameraNameEnabled()", Question},
    {[](StandInHost &h) { h.getPref(QStringLiteral("key"), QVariant()); },
     "getPref(\"key\", invalid)", Question},
    {[](StandInHost &h) { h.getPrefInt(QStringLiteral("key"), QVariant()); },
     "getPrefInt(\"key\", invalid)", Question},
    {[](StandInHost &h) { h.getPrefBool(QStringLiteral("key"), QVariant()); },
     "getPrefBool(\"key\", invalid)", Question},
    {[](StandInHost &h) { h.getPrefFloat(QStringLiteral("key"), QVariant()); },
     "getPrefFloat(\"key\", invalid)", Question},
    {[](StandInHost &h) { h.getPrefString(QStringLiteral("key"), QVariant()); },
     "getPrefString(\"key\", invalid)", Question},
    {[](StandInHost &h) { h.setPref(QStringLiteral("key"), QVariant()); },
     "setPref(\"key\", invalid)", Command},
    {[](StandInHost &h) { h.setPrefInt(QStringLiteral("key"), 4); }, "setPrefInt(\"key\", 4)",
     Command},
    {[](StandInHost &h) { h.setPrefBool(QStringLiteral("key"), true); },
     "setPrefBool(\"key\", true)", Command},
    {[](StandInHost &h) { h.setPrefFloat(QStringLiteral("key"), 0.25); },
     "setPrefFloat(\"key\", 0.25)", Command},
    {[](StandInHost &h) { h.setPrefString(QStringLiteral("key"), QStringLiteral("value")); },
     "setPrefString(\"key\", \"value\")", Command},
    {[](StandInHost &h) { h.setTextBoxFocusState(false); }, "setTextBoxFocusState(false)", Command},
    {[](StandInHost &h) { h.notifyDialogLeft(); }, "notifyDialogLeft()", Command},
    {[](StandInHost &h) { h.notifyDialogEntered(); }, "notifyDialogEntered()", Command},
    {[](StandInHost &h) { h.hasRestoredPrefs(); }, "hasRestoredPrefs()", Question},
    {[](StandInHost &h) { h.acknowledgeRestoredPrefs(false); }, "acknowledgeRestoredPrefs(false)",
     Command},
    {[](StandInHost &h) {
         QFutureWatcher<void> watcher;
         h.runWithProgress(QStringLiteral("text"), watcher);
     },
     "runWithProgress(\"text\")", Command},
    {[](StandInHost &h) { h.isTrelvikWindowShown(); }, "isTrelvikWindowShown()", Question},
    {[](StandInHost &h) { h.openEthernetSettings(); }, "openEthernetSettings()", Command},
    {[](StandInHost &h) { h.prefDefault(QStringLiteral("key")); }, "prefDefault(\"key\")",
     Question},
    {[](StandInHost &h) { h.removePref(QStringLiteral("key")); }, "removePref(\"key\")", Command},
    {[](StandInHost &h) { h.infoItemDefaultDisplay(); }, "infoItemDefaultDisplay()", Question},
    {[](StandInHost &h) { h.infoItemLabel(QStringLiteral("id")); }, "infoItemLabel(\"id\")",
     Question},
    {[](StandInHost &h) { h.fontFamilyList(); }, "fontFamilyList()", Question},
    {[](StandInHost &h) { h.applyOutputFontName(QStringLiteral("fontName"), 4); },
     "applyOutputFontName(\"fontName\", 4)", Command},
    {[](StandInHost &h) { h.hostVersionText(); }, "hostVersionText()", Question},
    {[](StandInHost &h) {
         TimeCodeRecord out;
         h.getTimeCodeSetting(out);
     },
     "getTimeCodeSetting()", Question},
    {[](StandInHost &h) { h.setTimeCodeSetting(TimeCodeRecord()); },
     "setTimeCodeSetting({timeCodeIndex: 0, displayUnit: \"deg\", oneFrame: 0, startValue: 0, "
     "reset: false, resetValue: 0, scopeDisplayIndex: 0, decimalPlaceIndex: 0, decimalDivide: "
     "false, usingRihFileInfo: true, overWrite: false, realTime: false})",
     Command},
    {[](StandInHost &h) { h.isConverting(); }, "isConverting()", Question},
    {[](StandInHost &h) { h.isPartitionSelectionAuto(); }, "isPartitionSelectionAuto()", Question},
    {[](StandInHost &h) { h.appScriptObject(); }, "appScriptObject()", Question},
    {[](StandInHost &h) { h.mainScriptObject(); }, "mainScriptObject()", Question},
    {[](StandInHost &h) { h.isCycleView(); }, "isCycleView()", Question},
    {[](StandInHost &h) { h.isNotLivePage(false); }, "isNotLivePage(false)", Question},
    {[](StandInHost &h) { h.isPrefsDialogOpen(); }, "isPrefsDialogOpen()", Question},
    {[](StandInHost &h) { h.isModalDialogOpen(); }, "isModalDialogOpen()", Question},
    {[](StandInHost &h) { h.textBoxFocusState(); }, "textBoxFocusState()", Question},
    {[](StandInHost &h) { h.companionInstallDir(); }, "companionInstallDir()", Question},
};

const HostCall HostPluginsCalls[] = {
    {[](StandInHost &h) { h.pluginByName(QStringLiteral("name")); }, "pluginByName(\"name\")",
     Question},
    {[](StandInHost &h) { h.returnFromPlugin(); }, "returnFromPlugin()", Command},
    {[](StandInHost &h) { h.openPluginByName(QStringLiteral("tool")); },
     "openPluginByName(\"tool\")", Command},
    {[](StandInHost &h) { h.closePluginByName(QStringLiteral("tool")); },
     "closePluginByName(\"tool\")", Command},
    {[](StandInHost &h) { h.closeCurrentPlugin(); }, "closeCurrentPlugin()", Command},
    {[](StandInHost &h) { h.currentPlugin(); }, "currentPlugin()", Question},
    {[](StandInHost &h) { h.currentPluginName(); }, "currentPluginName()", Question},
    {[](StandInHost &h) { h.isTrelvikRunning(); }, "isTrelvikRunning()", Question},
    {[](StandInHost &h) { h.isMVersion(); }, "isMVersion()", Question},
    {[](StandInHost &h) { h.prepareSelectAll(); }, "prepareSelectAll()", Command},
    {[](StandInHost &h) { h.isAutoExposureSettingOpen(); }, "isAutoExposureSettingOpen()",
     Question},
    {[](StandInHost &h) { h.isHwTriggerSettingOpen(); }, "isHwTriggerSettingOpen()", Question},
    {[](StandInHost &h) { h.isVariableSettingOpen(); }, "isVariableSettingOpen()", Question},
    {[](StandInHost &h) { h.isTracking(); }, "isTracking()", Question},
    {[](StandInHost &h) { h.isSendingNodeCommand(); }, "isSendingNodeCommand()", Question},
    {[](StandInHost &h) { h.isAdjustingImage(); }, "isAdjustingImage()", Question},
    {[](StandInHost &h) { h.isDetectingPixelDefect(); }, "isDetectingPixelDefect()", Question},
    {[](StandInHost &h) { h.isImageTriggerCapturing(); }, "isImageTriggerCapturing()", Question},
    {[](StandInHost &h) { h.isImageTriggerDetecting(); }, "isImageTriggerDetecting()", Question},
    {[](StandInHost &h) { h.isOtherPluginOpen(); }, "isOtherPluginOpen()", Question},
    {[](StandInHost &h) { h.prepareEmbeddedWidget(nullptr, QStringLiteral("classid")); },
     "prepareEmbeddedWidget(null, \"classid\")", Command},
    {[](StandInHost &h) { h.embeddedWidget(nullptr); }, "embeddedWidget(null)", Question},
};

const HostCall HostDocumentsCalls[] = {
    {[](StandInHost &h) { h.deviceByKey(DOCKEY(5), true); }, "deviceByKey(5, true)", Question},
    {[](StandInHost &h) { h.documentByKey(DOCKEY(5)); }, "documentByKey(5)", Question},
    {[](StandInHost &h) { h.setCurrentDoc(DOCKEY(5), true); }, "setCurrentDoc(5, true)", Command},
    {[](StandInHost &h) { h.unselectDoc(DOCKEY(5)); }, "unselectDoc(5)", Command},
    {[](StandInHost &h) { h.currentDocument(); }, "currentDocument()", Question},
    {[](StandInHost &h) { h.currentDocKey(); }, "currentDocKey()", Question},
    {[](StandInHost &h) { h.removeDocument(DOCKEY(5)); }, "removeDocument(5)", Command},
    {[](StandInHost &h) { h.removeAllDocuments(3, true); }, "removeAllDocuments(3, true)", Command},
    {[](StandInHost &h) { h.selectAllDocs(nullptr); }, "selectAllDocs(null)", Command},
    {[](StandInHost &h) {
         h.selectDocs(QList<DOCKEY>({1, NoDocKey}), true);
     },
     "selectDocs([1, -1], true)", Command},
    {[](StandInHost &h) { h.refreshDocumentInfo(false); }, "refreshDocumentInfo(false)", Command},
    {[](StandInHost &h) { h.setTrelvikLock(false); }, "setTrelvikLock(false)", Command},
    {[](StandInHost &h) { h.isTrelvikLocked(); }, "isTrelvikLocked()", Question},
    {[](StandInHost &h) { h.commitTransaction(false, QStringLiteral("tool")); },
     "commitTransaction(false, \"tool\")", Command},
    {[](StandInHost &h) { h.beginTransaction(QStringLiteral("tool"), true, false); },
     "beginTransaction(\"tool\", true, false)", Command},
    {[](StandInHost &h) { h.rollbackTransaction(QStringLiteral("tool")); },
     "rollbackTransaction(\"tool\")", Command},
    {[](StandInHost &h) { h.resetTransaction(QStringLiteral("tool")); },
     "resetTransaction(\"tool\")", Command},
    {[](StandInHost &h) { h.setToolActive(QStringLiteral("tool"), true); },
     "setToolActive(\"tool\", true)", Command},
    {[](StandInHost &h) { h.setQuickTool(QStringLiteral("tool")); }, "setQuickTool(\"tool\")",
     Command},
    {[](StandInHost &h) { h.setToolState(QStringLiteral("tool"), true); },
     "setToolState(\"tool\", true)", Command},
    {[](StandInHost &h) { h.isWaveDataAcquisition(); }, "isWaveDataAcquisition()", Question},
    {[](StandInHost &h) {
         QList<DOCKEY> out;
         h.deviceKeys(out, true);
     },
     "deviceKeys(true)", Question},
    {[](StandInHost &h) {
         QList<DOCKEY> out;
         h.liveDocKeys(out, true);
     },
     "liveDocKeys(true)", Question},
    {[](StandInHost &h) {
         QList<DOCKEY> out;
         h.selectedDocKeys(out, true);
     },
     "selectedDocKeys(true)", Question},
    {[](StandInHost &h) { h.documentsMutex(); }, "documentsMutex()", Question},
    {[](StandInHost &h) { h.endExclusiveUpdate(); }, "endExclusiveUpdate()", Command},
    {[](StandInHost &h) { h.beginExclusiveUpdate(); }, "beginExclusiveUpdate()", Command},
    {[](StandInHost &h) { h.endExclusiveRefresh(); }, "endExclusiveRefresh()", Command},
    {[](StandInHost &h) { h.beginExclusiveRefresh(); }, "beginExclusiveRefresh()", Command},
    {[](StandInHost &h) { h.documentKeys(false, true); }, "documentKeys(false, true)", Question},
    {[](StandInHost &h) { h.liveDocumentKeys(false); }, "liveDocumentKeys(false)", Question},
    {[](StandInHost &h) {
         QList<DOCKEY> out;
         h.temporaryDocumentKeys(out);
     },
     "temporaryDocumentKeys()", Question},
    {[](StandInHost &h) { h.openedDocumentKeys(); }, "openedDocumentKeys()", Question},
    {[](StandInHost &h) {
         QList<DOCKEY> out;
         h.targetDocKeys(out, true, 5);
     },
     "targetDocKeys(true, 5)", Question},
    {[](StandInHost &h) { h.documentKeyOf(h.document(1)->contract()); }, "documentKeyOf([1])",
     Question},
    {[](StandInHost &h) { h.selectedDocumentCount(); }, "selectedDocumentCount()", Question},
    {[](StandInHost &h) {
         h.importTargets(QList<DOCKEY>({1, NoDocKey}));
     },
     "importTargets([1, -1])", Command},
    {[](StandInHost &h) { h.closeFileDocuments(false); }, "closeFileDocuments(false)", Command},
    {[](StandInHost &h) {
         h.openFiles(QStringList({QStringLiteral("a"), QStringLiteral("b")}), true, false, true,
                     false, true);
     },
     "openFiles([\"a\", \"b\"], true, false, true, false, true)", Command},
    {[](StandInHost &h) { h.closeCameraData(3); }, "closeCameraData(3)", Command},
    {[](StandInHost &h) {
         h.findSavedRecords(QStringLiteral("folder"),
                            QList<SavedRecord>({{QStringLiteral("s"), QStringLiteral("d")}}));
     },
     "findSavedRecords(\"folder\", [(\"s\", \"d\")])", Question},
    {[](StandInHost &h) { h.refreshAfterDelete(DOCKEY(5)); }, "refreshAfterDelete(5)", Command},
    {[](StandInHost &h) { h.documentCount(); }, "documentCount()", Question},
    {[](StandInHost &h) { h.hasWaveformData(); }, "hasWaveformData()", Question},
    {[](StandInHost &h) { h.areAllDevicesLocked(); }, "areAllDevicesLocked()", Question},
};

const HostCall HostLiveControlCalls[] = {
    {[](StandInHost &h) { h.resumeLive(); }, "resumeLive()", Command},
    {[](StandInHost &h) { h.pauseLiveExclusive(false, true, false); },
     "pauseLiveExclusive(false, true, false)", Command},
    {[](StandInHost &h) { h.pauseLive(false); }, "pauseLive(false)", Command},
    {[](StandInHost &h) { h.isLivePaused(); }, "isLivePaused()", Question},
    {[](StandInHost &h) { h.suspendView(false); }, "suspendView(false)", Command},
    {[](StandInHost &h) { h.resumeView(false); }, "resumeView(false)", Command},
    {[](StandInHost &h) { h.prepareLiveForPrefs(); }, "prepareLiveForPrefs()", Command},
};

const HostCall HostRecordCalls[] = {
    {[](StandInHost &h) { h.isRecording(); }, "isRecording()", Question},
    {[](StandInHost &h) { h.recordingState(); }, "recordingState()", Question},
    {[](StandInHost &h) { h.hasPartitionConflict(false); }, "hasPartitionConflict(false)",
     Question},
};

const HostCall HostPlaybackCalls[] = {
    {[](StandInHost &h) { h.pausePlayback(); }, "pausePlayback()", Command},
    {[](StandInHost &h) { h.resumePlayback(); }, "resumePlayback()", Command},
};

const HostCall HostCameraLinkCalls[] = {
    {[](StandInHost &h) { h.defaultCameraName(); }, "defaultCameraName()", Question},
    {[](StandInHost &h) {
         const QString address = QStringLiteral("192.168.0.10"); // the camera's
         h.connectDevices(QStringList({address, address}));
     },
     "connectDevices([\"192.168.0.10\", \"192.168.0.10\"])", Command},
    {[](StandInHost &h) { h.addDevice(QStringLiteral("name"), QStringLiteral("address"), false); },
     "addDevice(\"name\", \"address\", false)", Command},
    {[](StandInHost &h) { h.searchAgain(); }, "searchAgain()", Command},
    {[](StandInHost &h) {
         h.setNetworkSettings(QStringLiteral("192.168.0.1"), QStringLiteral("192.168.0.9"),
                              QStringLiteral("255.255.255.0"), QStringLiteral("192.168.0.254"),
                              h.network().devices().first().hardwareAddress);
     },
     "setNetworkSettings(\"192.168.0.1\", \"192.168.0.9\", \"255.255.255.0\", "
     "\"192.168.0.254\", \"02:00:00:00:00:01\")",
     Command},
    {[](StandInHost &h) { h.isLowlightOn(); }, "isLowlightOn()", Question},
    {[](StandInHost &h) { h.hasLowlightDevice(); }, "hasLowlightDevice()", Question},
    {[](StandInHost &h) { h.areAllLowlight(false); }, "areAllLowlight(false)", Question},
    {[](StandInHost &h) { h.isLensCalibrationRunning(); }, "isLensCalibrationRunning()", Question},
    {[](StandInHost &h) { h.isAutoFocusing(); }, "isAutoFocusing()", Question},
    {[](StandInHost &h) { h.isPhaseAdjusting(); }, "isPhaseAdjusting()", Question},
    {[](StandInHost &h) { h.isShading(); }, "isShading()", Question},
    {[](StandInHost &h) { h.isCurrentOtherThanAutoFocus(false); },
     "isCurrentOtherThanAutoFocus(false)", Question},
    {[](StandInHost &h) {
         h.saveCameraSettings(QStringLiteral("path"), QList<DOCKEY>({1, NoDocKey}));
     },
     "saveCameraSettings(\"path\", [1, -1])", Command},
    {[](StandInHost &h) {
         h.loadCameraSettings(QStringLiteral("path"), QList<DOCKEY>({1, NoDocKey}));
     },
     "loadCameraSettings(\"path\", [1, -1])", Command},
    {[](StandInHost &h) { h.selectCameraPartition(3, true); }, "selectCameraPartition(3, true)",
     Command},
    {[](StandInHost &h) { h.selectVariable(7u); }, "selectVariable(7)", Command},
};

const HostCall HostFileExportCalls[] = {
    {[](StandInHost &h) { h.copySelectArea(3); }, "copySelectArea(3)", Command},
    {[](StandInHost &h) { h.clearPlannedGroupDir(); }, "clearPlannedGroupDir()", Command},
    {[](StandInHost &h) { h.clearPlannedDirs(); }, "clearPlannedDirs()", Command},
    {[](StandInHost &h) { h.clearPlannedFiles(); }, "clearPlannedFiles()", Command},
    {[](StandInHost &h) { h.setPlannedGroupDir(QStringLiteral("name")); },
     "setPlannedGroupDir(\"name\")", Command},
    {[](StandInHost &h) { h.addPlannedDir(QStringLiteral("dir")); }, "addPlannedDir(\"dir\")",
     Command},
    {[](StandInHost &h) { h.addPlannedFile(QStringLiteral("path")); }, "addPlannedFile(\"path\")",
     Command},
    {[](StandInHost &h) { h.isPlannedDir(QStringLiteral("dir")); }, "isPlannedDir(\"dir\")",
     Question},
    {[](StandInHost &h) { h.isPlannedFile(QStringLiteral("path")); }, "isPlannedFile(\"path\")",
     Question},
    {[](StandInHost &h) { h.plannedGroupDir(); }, "plannedGroupDir()", Question},
    {[](StandInHost &h) { h.plannedTargetDir(); }, "plannedTargetDir()", Question},
    {[](StandInHost &h) { h.cardReaderDriveMask(); }, "cardReaderDriveMask()", Question},
    {[](StandInHost &h) { h.openCardReaderDrive(); }, "openCardReaderDrive()", Question},
    {[](StandInHost &h) { h.openCardReaderDrive(7u); }, "openCardReaderDrive(7)", Command},
    {[](StandInHost &h) { h.closeCardReaderData(); }, "closeCardReaderData()", Command},
    {[](StandInHost &h) { h.kelvaultDrives(); }, "kelvaultDrives()", Question},
    {[](StandInHost &h) { h.cfCardDrives(); }, "cfCardDrives()", Question},
    {[](StandInHost &h) { h.openKelvaultDrive(3, 4, 5, QStringLiteral("name")); },
     "openKelvaultDrive(3, 4, 5, \"name\")", Command},
    {[](StandInHost &h) { h.unlockKelvaultDrive(3, 4, QStringLiteral("hidden")); },
     "unlockKelvaultDrive(3, 4, ***)", Command},
    {[](StandInHost &h) {
         h.changeDrivePassword(3, 4, QStringLiteral("hidden"), QStringLiteral("hidden"));
     },
     "changeDrivePassword(3, 4, ***, ***)", Command},
    {[](StandInHost &h) { h.forgetDrivePassword(3, 4, 5, QStringLiteral("text")); },
     "forgetDrivePassword(3, 4, 5, ***)", Command},
    {[](StandInHost &h) {
         int out1 = 0;
         int out2 = 0;
         h.openCFCardDrive(&out1, &out2);
     },
     "openCFCardDrive()", Question},
    {[](StandInHost &h) { h.openCFCardDrive(3, 4, 5, QStringLiteral("name")); },
     "openCFCardDrive(3, 4, 5, \"name\")", Command},
    {[](StandInHost &h) { h.closeCFastData(false); }, "closeCFastData(false)", Command},
    {[](StandInHost &h) { h.driveUseRatio(3, 4, 5); }, "driveUseRatio(3, 4, 5)", Question},
    {[](StandInHost &h) { h.cfastUseRatio(3, 4, 5); }, "cfastUseRatio(3, 4, 5)", Question},
    {[](StandInHost &h) { h.totalWrittenBytes(3, 4, 5); }, "totalWrittenBytes(3, 4, 5)", Question},
    {[](StandInHost &h) { h.formatKelvaultDrive(3, 4, 5); }, "formatKelvaultDrive(3, 4, 5)",
     Command},
    {[](StandInHost &h) { h.formatCFCardDrive(3, 4, 5); }, "formatCFCardDrive(3, 4, 5)", Command},
    {[](StandInHost &h) { h.refreshMediaView(3); }, "refreshMediaView(3)", Command},
    {[](StandInHost &h) { h.isBackgroundSaving(); }, "isBackgroundSaving()", Question},
    {[](StandInHost &h) { h.isBackgroundConverting(); }, "isBackgroundConverting()", Question},
    {[](StandInHost &h) { h.isDirectSaving(false); }, "isDirectSaving(false)", Question},
    {[](StandInHost &h) { h.isAutoExporting(); }, "isAutoExporting()", Question},
};

const HostCall HostViewStateCalls[] = {
    {[](StandInHost &h) { h.rotation(DOCKEY(5)); }, "rotation(5)", Question},
    {[](StandInHost &h) { h.flipHorizontal(DOCKEY(5)); }, "flipHorizontal(5)", Question},
    {[](StandInHost &h) { h.flipVertical(DOCKEY(5)); }, "flipVertical(5)", Question},
    {[](StandInHost &h) { h.zoomFactor(3); }, "zoomFactor(3)", Question},
    {[](StandInHost &h) { h.isViewCycling(); }, "isViewCycling()", Question},
    {[](StandInHost &h) { h.isDisplayInfoShowing(); }, "isDisplayInfoShowing()", Question},
    {[](StandInHost &h) { h.setDisplayInfoShowing(false); }, "setDisplayInfoShowing(false)",
     Command},
};

const HostCall HostWindowsCalls[] = {
    {[](StandInHost &h) { h.countMdiWindow(false, 4); }, "countMdiWindow(false, 4)", Question},
    {[](StandInHost &h) { h.currentWindowTitle(); }, "currentWindowTitle()", Question},
    {[](StandInHost &h) { h.isFullScreen(); }, "isFullScreen()", Question},
    {[](StandInHost &h) { h.isActiveOnTrelvik(); }, "isActiveOnTrelvik()", Question},
    {[](StandInHost &h) { h.showAllDocuments(); }, "showAllDocuments()", Command},
};

const HostCall HostUndoStackCalls[] = {
    {[](StandInHost &h) { h.clearUndoStack(); }, "clearUndoStack()", Command},
    {[](StandInHost &h) { h.canUndo(); }, "canUndo()", Question},
    {[](StandInHost &h) { h.canRedo(); }, "canRedo()", Question},
    {[](StandInHost &h) { h.beginUndoMacro(QStringLiteral("text")); }, "beginUndoMacro(\"text\")",
     Command},
    {[](StandInHost &h) { h.endUndoMacro(); }, "endUndoMacro()", Command},
    {[](StandInHost &h) { h.undo(); }, "undo()", Command},
    {[](StandInHost &h) { h.redo(); }, "redo()", Command},
};

const DocumentCall DOC_MainPartCalls[] = {
    {[](DOC_Interface &d) { d.usesScaleDivider(false); }, "[1].usesScaleDivider(false)", Question},
    {[](DOC_Interface &d) { d.notifyChange(3, true); }, "[1].notifyChange(3, true)", Command},
    {[](DOC_Interface &d) { d.partitionNumbers(); }, "[1].partitionNumbers()", Question},
    {[](DOC_Interface &d) { d.originalFilePath(); }, "[1].originalFilePath()", Question},
    {[](DOC_Interface &d) { d.originalFileName(); }, "[1].originalFileName()", Question},
    {[](DOC_Interface &d) { d.partitionName(3); }, "[1].partitionName(3)", Question},
    {[](DOC_Interface &d) { d.deviceName(); }, "[1].deviceName()", Question},
    {[](DOC_Interface &d) { d.isCameraRecord(); }, "[1].isCameraRecord()", Question},
    {[](DOC_Interface &d) {
         bool out = false;
         d.fileNameAddition(3, 4, 5, out, QDateTime(QDate(2024, 2, 3), QTime(4, 5, 6)));
     },
     "[1].fileNameAddition(3, 4, 5, \"2024-02-03T04:05:06\")", Question},
    {[](DOC_Interface &d) { d.documentKind(); }, "[1].documentKind()", Question},
    {[](DOC_Interface &d) { d.isOnSdCard(); }, "[1].isOnSdCard()", Question},
    {[](DOC_Interface &d) { d.isOnKelvault(); }, "[1].isOnKelvault()", Question},
    {[](DOC_Interface &d) { d.isOnCFast(); }, "[1].isOnCFast()", Question},
    {[](DOC_Interface &d) { d.isBusySaving(); }, "[1].isBusySaving()", Question},
    {[](DOC_Interface &d) { d.setSaveInfoOption(false); }, "[1].setSaveInfoOption(false)", Command},
    {[](DOC_Interface &d) { d.setSaveCorrectOption(false); }, "[1].setSaveCorrectOption(false)",
     Command},
    {[](DOC_Interface &d) { d.setSaveScaleOption(false); }, "[1].setSaveScaleOption(false)",
     Command},
    {[](DOC_Interface &d) { d.documentInfoMap(false, true, false, true, false); },
     "[1].documentInfoMap(false, true, false, true, false)", Question},
    {[](DOC_Interface &d) { d.currentPartition(); }, "[1].currentPartition()", Question},
    {[](DOC_Interface &d) { d.supportsMultiSkip(); }, "[1].supportsMultiSkip()", Question},
    {[](DOC_Interface &d) { d.supportsFileMultiSkip(); }, "[1].supportsFileMultiSkip()", Question},
    {[](DOC_Interface &d) { d.isRecordedOnce(); }, "[1].isRecordedOnce()", Question},
    {[](DOC_Interface &d) { d.setOpenedByImport(false); }, "[1].setOpenedByImport(false)", Command},
    {[](DOC_Interface &d) { d.canRenameData(); }, "[1].canRenameData()", Question},
    {[](DOC_Interface &d) { d.canCheckSaved(); }, "[1].canCheckSaved()", Question},
    {[](DOC_Interface &d) { d.canDeleteFile(); }, "[1].canDeleteFile()", Question},
    {[](DOC_Interface &d) { d.deleteOwnFile(); }, "[1].deleteOwnFile()", Command},
    {[](DOC_Interface &d) { d.setDataName(QStringLiteral("name")); }, "[1].setDataName(\"name\")",
     Command},
    {[](DOC_Interface &d) { d.documentName(); }, "[1].documentName()", Question},
    {[](DOC_Interface &d) { d.customInfoList(); }, "[1].customInfoList()", Question},
    {[](DOC_Interface &d) { d.clearCustomInfo(); }, "[1].clearCustomInfo()", Command},
    {[](DOC_Interface &d) {
         d.addCustomInfo(QStringLiteral("name"), QStringLiteral("value"), QStringLiteral("unit"),
                         true, false);
     },
     "[1].addCustomInfo(\"name\", \"value\", \"unit\", true, false)", Command},
    {[](DOC_Interface &d) {
         d.setCustomInfo(QStringLiteral("name"), QStringLiteral("value"), QStringLiteral("unit"),
                         true, false);
     },
     "[1].setCustomInfo(\"name\", \"value\", \"unit\", true, false)", Command},
    {[](DOC_Interface &d) { d.removeCustomInfo(QStringLiteral("name")); },
     "[1].removeCustomInfo(\"name\")", Command},
    {[](DOC_Interface &d) {
         d.renameCustomInfo(QStringLiteral("oldName"), QStringLiteral("newName"));
     },
     "[1].renameCustomInfo(\"oldName\", \"newName\")", Command},
    {[](DOC_Interface &d) { d.documentComment(); }, "[1].documentComment()", Question},
    {[](DOC_Interface &d) { d.setDocumentComment(QStringLiteral("text")); },
     "[1].setDocumentComment(\"text\")", Command},
    {[](DOC_Interface &d) { d.isPlaying(); }, "[1].isPlaying()", Question},
    {[](DOC_Interface &d) { d.partitionFrameCount(3); }, "[1].partitionFrameCount(3)", Question},
    {[](DOC_Interface &d) { d.fileRecordRate(); }, "[1].fileRecordRate()", Question},
    {[](DOC_Interface &d) { d.partitionRecordRate(3); }, "[1].partitionRecordRate(3)", Question},
    {[](DOC_Interface &d) { d.fallbackName(); }, "[1].fallbackName()", Question},
    {[](DOC_Interface &d) { d.isSelected(); }, "[1].isSelected()", Question},
    {[](DOC_Interface &d) { d.displayName(); }, "[1].displayName()", Question},
    {[](DOC_Interface &d) { d.isMultiTrimming(); }, "[1].isMultiTrimming()", Question},
    {[](DOC_Interface &d) { d.multiTrimmingLabel(); }, "[1].multiTrimmingLabel()", Question},
    {[](DOC_Interface &d) { d.showPreviousPreview(); }, "[1].showPreviousPreview()", Command},
    {[](DOC_Interface &d) { d.showNextPreview(); }, "[1].showNextPreview()", Command},
    {[](DOC_Interface &d) { d.selectPartition(3); }, "[1].selectPartition(3)", Command},
    {[](DOC_Interface &d) { d.isSelectable(); }, "[1].isSelectable()", Question},
    {[](DOC_Interface &d) { d.setSelected(false); }, "[1].setSelected(false)", Command},
    {[](DOC_Interface &d) { d.isSelectedMulti(); }, "[1].isSelectedMulti()", Question},
    {[](DOC_Interface &d) { d.isGroup(); }, "[1].isGroup()", Question},
    {[](DOC_Interface &d) { d.groupMembers(); }, "[1].groupMembers()", Question},
    {[](DOC_Interface &d) { d.recordDate(); }, "[1].recordDate()", Question},
    {[](DOC_Interface &d) { d.recordTime(); }, "[1].recordTime()", Question},
};

const DocumentCall DOC_ViewPartCalls[] = {
    {[](DOC_Interface &d) { d.imageSize(); }, "[1].imageSize()", Question},
    {[](DOC_Interface &d) { d.reportCursorPosition(QPoint(3, -4)); },
     "[1].reportCursorPosition((3,-4))", Command},
    {[](DOC_Interface &d) { d.mapPoint(QPoint(3, -4), true); }, "[1].mapPoint((3,-4), true)",
     Question},
    {[](DOC_Interface &d) { d.mapRect(QRect(1, 2, 30, 40)); }, "[1].mapRect((1,2 30x40))",
     Question},
    {[](DOC_Interface &d) { d.isTransposed(); }, "[1].isTransposed()", Question},
    {[](DOC_Interface &d) { d.cursorPosition(); }, "[1].cursorPosition()", Question},
    {[](DOC_Interface &d) {
         ImageFormat out;
         d.imageFormat(out);
     },
     "[1].imageFormat()", Question},
};

const DocumentCall DOC_CameraPartCalls[] = {
    {[](DOC_Interface &d) {
         int out1 = 0;
         int out2 = 0;
         d.fullImageSize(&out1, &out2);
     },
     "[1].fullImageSize()", Question},
    {[](DOC_Interface &d) { d.hasScaleDivider(false); }, "[1].hasScaleDivider(false)", Question},
    {[](DOC_Interface &d) { d.scaleDivider(); }, "[1].scaleDivider()", Question},
    {[](DOC_Interface &d) { d.applyPreset(3); }, "[1].applyPreset(3)", Command},
    {[](DOC_Interface &d) { d.cameraNumber(); }, "[1].cameraNumber()", Question},
    {[](DOC_Interface &d) { d.headNumber(); }, "[1].headNumber()", Question},
    {[](DOC_Interface &d) { d.cameraCount(); }, "[1].cameraCount()", Question},
    {[](DOC_Interface &d) { d.headInterface(); }, "[1].headInterface()", Question},
    {[](DOC_Interface &d) { d.isMediaManaged(); }, "[1].isMediaManaged()", Question},
    {[](DOC_Interface &d) { d.isSlotUsable(3); }, "[1].isSlotUsable(3)", Question},
    {[](DOC_Interface &d) { d.isSlotEnabled(3); }, "[1].isSlotEnabled(3)", Question},
    {[](DOC_Interface &d) { d.slotStatus(3); }, "[1].slotStatus(3)", Question},
    {[](DOC_Interface &d) { d.isFitMemoryMode(); }, "[1].isFitMemoryMode()", Question},
    {[](DOC_Interface &d) { d.maxDataCount(3); }, "[1].maxDataCount(3)", Question},
    {[](DOC_Interface &d) { d.dataFrames(3, 4); }, "[1].dataFrames(3, 4)", Question},
    {[](DOC_Interface &d) { d.dataName(3, 4); }, "[1].dataName(3, 4)", Question},
    {[](DOC_Interface &d) { d.dataTime(3, 4); }, "[1].dataTime(3, 4)", Question},
    {[](DOC_Interface &d) { d.formatSlot(3); }, "[1].formatSlot(3)", Command},
    {[](DOC_Interface &d) { d.refreshSlot(3); }, "[1].refreshSlot(3)", Command},
    {[](DOC_Interface &d) { d.slotOfHead(3); }, "[1].slotOfHead(3)", Question},
    {[](DOC_Interface &d) { d.slotCapacity(3); }, "[1].slotCapacity(3)", Question},
    {[](DOC_Interface &d) { d.setDataNameOnSlot(3, 4, QByteArray("Lauf")); },
     "[1].setDataNameOnSlot(3, 4, \"Lauf\")", Command},
    {[](DOC_Interface &d) { d.cameraName(); }, "[1].cameraName()", Question},
    {[](DOC_Interface &d) { d.isMobile(); }, "[1].isMobile()", Question},
    {[](DOC_Interface &d) { d.isDummy(); }, "[1].isDummy()", Question},
    {[](DOC_Interface &d) { d.hasCapability(3); }, "[1].hasCapability(3)", Question},
    {[](DOC_Interface &d) { d.isLocked(); }, "[1].isLocked()", Question},
    {[](DOC_Interface &d) { d.sdCardInfo(3); }, "[1].sdCardInfo(3)", Question},
    {[](DOC_Interface &d) { d.sharesDevice(); }, "[1].sharesDevice()", Question},
    {[](DOC_Interface &d) { d.editDeviceData(); }, "[1].editDeviceData()", Question},
    {[](DOC_Interface &d) { d.setCameraName(QStringLiteral("name")); },
     "[1].setCameraName(\"name\")", Command},
    {[](DOC_Interface &d) {
         d.setNetworkSetting(
             3, NetworkSetting{QStringLiteral("10.0.0.2"), QStringLiteral("255.0.0.0"), QString()});
     },
     "[1].setNetworkSetting(3, {ipAddress: \"10.0.0.2\", subnetMask: \"255.0.0.0\", "
     "defaultGateway: \"\"})",
     Command},
    {[](DOC_Interface &d) { d.setEtherType(3); }, "[1].setEtherType(3)", Command},
    {[](DOC_Interface &d) { d.presets(); }, "[1].presets()", Question},
    {[](DOC_Interface &d) { d.presetNeedsReboot(3); }, "[1].presetNeedsReboot(3)", Question},
    {[](DOC_Interface &d) { d.refreshCamera(); }, "[1].refreshCamera()", Command},
};

const DocumentCall DOC_DisplayPartCalls[] = {
    {[](DOC_Interface &d) { d.isToolAvailable(QStringLiteral("tool"), true); },
     "[1].isToolAvailable(\"tool\", true)", Question},
    {[](DOC_Interface &d) { d.isToolOn(QStringLiteral("tool")); }, "[1].isToolOn(\"tool\")",
     Question},
    {[](DOC_Interface &d) { d.viewRotation(); }, "[1].viewRotation()", Question},
    {[](DOC_Interface &d) { d.isFlippedHorizontally(); }, "[1].isFlippedHorizontally()", Question},
    {[](DOC_Interface &d) { d.isFlippedVertically(); }, "[1].isFlippedVertically()", Question},
    {[](DOC_Interface &d) { d.viewScale(false); }, "[1].viewScale(false)", Question},
    {[](DOC_Interface &d) { d.binningLevel(); }, "[1].binningLevel()", Question},
    {[](DOC_Interface &d) {
         d.previewPixmap(3, 4, 5, 6, false, QDateTime(QDate(2024, 2, 3), QTime(4, 5, 6)));
     },
     "[1].previewPixmap(3, 4, 5, 6, false, \"2024-02-03T04:05:06\")", Question},
    {[](DOC_Interface &d) { d.documentResolution(3, 4, false); },
     "[1].documentResolution(3, 4, false)", Question},
    {[](DOC_Interface &d) {
         d.documentThumbnail(3, 4, 5, 6, 7, QDateTime(QDate(2024, 2, 3), QTime(4, 5, 6)));
     },
     "[1].documentThumbnail(3, 4, 5, 6, 7, \"2024-02-03T04:05:06\")", Question},
    {[](DOC_Interface &d) { d.documentLogoPath(); }, "[1].documentLogoPath()", Question},
    {[](DOC_Interface &d) { d.applyLogoPath(QStringLiteral("path")); },
     "[1].applyLogoPath(\"path\")", Command},
    {[](DOC_Interface &d) { d.markInfoOverlayDirty(); }, "[1].markInfoOverlayDirty()", Command},
    {[](DOC_Interface &d) { d.showsLutCurve(); }, "[1].showsLutCurve()", Question},
    {[](DOC_Interface &d) { d.isReductionSuspended(); }, "[1].isReductionSuspended()", Question},
};

const DocumentCall DOC_RefreshPartCalls[] = {
    {[](DOC_Interface &d) { d.refresh(false); }, "[1].refresh(false)", Command},
};

const DocumentCall DOC_LinkPartCalls[] = {
    {[](DOC_Interface &d) { d.isConnected(); }, "[1].isConnected()", Question},
    {[](DOC_Interface &d) { d.ipAddress(); }, "[1].ipAddress()", Question},
    {[](DOC_Interface &d) { d.isFound(); }, "[1].isFound()", Question},
    {[](DOC_Interface &d) { d.wirelessState(); }, "[1].wirelessState()", Question},
    {[](DOC_Interface &d) { d.linkSpeedState(); }, "[1].linkSpeedState()", Question},
};

// Names of the operations in the list of a table.
QStringList namesOfTable(const QString &table)
{
    QFile file(QStringLiteral(CONTRACT_TABLES "/") + table + QStringLiteral(".order"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression name(QStringLiteral("(\\w+)\\("));
    QStringList names;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch match = name.match(line);
        if (match.hasMatch())
            names.append(match.captured(1));
    }
    return names;
}

QString nameInLine(const char *line)
{
    const QString text = QString::fromUtf8(line);
    const QString call = text.left(text.indexOf(QLatin1Char('(')));
    return call.mid(call.lastIndexOf(QLatin1Char('.')) + 1);
}

}

class TestStandInOperations : public TestBase
{
    Q_OBJECT

private slots:
    void hostOperationsLeaveTheirLine();
    void documentOperationsLeaveTheirLine();
    void recordingsAndGroupsLeaveTheSameLines();
    void everyOperationCanFail();

private:
    template <size_t Size> void checkHost(const char *table, const HostCall (&calls)[Size]);
    template <size_t Size> void checkDocument(const char *table, const DocumentCall (&calls)[Size]);
    template <size_t Size> void failHost(const HostCall (&calls)[Size]);
    template <size_t Size> void failDocument(const DocumentCall (&calls)[Size]);
};

template <size_t Size>
void TestStandInOperations::checkHost(const char *table, const HostCall (&calls)[Size])
{
    QStringList called;
    for (const HostCall &call : calls) {
        called.append(nameInLine(call.line));
        StandInHost host;
        host.addCamera();
        host.clearJournal();
        LogCapture log; // most of them ask for what is not there
        call.call(host);
        const QStringList line{QString::fromUtf8(call.line)};
        QCOMPARE(host.journal(), line);
        QCOMPARE(host.commands(), call.kind == Command ? line : QStringList());
    }
    const QStringList names = namesOfTable(QString::fromUtf8(table));
    QVERIFY2(!names.isEmpty(), table);
    QCOMPARE(called, names);
}

void TestStandInOperations::hostOperationsLeaveTheirLine()
{
    const QTemporaryDir folder; // for those that write
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    const auto back = qScopeGuard([&] { QDir::setCurrent(before); });
    checkHost("HostMain", HostMainCalls);
    checkHost("HostPlugins", HostPluginsCalls);
    checkHost("HostDocuments", HostDocumentsCalls);
    checkHost("HostLiveControl", HostLiveControlCalls);
    checkHost("HostRecord", HostRecordCalls);
    checkHost("HostPlayback", HostPlaybackCalls);
    checkHost("HostCameraLink", HostCameraLinkCalls);
    checkHost("HostFileExport", HostFileExportCalls);
    checkHost("HostViewState", HostViewStateCalls);
    checkHost("HostWindows", HostWindowsCalls);
    checkHost("HostUndoStack", HostUndoStackCalls);
}

template <size_t Size>
void TestStandInOperations::checkDocument(const char *table, const DocumentCall (&calls)[Size])
{
    QStringList called;
    for (const DocumentCall &call : calls) {
        called.append(nameInLine(call.line));
        StandInHost host;
        StandInCamera *camera = host.addCamera();
        host.clearJournal();
        call.call(*camera);
        const QStringList line{QString::fromUtf8(call.line)};
        QCOMPARE(host.journal(), line);
        QCOMPARE(host.commands(), call.kind == Command ? line : QStringList());
    }
    const QStringList names = namesOfTable(QString::fromUtf8(table));
    QVERIFY2(!names.isEmpty(), table);
    QCOMPARE(called, names);
}

void TestStandInOperations::documentOperationsLeaveTheirLine()
{
    checkDocument("DOC_MainPart", DOC_MainPartCalls);
    checkDocument("DOC_ViewPart", DOC_ViewPartCalls);
    checkDocument("DOC_CameraPart", DOC_CameraPartCalls);
    checkDocument("DOC_DisplayPart", DOC_DisplayPartCalls);
    checkDocument("DOC_RefreshPart", DOC_RefreshPartCalls);
    checkDocument("DOC_LinkPart", DOC_LinkPartCalls);

    StandInHost host;
    DOC_HeadInterface *heads = host.addCamera()->headInterface();
    host.clearJournal();
    QCOMPARE(heads->headCount(), 1);
    QCOMPARE(host.journal(), QStringList({"[1].headCount()"}));
    host.prefsDialog()->showPage("network");
    host.prefsDialog()->exec();
    QCOMPARE(host.commands(),
             QStringList({"prefsDialog.showPage(\"network\")", "prefsDialog.exec()"}));
}

void TestStandInOperations::recordingsAndGroupsLeaveTheSameLines()
{
    QTemporaryDir folder;
    QImage image(8, 6, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(folder.filePath("1.png")));

    StandInHost host;
    const QList<DOC_Interface *> documents{host.openRecording(folder.path()),
                                           host.addGroup("both", {})};
    for (int i = 0; i < documents.size(); ++i) {
        for (const DocumentCall &call : DOC_MainPartCalls) {
            host.clearJournal();
            call.call(*documents.at(i));
            QString line = QString::fromUtf8(call.line);
            QCOMPARE(host.journal(),
                     QStringList({line.replace(0, 3, QStringLiteral("[%1]").arg(i + 1))}));
        }
    }
}

template <size_t Size> void TestStandInOperations::failHost(const HostCall (&calls)[Size])
{
    for (const HostCall &call : calls) {
        StandInHost host;
        host.addCamera();
        const QString name = nameInLine(call.line);
        host.failOn(name);
        host.clearJournal();
        try {
            call.call(host);
            QFAIL(call.line);
        } catch (const std::runtime_error &fault) {
            QCOMPARE(QString::fromUtf8(fault.what()), QString(name + " failed"));
        }
        QCOMPARE(host.journal(), QStringList({QString::fromUtf8(call.line)}));
    }
}

template <size_t Size> void TestStandInOperations::failDocument(const DocumentCall (&calls)[Size])
{
    for (const DocumentCall &call : calls) {
        StandInHost host;
        StandInCamera *camera = host.addCamera();
        const QString name = nameInLine(call.line);
        host.failOn(name);
        try {
            call.call(*camera);
            QFAIL(call.line);
        } catch (const std::runtime_error &fault) {
            QCOMPARE(QString::fromUtf8(fault.what()), QString(name + " failed"));
        }
    }
}

void TestStandInOperations::everyOperationCanFail()
{
    failHost(HostMainCalls);
    failHost(HostPluginsCalls);
    failHost(HostDocumentsCalls);
    failHost(HostLiveControlCalls);
    failHost(HostRecordCalls);
    failHost(HostPlaybackCalls);
    failHost(HostCameraLinkCalls);
    failHost(HostFileExportCalls);
    failHost(HostViewStateCalls);
    failHost(HostWindowsCalls);
    failHost(HostUndoStackCalls);
    failDocument(DOC_MainPartCalls);
    failDocument(DOC_ViewPartCalls);
    failDocument(DOC_CameraPartCalls);
    failDocument(DOC_DisplayPartCalls);
    failDocument(DOC_RefreshPartCalls);
    failDocument(DOC_LinkPartCalls);
}

int main(int argc, char **argv)
{
    TestStandInOperations test;
    return runTest(argc, argv, test);
}

#include "test_standin_operations.moc"
