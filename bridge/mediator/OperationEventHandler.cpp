#include "bridge/mediator/OperationEventHandler.h"

#include "bridge/mediator/JS_Mediator.h"
#include "bridge/operation/OperationLog.h"
#include "contract/HostGuard.h"

OperationEventHandler::OperationEventHandler(JS_Mediator *mediator, const QString &name,
                                             const QString &arguments)
    : m_mediator(mediator), m_name(name), m_arguments(arguments.trimmed())
{
    OperationLog::enter(m_name, m_arguments);
}

OperationEventHandler::~OperationEventHandler()
{
    if (m_mediator) {
        HostServices *host = m_mediator->host();
        guarded(host, [&] { host->updateUI(uint(m_mediator->updateFlags()), true); });
    }
    OperationLog::leave(m_name);
}
