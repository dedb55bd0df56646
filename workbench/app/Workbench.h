#pragma once

#include "standin/host/StandInHost.h"
#include "standin/tools/PluginLoader.h"
#include "workbench/log/LogModel.h"
#include "workbench/log/LogRecorder.h"
#include "workbench/pages/PageFont.h"

#include <QObject>

#include <memory>

class DropDownBoxes;
class LivePages;
class MainWindow;
class PageDialogs;
struct Options;

/// The application behind the window: it owns the host, the tools and the log, and does what the
/// window's commands ask for. One of them at a time.
class Workbench : public QObject
{
    Q_OBJECT

public:
    /// Lines that the log keeps.
    static constexpr int LogLimit = 10000;

    /// Takes the settings from the options' file, or from the user's own.
    explicit Workbench(const Options &options);

    /// Withdraws the tools from window and host, then unloads their modules.
    ~Workbench() override;

    MainWindow &window() { return *m_window; }
    StandInHost &host() { return *m_host; }
    DropDownBoxes *boxes() { return m_boxes.get(); }
    PluginLoader &loader() { return m_loader; }

    /// Does what the options ask for at the start: style, cameras, tools, a folder of pictures.
    void start(const Options &options);

    void addCamera();

    /// Loads all tools of a folder, or one tool, and shows their buttons. What fails is told in the
    /// log and in the notice.
    void loadTools(const QString &folder);
    void loadTool(const QString &file);

    /// Withdraws and unloads a tool.
    void unloadTool(PLG_Interface *tool);

    /// Opens a folder of pictures and shows it in file mode. A folder without pictures is told in
    /// the notice, and so is a file that cannot be read.
    void openFolder(const QString &folder);

    /// Stores the style and takes it.
    void setStyle(const QString &style);

private:
    void takeIn(PLG_Interface *tool);
    void refuse(PLG_Interface *tool, const QString &reason);
    void tellFailures();
    SupportSnapshot takeSupportSnapshot();
    void followMode();
    void askForFolder();
    void askForTool();

    LogRecorder m_recorder;
    LogModel m_log;
    std::unique_ptr<StandInHost> m_host;
    PluginLoader m_loader;
    PageFont m_pageFont;
    std::unique_ptr<LivePages> m_livePages; ///< null: the pages are those of the executable
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<PageDialogs> m_dialogs;
    std::unique_ptr<DropDownBoxes> m_boxes;
    int m_toldFailures = 0;
    DOCKEY m_lastCamera = NoDocKey;
    DOCKEY m_lastRecording = NoDocKey;
};
