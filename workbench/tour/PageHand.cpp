#include "workbench/tour/PageHand.h"

#include "workbench/tour/TourHand.h"

#include <QTest>
#include <QWebElement>
#include <QWebFrame>
#include <QWebView>

namespace {

// The page of the engine's own inspector comes without the type information by which the sanitizer
// checks each call.
__attribute__((no_sanitize("vptr"))) QWebFrame *mainFrameOf(const QWebView *view)
{
    return view->page()->mainFrame();
}

// The engine may take up keys and clicks in a later turn.
constexpr int SettlingTime = 30; // milliseconds

// A radio button of a group stands for the whole group when it is the chosen one, or the first.
const char Stops[] =
    "(function () {"
    "    function isStop(element) {"
    "        var box = element.getBoundingClientRect();"
    "        return !element.disabled && element.tabIndex >= 0 && box.width > 0 && box.height > 0;"
    "    }"
    "    var all = Array.from(document.querySelectorAll("
    "        'a[href], button, input, select, textarea, [tabindex]')).filter(isStop);"
    "    return all.filter(function (element) {"
    "        if (element.type !== 'radio')"
    "            return true;"
    "        var group = all.filter(function (other) {"
    "            return other.type === 'radio' && other.name === element.name;"
    "        });"
    "        var chosen = group.find(function (other) { return other.checked; });"
    "        return element === (chosen || group[0]);"
    "    });"
    "})()";

const char Names[] = ".map(function (element) {"
                     "    return element.id || element.textContent.trim().substring(0, 30);"
                     "})";

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

// Of several the first that is shown: panels that are closed have buttons, too.
QWebElement find(QWebView *view, const QString &selector)
{
    if (!view)
        return QWebElement();
    const QWebElementCollection all = mainFrameOf(view)->findAllElements(selector);
    for (const QWebElement &element : all) {
        if (!placeOf(element).isEmpty())
            return element;
    }
    return all.first();
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
    return view ? mainFrameOf(view)->findAllElements(selector).count() : 0;
}

QString PageHand::lastButton(QWebView *view)
{
    return count(view, "button.main:enabled") > 0 ? QStringLiteral("button.main")
                                                  : QStringLiteral("#cancel");
}

bool PageHand::isDrawn(QWebView *view)
{
    return read(view, "document.readyState === 'complete' && document.body.classList.length > 0")
        .toBool();
}

QVariant PageHand::read(QWebView *view, const QString &expression)
{
    return view ? mainFrameOf(view)->evaluateJavaScript(expression) : QVariant();
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

bool PageHand::drag(QWebView *view, const QString &selector, const QString &target)
{
    if (!isShown(view, selector) || !isShown(view, target))
        return false;
    const QPoint from = placeOf(find(view, selector)).center();
    const QRect box = placeOf(find(view, target));
    const QPoint to(box.center().x(), box.bottom() - box.height() / 4);
    return TourHand::drag(view, from, to);
}

QStringList PageHand::stops(QWebView *view)
{
    return read(view, QString::fromLatin1(Stops) + Names).toStringList();
}

int PageHand::focusedStop(QWebView *view)
{
    return read(view, QString::fromLatin1(Stops) + ".indexOf(document.activeElement)").toInt();
}

QRect PageHand::focusedPlace(QWebView *view)
{
    return view ? placeOf(find(view, ":focus")) : QRect();
}

QStringList PageHand::cutTexts(QWebView *view)
{
    QStringList cut =
        read(view,
             QStringLiteral("Array.from(document.querySelectorAll('button, label, h1, h2, p'))"
                            ".filter(function (element) {"
                            "    return element.scrollWidth > element.clientWidth + 1 &&"
                            "        element.clientWidth > 0;"
                            "})") +
                 Names)
            .toStringList();
    if (read(view, "document.documentElement.scrollWidth > window.innerWidth").toBool())
        cut.append("page");
    return cut;
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
