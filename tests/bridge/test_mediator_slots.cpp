#include "tests/bridge/support/DialogPage.h"
#include "tests/support/TestLog.h"

#include <QMetaMethod>
#include <QWebFrame>

#include <functional>
#include <stdexcept>

#include <malloc.h>

// What a page can call, called by a page: host calls, result and log of every slot.

using Setup = std::function<void(StandInHost &)>;
Q_DECLARE_METATYPE(Setup)

class TestMediatorSlots : public TestBase
{
    Q_OBJECT

private slots:
    void slotDoesWhatItsRowSays_data();
    void slotDoesWhatItsRowSays();
    void hostIsCalledInsideTheTrace_data();
    void hostIsCalledInsideTheTrace();
    void failureComesBeforeTheRefresh_data();
    void failureComesBeforeTheRefresh();
    void failureGivesTheNeutralValue_data();
    void failureGivesTheNeutralValue();
    void linesHaveTheirLevel_data();
    void linesHaveTheirLevel();
    void nativeFailureReachesTheHostAsItIs();
    void slotsStandInTheOrderOfTheTable();
    void signalsStandInTheOrderOfTheTable();
    void everyRowIsCalled();
    void skipValueOfTheBaseStaysOne();
    void translationTakesTheTranslatedArgument();
    void flipTells_data();
    void flipTells();
    void flipKeepsWhatItKnewWhenTheHostFails();
    void rotationTells_data();
    void rotationTells();
    void rotationIsCutOff_data();
    void rotationIsCutOff();
    void rangeMaxTells_data();
    void rangeMaxTells();
    void rangeMaxIsKeptForSubclasses();
    void styleOfAnOpenMobileDialogFollows();
    void styleWithoutMobileDialogIsOnlyStored();
    void prefsNameIsGivenOnRequest();
    void prefsNameIsGivenOncePerLoad();
    void updateFlagsGoToTheRefresh();
    void loadReadsAResource();
    void mediatorMayGoInACall_data();
    void mediatorMayGoInACall();
};

namespace {

// A slot of the host's table, or of a page, as the meta-object spells it.
QStringList tableOfSlots()
{
    return {
        "getSkipMode()",
        "setSkipFrames(double)",
        "getSkipFrames()",
        "getSkipMinFrames()",
        "getSkipMaxFrames()",
        "setStyle(QString)",
        "getStyle()",
        "openPlugin(QString)",
        "closePlugin()",
        "closePlugin(QString)",
        "errorHandler(std::exception&)",
        "info(QString)",
        "warn(QString)",
        "warn(QString,QStringList)",
        "alert(QString)",
        "alert(QString,QStringList)",
        "confirm(QString)",
        "translate(QString)",
        "translate(QString,QString)",
        "isReady()",
        "isLiveMode()",
        "isMemoryMode()",
        "isFileMode()",
        "isPlaying()",
        "isConnected()",
        "load(QString)",
        "updateUI()",
        "deterUpdateUI(bool)",
        "addPrefsJSObject()",
        "getPrefInt(QString,QVariant)",
        "getPrefInt(QString)",
        "getPrefBool(QString,QVariant)",
        "getPrefBool(QString)",
        "getPrefFloat(QString,QVariant)",
        "getPrefFloat(QString)",
        "getPrefString(QString,QVariant)",
        "getPrefString(QString)",
        "setPrefInt(QString,int,bool)",
        "setPrefInt(QString,int)",
        "setPrefBool(QString,bool,bool)",
        "setPrefBool(QString,bool)",
        "setPrefFloat(QString,double,bool)",
        "setPrefFloat(QString,double)",
        "setPrefString(QString,QString,bool)",
        "setPrefString(QString,QString)",
        "setPrefDQString(QString,QString,bool)",
        "setPrefDQString(QString,QString)",
        "openPrefsDialog(QString)",
        "openPrefsDialog()",
        "openPrefsEthernetSettings()",
        "openExportSupportFileDialog()",
        "openAbouOrvixDialog()",
        "log(QString)",
        "infoLog(QString)",
        "debugLog(QString)",
        "errorLog(QString)",
        "getControlStatus(DOC_Interface*)",
        "getControlStatus()",
        "getDeviceInfoList(bool)",
        "getSelectedDockey()",
        "setSelectDoc(QString)",
        "selectAllDocs()",
        "copySelectAreaToClipboard()",
        "isWaveDataAcquisition()",
        "getCalibrationUnits()",
        "getRangeMax()",
        "isUpdateIgnore()",
        "setDisableAllQuickTool()",
        "userOperationLogWebView(QString,QString,QString,QString,QString,QVariant)",
        "userOperationErrorLog(QString)",
        "setConnectedCameraShowing(bool)",
        "getConnectedCameraShowing()",
        "countMdiWindow(bool)",
        "countMdiWindow()",
        "isTrelvikRunning()",
        "checkRestoredPrefs()",
        "hideSelectBox()",
        "isShownDropBox()",
        "showDropDownBox(QString,int,int,int,int)",
        "hideDropDownBox(QString)",
        "hideDropDownBox(QString,int,int)",
        "isMVersion()",
        "getFlip()",
        "getRotate()",
    };
}

QStringList ownMethods(const QMetaObject &meta, QMetaMethod::MethodType type)
{
    QStringList result;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == type)
            result.append(QString::fromLatin1(meta.method(i).methodSignature()));
    }
    return result;
}

QStringList trace(const QString &name, const QString &arguments = QString())
{
    return {QStringLiteral("[ENTER] \"%1\" \"%2\"").arg(name, arguments),
            QStringLiteral("[LEAVE] \"%1\"").arg(name)};
}

// Writes the host's calls into the log, so that a test sees their order among the lines.
void logCalls(StandInHost &host)
{
    QObject::connect(host.events(), &StandInEvents::callJournalled, host.events(),
                     [](const QString &line) { qInfo("host: %s", qPrintable(line)); });
}

const QString Undefined = QStringLiteral("undefined");
const Setup NoSetup = [](StandInHost &) {};
const Setup Camera = [](StandInHost &host) { host.addCamera(); };

struct Row
{
    const char *name;
    QString script;
    QString result; ///< as JSON text
    QStringList calls;
    QStringList lines;
    Setup setup;
};

// The host of these tests has no such tool, and says so.
QStringList openTrace(const char *tool)
{
    QStringList lines = trace("JS_Mediator::openPlugin");
    lines.insert(1, QStringLiteral("unknown tool: ") + QLatin1String(tool));
    return lines;
}

QVector<Row> rows()
{
    QVector<Row> table;
    const auto row = [&](const char *name, const QString &script, const QString &result,
                         const QStringList &calls, const QStringList &lines = QStringList(),
                         const Setup &setup = NoSetup) {
        table.append({name, script, result, calls, lines, setup});
    };

    row("getSkipMode", "bridge.getSkipMode()", "0", {});
    row("setSkipFrames", "bridge.setSkipFrames(5)", Undefined, {});
    row("getSkipFrames", "bridge.getSkipFrames()", "1", {});
    row("getSkipMinFrames", "bridge.getSkipMinFrames()", "1", {});
    row("getSkipMaxFrames", "bridge.getSkipMaxFrames()", "1", {});
    row("setStyle", "bridge.setStyle('dark')", Undefined,
        {"setPref(\"env/style\", \"dark\")", "mainWidget()", "updateUI(63, true)"},
        trace("JS_Mediator::setStyle"));
    row("getStyle", "bridge.getStyle()", "\"DARK\"", {"getPrefString(\"env/style\", \"light\")"},
        {}, [](StandInHost &host) { host.settings().setValue("env/style", "DARK"); });
    row("openPlugin", "bridge.openPlugin('lut')", Undefined,
        {"openPluginByName(\"lut\")", "updateUI(63, true)"}, trace("JS_Mediator::openPlugin"));
    row("openPlugin, binning with the view paused", "bridge.openPlugin('binning')", Undefined,
        {"documentsMutex()", "isLiveMode()", "pauseLive(false)", "openPluginByName(\"binning\")",
         "isLivePaused()", "liveDocKeys(true)", "deviceByKey(1, true)", "[1].refresh(true)",
         "resumeLive()", "updateUI(63, true)"},
        openTrace("binning"), Camera);
    row("openPlugin, the name is taken as it is", "bridge.openPlugin('Binning')", Undefined,
        {"openPluginByName(\"Binning\")", "updateUI(63, true)"}, openTrace("Binning"));
    row("closePlugin", "bridge.closePlugin()", Undefined,
        {"closeCurrentPlugin()", "updateUI(63, true)"}, trace("JS_Mediator::closePlugin"));
    row("closePlugin by name", "bridge.closePlugin('lut')", Undefined,
        {"deterUpdateUI(true)", "closePluginByName(\"lut\")", "deterUpdateUI(false)",
         "updateUI(63, true)"},
        trace("JS_Mediator::closePlugin"));
    row("info", "bridge.info('done')", Undefined, {"info(\"done\", null)"});
    row("warn", "bridge.warn('look')", Undefined, {"warn(\"look\", null)"});
    row("warn with a list", "bridge.warn('look', ['a', 'b'])", Undefined,
        {"warn(\"look\", [\"a\", \"b\"], null)"});
    row("alert", "bridge.alert('stop')", Undefined, {"alert(\"stop\", null)"});
    row("alert with a list", "bridge.alert('stop', ['a', 'b'])", Undefined,
        {"alert(\"stop\", [\"a\", \"b\"], null)"});
    row("confirm, no", "bridge.confirm('sure?')", "false", {"confirm(\"sure?\", null, {})"});
    row("confirm, yes", "bridge.confirm('sure?')", "true", {"confirm(\"sure?\", null, {})"}, {},
        [](StandInHost &host) { host.answerConfirm(true); });
    row("translate", "bridge.translate('inch')", "\"Zoll\"", {"translate(\"inch\")"}, {},
        [](StandInHost &host) { host.state().translations.insert("inch", "Zoll"); });
    row("translate with an argument", "bridge.translate('a %1', 'b')", "\"a b\"",
        {"translate(\"a %1\")", "translate(\"b\")"});
    row("isReady", "bridge.isReady()", "true", {"isReady()"});
    row("isReady, not", "bridge.isReady()", "false", {"isReady()"}, {},
        [](StandInHost &host) { host.state().isReady = false; });
    row("isLiveMode", "bridge.isLiveMode()", "true", {"isLiveMode()"});
    row("isLiveMode, not", "bridge.isLiveMode()", "false", {"isLiveMode()"}, {},
        [](StandInHost &host) { host.setMode(StandInHost::Mode::File); });
    row("isMemoryMode", "bridge.isMemoryMode()", "true", {"isMemoryMode()"}, {},
        [](StandInHost &host) { host.setMode(StandInHost::Mode::Memory); });
    row("isMemoryMode, not", "bridge.isMemoryMode()", "false", {"isMemoryMode()"});
    row("isFileMode", "bridge.isFileMode()", "true", {"isFileMode()"}, {},
        [](StandInHost &host) { host.setMode(StandInHost::Mode::File); });
    row("isFileMode, not", "bridge.isFileMode()", "false", {"isFileMode()"});
    row("isPlaying without a document", "bridge.isPlaying()", "false", {"currentDocument()"});
    row("isPlaying", "bridge.isPlaying()", "true", {"currentDocument()", "[1].isPlaying()"}, {},
        [](StandInHost &host) { host.addCamera()->state().isPlaying = true; });
    row("isPlaying, not", "bridge.isPlaying()", "false", {"currentDocument()", "[1].isPlaying()"},
        {}, Camera);
    row("isConnected without a document", "bridge.isConnected()", "false", {"currentDocument()"});
    row("isConnected", "bridge.isConnected()", "true", {"currentDocument()", "[1].isConnected()"},
        {}, Camera);
    row("isConnected, not", "bridge.isConnected()", "false",
        {"currentDocument()", "[1].isConnected()"}, {},
        [](StandInHost &host) { host.addCamera()->state().isConnected = false; });
    row("load of a missing resource", "bridge.load('absent.html')", "\"\"", {},
        {"not found \":/absent.html\""});
    row("load of nothing", "bridge.load('')", "\"\"", {}, {"not found \":/\""});
    row("updateUI", "bridge.updateUI()", Undefined, {"updateUI(63, true)"});
    row("deterUpdateUI", "bridge.deterUpdateUI(true); bridge.deterUpdateUI(false)", Undefined,
        {"deterUpdateUI(true)", "deterUpdateUI(false)"});
    row("addPrefsJSObject", "bridge.addPrefsJSObject(); prefs.getSkipMode()", "0", {});
    row("getPrefInt", "bridge.getPrefInt('a/b')", "7", {"getPrefInt(\"a/b\", invalid)"}, {},
        [](StandInHost &host) { host.settings().setValue("a/b", 7); });
    row("getPrefInt with a default", "bridge.getPrefInt('a/b', 12)", "12",
        {"getPrefInt(\"a/b\", 12)"});
    row("getPrefBool", "bridge.getPrefBool('a/b')", "true", {"getPrefBool(\"a/b\", invalid)"}, {},
        [](StandInHost &host) { host.settings().setValue("a/b", true); });
    row("getPrefBool with a default", "bridge.getPrefBool('a/b', true)", "true",
        {"getPrefBool(\"a/b\", true)"});
    row("getPrefFloat", "bridge.getPrefFloat('a/b')", "2.5", {"getPrefFloat(\"a/b\", invalid)"}, {},
        [](StandInHost &host) { host.settings().setValue("a/b", 2.5); });
    row("getPrefFloat with a default", "bridge.getPrefFloat('a/b', 0.5)", "0.5",
        {"getPrefFloat(\"a/b\", 0.5)"});
    row("getPrefString", "bridge.getPrefString('a/b')", "\"text\"",
        {"getPrefString(\"a/b\", invalid)"}, {},
        [](StandInHost &host) { host.settings().setValue("a/b", "text"); });
    row("getPrefString with a default", "bridge.getPrefString('a/b', 'none')", "\"none\"",
        {"getPrefString(\"a/b\", \"none\")"});
    row("setPrefInt", "bridge.setPrefInt('a/b', 5)", Undefined,
        {"setPrefInt(\"a/b\", 5)", "updateUI(63, true)"}, trace("JS_Mediator::setPrefInt"));
    row("setPrefInt with a refresh", "bridge.setPrefInt('a/b', 5, true)", Undefined,
        {"setPrefInt(\"a/b\", 5)", "updateUI(63, true)"}, trace("JS_Mediator::setPrefInt"));
    row("setPrefInt in silence", "bridge.setPrefInt('a/b', 5, false)", Undefined,
        {"setPrefInt(\"a/b\", 5)"});
    row("setPrefBool", "bridge.setPrefBool('a/b', true)", Undefined,
        {"setPrefBool(\"a/b\", true)", "updateUI(63, true)"}, trace("JS_Mediator::setPrefBool"));
    row("setPrefBool in silence", "bridge.setPrefBool('a/b', true, false)", Undefined,
        {"setPrefBool(\"a/b\", true)"});
    row("setPrefFloat", "bridge.setPrefFloat('a/b', 0.25)", Undefined,
        {"setPrefFloat(\"a/b\", 0.25)", "updateUI(63, true)"}, trace("JS_Mediator::setPrefFloat"));
    row("setPrefFloat in silence", "bridge.setPrefFloat('a/b', 0.25, false)", Undefined,
        {"setPrefFloat(\"a/b\", 0.25)"});
    row("setPrefString", "bridge.setPrefString('a/b', 'x')", Undefined,
        {"setPrefString(\"a/b\", \"x\")", "updateUI(63, true)"},
        trace("JS_Mediator::setPrefString"));
    row("setPrefString in silence", "bridge.setPrefString('a/b', 'x', false)", Undefined,
        {"setPrefString(\"a/b\", \"x\")"});
    row("setPrefDQString, the generic store", "bridge.setPrefDQString('a/b', 'x')", Undefined,
        {"setPref(\"a/b\", \"x\")", "updateUI(63, true)"}, trace("JS_Mediator::setPrefDQString"));
    row("setPrefDQString in silence", "bridge.setPrefDQString('a/b', 'x', false)", Undefined,
        {"setPref(\"a/b\", \"x\")"});
    row("openPrefsDialog in live mode", "bridge.openPrefsDialog('display')", "1",
        {"isLiveMode()", "prepareLiveForPrefs()", "prefsDialog()", "translate(\"display\")",
         "prefsDialog.showPage(\"Anzeige\")", "prefsDialog.exec()"},
        trace("JS_Mediator::openPrefsDialog", "[page:display]"), [](StandInHost &host) {
            host.state().translations.insert("display", "Anzeige");
            host.state().prefsDialogResult = 1;
        });
    row("openPrefsDialog in file mode, first page", "bridge.openPrefsDialog()", "0",
        {"isLiveMode()", "prefsDialog()", "translate(\"\")", "prefsDialog.showPage(\"\")",
         "prefsDialog.exec()"},
        trace("JS_Mediator::openPrefsDialog", "[page:]"),
        [](StandInHost &host) { host.setMode(StandInHost::Mode::File); });
    row("openPrefsEthernetSettings", "bridge.openPrefsEthernetSettings()", Undefined,
        {"openEthernetSettings()"}, trace("JS_Mediator::openPrefsEthernetSettings"));
    row("openExportSupportFileDialog, not wanted", "bridge.openExportSupportFileDialog()",
        Undefined,
        {"documentKeys(true, false)",
         "translate(\"The information below will be output in ZIP file format. Do you want to "
         "proceed?\")",
         "translate(\"- Camera setting values\")", "translate(\"- Orvix setting values\")",
         "translate(\"- Orvix operation log\")", "translate(\"- SDK operation log\")",
         "translate(\"- PC environment\")", "translate(\"- Orvix version\")",
         "translate(\"- Orvix full screen capture\")", "isTrelvikWindowShown()",
         "translate(\"- Currently displayed image data (1 frame)\")", "mainWidget()",
         "confirm(\"The information below will be output in ZIP file format. Do you want to "
         "proceed?<br><br>- Camera setting values<br>- Orvix setting values<br>- Orvix operation "
         "log<br>- SDK operation log<br>- PC environment<br>- Orvix version<br>- Orvix full screen "
         "capture<br>- Currently displayed image data (1 frame)\", null, {})"},
        trace("JS_Mediator::openExportSupportFileDialog"));
    row("openAbouOrvixDialog", "bridge.openAbouOrvixDialog()", Undefined, {"openAboutDialog()"},
        trace("JS_Mediator::openAbouOrvixDialog"));
    row("log", "bridge.log('dropped')", Undefined, {});
    row("infoLog", "bridge.infoLog('page \"a\"')", Undefined, {}, {"\"page \\\"a\\\"\""});
    row("debugLog", "bridge.debugLog('dropped')", Undefined, {});
    row("errorLog", "bridge.errorLog('broken')", Undefined, {}, {"\"broken\""});
    row("getSelectedDockey", "bridge.getSelectedDockey()", "[\"2\",\"1\"]",
        {"selectedDocKeys(false)"}, {}, [](StandInHost &host) {
            host.addCamera();
            host.addCamera();
            host.select(1, false);
            host.select(2, true);
            host.select(1, true);
        });
    row("setSelectDoc", "bridge.setSelectDoc('2')", Undefined,
        {"deterUpdateUI(true)", "selectDocs([2], false)", "deterUpdateUI(false)",
         "updateUI(63, true)"},
        trace("JS_Mediator::setSelectDocSub"), [](StandInHost &host) {
            host.addCamera();
            host.addCamera();
        });
    row("setSelectDoc, no number", "bridge.setSelectDoc('abc')", Undefined,
        {"deterUpdateUI(true)", "selectDocs([], false)", "deterUpdateUI(false)",
         "updateUI(63, true)"},
        trace("JS_Mediator::setSelectDocSub"), Camera);
    row("selectAllDocs", "bridge.selectAllDocs()", Undefined,
        {"prepareSelectAll()", "currentDocKey()", "deterUpdateUI(true)",
         "selectAllDocs(JS_Mediator_Dialog)", "deterUpdateUI(false)", "updateUI(63, true)",
         "setCurrentDoc(1, true)"},
        trace("JS_Mediator::selectAllDocsSub"), Camera);
    row("selectAllDocs without a current document", "bridge.selectAllDocs()", Undefined,
        {"prepareSelectAll()", "currentDocKey()", "deterUpdateUI(true)",
         "selectAllDocs(JS_Mediator_Dialog)", "deterUpdateUI(false)", "updateUI(63, true)"},
        trace("JS_Mediator::selectAllDocsSub"));
    row("copySelectAreaToClipboard", "bridge.copySelectAreaToClipboard()", Undefined,
        {"copySelectArea(2)"}, trace("JS_Mediator::copySelectAreaToClipboard"));
    row("isWaveDataAcquisition", "bridge.isWaveDataAcquisition()", "true",
        {"isWaveDataAcquisition()"}, {},
        [](StandInHost &host) { host.state().isWaveDataAcquisition = true; });
    row("isWaveDataAcquisition, not", "bridge.isWaveDataAcquisition()", "false",
        {"isWaveDataAcquisition()"});
    row("getRangeMax without a document", "bridge.getRangeMax()", "255", {"currentDocument()"}, {},
        [](StandInHost &host) {
            host.settings().setValue("display/DisplayWithRealBitDepth", true);
        });
    row("isUpdateIgnore", "bridge.isUpdateIgnore()", "true", {"isUpdateIgnore()"}, {},
        [](StandInHost &host) { host.state().isUpdateIgnore = true; });
    row("isUpdateIgnore, not", "bridge.isUpdateIgnore()", "false", {"isUpdateIgnore()"});
    row("setDisableAllQuickTool", "bridge.setDisableAllQuickTool()", Undefined,
        {"setQuickTool(\"\")", "refreshDocumentInfo(true)", "setAllQuickToolsDisabledRefresh()"},
        trace("JS_Mediator::setDisableAllQuickTool"));
    row("userOperationLogWebView",
        "bridge.userOperationLogWebView('page', 'clicked', 'Button', 'ok', 'c', 3)", Undefined, {},
        {"[USER] \"[URL:page] [ID:ok] [Control:Button] [Operation:clicked] [Value:3] \""});
    row("userOperationLogWebView by class",
        "bridge.userOperationLogWebView('page', 'clicked', 'Button', '', 'c', 3)", Undefined, {},
        {"[USER] \"[URL:page] [Class:c] [Control:Button] [Operation:clicked] [Value:3] \""});
    row("userOperationLogWebView with neither",
        "bridge.userOperationLogWebView('page', 'clicked', 'Button', '', '', {})", Undefined, {},
        {"[USER] \"[URL:page] [ID:] [Control:Button] [Operation:clicked] [Value:] \""});
    row("userOperationErrorLog", "bridge.userOperationErrorLog('no disk')", Undefined, {},
        {"[USER][ERROR] \"no disk\""});
    row("setConnectedCameraShowing", "bridge.setConnectedCameraShowing(true)", Undefined,
        {"setPref(\"devicemanager/connectedCameraOnlyShowing\", true)"});
    row("getConnectedCameraShowing", "bridge.getConnectedCameraShowing()", "false",
        {"getPref(\"devicemanager/connectedCameraOnlyShowing\", false)"});
    row("getConnectedCameraShowing, on", "bridge.getConnectedCameraShowing()", "true",
        {"getPref(\"devicemanager/connectedCameraOnlyShowing\", false)"}, {},
        [](StandInHost &host) {
            host.settings().setValue("devicemanager/connectedCameraOnlyShowing", true);
        });
    row("countMdiWindow", "bridge.countMdiWindow()", "3", {"countMdiWindow(true, 2)"}, {},
        [](StandInHost &host) { host.state().visibleWindowCount = 3; });
    row("countMdiWindow, all", "bridge.countMdiWindow(false)", "5", {"countMdiWindow(false, 2)"},
        {}, [](StandInHost &host) { host.state().windowCount = 5; });
    row("isTrelvikRunning", "bridge.isTrelvikRunning()", "true", {"isTrelvikRunning()"}, {},
        [](StandInHost &host) { host.state().isTrelvikRunning = true; });
    row("isTrelvikRunning, not", "bridge.isTrelvikRunning()", "false", {"isTrelvikRunning()"}, {},
        [](StandInHost &host) { host.state().isTrelvikRunning = false; });
    row("checkRestoredPrefs, none", "bridge.checkRestoredPrefs()", Undefined,
        {"hasRestoredPrefs()"});
    row("checkRestoredPrefs", "bridge.checkRestoredPrefs()", Undefined,
        {"hasRestoredPrefs()", "acknowledgeRestoredPrefs(true)"}, {},
        [](StandInHost &host) { host.state().hasRestoredPrefs = true; });
    row("hideSelectBox", "bridge.hideSelectBox()", Undefined, {"hideSelectBox()"});
    row("isShownDropBox", "bridge.isShownDropBox()", "true", {"isShownDropBox()"}, {},
        [](StandInHost &host) { host.state().isShownDropBox = true; });
    row("isShownDropBox, not", "bridge.isShownDropBox()", "false", {"isShownDropBox()"});
    // Left 10, top 20, right 39, bottom 59.
    row("showDropDownBox", "bridge.showDropDownBox('k', 10, 20, 30, 40)", Undefined,
        {"showDropDownBox(\"k\", (10,20 30x40))"});
    row("hideDropDownBox", "bridge.hideDropDownBox('k')", Undefined, {"hideDropDownBox(\"k\")"});
    row("hideDropDownBox at a point", "bridge.hideDropDownBox('k', 3, 4)", Undefined,
        {"hideDropDownBox(\"k\", (3,4))"});
    row("isMVersion", "bridge.isMVersion()", "true", {"isMVersion()"}, {},
        [](StandInHost &host) { host.state().isMVersion = true; });
    row("isMVersion, not", "bridge.isMVersion()", "false", {"isMVersion()"});
    row("getFlip", "bridge.getFlip()", "\"0\"",
        {"currentDocKey()", "flipHorizontal(1)", "flipVertical(1)"}, {}, Camera);
    row("getRotate", "bridge.getRotate()", "\"90\"", {"currentDocKey()", "rotation(1)"}, {},
        [](StandInHost &host) { host.addCamera()->setQuarterTurns(1); });
    row("getCalibrationUnits", "JSON.parse(bridge.getCalibrationUnits()).length", "3",
        {"getPrefInt(\"customize/unitSystem\", invalid)", "translate(\"inch\")",
         "translate(\"feet\")", "translate(\"yard\")"},
        {}, [](StandInHost &host) { host.settings().setValue("customize/unitSystem", 0); });
    row("getDeviceInfoList without devices", "bridge.getDeviceInfoList(true)", "[]",
        {"deviceKeys(true)"});
    row("getControlStatus", "Object.keys(JSON.parse(bridge.getControlStatus())).length", "60",
        {"countMdiWindow(true, 0)",
         "documentCount()",
         "selectedDocumentCount()",
         "currentDocument()",
         "currentPlugin()",
         "recordingState()",
         "currentPluginName()",
         "isRecording()",
         "isBackgroundSaving()",
         "isBackgroundConverting()",
         "isDirectSaving(true)",
         "isLiveMode()",
         "isMemoryMode()",
         "isFileMode()",
         "canUndo()",
         "canRedo()",
         "isLowlightOn()",
         "hasLowlightDevice()",
         "areAllLowlight(true)",
         "areAllLowlight(false)",
         "isAutoExposureSettingOpen()",
         "isHwTriggerSettingOpen()",
         "isVariableSettingOpen()",
         "isTracking()",
         "isLensCalibrationRunning()",
         "hasWaveformData()",
         "getPrefBool(\"recording/AutoDownload\", invalid)",
         "getPrefBool(\"recording/useTriggerTest\", invalid)",
         "hasPartitionConflict(true)",
         "isSendingNodeCommand()",
         "isAdjustingImage()",
         "isDetectingPixelDefect()",
         "isCycleView()",
         "isViewCycling()",
         "isImageTriggerCapturing()",
         "isImageTriggerDetecting()",
         "isAutoFocusing()",
         "isNotLivePage(false)",
         "isNotLivePage(true)",
         "isPrefsDialogOpen()",
         "isModalDialogOpen()",
         "isPhaseAdjusting()",
         "isFullScreen()",
         "textBoxFocusState()",
         "isShading()",
         "isTrelvikRunning()",
         "isActiveOnTrelvik()",
         "isOtherPluginOpen()",
         "isCurrentOtherThanAutoFocus(true)",
         "isAutoExporting()"});
    return table;
}

}

void TestMediatorSlots::slotDoesWhatItsRowSays_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<Setup>("setup");
    for (const Row &row : rows())
        QTest::newRow(row.name) << row.script << row.result << row.calls << row.lines << row.setup;
}

void TestMediatorSlots::slotDoesWhatItsRowSays()
{
    QFETCH(QString, script);
    QFETCH(QString, result);
    QFETCH(QStringList, calls);
    QFETCH(QStringList, lines);
    QFETCH(Setup, setup);

    DialogPage shown;
    QVERIFY(shown.loaded);
    setup(shown.host);
    shown.host.clearJournal();
    LogCapture log;
    QCOMPARE(shown.page.call(script), result);
    QCOMPARE(shown.host.journal(), calls);
    QCOMPARE(log.texts(), lines);
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

void TestMediatorSlots::hostIsCalledInsideTheTrace_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<Setup>("setup");
    for (const Row &row : rows()) {
        // Selecting all documents has steps before and behind its trace.
        const bool traced = row.lines.value(0).startsWith(QLatin1String("[ENTER]"));
        if (traced && !row.script.contains(QLatin1String("selectAllDocs")))
            QTest::newRow(row.name) << row.script << row.setup;
    }
}

void TestMediatorSlots::hostIsCalledInsideTheTrace()
{
    QFETCH(QString, script);
    QFETCH(Setup, setup);
    DialogPage shown;
    setup(shown.host);
    logCalls(shown.host);
    LogCapture log;
    shown.page.call(script);
    QVERIFY(log.texts().size() > 2);
    QVERIFY(log.texts().first().startsWith("[ENTER]"));
    QVERIFY(log.texts().last().startsWith("[LEAVE]"));
}

void TestMediatorSlots::failureComesBeforeTheRefresh_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("operation");
    const auto row = [](const char *script, const char *operation) {
        QTest::newRow(script) << QString::fromLatin1(script) << QString::fromLatin1(operation);
    };
    row("setStyle('dark')", "setPref");
    row("openPlugin('lut')", "openPluginByName");
    row("openPlugin('binning')", "openPluginByName");
    row("closePlugin()", "closeCurrentPlugin");
    row("closePlugin('lut')", "closePluginByName");
    row("setPrefInt('a/b', 1)", "setPrefInt");
    row("setPrefBool('a/b', true)", "setPrefBool");
    row("setPrefFloat('a/b', 0.5)", "setPrefFloat");
    row("setPrefString('a/b', 'c')", "setPrefString");
    row("setPrefDQString('a/b', 'c')", "setPref");
    row("setSelectDoc('1')", "selectDocs");
}

void TestMediatorSlots::failureComesBeforeTheRefresh()
{
    QFETCH(QString, script);
    QFETCH(QString, operation);
    DialogPage shown;
    shown.host.addCamera();
    shown.host.failOn(operation);
    logCalls(shown.host);
    LogCapture log;
    QCOMPARE(shown.page.call("bridge." + script), Undefined);
    const QStringList lines = log.texts();
    QVERIFY(lines.first().startsWith("[ENTER]"));
    QVERIFY(lines.last().startsWith("[LEAVE]"));
    QCOMPARE(lines.mid(lines.size() - 3, 2),
             QStringList(
                 {"host: errorHandler(\"" + operation + " failed\")", "host: updateUI(63, true)"}));
}

void TestMediatorSlots::failureGivesTheNeutralValue_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("before"); ///< what it gives while nothing fails
    QTest::addColumn<QString>("result");
    const auto row = [](const char *script, const char *operation, const char *before,
                        const char *result) {
        QTest::newRow(script) << QString::fromLatin1(script) << QString::fromLatin1(operation)
                              << QString::fromLatin1(before) << QString::fromLatin1(result);
    };
    row("getStyle()", "getPrefString", "\"dark\"", "\"\"");
    row("confirm('sure?')", "confirm", "true", "false");
    row("translate('inch')", "translate", "\"inch\"", "\"\"");
    row("translate('a %1', 'b')", "translate", "\"a b\"", "\"\"");
    row("isReady()", "isReady", "true", "false");
    row("isLiveMode()", "isLiveMode", "true", "false");
    row("isMemoryMode()", "isMemoryMode", "false", "false");
    row("isFileMode()", "isFileMode", "false", "false");
    row("isPlaying()", "isPlaying", "true", "false");
    row("isConnected()", "currentDocument", "true", "false");
    row("getPrefInt('a/b', 12)", "getPrefInt", "12", "0");
    row("getPrefBool('a/b', true)", "getPrefBool", "true", "false");
    row("getPrefFloat('a/b', 0.5)", "getPrefFloat", "0.5", "0");
    row("getPrefString('a/b', 'none')", "getPrefString", "\"none\"", "\"\"");
    row("openPrefsDialog('display')", "exec", "1", "0");
    row("openPrefsDialog('memory')", "prepareLiveForPrefs", "1", "0");
    row("getSelectedDockey()", "selectedDocKeys", "[\"1\"]", "[]");
    row("isWaveDataAcquisition()", "isWaveDataAcquisition", "true", "false");
    row("getRangeMax()", "currentDocument", "255", "0");
    row("isUpdateIgnore()", "isUpdateIgnore", "true", "false");
    row("getConnectedCameraShowing()", "getPref", "true", "false");
    row("countMdiWindow()", "countMdiWindow", "3", "0");
    row("isTrelvikRunning()", "isTrelvikRunning", "true", "false");
    row("isShownDropBox()", "isShownDropBox", "true", "false");
    row("isMVersion()", "isMVersion", "true", "false");
    row("getCalibrationUnits().length > 2", "getPrefInt", "true", "false");
    row("getRotate()", "rotation", "\"90\"", "\"0\"");
}

void TestMediatorSlots::failureGivesTheNeutralValue()
{
    QFETCH(QString, script);
    QFETCH(QString, operation);
    QFETCH(QString, before);
    DialogPage shown;
    StandInState &state = shown.host.state();
    state.isWaveDataAcquisition = state.isUpdateIgnore = true;
    state.isShownDropBox = state.isMVersion = true;
    state.isTrelvikRunning = true;
    state.visibleWindowCount = 3;
    state.prefsDialogResult = 1;
    shown.host.answerConfirm(true);
    shown.host.settings().setValue("env/style", "dark");
    shown.host.settings().setValue("devicemanager/connectedCameraOnlyShowing", true);
    StandInCamera *camera = shown.host.addCamera();
    camera->state().isPlaying = true;
    camera->setQuarterTurns(1);
    QCOMPARE(shown.page.call("bridge." + script), before);
    shown.host.failOn(operation);
    QTEST(shown.page.call("bridge." + script), "result");
    QCOMPARE(shown.host.handledErrors(), QStringList({operation + " failed"}));
}

void TestMediatorSlots::linesHaveTheirLevel_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<int>("level");
    QTest::newRow("info") << "bridge.infoLog('a')" << int(QtInfoMsg);
    QTest::newRow("error") << "bridge.errorLog('a')" << int(QtCriticalMsg);
    QTest::newRow("missing resource") << "bridge.load('absent.html')" << int(QtWarningMsg);
    QTest::newRow("user") << "bridge.userOperationLogWebView('a', 'b', 'c', 'd', 'e', 1)"
                          << int(QtInfoMsg);
    QTest::newRow("user's error") << "bridge.userOperationErrorLog('a')" << int(QtCriticalMsg);
}

void TestMediatorSlots::linesHaveTheirLevel()
{
    QFETCH(QString, script);
    QFETCH(int, level);
    DialogPage shown;
    LogCapture log;
    shown.page.call(script);
    QCOMPARE(log.lines().size(), 1);
    QCOMPARE(int(log.lines().first().type), level);
}

namespace {

class KeepingHost : public StandInHost
{
public:
    void errorHandler(std::exception &failure) override
    {
        kept = &failure;
        StandInHost::errorHandler(failure);
    }

    std::exception *kept = nullptr;
};

}

void TestMediatorSlots::nativeFailureReachesTheHostAsItIs()
{
    KeepingHost host;
    JS_Mediator mediator(&host, QStringLiteral("page"));
    std::runtime_error failure("no disk");
    mediator.errorHandler(failure);
    QCOMPARE(host.kept, static_cast<std::exception *>(&failure));
    QCOMPARE(host.handledErrors(), QStringList({"no disk"}));
}

void TestMediatorSlots::slotsStandInTheOrderOfTheTable()
{
    QCOMPARE(ownMethods(JS_Mediator::staticMetaObject, QMetaMethod::Slot), tableOfSlots());
}

void TestMediatorSlots::signalsStandInTheOrderOfTheTable()
{
    QCOMPARE(ownMethods(JS_Mediator::staticMetaObject, QMetaMethod::Signal),
             QStringList({"open()", "update()", "close()", "enterQtWidget()"}));
}

// A slot that no row calls would be a slot without a test.
void TestMediatorSlots::everyRowIsCalled()
{
    QStringList uncalled;
    QString scripts;
    for (const Row &row : rows())
        scripts += row.script + QLatin1Char('\n');
    for (const QString &signature : tableOfSlots()) {
        const QString name = signature.section(QLatin1Char('('), 0, 0);
        if (!scripts.contains(QLatin1String("bridge.") + name + QLatin1Char('(')))
            uncalled.append(name);
    }
    QCOMPARE(uncalled, QStringList({"errorHandler"})); // for native code alone
}

void TestMediatorSlots::skipValueOfTheBaseStaysOne()
{
    StandInHost host;
    JS_Mediator mediator(&host, QStringLiteral("page"));
    mediator.setSkipMode(1);
    mediator.applySkipFrames(8.0);
    mediator.setSkipFrames(8.0);
    QCOMPARE(mediator.getSkipFrames(), 1.0);
    QCOMPARE(mediator.getSkipMode(), 0);
}

void TestMediatorSlots::translationTakesTheTranslatedArgument()
{
    DialogPage shown;
    shown.host.state().translations.insert("in %1", "in %1 gemessen");
    shown.host.state().translations.insert("feet", "Fuß %1");
    QCOMPARE(shown.page.call("bridge.translate('in %1', 'feet')"),
             QStringLiteral("\"in Fuß %1 gemessen\""));
    QCOMPARE(shown.page.call("bridge.translate('feet only', 'feet')"),
             QStringLiteral("\"feet only\""));
}

void TestMediatorSlots::flipTells_data()
{
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<QString>("text");
    QTest::newRow("neither") << false << false << "0";
    QTest::newRow("horizontal only") << true << false << "1";
    QTest::newRow("vertical only") << false << true << "2";
    QTest::newRow("both") << true << true << "3";
}

void TestMediatorSlots::flipTells()
{
    QFETCH(bool, horizontal);
    QFETCH(bool, vertical);
    StandInHost host;
    host.addCamera()->setFlips(horizontal, vertical);
    JS_Mediator mediator(&host, QStringLiteral("page"));
    QTEST(mediator.getFlip(), "text");
}

void TestMediatorSlots::flipKeepsWhatItKnewWhenTheHostFails()
{
    StandInHost host;
    host.addCamera()->setFlips(true, true);
    JS_Mediator mediator(&host, QStringLiteral("page"));
    host.failOn(QStringLiteral("flipVertical"));
    QCOMPARE(mediator.getFlip(), QStringLiteral("1"));
    host.failOn(QStringLiteral("flipHorizontal"));
    QCOMPARE(mediator.getFlip(), QStringLiteral("0"));
    host.failOn(QStringLiteral("rotation"));
    QCOMPARE(mediator.getRotate(), QStringLiteral("0"));
    QCOMPARE(host.handledErrors(),
             QStringList({"flipVertical failed", "flipHorizontal failed", "rotation failed"}));
}

void TestMediatorSlots::rotationTells_data()
{
    QTest::addColumn<int>("quarterTurns");
    QTest::addColumn<QString>("text");
    QTest::newRow("upright") << 0 << "0";
    QTest::newRow("quarter turn") << 1 << "90";
    QTest::newRow("half turn") << 2 << "180";
    QTest::newRow("three quarters") << 3 << "270";
}

void TestMediatorSlots::rotationTells()
{
    QFETCH(int, quarterTurns);
    StandInHost host;
    host.addCamera()->setQuarterTurns(quarterTurns);
    JS_Mediator mediator(&host, QStringLiteral("page"));
    QTEST(mediator.getRotate(), "text");
}

namespace {

class TurningHost : public StandInHost
{
public:
    float rotation(DOCKEY) override { return turn; }

    float turn = 0;
};

}

void TestMediatorSlots::rotationIsCutOff_data()
{
    QTest::addColumn<float>("turn");
    QTest::addColumn<QString>("text");
    QTest::newRow("44.64 degrees") << 0.124f << "44";
    QTest::newRow("just below a turn") << 0.999f << "359";
    QTest::newRow("45.36 degrees the other way") << -0.126f << "-45";
    QTest::newRow("part of a degree") << -0.002f << "0";
    QTest::newRow("more than a number holds") << 1e9f << "0";
}

void TestMediatorSlots::rotationIsCutOff()
{
    QFETCH(float, turn);
    TurningHost host;
    host.turn = turn;
    JS_Mediator mediator(&host, QStringLiteral("page"));
    QTEST(mediator.getRotate(), "text");
}

void TestMediatorSlots::rangeMaxTells_data()
{
    QTest::addColumn<bool>("realBitDepth");
    QTest::addColumn<bool>("hasFormat");
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("realBits");
    QTest::addColumn<int>("rangeMax");
    QTest::newRow("eight bits are shown") << false << true << 16 << 12 << 255;
    QTest::newRow("real bit depth") << true << true << 16 << 12 << 4095;
    QTest::newRow("first count just above eight") << true << true << 9 << 10 << 1023;
    QTest::newRow("first count of eight holds") << true << true << 8 << 12 << 255;
    QTest::newRow("first count below eight holds") << true << true << 6 << 12 << 63;
    QTest::newRow("no record") << true << false << 16 << 12 << 255;
    QTest::newRow("sixteen bits") << true << true << 16 << 16 << 65535;
    QTest::newRow("no bits") << true << true << 0 << 12 << 0;
    QTest::newRow("fewer than none") << true << true << -3 << 12 << 0;
}

void TestMediatorSlots::rangeMaxTells()
{
    QFETCH(bool, realBitDepth);
    QFETCH(bool, hasFormat);
    QFETCH(int, bits);
    QFETCH(int, realBits);
    QFETCH(int, rangeMax);
    DialogPage shown;
    DocumentState &state = shown.host.addCamera()->state();
    state.hasImageFormat = hasFormat;
    state.imageFormat = {bits, realBits};
    shown.host.settings().setValue("display/DisplayWithRealBitDepth", realBitDepth);
    QCOMPARE(shown.page.call("bridge.getRangeMax()"), QString::number(rangeMax));
}

void TestMediatorSlots::styleOfAnOpenMobileDialogFollows()
{
    DialogPage shown;
    QWidget main;
    auto *between = new QWidget(&main);
    auto *mobile = new QDialog(between);
    mobile->setObjectName(QStringLiteral("GUI_MobileDialog"));
    auto *other = new QDialog(&main);
    other->setObjectName(QStringLiteral("GUI_OtherDialog"));
    shown.host.state().mainWidget = &main;

    QCOMPARE(shown.page.call("bridge.setStyle('dark')"), QStringLiteral("undefined"));
    QCOMPARE(mobile->styleSheet(), QStringLiteral("QWidget { color: #eee; }\n"));
    QCOMPARE(other->styleSheet(), QString());
    QCOMPARE(shown.host.journal(),
             QStringList({"setPref(\"env/style\", \"dark\")", "mainWidget()",
                          "getPref(\"env/style\", \"light\")", "updateUI(63, true)"}));
    shown.page.call("bridge.setStyle('light')");
    QCOMPARE(mobile->styleSheet(), QStringLiteral("QWidget { color: #111; }\n"));
}

void TestMediatorSlots::styleWithoutMobileDialogIsOnlyStored()
{
    DialogPage shown;
    QWidget main;
    auto *widget = new QWidget(&main); // by that name, but no dialog
    widget->setObjectName(QStringLiteral("GUI_MobileDialog"));
    shown.host.state().mainWidget = &main;
    shown.page.call("bridge.setStyle('dark')");
    QCOMPARE(widget->styleSheet(), QString());
    QCOMPARE(shown.host.settings().value("env/style", QVariant()).toString(),
             QStringLiteral("dark"));
}

namespace {

class RangeMediator : public JS_Mediator
{
public:
    using JS_Mediator::JS_Mediator;
    using JS_Mediator::rangeMax;
};

}

void TestMediatorSlots::rangeMaxIsKeptForSubclasses()
{
    StandInHost host;
    RangeMediator mediator(&host, QStringLiteral("range"));
    QCOMPARE(mediator.getRangeMax(), 255);
    QCOMPARE(mediator.rangeMax(), 255u);
}

void TestMediatorSlots::prefsNameIsGivenOnRequest()
{
    DialogPage shown;
    QCOMPARE(shown.page.call("typeof prefs"), QStringLiteral("\"undefined\""));
    shown.page.call("bridge.addPrefsJSObject()");
    QCOMPARE(shown.page.call("prefs.getPrefInt('a/b', 4)"), QStringLiteral("4"));
    shown.page.call("bridge.addPrefsJSObject()");
    shown.dialog.webView()->reload();
    QVERIFY(shown.page.waitLoaded());
    QTRY_COMPARE(shown.page.call("typeof prefs"), QStringLiteral("\"object\""));
    QCOMPARE(shown.page.call("prefs.getPrefInt('a/b', 4)"), QStringLiteral("4"));

    JS_Mediator unattached(&shown.host, QStringLiteral("page"));
    unattached.addPrefsJSObject(); // no view: nothing to show itself in
    QCOMPARE(unattached.webView(), static_cast<GUI_WebView *>(nullptr));
}

// However often pages ask: each load of the frame would pay for all of them.
void TestMediatorSlots::prefsNameIsGivenOncePerLoad()
{
    struct Open : QObject
    {
        using QObject::receivers;
    };
    DialogPage shown;
    QWebFrame *frame = shown.dialog.webView()->page()->mainFrame();
    const auto listeners = [frame] {
        return (frame->*&Open::receivers)(SIGNAL(javaScriptWindowObjectCleared()));
    };
    const int before = listeners();
    shown.page.call("bridge.addPrefsJSObject()");
    QCOMPARE(listeners(), before + 1);
    shown.page.call("bridge.addPrefsJSObject()");
    shown.dialog.webView()->reload();
    QVERIFY(shown.page.waitLoaded());
    shown.page.call("bridge.addPrefsJSObject()");
    QCOMPARE(listeners(), before + 1);
}

void TestMediatorSlots::updateFlagsGoToTheRefresh()
{
    DialogPage shown;
    QCOMPARE(shown.mediator->updateFlags(), 63);
    shown.mediator->setUpdateFlags(4);
    shown.page.call("bridge.setPrefInt('a/b', 5)");
    shown.page.call("bridge.updateUI()");
    QCOMPARE(shown.host.commands(),
             QStringList({"setPrefInt(\"a/b\", 5)", "updateUI(4, true)", "updateUI(4, true)"}));
    shown.host.clearJournal();

    // Everything is refreshed by a change of the selection, and the flags come back.
    shown.page.call("bridge.setSelectDoc('1')");
    QVERIFY(shown.host.commands().contains("updateUI(63, true)"));
    QCOMPARE(shown.mediator->updateFlags(), 4);
    shown.host.clearJournal();
    shown.page.call("bridge.selectAllDocs()");
    QVERIFY(shown.host.commands().contains("updateUI(63, true)"));
    QCOMPARE(shown.mediator->updateFlags(), 4);
}

void TestMediatorSlots::loadReadsAResource()
{
    DialogPage shown;
    QCOMPARE(shown.page.call("bridge.load('pages/umlaut.txt')"), QStringLiteral("\"Prüfung\\n\""));
}

void TestMediatorSlots::mediatorMayGoInACall_data()
{
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QString>("call");
    QTest::addColumn<QStringList>("commands");
    const QString selectAll = QStringLiteral("selectAllDocs");
    QTest::newRow("before the selection")
        << selectAll << "prepareSelectAll()" << QStringList({"prepareSelectAll()"});
    QTest::newRow("at the key") << selectAll << "currentDocKey()"
                                << QStringList({"prepareSelectAll()"});
    QTest::newRow("holding back") << selectAll << "deterUpdateUI(true)"
                                  << QStringList({"prepareSelectAll()", "deterUpdateUI(true)",
                                                  "deterUpdateUI(false)",
                                                  "setCurrentDoc(1, true)"});
    QTest::newRow("in the selection")
        << selectAll << "selectAllDocs(JS_Mediator)"
        << QStringList({"prepareSelectAll()", "deterUpdateUI(true)", "selectAllDocs(JS_Mediator)",
                        "deterUpdateUI(false)", "setCurrentDoc(1, true)"});
    QTest::newRow("going on") << selectAll << "deterUpdateUI(false)"
                              << QStringList({"prepareSelectAll()", "deterUpdateUI(true)",
                                              "selectAllDocs(JS_Mediator)", "deterUpdateUI(false)",
                                              "setCurrentDoc(1, true)"});
    QTest::newRow("in the refresh")
        << selectAll << "updateUI(63, true)"
        << QStringList({"prepareSelectAll()", "deterUpdateUI(true)", "selectAllDocs(JS_Mediator)",
                        "deterUpdateUI(false)", "updateUI(63, true)", "setCurrentDoc(1, true)"});
    QTest::newRow("style") << "setStyle"
                           << "setPref(\"env/style\", \"2\")"
                           << QStringList({"setPref(\"env/style\", \"2\")"});
    QTest::newRow("selection of one")
        << "setSelectDoc"
        << "deterUpdateUI(true)"
        << QStringList({"deterUpdateUI(true)", "selectDocs([2], false)", "deterUpdateUI(false)"});
    QTest::newRow("tool") << "closePlugin"
                          << "deterUpdateUI(true)"
                          << QStringList({"deterUpdateUI(true)", "closePluginByName(\"2\")",
                                          "deterUpdateUI(false)"});
}

// What the host still has to be told is told; nobody is left to be refreshed for.
void TestMediatorSlots::mediatorMayGoInACall()
{
    QFETCH(QString, slot);
    QFETCH(QString, call);
    StandInHost host;
    host.addCamera();
    auto *mediator = new JS_Mediator(&host, QStringLiteral("page"));
    QPointer<JS_Mediator> alive(mediator);
    host.clearJournal();
    connect(host.events(), &StandInEvents::callJournalled, this, [&](const QString &line) {
        if (line == call)
            delete alive;
    });
    if (slot == QLatin1String("selectAllDocs"))
        mediator->selectAllDocs();
    else
        QVERIFY(QMetaObject::invokeMethod(mediator, qPrintable(slot),
                                          Q_ARG(QString, QStringLiteral("2"))));
    QVERIFY(!alive);
    QTEST(host.commands(), "commands");
    QCOMPARE(host.handledErrors(), QStringList());
}

int main(int argc, char **argv)
{
    mallopt(M_PERTURB, 0xa5); // what has gone reads as nonsense
    TestMediatorSlots test;
    return runTest(argc, argv, test);
}

#include "test_mediator_slots.moc"
