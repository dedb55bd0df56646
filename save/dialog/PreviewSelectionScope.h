#pragma once

#include "contract/HostTypes.h"

#include <QPointer>

/// Puts another document and partition in place of a page's selection while it lives.
class PreviewSelectionScope
{
public:
    /// `owner` holds both fields; when it goes first, nothing is put back.
    PreviewSelectionScope(QObject *owner, DOCKEY &key, PARTITIONNUMBER &partitionNo,
                          DOCKEY otherKey, PARTITIONNUMBER otherPartitionNo);
    ~PreviewSelectionScope();

    PreviewSelectionScope(const PreviewSelectionScope &) = delete;
    PreviewSelectionScope &operator=(const PreviewSelectionScope &) = delete;

private:
    QPointer<QObject> m_owner;
    DOCKEY &m_key;
    PARTITIONNUMBER &m_partitionNo;
    DOCKEY m_keyBefore;
    PARTITIONNUMBER m_partitionNoBefore;
};
