'use strict';

Page.start('failing', function () {
    throw { toString: function () { throw new Error('without a text'); } };
});
