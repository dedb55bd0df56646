#include "bridge/mediator/UpdateFlagsScope.h"

#include "bridge/mediator/JS_Mediator.h"
#include "contract/HostValues.h"

UpdateFlagsScope::UpdateFlagsScope(JS_Mediator *mediator)
    : m_mediator(mediator), m_savedFlags(mediator->updateFlags())
{
    m_mediator->setUpdateFlags(UpdateFlag::Operation);
}

UpdateFlagsScope::~UpdateFlagsScope()
{
    if (m_mediator)
        m_mediator->setUpdateFlags(m_savedFlags);
}
