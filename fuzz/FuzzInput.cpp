#include "FuzzInput.h"

#include <array>
#include <cstring>
#include <limits>

std::uint8_t FuzzInput::byte()
{
    return isAtEnd() ? 0 : m_data[m_position++];
}

template <class Value> Value FuzzInput::bits()
{
    std::array<std::uint8_t, sizeof(Value)> raw{};
    for (std::uint8_t &part : raw)
        part = byte();
    Value value;
    std::memcpy(&value, raw.data(), sizeof value);
    return value;
}

int FuzzInput::number()
{
    constexpr std::array<int, 8> turning{std::numeric_limits<int>::min(),
                                         std::numeric_limits<int>::min() + 1,
                                         std::numeric_limits<int>::max(),
                                         std::numeric_limits<int>::max() - 1,
                                         -1,
                                         0,
                                         1 << 16,
                                         1 << 30};
    switch (choice(8)) {
    case 0:
        return turning[byte() % turning.size()];
    case 1:
        return bits<std::int32_t>();
    case 2:
        return bits<std::int16_t>();
    case 3:
        return -int(byte());
    default:
        return byte();
    }
}

double FuzzInput::real()
{
    constexpr std::array<double, 8> turning{0.0,
                                            -1.0,
                                            1e-300,
                                            1e300,
                                            std::numeric_limits<double>::denorm_min(),
                                            std::numeric_limits<double>::infinity(),
                                            -std::numeric_limits<double>::infinity(),
                                            std::numeric_limits<double>::quiet_NaN()};
    switch (choice(4)) {
    case 0:
        return turning[byte() % turning.size()];
    case 1:
        return bits<double>();
    default:
        return byte() / 64.0;
    }
}

QPoint FuzzInput::point()
{
    const int x = number();
    return QPoint(x, number());
}

QSize FuzzInput::size()
{
    const int width = number();
    return QSize(width, number());
}

QRect FuzzInput::rect()
{
    const QPoint first = point();
    return QRect(first, point());
}
