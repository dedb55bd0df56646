#include "standin/network/BuiltInNetwork.h"

namespace {

constexpr int SlowAnswer = 900; // milliseconds

NetworkDevice device(int number, const QString &model, const QString &address,
                     const QString &mask = QStringLiteral("255.255.255.0"),
                     const QString &gateway = QString())
{
    NetworkDevice device;
    device.serialNumber = QString::number(70000 + number);
    device.hardwareAddress =
        QStringLiteral("02:00:5E:00:00:%1").arg(number, 2, 10, QLatin1Char('0'));
    device.model = model;
    device.setting = {address, mask, gateway};
    return device;
}

}

NetworkPlan BuiltInNetwork::plan()
{
    const QString small = QStringLiteral("S-1024");
    const QString large = QStringLiteral("S-2048");
    const QString wide = QStringLiteral("255.0.0.0");

    NetworkPlan plan;
    plan.adapters = {{QStringLiteral("Ethernet"), QStringLiteral("192.168.0.1"),
                      QStringLiteral("255.255.255.0")},
                     {QStringLiteral("Ethernet 2"), QStringLiteral("10.0.0.1"), wide}};

    plan.devices = {device(1, small, QStringLiteral("192.168.0.201")),
                    device(2, large, QStringLiteral("192.168.0.202"))};
    plan.devices.last().heads = 2;
    plan.devices.append(device(3, large, QStringLiteral("10.20.30.40"), wide));
    plan.devices.last().delay = SlowAnswer;

    plan.devices.append(device(4, small, QStringLiteral("172.16.5.20"),
                               QStringLiteral("255.255.0.0"), QStringLiteral("172.16.0.1")));
    plan.devices.append(device(5, small, QStringLiteral("0.0.0.0"), wide));
    plan.devices.last().adapter = plan.adapters.last().address;

    plan.devices.append(device(6, large, QStringLiteral("192.168.0.203")));
    plan.devices.last().isHeldElsewhere = true;

    plan.devices.append(device(7, small, QStringLiteral("192.168.0.204")));
    plan.devices.append(device(8, large, QStringLiteral("192.168.0.204")));
    plan.devices.append(device(9, small, QStringLiteral("10.0.0.1"), wide));
    return plan;
}
