#pragma once

#include "contract/HostTypes.h"

#include <QFutureWatcher>
#include <QMutex>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QStringList>
#include <QVariantMap>

#include <exception>

class DOC_Interface;
class GUI_WebView;
class JS_Mediator;
class PLG_Interface;
class QWidget;

// What the library asks of the application.
//
// Host and library meet at the place of an operation in its table: the order of declaration is
// binding, and an addition goes to the end of its class. All operations run on the GUI thread
// unless they say otherwise, and report failure by an exception derived from std::exception.
// Pointers that come back are never owned by the caller, and null only where the operation says so.
// Unnamed flags get the value that the operation tells.

/// The preferences dialog, as far as a page command needs it.
class HostPrefsDialog
{
public:
    /// Goes to the page with this translated name; empty text: the first page. For: mediator
    /// commands.
    virtual void showPage(const QString &page) = 0;

    /// Runs modally; the dialog's result. For: mediator commands.
    virtual int exec() = 0;

protected:
    ~HostPrefsDialog() = default;
};

/// Modes, settings, messages, translation, refreshes.
class HostMain
{
public:
    /// Refreshes the user interface. Flags: 1 re-sends a document's settings to all devices, 4
    /// refreshes the display, ~0u everything. For: region editing, mediators, web dialogs, info
    /// display settings, info display page.
    virtual void updateUI(uint flags, bool force) = 0;

    /// Hides the pop-up list of the select box. For: mediators.
    virtual void hideSelectBox() = 0;

    /// Whether a drop-down box is on the screen. For: mediators.
    virtual bool isShownDropBox() = 0;

    /// Shows the drop-down box of this key over the rectangle, in page coordinates. For: mediator
    /// commands.
    virtual void showDropDownBox(const QString &key, const QRect &rect) = 0;

    /// Hides the drop-down box of this key, which the pointer left at `pos`. For: mediator
    /// commands.
    virtual void hideDropDownBox(const QString &key, const QPoint &pos) = 0;

    /// Hides the drop-down box of this key. For: mediator commands.
    virtual void hideDropDownBox(const QString &key) = 0;

    /// Whether the host wants to hear of dialogs that open and close. For: web dialogs.
    virtual bool needsDialogEnterNotice() = 0;

    /// The widget of the multi-document area for pages that embed it; may be null. For: web
    /// dialogs.
    virtual QObject *webPageEmbeddedMdi() = 0;

    /// Stores the view in the mediator and shows the mediator to the page under its `objectName()`,
    /// which is its page name, "savefile" for JS_Mediator_SaveFile; beside it, or alone for null,
    /// "app" and "main"; again when the window object is cleared. For: mediators, web dialogs.
    virtual void attachMediator(GUI_WebView *view, JS_Mediator *mediator) = 0;

    /// 0 live, 1 memory, 2 file. For: the tool base, device rows and control status, info display
    /// page.
    virtual int currentMode() = 0;

    /// Whether the cameras' live pictures are shown. For: the tool base, mediators, device rows and
    /// control status, mediator commands, file dialog targets, info display page, camera settings
    /// files, select box.
    virtual bool isLiveMode() = 0;

    /// Whether recordings in camera memory are shown. For: mediators, device rows and control
    /// status, path composer, file dialog targets, info display page, add and edit device.
    virtual bool isMemoryMode() = 0;

    /// Whether recordings of files are shown. For: the tool base, mediators, device rows and
    /// control status, path composer, save-file mediator, info display settings.
    virtual bool isFileMode() = 0;

    /// Parent of dialogs and message boxes; may be null. For: web dialogs, mediator commands,
    /// save-file mediator, custom info dialog, comment dialog, device list and control, theme.
    virtual QWidget *mainWidget() = 0;

    /// Shows `what()` to the user. Must not throw. For: every guarded slot.
    virtual void errorHandler(std::exception &e) = 0;

    /// Message box with information. The parent may be null, here and below. For: mediators,
    /// mediator commands, media drives.
    virtual void info(const QString &text, QWidget *parent) = 0;

    /// Message box with a warning and a list of items. For: mediators.
    virtual void warn(const QString &text, const QStringList &items, QWidget *parent) = 0;

    /// Message box with a warning. For: mediators, file dialog targets, camera settings files,
    /// password dialogs.
    virtual void warn(const QString &text, QWidget *parent) = 0;

    /// Message box with an error and a list of items. For: mediators.
    virtual void alert(const QString &text, const QStringList &items, QWidget *parent) = 0;

    /// Message box with an error. For: mediators, media drives.
    virtual void alert(const QString &text, QWidget *parent) = 0;

    /// Asks a yes-or-no question; true for yes. The library passes an empty map. For: mediators,
    /// mediator commands, media drives, camera media, info display settings, device list and
    /// control, camera settings files.
    virtual bool confirm(const QString &text, QWidget *parent, const QVariantMap &options) = 0;

    /// Translation of a source text; a text without a translation comes back as it is. For: all
    /// classes.
    virtual QString translate(const QString &text) = 0;

    /// Refreshes the quick tools after all of them were switched off. For: mediator commands.
    virtual void setAllQuickToolsDisabledRefresh() = 0;

    /// The preferences dialog; never null. For: mediator commands.
    virtual HostPrefsDialog *prefsDialog() = 0;

    /// Opens the about box. For: mediator commands.
    virtual void openAboutDialog() = 0;

    /// Whether the tool with this key works on the picture just now, such as "t_crosscursor". For:
    /// region editing.
    virtual bool isToolRunning(const QString &tool) = 0;

    /// Whether a feature such as "binning" is on for the document. The last flag is passed as
    /// false. For: region editing.
    virtual bool isFeatureOn(const QString &key, DOC_Interface *doc, bool) = 0;

    /// Whether the application has finished starting. For: mediators.
    virtual bool isReady() = 0;

    /// Whether dialogs shall not report that they were left. For: web dialogs.
    virtual bool isDialogExitSuppressed() = 0;

    /// Whether refreshes are ignored just now. For: mediators.
    virtual bool isUpdateIgnore() = 0;

    /// Holds refreshes back: true begins, false ends; calls nest. For: a tool's dialog, mediators,
    /// device rows and control status, web dialogs.
    virtual void deterUpdateUI(bool deter) = 0;

    /// Fills `out` with what can be taken on the GUI thread only. For: mediator commands.
    virtual void exportSupportSnapshot(SupportSnapshot &out) = 0;

    /// Writes the support file as a ZIP; false when it was not written. Called on a pool thread.
    /// For: mediator commands.
    virtual bool writeSupportFile(const QString &path, const SupportSnapshot &snapshot) = 0;

    /// Whether camera names are completed from a list. For: camera name list.
    virtual bool isAutoCameraNameEnabled() = 0;

    /// A setting by its key; an invalid default means the host's own default. For: mediators,
    /// device rows and control status, mediator commands, custom info dialog, select box, theme.
    virtual QVariant getPref(const QString &key, const QVariant &defaultValue) = 0;

    /// A setting as int, 0 when it is missing without any default. For: mediators, settings
    /// readers.
    virtual int getPrefInt(const QString &key, const QVariant &defaultValue) = 0;

    /// A setting as bool, false when it is missing without any default. For: mediators, settings
    /// readers.
    virtual bool getPrefBool(const QString &key, const QVariant &defaultValue) = 0;

    /// A setting as double, 0.0 when it is missing without any default. For: mediators.
    virtual double getPrefFloat(const QString &key, const QVariant &defaultValue) = 0;

    /// A setting as text, empty when it is missing without any default. For: path composer, camera
    /// name list, theme.
    virtual QString getPrefString(const QString &key, const QVariant &defaultValue) = 0;

    /// Stores a setting. For: mediators, mediator commands, custom info dialog, network search,
    /// theme.
    virtual void setPref(const QString &key, const QVariant &value) = 0;

    /// Stores an int setting. For: mediators, media drives, display format dialogs.
    virtual void setPrefInt(const QString &key, int value) = 0;

    /// Stores a bool setting. For: mediators, display format dialogs.
    virtual void setPrefBool(const QString &key, bool value) = 0;

    /// Stores a floating-point setting. For: mediators.
    virtual void setPrefFloat(const QString &key, double value) = 0;

    /// Stores a text setting. For: mediators.
    virtual void setPrefString(const QString &key, const QString &value) = 0;

    /// Tells that a text box of a modeless dialog has or has lost the focus. For: dialog mediators.
    virtual void setTextBoxFocusState(bool focused) = 0;

    /// A dialog announced by notifyDialogEntered() has gone. For: web dialogs.
    virtual void notifyDialogLeft() = 0;

    /// A dialog has opened. For: web dialogs.
    virtual void notifyDialogEntered() = 0;

    /// Whether settings were restored at start and the user has not been told yet. For: mediators.
    virtual bool hasRestoredPrefs() = 0;

    /// The user knows of the restored settings. The flag is passed as true. For: mediators.
    virtual void acknowledgeRestoredPrefs(bool) = 0;

    /// Shows progress until the watched task has ended, then returns; rethrows what the task threw.
    /// For: mediator commands, camera settings files.
    virtual void runWithProgress(const QString &text, QFutureWatcher<void> &watcher) = 0;

    /// Whether the multi-camera window is on the screen. For: mediator commands.
    virtual bool isTrelvikWindowShown() = 0;

    /// Opens the network settings of the system. For: mediator commands.
    virtual void openEthernetSettings() = 0;

    /// The host's default of a setting. For: info display settings.
    virtual QVariant prefDefault(const QString &key) = 0;

    /// Deletes the stored value, so that the default shows again. For: info display settings.
    virtual void removePref(const QString &key) = 0;

    /// The default of the setting "info/display". For: info display settings.
    virtual QString infoItemDefaultDisplay() = 0;

    /// Text shown for an information item; an unknown id gives the id. For: info display page.
    virtual QString infoItemLabel(const QString &id) = 0;

    /// Families that texts over the picture can use. For: info display settings.
    virtual QStringList fontFamilyList() = 0;

    /// Tells the font that output in the other language uses; `group` is the group offset minus
    /// one. For: info display settings.
    virtual void applyOutputFontName(const QString &fontName, int group) = 0;

    /// Version of the application, as written into custom info files. For: custom info files,
    /// custom info dialog.
    virtual QString hostVersionText() = 0;

    /// Fills the time code record; a field without a stored value keeps what `out` holds. For: time
    /// code dialog.
    virtual void getTimeCodeSetting(TimeCodeRecord &out) = 0;

    /// Stores the time code record. For: time code dialog.
    virtual void setTimeCodeSetting(const TimeCodeRecord &record) = 0;

    /// Whether a conversion runs. For: file dialog targets.
    virtual bool isConverting() = 0;

    /// Whether partitions are selected automatically. For: file dialog targets.
    virtual bool isPartitionSelectionAuto() = 0;

    // Additions; a further one goes to the end.

    /// The first scriptable object, "app" in pages. For: mediators, info display settings, time
    /// code dialog, comment dialog, select box.
    virtual QObject *appScriptObject() = 0;

    /// The second scriptable object, "main" in pages. For: mediators, select box.
    virtual QObject *mainScriptObject() = 0;

    /// Whether the host shows its views in turn. For: device rows and control status.
    virtual bool isCycleView() = 0;

    /// Whether the page shown is none of live view; with true, none of live view and device
    /// settings. For: device rows and control status.
    virtual bool isNotLivePage(bool orDeviceSettings) = 0;

    /// Whether the preferences dialog is open. For: device rows and control status.
    virtual bool isPrefsDialogOpen() = 0;

    /// Whether a modal dialog is open. For: device rows and control status.
    virtual bool isModalDialogOpen() = 0;

    /// What setTextBoxFocusState() was last given. For: device rows and control status.
    virtual bool textBoxFocusState() = 0;

    /// Folder of the companion application, empty when it is not installed. For: companion check.
    virtual QString companionInstallDir() = 0;

protected:
    ~HostMain() = default;
};

/// Tools and plug-ins.
class HostPlugins
{
public:
    /// The plug-in with this key, null without such a plug-in. For: web dialogs.
    virtual PLG_Interface *pluginByName(const QString &name) = 0;

    /// Leaves the panel of the current plug-in; the plug-in stays open. For: the tool base.
    virtual void returnFromPlugin() = 0;

    /// Opens a tool by its key. For: mediators, select box.
    virtual void openPluginByName(const QString &tool) = 0;

    /// Closes a tool by its key. For: a tool's dialog, mediators.
    virtual void closePluginByName(const QString &tool) = 0;

    /// Closes the current plug-in. For: the tool base, mediators.
    virtual void closeCurrentPlugin() = 0;

    /// The plug-in whose panel is open, null when none is open. For: the tool base, device rows and
    /// control status, select box.
    virtual PLG_Interface *currentPlugin() = 0;

    /// Key of the current plug-in, empty when none is open. For: device rows and control status.
    virtual QString currentPluginName() = 0;

    /// Whether the multi-camera window is in use. For: mediators, device rows and control status.
    virtual bool isTrelvikRunning() = 0;

    /// Whether the application is the M version. For: mediators.
    virtual bool isMVersion() = 0;

    /// The selection or the list of documents is about to change. For: device rows and control
    /// status, device list and control.
    virtual void prepareSelectAll() = 0;

    // Additions; a further one goes to the end.

    /// Whether the auto exposure setting is open. For: device rows and control status.
    virtual bool isAutoExposureSettingOpen() = 0;

    /// Whether the hardware trigger setting is open. For: device rows and control status.
    virtual bool isHwTriggerSettingOpen() = 0;

    /// Whether the variable setting is open. For: device rows and control status.
    virtual bool isVariableSettingOpen() = 0;

    /// Whether tracking runs. For: device rows and control status.
    virtual bool isTracking() = 0;

    /// Whether a node command is being sent. For: device rows and control status.
    virtual bool isSendingNodeCommand() = 0;

    /// Whether an image adjustment runs. For: device rows and control status.
    virtual bool isAdjustingImage() = 0;

    /// Whether pixel defects are being detected. For: device rows and control status.
    virtual bool isDetectingPixelDefect() = 0;

    /// Whether the image trigger captures. For: device rows and control status.
    virtual bool isImageTriggerCapturing() = 0;

    /// Whether the image trigger detects. For: device rows and control status.
    virtual bool isImageTriggerDetecting() = 0;

    /// Whether another plug-in is open. For: device rows and control status.
    virtual bool isOtherPluginOpen() = 0;

    /// The plug-in makes ready the widget that a page embeds under this class id; "livecontrol"
    /// serves two. For: web dialogs.
    virtual void prepareEmbeddedWidget(PLG_Interface *plugin, const QString &classid) = 0;

    /// The widget made ready last, null when there is none. For: web dialogs.
    virtual QWidget *embeddedWidget(PLG_Interface *plugin) = 0;

protected:
    ~HostPlugins() = default;
};

/// The document list, the selection, tool states, the lock.
///
/// deviceByKey() and documentByKey() both find by key. A 32-bit document identifier of the tool
/// contract goes in sign-extended, so that -1 becomes NoDocKey.
class HostDocuments
{
public:
    /// The device document with this key, null without such a document. The flag is passed as true.
    /// For: all classes.
    virtual DOC_Interface *deviceByKey(DOCKEY key, bool) = 0;

    /// The document with this key, null without such a document. For: device rows and control
    /// status, add and edit device.
    virtual DOC_Interface *documentByKey(DOCKEY key) = 0;

    /// Makes this document the current one. The flag is passed as true. For: device rows and
    /// control status, device list and control.
    virtual void setCurrentDoc(DOCKEY key, bool) = 0;

    /// Takes this document out of the selection. For: device list and control.
    virtual void unselectDoc(DOCKEY key) = 0;

    /// The current document, null when there is none. For: region editing, mediators, device rows
    /// and control status, info display settings, comment dialog, add and edit device, select box.
    virtual DOC_Interface *currentDocument() = 0;

    /// Key of the current document, NoDocKey when there is none. For: mediators, device rows and
    /// control status, custom info dialog.
    virtual DOCKEY currentDocKey() = 0;

    /// Closes a document. For: device list and control.
    virtual void removeDocument(DOCKEY key) = 0;

    /// Closes all documents, or only clears the selection. The int is passed as 0. For: device list
    /// and control.
    virtual void removeAllDocuments(int, bool unselectOnly) = 0;

    /// Selects all documents on behalf of the mediator. For: device rows and control status, device
    /// list and control.
    virtual void selectAllDocs(JS_Mediator *receiver) = 0;

    /// Selects just these documents; an empty list clears the selection. The flag is passed as
    /// false. For: device rows and control status.
    virtual void selectDocs(const QList<DOCKEY> &keys, bool) = 0;

    /// Shows the documents' information anew. The flag is passed as true. For: mediator commands,
    /// custom info dialog, display format dialogs.
    virtual void refreshDocumentInfo(bool) = 0;

    /// Locks the cameras of the multi-camera window together, or releases them. For: the lock tool.
    virtual void setTrelvikLock(bool lock) = 0;

    /// Whether the cameras are locked together. For: the tool base, region editing.
    virtual bool isTrelvikLocked() = 0;

    /// Keeps what was changed since beginTransaction(). `apply` is passed as true. For: the tool
    /// base.
    virtual void commitTransaction(bool apply, const QString &tool) = 0;

    /// Remembers the state that a tool may roll back to. First flag by the tool's transaction kind
    /// (true for 0, false for 1), second passed as true. For: the tool base.
    virtual void beginTransaction(const QString &tool, bool, bool) = 0;

    /// Takes back what was changed since beginTransaction() and ends the transaction. For: the tool
    /// base.
    virtual void rollbackTransaction(const QString &tool) = 0;

    /// Takes back what was changed since beginTransaction(); the transaction goes on. For: the tool
    /// base.
    virtual void resetTransaction(const QString &tool) = 0;

    /// A button tool was switched on or off. For: the tool base.
    virtual void setToolActive(const QString &tool, bool on) = 0;

    /// Makes this tool the exclusive quick tool; an empty key: none. For: the tool base, a tool's
    /// dialog, mediator commands.
    virtual void setQuickTool(const QString &tool) = 0;

    /// Sets whether the tool is on. For: the tool base, a tool's dialog.
    virtual void setToolState(const QString &tool, bool on) = 0;

    /// Whether waveform data is being acquired. For: mediators.
    virtual bool isWaveDataAcquisition() = 0;

    /// Fills the keys of all devices. The flag is passed as true. For: device rows and control
    /// status, add and edit device, camera settings files.
    virtual void deviceKeys(QList<DOCKEY> &out, bool) = 0;

    /// Fills the keys of the documents with a live picture. The flag is passed as true. For: the
    /// tool base.
    virtual void liveDocKeys(QList<DOCKEY> &out, bool) = 0;

    /// Fills the selected keys; false: in the order of selection, true: in the order of the
    /// document list. For: device rows and control status, custom info dialog, comment dialog,
    /// camera settings files, select box.
    virtual void selectedDocKeys(QList<DOCKEY> &out, bool inListOrder) = 0;

    /// Guards the document list against the host's own threads; never null. Callers only ever try
    /// it. For: the tool base, device list and control.
    virtual QMutex *documentsMutex() = 0;

    /// Ends beginExclusiveUpdate(). For: the tool base.
    virtual void endExclusiveUpdate() = 0;

    /// Keeps others from updating the view. For: the tool base.
    virtual void beginExclusiveUpdate() = 0;

    /// Ends beginExclusiveRefresh(). For: the tool base.
    virtual void endExclusiveRefresh() = 0;

    /// Keeps others from refreshing the view. For: the tool base.
    virtual void beginExclusiveRefresh() = 0;

    /// All open documents in the host's own order. Flags are passed as true, false. For: mediator
    /// commands, save-file mediator, file dialog targets, info display page, document sort.
    virtual QList<DOCKEY> documentKeys(bool, bool) = 0;

    /// Documents with a live picture. The flag is passed as true. For: file dialog targets.
    virtual QList<DOCKEY> liveDocumentKeys(bool) = 0;

    /// Fills the keys that a temporary save works on. For: file dialog targets, custom info dialog.
    virtual void temporaryDocumentKeys(QList<DOCKEY> &out) = 0;

    /// Keys of the files opened last. For: file dialog targets.
    virtual QList<DOCKEY> openedDocumentKeys() = 0;

    /// Fills the keys shown by a comment dialog that was opened for one document. Passed: true, 0.
    /// For: comment dialog.
    virtual void targetDocKeys(QList<DOCKEY> &out, bool, int) = 0;

    /// Key of a document, NoDocKey for one that is not the host's. For: comment dialog, device list
    /// and control.
    virtual DOCKEY documentKeyOf(DOC_Interface *doc) = 0;

    /// How many documents are selected. For: device rows and control status, file dialog targets.
    virtual int selectedDocumentCount() = 0;

    /// Imports these recordings. For: file dialog targets.
    virtual void importTargets(const QList<DOCKEY> &keys) = 0;

    /// Closes the opened files. The flag is passed as false. For: file dialog targets.
    virtual void closeFileDocuments(bool) = 0;

    /// Opens files. Flags are passed as true, true, true, false, false. For: file dialog targets.
    virtual void openFiles(const QStringList &files, bool, bool, bool, bool, bool) = 0;

    /// Closes what was opened from the media of this camera. For: camera media.
    virtual void closeCameraData(int cameraNumber) = 0;

    /// Those of `records` with a saved copy below `folder`. For: media drives.
    virtual QList<SavedRecord> findSavedRecords(const QString &folder,
                                                const QList<SavedRecord> &records) = 0;

    /// The file of this document was deleted. For: media drives.
    virtual void refreshAfterDelete(DOCKEY key) = 0;

    // Additions; a further one goes to the end.

    /// How many documents are open. For: device rows and control status.
    virtual int documentCount() = 0;

    /// Whether there is waveform data. For: device rows and control status.
    virtual bool hasWaveformData() = 0;

    /// Whether every device is locked. For: device rows and control status.
    virtual bool areAllDevicesLocked() = 0;

protected:
    ~HostDocuments() = default;
};

/// Pausing and resuming the live view.
class HostLiveControl
{
public:
    /// Ends pauseLive() or pauseLiveExclusive(). For: the tool base.
    virtual void resumeLive() = 0;

    /// Pauses the live picture with nobody else at work on it. Flags are passed as false, true,
    /// true. For: the tool base.
    virtual void pauseLiveExclusive(bool, bool, bool) = 0;

    /// Pauses the live picture. The flag is passed as false. For: the tool base.
    virtual void pauseLive(bool) = 0;

    /// Whether the live picture is paused. For: the tool base.
    virtual bool isLivePaused() = 0;

    /// Holds live view or playback while a tool is open. The flag is passed as false. For: the tool
    /// base, a tool's dialog.
    virtual void suspendView(bool) = 0;

    /// Ends suspendView(). The flag is passed as false. For: the tool base, a tool's dialog.
    virtual void resumeView(bool) = 0;

    // Additions; a further one goes to the end.

    /// Live view is made ready for the preferences dialog. For: mediator commands.
    virtual void prepareLiveForPrefs() = 0;

protected:
    ~HostLiveControl() = default;
};

/// Recording state.
class HostRecord
{
public:
    // Additions; a further one goes to the end.

    /// Whether a recording runs. For: device rows and control status.
    virtual bool isRecording() = 0;

    /// 0 none, 1 waiting for the camera to be ready to record, 2 ready, 4 error; asked once per
    /// snapshot. For: device rows and control status.
    virtual int recordingState() = 0;

    /// Whether the cameras' partitions contradict each other. The flag is passed as true. For:
    /// device rows and control status.
    virtual bool hasPartitionConflict(bool) = 0;

protected:
    ~HostRecord() = default;
};

/// Pausing and resuming playback.
class HostPlayback
{
public:
    /// Pauses playback. For: the tool base.
    virtual void pausePlayback() = 0;

    /// Ends pausePlayback(). For: the tool base.
    virtual void resumePlayback() = 0;

protected:
    ~HostPlayback() = default;
};

/// Camera operations at the level of connections.
class HostCameraLink
{
public:
    /// Name that a new camera gets. For: add and edit device.
    virtual QString defaultCameraName() = 0;

    /// Connects the devices at these addresses. For: network search.
    virtual void connectDevices(const QStringList &addresses) = 0;

    /// Adds a device, or a dummy without hardware. For: add and edit device.
    virtual void addDevice(const QString &name, const QString &address, bool dummy) = 0;

    /// JSON of a new search in the network. For: network search.
    virtual QString searchAgain() = 0;

    /// Sets address, mask and gateway of the device with this hardware address, reached through
    /// `adapter`. For: network search.
    virtual void setNetworkSettings(const QString &adapter, const QString &ip, const QString &mask,
                                    const QString &gateway, const QString &mac) = 0;

    // Additions; a further one goes to the end.

    /// Whether lowlight is on for the current device. For: device rows and control status.
    virtual bool isLowlightOn() = 0;

    /// Whether some device has lowlight. For: device rows and control status.
    virtual bool hasLowlightDevice() = 0;

    /// Whether all lowlight devices are on, or all are off. For: device rows and control status.
    virtual bool areAllLowlight(bool on) = 0;

    /// Whether a lens calibration runs. For: device rows and control status.
    virtual bool isLensCalibrationRunning() = 0;

    /// Whether auto focus runs. For: device rows and control status.
    virtual bool isAutoFocusing() = 0;

    /// Whether a phase adjustment runs. For: device rows and control status.
    virtual bool isPhaseAdjusting() = 0;

    /// Whether shading runs. For: device rows and control status.
    virtual bool isShading() = 0;

    /// Whether the current device is not the auto focus one. The flag is passed as true. For:
    /// device rows and control status.
    virtual bool isCurrentOtherThanAutoFocus(bool) = 0;

    /// Writes the "qcfg" file of these documents. Called on a pool thread. For: camera settings
    /// files.
    virtual void saveCameraSettings(const QString &path, const QList<DOCKEY> &keys) = 0;

    /// Reads a "qcfg" file into these documents. For: camera settings files.
    virtual void loadCameraSettings(const QString &path, const QList<DOCKEY> &keys) = 0;

    /// Switches the cameras to this partition. The flag is passed as true. For: select box.
    virtual void selectCameraPartition(int partitionNo, bool) = 0;

    /// Selects a stored variable of the cameras. For: select box.
    virtual void selectVariable(uint number) = 0;

protected:
    ~HostCameraLink() = default;
};

/// File handling, the save plan of a batch, media drives.
///
/// Drive types, drive and slot numbers are int. No password is ever shown by a journal or log.
class HostFileExport
{
public:
    /// Copies the selected area of the picture to the clipboard. The mode is passed as 2. For:
    /// mediator commands.
    virtual void copySelectArea(int mode) = 0;

    /// Forgets the group directory of the batch. For: file dialog targets, conversion and preview
    /// dialogs.
    virtual void clearPlannedGroupDir() = 0;

    /// Forgets the planned directories. For: file dialog targets, conversion and preview dialogs.
    virtual void clearPlannedDirs() = 0;

    /// Forgets the planned files. For: file dialog targets, conversion and preview dialogs.
    virtual void clearPlannedFiles() = 0;

    /// Fixes the group directory for the batch. For: path composer, file dialog targets.
    virtual void setPlannedGroupDir(const QString &name) = 0;

    /// Adds a directory that the batch will make. For: path composer.
    virtual void addPlannedDir(const QString &dir) = 0;

    /// Adds a file that the batch will write. For: path composer.
    virtual void addPlannedFile(const QString &path) = 0;

    /// Whether exactly this text was added as a directory. For: path composer.
    virtual bool isPlannedDir(const QString &dir) = 0;

    /// Whether exactly this text was added as a file. For: path composer.
    virtual bool isPlannedFile(const QString &path) = 0;

    /// The group directory fixed for the batch, empty when none is fixed. For: path composer.
    virtual QString plannedGroupDir() = 0;

    /// The batch's alternative directory, empty when there is none. For: path composer.
    virtual QString plannedTargetDir() = 0;

    /// Drives of card readers, bits 0 to 25 for A to Z. For: media drives.
    virtual uint cardReaderDriveMask() = 0;

    /// Bit value of the open drive, 0 for none. For: media drives.
    virtual uint openCardReaderDrive() = 0;

    /// Opens the drive with this bit value. For: media drives.
    virtual void openCardReaderDrive(uint drive) = 0;

    /// Closes what was opened from a card reader. For: media drives.
    virtual void closeCardReaderData() = 0;

    /// Maps with "driveno", "slotno", "drivetype" (int) and "drivename" (text). For: media drives.
    virtual QList<QVariantMap> kelvaultDrives() = 0;

    /// The same for card drives. For: media drives.
    virtual QList<QVariantMap> cfCardDrives() = 0;

    /// Opens a drive. Throws a DOC_Exception with the error code 407 when the drive is locked. For:
    /// media drives.
    virtual void openKelvaultDrive(int type, int driveNo, int slotNo, const QString &name) = 0;

    /// Unlocks a drive; false: wrong password. For: media drives.
    virtual bool unlockKelvaultDrive(int type, int driveNo, const QString &password) = 0;

    /// Changes the password of a drive; false when `oldPassword` is wrong. For: media drives.
    virtual bool changeDrivePassword(int type, int driveNo, const QString &oldPassword,
                                     const QString &newPassword) = 0;

    /// Drops the remembered password of a drive. The text is passed empty. For: media drives.
    virtual void forgetDrivePassword(int type, int driveNo, int slotNo, const QString &text) = 0;

    /// Asks for the open drive: false when none is open, and then nothing is written. For: media
    /// drives.
    virtual bool openCFCardDrive(int *type, int *driveNo) = 0;

    /// Opens a drive. For: media drives.
    virtual void openCFCardDrive(int type, int driveNo, int slotNo, const QString &name) = 0;

    /// Closes what was opened from a card drive. The flag is passed as false. For: media drives.
    virtual void closeCFastData(bool) = 0;

    /// Used part of a drive in per cent, 0 to 100. For: media drives.
    virtual double driveUseRatio(int type, int driveNo, int slotNo) = 0;

    /// Used part of a card drive in per cent, 0 to 100. For: media drives.
    virtual double cfastUseRatio(int type, int driveNo, int slotNo) = 0;

    /// Bytes written to the drive in its life. For: media drives.
    virtual quint64 totalWrittenBytes(int type, int driveNo, int slotNo) = 0;

    /// Formats a drive; false when it failed. For: media drives.
    virtual bool formatKelvaultDrive(int type, int driveNo, int slotNo) = 0;

    /// Formats a card drive; false when it failed. For: media drives.
    virtual bool formatCFCardDrive(int type, int driveNo, int slotNo) = 0;

    /// Shows the media of this kind anew; kinds 1 to 5 and 7 to 9. For: media drives.
    virtual void refreshMediaView(int kind) = 0;

    // Additions; a further one goes to the end.

    /// Whether a background save runs. For: device rows and control status.
    virtual bool isBackgroundSaving() = 0;

    /// Whether a background conversion runs. For: device rows and control status.
    virtual bool isBackgroundConverting() = 0;

    /// Whether a direct save runs. The flag is passed as true. For: device rows and control status.
    virtual bool isDirectSaving(bool) = 0;

    /// Whether an automatic export runs. For: device rows and control status.
    virtual bool isAutoExporting() = 0;

protected:
    ~HostFileExport() = default;
};

/// Zoom, rotation and flips of the views.
class HostViewState
{
public:
    /// Rotation of a document's view, a fraction of a full turn. For: mediators.
    virtual float rotation(DOCKEY key) = 0;

    /// Whether the view is flipped left to right. For: mediators.
    virtual bool flipHorizontal(DOCKEY key) = 0;

    /// Whether the view is flipped top to bottom. For: mediators.
    virtual bool flipVertical(DOCKEY key) = 0;

    /// Zoom of the view, 0.0 or less at fit-to-window. `which` is passed as 0. For: the tool base.
    virtual float zoomFactor(int which) = 0;

    // Additions; a further one goes to the end.

    /// Whether the view itself cycles. For: device rows and control status.
    virtual bool isViewCycling() = 0;

    /// Whether display information is shown. For: device list and control.
    virtual bool isDisplayInfoShowing() = 0;

    /// Shows or hides display information. For: device list and control.
    virtual void setDisplayInfoShowing(bool show) = 0;

protected:
    ~HostViewState() = default;
};

/// The windows inside the main window.
class HostWindows
{
public:
    /// How many document windows there are, or how many visible ones. The int is 2 from the page
    /// slot, 0 from the control status. For: mediators, device rows and control status.
    virtual int countMdiWindow(bool visible, int) = 0;

    // Additions; a further one goes to the end.

    /// Title of the current document's window, empty when there is none. For: dialog mediators.
    virtual QString currentWindowTitle() = 0;

    /// Whether the main window fills the screen. For: device rows and control status.
    virtual bool isFullScreen() = 0;

    /// Whether the application's window is active on the multi-camera window. For: device rows and
    /// control status.
    virtual bool isActiveOnTrelvik() = 0;

    /// Brings the windows of all selected documents to view. For: device list and control.
    virtual void showAllDocuments() = 0;

protected:
    ~HostWindows() = default;
};

/// Undo, redo and macros.
class HostUndoStack
{
public:
    /// Forgets all steps. For: the tool base.
    virtual void clearUndoStack() = 0;

    /// Whether there is a step to undo. For: device rows and control status.
    virtual bool canUndo() = 0;

    /// Whether there is a step to redo. For: device rows and control status.
    virtual bool canRedo() = 0;

    /// Gathers what follows into one step until endUndoMacro(). For: region editing, dialog
    /// mediators, device list and control.
    virtual void beginUndoMacro(const QString &text) = 0;

    /// Ends the step begun by beginUndoMacro(). For: region editing, dialog mediators, device list
    /// and control.
    virtual void endUndoMacro() = 0;

    // Additions; a further one goes to the end.

    /// Takes back one step. For: dialog mediators.
    virtual void undo() = 0;

    /// Does one step again. For: dialog mediators.
    virtual void redo() = 0;

protected:
    ~HostUndoStack() = default;
};

/// The application's facade. It outlives every tool; nobody here deletes it. Operation names are
/// unique over all of its parts.
class HostServices : public HostMain,
                     public HostPlugins,
                     public HostDocuments,
                     public HostLiveControl,
                     public HostRecord,
                     public HostPlayback,
                     public HostCameraLink,
                     public HostFileExport,
                     public HostViewState,
                     public HostWindows,
                     public HostUndoStack
{
protected:
    ~HostServices() = default;
};
