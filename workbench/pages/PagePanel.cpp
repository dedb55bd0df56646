#include "workbench/pages/PagePanel.h"

#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/mediator/PageSignal.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/HostGuard.h"
#include "standin/host/StandInHost.h"
#include "workbench/pages/PageEntry.h"
#include "workbench/pages/Pages.h"

#include <QUrl>
#include <QVBoxLayout>

namespace {

std::unique_ptr<JS_Mediator> makeMediator(StandInHost &host, const PageEntry &page)
{
    if (page.makeMediator)
        return page.makeMediator(host, page.mediator);
    return std::make_unique<JS_Mediator_Page>(&host, page.mediator);
}

}

PagePanel::PagePanel(StandInHost &host, std::unique_ptr<JS_Mediator> mediator, const QString &url,
                     const QString &title, QWidget *parent)
    : QWidget(parent), m_host(host), m_view(new GUI_WebView(&host, this)),
      m_mediator(std::move(mediator))
{
    Pages::registerResources();
    m_view->setObjectName(m_mediator->pageName() + QStringLiteral("View"));
    m_view->setAccessibleName(title);
    setFocusProxy(m_view);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    m_host.showMediator(m_view, m_mediator.get());
    connect(m_view, &QWebView::loadStarted, this, [this] { m_loaded = false; });
    connect(m_view, &QWebView::loadFinished, this, &PagePanel::tellOpen);
    m_view->load(QUrl(url));
}

PagePanel::PagePanel(StandInHost &host, const QString &name, const QString &url,
                     const QString &title, QWidget *parent)
    : PagePanel(host, std::make_unique<JS_Mediator_Page>(&host, name), url, title, parent)
{
}

PagePanel::PagePanel(StandInHost &host, const PageEntry &page, QWidget *parent)
    : PagePanel(host, makeMediator(host, page), page.url, page.title, parent)
{
}

// The page goes before what it sees.
PagePanel::~PagePanel()
{
    delete m_view;
}

QSize PagePanel::sizeHint() const
{
    return {300, 240};
}

void PagePanel::tellOpen(bool loaded)
{
    m_loaded = loaded;
    if (!loaded)
        return;
    guarded(&m_host, [&] { PageSignal::send(m_mediator.get(), [&] { emit m_mediator->open(); }); });
}

void PagePanel::refresh()
{
    if (!m_loaded)
        return;
    guarded(&m_host,
            [&] { PageSignal::send(m_mediator.get(), [&] { emit m_mediator->update(); }); });
}
