'use strict';

// How many frames a save passes over. `changed` is called when the setting is another one.
var SaveSkip = function (targets, changed) {
    var bridge = Page.bridge;
    var field = Page.get('skip');
    var unit = Page.get('skipUnit');

    function rows() {
        var partitions = {};
        targets.chosen().forEach(function (row) {
            (partitions[row.dockey] = partitions[row.dockey] || []).push(Number(row.partitionno));
        });
        return partitions;
    }

    function draw() {
        Page.setChoice(unit, bridge.getSkipMode());
        if (document.activeElement !== field)
            field.value = bridge.getSkipFrames();
        Page.get('skipHint').textContent = bridge.getSkipMaxFrames() > 0 ?
            [Page.translate('From'), bridge.getSkipMinFrames(), Page.translate('to'),
                bridge.getSkipMaxFrames()].join(' ') : '';
    }

    Page.get('skipping').hidden = false;
    Page.listen(field, 'change', function () {
        var wanted = Number(field.value);
        var isNumber = field.value.trim() !== '' && isFinite(wanted) && wanted > 0;
        if (isNumber)
            bridge.setSkipFrames(wanted);
        field.value = bridge.getSkipFrames();
        Page.tell('skipState', 'error', isNumber ? '' :
            Page.translate('This is a number above 0.'));
        changed();
    });
    Page.listen(unit, 'change', function () {
        bridge.setSkipMode(Number(unit.value));
        bridge.refreshSkipFrame(rows());
        changed();
    });

    return {
        // Shows what holds for the targets that are chosen now.
        follow: function () {
            bridge.refreshSkipFrame(rows());
            draw();
        }
    };
};
