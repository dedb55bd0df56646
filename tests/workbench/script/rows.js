'use strict';

var chosen = [];
var list;

// Rows of these texts, the given one is selected.
function fillRows(texts, selected) {
    list.fill(texts.map(function (text) {
        var row = Page.make('li', '', text);
        row.id = text.split(' ').join('');
        list.mark(row, text === selected);
        return row;
    }));
}

Page.start('rows', function () {
    list = Page.list(Page.get('rows'), function (row, event) {
        chosen.push((event.ctrlKey ? 'with control: ' : '') + row.id);
    });
    return function () { };
});
