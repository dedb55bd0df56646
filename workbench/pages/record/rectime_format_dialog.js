'use strict';

Formats.start('rectime_format_dlg', function (samples) {
    return {
        controls: {
            unit: {
                choices: JSON.parse(samples.recordingTimeChoices()),
                read: 'getRecTimeUnit',
                store: 'setRecTimeUnit'
            }
        },
        example: function (values) { return samples.recordingTime(values.unit); }
    };
});
