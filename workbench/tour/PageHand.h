#pragma once

#include <QRect>
#include <QStringList>
#include <QVariant>

class QWebView;

/// A hand on a page: everything is done by the mouse and the keys of the view that shows it.
/// Elements are named by a CSS selector; of several the first that is shown counts.
namespace PageHand {

/// Whether there is such an element, and it is shown.
bool isShown(QWebView *view, const QString &selector);

/// Whether the element is shown and may be used.
bool isEnabled(QWebView *view, const QString &selector);

/// The element's text, without blanks around it; empty without the element.
QString text(QWebView *view, const QString &selector);

/// Number of elements.
int count(QWebView *view, const QString &selector);

/// The selector of the button that ends the page: the main one, or that which cancels where the
/// main one has nothing to do.
QString lastButton(QWebView *view);

/// Whether the page stands there in its style.
bool isDrawn(QWebView *view);

/// A value from the page's script.
QVariant read(QWebView *view, const QString &expression);

/// Scrolls the element into view and clicks its middle; false when it cannot be used.
bool click(QWebView *view, const QString &selector);

/// Takes the middle of an element and drops it in the lower part of another one; false when either
/// is out of view.
bool drag(QWebView *view, const QString &selector, const QString &target);

/// The controls that Tab has to reach, in the order of the page: those that are shown and may be
/// used, of a group of radio buttons one. Their ids, or their texts where they have none.
QStringList stops(QWebView *view);

/// Which of the stops has the focus, from 0; -1: none.
int focusedStop(QWebView *view);

/// Where the element with the focus is in the view, in the view's pixels.
QRect focusedPlace(QWebView *view);

/// What of the page is wider than its place: ids or texts of controls, "page" for the page itself.
QStringList cutTexts(QWebView *view);

/// Presses a key on the view.
bool press(QWebView *view, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Types a text into the field that has the focus.
bool type(QWebView *view, const QString &text);

}
