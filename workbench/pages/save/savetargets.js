'use strict';

// What can be saved: a list of partitions of which several may be chosen, one of them shown with
// its picture. `changed` is called when another one is shown or others are chosen.
var SaveTargets = function (page, changed) {
    var bridge = Page.bridge;
    var saveFile = window.savefile;
    var all = [];    // the rows as the application tells them
    var byId = {};
    var counts = {}; // partitions by document
    var shown = null;
    var isFilled = false;

    var told = null; // the rows' text

    function idOf(row) {
        return 'target-' + row.dockey + '-' + row.partitionno;
    }

    function rowOf(element) {
        return byId[element.id];
    }

    function chosen() {
        return list.chosen().map(rowOf);
    }

    function nameOf(row) {
        return row.cameraname || row.filename || row.devicename || '';
    }

    function title(row) {
        var name = nameOf(row);
        return row.partitionno === '1' && counts[row.dockey] === 1 ? name :
            name + ' \u00b7 ' + Page.fill('Partition %1', row.partitionno);
    }

    function facts(row) {
        var frames = row.saveframes && row.saveframes !== row.totalframes ?
            row.saveframes + ' / ' + row.totalframes : row.totalframes;
        return [Page.fill('%1 frames', frames), row.resolution, row.recordrate,
            row.capacitylabel].filter(function (text) { return text; }).join(' \u00b7 ');
    }

    function tellCount() {
        var rows = chosen();
        if (typeof bridge.exportDocCount === 'function')
            bridge.exportDocCount(new Set(rows.map(function (row) { return row.dockey; })).size);
        Page.get('count').textContent = all.length === 0 ? '' :
            Page.fill('%1 chosen', rows.length);
    }

    function drawPicture(data) {
        var picture = Page.get('preview');
        picture.hidden = data === '';
        if (data !== '')
            picture.src = 'data:image/png;base64,' + data;
        Page.tell('noPreview', 'empty', data !== '' ? '' : Page.translate(
            bridge.isLiveMode() ? 'Live pictures are not shown here.' : 'No picture to show.'));
    }

    // The picture of the target that is shown, never larger than its place.
    function preview() {
        if (!shown) {
            drawPicture('');
            return;
        }
        var frame = Page.get('frame');
        var scale = window.devicePixelRatio || 1;
        drawPicture(bridge.select(shown.dockey, Number(shown.partitionno),
            Math.floor(frame.clientWidth * scale), Math.floor(frame.clientHeight * scale)));
    }

    function show(row) {
        shown = row;
        var rows = chosen();
        var at = rows.indexOf(row);
        Page.get('shown').textContent = !row ? '' : rows.length < 2 ? title(row) :
            [at + 1, '/', rows.length, title(row)].join(' ');
        Page.get('previousTarget').disabled = at <= 0;
        Page.get('nextTarget').disabled = at < 0 || at === rows.length - 1;
        ['previousFrame', 'nextFrame'].forEach(function (id) {
            Page.get(id).disabled = !row || bridge.isLiveMode();
        });
        all.forEach(function (each) {
            var element = Page.get(idOf(each));
            if (element)
                element.setAttribute('aria-current', String(each === row));
        });
        preview();
    }

    function choose() {
        tellCount();
        var rows = chosen();
        var last = rowOf(document.activeElement);
        show(rows.indexOf(last) >= 0 ? last : rows[0] || null);
        changed();
    }

    function emptyText() {
        if (page.emptyText)
            return page.emptyText;
        var status = JSON.parse(bridge.getControlStatus());
        if (status.IsNoneDocument)
            return 'No camera is connected, and no recording is open.';
        return bridge.isLiveMode() ? 'Nothing is recorded yet.' :
            'There is nothing to save: no partition has frames.';
    }

    function go(step) {
        var rows = chosen();
        show(rows[rows.indexOf(shown) + step]);
        changed();
    }

    function makeRow(row) {
        var element = Page.make('li', 'target', '');
        element.id = idOf(row);
        element.appendChild(Page.make('span', 'name', title(row)));
        element.appendChild(Page.make('span', 'facts', facts(row)));
        if (row.style)
            element.appendChild(Page.make('span', 'unsaved', Page.translate('no saved copy')));
        element.title = [title(row), row.path].filter(function (text) { return text; }).join('\n');
        return element;
    }

    var list = Page.multiList(Page.get('targets'), choose);
    Page.listen(Page.get('previousTarget'), 'click', function () { go(-1); });
    Page.listen(Page.get('nextTarget'), 'click', function () { go(1); });
    [['previousFrame', 'prevPreivew'], ['nextFrame', 'nextPreivew']].forEach(function (each) {
        var button = Page.get(each[0]);
        button.hidden = typeof bridge[each[1]] !== 'function';
        Page.listen(button, 'click', function () {
            bridge[each[1]](shown.dockey);
            preview();
        });
    });
    if (saveFile) {
        Page.connect(bridge.selectedDocCount, function (count) {
            saveFile.selectedDocCount(count);
        });
        Page.connect(bridge.selectedDocHeadCount, function (count) {
            saveFile.selectedDocHeadCount(count);
        });
    }

    return {
        // Lists what there is now. What was chosen stays chosen; at first that is what the
        // application has selected, or the first row.
        draw: function () {
            var text = bridge.list(page.isTemporary === true);
            if (text === told && all.length > 0) { // the rows stay, and with them the user's place
                tellCount();
                show(shown);
                return;
            }
            told = text;
            var before = new Set(list.chosen().map(function (element) { return element.id; }));
            var shownId = shown ? idOf(shown) : '';
            all = text === '' ? [] : JSON.parse(text);
            byId = {};
            counts = {};
            all.forEach(function (row) {
                byId[idOf(row)] = row;
                counts[row.dockey] = (counts[row.dockey] || 0) + 1;
            });
            var elements = all.map(makeRow);
            all.forEach(function (row, at) {
                list.mark(elements[at], isFilled ? before.has(idOf(row)) : row.selected === 'true');
            });
            if (all.length > 0 && !elements.some(function (element) {
                return element.getAttribute('aria-selected') === 'true';
            }))
                list.mark(elements[0], true);
            isFilled = all.length > 0;
            list.fill(elements);
            Page.tell('noTargets', 'empty', all.length > 0 ? '' : Page.translate(emptyText()));
            tellCount();
            var rows = chosen();
            show(rows.find(function (row) { return idOf(row) === shownId; }) || rows[0] || null);
        },
        chosen: chosen,
        shown: function () { return shown; },
        preview: preview,
        // The documents that it lists, [key, name] each.
        documents: function () {
            var seen = new Set();
            return all.filter(function (row) {
                return !seen.has(row.dockey) && seen.add(row.dockey);
            }).map(function (row) {
                return [Number(row.dockey),
                    nameOf(row) || Page.fill('Recording %1', row.dockey)];
            });
        },
        // The keys of the documents that are saved before the one that is shown.
        before: function () {
            var keys = [];
            chosen().some(function (row) {
                if (row.dockey === shown.dockey)
                    return true;
                if (keys.indexOf(row.dockey) < 0)
                    keys.push(row.dockey);
                return false;
            });
            return keys;
        }
    };
};
