'use strict';

Formats.start('frameFormatDialog', function (samples) {
    return {
        controls: {
            delimiter: { read: 'isFrameInsertDelimiter', store: 'setFrameInsertDelimiter' }
        },
        example: function (values) { return samples.frame(values.delimiter); }
    };
});
