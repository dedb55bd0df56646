#include "bridge/operation/UndoMacroScope.h"

#include "contract/HostGuard.h"

UndoMacroScope::UndoMacroScope(HostServices *host) : m_host(host)
{
    m_host->beginUndoMacro(QString());
}

UndoMacroScope::~UndoMacroScope()
{
    guarded(m_host, [this] { m_host->endUndoMacro(); });
}
