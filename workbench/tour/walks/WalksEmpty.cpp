#include "bridge/page/GUI_WebView.h"
#include "foundation/Keys.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Look.h"
#include "workbench/tour/NoteHand.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/walks/Walks.h"
#include "workbench/views/EmptyPage.h"
#include "workbench/window/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>

namespace {

void showsNoCamera(TourStage &stage)
{
    stage.step("none", "Without a camera the window says what to do", [&] {
        for (int left = stage.host().cameras().size(); left > 0; --left)
            TourHand::press(Qt::Key_W, Qt::ControlModifier, &stage.window());
        stage.compare(QString::number(stage.host().cameras().size()), "0", "number of cameras");
        const auto *empty = stage.window().findChild<EmptyPage *>();
        stage.check(empty && empty->isVisible(), "there is a page in place of the pictures");
        stage.compare(empty ? empty->title() : QString(), "No camera", "its title");
        const auto *hint = stage.window().findChild<QLabel *>("cameraHint");
        stage.check(hint && hint->isVisible(), "the panel has a hint in place of the settings");
        const QAction *button = stage.lockAction();
        stage.check(button && !button->isChecked(),
                    "without a document the button is up, though the lock is on");
        if (!NoteHand::open(stage))
            return;
        stage.compare(PageHand::text(NoteHand::page(stage), "#none"),
                      "There is no camera to write a note for.", "its page");
        NoteHand::addPicture(stage, "-note");
        NoteHand::close(stage);
    });
}

void turnsLight(TourStage &stage)
{
    stage.step("light", "The light style, and a camera that joins the lock", [&] {
        stage.check(TourHand::click(stage.window().findChild<QPushButton *>("emptyButton")),
                    "a click on Add camera");
        stage.checkLock(true, 1);
        stage.check(TourHand::chooseMenu(stage.window().menuBar(), "View", "Light style"),
                    "View, Light style");
        stage.check(QApplication::palette() == Look::palette(false), "the window is light");
        stage.compare(stage.host().settings().value(Keys::application.style, QVariant()).toString(),
                      "light", "the setting");
    });
}

}

void Walks::empty(TourStage &stage)
{
    showsNoCamera(stage);
    turnsLight(stage);
}
