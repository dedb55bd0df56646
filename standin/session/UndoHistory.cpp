#include "standin/session/UndoHistory.h"

#include "standin/journal/StandInEvents.h"

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
    m_empty.append(text);
}

void UndoHistory::push(QUndoCommand *step)
{
    for (const QString &text : qAsConst(m_empty))
        m_steps.beginMacro(text);
    m_empty.clear();
    m_steps.push(step);
}

void UndoHistory::endMacro()
{
    if (!m_macros.end())
        return;
    if (m_empty.isEmpty())
        m_steps.endMacro();
    else
        m_empty.removeLast();
}

void UndoHistory::clear()
{
    m_macros.clear();
    m_empty.clear();
    m_steps.clear();
}
