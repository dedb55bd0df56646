#include "standin/documents/UndoHistory.h"

#include "standin/journal/StandInEvents.h"

#include <typeinfo>

namespace {

// A macro is a plain command; what changes something is of a class of its own.
bool isEmptyMacro(const QUndoCommand *command)
{
    if (!command || typeid(*command) != typeid(QUndoCommand))
        return false;
    for (int i = 0; i < command->childCount(); ++i) {
        if (!isEmptyMacro(command->child(i)))
            return false;
    }
    return true;
}

}

UndoHistory::UndoHistory(StandInEvents &events)
{
    QObject::connect(&m_steps, &QUndoStack::indexChanged, &events, &StandInEvents::undoChanged);
    QObject::connect(&m_steps, &QUndoStack::canUndoChanged, &events, &StandInEvents::undoChanged);
    QObject::connect(&m_steps, &QUndoStack::canRedoChanged, &events, &StandInEvents::undoChanged);
}

UndoHistory::~UndoHistory()
{
    // The stack tells of its end, and there may be nobody left to tell.
    m_steps.disconnect();
}

void UndoHistory::beginMacro(const QString &text)
{
    m_macros.begin();
    m_steps.beginMacro(text);
}

void UndoHistory::endMacro()
{
    if (!m_macros.end())
        return;
    m_steps.endMacro();
    const QUndoCommand *last = m_steps.command(m_steps.index() - 1); // null for no such place
    if (m_macros.open() > 0 || !isEmptyMacro(last))
        return;
    const_cast<QUndoCommand *>(last)->setObsolete(true); // the stack's own, shown as const
    m_steps.undo();                                      // deletes it
}

void UndoHistory::clear()
{
    m_macros.clear();
    m_steps.clear();
}
