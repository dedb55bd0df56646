'use strict';

Page.start('fileopendialog', function () {
    var bridge = Page.bridge;
    var page = {
        isTemporary: true,
        emptyText: 'No recording is offered. Open a folder to bring in those that it holds.'
    };
    var targets = SaveTargets(page, drawButtons);

    function drawButtons() {
        Page.get('import').disabled = targets.chosen().length === 0;
    }

    function draw() {
        targets.draw();
        drawButtons();
    }

    Page.listen(Page.get('folder'), 'click', function () {
        if (!bridge.openFolder())
            return;
        page.emptyText = 'The recordings of the folder were handed over to the application.';
        draw();
    });
    Page.listen(Page.get('cancel'), 'click', function () { bridge.reject(); });
    Page.listen(Page.get('import'), 'click', function () {
        bridge.importTarget(targets.chosen().map(function (row) { return row.dockey; })
            .filter(function (each, at, all) { return all.indexOf(each) === at; }));
        bridge.accept();
    });
    return draw;
});
