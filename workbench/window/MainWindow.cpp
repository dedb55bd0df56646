#include "workbench/window/MainWindow.h"

#include "bridge/mediator/JS_Mediator_Page.h"
#include "bridge/operation/OperationLog.h"
#include "contract/HostGuard.h"
#include "contract/PLG_Interface.h"
#include "foundation/Keys.h"
#include "foundation/Theme.h"
#include "workbench/base/Look.h"
#include "workbench/base/Shortcuts.h"
#include "workbench/log/HostCallPanel.h"
#include "workbench/log/LogPanel.h"
#include "workbench/pages/PageCatalogue.h"
#include "workbench/pages/PageFailures.h"
#include "workbench/pages/PageInspector.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/views/ToolView.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/CameraPanel.h"
#include "workbench/window/GroupActions.h"
#include "workbench/window/NoticeBar.h"
#include "workbench/window/StatusLine.h"
#include "workbench/window/ToolBar.h"
#include "workbench/window/ToolPanel.h"
#include "workbench/window/ViewActions.h"

#include <QActionGroup>
#include <QDockWidget>
#include <QHash>
#include <QMenuBar>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

namespace {
const QString GeometryKey = QStringLiteral("workbench/geometry");
const QString PanelsKey = QStringLiteral("workbench/panels");
}

MainWindow::MainWindow(StandInHost &host, LogModel &log)
    : m_host(host), m_log(log), m_inspector(new PageInspector(this)),
      m_refreshTimer(new QTimer(this))
{
    setWindowTitle(tr("Orvix Workbench"));
    m_refreshTimer->setSingleShot(true);
    m_refreshTimer->setInterval(0);
    connect(m_refreshTimer, &QTimer::timeout, this, &MainWindow::refresh);

    makePanels();
    makeActions();
    makeMenus();
    followHost();
    new ViewActions(m_host, this);
    new GroupActions(m_host, *m_cameras, this);
    new ToolView(m_host, *m_views, this);
    auto *toolPanel = new ToolPanel(m_host, this);
    addDockWidget(Qt::LeftDockWidgetArea, toolPanel); // where it has room, whatever else is open
    connect(m_tools, &ToolBar::panelCloseRequested, toolPanel, &ToolPanel::close);
    new Shortcuts(m_host, this);
    m_host.state().mainWidget = this;
    resize(1280, 800);
    resizeDocks({m_logDock}, {230}, Qt::Vertical);
    resizeDocks({toolPanel, m_cameraDock}, {260, 300}, Qt::Horizontal);
    resizeDocks({m_cameraDock, m_deviceDock, m_statusDock}, {170, 230, 290}, Qt::Vertical);
    refresh();
}

MainWindow::~MainWindow()
{
    disconnect(m_host.events(), nullptr, this, nullptr);
    delete m_viewPage; // lets go of the views
    delete m_views;
}

void MainWindow::addTool(PLG_Interface *tool)
{
    m_tools->addTool(tool);
    m_toolMenu->addAction(m_tools->action(tool));
    m_toolMenu->setEnabled(true);
    m_tools->show();
}

void MainWindow::removeTool(PLG_Interface *tool)
{
    m_tools->removeTool(tool);
    m_toolMenu->setEnabled(!m_toolMenu->isEmpty());
}

void MainWindow::applyStyle()
{
    const QString style =
        m_host.settings().value(Keys::application.style, QVariant("light")).toString();
    const bool dark = Look::isDark(style);
    Look::apply(dark);
    for (QToolBar *bar : findChildren<QToolBar *>())
        bar->setStyleSheet(Look::toolBarStyle(dark));
    for (QDockWidget *dock : findChildren<QDockWidget *>())
        guarded(&m_host, [&] { Theme::applyNativeStyle(&m_host, dock); });
    m_styles->actions().at(dark ? 1 : 0)->setChecked(true);
    m_updateTools = true;
    scheduleRefresh(false);
}

void MainWindow::saveLayout()
{
    StandInSettings &settings = m_host.settings();
    if (!settings.setValue(GeometryKey, saveGeometry()) ||
        !settings.setValue(PanelsKey, saveState()))
        qWarning() << "the layout of the window could not be stored";
}

void MainWindow::restoreLayout()
{
    restoreGeometry(m_host.settings().value(GeometryKey, QVariant()).toByteArray());
    restoreState(m_host.settings().value(PanelsKey, QVariant()).toByteArray());
}

// The frame is not there before the window is shown, so the usual one has to do. Where the height
// has to shrink, devices and status share a place: above each other they would show nothing.
void MainWindow::fitInto(const QRect &available)
{
    constexpr int Side = 4;
    const int top = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
    const QRect room = available.adjusted(Side, top, -Side, -Side);
    QRect wanted = geometry();
    if (wanted.height() > room.height()) {
        tabifyDockWidget(m_deviceDock, m_statusDock);
        m_deviceDock->raise();
    }
    wanted.setSize(wanted.size().boundedTo(room.size()));
    wanted.moveLeft(qBound(room.left(), wanted.left(), room.right() + 1 - wanted.width()));
    wanted.moveTop(qBound(room.top(), wanted.top(), room.bottom() + 1 - wanted.height()));
    setGeometry(wanted);
}

void MainWindow::refresh()
{
    m_refreshTimer->stop();
    if (m_rebuild) {
        m_rebuild = false;
        m_views->rebuild();
    } else {
        m_views->refresh();
    }
    m_modes->actions().at(int(m_host.mode()))->setChecked(true);
    m_showInformation->setChecked(m_host.isInfoShowing());
    m_cameraPanel->setCamera(m_host.camera(m_host.currentKey()));
    m_cameraPanel->setHint(m_host.cameras().isEmpty()
                               ? tr("There is no camera. Cameras, Add camera brings one.")
                               : tr("A recording has no settings. They show here when a camera is "
                                    "the current one."));
    m_closeCurrent->setEnabled(m_host.document(m_host.currentKey()));
    m_releaseAll->setEnabled(m_host.isLockOn());
    const StandInCamera *camera = m_host.camera(m_host.currentKey());
    const NetworkDevice *device =
        camera ? m_host.network().device(camera->serialNumber()) : nullptr;
    m_unplug->setEnabled(device);
    m_unplug->setChecked(device && !device->isPlugged);
    m_saveCameraFile->setEnabled(!m_host.selection().isEmpty());
    m_restartCamera->setEnabled(m_host.camera(m_host.currentKey()));
    const bool several = m_views->views().size() > 1;
    m_nextView->setEnabled(several);
    m_previousView->setEnabled(several);
    updateTools();
    m_tools->refresh();
    m_status->refresh();
    const StandInDocument *current = m_host.document(m_host.currentKey());
    m_host.pageObject()->setProperty("currentPartition",
                                     current ? current->state().currentPartition : 0);
    m_viewPage->refresh();
    m_statusPanel->refresh();
    m_devicePanel->refresh();
    m_controlPanel->refresh();
    m_hostCalls->collect();
}

QAction *MainWindow::makeAction(const char *name, const QString &text, const QKeySequence &shortcut)
{
    auto *action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, [action](bool checked) {
        OperationLog::userOperation("MainWindow", action->isCheckable() ? "toggled" : "clicked",
                                    "Action", action->objectName(), QString(),
                                    action->isCheckable() ? QVariant(checked) : QVariant());
    });
    return action;
}

void MainWindow::makeActions()
{
    m_openFolder = makeAction("openFolder", tr("&Open folder..."), QKeySequence::Open);
    connect(m_openFolder, &QAction::triggered, this, &MainWindow::openFolderRequested);
    m_loadTool = makeAction("loadTool", tr("&Load tool..."), QKeySequence("Ctrl+L"));
    connect(m_loadTool, &QAction::triggered, this, &MainWindow::loadToolRequested);
    m_closeCurrent =
        makeAction("closeCurrent", tr("&Close camera or recording"), QKeySequence("Ctrl+W"));
    connect(m_closeCurrent, &QAction::triggered, this, &MainWindow::closeCurrent);
    JS_Mediator *commands = m_statusPanel->mediator();
    m_support = makeAction("support", tr("&Support file..."), {});
    connect(m_support, &QAction::triggered, commands, &JS_Mediator::openExportSupportFileDialog);
    m_inspectPage = makeAction("inspectPage", tr("&Inspect page"), QKeySequence("F12"));
    connect(m_inspectPage, &QAction::triggered, m_inspector, &PageInspector::open);
    m_quit = makeAction("quit", tr("&Quit"), QKeySequence("Ctrl+Q"));
    connect(m_quit, &QAction::triggered, this, &MainWindow::close);

    m_undo = m_host.undoSteps()->createUndoAction(this, tr("&Undo"));
    m_undo->setObjectName("undo");
    m_undo->setShortcut(QKeySequence::Undo);
    m_undo->setIconText(tr("Undo"));
    m_redo = m_host.undoSteps()->createRedoAction(this, tr("&Redo"));
    m_redo->setObjectName("redo");
    m_redo->setShortcut(QKeySequence("Ctrl+Shift+Z"));
    m_redo->setIconText(tr("Redo"));

    m_addCamera = makeAction("addCamera", tr("&Add camera"), QKeySequence("Ctrl+N"));
    connect(m_addCamera, &QAction::triggered, this, &MainWindow::addCameraRequested);
    m_releaseAll = makeAction("releaseAll", tr("&Release all cameras"), QKeySequence("Ctrl+R"));
    connect(m_releaseAll, &QAction::triggered, this,
            [this] { guarded(&m_host, [this] { m_host.setTrelvikLock(false); }); });
    m_unplug = makeAction("unplug", tr("&Unplug the camera"), {});
    m_unplug->setCheckable(true);
    connect(m_unplug, &QAction::triggered, this, [this](bool unplug) {
        if (const StandInCamera *camera = m_host.camera(m_host.currentKey()))
            m_host.network().setPlugged(camera->serialNumber(), !unplug);
    });
    m_openCameraFile = makeAction("openCameraFile", tr("Open camera &file..."), {});
    connect(m_openCameraFile, &QAction::triggered, this,
            [this] { emit cameraFileRequested(false); });
    m_saveCameraFile = makeAction("saveCameraFile", tr("Save camera f&ile..."), {});
    connect(m_saveCameraFile, &QAction::triggered, this,
            [this] { emit cameraFileRequested(true); });
    m_restartCamera = makeAction("restartCamera", tr("Restart &camera"), {});
    connect(m_restartCamera, &QAction::triggered, this,
            [this] { m_host.restartCamera(m_host.currentKey()); });
    m_nextView = makeAction("nextView", tr("&Next view"), QKeySequence("Ctrl+PgDown"));
    connect(m_nextView, &QAction::triggered, this, [this] { m_views->stepCurrent(1); });
    m_previousView = makeAction("previousView", tr("&Previous view"), QKeySequence("Ctrl+PgUp"));
    connect(m_previousView, &QAction::triggered, this, [this] { m_views->stepCurrent(-1); });

    m_showInformation =
        makeAction("showInformation", tr("Show &over the pictures"), QKeySequence("Ctrl+I"));
    m_showInformation->setCheckable(true);
    connect(m_showInformation, &QAction::triggered, this,
            [this](bool show) { m_host.showDisplayInfo(show); });

    struct Mode
    {
        const char *name;
        QString text;
        QString tip;
    };
    const Mode modes[] = {
        {"modeLive", tr("&Live"), tr("What the cameras see now")},
        {"modeMemory", tr("&Memory"), tr("What the cameras have recorded")},
        {"modeFile", tr("&File"), tr("Recordings of folders of pictures")},
    };
    m_modes = new QActionGroup(this);
    for (int i = 0; i < 3; ++i) {
        const QKeySequence shortcut(QStringLiteral("Ctrl+%1").arg(i + 1));
        QAction *action = makeAction(modes[i].name, modes[i].text, shortcut);
        action->setCheckable(true);
        action->setToolTip(QStringLiteral("%1 (%2)").arg(
            modes[i].tip, shortcut.toString(QKeySequence::NativeText)));
        connect(action, &QAction::triggered, this, [this, i] {
            guarded(&m_host, [this, i] { m_host.setMode(StandInHost::Mode(i)); });
            refresh();
        });
        m_modes->addAction(action);
    }

    m_styles = new QActionGroup(this);
    for (const char *style : {"light", "dark"}) {
        const bool dark = Look::isDark(style);
        QAction *action = makeAction(dark ? "styleDark" : "styleLight",
                                     dark ? tr("&Dark style") : tr("Li&ght style"), {});
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, style] { emit styleChosen(style); });
        m_styles->addAction(action);
    }
}

void MainWindow::makeMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->addActions({m_openFolder, m_loadTool});
    file->addSeparator();
    file->addActions({m_closeCurrent, m_quit});
    QMenu *edit = menuBar()->addMenu(tr("&Edit"));
    edit->addActions({m_undo, m_redo});
    edit->addSeparator();
    m_cameras = menuBar()->addMenu(tr("&Cameras"));
    m_cameras->addActions({m_addCamera, m_releaseAll, m_unplug});
    m_cameras->addSeparator();
    m_cameras->addActions({m_openCameraFile, m_saveCameraFile, m_restartCamera});
    m_cameras->addSeparator();
    QMenu *view = menuBar()->addMenu(tr("&View"));
    view->addActions(m_modes->actions());
    view->addSeparator();
    view->addActions({m_nextView, m_previousView});
    view->addSeparator();
    view->addActions(m_styles->actions());
    view->addSeparator();
    for (QDockWidget *dock :
         {m_cameraDock, m_deviceDock, m_controlDock, m_statusDock, m_logDock, m_callsDock})
        view->addAction(dock->toggleViewAction());
    m_toolMenu = menuBar()->addMenu(tr("&Tools"));
    m_toolMenu->setEnabled(false);
    QMenu *information = menuBar()->addMenu(tr("&Information"));
    information->addAction(m_showInformation);
    information->addSeparator();
    menuBar()->addMenu(tr("&Save"));
    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addActions({m_support, m_inspectPage});
    addPages(help);

    auto *modeBar = new QToolBar(tr("Mode"), this);
    modeBar->setObjectName("modes");
    modeBar->addActions(m_modes->actions());
    addToolBar(modeBar);
    addToolBar(m_tools);
    auto *editBar = new QToolBar(tr("Edit"), this);
    editBar->setObjectName("edit");
    editBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    editBar->addActions({m_undo, m_redo});
    addToolBar(editBar);
    for (QToolBar *bar : {modeBar, editBar}) {
        for (QAction *action : bar->actions())
            bar->widgetForAction(action)->setFocusPolicy(Qt::StrongFocus);
    }
}

// Each page with a menu entry stands at the end of its menu; new menus come before the last one.
void MainWindow::addPages(QMenu *last)
{
    QHash<QString, QMenu *> menus;
    for (QAction *action : menuBar()->actions())
        menus.insert(action->text().remove('&'), action->menu());
    for (const PageEntry &page : PageCatalogue::pages()) {
        if (page.menu.isEmpty())
            continue;
        QMenu *&menu = menus[page.menu];
        if (!menu) {
            menu = new QMenu(tr(qPrintable(page.menu)), this);
            menuBar()->insertMenu(last->menuAction(), menu);
        }
        QAction *action =
            makeAction(qPrintable(page.name), tr(qPrintable(page.entry)), page.shortcut);
        connect(action, &QAction::triggered, this, [this, &page] { emit pageRequested(page); });
        menu->addAction(action);
    }
}

void MainWindow::makePanels()
{
    m_tools = new ToolBar(m_host, this);
    m_notice = new NoticeBar(this);
    connect(new PageFailures(m_host, this), &PageFailures::failed, m_notice, &NoticeBar::tell);
    m_views = new ViewArea(m_host, this);
    auto *centre = new QWidget(this);
    auto *layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_notice);
    m_host.state().webPageEmbeddedMdi = m_views; // the page takes it in
    m_viewPage = new PagePanel(m_host, PageCatalogue::page("views"), this);
    layout->addWidget(m_viewPage, 1);
    setCentralWidget(centre);
    connect(m_views, &ViewArea::addCameraRequested, this, &MainWindow::addCameraRequested);
    connect(m_views, &ViewArea::openFolderRequested, this, &MainWindow::openFolderRequested);
    connect(m_notice, &NoticeBar::logRequested, this, &MainWindow::showLog);

    const auto dock = [this](const char *name, const QString &title, QWidget *content,
                             Qt::DockWidgetArea area) {
        auto *widget = new QDockWidget(title, this);
        widget->setObjectName(name);
        widget->setWidget(content);
        addDockWidget(area, widget);
        return widget;
    };
    m_cameraPanel = new CameraPanel(m_host, this);
    m_logPanel = new LogPanel(&m_log, this);
    m_hostCalls = new HostCallPanel(m_host, this);
    m_cameraDock = dock("cameraDock", tr("Camera"), m_cameraPanel, Qt::RightDockWidgetArea);
    m_devicePanel = new PagePanel(m_host, PageCatalogue::page("devices"), this);
    m_controlPanel = new PagePanel(m_host, PageCatalogue::page("devicecontrol"), this);
    m_statusPanel = new PagePanel(m_host, PageCatalogue::page("status"), this);
    m_deviceDock = dock("deviceDock", tr("Devices"), m_devicePanel, Qt::RightDockWidgetArea);
    m_controlDock = dock("controlDock", tr("Selection"), m_controlPanel, Qt::RightDockWidgetArea);
    tabifyDockWidget(m_deviceDock, m_controlDock);
    m_deviceDock->raise();
    m_statusDock = dock("statusDock", tr("Status"), m_statusPanel, Qt::RightDockWidgetArea);
    m_logDock = dock("logDock", tr("Log"), m_logPanel, Qt::BottomDockWidgetArea);
    m_callsDock = dock("callsDock", tr("Host calls"), m_hostCalls, Qt::BottomDockWidgetArea);
    tabifyDockWidget(m_logDock, m_callsDock);
    m_logDock->raise();
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);

    m_status = new StatusLine(m_host, this);
    setStatusBar(m_status);
}

void MainWindow::followHost()
{
    StandInEvents *events = m_host.events();
    const auto changed = [this] { scheduleRefresh(false); };
    const auto rebuilt = [this] { scheduleRefresh(true); };
    connect(events, &StandInEvents::documentsChanged, this, rebuilt);
    connect(events, &StandInEvents::modeChanged, this, rebuilt);
    connect(events, &StandInEvents::currentDocumentChanged, this, [this] {
        m_updateTools = true;
        scheduleRefresh(false);
    });
    connect(events, &StandInEvents::selectionChanged, this, changed);
    connect(events, &StandInEvents::lockChanged, this, changed);
    connect(events, &StandInEvents::cameraSettingsChanged, this, changed);
    connect(events, &StandInEvents::documentInfoChanged, this, changed);
    connect(events, &StandInEvents::displayInfoChanged, this, changed);
    connect(events, &StandInEvents::pluginsChanged, this, changed);
    connect(events, &StandInEvents::toolStateChanged, this, changed);
    connect(events, &StandInEvents::updated, this, changed);
    connect(events, &StandInEvents::viewChanged, m_views, &ViewArea::refreshView);
    connect(events, &StandInEvents::documentRefreshed, m_views, &ViewArea::refreshView);
    connect(events, &StandInEvents::livePauseChanged, this, [this](int balance) {
        m_views->setLiveHeld(balance > 0);
        scheduleRefresh(false);
    });
    connect(events, &StandInEvents::settingChanged, this, [this](const QString &key) {
        if (key == Keys::application.style)
            applyStyle();
    });
    connect(events, &StandInEvents::errorHandled, m_notice, &NoticeBar::tell);
}

void MainWindow::scheduleRefresh(bool rebuild)
{
    m_rebuild = m_rebuild || rebuild;
    if (!m_refreshTimer->isActive())
        m_refreshTimer->start();
}

// Tools draw anew for another current document or style, which the host's own refresh need not
// follow. While refreshes are held back they wait for the next.
void MainWindow::updateTools()
{
    if (!m_updateTools || m_host.deterrals() > 0)
        return;
    m_updateTools = false;
    const QList<PLG_Interface *> tools = m_host.plugins();
    for (PLG_Interface *tool : tools) {
        if (m_host.plugins().contains(tool))
            guarded(&m_host, [tool] { tool->update(); });
    }
}

void MainWindow::showLog()
{
    m_logDock->show();
    m_logDock->raise();
    m_logPanel->setFocus();
}

void MainWindow::closeCurrent()
{
    m_host.removeFromList(m_host.currentKey());
}
