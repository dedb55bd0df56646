#include "contract/makeButtonPlugin.h"

#include "PLG_note.h"

PLG_Interface *makeButtonPlugin()
{
    return new PLG_note;
}
