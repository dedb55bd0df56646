#pragma once

#include "plugin/PLG_Common.h"

/// A tool that shows as a button.
class PLG_Button : public PLG_Common
{
public:
    PLG_Button();
    ~PLG_Button() override;
};
