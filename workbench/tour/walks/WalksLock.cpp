#include "workbench/app/Workbench.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourStage.h"
#include "workbench/tour/walks/Walks.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/CameraPanel.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/StatusLine.h"

#include <QAction>
#include <QLabel>
#include <QToolButton>

namespace {

void opens(TourStage &stage)
{
    stage.step("start", "The workbench opens with two live cameras", [&] {
        ViewArea *views = stage.window().views();
        stage.compare(QString::number(views->views().size()), "2", "number of pictures");
        stage.compare(stage.viewAt(0) ? stage.viewAt(0)->title() : QString(), "Camera 1",
                      "first picture");
        stage.compare(stage.viewAt(1) ? stage.viewAt(1)->title() : QString(), "Camera 2",
                      "second picture");
        stage.check(stage.viewAt(0) && stage.viewAt(0)->isCurrent(), "the first is current");
        stage.compare(stage.window().status()->modeText(), "Mode: live", "the status line");
        views->setRunning(true);
        const quint64 first = stage.viewAt(0) ? stage.viewAt(0)->frameNumber() : 0;
        stage.check(TourHand::waitFor([&] {
                        return stage.viewAt(0) && stage.viewAt(0)->frameNumber() >= first + 5;
                    }),
                    "the live picture runs by itself");

        views->setRunning(false);
        const DocumentView *view = stage.viewAt(0);
        const QImage before = view ? view->picture() : QImage();
        const quint64 frame = view ? view->frameNumber() : 0;
        views->advance();
        stage.check(view && view->frameNumber() == frame + 1 && view->picture() != before,
                    "a picture interval brings the next frame and another picture");
    });
}

void loadsTheTool(TourStage &stage)
{
    stage.step("load", "The lock tool is loaded from its module and has a button", [&] {
        PLG_Interface *tool = stage.lockTool();
        stage.check(tool, "the module with the tool \"t_multilock\" is loaded");
        stage.check(stage.logHolds("t_multilock.orvix: tool \"t_multilock\""),
                    "the log tells the module");
        stage.compare(tool ? stage.host().toolLabel(tool) : QString(), "Lock Camera",
                      "label of the module's translation file");
        const auto *button = qobject_cast<QToolButton *>(stage.buttonOf(stage.lockAction()));
        stage.compare(button ? button->text() : QString(), "Lock Camera", "text on the button");
        stage.check(button && button->isEnabled() && button->isCheckable(),
                    "it is a toggle button");
        stage.checkLock(false, 2);
    });
}

void choosesACamera(TourStage &stage)
{
    stage.step("choose", "A click on a picture makes its camera current", [&] {
        stage.chooseView(1);
        const auto *name = stage.window().cameraPanel()->findChild<QLabel *>("cameraName");
        stage.compare(name->text(), "Camera 2", "camera of the panel");
        stage.check(stage.viewAt(0) && !stage.viewAt(0)->isCurrent(),
                    "the other one is no longer current");
    });
}

void setsACameraAlone(TourStage &stage)
{
    stage.step("alone", "A camera that is not locked is set alone", [&] {
        stage.chooseSetting("shutter", "1/2000 s");
        stage.compareSettings(1, "1/2000 s", "1000 fps");
        stage.compareSettings(0, "1/1000 s", "1000 fps");
    });
}

void locksTheCameras(TourStage &stage)
{
    stage.step("lock", "A press of Lock Camera locks the cameras together", [&] {
        const int before = stage.callsOf("setTrelvikLock(true)");
        stage.pressTool();
        stage.compare(QString::number(stage.callsOf("setTrelvikLock(true)") - before), "1",
                      "calls of setTrelvikLock(true) in the host's journal");
        stage.checkLock(true, 2);
        stage.check(stage.logHolds("[ID:t_multilock]"), "the log tells the press");
    });
}

void carriesTheShutter(TourStage &stage)
{
    stage.step("shutter", "A shutter set on camera 2 arrives on camera 1", [&] {
        stage.chooseSetting("shutter", "1/4000 s");
        stage.compareSettings(1, "1/4000 s", "1000 fps");
        stage.compareSettings(0, "1/4000 s", "1000 fps");
    });
}

void carriesTheRecordRate(TourStage &stage)
{
    stage.step("rate", "A record rate set on camera 1 arrives on camera 2", [&] {
        stage.chooseView(0);
        stage.chooseSetting("recordRate", "2000 fps");
        stage.compareSettings(0, "1/4000 s", "2000 fps");
        stage.compareSettings(1, "1/4000 s", "2000 fps");
    });
}

void carriesToAThirdCamera(TourStage &stage)
{
    stage.step("third", "A third camera joins the lock and takes part", [&] {
        stage.check(TourHand::press(Qt::Key_N, Qt::ControlModifier), "the keys Ctrl+N");
        stage.compare(QString::number(stage.window().views()->views().size()), "3",
                      "number of pictures");
        stage.checkLock(true, 3);
        stage.compareSettings(2, "1/1000 s", "1000 fps");
        stage.chooseView(1);
        stage.chooseSetting("shutter", "1/5000 s");
        stage.compareSettings(0, "1/5000 s", "2000 fps");
        stage.compareSettings(1, "1/5000 s", "2000 fps");
        stage.compareSettings(2, "1/5000 s", "1000 fps");
    });
}

void undoesAndRedoes(TourStage &stage)
{
    stage.step("undo", "Undo takes the change back on all cameras, Redo brings it again", [&] {
        stage.pressAction("undo");
        stage.compareSettings(0, "1/4000 s", "2000 fps");
        stage.compareSettings(1, "1/4000 s", "2000 fps");
        stage.compareSettings(2, "1/1000 s", "1000 fps");
        stage.check(TourHand::press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier),
                    "the keys Ctrl+Shift+Z");
        stage.compareSettings(0, "1/5000 s", "2000 fps");
        stage.compareSettings(1, "1/5000 s", "2000 fps");
        stage.compareSettings(2, "1/5000 s", "1000 fps");
        stage.pressAction("undo");
        stage.compareSettings(2, "1/1000 s", "1000 fps");
    });
}

void movesByKeys(TourStage &stage)
{
    stage.step("keys", "Keys move between the pictures", [&] {
        stage.check(TourHand::press(Qt::Key_PageDown, Qt::ControlModifier), "the keys Ctrl+PgDown");
        stage.check(stage.viewAt(2) && stage.viewAt(2)->isCurrent() && stage.viewAt(2)->hasFocus(),
                    "the third picture is current");
        stage.check(TourHand::press(Qt::Key_PageDown, Qt::ControlModifier), "the keys Ctrl+PgDown");
        stage.check(stage.viewAt(0) && stage.viewAt(0)->isCurrent(),
                    "behind the last comes the first");
        stage.check(TourHand::press(Qt::Key_Tab), "the key Tab");
        stage.check(stage.viewAt(1) && stage.viewAt(1)->hasFocus() && !stage.viewAt(1)->isCurrent(),
                    "the second picture has the focus and is not current");
        stage.check(TourHand::press(Qt::Key_Space), "the space bar");
        stage.check(stage.viewAt(1) && stage.viewAt(1)->isCurrent(),
                    "the second picture is current");
    });
}

void releasesTheCameras(TourStage &stage)
{
    stage.step("release", "A second press releases the cameras; a change then stays alone", [&] {
        const int before = stage.callsOf("setTrelvikLock(false)");
        stage.pressTool();
        stage.compare(QString::number(stage.callsOf("setTrelvikLock(false)") - before), "1",
                      "calls of setTrelvikLock(false) in the host's journal");
        stage.checkLock(false, 3);
        stage.chooseSetting("shutter", "1/8000 s");
        stage.compareSettings(1, "1/8000 s", "2000 fps");
        stage.compareSettings(0, "1/4000 s", "2000 fps");
        stage.compareSettings(2, "1/1000 s", "1000 fps");
    });
}

void followsAReleaseElsewhere(TourStage &stage)
{
    stage.step("elsewhere", "The button follows a lock that is released elsewhere", [&] {
        if (QWidget *button = stage.buttonOf(stage.lockAction()))
            button->setFocus();
        stage.check(
            TourHand::press(Qt::Key_Space, Qt::NoModifier, stage.buttonOf(stage.lockAction())),
            "the space bar on the button");
        stage.checkLock(true, 3);
        stage.check(TourHand::press(Qt::Key_R, Qt::ControlModifier),
                    "the keys Ctrl+R, which release all cameras");
        stage.checkLock(false, 3);
    });
}

}

void Walks::lock(TourStage &stage)
{
    opens(stage);
    loadsTheTool(stage);
    choosesACamera(stage);
    setsACameraAlone(stage);
    locksTheCameras(stage);
    carriesTheShutter(stage);
    carriesTheRecordRate(stage);
    carriesToAThirdCamera(stage);
    undoesAndRedoes(stage);
    movesByKeys(stage);
    releasesTheCameras(stage);
    followsAReleaseElsewhere(stage);
}
