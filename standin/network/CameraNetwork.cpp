#include "standin/network/CameraNetwork.h"

#include "standin/network/Ipv4.h"

#include <algorithm>

namespace {

bool isInSubnetOf(const NetworkAdapter &adapter, const QString &address)
{
    const std::optional<quint32> own = Ipv4::address(adapter.address);
    const std::optional<quint32> mask = Ipv4::mask(adapter.mask);
    const std::optional<quint32> other = Ipv4::address(address);
    return own && mask && other && Ipv4::isSameSubnet(*own, *other, *mask);
}

bool isNoGateway(const QString &text)
{
    return text.isEmpty() || text == QLatin1String("0.0.0.0");
}

}

CameraNetwork::CameraNetwork()
    : m_adapters({{QStringLiteral("Ethernet"), QStringLiteral("192.168.0.1"),
                   QStringLiteral("255.255.255.0")}})
{
}

void CameraNetwork::load(const NetworkPlan &plan)
{
    m_adapters = plan.adapters;
    for (NetworkAdapter &adapter : m_adapters) {
        adapter.address = Ipv4::normalized(adapter.address);
        adapter.mask = Ipv4::normalized(adapter.mask);
    }
    m_searchTime = plan.searchTime;
    for (const NetworkDevice &device : plan.devices)
        addDevice(device);
}

void CameraNetwork::addDevice(const NetworkDevice &device)
{
    QSet<QString> addresses;
    if (const NetworkDevice *before = this->device(device.serialNumber))
        addresses.insert(before->setting.ipAddress);
    putIn(device);
    addresses.insert(this->device(device.serialNumber)->setting.ipAddress);
    tell(addresses);
}

void CameraNetwork::putIn(const NetworkDevice &device)
{
    NetworkDevice entry = device;
    entry.setting = normalized(device.setting);
    if (entry.hardwareAddress.isEmpty())
        entry.hardwareAddress = newHardwareAddress();
    const int place = m_places.value(entry.serialNumber, m_devices.size());
    if (place == m_devices.size()) {
        m_devices.append(entry);
    } else {
        m_hardwareAddresses.remove(m_devices.at(place).hardwareAddress.toUpper());
        m_devices[place] = entry;
    }
    m_places.insert(entry.serialNumber, place);
    m_hardwareAddresses.insert(entry.hardwareAddress.toUpper(), place);
}

const NetworkDevice *CameraNetwork::device(const QString &serialNumber) const
{
    const auto found = m_places.constFind(serialNumber);
    return found == m_places.constEnd() ? nullptr : &m_devices.at(*found);
}

const NetworkDevice *CameraNetwork::deviceByHardwareAddress(const QString &hardwareAddress) const
{
    const auto found = m_hardwareAddresses.constFind(hardwareAddress.toUpper());
    if (found == m_hardwareAddresses.constEnd() || !m_devices.at(*found).isPlugged)
        return nullptr;
    return &m_devices.at(*found);
}

QList<const NetworkDevice *> CameraNetwork::devicesAt(const QString &address) const
{
    QList<const NetworkDevice *> found;
    for (const NetworkDevice &device : m_devices) {
        if (device.isPlugged && device.setting.ipAddress == address)
            found.append(&device);
    }
    return found;
}

CameraNetwork::Obstacle CameraNetwork::obstacle(const NetworkDevice &device) const
{
    const QString &address = device.setting.ipAddress;
    if (device.isHeldElsewhere)
        return Obstacle::HeldElsewhere;
    if (std::none_of(m_adapters.begin(), m_adapters.end(),
                     [&](const NetworkAdapter &adapter) { return isInSubnetOf(adapter, address); }))
        return Obstacle::Unreachable;
    return isTaken(address, device.serialNumber) ? Obstacle::AddressUsedTwice : Obstacle::None;
}

const NetworkAdapter *CameraNetwork::adapterOf(const NetworkDevice &device) const
{
    if (m_adapters.isEmpty())
        return nullptr;
    const auto first = [this](const auto &condition) {
        return std::find_if(m_adapters.begin(), m_adapters.end(), condition);
    };
    auto found =
        first([&](const NetworkAdapter &adapter) { return adapter.address == device.adapter; });
    if (found == m_adapters.end()) {
        found = first([&](const NetworkAdapter &adapter) {
            return isInSubnetOf(adapter, device.setting.ipAddress);
        });
    }
    return found == m_adapters.end() ? &m_adapters.first() : &*found;
}

QString CameraNetwork::freeAddress(const NetworkAdapter &adapter) const
{
    const std::optional<quint32> address = Ipv4::address(adapter.address);
    const std::optional<quint32> mask = Ipv4::mask(adapter.mask);
    if (!address || !mask)
        return QString();
    const quint32 end = Ipv4::broadcastAddress(*address, *mask);
    for (quint32 number = Ipv4::ownAddress(*address, *mask) + 1; number < end; ++number) {
        const QString text = Ipv4::text(number);
        if (!isTaken(text, QString()))
            return text;
    }
    return QString();
}

NetworkSetting CameraNetwork::normalized(const NetworkSetting &setting)
{
    return {Ipv4::normalized(setting.ipAddress), Ipv4::normalized(setting.subnetMask),
            Ipv4::normalized(setting.defaultGateway)};
}

QString CameraNetwork::formRefusal(const NetworkSetting &wanted)
{
    const std::optional<quint32> address = Ipv4::address(wanted.ipAddress);
    if (!address)
        return QStringLiteral("\"%1\" is not an address of four numbers from 0 to 255.")
            .arg(wanted.ipAddress);
    const std::optional<quint32> mask = Ipv4::mask(wanted.subnetMask);
    if (!mask)
        return QStringLiteral("\"%1\" is not a subnet mask.").arg(wanted.subnetMask);
    if (*address == Ipv4::ownAddress(*address, *mask))
        return QStringLiteral("%1 is the address of the subnet itself.").arg(wanted.ipAddress);
    if (*address == Ipv4::broadcastAddress(*address, *mask))
        return QStringLiteral("%1 is the address of all devices of the subnet.")
            .arg(wanted.ipAddress);
    if (isNoGateway(wanted.defaultGateway))
        return QString();
    const std::optional<quint32> gateway = Ipv4::address(wanted.defaultGateway);
    if (!gateway)
        return QStringLiteral("\"%1\" is not an address of four numbers from 0 to 255.")
            .arg(wanted.defaultGateway);
    if (!Ipv4::isSameSubnet(*address, *gateway, *mask))
        return QStringLiteral("The gateway %1 is not in the subnet of the camera.")
            .arg(wanted.defaultGateway);
    return QString();
}

QString CameraNetwork::refusal(const QString &serialNumber, const NetworkSetting &wanted) const
{
    const QString reason = formRefusal(wanted);
    if (!reason.isEmpty() || !isTaken(Ipv4::normalized(wanted.ipAddress), serialNumber))
        return reason;
    return QStringLiteral("The address %1 is used by another device.").arg(wanted.ipAddress);
}

void CameraNetwork::setPlugged(const QString &serialNumber, bool plugged)
{
    change(serialNumber, [plugged](NetworkDevice &device) { device.isPlugged = plugged; });
}

void CameraNetwork::setHeldElsewhere(const QString &serialNumber, bool held)
{
    change(serialNumber, [held](NetworkDevice &device) { device.isHeldElsewhere = held; });
}

void CameraNetwork::setSetting(const QString &serialNumber, const NetworkSetting &setting)
{
    change(serialNumber,
           [&setting](NetworkDevice &device) { device.setting = normalized(setting); });
}

void CameraNetwork::setHeads(const QString &serialNumber, int heads)
{
    change(serialNumber, [heads](NetworkDevice &device) { device.heads = heads; });
}

void CameraNetwork::change(const QString &serialNumber,
                           const std::function<void(NetworkDevice &)> &body)
{
    const auto found = m_places.constFind(serialNumber);
    if (found == m_places.constEnd())
        return;
    NetworkDevice &device = m_devices[*found];
    QSet<QString> addresses = {device.setting.ipAddress};
    body(device);
    addresses.insert(device.setting.ipAddress);
    tell(addresses);
}

void CameraNetwork::tell(const QSet<QString> &addresses) const
{
    if (m_listener)
        m_listener(addresses);
}

bool CameraNetwork::isTaken(const QString &address, const QString &exceptSerialNumber) const
{
    return std::any_of(m_adapters.begin(), m_adapters.end(),
                       [&](const NetworkAdapter &adapter) { return adapter.address == address; }) ||
           std::any_of(m_devices.begin(), m_devices.end(), [&](const NetworkDevice &device) {
               return device.isPlugged && device.setting.ipAddress == address &&
                      device.serialNumber != exceptSerialNumber;
           });
}

// One that is administered locally, as it is of no maker. Those that were made count on.
QString CameraNetwork::newHardwareAddress() const
{
    QString address;
    int number = m_devices.size();
    do {
        ++number;
        address = QStringLiteral("02:00:00");
        for (int shift : {16, 8, 0})
            address += QStringLiteral(":%1").arg(number >> shift & 255, 2, 16, QLatin1Char('0'));
        address = address.toUpper();
    } while (m_hardwareAddresses.contains(address));
    return address;
}
