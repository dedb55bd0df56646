#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWebInspector>

class QWebView;

/// The engine's own inspector, in a window beside the page that was used last, be it in a panel, a
/// dialog or a tool. F12 on a page opens it too, also in a modal dialog. One at a time: it goes
/// when it is closed, with its page, and when the page's window is hidden. GUI thread.
class PageInspector : public QObject
{
    Q_OBJECT

public:
    explicit PageInspector(QObject *parent = nullptr);
    ~PageInspector() override;

    /// Opens it for the page that had the focus last among those that are shown. Before one had
    /// it, for the first view of the active window; nothing without one.
    void open();

    /// The window, null while it is closed.
    QWebInspector *window() const { return m_inspector; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void noteUse(const QWidget *focus);
    void openFor(QWebView *view);

    QList<QPointer<QWebView>> m_used; ///< the last one first
    QPointer<QWebInspector> m_inspector;
    QPointer<QWidget> m_pageWindow; ///< in which the inspected page stands
};
