#include "plugin/makeButtonPlugin.h"

#include "plugin/PLG_multilock.h"

#include <new>

PLG_Interface *makeButtonPlugin()
{
    try {
        return new PLG_multilock;
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}
