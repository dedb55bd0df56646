'use strict';

Page.start('editdevice', function () {
    var bridge = Page.bridge;
    var Kinds = ['Cable', 'Wireless']; // by their numbers
    var Facts = [['ModelName', 'Model'], ['DeviceSerialNumber', 'Serial number'],
        ['HeadName', 'Head'], ['HeadSerialNumber', 'Serial number of the head'],
        ['FWVer', 'Firmware']];
    var name = Page.get('name');
    var fields = ['address', 'mask', 'gateway'].map(Page.get);
    var isChanged = false;
    var settings = read();

    function read() {
        var text = bridge.getEditDeviceDialogSettings();
        return text === '' ? null : JSON.parse(text);
    }

    // Why the addresses cannot be changed now; empty when they can.
    function lock() {
        return settings.IsDummy ? 'A dummy has no network.' :
            settings.isMemoryMode ? 'Addresses can be changed in live mode.' : '';
    }

    function addressFault() {
        var texts = fields.map(function (field) { return field.value; });
        var wrong = fields.map(function (field, i) {
            return i === 1 ? !Address.isMask(texts[1]) :
                !(Address.isAddress(texts[i]) || (i === 2 && texts[2] === ''));
        });
        var at = lock() ? -1 : wrong.indexOf(true);
        var isOutside = !lock() && at < 0 && texts[2] !== '' &&
            !Address.isSameNetwork(texts[0], texts[2], texts[1]);
        fields.forEach(function (field, i) {
            Address.mark(field, i === at || (isOutside && i === 2));
        });
        if (at >= 0)
            return Page.fill(at === 1 ? 'This is no mask: %1' : 'This is no address: %1', texts[at]);
        return isOutside ? Page.translate('The gateway is not in the network of the camera.') : '';
    }

    function check() {
        var ofName = Address.nameFault(name.value);
        var ofAddress = addressFault();
        var what = ofName || ofAddress;
        Address.mark(name, ofName !== '');
        Page.get('ok').disabled = what !== '';
        Page.tell('state', what ? 'error' : 'empty', what || (lock() && Page.translate(lock())));
    }

    function showNetwork() {
        fields[0].value = settings.IPAddress;
        fields[1].value = settings.Subnetmask;
        fields[2].value = settings.DefaultGateway;
        fields.concat(Page.get('kind')).forEach(function (field) { field.disabled = lock() !== ''; });
    }

    function offerKinds() {
        var numbers = settings.IsSupportWifi ? [0, 1] : [0];
        if (numbers.indexOf(settings.EtherType) < 0)
            numbers.push(settings.EtherType);
        numbers.forEach(function (number) {
            var option = Page.make('option', '', Kinds[number] ? Page.translate(Kinds[number]) :
                Page.fill('Connection %1', number));
            option.value = number;
            Page.get('kind').appendChild(option);
        });
        Page.get('kindField').hidden = numbers.length < 2;
        Page.setChoice(Page.get('kind'), settings.EtherType);
    }

    function showFacts() {
        Facts.forEach(function (fact) {
            if (settings[fact[0]] === '')
                return;
            var row = Page.make('div', '', '');
            row.appendChild(Page.make('dt', '', Page.translate(fact[1])));
            row.appendChild(Page.make('dd', '', settings[fact[0]]));
            Page.get('facts').appendChild(row);
        });
    }

    Page.listen(Page.get('cancel'), 'click', function () { bridge.cancel(); });
    if (!settings || settings.ModelName === undefined) {
        Page.get('ok').disabled = true;
        Page.get('cancel').focus();
        if (settings)
            Page.tell('state', 'empty', Page.translate('There is no camera that could be edited.'));
        else
            Page.tellFailure('state', 'The camera could not be read.');
        return function () { };
    }

    Page.get('camera').hidden = false;
    name.value = settings.CameraName;
    offerKinds();
    showNetwork();
    showFacts();
    CameraNames.attach(name, window.editdeviceAutoCameraName, check);
    [name].concat(fields).forEach(function (field) {
        Page.listen(field, 'input', check);
        Page.listen(field, 'keydown', function (event) {
            if (event.keyCode === 13 && !Page.get('ok').disabled)
                Page.get('ok').click();
        });
    });
    // Each kind has addresses of its own; it is chosen at once.
    Page.listen(Page.get('kind'), 'change', function () {
        var wanted = Number(Page.get('kind').value);
        bridge.setEditEtherType(wanted);
        settings = read() || settings;
        Page.setChoice(Page.get('kind'), settings.EtherType);
        showNetwork();
        check();
        if (settings.EtherType !== wanted)
            Page.tellFailure('state', 'The connection could not be chosen.');
    });
    Page.connect(bridge.accept, function () { isChanged = true; });
    Page.listen(Page.get('ok'), 'click', function () {
        bridge.ok(name.value, fields[0].value, fields[1].value, fields[2].value);
        if (!isChanged)
            Page.tellFailure('state', 'The camera could not be changed.');
    });
    name.focus();
    name.select();
    check();
    return function () { };
});
