'use strict';

Page.start('preferences', function () {
    var bridge = Page.bridge;
    var sections = Page.all('section');

    function show(section) {
        sections.forEach(function (other) {
            other.hidden = other !== section;
            Page.get('tab-' + other.id).setAttribute('aria-selected', String(other === section));
        });
    }

    sections.forEach(function (section) {
        var tab = Page.make('button', '', Page.translate(section.dataset.page));
        tab.id = 'tab-' + section.id;
        tab.setAttribute('role', 'tab');
        Page.listen(tab, 'click', function () { show(section); });
        Page.get('tabs').appendChild(tab);
    });
    // The application names the page by its translated name, in any case of letters.
    var wanted = String(main.prefsPage || '').toLowerCase();
    show(sections.find(function (section) {
        return Page.translate(section.dataset.page).toLowerCase() === wanted;
    }) || sections[0]);

    // Storing draws the page anew, with what is stored now.
    function onChange(id, store, read) {
        Page.listen(Page.get(id), 'change', function () {
            var element = Page.get(id);
            var value = element.type === 'checkbox' ? element.checked : element.value;
            store(value);
            Page.tellStored('state', read() === value);
        });
    }
    ['styleLight', 'styleDark'].forEach(function (id) {
        onChange(id, function (value) { bridge.setStyle(value); },
            function () { return bridge.getStyle().toLowerCase(); });
    });
    ['unitsMetric', 'unitsImperial'].forEach(function (id) {
        onChange(id,
            function (value) { bridge.setPrefInt('customize/unitSystem', Number(value)); },
            function () { return String(bridge.getPrefInt('customize/unitSystem')); });
    });
    var switches = {
        realBitDepth: 'display/DisplayWithRealBitDepth',
        autoDownload: 'recording/AutoDownload',
        triggerTest: 'recording/useTriggerTest',
        completeNames: 'usercustom/completeCameraNames'
    };
    Object.keys(switches).forEach(function (id) {
        onChange(id, function (value) { bridge.setPrefBool(switches[id], value); },
            function () { return bridge.getPrefBool(switches[id]); });
    });
    var NamesFile = 'usercustom/cameraNameFilePath';
    onChange('namesFile', function (value) { bridge.setPrefString(NamesFile, value); },
        function () { return bridge.getPrefString(NamesFile); });
    Page.listen(Page.get('close'), 'click', function () { bridge.accept(); });

    return function () {
        var dark = bridge.getStyle().toLowerCase() === 'dark';
        Page.get('styleDark').checked = dark;
        Page.get('styleLight').checked = !dark;
        var metric = bridge.getPrefInt('customize/unitSystem') !== 0;
        Page.get('unitsMetric').checked = metric;
        Page.get('unitsImperial').checked = !metric;
        var list = Page.get('unitList');
        list.textContent = '';
        JSON.parse(bridge.getCalibrationUnits()).forEach(function (unit) {
            list.appendChild(Page.make('li', '', unit.value + ': ' + unit.view));
        });
        Object.keys(switches).forEach(function (id) {
            Page.get(id).checked = bridge.getPrefBool(switches[id]);
        });
        if (document.activeElement !== Page.get('namesFile')) // it may be in the middle of a path
            Page.get('namesFile').value = bridge.getPrefString(NamesFile);
        Page.get('triggerTest').disabled = !Page.get('autoDownload').checked;
        Page.get('range').textContent = Page.fill('The greatest value is %1 now.',
            bridge.getRangeMax());
    };
});
