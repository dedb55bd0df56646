'use strict';

Page.start('CustomInfoDialog', function () {
    var bridge = Page.bridge;
    var DisplayView = 17; // of the callback types, the one that shows the display's flag
    var documents = [];   // { id, key, name, records }
    var ids = new Map();  // by key: a row keeps its number while others come and go
    var selected = [];    // keys
    var anchor = '';      // key of the row from which Shift selects
    var items = [];
    var shown = [];       // of the items, those that match the search
    var held = new Set(); // names that were written since, and are shown where they do not match
    var order = [];       // names as they stood when one of them was written, which is kept
    var currentItem = null;
    var isListed = true;
    var isRead = true;    // and so are the items of those that are selected
    var isFirst = true;

    var list = Page.list(Page.get('documents'), pickDocument);
    var cells = CustomCells(Page.get('items'), {
        reasonAgainst: function (name, item) {
            return translated(CustomItems.reasonAgainst(name, items, item));
        },
        write: write,
        tick: function (item, isSelected) { tick([item], isSelected); },
        remove: remove,
        current: function (item) {
            currentItem = item;
            Page.get('delete').disabled = item === null;
        }
    });

    function translated(text) {
        return text === '' ? '' : Page.translate(text);
    }

    // What the application answers when it fails is empty.
    function parsed(text, otherwise) {
        return text === '' ? otherwise : JSON.parse(text);
    }

    function idOf(key) {
        if (!ids.has(key))
            ids.set(key, ids.size + 1);
        return ids.get(key);
    }

    function selectedDocuments() {
        return documents.filter(function (each) { return selected.indexOf(each.key) >= 0; });
    }

    // The one whose order the items have, and whose items are saved.
    function currentDocument() {
        var id = bridge.getCurrentDeviceRecord();
        return selectedDocuments().find(function (each) { return each.id === id; }) || null;
    }

    function readDocuments() {
        var info = parsed(bridge.getDeviceInfo(), null);
        documents = (info ? info.Records : []).map(function (row) {
            return { id: idOf(row.dockey), key: row.dockey, name: row.name, recid: row.recid,
                records: [] };
        });
        if (isFirst) {
            selected = documents.filter(function (each) {
                return each.recid === info.InitSelect;
            }).map(function (each) { return each.key; });
            anchor = selected[0] || '';
        }
        isListed = info !== null;
        isFirst = isFirst && !isListed;
        selected = selectedDocuments().map(function (each) { return each.key; });
    }

    function readItems() {
        bridge.setSelectedDeviceItems(selectedDocuments().map(function (each) { return each.id; }));
        var chosen = selectedDocuments();
        chosen.forEach(function (each) {
            each.records = parsed(bridge.getCustomInfo(each.key), null);
        });
        isRead = isListed && chosen.every(function (each) { return each.records !== null; });
        items = isRead ? CustomItems.merge(chosen, currentDocument(), order) : [];
    }

    function documentRow(each) {
        var row = Page.make('li', 'document', '');
        row.id = 'document' + each.id;
        row.dataset.key = each.key;
        row.appendChild(Page.make('bdi', '', each.name));
        return row;
    }

    function markDocuments() {
        var current = currentDocument();
        Page.all('.document').forEach(function (row) {
            list.mark(row, selected.indexOf(row.dataset.key) >= 0);
            if (current && row.dataset.key === current.key)
                row.setAttribute('aria-current', 'true');
            else
                row.removeAttribute('aria-current');
        });
        var about = Page.get('about');
        about.textContent = '';
        if (selected.length < 2)
            return;
        about.appendChild(Page.make('span', '', Page.fill('%1 documents. Save takes the items of ',
            selected.length)));
        about.appendChild(Page.make('bdi', '', current ? current.name : ''));
    }

    function showState() {
        var all = Page.get('tickAll');
        all.disabled = shown.length === 0;
        all.checked = shown.length > 0 &&
            shown.every(function (item) { return item.selected === true; });
        all.indeterminate = !all.checked &&
            shown.some(function (item) { return item.selected !== false; });
        Page.tell('state', isRead ? 'empty' : 'error', translated(
            !isRead ? 'The documents could not be read.' :
            documents.length === 0 ? 'No document is selected in the application.' :
            selected.length === 0 ? 'Select the documents whose items you want to edit.' :
            items.length === 0 ? 'There are no items. Add one below, or load a file.' :
            shown.length === 0 ? 'No item matches the search.' : ''));
        ['search', 'newName', 'newValue', 'newUnit', 'add', 'load'].forEach(function (id) {
            Page.get(id).disabled = !isRead || selected.length === 0;
        });
        Page.get('save').disabled = !isRead || currentDocument() === null;
        Page.get('head').style.paddingRight =
            Page.get('items').offsetWidth - Page.get('items').clientWidth + 'px';
    }

    function show() {
        var text = Page.get('search').value.trim().toLowerCase();
        shown = text === '' ? items : items.filter(function (item) {
            return cells.isEditing(item) || held.has(item.name) || CustomItems.matches(item, text);
        });
        cells.show(shown);
        showState();
    }

    var drawn = null;
    function draw() {
        Page.get('flag').textContent = Page.translate(
            bridge.getCallbackType() === DisplayView ? 'Display' : 'File name');
        readDocuments();
        var rows = JSON.stringify(documents.map(function (each) { return [each.id, each.name]; }));
        if (rows !== drawn)
            list.fill(documents.map(documentRow));
        drawn = rows;
        Page.get('documents').hidden = documents.length === 0;
        readItems();
        markDocuments();
        show();
    }

    // Documents.

    function select(keys) {
        if (!cells.commit())
            return;
        order = [];
        selected = keys;
        selected = selectedDocuments().map(function (each) { return each.key; });
        readItems();
        markDocuments();
        show();
    }

    function range(key) {
        var keys = documents.map(function (each) { return each.key; });
        var from = Math.max(0, keys.indexOf(anchor));
        var to = keys.indexOf(key);
        return keys.slice(Math.min(from, to), Math.max(from, to) + 1);
    }

    function toggled(key) {
        return selected.indexOf(key) >= 0 ?
            selected.filter(function (each) { return each !== key; }) : selected.concat([key]);
    }

    function pickDocument(row, event) {
        var key = row.dataset.key;
        if (event.shiftKey) {
            select(range(key));
            return;
        }
        anchor = key;
        select(event.ctrlKey || event.keyCode === 32 ? toggled(key) : [key]);
    }

    // The list itself went on by now; Ctrl goes on alone.
    Page.listen(Page.get('documents'), 'keydown', function (event) {
        var row = document.activeElement;
        var isMove = event.keyCode >= 33 && event.keyCode <= 40 && event.keyCode !== 37 &&
            event.keyCode !== 39;
        if (event.keyCode === 65 && event.ctrlKey) {
            select(documents.map(function (each) { return each.key; }));
            event.preventDefault();
        } else if (isMove && !event.ctrlKey && row.dataset.key) {
            if (event.shiftKey) {
                select(range(row.dataset.key));
            } else {
                anchor = row.dataset.key;
                select([row.dataset.key]);
            }
        }
    });

    // Items. What is shown behind an operation is what the documents hold then.

    function write(item, field, text) {
        // The press that took the text is still a click in the row where it began.
        var name = field === 'name' ? text : item.name;
        held.add(name);
        order = items.map(function (each) { return each === item ? name : each.name; });
        var change = CustomItems.write(item, field, text);
        change.edits.forEach(function (edit) { bridge.editCustomData(edit.targets, edit.told); });
        change.additions.forEach(function (addition) {
            bridge.addCustomData(addition.targets, addition.told);
        });
        draw();
    }

    function tick(ticked, isSelected) {
        CustomItems.tick(ticked, isSelected).forEach(function (change) {
            bridge.enableCustomData(change.targets, change.told);
        });
        draw();
    }

    function remove(item) {
        var place = shown.indexOf(item);
        order = order.filter(function (name) { return name !== item.name; });
        bridge.deleteCustomData(item.holders.map(function (holder) { return holder.key; }),
            [{ name: item.name }]);
        draw();
        cells.goToPlace(place);
    }

    var NewFields = ['newName', 'newValue', 'newUnit'];

    function isAdding() {
        return NewFields.some(function (id) { return Page.get(id).value !== ''; });
    }

    // Whether the new item could be added.
    function add() {
        if (!isRead)
            return false; // the name may be taken
        var name = Page.get('newName');
        var reason = CustomItems.reasonAgainst(name.value, items, null);
        tellAddReason(reason);
        if (reason !== '') {
            name.focus();
            return false;
        }
        bridge.addCustomData(selected, { name: name.value, value: Page.get('newValue').value,
            unit: Page.get('newUnit').value });
        NewFields.forEach(function (id) { Page.get(id).value = ''; });
        Page.get('search').value = '';
        draw();
        Page.get('items').scrollTop = Page.get('items').scrollHeight;
        return true;
    }

    function tellAddReason(reason) {
        var place = Page.get('addReason');
        place.textContent = translated(reason);
        place.hidden = reason === '';
        Page.get('newName').classList[reason === '' ? 'remove' : 'add']('wrong');
    }

    NewFields.forEach(function (id) {
        Page.listen(Page.get(id), 'input', function () { tellAddReason(''); });
        Page.listen(Page.get(id), 'keydown', function (event) {
            if (event.keyCode === 13) {
                if (add())
                    Page.get('newName').focus();
            } else if (event.keyCode === 27) {
                Page.get(id).value = '';
                tellAddReason('');
            }
        });
        Page.get(id).placeholder = Page.translate(
            { newName: 'New item', newValue: 'Value', newUnit: 'Unit' }[id]);
    });
    Page.listen(Page.get('add'), 'click', function () {
        if (cells.commit() && add())
            Page.get('newName').focus();
    });
    Page.listen(Page.get('delete'), 'click', function () {
        cells.giveUp();
        if (currentItem)
            remove(currentItem);
    });
    Page.listen(Page.get('tickAll'), 'change', function () {
        tick(shown, Page.get('tickAll').checked);
    });

    Page.get('search').placeholder = Page.translate('Search');
    Page.listen(Page.get('search'), 'input', function () {
        held.clear();
        show();
    });
    Page.listen(Page.get('search'), 'keydown', function (event) {
        if (event.keyCode === 27) {
            Page.get('search').value = '';
            show();
        } else if (event.keyCode === 40) {
            cells.goToPlace(0);
            event.preventDefault();
        }
    });

    // Files.

    function ask(text) {
        Page.get('questionText').textContent = text;
        Page.get('question').hidden = false;
        Page.get('yes').focus();
    }

    function closeQuestion() {
        Page.get('question').hidden = true;
        Page.get('load').focus();
    }

    function load() {
        bridge.load(selected);
        order = [];
        draw();
    }

    Page.listen(Page.get('load'), 'click', function () {
        if (!cells.commit())
            return;
        var full = selectedDocuments().filter(function (each) { return each.records.length > 0; });
        if (full.length === 0)
            load();
        else
            ask(full.length === 1 ?
                Page.translate('Loading a file replaces the items of the document. ' +
                    'A comment in the file replaces its own for good.') :
                Page.fill('Loading a file replaces the items of %1 documents. ' +
                    'A comment in the file replaces theirs for good.', full.length));
    });
    Page.listen(Page.get('yes'), 'click', function () {
        closeQuestion();
        load();
    });
    Page.listen(Page.get('no'), 'click', closeQuestion);
    Page.listen(Page.get('question'), 'keydown', function (event) {
        if (event.keyCode === 27) {
            closeQuestion();
        } else if (event.keyCode === 9) { // the page behind it stands still
            Page.get(document.activeElement.id === 'yes' ? 'no' : 'yes').focus();
            event.preventDefault();
        }
    });
    Page.listen(Page.get('save'), 'click', function () {
        var current = currentDocument();
        if (!cells.commit() || !current)
            return;
        current = currentDocument();
        bridge.save(current.records.map(function (record) {
            return { name: record.name, value: record.value, unit: record.unit,
                selected: record.selected };
        }));
    });

    // Ends. What was written and not taken yet is taken, or keeps the dialog open with its reason.
    Page.listen(Page.get('ok'), 'click', function () {
        if (cells.commit() && (!isAdding() || add()))
            bridge.accept();
    });
    Page.listen(Page.get('cancel'), 'click', function () {
        cells.giveUp();
        bridge.cancel();
        bridge.reject();
    });

    return draw;
});
