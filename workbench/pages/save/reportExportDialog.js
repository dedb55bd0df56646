'use strict';

// The group directory of a report has no digits, and so no number.
SavePage.start({
    name: 'reportExportDialog',
    family: 'report',
    mode: 16,
    title: 'Save reports',
    hasGroup: true,
    numberLevels: ['subdir', 'filename'],
    options: [],
    hasSkip: true,
    hasDestinations: false,
    hasConversion: false
});
