#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourPictures.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/record/RecordWalks.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/EmptyPage.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/NoticeBar.h"
#include "workbench/window/StatusLine.h"

#include <QAction>
#include <QDir>
#include <QPushButton>
#include <QSlider>

namespace {

// Pictures that were stored with losses.
bool isAlike(const QColor &a, const QColor &b)
{
    return qAbs(a.red() - b.red()) < 16 && qAbs(a.green() - b.green()) < 16 &&
           qAbs(a.blue() - b.blue()) < 16;
}

void showsTheMemory(TourStage &stage)
{
    stage.step("memory", "Memory mode shows what the cameras have recorded", [&] {
        stage.pressAction("modeMemory");
        stage.compare(stage.window().status()->modeText(), "Mode: memory", "the status line");
        const DocumentView *view = stage.viewAt(1);
        stage.compare(view ? view->frameText() : QString(), "Frame 1 of 200", "under the picture");
        auto *slider = stage.window().findChild<QSlider *>("frame");
        slider->setFocus();
        stage.check(TourHand::press(Qt::Key_PageUp) && TourHand::press(Qt::Key_Right),
                    "the keys PgUp and Right on the slider");
        stage.compare(view ? view->frameText() : QString(), "Frame 12 of 200", "under the picture");
        stage.compare(stage.viewAt(0) ? stage.viewAt(0)->frameText() : QString(), "Frame 1 of 200",
                      "under the other picture");
        const QAction *button = stage.lockAction();
        stage.check(button && button->isEnabled(), "the tool's button is enabled");
    });
}

void saysThatNoRecordingIsOpen(TourStage &stage)
{
    stage.step("file", "File mode says what to do while no recording is open", [&] {
        stage.pressAction("modeFile");
        stage.compare(stage.window().status()->modeText(), "Mode: file", "the status line");
        const auto *empty = stage.window().findChild<EmptyPage *>();
        stage.check(empty && empty->isVisible(), "there is a page in place of the pictures");
        stage.compare(empty ? empty->title() : QString(), "No recording is open", "its title");
    });
}

void opensAFolder(TourStage &stage)
{
    stage.step("folder", "A folder of pictures opens as a recording", [&] {
        const QString folder = stage.folder() + "/drop test";
        stage.check(TourPictures::write(folder), "twelve pictures are written");
        auto *button = stage.window().findChild<QPushButton *>("emptyButton");
        bool chosen = false;
        TourHand::answerDialogs([&] { TourHand::click(button); }, {[&](QDialog *dialog) {
                                    chosen = TourHand::choosePath(dialog, folder);
                                }});
        stage.check(chosen, "the folder is chosen");
        stage.compare(QString::number(stage.window().views()->views().size()), "1",
                      "number of pictures");
        const DocumentView *view = stage.viewAt(0);
        stage.compare(view ? view->title() : QString(), "drop test", "title");
        stage.compare(view ? view->frameText() : QString(), "Frame 1 of 12", "under the picture");
        stage.check(view && view->isCurrent(), "it is current");
    });
}

void movesInARecording(TourStage &stage)
{
    stage.step("frames", "The frames come in the natural order of their names", [&] {
        auto *slider = stage.window().findChild<QSlider *>("frame");
        slider->setFocus();
        stage.check(TourHand::press(Qt::Key_Home), "the key Home");
        int ordered = 0;
        for (int frame = 0; frame < TourPictures::Count; ++frame) {
            const QImage picture = stage.viewAt(0) ? stage.viewAt(0)->picture() : QImage();
            if (!picture.isNull() &&
                isAlike(picture.pixelColor(picture.rect().center()), TourPictures::colour(frame)))
                ++ordered;
            if (frame == 5)
                stage.addPicture("-middle");
            TourHand::press(Qt::Key_Right);
        }
        stage.compare(QString::number(ordered), "12", "frames with the picture of their number");
        stage.compare(stage.viewAt(0) ? stage.viewAt(0)->frameText() : QString(), "Frame 12 of 12",
                      "under the picture");
    });
}

void playsARecording(TourStage &stage)
{
    stage.step("play", "A recording plays, around at its end, until it is stopped", [&] {
        QWidget *play = stage.window().findChild<QWidget *>("play");
        stage.check(TourHand::click(play), "a click on Play");
        for (int i = 0; i < 3; ++i)
            stage.window().views()->advance();
        const DocumentView *view = stage.viewAt(0);
        stage.compare(view ? view->frameText() : QString(), "Frame 3 of 12",
                      "three pictures later");
        stage.check(TourHand::click(play), "a click on Stop");
        stage.window().views()->advance();
        stage.compare(view ? view->frameText() : QString(), "Frame 3 of 12", "after the stop");
    });
}

void tellsThatAFolderHasNoPictures(TourStage &stage)
{
    stage.step("refused", "A folder without pictures is refused, and nothing else changes", [&] {
        const QString folder = stage.folder() + "/notes";
        QDir().mkpath(folder);
        bool chosen = false;
        TourHand::answerDialogs(
            [&] { TourHand::press(Qt::Key_O, Qt::ControlModifier, &stage.window()); },
            {[&](QDialog *dialog) { chosen = TourHand::choosePath(dialog, folder); }});
        stage.check(chosen, "the folder is chosen");
        stage.compare(stage.window().notice()->text(),
                      "No picture can be read in the folder " + folder, "the notice");
        stage.addPicture("-notice");
        stage.check(TourHand::click(stage.window().notice()->findChild<QWidget *>("noticeDismiss")),
                    "a click on Dismiss");
        stage.compare(QString::number(stage.window().views()->views().size()), "1",
                      "number of pictures");
        stage.compare(stage.viewAt(0) ? stage.viewAt(0)->title() : QString(), "drop test", "title");
    });
}

void closesARecording(TourStage &stage)
{
    stage.step("close", "A recording is closed, and the cameras are still there", [&] {
        stage.check(TourHand::press(Qt::Key_W, Qt::ControlModifier, &stage.window()),
                    "the keys Ctrl+W");
        const auto *empty = stage.window().findChild<EmptyPage *>();
        stage.check(empty && empty->isVisible(), "there is a page in place of the pictures");
        stage.check(TourHand::press(Qt::Key_1, Qt::ControlModifier, &stage.window()),
                    "the keys Ctrl+1 for live mode");
        stage.compare(stage.window().status()->modeText(), "Mode: live", "the status line");
        stage.compare(QString::number(stage.window().views()->views().size()), "3",
                      "number of pictures");
        stage.check(stage.viewAt(1) && stage.viewAt(1)->isCurrent(),
                    "camera 2 is current, as it was");
    });
}

}

void Walks::recording(TourStage &stage)
{
    showsTheMemory(stage);
    saysThatNoRecordingIsOpen(stage);
    opensAFolder(stage);
    movesInARecording(stage);
    playsARecording(stage);
    tellsThatAFolderHasNoPictures(stage);
    closesARecording(stage);
}
