'use strict';

SavePage.start({
    name: 'batchconverter',
    family: 'convert',
    mode: 6,
    title: 'Convert recordings',
    hasGroup: true,
    numberLevels: ['groupdir', 'subdir', 'filename'],
    options: [['saveinfo', 'Write the information into the pictures'],
        ['savethumbnail', 'Save a small picture beside']],
    hasSkip: true,
    hasDestinations: false,
    hasConversion: false
});
