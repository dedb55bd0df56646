#include "standin/network/NetworkSearch.h"

#include "standin/network/Ipv4.h"

#include <QTimer>

#include <algorithm>

namespace {

constexpr int Interval = 50; // milliseconds from one report to the next
constexpr quint32 UsualMask = 0xffffff00;

quint32 maskAround(const CameraNetwork &network, quint32 address)
{
    for (const NetworkAdapter &adapter : network.adapters()) {
        const std::optional<quint32> own = Ipv4::address(adapter.address);
        const std::optional<quint32> mask = Ipv4::mask(adapter.mask);
        if (own && mask && Ipv4::isSameSubnet(*own, address, *mask))
            return *mask;
    }
    return UsualMask;
}

}

NetworkSearch::NetworkSearch(const CameraNetwork &network, Way way, const QString &address)
    : m_network(network), m_way(way), m_address(address), m_answers(expected())
{
    for (const Answer &answer : qAsConst(m_answers)) {
        const int wait = answer.delay < 0 ? network.searchTime() : answer.delay;
        m_duration = std::max(m_duration, std::min(wait, network.searchTime()));
    }
}

QList<NetworkSearch::Answer> NetworkSearch::expected() const
{
    QList<Answer> answers;
    const std::optional<quint32> asked = Ipv4::address(m_address);
    const quint32 mask = asked ? maskAround(m_network, *asked) : UsualMask;
    for (const NetworkDevice &device : m_network.devices()) {
        const std::optional<quint32> address = Ipv4::address(device.setting.ipAddress);
        const bool isAsked =
            m_way == Broadcast || (asked && address && Ipv4::isSameSubnet(*asked, *address, mask));
        if (device.isPlugged && isAsked)
            answers.append({device.serialNumber, device.delay});
    }
    return answers;
}

NetworkSearch::Result NetworkSearch::run()
{
    m_clock.start();
    if (m_duration > 0 && !m_isCancelled) {
        QTimer reports;
        connect(&reports, &QTimer::timeout, this, [this] {
            emit progressed(std::min(int(m_clock.elapsed()), m_duration));
            if (m_clock.elapsed() >= m_duration)
                m_loop.quit();
        });
        reports.start(std::min(Interval, m_duration));
        m_loop.exec();
    }
    const qint64 waited = m_isCancelled ? m_clock.elapsed() : m_duration;
    Result result;
    for (const Answer &answer : qAsConst(m_answers)) {
        const NetworkDevice *device = m_network.device(answer.serialNumber);
        if (answer.delay < 0 || answer.delay > waited)
            result.isComplete = false;
        else if (device && device->isPlugged)
            result.serialNumbers.append(answer.serialNumber);
    }
    return result;
}

void NetworkSearch::cancel()
{
    m_isCancelled = true;
    m_loop.quit();
}
