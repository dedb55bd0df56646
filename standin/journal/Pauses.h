#pragma once

#include "standin/journal/CallPair.h"

#include <QtGlobal>

/// What the library holds back for a while: live view, playback, other updates and refreshes, and
/// the refresh of the user interface.
class Pauses
{
public:
    /// A refresh of the user interface, as updateUI() was asked for it.
    struct Refresh
    {
        uint flags = 0;
        bool send = false; ///< settings go to the devices
    };

    CallPair live{QStringLiteral("resumeLive")};
    CallPair playback{QStringLiteral("resumePlayback")};
    CallPair exclusiveUpdate{QStringLiteral("endExclusiveUpdate")};
    CallPair exclusiveRefresh{QStringLiteral("endExclusiveRefresh")};
    CallPair deterral{QStringLiteral("deterUpdateUI(false)")};

    bool isViewSuspended = false; ///< a state, set and reset; it does not count

    /// Keeps a refresh that was asked for while a deterral is open; several become one.
    void holdBack(const Refresh &refresh);

    /// What was held back, with the flags 0 when nothing was. Forgets it.
    Refresh takeHeldBack();

private:
    Refresh m_heldBack;
};
