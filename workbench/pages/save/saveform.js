'use strict';

// The settings of one kind of save as controls. `page` says which there are:
//   family: the prefix of its settings
//   hasGroup: whether it has a group directory
//   numberLevels: the levels whose number has digits
// `changed(isTyping)` is called when a setting has another value, `opened` when a dialog of the
// page has been closed.
var SaveForm = function (page, changed, opened) {
    var LargestKey = 2147483647; // that the setting of a document holds
    var bridge = Page.bridge;
    var saveFile = window.savefile;
    // { element, key, type, isName, isNameEnd, isPath, reason }, and of a list options(value): what it offers
    // while it has this value, [value, label] each.
    var controls = [];
    var dirty = new Set();
    var wrong = new Set();
    // The file's own folder counts where files are open, and in a conversion.
    var hasOriginalFolder = page.family === 'convert' || bridge.isFileMode();
    var samples = []; // functions that draw one
    var documents = []; // [key, name] of each
    var details = SaveDetails(key('filenameadddetails'), function (ids) {
        store(true);
        bridge.setPrefString(key('filenameadddetails'), ids);
        changed(false);
    });

    function key(suffix) {
        return page.family + '/' + suffix;
    }

    function element(tag, className, children) {
        var made = Page.make(tag, className, '');
        append(made, children);
        return made;
    }

    function read(control) {
        switch (control.type) {
        case 'bool': return bridge.getPrefBool(control.key);
        case 'int': return bridge.getPrefInt(control.key);
        }
        return bridge.getPrefString(control.key);
    }

    // While the user types nothing but the setting itself follows.
    function write(settingKey, type, value, isWhole) {
        switch (type) {
        case 'bool': bridge.setPrefBool(settingKey, value, isWhole); break;
        case 'int': bridge.setPrefInt(settingKey, value, isWhole); break;
        default: bridge.setPrefString(settingKey, value, isWhole);
        }
    }

    function shown(control) {
        return control.type === 'bool' ? control.element.checked :
            control.type === 'int' ? Number(control.element.value) : control.element.value;
    }

    function tellReason(control) {
        var text = control.element.value;
        // Behind a name even dots are one.
        var forbidden = control.isName ? window.savePreview.forbiddenInName(text) :
            control.isNameEnd ? window.savePreview.forbiddenInName('_' + text) :
            control.isPath ? window.savePreview.forbiddenInPath(text) : '';
        wrong[forbidden === '' ? 'delete' : 'add'](control);
        control.element.classList[forbidden === '' ? 'remove' : 'add']('wrong');
        control.element.setAttribute('aria-invalid', String(forbidden !== ''));
        if (control.reason) {
            control.reason.textContent = forbidden === '' ? '' : SavePath.reason(forbidden);
            control.reason.hidden = forbidden === '';
        }
        return forbidden === '';
    }

    // What the user has typed since; what is refused stays where it is.
    function store(isWhole) {
        dirty.forEach(function (control) {
            if (!wrong.has(control))
                write(control.key, control.type, shown(control), isWhole);
        });
        if (isWhole)
            dirty.clear();
    }

    function bind(control) {
        controls.push(control);
        if (control.type === 'bool' || control.type === 'int') {
            Page.listen(control.element, 'change', function () {
                store(false);
                write(control.key, control.type, shown(control), true);
                changed(false);
            });
            return;
        }
        Page.listen(control.element, 'input', function () {
            dirty.add(control);
            tellReason(control);
            changed(true);
        });
        Page.listen(control.element, 'change', function () {
            store(true);
            changed(false);
        });
    }

    function boxOf(id, settingKey, label) {
        var input = document.createElement('input');
        input.type = 'checkbox';
        input.id = id;
        bind({ element: input, key: settingKey, type: 'bool' });
        return element('label', 'choice',
            [input, Page.make('span', '', Page.translate(label))]);
    }

    function box(id, suffix, label) {
        return boxOf(id, key(suffix), label);
    }

    function text(id, suffix, label, kind) {
        var input = document.createElement('input');
        input.type = 'text';
        input.id = id;
        input.setAttribute('aria-label', Page.translate(label));
        var control = { element: input, key: key(suffix), type: 'string',
            isName: kind === 'name', isNameEnd: kind === 'nameEnd', isPath: kind === 'path' };
        if (kind) {
            control.reason = Page.make('p', 'reason', '');
            control.reason.id = id + 'Reason';
            control.reason.hidden = true;
            control.reason.setAttribute('role', 'alert');
            input.setAttribute('aria-describedby', control.reason.id);
        }
        bind(control);
        return control;
    }

    function caption(forId, label) {
        var made = Page.make('label', 'caption', Page.translate(label));
        made.htmlFor = forId;
        return made;
    }

    // A caption within a line.
    function beside(forId, label) {
        var made = caption(forId, label);
        made.className = 'beside';
        return made;
    }

    function button(id, label, action) {
        var made = Page.make('button', '', Page.translate(label));
        made.id = id;
        Page.listen(made, 'click', action);
        return made;
    }

    // Offers these in a list, which is made anew only for others.
    function offer(list, options) {
        var told = JSON.stringify(options);
        if (list.dataset.told === told)
            return;
        list.dataset.told = told;
        list.textContent = '';
        options.forEach(function (each) {
            var option = Page.make('option', '', each[1]);
            option.value = each[0];
            list.appendChild(option);
        });
    }

    // A list of numbers.
    function choice(id, suffix, label, options) {
        var list = document.createElement('select');
        list.id = id;
        list.setAttribute('aria-label', Page.translate(label));
        bind({ element: list, key: key(suffix), type: 'int', options: options });
        return list;
    }

    // What a format makes. `source` tells the format, where it can be typed.
    function sample(id, source, draw) {
        var made = Page.make('span', 'sample', '');
        var before = null;
        made.id = id;
        samples.push(function (isTyping) {
            var format = source ? source.value : before;
            if (isTyping && format === before)
                return;
            before = format;
            made.textContent = draw();
        });
        return made;
    }

    function append(section, children) {
        children.forEach(function (child) {
            if (child)
                section.appendChild(child);
        });
    }

    // A dialog of the application; what was typed is stored before it reads it.
    function open(action) {
        return function () {
            store(true);
            action();
            opened();
        };
    }

    // Digits that are not offered are kept where they are set.
    function digitOptions(count) {
        var counts = [0, 1, 2, 3, 4, 5, 6, 7, 8, 9];
        if (counts.indexOf(count) < 0)
            counts.push(count);
        return counts.map(function (each) { return [each, String(each)]; });
    }

    // "Number" with what it makes, and the dialog for its digits. A report has digits of its own,
    // and no dialog that sets them.
    function numberLine(id, level, name) {
        if (page.numberLevels.indexOf(level) < 0)
            return null;
        var line = element('div', 'line', [box(id + 'Number', level + 'addnumber', 'Number')]);
        line.appendChild(sample(id + 'NumberSample', null, function () {
            return saveFile['addNumber4' + name]();
        }));
        if (page.family === 'report') {
            var digits = choice(id + 'Digits', level + 'addnumbersessionnodigits', 'Digits',
                digitOptions);
            append(line, [caption(digits.id, 'Digits'), digits]);
        } else {
            line.appendChild(button(id + 'Digits', 'Digits...', open(function () {
                saveFile['numberSetting4' + name]();
            })));
        }
        return line;
    }

    function timeLine(id, level) {
        var format = text(id + 'TimeFormat', level + 'addtimeformat', 'Format of the time', '');
        format.element.classList.add('format');
        return element('div', 'line', [
            box(id + 'Time', level + 'addtime', 'Time'),
            format.element,
            sample(id + 'TimeSample', format.element, function () {
                return saveFile.addDateTime(format.element.value);
            })
        ]);
    }

    function folderLevel(id, level, name, label) {
        var section = Page.get(id);
        var own = text(id + 'Name', level + 'name', label, 'name');
        append(section, [
            box(id + 'Use', level, label),
            element('div', 'options', [
                element('div', 'line', [caption(own.element.id, 'Name'), own.element]),
                own.reason,
                element('div', 'line', [
                    box(id + 'AsFile', level + 'asfilename', 'As the file'),
                    box(id + 'WithOptions', level + 'asfilenameincludeoption',
                        'with its number and time')
                ]),
                numberLine(id, level, name),
                timeLine(id, level)
            ])
        ]);
    }

    // What a file is named after: of several settings the first one that is on holds.
    var sources = [
        { value: 'custom', label: 'Custom information', suffix: 'filenameusecustom' },
        { value: 'partition', label: 'Partition', suffix: 'filenameaspartitionname' },
        { value: 'original', label: 'Recording', suffix: 'filenameasoriginal' }
    ];

    function source() {
        var found = sources.find(function (each) {
            return !(each.value === 'partition' && bridge.isFileMode()) &&
                bridge.getPrefBool(key(each.suffix));
        });
        return found ? found.value : 'typed';
    }

    function sourceList() {
        var list = document.createElement('select');
        list.id = 'fileSource';
        var typed = Page.make('option', '', Page.translate('This name'));
        typed.value = 'typed';
        list.appendChild(typed);
        sources.slice().reverse().forEach(function (each) {
            if (each.value === 'partition' && bridge.isFileMode())
                return;
            var option = Page.make('option', '', Page.translate(each.label));
            option.value = each.value;
            list.appendChild(option);
        });
        Page.listen(list, 'change', function () {
            store(true);
            sources.forEach(function (each) {
                if (!(each.value === 'partition' && bridge.isFileMode()))
                    bridge.setPrefBool(key(each.suffix), each.value === list.value, false);
            });
            bridge.updateUI();
            changed(false);
        });
        return list;
    }

    function fileLevel() {
        var own = text('fileName', 'filename', 'File name', 'name');
        var behind = text('fileText', 'filenameaddtextvalue', 'Text behind the name', '');
        var connect = text('fileDetailsConnect', 'filenameadddetailsconnect',
            'Text before each item of information', '');
        var testNumber = Page.make('p', 'hint', Page.translate(
            'The test number names the file, not what is set here.'));
        connect.element.classList.add('short');
        testNumber.id = 'testNumber';
        append(Page.get('file'), [
            Page.make('h2', '', Page.translate('File name')),
            testNumber,
            element('div', 'options', [
                element('div', 'line', [caption('fileSource', 'From'), sourceList(), own.element]),
                own.reason,
                boxOf('fileBlank', 'save/EnableBlankFilename', 'A file may have no name')
            ].concat(customLines(), [
                element('div', 'line', [caption('fileText', 'Suffix'), behind.element]),
                numberLine('file', 'filename', 'FileName'),
                element('div', 'line', [
                    box('fileDetails', 'filenameadddetail', 'Information'),
                    beside(connect.element.id, 'joined by'), connect.element]),
                details.element,
                timeLine('file', 'filename')
            ]))
        ]);
    }

    // The recordings whose custom information can name the file. One that has gone stays chosen.
    function documentOptions(chosen) {
        var options = [[Math.min(chosen, -1), Page.translate('No recording is chosen')]]
            .concat(documents);
        if (!options.some(function (each) { return each[0] === chosen; }))
            options.push([chosen, Page.fill('Recording %1, not a target now', chosen)]);
        return options;
    }

    function customLines() {
        return [
            element('div', 'line custom', [
                box('fileUnit', 'filenameusecustomincludeunit', 'with units'),
                button('custom', 'Custom information...', open(function () {
                    saveFile.editCustom(page.isTemporary === true);
                }))
            ]),
            element('div', 'line custom', [
                box('fileOther', 'filenameusecustomfromtarget', 'of another recording'),
                choice('fileOtherKey', 'filenameusecustomfromtargetkey',
                    'Recording whose custom information names the file', documentOptions)
            ])
        ];
    }

    // A save of files with an information file is named by the number of the test alone.
    function isNamedByTest() {
        return ['export', 'convert'].indexOf(page.family) >= 0 &&
            bridge.getPrefString('export/media') === 'file' &&
            bridge.getPrefBool('save/SaveInfFile') && bridge.getPrefBool(key('saveinf'));
    }

    // The end of the name of the small picture, which has the name of its file before it.
    function thumbnailLines() {
        var end = text('thumbnailText', 'savethumbnailaddtextvalue',
            'Text behind the name of the small picture', 'nameEnd');
        return element('div', 'inner', [
            element('div', 'line', [beside('thumbnailText', 'Text behind its name'), end.element]),
            end.reason]);
    }

    function folderLine() {
        var folder = text('folder', 'dir', 'Folder', 'path');
        var base = Page.get('base');
        [
            element('div', 'line', [
                caption('folder', 'Folder'),
                folder.element,
                button('chooseFolder', 'Choose...', function () {
                    store(true);
                    var chosen = saveFile.selectFolder(folder.element.value);
                    if (chosen === '')
                        return;
                    bridge.setPrefString(folder.key, chosen);
                    opened();
                })
            ]),
            folder.reason,
            hasOriginalFolder ?
                box('asOriginal', 'dirasoriginal', 'The folder that the file is in') : null
        ].forEach(function (child) {
            if (child)
                base.insertBefore(child, Page.get('space'));
        });
    }

    function isOn(id) {
        return Page.get(id) !== null && Page.get(id).checked;
    }

    function enable(id, isEnabled) {
        var control = Page.get(id);
        if (control)
            control.disabled = !isEnabled;
    }

    function enableAll() {
        ['group', 'sub'].forEach(function (id) {
            var use = Page.get(id + 'Use');
            if (!use)
                return;
            var asFile = Page.get(id + 'AsFile').checked;
            Page.get(id).classList[use.checked ? 'remove' : 'add']('unused');
            ['AsFile', 'Number', 'Time'].forEach(function (name) {
                enable(id + name, use.checked);
            });
            enable(id + 'Name', use.checked && !asFile);
            enable(id + 'WithOptions', use.checked && asFile);
            enable(id + 'Digits', use.checked && isOn(id + 'Number'));
            enable(id + 'TimeFormat', use.checked && isOn(id + 'Time'));
        });
        var from = Page.get('fileSource').value;
        enable('fileName', from === 'typed');
        Page.all('.line.custom').forEach(function (line) { line.hidden = from !== 'custom'; });
        enable('fileOtherKey', isOn('fileOther'));
        enable('fileDigits', isOn('fileNumber'));
        enable('fileTimeFormat', isOn('fileTime'));
        enable('fileDetailsConnect', isOn('fileDetails'));
        enable('thumbnailText', isOn('savethumbnail'));
        if (hasOriginalFolder)
            enable('folder', !Page.get('asOriginal').checked);
        enable('chooseFolder', !Page.get('folder').disabled);
    }

    folderLine();
    if (page.hasGroup)
        folderLevel('group', 'groupdir', 'GroupDir', 'Group directory');
    Page.get('group').hidden = !page.hasGroup;
    folderLevel('sub', 'subdir', 'SubDir', 'Sub directory');
    fileLevel();

    return {
        // Shows the settings as they are; what the user is typing stays.
        draw: function () {
            controls.forEach(function (control) {
                if (dirty.has(control) || wrong.has(control))
                    return;
                var value = read(control);
                if (control.type === 'bool') {
                    control.element.checked = value;
                } else if (control.type === 'int') {
                    offer(control.element, control.options(value));
                    Page.setChoice(control.element, value);
                } else if (control.element.value !== value) {
                    control.element.value = value;
                }
            });
            Page.setChoice(Page.get('fileSource'), source());
            Page.get('testNumber').hidden = !isNamedByTest();
            details.draw(isOn('fileDetails'));
            enableAll();
        },
        // While the user types, those whose format is another one now.
        drawSamples: function (isTyping) {
            samples.forEach(function (draw) { draw(isTyping); });
        },
        // Offers these documents, [key, name] each; the next draw() shows them.
        offerDocuments: function (offered) {
            documents = offered.filter(function (each) { return each[0] <= LargestKey; });
        },
        enable: enableAll,
        store: store,
        isRefused: function () { return wrong.size > 0; },
        focusRefused: function () { wrong.values().next().value.element.focus(); },
        folder: function () { return Page.get('folder').value; },
        thumbnailLines: thumbnailLines,
        element: element,
        button: button,
        open: open
    };
};
