#include "record/format/JS_Mediator_RecordRateFormatDialog.h"

#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/OperationLog.h"
#include "contract/HostGuard.h"
#include "foundation/Keys.h"
#include "foundation/LogGroups.h"

#include <QPointer>

JS_Mediator_RecordRateFormatDialog::JS_Mediator_RecordRateFormatDialog(HostServices *host)
    : JS_Mediator_Dialog(host, QLatin1String("recordRateFormatDialog"))
{
    m_snapshot.read(host, Keys::display.recordRateInsertDelimiter, PrefSnapshot::Type::Bool);
}

void JS_Mediator_RecordRateFormatDialog::ok()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_RecordRateFormatDialog::ok"));
    guarded(host(), [this] { PageSignal::send(this, [this] { emit accept(); }); });
}

void JS_Mediator_RecordRateFormatDialog::cancel()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_RecordRateFormatDialog::cancel"));
    HostServices *services = host();
    const PrefSnapshot snapshot = m_snapshot; // a call of the host may end the mediator
    QPointer<JS_Mediator_RecordRateFormatDialog> self(this);
    guarded(services, [&] {
        snapshot.writeBack(services);
        if (self)
            PageSignal::send(this, [this] { emit reject(); });
    });
}

bool JS_Mediator_RecordRateFormatDialog::isRecordRateInsertDelimiter()
{
    return guarded(host(), false, [this] {
        return host()->getPrefBool(Keys::display.recordRateInsertDelimiter, QVariant());
    });
}

void JS_Mediator_RecordRateFormatDialog::setRecordRateInsertDelimiter(bool val)
{
    OperationLogScope trace(
        QLatin1String("JS_Mediator_RecordRateFormatDialog::setRecordRateInsertDelimiter"),
        LogGroups::group(QLatin1String("val"), val));
    guarded(host(), [&] { host()->setPrefBool(Keys::display.recordRateInsertDelimiter, val); });
}
