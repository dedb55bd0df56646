'use strict';

Page.start('discoverysearch', function () {
    var bridge = Page.bridge;
    var result = { complete: true, adapters: [], devices: [] };
    var shownFor = ''; // serial number of the camera whose addresses stand in the fields
    var list = Page.multiList(Page.get('cameras'), showChosen);

    var Badges = {
        free: 'ready',
        connected: 'connected',
        elsewhere: 'in use elsewhere',
        unreachable: 'cannot be reached',
        duplicate: 'address used twice'
    };

    var Fields = {
        address: { key: 'ipaddress', isRight: isAddress,
            hint: 'An address has four numbers from 0 to 255, such as 192.168.0.10.' },
        mask: { key: 'subnetmask', isRight: NetworkAddress.isMask,
            hint: 'A subnet mask is an address such as 255.255.255.0.' },
        gateway: { key: 'defaultgateway', isRight: function (text) {
            return text === '' || isAddress(text);
        }, hint: 'The gateway is an address, or empty for none.' }
    };
    var ids = Object.keys(Fields);

    function isAddress(text) {
        return NetworkAddress.parts(text) !== null;
    }

    function deviceOf(row) {
        return result.devices.find(function (device) {
            return row.id === 'camera-' + device.serial;
        });
    }

    function chosen() {
        return list.chosen().map(deviceOf);
    }

    function adapterOf(device) {
        return result.adapters.find(function (adapter) {
            return adapter.adapteraddress === device.adapteraddress;
        });
    }

    // Whether its address keeps it from being connected.
    function isMisplaced(device) {
        return device.state === 'unreachable' || device.state === 'duplicate';
    }

    function reasonOf(device) {
        switch (device.state) {
        case 'elsewhere':
            return Page.translate('Another application is connected to this camera. Disconnect it ' +
                'there, then search again.');
        case 'unreachable':
            return Page.fill('%1 is in the subnet of no network adapter of this computer. Give the ' +
                'camera another address.', device.ipaddress);
        case 'duplicate':
            return Page.fill('Another device has the address %1 too. Give the camera another one.',
                device.ipaddress);
        case 'connected':
            return Page.fill('This camera is connected as %1.', device.name);
        }
        return '';
    }

    function makeRow(device) {
        var row = Page.make('li', 'camera ' + device.state, '');
        row.id = 'camera-' + device.serial;
        row.appendChild(Page.make('span', 'address', device.ipaddress));
        var about = [device.model, device.serial];
        if (device.heads > 1)
            about.push(Page.fill('%1 heads', device.heads));
        if (device.name !== '')
            about.push(device.name);
        row.appendChild(Page.make('span', 'about', about.join(', ')));
        row.appendChild(Page.make('span', 'badge', Page.translate(Badges[device.state])));
        return row;
    }

    function field(id) {
        return Page.get(id);
    }

    function check() {
        var wrong = ids.filter(function (id) { return !Fields[id].isRight(field(id).value); });
        ids.forEach(function (id) {
            field(id).classList[wrong.indexOf(id) < 0 ? 'remove' : 'add']('wrong');
        });
        Page.get('change').disabled = wrong.length > 0;
        Page.get('wrong').textContent = wrong.length > 0 ? Page.translate(Fields[wrong[0]].hint) : '';
    }

    // A camera that has to move is offered a free address of its adapter.
    function fillFields(device) {
        var adapter = adapterOf(device);
        var offered = isMisplaced(device) && adapter && adapter.freeaddress !== '' ?
            { ipaddress: adapter.freeaddress, subnetmask: adapter.subnetmask, defaultgateway: '' } :
            device;
        ids.forEach(function (id) { field(id).value = offered[Fields[id].key]; });
        check();
    }

    // The fields keep what was typed while they are about the same camera in the same state.
    function showChosen() {
        var devices = chosen();
        var one = devices.length === 1 ? devices[0] : null;
        var free = devices.filter(function (device) { return device.state === 'free'; });
        Page.get('connect').disabled = free.length === 0;
        Page.get('reason').textContent = one ? reasonOf(one) :
            free.length < devices.length && free.length > 0 ?
                Page.fill('%1 of the chosen cameras can be connected.', free.length) :
            devices.length > 0 && free.length === 0 ?
                Page.translate('None of the chosen cameras can be connected.') : '';
        var canMove = one !== null && one.state !== 'elsewhere' && result.adapters.length > 0;
        Page.get('network').hidden = !canMove;
        var now = canMove ? [one.serial, one.state, one.ipaddress].join() : '';
        if (now === shownFor)
            return;
        shownFor = now;
        if (!canMove)
            return;
        Page.get('networkTitle').textContent = Page.fill('Address of the camera %1', one.serial);
        fillFields(one);
    }

    function tellFound() {
        var count = result.devices.length;
        var texts = [];
        if (count > 0)
            texts.push(count === 1 ? Page.translate('1 camera was found.') :
                Page.fill('%1 cameras were found.', count));
        if (!result.complete)
            texts.push(Page.translate('The search ended before all had answered: there may be more.'));
        Page.get('found').textContent = texts.join(' ');
        Page.tell('state', 'empty', count > 0 ? '' : Page.translate('No camera answered. Look at ' +
            'cables and power, and at the settings of the search, then search again.'));
    }

    // The rows that were chosen stay so, by their camera.
    function draw() {
        var before = list.chosen().map(function (row) { return row.id; });
        list.fill(result.devices.map(makeRow));
        Array.from(Page.get('cameras').children).forEach(function (row) {
            list.mark(row, before.indexOf(row.id) >= 0);
        });
        Page.get('cameras').hidden = result.devices.length === 0;
        tellFound();
        showChosen();
    }

    // What a search found; false, and the page stays as it is, for a search that failed.
    function take(text) {
        try {
            var found = JSON.parse(text);
            if (!Array.isArray(found.devices) || !Array.isArray(found.adapters))
                return false;
            result = found;
        } catch (error) {
            return false;
        }
        return true;
    }

    function search() {
        if (take(bridge.getSearchAgainResults()))
            draw();
        else
            Page.tellFailure('state', 'The search failed. The cameras are those of the last one.');
    }

    function change() {
        var device = chosen()[0];
        bridge.setNetworkSettings(JSON.stringify({
            adapteraddress: device.adapteraddress,
            ipaddress: field('address').value,
            subnetmask: field('mask').value,
            defaultgateway: field('gateway').value,
            macaddress: device.macaddress
        }));
        search();
    }

    ids.forEach(function (id) { Page.listen(field(id), 'input', check); });
    Page.listen(Page.get('fields'), 'keydown', function (event) {
        if (event.keyCode === 13 && event.target.tagName === 'INPUT' && !Page.get('change').disabled)
            change();
    });
    Page.listen(Page.get('change'), 'click', change);
    Page.listen(Page.get('connect'), 'click', function () {
        var addresses = chosen().filter(function (device) {
            return device.state === 'free';
        }).map(function (device) { return device.ipaddress; });
        bridge.connect(JSON.stringify(addresses));
        search();
        if (Page.get('connect').disabled)
            list.focus(); // a button that is off has it no longer
    });
    Page.listen(Page.get('again'), 'click', search);
    Page.listen(Page.get('close'), 'click', function () { bridge.accept(); });

    var isFound = take(bridge.getSearchResults());
    draw();
    if (!isFound)
        Page.tellFailure('state', 'The search failed. Search again.');
    if (result.devices.length > 0)
        list.focus();
    else
        Page.get('again').focus();
    return function () { };
});
