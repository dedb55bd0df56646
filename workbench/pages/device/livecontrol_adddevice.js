'use strict';

Page.start('adddevice', function () {
    var bridge = Page.bridge;
    var name = Page.get('name');
    var address = Page.get('address');
    var dummy = Page.get('dummy');
    var text = bridge.getAddDeviceDialogSettings();
    var defaults = text === '' ? null : JSON.parse(text);
    var typedAddress = defaults ? defaults.DefaultIPAddress : '';
    var isAdded = false;

    // What keeps a camera from being added.
    function fault() {
        var isGood = /^[0-9]{1,3}(\.[0-9]{1,3}){3}/.test(address.value);
        var ofName = Address.nameFault(name.value);
        Address.mark(name, ofName !== '');
        Address.mark(address, !isGood);
        return ofName || (isGood ? '' : Page.fill('This is no address: %1', address.value));
    }

    // What the user is told of one that can be added.
    function hint() {
        if (!dummy.checked && !Address.isAddress(address.value))
            return Page.fill('No camera can be found under %1.', address.value);
        return noNames;
    }

    function check() {
        var what = fault();
        Page.get('ok').disabled = what !== '';
        Page.tell('state', what ? 'error' : 'empty', what || hint());
        Page.get('state').title = what || hint();
    }

    function add() {
        bridge.ok(name.value, address.value, dummy.checked);
        if (!isAdded)
            Page.tellFailure('state', 'The camera could not be added.');
    }

    function isFileMissing() {
        return bridge.getPrefBool('usercustom/completeCameraNames') &&
            bridge.getPrefString('usercustom/cameraNameFilePath') !== '';
    }

    name.value = defaults ? defaults.DefaultCameraName : '';
    address.value = typedAddress;
    var names = window.adddeviceAutoCameraName;
    var count = CameraNames.attach(name, names, check);
    var noNames = count === 0 && isFileMissing() ?
        Page.translate('The file of camera names has none that can be read.') : '';

    Page.listen(name, 'input', check);
    Page.listen(address, 'input', function () {
        typedAddress = address.value;
        check();
    });
    Page.listen(dummy, 'change', function () {
        address.readOnly = dummy.checked;
        address.value = dummy.checked && defaults ? defaults.DefaultDummyIPAddress : typedAddress;
        check();
    });
    [name, address].forEach(function (field) {
        Page.listen(field, 'keydown', function (event) {
            if (event.keyCode === 13 && !Page.get('ok').disabled)
                Page.get('ok').click();
        });
    });
    Page.connect(bridge.accept, function () { isAdded = true; });
    Page.listen(Page.get('ok'), 'click', add);
    Page.listen(Page.get('cancel'), 'click', function () { bridge.cancel(); });
    name.focus();
    name.select();
    check();
    if (!defaults) {
        dummy.disabled = true; // without a free address
        Page.tellFailure('state', 'What a new camera begins with could not be read.');
    }
    return function () { };
});
