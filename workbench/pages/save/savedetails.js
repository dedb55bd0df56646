'use strict';

// The items of information that a file's name can have: a list of which several may be chosen. They
// stand in the name in the order in which they were chosen, which each row tells by a number. What
// is stored and not in the list keeps its place. `store` is called with the ids, joined as they are
// stored.
var SaveDetails = function (settingKey, store) {
    var bridge = Page.bridge;
    var ids = []; // as stored
    var rows = Page.make('ul', '', '');
    var hint = Page.make('p', 'hint', '');
    var state = Page.make('div', '', '');
    var element = Page.make('div', 'details', '');

    function isListed(id) {
        return Array.from(rows.children).some(function (row) { return row.dataset.detail === id; });
    }

    function makeRow(item) {
        var row = Page.make('li', '', '');
        row.id = 'detail-' + item.id.replace(/[^A-Za-z0-9]/g, '');
        row.dataset.detail = item.id;
        row.appendChild(Page.make('span', 'name', item.label));
        row.appendChild(Page.make('span', 'place', ''));
        return row;
    }

    function markRow(row) {
        var place = ids.indexOf(row.dataset.detail);
        list.mark(row, place >= 0);
        row.lastChild.textContent = place < 0 ? '' : String(place + 1);
    }

    // All that there are, once they can be read; the first one that is chosen is in sight.
    function fill() {
        var text = window.savePreview.nameDetails();
        Page.tell(state.id, 'error', text !== '' ? '' :
            Page.translate('The items of information could not be listed.'));
        if (text === '')
            return;
        var elements = JSON.parse(text).map(makeRow);
        elements.forEach(markRow);
        list.fill(elements);
        var first = list.chosen()[0];
        if (first && first.offsetTop + first.offsetHeight > rows.clientHeight)
            rows.scrollTop = first.offsetTop;
    }

    function drawHint() {
        var others = ids.filter(function (id) { return !isListed(id); });
        hint.textContent = Page.translate('Ctrl chooses several, one behind the other.') +
            (others.length === 0 ? '' : ' ' +
                Page.fill('Not in the list, and kept: %1', others.join(', ')));
        hint.hidden = rows.children.length === 0;
        rows.hidden = hint.hidden;
    }

    var list = Page.multiList(rows, function () {
        var chosen = list.chosen().map(function (row) { return row.dataset.detail; });
        var stay = ids.filter(function (id) { return chosen.indexOf(id) >= 0 || !isListed(id); });
        store(stay.concat(chosen.filter(function (id) {
            return stay.indexOf(id) < 0;
        })).join(','));
    });
    rows.id = 'fileDetailList';
    rows.setAttribute('aria-label', Page.translate('Information in the name'));
    hint.id = 'fileDetailHint';
    state.id = 'fileDetailState';
    state.hidden = true;
    [rows, hint, state].forEach(function (child) { element.appendChild(child); });

    return {
        element: element,
        draw: function (isUsed) {
            element.hidden = !isUsed;
            if (!isUsed)
                return;
            ids = bridge.getPrefString(settingKey).split(',').filter(function (id) {
                return id !== '';
            });
            rows.hidden = false;
            if (rows.children.length === 0)
                fill();
            else
                Array.from(rows.children).forEach(markRow);
            drawHint();
        }
    };
};
