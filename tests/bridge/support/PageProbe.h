#pragma once

#include <QString>
#include <QVariant>
#include <QWebView>

/// A page in a test, worked by real clicks and keys. It goes before the view. GUI thread.
class PageProbe
{
public:
    /// `view` is about to load its page, or has been told to.
    explicit PageProbe(QWebView *view);
    ~PageProbe();

    PageProbe(const PageProbe &) = delete;
    PageProbe &operator=(const PageProbe &) = delete;

    /// Waits until the load has ended; false when that takes too long.
    bool waitLoaded();

    /// Whether the load that waitLoaded() waited for found its page.
    bool isFound() const { return m_found; }

    /// Presses and releases the left button in the middle of the element.
    void click(const QString &id);

    /// Clicks the element, then presses the keys of `text` one by one.
    void type(const QString &id, const QString &text);

    /// Text that the element shows.
    QString text(const QString &id) const;

    QVariant evaluate(const QString &script) const;

    /// Puts `script` into the field "code" of the page "calls.html", clicks its button, and gives
    /// what the page shows: the result as JSON text, "undefined", or "error: " and the reason.
    QString call(const QString &script);

    QWebView *view() const { return m_view; }

private:
    QPoint middleOf(const QString &id) const;

    QWebView *m_view;
    int m_loads = 0;
    bool m_found = false;
    QMetaObject::Connection m_connection;
};

/// `text` as a script literal.
QString scriptText(const QString &text);
