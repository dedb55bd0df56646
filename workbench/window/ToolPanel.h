#pragma once

#include "bridge/page/GUI_WebView.h"
#include "contract/PLG_Interface.h"

#include <QDockWidget>
#include <QPointer>

class StandInHost;

/// The panel of the tool that is the current plug-in: its page, which sees the tool's mediator.
/// Hidden while there is none. Closing it leaves the tool, and asks first when something was
/// changed.
class ToolPanel : public QDockWidget
{
    Q_OBJECT

public:
    /// The host outlives the panel.
    explicit ToolPanel(StandInHost &host, QWidget *parent = nullptr);
    ~ToolPanel() override;

    /// The view of the tool's page, null while no panel is open.
    GUI_WebView *view() const { return m_view; }

    /// Whether the page has loaded.
    bool isLoaded() const { return m_loaded; }

    /// Without a tool it stays hidden, also when a stored layout would show it.
    void setVisible(bool visible) override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void follow();
    void dropPage();
    void tellOpen(bool loaded);

    StandInHost &m_host;
    QPointer<PLG_Interface> m_tool;
    QPointer<GUI_WebView> m_view; ///< child
    bool m_loaded = false;
};
