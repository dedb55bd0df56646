'use strict';

Page.start('devicepanel', function () {
    var rows = Page.get('devices');
    var list = Page.multiList(rows, choose);
    var onlyConnected = Page.get('connectedOnly');
    var Marks = [
        ['isMissing', 'not found'], ['isDummy', 'dummy'], ['isMobile', 'mobile'],
        ['isMultiHead', 'several heads'], ['isWireless', 'wireless'],
        ['isConnected', 'wireless on'], ['isLinkSpeed', 'link speed'],
        ['isShutdown', 'can be shut down']
    ];
    // The values are class names as they stand.
    var Classes = ['selected', 'found', 'mobile', 'dummy', 'shutdown', 'sup-wifi', 'con-wifi',
        'sup-linkspeed'];
    var Delete = 46;
    var drawn = '';
    var heads = new Map(); // whether a key is that of one of several heads

    // Asked once for each device as it is, since each question stands in the log.
    function hasHeads(key) {
        if (!heads.has(key))
            heads.set(key, Page.bridge.isMultiHead(key));
        return heads.get(key);
    }

    function isSelected(row) {
        return row.classList.contains('ui-selected');
    }

    function selected() {
        return Array.from(rows.children).filter(isSelected);
    }

    // A row alone, or the rows that have come and gone; the one that the user is on becomes the
    // current one.
    function choose(event) {
        var chosen = list.chosen();
        if (chosen.length === 1 && !event.ctrlKey && !event.shiftKey) {
            Page.bridge.setSelectDoc(chosen[0].dataset.key);
        } else {
            selected().forEach(function (row) {
                if (chosen.indexOf(row) < 0)
                    Page.bridge.unselectDoc(row.dataset.key);
            });
            var here = document.activeElement;
            chosen.filter(function (row) { return row !== here; }).concat(
                chosen.filter(function (row) { return row === here; })).forEach(function (row) {
                if (!isSelected(row))
                    Page.bridge.selectDoc(row.dataset.key);
            });
            Page.bridge.updateUI();
        }
        draw(true);
    }

    function remove(keys) {
        keys.forEach(function (key) { Page.bridge.deleteDoc(key); });
        Page.bridge.updateUI();
        draw(false);
    }

    function makeRow(device) {
        var row = Page.make('li', 'device', '');
        row.id = 'device-' + device.key;
        row.dataset.key = device.key;
        Classes.forEach(function (name) {
            if (device[name] !== '')
                row.classList.add(device[name]);
        });
        if (hasHeads(device.key))
            row.classList.add('multihead');
        list.mark(row, device.selected !== '');
        row.appendChild(Page.make('div', 'name', device.cameraname));
        row.appendChild(Page.make('div', 'about', device.devicename + ', ' + device.ipaddress +
            ', ' + Page.fill('head %1', device.headno)));
        var marks = Page.make('div', 'marks', '');
        Marks.forEach(function (mark) {
            marks.appendChild(Page.make('span', mark[0], Page.translate(mark[1])));
        });
        row.appendChild(marks);
        return row;
    }

    // `anew`: also where the devices are as they were, since the user has marked rows.
    function draw(anew) {
        var texts = Array.from(Page.bridge.getDeviceInfoList(true));
        var filtered = Page.bridge.getConnectedCameraShowing();
        onlyConnected.checked = filtered;
        if (texts.join() !== drawn)
            heads.clear(); // a camera may turn out to have several
        if (anew || texts.join() !== drawn) {
            drawn = texts.join();
            list.fill(texts.map(function (text) { return makeRow(JSON.parse(text)); }));
        }
        ['selectAll', 'removeAll'].forEach(function (id) {
            Page.get(id).disabled = texts.length === 0;
        });
        ['selectNone', 'remove'].forEach(function (id) {
            Page.get(id).disabled = selected().length === 0;
        });
        var hidden = filtered && Page.bridge.isLiveMode() &&
            Page.bridge.getDeviceInfoList(false).length > 0;
        Page.tell('state', 'empty', texts.length > 0 ? '' : Page.translate(hidden ?
            'No camera is connected. The others are hidden.' :
            'There is no camera. Cameras, Add camera brings one.'));
    }

    Page.listen(Page.get('selectAll'), 'click', function () {
        Page.bridge.selectAllDocs();
    });
    Page.listen(Page.get('selectNone'), 'click', function () {
        Page.bridge.deleteAllDocs(true);
        Page.bridge.updateUI();
    });
    Page.listen(Page.get('add'), 'click', function () {
        Page.bridge.addDoc();
        Page.bridge.updateUI();
    });
    Page.listen(Page.get('remove'), 'click', function () {
        remove(selected().map(function (row) { return row.dataset.key; }));
    });
    Page.listen(Page.get('removeAll'), 'click', function () {
        if (!Page.bridge.confirm(Page.translate(
                'Do you want to remove all cameras and recordings from the list?')))
            return;
        Page.bridge.deleteAllDocs();
        Page.bridge.updateUI();
    });
    Page.listen(rows, 'keydown', function (event) {
        var row = event.target;
        if (event.keyCode !== Delete || row.parentNode !== rows)
            return;
        event.preventDefault();
        remove([row.dataset.key]);
    });
    Page.listen(onlyConnected, 'change', function () {
        var wanted = onlyConnected.checked;
        Page.bridge.setConnectedCameraShowing(wanted);
        Page.bridge.updateUI();
        if (Page.bridge.getConnectedCameraShowing() !== wanted)
            Page.tellStored('state', false);
    });

    return function () { draw(false); };
});
