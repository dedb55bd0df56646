#pragma once

#include "contract/DOC_Interface.h"
#include "standin/documents/DocumentOverlay.h"
#include "standin/documents/DocumentPreview.h"
#include "standin/documents/DocumentState.h"
#include "standin/documents/DocumentTarget.h"
#include "standin/drawing/InfoFacts.h"
#include "standin/drawing/ViewGeometry.h"
#include "standin/journal/CallJournal.h"
#include "standin/journal/JournalSubject.h"

#include <QImage>

class DocumentOwner;

/// A document of the stand-in host: a camera, a recording or a group. It knows its owner and its
/// key and keeps the plain values that it answers from.
///
/// The host owns it. A document that was closed stays in memory until its host goes; a call on it
/// then does nothing special but writes a critical line, so that a test notices it.
class StandInDocument : public JournalSubject
{
public:
    StandInDocument(DocumentOwner &owner, DOCKEY key);
    virtual ~StandInDocument();

    StandInDocument(const StandInDocument &) = delete;
    StandInDocument &operator=(const StandInDocument &) = delete;

    DOCKEY key() const { return m_key; }
    DocumentOwner &owner() const { return m_owner; }

    /// The document as the library sees it.
    virtual DOC_Interface *contract() = 0;

    /// What it answers from.
    DocumentState &state() { return m_state; }
    const DocumentState &state() const { return m_state; }

    QString journalName() const override { return m_journalName; }

    /// Whether the host has closed it.
    bool isClosed() const { return m_closed; }
    void markClosed(); ///< by the host

    /// The picture of a frame, from 0; of pictureSize(). Frames behind the last one repeat it.
    virtual QImage frame(quint64 number) const = 0;

    /// The picture of a frame, from 0, of a partition; of the current one for a number that the
    /// document does not have. A live camera has one picture for all of them.
    virtual QImage partitionFrame(quint64 frame, int partitionNo) const;

    /// How many frames there are, 0 for a live camera.
    virtual quint64 frameCount() const { return 0; }

    /// Size of frame() in pixels; empty for a document without pictures.
    virtual QSize pictureSize() const = 0;

    /// Size of the whole sensor, or of the picture.
    virtual QSize sensorSize() const { return pictureSize(); }

    /// Whether the picture is the whole sensor in its own pixels, binned or not.
    virtual bool showsWholeSensor() const { return false; }

    /// What is known of a frame, from 0, of a partition, 0 for the current one. In live mode a
    /// camera's partition has nothing to tell.
    virtual InfoFacts infoFacts(quint64 frame, int partitionNo) const;

    /// A partition by its number, null without it; and the current one in its place, null without
    /// any.
    const StandInPartition *partition(int number) const;
    const StandInPartition *partitionOrCurrent(int number) const;

    /// The information over its pictures.
    DocumentOverlay &overlay() { return m_overlay; }

    /// What it is to a save, and the pictures of it.
    const DocumentTarget &target() const { return m_target; }
    DocumentPreview &preview() { return m_preview; }

    /// Sends the document's settings to its device.
    virtual void sendSettings() {}

    /// Chooses a preset of the device.
    virtual void takePreset(int number) { m_state.appliedPreset = number; }

    /// Whether the device is locked together with others.
    virtual bool isLockedTogether() const { return false; }

    /// Whether it stands for a group, and the members; no and none for all others.
    virtual bool standsForGroup() const { return false; }
    virtual QList<StandInDocument *> members() const { return {}; }

    /// How the picture stands in its view.
    ViewGeometry geometry() const;

    /// Turns the view clockwise, flips it, zooms it (0 or less: fit to the view).
    void setQuarterTurns(int turns);
    void setFlips(bool horizontal, bool vertical);
    void setZoom(double zoom);

    /// Size of the widget that shows it, in screen pixels.
    void setViewSize(const QSize &size);

    /// Moves a picture that is larger than its view, by screen pixels and as far as there is room.
    void scrollBy(const QPoint &way);

    /// Exponent of the binning: 0, 1, 2 mean 1, 2, 4.
    void setBinningLevel(int exponent);

    /// Whether a tool is on for this document, before the host's own state of the tool.
    void setToolOn(const QString &tool, bool on);

    /// Whether a feature is on for this document or for all.
    bool isFeatureOn(const QString &feature) const;

protected:
    template <class... Arguments>
    CallAnswer asked(const char *operation, const Arguments &...arguments)
    {
        checkOpen(operation);
        return m_journal.question(m_journalName, operation, arguments...);
    }

    template <class... Arguments>
    CallAnswer told(const char *operation, const Arguments &...arguments)
    {
        checkOpen(operation);
        return m_journal.command(m_journalName, operation, arguments...);
    }

    // What the operations of the contract do behind their line in the journal.
    const StandInSlot *slotAt(int slot) const;
    StandInSlot *slotAt(int slot);
    const StandInData *dataAt(int slot, int index) const;
    bool hasRecordedFrames() const;
    int indexOfCustomInfo(const QString &name) const;
    QVariantMap customInfoRecord(const QString &name, const QString &value, const QString &unit,
                                 bool display, bool useFileName) const;
    bool isToolOnHere(const QString &tool) const;
    bool isInTransaction(const QString &tool) const;
    bool isSelectedHere() const;
    int selectedCount() const;
    int cameraCountOfOwner() const;
    bool sharesDeviceHere() const;
    QList<DOC_Interface *> groupMembersHere();
    void setSelectedHere(bool selected);
    void pushSettings();
    void notifyRefreshed();
    void notifyInfoChanged();
    DOC_HeadInterface *heads() { return &m_heads; }

private:
    class Heads : public DOC_HeadInterface
    {
    public:
        explicit Heads(StandInDocument &document) : m_document(document) {}
        virtual ~Heads() = default;
        int headCount() override;

    private:
        StandInDocument &m_document;
    };

    void checkOpen(const char *operation) const;

    DocumentOwner &m_owner;
    CallJournal &m_journal;
    const DOCKEY m_key;
    const QString m_journalName;
    DocumentState m_state;
    DocumentOverlay m_overlay;
    DocumentTarget m_target;
    DocumentPreview m_preview;
    bool m_closed = false;
    Heads m_heads;
};

// The operations of the contract, one layer for each sub-interface. `Contract` is DOC_Interface, or
// DOC_Camera, which marks a camera.

template <class Contract> class StandInDocumentMain : public Contract, public StandInDocument
{
public:
    using StandInDocument::StandInDocument;

    DOC_Interface *contract() override { return this; }

    bool usesScaleDivider(bool) override;
    void notifyChange(int what, bool) override;
    QList<int> partitionNumbers() override;
    QString originalFilePath() override;
    QString originalFileName() override;
    QString partitionName(int partitionNo) override;
    QString deviceName() override;
    bool isCameraRecord() override;
    QString fileNameAddition(int mode, int partitionNo, int sequence, bool &usesSequence,
                             const QDateTime &time) override;
    int documentKind() override;
    bool isOnSdCard() override;
    bool isOnKelvault() override;
    bool isOnCFast() override;
    bool isBusySaving() override;
    void setSaveInfoOption(bool on) override;
    void setSaveCorrectOption(bool on) override;
    void setSaveScaleOption(bool on) override;
    QVariantMap documentInfoMap(bool, bool, bool convert, bool layout, bool) override;
    int currentPartition() override;
    bool supportsMultiSkip() override;
    bool supportsFileMultiSkip() override;
    bool isRecordedOnce() override;
    void setOpenedByImport(bool on) override;
    bool canRenameData() override;
    bool canCheckSaved() override;
    bool canDeleteFile() override;
    void deleteOwnFile() override;
    void setDataName(const QString &name) override;
    QString documentName() override;
    QVariantList customInfoList() override;
    void clearCustomInfo() override;
    void addCustomInfo(const QString &name, const QString &value, const QString &unit, bool display,
                       bool useFileName) override;
    void setCustomInfo(const QString &name, const QString &value, const QString &unit, bool display,
                       bool useFileName) override;
    void removeCustomInfo(const QString &name) override;
    void renameCustomInfo(const QString &oldName, const QString &newName) override;
    QString documentComment() override;
    void setDocumentComment(const QString &text) override;
    bool isPlaying() override;
    uint partitionFrameCount(int partitionNo) override;
    uint fileRecordRate() override;
    uint partitionRecordRate(int partitionNo) override;
    QString fallbackName() override;
    bool isSelected() override;
    QString displayName() override;
    bool isMultiTrimming() override;
    QString multiTrimmingLabel() override;
    void showPreviousPreview() override;
    void showNextPreview() override;
    int selectPartition(int partitionNo) override;
    bool isSelectable() override;
    void setSelected(bool selected) override;
    bool isSelectedMulti() override;
    bool isGroup() override;
    QList<DOC_Interface *> groupMembers() override;
    QString recordDate() override;
    QString recordTime() override;
};

template <class Contract> class StandInDocumentView : public StandInDocumentMain<Contract>
{
public:
    using StandInDocumentMain<Contract>::StandInDocumentMain;

    QSize imageSize() override;
    void reportCursorPosition(const QPoint &pos) override;
    QPoint mapPoint(const QPoint &pos, bool) override;
    QRect mapRect(const QRect &rect) override;
    bool isTransposed() override;
    QPoint cursorPosition() override;
    bool imageFormat(ImageFormat &out) override;
};

template <class Contract> class StandInDocumentCamera : public StandInDocumentView<Contract>
{
public:
    using StandInDocumentView<Contract>::StandInDocumentView;

    void fullImageSize(int *w, int *h) override;
    bool hasScaleDivider(bool) override;
    int scaleDivider() override;
    void applyPreset(int number) override;
    int cameraNumber() override;
    int headNumber() override;
    int cameraCount() override;
    DOC_HeadInterface *headInterface() override;
    bool isMediaManaged() override;
    bool isSlotUsable(int slot) override;
    bool isSlotEnabled(int slot) override;
    SlotStatus slotStatus(int slot) override;
    bool isFitMemoryMode() override;
    int maxDataCount(int slot) override;
    uint dataFrames(int slot, int index) override;
    QString dataName(int slot, int index) override;
    DataTime dataTime(int slot, int index) override;
    void formatSlot(int slot) override;
    void refreshSlot(int slot) override;
    int slotOfHead(int headNo) override;
    quint64 slotCapacity(int slot) override;
    void setDataNameOnSlot(int slot, int dataNo, const QByteArray &name) override;
    QString cameraName() override;
    bool isMobile() override;
    bool isDummy() override;
    bool hasCapability(int capability) override;
    bool isLocked() override;
    SdCardInfo sdCardInfo(int slot) override;
    bool sharesDevice() override;
    EditDeviceData editDeviceData() override;
    void setCameraName(const QString &name) override;
    void setNetworkSetting(int etherType, const NetworkSetting &setting) override;
    void setEtherType(int type) override;
    QList<PresetInfo> presets() override;
    bool presetNeedsReboot(int number) override;
    void refreshCamera() override;
};

template <class Contract> class StandInDocumentDisplay : public StandInDocumentCamera<Contract>
{
public:
    using StandInDocumentCamera<Contract>::StandInDocumentCamera;

    bool isToolAvailable(const QString &tool, bool flag) override;
    bool isToolOn(const QString &tool) override;
    float viewRotation() override;
    bool isFlippedHorizontally() override;
    bool isFlippedVertically() override;
    float viewScale(bool) override;
    int binningLevel() override;
    QPixmap previewPixmap(int mode, int width, int height, int partitionNo, bool,
                          const QDateTime &time) override;
    QSize documentResolution(int kind, int partitionNo, bool) override;
    QPixmap documentThumbnail(int kind, int width, int height, int partitionNo, int,
                              const QDateTime &time) override;
    QString documentLogoPath() override;
    void applyLogoPath(const QString &path) override;
    void markInfoOverlayDirty() override;
    bool showsLutCurve() override;
    bool isReductionSuspended() override;
};

template <class Contract> class StandInDocumentRefresh : public StandInDocumentDisplay<Contract>
{
public:
    using StandInDocumentDisplay<Contract>::StandInDocumentDisplay;

    void refresh(bool) override;
};

template <class Contract> class StandInDocumentLink : public StandInDocumentRefresh<Contract>
{
public:
    using StandInDocumentRefresh<Contract>::StandInDocumentRefresh;

    bool isConnected() override;
    QString ipAddress() override;
    bool isFound() override;
    int wirelessState() override;
    int linkSpeedState() override;
};

// Each layer is instantiated in the source file of its sub-interface.
extern template class StandInDocumentMain<DOC_Interface>;
extern template class StandInDocumentMain<DOC_Camera>;
extern template class StandInDocumentView<DOC_Interface>;
extern template class StandInDocumentView<DOC_Camera>;
extern template class StandInDocumentCamera<DOC_Interface>;
extern template class StandInDocumentCamera<DOC_Camera>;
extern template class StandInDocumentDisplay<DOC_Interface>;
extern template class StandInDocumentDisplay<DOC_Camera>;
extern template class StandInDocumentRefresh<DOC_Interface>;
extern template class StandInDocumentRefresh<DOC_Camera>;
extern template class StandInDocumentLink<DOC_Interface>;
extern template class StandInDocumentLink<DOC_Camera>;
