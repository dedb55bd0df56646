#include "contract/HostGuard.h"

#include <QtDebug>

void reportFailure(HostServices *host, std::exception &failure) noexcept
{
    try {
        host->errorHandler(failure);
    } catch (const std::exception &second) {
        qCritical("The error handler failed: %s", second.what());
    } catch (...) {
        qCritical("The error handler failed.");
    }
}
