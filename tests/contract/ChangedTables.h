#pragma once

// Two tables that went wrong, for the test that the check notices: the multi-camera window's undo
// operations with a pair swapped, and with one operation inserted.

#include <QString>

class SwappedUndoStack
{
public:
    virtual void clearUndoStack() = 0;
    virtual bool canRedo() = 0;
    virtual bool canUndo() = 0;
    virtual void beginUndoMacro(const QString &text) = 0;

protected:
    ~SwappedUndoStack() = default;
};

class LengthenedUndoStack
{
public:
    virtual void clearUndoStack() = 0;
    virtual int undoLimit() = 0;
    virtual bool canUndo() = 0;
    virtual bool canRedo() = 0;
    virtual void beginUndoMacro(const QString &text) = 0;

protected:
    ~LengthenedUndoStack() = default;
};
