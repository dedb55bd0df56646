#pragma once

#include <QString>

/// A snapshot of the application's state, from which pages enable and disable their controls.
struct ControlStatus
{
    int windows = 0;        ///< visible document windows
    int documents = 0;      ///< open documents
    int selected = 0;       ///< selected documents
    int recordingState = 0; ///< 0 none, 1 getting ready, 2 ready, 4 error
    QString currentTool;    ///< key of the current plug-in, empty when none is open

    bool recording = false;
    bool backgroundSaving = false;
    bool backgroundConverting = false;
    bool directSaving = false;
    bool liveMode = false;
    bool memoryMode = false;
    bool fileMode = false;
    bool canUndo = false;
    bool canRedo = false;
    bool lowlightOn = false;
    bool lowlightDevice = false;
    bool allLowlightOn = false;
    bool allLowlightOff = false;
    bool autoExposureSetting = false;
    bool hardwareTriggerSetting = false;
    bool variableSetting = false;
    bool tracking = false;
    bool lensCalibration = false;
    bool waveformData = false;
    bool autoDownload = false;
    bool useTriggerTest = false;
    bool partitionConflict = false;
    bool sendingNodeCommand = false;
    bool adjustingImage = false;
    bool detectingPixelDefect = false;
    bool cycleView = false;
    bool imageTriggerCapturing = false;
    bool imageTriggerDetecting = false;
    bool mouseDragging = false;
    bool autoFocusing = false;
    bool notLivePage = false;
    bool notLiveAndDeviceSettingPage = false;
    bool prefsDialogOpen = false;
    bool modalDialogOpen = false;
    bool phaseAdjusting = false;
    bool fullScreen = false;
    bool modelessTextFocus = false;
    bool shading = false;
    bool multiCameraRunning = false;
    bool activeOnMultiCamera = false;
    bool allDevicesLocked = false;
    bool otherPluginOpen = false;
    bool currentOtherThanAutoFocus = false;
    bool autoExporting = false;

    // Of the document asked for; all false without one.
    bool document = false;
    bool documentFound = false;
    bool documentLocked = false;
    bool documentLutCurve = false;
    bool documentReductionSuspended = false;
    bool documentOnExternalMedia = false;
};

/// The 60 flags that pages know, as compact JSON text with booleans.
QString controlStatusText(const ControlStatus &status);
