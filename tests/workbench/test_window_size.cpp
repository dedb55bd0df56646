#include "bridge/page/GUI_WebView.h"
#include "standin/documents/StandInCamera.h"
#include "tests/support/TestLog.h"
#include "workbench/log/LogModel.h"
#include "workbench/pages/PageDialogs.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/PictureArea.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"

#include <QDockWidget>
#include <QScrollArea>
#include <QScrollBar>

class TestWindowSize : public TestBase
{
    Q_OBJECT

private slots:
    void fitsTheScreen_data();
    void fitsTheScreen();
    void neverOverlapsViews_data();
    void neverOverlapsViews();
    void keepsTheCurrentViewInSight();
    void leavesTheScrolledPlaceToTheUser();
};

void TestWindowSize::fitsTheScreen_data()
{
    QTest::addColumn<QRect>("available");
    QTest::newRow("1024x600") << QRect(0, 0, 1024, 600);
    QTest::newRow("1024x600 with bars") << QRect(48, 28, 976, 572);
    QTest::newRow("1280x720") << QRect(0, 0, 1280, 720);
    QTest::newRow("second screen") << QRect(-1280, 100, 1280, 720);
    QTest::newRow("1920x1080") << QRect(0, 0, 1920, 1080);
}

void TestWindowSize::fitsTheScreen()
{
    QFETCH(QRect, available);
    StandInHost host;
    host.addCamera();
    LogModel log(10);
    MainWindow window(host, log);
    window.fitInto(available);
    window.show();
    QTRY_VERIFY(window.viewPage()->isLoaded() && window.views()->isVisible());
    QVERIFY(available.contains(window.geometry()));
    QCOMPARE(window.size(), window.size().expandedTo(window.minimumSizeHint()));
    if (available.width() > 1280 && available.height() > 830)
        QCOMPARE(window.size(), QSize(1280, 800));
    const QRect inside = window.rect();
    for (const char *name : {"deviceDock", "statusDock"}) {
        auto *dock = window.findChild<QDockWidget *>(name);
        dock->raise();
        QTRY_VERIFY(!dock->visibleRegion().isEmpty());
        QVERIFY(inside.contains(dock->geometry()));
        QVERIFY2(dock->widget()->height() >= 110 && dock->widget()->width() >= 200,
                 qPrintable(QStringLiteral("%1: %2 x %3")
                                .arg(name)
                                .arg(dock->widget()->width())
                                .arg(dock->widget()->height())));
    }
    const QRect views(window.views()->mapTo(&window, QPoint()), window.views()->size());
    QVERIFY(inside.contains(views));
    QVERIFY(views.width() >= 400 && views.height() >= 180);
    const QString pictures = qEnvironmentVariable("ORVIX_TEST_PICTURES");
    if (!pictures.isEmpty())
        window.grab().save(pictures + "/fit " + QTest::currentDataTag() + ".png");
}

void TestWindowSize::neverOverlapsViews_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("as small as it goes") << QSize(1, 1);
    QTest::newRow("1024x600") << QSize(1016, 560);
    QTest::newRow("1280x800") << QSize(1280, 800);
    QTest::newRow("narrow and high") << QSize(700, 1200);
    QTest::newRow("1920x1080") << QSize(1920, 1080);
}

void TestWindowSize::neverOverlapsViews()
{
    QFETCH(QSize, size);
    StandInHost host;
    LogModel log(10);
    MainWindow window(host, log);
    window.views()->setRunning(false);
    window.resize(size);
    window.show();
    QTRY_VERIFY(window.viewPage()->isLoaded());
    for (int cameras = 1; cameras <= 16; ++cameras) {
        host.addCamera();
        window.refresh();
        QApplication::processEvents();
        QTRY_VERIFY(window.views()->isVisible());
        const QList<DocumentView *> views = window.views()->views();
        QCOMPARE(views.size(), cameras);
        QCOMPARE(window.views()->size(), window.viewPage()->view()->size());
        for (int i = 0; i < cameras; ++i) {
            const QWidget *content = views.at(i)->parentWidget();
            QVERIFY(content->rect().contains(views.at(i)->geometry()));
            for (int other = 0; other < i; ++other)
                QVERIFY(!views.at(i)->geometry().intersects(views.at(other)->geometry()));
            const auto *picture = views.at(i)->findChild<PictureArea *>();
            QVERIFY(views.at(i)->rect().contains(picture->geometry()));
            QVERIFY(picture->width() >= 120 && picture->height() >= 90);
        }
    }
    const QString pictures = qEnvironmentVariable("ORVIX_TEST_PICTURES");
    if (!pictures.isEmpty())
        window.grab().save(pictures + '/' + QTest::currentDataTag() + ".png");
}

void TestWindowSize::keepsTheCurrentViewInSight()
{
    StandInHost host;
    for (int i = 0; i < 16; ++i)
        host.addCamera();
    ViewArea area(host);
    area.setRunning(false);
    area.resize(400, 300);
    area.show();
    const auto *scroll = area.findChild<QScrollArea *>("viewScroll");
    const auto isSeen = [&](int i) {
        const DocumentView *view = area.views().at(i);
        const QRect place(view->mapTo(scroll->viewport(), QPoint()), view->size());
        return scroll->viewport()->rect().contains(place);
    };
    for (const int i : {15, 0, 12, 3}) {
        host.makeCurrent(area.views().at(i)->key());
        area.refresh();
        QVERIFY2(isSeen(i), qPrintable(QString::number(i)));
    }
    area.stepCurrent(1);
    area.refresh();
    QVERIFY(isSeen(4));
}

void TestWindowSize::leavesTheScrolledPlaceToTheUser()
{
    StandInHost host;
    for (int i = 0; i < 16; ++i)
        host.addCamera();
    ViewArea area(host);
    area.setRunning(false);
    area.resize(400, 300);
    area.show();
    host.makeCurrent(area.views().first()->key());
    area.refresh();
    QScrollBar *bar = area.findChild<QScrollArea *>("viewScroll")->verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    bar->setValue(bar->maximum());
    area.refresh();
    QCOMPARE(bar->value(), bar->maximum());
}

int main(int argc, char **argv)
{
    TestWindowSize test;
    return runTest(argc, argv, test);
}

#include "test_window_size.moc"
