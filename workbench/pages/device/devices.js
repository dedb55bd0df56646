'use strict';

Page.start('devicepanel', function () {
    var list = Page.list(Page.get('devices'), function (row) {
        Page.bridge.setSelectDoc(row.dataset.key);
    });
    var onlyConnected = Page.get('connectedOnly');
    var Marks = [
        ['isMissing', 'not found'], ['isDummy', 'dummy'], ['isMobile', 'mobile'],
        ['isWireless', 'wireless'], ['isConnected', 'wireless on'], ['isLinkSpeed', 'link speed'],
        ['isShutdown', 'can be shut down']
    ];
    // The values are class names as they stand.
    var Classes = ['selected', 'found', 'mobile', 'dummy', 'shutdown', 'sup-wifi', 'con-wifi',
        'sup-linkspeed'];
    var drawn = '';

    function makeRow(device) {
        var row = Page.make('li', 'device', '');
        row.id = 'device-' + device.key;
        row.dataset.key = device.key;
        Classes.forEach(function (name) {
            if (device[name] !== '')
                row.classList.add(device[name]);
        });
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

    Page.listen(Page.get('selectAll'), 'click', function () {
        Page.bridge.selectAllDocs();
    });
    Page.listen(onlyConnected, 'change', function () {
        var wanted = onlyConnected.checked;
        Page.bridge.setConnectedCameraShowing(wanted);
        Page.bridge.updateUI();
        if (Page.bridge.getConnectedCameraShowing() !== wanted)
            Page.tellStored('state', false);
    });

    return function () {
        var texts = Array.from(Page.bridge.getDeviceInfoList(true));
        var filtered = Page.bridge.getConnectedCameraShowing();
        onlyConnected.checked = filtered;
        Page.get('selectAll').disabled = texts.length === 0;
        if (texts.join() !== drawn) {
            drawn = texts.join();
            list.fill(texts.map(function (text) { return makeRow(JSON.parse(text)); }));
        }
        var hidden = filtered && Page.bridge.isLiveMode() &&
            Page.bridge.getDeviceInfoList(false).length > 0;
        Page.tell('state', 'empty', texts.length > 0 ? '' : Page.translate(hidden ?
            'No camera is connected. The others are hidden.' :
            'There is no camera. Cameras, Add camera brings one.'));
    };
});
