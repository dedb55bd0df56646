#include "device/edit/JS_Mediator_EditDeviceDialog.h"

#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/OperationLog.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "contract/HostValues.h"
#include "foundation/Json.h"
#include "foundation/LogGroups.h"

#include <QJsonObject>
#include <QPointer>

namespace {

// With its number where the device has several heads.
QString headNameOf(DOC_Interface *doc, const QString &name)
{
    DOC_HeadInterface *heads = doc->headInterface();
    if (!heads || heads->headCount() <= 1)
        return name;
    return name + QLatin1String(" - ") + QString::number(doc->headNumber());
}

QJsonObject settingsOf(HostServices *host, DOC_Interface *doc)
{
    const EditDeviceData data = doc->editDeviceData();
    QJsonObject settings;
    settings.insert(QLatin1String("HeadName"), headNameOf(doc, data.headName));
    settings.insert(QLatin1String("DeviceSerialNumber"), data.deviceSerialNumber);
    settings.insert(QLatin1String("HeadSerialNumber"), data.headSerialNumber);
    settings.insert(QLatin1String("isMemoryMode"), host->isMemoryMode());
    settings.insert(QLatin1String("CameraName"), doc->cameraName());
    settings.insert(QLatin1String("EtherType"), data.etherType);
    settings.insert(QLatin1String("IPAddress"), data.network.ipAddress);
    settings.insert(QLatin1String("Subnetmask"), data.network.subnetMask);
    settings.insert(QLatin1String("DefaultGateway"), data.network.defaultGateway);
    settings.insert(QLatin1String("ModelName"), data.modelName);
    settings.insert(QLatin1String("FWVer"), data.firmwareVersion);
    settings.insert(QLatin1String("IsSupportWifi"), doc->hasCapability(Capability::Wireless));
    settings.insert(QLatin1String("IsDummy"), doc->isDummy());
    return settings;
}

}

QString JS_Mediator_EditDeviceDialog::getEditDeviceDialogSettings()
{
    HostServices *services = host();
    return guarded(services, QString(), [&] {
        DOC_Interface *doc = services->currentDocument();
        return Json::compactText(doc ? settingsOf(services, doc) : QJsonObject());
    });
}

void JS_Mediator_EditDeviceDialog::ok(const QString &cameraName, const QString &ipAddress,
                                      const QString &subnetmask, const QString &defaultGateway)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_EditDeviceDialog::ok"),
                            LogGroups::group(QLatin1String("cameraName"), cameraName) +
                                LogGroups::group(QLatin1String("ipAddress"), ipAddress) +
                                LogGroups::group(QLatin1String("subnetmask"), subnetmask) +
                                LogGroups::group(QLatin1String("defaultGateway"), defaultGateway));
    HostServices *services = host();
    QPointer<JS_Mediator_EditDeviceDialog> self(this); // a call of the host may end it
    guarded(services, [&] {
        DOC_Interface *doc = services->currentDocument();
        if (!doc)
            return;
        doc->setCameraName(cameraName);
        doc->setNetworkSetting(doc->editDeviceData().etherType,
                               {ipAddress, subnetmask, defaultGateway});
        if (self)
            PageSignal::send(this, [this] { emit accept(); });
    });
}

void JS_Mediator_EditDeviceDialog::cancel()
{
    guarded(host(), [this] { PageSignal::send(this, [this] { emit reject(); }); });
}

void JS_Mediator_EditDeviceDialog::setEditEtherType(int type)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_EditDeviceDialog::setEditEtherType"),
                            LogGroups::group(QLatin1String("type"), type));
    HostServices *services = host();
    guarded(services, [&] {
        if (DOC_Interface *doc = services->currentDocument())
            doc->setEtherType(type);
    });
}
