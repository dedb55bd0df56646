#include "bridge/dialog/GUI_ModelessPatternDialog.h"

#include "contract/HostGuard.h"

#include <QPointer>
#include <QShowEvent>

bool GUI_ModelessPatternDialog::mayFinish()
{
    return true;
}

void GUI_ModelessPatternDialog::modeChanged(int) {}

bool GUI_ModelessPatternDialog::mayFinishNow()
{
    return m_finishGranted || mayFinish();
}

void GUI_ModelessPatternDialog::done(int result)
{
    if (isHidden() || m_finishing)
        return; // nothing is left to close
    // The page may have closed it from script, where no failure may arrive.
    HostServices *services = host();
    QPointer<GUI_ModelessPatternDialog> self(this); // the tool may go with its last dialog
    m_finishing = true;
    const bool granted = guarded(services, false, [&] { return mayFinish(); });
    if (self && granted) {
        m_finishGranted = true;
        guarded(services, [&] { emit closed(); });
        if (self)
            GUI_WebViewDialog::done(result);
    }
    if (self)
        m_finishing = m_finishGranted = false;
}

void GUI_ModelessPatternDialog::showEvent(QShowEvent *event)
{
    GUI_WebViewDialog::showEvent(event);
    if (!event->spontaneous() && !isChangingFlags())
        guarded(host(), [&] { emit shown(); });
}
