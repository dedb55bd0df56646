#pragma once

#include "standin/session/DocumentList.h"

#include <QUndoCommand>

/// One change of which documents are selected and which is current, that has been done: taken back
/// and done again in one step. Changes one behind the other become one. Documents that have gone
/// meanwhile are passed over.
class SelectionStep : public QUndoCommand
{
public:
    /// The list outlives the step.
    SelectionStep(DocumentList &list, const DocumentList::Chosen &before,
                  const DocumentList::Chosen &after);

    void undo() override;
    void redo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand *next) override;

private:
    DocumentList &m_list;
    DocumentList::Chosen m_before;
    DocumentList::Chosen m_after;
    bool m_isDone = true; ///< nobody has taken it back
};
