#pragma once

#include "bridge/dialog/GUI_ModelessPatternDialog.h"

class JS_Mediator_Note;

/// The dialog with the note of the current camera.
class GUI_NoteDialog : public GUI_ModelessPatternDialog
{
    Q_OBJECT

public:
    /// Takes the size that the mediator wants. The mediator passes into the dialog's ownership.
    GUI_NoteDialog(HostServices *host, JS_Mediator_Note *mediator);
    ~GUI_NoteDialog() override;

protected:
    void hideEvent(QHideEvent *event) override;
};
