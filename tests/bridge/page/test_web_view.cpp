#include "bridge/page/GUI_WebPage.h"
#include "bridge/page/GUI_WebView.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QTimer>

// The view of a page: its menu, its inspector, and what is off.

class TestWebView : public TestBase
{
    Q_OBJECT

private slots:
    void showsAPageOfItsOwn();
    void saysNothingWhileItGoes();
    void contextMenuAndDropsAreOff();
    void emptyMenuDoesNotOpen();
    void filledMenuOpensWhereItWasAskedFor();
    void inspectorIsIdleWithoutAWidget();
    void inspectorGoesWithTheView();
    void inspectedElementOpensTheInspector();
};

namespace {

class OpenView : public GUI_WebView
{
public:
    explicit OpenView(HostServices *host) : GUI_WebView(host, nullptr) {}

    using GUI_WebView::menu;
    using GUI_WebView::setInspector;
};

class Inspector : public QWidget
{
public:
    explicit Inspector(int *closings) : m_closings(closings) {}

    void closeEvent(QCloseEvent *) override { ++*m_closings; }

private:
    int *m_closings;
};

class ActionPage : public GUI_WebPage
{
public:
    explicit ActionPage(HostServices *host) : GUI_WebPage(host, nullptr) {}

    void triggerAction(WebAction action, bool checked) override
    {
        actions.append({int(action), checked});
    }

    QList<QPair<int, bool>> actions;
};

}

void TestWebView::showsAPageOfItsOwn()
{
    StandInHost host;
    QPointer<QWebPage> page;
    {
        GUI_WebView view(&host, nullptr);
        page = view.page();
        QVERIFY(qobject_cast<GUI_WebPage *>(page.data()));
        QCOMPARE(page->parent(), static_cast<QObject *>(&view));
    }
    QVERIFY(!page);
    QCOMPARE(host.journal(), QStringList());
}

void TestWebView::saysNothingWhileItGoes()
{
    StandInHost host;
    auto *view = new GUI_WebView(&host, nullptr);
    QSignalSpy started(view, &QWebView::loadStarted);
    QSignalSpy finished(view, &QWebView::loadFinished);
    QSignalSpy gone(view, &QObject::destroyed);
    view->load(QUrl(QStringLiteral("qrc:/absent.html")));
    QTRY_COMPARE(started.count(), 1);
    delete view;
    QCOMPARE(gone.count(), 1);
    QCOMPARE(finished.count(), 0);
}

void TestWebView::contextMenuAndDropsAreOff()
{
    StandInHost host;
    GUI_WebView view(&host, nullptr);
    QCOMPARE(view.contextMenuPolicy(), Qt::NoContextMenu);
    QVERIFY(!view.acceptDrops());
}

void TestWebView::emptyMenuDoesNotOpen()
{
    StandInHost host;
    OpenView view(&host);
    QVERIFY(QMetaObject::invokeMethod(&view, "showCustomContextMenu", Q_ARG(QPoint, QPoint(1, 1))));
    QVERIFY(!view.menu().isVisible()); // and it came back at once
}

void TestWebView::filledMenuOpensWhereItWasAskedFor()
{
    StandInHost host;
    OpenView view(&host);
    view.move(100, 50);
    view.show();
    view.menu().addAction(QStringLiteral("Back"));
    LogCapture log; // the offscreen platform says that menus cannot grab the keyboard
    QPoint place;
    QTimer::singleShot(0, &view, [&] {
        place = view.menu().pos();
        view.menu().close();
    });
    QVERIFY(QMetaObject::invokeMethod(&view, "showCustomContextMenu", Q_ARG(QPoint, QPoint(3, 4))));
    QCOMPARE(place, view.mapToGlobal(QPoint(3, 4)));
}

void TestWebView::inspectorIsIdleWithoutAWidget()
{
    StandInHost host;
    ActionPage page(&host);
    OpenView view(&host);
    view.setPage(&page);
    QVERIFY(QMetaObject::invokeMethod(&view, "execWebInspector"));
    QCOMPARE(page.actions.size(), 0);
}

void TestWebView::inspectorGoesWithTheView()
{
    StandInHost host;
    int closings = 0;
    QPointer<QWidget> inspector(new Inspector(&closings));
    {
        OpenView view(&host);
        inspector->show();
        view.setInspector(inspector);
    }
    QVERIFY(!inspector);
    QCOMPARE(closings, 1);
}

void TestWebView::inspectedElementOpensTheInspector()
{
    StandInHost host;
    ActionPage page(&host);
    OpenView view(&host);
    view.setPage(&page);
    view.setInspector(new QWidget);
    QVERIFY(QMetaObject::invokeMethod(&view, "execWebInspector"));
    QCOMPARE(page.actions, (QList<QPair<int, bool>>({{49, false}}))); // inspect element, unchecked
}

int main(int argc, char **argv)
{
    TestWebView test;
    return runTest(argc, argv, test);
}

#include "test_web_view.moc"
