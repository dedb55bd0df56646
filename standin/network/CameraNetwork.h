#pragma once

#include "standin/network/NetworkPlan.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <functional>
#include <optional>

/// The network that cameras are found in, a model in memory: adapters of the computer, and devices
/// that are plugged in. Which of them the host has in its list, it does not know. GUI thread.
class CameraNetwork
{
public:
    /// What stands in the way of connecting a device that is plugged in, the first of these.
    enum class Obstacle {
        None,
        HeldElsewhere,
        Unreachable,     ///< in the subnet of no adapter
        AddressUsedTwice ///< by another device or an adapter too
    };

    /// One adapter, 192.168.0.1 in 255.255.255.0, and no device.
    CameraNetwork();

    /// Takes adapters and search time from the plan, and its devices beside those that are there.
    void load(const NetworkPlan &plan);

    const QList<NetworkAdapter> &adapters() const { return m_adapters; }
    int searchTime() const { return m_searchTime; } ///< milliseconds
    const QList<NetworkDevice> &devices() const { return m_devices; }

    /// Puts a device into the network, in the place of one with the same serial number. An empty
    /// hardware address is made. Addresses lose their leading zeros.
    void addDevice(const NetworkDevice &device);

    /// Null without such a device.
    const NetworkDevice *device(const QString &serialNumber) const;

    /// The device that is plugged in, upper and lower case the same; null without it.
    const NetworkDevice *deviceByHardwareAddress(const QString &hardwareAddress) const;

    /// Those that are plugged in, in the order of the network.
    QList<const NetworkDevice *> devicesAt(const QString &address) const;

    Obstacle obstacle(const NetworkDevice &device) const;

    /// The adapter that hears a device: its own, else the one in whose subnet it is, else the
    /// first; null without adapters.
    const NetworkAdapter *adapterOf(const NetworkDevice &device) const;

    /// The lowest address of the adapter's subnet that nobody has; empty when there is none.
    QString freeAddress(const NetworkAdapter &adapter) const;

    /// The setting without leading zeros, as the network compares it.
    static NetworkSetting normalized(const NetworkSetting &setting);

    /// Why no camera may have such addresses, or why this one may not, since another has them;
    /// empty when there is no reason. An empty gateway, or 0.0.0.0, means none.
    static QString formRefusal(const NetworkSetting &wanted);
    QString refusal(const QString &serialNumber, const NetworkSetting &wanted) const;

    // What happens in it. Nothing without such a device.

    void setPlugged(const QString &serialNumber, bool plugged);
    void setHeldElsewhere(const QString &serialNumber, bool held);
    void setSetting(const QString &serialNumber, const NetworkSetting &setting);
    void setHeads(const QString &serialNumber, int heads);

    /// Called behind each change, with the addresses whose devices may be concerned.
    void setListener(const std::function<void(const QSet<QString> &)> &listener)
    {
        m_listener = listener;
    }

private:
    void change(const QString &serialNumber, const std::function<void(NetworkDevice &)> &body);
    void tell(const QSet<QString> &addresses) const;
    bool isTaken(const QString &address, const QString &exceptSerialNumber) const;
    QString newHardwareAddress() const;
    void putIn(const NetworkDevice &device);

    QList<NetworkAdapter> m_adapters;
    QList<NetworkDevice> m_devices;
    QHash<QString, int> m_places;            ///< of the devices, by serial number
    QHash<QString, int> m_hardwareAddresses; ///< in capitals, as m_places
    int m_searchTime = NetworkPlan().searchTime;
    std::function<void(const QSet<QString> &)> m_listener;
};
