#pragma once

#include "standin/host/StandInHost.h"

#include <QMainWindow>

class CameraPanel;
class HostCallPanel;
class LogModel;
class LogPanel;
class NoticeBar;
class PageInspector;
class PagePanel;
class QActionGroup;
class QDockWidget;
class QTimer;
class StatusLine;
class ToolBar;
class ViewArea;
struct PageEntry;

/// The window of the workbench: the tools' buttons, the mode, the views, the panels. It follows the
/// host's events; several of them at once make one refresh.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Host and log outlive the window.
    MainWindow(StandInHost &host, LogModel &log);
    ~MainWindow() override;

    ToolBar *tools() const { return m_tools; }
    ViewArea *views() const { return m_views; }
    CameraPanel *cameraPanel() const { return m_cameraPanel; }
    LogPanel *logPanel() const { return m_logPanel; }
    HostCallPanel *hostCalls() const { return m_hostCalls; }
    NoticeBar *notice() const { return m_notice; }
    StatusLine *status() const { return m_status; }
    PageInspector *inspector() const { return m_inspector; }
    PagePanel *viewPage() const { return m_viewPage; }
    PagePanel *statusPanel() const { return m_statusPanel; }
    PagePanel *devicePanel() const { return m_devicePanel; }
    PagePanel *controlPanel() const { return m_controlPanel; }

    /// Adds and removes a tool that the host has.
    void addTool(PLG_Interface *tool);
    void removeTool(PLG_Interface *tool);

    /// Takes the look that the setting "env/style" names.
    void applyStyle();

    /// Keeps place and panels of the window in the settings, and takes them from there.
    void saveLayout();
    void restoreLayout();

    /// Makes the window, with its frame, no larger than this part of a screen, and moves it inside.
    /// Comes before it is shown.
    void fitInto(const QRect &available);

    /// Shows everything as it is now, without waiting for the next turn of the event loop.
    void refresh();

signals:
    void addCameraRequested();
    void openFolderRequested();
    void cameraFileRequested(bool isSaved); ///< settings of cameras: from a file, or to one
    void loadToolRequested();
    void styleChosen(const QString &style);

    /// The menu entry of a page of the catalogue.
    void pageRequested(const PageEntry &page);

private:
    void makeActions();
    void makeMenus();
    void addPages(QMenu *last);
    void makePanels();
    void followHost();
    void scheduleRefresh(bool rebuild);
    void updateTools();
    void showLog();
    void closeCurrent();
    QAction *makeAction(const char *name, const QString &text, const QKeySequence &shortcut);

    StandInHost &m_host;
    LogModel &m_log;
    PageInspector *m_inspector;
    ToolBar *m_tools = nullptr;
    ViewArea *m_views = nullptr;
    CameraPanel *m_cameraPanel = nullptr;
    LogPanel *m_logPanel = nullptr;
    HostCallPanel *m_hostCalls = nullptr;
    NoticeBar *m_notice = nullptr;
    StatusLine *m_status = nullptr;
    PagePanel *m_viewPage = nullptr;
    PagePanel *m_statusPanel = nullptr;
    PagePanel *m_devicePanel = nullptr;
    PagePanel *m_controlPanel = nullptr;
    QDockWidget *m_cameraDock = nullptr;
    QDockWidget *m_logDock = nullptr;
    QDockWidget *m_callsDock = nullptr;
    QDockWidget *m_statusDock = nullptr;
    QDockWidget *m_deviceDock = nullptr;
    QDockWidget *m_controlDock = nullptr;
    QMenu *m_cameras = nullptr;
    QMenu *m_toolMenu = nullptr;

    QAction *m_openFolder = nullptr;
    QAction *m_loadTool = nullptr;
    QAction *m_closeCurrent = nullptr;
    QAction *m_support = nullptr;
    QAction *m_inspectPage = nullptr;
    QAction *m_quit = nullptr;
    QAction *m_undo = nullptr;
    QAction *m_redo = nullptr;
    QAction *m_addCamera = nullptr;
    QAction *m_nextView = nullptr;
    QAction *m_previousView = nullptr;
    QAction *m_releaseAll = nullptr;
    QAction *m_unplug = nullptr;
    QAction *m_openCameraFile = nullptr;
    QAction *m_saveCameraFile = nullptr;
    QAction *m_restartCamera = nullptr;
    QAction *m_showInformation = nullptr;
    QActionGroup *m_modes = nullptr;
    QActionGroup *m_styles = nullptr;

    QTimer *m_refreshTimer = nullptr;
    bool m_rebuild = false;
    bool m_updateTools = false;
};
