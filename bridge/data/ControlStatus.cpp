#include "bridge/data/ControlStatus.h"

#include "foundation/Json.h"
#include "foundation/Keys.h"

#include <QJsonObject>

namespace {

namespace RecordingState {
constexpr int None = 0;
constexpr int GettingReady = 1;
constexpr int Ready = 2;
constexpr int Error = 4;
}

}

QString controlStatusText(const ControlStatus &s)
{
    const Keys::StateIds &id = Keys::states;
    QJsonObject flags;
    flags.insert(id.IsNoneWindow, s.windows < 1);
    flags.insert(id.IsSingleWindow, s.windows == 1);
    flags.insert(id.IsMultiWindow, s.windows > 1);
    flags.insert(id.IsRecording, s.recording);
    flags.insert(id.IsBgSaving, s.backgroundSaving);
    flags.insert(id.IsBgConverting, s.backgroundConverting);
    flags.insert(id.IsDirectSaving, s.directSaving);
    flags.insert(id.IsNoneDocument, s.documents < 1);
    flags.insert(id.IsSingleSelectedDocument, s.selected == 1);
    flags.insert(id.IsCTSReady, s.recordingState == RecordingState::GettingReady);
    flags.insert(id.IsReady, s.recordingState == RecordingState::Ready);
    flags.insert(id.IsLiveMode, s.liveMode);
    flags.insert(id.IsMemoryMode, s.memoryMode);
    flags.insert(id.IsFileMode, s.fileMode);
    flags.insert(id.IsNotRecording, s.recordingState == RecordingState::None);
    flags.insert(id.IsRecordingError, s.recordingState == RecordingState::Error);
    flags.insert(id.IsNotUndo, !s.canUndo);
    flags.insert(id.IsNotRedo, !s.canRedo);
    flags.insert(id.IsLowlight, s.lowlightOn);
    flags.insert(id.ExistLowlight, s.lowlightDevice);
    flags.insert(id.IsAllLowlightON, s.allLowlightOn);
    flags.insert(id.IsAllLowlightOFF, s.allLowlightOff);
    flags.insert(id.IsAutoExposureSetting, s.autoExposureSetting);
    flags.insert(id.IsHwTriggerSetting, s.hardwareTriggerSetting);
    flags.insert(id.IsVariableSetting, s.variableSetting);
    flags.insert(id.IsTracking, s.tracking);
    flags.insert(id.IsActiveLensCalibration, s.currentTool == Keys::tools.lensCalib);
    flags.insert(id.IsLensCalibration, s.lensCalibration);
    flags.insert(id.IsNoneWaveformData, !s.waveformData);
    flags.insert(id.IsLiveNoAutoDownloadSetting, !s.autoDownload && s.liveMode);
    flags.insert(id.IsCurrentDisconnected, s.document && !s.documentFound);
    flags.insert(id.IsConflictPartition, s.partitionConflict);
    flags.insert(id.IsSendingNodeCommand, s.sendingNodeCommand);
    flags.insert(id.IsAdjustingImage, s.adjustingImage);
    flags.insert(id.IsDetectingPixelDefect, s.detectingPixelDefect);
    flags.insert(id.IsCycleView, s.cycleView);
    flags.insert(id.IsImageOverlay, s.currentTool == Keys::tools.imageOverlay);
    flags.insert(id.IsImageTriggerCapturing, s.imageTriggerCapturing);
    flags.insert(id.IsImageTriggerDetecting, s.imageTriggerDetecting);
    flags.insert(id.IsMouseDragging, s.mouseDragging);
    flags.insert(id.IsAutoFocussing, s.autoFocusing);
    flags.insert(id.IsNotlivePage, s.notLivePage);
    flags.insert(id.IsNotLiveAndDeviceSettingPage, s.notLiveAndDeviceSettingPage);
    flags.insert(id.IsPrefDialogOpening, s.prefsDialogOpen);
    flags.insert(id.IsModalDialogOpening, s.modalDialogOpen);
    flags.insert(id.IsPhaseAdjusting, s.phaseAdjusting);
    flags.insert(id.IsFullScreen, s.fullScreen);
    flags.insert(id.IsModalessDialogTextFocussing, s.modelessTextFocus);
    flags.insert(id.IsShading, s.shading);
    flags.insert(id.IsTrelvik, s.multiCameraRunning);
    flags.insert(id.IsActiveOrvixOnTrelvik, s.activeOnMultiCamera);
    flags.insert(id.IsTrelvikLockDevice, s.multiCameraRunning && s.liveMode && s.documentLocked);
    flags.insert(id.IsAllTrelvikLockDevice,
                 s.multiCameraRunning && s.liveMode && s.allDevicesLocked);
    flags.insert(id.IsOtherPluginOpen, s.otherPluginOpen);
    flags.insert(id.IsNotCurrentAutoFocus, s.currentOtherThanAutoFocus && s.liveMode);
    flags.insert(id.IsAutoExpoting, s.autoExporting && s.liveMode);
    flags.insert(id.HideTriggerTest, !(s.autoDownload && s.useTriggerTest));
    flags.insert(id.IsLutCurve, s.documentLutCurve);
    flags.insert(id.IsSuspendReduce, s.documentReductionSuspended);
    flags.insert(id.IsExternalMediaSelected, s.documentOnExternalMedia);
    return Json::compactText(flags);
}
