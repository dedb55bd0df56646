#pragma once

#include "bridge/mediator/JS_Mediator_Plugin.h"

#include <memory>
#include <vector>

class PLG_Interface;
class UndoMacroScope;

/// What the page of the device control sees: it works on the selection, which it can have undone,
/// and opens the dialogs of what is recorded about a recording.
///
/// The tool that it belongs to is the plug-in of the page's name; without one the slots that turn
/// to the tool do nothing. GUI thread.
class JS_Mediator_DeviceControl : public JS_Mediator_Plugin
{
    Q_OBJECT

public:
    /// `host` outlives the mediator. `name` is the page name.
    JS_Mediator_DeviceControl(HostServices *host, const QString &name);

    /// Ends what the page has begun by beginMacro() and not ended.
    ~JS_Mediator_DeviceControl() override;

    QString name() override;
    QString uiName() override;
    void onOpen() override;
    void onApply() override;
    void onOK() override;
    void onCancel() override;
    void onReset() override;
    void onClose() override;
    void onClosed() override;
    void undo() override;
    void redo() override;

    /// A page that loads anew loses what it has begun: the step ends then.
    void beginMacro() override;

    /// Nothing without a beginMacro() of this mediator.
    void endMacro() override;
    bool isCurrentDummy() override;
    QString getCurrentWindowTitle() override;

public slots:
    /// Whether the information stands over the pictures.
    bool isDisplayInfoShowing();
    void setDisplayInfoShowing(bool show);

    // Each lets the user edit, in a dialog.
    void editInfo();
    void editComment();
    void editCustom();

    /// Makes the document the current one and selects it, with its group, as one undo step and
    /// while the views rest. Nothing for a document that cannot be selected.
    void selectDoc(const QVariant &key);

    /// Takes the document and its group out of the selection in the same way.
    void unselectDoc(const QVariant &key);

    /// Selects all documents and brings them to view.
    void viewAll();

private:
    template <typename Work> void withTool(Work work);
    template <typename Work> void operateTool(const char *trace, Work work);
    void endMacros();

    std::vector<std::unique_ptr<UndoMacroScope>> m_macros; ///< begun by the page and not ended
};
