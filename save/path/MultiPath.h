#pragma once

#include <QString>
#include <QVector>

#include <optional>

/// The two settings that give each device its own destination. Both are lists of entries joined by
/// "?"; an entry is two fields joined by "|", and any other is none. Fields may be empty. Any
/// thread.
namespace MultiPath {

/// A destination's key and its directory, or a device's name and the key of its destination.
struct Entry
{
    QString first;
    QString second;
};

/// The entries of a list, in order, with those that repeat.
QVector<Entry> entries(const QString &list);

/// The directory that the device is given, nothing when it has no destination or one that is not
/// there. Of several entries with one key the last holds.
std::optional<QString> directoryOf(const QString &device, const QString &destinations,
                                   const QString &devices);

}
