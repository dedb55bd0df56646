'use strict';

// The second one tells nobody by itself.
window.addEventListener('load', function () {
    Page.listen(Page.get('fail'), 'click', function () {
        throw new Error('in a handler');
    });
    Page.get('fail').addEventListener('click', function () {
        nobody.knows();
    });
});
