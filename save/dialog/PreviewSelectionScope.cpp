#include "save/dialog/PreviewSelectionScope.h"

PreviewSelectionScope::PreviewSelectionScope(QObject *owner, DOCKEY &key,
                                             PARTITIONNUMBER &partitionNo, DOCKEY otherKey,
                                             PARTITIONNUMBER otherPartitionNo)
    : m_owner(owner), m_key(key), m_partitionNo(partitionNo), m_keyBefore(key),
      m_partitionNoBefore(partitionNo)
{
    m_key = otherKey;
    m_partitionNo = otherPartitionNo;
}

PreviewSelectionScope::~PreviewSelectionScope()
{
    if (!m_owner)
        return;
    m_key = m_keyBefore;
    m_partitionNo = m_partitionNoBefore;
}
