#include "bridge/DialogPlacement.h"

#include "foundation/Keys.h"
#include "plugin/contract/HostServices.h"

#include <QDialog>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace {

QScreen *screenFor(int number, QDialog *dialog)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    if (number >= 0 && number < screens.size())
        return screens.at(number);
    QScreen *own = QGuiApplication::screenAt(dialog->geometry().center());
    return own ? own : QGuiApplication::primaryScreen();
}

}

void centerDialog(HostServices *host, QDialog *dialog)
{
    if (!dialog || host->mainWidget())
        return;
    const int number = host->getPrefInt(Keys::application.screenNumber, QVariant());
    QScreen *screen = screenFor(number, dialog);
    if (!screen)
        return;
    const QRect area = screen->geometry();
    const QRect own = dialog->geometry();
    const int x = ((area.right() - area.left()) - (own.right() - own.left())) / 2 + area.left();
    const int y = ((area.bottom() - area.top()) - (own.bottom() - own.top())) / 2 + area.top();
    dialog->move(x, y);
}
