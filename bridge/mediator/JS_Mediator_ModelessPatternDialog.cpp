#include "bridge/mediator/JS_Mediator_ModelessPatternDialog.h"

#include "contract/HostGuard.h"

void JS_Mediator_ModelessPatternDialog::setTextBoxFocusState(bool focused)
{
    guarded(host(), [&] { host()->setTextBoxFocusState(focused); });
}
