#include "foundation/UTL_QLN2_Integration.h"

#include "contract/HostServices.h"
#include "foundation/Keys.h"
#include "foundation/UTL_Integration.h"

UTL_QLN2_Integration::UTL_QLN2_Integration(HostServices *host) : m_host(host) {}

UTL_QLN2_Integration::~UTL_QLN2_Integration() = default;

bool UTL_QLN2_Integration::isInstalled()
{
    return UTL_Integration(m_host).exists(m_host->companionInstallDir(), Keys::companion.program);
}

bool UTL_QLN2_Integration::isOptionDisabled()
{
    return m_host->getPrefBool(Keys::recording.recordDuringDownload, QVariant()) ||
           m_host->getPrefBool(Keys::recording.autoDownload, QVariant());
}
