#pragma once

#include <QString>

#include <optional>

/// Addresses of version 4 of the internet protocol, as numbers of 32 bits. Free of state, any
/// thread.
namespace Ipv4 {

/// None for a text that is not four numbers from 0 to 255 of one to three digits, parted by dots.
std::optional<quint32> address(const QString &text);

/// As address(), and none when its ones do not stand in front of its zeros, or when it leaves room
/// for less than two devices.
std::optional<quint32> mask(const QString &text);

QString text(quint32 address);

/// The address without leading zeros; a text that is none as it is.
QString normalized(const QString &text);

/// Whether both lie in one subnet of this mask.
constexpr bool isSameSubnet(quint32 first, quint32 second, quint32 mask)
{
    return (first & mask) == (second & mask);
}

/// The address of a subnet itself, and the one that means all its devices.
constexpr quint32 ownAddress(quint32 address, quint32 mask)
{
    return address & mask;
}
constexpr quint32 broadcastAddress(quint32 address, quint32 mask)
{
    return address | ~mask;
}

}
