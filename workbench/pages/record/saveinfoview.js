'use strict';

// The editor of what is written into saved pictures, with a picture of the outcome.
Page.start('editInfo', function () {
    var editInfo = Page.bridge;
    var current = 0;
    var waiting = 0;
    var Pause = 300; // milliseconds without a change, before a picture is asked for
    // By the numbers of their groups.
    var places = ['Below the picture', 'Top left', 'Top', 'Top right', 'Bottom left', 'Bottom',
        'Bottom right'];

    function preview() {
        var frame = Page.get('frame');
        // They leave the frame its height.
        Page.get('resolution').textContent = editInfo.getResolutionStr();
        Page.get('language').textContent = editInfo.getExportLanguage();
        var scale = window.devicePixelRatio || 1;
        var data = editInfo.getThumbnail(Math.floor(frame.clientWidth * scale),
            Math.floor(frame.clientHeight * scale));
        var picture = Page.get('preview');
        frame.classList.remove('waiting');
        picture.hidden = data === '';
        if (data !== '')
            picture.src = 'data:image/png;base64,' + data;
        Page.tell('noPreview', 'empty', data !== '' ? '' :
            Page.translate('No picture to show.'));
    }

    function drawChoices() {
        Page.get('withinImage').checked = editInfo.getWithinImage();
    }

    function changed() {
        clearTimeout(waiting);
        Page.get('frame').classList.add('waiting');
        waiting = setTimeout(Page.guard(preview), Pause);
        drawChoices();
    }

    Page.get('preview').alt = Page.translate('Preview');
    var form = InfoForm({
        form: 'save',
        reason: 'Not written into saved pictures. It keeps its tick and its place.',
        question: 'Put the items of all places back to how they were at first?',
        changed: changed,
        panelShown: function (isShown) {
            Page.get('main').hidden = isShown;
            tabs.forEach(function (tab) { tab.disabled = isShown; });
        }
    });

    function enter(group) {
        current = group;
        tabs.forEach(function (tab, at) {
            tab.setAttribute('aria-selected', String(at === current));
            tab.tabIndex = at === current ? 0 : -1;
        });
        form.enter(current);
    }

    var tabs = places.map(function (place, group) {
        var tab = Page.make('button', '', Page.translate(place));
        tab.id = 'group-' + group;
        tab.setAttribute('role', 'tab');
        Page.listen(tab, 'click', function () { enter(group); });
        Page.get('tabs').appendChild(tab);
        return tab;
    });
    Page.listen(Page.get('tabs'), 'keydown', function (event) {
        var last = tabs.length - 1;
        var next = { 35: last, 36: 0, 37: current === 0 ? last : current - 1,
                     39: current === last ? 0 : current + 1 }[event.keyCode];
        if (next === undefined || event.altKey)
            return;
        enter(next);
        tabs[next].focus();
        event.preventDefault();
    });
    Page.listen(Page.get('withinImage'), 'change', function () {
        var wanted = this.checked;
        editInfo.setWithinImage(wanted, true);
        changed();
        Page.tellStored('choiceState', editInfo.getWithinImage() === wanted);
    });

    return function () {
        enter(current);
        drawChoices();
        preview();
    };
});
