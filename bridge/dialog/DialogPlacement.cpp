#include "bridge/dialog/DialogPlacement.h"

#include "contract/HostServices.h"
#include "foundation/Keys.h"

#include <QDialog>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>

#include <algorithm>

void centerDialog(HostServices *host, QDialog *dialog)
{
    QPointer<QDialog> kept(dialog); // the host may end it
    if (!dialog || host->mainWidget())
        return;
    const int wanted = host->getPrefInt(Keys::application.screenNumber, QVariant());
    if (!kept)
        return;
    QList<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens.append(screen->geometry());
    if (screens.isEmpty())
        return;
    const QRect window = dialog->geometry();
    const QRect screen = screens.at(DialogPlacement::screenNumber(wanted, window, screens));
    dialog->move(DialogPlacement::centered(screen, window));
}

namespace DialogPlacement {

int screenNumber(int wanted, const QRect &window, const QList<QRect> &screens)
{
    if (wanted >= 0 && wanted < screens.size())
        return wanted;
    const auto own = std::find_if(screens.cbegin(), screens.cend(), [&](const QRect &screen) {
        return screen.contains(window.center());
    });
    return own == screens.cend() ? 0 : int(own - screens.cbegin());
}

QPoint centered(const QRect &screen, const QRect &window)
{
    const int x = ((screen.right() - screen.left()) - (window.right() - window.left())) / 2;
    const int y = ((screen.bottom() - screen.top()) - (window.bottom() - window.top())) / 2;
    return QPoint(x + screen.left(), y + screen.top());
}

}
