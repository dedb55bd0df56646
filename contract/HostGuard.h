#pragma once

#include "contract/HostServices.h"

#include <exception>
#include <utility>

/// Hands a caught failure to the host. An errorHandler() that fails itself leaves a critical line,
/// and nothing escapes.
void reportFailure(HostServices *host, std::exception &failure) noexcept;

/// Runs `body` and returns what it returns. A std::exception on the way goes to the host's
/// errorHandler(), and the result is `neutral`. Nothing else is caught: what is no std::exception
/// passes on. `host` must not be null. GUI thread.
template <typename Result, typename Body>
Result guarded(HostServices *host, Result neutral, Body &&body)
{
    try {
        return std::forward<Body>(body)();
    } catch (std::exception &failure) {
        reportFailure(host, failure);
    }
    return neutral;
}

/// The same for a body without a result.
template <typename Body> void guarded(HostServices *host, Body &&body)
{
    try {
        std::forward<Body>(body)();
    } catch (std::exception &failure) {
        reportFailure(host, failure);
    }
}
