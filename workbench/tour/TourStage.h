#pragma once

#include "workbench/app/Workbench.h"
#include "workbench/base/Options.h"

#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <memory>

class DocumentView;
class GUI_WebView;
class PLG_Interface;
class QAction;
class QWebView;
class QWidget;
class TourReport;

/// What a walk takes place on: a workbench of its own with its window, a temporary folder for
/// settings and files, and the report. It looks and tells for the walks; what is missing is a
/// failed check, never the end of a walk. GUI thread, one at a time.
class TourStage
{
public:
    /// What a walk finds. The cameras' pictures stand still in live mode, the current camera alone
    /// is selected, the tools are loaded, and no dialog is open.
    struct Scene
    {
        int cameras = 3;
        int current = 2; ///< Number of the current camera, from 1.
        bool isDark = false;
        bool isLocked = false; ///< Whether the lock tool was pressed.
    };

    /// Takes the tools' folder from the options. The report outlives the stage.
    TourStage(const Options &options, const Scene &scene, TourReport &report);
    ~TourStage();

    TourStage(const TourStage &) = delete;
    TourStage &operator=(const TourStage &) = delete;

    /// Whether the window has the keys, its panels have loaded, and all is as the scene says.
    bool isReady() const { return m_ready; }

    Workbench &workbench() const { return *m_workbench; }
    MainWindow &window() const;
    StandInHost &host() const;

    /// The options that it was made with.
    const Options &options() const { return m_options; }

    /// For files of the walk's own.
    QString folder() const { return m_folder.path(); }

    /// Begins a step, runs it, and keeps a picture of the window.
    void step(const QString &name, const QString &title, const std::function<void()> &body);

    /// As the report's.
    void check(bool seen, const QString &what);
    void compare(const QString &seen, const QString &expected, const QString &what);

    /// Keeps a further picture of the step, of the window or of something else.
    void addPicture(const QString &suffix);
    void addPicture(QWidget *shown, const QString &suffix);

    /// Keeps a picture that another workbench has made.
    void addPicture(const QPixmap &picture, const QString &suffix);

    /// Clicks the tool bar's button of an action of the window.
    void pressAction(const char *name);

    /// Clicks the tab of a panel of the window that stands behind another one.
    void raisePanel(const QString &title);

    /// Clicks the button of the lock tool.
    void pressTool();

    /// Clicks a picture, from 0; its camera has to become current.
    void chooseView(int index);

    /// Chooses a value in a list of the camera panel.
    void chooseSetting(const char *box, const QString &value);

    /// Clicks an element of a page; `what` is what the user calls it.
    void clickInPage(QWebView *view, const QString &selector, const QString &what);

    /// Opens a dialog that is a page by its entry in the menu, keeps a picture, and hands its view
    /// on; what `body` leaves open is closed.
    void visitDialog(const QString &menu, const QString &entry, const QString &picture,
                     const std::function<void(GUI_WebView *)> &body);

    /// Looks at the settings of a camera, from 0, and at what stands under its picture.
    void compareSettings(int camera, const QString &shutter, const QString &recordRate);

    /// Looks at everything that shows whether the cameras are locked.
    void checkLock(bool locked, int cameras);

    /// Null without a tool of this name.
    PLG_Interface *tool(const QString &name) const;
    QAction *toolAction(const QString &name) const;
    QWidget *toolButton(const QString &name) const;
    PLG_Interface *lockTool() const;
    QAction *lockAction() const;

    /// The tool bar's button of an action; null without one.
    QWidget *buttonOf(const QAction *action) const;

    /// A picture, from 0; null without it.
    DocumentView *viewAt(int index) const;

    /// Whether the lock tool says that it is on.
    bool isToolChecked() const;

    /// Whether a line of the log that is in view holds the text.
    bool logHolds(const QString &text) const;

    /// How often the panel of the host's calls has this line.
    int callsOf(const QString &call) const;

private:
    bool prepare(const Scene &scene);

    TourReport &m_report;
    QTemporaryDir m_folder;
    Options m_options;
    std::unique_ptr<Workbench> m_workbench;
    bool m_ready = false;
};
