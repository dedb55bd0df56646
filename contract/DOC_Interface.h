#pragma once

#include "contract/HostTypes.h"

#include <QByteArray>
#include <QDateTime>
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QStringList>
#include <QVariantMap>

class DOC_Interface;

// A document of the application: one camera head or one opened file. The rules of HostServices.h
// hold here too.

/// The heads of a device.
class DOC_HeadInterface
{
public:
    /// How many heads the device has. For: path composer, file dialog targets, device list and
    /// control.
    virtual int headCount() = 0;

protected:
    ~DOC_HeadInterface() = default;
};

/// A document: one camera head or one opened file.
class DOC_MainPart
{
public:
    /// Whether region limits are multiplied by scaleDivider(). The flag is passed as false. For:
    /// region editing.
    virtual bool usesScaleDivider(bool) = 0;

    /// Sends the document's changed settings to its device. Passed: 1, false. For: region editing.
    virtual void notifyChange(int what, bool) = 0;

    /// Numbers of the partitions; the length is the partition count. For: path composer, conversion
    /// and preview dialogs, select box.
    virtual QList<int> partitionNumbers() = 0;

    /// Path of the file behind the document, empty when there is no file. For: path composer.
    virtual QString originalFilePath() = 0;

    /// Name of the file behind the document, without extension. For: path composer.
    virtual QString originalFileName() = 0;

    /// Name of a partition. For: path composer.
    virtual QString partitionName(int partitionNo) = 0;

    /// Name of the device. For: device rows and control status, path composer, save-file mediator,
    /// camera settings files.
    virtual QString deviceName() = 0;

    /// Whether the recording lies in a camera. For: path composer.
    virtual bool isCameraRecord() = 0;

    /// Text that is added to a file name; always writes `usesSequence`, which tells whether the
    /// text uses the sequence number. For: path composer.
    virtual QString fileNameAddition(int mode, int partitionNo, int sequence, bool &usesSequence,
                                     const QDateTime &time) = 0;

    /// 2: opened file. For: file dialog targets.
    virtual int documentKind() = 0;

    /// Whether the recording lies on an SD card. For: device rows and control status, file dialog
    /// targets.
    virtual bool isOnSdCard() = 0;

    /// Whether the recording lies on a Kelvault drive. For: device rows and control status, file
    /// dialog targets.
    virtual bool isOnKelvault() = 0;

    /// Whether the recording lies on a CFast card. For: device rows and control status, file dialog
    /// targets.
    virtual bool isOnCFast() = 0;

    /// Whether the document is being saved. For: file dialog targets.
    virtual bool isBusySaving() = 0;

    /// Whether a save writes the information file. For: file dialog targets, conversion and preview
    /// dialogs.
    virtual void setSaveInfoOption(bool on) = 0;

    /// Whether a save writes corrected pictures. For: file dialog targets.
    virtual void setSaveCorrectOption(bool on) = 0;

    /// Whether a save writes scaled pictures. For: file dialog targets.
    virtual void setSaveScaleOption(bool on) = 0;

    /// Information of the document for save pages. Unnamed flags are passed as true, false, true.
    /// The value "partitions" is a QVariantList of one QVariantMap per partition, in the order of
    /// partitionNumbers(). Values are texts, "totalframesplain" an int: "dockey", "selected",
    /// "filename", "filepath", "name", "drivename", "serialno", "datano", "slotno", "devicename",
    /// "cameraname", "ipaddress", "date", "time", "shutterspeed", "recordrate", "currentpartition",
    /// "totalframes", "totalframesplain", "exportframes", "resolution", "capacity",
    /// "capacitylabel", "Comments", and a "Custom_" key for each custom item with a fixed name that
    /// the document has. What does not apply is left out. For: file dialog targets.
    virtual QVariantMap documentInfoMap(bool, bool, bool convert, bool layout, bool) = 0;

    /// Position of the current partition, from 1. For: file dialog targets, info display settings,
    /// select box.
    virtual int currentPartition() = 0;

    /// Whether several partitions can be saved with skipped frames. For: file dialog targets.
    virtual bool supportsMultiSkip() = 0;

    /// The same for an opened file. For: file dialog targets.
    virtual bool supportsFileMultiSkip() = 0;

    /// Whether something has been recorded. For: file dialog targets.
    virtual bool isRecordedOnce() = 0;

    /// Marks a document that an import opened. For: file dialog targets.
    virtual void setOpenedByImport(bool on) = 0;

    /// Whether the recording can be renamed. For: media drives, camera media.
    virtual bool canRenameData() = 0;

    /// Whether saved copies can be looked for. For: media drives.
    virtual bool canCheckSaved() = 0;

    /// Whether the recording can be deleted. For: media drives.
    virtual bool canDeleteFile() = 0;

    /// Deletes the recording. For: media drives.
    virtual void deleteOwnFile() = 0;

    /// Renames the recording. For: media drives.
    virtual void setDataName(const QString &name) = 0;

    /// Name under which the document is listed. For: camera media, custom info dialog, comment
    /// dialog, camera settings files, document sort.
    virtual QString documentName() = 0;

    /// Custom information, one QVariantMap per record with "name", "value", "unit", "display",
    /// "usefilename". For: path composer, custom info dialog.
    virtual QVariantList customInfoList() = 0;

    /// Removes all custom information. For: custom info dialog.
    virtual void clearCustomInfo() = 0;

    /// Adds a record. For: custom info dialog.
    virtual void addCustomInfo(const QString &name, const QString &value, const QString &unit,
                               bool display, bool useFileName) = 0;

    /// Changes the record with this name. For: custom info dialog.
    virtual void setCustomInfo(const QString &name, const QString &value, const QString &unit,
                               bool display, bool useFileName) = 0;

    /// Removes the record with this name. For: custom info dialog.
    virtual void removeCustomInfo(const QString &name) = 0;

    /// Gives a record another name. For: custom info dialog.
    virtual void renameCustomInfo(const QString &oldName, const QString &newName) = 0;

    /// Comment on the recording. For: comment dialog.
    virtual QString documentComment() = 0;

    /// Stores the comment. For: custom info dialog, comment dialog.
    virtual void setDocumentComment(const QString &text) = 0;

    // Additions; a further one goes to the end.

    /// Whether the document plays back. For: mediators.
    virtual bool isPlaying() = 0;

    /// Frames of the partition, 0 for an empty one. For: mediators.
    virtual uint partitionFrameCount(int partitionNo) = 0;

    /// Frames per second of the opened file, 0 when not known. For: mediators.
    virtual uint fileRecordRate() = 0;

    /// Frames per second of the partition, 0 when not known. For: mediators.
    virtual uint partitionRecordRate(int partitionNo) = 0;

    /// Secondary name, shown when the device name is empty. For: device rows and control status.
    virtual QString fallbackName() = 0;

    /// Whether the document is selected. For: device rows and control status, device list and
    /// control.
    virtual bool isSelected() = 0;

    /// Name under which the camera is shown. For: camera media.
    virtual QString displayName() = 0;

    /// Whether several ranges are being trimmed. For: conversion and preview dialogs.
    virtual bool isMultiTrimming() = 0;

    /// Text shown for the trimming. For: conversion and preview dialogs.
    virtual QString multiTrimmingLabel() = 0;

    /// Shows the preview before. For: conversion and preview dialogs.
    virtual void showPreviousPreview() = 0;

    /// Shows the next preview. For: conversion and preview dialogs.
    virtual void showNextPreview() = 0;

    /// Selects a partition; the number that was selected before. For: conversion and preview
    /// dialogs.
    virtual int selectPartition(int partitionNo) = 0;

    /// Whether the document can be selected. For: device list and control.
    virtual bool isSelectable() = 0;

    /// Tells the document that it has become selected or not. For: device list and control.
    virtual void setSelected(bool selected) = 0;

    /// Whether it is selected as one of several. For: device list and control.
    virtual bool isSelectedMulti() = 0;

    /// Whether the document stands for a group. For: device list and control, document sort.
    virtual bool isGroup() = 0;

    /// Members of the group that the document stands for or is part of, in the host's order; empty
    /// without a group. For: device list and control, document sort.
    virtual QList<DOC_Interface *> groupMembers() = 0;

    /// "yyyy/M/d", empty when not known. For: document sort.
    virtual QString recordDate() = 0;

    /// "HH:mm:ss" or "HH:mm", empty when not known. For: document sort.
    virtual QString recordTime() = 0;

protected:
    ~DOC_MainPart() = default;
};

/// Geometry on the screen.
class DOC_ViewPart
{
public:
    /// Size of the picture in image pixels. For: region editing.
    virtual QSize imageSize() = 0;

    /// Tells where the pointer is, in image coordinates. For: region editing.
    virtual void reportCursorPosition(const QPoint &pos) = 0;

    /// View to image; the result lies inside the image. View coordinates are those of the picture
    /// as it is seen, turned and flipped, but neither zoomed nor scrolled. The flag is passed as
    /// true. For: region editing.
    virtual QPoint mapPoint(const QPoint &pos, bool) = 0;

    /// Image to view, as for mapPoint(). For: region editing.
    virtual QRect mapRect(const QRect &rect) = 0;

    /// Whether a rotation by 90 or 270 degrees swaps the sides of the image. For: region editing.
    virtual bool isTransposed() = 0;

    // Additions; a further one goes to the end.

    /// The point reported last, (0,0) before the first. For: the tool base.
    virtual QPoint cursorPosition() = 0;

    /// Bit counts of the image; false, and `out` untouched, when there is no record. For:
    /// mediators.
    virtual bool imageFormat(ImageFormat &out) = 0;

protected:
    ~DOC_ViewPart() = default;
};

/// Parameters and media of the camera.
///
/// `slot` is a slot index, -1 included: a slot that does not exist is unusable, disabled, all 0 and
/// without data.
class DOC_CameraPart
{
public:
    /// Size of the whole sensor image in pixels. For: region editing.
    virtual void fullImageSize(int *w, int *h) = 0;

    /// Whether the sensor's scale is divided. The flag is passed as false. For: region editing.
    virtual bool hasScaleDivider(bool) = 0;

    /// Divider of the sensor's scale. For: region editing.
    virtual int scaleDivider() = 0;

    /// Applies a stored preset. For: camera settings files.
    virtual void applyPreset(int number) = 0;

    /// Number of the camera, from 0; the same for all heads of a device. For: path composer, camera
    /// media, camera settings files.
    virtual int cameraNumber() = 0;

    /// Number of the head, from 1. For: device rows and control status, path composer, conversion
    /// and preview dialogs, add and edit device.
    virtual int headNumber() = 0;

    /// How many cameras there are. For: path composer.
    virtual int cameraCount() = 0;

    /// The device's heads, null for a document without heads. For: path composer, file dialog
    /// targets, device list and control, add and edit device.
    virtual DOC_HeadInterface *headInterface() = 0;

    /// Whether the camera's media can be managed. For: camera media.
    virtual bool isMediaManaged() = 0;

    /// Whether a medium in this slot can be used. For: camera media.
    virtual bool isSlotUsable(int slot) = 0;

    /// Whether the slot is switched on. For: camera media.
    virtual bool isSlotEnabled(int slot) = 0;

    /// What is in the slot. For: camera media.
    virtual SlotStatus slotStatus(int slot) = 0;

    /// Whether data names follow the camera's memory. For: camera media.
    virtual bool isFitMemoryMode() = 0;

    /// Most recordings that the slot holds. For: camera media.
    virtual int maxDataCount(int slot) = 0;

    /// Frames of a recording, 0 behind the last one. For: camera media.
    virtual uint dataFrames(int slot, int index) = 0;

    /// Name of a recording. For: camera media.
    virtual QString dataName(int slot, int index) = 0;

    /// Date and time words of a recording. For: camera media.
    virtual DataTime dataTime(int slot, int index) = 0;

    /// Formats the medium. For: camera media.
    virtual void formatSlot(int slot) = 0;

    /// Reads the medium anew. For: camera media.
    virtual void refreshSlot(int slot) = 0;

    /// Slot that serves a head. For: camera media.
    virtual int slotOfHead(int headNo) = 0;

    /// Free space in mebibytes. For: camera media.
    virtual quint64 slotCapacity(int slot) = 0;

    /// Renames a recording; the name is UTF-8. For: camera media.
    virtual void setDataNameOnSlot(int slot, int dataNo, const QByteArray &name) = 0;

    // Additions; a further one goes to the end.

    /// Name from the camera's information. For: device rows and control status, add and edit
    /// device, camera settings files.
    virtual QString cameraName() = 0;

    /// Whether it is a mobile device. For: device rows and control status.
    virtual bool isMobile() = 0;

    /// Whether it is a dummy without hardware. For: dialog mediators, device rows and control
    /// status, add and edit device.
    virtual bool isDummy() = 0;

    /// Whether the camera can do this, one of the numbers of Capability in HostValues.h. For:
    /// device rows and control status, mediator commands, camera media, add and edit device.
    virtual bool hasCapability(int capability) = 0;

    /// Whether it is locked in the multi-camera window. For: device rows and control status.
    virtual bool isLocked() = 0;

    /// Speed class and capacity of the card. For: camera media.
    virtual SdCardInfo sdCardInfo(int slot) = 0;

    /// Whether other heads are connected to the same device. For: device list and control.
    virtual bool sharesDevice() = 0;

    /// What the edit device dialog shows. For: add and edit device.
    virtual EditDeviceData editDeviceData() = 0;

    /// Names the camera. For: add and edit device.
    virtual void setCameraName(const QString &name) = 0;

    /// Sets the addresses of a network kind. For: add and edit device.
    virtual void setNetworkSetting(int etherType, const NetworkSetting &setting) = 0;

    /// Chooses the network kind. For: add and edit device.
    virtual void setEtherType(int type) = 0;

    /// Stored presets, ascending by number, numbers from 1. For: camera settings files.
    virtual QList<PresetInfo> presets() = 0;

    /// Whether the preset takes effect only after a reboot; asked behind applyPreset(). For: camera
    /// settings files.
    virtual bool presetNeedsReboot(int number) = 0;

    /// Reads the camera's state anew. For: select box.
    virtual void refreshCamera() = 0;

protected:
    ~DOC_CameraPart() = default;
};

/// Rotation, flips, scale and tool state.
class DOC_DisplayPart
{
public:
    /// Whether the tool can be used on this document. For: the tool base.
    virtual bool isToolAvailable(const QString &tool, bool flag) = 0;

    /// Whether the tool is on for this document. For: the tool base.
    virtual bool isToolOn(const QString &tool) = 0;

    /// Rotation of the view, a fraction of a full turn. For: region editing.
    virtual float viewRotation() = 0;

    /// Whether the view is flipped left to right. For: region editing.
    virtual bool isFlippedHorizontally() = 0;

    /// Whether the view is flipped top to bottom. For: region editing.
    virtual bool isFlippedVertically() = 0;

    /// Screen pixels per image pixel, above 0. The flag is passed as true. For: region editing.
    virtual float viewScale(bool) = 0;

    /// Exponent of the binning: 0, 1, 2 mean 1, 2, 4. For: region editing.
    virtual int binningLevel() = 0;

    /// Preview picture. The flag is passed as false. For: file dialog targets.
    virtual QPixmap previewPixmap(int mode, int width, int height, int partitionNo, bool,
                                  const QDateTime &time) = 0;

    /// Resolution of the document; flag: true for the base resolution, false for previews. For:
    /// info display settings, info display page.
    virtual QSize documentResolution(int kind, int partitionNo, bool) = 0;

    /// Thumbnail for the information display. The int is passed as 0. For: info display page.
    virtual QPixmap documentThumbnail(int kind, int width, int height, int partitionNo, int,
                                      const QDateTime &time) = 0;

    /// Path of the logo picture. For: info display page.
    virtual QString documentLogoPath() = 0;

    /// Sets the logo picture. For: info display page.
    virtual void applyLogoPath(const QString &path) = 0;

    /// The information over the picture is built again. For: info display page.
    virtual void markInfoOverlayDirty() = 0;

    // Additions; a further one goes to the end.

    /// Whether the document shows a LUT curve. For: device rows and control status.
    virtual bool showsLutCurve() = 0;

    /// Whether its reduction is suspended. For: device rows and control status.
    virtual bool isReductionSuspended() = 0;

protected:
    ~DOC_DisplayPart() = default;
};

/// Redrawing.
class DOC_RefreshPart
{
public:
    /// Draws the document's picture anew. The flag is passed as true. For: the tool base.
    virtual void refresh(bool) = 0;

protected:
    ~DOC_RefreshPart() = default;
};

/// The connection to the device.
class DOC_LinkPart
{
public:
    // Additions; a further one goes to the end.

    /// Whether the device is connected. For: mediators, camera settings files.
    virtual bool isConnected() = 0;

    /// Address text of the device. For: device rows and control status, add and edit device, camera
    /// settings files.
    virtual QString ipAddress() = 0;

    /// Whether the device is present in the network. For: device rows and control status.
    virtual bool isFound() = 0;

    /// 1: connected. For: device rows and control status.
    virtual int wirelessState() = 0;

    /// 1: supported. For: device rows and control status.
    virtual int linkSpeedState() = 0;

protected:
    ~DOC_LinkPart() = default;
};

/// A document's facade, owned by the host. Operation names are unique over all of its parts.
class DOC_Interface : public DOC_MainPart,
                      public DOC_ViewPart,
                      public DOC_CameraPart,
                      public DOC_DisplayPart,
                      public DOC_RefreshPart,
                      public DOC_LinkPart
{
protected:
    ~DOC_Interface() = default;
};

/// Marks a document that is a camera; found with dynamic_cast.
class DOC_Camera : public DOC_Interface
{
protected:
    ~DOC_Camera() = default;
};
