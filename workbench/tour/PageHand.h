#pragma once

#include <QPoint>
#include <QString>
#include <QVariant>

class QWebView;

/// A hand on a page: everything is done by the mouse and the keys of the view that shows it.
/// Elements are named by a CSS selector; the first one counts.
namespace PageHand {

/// Whether there is such an element, and it is shown.
bool isShown(QWebView *view, const QString &selector);

/// Whether the element is shown and may be used.
bool isEnabled(QWebView *view, const QString &selector);

/// The element's text, without blanks around it; empty without the element.
QString text(QWebView *view, const QString &selector);

/// Number of elements.
int count(QWebView *view, const QString &selector);

/// A value from the page's script.
QVariant read(QWebView *view, const QString &expression);

/// Scrolls the element into view and clicks its middle; false when it cannot be used.
bool click(QWebView *view, const QString &selector);

/// Presses a key on the view.
bool press(QWebView *view, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Types a text into the field that has the focus.
bool type(QWebView *view, const QString &text);

}
