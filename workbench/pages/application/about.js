'use strict';

Page.start('about', function () {
    Page.listen(Page.get('close'), 'click', function () { Page.bridge.accept(); });
    return function () {
        Page.get('version').textContent = Page.fill('Version %1', main.version);
    };
});
