#include "device/selectbox/JS_Mediator_SelectBox.h"

#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/OperationLog.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "contract/PLG_Interface.h"
#include "foundation/Keys.h"
#include "foundation/LogGroups.h"

namespace {

constexpr int VariablePage = 2; // of the live control tool's hook

const QLatin1String GoToVariables("go-variable");
const QLatin1String RecordPage("s_record");

QString valueGroup(const QString &value)
{
    return LogGroups::group(QLatin1String("value"), value);
}

void switchToPartition(HostServices *host, int number)
{
    host->selectCameraPartition(number, true);
    QList<DOCKEY> keys;
    host->selectedDocKeys(keys, true);
    for (DOCKEY key : qAsConst(keys)) {
        if (DOC_Interface *doc = host->deviceByKey(key, true)) {
            doc->refreshCamera();
            break;
        }
    }
}

// The live control tool, while it is open in live mode; null otherwise.
PLG_Interface *openLiveControl(HostServices *host)
{
    PLG_Interface *plugin = host->currentPlugin();
    const bool open = plugin && plugin->name() == Keys::tools.liveControl && host->isLiveMode();
    return open ? plugin : nullptr;
}

}

JS_Mediator_SelectBox::JS_Mediator_SelectBox(HostServices *host)
    : JS_Mediator(host, QLatin1String("items"))
{
}

void JS_Mediator_SelectBox::closeBox()
{
    PageSignal::send(this, [&] { emit close(); });
}

void JS_Mediator_SelectBox::slotNotifyPartition(const QString &value)
{
    OperationLogScope scope(QLatin1String("JS_Mediator_SelectBox::slotNotifyPartition"),
                            valueGroup(value));
    guarded(host(), [&] {
        closeBox();
        const int number = value.toInt();
        DOC_Interface *doc = host()->currentDocument();
        if (!doc || doc->partitionNumbers().size() < number)
            return;
        switchToPartition(host(), number);
        if (host()->isLiveMode())
            openPlugin(RecordPage);
    });
}

void JS_Mediator_SelectBox::slotNotifyVariable(const QString &value)
{
    OperationLogScope scope(QLatin1String("JS_Mediator_SelectBox::slotNotifyVariable"),
                            valueGroup(value));
    guarded(host(), [&] {
        closeBox();
        if (value != GoToVariables)
            host()->selectVariable(value.toUInt());
        if (PLG_Interface *plugin = openLiveControl(host()))
            plugin->hookE(VariablePage);
    });
}

int JS_Mediator_SelectBox::getCurrentPartition()
{
    return guarded(host(), 0, [&] {
        DOC_Interface *doc = host()->currentDocument();
        return doc ? doc->currentPartition() : 0;
    });
}

void JS_Mediator_SelectBox::slotNotifyVariableRegist(const QString &value)
{
    OperationLogScope scope(QLatin1String("JS_Mediator_SelectBox::slotNotifyVariableRegist"),
                            valueGroup(value));
    guarded(host(), [&] {
        closeBox();
        PLG_Interface *plugin = openLiveControl(host());
        if (plugin && host()->currentDocument())
            plugin->textHook(value);
    });
}
