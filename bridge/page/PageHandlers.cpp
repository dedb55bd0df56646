#include "bridge/page/PageHandlers.h"

#include "bridge/operation/OperationLog.h"

#include <QEvent>
#include <QMap>
#include <QMetaMethod>
#include <QStringList>
#include <QWebFrame>

namespace {

// A signal that script connects to is a function object with a connect() of its own, the same one
// in page after page. The engine keeps it only while someone refers to it, so the window does.
// Called with the names of the signals and the number of the page; false in a page that is guarded
// already.
const char *const Script =
    "(function (names, page) {"
    "    var handlers = window.__pageHandlers, object = window.__pageObject;"
    "    delete window.__pageHandlers;"
    "    delete window.__pageObject;"
    "    var kept = window.__guardedSignals;"
    "    if (!kept) {"
    "        kept = [];"
    "        Object.defineProperty(window, '__guardedSignals', { value: kept });"
    "    }"
    "    if (kept.indexOf(handlers) >= 0)"
    "        return false;"
    "    kept.push(handlers, object);"
    "    function textOf(error) {"
    "        var text = 'unknown';"
    "        try { text = String(error); } catch (second) { }"
    "        if (error && error.sourceURL)"
    "            text += ' (' + error.sourceURL + ':' + error.line + ')';"
    "        return text;"
    "    }"
    "    function caught(handler) {"
    "        return function () {"
    "            try {"
    "                if (handlers.pageNumber === page)"
    "                    handler.apply(this, arguments);"
    "            } catch (error) {"
    "                try { handlers.failed(textOf(error)); } catch (second) { }"
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
    "        var native = signal.__native, known = [];"
    "        if (!native) {"
    "            native = { connect: signal.connect, disconnect: signal.disconnect };"
    "            signal.__native = native;"
    "        }"
    "        signal.connect = function () {"
    "            var to = split(arguments);"
    "            to.caught = caught(to.handler);"
    "            forward(native.connect, to);"
    "            known.push(to);"
    "        };"
    "        signal.disconnect = function () {"
    "            var to = split(arguments);"
    "            for (var i = 0; i < known.length; ++i) {"
    "                if (known[i].handler === to.handler && known[i].receiver === to.receiver)"
    "                    return forward(native.disconnect, known.splice(i, 1)[0]);"
    "            }"
    "            throw new Error('disconnect: the target is not connected');"
    "        };"
    "        kept.push(signal);"
    "    }"
    "    for (var i = 0; i < names.length; ++i)"
    "        guard(object[names[i]]);"
    "    return true;"
    "})";

// By this name it is found, another copy of this class too.
const QLatin1String OwnName("orvixPageHandlers");

// Script text of the names of all signals. By its signature a page gets another function object,
// for which it has no use but where signals share a name.
QString signalNames(const QMetaObject &meta)
{
    QMap<QString, QStringList> signatures;
    for (int i = 0; i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.methodType() == QMetaMethod::Signal)
            signatures[QString::fromLatin1(method.name())].append(
                QString::fromLatin1(method.methodSignature()));
    }
    QStringList names;
    for (auto signal = signatures.cbegin(); signal != signatures.cend(); ++signal) {
        names.append(signal.key());
        if (signal.value().size() > 1)
            names.append(signal.value());
    }
    return QLatin1Char('\'') + names.join(QLatin1String("','")) + QLatin1Char('\'');
}

}

void PageHandlers::guard(QWebFrame *frame, QObject *object)
{
    // Among the object's children are the engine's, for what pages have connected.
    const auto known = object->findChildren<QObject *>(OwnName, Qt::FindDirectChildrenOnly);
    for (const QObject *child : known) {
        if (child->property("frame").value<QObject *>() == frame)
            return;
    }
    auto *handlers = new PageHandlers(frame, object);
    connect(frame, &QWebFrame::javaScriptWindowObjectCleared, handlers, &PageHandlers::install);
    if (!frame->url().isEmpty()) // else the first page is still to come
        handlers->install();
}

PageHandlers::PageHandlers(QWebFrame *frame, QObject *object)
    : QObject(object), m_frame(frame),
      m_script(QLatin1String(Script) + QLatin1String("([") + signalNames(*object->metaObject()) +
               QLatin1String("], "))
{
    setObjectName(OwnName);
}

bool PageHandlers::event(QEvent *event)
{
    // Script that calls deleteLater() on it deletes nothing; it goes with its mediator.
    return event->type() == QEvent::DeferredDelete || QObject::event(event);
}

void PageHandlers::install()
{
    const int page = m_pageNumber + 1;
    m_frame->addToJavaScriptWindowObject(QLatin1String("__pageHandlers"), this);
    m_frame->addToJavaScriptWindowObject(QLatin1String("__pageObject"), parent());
    if (m_frame->evaluateJavaScript(m_script + QString::number(page) + QLatin1Char(')')).toBool())
        m_pageNumber = page;
}

void PageHandlers::failed(const QString &error)
{
    OperationLog::scriptError(error);
}
