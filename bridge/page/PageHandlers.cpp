#include "bridge/page/PageHandlers.h"

#include "bridge/operation/OperationLog.h"
#include "bridge/page/AfterScript.h"
#include "bridge/page/PageTypes.h"

#include <QMetaMethod>
#include <QStringList>
#include <QWebFrame>

#include <utility>

namespace {

// Called with the names of the signals and the number of the page; false in a page that is guarded
// already.
const char *const Script =
#include "bridge/page/PageHandlers.js.h"
    ;

// By this name it is found, another copy of this class too.
const QLatin1String OwnName("orvixPageHandlers");

// What the engine makes for each handler. It has this name, but no type that C++ could ask for.
const char *const EngineConnection = "JSC::Bindings::QtConnectionObject";

// The engine's objects come without the type information by which the sanitizer checks each call.
__attribute__((no_sanitize("vptr"))) bool isEngineConnection(const QObject *object)
{
    return qstrcmp(object->metaObject()->className(), EngineConnection) == 0;
}

__attribute__((no_sanitize("vptr"))) void remove(QObject *connection)
{
    delete connection;
}

// Script text of the names of all signals: by its signature a page gets another function object
// than by its plain name, which signals may share.
QString signalNames(const QMetaObject &meta)
{
    QStringList names;
    for (int i = 0; i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        names.append(QString::fromLatin1(method.name()));
        names.append(QString::fromLatin1(method.methodSignature()));
    }
    names.removeDuplicates();
    return QLatin1Char('\'') + names.join(QLatin1String("','")) + QLatin1Char('\'');
}

}

void PageHandlers::guard(QWebFrame *frame, QObject *object)
{
    registerPageTypes();
    // Among the object's children are the engine's, for what pages have connected.
    const auto known = object->findChildren<QObject *>(OwnName, Qt::FindDirectChildrenOnly);
    for (const QObject *child : known) {
        if (child->property("frame").value<QObject *>() == frame)
            return;
    }
    auto *handlers = new PageHandlers(frame, object);
    connect(frame, &QWebFrame::javaScriptWindowObjectCleared, handlers, &PageHandlers::install);
    connect(frame, &QObject::destroyed, handlers, &PageHandlers::leave);
    if (!frame->url().isEmpty()) // else the first page is still to come
        handlers->install();
}

QWebFrame *PageHandlers::frameOf(const QObject *object)
{
    QWebFrame *frame = nullptr;
    const auto known = object->findChildren<QObject *>(OwnName, Qt::FindDirectChildrenOnly);
    for (const QObject *child : known) {
        if (auto *shown = child->property("frame").value<QObject *>())
            frame = static_cast<QWebFrame *>(shown);
    }
    return frame;
}

PageHandlers::PageHandlers(QWebFrame *frame, QObject *object)
    : PageProof(object), m_frame(frame),
      m_script(QLatin1String(Script) + QLatin1String("([") + signalNames(*object->metaObject()) +
               QLatin1String("], "))
{
    setObjectName(OwnName);
}

void PageHandlers::install()
{
    disconnectPage();
    const int page = m_pageNumber + 1;
    m_frame->addToJavaScriptWindowObject(QLatin1String("__pageHandlers"), this);
    m_frame->addToJavaScriptWindowObject(QLatin1String("__pageObject"), parent());
    if (m_frame->evaluateJavaScript(m_script + QString::number(page) + QLatin1Char(')')).toBool())
        m_pageNumber = page;
}

// The engine keeps what connects a signal to a handler as a child of the object that signals, until
// the page disconnects or the object goes; and with it the page.
void PageHandlers::connected()
{
    QObject *newest = parent()->children().constLast();
    if (!isEngineConnection(newest))
        return;
    m_connections.removeAll(nullptr);
    if (!m_connections.contains(newest))
        m_connections.append(newest);
}

void PageHandlers::disconnectPage()
{
    const auto connections = std::exchange(m_connections, {});
    const auto removeAll = [connections] {
        for (const auto &connection : connections)
            remove(connection);
    };
    // A handler that is on the stack, while its page loads again, still has its connection.
    if (!connections.isEmpty() && m_frame && AfterScript::isScriptRunning(m_frame))
        AfterScript::run(removeAll);
    else
        removeAll();
}

void PageHandlers::leave()
{
    disconnectPage();
    delete this;
}

void PageHandlers::failed(const QString &error)
{
    OperationLog::scriptError(error);
}
