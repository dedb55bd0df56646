'use strict';

Page.start('ethernet', function () {
    var bridge = Page.bridge;
    var fields = {
        add: ['cameraconnection/AddIPDefault', '192.168.0.10'],
        search: ['cameraconnection/SearchIP', '192.168.0.0']
    };
    var ids = Object.keys(fields);

    function isAddress(text) {
        var parts = text.split('.');
        return parts.length === 4 && parts.every(function (part) {
            return /^[0-9]{1,3}$/.test(part) && Number(part) <= 255;
        });
    }

    function check() {
        var good = true;
        ids.forEach(function (id) {
            var right = isAddress(Page.get(id).value);
            Page.get(id).classList[right ? 'remove' : 'add']('wrong');
            good = good && right;
        });
        Page.get('ok').disabled = !good;
        Page.tell('state', 'error', good ? '' :
            Page.translate('An address has four numbers from 0 to 255, such as 192.168.0.10.'));
    }

    ids.forEach(function (id) {
        Page.get(id).value = bridge.getPrefString(fields[id][0], fields[id][1]);
        Page.listen(Page.get(id), 'input', check);
    });
    Page.listen(Page.get('ok'), 'click', function () {
        ids.forEach(function (id) {
            bridge.setPrefString(fields[id][0], Page.get(id).value, false);
        });
        var isStored = ids.every(function (id) {
            return bridge.getPrefString(fields[id][0], fields[id][1]) === Page.get(id).value;
        });
        if (Page.tellStored('state', isStored))
            bridge.accept();
    });
    Page.listen(Page.get('cancel'), 'click', function () { bridge.reject(); });
    Page.get('add').select();
    return check;
});
