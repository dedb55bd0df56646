'use strict';

Page.start('timecode_custom_mediator', function () {
    var bridge = Page.bridge;
    var MostDecimals = 9;
    var isRead = false; // the user's own settings are shown, or defaults that he asked for

    // By the id of each control, what of the time code it shows: a get... and a set... of the dialog.
    var fields = {
        oneFrame: 'TimeCodeOneFrame',
        unit: 'TimeCodeDisplayUnit',
        start: 'TimeCodeStartValue',
        resetValue: 'TimeCodeResetValue'
    };
    var lists = {
        scope: 'TimeCodeScopeDisplayIndex',
        decimals: 'TimeCodeDecimalPlaceIndex',
        resetUnit: 'TimeCodeResetUnitIndex'
    };
    var boxes = {
        divide: 'TimeCodeDecimalDivide',
        reset: 'TimeCodeReset',
        usingRih: 'TimeCodeUsingRihFileInfo',
        overWrite: 'TimeCodeOverWrite',
        realTime: 'TimeCodeRealTime'
    };

    function get(name) {
        return bridge['get' + name]();
    }

    function set(name, value) {
        bridge['set' + name](value, true);
    }

    function enable(ids, isEnabled) {
        ids.forEach(function (id) { Page.get(id).disabled = !isEnabled; });
    }

    function drawSample() {
        Page.get('sample').textContent = get('TimeCodeSample');
    }

    function draw() {
        var isTime = get('TimeCodeIndex') === 0;
        Page.get('time').checked = isTime;
        Page.get('scale').checked = !isTime;
        Object.keys(fields).forEach(function (id) { Page.get(id).value = get(fields[id]); });
        Object.keys(lists).forEach(function (id) { Page.setChoice(Page.get(id), get(lists[id])); });
        Object.keys(boxes).forEach(function (id) { Page.get(id).checked = get(boxes[id]); });
        enable(['scope', 'decimals', 'divide'], isTime);
        enable(['oneFrame', 'unit', 'start', 'reset'], !isTime);
        enable(['resetValue', 'resetUnit'], !isTime && get('TimeCodeReset'));
        Page.get('timeOptions').classList[isTime ? 'remove' : 'add']('off');
        Page.get('scaleOptions').classList[isTime ? 'add' : 'remove']('off');
        drawSample();
    }

    // Settings that could not be read stay told.
    function tell(text) {
        if (isRead)
            Page.tell('state', 'empty', text);
    }

    // A number that has become another one: one that the scale never reaches, or no number at all.
    function tellSnapped(typed, shown) {
        var text = Page.translate('%1 has become %2.').split(/(%[12])/).map(function (part) {
            return part === '%1' ? typed : part === '%2' ? shown : part;
        }).join('');
        tell(Number(typed) === Number(shown) ? '' : text);
    }

    for (var places = 1; places <= MostDecimals; ++places) {
        var option = Page.make('option', '', String(places));
        option.value = places;
        Page.get('decimals').appendChild(option);
    }

    ['time', 'scale'].forEach(function (id) {
        Page.listen(Page.get(id), 'change', function () {
            set('TimeCodeIndex', Number(Page.get(id).value));
            draw();
            tell('');
        });
    });
    // While the user types the field is his; what has become of it is shown when it is left.
    Object.keys(fields).forEach(function (id) {
        var field = Page.get(id);
        if (id !== 'resetValue') {
            Page.listen(field, 'input', function () {
                set(fields[id], field.value);
                drawSample();
            });
        }
        Page.listen(field, 'change', function () {
            var typed = field.value;
            set(fields[id], typed);
            draw();
            if (id !== 'unit')
                tellSnapped(typed, field.value);
        });
    });
    Object.keys(lists).forEach(function (id) {
        Page.listen(Page.get(id), 'change', function () {
            set(lists[id], Number(Page.get(id).value));
            draw();
            tell('');
        });
    });
    Object.keys(boxes).forEach(function (id) {
        Page.listen(Page.get(id), 'change', function () {
            set(boxes[id], Page.get(id).checked);
            draw();
            tell('');
        });
    });
    Page.listen(Page.get('defaults'), 'click', function () {
        bridge.reset();
        isRead = true;
        tell('');
        Page.get('ok').disabled = false;
        draw();
    });
    Page.listen(Page.get('ok'), 'click', function () { bridge.ok(); });
    Page.listen(Page.get('cancel'), 'click', function () { bridge.cancel(); });

    bridge.loadTimeCodeSetting();
    // Settings that have been read have a sample. Others would be stored in place of the user's own.
    isRead = get('TimeCodeSample') !== '';
    if (!isRead) {
        Page.tellFailure('state', 'The settings of the time code could not be read.');
        Page.get('ok').disabled = true;
    }
    return draw;
});
