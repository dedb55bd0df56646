'use strict';

// What both pages of the tool share. Nothing that a handler throws leaves the page.
var Region = {
    // `setup` gets the mediator and gives the function that draws the page.
    start: function (mediatorName, setup) {
        window.addEventListener('load', function () {
            var bridge = window[mediatorName];
            if (!bridge) {
                document.body.textContent = 'This page works in the application only.';
                return;
            }
            function guard(handler) {
                return function () {
                    try {
                        return handler.apply(this, arguments);
                    } catch (error) {
                        bridge.errorLog(String(error));
                    }
                };
            }
            var draw = guard(setup(bridge, guard));
            function show() {
                document.body.className = bridge.getStyle() === 'dark' ? 'dark' : '';
                draw();
            }
            Array.from(document.querySelectorAll('[data-tr]')).forEach(function (element) {
                element.textContent = bridge.translate(element.textContent);
            });
            bridge.open.connect(show);
            bridge.update.connect(show);
            show();
        });
    },

    // Shows a value in a text box, but not under the user's hands.
    show: function (id, value) {
        var box = document.getElementById(id);
        if (box !== document.activeElement)
            box.value = value;
    }
};
