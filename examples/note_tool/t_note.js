'use strict';

window.addEventListener('load', function () {
    var note = window.note;
    if (!note) {
        document.body.textContent = 'This page works in the application only.';
        return;
    }
    var NoCamera = -1;
    var camera = NoCamera; // whose note is in the box
    var typing = false;    // as the application was told last
    var box = get('text');

    function get(id) {
        return document.getElementById(id);
    }

    // Nothing that a handler throws leaves the page.
    function guard(handler) {
        return function () {
            try {
                return handler.apply(this, arguments);
            } catch (error) {
                note.errorLog(String(error));
            }
        };
    }

    // While the user types, the shortcuts of the main window stand aside.
    function tellTyping(now) {
        if (typing === now)
            return;
        typing = now;
        note.setTextBoxFocusState(now);
    }

    function leaveBox() {
        box.blur();
        tellTyping(false);
    }

    function tell(kind, text) {
        get('state').className = kind;
        get('state').textContent = text;
        get('state').setAttribute('role', kind === 'trouble' ? 'alert' : 'status');
    }

    function tellState(info) {
        if (info.camera === NoCamera)
            tell('', '');
        else if (!info.written)
            tell('trouble', note.translate('This note could not be stored. It is kept here.'));
        else if (info.changed)
            tell('', note.translate('Changed %1', info.changed));
        else
            tell('', note.translate('Notes are stored as you type.'));
    }

    function draw() {
        document.body.className = note.getStyle() === 'dark' ? 'dark' : '';
        var info = note.getNote();
        if (info.camera === undefined)
            return; // no answer: what is in the box stays
        var known = info.camera !== NoCamera;
        if (!known)
            leaveBox();
        camera = info.camera;
        get('none').hidden = known;
        get('name').hidden = box.hidden = !known;
        get('name').textContent = get('name').title = info.name || ''; // a long one is cut
        box.value = info.text || ''; // the same text leaves the cursor where it is
        tellState(info);
    }

    function open() {
        draw();
        (camera === NoCamera ? get('close') : box).focus();
    }

    function logOperation(operation, element) {
        note.userOperationLogWebView(location.href, operation,
            element === box ? 'TextArea' : 'Button', element.id, element.className, '');
    }

    box.addEventListener('focus', guard(function () { tellTyping(true); }));
    box.addEventListener('blur', guard(function () { tellTyping(false); }));
    box.addEventListener('input', guard(function () {
        note.setNote(camera, box.value);
        draw();
    }));
    box.addEventListener('change', guard(function () { logOperation('changed', box); }));
    get('close').addEventListener('click', guard(function () {
        logOperation('clicked', this);
        note.reject();
    }));
    note.open.connect(guard(open));
    note.update.connect(guard(draw));
    note.close.connect(guard(leaveBox));
    guard(function () {
        Array.from(document.querySelectorAll('[data-tr]')).forEach(function (element) {
            element.textContent = note.translate(element.textContent);
        });
        open();
    })();
});
