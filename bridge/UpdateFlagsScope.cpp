#include "bridge/UpdateFlagsScope.h"

#include "bridge/JS_Mediator.h"

UpdateFlagsScope::UpdateFlagsScope(JS_Mediator *mediator)
    : m_mediator(mediator), m_savedFlags(mediator->updateFlags())
{
    m_mediator->setUpdateFlags(JS_Mediator::RefreshEverything);
}

UpdateFlagsScope::~UpdateFlagsScope()
{
    if (m_mediator)
        m_mediator->setUpdateFlags(m_savedFlags);
}
