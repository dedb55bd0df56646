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
        ['savethumbnail', 'Save a small picture beside'],
        ['raww/bayersave', 'Raww as the sensor gives it (Bayer)'],
        ['mraw/bayersave', 'Mraw as the sensor gives it (Bayer)'],
        ['tiff/bayersave', 'Tiff as the sensor gives it (Bayer)']],
    hasSkip: true,
    hasDestinations: true,
    hasConversion: true
});
