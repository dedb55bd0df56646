// A signal that script connects to is a function object with a connect() of its own, the same one in
// page after page. The engine keeps it only while someone refers to it, so the window does. Called
// with the names of the signals and the number of the page; false in a page that is guarded already.
(function (names, page) {
    var handlers = window.__pageHandlers, object = window.__pageObject;
    delete window.__pageHandlers;
    delete window.__pageObject;
    var kept = window.__guardedSignals;
    if (!kept) {
        kept = [];
        Object.defineProperty(window, '__guardedSignals', { value: kept });
    }
    if (kept.indexOf(handlers) >= 0)
        return false;
    kept.push(handlers, object);
    function textOf(error) {
        var text = 'unknown';
        try { text = String(error); } catch (second) { }
        if (error && error.sourceURL)
            text += ' (' + error.sourceURL + ':' + error.line + ')';
        return text;
    }
    function caught(handler) {
        return function () {
            try {
                if (handlers.pageNumber === page)
                    handler.apply(this, arguments);
            } catch (error) {
                try { handlers.failed(textOf(error)); } catch (second) { }
            }
        };
    }
    function split(args) {
        var both = args.length > 1, handler = args[both ? 1 : 0], receiver = null;
        if (both) {
            receiver = args[0];
            if (receiver === null || receiver === undefined)
                throw new TypeError('connect: the receiver is no object');
            if (typeof handler !== 'function')
                handler = receiver[handler];
        }
        if (typeof handler !== 'function')
            throw new TypeError('connect: the target is no function');
        return { both: both, receiver: receiver, handler: handler };
    }
    function forward(method, to) {
        return to.both ? method(to.receiver, to.caught) : method(to.caught);
    }
    function guard(signal) {
        var native = signal.__native, known = [];
        if (!native) {
            native = { connect: signal.connect, disconnect: signal.disconnect };
            signal.__native = native;
        }
        signal.connect = function () {
            var to = split(arguments);
            to.caught = caught(to.handler);
            forward(native.connect, to);
            known.push(to);
            handlers.connected();
        };
        signal.disconnect = function () {
            var to = split(arguments);
            for (var i = 0; i < known.length; ++i) {
                if (known[i].handler === to.handler && known[i].receiver === to.receiver)
                    return forward(native.disconnect, known.splice(i, 1)[0]);
            }
            throw new Error('disconnect: the target is not connected');
        };
        kept.push(signal);
    }
    for (var i = 0; i < names.length; ++i)
        guard(object[names[i]]);
    return true;
})
