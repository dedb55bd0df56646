#pragma once

#include "bridge/mediator/JS_Mediator_Dialog.h"

/// What the page of a tool's modeless dialog sees.
class JS_Mediator_ModelessPatternDialog : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    using JS_Mediator_Dialog::JS_Mediator_Dialog;

public slots:
    virtual void onOpen() = 0;
    virtual void onClose() = 0;

    /// Pages tell it when a text box gains or loses the focus, so that the main window's shortcuts
    /// stand aside while the user types.
    void setTextBoxFocusState(bool focused);
};
