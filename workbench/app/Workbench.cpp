#include "workbench/app/Workbench.h"

#include "bridge/mediator/JS_Mediator_Page.h"
#include "contract/HostGuard.h"
#include "contract/PLG_Interface.h"
#include "foundation/Keys.h"
#include "foundation/exceptions/DOC_ReadFileException.h"
#include "standin/network/BuiltInNetwork.h"
#include "standin/network/NetworkFile.h"
#include "workbench/app/CameraFiles.h"
#include "workbench/base/Options.h"
#include "workbench/base/SupportFile.h"
#include "workbench/log/HostCallPanel.h"
#include "workbench/pages/DropDownBoxes.h"
#include "workbench/pages/LivePages.h"
#include "workbench/pages/PageDialogs.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/NoticeBar.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace {

// Frames that each camera of the workbench has in its first partition.
constexpr uint RecordedFrames = 200;

CameraSettings presetSettings(uint recordRate, uint shutterSpeed, const QRect &region)
{
    CameraSettings settings;
    settings.recordRate = recordRate;
    settings.shutterSpeed = shutterSpeed;
    settings.region = region;
    return settings;
}

void addPresets(StandInCamera::Description &camera)
{
    camera.presets = {{1, QStringLiteral("Fast"), false},
                      {2, QStringLiteral("Whole sensor"), false},
                      {3, QStringLiteral("Slow"), false}};
    camera.presetSettings = {{1, presetSettings(10000, 20000, QRect(384, 384, 256, 256))},
                             {2, presetSettings(1000, 2000, QRect(0, 0, 1024, 1024))},
                             {3, presetSettings(100, 200, QRect(192, 272, 640, 480))}};
    camera.presetsWithReboot = {3};
}

QString settingsFile(const Options &options)
{
    if (!options.settingsFile.isEmpty())
        return options.settingsFile;
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QDir().mkpath(folder);
    return QDir(folder).filePath("settings.ini");
}

}

Workbench::Workbench(const Options &options)
    : m_recorder(LogLimit), m_log(LogLimit),
      m_host(std::make_unique<StandInHost>(settingsFile(options))),
      m_livePages(options.pagesFolder.isEmpty() ? nullptr
                                                : std::make_unique<LivePages>(options.pagesFolder)),
      m_window(std::make_unique<MainWindow>(*m_host, m_log)),
      m_dialogs(std::make_unique<PageDialogs>(*m_host)),
      m_boxes(std::make_unique<DropDownBoxes>(*m_host, *m_window->statusPanel()->view()))
{
    m_host->network().load(options.networkFile.isEmpty()
                               ? BuiltInNetwork::plan()
                               : NetworkFile::read(options.networkFile).plan);
    m_host->state().hostVersion = QCoreApplication::applicationVersion();
    m_host->showDisplayInfo(true);
    m_host->frontEnd().takeSupportSnapshot = [this] { return takeSupportSnapshot(); };
    m_host->frontEnd().writeSupportFile = SupportFile::write;
    connect(&m_recorder, &LogRecorder::recorded, this, [this] {
        QList<LogEntry> lines = m_recorder.take();
        lines.erase(std::remove_if(lines.begin(), lines.end(),
                                   [](const LogEntry &line) { return isPlatformNoise(line.text); }),
                    lines.end());
        m_log.append(lines);
    });
    connect(m_window.get(), &MainWindow::addCameraRequested, this, &Workbench::addCamera);
    connect(m_window.get(), &MainWindow::openFolderRequested, this, &Workbench::askForFolder);
    connect(m_window.get(), &MainWindow::cameraFileRequested, this, [this](bool isSaved) {
        (isSaved ? CameraFiles::save : CameraFiles::open)(m_host.get(), m_window.get());
    });
    connect(m_window.get(), &MainWindow::loadToolRequested, this, &Workbench::askForTool);
    connect(m_window.get(), &MainWindow::styleChosen, this, &Workbench::setStyle);
    connect(m_window.get(), &MainWindow::pageRequested, this, [this](const PageEntry &page) {
        m_dialogs->open(page, *m_window->statusPanel()->mediator());
    });
    connect(m_host->events(), &StandInEvents::modeChanged, this, &Workbench::followMode);
    connect(m_host->events(), &StandInEvents::documentsChanged, this, &Workbench::followMode);
    connect(m_host->events(), &StandInEvents::currentDocumentChanged, this, [this](DOCKEY key) {
        // Not what the host falls back to when the last document of the mode was closed.
        const bool file = m_host->mode() == StandInHost::Mode::File;
        if (!file && m_host->camera(key))
            m_lastCamera = key;
        else if (file && !m_host->camera(key))
            m_lastRecording = key;
    });
}

Workbench::~Workbench()
{
    disconnect(m_host->events(), nullptr, this, nullptr);
    m_window->saveLayout();
    for (PLG_Interface *tool : m_loader.tools())
        unloadTool(tool);
}

void Workbench::start(const Options &options)
{
    if (!options.style.isEmpty())
        setStyle(options.style);
    m_window->applyStyle();
    m_window->restoreLayout();
    for (int i = 0; i < options.cameras; ++i)
        addCamera();
    if (!options.openFolder.isEmpty())
        openFolder(options.openFolder);
    loadTools(options.pluginFolder.isEmpty()
                  ? QDir(QCoreApplication::applicationDirPath()).filePath("plugins")
                  : options.pluginFolder);
    m_window->refresh();
}

void Workbench::addCamera()
{
    StandInCamera::Description camera;
    camera.partitions = {{1, QStringLiteral("Partition 1"), RecordedFrames, 1000},
                         {2, QStringLiteral("Partition 2"), RecordedFrames / 2, 1000}};
    addPresets(camera);
    m_host->addCamera(camera);
}

void Workbench::loadTools(const QString &folder)
{
    for (PLG_Interface *tool : m_loader.loadFolder(folder))
        takeIn(tool);
    tellFailures();
}

void Workbench::loadTool(const QString &file)
{
    if (PLG_Interface *tool = m_loader.load(file))
        takeIn(tool);
    tellFailures();
}

void Workbench::unloadTool(PLG_Interface *tool)
{
    m_window->removeTool(tool);
    guarded(m_host.get(), [&] { m_host->removePlugin(tool); });
    m_loader.unload(tool);
}

void Workbench::openFolder(const QString &folder)
{
    StandInRecording *recording = nullptr;
    try {
        recording = m_host->openRecording(folder);
    } catch (const DOC_ReadFileException &) {
        m_window->notice()->tell(tr("No picture can be read in the folder %1").arg(folder));
        return;
    }
    for (const StandInRecording::Unreadable &file : recording->unreadable()) {
        const QString text = file.path + QStringLiteral(": ") + file.reason;
        qWarning().noquote() << text;
        m_window->notice()->tell(text);
    }
    guarded(m_host.get(), [&] { m_host->setMode(StandInHost::Mode::File); });
    m_host->makeCurrent(recording->key());
}

void Workbench::setStyle(const QString &style)
{
    if (!m_host->settings().setValue(Keys::application.style, style))
        m_window->notice()->tell(tr("The style could not be stored."));
    m_window->applyStyle();
}

// A tool may fail in what the host tells it first, and two tools cannot share a name.
void Workbench::takeIn(PLG_Interface *tool)
{
    QString reason;
    try {
        m_host->addPlugin(tool);
        const QString name = tool->name();
        for (PLG_Interface *other : m_host->plugins()) {
            if (other != tool && other->name() == name)
                reason = tr("its tool \"%1\" is loaded already").arg(name);
        }
        if (reason.isEmpty())
            m_window->addTool(tool);
    } catch (const std::exception &e) {
        reason = tr("its tool failed at the start: %1").arg(QString::fromUtf8(e.what()));
    }
    const QString file = m_loader.fileOf(tool);
    if (reason.isEmpty())
        qInfo().noquote()
            << tr("Loaded %1: tool \"%2\"").arg(QFileInfo(file).fileName(), tool->name());
    else
        refuse(tool, reason);
}

void Workbench::refuse(PLG_Interface *tool, const QString &reason)
{
    const PluginFailure failure{m_loader.fileOf(tool), reason};
    unloadTool(tool);
    qWarning().noquote() << failure.text();
    m_window->notice()->tell(failure.text());
}

SupportSnapshot Workbench::takeSupportSnapshot()
{
    SupportFile::Extras extras;
    extras.operationLog = m_log.text();
    extras.hostCalls = m_window->hostCalls()->lines();
    if (const DocumentView *view = m_window->views()->view(m_host->currentKey()))
        extras.frame = view->picture();
    return SupportFile::take(*m_host, extras);
}

void Workbench::tellFailures()
{
    const QList<PluginFailure> failures = m_loader.failures();
    for (; m_toldFailures < failures.size(); ++m_toldFailures) {
        const QString text = failures.at(m_toldFailures).text();
        qWarning().noquote() << text;
        m_window->notice()->tell(text);
    }
}

// The current document is one that the mode shows: the one that was current when the mode was left,
// else its first.
void Workbench::followMode()
{
    const bool file = m_host->mode() == StandInHost::Mode::File;
    const DOCKEY current = m_host->currentKey();
    const bool isCamera = m_host->camera(current) != nullptr;
    if (m_host->document(current) && isCamera != file)
        return;
    const DOCKEY last = file ? m_lastRecording : m_lastCamera;
    if (m_host->document(last))
        m_host->makeCurrent(last);
    else if (file && !m_host->recordings().isEmpty())
        m_host->makeCurrent(m_host->recordings().first()->key());
    else if (!file && !m_host->cameras().isEmpty())
        m_host->makeCurrent(m_host->cameras().first()->key());
}

void Workbench::askForFolder()
{
    QFileDialog chooser(m_window.get(), tr("Open a folder of pictures"));
    chooser.setFileMode(QFileDialog::Directory);
    chooser.setOption(QFileDialog::ShowDirsOnly);
    chooser.setLabelText(QFileDialog::Accept, tr("Open"));
    if (chooser.exec() == QDialog::Accepted)
        openFolder(chooser.selectedFiles().value(0));
}

void Workbench::askForTool()
{
    QFileDialog chooser(m_window.get(), tr("Load a tool"));
    chooser.setFileMode(QFileDialog::ExistingFile);
    chooser.setNameFilters({tr("Tools (*.orvix)"), tr("All files (*)")});
    chooser.setLabelText(QFileDialog::Accept, tr("Load"));
    if (chooser.exec() == QDialog::Accepted)
        loadTool(chooser.selectedFiles().value(0));
}
