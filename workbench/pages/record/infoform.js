'use strict';

// What the two forms of the editor share: the list, the font panel behind its button, and the ways
// out. `options` tell the form, why an item is off in it, what a reset asks, and what comes behind
// each change and around the panel.
var InfoForm = function (options) {
    var editInfo = Page.bridge;
    var group = 0;
    var hadRows = false;
    var isOpen = false; // the document
    // What the links of the items open.
    var editors = {
        edit_comment: 'editComment',
        edit_custom: 'editCustom',
        select_logo: 'setLogoPath',
        time_code: 'execTimeCodeSettingDialog',
        edit_shutter: 'editShutterDispFormat',
        edit_rectime: 'editRectimeDispFormat',
        edit_recordrate: 'editRecordRateDispFormat',
        edit_frame: 'editFrameDispFormat'
    };

    var list = InfoList({
        reason: options.reason,
        read: function () {
            var markup = editInfo.getInfoSettingsHtml(group);
            hadRows = hadRows || markup !== '';
            return markup;
        },
        tick: function (id, isChecked) { editInfo.changeDisp(id, isChecked, group); },
        order: function (ids) { editInfo.changeOrder(ids, group); },
        edit: function (link) {
            var slot = editors[link];
            if (!slot)
                return;
            editInfo[slot]();
            list.load();
            options.changed();
        },
        withoutItems: function () {
            return Page.translate(hasDocument() ?
                'Nothing is listed, or the list could not be read. Open this window again, or ' +
                    'reset all items.' : hadRows ?
                'What this list belongs to is no longer open.' :
                'Open a camera or a recording: its information is listed here.');
        },
        changed: options.changed
    });

    // Only a document has a resolution.
    function hasDocument() {
        return editInfo.getResolutionStr() !== '';
    }

    function showPanel(isShown) {
        Page.get('items').hidden = isShown;
        options.panelShown(isShown);
    }

    function draw() {
        isOpen = hasDocument();
        list.load();
        font.summarize(group);
    }

    Page.followDocuments = Page.guard(function () {
        if (hasDocument() === isOpen)
            return;
        draw();
        options.changed();
    });

    var font = InfoFont({
        form: options.form,
        changed: options.changed,
        closed: function () {
            showPanel(false);
            draw();
            Page.get('font').focus();
            options.changed();
        }
    });

    Page.listen(Page.get('font'), 'click', function () {
        showPanel(true);
        font.open(group);
    });
    Page.listen(Page.get('reset'), 'click', function () {
        if (!editInfo.confirm(Page.translate(options.question)))
            return;
        editInfo.reset();
        draw();
        options.changed();
    });
    Page.listen(Page.get('cancel'), 'click', function () { editInfo.cancel(); });
    Page.listen(Page.get('ok'), 'click', function () { editInfo.ok(); });

    return {
        draw: draw,
        // Goes to another group, read anew.
        enter: function (at) {
            group = at;
            list.rewind();
            draw();
        }
    };
};
