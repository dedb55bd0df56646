'use strict';

Page.start('camerasettings', function () {
    var bridge = Page.bridge;
    var Modes = ['save', 'load', 'presets'];
    var Actions = { save: 'Save', load: 'Load', presets: 'Apply' };
    var Formats = ['yyyyMMdd_HHmmss', 'yyyy-MM-dd_HH-mm-ss', 'yyyyMMdd', 'HHmmss'];
    var LongestPath = 260;
    var MostNames = 4; // of cameras, which are counted where there are more
    var mode = Modes[bridge.getDialogMode()] || '';

    // What the name is made from: as it was, and as the user has it now. It is stored as it changes,
    // so that the name that is shown is made as that of the file is.
    var before = mode === 'save' ? bridge.recvFileNameDialogData() : '';
    var data = before === '' ? null : JSON.parse(before);
    var chosen = {}; // presets by the keys of their cameras, where the user has chosen one

    function store() {
        bridge.sendFileNameDialogData(JSON.stringify(data));
        draw();
    }

    function takeBack() {
        if (before !== '' && bridge.recvFileNameDialogData() !== before)
            bridge.sendFileNameDialogData(before);
    }

    function pathSettings() {
        var text = bridge.getFilePathSettings();
        return text === '' ? { FolderPath: '', FileName: '' } : JSON.parse(text);
    }

    // What there is to say: the text, and whether the work cannot be done so.
    function note(text, isWrong) {
        var element = Page.get('note');
        element.textContent = text === '' ? '' : Page.translate(text);
        element.className = isWrong ? 'hint wrong' : 'hint';
        return !isWrong;
    }

    function offerFormat(format) {
        var option = Page.make('option', '', bridge.addDateTime(format));
        option.value = format;
        Page.get('format').appendChild(option);
    }

    function noteOfName(folder, name) {
        var base = name.slice(0, name.lastIndexOf('.'));
        if (base === '')
            return 'Type a name.';
        if (/[\\\/*?|\t\n":<>%]/.test(base))
            return 'A name cannot have any of these characters: \\ / * ? | " : < > %';
        if (folder === '')
            return 'Choose a folder.';
        if (folder.length + (/\/$/.test(folder) ? 0 : 1) + name.length > LongestPath)
            return 'The path of the target is too long.';
        return '';
    }

    function drawSave() {
        if (data === null) {
            Page.get('save').hidden = true;
            Page.tell('state', 'error', Page.translate('The settings of the name could not be read.'));
            return false;
        }
        var folder = pathSettings().FolderPath;
        var name = bridge.getFileName(true);
        var field = Page.get('name');
        Page.get('folder').textContent = folder === '' ? Page.translate('None') : folder;
        Page.get('typed').checked = data.original;
        Page.get('camera').checked = !data.original;
        if (field.value !== data.userFileName)
            field.value = data.userFileName;
        field.disabled = !data.original;
        Page.get('addTime').checked = data.addTime;
        Page.setChoice(Page.get('format'), data.addTimeFormat);
        Page.get('format').disabled = !data.addTime;
        Page.get('file').textContent = name;
        var text = noteOfName(folder, name);
        field.classList.toggle('wrong', data.original && text.indexOf('name') >= 0);
        return note(text, text !== '');
    }

    function drawLoad() {
        var file = pathSettings().FileName;
        Page.get('chosen').textContent = file === '' ? Page.translate('None') : file;
        return note(file === '' ? 'Choose a file.' : '', file === '');
    }

    // Where a camera is, and which preset it has taken.
    function whereText(row) {
        var taken = row.presets.filter(function (preset) { return preset.selected; });
        return row.selNone ? row.ipaddress :
            row.ipaddress + ', ' + Page.fill('has preset %1', taken[0].presetno);
    }

    function presetList(row) {
        var list = Page.make('select', '', '');
        var none = Page.make('option', '', Page.translate('None'));
        none.value = 0;
        list.id = 'preset' + row.key;
        list.setAttribute('aria-label', row.name);
        list.appendChild(none);
        row.presets.forEach(function (preset) {
            var option = Page.make('option', '', Page.fill('Preset %1', preset.presetno));
            option.value = preset.presetno;
            list.appendChild(option);
        });
        list.disabled = row.presets.length === 0;
        list.value = String(chosen[row.key] || 0);
        if (list.selectedIndex < 0)
            list.selectedIndex = 0;
        return list;
    }

    function presetRow(row) {
        var element = document.createElement('li');
        var who = Page.make('span', 'who', row.name + ' ');
        who.appendChild(Page.make('span', 'where', whereText(row)));
        who.title = row.devicename;
        element.appendChild(who);
        element.appendChild(presetList(row));
        return element;
    }

    function drawPresets(rows) {
        var list = Page.get('presets');
        var focused = document.activeElement.id;
        var top = list.scrollTop;
        list.textContent = '';
        rows.forEach(function (row) { list.appendChild(presetRow(row)); });
        list.scrollTop = top;
        if (Page.get(focused))
            Page.get(focused).focus();
        note('A camera with None stays as it is.', false);
        return rows.some(function (row) { return Number(Page.get('preset' + row.key).value) > 0; });
    }

    function draw() {
        var rows = bridge.getPresetList().map(function (text) { return JSON.parse(text); });
        var isEmpty = rows.length === 0;
        Modes.forEach(function (each) { Page.get(each).hidden = each !== mode || isEmpty; });
        Page.get('cameras').parentNode.hidden = isEmpty;
        Page.get('cameras').textContent = rows.length > MostNames ? rows.length :
            rows.map(function (row) { return row.name; }).join(', ');
        Page.tell('state', 'empty', isEmpty ? Page.translate('No camera is selected.') : '');
        note('', false);
        var draws = { save: drawSave, load: drawLoad, presets: drawPresets };
        Page.get('ok').disabled = isEmpty || mode === '' || !draws[mode](rows);
    }

    function presetPairs() {
        return Page.all('#presets select').map(function (list) {
            return { key: list.id.slice('preset'.length), value: Number(list.value) };
        });
    }

    Formats.forEach(offerFormat);
    if (data !== null && Formats.indexOf(data.addTimeFormat) < 0)
        offerFormat(data.addTimeFormat);
    Page.get('ok').textContent = mode === '' ? 'OK' : Page.translate(Actions[mode]);

    Page.listen(Page.get('name'), 'input', function () {
        data.userFileName = Page.get('name').value;
        store();
    });
    ['typed', 'camera'].forEach(function (id) {
        Page.listen(Page.get(id), 'change', function () {
            data.original = Page.get('typed').checked;
            store();
        });
    });
    Page.listen(Page.get('addTime'), 'change', function () {
        data.addTime = Page.get('addTime').checked;
        store();
    });
    Page.listen(Page.get('format'), 'change', function () {
        data.addTimeFormat = Page.get('format').value;
        store();
    });
    Page.listen(Page.get('chooseFolder'), 'click', function () {
        bridge.openFolder();
        draw();
    });
    Page.listen(Page.get('chooseFile'), 'click', function () {
        bridge.openFile();
        draw();
    });
    Page.listen(Page.get('presets'), 'change', function (event) {
        chosen[event.target.id.slice('preset'.length)] = Number(event.target.value);
        Page.get('ok').disabled = presetPairs().every(function (pair) { return pair.value <= 0; });
    });
    Page.listen(Page.get('ok'), 'click', function () {
        bridge.ok(JSON.stringify({
            dialogMode: Modes.indexOf(mode),
            presetList: presetPairs()
        }));
    });
    Page.connect(bridge.rejected, takeBack);
    Page.cancelBy('cancel');

    var isFocused = false;
    return function () {
        draw();
        var first = { save: '#name', load: '#chooseFile', presets: '#presets select' }[mode];
        var element = mode === '' || isFocused ? null : document.querySelector(first);
        if (element) {
            isFocused = true;
            element.focus();
        }
    };
});
