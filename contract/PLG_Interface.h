#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <QVariantMap>

class DOC_Interface;
class GUI_ModelessPatternDialog;
class HostServices;
class JS_Mediator;
class QKeyEvent;
class QWidget;

/// What the application asks of a tool: 134 operations behind those of QObject.
///
/// The application binds to an operation by its place in the table, so the order is binding and
/// nothing is ever inserted. It holds no data and has no meta-object of its own. Documents come as
/// DOC_Interface or as the application's 32-bit identifier, which deviceByKey() takes
/// sign-extended. GUI thread; setHost() comes before anything else. PLG_Common answers all of it
/// with the defaults of a tool.
class PLG_Interface : public QObject
{
public:
    /// Gives the application's services. The host calls it before anything else.
    virtual void setHost(HostServices *host) = 0;

    /// The tool shall close what it has on the screen.
    virtual void closeTool() = 0;

    /// The tool shall redraw; comes with every refresh.
    virtual void update() = 0;

    /// Hook behind update().
    virtual void updateHookA() = 0;

    /// Hook behind update().
    virtual void updateHookB() = 0;

    /// Hook behind update().
    virtual void updateHookC() = 0;

    /// Text of the tool's page, empty when it has none. Read anew at each call.
    virtual QString pageHtml() = 0;

    /// The tool was switched on.
    virtual void activate() = 0;

    /// The tool was switched off.
    virtual void deactivate() = 0;

    /// The tool's panel has gone.
    virtual void onClosed() = 0;

    /// The panel's OK: commit and leave.
    virtual void onOk() = 0;

    /// The panel's Accept: commit and leave.
    virtual void onAccept() = 0;

    /// The panel's Cancel: roll back and leave.
    virtual void onCancel() = 0;

    /// onApply(), with the view paused when `guarded` is true.
    virtual void applyGuarded(bool guarded) = 0;

    /// The panel's Apply.
    virtual void onApply() = 0;

    /// onReset(), with the view paused when `guarded` is true.
    virtual void resetGuarded(bool guarded) = 0;

    /// The panel's Reset.
    virtual void onReset() = 0;

    /// The tool was chosen among the quick tools.
    virtual void onSelectQuickTool() = 0;

    /// Hook of the panel.
    virtual void panelHookA() = 0;

    /// Hook of the panel.
    virtual void panelHookB() = 0;

    /// Hook of the panel.
    virtual void panelHookC() = 0;

    /// Bridge object of the tool's page, owned by the tool; null without a page.
    virtual JS_Mediator *mediator() = 0;

    /// The tool's key, such as "t_multilock".
    virtual QString name() = 0;

    /// Category of the plug-in; 2 is a button.
    virtual qint32 pluginType() = 0;

    /// Second level of the category.
    virtual qint32 pluginSubType() = 0;

    /// Layout of the panel, for the host.
    virtual qint32 layoutValueB() = 0;

    /// Layout of the panel, for the host.
    virtual qint32 layoutValueA() = 0;

    /// Capability, for the host.
    virtual bool capabilityA() = 0;

    /// Writes the flag of the present mode family: file mode, or live and memory mode.
    virtual void setModeFlag(bool on) = 0;

    /// Marks that the panel holds changes that are not accepted yet, or none.
    virtual void setModified(bool modified) = 0;

    /// Whether the panel holds such changes.
    virtual bool isModified() = 0;

    /// Whether the tool works in mode 0 live, 1 memory, 2 file; false for any other.
    virtual bool isModeAllowed(int mode) = 0;

    /// isModeAllowed() of the host's current mode.
    virtual bool isAllowedInCurrentMode() = 0;

    /// Whether a visible modeless dialog closes when the mode becomes forbidden.
    virtual bool closesOnForbiddenMode() = 0;

    /// Sets closesOnForbiddenMode().
    virtual void setClosesOnForbiddenMode(bool closes) = 0;

    /// The flag of the present mode family.
    virtual bool modeFlag() = 0;

    /// Whether it is a panel tool, with open, accept, apply, cancel and reset.
    virtual bool hasPanel() = 0;

    /// The second flag of the present mode family.
    virtual bool modeFlagB() = 0;

    /// Hook of clearing.
    virtual void clearHookA() = 0;

    /// Forgets the widget that shows the tool's own drawing.
    virtual void clearViewWidget() = 0;

    /// The widget that shows the tool's own drawing; may be null. The host lays it over the picture
    /// as large as that is shown: viewScale() pixels of it for each of view coordinates.
    virtual QWidget *viewWidget() = 0;

    /// A mouse button went down on the document's picture. View coordinates are those of the
    /// picture as it is seen, turned and flipped, but neither zoomed nor scrolled.
    virtual void onMousePress(const QPoint &pos, int docId) = 0;

    /// Hook of the mouse.
    virtual void mouseHookA() = 0;

    /// The pointer moved over the picture, with or without a button held.
    virtual void onMouseMove(const QPoint &pos, int docId) = 0;

    /// Ends a drag where the pointer was last.
    virtual void finishMouse(int docId) = 0;

    /// The mouse button was released.
    virtual void onMouseRelease(const QPoint &pos, int docId) = 0;

    /// Hook of the mouse.
    virtual void mouseHookB() = 0;

    /// Hook of the mouse.
    virtual void mouseHookC() = 0;

    /// Hook of the mouse.
    virtual void mouseHookD() = 0;

    /// The pointer left the picture.
    virtual void onMouseLeave() = 0;

    /// Whether a mouse button is held on the picture.
    virtual bool isDragging() = 0;

    /// Where the button went down, in view coordinates.
    virtual QPoint pressPosition() = 0;

    /// The point that the document was told last, in image coordinates; (0,0) without a document.
    virtual QPoint documentPoint(int docId) = 0;

    /// Where the pointer was last, in view coordinates.
    virtual QPoint lastMousePosition() = 0;

    /// The document under the pointer, -1 when it has left.
    virtual qint32 currentDocId() = 0;

    /// How isChecked() decides: 1, 5 on; 2, 3 by the document; 4 current plug-in; 6 dialog; else by
    /// name and button kind.
    virtual qint32 checkKind() = 0;

    /// First flag of the host's transaction: 0 true, 1 false.
    virtual qint32 transactionKind() = 0;

    /// Capability, for the host.
    virtual bool capabilityB() = 0;

    /// How the button behaves: 1 toggle, 4 toggle by customChecked().
    virtual qint32 buttonKind() = 0;

    /// Layout of the panel, for the host.
    virtual qint32 layoutValueD() = 0;

    /// Layout of the panel, for the host.
    virtual qint32 layoutValueE() = 0;

    /// Flag, for the host.
    virtual bool flagA() = 0;

    /// Capability, for the host.
    virtual bool capabilityC() = 0;

    /// Takes the tool's recursive mutex, for data that a subclass shares with another thread.
    virtual void lock() = 0;

    /// Releases what lock() took.
    virtual void unlock() = 0;

    /// Whether the tool's button shows as on; false without a document or in a forbidden mode.
    /// `flag` goes to the document's isToolAvailable().
    virtual bool isChecked(DOC_Interface *doc, bool flag) = 0;

    /// The tool's modeless dialog, made when `create` is true; null when there is none.
    virtual GUI_ModelessPatternDialog *ensureDialog(bool create) = 0;

    /// Shows the dialog that ensureDialog() made.
    virtual void showDialog() = 0;

    /// Hides the dialog; it is not closed by that.
    virtual void hideDialog() = 0;

    /// Closes the dialog.
    virtual void closeDialog() = 0;

    /// The application's mode changed.
    virtual void onModeChanged(int mode) = 0;

    /// Layout of the panel, for the host.
    virtual qint32 layoutValueC() = 0;

    /// Hook.
    virtual void hookD() = 0;

    /// Flag, for the host.
    virtual bool flagB() = 0;

    /// Hook; the select box passes 2 to the plug-in "livecontrol".
    virtual void hookE(int value) = 0;

    /// Hook; the select box passes a value to the plug-in "livecontrol".
    virtual void textHook(const QString &text) = 0;

    /// A key went down over the picture.
    virtual void onKeyPress(QKeyEvent *event) = 0;

    /// A key was released.
    virtual void onKeyRelease() = 0;

    /// Question, untranslated, when a panel with changes is left.
    virtual QString acceptQuestion() = 0;

    /// Flag, for the host.
    virtual bool flagC() = 0;

    /// Hook.
    virtual void hookF() = 0;

    /// Capability, for the host.
    virtual bool capabilityD() = 0;

    /// Capability, for the host.
    virtual bool capabilityE() = 0;

    /// Capability, for the host.
    virtual bool capabilityF() = 0;

    /// Capability, for the host.
    virtual bool capabilityG() = 0;

    /// Capability, for the host.
    virtual bool capabilityH() = 0;

    /// 1: an exclusive quick tool.
    virtual qint32 quickToolMode() = 0;

    /// Capability, for the host.
    virtual bool capabilityI() = 0;

    /// Flag, for the host.
    virtual bool flagD() = 0;

    /// Hook.
    virtual void hookG() = 0;

    /// Value, for the host.
    virtual qint32 valueA() = 0;

    /// Capability, for the host.
    virtual bool capabilityJ() = 0;

    /// Hook.
    virtual void hookH() = 0;

    /// Hook.
    virtual void hookI() = 0;

    /// Flag, for the host.
    virtual bool flagE() = 0;

    /// Sets flagE().
    virtual void setFlagE(bool on) = 0;

    /// Hook.
    virtual void hookJ() = 0;

    /// Hook.
    virtual void hookK() = 0;

    /// Value, for the host.
    virtual qint32 valueB() = 0;

    /// Capability, for the host.
    virtual bool capabilityK() = 0;

    /// Whether the tool edits a rectangle on this document's picture.
    virtual bool editsRegion(DOC_Interface *doc) = 0;

    /// The same, as the host asks it.
    virtual bool editsRegionOf(DOC_Interface *doc) = 0;

    /// The rectangle, in image coordinates with inclusive corners.
    virtual QRect region(DOC_Interface *doc) = 0;

    /// An image rectangle in sensor pixels, at least 1 by 1.
    virtual QRect regionToSensor(DOC_Interface *doc, const QRect &rect) = 0;

    /// Stores the rectangle, in image coordinates.
    virtual void setRegion(DOC_Interface *doc, const QRect &rect, bool fromUser) = 0;

    /// What a panel shows of the rectangle: size, position, their limits, aspect (height over
    /// width), zoom in per cent. Empty while the tool edits no region.
    virtual QVariantMap regionInfo(DOC_Interface *doc, const QSize &imageSize, const QRect &rect,
                                   bool fixAspect, bool originalAspect, double aspect,
                                   int zoomRate) = 0;

    /// Keeps a rectangle for the subclass.
    virtual void setStoredRect(const QRect &rect) = 0;

    /// The kept rectangle.
    virtual QRect storedRect() = 0;

    /// Puts the kept rectangle back to its default.
    virtual void clearStoredRect() = 0;

    /// Sets applyOnEdit().
    virtual void setApplyOnEdit(bool apply) = 0;

    /// Whether an edit of the region goes to the device at once.
    virtual bool applyOnEdit() = 0;

    /// Sets applyToAllWhenLocked().
    virtual void setApplyToAllWhenLocked(bool apply) = 0;

    /// Whether an edit goes to all devices while the cameras are locked together.
    virtual bool applyToAllWhenLocked() = 0;

    /// Whether accept and cancel close the plug-in rather than only leave the panel.
    virtual bool closeCurrentOnFinish() = 0;

    /// Sets closeCurrentOnFinish().
    virtual void setCloseCurrentOnFinish(bool closes) = 0;

    /// A value kept for the host.
    virtual qint32 userValue() = 0;

    /// Sets userValue().
    virtual void setUserValue(int value) = 0;

    /// Hook.
    virtual void hookL() = 0;

    /// Hook.
    virtual void hookM() = 0;

    /// Whether live view or playback is held while the tool is open.
    virtual bool suspendsView() = 0;

    /// Flag, for the host.
    virtual bool flagF() = 0;

    /// Hook.
    virtual void hookN() = 0;

    /// Whether the host has this document.
    virtual bool documentExists(const QPoint &pos, int docId) = 0;

    /// Shows the pointer that fits the handle: 0 to 3 edges, 4 to 7 corners, 8 inside, else
    /// restored.
    virtual void setRegionCursor(DOC_Interface *doc, int handle) = 0;

    /// Whether the modeless dialog is on the screen.
    virtual bool isDialogVisible() = 0;

    /// Whether a key is held.
    virtual bool isKeyHeld() = 0;

    /// The modeless dialog was shown.
    virtual void slotModelessPatternDialogShown() = 0;

    /// The modeless dialog was closed.
    virtual void slotModelessPatternDialogClosed() = 0;

    /// A screen shot was written.
    virtual void slotScreenShot(QString path) = 0;

    /// Whether the region keeps aspectRatio().
    virtual bool isAspectFixed() = 0;

    /// Capability, for the host.
    virtual bool capabilityL() = 0;

    /// Height divided by width; 0.0 or below: none.
    virtual double aspectRatio() = 0;

    /// State of a button of kind 4.
    virtual bool customChecked() = 0;

    /// Makes the tool's modeless dialog; null for a tool without one.
    virtual GUI_ModelessPatternDialog *createModelessPatternDialog(bool create) = 0;
};
