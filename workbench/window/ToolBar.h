#pragma once

#include <QList>
#include <QToolBar>

class PLG_Interface;
class QAction;
class StandInHost;

/// The buttons of the loaded tools.
///
/// A press calls the tool's `activate` when its button became on and `deactivate` when it became
/// off; a tool with a panel or dialog is opened and closed by the host. What a button shows is what
/// the tool's `isChecked` answers for the current document, asked anew at each refresh, never what
/// was pressed last. A tool that is not allowed in the present mode has a disabled button, and so
/// has one that cannot answer.
class ToolBar : public QToolBar
{
    Q_OBJECT

public:
    /// The host outlives the bar.
    explicit ToolBar(StandInHost &host, QWidget *parent = nullptr);

    /// Adds the button of a tool that the host has. It goes with removeTool(), before the tool.
    void addTool(PLG_Interface *tool);
    void removeTool(PLG_Interface *tool);

    /// Its button's action, null for a tool without one; the object name is the tool's name.
    QAction *action(PLG_Interface *tool) const;

    QList<QAction *> toolActions() const;

    /// Asks every tool how its button stands.
    void refresh();

signals:
    /// The open tool's button was pressed once more.
    void panelCloseRequested();

private:
    struct Button
    {
        PLG_Interface *tool;
        QAction *action;
        bool failed = false; ///< the last question to the tool threw
    };

    void press(PLG_Interface *tool, bool on);
    void switchOff(PLG_Interface *tool);
    void switchOpen(PLG_Interface *tool, bool on);

    StandInHost &m_host;
    QList<Button> m_buttons;
};
