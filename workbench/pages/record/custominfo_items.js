'use strict';

// What several documents have in common: their records, taken together by name, and what has to be
// told to the application for a change of one of them. Nothing here knows the page or the bridge.
//
// A document is { key, records }, a record { name, value, unit, selected } as the application gives
// it. Of records of one name in a document the first counts, as it does for the application.
var CustomItems = (function () {
    // One text of all, or null where they differ.
    function common(texts) {
        return texts.length > 0 && texts.every(function (text) { return text === texts[0]; }) ?
            texts[0] : null;
    }

    function texts(item, field) {
        return item.holders.map(function (holder) { return holder.record[field]; });
    }

    // What is left where nobody wrote: the common text, or none.
    function left(item, field) {
        return common(texts(item, field)) || '';
    }

    function described(item) {
        var isEverywhere = item.missing.length === 0;
        item.value = isEverywhere ? common(texts(item, 'value')) : null;
        item.unit = isEverywhere ? common(texts(item, 'unit')) : null;
        item.selected = common(texts(item, 'selected'));
        return item;
    }

    // Groups of documents that are told the same, in their order.
    function grouped(pairs) {
        var groups = [];
        var byText = new Map();
        pairs.forEach(function (pair) {
            var text = JSON.stringify(pair.told);
            if (!byText.has(text)) {
                byText.set(text, { targets: [], told: pair.told });
                groups.push(byText.get(text));
            }
            byText.get(text).targets.push(pair.key);
        });
        return groups;
    }

    return {
        // The items of the documents, in the order of `names`, a list of names that may be there,
        // then in that of `first`, one of the documents, and then as they come:
        // { name, value, unit, selected, holders: [{ key, record }], missing: [key] }. What differs,
        // or is missing somewhere, is null; a tick counts where the item is.
        merge: function (documents, first, names) {
            var byName = new Map();
            function comeUp(name) {
                if (!byName.has(name))
                    byName.set(name, { name: name, holders: [], missing: [] });
            }
            function allComeUp(document) {
                document.records.forEach(function (record) { comeUp(record.name); });
            }
            names.forEach(comeUp);
            if (first)
                allComeUp(first);
            documents.forEach(allComeUp);
            documents.forEach(function (document) {
                var own = new Map();
                document.records.forEach(function (record) {
                    if (!own.has(record.name))
                        own.set(record.name, record);
                });
                byName.forEach(function (item) {
                    if (own.has(item.name))
                        item.holders.push({ key: document.key, record: own.get(item.name) });
                    else
                        item.missing.push(document.key);
                });
            });
            return Array.from(byName.values()).filter(function (item) {
                return item.holders.length > 0;
            }).map(described);
        },

        // A new text for one field: { edits, additions }, each a list of { targets, told }. A name
        // goes to the documents that have the item, a value or unit to all of them.
        write: function (item, field, text) {
            var edits = item.holders.map(function (holder) {
                var told = { oldname: item.name, name: item.name, value: holder.record.value,
                    unit: holder.record.unit };
                told[field] = text;
                return { key: holder.key, told: told };
            });
            var additions = field === 'name' ? [] : item.missing.map(function (key) {
                var told = { name: item.name, value: left(item, 'value'), unit: left(item, 'unit') };
                told[field] = text;
                return { key: key, told: told };
            });
            return { edits: grouped(edits), additions: grouped(additions) };
        },

        // The ticks of these items: a list of { targets, told } with a list of ticks each.
        tick: function (items, isSelected) {
            var byKey = new Map();
            items.forEach(function (item) {
                item.holders.forEach(function (holder) {
                    if (!byKey.has(holder.key))
                        byKey.set(holder.key, []);
                    byKey.get(holder.key).push({ name: item.name, selected: isSelected });
                });
            });
            return grouped(Array.from(byKey.keys()).map(function (key) {
                return { key: key, told: byKey.get(key) };
            }));
        },

        // Why an item cannot have this name, an English source text; empty when it can.
        reasonAgainst: function (name, items, own) {
            if (name.trim() === '')
                return 'An item needs a name.';
            var isTaken = items.some(function (item) { return item !== own && item.name === name; });
            return isTaken ? 'There is an item of this name already.' : '';
        },

        matches: function (item, text) {
            return [item.name, item.value, item.unit].some(function (field) {
                return field !== null && field.toLowerCase().indexOf(text) >= 0;
            });
        }
    };
})();
