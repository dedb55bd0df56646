#include "workbench/pages/PageWindow.h"

#include "bridge/page/GUI_WebView.h"

#include <QUrl>
#include <QWebFrame>

bool PageWindow::show(GUI_WebView *view, const QString &name, QObject *object)
{
    QWebFrame *frame = view->page()->mainFrame();
    const QByteArray mark = "shows " + name.toUtf8();
    if (frame->property(mark).toBool())
        return false;
    frame->setProperty(mark, true);
    const auto add = [frame, name, object] { frame->addToJavaScriptWindowObject(name, object); };
    if (!frame->url().isEmpty()) // else the first page is still to come
        add();
    QObject::connect(frame, &QWebFrame::javaScriptWindowObjectCleared, object, add);
    return true;
}
