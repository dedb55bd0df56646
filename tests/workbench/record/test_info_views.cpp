#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Options.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/PictureArea.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QTemporaryDir>

// The information over the pictures on the screen.
class TestInfoViews : public TestBase
{
    Q_OBJECT

private slots:
    void standsUprightAtTheTopLeft_data();
    void standsUprightAtTheTopLeft();
    void staysInSightOfAZoomedPicture();
    void countsWithThePicture();
    void followsTheMarkWithTheNextPicture();
    void hiddenWhereThereIsNoPicture();
    void hiddenWhenItIsSwitchedOff();
    void menuSwitchesItInAllViews();
};

namespace {

constexpr QSize ViewSize(700, 620);

QImage grabbed(DocumentView &view)
{
    return view.findChild<PictureArea *>()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

// The information alone, where the picture is seen.
QImage informationAlone(StandInDocument &document, const QSize &size, quint64 frame)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    const ViewGeometry geometry = document.geometry();
    document.overlay().paint(
        painter, geometry.toScreen(QRect(QPoint(0, 0), geometry.picture)) & image.rect(), frame);
    return image;
}

// Whether all that is white in the one is white in the other. The scene itself is darker.
bool hasLettersOf(const QImage &image, const QImage &letters)
{
    int count = 0;
    for (int y = 0; y < letters.height(); ++y) {
        for (int x = 0; x < letters.width(); ++x) {
            if (qGray(letters.pixel(x, y)) < 250)
                continue;
            ++count;
            if (qGray(image.pixel(x, y)) < 250)
                return false;
        }
    }
    return count > 50;
}

struct Shown
{
    Shown()
    {
        host.showDisplayInfo(true);
        StandInCamera::Description description;
        description.region = QRect(0, 0, 600, 400);
        description.partitions = {{1, "A", 100, 1000}};
        camera = host.addCamera(description);
        host.settings().setValue("info/display",
                                 "Camera name:true,Resolution:true,TimeIrigCode:true");
        view = std::make_unique<DocumentView>(*camera);
        view->resize(ViewSize);
        view->show();
        view->refresh();
    }

    StandInHost host;
    StandInCamera *camera = nullptr;
    std::unique_ptr<DocumentView> view;
};

}

void TestInfoViews::standsUprightAtTheTopLeft_data()
{
    QTest::addColumn<int>("turns");
    QTest::addColumn<bool>("horizontally");
    QTest::addColumn<bool>("vertically");
    for (int turns = 0; turns < 4; ++turns) {
        for (const bool horizontally : {false, true}) {
            for (const bool vertically : {false, true})
                QTest::addRow("%d %d %d", turns, horizontally, vertically)
                    << turns << horizontally << vertically;
        }
    }
}

void TestInfoViews::standsUprightAtTheTopLeft()
{
    QFETCH(int, turns);
    QFETCH(bool, horizontally);
    QFETCH(bool, vertically);
    Shown shown;
    shown.camera->setQuarterTurns(turns);
    shown.camera->setFlips(horizontally, vertically);
    const QImage seen = grabbed(*shown.view);
    const QImage letters = informationAlone(*shown.camera, seen.size(), 0);
    QVERIFY(hasLettersOf(seen, letters));
    // At the top left of the picture, which has margins in its view.
    const QRect place = shown.camera->geometry().toScreen(QRect(0, 0, 600, 400));
    QVERIFY(place.left() > 20 || place.top() > 20);
    const QRect corner(place.topLeft(), QSize(250, 80));
    QVERIFY(hasLettersOf(seen.copy(corner), letters.copy(corner)));
    QCOMPARE(shown.camera->overlay().shownTexts(),
             QStringList({"Camera 1", "Resolution: 600 x 400", "Current Time: +00:00:00"}));
}

void TestInfoViews::staysInSightOfAZoomedPicture()
{
    Shown shown;
    shown.camera->setZoom(4.0);
    shown.camera->scrollBy(QPoint(-300, -200));
    const QImage seen = grabbed(*shown.view);
    const QImage letters = informationAlone(*shown.camera, seen.size(), 0);
    QVERIFY(hasLettersOf(seen, letters));
    const QRect corner(0, 0, 250, 80);
    QVERIFY(hasLettersOf(seen.copy(corner), letters.copy(corner)));
}

void TestInfoViews::countsWithThePicture()
{
    Shown shown;
    grabbed(*shown.view);
    for (const quint64 frame : {1, 2, 3}) {
        shown.view->showFrame(frame);
        grabbed(*shown.view);
        QCOMPARE(shown.camera->overlay().shownTexts().last(),
                 QString("Current Time: +00:00:00.00%1").arg(frame));
    }
}

void TestInfoViews::followsTheMarkWithTheNextPicture()
{
    Shown shown;
    grabbed(*shown.view);
    shown.host.settings().setValue("info/ForegroundColor", "#00ff00");
    const QImage before = grabbed(*shown.view);
    shown.camera->markInfoOverlayDirty();
    const QImage after = grabbed(*shown.view);
    QVERIFY(before != after);
    QVERIFY(!hasLettersOf(after, informationAlone(*shown.camera, after.size(), 0)));
}

void TestInfoViews::hiddenWhereThereIsNoPicture()
{
    Shown shown;
    shown.view->setEmptyText("nothing");
    const QImage with = grabbed(*shown.view);
    shown.host.showDisplayInfo(false);
    QCOMPARE(grabbed(*shown.view), with);
}

void TestInfoViews::hiddenWhenItIsSwitchedOff()
{
    Shown shown;
    const QImage with = grabbed(*shown.view);
    shown.host.showDisplayInfo(false);
    const QImage without = grabbed(*shown.view);
    QVERIFY(!hasLettersOf(without, informationAlone(*shown.camera, with.size(), 0)));
    shown.host.showDisplayInfo(true);
    QCOMPARE(grabbed(*shown.view), with);
}

void TestInfoViews::menuSwitchesItInAllViews()
{
    QTemporaryDir dir;
    Options options;
    options.settingsFile = dir.filePath("settings.ini");
    options.pluginFolder = dir.path();
    options.cameras = 2;
    Workbench workbench(options);
    workbench.start(options);
    workbench.window().show();
    workbench.window().views()->setRunning(false);
    QStringList menus;
    QMenu *menu = nullptr;
    for (QAction *action : workbench.window().menuBar()->actions()) {
        menus.append(action->text().remove('&'));
        if (menus.last() == "Information")
            menu = action->menu();
    }
    QCOMPARE(menus, QStringList({"File", "Edit", "Cameras", "View", "Tools", "Information", "Save",
                                 "Picture", "Help"}));
    auto *show = workbench.window().findChild<QAction *>("showInformation");
    QVERIFY(menu->actions().contains(show));
    QVERIFY(show->isCheckable() && show->isChecked()); // at the start
    const auto seen = [&] {
        workbench.window().refresh();
        QList<QImage> images;
        for (DocumentView *view : workbench.window().views()->views())
            images.append(grabbed(*view));
        return images;
    };
    const QList<QImage> with = seen();
    QCOMPARE(with.size(), 2);
    show->trigger();
    QVERIFY(!workbench.host().isDisplayInfoShowing());
    const QList<QImage> without = seen();
    for (int i = 0; i < 2; ++i)
        QVERIFY(with.at(i) != without.at(i));
    // What a page switches shows in the menu.
    workbench.host().setDisplayInfoShowing(true);
    QCOMPARE(seen(), with);
    QVERIFY(show->isChecked());
}

int main(int argc, char *argv[])
{
    TestInfoViews test;
    return runTest(argc, argv, test);
}

#include "test_info_views.moc"
