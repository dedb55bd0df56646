#include "record/format/JS_Mediator_RectimeFormatDialog.h"

#include "bridge/mediator/PageSignal.h"
#include "contract/HostGuard.h"
#include "foundation/Keys.h"

#include <QPointer>

JS_Mediator_RectimeFormatDialog::JS_Mediator_RectimeFormatDialog(HostServices *host)
    : JS_Mediator_Dialog(host, QLatin1String("rectime_format_dlg"))
{
    m_snapshot.read(host, Keys::info.recTimeUnit, PrefSnapshot::Type::Int);
}

void JS_Mediator_RectimeFormatDialog::ok()
{
    guarded(host(), [this] { PageSignal::send(this, [this] { emit accept(); }); });
}

void JS_Mediator_RectimeFormatDialog::cancel()
{
    HostServices *services = host();
    const PrefSnapshot snapshot = m_snapshot; // a call of the host may end the mediator
    QPointer<JS_Mediator_RectimeFormatDialog> self(this);
    guarded(services, [&] {
        snapshot.writeBack(services);
        services->refreshDocumentInfo(true);
        if (self)
            PageSignal::send(this, [this] { emit reject(); });
    });
}

int JS_Mediator_RectimeFormatDialog::getRecTimeUnit()
{
    return guarded(host(), 0,
                   [this] { return host()->getPrefInt(Keys::info.recTimeUnit, QVariant()); });
}

void JS_Mediator_RectimeFormatDialog::setRecTimeUnit(int unit)
{
    HostServices *services = host(); // its calls may end the mediator
    guarded(services, [&] {
        services->setPrefInt(Keys::info.recTimeUnit, unit);
        services->refreshDocumentInfo(true);
    });
}
