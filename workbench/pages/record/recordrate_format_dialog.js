'use strict';

Formats.start('recordRateFormatDialog', function (samples) {
    return {
        controls: {
            delimiter: { read: 'isRecordRateInsertDelimiter', store: 'setRecordRateInsertDelimiter' }
        },
        example: function (values) { return samples.recordRate(values.delimiter); }
    };
});
