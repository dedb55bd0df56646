#include "save/number/JS_Mediator_AddNumberDialog.h"

#include "contract/HostGuard.h"
#include "foundation/SaveModes.h"
#include "save/path/NumberText.h"
#include "save/path/PathComposer.h"

JS_Mediator_AddNumberDialog::JS_Mediator_AddNumberDialog(HostServices *host, int callbackType,
                                                         int selectedDocs, int selectedHeads)
    : JS_Mediator_Dialog(host, QLatin1String("addnumberdialog")), m_callbackType(callbackType),
      m_autoDeviceDigits(NumberText::decimalLength(selectedDocs)),
      m_autoHeadDigits(selectedHeads >= 2 ? NumberText::decimalLength(selectedHeads) : 0)
{
}

bool JS_Mediator_AddNumberDialog::isFileMode()
{
    const bool isConverted = isConversion(); // a call of the host may end the mediator
    return JS_Mediator_Dialog::isFileMode() || isConverted;
}

int JS_Mediator_AddNumberDialog::getCallbackType()
{
    return m_callbackType;
}

QString JS_Mediator_AddNumberDialog::preview(int deviceDigits, int headDigits, int sessionDigits)
{
    const bool isConverted = isConversion();
    return guarded(host(), QString(), [&] {
        const bool hasSessionOnly = host()->isFileMode() || isConverted;
        return PathComposer::composeNumberText(1, 1, 1, hasSessionOnly ? 0 : deviceDigits,
                                               hasSessionOnly ? 0 : headDigits, sessionDigits);
    });
}

int JS_Mediator_AddNumberDialog::getAutoDeviceDigits()
{
    return m_autoDeviceDigits;
}

int JS_Mediator_AddNumberDialog::getAutoHeadDigits()
{
    return m_autoHeadDigits;
}

bool JS_Mediator_AddNumberDialog::isConversion() const
{
    using namespace SaveModes;
    return m_callbackType == groupDirKind(Family::Convert) ||
           m_callbackType == subDirKind(Family::Convert) ||
           m_callbackType == fileNameKind(Family::Convert);
}
