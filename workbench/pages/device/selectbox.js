'use strict';

Page.start('items', function () {
    var items = Page.bridge;
    var list = Page.get('list');

    function rowOf(element) {
        while (element !== list && element.tagName !== 'LI')
            element = element.parentNode;
        return element === list ? null : element;
    }

    // Shows entries with a value and a text; `choose` gets the value.
    function fill(entries, current, choose) {
        list.textContent = '';
        entries.forEach(function (entry) {
            var row = Page.make('li', '', entry.text);
            row.id = 'row-' + entry.value;
            row.tabIndex = 0;
            row.setAttribute('role', 'option');
            row.setAttribute('aria-selected', String(String(entry.value) === current));
            row.choose = function () { choose(String(entry.value)); };
            list.appendChild(row);
        });
        var first = list.querySelector('[aria-selected=true]') || list.firstChild;
        if (first)
            first.focus();
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

    Page.listen(list, 'click', function (event) {
        var row = rowOf(event.target);
        if (row)
            row.choose();
    });
    Page.listen(list, 'keydown', function (event) {
        var row = rowOf(event.target);
        var next = row && (event.keyCode === 38 ? row.previousSibling :
            event.keyCode === 40 ? row.nextSibling : null);
        if (row && (event.keyCode === 13 || event.keyCode === 32))
            row.choose();
        else if (next)
            next.focus();
        else
            return;
        event.preventDefault();
    });

    return function () { };
});
