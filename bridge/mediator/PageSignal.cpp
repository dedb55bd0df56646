#include "bridge/mediator/PageSignal.h"

#include "bridge/mediator/PageSignalFrame.h"
#include "bridge/page/PageHandlers.h"

#include <QWebFrame>

namespace {

// The frame object lives in the page's window only while the script begins.
const char *const Script = "(function () {"
                           "    var frame = window.__pageSignal;"
                           "    delete window.__pageSignal;"
                           "    frame.run();"
                           "})()";

}

namespace PageSignal {

void send(QObject *object, const std::function<void()> &emission)
{
    PageSignalFrame sender(emission);
    if (QWebFrame *frame = PageHandlers::frameOf(object)) {
        frame->addToJavaScriptWindowObject(QLatin1String("__pageSignal"), &sender);
        frame->evaluateJavaScript(QLatin1String(Script));
    }
    sender.run(); // where there is no page, or one without script
    sender.rethrow();
}

}
