#include "bridge/operation/PartitionRestoreScope.h"

#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"

PartitionRestoreScope::PartitionRestoreScope(HostServices *host, DOC_Interface *doc, DOCKEY key,
                                             PARTITIONNUMBER partitionNo)
    : m_host(host), m_key(key), m_before(doc->selectPartition(partitionNo))
{
}

PartitionRestoreScope::~PartitionRestoreScope()
{
    guarded(m_host, [this] {
        if (DOC_Interface *doc = m_host->deviceByKey(m_key, true))
            doc->selectPartition(m_before);
    });
}
