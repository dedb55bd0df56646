#include "workbench/window/ToolBar.h"

#include "bridge/operation/OperationLog.h"
#include "contract/HostGuard.h"
#include "contract/HostValues.h"
#include "contract/PLG_Interface.h"
#include "standin/host/StandInHost.h"

#include <QAction>
#include <QWidget>

#include <algorithm>

namespace {

// Has a panel or a dialog, which the host opens and closes.
bool opens(PLG_Interface *tool)
{
    return tool->hasPanel() || tool->checkKind() == CheckKind::Dialog;
}

// Has a button that stays down.
bool isToggle(PLG_Interface *tool)
{
    const int kind = tool->buttonKind();
    return kind == ButtonKind::Toggle || kind == ButtonKind::CustomToggle || opens(tool);
}

}

ToolBar::ToolBar(StandInHost &host, QWidget *parent) : QToolBar(tr("Tools"), parent), m_host(host)
{
    setObjectName("tools");
    setToolButtonStyle(Qt::ToolButtonTextOnly);
}

void ToolBar::addTool(PLG_Interface *tool)
{
    const QString name = tool->name();
    const QString label = m_host.toolLabel(tool);
    // A label is text, not a place for mnemonics.
    auto *button = new QAction(QString(label).replace('&', "&&"), this);
    button->setObjectName(name);
    button->setToolTip(tr("%1 (tool \"%2\")").arg(label, name));
    button->setCheckable(isToggle(tool));
    connect(button, &QAction::triggered, this, [this, tool](bool on) { press(tool, on); });
    addAction(button);
    widgetForAction(button)->setFocusPolicy(Qt::StrongFocus);
    m_buttons.append({tool, button});
    refresh();
}

void ToolBar::removeTool(PLG_Interface *tool)
{
    delete action(tool);
    m_buttons.erase(std::remove_if(m_buttons.begin(), m_buttons.end(),
                                   [tool](const Button &button) { return button.tool == tool; }),
                    m_buttons.end());
}

QAction *ToolBar::action(PLG_Interface *tool) const
{
    for (const Button &button : m_buttons) {
        if (button.tool == tool)
            return button.action;
    }
    return nullptr;
}

QList<QAction *> ToolBar::toolActions() const
{
    QList<QAction *> actions;
    for (const Button &button : m_buttons)
        actions.append(button.action);
    return actions;
}

void ToolBar::refresh()
{
    for (Button &button : m_buttons) {
        bool answered = false;
        const auto ask = [&] {
            StandInDocument *document = m_host.document(m_host.currentKey());
            DOC_Interface *doc = document ? document->contract() : nullptr;
            button.action->setEnabled(button.tool->isAllowedInCurrentMode());
            button.action->setChecked(button.tool->isChecked(doc, false));
            answered = true;
        };
        // A tool that fails at every refresh is told once, not at every refresh.
        if (button.failed) {
            try {
                ask();
            } catch (const std::exception &) {
            }
        } else {
            guarded(&m_host, ask);
        }
        button.failed = !answered;
        if (button.failed)
            button.action->setEnabled(false);
    }
}

void ToolBar::press(PLG_Interface *tool, bool on)
{
    OperationLog::userOperation("ToolBar", isToggle(tool) ? "toggled" : "clicked", "Button",
                                tool->name(), QString(),
                                isToggle(tool) ? QVariant(on) : QVariant());
    guarded(&m_host, [&] {
        if (opens(tool))
            switchOpen(tool, on);
        else if (on || !isToggle(tool))
            tool->activate();
        else
            switchOff(tool);
    });
    refresh();
}

// What it held of the view is given back when it hears that it was closed.
void ToolBar::switchOff(PLG_Interface *tool)
{
    guarded(&m_host, [&] { tool->deactivate(); });
    tool->onClosed();
}

// A panel closes as if by its own button, which may ask; a dialog may refuse.
void ToolBar::switchOpen(PLG_Interface *tool, bool on)
{
    if (on || (tool->hasPanel() && m_host.currentPlugin() != tool))
        m_host.openPlugin(tool);
    else if (tool->hasPanel())
        emit panelCloseRequested();
    else
        tool->closeTool();
}
