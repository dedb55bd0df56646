#pragma once

#include "contract/HostTypes.h"

class DOC_Interface;
class HostServices;

/// Selects a partition of a document, and the one before again when it goes, if the document is
/// still there. A failure then goes to the host's errorHandler(). GUI thread.
class PartitionRestoreScope
{
public:
    /// `doc` has the key `key`. Throws what the document throws; then nothing was selected.
    PartitionRestoreScope(HostServices *host, DOC_Interface *doc, DOCKEY key,
                          PARTITIONNUMBER partitionNo);
    ~PartitionRestoreScope();

    PartitionRestoreScope(const PartitionRestoreScope &) = delete;
    PartitionRestoreScope &operator=(const PartitionRestoreScope &) = delete;

private:
    HostServices *m_host;
    DOCKEY m_key;
    PARTITIONNUMBER m_before;
};
