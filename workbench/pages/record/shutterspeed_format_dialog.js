'use strict';

Formats.start('shutter_format_dlg', function (samples) {
    var units = JSON.parse(samples.shutterSpeedUnitChoices());

    // A form without a time is the same in all units.
    function needsUnit(format, insertDelimiter) {
        return units.some(function (unit) {
            return samples.shutterSpeed(format, unit.number, insertDelimiter) !==
                samples.shutterSpeed(format, units[0].number, insertDelimiter);
        });
    }

    return {
        controls: {
            format: {
                choices: JSON.parse(samples.shutterSpeedChoices()),
                read: 'getShutterSpeedFormat',
                store: 'setShutterSpeedFormat'
            },
            unit: {
                choices: units,
                read: 'getShutterSpeedTimeUnit',
                store: 'setShutterSpeedTimeUnit'
            },
            delimiter: {
                read: 'isShutterSpeedInsertDelimiter',
                store: 'setShutterSpeedInsertDelimiter'
            }
        },
        example: function (values) {
            Page.get('unit').disabled = !needsUnit(values.format, values.delimiter);
            return samples.shutterSpeed(values.format, values.unit, values.delimiter);
        }
    };
});
