#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/page/GUI_WebView.h"
#include "tests/support/TestLog.h"
#include "workbench/log/LogModel.h"
#include "workbench/pages/PageDialogs.h"
#include "workbench/pages/PageInspector.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/window/MainWindow.h"

#include <QDialog>
#include <QMenuBar>
#include <QTimer>
#include <QWebPage>
#include <QWebView>

using namespace PageHand;

namespace {

/// The window, with its panels loaded.
struct Shown
{
    bool open()
    {
        host.addCamera();
        window = std::make_unique<MainWindow>(host, log);
        window->show();
        window->activateWindow();
        return QTest::qWaitForWindowActive(window.get()) && QTest::qWaitFor([this] {
                   return window->statusPanel()->isLoaded() && window->devicePanel()->isLoaded() &&
                          window->viewPage()->isLoaded();
               });
    }

    QWebInspector *inspector() { return window->inspector()->window(); }
    void choose() { window->findChild<QAction *>("inspectPage")->trigger(); }

    StandInHost host;
    PageDialogs dialogs{host};
    LogModel log{100};
    std::unique_ptr<MainWindow> window;
};

bool showsDeveloperExtras(QWebView *view)
{
    return view->page()->settings()->testAttribute(QWebSettings::DeveloperExtrasEnabled);
}

}

class TestPageInspector : public TestBase
{
    Q_OBJECT

private slots:
    void standsInTheMenuHelp();
    void inspectsThePageThatHadTheFocusLast();
    void inspectsAPageBeforeOneHadTheFocus();
    void hasItsOwnPage();
    void closesAndOpensAgainWithoutGrowth();
    void goesWithItsPage();
    void staysWhenThePageLoadsAnew();
    void opensInAModalDialog();
    void opensForAnotherDialogEachTime();
    void goesWithTheWindow();
};

void TestPageInspector::standsInTheMenuHelp()
{
    Shown shown;
    QVERIFY(shown.open());
    const auto *action = shown.window->findChild<QAction *>("inspectPage");
    QVERIFY(action);
    QCOMPARE(action->text(), QString("&Inspect page"));
    QCOMPARE(action->shortcut(), QKeySequence("F12"));
    const auto *help = qobject_cast<QMenu *>(action->associatedWidgets().value(0));
    QVERIFY(help);
    QCOMPARE(help->title(), QString("&Help"));
}

void TestPageInspector::inspectsThePageThatHadTheFocusLast()
{
    Shown shown;
    QVERIFY(shown.open());
    GUI_WebView *devices = shown.window->devicePanel()->view();
    GUI_WebView *status = shown.window->statusPanel()->view();
    devices->setFocus();
    shown.window->menuBar()->setFocus();
    shown.choose();
    QVERIFY(shown.inspector());
    QCOMPARE(shown.inspector()->page(), devices->page());
    QVERIFY(shown.inspector()->isVisible());
    QCOMPARE(shown.inspector()->windowTitle(), QString("Inspector of Devices"));
    QVERIFY(showsDeveloperExtras(devices));

    shown.window->activateWindow();
    status->setFocus();
    shown.choose();
    QCOMPARE(shown.inspector()->page(), status->page());
    QCOMPARE(shown.window->findChildren<QWebInspector *>().size(), 1);
    QVERIFY(!showsDeveloperExtras(devices));

    QWebInspector *same = shown.inspector();
    shown.choose();
    QCOMPARE(shown.inspector(), same);
}

void TestPageInspector::inspectsAPageBeforeOneHadTheFocus()
{
    Shown shown;
    QVERIFY(shown.open());
    shown.choose();
    QVERIFY(shown.inspector());
    QVERIFY(shown.inspector()->page());
}

// The engine's, which is complete where the toolkit was installed with it.
void TestPageInspector::hasItsOwnPage()
{
    Shown shown;
    QVERIFY(shown.open());
    shown.window->statusPanel()->view()->setFocus();
    shown.choose();
    auto *frontEnd = shown.inspector()->findChild<QWebView *>();
    QVERIFY(frontEnd);
    QTRY_VERIFY(count(frontEnd, "body *") > 20);
    frontEnd->setFocus(); // is no page of the application
    shown.choose();
    QCOMPARE(shown.inspector()->page(), shown.window->statusPanel()->view()->page());
}

void TestPageInspector::closesAndOpensAgainWithoutGrowth()
{
    Shown shown;
    QVERIFY(shown.open());
    GUI_WebView *view = shown.window->statusPanel()->view();
    view->setFocus();
    const int widgets = QApplication::allWidgets().size();
    for (int i = 0; i < 3; ++i) {
        shown.choose();
        QVERIFY(shown.inspector());
        QCOMPARE(shown.inspector()->page(), view->page());
        QVERIFY(shown.inspector()->close());
        QTRY_VERIFY(!shown.inspector());
        QVERIFY(!showsDeveloperExtras(view));
    }
    QCOMPARE(QApplication::allWidgets().size(), widgets);
    QVERIFY(click(view, "#toolsOff"));
}

void TestPageInspector::goesWithItsPage()
{
    Shown shown;
    QVERIFY(shown.open());
    auto page = std::make_unique<PagePanel>(shown.host, "statuspanel", "qrc:/status.html", "Own");
    page->show();
    page->activateWindow();
    page->view()->setFocus();
    QTRY_VERIFY(page->isLoaded() && page->view()->hasFocus());
    shown.choose();
    const QPointer<QWebInspector> inspector = shown.inspector();
    QCOMPARE(inspector->page(), page->view()->page());
    page.reset();
    QVERIFY(!inspector);
    shown.choose();
    QVERIFY(!shown.inspector() || shown.inspector()->page());
}

void TestPageInspector::staysWhenThePageLoadsAnew()
{
    Shown shown;
    QVERIFY(shown.open());
    GUI_WebView *view = shown.window->statusPanel()->view();
    view->setFocus();
    shown.choose();
    QSignalSpy finished(view, &QWebView::loadFinished);
    view->reload();
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(shown.inspector()->page(), view->page());
}

// The menu cannot be reached there, the key can, and so can the inspector.
void TestPageInspector::opensInAModalDialog()
{
    Shown shown;
    QVERIFY(shown.open());
    shown.window->statusPanel()->view()->setFocus();
    QPointer<QWebInspector> inspector;
    bool seen = false;
    QTimer::singleShot(0, [&] {
        QDialog *dialog = nullptr;
        QTRY_VERIFY((dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())));
        auto *view = dialog->findChild<GUI_WebView *>();
        QTRY_VERIFY(count(view, "button") > 0 && view->hasFocus());
        QTest::keyClick(view, Qt::Key_F12);
        inspector = shown.inspector();
        seen = inspector && inspector->page() == view->page() && inspector->isVisible() &&
               inspector->parentWidget() == dialog;
        dialog->reject();
    });
    shown.dialogs.showAbout();
    QVERIFY(seen);
    QVERIFY(!inspector);
    shown.choose();
    QCOMPARE(shown.inspector()->page(), shown.window->statusPanel()->view()->page());
}

void TestPageInspector::opensForAnotherDialogEachTime()
{
    Shown shown;
    QVERIFY(shown.open());
    const int widgets = QApplication::allWidgets().size();
    for (int i = 0; i < 3; ++i) {
        QTimer::singleShot(0, [&] {
            QDialog *dialog = nullptr;
            QTRY_VERIFY((dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())));
            auto *view = dialog->findChild<GUI_WebView *>();
            QTRY_VERIFY(count(view, "button") > 0 && view->hasFocus());
            QTest::keyClick(view, Qt::Key_F12);
            QVERIFY(shown.inspector());
            QTRY_VERIFY(count(shown.inspector()->findChild<QWebView *>(), "body *") > 20);
            if (i == 1)
                QVERIFY(shown.inspector()->close());
            dialog->reject();
        });
        shown.dialogs.showAbout();
        QVERIFY(!shown.inspector());
    }
    QTRY_COMPARE(QApplication::allWidgets().size(), widgets);
}

void TestPageInspector::goesWithTheWindow()
{
    Shown shown;
    QVERIFY(shown.open());
    shown.window->statusPanel()->view()->setFocus();
    shown.choose();
    const QPointer<QWebInspector> inspector = shown.inspector();
    QVERIFY(shown.window->close());
    QVERIFY(!inspector);
    shown.window->show();
    shown.choose();
    QVERIFY(shown.inspector());
    shown.window.reset();
}

int main(int argc, char **argv)
{
    TestPageInspector test;
    return runTest(argc, argv, test);
}

#include "test_page_inspector.moc"
