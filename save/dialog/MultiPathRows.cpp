#include "save/dialog/MultiPathRows.h"

#include "foundation/Json.h"
#include "foundation/exceptions/UTL_Exception.h"
#include "save/path/MultiPath.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QSet>
#include <QVector>

namespace MultiPathRows {

namespace {

const QString Device = QLatin1String("device");
const QString Key = QLatin1String("key");
const QString Name = QLatin1String("name");
const QString Path = QLatin1String("path");
const QString PathSelector = QLatin1String("pathselector");
const QString RecId = QLatin1String("recid");
const QString Value = QLatin1String("val");

// The destination that devices have, and the directory of each.
struct Destinations
{
    explicit Destinations(const QVector<MultiPath::Entry> &entries)
    {
        for (const MultiPath::Entry &entry : entries) {
            all.append(QJsonObject{{Key, entry.first}, {Value, entry.second}});
            if (!directories.contains(entry.first))
                directories.insert(entry.first, entry.second);
        }
        if (!entries.isEmpty())
            first = entries.first().first;
    }

    QJsonArray all;
    QString first;
    QHash<QString, QString> directories; ///< of several with one key the first
};

QHash<QString, QString> assigned(const QString &assignments)
{
    QHash<QString, QString> keys;
    for (const MultiPath::Entry &entry : MultiPath::entries(assignments))
        keys.insert(entry.first, entry.second);
    return keys;
}

}

QString destinations(const QString &destinations)
{
    QJsonArray rows;
    for (const MultiPath::Entry &entry : MultiPath::entries(destinations)) {
        rows.append(
            QJsonObject{{RecId, rows.size() + 1}, {Name, entry.first}, {Path, entry.second}});
    }
    return Json::compactText(rows);
}

QString devices(const QStringList &names, const QString &destinations, const QString &assignments)
{
    const Destinations known(MultiPath::entries(destinations));
    const QHash<QString, QString> keys = assigned(assignments);
    // Every row holds all destinations, so they are written once.
    const QString paths = QLatin1String(",\"paths\":") + Json::compactText(known.all);
    QStringList rows;
    QSet<QString> seen;
    qint64 length = 2;
    for (const QString &name : names) {
        if (seen.contains(name))
            continue;
        seen.insert(name);
        const QString key = known.all.isEmpty() ? QString() : keys.value(name, known.first);
        QString row = Json::compactText(QJsonObject{{RecId, rows.size() + 1},
                                                    {Device, name},
                                                    {PathSelector, key},
                                                    {Path, known.directories.value(key)}});
        row.chop(1);
        length += row.size() + paths.size() + 2; // with brace and comma
        rows.append(row);
    }
    if (length > LongestText)
        throw UTL_Exception(QLatin1String("Too many destinations."), 0);
    QString text;
    text.reserve(int(length));
    text += QLatin1Char('[');
    for (const QString &row : qAsConst(rows)) {
        if (text.size() > 1)
            text += QLatin1Char(',');
        text += row;
        text += paths;
        text += QLatin1Char('}');
    }
    text += QLatin1Char(']');
    return text;
}

}
