#pragma once

#include "plugin/PLG_Button.h"

/// The Lock Camera tool: while its button is on, the cameras of the multi-camera window are locked
/// together, so that a change made on one is meant for all. It keeps no state: the lock is the
/// host's, and the button follows it.
class PLG_multilock : public PLG_Button
{
public:
    PLG_multilock();
    ~PLG_multilock() override;

    void setHost(HostServices *host) override;
    void closeTool() override;
    void activate() override;
    void deactivate() override;
};
