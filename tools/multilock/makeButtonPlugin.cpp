#include "contract/makeButtonPlugin.h"

#include "tools/multilock/PLG_multilock.h"

#include <new>

PLG_Interface *makeButtonPlugin()
{
    try {
        return new PLG_multilock;
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}
