#pragma once

#include "contract/HostServices.h"
#include "workbench/pages/InformationSamples.h"
#include "workbench/save/SavePreview.h"

class JS_Mediator;
class StandInHost;
struct PageEntry;

/// Runs the dialogs of the catalogue. Preferences, about box and Ethernet settings serve the host's
/// operations of these names from construction to destruction. So long pages find the
/// InformationSamples and the SavePreview. GUI thread.
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

    /// What the menu entry of a dialog does: its command, given to `commands`, or a run of it. A
    /// failure of the host is told by its errorHandler().
    void open(const PageEntry &page, JS_Mediator &commands);

    void showAbout();
    void showEthernetSettings();

private:
    int run(const PageEntry &page);

    StandInHost &m_host;
    InformationSamples m_samples;
    SavePreview m_savePreview;
};
