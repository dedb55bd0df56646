#include "save/path/MultiPath.h"

namespace MultiPath {

namespace {

// The second field of the last entry with this first one.
std::optional<QString> valueOf(const QString &key, const QString &list)
{
    const QVector<Entry> all = entries(list);
    for (auto entry = all.crbegin(); entry != all.crend(); ++entry) {
        if (entry->first == key)
            return entry->second;
    }
    return std::nullopt;
}

}

QVector<Entry> entries(const QString &list)
{
    QVector<Entry> found;
    for (const QStringRef &entry : list.splitRef(QLatin1Char('?'))) {
        const int bar = entry.indexOf(QLatin1Char('|'));
        if (bar < 0 || entry.indexOf(QLatin1Char('|'), bar + 1) >= 0)
            continue;
        found.append({entry.left(bar).toString(), entry.mid(bar + 1).toString()});
    }
    return found;
}

std::optional<QString> directoryOf(const QString &device, const QString &destinations,
                                   const QString &devices)
{
    const std::optional<QString> destination = valueOf(device, devices);
    return destination ? valueOf(*destination, destinations) : std::nullopt;
}

}
