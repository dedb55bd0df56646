#include "contract/PLG_Interface.h"

// Of a library that lies in another folder when the module is loaded.
int cameraDriverVersion();

extern "C" Q_DECL_EXPORT PLG_Interface *makeButtonPlugin()
{
    return cameraDriverVersion() > 0 ? nullptr : nullptr;
}
