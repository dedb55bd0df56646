'use strict';

// What all pages share: a page starts with Page.start('name of its mediator', setup), and talks to
// the application through Page.bridge only. This is the first script of each page, so that it hears
// what the others do wrong. Nothing that a handler throws leaves it: it is told in the log and by a
// notice, and the page goes on.
var Page = (function () {
    var page = { bridge: null };

    function has(slot) {
        return page.bridge !== null && typeof page.bridge[slot] === 'function';
    }

    // A dialog that its page works directly has an error log of its own. Where nobody shows notices,
    // the log alone is told.
    function tell(what, file, line) {
        var whole = file ? what + ' (' + file + ':' + line + ')' : what;
        if (!has('errorLog') && has('userOperationErrorLog')) {
            page.bridge.userOperationErrorLog(whole);
            if (window.pageFailures)
                window.pageFailures.scriptFailureIsLogged(location.href, what, file, line);
        } else if (window.pageFailures) {
            window.pageFailures.scriptFailed(location.href, what, file, line);
        } else if (has('errorLog')) {
            page.bridge.errorLog(whole);
        }
    }

    function report(error) {
        var what = 'unknown';
        try { what = String(error); } catch (second) { }
        tell(what, error && error.sourceURL || '', error && error.line || 0);
    }

    // What is thrown while the page loads or in a timer, and a file that is no script.
    window.onerror = function (message, file, line) {
        tell(message, file, line);
    };

    // What cannot be loaded; such an event passes the window on its way down only.
    window.addEventListener('error', function (event) {
        var file = event.target.src || event.target.href;
        if (file && window.pageFailures)
            window.pageFailures.fileIsMissing(location.href, file);
    }, true);

    page.guard = function (handler) {
        return function () {
            try {
                return handler.apply(this, arguments);
            } catch (error) {
                report(error);
            }
        };
    };

    // A handler of a mediator's signal.
    page.connect = function (signal, handler) {
        signal.connect(page.guard(handler));
    };

    // A handler of an event in the page.
    page.listen = function (element, type, handler) {
        element.addEventListener(type, page.guard(handler));
    };

    page.get = function (id) {
        return document.getElementById(id);
    };

    page.all = function (selector) {
        return Array.from(document.querySelectorAll(selector));
    };

    page.translate = function (text) {
        return page.bridge.translate(text);
    };

    // A translated text with something of the page's own in place of %1.
    page.fill = function (text, value) {
        return page.translate(text).split('%1').join(String(value));
    };

    // An element with a class and text, which is shown as it stands.
    page.make = function (tag, className, text) {
        var element = document.createElement(tag);
        element.className = className;
        element.textContent = text;
        return element;
    };

    // Shows an element with a text of the kind 'empty' or 'error', or hides it for an empty text.
    page.tell = function (id, kind, text) {
        var element = page.get(id);
        element.className = 'state ' + kind;
        element.textContent = text;
        element.hidden = text === '';
        element.setAttribute('role', kind === 'error' ? 'alert' : 'status');
    };

    // Tells the user in the element, and the log, what could not be done.
    page.tellFailure = function (id, text) {
        page.bridge.userOperationErrorLog(text);
        page.tell(id, 'error', page.translate(text));
    };

    // Says in the element when a setting that was stored just now is not what it was set to.
    page.tellStored = function (id, isStored) {
        page.tell(id, 'error', isStored ? '' : page.translate('The setting could not be stored.'));
        return isStored;
    };

    // Chooses a value in a list, the first one where the list does not have it. The engine tells a
    // choice of the user only where it differs from the last one that it told or that the list had
    // when it got the focus, so a list that has it gets it anew.
    page.setChoice = function (list, value) {
        list.value = String(value);
        if (list.selectedIndex < 0)
            list.selectedIndex = 0;
        if (document.activeElement === list) {
            list.blur();
            list.focus();
        }
    };

    // The button of this id gives up what was done, and so does every other way out of the dialog
    // but its acceptance: each calls the mediator's `cancel`, which itself ends the dialog, once.
    page.cancelBy = function (id) {
        var cancelling = false;
        var cancel = function () {
            if (cancelling)
                return;
            cancelling = true;
            page.bridge.cancel();
            cancelling = false;
        };
        page.listen(page.get(id), 'click', cancel);
        page.connect(page.bridge.rejected, cancel);
    };

    // A list whose rows are its elements. One of them takes part in Tab, the chosen one at first; from
    // there the arrows, Home, End, the page keys and the letters of a row's text go on. A click,
    // Enter or Space calls `choose` with the row and the event, whose modifiers may mean more.
    page.list = function (list, choose) {
        var stop = null;
        var typed = '';
        var typedAt = 0;
        var Pause = 1000; // milliseconds, after which letters begin a new word

        function rows() {
            return Array.from(list.children);
        }

        function rowOf(element) {
            while (element !== list && element.parentNode !== list)
                element = element.parentNode;
            return element === list ? null : element;
        }

        function setStop(row) {
            if (stop)
                stop.tabIndex = -1;
            stop = row;
            if (stop)
                stop.tabIndex = 0;
        }

        function pick(row, event) {
            logOperation('clicked', row, '');
            choose(row, event);
        }

        // How many rows a page key goes on.
        function pageSize(row) {
            return Math.max(1, Math.floor(list.clientHeight / row.offsetHeight) - 1);
        }

        function rowOfKey(all, at, key) {
            var last = all.length - 1;
            switch (key) {
            case 33: return all[Math.max(0, at - pageSize(all[at]))];
            case 34: return all[Math.min(last, at + pageSize(all[at]))];
            case 35: return all[last];
            case 36: return all[0];
            case 38: return all[Math.max(0, at - 1)];
            case 40: return all[Math.min(last, at + 1)];
            }
            return null;
        }

        // A letter again goes on to the next row that begins with it.
        function rowOfLetters(all, at, letter, now) {
            typed = now - typedAt < Pause ? typed + letter : letter;
            typedAt = now;
            var isNew = typed.length === 1;
            for (var i = isNew ? 1 : 0; i < all.length + (isNew ? 1 : 0); ++i) {
                var row = all[(at + i) % all.length];
                if (row.textContent.trim().toLowerCase().indexOf(typed) === 0)
                    return row;
            }
            return null;
        }

        page.listen(list, 'click', function (event) {
            var row = rowOf(event.target);
            if (row)
                pick(row, event);
        });
        page.listen(list, 'focusin', function (event) {
            if (event.target.parentNode === list)
                setStop(event.target);
        });
        page.listen(list, 'keydown', function (event) {
            var row = event.target;
            if (row.parentNode !== list || event.altKey)
                return; // not in what a row holds
            var all = rows();
            var next = rowOfKey(all, all.indexOf(row), event.keyCode);
            if (event.keyCode === 13 || event.keyCode === 32)
                pick(row, event);
            else if (next)
                next.focus();
            else
                return;
            event.preventDefault();
        });
        page.listen(list, 'keypress', function (event) {
            if (event.target.parentNode !== list || event.ctrlKey || event.altKey || event.metaKey)
                return;
            var all = rows();
            var letter = String.fromCharCode(event.charCode).toLowerCase();
            var row = rowOfLetters(all, all.indexOf(event.target), letter, Date.now());
            if (row)
                row.focus();
        });

        return {
            // Shows these rows in place of those before. The row that had the focus keeps it, by its
            // id; one that has gone hands it to the row in its place.
            fill: function (elements) {
                var before = rows();
                var focused = document.activeElement;
                var at = list.contains(focused) ? before.indexOf(rowOf(focused)) : -1;
                var id = stop ? stop.id : '';
                var top = list.scrollTop;
                setStop(null);
                list.textContent = '';
                elements.forEach(function (row) {
                    row.tabIndex = -1;
                    row.setAttribute('role', 'option');
                    list.appendChild(row);
                });
                list.scrollTop = top;
                var all = rows();
                setStop(all.find(function (row) { return id !== '' && row.id === id; }) ||
                    all[Math.min(at, all.length - 1)] ||
                    list.querySelector('[aria-selected=true]') || all[0] || null);
                if (at >= 0 && stop)
                    stop.focus();
            },
            // Marks a row as one of the chosen ones.
            mark: function (row, isSelected) {
                row.setAttribute('aria-selected', String(isSelected));
            },
            // Goes to the row that is in the tab order.
            focus: function () {
                if (stop)
                    stop.focus();
            }
        };
    };

    // A list of which several rows may be chosen. A click, Enter or Space chooses a row alone, with
    // Ctrl it joins or leaves the others, and with Shift all rows are chosen from the last one that
    // was chosen without it; Shift and a key that goes on do the same, and Ctrl+A takes all.
    // `changed` is called with the event when the user has chosen. Rows that come anew are known by
    // their ids.
    page.multiList = function (element, changed) {
        var anchor = null;

        function rows() {
            return Array.from(element.children);
        }

        function chosen() {
            return rows().filter(function (row) {
                return row.getAttribute('aria-selected') === 'true';
            });
        }

        function select(wanted) {
            var set = new Set(wanted);
            rows().forEach(function (row) { list.mark(row, set.has(row)); });
        }

        function isAnchor(row) {
            return row === anchor || (anchor !== null && row.id !== '' && row.id === anchor.id);
        }

        function choose(row, event) {
            var all = rows();
            var from = all.findIndex(isAnchor);
            if (event.shiftKey && from >= 0) {
                var ends = [from, all.indexOf(row)];
                select(all.slice(Math.min(ends[0], ends[1]), Math.max(ends[0], ends[1]) + 1));
            } else {
                anchor = row;
                if (event.ctrlKey)
                    list.mark(row, row.getAttribute('aria-selected') !== 'true');
                else
                    select([row]);
            }
            changed(event);
        }

        var list = page.list(element, choose);
        element.setAttribute('role', 'listbox');
        element.setAttribute('aria-multiselectable', 'true');
        page.listen(element, 'keydown', function (event) {
            var row = document.activeElement; // the list has gone on to it
            if (event.ctrlKey && event.keyCode === 65) {
                select(rows());
                changed(event);
                event.preventDefault();
            } else if (event.shiftKey && event.keyCode >= 33 && event.keyCode <= 40 &&
                    row.parentNode === element) {
                choose(row, event);
            }
        });
        return {
            fill: list.fill,
            mark: list.mark,
            focus: list.focus,
            chosen: chosen // in their order
        };
    };

    function takeStyle() {
        var dark = page.bridge.getStyle().toLowerCase() === 'dark';
        document.body.classList.remove(dark ? 'light' : 'dark');
        document.body.classList.add(dark ? 'dark' : 'light');
    }

    // Called where nothing signals to the page.
    page.followStyle = page.guard(takeStyle);

    // Called when documents have come or gone; a page that shows some has a function of its own.
    page.followDocuments = function () { };

    // Marked texts: data-tr, and data-tr-label for what only screen readers and tips say. They are
    // kept as they were, so that a page can be translated again.
    function translateAll() {
        page.all('[data-tr]').forEach(function (element) {
            element.dataset.source = element.dataset.source || element.textContent;
            element.textContent = page.translate(element.dataset.source);
        });
        page.all('[data-tr-label]').forEach(function (element) {
            var text = page.translate(element.getAttribute('data-tr-label'));
            element.setAttribute('aria-label', text);
            element.title = text;
        });
    }

    // Keys that an input of any other kind gets are text.
    var WithoutText = ['button', 'checkbox', 'color', 'file', 'hidden', 'image', 'radio', 'range',
        'reset', 'submit'];

    function isTextBox(element) {
        return element.tagName === 'TEXTAREA' || element.isContentEditable === true ||
            (element.tagName === 'INPUT' && WithoutText.indexOf(element.type) < 0);
    }

    // While the user types, the shortcuts of the main window stand aside. A box that hides or goes
    // loses the focus without a word.
    function followTextBoxes() {
        if (!has('setTextBoxFocusState'))
            return;
        var typing = null;
        function tellTyping(box) {
            if ((box !== null) !== (typing !== null))
                page.bridge.setTextBoxFocusState(box !== null);
            typing = box;
        }
        document.addEventListener('focus', page.guard(function (event) {
            tellTyping(isTextBox(event.target) ? event.target : null);
        }), true);
        document.addEventListener('blur', page.guard(function () { tellTyping(null); }), true);
        new MutationObserver(page.guard(function () {
            if (typing && document.activeElement !== typing)
                tellTyping(null);
            else if (typing && typing.getClientRects().length === 0)
                typing.blur();
        })).observe(document.body, { attributes: true, childList: true, subtree: true });
    }

    function logOperation(operation, element, value) {
        var name = element.type === 'checkbox' ? 'CheckBox' :
            element.type === 'radio' ? 'RadioButton' :
            element.tagName.charAt(0) + element.tagName.slice(1).toLowerCase();
        page.bridge.userOperationLogWebView(location.href, operation, name, element.id,
            element.className, value);
    }

    // What the user did comes before what follows from it, so this listens on the way down.
    function followUser() {
        document.addEventListener('click', page.guard(function (event) {
            if (event.target.tagName === 'BUTTON')
                logOperation('clicked', event.target, '');
        }), true);
        document.addEventListener('change', page.guard(function (event) {
            var element = event.target;
            logOperation('changed', element,
                element.type === 'checkbox' ? element.checked : element.value);
        }), true);
    }

    // Enter in a form would leave the page, with what was typed in its address.
    document.addEventListener('submit', function (event) { event.preventDefault(); }, true);

    // A dialog that its page works directly has slots of these names, to which nothing connects.
    // Only that tells them from signals: a slot has a function `connect` too.
    function connectSignal(signal, handler) {
        try {
            page.connect(signal, handler);
        } catch (isSlot) { }
    }

    // `setup` prepares the page and gives the function that draws it: now, on `open`, and on each
    // `update`.
    page.start = function (name, setup) {
        window.addEventListener('load', page.guard(function () {
            page.bridge = window[name] || null;
            if (!page.bridge) {
                document.body.classList.add('light');
                document.body.textContent = 'This page works in the application only.';
                return;
            }
            takeStyle();
            translateAll();
            followTextBoxes();
            followUser();
            var draw = page.guard(setup());
            connectSignal(page.bridge.open, draw);
            connectSignal(page.bridge.update, function () {
                takeStyle();
                draw();
            });
            draw();
        }));
    };

    return page;
})();
