#include "workbench/window/ToolPanel.h"

#include "bridge/mediator/JS_Mediator.h"
#include "bridge/mediator/PageSignal.h"
#include "contract/HostGuard.h"
#include "standin/host/StandInHost.h"

#include <QCloseEvent>

ToolPanel::ToolPanel(StandInHost &host, QWidget *parent)
    : QDockWidget(tr("Tool"), parent), m_host(host)
{
    setObjectName("toolDock");
    hide();
    connect(m_host.events(), &StandInEvents::pluginsChanged, this, &ToolPanel::follow);
}

// The page goes before what it sees.
ToolPanel::~ToolPanel()
{
    delete m_view;
}

void ToolPanel::setVisible(bool visible)
{
    QDockWidget::setVisible(visible && m_tool);
}

void ToolPanel::closeEvent(QCloseEvent *event)
{
    event->ignore(); // it hides when the tool has been left
    const QPointer<PLG_Interface> tool = m_tool;
    if (!tool)
        return;
    guarded(&m_host, [&] {
        const bool asks = tool->isModified();
        if (asks && m_host.confirm(m_host.translate(tool->acceptQuestion()), this, {}))
            tool->onAccept();
        else
            tool->onCancel();
    });
}

void ToolPanel::follow()
{
    PLG_Interface *tool = nullptr;
    guarded(&m_host, [&] { tool = m_host.currentPlugin(); });
    if (tool == m_tool)
        return;
    dropPage();
    m_tool = tool;
    QString html;
    JS_Mediator *mediator = nullptr;
    if (tool)
        guarded(&m_host, [&] {
            html = tool->pageHtml();
            mediator = tool->mediator();
        });
    setVisible(!html.isEmpty());
    if (html.isEmpty())
        return;
    setWindowTitle(m_host.toolLabel(tool));
    m_view = new GUI_WebView(&m_host, this);
    m_view->setObjectName("toolView");
    m_view->setAccessibleName(windowTitle());
    setWidget(m_view);
    m_host.showMediator(m_view, mediator);
    connect(m_view, &QWebView::loadFinished, this, &ToolPanel::tellOpen);
    m_view->setHtml(html, QUrl("qrc:/"));
    m_view->show();
}

// The page itself may have closed its tool: it goes when its script has returned.
void ToolPanel::dropPage()
{
    m_loaded = false;
    if (!m_view)
        return;
    disconnect(m_view, nullptr, this, nullptr);
    m_view->hide();
    m_view->deleteLater();
    m_view.clear();
}

void ToolPanel::tellOpen(bool loaded)
{
    m_loaded = loaded;
    if (!loaded || !m_tool)
        return;
    guarded(&m_host, [&] {
        if (JS_Mediator *mediator = m_tool->mediator())
            PageSignal::send(mediator, [&] { emit mediator->open(); });
    });
}
