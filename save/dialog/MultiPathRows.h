#pragma once

#include <QString>
#include <QStringList>

/// What a page shows of the destinations that devices can have, as JSON. The lists are those of
/// MultiPath. Any thread.
namespace MultiPathRows {

/// Longest text of devices(), in UTF-16 units.
constexpr int LongestText = 1 << 28;

/// The destinations, numbered from 1: [{"recid":1,"name":"","path":""}].
QString destinations(const QString &destinations);

/// The devices, numbered from 1 and each name once: its destination, "pathselector", with the
/// directory of that, "path", and all destinations, "paths": [{"key":"","val":""}]. A device
/// without a destination of its own has the first one; the directory of a destination that is not
/// there is empty. Throws UTL_Exception "Too many destinations." above LongestText.
QString devices(const QStringList &names, const QString &destinations, const QString &assignments);

}
