'use strict';

Page.start('devicepanel', function () {
    var list = Page.get('devices');
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

    function rows() {
        return Page.all('.device');
    }

    function choose(row) {
        Page.bridge.userOperationLogWebView(location.href, 'clicked', 'Li', row.id, row.className,
            '');
        Page.bridge.setSelectDoc(row.dataset.key);
    }

    function makeRow(device) {
        var row = Page.make('li', 'device', '');
        row.id = 'device-' + device.key;
        row.dataset.key = device.key;
        row.tabIndex = 0;
        row.setAttribute('role', 'option');
        Classes.forEach(function (name) {
            if (device[name] !== '')
                row.classList.add(device[name]);
        });
        row.setAttribute('aria-selected', String(device.selected !== ''));
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

    Page.listen(list, 'click', function (event) {
        var row = event.target;
        while (row !== list && !row.classList.contains('device'))
            row = row.parentNode;
        if (row !== list)
            choose(row);
    });
    Page.listen(list, 'keydown', function (event) {
        var all = rows();
        var at = all.indexOf(event.target);
        var next = null;
        if (event.keyCode === 13 || event.keyCode === 32)
            choose(event.target);
        else if (event.keyCode === 38)
            next = all[at - 1];
        else if (event.keyCode === 40)
            next = all[at + 1];
        else
            return;
        event.preventDefault();
        if (next)
            next.focus();
    });
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
            // The row that had the focus keeps it.
            var focused = document.activeElement ? document.activeElement.id : '';
            var top = list.scrollTop;
            list.textContent = '';
            texts.forEach(function (text) {
                list.appendChild(makeRow(JSON.parse(text)));
            });
            list.scrollTop = top;
            if (focused.indexOf('device-') === 0 && Page.get(focused))
                Page.get(focused).focus();
        }
        var hidden = filtered && Page.bridge.isLiveMode() &&
            Page.bridge.getDeviceInfoList(false).length > 0;
        Page.tell('state', 'empty', texts.length > 0 ? '' : Page.translate(hidden ?
            'No camera is connected. The others are hidden.' :
            'There is no camera. Cameras, Add camera brings one.'));
    };
});
