'use strict';

// The list of information items, which the user ticks and puts in order: by the mouse, and by Alt
// with the arrows, Home and End. `options` tell what stands behind it: `read` gives the markup of
// the list, `order` and `tick` store what the user did, `edit` opens what a row's link names, and
// `changed` comes behind both. What `withoutItems` gives is told where there is nothing to list, and
// `reason` why an item is off.
var InfoList = function (options) {
    var list = Page.get('list');
    var marker = Page.get('marker');
    var entries = new Map(); // of the rows
    var drag = null;
    var isAfterDrag = false;
    var scrolling = 0;
    var DragDistance = 5; // pixels, as far as a hand may shake in a click
    var ScrollPause = 30; // milliseconds

    // The labels are texts of others. Their markup is read in a document of its own, where nothing
    // runs and nothing is loaded, and texts alone are taken over.
    function parse(markup) {
        var inert = document.implementation.createHTMLDocument('');
        inert.body.innerHTML = markup;

        function child(element, tag) {
            return Array.from(element.children).find(function (one) {
                return one.tagName === tag;
            });
        }

        return Array.from(inert.body.children).map(function (element) {
            if (element.tagName === 'HR')
                return { isLine: true, isFixed: element.className === 'unsortable' };
            var box = child(element, 'INPUT');
            var label = child(element, 'LABEL');
            var link = child(element, 'A');
            return box && label && {
                isLine: false,
                id: box.id,
                isChecked: box.checked,
                isOff: box.disabled,
                isFixed: box.disabled,
                label: label.textContent,
                link: link ? link.id : '',
                linkText: link ? link.textContent : ''
            };
        }).filter(Boolean);
    }

    function rows() {
        return Array.from(list.children);
    }

    function rowOf(element) {
        while (element !== list && element.parentNode !== list)
            element = element.parentNode;
        return element === list ? null : element;
    }

    function nameOf(entry) {
        return entry.isLine ? Page.translate('Separator') : entry.label;
    }

    function say(text) {
        Page.get('place').textContent = text;
        Page.get('place').title = text;
    }

    function sayWhyFixed(entry) {
        say(entry.isLine ? Page.translate('Separators keep their place here.') :
            entry.label + ': ' + Page.translate(options.reason));
    }

    function sayPlace(row) {
        var all = rows();
        say(Page.translate('%1 of %2: %3').replace(/%[123]/g, function (field) {
            return field === '%3' ? nameOf(entries.get(row)) :
                String(field === '%1' ? all.indexOf(row) + 1 : all.length);
        }));
    }

    function showTick(row) {
        var entry = entries.get(row);
        row.setAttribute('aria-checked', String(entry.isChecked));
        row.querySelector('input').checked = entry.isChecked;
    }

    function makeRow(entry, at) {
        var row = Page.make('li', entry.isLine ? 'line' : 'item', '');
        row.id = entry.isLine ? 'line-' + at : 'item-' + entry.id;
        entries.set(row, entry);
        row.appendChild(Page.make('span', 'grip', ''));
        if (entry.isLine) {
            row.appendChild(Page.make('hr', '', ''));
            row.setAttribute('aria-label', nameOf(entry));
        } else {
            var box = document.createElement('input');
            box.type = 'checkbox';
            box.tabIndex = -1;
            box.disabled = entry.isOff;
            row.appendChild(box);
            row.appendChild(Page.make('span', 'label', entry.label));
            row.title = entry.isOff ? entry.label + '\n' + Page.translate(options.reason) :
                entry.label;
            row.setAttribute('aria-disabled', String(entry.isOff));
            showTick(row);
        }
        if (entry.link) {
            var edit = Page.make('button', 'edit', entry.linkText);
            edit.setAttribute('aria-label', entry.linkText + ' ' + entry.label);
            row.appendChild(edit);
        }
        row.classList[entry.isFixed ? 'add' : 'remove']('fixed');
        return row;
    }

    // Tab goes from a row on to its own link only.
    function followStop() {
        rows().forEach(function (row) {
            var edit = row.querySelector('button');
            if (edit)
                edit.tabIndex = row.tabIndex;
        });
    }

    function fill(read) {
        entries.clear();
        keys.fill(read.map(makeRow));
        followStop();
        Page.get('sorting').hidden = read.length === 0;
        Page.tell('state', 'empty', read.length === 0 ? options.withoutItems() : '');
        if (read.length === 0)
            say(''); // there is nothing to move
    }

    // Whether these entries are the ones in the rows.
    function isShown(read) {
        var shown = rows().map(function (row) { return entries.get(row); });
        return read.length === shown.length && read.every(function (entry, at) {
            return entry.isLine === shown[at].isLine && entry.id === shown[at].id &&
                entry.isChecked === shown[at].isChecked;
        });
    }

    // What is stored now, beside what is shown. Where nothing can be listed any longer, the change
    // is stored nevertheless.
    function isStored() {
        var read = parse(options.read());
        var isSame = isShown(read);
        if (!isSame)
            fill(read);
        return isSame || read.length === 0;
    }

    function afterChange() {
        Page.tellStored('failure', isStored());
        options.changed();
    }

    function tick(row) {
        var entry = entries.get(row);
        if (entry.isLine)
            return;
        if (entry.isOff) {
            sayWhyFixed(entry);
            return;
        }
        var isChecked = !entry.isChecked;
        rows().forEach(function (other) { // an item may be listed twice
            if (entries.get(other).id === entry.id) {
                entries.get(other).isChecked = isChecked;
                showTick(other);
            }
        });
        options.tick(entry.id, isChecked);
        afterChange();
    }

    // Puts a row before another one, or to the end.
    function move(row, before) {
        if (entries.get(row).isFixed) {
            sayWhyFixed(entries.get(row));
            return;
        }
        if (before !== row && before !== row.nextElementSibling) {
            // An order is stored as a whole: what is not among the rows would leave the setting.
            var read = parse(options.read());
            if (!isShown(read)) {
                fill(read);
                Page.tell('failure', 'error', read.length === 0 ? '' :
                    Page.translate('The list has changed. Please move the row again.'));
                return;
            }
            list.insertBefore(row, before);
            options.order(rows().map(function (one) {
                return entries.get(one).isLine ? 'HR' : entries.get(one).id;
            }).join(','));
            row.focus(); // it is lost where an element moves
            afterChange();
        }
        row.scrollIntoViewIfNeeded(false);
        if (row.parentNode === list)
            sayPlace(row);
    }

    function edit(row) {
        row.focus();
        options.edit(entries.get(row).link);
    }

    var keys = Page.list(list, function (row, event) {
        if (event.type === 'click' && isAfterDrag)
            return;
        var isLink = event.target.tagName === 'BUTTON';
        if (isLink || (event.keyCode === 13 && entries.get(row).link))
            edit(row);
        else if (event.target.className !== 'grip')
            tick(row);
        else if (entries.get(row).isFixed)
            sayWhyFixed(entries.get(row));
    });
    Page.listen(list, 'focusin', followStop);

    Page.listen(list, 'keydown', function (event) {
        var row = event.target;
        if (!event.altKey || row.parentNode !== list)
            return;
        var next = row.nextElementSibling;
        switch (event.keyCode) {
        case 35: move(row, null); break;
        case 36: move(row, list.firstElementChild); break;
        case 38: move(row, row.previousElementSibling || row); break;
        case 40: move(row, next ? next.nextElementSibling : null); break;
        default: return;
        }
        event.preventDefault();
    });

    // The row that a moved one would come before, null at the end.
    function placeAt(y) {
        return rows().find(function (row) {
            var box = row.getBoundingClientRect();
            return y < box.top + box.height / 2;
        }) || null;
    }

    function showMarker() {
        var frame = list.getBoundingClientRect();
        var before = placeAt(drag.y);
        var edge = before ? before.getBoundingClientRect().top :
            list.lastElementChild.getBoundingClientRect().bottom;
        var top = Math.min(Math.max(edge - frame.top, 1), frame.height - 1);
        marker.style.top = top - 1 + 'px';
        marker.hidden = false;
    }

    // At its edges the list goes on by itself.
    function scroll() {
        var frame = list.getBoundingClientRect();
        var step = drag.y < frame.top + 12 ? -12 : drag.y > frame.bottom - 12 ? 12 : 0;
        if (step !== 0) {
            list.scrollTop += step;
            showMarker();
        }
    }

    function endDrag() {
        if (drag && drag.isMoving) {
            clearInterval(scrolling);
            drag.row.classList.remove('moving');
            list.classList.remove('sorted');
            marker.hidden = true;
        }
        drag = null;
    }

    Page.listen(list, 'mousedown', function (event) {
        var row = rowOf(event.target);
        if (row && event.button === 0 && event.target.tagName !== 'BUTTON')
            drag = { row: row, from: event.clientY, y: event.clientY, isMoving: false };
    });
    Page.listen(document, 'mousemove', function (event) {
        if (!drag)
            return;
        drag.y = event.clientY;
        if (!drag.isMoving) {
            if (Math.abs(drag.y - drag.from) < DragDistance)
                return;
            if (entries.get(drag.row).isFixed) {
                sayWhyFixed(entries.get(drag.row));
                endDrag();
                return;
            }
            drag.isMoving = true;
            drag.row.classList.add('moving');
            list.classList.add('sorted');
            scrolling = setInterval(Page.guard(scroll), ScrollPause);
        }
        showMarker();
    });
    Page.listen(document, 'mouseup', function (event) {
        if (!drag || event.button !== 0)
            return;
        var moved = drag.isMoving ? drag.row : null;
        var before = moved ? placeAt(event.clientY) : null;
        endDrag();
        if (!moved)
            return;
        isAfterDrag = true; // a click follows, where the row has come to lie under the mouse
        setTimeout(function () { isAfterDrag = false; }, 0);
        move(moved, before);
    });
    // The key Esc leaves the row where it is.
    Page.listen(document, 'keydown', function (event) {
        if (event.keyCode === 27)
            endDrag();
    });

    return {
        // Reads the list anew.
        load: function () {
            endDrag();
            Page.tell('failure', 'error', '');
            say(Page.translate('Move rows by the mouse or by Alt and arrows.'));
            fill(parse(options.read()));
        },
        // Begins at its top.
        rewind: function () {
            keys.fill([]);
            list.scrollTop = 0;
        }
    };
};
