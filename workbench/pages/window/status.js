'use strict';

Page.start('statuspanel', function () {
    // Each flag: what getControlStatus calls it, what the user reads, and whether it is bad news.
    // The modes always show, the others while they are on.
    var Modes = 3;
    var flags = [
        ['IsLiveMode', 'Live'], ['IsMemoryMode', 'Memory'], ['IsFileMode', 'File'],
        ['IsReady', 'Ready'], ['IsRecording', 'Recording'],
        ['IsBgSaving', 'Saving'], ['IsBgConverting', 'Converting'],
        ['IsAllTrelvikLockDevice', 'All locked'],
        ['IsCurrentDisconnected', 'Disconnected', true],
        ['IsRecordingError', 'Recording failed', true],
        ['IsConflictPartition', 'Partitions differ', true]
    ];
    var list = Page.get('flags');
    flags.forEach(function (flag) {
        var item = Page.make('li', '', Page.translate(flag[1]));
        item.id = flag[0];
        list.appendChild(item);
    });

    function isBusy(status) {
        return status.IsRecording || status.IsMouseDragging;
    }

    // When each control may be used.
    var rules = {
        selectAll: function (status) { return !status.IsNoneDocument && !isBusy(status); },
        copy: function (status) { return !status.IsNoneWindow; },
        toolsOff: function (status) { return !status.IsNoneDocument && !isBusy(status); },
        partition: function (status) {
            return !status.IsNoneDocument && !status.IsFileMode && !isBusy(status);
        },
        prefs: function (status) {
            return !isBusy(status) && !status.IsPrefDialogOpening && !status.IsModalDialogOpening;
        },
        support: function (status) {
            return !isBusy(status) && !status.IsModalDialogOpening;
        }
    };

    var actions = {
        selectAll: function () { Page.bridge.selectAllDocs(); },
        copy: function () { Page.bridge.copySelectAreaToClipboard(); },
        toolsOff: function () { Page.bridge.setDisableAllQuickTool(); },
        partition: function () {
            var box = Page.get('partition').getBoundingClientRect();
            Page.bridge.showDropDownBox('partition', Math.round(box.left), Math.round(box.top),
                Math.round(box.width), Math.round(box.height));
        },
        prefs: function () { Page.bridge.openPrefsDialog(''); },
        support: function () { Page.bridge.openExportSupportFileDialog(); }
    };
    Object.keys(actions).forEach(function (id) {
        Page.listen(Page.get(id), 'click', actions[id]);
    });

    return function () {
        var status = JSON.parse(Page.bridge.getControlStatus());
        flags.forEach(function (flag, at) {
            var item = Page.get(flag[0]);
            item.className = (flag[2] ? 'bad' : '') + (status[flag[0]] ? ' on' : '');
            item.hidden = at >= Modes && !status[flag[0]];
            item.setAttribute('aria-label', item.textContent + ': ' +
                Page.translate(status[flag[0]] ? 'on' : 'off'));
        });
        Object.keys(rules).forEach(function (id) {
            Page.get(id).disabled = !rules[id](status);
        });
        Page.tell('state', 'empty', status.IsNoneDocument ?
            Page.translate('No camera and no recording is open.') : '');
        var current = main.currentPartition || 0;
        Page.get('partition').textContent = current > 0 ?
            Page.fill('Partition %1', current) : Page.translate('No partition');
    };
});
