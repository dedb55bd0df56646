#pragma once

#include <QString>

#include <bitset>

/// Addresses of dummy cameras, which exist in the application alone: "999.999.999.1" to
/// "999.999.999.255". None can be a real address, and pages tell dummies by them. Any thread.
namespace DummyAddress {

constexpr int Count = 255;

/// The address with a number from 1 to Count.
QString numbered(int number);

/// Which of the addresses are in use. One thread at a time.
class Taken
{
public:
    /// Takes exactly what numbered() gives; another text takes none.
    void add(const QString &address);

    /// The free one with the lowest number; the first when all are in use.
    QString firstFree() const;

private:
    std::bitset<Count + 1> m_numbers;
};

}
