#include "record/format/JS_Mediator_FrameFormatDialog.h"

#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/OperationLog.h"
#include "contract/HostGuard.h"
#include "foundation/Keys.h"
#include "foundation/LogGroups.h"

#include <QPointer>

JS_Mediator_FrameFormatDialog::JS_Mediator_FrameFormatDialog(HostServices *host)
    : JS_Mediator_Dialog(host, QLatin1String("frameFormatDialog"))
{
    m_snapshot.read(host, Keys::display.frameInsertDelimiter, PrefSnapshot::Type::Bool);
}

void JS_Mediator_FrameFormatDialog::ok()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FrameFormatDialog::ok"));
    guarded(host(), [this] { PageSignal::send(this, [this] { emit accept(); }); });
}

void JS_Mediator_FrameFormatDialog::cancel()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FrameFormatDialog::cancel"));
    HostServices *services = host();
    const PrefSnapshot snapshot = m_snapshot; // a call of the host may end the mediator
    QPointer<JS_Mediator_FrameFormatDialog> self(this);
    guarded(services, [&] {
        snapshot.writeBack(services);
        if (self)
            PageSignal::send(this, [this] { emit reject(); });
    });
}

bool JS_Mediator_FrameFormatDialog::isFrameInsertDelimiter()
{
    return guarded(host(), false, [this] {
        return host()->getPrefBool(Keys::display.frameInsertDelimiter, QVariant());
    });
}

void JS_Mediator_FrameFormatDialog::setFrameInsertDelimiter(bool val)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FrameFormatDialog::setFrameInsertDelimiter"),
                            LogGroups::group(QLatin1String("val"), val));
    guarded(host(), [&] { host()->setPrefBool(Keys::display.frameInsertDelimiter, val); });
}
