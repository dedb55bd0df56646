#include "workbench/pages/PageInspector.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWebPage>
#include <QWebSettings>
#include <QWebView>

namespace {

const QSize FirstSize(900, 560);

// The view that a widget is or stands in; the inspector is a page as well.
QWebView *viewAround(const QWidget *widget)
{
    const QWebView *view = nullptr;
    for (const QWidget *around = widget; around; around = around->parentWidget()) {
        if (qobject_cast<const QWebInspector *>(around))
            return nullptr;
        if (!view)
            view = qobject_cast<const QWebView *>(around);
        if (around->isWindow())
            break;
    }
    return const_cast<QWebView *>(view);
}

}

PageInspector::PageInspector(QObject *parent) : QObject(parent)
{
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget *, QWidget *now) { noteUse(now); });
    qApp->installEventFilter(this);
}

PageInspector::~PageInspector()
{
    delete m_inspector;
}

void PageInspector::open()
{
    for (const QPointer<QWebView> &view : qAsConst(m_used)) {
        if (view && view->isVisible()) {
            openFor(view);
            return;
        }
    }
    const QWidget *window = QApplication::activeWindow();
    const QList<QWebView *> views =
        window ? window->findChildren<QWebView *>() : QList<QWebView *>();
    for (QWebView *view : views) {
        if (view->isVisible() && viewAround(view)) {
            openFor(view);
            return;
        }
    }
}

bool PageInspector::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Hide && watched == m_pageWindow && !event->spontaneous()) {
        delete m_inspector;
    } else if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        QWebView *view = key->key() == Qt::Key_F12 && key->modifiers() == Qt::NoModifier
                             ? viewAround(qobject_cast<QWidget *>(watched))
                             : nullptr;
        if (view) {
            openFor(view);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void PageInspector::noteUse(const QWidget *focus)
{
    QWebView *view = viewAround(focus);
    if (!view)
        return;
    m_used.removeAll(view);
    m_used.removeAll(nullptr);
    m_used.prepend(view);
}

// As a window of the page's own it can be used beside a modal dialog.
void PageInspector::openFor(QWebView *view)
{
    if (!m_inspector || m_inspector->page() != view->page()) {
        delete m_inspector;
        QWebPage *page = view->page();
        page->settings()->setAttribute(QWebSettings::DeveloperExtrasEnabled, true);
        m_pageWindow = view->window();
        m_inspector = new QWebInspector(m_pageWindow);
        m_inspector->setWindowFlags(Qt::Window);
        m_inspector->setAttribute(Qt::WA_DeleteOnClose);
        m_inspector->setObjectName(QStringLiteral("pageInspector"));
        m_inspector->setWindowTitle(tr("Inspector of %1").arg(view->accessibleName()));
        m_inspector->resize(FirstSize);
        m_inspector->setPage(page);
        connect(view, &QObject::destroyed, m_inspector,
                [inspector = m_inspector.data()] { delete inspector; });
        connect(m_inspector, &QObject::destroyed, page, [page] {
            page->settings()->setAttribute(QWebSettings::DeveloperExtrasEnabled, false);
        });
    }
    m_inspector->show();
    m_inspector->activateWindow();
}
