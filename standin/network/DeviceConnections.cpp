#include "standin/network/DeviceConnections.h"

#include "foundation/exceptions/DOC_Exception.h"
#include "standin/journal/StandInEvents.h"
#include "standin/network/Ipv4.h"
#include "standin/session/DocumentList.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace {

constexpr uint NoCode = 0; // of these failures

void place(DocumentState &state, const NetworkSetting &setting)
{
    state.networkSettings.insert(state.editData.etherType, setting);
    state.editData.network = setting;
    state.ipAddress = setting.ipAddress;
}

void refuse(const QString &reason)
{
    if (!reason.isEmpty())
        throw DOC_Exception(reason, NoCode);
}

QString headSerialNumber(const NetworkDevice &device, int headNumber)
{
    return device.serialNumber + QLatin1Char('-') + QString::number(headNumber);
}

}

DeviceConnections::DeviceConnections(CameraNetwork &network, DocumentList &documents,
                                     StandInEvents &events, const Add &add)
    : m_network(network), m_documents(documents), m_events(events), m_add(add)
{
    m_network.setListener([this](const QSet<QString> &addresses) { follow(addresses); });
}

void DeviceConnections::adopt(const StandInCamera &camera)
{
    const DocumentState &state = camera.state();
    if (state.isDummy || m_isBusy)
        return;
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    const QString serialNumber = camera.serialNumber();
    if (const NetworkDevice *known = m_network.device(serialNumber)) {
        m_network.setHeads(serialNumber, std::max(known->heads, state.headCount));
        return;
    }
    NetworkDevice device;
    device.serialNumber = serialNumber;
    device.model = camera.model();
    device.heads = std::max(1, state.headCount);
    device.setting = state.editData.network;
    device.isPlugged = state.isFound;
    m_network.addDevice(device);
}

void DeviceConnections::connect(const QStringList &addresses)
{
    QStringList refused;
    for (const QString &address : addresses) {
        const QList<const NetworkDevice *> devices = m_network.devicesAt(Ipv4::normalized(address));
        QString why;
        if (devices.isEmpty())
            why = QStringLiteral("no camera answers there");
        else if (devices.size() > 1)
            why = reason(CameraNetwork::Obstacle::AddressUsedTwice);
        else if (!isConnected(devices.first()->serialNumber))
            why = reason(m_network.obstacle(*devices.first()));
        if (!why.isEmpty())
            refused.append(address + QStringLiteral(": ") + why);
        else if (!isConnected(devices.first()->serialNumber))
            connectDevice(*devices.first());
    }
    if (!refused.isEmpty())
        throw DOC_Exception(QStringLiteral("These cameras could not be connected:\n") +
                                refused.join(QLatin1Char('\n')),
                            NoCode);
}

void DeviceConnections::add(const QString &name, const QString &address)
{
    const QString where = Ipv4::normalized(address);
    const QList<const NetworkDevice *> devices = m_network.devicesAt(where);
    const NetworkDevice *device = devices.size() == 1 ? devices.first() : nullptr;
    const bool isFree = device && m_network.obstacle(*device) == CameraNetwork::Obstacle::None;
    const bool isListed = device && !heads(device->serialNumber).isEmpty();
    if (!isListed && !waiting(where)) {
        const QScopedValueRollback<bool> busy(m_isBusy, true); // it is no device yet
        StandInCamera::Description description;
        description.name = name;
        description.model.clear();
        description.address = address;
        description.isConnected = false;
        description.isFound = !devices.isEmpty();
        StandInCamera *camera = m_add(description);
        EditDeviceData &data = camera->state().editData;
        data.deviceSerialNumber.clear();
        data.headSerialNumber.clear();
        emit m_events.cameraSettingsChanged(camera->key());
        m_waiting.insert(camera->key(), where);
    }
    if (isFree && !isConnected(device->serialNumber))
        connectDevice(*device);
}

void DeviceConnections::setSetting(const QString &adapter, const NetworkSetting &setting,
                                   const QString &hardwareAddress)
{
    const QList<NetworkAdapter> &adapters = m_network.adapters();
    if (std::none_of(adapters.begin(), adapters.end(), [&](const NetworkAdapter &own) {
            return own.address == Ipv4::normalized(adapter);
        }))
        refuse(QStringLiteral("No network adapter has the address \"%1\".").arg(adapter));
    const NetworkDevice *device = m_network.deviceByHardwareAddress(hardwareAddress);
    if (!device)
        throw DOC_Exception(QStringLiteral("No camera in the network has the hardware address "
                                           "\"%1\".")
                                .arg(hardwareAddress),
                            NoCode);
    const QString serialNumber = device->serialNumber;
    refuse(m_network.refusal(serialNumber, setting));
    m_network.setSetting(serialNumber, setting);
}

void DeviceConnections::setSetting(StandInCamera &camera, int etherType,
                                   const NetworkSetting &setting)
{
    const QString serialNumber = camera.serialNumber();
    const bool isDevice = !camera.state().isDummy && !m_waiting.contains(camera.key());
    if (isDevice)
        refuse(m_network.refusal(serialNumber, setting));
    else if (!camera.state().isDummy)
        refuse(CameraNetwork::formRefusal(setting));
    const NetworkSetting wanted = CameraNetwork::normalized(setting);
    for (StandInCamera *head : isDevice ? heads(serialNumber) : QList<StandInCamera *>{&camera})
        head->state().networkSettings.insert(etherType, wanted);
    if (etherType == camera.state().editData.etherType)
        setEtherType(camera, etherType); // anew
}

void DeviceConnections::setEtherType(StandInCamera &camera, int etherType)
{
    const bool isWaiting = m_waiting.contains(camera.key());
    const bool isDevice = !camera.state().isDummy && !isWaiting;
    const QString serialNumber = camera.serialNumber();
    for (StandInCamera *head : isDevice ? heads(serialNumber) : QList<StandInCamera *>{&camera}) {
        DocumentState &state = head->state();
        state.editData.etherType = etherType;
        if (state.networkSettings.contains(etherType))
            place(state, NetworkSetting(state.networkSettings.value(etherType)));
    }
    const QString address = camera.state().ipAddress;
    if (isDevice) {
        m_network.setSetting(serialNumber, camera.state().editData.network);
    } else if (isWaiting) {
        m_waiting.insert(camera.key(), Ipv4::normalized(address));
        follow({Ipv4::normalized(address)});
    }
}

QList<StandInCamera *> DeviceConnections::heads(const QString &serialNumber) const
{
    QList<StandInCamera *> found;
    for (StandInCamera *camera : m_documents.cameras()) {
        if (!camera->state().isDummy && !serialNumber.isEmpty() &&
            camera->serialNumber() == serialNumber)
            found.append(camera);
    }
    return found;
}

bool DeviceConnections::isConnected(const QString &serialNumber) const
{
    const QList<StandInCamera *> cameras = heads(serialNumber);
    return std::any_of(cameras.begin(), cameras.end(),
                       [](const StandInCamera *camera) { return camera->state().isConnected; });
}

QString DeviceConnections::reason(CameraNetwork::Obstacle obstacle)
{
    switch (obstacle) {
    case CameraNetwork::Obstacle::HeldElsewhere:
        return QStringLiteral("another application is connected to it");
    case CameraNetwork::Obstacle::Unreachable:
        return QStringLiteral("it is in the subnet of no network adapter");
    case CameraNetwork::Obstacle::AddressUsedTwice:
        return QStringLiteral("several devices have this address");
    case CameraNetwork::Obstacle::None:
        break;
    }
    return QString();
}

void DeviceConnections::follow(const QSet<QString> &addresses)
{
    if (m_isBusy)
        return;
    bool hasChanged = false;
    const QList<NetworkDevice> devices = m_network.devices(); // which connecting may change
    for (const NetworkDevice &device : devices) {
        if (addresses.contains(device.setting.ipAddress))
            hasChanged |= followDevice(device);
    }
    for (const QString &address : addresses)
        hasChanged |= markWaiting(address);
    if (hasChanged)
        emit m_events.documentsChanged();
}

bool DeviceConnections::followDevice(const NetworkDevice &device)
{
    const CameraNetwork::Obstacle obstacle = m_network.obstacle(device);
    const bool isFree = device.isPlugged && obstacle == CameraNetwork::Obstacle::None;
    const QList<StandInCamera *> cameras = heads(device.serialNumber);
    if (cameras.isEmpty()) {
        if (isFree && waiting(device.setting.ipAddress))
            connectDevice(device);
        return false; // which has told by itself
    }
    // What is connected stays so when another device comes with its address.
    const bool stays = device.isPlugged && isConnected(device.serialNumber) &&
                       obstacle == CameraNetwork::Obstacle::AddressUsedTwice;
    for (StandInCamera *camera : cameras) {
        DocumentState &state = camera->state();
        place(state, device.setting);
        state.isFound = device.isPlugged;
        state.isConnected = isFree || stays;
    }
    if (isFree)
        closeWaiting(device.setting.ipAddress);
    return true;
}

void DeviceConnections::connectDevice(const NetworkDevice &wanted)
{
    const NetworkDevice device = wanted; // the network's own may move
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    QList<StandInCamera *> cameras = heads(device.serialNumber);
    StandInCamera *const first = cameras.isEmpty() ? waiting(device.setting.ipAddress) : nullptr;
    if (first) {
        m_waiting.remove(first->key());
        cameras.append(first);
    }
    closeWaiting(device.setting.ipAddress);
    QList<int> present;
    for (StandInCamera *camera : cameras) {
        takeDevice(*camera, device);
        present.append(camera->state().headNumber);
    }
    for (int head = 1; head <= device.heads; ++head) {
        if (present.contains(head))
            continue;
        StandInCamera::Description description;
        description.model = device.model;
        description.serialNumber = device.serialNumber;
        description.cameraNumber = cameras.isEmpty() ? -1 : cameras.first()->state().cameraNumber;
        description.headNumber = head;
        description.headCount = device.heads;
        description.headSerialNumber = headSerialNumber(device, head);
        cameras.append(m_add(description));
        takeDevice(*cameras.last(), device);
    }
    emit m_events.documentsChanged();
}

void DeviceConnections::takeDevice(StandInCamera &camera, const NetworkDevice &device)
{
    DocumentState &state = camera.state();
    EditDeviceData &data = state.editData;
    data.deviceSerialNumber = device.serialNumber;
    if (data.headSerialNumber.isEmpty())
        data.headSerialNumber = headSerialNumber(device, state.headNumber);
    data.modelName = device.model;
    state.deviceName = device.model;
    state.headCount = device.heads;
    state.isConnected = true;
    state.isFound = true;
    place(state, device.setting);
    emit m_events.cameraSettingsChanged(camera.key()); // it may have another serial number
}

// A camera of the list that waits for this address; null without.
StandInCamera *DeviceConnections::waiting(const QString &address) const
{
    for (StandInCamera *camera : m_documents.cameras()) {
        const auto found = m_waiting.constFind(camera->key());
        if (found != m_waiting.constEnd() && *found == address)
            return camera;
    }
    return nullptr;
}

// What waits for a device that has a row of its own would show it twice.
void DeviceConnections::closeWaiting(const QString &address)
{
    while (StandInCamera *camera = waiting(address)) {
        m_waiting.remove(camera->key());
        m_documents.close(camera->key());
    }
}

bool DeviceConnections::markWaiting(const QString &address)
{
    const bool isFound = !m_network.devicesAt(address).isEmpty();
    bool hasChanged = false;
    for (StandInCamera *camera : m_documents.cameras()) {
        const auto found = m_waiting.constFind(camera->key());
        if (found == m_waiting.constEnd() || *found != address)
            continue;
        hasChanged |= camera->state().isFound != isFound;
        camera->state().isFound = isFound;
    }
    return hasChanged;
}
