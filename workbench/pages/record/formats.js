'use strict';

// What the dialogs share that set how a value is written: a change is stored at once and seen in the
// example, and every way out but OK takes it back.
var Formats = {};

// `describe` gets the application's samples and gives
//   controls: by the id of each, the slots that read and store it, and the choices of a list;
//   example: the text of the example, from the values of the controls by their ids.
Formats.start = function (name, describe) {
    Page.start(name, function () {
        var bridge = Page.bridge;
        var format = describe(window.informationSamples);
        var ids = Object.keys(format.controls);

        function valueOf(id) {
            var element = Page.get(id);
            return element.type === 'checkbox' ? element.checked : Number(element.value);
        }

        // A number that is not listed means the first choice.
        function show(id, value) {
            var element = Page.get(id);
            if (element.type === 'checkbox')
                element.checked = value;
            else
                Page.setChoice(element, value);
        }

        function draw() {
            var values = {};
            ids.forEach(function (id) {
                show(id, bridge[format.controls[id].read]());
                values[id] = valueOf(id);
            });
            Page.get('example').textContent = format.example(values);
        }

        ids.forEach(function (id) {
            var control = format.controls[id];
            (control.choices || []).forEach(function (choice) {
                var option = Page.make('option', '', Page.translate(choice.label));
                option.value = choice.number;
                Page.get(id).appendChild(option);
            });
            Page.listen(Page.get(id), 'change', function () {
                var value = valueOf(id);
                bridge[control.store](value);
                var isStored = bridge[control.read]() === value;
                draw();
                Page.get('example').hidden = !Page.tellStored('state', isStored);
            });
        });
        Page.listen(Page.get('ok'), 'click', function () { bridge.ok(); });
        Page.cancelBy('cancel');
        Page.get(ids[0]).focus();
        return draw;
    });
};
