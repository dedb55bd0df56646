#pragma once

#include "bridge/mediator/JS_Mediator.h"

/// What the page of a tool sees. A tool's own mediator gives the bodies: all of them may be called
/// by the page, so none may let a failure out.
class JS_Mediator_Plugin : public JS_Mediator
{
    Q_OBJECT

public:
    using JS_Mediator::JS_Mediator;

public slots:
    virtual QString name() = 0;   ///< internal name of the tool
    virtual QString uiName() = 0; ///< name shown to the user
    virtual void onOpen() = 0;
    virtual void onApply() = 0;
    virtual void onOK() = 0;
    virtual void onCancel() = 0;
    virtual void onReset() = 0;
    virtual void onClose() = 0; ///< the panel is about to close
    virtual void onClosed() = 0;
    virtual void undo() = 0;
    virtual void redo() = 0;
    virtual void beginMacro() = 0; ///< what follows becomes one undo step
    virtual void endMacro() = 0;
    virtual bool isCurrentDummy() = 0;
    virtual QString getCurrentWindowTitle() = 0;
};
