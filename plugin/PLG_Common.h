#pragma once

#include "contract/PLG_Interface.h"
#include "plugin/region/RegionCursor.h"

#include <QFont>
#include <QFontMetrics>
#include <QMutex>
#include <QPointer>

#include <array>
#include <memory>

namespace RegionGeometry {
struct Limits;
struct SensorScale;
struct ViewTurn;
}

/// The base of every tool: common state, the flow of a panel, the modeless dialog, the editing of a
/// region on a picture.
///
/// A tool derives from it, sets the fields that make its identity in its constructor, and overrides
/// only what differs. The fields are protected for that: they are the tool's own state. Host calls
/// may throw; the operations of the contract let that pass to the host that called them.
class PLG_Common : public PLG_Interface
{
    Q_OBJECT

public:
    PLG_Common();
    ~PLG_Common() override;

    void setHost(HostServices *host) override;
    void closeTool() override;
    void update() override;
    void updateHookA() override;
    void updateHookB() override;
    void updateHookC() override;
    QString pageHtml() override;
    void activate() override;
    void deactivate() override;
    void onClosed() override;
    void onOk() override;
    void onAccept() override;
    void onCancel() override;
    void applyGuarded(bool guarded) override;
    void onApply() override;
    void resetGuarded(bool guarded) override;
    void onReset() override;
    void onSelectQuickTool() override;
    void panelHookA() override;
    void panelHookB() override;
    void panelHookC() override;
    JS_Mediator *mediator() override;
    QString name() override;
    qint32 pluginType() override;
    qint32 pluginSubType() override;
    qint32 layoutValueB() override;
    qint32 layoutValueA() override;
    bool capabilityA() override;
    void setModeFlag(bool on) override;
    void setModified(bool modified) override;
    bool isModified() override;
    bool isModeAllowed(int mode) override;
    bool isAllowedInCurrentMode() override;
    bool closesOnForbiddenMode() override;
    void setClosesOnForbiddenMode(bool closes) override;
    bool modeFlag() override;
    bool hasPanel() override;
    bool modeFlagB() override;
    void clearHookA() override;
    void clearViewWidget() override;
    QWidget *viewWidget() override;
    void onMousePress(const QPoint &pos, int docId) override;
    void mouseHookA() override;
    void onMouseMove(const QPoint &pos, int docId) override;
    void finishMouse(int docId) override;
    void onMouseRelease(const QPoint &pos, int docId) override;
    void mouseHookB() override;
    void mouseHookC() override;
    void mouseHookD() override;
    void onMouseLeave() override;
    bool isDragging() override;
    QPoint pressPosition() override;
    QPoint documentPoint(int docId) override;
    QPoint lastMousePosition() override;
    qint32 currentDocId() override;
    qint32 checkKind() override;
    qint32 transactionKind() override;
    bool capabilityB() override;
    qint32 buttonKind() override;
    qint32 layoutValueD() override;
    qint32 layoutValueE() override;
    bool flagA() override;
    bool capabilityC() override;
    void lock() override;
    void unlock() override;
    bool isChecked(DOC_Interface *doc, bool flag) override;
    GUI_ModelessPatternDialog *ensureDialog(bool create) override;
    void showDialog() override;
    void hideDialog() override;
    void closeDialog() override;
    void onModeChanged(int mode) override;
    qint32 layoutValueC() override;
    void hookD() override;
    bool flagB() override;
    void hookE(int value) override;
    void textHook(const QString &text) override;
    void onKeyPress(QKeyEvent *event) override;
    void onKeyRelease() override;
    QString acceptQuestion() override;
    bool flagC() override;
    void hookF() override;
    bool capabilityD() override;
    bool capabilityE() override;
    bool capabilityF() override;
    bool capabilityG() override;
    bool capabilityH() override;
    qint32 quickToolMode() override;
    bool capabilityI() override;
    bool flagD() override;
    void hookG() override;
    qint32 valueA() override;
    bool capabilityJ() override;
    void hookH() override;
    void hookI() override;
    bool flagE() override;
    void setFlagE(bool on) override;
    void hookJ() override;
    void hookK() override;
    qint32 valueB() override;
    bool capabilityK() override;
    bool editsRegion(DOC_Interface *doc) override;
    bool editsRegionOf(DOC_Interface *doc) override;
    QRect region(DOC_Interface *doc) override;
    QRect regionToSensor(DOC_Interface *doc, const QRect &rect) override;
    void setRegion(DOC_Interface *doc, const QRect &rect, bool fromUser) override;
    QVariantMap regionInfo(DOC_Interface *doc, const QSize &imageSize, const QRect &rect,
                           bool fixAspect, bool originalAspect, double aspect,
                           int zoomRate) override;
    void setStoredRect(const QRect &rect) override;
    QRect storedRect() override;
    void clearStoredRect() override;
    void setApplyOnEdit(bool apply) override;
    bool applyOnEdit() override;
    void setApplyToAllWhenLocked(bool apply) override;
    bool applyToAllWhenLocked() override;
    bool closeCurrentOnFinish() override;
    void setCloseCurrentOnFinish(bool closes) override;
    qint32 userValue() override;
    void setUserValue(int value) override;
    void hookL() override;
    void hookM() override;
    bool suspendsView() override;
    bool flagF() override;
    void hookN() override;
    bool documentExists(const QPoint &pos, int docId) override;
    void setRegionCursor(DOC_Interface *doc, int handle) override;
    bool isDialogVisible() override;
    bool isKeyHeld() override;
    bool isAspectFixed() override;
    bool capabilityL() override;
    double aspectRatio() override;
    bool customChecked() override;
    GUI_ModelessPatternDialog *createModelessPatternDialog(bool create) override;

signals:
    // For subclasses; the host connects to them.
    void signalRecord();
    void signalSaveFile();
    void signalSaveLayout();
    void signalEndRecording();
    void signalDisconnect();
    void signalStartAutoUpdate();
    void signalStopAutoUpdate();
    void signalScreenShot(QString path);

public slots:
    void slotModelessPatternDialogShown() override;
    void slotModelessPatternDialogClosed() override;
    void slotScreenShot(QString path) override;

protected:
    /// Aid for tools that measure text: the metrics are made by the tool that needs them. They go
    /// before the font that they measure.
    struct FontCache
    {
        std::unique_ptr<QFont> font = std::make_unique<QFont>();
        std::unique_ptr<QFontMetrics> metrics;
        qint64 value = -1;
    };

    HostServices *host() const { return m_host; }

    /// Takes back the pointer that this tool shows and ends its drag: the undo macro that a press
    /// opened is closed, nothing is pushed. deactivate(), onClosed() and
    /// slotModelessPatternDialogClosed() begin with it; a tool that overrides one of them calls it
    /// before steps of its own that no drag may see. Throws what the host throws, the drag has
    /// ended all the same.
    void endDrag();

    // For tools that edit a region, in the limits of the fields below. `doc` must not be null.

    /// What of `rect` the pointer grabs at `pos`, in view coordinates: 0 to 3 edges, 4 to 7
    /// corners, 8 inside, 9 nothing.
    int hitTestRegion(DOC_Interface *doc, const QPoint &pos, const QRect &rect);

    /// Smallest size of the region with regard to a fixed aspect: in image pixels when `scale` is
    /// true, else as m_minSize.
    QSize effectiveMinSize(DOC_Interface *doc, bool scale);

    /// The arrow key that moves the region the way `key` points on the screen; others as they are.
    int mapArrowKey(DOC_Interface *doc, int key);

    /// Brings `rect` within all limits after an edit by `handle`; `reference` is the region before
    /// it, `aspect` height divided by width. At a fixed aspect m_anchorCorner is decided.
    void constrainRegion(DOC_Interface *doc, int handle, double aspect, QRect &rect,
                         const QRect &reference);

    /// Moves `rect` into the picture and cuts it to the maximum.
    void clampRegion(DOC_Interface *doc, QRect &rect);

    HostServices *m_host = nullptr; ///< not owned
    std::unique_ptr<FontCache> m_fontCache = std::make_unique<FontCache>();
    QPointer<GUI_ModelessPatternDialog> m_modelessDialog; ///< owned; a parent may go first
    bool m_keyHeld = false;
    QPoint m_lastMousePos;
    bool m_suspendsView = false;
    qint32 m_pluginType = 0;
    qint32 m_pluginSubType = 0;
    QString m_toolName;
    bool m_modified = false;
    quint32 m_allowedModes = 7;       ///< bit 0 live, bit 1 memory, bit 2 file
    std::array<bool, 2> m_modeFlag{}; ///< index 1 in file mode, else 0
    qint32 m_layoutValueA = 0;
    qint32 m_layoutValueB = 0;
    bool m_hasPanel = false;
    std::array<bool, 2> m_modeFlagB{}; ///< indexed like m_modeFlag
    std::unique_ptr<JS_Mediator> m_mediator;
    QPointer<QWidget> m_viewWidget; ///< not owned
    qint32 m_checkKind = 0;
    qint32 m_transactionKind = 0;
    qint32 m_layoutValueC = 3;
    bool m_dragging = false;
    QPoint m_pressPos;
    QRect m_pressRegion{QPoint(0, 0), QPoint(-1, -1)};
    qint32 m_dragHandle = 9; ///< 0 to 3 edges, 4 to 7 corners, 8 inside, 9 outside
    std::array<qint32, 2> m_reservedPair{};
    qint32 m_currentDocId = -1;
    qint32 m_buttonKind = 0;
    qint32 m_quickToolMode = 0;
    qint32 m_layoutValueD = 0;
    qint32 m_layoutValueE = 2;
    bool m_flagA = false;
    std::unique_ptr<QMutex> m_toolMutex; ///< recursive
    bool m_flagB = false;
    bool m_transactionOpen = false;
    bool m_flagC = false;
    bool m_flagD = false;
    bool m_flagE = false;
    QRect m_storedRect{QPoint(0, 0), QPoint(-1, -1)};
    bool m_applyOnEdit = true;
    bool m_applyToAllWhenLocked = true;
    bool m_symmetricX = false;
    bool m_symmetricY = false;
    QPoint m_positionStep{1, 1}; ///< sensor pixels
    QSize m_sizeStep{1, 1};      ///< sensor pixels
    QSize m_maxSize{-1, -1};     ///< a negative part: no limit
    QSize m_minSize{1, 1};
    bool m_closeCurrentOnFinish = false;
    bool m_closeOnForbiddenMode = true;
    qint32 m_userValue = 0;
    qint32 m_anchorCorner = 4; ///< 0, 1 top left and right, 2, 3 bottom left and right, 4 none yet
    bool m_flagF = false;

private:
    bool isLockTool();
    bool usesTransaction() const;
    std::size_t modeFamily();
    void leavePanel();
    void finishPanel(bool commit);
    void rollBackPanel();
    void releaseView();

    RegionGeometry::SensorScale limitScale(DOC_Interface *doc);
    RegionGeometry::Limits regionLimits(DOC_Interface *doc, double aspect);
    RegionGeometry::ViewTurn viewTurn(DOC_Interface *doc);
    bool mayEditRegion(DOC_Interface *doc);
    bool crossCursorRuns();
    void storeRegion(DOC_Interface *doc, const QRect &rect);
    void pushToDevice(DOC_Interface *doc);

    RegionCursor m_regionCursor;
    bool m_macroOpen = false; ///< begun by a press of this tool and not ended
};
