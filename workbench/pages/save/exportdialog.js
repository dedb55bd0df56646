'use strict';

SavePage.start({
    name: 'exportdialog',
    family: 'export',
    mode: 1,
    title: 'Save recordings',
    hasGroup: true,
    numberLevels: ['groupdir', 'subdir', 'filename'],
    options: [['saveinfo', 'Write the information into the pictures'],
        ['savecorrect', 'Turn and flip as shown'],
        ['savescale', 'At full size'],
        ['savethumbnail', 'Save a small picture beside']],
    hasSkip: true,
    hasDestinations: true,
    hasConversion: true
});
