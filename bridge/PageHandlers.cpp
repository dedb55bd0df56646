#include "bridge/PageHandlers.h"

#include "bridge/OperationLog.h"

#include <QMetaMethod>
#include <QWebFrame>

namespace {

// A signal that script connects to is a function object with a connect() of its own, the same one
// in page after page. The engine keeps it only while someone refers to it, so the window does.
const char *const Script =
    "(function () {"
    "    var handlers = window.__pageHandlers;"
    "    delete window.__pageHandlers;"
    "    if (!window.__guardedSignals)"
    "        Object.defineProperty(window, '__guardedSignals', { value: [] });"
    "    var kept = window.__guardedSignals;"
    "    if (kept.indexOf(handlers) >= 0)"
    "        return;"
    "    var page = handlers.beginPage();"
    "    function textOf(error) {"
    "        var text = 'unknown';"
    "        try { text = String(error); } catch (second) { }"
    "        if (error && error.sourceURL)"
    "            text += ' (' + error.sourceURL + ':' + error.line + ')';"
    "        return text;"
    "    }"
    "    function caught(handler) {"
    "        return function () {"
    "            if (handlers.pageNumber !== page)"
    "                return;"
    "            try {"
    "                handler.apply(this, arguments);"
    "            } catch (error) {"
    "                handlers.failed(textOf(error));"
    "            }"
    "        };"
    "    }"
    "    function split(args) {"
    "        var both = args.length > 1, handler = args[both ? 1 : 0], receiver = null;"
    "        if (both) {"
    "            receiver = args[0];"
    "            if (receiver === null || receiver === undefined)"
    "                throw new TypeError('connect: the receiver is no object');"
    "            if (typeof handler !== 'function')"
    "                handler = receiver[handler];"
    "        }"
    "        if (typeof handler !== 'function')"
    "            throw new TypeError('connect: the target is no function');"
    "        return { both: both, receiver: receiver, handler: handler };"
    "    }"
    "    function forward(method, to) {"
    "        return to.both ? method(to.receiver, to.caught) : method(to.caught);"
    "    }"
    "    function guard(signal) {"
    "        if (!signal.__native) {"
    "            Object.defineProperty(signal, '__native', {"
    "                value: { connect: signal.connect, disconnect: signal.disconnect }"
    "            });"
    "        }"
    "        var connect = signal.__native.connect, disconnect = signal.__native.disconnect;"
    "        var known = [];"
    "        signal.connect = function () {"
    "            var to = split(arguments);"
    "            to.caught = caught(to.handler);"
    "            forward(connect, to);"
    "            known.push(to);"
    "        };"
    "        signal.disconnect = function () {"
    "            var to = split(arguments);"
    "            for (var i = 0; i < known.length; ++i) {"
    "                if (known[i].handler === to.handler && known[i].receiver === to.receiver)"
    "                    return forward(disconnect, known.splice(i, 1)[0]);"
    "            }"
    "            throw new Error('disconnect: the target is not connected');"
    "        };"
    "    }"
    "    var object = handlers.object;"
    "    kept.push(handlers, object);"
    "    handlers.names.forEach(function (name) {"
    "        var signal = object[name];"
    "        guard(signal);"
    "        kept.push(signal);"
    "    });"
    "})()";

QStringList signalNames(const QMetaObject &meta)
{
    QStringList names;
    for (int i = 0; i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        const QString name = QString::fromLatin1(method.name());
        if (!names.contains(name))
            names.append(name);
        names.append(QString::fromLatin1(method.methodSignature()));
    }
    return names;
}

}

void PageHandlers::guard(QWebFrame *frame, QObject *object)
{
    const QObjectList children = object->children();
    for (const QObject *child : children) {
        // By name, since another copy of this class may have made it.
        if (child->inherits("PageHandlers") && child->property("frame").value<QObject *>() == frame)
            return;
    }
    auto *handlers = new PageHandlers(frame, object);
    connect(frame, &QWebFrame::javaScriptWindowObjectCleared, handlers, &PageHandlers::install);
    handlers->install();
}

PageHandlers::PageHandlers(QWebFrame *frame, QObject *object)
    : QObject(object), m_frame(frame), m_names(signalNames(*object->metaObject()))
{
}

void PageHandlers::install()
{
    m_frame->addToJavaScriptWindowObject(QLatin1String("__pageHandlers"), this);
    m_frame->evaluateJavaScript(QLatin1String(Script));
}

int PageHandlers::beginPage()
{
    return ++m_pageNumber;
}

void PageHandlers::failed(const QString &error)
{
    OperationLog::scriptError(error);
}
