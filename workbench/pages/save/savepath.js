'use strict';

// The path that a save takes, as the composer hands it out: its parts in their order, each with a
// line of its own kind, which a legend names, and what is to be said about them.
var SavePath = function (band) {
    var LongestPath = 245;
    var partNames = { base: 'Folder', group: 'Group directory', sub: 'Sub directory',
        file: 'File name' };

    // The legend has no gaps to fill: a blank in the path is one of its own.
    function piece(kind, text, label) {
        var element = Page.make('span', 'piece ' + kind, text);
        element.dataset.kind = kind;
        element.dataset.label = Page.translate(label);
        element.title = element.dataset.label;
        return element;
    }

    function joint(text) {
        return Page.make('span', 'joint', text);
    }

    function drawLegend() {
        var legend = Page.get('legend');
        legend.textContent = '';
        Page.all('#path .piece').forEach(function (element) {
            var key = Page.make('span', 'key ' + element.dataset.kind, element.dataset.label);
            legend.appendChild(key);
        });
    }

    // What a document adds to the name of its file: often its number alone.
    function additionLabel(text) {
        return /^(C\d+)?(H\d+)?(S\d+)?$/.test(text) ? 'Number' : 'Additions';
    }

    // A directory or the file: its name, number and time, or the whole where it has no parts.
    function pieces(part, name) {
        var found = [];
        var labels = { group: 'Group directory', sub: 'Sub directory', file: 'Name' };
        var all = [[part, name.name, labels[part]], [part + 'Number', name.number, additionLabel(name.number)],
            [part + 'Time', name.time, 'Time']];
        all.forEach(function (each) {
            if (each[1] === '')
                return;
            if (found.length > 0)
                found.push(joint('_'));
            found.push(piece(each[0], each[1], each[2]));
        });
        return found.length > 0 ? found : [piece(part, name.text, labels[part])];
    }

    function padded(number, digits) {
        var text = String(number);
        while (text.length < digits)
            text = '0' + text;
        return text;
    }

    function fillAll(text, values) {
        return Page.translate(text).split(/(%[1-9])/).map(function (part) {
            var at = /^%[1-9]$/.test(part) ? Number(part[1]) - 1 : -1;
            return at >= 0 ? String(values[at]) : part;
        }).join('');
    }

    // Which number comes next, and why.
    function numberReason(name) {
        var next = padded(name.next, name.digits);
        var passed = name.next - 1;
        var first = padded(1, name.digits);
        var last = padded(passed, name.digits);
        if (passed === 0)
            return fillAll('%1: none is taken yet', [next]);
        if (name.planned === 0) {
            return passed === 1 ? fillAll('%1: %2 exists', [next, first]) :
                fillAll('%1: %2 to %3 exist', [next, first, last]);
        }
        if (name.onDisk === 0) {
            return passed === 1 ? fillAll('%1: %2 is taken by this save', [next, first]) :
                fillAll('%1: %2 to %3 are taken by this save', [next, first, last]);
        }
        return fillAll('%1: of %2 to %3 exist %4, and this save takes the others',
            [next, first, last, name.onDisk]);
    }

    function refusal(record) {
        switch (record.refusal) {
        case 'name':
            return Page.translate('The file has no name.');
        case 'path':
            return fillAll('The path has %1 characters. %2 are the most that a save takes.',
                [record.length, LongestPath]);
        case 'thumbnail':
            return fillAll('The path of the small picture has %1 characters. %2 are the most ' +
                'that a save takes.', [record.thumbnail.length, LongestPath]);
        }
        return '';
    }

    function warning(each) {
        var part = Page.translate(partNames[each.part]);
        switch (each.kind) {
        case 'noFolder':
            return Page.translate('No folder is chosen.');
        case 'missingFolder':
            return Page.translate('The folder does not exist.');
        case 'exists':
            return fillAll('A file with the name %1 exists already.', [each.detail]);
        case 'blank':
            return fillAll('%1: the name begins or ends with a blank.', [part]);
        case 'dot':
            return fillAll('%1: the name ends with a dot.', [part]);
        case 'time':
            return fillAll('%1: the time brings %2 into the name.',
                [part, each.detail.split('').join(' ')]);
        case 'forbidden':
            return fillAll('%1: %2', [part, SavePath.reason(each.detail)]);
        case 'bytes':
            return fillAll('%1: the name has more than 255 bytes.', [part]);
        case 'volume':
            return '';
        }
        return each.kind;
    }

    function showLines(id, lines) {
        var element = Page.get(id);
        var texts = lines.filter(function (text) { return text !== ''; });
        element.textContent = '';
        element.hidden = texts.length === 0;
        texts.forEach(function (text) { element.appendChild(Page.make('p', '', text)); });
    }

    function draw(record) {
        band.textContent = '';
        var base = record.base;
        if (base !== '')
            band.appendChild(piece('base', base, 'Folder'));
        ['group', 'sub'].forEach(function (part) {
            if (record[part].text === '')
                return;
            pieces(part, record[part]).forEach(function (each) { band.appendChild(each); });
            band.appendChild(joint('/'));
        });
        if (record.file.text !== '')
            pieces('file', record.file).forEach(function (each) { band.appendChild(each); });
        band.dataset.path = record.path;
        drawLegend();

        var reasons = ['group', 'sub', 'file'].filter(function (part) {
            return record[part].next > 0;
        }).map(function (part) {
            return Page.translate(partNames[part]) + ' ' + numberReason(record[part]);
        });
        if (record.isGroupFixed)
            reasons.unshift(Page.translate('The first target gives all its group directory.'));
        reasons.push(record.length > 0 ?
            fillAll('%1 of %2 characters', [record.length, LongestPath]) : '');
        showLines('reasons', reasons);
        showLines('warnings', record.warnings.map(warning));
        showLines('refusal', [refusal(record)]);
    }

    return {
        draw: draw,
        // Nothing could be asked.
        clear: function () {
            band.textContent = '';
            drawLegend();
            ['reasons', 'warnings', 'refusal'].forEach(function (id) { showLines(id, []); });
        }
    };
};

// Why a name with these characters, or of these dots, is refused.
SavePath.reason = function (forbidden) {
    if (forbidden === '.' || forbidden === '..')
        return Page.fill('%1 is no name.', forbidden);
    var names = { '\t': Page.translate('tab'), '\n': Page.translate('line feed') };
    return Page.fill('A name cannot hold %1', forbidden.split('').map(function (letter) {
        return names[letter] || letter;
    }).join(' '));
};
