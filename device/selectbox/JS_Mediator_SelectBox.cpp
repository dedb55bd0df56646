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
    HostServices *services = host();
    QPointer<JS_Mediator_SelectBox> self(this);
    guarded(services, [&] {
        closeBox();
        const int number = value.toInt();
        DOC_Interface *doc = services->currentDocument();
        if (!doc || doc->partitionNumbers().size() < number)
            return;
        switchToPartition(services, number);
        if (services->isLiveMode() && self)
            openPlugin(RecordPage);
    });
}

void JS_Mediator_SelectBox::slotNotifyVariable(const QString &value)
{
    OperationLogScope scope(QLatin1String("JS_Mediator_SelectBox::slotNotifyVariable"),
                            valueGroup(value));
    HostServices *services = host();
    guarded(services, [&] {
        closeBox();
        if (value != GoToVariables)
            services->selectVariable(value.toUInt());
        if (PLG_Interface *plugin = openLiveControl(services))
            plugin->hookE(VariablePage);
    });
}

int JS_Mediator_SelectBox::getCurrentPartition()
{
    HostServices *services = host();
    return guarded(services, 0, [&] {
        DOC_Interface *doc = services->currentDocument();
        return doc ? doc->currentPartition() : 0;
    });
}

void JS_Mediator_SelectBox::slotNotifyVariableRegist(const QString &value)
{
    OperationLogScope scope(QLatin1String("JS_Mediator_SelectBox::slotNotifyVariableRegist"),
                            valueGroup(value));
    HostServices *services = host();
    guarded(services, [&] {
        closeBox();
        PLG_Interface *plugin = openLiveControl(services);
        if (plugin && services->currentDocument())
            plugin->textHook(value);
    });
}
