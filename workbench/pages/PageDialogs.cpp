#include "workbench/pages/PageDialogs.h"

#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/mediator/PageSignal.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/HostGuard.h"
#include "standin/host/StandInHost.h"
#include "workbench/pages/Pages.h"

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

}

PageDialogs::PageDialogs(StandInHost &host) : m_host(host)
{
    Pages::registerResources();
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
    return run(QStringLiteral("Preferences"), QStringLiteral("qrc:/prefs.html"),
               QStringLiteral("preferences"), {420, 300});
}

void PageDialogs::showAbout()
{
    m_host.pageObject()->setProperty("version", m_host.state().hostVersion);
    run(QStringLiteral("About the workbench"), QStringLiteral("qrc:/about.html"),
        QStringLiteral("about"), {380, 210});
}

void PageDialogs::showEthernetSettings()
{
    run(QStringLiteral("Ethernet settings"), QStringLiteral("qrc:/ethernet.html"),
        QStringLiteral("ethernet"), {430, 250});
}

int PageDialogs::run(const QString &title, const QString &url, const QString &mediator, QSize size)
{
    const FlagScope modal(m_host, m_host.state().isModalDialogOpen);
    auto *page = new JS_Mediator_Dialog(&m_host, mediator);
    GUI_WebViewDialog dialog(&m_host, title, url, page, m_host.state().mainWidget);
    dialog.setObjectName(mediator);
    dialog.webView()->setAccessibleName(dialog.windowTitle());
    dialog.setFixedSize(size);
    // Behind the slot that caused the refresh, as the panels.
    QObject::connect(
        m_host.events(), &StandInEvents::updated, page,
        [this, page] {
            guarded(&m_host, [&] { PageSignal::send(page, [page] { emit page->update(); }); });
        },
        Qt::QueuedConnection);
    return dialog.exec();
}
