#include "bridge/GUI_ModelessPatternDialog.h"

#include "plugin/contract/HostGuard.h"

#include <QPointer>
#include <QShowEvent>

bool GUI_ModelessPatternDialog::mayFinish()
{
    return true;
}

void GUI_ModelessPatternDialog::modeChanged(int) {}

void GUI_ModelessPatternDialog::done(int result)
{
    // The page may have closed it from script, where no failure may arrive.
    HostServices *services = host();
    if (!guarded(services, false, [&] { return mayFinish(); }))
        return;
    QPointer<GUI_ModelessPatternDialog> self(this); // the tool may go with its last dialog
    guarded(services, [&] { emit closed(); });
    if (self)
        GUI_WebViewDialog::done(result);
}

void GUI_ModelessPatternDialog::showEvent(QShowEvent *event)
{
    GUI_WebViewDialog::showEvent(event);
    if (!event->spontaneous())
        guarded(host(), [&] { emit shown(); });
}
