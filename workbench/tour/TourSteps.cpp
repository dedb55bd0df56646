#include "workbench/tour/TourSteps.h"

#include "contract/PLG_Interface.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/SettingsText.h"
#include "workbench/log/HostCallPanel.h"
#include "workbench/log/LogPanel.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourReport.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/CameraPanel.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/StatusLine.h"
#include "workbench/window/ToolBar.h"

#include <QAction>
#include <QComboBox>

namespace {
const QString LockTool = QStringLiteral("t_multilock");
}

TourSteps::TourSteps(Workbench &workbench, TourReport &report, const QString &folder)
    : m_workbench(workbench), m_window(workbench.window()), m_host(workbench.host()),
      m_report(report), m_folder(folder)
{
}

void TourSteps::walk()
{
    opens();
    loadsTheTool();
    choosesACamera();
    setsACameraAlone();
    locksTheCameras();
    carriesTheShutter();
    carriesTheRecordRate();
    carriesToAThirdCamera();
    undoesAndRedoes();
    movesByKeys();
    releasesTheCameras();
    followsAReleaseElsewhere();
    opensTheRegion();
    dragsEveryHandle();
    movesTheRegionByKeys();
    setsTheRegionInItsPanel();
    carriesTheRegionToLockedCameras();
    showsTheMemory();
    saysThatNoRecordingIsOpen();
    opensAFolder();
    movesInARecording();
    playsARecording();
    tellsThatAFolderHasNoPictures();
    closesARecording();
    reportsABrokenTool();
    filtersTheLog();
    dismissesTheNotice();
    showsTheHostCalls();
    choosesInTheDeviceList();
    commandsFromTheStatus();
    choosesAPartition();
    reloadsTheViews();
    changesPreferences();
    showsAboutAndEthernet();
    writesNotes();
    writesASupportFile();
    turnsDark();
    showsDarkPages();
    showsTheRegionInTheDark();
    showsNoCamera();
    turnsLight();
}

void TourSteps::step(const QString &name, const QString &title, const std::function<void()> &body)
{
    m_report.beginStep(name, title);
    body();
    TourHand::settle();
    m_report.addPicture(m_window.grab());
}

void TourSteps::check(bool seen, const QString &what)
{
    m_report.check(seen, what);
}

void TourSteps::compare(const QString &seen, const QString &expected, const QString &what)
{
    m_report.compare(seen, expected, what);
}

void TourSteps::pressAction(const char *name)
{
    const auto *action = m_window.findChild<QAction *>(name);
    check(TourHand::click(buttonOf(action)), QStringLiteral("a click on the button %1").arg(name));
}

void TourSteps::pressTool()
{
    check(TourHand::click(buttonOf(lockAction())), "a click on the tool's button");
}

void TourSteps::chooseView(int index)
{
    check(TourHand::click(viewAt(index)), QStringLiteral("a click on picture %1").arg(index + 1));
    const DocumentView *view = viewAt(index);
    check(view && view->isCurrent(), QStringLiteral("picture %1 is current").arg(index + 1));
}

void TourSteps::chooseSetting(const char *box, const QString &value)
{
    check(TourHand::choose(m_window.findChild<QComboBox *>(box), value),
          QStringLiteral("%1 chosen in the list %2").arg(value, box));
}

void TourSteps::compareSettings(int camera, const QString &shutter, const QString &recordRate)
{
    const StandInCamera *document = m_host.cameras().value(camera);
    const QString name = QStringLiteral("camera %1").arg(camera + 1);
    if (!document) {
        check(false, name + " is there");
        return;
    }
    const CameraSettings &device = document->deviceSettings();
    compare(SettingsText::shutter(device.shutterSpeed), shutter, "shutter of " + name);
    compare(SettingsText::recordRate(device.recordRate), recordRate, "record rate of " + name);
    const DocumentView *view = m_window.views()->view(document->key());
    check(view && view->settingsText().contains(shutter) &&
              view->settingsText().contains(recordRate),
          "both stand under the picture of " + name);
}

void TourSteps::checkLock(bool locked, int cameras)
{
    const QAction *action = lockAction();
    check(isToolChecked() == locked,
          QStringLiteral("the tool's isChecked answers %1").arg(locked ? "true" : "false"));
    check(action && action->isChecked() == locked,
          QStringLiteral("the button is %1").arg(locked ? "down" : "up"));
    int badges = 0;
    for (const DocumentView *view : m_window.views()->views())
        badges += view->showsLock() ? 1 : 0;
    compare(QString::number(badges), QString::number(locked ? cameras : 0), "pictures with a lock");
    compare(m_window.status()->lockText(),
            locked ? QStringLiteral("Cameras locked: %1").arg(cameras) : "Cameras released",
            "the status line");
}

PLG_Interface *TourSteps::lockTool() const
{
    for (PLG_Interface *tool : m_workbench.loader().tools()) {
        if (tool->name() == LockTool)
            return tool;
    }
    return nullptr;
}

QAction *TourSteps::lockAction() const
{
    PLG_Interface *tool = lockTool();
    return tool ? m_window.tools()->action(tool) : nullptr;
}

QWidget *TourSteps::buttonOf(const QAction *action) const
{
    for (const QToolBar *bar : m_window.findChildren<QToolBar *>()) {
        if (QWidget *button = bar->widgetForAction(const_cast<QAction *>(action)))
            return button;
    }
    return nullptr;
}

DocumentView *TourSteps::viewAt(int index) const
{
    return m_window.views()->views().value(index);
}

bool TourSteps::isToolChecked() const
{
    StandInDocument *document = m_host.document(m_host.currentKey());
    PLG_Interface *tool = lockTool();
    return document && tool && tool->isChecked(document->contract(), false);
}

bool TourSteps::logHolds(const QString &text) const
{
    return !m_window.logPanel()->visibleLines().filter(text).isEmpty();
}

int TourSteps::callsOf(const QString &call) const
{
    return m_window.hostCalls()->lines().count(call);
}
