'use strict';

// The destinations that devices can have beside the folder, and which device has which: two tables,
// worked by keys. Up and Down go to the rows beside, Enter behind the last row makes a new one,
// Ctrl+Delete takes one away. Each change is stored at once.
var SaveDestinations = function (form, changed) {
    var bridge = Page.bridge;
    var saveFile = window.savefile;
    var ListKey = 'export/multipathlist';
    var DeviceKey = 'export/multipathdevicelist';
    var panel = Page.get('destinationPanel');
    var table = Page.get('destinations');
    var devices = Page.get('devices');
    var rows = [];        // { name, path } as written
    var isRead = false;   // else nothing is written: it would take the place of what there is
    var assigned = [];    // { device, key } in the order of the list of devices

    function join(pairs) {
        return pairs.map(function (pair) { return pair.join('|'); }).join('?');
    }

    function readAll() {
        var text = saveFile.getMultiPaths();
        isRead = text !== '';
        rows = isRead ? JSON.parse(text) : [];
        Page.get('addDestination').disabled = !isRead;
    }

    function store() {
        bridge.setPrefString(ListKey, join(rows.map(function (row) {
            return [row.name, row.path];
        })), false);
    }

    // Entries of devices that are not here now stay.
    function storeDevice(device, name) {
        var entries = bridge.getPrefString(DeviceKey).split('?').filter(function (entry) {
            var fields = entry.split('|');
            return fields.length === 2 && fields[0] !== device;
        });
        entries.push([device, name].join('|'));
        bridge.setPrefString(DeviceKey, entries.join('?'), false);
    }

    function renameAssigned(before, after) {
        var text = bridge.getPrefString(DeviceKey);
        var renamed = text.split('?').map(function (entry) {
            var fields = entry.split('|');
            return fields.length === 2 && fields[1] === before ? [fields[0], after].join('|') :
                entry;
        }).join('?');
        if (renamed !== text)
            bridge.setPrefString(DeviceKey, renamed, false);
    }

    function reasonAgainst(place, field, text) {
        if (field === 'name') {
            if (text.trim() === '')
                return Page.translate('A destination needs a name.');
            if (rows.some(function (row, at) { return at !== place && row.name === text; }))
                return Page.translate('Another destination has this name.');
            if (/[?|]/.test(text))
                return SavePath.reason(text.replace(/[^?|]/g, '').slice(0, 1));
            return '';
        }
        var forbidden = window.savePreview.forbiddenInPath(text);
        return forbidden === '' ? '' : SavePath.reason(forbidden);
    }

    function tell(text) {
        var reason = Page.get('destinationReason');
        reason.textContent = text;
        reason.hidden = text === '';
    }

    function cell(place, field) {
        return Page.get('destination-' + field + '-' + place);
    }

    function take(place, field, input) {
        var reason = reasonAgainst(place, field, input.value);
        tell(reason);
        input.classList[reason === '' ? 'remove' : 'add']('wrong');
        if (reason !== '' || rows[place][field] === input.value)
            return;
        if (field === 'name')
            renameAssigned(rows[place].name, input.value);
        rows[place][field] = input.value;
        store();
        drawDevices();
        changed();
    }

    function add() {
        var number = rows.length + 1;
        while (rows.some(function (row) { return row.name === String(number); }))
            ++number;
        rows.push({ name: String(number), path: '' });
        store();
        drawAll();
        cell(rows.length - 1, 'name').focus();
        cell(rows.length - 1, 'name').select();
    }

    function remove(place) {
        rows.splice(place, 1);
        store();
        tell('');
        drawAll();
        changed();
        if (rows.length > 0)
            cell(Math.min(place, rows.length - 1), 'name').focus();
        else
            Page.get('addDestination').focus();
    }

    function key(event, place, field) {
        var next = { 38: place - 1, 40: place + 1 }[event.keyCode];
        if (event.keyCode === 13) {
            take(place, field, event.target);
            if (place === rows.length - 1)
                add();
            else
                cell(place + 1, field).focus();
        } else if (event.keyCode === 46 && event.ctrlKey) {
            remove(place);
        } else if (next !== undefined && rows[next]) {
            take(place, field, event.target);
            cell(next, field).focus();
        } else {
            return;
        }
        event.preventDefault();
    }

    function inputOf(row, place, field, label) {
        var input = document.createElement('input');
        input.type = 'text';
        input.id = 'destination-' + field + '-' + place;
        input.value = row[field];
        input.setAttribute('aria-label', Page.translate(label));
        Page.listen(input, 'input', function () {
            tell(reasonAgainst(place, field, input.value));
        });
        Page.listen(input, 'change', function () { take(place, field, input); });
        Page.listen(input, 'keydown', function (event) { key(event, place, field); });
        return input;
    }

    function drawTable() {
        table.textContent = '';
        rows.forEach(function (row, place) {
            var choose = form.button('destination-choose-' + place, '...', function () {
                var chosen = saveFile.selectFolder(rows[place].path);
                if (chosen === '')
                    return;
                cell(place, 'path').value = chosen;
                take(place, 'path', cell(place, 'path'));
            });
            choose.setAttribute('aria-label', Page.translate('Choose a folder'));
            var gone = form.button('destination-remove-' + place, '\u00d7', function () {
                remove(place);
            });
            gone.setAttribute('aria-label', Page.translate('Remove'));
            table.appendChild(form.element('div', 'destination', [
                inputOf(row, place, 'name', 'Name of the destination'),
                inputOf(row, place, 'path', 'Folder of the destination'), choose, gone]));
        });
        if (!isRead) {
            Page.tell('noDestinations', 'error',
                Page.translate('The destinations could not be read.'));
            return;
        }
        Page.tell('noDestinations', 'empty', rows.length > 0 ? '' :
            Page.translate('There is no destination yet: all devices save to the folder.'));
    }

    function drawDevices() {
        var text = isRead ? saveFile.getMultiPathDevices() : '';
        assigned = text !== '' ? JSON.parse(text) : [];
        devices.textContent = '';
        assigned.forEach(function (each, place) {
            var list = document.createElement('select');
            list.id = 'device-' + place;
            list.setAttribute('aria-label', each.device);
            var isKnown = rows.some(function (row) { return row.name === each.pathselector; });
            if (!isKnown) {
                var none = Page.make('option', '', Page.translate(
                    rows.length === 0 ? 'The folder' : 'A destination that has gone'));
                none.value = '';
                list.appendChild(none);
            }
            rows.forEach(function (row) {
                var option = Page.make('option', '', row.name);
                option.value = row.name;
                list.appendChild(option);
            });
            list.value = isKnown ? each.pathselector : '';
            list.disabled = rows.length === 0;
            Page.listen(list, 'change', function () {
                if (list.value === '')
                    return;
                storeDevice(each.device, list.value);
                drawDevices();
                Page.get('device-' + place).focus();
                changed();
            });
            var path = Page.make('span', 'facts', each.path);
            devices.appendChild(form.element('div', 'device',
                [Page.make('span', 'name', each.device), list, path]));
        });
        if (isRead && text === '') {
            Page.tell('noDevices', 'error', Page.translate('The devices could not be read.'));
            return;
        }
        Page.tell('noDevices', 'empty', !isRead || assigned.length > 0 ? '' :
            Page.translate('No device is connected.'));
    }

    function drawAll() {
        drawTable();
        drawDevices();
    }

    function show(isShown) {
        panel.hidden = !isShown;
        if (isShown) {
            readAll();
            drawAll();
            (rows.length > 0 ? cell(0, 'name') :
                Page.get(isRead ? 'addDestination' : 'closeDestinations')).focus();
        } else {
            tell('');
            bridge.updateUI();
            Page.get('editDestinations').focus();
        }
    }

    var use = document.createElement('input');
    use.type = 'checkbox';
    use.id = 'useDestinations';
    Page.listen(use, 'change', function () {
        bridge.setPrefBool('export/singlepath', !use.checked);
        changed();
    });
    Page.get('base').appendChild(form.element('div', 'line', [
        form.element('label', 'choice', [use,
            Page.make('span', '', Page.translate('Each device to a destination of its own'))]),
        form.button('editDestinations', 'Destinations...', function () { show(true); })]));
    Page.listen(Page.get('addDestination'), 'click', add);
    Page.listen(Page.get('closeDestinations'), 'click', function () { show(false); });
    Page.listen(panel, 'keydown', function (event) {
        if (event.keyCode === 27) {
            show(false);
            event.preventDefault();
        } else if (event.keyCode === 9) { // stays in the panel
            var stops = Page.all('#destinationPanel input, #destinationPanel select, ' +
                '#destinationPanel button').filter(function (each) { return !each.disabled; });
            var last = stops.length - 1;
            if (document.activeElement !== stops[event.shiftKey ? 0 : last])
                return;
            stops[event.shiftKey ? last : 0].focus();
            event.preventDefault();
        }
    });

    return {
        draw: function () { use.checked = !bridge.getPrefBool('export/singlepath'); }
    };
};
