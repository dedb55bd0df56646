#pragma once

#include "standin/documents/StandInCamera.h"
#include "standin/network/CameraNetwork.h"

#include <QHash>
#include <QList>
#include <QStringList>

#include <functional>

class DocumentList;
class StandInEvents;

/// How the list of documents follows the network.
///
/// A device is its serial number: its heads are the cameras of the list that bear it, one row each,
/// and never stand there twice. They find their device again after a loss or under another address.
/// A camera that was added with an address that no device answers at waits, without a serial
/// number, until one does. GUI thread.
class DeviceConnections
{
public:
    using Add = std::function<StandInCamera *(const StandInCamera::Description &)>;

    /// The arguments outlive it. `add` puts a camera into the list.
    DeviceConnections(CameraNetwork &network, DocumentList &documents, StandInEvents &events,
                      const Add &add);

    DeviceConnections(const DeviceConnections &) = delete;
    DeviceConnections &operator=(const DeviceConnections &) = delete;

    /// A camera of the list is a device of the network from here on; dummies are none.
    void adopt(const StandInCamera &camera);

    /// Connects the devices at these addresses. Those that cannot be connected are left, and named
    /// with their reasons by one DOC_Exception at the end.
    void connect(const QStringList &addresses);

    /// Lists the camera at an address under this name, connected as soon as that is possible. One
    /// that is listed already is connected and keeps its name.
    void add(const QString &name, const QString &address);

    /// Gives a device, found by its hardware address, another setting. Throws a DOC_Exception with
    /// the reason, and changes nothing, when the adapter is none of the network's, no device bears
    /// the hardware address, or it may not have the setting.
    void setSetting(const QString &adapter, const NetworkSetting &setting,
                    const QString &hardwareAddress);

    /// Gives a camera of the list another setting for an Ethernet type, by the same rules; a dummy
    /// takes any. It counts for all heads of the device.
    void setSetting(StandInCamera &camera, int etherType, const NetworkSetting &setting);

    /// Has a camera use the setting of this Ethernet type, where it has one.
    void setEtherType(StandInCamera &camera, int etherType);

    /// Cameras of the list that are heads of this device.
    QList<StandInCamera *> heads(const QString &serialNumber) const;

    bool isConnected(const QString &serialNumber) const;

    /// What stands in the way of connecting a device, in words; empty when nothing does.
    static QString reason(CameraNetwork::Obstacle obstacle);

private:
    void follow(const QSet<QString> &addresses);
    bool followDevice(const NetworkDevice &device);
    void connectDevice(const NetworkDevice &device);
    void takeDevice(StandInCamera &camera, const NetworkDevice &device);
    StandInCamera *waiting(const QString &address) const;
    void closeWaiting(const QString &address);
    bool markWaiting(const QString &address);

    CameraNetwork &m_network;
    DocumentList &m_documents;
    StandInEvents &m_events;
    Add m_add;
    QHash<DOCKEY, QString> m_waiting; ///< the addresses that cameras wait for
    bool m_isBusy = false;            ///< it changes the network itself, and follows on its own
};
