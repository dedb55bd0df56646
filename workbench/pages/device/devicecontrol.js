'use strict';

Page.start('devicecontrol', function () {
    var rows = Page.get('devices');
    var list = Page.multiList(rows, choose);
    var showInfo = Page.get('showInfo');
    var drawn = '';

    function isSelected(row) {
        return row.dataset.selected === 'true';
    }

    // What the user does at once is taken back at once.
    function asOneStep(change) {
        Page.bridge.beginMacro();
        try {
            change();
        } finally {
            Page.bridge.endMacro();
        }
    }

    // Groups follow their members, so a row that is chosen alone comes behind those that go.
    function choose(event) {
        var chosen = list.chosen();
        var alone = chosen.length === 1 && !event.ctrlKey && !event.shiftKey;
        var here = document.activeElement;
        var wanted = chosen.filter(function (row) { return alone || !isSelected(row); });
        wanted.sort(function (a, b) { return Number(a === here) - Number(b === here); });
        asOneStep(function () {
            Array.from(rows.children).forEach(function (row) {
                if (isSelected(row) && chosen.indexOf(row) < 0)
                    Page.bridge.unselectDoc(row.dataset.key);
            });
            wanted.forEach(function (row) { Page.bridge.selectDoc(row.dataset.key); });
        });
        Page.bridge.updateUI();
        draw(true);
    }

    function makeRow(device) {
        var row = Page.make('li', '', device.cameraname);
        row.id = 'control-' + device.key;
        row.dataset.key = device.key;
        row.dataset.selected = String(device.selected !== '');
        list.mark(row, device.selected !== '');
        return row;
    }

    // `anew`: also where the devices are as they were, since the user has marked rows.
    function draw(anew) {
        var status = JSON.parse(Page.bridge.getControlStatus());
        var texts = Array.from(Page.bridge.getDeviceInfoList(false));
        if (anew || texts.join() !== drawn) {
            drawn = texts.join();
            list.fill(texts.map(function (text) { return makeRow(JSON.parse(text)); }));
        }
        Page.tell('state', 'empty', texts.length > 0 ? '' : Page.translate(
            'There is no camera to select.'));
        Page.get('current').textContent = Page.bridge.getCurrentWindowTitle() ||
            Page.translate('No current document');
        Page.get('dummy').hidden = !Page.bridge.isCurrentDummy();
        showInfo.checked = Page.bridge.isDisplayInfoShowing();
        Page.get('undo').disabled = status.IsNotUndo;
        Page.get('redo').disabled = status.IsNotRedo;
        Page.get('viewAll').disabled = status.IsNoneDocument;
        ['editInfo', 'editComment', 'editCustom'].forEach(function (id) {
            Page.get(id).disabled = status.IsNoneDocument || status.IsModalDialogOpening;
        });
    }

    ['undo', 'redo', 'viewAll', 'editInfo', 'editComment', 'editCustom'].forEach(function (id) {
        Page.listen(Page.get(id), 'click', function () {
            Page.bridge[id]();
            Page.bridge.updateUI();
        });
    });
    Page.listen(showInfo, 'change', function () {
        var wanted = showInfo.checked;
        Page.bridge.setDisplayInfoShowing(wanted);
        Page.bridge.updateUI();
        showInfo.checked = Page.bridge.isDisplayInfoShowing();
    });

    return function () { draw(false); };
});
