#pragma once

#include "standin/network/CameraNetwork.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>

/// One search for devices in the network: it waits for their answers until all have come, its time
/// is over, or somebody cancels it. GUI thread.
class NetworkSearch : public QObject
{
    Q_OBJECT

public:
    /// Values of the setting that tells how the application searches.
    enum Way {
        Broadcast, ///< finds devices of foreign subnets too
        Subnet     ///< asks the addresses of one subnet
    };

    struct Result
    {
        QStringList serialNumbers; ///< in the order of the network
        bool isComplete = true;    ///< false: there are devices that had not answered
    };

    /// The network outlives it. `address` tells the subnet of that way: with the mask of the
    /// adapter whose subnet it is, else with 255.255.255.0; no device for a text that is no
    /// address.
    NetworkSearch(const CameraNetwork &network, Way way, const QString &address);

    /// How long it takes at most, in milliseconds.
    int duration() const { return m_duration; }

    /// Runs an event loop while it waits. A device that goes meanwhile is left out.
    Result run();

public slots:
    void cancel();

signals:
    void progressed(int msec); ///< since its beginning, from time to time

private:
    struct Answer
    {
        QString serialNumber;
        int delay; ///< below 0: never
    };

    QList<Answer> expected() const;

    const CameraNetwork &m_network;
    Way m_way;
    QString m_address;
    QList<Answer> m_answers;
    int m_duration = 0;
    QElapsedTimer m_clock;
    QEventLoop m_loop;
    bool m_isCancelled = false;
};
