#include "contract/DOC_Interface.h"
#include "contract/HostServices.h"
#include "foundation/Utilities.h"

#include <QCollator>
#include <QSet>

#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

namespace {

enum SortMode { NameUp = 1, NameDown = 2, OldestFirst = 3, NewestFirst = 4, HostOrder = 5 };

/// What a document is compared by, read from the host once. An absent value compares equal to all.
template <typename Value> struct SortEntry
{
    DOCKEY key;
    std::optional<Value> value;
};

/// A name as the collator compares it. The collator puts an empty text before all others, its sort
/// key does not.
struct NameKey
{
    bool isEmpty;
    QCollatorSortKey sortKey;
};

DOC_Interface *documentToCompare(HostServices *host, DOCKEY key)
{
    DOC_Interface *doc = host->deviceByKey(key, true);
    if (doc && doc->isGroup()) {
        const QList<DOC_Interface *> members = doc->groupMembers();
        if (!members.isEmpty())
            return members.first();
    }
    return doc;
}

template <typename Value, typename Read, typename Less>
QList<DOCKEY> sorted(HostServices *host, const QList<DOCKEY> &keys, bool descending, Read read,
                     Less less)
{
    std::vector<SortEntry<Value>> entries;
    entries.reserve(size_t(keys.size()));
    for (DOCKEY key : keys) {
        DOC_Interface *doc = documentToCompare(host, key);
        entries.push_back({key, doc ? read(doc) : std::nullopt});
    }
    std::vector<const SortEntry<Value> *> order;
    order.reserve(entries.size());
    for (const SortEntry<Value> &entry : entries)
        order.push_back(&entry);

    // A comparison that is false against every absent value is no strict order. The merge sort
    // keeps within its range all the same, and its result is the one that is wanted.
    const auto before = [&](const SortEntry<Value> *a, const SortEntry<Value> *b) {
        if (!a->value || !b->value)
            return false;
        return descending ? less(*b->value, *a->value) : less(*a->value, *b->value);
    };
    std::stable_sort(order.begin(), order.end(), before);

    QList<DOCKEY> result;
    result.reserve(keys.size());
    for (const SortEntry<Value> *entry : order)
        result.append(entry->key);
    return result;
}

QList<DOCKEY> sortByName(HostServices *host, const QList<DOCKEY> &keys, bool descending)
{
    QCollator collator;
    collator.setNumericMode(true);

    // In the C locale the collator compares UTF-16 and its sort keys UTF-8, which differ.
    if (collator.locale().language() == QLocale::C) {
        return sorted<QString>(
            host, keys, descending,
            [](DOC_Interface *doc) { return std::optional<QString>(doc->documentName()); },
            [&](const QString &a, const QString &b) { return collator.compare(a, b) < 0; });
    }
    return sorted<NameKey>(
        host, keys, descending,
        [&](DOC_Interface *doc) -> std::optional<NameKey> {
            const QString name = doc->documentName();
            return NameKey{name.isEmpty(), collator.sortKey(name)};
        },
        [](const NameKey &a, const NameKey &b) {
            return a.isEmpty != b.isEmpty ? a.isEmpty : a.sortKey < b.sortKey;
        });
}

QList<DOCKEY> sortByTime(HostServices *host, const QList<DOCKEY> &keys, bool descending)
{
    return sorted<QDateTime>(
        host, keys, descending,
        [](DOC_Interface *doc) -> std::optional<QDateTime> {
            const QString date = doc->recordDate();
            const QString time = doc->recordTime();
            if (date.isEmpty() || time.isEmpty())
                return std::nullopt;
            return UTL::parseDateTime(date, time);
        },
        std::less<QDateTime>());
}

QList<DOCKEY> hostOrder(HostServices *host, const QList<DOCKEY> &keys)
{
    const QSet<DOCKEY> wanted(keys.cbegin(), keys.cend());
    QSet<DOCKEY> taken;
    QList<DOCKEY> result;
    const auto take = [&](DOCKEY key) {
        if (!taken.contains(key)) {
            taken.insert(key);
            result.append(key);
        }
    };
    const QList<DOCKEY> order = host->documentKeys(true, false);
    for (DOCKEY key : order) {
        if (wanted.contains(key) && host->deviceByKey(key, true))
            take(key);
    }
    for (DOCKEY key : keys)
        take(key);
    return result;
}

}

QList<DOCKEY> UTL::sortDocuments(HostServices *host, int mode, const QList<DOCKEY> &keys,
                                 bool keepOrder)
{
    switch (mode) {
    case NameUp:
    case NameDown:
        return sortByName(host, keys, mode == NameDown);
    case OldestFirst:
    case NewestFirst:
        return sortByTime(host, keys, mode == NewestFirst);
    case HostOrder:
        return keepOrder ? keys : hostOrder(host, keys);
    default:
        return keys;
    }
}
