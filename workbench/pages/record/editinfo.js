'use strict';

// The editor of what stands over the pictures, which follow each change at once.
Page.start('editInfo', function () {
    var editInfo = Page.bridge;
    var blankLine = Page.get('blankLine');

    function drawChoice() {
        blankLine.checked = editInfo.getDisplayBlankLine();
    }

    var form = InfoForm({
        form: 'editor',
        reason: 'Not shown in this mode. It keeps its tick and its place.',
        question: 'Put all items back to how they were at first?',
        changed: drawChoice,
        panelShown: function () { }
    });
    Page.listen(blankLine, 'change', function () {
        var wanted = blankLine.checked;
        editInfo.setDisplayBlankLine(wanted);
        drawChoice();
        Page.tellStored('failure', blankLine.checked === wanted);
    });
    return function () {
        form.draw();
        drawChoice();
    };
});
