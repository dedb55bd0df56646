#include "bridge/dialog/GUI_PageDialog.h"
#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/page/GUI_WebView.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "tests/support/TestLog.h"
#include "workbench/log/LogModel.h"
#include "workbench/pages/DropDownBoxes.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/NoticeBar.h"

#include <QPushButton>

using namespace PageHand;

/// A dialog that its page works directly.
class FailingDialog : public GUI_PageDialog
{
    Q_OBJECT

public:
    explicit FailingDialog(StandInHost &host, QWidget *parent)
        : GUI_PageDialog(&host, "Fails", parent)
    {
        loadPage("qrc:/fails_in_handler.html");
    }

public slots:
    void populateJavaScriptWindowObject() override { showToPage("failing"); }
    QString getStyle() { return style(); }
    QString translate(const QString &text) { return translated(text); }
};

/// What is told of pages that fail: the pages of the folder failing/.
class TestPageFailures : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void tellsWhatAScriptThrows_data();
    void tellsWhatAScriptThrows();
    void tellsWhatAHandlerThrowsEachTime();
    void tellsTheErrorLogOfADialog_data();
    void tellsTheErrorLogOfADialog();
    void tellsOfAPanelThatIsMissing();
    void tellsOfADialogThatIsMissing();
    void tellsOfAFileThatIsMissing();
    void tellsNothingOfAPageThatGivesWay();
    void tellsOfTheListOfPartitions();
    void goesOnWithoutAnObjectOfItsName();
    void isNotDeletedByAPage();

private:
    QString notice() { return m_window->notice()->text(); }

    std::unique_ptr<StandInHost> m_host;
    std::unique_ptr<LogModel> m_log;
    std::unique_ptr<MainWindow> m_window;
};

void TestPageFailures::init()
{
    TestBase::init();
    m_host = std::make_unique<StandInHost>();
    m_log = std::make_unique<LogModel>(100);
    m_window = std::make_unique<MainWindow>(*m_host, *m_log);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTRY_VERIFY(m_window->statusPanel()->isLoaded() && m_window->devicePanel()->isLoaded());
}

void TestPageFailures::cleanup()
{
    m_window.reset();
    m_host.reset();
    TestBase::cleanup();
}

void TestPageFailures::tellsWhatAScriptThrows_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QString>("drawn");
    const auto row = [](const char *name, const char *page, const char *failure,
                        const char *drawn) {
        QTest::newRow(name) << page << QString("The page %1 failed: %2").arg(page, failure)
                            << drawn;
    };
    row("while it loads", "qrc:/fails_loading.html",
        "Error: while it loads (qrc:/fails_loading.js:3)", "drawn");
    row("in a timer", "qrc:/fails_in_timer.html", "Error: in a timer (qrc:/fails_in_timer.js:4)",
        "drawn");
    row("in another file", "qrc:/fails_in_another_file.html",
        "SyntaxError: Unexpected token ';' (qrc:/no_script.js:3)", "drawn");
    row("something without a text", "qrc:/fails_in_setup.html", "unknown", "");
}

void TestPageFailures::tellsWhatAScriptThrows()
{
    QFETCH(QString, page);
    QFETCH(QString, failure);
    QFETCH(QString, drawn);
    LogCapture log;
    PagePanel panel(*m_host, "failing", page, "Fails");
    QTRY_COMPARE(notice(), failure);
    QTRY_VERIFY(panel.isLoaded());
    QCOMPARE(log.texts(QtCriticalMsg), QStringList(failure));
    QCOMPARE(text(panel.view(), "#drawn"), drawn); // the rest of the page goes on
}

void TestPageFailures::tellsWhatAHandlerThrowsEachTime()
{
    LogCapture log;
    GUI_WebViewDialog dialog(m_host.get(), "Fails", "qrc:/fails_in_handler.html",
                             new JS_Mediator_Dialog(m_host.get(), "failing"), m_window.get());
    dialog.show();
    QTRY_COMPARE(text(dialog.webView(), "#drawn"), QString("drawn"));
    const QStringList failures{
        "The page qrc:/fails_in_handler.html failed: Error: in a handler "
        "(qrc:/fails_in_handler.js:6)",
        "The page qrc:/fails_in_handler.html failed: ReferenceError: Can't find variable: nobody "
        "(qrc:/fails_in_handler.js:9)"};
    QVERIFY(click(dialog.webView(), "#fail"));
    QCOMPARE(log.texts(QtCriticalMsg), failures);
    const QString both = failures.last() + " (and 1 more, see the log)";
    QTRY_COMPARE(notice(), both);

    QVERIFY(click(dialog.webView(), "#fail"));
    QCOMPARE(log.texts(QtCriticalMsg), failures + failures);
    QTest::qWait(0);
    QCOMPARE(notice(), both);
    QTest::mouseClick(m_window->notice()->findChild<QPushButton *>("noticeDismiss"),
                      Qt::LeftButton);
    QVERIFY(click(dialog.webView(), "#fail"));
    QTRY_COMPARE(notice(), both);
}

void TestPageFailures::tellsTheErrorLogOfADialog_data()
{
    QTest::addColumn<bool>("showsNotices");
    QTest::newRow("with a notice") << true;
    QTest::newRow("where nobody shows notices") << false;
}

// One line of the log each, by the dialog that is the page's object.
void TestPageFailures::tellsTheErrorLogOfADialog()
{
    QFETCH(bool, showsNotices);
    LogCapture log;
    FailingDialog dialog(*m_host, m_window.get());
    if (showsNotices)
        emit m_host->events()->pageAttached(dialog.webView());
    dialog.show();
    QTRY_COMPARE(text(dialog.webView(), "#drawn"), QString("drawn"));
    QVERIFY(click(dialog.webView(), "#fail"));
    QCOMPARE(log.texts(QtCriticalMsg),
             QStringList({"[USER][ERROR] \"Error: in a handler (qrc:/fails_in_handler.js:6)\"",
                          "[USER][ERROR] \"ReferenceError: Can't find variable: nobody "
                          "(qrc:/fails_in_handler.js:9)\""}));
    if (showsNotices) {
        QTRY_COMPARE(notice(), QString("The page qrc:/fails_in_handler.html failed: "
                                       "ReferenceError: Can't find variable: nobody "
                                       "(qrc:/fails_in_handler.js:9) (and 1 more, see the log)"));
    } else {
        QTest::qWait(0);
        QCOMPARE(notice(), QString());
    }
}

void TestPageFailures::tellsOfAPanelThatIsMissing()
{
    LogCapture log;
    PagePanel panel(*m_host, "failing", "qrc:/nothing.html", "Nothing");
    const QString failure("The page qrc:/nothing.html cannot be loaded");
    QTRY_COMPARE(notice(), failure);
    QVERIFY(!panel.isLoaded());
    QCOMPARE(log.texts(QtCriticalMsg), QStringList(failure));
}

void TestPageFailures::tellsOfADialogThatIsMissing()
{
    LogCapture log;
    GUI_WebViewDialog dialog(m_host.get(), "Nothing", "qrc:/nothing.html",
                             new JS_Mediator_Dialog(m_host.get(), "failing"), m_window.get());
    dialog.show();
    const QString failure("The page qrc:/nothing.html cannot be loaded");
    QTRY_COMPARE(notice(), failure);
    QCOMPARE(log.texts(QtCriticalMsg), QStringList(failure));
    QVERIFY(dialog.isVisible());
    QVERIFY(dialog.close());
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void TestPageFailures::tellsOfAFileThatIsMissing()
{
    LogCapture log;
    PagePanel panel(*m_host, "failing", "qrc:/lacks_a_file.html", "Lacks");
    const QString failure("The page qrc:/lacks_a_file.html has no file qrc:/nowhere.js");
    QTRY_COMPARE(notice(), failure);
    QTRY_COMPARE(text(panel.view(), "#drawn"), QString("drawn"));
    QCOMPARE(log.texts(QtCriticalMsg), QStringList(failure));
}

// A critical line would fail the test.
void TestPageFailures::tellsNothingOfAPageThatGivesWay()
{
    PagePanel panel(*m_host, "about", "qrc:/nothing.html", "Nothing");
    panel.view()->load(QUrl("qrc:/about.html"));
    QTRY_VERIFY(panel.isLoaded());
    QCOMPARE(panel.view()->url(), QUrl("qrc:/about.html"));
    {
        PagePanel goes(*m_host, "about", "qrc:/about.html", "About");
    }
    QTest::qWait(50);
    QCOMPARE(notice(), QString());
}

void TestPageFailures::tellsOfTheListOfPartitions()
{
    m_host->addCamera();
    DropDownBoxes boxes(*m_host, *m_window->statusPanel()->view());
    QTRY_VERIFY(click(m_window->statusPanel()->view(), "#partition"));
    QTRY_VERIFY(boxes.box() && boxes.box()->isVisible());
    LogCapture log;
    read(boxes.box()->webView(), "setTimeout(function () { nobody.knows(); }, 0); 0");
    QTRY_VERIFY(notice().startsWith("The page qrc:/selectbox.html failed: ReferenceError"));
}

void TestPageFailures::goesOnWithoutAnObjectOfItsName()
{
    PagePanel panel(*m_host, "another", "qrc:/about.html", "About");
    QTRY_COMPARE(text(panel.view(), "body"), QString("This page works in the application only."));
    QCOMPARE(notice(), QString());
}

void TestPageFailures::isNotDeletedByAPage()
{
    LogCapture log;
    GUI_WebView *view = m_window->statusPanel()->view();
    read(view, "pageFailures.deleteLater()");
    QTest::qWait(0);
    read(view, "pageFailures.scriptFailed('x', 'still here', '', 0)");
    QTRY_COMPARE(notice(), QString("The page x failed: still here"));
}

int main(int argc, char **argv)
{
    TestPageFailures test;
    return runTest(argc, argv, test);
}

#include "test_page_failures.moc"
