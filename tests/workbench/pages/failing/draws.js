'use strict';

Page.start('failing', function () {
    return function () { Page.get('drawn').textContent = 'drawn'; };
});
