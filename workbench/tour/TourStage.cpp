#include "workbench/tour/TourStage.h"

#include "bridge/page/GUI_WebView.h"
#include "contract/PLG_Interface.h"
#include "workbench/base/SettingsText.h"
#include "workbench/log/HostCallPanel.h"
#include "workbench/log/LogPanel.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/tour/TourHand.h"
#include "workbench/tour/TourReport.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/StatusLine.h"
#include "workbench/window/ToolBar.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QMenuBar>
#include <QTabBar>
#include <QTest>

#include <algorithm>

namespace {

const QString LockTool = QStringLiteral("t_multilock");

}

TourStage::TourStage(const Options &options, const Scene &scene, TourReport &report)
    : m_report(report), m_options(options)
{
    m_options.settingsFile = m_folder.filePath("settings.ini");
    m_options.cameras = scene.cameras;
    m_options.style = scene.isDark ? "dark" : "light";
    m_options.openFolder.clear();
    m_workbench = std::make_unique<Workbench>(m_options);
    host().setInteractive(true);
    host().settings().setSaveFolder(m_folder.path());
    m_workbench->start(m_options);
    window().resize(1280, 800);
    window().show();
    window().activateWindow();
    m_ready = prepare(scene);
}

TourStage::~TourStage() = default;

bool TourStage::prepare(const Scene &scene)
{
    const bool active = QTest::qWaitForWindowActive(&window());
    const QList<PagePanel *> panels = {window().viewPage(), window().statusPanel(),
                                       window().devicePanel(), window().controlPanel()};
    const bool loaded = TourHand::waitFor([&] {
        return std::all_of(panels.begin(), panels.end(),
                           [](const PagePanel *panel) { return panel->isLoaded(); });
    });
    // The walk is the clock.
    window().views()->setRunning(false);
    // As by a click on its picture.
    if (const StandInCamera *camera = host().cameras().value(scene.current - 1)) {
        host().makeCurrent(camera->key());
        for (const StandInCamera *other : host().cameras())
            host().select(other->key(), other == camera);
    }
    TourHand::settle();
    if (scene.isLocked)
        TourHand::click(toolButton(LockTool));
    const DocumentView *current = viewAt(scene.current - 1);
    return active && loaded && m_folder.isValid() &&
           window().views()->views().size() == scene.cameras && current && current->isCurrent();
}

MainWindow &TourStage::window() const
{
    return m_workbench->window();
}

StandInHost &TourStage::host() const
{
    return m_workbench->host();
}

void TourStage::step(const QString &name, const QString &title, const std::function<void()> &body)
{
    m_report.beginStep(name, title);
    body();
    TourHand::settle();
    addPicture(QString());
}

void TourStage::check(bool seen, const QString &what)
{
    m_report.check(seen, what);
}

void TourStage::compare(const QString &seen, const QString &expected, const QString &what)
{
    m_report.compare(seen, expected, what);
}

void TourStage::addPicture(const QString &suffix)
{
    addPicture(&window(), suffix);
}

void TourStage::addPicture(QWidget *shown, const QString &suffix)
{
    m_report.addPicture(shown->grab(), suffix);
}

void TourStage::addPicture(const QPixmap &picture, const QString &suffix)
{
    m_report.addPicture(picture, suffix);
}

void TourStage::pressAction(const char *name)
{
    const auto *action = window().findChild<QAction *>(name);
    check(TourHand::click(buttonOf(action)), QStringLiteral("a click on the button %1").arg(name));
}

void TourStage::raisePanel(const QString &title)
{
    for (QTabBar *tabs : window().findChildren<QTabBar *>()) {
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->tabText(i) != title)
                continue;
            QTest::mouseClick(tabs, Qt::LeftButton, Qt::NoModifier, tabs->tabRect(i).center());
            TourHand::settle();
            check(tabs->currentIndex() == i, "the tab " + title + " is in front");
            return;
        }
    }
    check(false, "a tab " + title);
}

void TourStage::pressTool()
{
    check(TourHand::click(buttonOf(lockAction())), "a click on the tool's button");
}

void TourStage::chooseView(int index)
{
    check(TourHand::click(viewAt(index)), QStringLiteral("a click on picture %1").arg(index + 1));
    const DocumentView *view = viewAt(index);
    check(view && view->isCurrent(), QStringLiteral("picture %1 is current").arg(index + 1));
}

void TourStage::chooseSetting(const char *box, const QString &value)
{
    check(TourHand::choose(window().findChild<QComboBox *>(box), value),
          QStringLiteral("%1 chosen in the list %2").arg(value, box));
}

void TourStage::clickInPage(QWebView *view, const QString &selector, const QString &what)
{
    check(PageHand::click(view, selector), "a click on " + what);
}

void TourStage::visitDialog(const QString &menu, const QString &entry, const QString &picture,
                            const std::function<void(GUI_WebView *)> &body)
{
    int visits = 0;
    TourHand::answerDialogs(
        [&] { check(TourHand::chooseMenu(window().menuBar(), menu, entry), menu + ", " + entry); },
        {[&](QDialog *dialog) {
            auto *page = dialog->findChild<GUI_WebView *>();
            if (!page || !TourHand::waitFor([page] { return PageHand::isDrawn(page); }))
                return;
            ++visits;
            TourHand::settle();
            addPicture(dialog, picture);
            body(page);
        }});
    check(visits == 1, "the dialog with its page");
}

void TourStage::compareSettings(int camera, const QString &shutter, const QString &recordRate)
{
    const StandInCamera *document = host().cameras().value(camera);
    const QString name = QStringLiteral("camera %1").arg(camera + 1);
    if (!document) {
        check(false, name + " is there");
        return;
    }
    const CameraSettings &device = document->deviceSettings();
    compare(SettingsText::shutter(device.shutterSpeed), shutter, "shutter of " + name);
    compare(SettingsText::recordRate(device.recordRate), recordRate, "record rate of " + name);
    const DocumentView *view = window().views()->view(document->key());
    check(view && view->settingsText().contains(shutter) &&
              view->settingsText().contains(recordRate),
          "both stand under the picture of " + name);
}

void TourStage::checkLock(bool locked, int cameras)
{
    const QAction *action = lockAction();
    check(isToolChecked() == locked,
          QStringLiteral("the tool's isChecked answers %1").arg(locked ? "true" : "false"));
    check(action && action->isChecked() == locked,
          QStringLiteral("the button is %1").arg(locked ? "down" : "up"));
    int badges = 0;
    for (const DocumentView *view : window().views()->views())
        badges += view->showsLock() ? 1 : 0;
    compare(QString::number(badges), QString::number(locked ? cameras : 0), "pictures with a lock");
    compare(window().status()->lockText(),
            locked ? QStringLiteral("Cameras locked: %1").arg(cameras) : "Cameras released",
            "the status line");
}

PLG_Interface *TourStage::tool(const QString &name) const
{
    for (PLG_Interface *tool : m_workbench->loader().tools()) {
        if (tool->name() == name)
            return tool;
    }
    return nullptr;
}

QAction *TourStage::toolAction(const QString &name) const
{
    PLG_Interface *found = tool(name);
    return found ? window().tools()->action(found) : nullptr;
}

QWidget *TourStage::toolButton(const QString &name) const
{
    return buttonOf(toolAction(name));
}

PLG_Interface *TourStage::lockTool() const
{
    return tool(LockTool);
}

QAction *TourStage::lockAction() const
{
    return toolAction(LockTool);
}

QWidget *TourStage::buttonOf(const QAction *action) const
{
    for (const QToolBar *bar : window().findChildren<QToolBar *>()) {
        if (QWidget *button = bar->widgetForAction(const_cast<QAction *>(action)))
            return button;
    }
    return nullptr;
}

DocumentView *TourStage::viewAt(int index) const
{
    return window().views()->views().value(index);
}

bool TourStage::isToolChecked() const
{
    StandInDocument *document = host().document(host().currentKey());
    PLG_Interface *tool = lockTool();
    return document && tool && tool->isChecked(document->contract(), false);
}

bool TourStage::logHolds(const QString &text) const
{
    return !window().logPanel()->visibleLines().filter(text).isEmpty();
}

int TourStage::callsOf(const QString &call) const
{
    return window().hostCalls()->lines().count(call);
}
