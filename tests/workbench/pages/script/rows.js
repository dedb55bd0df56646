'use strict';

var chosen = [];
var list;
var several;
var changes = 0;

// Rows of these texts, the given one is selected.
function fillRows(texts, selected) {
    list.fill(texts.map(function (text) {
        var row = Page.make('li', '', text);
        row.id = text.split(' ').join('');
        list.mark(row, text === selected);
        return row;
    }));
}

// Five rows of the list of which several may be chosen.
function fillSeveral() {
    several.fill(['a', 'b', 'c', 'd', 'e'].map(function (text) {
        var row = Page.make('li', '', text);
        row.id = text;
        several.mark(row, false);
        return row;
    }));
}

Page.start('rows', function () {
    list = Page.list(Page.get('rows'), function (row, event) {
        chosen.push((event.ctrlKey ? 'with control: ' : '') + row.id);
    });
    several = Page.multiList(Page.get('several'), function () { ++changes; });
    return function () { };
});
