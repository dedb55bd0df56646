#include "bridge/page/GUI_WebView.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "standin/documents/StandInCamera.h"
#include "tests/support/TestLog.h"
#include "workbench/log/LogModel.h"
#include "workbench/pages/DropDownBoxes.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/window/MainWindow.h"

using namespace PageHand;

/// The pop-up list behind the partition field of the status panel.
class TestPageBoxes : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsThePartitionsOfTheCamera();
    void standsAtTheField();
    void switchesByAClick();
    void switchesByKeys();
    void closesByEscape();
    void isHiddenByThePage();
    void isHiddenByThePageBeforeItIsReady();
    void followsTheStyle_data();
    void followsTheStyle();
    void knowsNoOtherList();

private:
    GUI_WebView *status() { return m_window->statusPanel()->view(); }
    GUI_WebView *list() { return m_boxes->box()->webView(); }

    bool open()
    {
        return click(status(), "#partition") && QTest::qWaitFor([this] {
                   return m_boxes->box() && m_boxes->box()->isVisible() && count(list(), "li") > 0;
               });
    }

    std::unique_ptr<StandInHost> m_host;
    std::unique_ptr<LogModel> m_log;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<DropDownBoxes> m_boxes;
    StandInCamera *m_camera = nullptr;
};

void TestPageBoxes::init()
{
    TestBase::init();
    m_host = std::make_unique<StandInHost>();
    StandInCamera::Description camera;
    camera.partitions = {{1, "first", 10, 1000}, {2, "second", 20, 1000}, {3, "<b>", 30, 1000}};
    m_camera = m_host->addCamera(camera);
    m_log = std::make_unique<LogModel>(100);
    m_window = std::make_unique<MainWindow>(*m_host, *m_log);
    m_boxes = std::make_unique<DropDownBoxes>(*m_host, *status());
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTRY_VERIFY(m_window->statusPanel()->isLoaded());
    QTest::qWait(50);
}

void TestPageBoxes::cleanup()
{
    m_boxes.reset();
    m_window.reset();
    m_host.reset();
    TestBase::cleanup();
}

void TestPageBoxes::showsThePartitionsOfTheCamera()
{
    QCOMPARE(m_boxes->box(), nullptr);
    QVERIFY(open());
    QVERIFY(m_host->isShownDropBox());
    QCOMPARE(count(list(), "li"), 3);
    QCOMPARE(text(list(), "#row-1"), QString("first"));
    QCOMPARE(text(list(), "#row-3"), QString("<b>"));
    QCOMPARE(count(list(), "[aria-selected=true]"), 1);
    QCOMPARE(text(list(), "[aria-selected=true]"), QString("first"));
}

void TestPageBoxes::standsAtTheField()
{
    m_window->setGeometry(0, 0, 760, 780); // all of it on the screen
    QTest::qWait(50);
    QVERIFY(open());
    const QPoint corner = status()->mapToGlobal(QPoint(
        read(status(), "document.getElementById('partition').getBoundingClientRect().left").toInt(),
        0));
    QCOMPARE(m_boxes->box()->x(), corner.x());
    QVERIFY(read(list(), "list.scrollHeight <= list.clientHeight").toBool()); // all rows
    QVERIFY(isShown(list(), "#row-3"));
}

void TestPageBoxes::switchesByAClick()
{
    QVERIFY(open());
    QVERIFY(click(list(), "#row-2"));
    QVERIFY(!m_boxes->box()->isVisible());
    QVERIFY(!m_host->state().isShownDropBox);
    QCOMPARE(m_camera->state().currentPartition, 2);
    QTRY_COMPARE(text(status(), "#partition"), QString("Partition 2"));
    // The next time it is the chosen one.
    QVERIFY(open());
    QTRY_COMPARE(text(list(), "[aria-selected=true]"), QString("second"));
}

void TestPageBoxes::switchesByKeys()
{
    QVERIFY(open());
    QVERIFY(press(list(), Qt::Key_Down));
    QVERIFY(press(list(), Qt::Key_Down));
    QVERIFY(press(list(), Qt::Key_Return));
    QCOMPARE(m_camera->state().currentPartition, 3);
    QVERIFY(!m_boxes->box()->isVisible());
}

void TestPageBoxes::closesByEscape()
{
    QVERIFY(open());
    QTest::keyClick(list(), Qt::Key_Escape);
    QTRY_VERIFY(!m_boxes->box()->isVisible());
    QCOMPARE(m_camera->state().currentPartition, 1);
    QVERIFY(!m_host->state().isShownDropBox);
}

void TestPageBoxes::isHiddenByThePage()
{
    QVERIFY(open());
    read(status(), "statuspanel.hideDropDownBox('partition')");
    QVERIFY(!m_boxes->box()->isVisible());
    QVERIFY(open());
    read(status(), "statuspanel.hideSelectBox()");
    QVERIFY(!m_boxes->box()->isVisible());
}

void TestPageBoxes::isHiddenByThePageBeforeItIsReady()
{
    read(status(), "statuspanel.showDropDownBox('partition', 1, 2, 30, 40)");
    QSignalSpy loaded(list(), &QWebView::loadFinished);
    QVERIFY(!m_boxes->box()->isVisible());
    read(status(), "statuspanel.hideDropDownBox('partition')");
    QVERIFY(loaded.count() > 0 || loaded.wait());
    QVERIFY(!m_boxes->box()->isVisible());
    QVERIFY(!m_host->isShownDropBox());
}

void TestPageBoxes::followsTheStyle_data()
{
    QTest::addColumn<QString>("style");
    QTest::newRow("light") << "light";
    QTest::newRow("dark") << "dark";
}

void TestPageBoxes::followsTheStyle()
{
    QFETCH(QString, style);
    QVERIFY(open());
    read(status(), "statuspanel.setStyle('" + style + "')");
    QTRY_COMPARE(read(list(), "document.body.className").toString(), style);
}

void TestPageBoxes::knowsNoOtherList()
{
    read(status(), "statuspanel.showDropDownBox('shutter', 1, 2, 30, 40)");
    QCOMPARE(m_boxes->box(), nullptr);
    QVERIFY(!m_host->isShownDropBox());
}

int main(int argc, char **argv)
{
    TestPageBoxes test;
    return runTest(argc, argv, test);
}

#include "test_page_boxes.moc"
