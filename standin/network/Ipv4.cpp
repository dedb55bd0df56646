#include "standin/network/Ipv4.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr quint32 SmallestSubnet = 0xfffffffc; // two devices, beside its own and broadcast address

bool isDigit(QChar letter)
{
    return letter >= QLatin1Char('0') && letter <= QLatin1Char('9');
}

}

std::optional<quint32> Ipv4::address(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() != 4)
        return std::nullopt;
    quint32 number = 0;
    for (const QString &part : parts) {
        const bool isNumber =
            !part.isEmpty() && part.size() <= 3 && std::all_of(part.begin(), part.end(), isDigit);
        if (!isNumber || part.toUInt() > 255)
            return std::nullopt;
        number = number << 8 | part.toUInt();
    }
    return number;
}

std::optional<quint32> Ipv4::mask(const QString &text)
{
    const std::optional<quint32> number = address(text);
    if (!number || *number == 0 || *number > SmallestSubnet)
        return std::nullopt;
    const quint32 zeros = ~*number;
    return (zeros & (zeros + 1)) == 0 ? number : std::nullopt;
}

QString Ipv4::text(quint32 address)
{
    return QStringLiteral("%1.%2.%3.%4")
        .arg(address >> 24)
        .arg(address >> 16 & 255)
        .arg(address >> 8 & 255)
        .arg(address & 255);
}

QString Ipv4::normalized(const QString &text)
{
    const std::optional<quint32> number = address(text);
    return number ? Ipv4::text(*number) : text;
}
