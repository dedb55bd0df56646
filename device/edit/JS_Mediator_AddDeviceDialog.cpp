#include "device/edit/JS_Mediator_AddDeviceDialog.h"

#include "bridge/mediator/PageSignal.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "device/edit/DummyAddress.h"
#include "foundation/Json.h"
#include "foundation/Keys.h"
#include "foundation/Utilities.h"

#include <QJsonObject>
#include <QPointer>

namespace {

QString firstFreeDummy(HostServices *host)
{
    QList<DOCKEY> keys;
    host->deviceKeys(keys, true);
    DummyAddress::Taken taken;
    for (DOCKEY key : qAsConst(keys)) {
        DOC_Interface *doc = host->documentByKey(key);
        if (doc && doc->isDummy())
            taken.add(doc->ipAddress());
    }
    return taken.firstFree();
}

}

JS_Mediator_AddDeviceDialog::JS_Mediator_AddDeviceDialog(HostServices *host, bool connect)
    : JS_Mediator_Dialog(host, QLatin1String("adddevice")), m_connect(connect)
{
}

QString JS_Mediator_AddDeviceDialog::getAddDeviceDialogSettings()
{
    HostServices *services = host();
    return guarded(services, QString(), [&] {
        QJsonObject settings;
        settings.insert(QLatin1String("DefaultCameraName"), services->defaultCameraName());
        settings.insert(
            QLatin1String("DefaultIPAddress"),
            services->getPrefString(Keys::cameraConnection.addIpDefault, Keys::texts.addIpDefault));
        settings.insert(QLatin1String("DefaultDummyIPAddress"), firstFreeDummy(services));
        return Json::compactText(settings);
    });
}

void JS_Mediator_AddDeviceDialog::ok(const QString &cameraNeme, const QString &ipAddress,
                                     bool isDummy)
{
    if (!UTL::isValidFileName(cameraNeme) || !UTL::isValidIpAddress(ipAddress))
        return;
    HostServices *services = host();
    QPointer<JS_Mediator_AddDeviceDialog> self(this); // a call of the host may end it
    guarded(services, [&] {
        services->addDevice(cameraNeme, ipAddress, isDummy);
        if (self)
            PageSignal::send(this, [this] { emit accept(); });
    });
}

void JS_Mediator_AddDeviceDialog::cancel()
{
    guarded(host(), [this] { PageSignal::send(this, [this] { emit reject(); }); });
}
