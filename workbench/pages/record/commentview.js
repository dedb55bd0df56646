'use strict';

Page.start('comment_mediator', function () {
    var bridge = Page.bridge;
    var comment = Page.get('comment');
    var comments = new Map(); // by the number of a row, as the dialog has them
    var shown = null;         // the rows as they were told last

    var list = Page.multiList(Page.get('documents'), function () {
        bridge.setSelectedItems(chosen());
        showComment();
    });

    function chosen() {
        return list.chosen().map(function (row) { return Number(row.dataset.number); });
    }

    // One editor for all chosen rows. Where their comments differ it is empty and marked, and leaves
    // them as they are until something is written.
    function showComment() {
        var texts = chosen().map(function (number) { return comments.get(number); });
        comment.disabled = texts.length === 0;
        comment.value = isMixed(texts) ? '' : texts[0] || '';
        showMark();
    }

    function isMixed(texts) {
        return texts.some(function (text) { return text !== texts[0]; });
    }

    function showMark() {
        var rows = list.chosen();
        var mixed = isMixed(chosen().map(function (number) { return comments.get(number); }));
        comment.classList[mixed ? 'add' : 'remove']('mixed');
        comment.placeholder = mixed ?
            Page.translate('The comments differ. What is written here replaces all of them.') : '';
        var note = mixed ? Page.fill('%1 documents, mixed comments', rows.length) :
            rows.length > 1 ? Page.fill('One comment for %1 documents', rows.length) : '';
        if (rows.some(function (row) { return row.classList.contains('nameless'); }))
            note = Page.translate('Only what is still open is stored.');
        Page.get('note').textContent = note;
    }

    // A document that has gone is told without a name, as is one that has none.
    function makeRow(record, isChosen) {
        var nameless = record.name === '';
        var row = Page.make('li', nameless ? 'nameless' : '',
            nameless ? Page.translate('No name, or no longer open') : record.name);
        row.id = 'row-' + record.recid;
        row.dataset.number = record.recid;
        row.title = row.textContent;
        list.mark(row, isChosen);
        return row;
    }

    // The comment of a row is told while that row alone is selected.
    function readComments(records) {
        records.forEach(function (record) {
            bridge.setSelectedItems([record.recid]);
            comments.set(record.recid, bridge.getComment());
        });
    }

    function draw() {
        var text = bridge.getDocInfos();
        if (text === '')
            return Page.tellFailure('state', 'The documents could not be read.');
        Page.tell('state', 'empty', '');
        if (text === shown)
            return;
        var infos = JSON.parse(text);
        var numbers = chosen();
        if (shown === null) {
            readComments(infos.Records);
            numbers = infos.Records.slice(0, 1).map(function (record) { return record.recid; });
            if (infos.InitSelect > 0)
                numbers = [infos.InitSelect];
            bridge.setSelectedItems(numbers);
        }
        list.fill(infos.Records.map(function (record) {
            return makeRow(record, numbers.indexOf(record.recid) >= 0);
        }));
        if (shown === null)
            showComment();
        else
            showMark();
        shown = text;
        Page.tell('state', 'empty', infos.Records.length > 0 ? '' :
            Page.translate('No camera and no recording is selected.'));
    }

    Page.followDocuments = Page.guard(draw);
    Page.listen(comment, 'input', function () {
        bridge.setComment(comment.value);
        chosen().forEach(function (number) { comments.set(number, comment.value); });
        showMark();
    });
    Page.listen(Page.get('ok'), 'click', function () { bridge.comment_ok(); });
    Page.listen(Page.get('cancel'), 'click', function () { bridge.comment_cancel(); });
    return function () {
        draw();
        comment.focus();
    };
});
