'use strict';

SavePage.start({
    name: 'layoutsavedialog',
    family: 'layout',
    mode: 4,
    title: 'Save the layout',
    hasGroup: false,
    numberLevels: ['subdir', 'filename'],
    options: [],
    hasSkip: true,
    hasDestinations: false,
    hasConversion: false
});
