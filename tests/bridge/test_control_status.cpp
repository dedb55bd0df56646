#include "bridge/data/ControlStatus.h"
#include "plugin/PLG_Common.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/TestLog.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QUndoCommand>

#include <functional>

// The flags from which pages enable and disable their controls, as a page reads them.

using Setup = std::function<void(StandInHost &)>;
Q_DECLARE_METATYPE(Setup)

class TestControlStatus : public TestBase
{
    Q_OBJECT

private slots:
    void flagFollowsTheHost_data();
    void flagFollowsTheHost();
    void everyFlagHasBothValues();
    void textIsCompactJsonWithBooleansAlone();
    void lockCountsInLiveModeOfTheMultiCameraWindow();
    void withoutDocumentsNothingOfADocumentHolds();
    void mouseDragIsTheCurrentTools();
    void currentToolIsNamed_data();
    void currentToolIsNamed();
    void documentStandsInForTheCurrentOne();
    void eachGetterIsAskedOnce();
    void lockIsAskedWhereItCounts();
    void failureGivesAnEmptyText();
};

namespace {

struct Row
{
    QString flag;
    QString when;
    bool value;
    Setup setup;
};

// Each flag in the order of the table, with what makes it true and what makes it false.
QVector<Row> rows()
{
    using Mode = StandInHost::Mode;
    QVector<Row> table;
    const auto row = [&](const char *flag, const char *when, bool value, const Setup &setup) {
        table.append({QString::fromLatin1(flag), QString::fromLatin1(when), value, setup});
    };
    const auto windows = [](int count) {
        return [count](StandInHost &host) { host.state().visibleWindowCount = count; };
    };
    const auto recording = [](int state) {
        return [state](StandInHost &host) { host.state().recordingState = state; };
    };
    const auto mode = [](Mode wanted) { return [wanted](StandInHost &h) { h.setMode(wanted); }; };
    const auto cameras = [](int count) {
        return [count](StandInHost &host) {
            for (int i = 0; i < count; ++i)
                host.select(host.addCamera()->key(), true);
        };
    };
    // A flag of the host that goes out as it is.
    const auto plain = [&](const char *flag, const std::function<void(StandInHost &, bool)> &set) {
        row(flag, "on", true, [set](StandInHost &host) { set(host, true); });
        row(flag, "off", false, [set](StandInHost &host) { set(host, false); });
    };
    // The same, but only in live mode.
    const auto live = [&](const char *flag, const std::function<void(StandInHost &, bool)> &set) {
        plain(flag, set);
        row(flag, "on, but not in live mode", false, [set](StandInHost &host) {
            set(host, true);
            host.setMode(Mode::Memory);
        });
    };
    // A flag of the current document.
    const auto document = [&](const char *flag, const std::function<void(DocumentState &)> &on,
                              const std::function<void(DocumentState &)> &off) {
        row(flag, "document has it", true, [on](StandInHost &h) { on(h.addCamera()->state()); });
        row(flag, "document has it not", false,
            [off](StandInHost &h) { off(h.addCamera()->state()); });
        row(flag, "no document", false, [](StandInHost &) {});
    };

    row("IsNoneWindow", "none", true, windows(0));
    row("IsNoneWindow", "one", false, windows(1));
    row("IsSingleWindow", "none", false, windows(0));
    row("IsSingleWindow", "one", true, windows(1));
    row("IsSingleWindow", "two", false, windows(2));
    row("IsMultiWindow", "one", false, windows(1));
    row("IsMultiWindow", "two", true, windows(2));
    plain("IsRecording", [](StandInHost &h, bool on) { h.state().isRecording = on; });
    plain("IsBgSaving", [](StandInHost &h, bool on) { h.state().isBackgroundSaving = on; });
    plain("IsBgConverting", [](StandInHost &h, bool on) { h.state().isBackgroundConverting = on; });
    plain("IsDirectSaving", [](StandInHost &h, bool on) { h.state().isDirectSaving = on; });
    row("IsNoneDocument", "none", true, cameras(0));
    row("IsNoneDocument", "one", false, cameras(1));
    row("IsSingleSelectedDocument", "none", false, cameras(0));
    row("IsSingleSelectedDocument", "one", true, cameras(1));
    row("IsSingleSelectedDocument", "two", false, cameras(2));
    row("IsSingleSelectedDocument", "one of two", true, [](StandInHost &host) {
        host.addCamera();
        host.addCamera();
    });
    row("IsCTSReady", "waiting", true, recording(1));
    row("IsCTSReady", "ready", false, recording(2));
    row("IsReady", "ready", true, recording(2));
    row("IsReady", "waiting", false, recording(1));
    row("IsLiveMode", "live", true, mode(Mode::Live));
    row("IsLiveMode", "memory", false, mode(Mode::Memory));
    row("IsMemoryMode", "memory", true, mode(Mode::Memory));
    row("IsMemoryMode", "file", false, mode(Mode::File));
    row("IsFileMode", "file", true, mode(Mode::File));
    row("IsFileMode", "live", false, mode(Mode::Live));
    row("IsNotRecording", "none", true, recording(0));
    row("IsNotRecording", "error", false, recording(4));
    row("IsRecordingError", "error", true, recording(4));
    row("IsRecordingError", "none", false, recording(0));
    row("IsNotUndo", "nothing", true, cameras(0));
    row("IsNotUndo", "a step", false,
        [](StandInHost &host) { host.undoSteps()->push(new QUndoCommand); });
    row("IsNotRedo", "nothing", true, cameras(0));
    row("IsNotRedo", "a step taken back", false, [](StandInHost &host) {
        host.undoSteps()->push(new QUndoCommand);
        host.undoSteps()->undo();
    });
    plain("IsLowlight", [](StandInHost &h, bool on) { h.state().isLowlightOn = on; });
    plain("ExistLowlight", [](StandInHost &h, bool on) { h.state().hasLowlightDevice = on; });
    plain("IsAllLowlightON", [](StandInHost &h, bool on) { h.state().areAllLowlightOn = on; });
    plain("IsAllLowlightOFF", [](StandInHost &h, bool on) { h.state().areAllLowlightOff = on; });
    plain("IsAutoExposureSetting",
          [](StandInHost &h, bool on) { h.state().isAutoExposureSettingOpen = on; });
    plain("IsHwTriggerSetting",
          [](StandInHost &h, bool on) { h.state().isHwTriggerSettingOpen = on; });
    plain("IsVariableSetting",
          [](StandInHost &h, bool on) { h.state().isVariableSettingOpen = on; });
    plain("IsTracking", [](StandInHost &h, bool on) { h.state().isTracking = on; });
    plain("IsLensCalibration",
          [](StandInHost &h, bool on) { h.state().isLensCalibrationRunning = on; });
    plain("IsNoneWaveformData", [](StandInHost &h, bool on) { h.state().hasWaveformData = !on; });
    live("IsLiveNoAutoDownloadSetting",
         [](StandInHost &h, bool on) { h.settings().setValue("recording/AutoDownload", !on); });
    document(
        "IsCurrentDisconnected", [](DocumentState &state) { state.isFound = false; },
        [](DocumentState &state) { state.isFound = true; });
    plain("IsConflictPartition",
          [](StandInHost &h, bool on) { h.state().hasPartitionConflict = on; });
    plain("IsSendingNodeCommand",
          [](StandInHost &h, bool on) { h.state().isSendingNodeCommand = on; });
    plain("IsAdjustingImage", [](StandInHost &h, bool on) { h.state().isAdjustingImage = on; });
    plain("IsDetectingPixelDefect",
          [](StandInHost &h, bool on) { h.state().isDetectingPixelDefect = on; });
    plain("IsCycleView", [](StandInHost &h, bool on) { h.state().isCycleView = on; });
    row("IsCycleView", "views in turn", true,
        [](StandInHost &host) { host.state().isViewCycling = true; });
    plain("IsImageTriggerCapturing",
          [](StandInHost &h, bool on) { h.state().isImageTriggerCapturing = on; });
    plain("IsImageTriggerDetecting",
          [](StandInHost &h, bool on) { h.state().isImageTriggerDetecting = on; });
    plain("IsAutoFocussing", [](StandInHost &h, bool on) { h.state().isAutoFocusing = on; });
    plain("IsNotlivePage", [](StandInHost &h, bool on) {
        h.state().isNotLivePage = on;
        h.state().isNotLiveOrDeviceSettingsPage = !on;
    });
    plain("IsNotLiveAndDeviceSettingPage", [](StandInHost &h, bool on) {
        h.state().isNotLiveOrDeviceSettingsPage = on;
        h.state().isNotLivePage = !on;
    });
    plain("IsPrefDialogOpening", [](StandInHost &h, bool on) { h.state().isPrefsDialogOpen = on; });
    plain("IsModalDialogOpening",
          [](StandInHost &h, bool on) { h.state().isModalDialogOpen = on; });
    plain("IsPhaseAdjusting", [](StandInHost &h, bool on) { h.state().isPhaseAdjusting = on; });
    plain("IsFullScreen", [](StandInHost &h, bool on) { h.state().isFullScreen = on; });
    plain("IsModalessDialogTextFocussing",
          [](StandInHost &h, bool on) { h.state().textBoxFocus = on; });
    plain("IsShading", [](StandInHost &h, bool on) { h.state().isShading = on; });
    plain("IsTrelvik", [](StandInHost &h, bool on) { h.state().isTrelvikRunning = on; });
    plain("IsActiveOrvixOnTrelvik",
          [](StandInHost &h, bool on) { h.state().isActiveOnTrelvik = on; });
    const auto lock = [](bool running, bool locked, Mode wanted) {
        return [=](StandInHost &host) {
            host.state().isTrelvikRunning = running;
            host.addCamera()->setLockedTogether(locked);
            host.setMode(wanted);
        };
    };
    for (const char *flag : {"IsTrelvikLockDevice", "IsAllTrelvikLockDevice"}) {
        row(flag, "locked", true, lock(true, true, Mode::Live));
        row(flag, "not locked", false, lock(true, false, Mode::Live));
        row(flag, "multi-camera window not running", false, lock(false, true, Mode::Live));
        row(flag, "not in live mode", false, lock(true, true, Mode::Memory));
    }
    row("IsTrelvikLockDevice", "no document", false,
        [](StandInHost &host) { host.state().isTrelvikRunning = true; });
    row("IsTrelvikLockDevice", "current one is not", false, [](StandInHost &host) {
        host.addCamera();
        host.addCamera()->setLockedTogether(true);
    });
    row("IsAllTrelvikLockDevice", "one is not", false, [](StandInHost &host) {
        host.addCamera()->setLockedTogether(true);
        host.addCamera();
    });
    plain("IsOtherPluginOpen", [](StandInHost &h, bool on) { h.state().isOtherPluginOpen = on; });
    live("IsNotCurrentAutoFocus",
         [](StandInHost &h, bool on) { h.state().isCurrentOtherThanAutoFocus = on; });
    live("IsAutoExpoting", [](StandInHost &h, bool on) { h.state().isAutoExporting = on; });
    const auto trigger = [](bool download, bool test) {
        return [=](StandInHost &host) {
            host.settings().setValue("recording/AutoDownload", download);
            host.settings().setValue("recording/useTriggerTest", test);
        };
    };
    row("HideTriggerTest", "both", false, trigger(true, true));
    row("HideTriggerTest", "no auto download", true, trigger(false, true));
    row("HideTriggerTest", "no test", true, trigger(true, false));
    row("HideTriggerTest", "neither", true, trigger(false, false));
    document(
        "IsLutCurve", [](DocumentState &state) { state.showsLutCurve = true; },
        [](DocumentState &) {});
    document(
        "IsSuspendReduce", [](DocumentState &state) { state.isReductionSuspended = true; },
        [](DocumentState &) {});
    document(
        "IsExternalMediaSelected", [](DocumentState &state) { state.isOnSdCard = true; },
        [](DocumentState &) {});
    row("IsExternalMediaSelected", "on a drive", true,
        [](StandInHost &host) { host.addCamera()->state().isOnKelvault = true; });
    row("IsExternalMediaSelected", "on CFast", true,
        [](StandInHost &host) { host.addCamera()->state().isOnCFast = true; });
    return table;
}

// The flags in the order of the table; the tools and the mouse have tests of their own.
QStringList allFlags()
{
    return {"IsNoneWindow",
            "IsSingleWindow",
            "IsMultiWindow",
            "IsRecording",
            "IsBgSaving",
            "IsBgConverting",
            "IsDirectSaving",
            "IsNoneDocument",
            "IsSingleSelectedDocument",
            "IsCTSReady",
            "IsReady",
            "IsLiveMode",
            "IsMemoryMode",
            "IsFileMode",
            "IsNotRecording",
            "IsRecordingError",
            "IsNotUndo",
            "IsNotRedo",
            "IsLowlight",
            "ExistLowlight",
            "IsAllLowlightON",
            "IsAllLowlightOFF",
            "IsAutoExposureSetting",
            "IsHwTriggerSetting",
            "IsVariableSetting",
            "IsTracking",
            "IsActiveLensCalibration",
            "IsLensCalibration",
            "IsNoneWaveformData",
            "IsLiveNoAutoDownloadSetting",
            "IsCurrentDisconnected",
            "IsConflictPartition",
            "IsSendingNodeCommand",
            "IsAdjustingImage",
            "IsDetectingPixelDefect",
            "IsCycleView",
            "IsImageOverlay",
            "IsImageTriggerCapturing",
            "IsImageTriggerDetecting",
            "IsMouseDragging",
            "IsAutoFocussing",
            "IsNotlivePage",
            "IsNotLiveAndDeviceSettingPage",
            "IsPrefDialogOpening",
            "IsModalDialogOpening",
            "IsPhaseAdjusting",
            "IsFullScreen",
            "IsModalessDialogTextFocussing",
            "IsShading",
            "IsTrelvik",
            "IsActiveOrvixOnTrelvik",
            "IsTrelvikLockDevice",
            "IsAllTrelvikLockDevice",
            "IsOtherPluginOpen",
            "IsNotCurrentAutoFocus",
            "IsAutoExpoting",
            "HideTriggerTest",
            "IsLutCurve",
            "IsSuspendReduce",
            "IsExternalMediaSelected"};
}

class PanelTool : public PLG_Common
{
public:
    explicit PanelTool(const QString &name)
    {
        m_toolName = name;
        m_hasPanel = true;
    }
    void drag(bool on) { m_dragging = on; }
};

QJsonObject statusOf(StandInHost &host)
{
    JS_Mediator mediator(&host, QStringLiteral("page"));
    return QJsonDocument::fromJson(mediator.getControlStatus().toUtf8()).object();
}

}

void TestControlStatus::flagFollowsTheHost_data()
{
    QTest::addColumn<QString>("flag");
    QTest::addColumn<bool>("value");
    QTest::addColumn<Setup>("setup");
    for (const Row &row : rows())
        QTest::newRow(qPrintable(row.flag + QLatin1String(": ") + row.when))
            << row.flag << row.value << row.setup;
}

void TestControlStatus::flagFollowsTheHost()
{
    QFETCH(QString, flag);
    QFETCH(bool, value);
    QFETCH(Setup, setup);
    DialogPage shown;
    setup(shown.host);
    QCOMPARE(
        shown.page.call(QStringLiteral("JSON.parse(bridge.getControlStatus())['%1']").arg(flag)),
        value ? QStringLiteral("true") : QStringLiteral("false"));
}

void TestControlStatus::everyFlagHasBothValues()
{
    const QStringList apart = {"IsActiveLensCalibration", "IsImageOverlay", "IsMouseDragging"};
    for (const QString &flag : allFlags()) {
        if (apart.contains(flag))
            continue;
        int on = 0;
        int off = 0;
        for (const Row &row : rows()) {
            if (row.flag == flag)
                ++(row.value ? on : off);
        }
        QVERIFY2(on > 0 && off > 0, qPrintable(flag));
    }
}

void TestControlStatus::textIsCompactJsonWithBooleansAlone()
{
    StandInHost host;
    host.addCamera();
    JS_Mediator mediator(&host, QStringLiteral("page"));
    const QString text = mediator.getControlStatus();
    QVERIFY(!text.contains(QLatin1Char(' ')) && !text.contains(QLatin1Char('\n')));
    const QJsonObject status = QJsonDocument::fromJson(text.toUtf8()).object();
    QStringList expected = allFlags();
    expected.sort();
    QCOMPARE(expected.size(), 60);
    QCOMPARE(QStringList(status.keys()), expected);
    for (const QString &flag : expected)
        QVERIFY2(status.value(flag).isBool(), qPrintable(flag));
}

// Whatever a snapshot tells of the documents.
void TestControlStatus::lockCountsInLiveModeOfTheMultiCameraWindow()
{
    for (int way = 0; way < 4; ++way) {
        ControlStatus status;
        status.documentLocked = true;
        status.allDevicesLocked = true;
        status.multiCameraRunning = way & 1;
        status.liveMode = way & 2;
        const QJsonObject flags =
            QJsonDocument::fromJson(controlStatusText(status).toUtf8()).object();
        QCOMPARE(flags.value("IsTrelvikLockDevice"), QJsonValue(way == 3));
        QCOMPARE(flags.value("IsAllTrelvikLockDevice"), QJsonValue(way == 3));
    }
}

void TestControlStatus::withoutDocumentsNothingOfADocumentHolds()
{
    StandInHost host;
    const QJsonObject status = statusOf(host);
    QCOMPARE(status.value("IsNoneDocument").toBool(), true);
    for (const char *flag : {"IsCurrentDisconnected", "IsLutCurve", "IsSuspendReduce",
                             "IsTrelvikLockDevice", "IsExternalMediaSelected"})
        QVERIFY2(!status.value(QLatin1String(flag)).toBool(true), flag);
}

void TestControlStatus::mouseDragIsTheCurrentTools()
{
    StandInHost host;
    PanelTool tool(QStringLiteral("lut"));
    host.addPlugin(&tool);
    QCOMPARE(statusOf(host).value("IsMouseDragging").toBool(true), false); // none is open
    tool.drag(true);
    QCOMPARE(statusOf(host).value("IsMouseDragging").toBool(true), false);
    host.openPluginByName(QStringLiteral("lut"));
    QCOMPARE(statusOf(host).value("IsMouseDragging").toBool(), true);
    tool.drag(false);
    QCOMPARE(statusOf(host).value("IsMouseDragging").toBool(true), false);
    host.removePlugin(&tool);
}

void TestControlStatus::currentToolIsNamed_data()
{
    QTest::addColumn<QString>("tool");
    QTest::addColumn<bool>("lensCalibration");
    QTest::addColumn<bool>("imageOverlay");
    QTest::newRow("lens calibration") << "lenscalib" << true << false;
    QTest::newRow("image overlay") << "imageoverlay" << false << true;
    QTest::newRow("other") << "lut" << false << false;
    QTest::newRow("other case") << "LensCalib" << false << false;
}

void TestControlStatus::currentToolIsNamed()
{
    QFETCH(QString, tool);
    StandInHost host;
    PanelTool plugin(tool);
    host.addPlugin(&plugin);
    QCOMPARE(statusOf(host).value("IsActiveLensCalibration").toBool(true), false);
    QCOMPARE(statusOf(host).value("IsImageOverlay").toBool(true), false);
    host.openPluginByName(tool);
    QTEST(statusOf(host).value("IsActiveLensCalibration").toBool(), "lensCalibration");
    QTEST(statusOf(host).value("IsImageOverlay").toBool(), "imageOverlay");
    host.removePlugin(&plugin);
}

void TestControlStatus::documentStandsInForTheCurrentOne()
{
    StandInHost host;
    host.addCamera();
    StandInCamera *other = host.addCamera();
    other->state().showsLutCurve = true;
    JS_Mediator mediator(&host, QStringLiteral("page"));
    host.clearJournal();
    QVERIFY(mediator.getControlStatus(other).contains("\"IsLutCurve\":true"));
    QVERIFY(!host.journal().contains("currentDocument()"));
    QVERIFY(mediator.getControlStatus(nullptr).contains("\"IsLutCurve\":false"));
    QVERIFY(host.journal().contains("currentDocument()"));
}

void TestControlStatus::eachGetterIsAskedOnce()
{
    StandInHost host;
    host.addCamera()->setLockedTogether(true);
    host.addCamera()->setLockedTogether(true);
    JS_Mediator mediator(&host, QStringLiteral("page"));
    host.clearJournal();
    mediator.getControlStatus();
    QStringList calls = host.journal();
    QCOMPARE(calls.filter("[1]."),
             QStringList({"[1].isFound()", "[1].isLocked()", "[1].showsLutCurve()",
                          "[1].isReductionSuspended()", "[1].isOnSdCard()", "[1].isOnKelvault()",
                          "[1].isOnCFast()"}));
    QVERIFY(calls.contains("areAllDevicesLocked()"));
    QCOMPARE(calls.removeDuplicates(), 0);
    QCOMPARE(host.commands(), QStringList());
}

void TestControlStatus::lockIsAskedWhereItCounts()
{
    for (int way = 0; way < 4; ++way) {
        StandInHost host;
        host.addCamera();
        host.state().isTrelvikRunning = way & 1;
        host.setMode(way & 2 ? StandInHost::Mode::Live : StandInHost::Mode::Memory);
        JS_Mediator mediator(&host, QStringLiteral("page"));
        host.clearJournal();
        mediator.getControlStatus();
        QStringList calls({"isTrelvikRunning()", "isActiveOnTrelvik()"});
        if (way == 3)
            calls.append("areAllDevicesLocked()");
        calls.append("isOtherPluginOpen()");
        if (way & 2)
            calls += QStringList({"isCurrentOtherThanAutoFocus(true)", "isAutoExporting()"});
        calls.append("[1].isFound()");
        if (way == 3)
            calls.append("[1].isLocked()");
        calls += QStringList({"[1].showsLutCurve()", "[1].isReductionSuspended()",
                              "[1].isOnSdCard()", "[1].isOnKelvault()", "[1].isOnCFast()"});
        const QStringList journal = host.journal();
        QCOMPARE(journal.mid(journal.indexOf("isTrelvikRunning()")), calls);
    }
}

void TestControlStatus::failureGivesAnEmptyText()
{
    DialogPage shown;
    shown.host.failOn(QStringLiteral("isShading"));
    QCOMPARE(shown.page.call("bridge.getControlStatus()"), QStringLiteral("\"\""));
    QCOMPARE(shown.host.handledErrors(), QStringList({"isShading failed"}));
}

int main(int argc, char **argv)
{
    TestControlStatus test;
    return runTest(argc, argv, test);
}

#include "test_control_status.moc"
