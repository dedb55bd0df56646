#pragma once

#include "contract/HostTypes.h"

#include <QList>
#include <QString>

/// A network adapter of the computer that the host runs on.
struct NetworkAdapter
{
    QString name;
    QString address;
    QString mask;
};

/// A camera in the network. Its serial number is what it is known by; its hardware address finds it
/// where its address does not.
struct NetworkDevice
{
    QString hardwareAddress;
    QString serialNumber;
    QString model = QStringLiteral("S-1024");
    int heads = 1;
    NetworkSetting setting;       ///< of the Ethernet type in use
    QString adapter;              ///< address of the adapter that hears it; empty: by the subnet
    int delay = 0;                ///< milliseconds until it answers a search; below 0: never
    bool isHeldElsewhere = false; ///< another application is connected to it
    bool isPlugged = true;        ///< in the network at all
};

/// What a network is made of.
struct NetworkPlan
{
    QList<NetworkAdapter> adapters;
    QList<NetworkDevice> devices;
    int searchTime = 3000; ///< milliseconds, after which a search takes what has answered
};
