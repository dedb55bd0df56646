'use strict';

// The recordings were chosen before the dialog came: it has their keys, and one that is shown.
var GivenTargets = function () {
    var bridge = Page.bridge;
    var rows = [];
    var shown = null;

    function preview() {
        var frame = Page.get('frame');
        var scale = window.devicePixelRatio || 1;
        var data = !shown ? '' : bridge.select(shown.dockey, Number(shown.partitionno),
            Math.floor(frame.clientWidth * scale), Math.floor(frame.clientHeight * scale));
        Page.get('preview').hidden = data === '';
        if (data !== '')
            Page.get('preview').src = 'data:image/png;base64,' + data;
        Page.tell('noPreview', 'empty', data !== '' ? '' : Page.translate('No picture to show.'));
    }

    return {
        draw: function () {
            var key = String(bridge.getSelectDocKey());
            bridge.list();
            rows = bridge.getTargetItems().map(function (each) {
                return { dockey: String(each), partitionno: '1' };
            });
            shown = { dockey: key, partitionno: String(bridge.getSelectPartitionNo()) };
            Page.get('count').textContent = rows.length === 0 ? '' :
                Page.fill('%1 chosen', rows.length);
            Page.tell('noTargets', 'empty', rows.length > 0 ? '' :
                Page.translate('No recording is chosen. The settings hold for the next ones.'));
            preview();
        },
        chosen: function () { return rows; },
        shown: function () { return shown; },
        preview: preview,
        documents: function () {
            var names = {};
            bridge.getDeviceInfoList(false).forEach(function (text) {
                var device = JSON.parse(text);
                names[device.key] = device.cameraname || device.devicename;
            });
            return rows.map(function (row) {
                return [Number(row.dockey),
                    names[row.dockey] || Page.fill('Recording %1', row.dockey)];
            });
        },
        before: function () {
            var keys = rows.map(function (row) { return row.dockey; });
            return keys.slice(0, Math.max(0, keys.indexOf(shown.dockey)));
        }
    };
};

SavePage.start({
    name: 'convertparametereditdialog',
    family: 'convert',
    mode: 6,
    title: 'Saved after the automatic conversion',
    hasGroup: true,
    numberLevels: ['groupdir', 'subdir', 'filename'],
    options: [['saveinfo', 'Write the information into the pictures'],
        ['savethumbnail', 'Save a small picture beside'],
        ['raww/bayersave', 'Raww as the sensor gives it (Bayer)'],
        ['mraw/bayersave', 'Mraw as the sensor gives it (Bayer)'],
        ['tiff/bayersave', 'Tiff as the sensor gives it (Bayer)']],
    hasSkip: false,
    hasDestinations: false,
    hasConversion: false,
    isSettings: true,
    makeTargets: GivenTargets,
    // Beside the recording lies what is saved first, in the directory of that save.
    adapt: function (record) {
        if (!Page.bridge.getPrefBool('convert/dirasoriginal'))
            return;
        record.base = Page.bridge.getExportPath();
        record.length = 0;
        record.warnings = record.warnings.filter(function (each) { return each.part !== 'base'; });
    }
});
