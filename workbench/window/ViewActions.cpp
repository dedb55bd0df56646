#include "workbench/window/ViewActions.h"

#include "bridge/operation/OperationLog.h"
#include "foundation/Keys.h"
#include "standin/host/StandInHost.h"

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <cmath>

ViewActions::ViewActions(StandInHost &host, QMainWindow *window) : QObject(window), m_host(host)
{
    add("turnRight", tr("Turn &right"), "Ctrl+]", &ViewActions::turnRight);
    add("turnLeft", tr("Turn &left"), "Ctrl+[", &ViewActions::turnLeft);
    m_horizontally = add("flipHorizontally", tr("Flip left to ri&ght"), "Ctrl+Shift+H",
                         &ViewActions::flipHorizontally);
    m_vertically = add("flipVertically", tr("Flip top to &bottom"), "Ctrl+Shift+V",
                       &ViewActions::flipVertically);
    add("zoomIn", tr("Zoom &in"), "Ctrl++", &ViewActions::zoomIn);
    add("zoomOut", tr("Zoom &out"), "Ctrl+-", &ViewActions::zoomOut);
    add("zoomToPixels", tr("&Pixel by pixel"), "Ctrl+0", &ViewActions::zoomToPixels);
    add("zoomToFit", tr("&Fit to the view"), "Ctrl+9", &ViewActions::zoomToFit);
    m_horizontally->setCheckable(true);
    m_vertically->setCheckable(true);

    auto *menu = new QMenu(tr("&Picture"), window);
    menu->addActions(m_actions.mid(0, 2));
    menu->addActions({m_horizontally, m_vertically});
    menu->addSeparator();
    menu->addActions(m_actions.mid(4));
    menu->addSeparator();
    auto *binnings = new QActionGroup(this);
    for (int exponent = 0; exponent < 3; ++exponent) {
        const int size = 1 << exponent;
        const QString text = exponent == 0 ? tr("&No binning") : tr("Bin &%1 by %1").arg(size);
        QAction *action = add(qPrintable(QStringLiteral("bin%1").arg(size)), text, {}, nullptr);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, exponent] {
            if (StandInDocument *document = m_host.document(m_host.currentKey()))
                bin(*document, exponent);
        });
        binnings->addAction(action);
        m_binnings.append(action);
    }
    menu->addActions(m_binnings);

    const QList<QAction *> menus = window->menuBar()->actions();
    window->menuBar()->insertMenu(menus.value(menus.size() - 1), menu);

    const StandInEvents *events = m_host.events();
    connect(events, &StandInEvents::documentsChanged, this, &ViewActions::refresh);
    connect(events, &StandInEvents::currentDocumentChanged, this, &ViewActions::refresh);
    connect(events, &StandInEvents::modeChanged, this, &ViewActions::refresh);
    connect(events, &StandInEvents::viewChanged, this, &ViewActions::refresh);
    refresh();
}

QAction *ViewActions::add(const char *name, const QString &text, const QString &shortcut,
                          void (ViewActions::*action)(StandInDocument &))
{
    auto *added = new QAction(text, this);
    added->setObjectName(name);
    added->setShortcut(QKeySequence(shortcut));
    connect(added, &QAction::triggered, this, [this, added, action](bool checked) {
        OperationLog::userOperation("ViewActions", added->isCheckable() ? "toggled" : "clicked",
                                    "Action", added->objectName(), QString(),
                                    added->isCheckable() ? QVariant(checked) : QVariant());
        StandInDocument *document = m_host.document(m_host.currentKey());
        if (document && action)
            (this->*action)(*document);
    });
    m_actions.append(added);
    return added;
}

void ViewActions::refresh()
{
    const StandInDocument *document = m_host.document(m_host.currentKey());
    for (QAction *action : qAsConst(m_actions))
        action->setEnabled(document);
    if (!document)
        return;
    m_horizontally->setChecked(document->state().isFlippedHorizontally);
    m_vertically->setChecked(document->state().isFlippedVertically);
    m_binnings.at(document->state().binningLevel)->setChecked(true);
}

void ViewActions::turnRight(StandInDocument &document)
{
    document.setQuarterTurns(document.state().quarterTurns + 1);
}

void ViewActions::turnLeft(StandInDocument &document)
{
    document.setQuarterTurns(document.state().quarterTurns - 1);
}

void ViewActions::flipHorizontally(StandInDocument &document)
{
    const DocumentState &state = document.state();
    document.setFlips(!state.isFlippedHorizontally, state.isFlippedVertically);
}

void ViewActions::flipVertically(StandInDocument &document)
{
    const DocumentState &state = document.state();
    document.setFlips(state.isFlippedHorizontally, !state.isFlippedVertically);
}

void ViewActions::zoomIn(StandInDocument &document)
{
    zoomBy(document, 2.0);
}

void ViewActions::zoomOut(StandInDocument &document)
{
    zoomBy(document, 0.5);
}

void ViewActions::zoomToFit(StandInDocument &document)
{
    document.setZoom(0.0);
}

void ViewActions::zoomToPixels(StandInDocument &document)
{
    document.setZoom(1.0);
}

// From a picture that fits its view to the next power of two.
void ViewActions::zoomBy(StandInDocument &document, double factor)
{
    const double now = document.geometry().scale / (1 << document.state().binningLevel);
    const double step = factor > 1.0 ? std::floor(std::log2(now)) : std::ceil(std::log2(now));
    document.setZoom(std::clamp(std::exp2(step) * factor, SmallestZoom, LargestZoom));
}

void ViewActions::bin(StandInDocument &document, int exponent)
{
    document.setBinningLevel(exponent);
    QSet<QString> &features = document.state().features;
    if (document.state().binningLevel > 0)
        features.insert(Keys::tools.binning);
    else
        features.remove(Keys::tools.binning);
}
