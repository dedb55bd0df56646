#pragma once

#include <QString>
#include <QStringList>

#include <array>

/// All texts that more than one unit spells alike. They are built when the library is loaded,
/// before anything that includes this header, and own their memory. Any thread, read-only.
namespace Keys {

/// Settings with the digits of the number that one level of a save path gets.
struct NumberDigitKeys
{
    QString camera;
    QString head;
    QString session;
};

/// Settings of one folder level of a save path.
struct SaveFolderKeys
{
    QString use;
    QString name;
    QString addNumber;
    QString addNumberFormat;
    NumberDigitKeys digits;
    QString addTime;
    QString addTimeFormat;
    QString asFileName;
    QString asFileNameIncludeOption;
};

/// Settings of the file name of a save path.
struct SaveFileNameKeys
{
    QString name;
    NumberDigitKeys digits;
    QString addTime;
    QString addTimeFormat;
    QString asOriginal;
    QString asPartitionName;
    QString useCustom;
    QString useCustomFromTarget;
    QString useCustomFromTargetKey;
    QString useCustomIncludeUnit;
};

/// Settings of one kind of save. A field that this kind does not have is empty.
struct SaveKeys
{
    QString dir;
    QString dirAsOriginal;
    SaveFolderKeys groupDir;
    SaveFolderKeys subDir;
    SaveFileNameKeys fileName;
    NumberDigitKeys kvDataNameDigits;
    QString kvDataNameAddNumber;
    QString mrawBayerSave;
    QString rawwBayerSave;
    QString tiffBayerSave;
    QString saveInf;
    QString saveInfo;
    QString saveCorrect;
    QString saveScale;
    QString saveThumbnail;
    QString saveThumbnailAddTextValue;
    QString skipSaveFrame;
    QString skipSaveMsec;
    QString skipUnit;

    static SaveKeys makeExport();
    static SaveKeys makeConvert();
    static SaveKeys makeSnap();
    static SaveKeys makeReport();
    static SaveKeys makeLayout();
};

inline const SaveKeys exportSave = SaveKeys::makeExport();
inline const SaveKeys convertSave = SaveKeys::makeConvert();
inline const SaveKeys snapSave = SaveKeys::makeSnap();
inline const SaveKeys reportSave = SaveKeys::makeReport();
inline const SaveKeys layoutSave = SaveKeys::makeLayout();

/// Where an export goes.
struct ExportTargetKeys
{
    ExportTargetKeys();

    QString infTestNo = QLatin1String("export/inf_testno");
    QString media = QLatin1String("export/media");
    QString multiPathDeviceList = QLatin1String("export/multipathdevicelist");
    QString multiPathList = QLatin1String("export/multipathlist");
    QString singlePath = QLatin1String("export/singlepath");
};
inline const ExportTargetKeys exportTarget;

/// Search for cameras in the network.
struct CameraConnectionKeys
{
    CameraConnectionKeys();

    QString addIpDefault = QLatin1String("cameraconnection/AddIPDefault");
    QString searchIp = QLatin1String("cameraconnection/SearchIP");
    QString searchWay = QLatin1String("cameraconnection/SearchWay");
};
inline const CameraConnectionKeys cameraConnection;

/// How numbers and texts are shown.
struct DisplayKeys
{
    DisplayKeys();

    QString displayWithRealBitDepth = QLatin1String("display/DisplayWithRealBitDepth");
    QString frameInsertDelimiter = QLatin1String("display/frameInsertDelimiter");
    QString language = QLatin1String("display/language");
    QString outputLanguage = QLatin1String("display/outputLanguage");
    QString recordRateInsertDelimiter = QLatin1String("display/recordRateInsertDelimiter");
    QString shutterSpeed = QLatin1String("display/ShutterSpeed");
    QString shutterSpeedInsertDelimiter = QLatin1String("display/shutterSpeedInsertDelimiter");
    QString shutterSpeedUnit = QLatin1String("display/ShutterSpeedUnit");
};
inline const DisplayKeys display;

/// Information over the picture.
struct InfoKeys
{
    InfoKeys();

    QString alignment = QLatin1String("info/Alignment");
    QString blankLine = QLatin1String("info/BlankLine");
    QString bold = QLatin1String("info/Bold");
    QString display = QLatin1String("info/display");
    QString fontName = QLatin1String("info/FontName");
    QString fontSize = QLatin1String("info/FontSize");
    QString foregroundColor = QLatin1String("info/ForegroundColor");
    QString iconSize = QLatin1String("info/IconSize");
    QString italic = QLatin1String("info/Italic");
    QString logoPath = QLatin1String("info/LogoPath");
    QString recTimeUnit = QLatin1String("info/RecTimeUnit");
    QString width = QLatin1String("info/Width");
};
inline const InfoKeys info;

/// Information in saved pictures. A further group's key has its offset behind it.
struct SaveInfoKeys
{
    SaveInfoKeys();

    QString alignment = QLatin1String("saveinfo/Alignment");
    QString backgroundColor = QLatin1String("saveinfo/BackgroundColor");
    QString bold = QLatin1String("saveinfo/Bold");
    QString collectiveSetting = QLatin1String("saveinfo/collectiveSetting");
    QString columnNum = QLatin1String("saveinfo/ColumnNum");
    QString columnSpacing = QLatin1String("saveinfo/ColumnSpacing");
    QString display = QLatin1String("saveinfo/display");
    QString fixedFontSizeRatio = QLatin1String("saveinfo/FixedFontSizeRatio");
    QString fixedFontSizeRatioBaseResolution =
        QLatin1String("saveinfo/FixedFontSizeRatioBaseResolution");
    QString fontName = QLatin1String("saveinfo/FontName");
    QString fontSize = QLatin1String("saveinfo/FontSize");
    QString foregroundColor = QLatin1String("saveinfo/ForegroundColor");
    QString italic = QLatin1String("saveinfo/Italic");
    QString logoPath = QLatin1String("saveinfo/LogoPath");
    QString toColumn = QLatin1String("saveinfo/ToColumn");
    QString useBackgroundColor = QLatin1String("saveinfo/UseBackgroundColor");
    QString width = QLatin1String("saveinfo/Width");
    QString withinImage = QLatin1String("saveinfo/WithinImage");
};
inline const SaveInfoKeys saveInfo;

/// Camera settings files.
struct QcfgKeys
{
    QcfgKeys();

    QString fileNameAddTime = QLatin1String("qcfg/filenameaddtime");
    QString fileNameAddTimeFormat = QLatin1String("qcfg/filenameaddtimeformat");
    QString fileNameAsOriginal = QLatin1String("qcfg/filenameasoriginal");
    QString path = QLatin1String("qcfg/path");
    QString userFileName = QLatin1String("qcfg/userFileName");
};
inline const QcfgKeys qcfg;

/// How recordings are made.
struct RecordingKeys
{
    RecordingKeys();

    QString autoDownload = QLatin1String("recording/AutoDownload");
    QString autoIncrementPartition = QLatin1String("recording/AutoIncrementPartition");
    QString loopRecord = QLatin1String("recording/LoopRecord");
    QString recordDuringDownload = QLatin1String("recording/RecordDuringDownload");
    QString stopRecordingAfterLastPartition =
        QLatin1String("recording/StopRecordingAfterLastPartition");
    QString useTriggerTest = QLatin1String("recording/useTriggerTest");
};
inline const RecordingKeys recording;

/// All kinds of save.
struct SaveOptionKeys
{
    SaveOptionKeys();

    QString enableBlankFilename = QLatin1String("save/EnableBlankFilename");
    QString saveInfFile = QLatin1String("save/SaveInfFile");
};
inline const SaveOptionKeys saveOption;

/// Groups of a single setting.
struct ApplicationKeys
{
    ApplicationKeys();

    QString cameraNameFilePath = QLatin1String("usercustom/cameraNameFilePath");
    QString connectedCameraOnlyShowing = QLatin1String("devicemanager/connectedCameraOnlyShowing");
    QString importDir = QLatin1String("import/dir");
    QString screenNumber = QLatin1String("main/scrno");
    QString style = QLatin1String("env/style");
    QString supportDir = QLatin1String("support/dir");
    QString unitSystem = QLatin1String("customize/unitSystem");
    QString xmlDir = QLatin1String("xml/dir");
};
inline const ApplicationKeys application;

/// Names of the flags that pages read from the control status.
struct StateIds
{
    StateIds();

    QString IsNoneWindow = QLatin1String("IsNoneWindow");
    QString IsSingleWindow = QLatin1String("IsSingleWindow");
    QString IsMultiWindow = QLatin1String("IsMultiWindow");
    QString IsRecording = QLatin1String("IsRecording");
    QString IsBgSaving = QLatin1String("IsBgSaving");
    QString IsBgConverting = QLatin1String("IsBgConverting");
    QString IsDirectSaving = QLatin1String("IsDirectSaving");
    QString IsNoneDocument = QLatin1String("IsNoneDocument");
    QString IsSingleSelectedDocument = QLatin1String("IsSingleSelectedDocument");
    QString IsCTSReady = QLatin1String("IsCTSReady");
    QString IsReady = QLatin1String("IsReady");
    QString IsLiveMode = QLatin1String("IsLiveMode");
    QString IsMemoryMode = QLatin1String("IsMemoryMode");
    QString IsFileMode = QLatin1String("IsFileMode");
    QString IsNotRecording = QLatin1String("IsNotRecording");
    QString IsRecordingError = QLatin1String("IsRecordingError");
    QString IsNotUndo = QLatin1String("IsNotUndo");
    QString IsNotRedo = QLatin1String("IsNotRedo");
    QString IsLowlight = QLatin1String("IsLowlight");
    QString ExistLowlight = QLatin1String("ExistLowlight");
    QString IsAllLowlightON = QLatin1String("IsAllLowlightON");
    QString IsAllLowlightOFF = QLatin1String("IsAllLowlightOFF");
    QString IsAutoExposureSetting = QLatin1String("IsAutoExposureSetting");
    QString IsHwTriggerSetting = QLatin1String("IsHwTriggerSetting");
    QString IsVariableSetting = QLatin1String("IsVariableSetting");
    QString IsTracking = QLatin1String("IsTracking");
    QString IsActiveLensCalibration = QLatin1String("IsActiveLensCalibration");
    QString IsLensCalibration = QLatin1String("IsLensCalibration");
    QString IsNoneWaveformData = QLatin1String("IsNoneWaveformData");
    QString IsLiveNoAutoDownloadSetting = QLatin1String("IsLiveNoAutoDownloadSetting");
    QString IsCurrentDisconnected = QLatin1String("IsCurrentDisconnected");
    QString IsConflictPartition = QLatin1String("IsConflictPartition");
    QString IsSendingNodeCommand = QLatin1String("IsSendingNodeCommand");
    QString IsAdjustingImage = QLatin1String("IsAdjustingImage");
    QString IsDetectingPixelDefect = QLatin1String("IsDetectingPixelDefect");
    QString IsCycleView = QLatin1String("IsCycleView");
    QString IsImageOverlay = QLatin1String("IsImageOverlay");
    QString IsImageTriggerCapturing = QLatin1String("IsImageTriggerCapturing");
    QString IsImageTriggerDetecting = QLatin1String("IsImageTriggerDetecting");
    QString IsMouseDragging = QLatin1String("IsMouseDragging");
    QString IsAutoFocussing = QLatin1String("IsAutoFocussing");
    QString IsNotlivePage = QLatin1String("IsNotlivePage");
    QString IsNotLiveAndDeviceSettingPage = QLatin1String("IsNotLiveAndDeviceSettingPage");
    QString IsPrefDialogOpening = QLatin1String("IsPrefDialogOpening");
    QString IsModalDialogOpening = QLatin1String("IsModalDialogOpening");
    QString IsPhaseAdjusting = QLatin1String("IsPhaseAdjusting");
    QString IsFullScreen = QLatin1String("IsFullScreen");
    QString IsModalessDialogTextFocussing = QLatin1String("IsModalessDialogTextFocussing");
    QString IsShading = QLatin1String("IsShading");
    QString IsTrelvik = QLatin1String("IsTrelvik");
    QString IsActiveOrvixOnTrelvik = QLatin1String("IsActiveOrvixOnTrelvik");
    QString IsTrelvikLockDevice = QLatin1String("IsTrelvikLockDevice");
    QString IsAllTrelvikLockDevice = QLatin1String("IsAllTrelvikLockDevice");
    QString IsOtherPluginOpen = QLatin1String("IsOtherPluginOpen");
    QString IsNotCurrentAutoFocus = QLatin1String("IsNotCurrentAutoFocus");
    QString IsAutoExpoting = QLatin1String("IsAutoExpoting");
    QString HideTriggerTest = QLatin1String("HideTriggerTest");
    QString IsLutCurve = QLatin1String("IsLutCurve");
    QString IsSuspendReduce = QLatin1String("IsSuspendReduce");
    QString IsExternalMediaSelected = QLatin1String("IsExternalMediaSelected");
};
inline const StateIds states;

/// Keys of tools, and of the pseudo-tools that stand in tool bar lists only.
struct ToolNames
{
    ToolNames();

    QString binning = QLatin1String("binning");
    QString liveControl = QLatin1String("livecontrol");
    QString lut = QLatin1String("lut");
    QString lineProfile = QLatin1String("lineprofile");
    QString histogram = QLatin1String("histogram");
    QString imageTrigger = QLatin1String("imagetrigger");
    QString imageOverlay = QLatin1String("imageoverlay"); ///< in tool bar lists too
    QString lensCalib = QLatin1String("lenscalib");
    QString colorCorrection = QLatin1String("colorcorrection");
    QString sensorLut = QLatin1String("m_sensorlut");
    QString focusCheck = QLatin1String("m_focuscheck");
    QString analogGain = QLatin1String("m_analoggain");
    QString crossCursor = QLatin1String("t_crosscursor");
    QString zoomFit = QLatin1String("t_zoomfit");
    QString multiLock = QLatin1String("t_multilock");

    QString pseudoColor = QLatin1String("pseudocolor");
    QString focusAssist = QLatin1String("focusassist");
    QString overexposed = QLatin1String("overexposed");
};
inline const ToolNames tools;

/// Columns of camera lists, as comma-joined item names.
struct ColumnLists
{
    ColumnLists();

    QString record = QLatin1String("recordCheck,connectIcon,cameraName,alert,plugin");
    QString status = QLatin1String("lock,connectIcon,cameraName,alert,cameraStatus,sync,plugin");
    QString irig =
        QLatin1String("lock,connectIcon,cameraName,alert,cameraStatus,sync,irigTimeStamp,irigSync");
    QString trigger = QLatin1String("lock,connectIcon,cameraName,alert,cameraStatus,sync,"
                                    "externalSync,triggerIn,triggerSwIn");
};
inline const ColumnLists columns;

/// Units of speed.
struct UnitWords
{
    UnitWords();

    QString millimetersPerSecond = QLatin1String("mm/sec");
    QString metersPerSecond = QLatin1String("m/sec");
    QString kilometersPerSecond = QLatin1String("km/sec");
    QString kilometersPerHour = QLatin1String("km/h");
    QString pixelsPerSecond = QLatin1String("px/sec");
    QString milesPerHour = QLatin1String("MPH");
    QString feetPerSecond = QLatin1String("Feet/sec");
    QString inchesPerSecond = QLatin1String("Inches/sec");
    QString yardsPerSecond = QLatin1String("Yard/sec");
};
inline const UnitWords units;

/// Texts behind a resolution, with the blank in front that parts them from it.
struct BinningSuffixes
{
    BinningSuffixes();

    QString binning2x2 = QLatin1String(" (S-Binning 2x2)");
    QString binning4x4 = QLatin1String(" (S-Binning 4x4)");
};
inline const BinningSuffixes binningSuffixes;

/// Colour temperatures of a camera.
struct ColorTemperatures
{
    ColorTemperatures();

    QString kelvin5100 = QLatin1String("5100K");
    QString kelvin3100 = QLatin1String("3100K");
    QString user2 = QLatin1String("USER2");
    QString user3 = QLatin1String("USER3");
    QString user4 = QLatin1String("USER4");
};
inline const ColorTemperatures colorTemperatures;

/// Formats of date and time texts.
struct TimeFormats
{
    TimeFormats();

    QString minutes = QLatin1String("HH:mm");
    QString seconds = QLatin1String("HH:mm:ss");
    QString date = QLatin1String("yyyy/M/d");
};
inline const TimeFormats timeFormats;

/// Values of settings, and other fixed texts.
struct FixedTexts
{
    FixedTexts();

    QString mediaFile = QLatin1String("file"); ///< "export/media" when a save goes to files
    QString separator = QLatin1String("{Separator}");
    QString addIpDefault = QLatin1String("192.168.0.10");   ///< of "cameraconnection/AddIPDefault"
    QString searchIpDefault = QLatin1String("192.168.0.0"); ///< of "cameraconnection/SearchIP"
};
inline const FixedTexts texts;

/// The companion application, and where a list of installed programs tells of it.
struct CompanionTexts
{
    CompanionTexts();

    QString displayName = QLatin1String("DisplayName");         ///< value of an entry: its name
    QString installLocation = QLatin1String("InstallLocation"); ///< value of an entry: its folder
    QString name = QLatin1String("Sarnex Halcyon Quellan 2");   ///< the companion's display name
    QString program = QLatin1String("qln2.exe");                ///< in its folder
};
inline const CompanionTexts companion;

/// A camera's operating state: one bit, none for live, and its word.
struct StatusWord
{
    int bit;
    QString word;

    static std::array<StatusWord, 9> makeAll();
};
inline const std::array<StatusWord, 9> statusWords = StatusWord::makeAll();

/// A trigger mode. `hasCode` is false for the entry that stands for a code not in the table.
struct TriggerMode
{
    QString name;
    bool hasCode;
    uint code; ///< on the camera

    static std::array<TriggerMode, 16> makeAll();
};
inline const std::array<TriggerMode, 16> triggerModes = TriggerMode::makeAll();

}
