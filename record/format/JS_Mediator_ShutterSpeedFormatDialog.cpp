#include "record/format/JS_Mediator_ShutterSpeedFormatDialog.h"

#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/OperationLog.h"
#include "contract/HostGuard.h"
#include "foundation/Keys.h"
#include "foundation/LogGroups.h"

#include <QPointer>

JS_Mediator_ShutterSpeedFormatDialog::JS_Mediator_ShutterSpeedFormatDialog(HostServices *host)
    : JS_Mediator_Dialog(host, QLatin1String("shutter_format_dlg"))
{
    m_snapshot.read(host, Keys::display.shutterSpeed, PrefSnapshot::Type::Int);
    m_snapshot.read(host, Keys::display.shutterSpeedUnit, PrefSnapshot::Type::Int);
    m_snapshot.read(host, Keys::display.shutterSpeedInsertDelimiter, PrefSnapshot::Type::Bool);
}

void JS_Mediator_ShutterSpeedFormatDialog::ok()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_ShutterSpeedFormatDialog::ok"));
    guarded(host(), [this] { PageSignal::send(this, [this] { emit accept(); }); });
}

void JS_Mediator_ShutterSpeedFormatDialog::cancel()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_ShutterSpeedFormatDialog::cancel"));
    HostServices *services = host();
    const PrefSnapshot snapshot = m_snapshot; // a call of the host may end the mediator
    QPointer<JS_Mediator_ShutterSpeedFormatDialog> self(this);
    guarded(services, [&] {
        snapshot.writeBack(services);
        if (self)
            PageSignal::send(this, [this] { emit reject(); });
    });
}

int JS_Mediator_ShutterSpeedFormatDialog::getShutterSpeedFormat()
{
    return guarded(host(), 0,
                   [this] { return host()->getPrefInt(Keys::display.shutterSpeed, QVariant()); });
}

void JS_Mediator_ShutterSpeedFormatDialog::setShutterSpeedFormat(int format)
{
    OperationLogScope trace(
        QLatin1String("JS_Mediator_ShutterSpeedFormatDialog::setShutterSpeedFormat"),
        LogGroups::group(QLatin1String("format"), format));
    guarded(host(), [&] { host()->setPrefInt(Keys::display.shutterSpeed, format); });
}

int JS_Mediator_ShutterSpeedFormatDialog::getShutterSpeedTimeUnit()
{
    return guarded(host(), 0, [this] {
        return host()->getPrefInt(Keys::display.shutterSpeedUnit, QVariant());
    });
}

void JS_Mediator_ShutterSpeedFormatDialog::setShutterSpeedTimeUnit(int unit)
{
    OperationLogScope trace(
        QLatin1String("JS_Mediator_ShutterSpeedFormatDialog::setShutterSpeedTimeUnit"),
        LogGroups::group(QLatin1String("unit"), unit));
    guarded(host(), [&] { host()->setPrefInt(Keys::display.shutterSpeedUnit, unit); });
}

bool JS_Mediator_ShutterSpeedFormatDialog::isShutterSpeedInsertDelimiter()
{
    return guarded(host(), false, [this] {
        return host()->getPrefBool(Keys::display.shutterSpeedInsertDelimiter, QVariant());
    });
}

void JS_Mediator_ShutterSpeedFormatDialog::setShutterSpeedInsertDelimiter(bool val)
{
    OperationLogScope trace(
        QLatin1String("JS_Mediator_ShutterSpeedFormatDialog::setShutterSpeedInsertDelimiter"),
        LogGroups::group(QLatin1String("val"), val));
    guarded(host(), [&] { host()->setPrefBool(Keys::display.shutterSpeedInsertDelimiter, val); });
}
