#include "workbench/tour/PageHand.h"

#include <QTest>
#include <QWebElement>
#include <QWebFrame>
#include <QWebView>

namespace {

QWebElement find(QWebView *view, const QString &selector)
{
    return view ? view->page()->mainFrame()->findFirstElement(selector) : QWebElement();
}

// The engine may take up keys and clicks in a later turn.
constexpr int SettlingTime = 30; // milliseconds

// In the view, behind all scrolling.
QRect placeOf(QWebElement element)
{
    const QVariantList box = element
                                 .evaluateJavaScript("var box = this.getBoundingClientRect();"
                                                     "[box.left, box.top, box.width, box.height]")
                                 .toList();
    return box.size() < 4 ? QRect()
                          : QRectF(box.at(0).toDouble(), box.at(1).toDouble(), box.at(2).toDouble(),
                                   box.at(3).toDouble())
                                .toRect();
}

}

bool PageHand::isShown(QWebView *view, const QString &selector)
{
    const QWebElement element = find(view, selector);
    return !element.isNull() && view->isVisible() && !placeOf(element).isEmpty();
}

bool PageHand::isEnabled(QWebView *view, const QString &selector)
{
    return isShown(view, selector) &&
           !find(view, selector).evaluateJavaScript("!!this.disabled").toBool();
}

QString PageHand::text(QWebView *view, const QString &selector)
{
    return find(view, selector).toPlainText().trimmed();
}

int PageHand::count(QWebView *view, const QString &selector)
{
    return view ? view->page()->mainFrame()->findAllElements(selector).count() : 0;
}

QVariant PageHand::read(QWebView *view, const QString &expression)
{
    return view ? view->page()->mainFrame()->evaluateJavaScript(expression) : QVariant();
}

bool PageHand::click(QWebView *view, const QString &selector)
{
    if (!isEnabled(view, selector))
        return false;
    QWebElement element = find(view, selector);
    element.evaluateJavaScript("this.scrollIntoViewIfNeeded()");
    const QPoint middle = placeOf(element).center();
    if (!view->rect().contains(middle))
        return false;
    QTest::mouseMove(view, middle);
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, middle);
    QTest::qWait(SettlingTime);
    return true;
}

bool PageHand::press(QWebView *view, int key, Qt::KeyboardModifiers modifiers)
{
    if (!view || !view->isVisible())
        return false;
    QTest::keyClick(view, Qt::Key(key), modifiers);
    QTest::qWait(SettlingTime);
    return true;
}

bool PageHand::type(QWebView *view, const QString &text)
{
    if (!view || !view->isVisible())
        return false;
    QTest::keyClicks(view, text);
    QTest::qWait(SettlingTime);
    return true;
}
