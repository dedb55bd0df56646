'use strict';

// What all pages that save share. Each starts it with what is its own:
//   name: of its mediator
//   family, mode: of its settings
//   title: of what it saves
//   hasGroup, numberLevels: as in SaveForm
//   options: settings of its own, [suffix, label]
//   hasSkip, hasDestinations, hasConversion
// and, where its targets were chosen before,
//   isSettings: it saves nothing itself
//   makeTargets: what stands in for SaveTargets
//   adapt(record): what the record of the path has otherwise
var SavePage = (function () {
    var Pause = 200; // milliseconds without a key, before the path is asked for

    function start(page) {
        Page.start(page.name, function () { return setup(page); });
    }

    function setup(page) {
        var bridge = Page.bridge;
        var saveFile = window.savefile;
        var preview = window.savePreview;
        var time = preview.now();
        var waiting = 0;
        var asked = 0; // rounds of questions so far
        var refused = false;
        var path = SavePath(Page.get('path'));

        // That of a format has its name before it, "raww/bayersave".
        function optionId(suffix) {
            return suffix.replace('/', '-');
        }

        function options() {
            page.options.forEach(function (each) {
                var input = document.createElement('input');
                input.type = 'checkbox';
                input.id = optionId(each[0]);
                Page.listen(input, 'change', function () {
                    bridge.setPrefBool(page.family + '/' + each[0], input.checked);
                    targets.draw();
                    form.enable();
                    ask(false);
                });
                Page.get('options').appendChild(form.element('label', 'choice',
                    [input, Page.make('span', '', Page.translate(each[1]))]));
                if (each[0] === 'savethumbnail')
                    Page.get('options').appendChild(form.thumbnailLines());
            });
        }

        function drawOptions() {
            page.options.forEach(function (each) {
                Page.get(optionId(each[0])).checked = bridge.getPrefBool(page.family + '/' + each[0]);
            });
        }

        function drawSpace(record) {
            var text = Page.fill('%1 free', saveFile.getFreeSpace(form.folder())) +
                ' (' + Page.fill('volume %1', record.toldVolume) + ')';
            if (record.volume !== record.toldVolume) {
                text += '. ' + Page.translate('The target lies on another volume:') + ' ' +
                    record.volume + ', ' + Page.fill('%1 free', record.freeOnVolume) + '.';
            }
            Page.get('space').textContent = text;
            Page.get('space').classList[record.volume !== record.toldVolume ?
                'add' : 'remove']('elsewhere');
        }

        // One round of questions. What calls in it can take time and let the user go on: an answer
        // that is out of date by then is dropped.
        function ask(isTyping) {
            clearTimeout(waiting);
            var round = ++asked;
            var row = targets.shown();
            var text = preview.path(page.mode, row ? row.dockey : '',
                row ? Number(row.partitionno) : 0, row ? targets.before() : [], time);
            if (round !== asked)
                return;
            if (text === '') {
                path.clear();
                refused = true;
                Page.tell('failure', 'error', Page.translate('The path could not be made.'));
            } else {
                var record = JSON.parse(text);
                Page.tell('failure', 'error', '');
                if (page.adapt)
                    page.adapt(record);
                path.draw(record);
                refused = record.refusal !== '';
                drawSpace(record);
            }
            form.drawSamples(isTyping);
            var names = row && !isTyping ? saveFile.isNeedRefreshPreview() : false;
            if (names)
                targets.preview();
            Page.get('save').disabled = !page.isSettings && (refused || !row);
        }

        function changed(isTyping) {
            clearTimeout(waiting);
            ++asked;
            if (isTyping) {
                waiting = setTimeout(Page.guard(function () {
                    form.store(false);
                    ask(true);
                }), SavePage.pause);
                return;
            }
            form.draw();
            ask(false);
        }

        function tellConversion() {
            var status = JSON.parse(bridge.getControlStatus());
            Page.tell('conversion', 'empty', !status.IsBgConverting ? '' : Page.translate(
                'A conversion is running. Until it ends, what is written into pictures and how ' +
                'files are converted cannot be edited.'));
        }

        function draw() {
            targets.draw();
            form.offerDocuments(targets.documents());
            drawOptions();
            form.draw();
            if (skip)
                skip.follow();
            if (destinations)
                destinations.draw();
            tellConversion();
            ask(false);
        }

        function keys() {
            return targets.chosen().map(function (row) { return row.dockey; })
                .filter(function (each, at, all) { return all.indexOf(each) === at; });
        }

        function addTools() {
            var tools = [];
            if (typeof bridge.saveInfoView === 'function') {
                tools.push(form.button('info', 'Information...', form.open(function () {
                    bridge.saveInfoView(keys());
                })));
            }
            tools.push(form.button('timeCode', 'Time code...', form.open(function () {
                bridge.openCustumTimeCodeDialog();
            })));
            if (page.hasConversion) {
                tools.push(form.button('convert', 'Conversion...', form.open(function () {
                    // The dialog does not come without a place for its files.
                    Page.tell('toolState', 'error', bridge.getPrefString('convert/dir') !== '' ||
                        bridge.getPrefBool('convert/dirasoriginal') ? '' : Page.translate(
                            'No folder is set for converted files. Convert recordings has it.'));
                    bridge.openConvertParameterEditDialog(keys());
                })));
            }
            tools.forEach(function (tool) { Page.get('tools').appendChild(tool); });
        }

        Page.get('title').textContent = Page.translate(page.title);
        Page.get('notice').hidden = page.isSettings === true;
        if (page.isSettings)
            Page.get('save').textContent = Page.translate('OK');
        var form = SaveForm(page, changed, function () { draw(); });
        var targets = (page.makeTargets || SaveTargets)(page, function () {
            if (skip)
                skip.follow();
            ask(false);
        });
        var skip = page.hasSkip ? SaveSkip(targets, draw) : null;
        var destinations = page.hasDestinations ? SaveDestinations(form, draw) : null;
        options();
        addTools();

        Page.listen(Page.get('save'), 'click', function () {
            form.store(true);
            if (form.isRefused()) {
                form.focusRefused();
                return;
            }
            if (page.isSettings) {
                bridge.accept();
                return;
            }
            ask(false);
            if (refused)
                return;
            targets.chosen().forEach(function (row) {
                bridge.exportTarget(row.dockey, Number(row.partitionno));
            });
            bridge.saveAction();
            bridge.accept();
        });
        Page.listen(Page.get('cancel'), 'click', function () {
            form.store(true);
            if (!page.isSettings)
                bridge.cancelAction();
            bridge.reject();
        });
        return draw;
    }

    return { start: start, pause: Pause };
})();
