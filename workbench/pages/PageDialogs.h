#pragma once

#include "contract/HostServices.h"

#include <QSize>

class StandInHost;

/// The application's own dialogs, each a page: preferences, about, Ethernet settings. They serve
/// the host's operations of these names from construction to destruction. GUI thread.
class PageDialogs : public HostPrefsDialog
{
public:
    /// The host outlives it.
    explicit PageDialogs(StandInHost &host);
    virtual ~PageDialogs();

    PageDialogs(const PageDialogs &) = delete;
    PageDialogs &operator=(const PageDialogs &) = delete;

    /// Goes to the page of this translated name when it is run; the first one without such a page.
    void showPage(const QString &page) override;
    int exec() override;

    void showAbout();
    void showEthernetSettings();

private:
    int run(const QString &title, const QString &url, const QString &mediator, QSize size);

    StandInHost &m_host;
};
