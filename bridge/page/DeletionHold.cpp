#include "bridge/page/DeletionHold.h"

#include "bridge/page/AfterScript.h"
#include "bridge/page/GUI_WebPage.h"

#include <QEvent>
#include <QWebFrame>
#include <QWebPage>
#include <QWebView>

DeletionHold::DeletionHold(QWebView *view) : QObject(view), m_view(view)
{
    watch();
}

bool DeletionHold::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ParentChange) {
        watch();
    } else if (event->type() == QEvent::DeferredDelete) {
        auto *page = qobject_cast<GUI_WebPage *>(m_view->page());
        if (QObject *telling = page ? page->telling() : nullptr) {
            connect(telling, &QObject::destroyed, watched, &QObject::deleteLater);
            return true;
        }
        QWebFrame *frame = m_view->page()->mainFrame();
        // A view without a page has no script.
        if (!frame->url().isEmpty() && AfterScript::isScriptRunning(frame)) {
            AfterScript::run([object = QPointer<QObject>(watched)] {
                if (object)
                    object->deleteLater();
            });
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void DeletionHold::watch()
{
    for (const QPointer<QWidget> &widget : qAsConst(m_watched)) {
        if (widget)
            widget->removeEventFilter(this);
    }
    m_watched.clear();
    for (QWidget *widget = m_view; widget; widget = widget->parentWidget()) {
        widget->installEventFilter(this);
        m_watched.append(widget);
    }
}
