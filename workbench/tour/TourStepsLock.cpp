#include "contract/PLG_Interface.h"
#include "workbench/app/Workbench.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourReport.h"
#include "workbench/tour/TourSteps.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/CameraPanel.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/StatusLine.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QToolButton>

void TourSteps::opens()
{
    step("start", "The workbench opens with two live cameras", [this] {
        ViewArea *views = m_window.views();
        compare(QString::number(views->views().size()), "2", "number of pictures");
        compare(viewAt(0) ? viewAt(0)->title() : QString(), "Camera 1", "first picture");
        compare(viewAt(1) ? viewAt(1)->title() : QString(), "Camera 2", "second picture");
        check(viewAt(0) && viewAt(0)->isCurrent(), "the first is current");
        compare(m_window.status()->modeText(), "Mode: live", "the status line");
        const quint64 first = viewAt(0) ? viewAt(0)->frameNumber() : 0;
        check(TourHand::waitFor([&] { return viewAt(0) && viewAt(0)->frameNumber() >= first + 5; }),
              "the live picture runs by itself");

        // From here on the walk-through is the clock.
        views->setRunning(false);
        const DocumentView *view = viewAt(0);
        const QImage before = view ? view->picture() : QImage();
        const quint64 frame = view ? view->frameNumber() : 0;
        views->advance();
        check(view && view->frameNumber() == frame + 1 && view->picture() != before,
              "a picture interval brings the next frame and another picture");
    });
}

void TourSteps::loadsTheTool()
{
    step("load", "The lock tool is loaded from its module and has a button", [this] {
        PLG_Interface *tool = lockTool();
        check(tool, "the module with the tool \"t_multilock\" is loaded");
        check(logHolds("t_multilock.orvix: tool \"t_multilock\""), "the log tells the module");
        compare(tool ? m_host.toolLabel(tool) : QString(), "Lock Camera",
                "label of the module's translation file");
        const auto *button = qobject_cast<QToolButton *>(buttonOf(lockAction()));
        compare(button ? button->text() : QString(), "Lock Camera", "text on the button");
        check(button && button->isEnabled() && button->isCheckable(), "it is a toggle button");
        checkLock(false, 2);
    });
}

void TourSteps::choosesACamera()
{
    step("choose", "A click on a picture makes its camera current", [this] {
        chooseView(1);
        const auto *name = m_window.cameraPanel()->findChild<QLabel *>("cameraName");
        compare(name->text(), "Camera 2", "camera of the panel");
        check(viewAt(0) && !viewAt(0)->isCurrent(), "the other one is no longer current");
    });
}

void TourSteps::setsACameraAlone()
{
    step("alone", "A camera that is not locked is set alone", [this] {
        chooseSetting("shutter", "1/2000 s");
        compareSettings(1, "1/2000 s", "1000 fps");
        compareSettings(0, "1/1000 s", "1000 fps");
    });
}

void TourSteps::locksTheCameras()
{
    step("lock", "A press of Lock Camera locks the cameras together", [this] {
        const int before = callsOf("setTrelvikLock(true)");
        pressTool();
        compare(QString::number(callsOf("setTrelvikLock(true)") - before), "1",
                "calls of setTrelvikLock(true) in the host's journal");
        checkLock(true, 2);
        check(logHolds("[ID:t_multilock]"), "the log tells the press");
    });
}

void TourSteps::carriesTheShutter()
{
    step("shutter", "A shutter set on camera 2 arrives on camera 1", [this] {
        chooseSetting("shutter", "1/4000 s");
        compareSettings(1, "1/4000 s", "1000 fps");
        compareSettings(0, "1/4000 s", "1000 fps");
    });
}

void TourSteps::carriesTheRecordRate()
{
    step("rate", "A record rate set on camera 1 arrives on camera 2", [this] {
        chooseView(0);
        chooseSetting("recordRate", "2000 fps");
        compareSettings(0, "1/4000 s", "2000 fps");
        compareSettings(1, "1/4000 s", "2000 fps");
    });
}

void TourSteps::carriesToAThirdCamera()
{
    step("third", "A third camera joins the lock and takes part", [this] {
        check(TourHand::press(Qt::Key_N, Qt::ControlModifier), "the keys Ctrl+N");
        compare(QString::number(m_window.views()->views().size()), "3", "number of pictures");
        checkLock(true, 3);
        compareSettings(2, "1/1000 s", "1000 fps");
        chooseView(1);
        chooseSetting("shutter", "1/5000 s");
        compareSettings(0, "1/5000 s", "2000 fps");
        compareSettings(1, "1/5000 s", "2000 fps");
        compareSettings(2, "1/5000 s", "1000 fps");
    });
}

void TourSteps::undoesAndRedoes()
{
    step("undo", "Undo takes the change back on all cameras, Redo brings it again", [this] {
        pressAction("undo");
        compareSettings(0, "1/4000 s", "2000 fps");
        compareSettings(1, "1/4000 s", "2000 fps");
        compareSettings(2, "1/1000 s", "1000 fps");
        check(TourHand::press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier),
              "the keys Ctrl+Shift+Z");
        compareSettings(0, "1/5000 s", "2000 fps");
        compareSettings(1, "1/5000 s", "2000 fps");
        compareSettings(2, "1/5000 s", "1000 fps");
        pressAction("undo");
        compareSettings(2, "1/1000 s", "1000 fps");
    });
}

void TourSteps::movesByKeys()
{
    step("keys", "Keys move between the pictures", [this] {
        check(TourHand::press(Qt::Key_PageDown, Qt::ControlModifier), "the keys Ctrl+PgDown");
        check(viewAt(2) && viewAt(2)->isCurrent() && viewAt(2)->hasFocus(),
              "the third picture is current");
        check(TourHand::press(Qt::Key_PageDown, Qt::ControlModifier), "the keys Ctrl+PgDown");
        check(viewAt(0) && viewAt(0)->isCurrent(), "behind the last comes the first");
        check(TourHand::press(Qt::Key_Tab), "the key Tab");
        check(viewAt(1) && viewAt(1)->hasFocus() && !viewAt(1)->isCurrent(),
              "the second picture has the focus and is not current");
        check(TourHand::press(Qt::Key_Space), "the space bar");
        check(viewAt(1) && viewAt(1)->isCurrent(), "the second picture is current");
    });
}

void TourSteps::releasesTheCameras()
{
    step("release", "A second press releases the cameras; a change then stays alone", [this] {
        const int before = callsOf("setTrelvikLock(false)");
        pressTool();
        compare(QString::number(callsOf("setTrelvikLock(false)") - before), "1",
                "calls of setTrelvikLock(false) in the host's journal");
        checkLock(false, 3);
        chooseSetting("shutter", "1/8000 s");
        compareSettings(1, "1/8000 s", "2000 fps");
        compareSettings(0, "1/4000 s", "2000 fps");
        compareSettings(2, "1/1000 s", "1000 fps");
    });
}

void TourSteps::followsAReleaseElsewhere()
{
    step("elsewhere", "The button follows a lock that is released elsewhere", [this] {
        if (QWidget *button = buttonOf(lockAction()))
            button->setFocus();
        check(TourHand::press(Qt::Key_Space, Qt::NoModifier, buttonOf(lockAction())),
              "the space bar on the button");
        checkLock(true, 3);
        check(TourHand::press(Qt::Key_R, Qt::ControlModifier),
              "the keys Ctrl+R, which release all cameras");
        checkLock(false, 3);
    });
}
