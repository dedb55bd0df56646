#pragma once

#include "bridge/page/PageProof.h"
#include "contract/HostServices.h"
#include "contract/HostValues.h"
#include "standin/documents/DocumentOwner.h"
#include "standin/documents/StandInCamera.h"
#include "standin/documents/StandInGroup.h"
#include "standin/documents/StandInRecording.h"
#include "standin/host/HostFrontEnd.h"
#include "standin/host/StandInState.h"
#include "standin/journal/CallJournal.h"
#include "standin/journal/MessageLog.h"
#include "standin/journal/Pauses.h"
#include "standin/journal/StandInEvents.h"
#include "standin/network/CameraNetwork.h"
#include "standin/network/DeviceConnections.h"
#include "standin/saving/SavePlan.h"
#include "standin/session/CameraLock.h"
#include "standin/session/CameraPresets.h"
#include "standin/session/CameraSettingsCopies.h"
#include "standin/session/DocumentList.h"
#include "standin/session/UndoHistory.h"
#include "standin/settings/StandInSettings.h"
#include "standin/tools/ReadOut.h"
#include "standin/tools/ToolTable.h"

#include <QPointer>
#include <QScopeGuard>

#include <memory>

class NetworkSearch;

/// A complete stand-in for the application: every operation of HostServices, in memory.
///
/// What a tool of this library works with is real: modes, settings, documents and selection, the
/// lock, plug-ins, transactions, pauses, the undo stack, translations, the save plan. Everything
/// else answers from state(). Each call of the library leaves a line in the journal, and a test can
/// let any of them fail. What tests and the workbench do by themselves, by the operations below,
/// leaves none.
///
/// It outlives all tools. GUI thread, but for the journal.
class StandInHost : public HostServices, public DocumentOwner
{
public:
    enum class Mode { Live = HostMode::Live, Memory = HostMode::Memory, File = HostMode::File };

    using Message = MessageLog::Message;

    /// Settings in memory.
    StandInHost();

    /// Settings in an INI file, which is made when it does not exist.
    explicit StandInHost(const QString &iniFile);

    virtual ~StandInHost();

    StandInHost(const StandInHost &) = delete;
    StandInHost &operator=(const StandInHost &) = delete;

    // The journal and faults; see CallJournal.

    QStringList journal() const { return m_journal.lines(); }
    QStringList commands() const { return m_journal.commands(); }
    void clearJournal() { m_journal.clear(); }
    void setJournalEnabled(bool on) { m_journal.setEnabled(on); }
    void setJournalLimit(int lines) { m_journal.setLimit(lines); }
    int callCount() const { return m_journal.callCount(); }
    void failOn(const QString &operation, int nth = 1) { m_journal.failOn(operation, nth); }
    void failAtCall(int nth) { m_journal.failAtCall(nth); }
    void failFromCall(int nth) { m_journal.failFromCall(nth); }
    void answerNullOn(const QString &operation, int nth = 1)
    {
        m_journal.answerNullOn(operation, nth);
    }
    void answerEmptyOn(const QString &operation, int nth = 1)
    {
        m_journal.answerEmptyOn(operation, nth);
    }
    void delayOn(const QString &operation, int msec) { m_journal.delayOn(operation, msec); }
    void removeDocumentOn(const QString &operation, DOCKEY key)
    {
        m_journal.removeDocumentOn(operation, key);
    }
    void clearFaults() { m_journal.clearFaults(); }
    CallJournal &callJournal() override { return m_journal; }

    // What it answers from, and what happens in it.

    StandInState &state() { return m_state; }
    HostFrontEnd &frontEnd() { return m_frontEnd; }
    StandInSettings &settings() { return *m_settings; }
    StandInEvents *events() override { return &m_events; }
    QUndoStack *undoSteps() { return &m_undo.steps(); } ///< to look at; owned by the host

    /// Does a step of a user interface, which passes into the host's ownership.
    void pushUndoStep(QUndoCommand *step) { m_undo.push(step); }

    // Modes.

    Mode mode() const { return m_mode; }

    /// Changes the mode and tells all plug-ins.
    void setMode(Mode mode);

    // Documents; see DocumentList.

    /// Key of the next document that is added. All keys but NoDocKey will do.
    void setNextKey(DOCKEY key) { m_documents.setNextKey(key); }

    /// A new camera, owned by the host. It joins the lock when that is on.
    StandInCamera *addCamera(const StandInCamera::Description &description = {});

    /// Opens a folder of images, a frame each, in natural order. The recording is owned by the
    /// host. Throws a DOC_ReadFileException when the folder holds no image that can be read.
    StandInRecording *openRecording(const QString &folder);

    /// A document that stands for a group of others.
    StandInGroup *addGroup(const QString &name, const QList<StandInDocument *> &members);

    /// Closes a document without a call in the journal.
    void closeDocument(DOCKEY key) { m_documents.close(key); }

    /// Does what removeDocument() does, for a user interface around the host: a head goes with the
    /// others of its device.
    void removeFromList(DOCKEY key);

    StandInDocument *document(DOCKEY key) const { return m_documents.document(key); }
    StandInCamera *camera(DOCKEY key) const override { return m_documents.camera(key); }
    QList<StandInDocument *> documents() const { return m_documents.all(); }
    QList<StandInCamera *> cameras() const { return m_documents.cameras(); }
    int cameraCount() const override { return cameras().size(); }
    QList<StandInRecording *> recordings() const { return m_documents.recordings(); }

    DOCKEY currentKey() const { return m_documents.currentKey(); }

    // Inside an undo macro, a change of what is current or selected is a step of its own.

    void makeCurrent(DOCKEY key);
    QList<DOCKEY> selection() const override { return m_documents.selection(); }
    void select(DOCKEY key, bool selected) override;

    QList<DOCKEY> headsOf(DOCKEY key) const override { return m_documents.headsOf(key); }

    QList<DOC_Interface *> groupMembersOf(StandInDocument *document) const override
    {
        return m_documents.groupMembersOf(document);
    }

    // Camera settings and the lock.

    void changeSettings(StandInCamera &camera, const CameraSettings &wanted,
                        CameraSetting setting) override
    {
        m_lock.changeSettings(camera, wanted, setting);
    }
    void editSettings(StandInCamera &camera, const CameraSettings &settings) override
    {
        m_lock.editSettings(camera, settings);
    }
    void applyPreset(StandInCamera &camera, int number) override
    {
        m_presets.apply(camera, number);
    }
    bool isLockOn() const { return m_lock.isOn(); }

    /// Restarts the device of a camera, as its user does: a preset that waited for this acts.
    /// Nothing for a key that is no camera's.
    void restartCamera(DOCKEY key);

    // The network; see CameraNetwork and DeviceConnections.

    CameraNetwork &network() { return m_network; }
    const DeviceConnections &connections() const { return m_connections; }

    /// Does what searchAgain() does, for a user interface around the host. While the host is
    /// interactive a search that takes longer has a progress dialog, whose Cancel ends it.
    QString searchNetwork();

    /// Ends a search that runs, with what has answered so far.
    void cancelSearch();

    void changeNetwork(StandInCamera &camera, int etherType, const NetworkSetting &setting) override
    {
        m_connections.setSetting(camera, etherType, setting);
    }
    void chooseEtherType(StandInCamera &camera, int etherType) override
    {
        m_connections.setEtherType(camera, etherType);
    }

    ReadOut &readOut() { return m_readOut; }
    bool isReadOutEdited() const override { return m_readOut.isEdited(); }
    QRect wantedReadOut(StandInCamera &camera) override { return m_readOut.wanted(camera); }

    // Saves.

    QString savedFileName(int mode, DOC_Interface *document, int partitionNo,
                          const QDateTime &time) override;

    // Information over the pictures.

    QVariant setting(const QString &key) const override
    {
        return m_settings->value(key, QVariant());
    }
    TimeCodeRecord timeCode() const override;
    QString infoLabel(const QString &id, bool inEnglish) const override;
    int viewMode() const override { return int(m_mode); }
    bool isRecordingNow() const override { return m_state.isRecording; }
    bool isInfoShowing() const override { return m_state.isDisplayInfoShowing; }

    /// Does what setDisplayInfoShowing() does, for a user interface around the host.
    void showDisplayInfo(bool show);

    /// Has the information of all documents built anew.
    void markInfoDirty();

    // Tools; see ToolTable.

    bool toolState(const QString &tool) const override { return m_tools.isOn(tool); }
    bool isToolActive(const QString &tool) const { return m_tools.isActive(tool); }
    QString quickTool() const { return m_tools.quickTool(); }
    bool isTransactionOpen(const QString &tool) const override
    {
        return m_tools.isTransactionOpen(tool);
    }
    bool hasFeature(const QString &feature) const override
    {
        return m_state.features.contains(feature);
    }

    /// Takes a plug-in in, which stays the caller's: setHost() comes first, then its translations
    /// are looked for. When it is deleted the host forgets it.
    void addPlugin(PLG_Interface *plugin);

    /// Closes the plug-in and forgets it, with its translations. Nothing for one that is not here.
    void removePlugin(PLG_Interface *plugin) { m_tools.remove(plugin); }

    /// Opens it as openPluginByName() does, without a line in the journal: what a press of the
    /// button of a tool with a panel or dialog does. Nothing for null and the current one. Throws
    /// what the tool throws.
    void openPlugin(PLG_Interface *plugin) { m_tools.open(plugin); }

    QList<PLG_Interface *> plugins() const { return m_tools.plugins(); }
    bool isPluginOpen(PLG_Interface *plugin) const { return m_tools.isOpen(plugin); }
    QString toolLabel(PLG_Interface *plugin) { return ToolTable::label(plugin); }

    /// Names of the translation files in use.
    QStringList translationFiles() const { return m_tools.translationFiles(); }

    // Pauses: what was begun and not ended, 0 when all is balanced.

    int livePauses() const { return m_pauses.live.open(); }
    int playbackPauses() const { return m_pauses.playback.open(); }
    int exclusiveUpdates() const { return m_pauses.exclusiveUpdate.open(); }
    int exclusiveRefreshes() const { return m_pauses.exclusiveRefresh.open(); }
    int deterrals() const { return m_pauses.deterral.open(); }
    int openMacros() { return m_undo.macros().open(); }
    bool isViewSuspended() const { return m_pauses.isViewSuspended; }

    // Messages.

    /// What confirm() answers from now on; false at the start.
    void answerConfirm(bool yes) { m_messages.answerConfirm(yes); }

    /// Whether messages are shown as message boxes and confirm() asks the user; off at the start.
    void setInteractive(bool on) { m_interactive = on; }

    QList<Message> messages() const { return m_messages.messages(); }
    void clearMessages() { m_messages.clearMessages(); }

    /// what() of everything that errorHandler() got.
    QStringList handledErrors() const { return m_messages.errors(); }
    void clearHandledErrors() { m_messages.clearErrors(); }

    SavePlan &savePlan() { return m_savePlan; }

    // Pages.

    /// Does what attachMediator() does, for pages of a user interface around the host.
    void showMediator(GUI_WebView *view, JS_Mediator *mediator);

    /// The object that pages see as "main"; its properties are free for a user interface.
    QObject *pageObject() { return &m_mainScriptObject; }

    // The contract.

    // HostMain

    void updateUI(uint flags, bool force) override;
    void hideSelectBox() override;
    bool isShownDropBox() override;
    void showDropDownBox(const QString &key, const QRect &rect) override;
    void hideDropDownBox(const QString &key, const QPoint &pos) override;
    void hideDropDownBox(const QString &key) override;
    bool needsDialogEnterNotice() override;
    QObject *webPageEmbeddedMdi() override;
    void attachMediator(GUI_WebView *view, JS_Mediator *mediator) override;
    int currentMode() override;
    bool isLiveMode() override;
    bool isMemoryMode() override;
    bool isFileMode() override;
    QWidget *mainWidget() override;
    void errorHandler(std::exception &e) override;
    void info(const QString &text, QWidget *parent) override;
    void warn(const QString &text, const QStringList &items, QWidget *parent) override;
    void warn(const QString &text, QWidget *parent) override;
    void alert(const QString &text, const QStringList &items, QWidget *parent) override;
    void alert(const QString &text, QWidget *parent) override;
    bool confirm(const QString &text, QWidget *parent, const QVariantMap &options) override;
    QString translate(const QString &text) override;
    void setAllQuickToolsDisabledRefresh() override;
    HostPrefsDialog *prefsDialog() override;
    void openAboutDialog() override;
    bool isToolRunning(const QString &tool) override;
    bool isFeatureOn(const QString &key, DOC_Interface *doc, bool) override;
    bool isReady() override;
    bool isDialogExitSuppressed() override;
    bool isUpdateIgnore() override;
    void deterUpdateUI(bool deter) override;
    void exportSupportSnapshot(SupportSnapshot &out) override;
    bool writeSupportFile(const QString &path, const SupportSnapshot &snapshot) override;
    bool isAutoCameraNameEnabled() override;
    QVariant getPref(const QString &key, const QVariant &defaultValue) override;
    int getPrefInt(const QString &key, const QVariant &defaultValue) override;
    bool getPrefBool(const QString &key, const QVariant &defaultValue) override;
    double getPrefFloat(const QString &key, const QVariant &defaultValue) override;
    QString getPrefString(const QString &key, const QVariant &defaultValue) override;
    void setPref(const QString &key, const QVariant &value) override;
    void setPrefInt(const QString &key, int value) override;
    void setPrefBool(const QString &key, bool value) override;
    void setPrefFloat(const QString &key, double value) override;
    void setPrefString(const QString &key, const QString &value) override;
    void setTextBoxFocusState(bool focused) override;
    void notifyDialogLeft() override;
    void notifyDialogEntered() override;
    bool hasRestoredPrefs() override;
    void acknowledgeRestoredPrefs(bool) override;
    void runWithProgress(const QString &text, QFutureWatcher<void> &watcher) override;
    bool isTrelvikWindowShown() override;
    void openEthernetSettings() override;
    QVariant prefDefault(const QString &key) override;
    void removePref(const QString &key) override;
    QString infoItemDefaultDisplay() override;
    QString infoItemLabel(const QString &id) override;
    QStringList fontFamilyList() override;
    void applyOutputFontName(const QString &fontName, int group) override;
    QString hostVersionText() override;
    void getTimeCodeSetting(TimeCodeRecord &out) override;
    void setTimeCodeSetting(const TimeCodeRecord &record) override;
    bool isConverting() override;
    bool isPartitionSelectionAuto() override;
    QObject *appScriptObject() override;
    QObject *mainScriptObject() override;
    bool isCycleView() override;
    bool isNotLivePage(bool orDeviceSettings) override;
    bool isPrefsDialogOpen() override;
    bool isModalDialogOpen() override;
    bool textBoxFocusState() override;
    QString companionInstallDir() override;

    // HostPlugins

    PLG_Interface *pluginByName(const QString &name) override;
    void returnFromPlugin() override;
    void openPluginByName(const QString &tool) override;
    void closePluginByName(const QString &tool) override;
    void closeCurrentPlugin() override;
    PLG_Interface *currentPlugin() override;
    QString currentPluginName() override;
    bool isTrelvikRunning() override;
    bool isMVersion() override;
    void prepareSelectAll() override;
    bool isAutoExposureSettingOpen() override;
    bool isHwTriggerSettingOpen() override;
    bool isVariableSettingOpen() override;
    bool isTracking() override;
    bool isSendingNodeCommand() override;
    bool isAdjustingImage() override;
    bool isDetectingPixelDefect() override;
    bool isImageTriggerCapturing() override;
    bool isImageTriggerDetecting() override;
    bool isOtherPluginOpen() override;
    void prepareEmbeddedWidget(PLG_Interface *plugin, const QString &classid) override;
    QWidget *embeddedWidget(PLG_Interface *plugin) override;

    // HostDocuments

    DOC_Interface *deviceByKey(DOCKEY key, bool) override;
    DOC_Interface *documentByKey(DOCKEY key) override;
    void setCurrentDoc(DOCKEY key, bool) override;
    void unselectDoc(DOCKEY key) override;
    DOC_Interface *currentDocument() override;
    DOCKEY currentDocKey() override;
    void removeDocument(DOCKEY key) override;
    void removeAllDocuments(int, bool unselectOnly) override;
    void selectAllDocs(JS_Mediator *receiver) override;
    void selectDocs(const QList<DOCKEY> &keys, bool) override;
    void refreshDocumentInfo(bool) override;
    void setTrelvikLock(bool lock) override;
    bool isTrelvikLocked() override;
    void commitTransaction(bool apply, const QString &tool) override;
    void beginTransaction(const QString &tool, bool, bool) override;
    void rollbackTransaction(const QString &tool) override;
    void resetTransaction(const QString &tool) override;
    void setToolActive(const QString &tool, bool on) override;
    void setQuickTool(const QString &tool) override;
    void setToolState(const QString &tool, bool on) override;
    bool isWaveDataAcquisition() override;
    void deviceKeys(QList<DOCKEY> &out, bool) override;
    void liveDocKeys(QList<DOCKEY> &out, bool) override;
    void selectedDocKeys(QList<DOCKEY> &out, bool inListOrder) override;
    QMutex *documentsMutex() override;
    void endExclusiveUpdate() override;
    void beginExclusiveUpdate() override;
    void endExclusiveRefresh() override;
    void beginExclusiveRefresh() override;
    QList<DOCKEY> documentKeys(bool, bool) override;
    QList<DOCKEY> liveDocumentKeys(bool) override;
    void temporaryDocumentKeys(QList<DOCKEY> &out) override;
    QList<DOCKEY> openedDocumentKeys() override;
    void targetDocKeys(QList<DOCKEY> &out, bool, int) override;
    DOCKEY documentKeyOf(DOC_Interface *doc) override;
    int selectedDocumentCount() override;
    void importTargets(const QList<DOCKEY> &keys) override;
    void closeFileDocuments(bool) override;
    void openFiles(const QStringList &files, bool, bool, bool, bool, bool) override;
    void closeCameraData(int cameraNumber) override;
    QList<SavedRecord> findSavedRecords(const QString &folder,
                                        const QList<SavedRecord> &records) override;
    void refreshAfterDelete(DOCKEY key) override;
    int documentCount() override;
    bool hasWaveformData() override;
    bool areAllDevicesLocked() override;

    // HostLiveControl

    void resumeLive() override;
    void pauseLiveExclusive(bool, bool, bool) override;
    void pauseLive(bool) override;
    bool isLivePaused() override;
    void suspendView(bool) override;
    void resumeView(bool) override;
    void prepareLiveForPrefs() override;

    // HostRecord

    bool isRecording() override;
    int recordingState() override;
    bool hasPartitionConflict(bool) override;

    // HostPlayback

    void pausePlayback() override;
    void resumePlayback() override;

    // HostCameraLink

    QString defaultCameraName() override;
    void connectDevices(const QStringList &addresses) override;
    void addDevice(const QString &name, const QString &address, bool dummy) override;
    QString searchAgain() override;
    void setNetworkSettings(const QString &adapter, const QString &ip, const QString &mask,
                            const QString &gateway, const QString &mac) override;
    bool isLowlightOn() override;
    bool hasLowlightDevice() override;
    bool areAllLowlight(bool on) override;
    bool isLensCalibrationRunning() override;
    bool isAutoFocusing() override;
    bool isPhaseAdjusting() override;
    bool isShading() override;
    bool isCurrentOtherThanAutoFocus(bool) override;
    void saveCameraSettings(const QString &path, const QList<DOCKEY> &keys) override;
    void loadCameraSettings(const QString &path, const QList<DOCKEY> &keys) override;
    void selectCameraPartition(int partitionNo, bool) override;
    void selectVariable(uint number) override;

    // HostFileExport

    void copySelectArea(int mode) override;
    void clearPlannedGroupDir() override;
    void clearPlannedDirs() override;
    void clearPlannedFiles() override;
    void setPlannedGroupDir(const QString &name) override;
    void addPlannedDir(const QString &dir) override;
    void addPlannedFile(const QString &path) override;
    bool isPlannedDir(const QString &dir) override;
    bool isPlannedFile(const QString &path) override;
    QString plannedGroupDir() override;
    QString plannedTargetDir() override;
    uint cardReaderDriveMask() override;
    uint openCardReaderDrive() override;
    void openCardReaderDrive(uint drive) override;
    void closeCardReaderData() override;
    QList<QVariantMap> kelvaultDrives() override;
    QList<QVariantMap> cfCardDrives() override;
    void openKelvaultDrive(int type, int driveNo, int slotNo, const QString &name) override;
    bool unlockKelvaultDrive(int type, int driveNo, const QString &password) override;
    bool changeDrivePassword(int type, int driveNo, const QString &oldPassword,
                             const QString &newPassword) override;
    void forgetDrivePassword(int type, int driveNo, int slotNo, const QString &text) override;
    bool openCFCardDrive(int *type, int *driveNo) override;
    void openCFCardDrive(int type, int driveNo, int slotNo, const QString &name) override;
    void closeCFastData(bool) override;
    double driveUseRatio(int type, int driveNo, int slotNo) override;
    double cfastUseRatio(int type, int driveNo, int slotNo) override;
    quint64 totalWrittenBytes(int type, int driveNo, int slotNo) override;
    bool formatKelvaultDrive(int type, int driveNo, int slotNo) override;
    bool formatCFCardDrive(int type, int driveNo, int slotNo) override;
    void refreshMediaView(int kind) override;
    bool isBackgroundSaving() override;
    bool isBackgroundConverting() override;
    bool isDirectSaving(bool) override;
    bool isAutoExporting() override;

    // HostViewState

    float rotation(DOCKEY key) override;
    bool flipHorizontal(DOCKEY key) override;
    bool flipVertical(DOCKEY key) override;
    float zoomFactor(int which) override;
    bool isViewCycling() override;
    bool isDisplayInfoShowing() override;
    void setDisplayInfoShowing(bool show) override;

    // HostWindows

    int countMdiWindow(bool visible, int) override;
    QString currentWindowTitle() override;
    bool isFullScreen() override;
    bool isActiveOnTrelvik() override;
    void showAllDocuments() override;

    // HostUndoStack

    void clearUndoStack() override;
    bool canUndo() override;
    bool canRedo() override;
    void beginUndoMacro(const QString &text) override;
    void endUndoMacro() override;
    void undo() override;
    void redo() override;

private:
    class PrefsDialog : public HostPrefsDialog
    {
    public:
        explicit PrefsDialog(StandInHost &host) : m_host(host) {}
        virtual ~PrefsDialog() = default;
        void showPage(const QString &page) override;
        int exec() override;

    private:
        StandInHost &m_host;
    };

    template <class... Arguments>
    CallAnswer asked(const char *operation, const Arguments &...arguments)
    {
        return m_journal.question(QString(), operation, arguments...);
    }

    template <class... Arguments>
    CallAnswer told(const char *operation, const Arguments &...arguments)
    {
        return m_journal.command(QString(), operation, arguments...);
    }

    /// Begins the pair with this call; when it fails the pair knows.
    template <class... Arguments>
    void begun(CallPair &pair, const char *operation, const Arguments &...arguments)
    {
        auto failed = qScopeGuard([&] { pair.beginFailed(); });
        told(operation, arguments...);
        failed.dismiss();
        pair.begin();
    }

    void showMessage(const QString &kind, const QString &text, const QStringList &items,
                     QWidget *parent);
    QWidget *messageParent(QWidget *parent) const;
    void refreshUI(const Pauses::Refresh &refresh);
    void hideBoxes();
    void checkKey(const QString &key) const;
    QVariant pref(const QString &key, const QVariant &defaultValue) const;
    void storePref(const QString &key, const QVariant &value);
    void storePrefs(const QMap<QString, QVariant> &values);
    QString translation(const QString &text) const;

    DOC_Interface *contractOf(DOCKEY key) const;
    template <class Document> Document *addDocument(std::unique_ptr<Document> document);
    template <class Change> void choose(const Change &change);

    CallJournal m_journal;
    StandInEvents m_events;
    StandInState m_state;
    HostFrontEnd m_frontEnd;
    std::unique_ptr<StandInSettings> m_settings;
    Mode m_mode = Mode::Live;

    UndoHistory m_undo;
    DocumentList m_documents;
    QMutex m_documentsMutex;
    CameraLock m_lock;
    CameraPresets m_presets;
    CameraSettingsCopies m_settingsCopies;
    ReadOut m_readOut;
    ToolTable m_tools;
    CameraNetwork m_network;
    DeviceConnections m_connections;
    QPointer<NetworkSearch> m_search; ///< the one that was begun last

    Pauses m_pauses;
    SavePlan m_savePlan;
    bool m_interactive = false;
    MessageLog m_messages;
    PrefsDialog m_prefsDialog;
    PageProof<QObject> m_appScriptObject;
    PageProof<QObject> m_mainScriptObject;
};
