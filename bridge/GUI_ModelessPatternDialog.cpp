#include "bridge/GUI_ModelessPatternDialog.h"

#include <QPointer>
#include <QShowEvent>

bool GUI_ModelessPatternDialog::mayFinish()
{
    return true;
}

void GUI_ModelessPatternDialog::modeChanged(int) {}

void GUI_ModelessPatternDialog::done(int result)
{
    if (!mayFinish())
        return;
    QPointer<GUI_ModelessPatternDialog> self(this); // the tool may go with its last dialog
    emit closed();
    if (self)
        GUI_WebViewDialog::done(result);
}

void GUI_ModelessPatternDialog::showEvent(QShowEvent *event)
{
    GUI_WebViewDialog::showEvent(event);
    if (!event->spontaneous())
        emit shown();
}
