'use strict';

// Completes the name in a field with those of the user's file: while the user types, those that hold
// what was typed stand below the field, by category. The arrows bring them too and go through them,
// Enter or a click takes one, and Escape puts them away.
var CameraNames = (function () {
    var MostShown = 100; // of a list that may be very long

    function read(names) {
        if (!names || !names.existsAutoCompleteFile())
            return [];
        return JSON.parse(names.autoCompleteCameraList()).map(function (row) {
            return { label: row.label, category: row.category, key: row.label.toLowerCase() };
        });
    }

    return {
        // `names` is the object that has them, or null; `changed` is called when one was taken.
        // Gives how many there are.
        attach: function (field, names, changed) {
            var all = read(names);
            var list = Page.make('div', 'names', '');
            var active = null;

            function isOpen() {
                return !list.hidden;
            }

            function close() {
                list.hidden = true;
                setActive(null);
                field.setAttribute('aria-expanded', 'false');
            }

            function setActive(row) {
                if (active)
                    active.setAttribute('aria-selected', 'false');
                active = row;
                if (!active)
                    return field.removeAttribute('aria-activedescendant');
                active.setAttribute('aria-selected', 'true');
                field.setAttribute('aria-activedescendant', active.id);
                if (active.offsetTop < list.scrollTop)
                    list.scrollTop = active.offsetTop;
                else if (active.offsetTop + active.offsetHeight > list.scrollTop + list.clientHeight)
                    list.scrollTop = active.offsetTop + active.offsetHeight - list.clientHeight;
            }

            function place() {
                var box = field.getBoundingClientRect();
                list.style.left = box.left + 'px';
                list.style.top = box.bottom + 1 + 'px';
                list.style.width = box.width + 'px';
                list.style.maxHeight = window.innerHeight - box.bottom - 5 + 'px';
            }

            // Those that hold what stands in the field, which a name that is whole does not need.
            function matches() {
                var wanted = field.value.trim().toLowerCase();
                var found = all.filter(function (row) { return row.key.indexOf(wanted) >= 0; });
                return found.length === 1 && found[0].label === field.value ? [] : found;
            }

            function show(found) {
                if (found.length === 0)
                    return close();
                list.textContent = '';
                var category = '';
                found.slice(0, MostShown).forEach(function (row, i) {
                    if (row.category !== category) {
                        category = row.category;
                        list.appendChild(Page.make('div', 'category', category));
                    }
                    var name = Page.make('div', 'name', row.label);
                    name.id = 'name-' + i;
                    name.setAttribute('role', 'option');
                    name.setAttribute('aria-selected', 'false');
                    list.appendChild(name);
                });
                if (found.length > MostShown) {
                    list.appendChild(Page.make('div', 'more',
                        Page.fill('%1 more', found.length - MostShown)));
                }
                list.scrollTop = 0;
                active = null;
                list.hidden = false;
                place();
                field.setAttribute('aria-expanded', 'true');
            }

            function take(row) {
                field.value = row.textContent;
                close();
                Page.bridge.userOperationLogWebView(location.href, 'clicked', 'Name', list.id, '',
                    field.value);
                changed();
            }

            function step(way) {
                if (!isOpen()) { // whoever asks for names gets all of them where none fits
                    var found = matches();
                    return show(found.length > 0 ? found : all);
                }
                var rows = Array.from(list.querySelectorAll('.name'));
                var at = rows.indexOf(active);
                setActive(rows[at < 0 ? (way > 0 ? 0 : rows.length - 1) :
                    Math.max(0, Math.min(rows.length - 1, at + way))]);
            }

            list.id = field.id + 'List';
            list.setAttribute('role', 'listbox');
            list.hidden = true;
            document.body.appendChild(list);
            if (all.length === 0)
                return 0;
            field.setAttribute('role', 'combobox');
            field.setAttribute('aria-autocomplete', 'list');
            field.setAttribute('aria-controls', list.id);
            field.setAttribute('aria-expanded', 'false');
            field.setAttribute('autocomplete', 'off');

            Page.listen(field, 'input', function () { show(matches()); });
            Page.listen(field, 'blur', close);
            Page.listen(field, 'keydown', function (event) {
                if (event.keyCode === 40 || event.keyCode === 38)
                    step(event.keyCode === 40 ? 1 : -1);
                else if (event.keyCode === 13 && isOpen() && active)
                    take(active);
                else if (event.keyCode === 27 && isOpen())
                    close();
                else
                    return;
                event.preventDefault();
                event.stopImmediatePropagation();
            });
            // The field keeps the focus.
            Page.listen(list, 'mousedown', function (event) {
                event.preventDefault();
                if (event.target.classList.contains('name'))
                    take(event.target);
            });
            return all.length;
        }
    };
})();
