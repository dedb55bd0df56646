#pragma once

#include "contract/HostTypes.h"
#include "standin/media/DriveTable.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <optional>

class PLG_Interface;

// What the host answers from, one group for each sub-interface. All of it can be set freely; what
// follows from real state (documents, selection, plug-ins, lock, settings, undo) is not here.

struct HostMainState
{
    bool isShownDropBox = false;
    bool needsDialogEnterNotice = false;
    QPointer<QObject> webPageEmbeddedMdi;
    QPointer<QWidget> mainWidget;
    QSet<QString> runningTools; ///< beside the tools that are active or open
    QSet<QString> features;     ///< what isFeatureOn() knows to be on, for all documents
    bool isReady = true;
    bool isDialogExitSuppressed = false;
    bool isUpdateIgnore = false;
    bool hasRestoredPrefs = false;
    bool isAutoCameraNameEnabled = false;
    bool supportFileSucceeds = true;
    bool isTrelvikWindowShown = false;
    SupportSnapshot supportSnapshot;
    QHash<QString, QString> translations; ///< source text, translated text
    QHash<QString, QString>
        infoItemLabels; ///< by id, as they are; others have the translated label of the item table
    std::optional<QStringList> fontFamilies; ///< none: those that are installed
    QHash<int, QString> outputFontNames;     ///< by group offset minus one
    QString hostVersion = QStringLiteral("1.0.0");
    bool isConverting = false;
    bool isPartitionSelectionAuto = false;
    bool isCycleView = false;
    bool isNotLivePage = false;
    bool isNotLiveOrDeviceSettingsPage = false;
    bool isPrefsDialogOpen = false;
    bool isModalDialogOpen = false;
    bool textBoxFocus = false; ///< what setTextBoxFocusState() was last given
    int openDialogs = 0;       ///< announced and not left yet
    int prefsDialogResult = 0;
    QString companionInstallDir;
};

struct HostPluginsState
{
    std::optional<bool> isTrelvikRunning; ///< none: true with two cameras or more
    bool isMVersion = false;
    bool isAutoExposureSettingOpen = false;
    bool isHwTriggerSettingOpen = false;
    bool isVariableSettingOpen = false;
    bool isTracking = false;
    bool isSendingNodeCommand = false;
    bool isAdjustingImage = false;
    bool isDetectingPixelDefect = false;
    bool isImageTriggerCapturing = false;
    bool isImageTriggerDetecting = false;
    bool isOtherPluginOpen = false;
    QHash<PLG_Interface *, QPointer<QWidget>> embeddedWidgets;
};

struct HostDocumentsState
{
    bool isWaveDataAcquisition = false;
    QList<DOCKEY> temporaryKeys;
    QList<DOCKEY> openedKeys;
    std::optional<QList<DOCKEY>> targetKeys; ///< none: the current document and the selection
    QList<SavedRecord> savedRecords;         ///< those with a copy
    bool hasWaveformData = false;
};

struct HostLiveControlState
{
    std::optional<bool> isLivePaused; ///< none: by the pauses and resumes so far
};

struct HostRecordState
{
    bool isRecording = false;
    int recordingState = 0; ///< 0 none, 1 waiting for the camera, 2 ready, 4 error
    bool hasPartitionConflict = false;
};

struct HostCameraLinkState
{
    QString defaultCameraName; ///< empty: "Camera" and the next free number
    bool isLowlightOn = false;
    bool hasLowlightDevice = false;
    bool areAllLowlightOn = false;
    bool areAllLowlightOff = false;
    bool isLensCalibrationRunning = false;
    bool isAutoFocusing = false;
    bool isPhaseAdjusting = false;
    bool isShading = false;
    bool isCurrentOtherThanAutoFocus = false;
    uint selectedVariable = 0;
};

struct HostFileExportState
{
    uint cardReaderDriveMask = 0; ///< bits 0 to 25 for A to Z
    uint openCardReaderDrive = 0; ///< bit value, 0: none
    DriveTable kelvaultDrives;
    DriveTable cfCardDrives;
    bool isBackgroundSaving = false;
    bool isBackgroundConverting = false;
    bool isDirectSaving = false;
    bool isAutoExporting = false;
};

struct HostViewStateState
{
    bool isViewCycling = false;
    bool isDisplayInfoShowing = false;
};

struct HostWindowsState
{
    std::optional<int> windowCount;        ///< none: one for each document
    std::optional<int> visibleWindowCount; ///< none: as windowCount
    bool isFullScreen = false;
    bool isActiveOnTrelvik = false;
};

struct StandInState : HostMainState,
                      HostPluginsState,
                      HostDocumentsState,
                      HostLiveControlState,
                      HostRecordState,
                      HostCameraLinkState,
                      HostFileExportState,
                      HostViewStateState,
                      HostWindowsState
{
};
