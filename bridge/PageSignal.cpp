#include "bridge/PageSignal.h"

#include "bridge/GUI_WebView.h"
#include "bridge/JS_Mediator.h"
#include "bridge/OperationLog.h"
#include "bridge/PageSignalFrame.h"

#include <QWebFrame>
#include <QWebPage>

namespace {

// The frame object lives in the page's window only while the script runs.
const char *const Script = "(function () {"
                           "    var frame = window.__pageSignal;"
                           "    delete window.__pageSignal;"
                           "    try { frame.run(); } catch (e) { frame.failed(String(e)); }"
                           "})()";

QWebFrame *frameOf(JS_Mediator *mediator)
{
    GUI_WebView *view = mediator->webView();
    return view ? view->page()->mainFrame() : nullptr;
}

}

namespace PageSignal {

void send(JS_Mediator *mediator, const std::function<void()> &emission)
{
    QWebFrame *frame = frameOf(mediator);
    if (!frame) {
        emission();
        return;
    }
    PageSignalFrame object(emission);
    frame->addToJavaScriptWindowObject(QLatin1String("__pageSignal"), &object);
    frame->evaluateJavaScript(QLatin1String(Script));
    if (!object.hasRun()) // a page without script
        object.run();
    if (!object.scriptError().isEmpty())
        OperationLog::scriptError(object.scriptError());
    object.rethrow();
}

}
