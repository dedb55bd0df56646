'use strict';

SavePage.start({
    name: 'snapshotdialog',
    family: 'snap',
    mode: 7,
    title: 'Save pictures',
    hasGroup: true,
    numberLevels: ['groupdir', 'subdir', 'filename'],
    options: [],
    hasSkip: false,
    hasDestinations: false,
    hasConversion: false
});
