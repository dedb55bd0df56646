'use strict';

// The table of items: a row of cells for each, one of which takes part in Tab. Arrows, Home, End and
// the page keys go on from there; Enter, F2 and a click edit a cell in its place, Enter and Tab take
// what was written, Escape gives it up. Only the rows in view are elements, so that thousands of
// items cost no more than those.
//
// `handlers` are
//   reasonAgainst(name, item): why the item cannot get this name; empty when it can
//   write(item, field, text)
//   tick(item, isSelected)
//   remove(item)
//   current(item): another row is the current one, null for none
var CustomCells = function (body, handlers) {
    var Columns = ['tick', 'name', 'value', 'unit'];
    var LineEnd = /\r\n|\r|\n/g;
    var Height = 26; // of a row, as in the style sheet
    var Beyond = 3;  // rows above and below those in view
    var space = Page.make('div', 'rows', '');
    var items = [];
    var rows = new Map(); // by the place of an item: { row, cells, box, item }
    var free = [];
    var stop = { place: 0, column: 1 };
    var current = null; // name of the current item
    var editing = null; // { place, field, editor, before, isMixed, isTouched, reason }

    body.appendChild(space);

    function elementOf(place, column) {
        var entry = rows.get(place);
        return column === 0 ? entry.box : entry.cells[column];
    }

    function makeRow() {
        var entry = { row: Page.make('div', 'item', ''), cells: [], item: null };
        entry.row.setAttribute('role', 'row');
        Columns.forEach(function (column) {
            var cell = Page.make('div', column + ' cell', '');
            cell.setAttribute('role', 'gridcell');
            cell.dir = 'auto';
            entry.cells.push(cell);
            entry.row.appendChild(cell);
        });
        entry.box = document.createElement('input');
        entry.box.type = 'checkbox';
        entry.cells[0].appendChild(entry.box);
        return entry;
    }

    function putRow(entry, place) {
        rows.set(place, entry);
        entry.row.style.top = place * Height + 'px';
        entry.row.dataset.place = place;
        entry.row.setAttribute('aria-rowindex', place + 2); // the head is the first
        entry.box.id = 'tick' + place;
        Columns.forEach(function (column, i) { entry.cells[i].id = column + 'Cell' + place; });
        space.appendChild(entry.row);
    }

    function showText(cell, text, isMixed, none) {
        cell.classList[isMixed ? 'add' : 'remove']('mixed');
        var shown = isMixed ? Page.translate('mixed') :
            text === '' ? none : text.replace(LineEnd, ' \u21b5 ');
        if (cell.textContent !== shown)
            cell.textContent = shown; // what is pressed there stays, and is clicked
        cell.title = isMixed ? Page.translate('The documents differ here, or do not all have it.') :
            text;
    }

    function isEdited(place, field) {
        return editing && editing.place === place && editing.field === field;
    }

    function showItem(place) {
        var entry = rows.get(place);
        var item = items[place];
        entry.item = item;
        entry.box.checked = item.selected === true;
        entry.box.indeterminate = item.selected === null;
        entry.box.setAttribute('aria-label', item.name);
        entry.row.classList[item.missing.length > 0 ? 'add' : 'remove']('partial');
        entry.row.classList[item.name === current ? 'add' : 'remove']('current');
        if (!isEdited(place, 'name'))
            showText(entry.cells[1], item.name, false, Page.translate('(no name)'));
        ['value', 'unit'].forEach(function (field, i) {
            if (!isEdited(place, field))
                showText(entry.cells[i + 2], item[field] || '', item[field] === null, '');
        });
        Columns.forEach(function (column, i) {
            (i === 0 ? entry.box : entry.cells[i]).tabIndex =
                place === stop.place && i === stop.column ? 0 : -1;
        });
    }

    // Those in view, and those that the focus may be in.
    function neededPlaces() {
        var from = Math.floor(body.scrollTop / Height) - Beyond;
        var to = Math.ceil((body.scrollTop + body.clientHeight) / Height) + Beyond;
        var places = [stop.place];
        if (editing)
            places.push(editing.place);
        for (var place = from; place < to; ++place)
            places.push(place);
        return new Set(places.filter(function (each) { return each >= 0 && each < items.length; }));
    }

    // Makes the rows that are needed, and shows the items in all of them or in those that are new.
    function layOut(isAnew) {
        var needed = neededPlaces();
        Array.from(rows.keys()).forEach(function (place) {
            if (needed.has(place))
                return;
            free.push(rows.get(place));
            space.removeChild(rows.get(place).row);
            rows.delete(place);
        });
        needed.forEach(function (place) {
            var isNew = !rows.has(place);
            if (isNew)
                putRow(free.pop() || makeRow(), place);
            if (isNew || isAnew)
                showItem(place);
        });
    }

    function setStop(place, column) {
        if (rows.has(stop.place))
            elementOf(stop.place, stop.column).tabIndex = -1;
        stop = { place: place, column: column };
        if (rows.has(place))
            elementOf(place, column).tabIndex = 0;
    }

    function setCurrent(item) {
        current = item ? item.name : null;
        rows.forEach(function (entry) {
            entry.row.classList[entry.item === item ? 'add' : 'remove']('current');
        });
        handlers.current(item);
    }

    function scrollTo(place) {
        var top = place * Height;
        if (top < body.scrollTop)
            body.scrollTop = top;
        else if (top + Height > body.scrollTop + body.clientHeight)
            body.scrollTop = top + Height - body.clientHeight;
    }

    // Goes to this place, or to the last one before it.
    function goTo(place, column) {
        if (items.length === 0)
            return; // what was written took them away
        place = Math.min(place, items.length - 1);
        scrollTo(place);
        setStop(place, column);
        layOut(false);
        elementOf(place, column).focus();
    }

    function tellReason(text) {
        if (!editing.reason) {
            editing.reason = Page.make('p', 'reason', '');
            editing.reason.id = 'reason';
            editing.reason.setAttribute('role', 'alert');
            editing.reason.style.top = (editing.place + 1) * Height + 'px';
            space.appendChild(editing.reason);
        }
        editing.reason.textContent = text;
        editing.reason.scrollIntoViewIfNeeded(false);
        editing.editor.classList.add('wrong');
        editing.editor.setAttribute('aria-describedby', 'reason');
    }

    function openCell(cell, editor) {
        cell.textContent = '';
        cell.title = '';
        cell.classList.remove('mixed');
        cell.classList.add('editing');
        cell.appendChild(editor);
    }

    // Takes the editor out of its row, for another place of its item. Gives what puts it in there,
    // with the focus, once the rows are laid out.
    function liftEditor(place) {
        var editor = editing.editor;
        var hadFocus = document.activeElement === editor;
        if (stop.place === editing.place)
            setStop(place, stop.column);
        editor.parentNode.classList.remove('editing');
        editor.parentNode.removeChild(editor);
        editing.place = place;
        return function () {
            openCell(rows.get(place).cells[Columns.indexOf(editing.field)], editor);
            if (editing.reason)
                editing.reason.style.top = (place + 1) * Height + 'px';
            if (hadFocus)
                editor.focus(); // which has its caret still, and comes into view
        };
    }

    // Gives up what was written.
    function closeEditor() {
        var was = editing;
        editing = null; // taking the editor away may take the focus from it
        if (was.reason)
            space.removeChild(was.reason);
        was.editor.parentNode.classList.remove('editing');
        was.editor.parentNode.textContent = '';
        if (was.place < items.length)
            showItem(was.place);
    }

    // Takes what was written; whether it could be.
    function commit() {
        if (!editing)
            return true;
        var item = items[editing.place];
        var field = editing.field;
        var text = editing.editor.value;
        var isWritten = editing.isTouched && (editing.isMixed || text !== editing.before);
        var reason = isWritten && field === 'name' ? handlers.reasonAgainst(text, item) : '';
        if (reason !== '') {
            tellReason(reason);
            return false;
        }
        closeEditor();
        if (!isWritten)
            return true;
        if (field === 'name' && current === item.name)
            current = text; // it stays the current one
        handlers.write(item, field, text);
        return true;
    }

    function edit(place, column) {
        var field = Columns[column];
        if (isEdited(place, field))
            return;
        if (!commit())
            closeEditor();
        if (place >= items.length)
            return; // what was written took items away
        scrollTo(place);
        setStop(place, column);
        layOut(false);
        setCurrent(items[place]);
        var cell = rows.get(place).cells[column];
        var text = items[place][field];
        var editor = Page.make('textarea', '', '');
        editor.id = 'editor';
        editor.rows = 1;
        editor.dir = 'auto';
        editor.setAttribute('aria-label', items[place].name + ', ' +
            Page.translate({ name: 'Name', value: 'Value', unit: 'Unit' }[field]));
        editor.value = text || '';
        editor.placeholder = text === null ? Page.translate('mixed') : '';
        openCell(cell, editor);
        editing = { place: place, field: field, editor: editor, before: editor.value,
            isMixed: text === null, isTouched: false, reason: null };
        Page.listen(editor, 'input', function () {
            if (editing)
                editing.isTouched = true;
        });
        editor.focus();
        editor.select();
    }

    // { place, column } of an element in the table, null for others.
    function whereIs(element) {
        var found = null;
        rows.forEach(function (entry, place) {
            if (entry.row.contains(element)) {
                var column = entry.cells.findIndex(function (cell) {
                    return cell.contains(element);
                });
                found = { place: place, column: Math.max(0, column) };
            }
        });
        return found;
    }

    // The next cell that can be edited, in reading order.
    function nextCell(place, column, way) {
        var next = column + way;
        if (next < 1 || next > 3) {
            place += way;
            next = way > 0 ? 1 : 3;
        }
        return items[place] ? { place: place, column: next } : null;
    }

    function editorKey(event) {
        var place = editing.place;
        var column = Columns.indexOf(editing.field);
        if (event.keyCode === 27) {
            closeEditor();
            goTo(place, column);
        } else if (event.keyCode === 13 && !event.shiftKey && !event.ctrlKey) {
            if (commit())
                goTo(place, column);
        } else if (event.keyCode === 9) {
            if (commit()) {
                var next = nextCell(place, column, event.shiftKey ? -1 : 1);
                goTo(place, column);
                if (!next)
                    return; // on to what stands beside the table
                edit(next.place, next.column);
            }
        } else {
            return;
        }
        event.preventDefault();
    }

    function cellKey(event, at) {
        var last = items.length - 1;
        var page = Math.max(1, Math.floor(body.clientHeight / Height) - 1);
        var place = at.place;
        var column = at.column;
        switch (event.keyCode) {
        case 33: place = Math.max(0, place - page); break;
        case 34: place = Math.min(last, place + page); break;
        case 35: place = last; break;
        case 36: place = 0; break;
        case 37: column = Math.max(0, column - 1); break;
        case 38: place = Math.max(0, place - 1); break;
        case 39: column = Math.min(3, column + 1); break;
        case 40: place = Math.min(last, place + 1); break;
        case 13: case 113:
            if (column > 0)
                edit(place, column);
            event.preventDefault();
            return;
        case 32:
            if (column > 0) { // the box itself knows the key
                handlers.tick(items[place], items[place].selected !== true);
                event.preventDefault();
            }
            return;
        case 46:
            handlers.remove(items[place]);
            event.preventDefault();
            return;
        default:
            return;
        }
        goTo(place, column);
        event.preventDefault();
    }

    Page.listen(body, 'scroll', function () { layOut(false); });
    Page.listen(body, 'keydown', function (event) {
        if (event.altKey)
            return;
        if (editing && event.target === editing.editor) {
            editorKey(event);
            return;
        }
        var at = whereIs(event.target);
        if (at)
            cellKey(event, at);
    });
    Page.listen(body, 'click', function (event) {
        var at = whereIs(event.target);
        if (at && at.column > 0 && !(editing && event.target === editing.editor))
            edit(at.place, at.column);
    });
    Page.listen(body, 'focusin', function (event) {
        var at = whereIs(event.target);
        if (!at || (editing && event.target === editing.editor))
            return;
        setStop(at.place, at.column);
        setCurrent(items[at.place]);
    });
    // Not by the editor's loss of the focus, which comes also when the window goes for good.
    ['mousedown', 'focusin'].forEach(function (type) {
        Page.listen(document, type, function (event) {
            if (editing && event.target !== editing.editor)
                commit();
        });
    });
    Page.listen(body, 'change', function (event) {
        var at = whereIs(event.target);
        if (at && at.column === 0)
            handlers.tick(items[at.place], event.target.checked);
    });

    return {
        // Shows these items in place of those before. A cell keeps the focus, and an editor what is
        // being written in it as long as its item is there.
        show: function (shown) {
            var hadFocus = whereIs(document.activeElement) !== null;
            var putEditor = null;
            if (editing) {
                var name = items[editing.place].name;
                var place = shown.findIndex(function (each) { return each.name === name; });
                if (place < 0)
                    closeEditor();
                else if (place !== editing.place)
                    putEditor = liftEditor(place);
            }
            items = shown;
            space.style.height = items.length * Height + 'px';
            body.parentNode.setAttribute('aria-rowcount', items.length + 1);
            setStop(Math.max(0, Math.min(stop.place, items.length - 1)), stop.column);
            layOut(true);
            if (putEditor)
                putEditor();
            setCurrent(items.find(function (each) { return each.name === current; }) || null);
            if (hadFocus && !body.contains(document.activeElement) && items.length > 0)
                elementOf(stop.place, stop.column).focus();
        },
        // Goes to the row of this place, or to the last one before it.
        goToPlace: function (place) { goTo(place, stop.column); },
        // The item that is being written is shown whatever the search says.
        isEditing: function (item) {
            return editing !== null && items[editing.place].name === item.name;
        },
        // Takes what is being written. Where it cannot be taken the editor stays, gets the focus,
        // and the answer is no.
        commit: function () {
            var isDone = commit();
            if (!isDone)
                editing.editor.focus();
            return isDone;
        },
        // Gives up what is being written.
        giveUp: function () {
            if (editing)
                closeEditor();
        }
    };
};
