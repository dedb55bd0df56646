'use strict';

var drawn = 0;
var sent = [];

Page.start('typing', function () {
    Page.listen(Page.get('submit'), 'click', function () { sent.push('clicked'); });
    return function () { ++drawn; };
});
