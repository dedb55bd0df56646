'use strict';

Page.start('items', function () {
    var items = Page.bridge;
    var choices = new Map();
    var list = Page.list(Page.get('list'), function (row) { choices.get(row)(); });

    // Shows entries with a value and a text; `choose` gets the value.
    function fill(entries, current, choose) {
        choices.clear();
        list.fill([]); // the box opens anew: the focus is not kept
        list.fill(entries.map(function (entry) {
            var row = Page.make('li', '', entry.text);
            row.id = 'row-' + entry.value;
            list.mark(row, String(entry.value) === current);
            choices.set(row, function () { choose(String(entry.value)); });
            return row;
        }));
        list.focus();
    }

    Page.connect(items.signalShowPartition, function (partitions) {
        fill(Array.from(partitions), String(items.getCurrentPartition()), function (value) {
            items.slotNotifyPartition(value);
        });
    });
    Page.connect(items.signalShowVariable, function (text) {
        fill(JSON.parse(text), '', function (value) { items.slotNotifyVariable(value); });
    });
    Page.connect(items.signalShowVariableRegist, function (variable) {
        fill([{ value: variable, text: Page.translate('Register') }], '', function (value) {
            items.slotNotifyVariableRegist(value);
        });
    });

    return function () { };
});
