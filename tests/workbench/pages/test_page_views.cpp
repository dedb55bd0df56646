#include "bridge/page/GUI_WebView.h"
#include "tests/support/TestLog.h"
#include "workbench/log/LogModel.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"

#include <QSignalSpy>

using namespace PageHand;

/// The views as a part of a page.
class TestPageViews : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void standsInThePage();
    void fillsThePageWhenTheWindowGrows();
    void isClickedThroughThePage();
    void livesOnWhenThePageIsLoadedAnew();
    void livesOnWhenAnotherPageComes();
    void hasNoPageThatTheUserCanTabInto();

private:
    ViewArea *views() { return m_window->views(); }
    GUI_WebView *page() { return m_window->viewPage()->view(); }

    std::unique_ptr<StandInHost> m_host;
    std::unique_ptr<LogModel> m_log;
    std::unique_ptr<MainWindow> m_window;
};

void TestPageViews::init()
{
    TestBase::init();
    m_host = std::make_unique<StandInHost>();
    m_host->addCamera();
    m_host->addCamera();
    m_log = std::make_unique<LogModel>(100);
    m_window = std::make_unique<MainWindow>(*m_host, *m_log);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTRY_VERIFY(m_window->viewPage()->isLoaded());
}

void TestPageViews::cleanup()
{
    m_window.reset();
    m_host.reset();
    TestBase::cleanup();
}

void TestPageViews::standsInThePage()
{
    QVERIFY(page()->isAncestorOf(views()));
    QVERIFY(views()->isVisible());
    QTRY_COMPARE(views()->size(), page()->size());
    QVERIFY(views()->width() > 300 && views()->height() > 200);
}

void TestPageViews::fillsThePageWhenTheWindowGrows()
{
    const int before = views()->width();
    m_window->resize(m_window->width() + 120, m_window->height() + 60);
    QTRY_COMPARE(views()->width(), before + 120);
    QCOMPARE(views()->size(), page()->size());
}

void TestPageViews::isClickedThroughThePage()
{
    QTRY_COMPARE(views()->views().size(), 2);
    QTest::mouseClick(views()->view(2), Qt::LeftButton);
    QCOMPARE(m_host->currentKey(), DOCKEY(2));
}

void TestPageViews::livesOnWhenThePageIsLoadedAnew()
{
    const QPointer<ViewArea> area(views());
    for (int i = 0; i < 3; ++i) {
        QSignalSpy loaded(page(), &QWebView::loadFinished);
        page()->reload();
        QVERIFY(loaded.wait());
        QVERIFY(area);
        QTRY_VERIFY(area->isVisible());
        QVERIFY(page()->isAncestorOf(area));
        QTRY_COMPARE(area->size(), page()->size());
    }
    m_host->addCamera();
    QTRY_COMPARE(area->views().size(), 3);
    QTest::mouseClick(area->view(3), Qt::LeftButton);
    QCOMPARE(m_host->currentKey(), DOCKEY(3));
}

void TestPageViews::livesOnWhenAnotherPageComes()
{
    const QPointer<ViewArea> area(views());
    QSignalSpy loaded(page(), &QWebView::loadFinished);
    page()->load(QUrl("qrc:/about.html"));
    QVERIFY(loaded.count() > 0 || loaded.wait());
    QVERIFY(area);
    QTRY_VERIFY(!area->isVisible());
    loaded.clear();
    page()->load(QUrl("qrc:/viewarea.html"));
    QVERIFY(loaded.count() > 0 || loaded.wait());
    QTRY_VERIFY(area->isVisible());
    QVERIFY(page()->isAncestorOf(area));
}

void TestPageViews::hasNoPageThatTheUserCanTabInto()
{
    QCOMPARE(read(page(), "document.querySelectorAll('button, input, [tabindex]').length").toInt(),
             0);
}

int main(int argc, char **argv)
{
    TestPageViews test;
    return runTest(argc, argv, test);
}

#include "test_page_views.moc"
