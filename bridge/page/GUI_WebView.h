#pragma once

#include <QMenu>
#include <QPointer>
#include <QWebView>
#include <QWidget>

class GUI_WebPage;
class HostServices;

/// Shows a page of the application's user interface. Drops and the engine's own context menu are
/// off.
///
/// It may go at any moment, also in an event loop that a slot of its own page runs. deleteLater()
/// of the view, or of what it stands in, waits until script has returned; where an owner deletes it
/// at once, its page does.
class GUI_WebView : public QWebView
{
    Q_OBJECT

public:
    GUI_WebView(HostServices *host, QWidget *parent);
    ~GUI_WebView() override;

protected:
    /// Shown by showCustomContextMenu(); empty until a subclass fills it.
    QMenu &menu() { return m_menu; }

    /// The view closes and deletes it when it goes.
    void setInspector(QWidget *inspector) { m_inspector = inspector; }

    /// Escape is a key here and no character: the page's handlers hear it, then what the view
    /// stands in, and a text box stays as it is.
    void keyPressEvent(QKeyEvent *event) override;

private slots:
    void showCustomContextMenu(const QPoint &pos);
    void execWebInspector();

private:
    QPointer<GUI_WebPage> m_page; ///< child; null when it is given another one
    QMenu m_menu;
    QPointer<QWidget> m_inspector; ///< owned; null until a subclass sets one
};
