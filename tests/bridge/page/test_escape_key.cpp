#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/TestLog.h"

#include <QKeyEvent>
#include <QVBoxLayout>

#include <functional>
#include <memory>

// Escape in a page's text box, as the platform gives it: a key with a text of one control
// character.

struct Shown
{
    std::unique_ptr<QWidget> window;
    GUI_WebView *view = nullptr;
};

using Make = std::function<Shown(StandInHost &, QStringList &)>;
Q_DECLARE_METATYPE(Make)

class TestEscapeKey : public TestBase
{
    Q_OBJECT

private slots:
    void escapeIsNoCharacter_data();
    void escapeIsNoCharacter();
    void pageMayKeepEscape();
};

namespace {

const QString Calls = QStringLiteral("qrc:/pages/calls.html");

/// Tells of the keys that reach it, behind its page.
template <class Base> class Hearing : public Base
{
public:
    template <class... Arguments>
    explicit Hearing(QStringList &heard, Arguments &&...arguments)
        : Base(std::forward<Arguments>(arguments)...), m_heard(heard)
    {
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        m_heard.append(QStringLiteral("key %1").arg(event->key(), 0, 16));
        Base::keyPressEvent(event);
    }

private:
    QStringList &m_heard;
};

template <class Dialog> Make dialogWithPage()
{
    return [](StandInHost &host, QStringList &heard) {
        auto dialog = std::make_unique<Hearing<Dialog>>(
            heard, &host, QStringLiteral("Calls"), Calls,
            new JS_Mediator_Dialog(&host, QStringLiteral("bridge")), nullptr);
        GUI_WebView *view = dialog->webView();
        return Shown{std::move(dialog), view};
    };
}

Shown panel(StandInHost &host, QStringList &heard)
{
    auto window = std::make_unique<Hearing<QWidget>>(heard);
    auto *view = new GUI_WebView(&host, window.get());
    (new QVBoxLayout(window.get()))->addWidget(view);
    view->load(QUrl(Calls));
    return {std::move(window), view};
}

const QString Listen = QStringLiteral(
    "var keys = ''; var code = document.getElementById('code');"
    "code.addEventListener('keydown', function (event) { keys += event.keyCode + ' '; });");

}

void TestEscapeKey::escapeIsNoCharacter_data()
{
    QTest::addColumn<Make>("make");
    QTest::newRow("dialog") << dialogWithPage<GUI_WebViewDialog>();
    QTest::newRow("modeless dialog") << dialogWithPage<GUI_ModelessPatternDialog>();
    QTest::newRow("panel") << Make(panel);
}

void TestEscapeKey::escapeIsNoCharacter()
{
    QFETCH(Make, make);
    StandInHost host;
    QStringList heard;
    const Shown shown = make(host, heard);
    PageProbe page(shown.view);
    shown.window->resize(400, 300);
    shown.window->show();
    QVERIFY(page.waitLoaded());
    page.evaluate(Listen);
    page.type(QStringLiteral("code"), QStringLiteral("a"));
    QTest::keyClick(shown.view, Qt::Key_Escape);
    QTest::keyClick(shown.view, Qt::Key_Escape, Qt::ShiftModifier);
    page.type(QStringLiteral("code"), QStringLiteral("b"));
    QCOMPARE(page.evaluate("code.value").toString(), QStringLiteral("ab"));
    QCOMPARE(page.evaluate("keys").toString(), QStringLiteral("65 27 16 27 66 "));
    QVERIFY(shown.window->isVisible());
    heard.removeAll(QStringLiteral("key 1000020")); // Shift
    QCOMPARE(heard, QStringList({"key 1000000", "key 1000000"}));
}

void TestEscapeKey::pageMayKeepEscape()
{
    StandInHost host;
    QStringList heard;
    const Shown shown = panel(host, heard);
    PageProbe page(shown.view);
    shown.window->resize(400, 300);
    shown.window->show();
    QVERIFY(page.waitLoaded());
    page.evaluate(Listen + "code.addEventListener('keydown', "
                           "function (event) { event.preventDefault(); })");
    page.click(QStringLiteral("code"));
    QTest::keyClick(shown.view, Qt::Key_Escape);
    QCOMPARE(page.evaluate("code.value + keys").toString(), QStringLiteral("27 "));
    QCOMPARE(heard, QStringList());
}

int main(int argc, char **argv)
{
    TestEscapeKey test;
    return runTest(argc, argv, test);
}

#include "test_escape_key.moc"
