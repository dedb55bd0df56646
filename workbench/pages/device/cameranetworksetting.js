'use strict';

Page.start('cameranetworksetting', function () {
    var bridge = Page.bridge;
    var All = 0;
    var OneSubnet = 1;
    var address = Page.get('address');

    function way() {
        return Page.get('subnet').checked ? OneSubnet : All;
    }

    function check() {
        var isOne = way() === OneSubnet;
        var isRight = !isOne || NetworkAddress.parts(address.value) !== null;
        address.disabled = !isOne;
        address.classList[isRight ? 'remove' : 'add']('wrong');
        Page.get('ok').disabled = !isRight;
        Page.tell('state', 'error', isRight ? '' :
            Page.translate('An address has four numbers from 0 to 255, such as 192.168.0.10.'));
    }

    // Only what was changed is written.
    function store() {
        if (bridge.getCameraSearchWay() !== way())
            bridge.setCameraSearchWay(way());
        if (!address.disabled && bridge.getCameraSearchIPAddress() !== address.value)
            bridge.setCameraSearchIPAddress(address.value);
        return bridge.getCameraSearchWay() === way() &&
            (address.disabled || bridge.getCameraSearchIPAddress() === address.value);
    }

    function accept() {
        if (Page.tellStored('state', store()))
            bridge.ok();
    }

    Page.get(bridge.getCameraSearchWay() === OneSubnet ? 'subnet' : 'all').checked = true;
    address.value = bridge.getCameraSearchIPAddress();
    ['all', 'subnet'].forEach(function (id) {
        Page.listen(Page.get(id), 'change', function () {
            check();
            if (id === 'subnet')
                address.select();
        });
    });
    Page.listen(address, 'input', check);
    Page.listen(address, 'keydown', function (event) {
        if (event.keyCode === 13 && !Page.get('ok').disabled)
            accept();
    });
    Page.listen(Page.get('ok'), 'click', accept);
    Page.listen(Page.get('cancel'), 'click', function () { bridge.cancel(); });
    check();
    Page.get(way() === OneSubnet ? 'subnet' : 'all').focus();
    return function () { };
});
