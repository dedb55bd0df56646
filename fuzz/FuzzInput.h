#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <cstddef>
#include <cstdint>

/// Draws values from the bytes of a fuzzer's input. Behind the last byte everything is 0.
class FuzzInput
{
public:
    FuzzInput(const std::uint8_t *data, std::size_t size) : m_data(data), m_size(size) {}

    bool isAtEnd() const { return m_position >= m_size; }

    std::uint8_t byte();
    bool flag() { return byte() & 1; }

    /// From 0 to `count` minus one; `count` above 0, at most 256.
    int choice(int count) { return byte() % count; }

    /// Mostly small, sometimes any 32 bits, sometimes one of the numbers at which sums overflow.
    int number();

    /// Mostly an ordinary factor, sometimes any 64 bits, tiny, huge, infinite or not a number.
    double real();

    QPoint point();
    QSize size();
    QRect rect(); ///< any corners, inverted and empty ones too

private:
    template <class Value> Value bits();

    const std::uint8_t *m_data;
    std::size_t m_size;
    std::size_t m_position = 0;
};
