#include "bridge/JS_Mediator.h"

#include "bridge/GUI_WebView.h"
#include "bridge/OperationLog.h"

namespace {

// Pages pass these by name; an alias leaves nothing behind when the module goes.
void registerPageTypes()
{
    qRegisterMetaType<DOCKEY>("DOCKEY");
    qRegisterMetaType<PARTITIONNUMBER>("PARTITIONNUMBER");
}

}

JS_Mediator::JS_Mediator(HostServices *host, const QString &name) : m_host(host), m_name(name)
{
    registerPageTypes();
    setObjectName(name);
}

JS_Mediator::~JS_Mediator() = default;

GUI_WebView *JS_Mediator::webView() const
{
    return static_cast<GUI_WebView *>(m_webView.data());
}

void JS_Mediator::setWebView(GUI_WebView *view)
{
    m_webView = view;
}

void JS_Mediator::log(const QString &) {}

void JS_Mediator::infoLog(const QString &msg)
{
    OperationLog::info(msg);
}

void JS_Mediator::debugLog(const QString &) {}

void JS_Mediator::errorLog(const QString &msg)
{
    OperationLog::error(msg);
}

void JS_Mediator::userOperationLogWebView(const QString &url, const QString &operation,
                                          const QString &control, const QString &id,
                                          const QString &className, const QVariant &value)
{
    OperationLog::userOperation(url, operation, control, id, className, value);
}

void JS_Mediator::userOperationErrorLog(const QString &message)
{
    OperationLog::userOperationError(message);
}
