#pragma once

#include "contract/HostTypes.h"
#include "standin/documents/CameraSettings.h"

#include <QDateTime>
#include <QHash>
#include <QPixmap>
#include <QPoint>
#include <QSet>
#include <QSize>
#include <QVariant>

#include <optional>

class DOC_Interface;

/// A partition of a camera's memory, or the one of a file.
struct StandInPartition
{
    int number = 1;
    QString name;
    uint frames = 0;     ///< 0: empty
    uint recordRate = 0; ///< frames per second, 0 when not known
};

/// A recording on a medium in a slot.
struct StandInData
{
    QString name;
    uint frames = 0;
    DataTime time;
};

/// A media slot of a camera.
struct StandInSlot
{
    bool usable = true;
    bool enabled = true;
    SlotStatus status{1, 1, 1, 0};
    SdCardInfo card;
    quint64 freeMebibytes = 0;
    int maxDataCount = 0;
    QList<StandInData> data;
    int refreshes = 0; ///< how often refreshSlot() was called
};

// What a document answers from, one group for each sub-interface. All of it can be set freely; what
// follows from a camera's or recording's real state (size, record rate, selection) is not here.

struct DocMainState
{
    bool usesScaleDivider = false;
    QList<StandInPartition> partitions;
    int currentPartition = 1; ///< position, from 1
    QString originalFilePath;
    QString originalFileName; ///< without extension
    QString deviceName;
    QString documentName;
    QString displayName;
    QString fallbackName;
    QString dataName;         ///< given by setDataName()
    QString driveName;        ///< of the medium that the data lies on
    QString dataSerialNumber; ///< of the device that recorded it
    QString dataNumber;       ///< on its medium
    bool isCameraRecord = false;
    std::optional<QString> nameAddition; ///< answer of fileNameAddition(), "%1" for the sequence
                                         ///< number; none: by the settings
    int documentKind = 0;                ///< 2: opened file
    bool isOnSdCard = false;
    bool isOnKelvault = false;
    bool isOnCFast = false;
    bool isBusySaving = false;
    bool saveInfoOption = false;
    bool saveCorrectOption = false;
    bool saveScaleOption = false;
    QVariantMap infoMap; ///< answer of documentInfoMap(); empty: by what there is
    bool supportsMultiSkip = false;
    bool supportsFileMultiSkip = false;
    std::optional<bool> isRecordedOnce; ///< none: whether a partition has frames
    bool isOpenedByImport = false;
    bool canRenameData = false;
    bool canCheckSaved = false;
    bool canDeleteFile = false;
    bool isFileDeleted = false;           ///< deleteOwnFile() was called
    QVariantList customInfo;              ///< a QVariantMap for each record
    QString clearedCustomFlag;            ///< what a flag of a record reads that is not "on"
    QHash<QString, QString> infoReadings; ///< what the device tells by itself, by item id
    QString comment;
    bool isPlaying = false;
    uint fileRecordRate = 0; ///< frames per second, 0 when not known
    bool isMultiTrimming = false;
    QString multiTrimmingLabel;
    QHash<int, quint64> previewFrames; ///< that previews were moved to, by partition
    bool isSelectable = true;
    QString recordDate; ///< "yyyy/M/d"
    QString recordTime; ///< "HH:mm:ss" or "HH:mm"
};

struct DocViewState
{
    QPoint cursorPosition; ///< reported last
    bool hasImageFormat = true;
    ImageFormat imageFormat;
    double zoom = 0.0; ///< screen pixels per sensor pixel; 0 or less: fit to the view
    QSize viewSize;    ///< of the widget that shows the document; empty when not shown
    QPoint scroll;     ///< of the picture from the middle of its view, screen pixels
};

struct DocCameraState
{
    bool hasScaleDivider = false;
    int scaleDivider = 1;
    int cameraNumber = 0; ///< from 0
    int headNumber = 1;   ///< from 1
    int headCount = 1;    ///< heads of the device; 0: a document without heads
    bool isMediaManaged = false;
    QList<StandInSlot> mediaSlots;
    bool isFitMemoryMode = false;
    QHash<int, int> slotOfHead; ///< by head number; -1 without an entry
    QString cameraName;
    bool isMobile = false;
    bool isDummy = false;
    QSet<int> capabilities;
    EditDeviceData editData;
    QList<PresetInfo> presets;                  ///< in any order
    QSet<int> presetsWithReboot;                ///< numbers of presets that need a reboot
    QHash<int, CameraSettings> presetSettings;  ///< by number; a preset without any changes nothing
    int appliedPreset = 0;                      ///< 0: none
    int waitingPreset = 0;                      ///< that a restart brings, 0: none
    QHash<int, NetworkSetting> networkSettings; ///< by ether type
    int cameraRefreshes = 0;                    ///< how often refreshCamera() was called
};

struct DocDisplayState
{
    QSet<QString> features;       ///< on for this document, beside those that are on for all
    QSet<QString> availableTools; ///< beside those with a transaction at the host
    QHash<QString, bool> toolOn;  ///< goes before the host's own state of the tool
    int quarterTurns = 0;         ///< clockwise
    bool isFlippedHorizontally = false;
    bool isFlippedVertically = false;
    int binningLevel = 0; ///< exponent: 0, 1, 2 mean 1, 2, 4
    QString logoPath;
    bool isInfoOverlayDirty = false;
    bool showsLutCurve = false;
    bool isReductionSuspended = false;
};

struct DocRefreshState
{
    int refreshes = 0; ///< how often refresh() was called
};

struct DocLinkState
{
    bool isConnected = true;
    QString ipAddress;
    bool isFound = true;
    int wirelessState = 0;  ///< 1: connected
    int linkSpeedState = 0; ///< 1: supported
};

struct DocumentState : DocMainState,
                       DocViewState,
                       DocCameraState,
                       DocDisplayState,
                       DocRefreshState,
                       DocLinkState
{
};
