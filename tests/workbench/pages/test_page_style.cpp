#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/pages/PageCatalogue.h"
#include "workbench/pages/PageDialogs.h"
#include "workbench/pages/PageFont.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <functional>

using namespace PageHand;

namespace {

/// Elements with a line at their top, of a colour that is to be seen: what it is, the middle of its
/// top line, the colour.
const char *const Lines = R"(
    Array.from(document.querySelectorAll('body *')).filter(function (element) {
        var style = getComputedStyle(element), box = element.getBoundingClientRect();
        return style.borderTopStyle === 'solid' && style.borderTopColor.indexOf('rgb(') === 0 &&
            box.width > 0 && box.top > 0 && box.bottom < innerHeight && box.right < innerWidth &&
            style.webkitTransform === 'none';
    }).map(function (element) {
        var box = element.getBoundingClientRect();
        return [element.tagName + '#' + element.id + '.' + element.className,
            box.left + box.width / 2, box.top,
            getComputedStyle(element).borderTopColor.match(/\d+/g).map(Number)];
    }))";

bool isNear(const QColor &one, const QVariantList &other)
{
    constexpr int MostOff = 24;
    return qAbs(one.red() - other.at(0).toInt()) <= MostOff &&
           qAbs(one.green() - other.at(1).toInt()) <= MostOff &&
           qAbs(one.blue() - other.at(2).toInt()) <= MostOff;
}

/// Looks at the picture of a view for each of its lines. Gives those that are not there; `seen`
/// counts the others.
QStringList missingLines(GUI_WebView *view, int &seen)
{
    const QImage picture = view->grab().toImage();
    const double scale = picture.devicePixelRatio();
    QStringList missing;
    for (const QVariant &entry : read(view, Lines).toList()) {
        const QVariantList line = entry.toList();
        const int x = int(line.at(1).toDouble() * scale);
        const int top = int(line.at(2).toDouble() * scale);
        bool isThere = false;
        for (int y = qMax(0, top - 1); y <= top + 2 && y < picture.height(); ++y)
            isThere = isThere || isNear(picture.pixelColor(x, y), line.at(3).toList());
        if (isThere)
            ++seen;
        else
            missing.append(
                QStringLiteral("%1 at %2, %3")
                    .arg(line.at(0).toString(), line.at(1).toString(), line.at(2).toString()));
    }
    return missing;
}

/// Runs `body` in the dialog that `open` shows, once its page is there.
void inDialog(const std::function<void()> &open, const std::function<void(GUI_WebView *)> &body)
{
    QTimer::singleShot(0, qApp, [&] {
        QWidget *dialog = nullptr;
        QTRY_VERIFY((dialog = QApplication::activeModalWidget()));
        auto *view = dialog->findChild<GUI_WebView *>();
        QTRY_VERIFY(count(view, "body.light, body.dark") == 1);
        body(view);
        qobject_cast<QDialog *>(dialog)->reject();
    });
    open();
}

}

class TestPageStyle : public TestBase
{
    Q_OBJECT

private slots:
    void keepsThinLines_data();
    void keepsThinLines();
    void hasTheFontSizeOfTheApplication();
    void followsTheFontSizeInADialog();
    void growsWithTheFont();
};

void TestPageStyle::keepsThinLines_data()
{
    QTest::addColumn<QString>("style");
    QTest::newRow("light") << "light";
    QTest::newRow("dark") << "dark";
}

// At every scale that the test runs with.
void TestPageStyle::keepsThinLines()
{
    QFETCH(QString, style);
    StandInHost host;
    host.settings().setValue(Keys::application.style, style);
    host.addCamera();
    host.addCamera();
    PageDialogs dialogs(host);
    for (const char *page : {"status", "devices", "devicecontrol"}) {
        PagePanel panel(host, PageCatalogue::page(page));
        panel.resize(320, 420);
        panel.show();
        QTRY_VERIFY(panel.isLoaded());
        int seen = 0;
        QCOMPARE(missingLines(panel.view(), seen).join(' '), QString());
        QVERIFY2(seen >= 2, page);
    }
    int inPrefs = 0;
    QStringList missing{"not seen"};
    inDialog([&] { dialogs.exec(); },
             [&](GUI_WebView *view) { missing = missingLines(view, inPrefs); });
    QCOMPARE(missing, QStringList());
    QVERIFY(inPrefs >= 4);
}

void TestPageStyle::hasTheFontSizeOfTheApplication()
{
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPixelSize(14);
    QApplication::setFont(font);
    PageFont pageFont;
    StandInHost host;
    PagePanel panel(host, "statuspanel", "qrc:/status.html", "Status");
    panel.show();
    QTRY_VERIFY(panel.isLoaded());
    const char *size = "getComputedStyle(document.getElementById('prefs')).fontSize";
    QCOMPARE(read(panel.view(), size), QVariant("14px"));
    font.setPixelSize(20);
    QApplication::setFont(font);
    QTRY_COMPARE(read(panel.view(), size), QVariant("20px"));
    QApplication::setFont(before);
}

void TestPageStyle::followsTheFontSizeInADialog()
{
    const QFont before = QApplication::font();
    PageFont pageFont;
    StandInHost host;
    PageDialogs dialogs(host);
    QStringList sizes;
    inDialog([&] { dialogs.showAbout(); },
             [&](GUI_WebView *view) {
                 for (const int size : {11, 19}) {
                     QFont font = before;
                     font.setPixelSize(size);
                     QApplication::setFont(font);
                     sizes.append(read(view, "getComputedStyle(document.querySelector('button'))"
                                             ".fontSize")
                                      .toString());
                 }
             });
    QCOMPARE(sizes, QStringList({"11px", "19px"}));
    QApplication::setFont(before);
}

// Headings and small print too, and controls with their text.
void TestPageStyle::growsWithTheFont()
{
    const QFont before = QApplication::font();
    PageFont pageFont;
    StandInHost host;
    PagePanel panel(host, "statuspanel", "qrc:/status.html", "Status");
    panel.resize(320, 420);
    panel.show();
    QTRY_VERIFY(panel.isLoaded());
    for (const char *selector : {"h2", "#flags li", "#prefs"}) {
        const QString height = QString("document.querySelector('%1').offsetHeight").arg(selector);
        QFont font = before;
        font.setPixelSize(12);
        QApplication::setFont(font);
        const double small = read(panel.view(), height).toDouble();
        font.setPixelSize(24);
        QApplication::setFont(font);
        QVERIFY2(read(panel.view(), height).toDouble() > small * 1.3, selector);
    }
    QApplication::setFont(before);
}

int main(int argc, char **argv)
{
    TestPageStyle test;
    return runTest(argc, argv, test);
}

#include "test_page_style.moc"
