#pragma once

#include <QMenu>
#include <QPointer>
#include <QWebView>

class HostServices;

/// Shows a page of the application's user interface. Drops and the engine's own context menu are
/// off.
class GUI_WebView : public QWebView
{
    Q_OBJECT

public:
    GUI_WebView(HostServices *host, QWidget *parent);
    ~GUI_WebView() override;

private slots:
    void showCustomContextMenu(const QPoint &pos);
    void execWebInspector();

private:
    QMenu m_menu;
    QPointer<QWidget> m_inspector; ///< owned; nothing creates one yet
};
