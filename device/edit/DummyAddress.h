#pragma once

#include <QSet>
#include <QString>

/// Addresses of dummy cameras, which exist in the application alone: "999.999.999.1" to
/// "999.999.999.255". None can be a real address, and pages tell dummies by them. Any thread.
namespace DummyAddress {

constexpr int Count = 255;

/// The address with a number from 1 to Count.
QString numbered(int number);

/// The one with the lowest number that `taken` does not hold; the first when it holds them all.
QString firstFree(const QSet<QString> &taken);

}
