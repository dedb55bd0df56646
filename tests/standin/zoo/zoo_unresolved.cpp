#include "contract/PLG_Interface.h"

// Nobody defines it.
PLG_Interface *makeMissingTool(int kind);

extern "C" Q_DECL_EXPORT PLG_Interface *makeButtonPlugin()
{
    return makeMissingTool(1);
}
