#include "standin/session/SelectionStep.h"

namespace {
constexpr int Selection = 1; // the one kind of step whose changes become one
}

SelectionStep::SelectionStep(DocumentList &list, const DocumentList::Chosen &before,
                             const DocumentList::Chosen &after)
    : QUndoCommand(QStringLiteral("Selection")), m_list(list), m_before(before), m_after(after)
{
}

void SelectionStep::undo()
{
    m_isDone = false;
    m_list.choose(m_before);
}

void SelectionStep::redo()
{
    if (!m_isDone)
        m_list.choose(m_after);
    m_isDone = true;
}

int SelectionStep::id() const
{
    return Selection;
}

bool SelectionStep::mergeWith(const QUndoCommand *next)
{
    m_after = static_cast<const SelectionStep *>(next)->m_after;
    return true;
}
