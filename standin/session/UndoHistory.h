#pragma once

#include "standin/journal/CallPair.h"

#include <QStringList>
#include <QUndoStack>

class StandInEvents;

/// The steps that can be taken back. The steps of a macro are one; a macro without any leaves none.
/// GUI thread.
class UndoHistory
{
public:
    /// The events tell of every change.
    explicit UndoHistory(StandInEvents &events);
    ~UndoHistory();

    QUndoStack &steps() { return m_steps; }

    /// Calls of beginMacro() and endMacro(), which nest. The end of a macro that was cleared while
    /// it was open does nothing.
    CallPair &macros() { return m_macros; }
    void beginMacro(const QString &text);
    void endMacro();

    /// Does a step and keeps it, which passes into the history's ownership.
    void push(QUndoCommand *step);

    void clear(); ///< open macros too

private:
    QUndoStack m_steps;
    QStringList m_empty; ///< macros that the stack learns of with their first step
    CallPair m_macros{QStringLiteral("endUndoMacro")};
};
