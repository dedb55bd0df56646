'use strict';

setTimeout(function () {
    throw new Error('in a timer');
}, 0);
