'use strict';

SavePage.start({
    name: 'batchconverter',
    family: 'convert',
    mode: 6,
    title: 'Convert recordings',
    hasGroup: true,
    numberLevels: ['groupdir', 'subdir', 'filename'],
    options: [['saveinfo', 'Write the information into the pictures'],
        ['savethumbnail', 'Save a small picture beside'],
        ['raww/bayersave', 'Raww as the sensor gives it (Bayer)'],
        ['mraw/bayersave', 'Mraw as the sensor gives it (Bayer)'],
        ['tiff/bayersave', 'Tiff as the sensor gives it (Bayer)']],
    hasSkip: true,
    hasDestinations: false,
    hasConversion: false
});
