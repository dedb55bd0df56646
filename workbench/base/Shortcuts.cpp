#include "workbench/base/Shortcuts.h"

#include "standin/host/StandInHost.h"

#include <QAction>
#include <QApplication>
#include <QEvent>

Shortcuts::Shortcuts(StandInHost &host, QWidget *window) : QObject(window), m_host(host)
{
    for (QAction *action : window->findChildren<QAction *>()) {
        if (!action->shortcut().isEmpty() && action->shortcutContext() == Qt::WindowShortcut)
            action->setShortcutContext(Qt::ApplicationShortcut);
    }
    qApp->installEventFilter(this);
}

// A key that is taken here comes as a plain key press.
bool Shortcuts::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride || !m_host.state().textBoxFocus ||
        QApplication::activeModalWidget())
        return QObject::eventFilter(watched, event);
    event->accept();
    return true;
}
