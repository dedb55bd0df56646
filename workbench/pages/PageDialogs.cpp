#include "workbench/pages/PageDialogs.h"

#include "bridge/dialog/GUI_PageDialog.h"
#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/mediator/PageSignal.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/HostGuard.h"
#include "standin/host/StandInHost.h"
#include "workbench/pages/PageCatalogue.h"
#include "workbench/pages/PageWindow.h"
#include "workbench/pages/Pages.h"

#include <QWebFrame>

namespace {

/// Sets a flag of the host's state while it lives, and lets panels draw it.
class FlagScope
{
public:
    FlagScope(StandInHost &host, bool &flag) : m_host(host), m_flag(flag), m_before(flag)
    {
        m_flag = true;
    }
    ~FlagScope()
    {
        m_flag = m_before;
        emit m_host.events()->documentInfoChanged();
    }

    FlagScope(const FlagScope &) = delete;
    FlagScope &operator=(const FlagScope &) = delete;

private:
    StandInHost &m_host;
    bool &m_flag;
    bool m_before;
};

std::unique_ptr<QDialog> makePlain(StandInHost &host, const PageEntry &page, QWidget *parent)
{
    auto *mediator = new JS_Mediator_Dialog(&host, page.mediator); // the dialog's
    return std::make_unique<GUI_WebViewDialog>(&host, page.title, page.url, mediator, parent);
}

}

PageDialogs::PageDialogs(StandInHost &host) : m_host(host), m_samples(host), m_savePreview(host)
{
    Pages::registerResources();
    QObject::connect(m_host.events(), &StandInEvents::pageAttached, &m_savePreview,
                     [this](GUI_WebView *view) {
                         PageWindow::show(view, QStringLiteral("savePreview"), &m_savePreview);
                     });
    m_host.frontEnd().prefsDialog = this;
    m_host.frontEnd().showAbout = [this] { showAbout(); };
    m_host.frontEnd().showEthernetSettings = [this] { showEthernetSettings(); };
}

PageDialogs::~PageDialogs()
{
    m_host.frontEnd().prefsDialog = nullptr;
    m_host.frontEnd().showAbout = nullptr;
    m_host.frontEnd().showEthernetSettings = nullptr;
}

void PageDialogs::showPage(const QString &page)
{
    m_host.pageObject()->setProperty("prefsPage", page);
}

int PageDialogs::exec()
{
    const FlagScope open(m_host, m_host.state().isPrefsDialogOpen);
    return run(PageCatalogue::page(QStringLiteral("prefs")));
}

void PageDialogs::open(const PageEntry &page, JS_Mediator &commands)
{
    guarded(&m_host, [&] {
        if (page.command)
            page.command(commands);
        else
            run(page);
    });
}

void PageDialogs::showAbout()
{
    m_host.pageObject()->setProperty("version", m_host.state().hostVersion);
    run(PageCatalogue::page(QStringLiteral("about")));
}

void PageDialogs::showEthernetSettings()
{
    run(PageCatalogue::page(QStringLiteral("ethernet")));
}

int PageDialogs::run(const PageEntry &page)
{
    const FlagScope modal(m_host, m_host.state().isModalDialogOpen);
    const std::unique_ptr<QDialog> dialog =
        (page.make ? page.make : makePlain)(m_host, page, m_host.state().mainWidget);
    dialog->setObjectName(page.mediator);
    if (page.size.isValid())
        dialog->setFixedSize(page.size);
    if (auto *view = dialog->findChild<GUI_WebView *>()) {
        view->setAccessibleName(dialog->windowTitle());
        if (dynamic_cast<GUI_PageDialog *>(dialog.get())) { // it shows itself to its page
            emit m_host.events()->pageAttached(view);
            // It has no signals that say so, and what the user has not stored yet stays.
            const auto call = [view](const char *function) {
                view->page()->mainFrame()->evaluateJavaScript(
                    QStringLiteral("window.Page && Page.bridge && Page.%1(); 0").arg(function));
            };
            QObject::connect(
                m_host.events(), &StandInEvents::updated, view, [call] { call("followStyle"); },
                Qt::QueuedConnection);
            QObject::connect(
                m_host.events(), &StandInEvents::documentsChanged, view,
                [call] { call("followDocuments"); }, Qt::QueuedConnection);
        }
    }
    auto *shown = dynamic_cast<GUI_WebViewDialog *>(dialog.get());
    if (JS_Mediator *mediator = shown ? shown->mediator() : nullptr) {
        // Behind the slot that caused the refresh, as the panels.
        const auto update = [this, mediator] {
            guarded(&m_host,
                    [&] { PageSignal::send(mediator, [mediator] { emit mediator->update(); }); });
        };
        QObject::connect(m_host.events(), &StandInEvents::updated, mediator, update,
                         Qt::QueuedConnection);
        QObject::connect(m_host.events(), &StandInEvents::documentsChanged, mediator, update,
                         Qt::QueuedConnection);
    }
    const int result = dialog->exec();
    if (page.make) // what it leaves and what it takes back stands over the pictures
        m_host.refreshDocumentInfo(true);
    return result;
}
