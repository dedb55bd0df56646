#pragma once

#include "standin/documents/StandInDocument.h"

/// A document that stands for a group of others.
class StandInGroup : public StandInDocumentLink<DOC_Interface>
{
public:
    /// For the host.
    StandInGroup(DocumentOwner &owner, DOCKEY key, const QString &name,
                 const QList<StandInDocument *> &members)
        : StandInDocumentLink<DOC_Interface>(owner, key), m_members(members)
    {
        state().documentName = name;
        state().displayName = name;
        state().headCount = 0;
    }

    bool standsForGroup() const override { return true; }
    QList<StandInDocument *> members() const override { return m_members; }
    void removeMember(StandInDocument *member) { m_members.removeAll(member); }

    QImage frame(quint64) const override { return QImage(); }
    QSize pictureSize() const override { return QSize(); }

private:
    QList<StandInDocument *> m_members;
};
