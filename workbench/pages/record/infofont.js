'use strict';

// The panel of both forms that sets how the information of a group is drawn. Every change goes to
// the settings at once; Cancel takes back what was changed in the group since the panel opened, Undo
// what was changed in all groups since the form opened. `options` tell the form; `changed` comes
// behind each change, `closed` when the panel has gone.
var InfoFont = function (options) {
    var editInfo = Page.bridge;
    var panel = Page.get('fontPanel');
    var group = 0;
    var MostPixels = 9999;
    var Palette = ['#ffffff', '#000000', '#ffff00', '#00ff00', '#ff0000'];

    // Controls in their order, with the name of their property in the slots. Those with a form are
    // there in this one only; `needs` names the tick without which a control has no effect.
    var fields = [
        { id: 'fontName', property: 'FontName', kind: 'list', label: 'Family',
          texts: function () { return editInfo.getFontNameList(); } },
        { id: 'fontSize', property: 'FontSize', kind: 'list', label: 'Size',
          texts: function () { return editInfo.getFontSizeList(); } },
        { id: 'bold', property: 'Bold', kind: 'flag', label: 'Bold', isShort: true },
        { id: 'italic', property: 'Italic', kind: 'flag', label: 'Italic', isShort: true },
        { id: 'foreground', property: 'ForegroundColor', kind: 'colour', label: 'Colour' },
        { id: 'useBackground', property: 'UseBackgroundColor', kind: 'flag', form: 'save',
          label: 'Coloured background' },
        { id: 'background', property: 'BackgroundColor', kind: 'colour', form: 'save',
          label: 'Background', needs: 'useBackground' },
        { id: 'alignment', property: 'Alignment', kind: 'choice', label: 'Alignment',
          choices: ['Left', 'Centre', 'Right'] },
        { id: 'width', property: 'Width', kind: 'pixels', label: 'Width' },
        { id: 'toColumn', property: 'ToColumn', kind: 'flag', form: 'save', label: 'In columns' },
        { id: 'columnNum', property: 'ColumnNum', kind: 'list', form: 'save', label: 'Columns',
          needs: 'toColumn', texts: function () { return editInfo.getToColumnList(); } },
        { id: 'columnSpacing', property: 'ColumnSpacing', kind: 'pixels', form: 'save',
          label: 'Spacing', needs: 'toColumn' },
        { id: 'fixedRatio', property: 'FixedFontSizeRatio', kind: 'flag', form: 'save',
          label: 'Same share of every resolution' },
        { id: 'collective', property: 'CollectiveSetting', kind: 'flag', form: 'save',
          label: 'Same for all places in the picture' },
        { id: 'iconSize', property: 'IconSize', kind: 'pixels', form: 'editor',
          label: 'Icon size' }
    ].filter(function (field) { return !field.form || field.form === options.form; });

    function read(field) {
        switch (field.id) {
        case 'collective': return editInfo.isCollectiveSetting();
        case 'fixedRatio': return editInfo.isFixedFontSizeRatio(group);
        }
        return editInfo['get' + field.property](group);
    }

    // Says that a stored family is not there, and what stands in for it where the application knows.
    function tellMissing(id, family) {
        var samples = window.informationSamples;
        var substitute = samples ? samples.substituteFont(family) : '';
        var installed = Array.from(editInfo.getFontNameList());
        var isMissing = samples ? substitute !== '' :
            family !== '' && installed.length > 0 && installed.indexOf(family) < 0;
        var text = Page.translate(substitute === '' ?
            'The font %1 is missing; another one is used.' :
            'The font %1 is missing; %2 is used.');
        Page.get(id).hidden = !isMissing;
        Page.get(id).textContent = !isMissing ? '' : text.replace(/%[12]/g, function (place) {
            return place === '%1' ? family : substitute;
        });
    }

    function addOption(list, value, text) {
        var option = Page.make('option', '', text);
        option.value = value;
        list.appendChild(option);
    }

    function swatchesOf(id) {
        return Page.all('#fontPanel [data-colour-of=' + id + ']');
    }

    function makeControl(field) {
        var isList = field.kind === 'list' || field.kind === 'choice';
        var control = document.createElement(isList ? 'select' : 'input');
        control.id = field.id;
        control.className = field.kind;
        if (!isList) {
            control.type = field.kind === 'flag' ? 'checkbox' : 'text';
            control.maxLength = field.kind === 'colour' ? 7 : 4;
        }
        (field.choices || []).forEach(function (text, at) {
            addOption(control, String(at), Page.translate(text));
        });
        Page.listen(control, control.type === 'text' ? 'input' : 'change', function () {
            store(field);
        });
        return control;
    }

    function addSwatches(row, field, control) {
        Palette.forEach(function (colour) {
            var swatch = Page.make('button', 'swatch', '');
            swatch.id = field.id + '-' + colour.slice(1);
            swatch.dataset.colourOf = field.id;
            swatch.dataset.colour = colour;
            swatch.title = colour;
            swatch.setAttribute('aria-label', Page.translate(field.label) + ' ' + colour);
            swatch.appendChild(Page.make('span', '', ''));
            swatch.firstChild.style.backgroundColor = colour;
            Page.listen(swatch, 'click', function () {
                control.value = colour;
                store(field);
            });
            row.appendChild(swatch);
        });
    }

    function addRow(place, field) {
        var text = Page.translate(field.label);
        var control = makeControl(field);
        var row = Page.make(field.kind === 'flag' ? 'label' : 'div',
            field.kind === 'flag' ? 'choice' : 'field', '');
        row.classList[field.isShort ? 'add' : 'remove']('short');
        if (field.kind === 'flag') {
            row.appendChild(control);
            row.appendChild(Page.make('span', '', text));
        } else {
            row.appendChild(Page.make('label', '', text));
            row.firstChild.htmlFor = field.id;
            row.appendChild(control);
            if (field.kind === 'colour')
                addSwatches(row, field, control);
            if (field.kind === 'pixels')
                row.appendChild(Page.make('span', 'unit', Page.translate('pixels')));
        }
        place.appendChild(row);
        if (field.id === 'fontName')
            addText(place, 'fontMissing', 'missing');
    }

    function addText(place, id, className) {
        var text = Page.make('p', className, '');
        text.id = id;
        text.hidden = true;
        place.appendChild(text);
    }

    function addButton(place, id, className, text, handler) {
        var button = Page.make('button', className, Page.translate(text));
        button.id = id;
        Page.listen(button, 'click', handler);
        place.appendChild(button);
    }

    // What a control says; nothing where it cannot be stored.
    function valueOf(field) {
        var control = Page.get(field.id);
        var text = control.value.trim();
        switch (field.kind) {
        case 'flag': return control.checked;
        case 'choice': return Number(text);
        case 'colour': return /^#[0-9a-f]{6}$/i.test(text) ? text : undefined;
        case 'pixels':
            return /^[0-9]+$/.test(text) && Number(text) <= MostPixels ? Number(text) : undefined;
        }
        return control.value;
    }

    // The first one that says what cannot be stored.
    function findWrong() {
        return fields.find(function (field) {
            return Page.get(field.id).classList.contains('wrong');
        });
    }

    function tellWrong() {
        var wrong = findWrong();
        Page.tell('fontState', 'error', !wrong ? '' : Page.translate(wrong.kind === 'colour' ?
            'A colour is written as #rrggbb, such as #ffcc00.' :
            'A length is a whole number from 0 to 9999.'));
        return wrong !== undefined;
    }

    // Puts what is stored into its control.
    function show(field, value) {
        var control = Page.get(field.id);
        if (field.kind === 'flag')
            control.checked = value;
        else if (control.tagName === 'SELECT')
            Page.setChoice(control, value);
        else
            control.value = String(value);
        control.classList.remove('wrong');
    }

    // Brings everything that depends on the controls to their state.
    function follow() {
        fields.forEach(function (field) {
            var control = Page.get(field.id);
            control.disabled = field.needs !== undefined && !Page.get(field.needs).checked;
            if (control.disabled && control.classList.contains('wrong'))
                show(field, read(field)); // nobody could mend it
            if (field.kind !== 'colour')
                return;
            swatchesOf(field.id).forEach(function (swatch) {
                swatch.disabled = control.disabled;
                swatch.setAttribute('aria-pressed',
                    String(swatch.dataset.colour === control.value.trim().toLowerCase()));
            });
        });
        tellMissing('fontMissing', Page.get('fontName').value);
    }

    function draw() {
        fields.forEach(function (field) {
            var control = Page.get(field.id);
            var value = read(field);
            if (field.kind === 'list') {
                var texts = Array.from(field.texts());
                control.textContent = '';
                (texts.indexOf(value) < 0 ? [value].concat(texts) : texts).forEach(
                    function (text) { addOption(control, text, text); });
            }
            show(field, value);
        });
        tellWrong();
        follow();
    }

    function store(field) {
        var value = valueOf(field);
        Page.get(field.id).classList[value === undefined ? 'add' : 'remove']('wrong');
        if (value === undefined) {
            tellWrong();
            return;
        }
        read(field); // the setters take the group that was read last
        editInfo['set' + field.property](value, true);
        var kept = read(field);
        if (kept !== value)
            show(field, kept);
        follow();
        if (!tellWrong())
            Page.tellStored('fontState', kept === value);
        options.changed();
    }

    function close() {
        panel.hidden = true;
        options.closed();
    }

    function confirm() {
        var wrong = findWrong();
        if (wrong) {
            Page.get(wrong.id).focus();
            return;
        }
        editInfo.getBold(group);
        editInfo.writeFontOK();
        close();
    }

    // The slot leaves the views as they are, which any setter brings up to date.
    function cancel() {
        editInfo.getBold(group);
        editInfo.restoreFontSettings();
        editInfo.setBold(editInfo.getBold(group), true);
        close();
    }

    // Cancel brings other groups not back from it. The slot also puts back whether the information
    // stands in the picture, which is no matter of the font.
    function undo() {
        if (!editInfo.confirm(Page.translate(options.form === 'save' ?
                'Put the fonts of all places in the picture back to how they were when this ' +
                    'window opened?' :
                'Put the font back to how it was when this window opened?')))
            return;
        var isWithin = editInfo.getWithinImage();
        editInfo.writeFontCancel();
        if (options.form === 'save')
            editInfo.setWithinImage(isWithin, true);
        draw();
        options.changed();
    }

    function make() {
        panel.appendChild(Page.make('h1', '', Page.translate('Font')));
        var place = Page.make('div', 'fields', '');
        panel.appendChild(place);
        fields.forEach(function (field) { addRow(place, field); });
        addText(place, 'fontState', 'state');
        var buttons = Page.make('div', 'row end buttons', '');
        panel.appendChild(buttons);
        addButton(buttons, 'fontUndo', '', 'Undo all', undo);
        addButton(buttons, 'fontCancel', '', 'Cancel', cancel);
        addButton(buttons, 'fontOk', 'main', 'OK', confirm);
        Page.get('fontUndo').title = Page.translate(options.form === 'save' ?
            'The fonts of all places in the picture as they were when this window opened' :
            'The font as it was when this window opened');
    }

    make();

    return {
        open: function (at) {
            group = at;
            editInfo.backupFontSettings(group);
            draw();
            // The caption strip takes no part in what goes back to the start.
            Page.get('fontUndo').hidden = options.form === 'save' && group === 0;
            panel.hidden = false;
            Page.get('fontName').focus();
        },
        // Says in a line how the group is drawn, and what is missing.
        summarize: function (at) {
            var family = editInfo.getFontName(at);
            Page.get('summary').textContent = family + ', ' + editInfo.getFontSize(at);
            Page.get('summary').title = Page.get('summary').textContent;
            tellMissing('missing', family);
        }
    };
};
