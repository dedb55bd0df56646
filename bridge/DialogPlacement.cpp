#include "bridge/DialogPlacement.h"

#include "foundation/Keys.h"
#include "plugin/contract/HostServices.h"

#include <QDialog>
#include <QGuiApplication>
#include <QScreen>

namespace {

int screenNumberOf(const QDialog *dialog, const QList<QScreen *> &screens)
{
    QScreen *screen = QGuiApplication::screenAt(dialog->geometry().center());
    return std::max(0, screens.indexOf(screen ? screen : QGuiApplication::primaryScreen()));
}

}

void centerDialog(HostServices *host, QDialog *dialog)
{
    if (!dialog || host->mainWidget())
        return;
    const int wanted = host->getPrefInt(Keys::application.screenNumber, QVariant());
    const QList<QScreen *> screens = QGuiApplication::screens();
    if (screens.isEmpty())
        return;
    const int number =
        DialogPlacement::screenNumber(wanted, screenNumberOf(dialog, screens), screens.size());
    dialog->move(DialogPlacement::centered(screens.at(number)->geometry(), dialog->geometry()));
}

namespace DialogPlacement {

int screenNumber(int wanted, int own, int count)
{
    return wanted >= 0 && wanted < count ? wanted : own;
}

QPoint centered(const QRect &screen, const QRect &window)
{
    const int x = ((screen.right() - screen.left()) - (window.right() - window.left())) / 2;
    const int y = ((screen.bottom() - screen.top()) - (window.bottom() - window.top())) / 2;
    return QPoint(x + screen.left(), y + screen.top());
}

}
