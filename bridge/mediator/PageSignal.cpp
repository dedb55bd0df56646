#include "bridge/mediator/PageSignal.h"

#include "bridge/mediator/JS_Mediator.h"
#include "bridge/mediator/PageSignalFrame.h"
#include "bridge/page/GUI_WebView.h"

#include <QWebFrame>
#include <QWebPage>

namespace {

// The frame object lives in the page's window only while the script begins.
const char *const Script = "(function () {"
                           "    var frame = window.__pageSignal;"
                           "    delete window.__pageSignal;"
                           "    frame.run();"
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
    PageSignalFrame object(emission);
    if (QWebFrame *frame = frameOf(mediator)) {
        frame->addToJavaScriptWindowObject(QLatin1String("__pageSignal"), &object);
        frame->evaluateJavaScript(QLatin1String(Script));
    }
    object.run(); // where there is no page, or one without script
    object.rethrow();
}

}
