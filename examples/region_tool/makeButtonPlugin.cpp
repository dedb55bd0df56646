#include "contract/makeButtonPlugin.h"

#include "PLG_region.h"

PLG_Interface *makeButtonPlugin()
{
    return new PLG_region;
}
