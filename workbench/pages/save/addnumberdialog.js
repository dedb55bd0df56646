'use strict';

Page.start('addnumberdialog', function () {
    var bridge = Page.bridge;
    var MostDigits = 9; // that are offered; more are kept where they are set
    var Parts = ['camera', 'head', 'session'];
    var InFileMode = bridge.isFileMode();

    // By the target kind: what the settings of its level begin with, which parts have digits, and
    // whether those of camera and head can follow from what there is.
    function level(prefix, parts, hasAuto) {
        return { prefix: prefix, parts: parts, hasAuto: hasAuto };
    }
    var Levels = {
        0: level('export/groupdir', Parts, true),
        1: level('export/subdir', Parts, true),
        2: level('export/filename', Parts, true),
        3: level('convert/groupdir', Parts, true),
        4: level('convert/subdir', Parts, true),
        5: level('convert/filename', Parts, true),
        6: level('snap/groupdir', Parts, true),
        7: level('snap/subdir', Parts, true),
        8: level('snap/filename', Parts, true),
        10: level('report/subdir', ['session'], false),
        11: level('report/filename', ['session'], false),
        13: level('export/kv/dataname', Parts, false),
        15: level('layout/subdir', Parts, true),
        16: level('layout/filename', Parts, true)
    };

    var target = Levels[bridge.getCallbackType()] || level('', [], false);
    // Files have no camera and no head; what they do not show they leave as it is.
    var parts = target.parts.filter(function (part) { return part === 'session' || !InFileMode; });
    var hasAuto = target.hasAuto && parts.length > 1;
    var needed = { camera: bridge.getAutoDeviceDigits(), head: bridge.getAutoHeadDigits() };

    function key(part) {
        return target.prefix + 'addnumber' + part + 'nodigits';
    }

    // The digits that the user chose, kept while they follow from what there is.
    function ownKey(part) {
        return target.prefix + 'addnumbermanual' + part + 'nodigits';
    }

    // A setting as text, '' when it could not be read: a number would be 0 then.
    function readText(settingKey) {
        return bridge.getPrefString(settingKey);
    }

    function numberIn(text) {
        return /^-?[0-9]+$/.test(text) ? Number(text) : null;
    }

    function follows(part) {
        return isAuto && part !== 'session';
    }

    var formatKey = target.prefix + 'addnumberformat';
    var format = hasAuto ? readText(formatKey) : '';
    var isAuto = format === 'auto';
    var isFormatChosen = false;
    var own = {};           // null: could not be read, and stays as it is
    var chosen = new Set(); // parts whose digits the user has chosen
    parts.forEach(function (part) {
        var count = numberIn(readText(follows(part) ? ownKey(part) : key(part)));
        own[part] = count === null ? null : Math.max(0, count);
    });

    // null: not known.
    function digits(part) {
        if (parts.indexOf(part) < 0)
            return 0;
        return follows(part) ? needed[part] : own[part];
    }

    function isUnknown(part) {
        return digits(part) === null;
    }

    function choiceText(count) {
        return count === null ? Page.translate('Not readable') :
            count === 0 ? Page.translate('None') :
            count === 1 ? Page.translate('1 digit') : Page.fill('%1 digits', count);
    }

    function valueOf(count) {
        return count === null ? '' : String(count);
    }

    function offer(list, count) {
        if (list.querySelector('option[value="' + valueOf(count) + '"]'))
            return;
        var option = Page.make('option', '', choiceText(count));
        option.value = valueOf(count);
        list.appendChild(option);
    }

    function hint(sample) {
        if (parts.some(isUnknown))
            return 'Digits that could not be read stay as they are.';
        if (sample === '')
            return 'The name gets no number.';
        if (digits('session') < 1)
            return 'Without a session number, nothing is done to avoid names that exist.';
        if (parts.indexOf('camera') < 0)
            return '';
        if (digits('camera') > 0 && digits('camera') < needed.camera)
            return 'Some of the selected cameras have longer numbers, which are written whole.';
        if (needed.head > 0 && digits('head') < 1)
            return 'Several heads are selected, which the number does not tell apart.';
        return '';
    }

    function draw() {
        Page.get('auto').checked = isAuto;
        parts.forEach(function (part) {
            var list = Page.get(part);
            offer(list, digits(part));
            Page.setChoice(list, valueOf(digits(part)));
            list.disabled = follows(part);
        });
        // A number is told whole or not at all.
        var sample = parts.some(isUnknown) ? '' :
            bridge.preview(digits('camera'), digits('head'), digits('session'));
        var text = hint(sample);
        Page.get('sample').textContent = sample;
        Page.get('hint').textContent = text && Page.translate(text);
    }

    // Of a format that may not have been read, the user's own digits are kept as they are stored.
    function isOwnKnown(part) {
        return own[part] !== null && (format !== '' || isFormatChosen || chosen.has(part));
    }

    // What is to be stored, with what is stored now; `before` is null when that cannot be read.
    function changes() {
        var all = [];
        function add(type, settingKey, value) {
            var text = readText(settingKey);
            all.push({ type: type, key: settingKey, value: value,
                before: type === 'Int' ? numberIn(text) : text === '' ? null : text });
        }
        parts.forEach(function (part) {
            if (!isUnknown(part))
                add('Int', key(part), digits(part));
            if (hasAuto && !isAuto && isOwnKnown(part))
                add('Int', ownKey(part), own[part]);
        });
        if (isAuto)
            add('String', formatKey, 'auto');
        else if (isFormatChosen || format !== '')
            add('String', formatKey, format === 'auto' || format === '' ? 'manual' : format);
        return all.filter(function (change) { return change.value !== change.before; });
    }

    // The views follow behind the last one.
    function store(change, value, isLast) {
        bridge['setPref' + change.type](change.key, value, isLast);
        return bridge['getPref' + change.type](change.key) === value;
    }

    // All of it is stored or nothing; what could not be read before cannot come back.
    function storeAll() {
        var all = changes();
        var stored = 0;
        while (stored < all.length &&
                store(all[stored], all[stored].value, stored === all.length - 1))
            ++stored;
        var isStored = stored === all.length;
        if (!isStored) {
            all.slice(0, stored).filter(function (change) {
                return change.before !== null;
            }).reverse().forEach(function (change, i, back) {
                store(change, change.before, i === back.length - 1);
            });
        }
        return Page.tellStored('state', isStored);
    }

    Parts.forEach(function (part) {
        Page.get(part + 'Field').hidden = parts.indexOf(part) < 0;
    });
    parts.forEach(function (part) {
        var list = Page.get(part);
        for (var count = 0; count <= MostDigits; ++count)
            offer(list, count);
        Page.listen(list, 'change', function () {
            own[part] = numberIn(list.value);
            chosen.add(part);
            draw();
        });
    });
    Page.get('autoChoice').hidden = !hasAuto;
    Page.listen(Page.get('auto'), 'change', function () {
        isAuto = Page.get('auto').checked;
        isFormatChosen = true;
        draw();
    });
    Page.listen(Page.get('cancel'), 'click', function () { bridge.reject(); });
    Page.listen(Page.get('ok'), 'click', function () {
        if (storeAll())
            bridge.accept();
    });

    if (parts.length === 0) {
        Page.tell('state', 'empty', Page.translate('This number has no digits that can be set.'));
        Page.get('ok').disabled = true;
        Page.get('cancel').focus();
        return function () { };
    }
    Page.get('digits').hidden = false;
    Page.get(hasAuto ? 'auto' : parts[0]).focus();
    return draw;
});
