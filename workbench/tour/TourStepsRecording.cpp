#include "workbench/app/Workbench.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourPictures.h"
#include "workbench/tour/TourReport.h"
#include "workbench/tour/TourSteps.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/EmptyPage.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/NoticeBar.h"
#include "workbench/window/StatusLine.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

namespace {

// Pictures that were stored with losses.
bool isAlike(const QColor &a, const QColor &b)
{
    return qAbs(a.red() - b.red()) < 16 && qAbs(a.green() - b.green()) < 16 &&
           qAbs(a.blue() - b.blue()) < 16;
}

}

void TourSteps::showsTheMemory()
{
    step("memory", "Memory mode shows what the cameras have recorded", [this] {
        pressAction("modeMemory");
        compare(m_window.status()->modeText(), "Mode: memory", "the status line");
        const DocumentView *view = viewAt(1);
        compare(view ? view->frameText() : QString(), "Frame 1 of 200", "under the picture");
        auto *slider = m_window.findChild<QSlider *>("frame");
        slider->setFocus();
        check(TourHand::press(Qt::Key_PageUp) && TourHand::press(Qt::Key_Right),
              "the keys PgUp and Right on the slider");
        compare(view ? view->frameText() : QString(), "Frame 12 of 200", "under the picture");
        compare(viewAt(0) ? viewAt(0)->frameText() : QString(), "Frame 1 of 200",
                "under the other picture");
        const QAction *button = lockAction();
        check(button && button->isEnabled(), "the tool's button is enabled");
    });
}

void TourSteps::saysThatNoRecordingIsOpen()
{
    step("file", "File mode says what to do while no recording is open", [this] {
        pressAction("modeFile");
        compare(m_window.status()->modeText(), "Mode: file", "the status line");
        const auto *empty = m_window.findChild<EmptyPage *>();
        check(empty && empty->isVisible(), "there is a page in place of the pictures");
        compare(empty ? empty->title() : QString(), "No recording is open", "its title");
    });
}

void TourSteps::opensAFolder()
{
    step("folder", "A folder of pictures opens as a recording", [this] {
        const QString folder = m_folder + "/drop test";
        check(TourPictures::write(folder), "twelve pictures are written");
        auto *button = m_window.findChild<QPushButton *>("emptyButton");
        bool chosen = false;
        TourHand::answerDialogs([&] { TourHand::click(button); }, {[&](QDialog *dialog) {
                                    chosen = TourHand::choosePath(dialog, folder);
                                }});
        check(chosen, "the folder is chosen");
        compare(QString::number(m_window.views()->views().size()), "1", "number of pictures");
        const DocumentView *view = viewAt(0);
        compare(view ? view->title() : QString(), "drop test", "title");
        compare(view ? view->frameText() : QString(), "Frame 1 of 12", "under the picture");
        check(view && view->isCurrent(), "it is current");
    });
}

void TourSteps::movesInARecording()
{
    step("frames", "The frames come in the natural order of their names", [this] {
        auto *slider = m_window.findChild<QSlider *>("frame");
        slider->setFocus();
        check(TourHand::press(Qt::Key_Home), "the key Home");
        int ordered = 0;
        for (int frame = 0; frame < TourPictures::Count; ++frame) {
            const QImage picture = viewAt(0) ? viewAt(0)->picture() : QImage();
            if (!picture.isNull() &&
                isAlike(picture.pixelColor(picture.rect().center()), TourPictures::colour(frame)))
                ++ordered;
            if (frame == 5)
                m_report.addPicture(m_window.grab(), "-middle");
            TourHand::press(Qt::Key_Right);
        }
        compare(QString::number(ordered), "12", "frames with the picture of their number");
        compare(viewAt(0) ? viewAt(0)->frameText() : QString(), "Frame 12 of 12",
                "under the picture");
    });
}

void TourSteps::playsARecording()
{
    step("play", "A recording plays, around at its end, until it is stopped", [this] {
        QWidget *play = m_window.findChild<QWidget *>("play");
        check(TourHand::click(play), "a click on Play");
        for (int i = 0; i < 3; ++i)
            m_window.views()->advance();
        const DocumentView *view = viewAt(0);
        compare(view ? view->frameText() : QString(), "Frame 3 of 12", "three pictures later");
        check(TourHand::click(play), "a click on Stop");
        m_window.views()->advance();
        compare(view ? view->frameText() : QString(), "Frame 3 of 12", "after the stop");
    });
}

void TourSteps::tellsThatAFolderHasNoPictures()
{
    step("refused", "A folder without pictures is refused, and nothing else changes", [this] {
        const QString folder = m_folder + "/notes";
        QDir().mkpath(folder);
        bool chosen = false;
        TourHand::answerDialogs(
            [&] { TourHand::press(Qt::Key_O, Qt::ControlModifier, &m_window); },
            {[&](QDialog *dialog) { chosen = TourHand::choosePath(dialog, folder); }});
        check(chosen, "the folder is chosen");
        compare(m_window.notice()->text(), "No picture can be read in the folder " + folder,
                "the notice");
        m_report.addPicture(m_window.grab(), "-notice");
        check(TourHand::click(m_window.notice()->findChild<QWidget *>("noticeDismiss")),
              "a click on Dismiss");
        compare(QString::number(m_window.views()->views().size()), "1", "number of pictures");
        compare(viewAt(0) ? viewAt(0)->title() : QString(), "drop test", "title");
    });
}

void TourSteps::closesARecording()
{
    step("close", "A recording is closed, and the cameras are still there", [this] {
        check(TourHand::press(Qt::Key_W, Qt::ControlModifier, &m_window), "the keys Ctrl+W");
        const auto *empty = m_window.findChild<EmptyPage *>();
        check(empty && empty->isVisible(), "there is a page in place of the pictures");
        check(TourHand::press(Qt::Key_1, Qt::ControlModifier, &m_window),
              "the keys Ctrl+1 for live mode");
        compare(m_window.status()->modeText(), "Mode: live", "the status line");
        compare(QString::number(m_window.views()->views().size()), "3", "number of pictures");
        check(viewAt(1) && viewAt(1)->isCurrent(), "camera 2 is current, as it was");
    });
}
