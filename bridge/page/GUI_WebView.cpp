#include "bridge/page/GUI_WebView.h"

#include "bridge/page/AfterScript.h"
#include "bridge/page/DeletionHold.h"
#include "bridge/page/GUI_WebPage.h"

#include <QKeyEvent>
#include <QWebFrame>

GUI_WebView::GUI_WebView(HostServices *host, QWidget *parent)
    : QWebView(parent), m_page(new GUI_WebPage(host, this))
{
    setPage(m_page);
    new DeletionHold(this);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
}

GUI_WebView::~GUI_WebView()
{
    // A page that is still loading ends that now, and whoever listens is going too.
    disconnect(page(), &QWebPage::loadFinished, this, nullptr);
    disconnect(page(), &QWebPage::loadProgress, this, nullptr);
    if (m_inspector) {
        m_inspector->close();
        delete m_inspector;
    }
    if (!m_page)
        return;
    QWebFrame *frame = m_page->mainFrame();
    if (m_page->telling() || (!frame->url().isEmpty() && AfterScript::isScriptRunning(frame)))
        m_page->outliveView();
}

// The platform gives the key a text of one control character, which the engine would insert.
void GUI_WebView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape) {
        QWebView::keyPressEvent(event);
        return;
    }
    QKeyEvent bare(event->type(), event->key(), event->modifiers(), event->nativeScanCode(),
                   event->nativeVirtualKey(), event->nativeModifiers(), QString(),
                   event->isAutoRepeat(), ushort(event->count()));
    QWebView::keyPressEvent(&bare);
    event->setAccepted(bare.isAccepted());
}

void GUI_WebView::showCustomContextMenu(const QPoint &pos)
{
    if (!m_menu.actions().isEmpty())
        m_menu.exec(mapToGlobal(pos));
}

void GUI_WebView::execWebInspector()
{
    if (m_inspector)
        triggerPageAction(QWebPage::InspectElement);
}
