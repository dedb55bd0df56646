#include "standin/network/SearchText.h"

#include "foundation/Json.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

QString stateWord(CameraNetwork::Obstacle obstacle)
{
    switch (obstacle) {
    case CameraNetwork::Obstacle::HeldElsewhere:
        return QStringLiteral("elsewhere");
    case CameraNetwork::Obstacle::Unreachable:
        return QStringLiteral("unreachable");
    case CameraNetwork::Obstacle::AddressUsedTwice:
        return QStringLiteral("duplicate");
    case CameraNetwork::Obstacle::None:
        break;
    }
    return QStringLiteral("free");
}

QJsonArray adapterRows(const CameraNetwork &network)
{
    QJsonArray rows;
    for (const NetworkAdapter &adapter : network.adapters())
        rows.append(QJsonObject{{"name", adapter.name},
                                {"adapteraddress", adapter.address},
                                {"subnetmask", adapter.mask},
                                {"freeaddress", network.freeAddress(adapter)}});
    return rows;
}

}

QString SearchText::compactText(const CameraNetwork &network, const NetworkSearch::Result &result,
                                const QHash<QString, QString> &names,
                                const QSet<QString> &connected)
{
    QJsonArray rows;
    for (const QString &serialNumber : result.serialNumbers) {
        const NetworkDevice *device = network.device(serialNumber);
        if (!device)
            continue;
        const NetworkAdapter *adapter = network.adapterOf(*device);
        rows.append(QJsonObject{{"serial", device->serialNumber},
                                {"model", device->model},
                                {"heads", device->heads},
                                {"macaddress", device->hardwareAddress},
                                {"ipaddress", device->setting.ipAddress},
                                {"subnetmask", device->setting.subnetMask},
                                {"defaultgateway", device->setting.defaultGateway},
                                {"adapteraddress", adapter ? adapter->address : QString()},
                                {"name", names.value(serialNumber)},
                                {"state", connected.contains(serialNumber)
                                              ? QStringLiteral("connected")
                                              : stateWord(network.obstacle(*device))}});
    }
    return Json::compactText(QJsonObject{
        {"complete", result.isComplete}, {"adapters", adapterRows(network)}, {"devices", rows}});
}
