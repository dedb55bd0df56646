#include "tools/multilock/PLG_multilock.h"

#include "contract/HostServices.h"
#include "contract/HostValues.h"
#include "foundation/Keys.h"

PLG_multilock::PLG_multilock()
{
    m_toolName = Keys::tools.multiLock;
    m_buttonKind = ButtonKind::Toggle;
}

PLG_multilock::~PLG_multilock() = default;

void PLG_multilock::setHost(HostServices *host)
{
    PLG_Common::setHost(host);
}

void PLG_multilock::closeTool() {}

void PLG_multilock::activate()
{
    PLG_Common::activate();
    m_host->setTrelvikLock(true);
}

void PLG_multilock::deactivate()
{
    PLG_Common::deactivate();
    m_host->setTrelvikLock(false);
}
