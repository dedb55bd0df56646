#include "bench/BenchRatios.h"
#include "foundation/Json.h"
#include "foundation/LogLines.h"
#include "save/dialog/JS_Mediator_SaveFile.h"
#include "save/path/PathComposer.h"
#include "save/path/PathComposition.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

#include <chrono>
#include <map>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// Where a save goes, in folders that are full already.

namespace {

using Seconds = std::chrono::duration<double>;

constexpr int Digits = 6;
constexpr int Partitions = 16;
constexpr int Directories = 10000;
constexpr int Devices = 1000;
constexpr int Destinations = 1000;

const QDateTime Moment(QDate(2017, 6, 5), QTime(7, 8, 9));

void dropMessages(QtMsgType, const QMessageLogContext &, const QString &) {}

QString numberText(int number)
{
    return QLatin1Char('S') + QString::number(number).rightJustified(Digits, QLatin1Char('0'));
}

/// A camera that has its additions ready.
class ReadyCamera : public StandInCamera
{
public:
    using StandInCamera::StandInCamera;

    void prepare(int count)
    {
        for (int number = m_additions.size() + 1; number <= count; ++number)
            m_additions.append(numberText(number));
    }

    QString fileNameAddition(int, int, int sequence, bool &usesSequence, const QDateTime &) override
    {
        usesSequence = true;
        return m_additions.at(sequence - 1);
    }

private:
    QVector<QString> m_additions;
};

/// A host and a camera that save into a folder of "Shot_S000001.bmp" and so on.
class FullFolder
{
public:
    explicit FullFolder(int files) : m_camera(m_host, 1, StandInCamera::Description())
    {
        m_host.setJournalEnabled(false);
        m_host.settings().setValue("export/media", "camera");
        m_host.settings().setValue("export/dir", m_dir.path());
        m_host.settings().setValue("export/filename", "Shot");
        m_host.settings().setValue("export/filenameaddnumbersessionnodigits", Digits);
        for (int number = 1; number <= files; ++number) {
            const QString path =
                m_dir.path() + QLatin1String("/Shot_") + numberText(number) + QLatin1String(".bmp");
            ::close(creat(QFile::encodeName(path).constData(), 0644));
        }
        m_camera.prepare(files + Partitions);
    }

    StandInHost *host() { return &m_host; }
    ReadyCamera *camera() { return &m_camera; }
    QString path() const { return m_dir.path(); }

private:
    QTemporaryDir m_dir;
    StandInHost m_host;
    ReadyCamera m_camera;
};

int readBare(const QByteArray &path)
{
    int entries = 0;
    DIR *folder = opendir(path.constData());
    while (readdir(folder) != nullptr)
        ++entries;
    closedir(folder);
    return entries;
}

double secondsOf(const std::function<void()> &work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return Seconds(std::chrono::steady_clock::now() - begin).count();
}

void addFileName(BenchRatios &ratios, int files, double limit)
{
    const auto folder = std::make_shared<FullFolder>(files);
    const auto bare = [folder, files](benchmark::State &state) {
        const QByteArray path = QFile::encodeName(folder->path());
        for (auto _ : state) {
            int entries = 0;
            state.SetIterationTime(secondsOf([&] { entries = readBare(path); }));
            if (entries != files + 2)
                state.SkipWithError("the folder is not full");
        }
    };
    ratios.addTimedByItself(
        "free name behind " + std::to_string(files) + " files", limit,
        [folder, files](benchmark::State &state) {
            const QString expected = QLatin1String("Shot_") + numberText(files + 1);
            for (auto _ : state) {
                QString name;
                const double whole = secondsOf([&] {
                    name = PathComposer::composeFileName(folder->host(), 1, folder->camera(), 1,
                                                         true, Moment);
                });
                const double additions = secondsOf([&] {
                    bool usesSequence = false;
                    for (int number = 1; number <= files + 1; ++number)
                        benchmark::DoNotOptimize(
                            folder->camera()->fileNameAddition(1, 1, number, usesSequence, Moment));
                });
                state.SetIterationTime(whole - additions);
                if (name != expected)
                    state.SkipWithError("another name");
            }
        },
        bare);
    ratios.addTimedByItself(
        "list of " + std::to_string(files) + " files", 0,
        [folder](benchmark::State &state) {
            const QDir dir(folder->path());
            for (auto _ : state)
                state.SetIterationTime(secondsOf(
                    [&] { benchmark::DoNotOptimize(dir.entryList(QDir::Files, QDir::Unsorted)); }));
        },
        bare);
}

// Each partition looks for its own number, and all of them into one list.
void addPartitions(BenchRatios &ratios, int files)
{
    const auto folder = std::make_shared<FullFolder>(files);
    folder->camera()->state().partitions.clear();
    for (int number = 1; number <= Partitions; ++number)
        folder->camera()->state().partitions.append({number, QString(), 1, 0});
    const auto compose = [folder](PathComposition &composition) {
        for (int number = 1; number <= Partitions; ++number) {
            ComposedPath path;
            composition.compose(1, number, {false, 0, PathComposition::Plan::Extend}, path);
        }
    };
    const auto listed = [folder, compose] {
        folder->host()->savePlan() = SavePlan();
        PathComposition composition(folder->host(), folder->camera(), Moment);
        compose(composition);
        return composition.listedDirectories();
    };
    ratios.addTimedByItself(
        "16 partitions, reads of one folder", 1,
        [listed](benchmark::State &state) {
            for (auto _ : state)
                state.SetIterationTime(listed());
        },
        [](benchmark::State &state) {
            for (auto _ : state)
                state.SetIterationTime(1);
        });
    ratios.add(
        "16 partitions beside a list for each", 0,
        [folder](benchmark::State &state) {
            for (auto _ : state) {
                folder->host()->savePlan() = SavePlan();
                QMap<int, QString> groups;
                QMap<int, QString> dirs;
                QMap<int, QString> paths;
                PathComposer::composeTargetPaths(folder->host(), 1, folder->camera(), false, groups,
                                                 dirs, paths, Moment, 0);
                if (paths.size() != Partitions)
                    state.SkipWithError("partitions are missing");
            }
        },
        [folder](benchmark::State &state) {
            const QDir dir(folder->path());
            for (auto _ : state) {
                for (int number = 1; number <= Partitions; ++number)
                    benchmark::DoNotOptimize(dir.entryList(QDir::Files, QDir::Unsorted));
            }
        });
}

void addGroupDir(BenchRatios &ratios)
{
    const auto folder = std::make_shared<FullFolder>(0);
    StandInSettings &settings = folder->host()->settings();
    settings.setValue("export/groupdir", true);
    settings.setValue("export/groupdirname", "Run");
    settings.setValue("export/groupdiraddnumber", true);
    settings.setValue("export/groupdiraddnumbercameranodigits", 1);
    settings.setValue("export/groupdiraddnumberheadnodigits", 0);
    settings.setValue("export/groupdiraddnumberformat", "manual");
    settings.setValue("export/groupdiraddnumbersessionnodigits", Digits);
    QVector<QString> texts;
    QVector<QByteArray> paths;
    const QString start = folder->path() + QLatin1String("/Run_C") +
                          QString::number(folder->camera()->cameraNumber() + 1);
    for (int number = 1; number <= Directories; ++number) {
        const QString path = start + numberText(number) + QLatin1Char('/');
        texts.append(path);
        paths.append(QFile::encodeName(path));
        mkdir(paths.last().constData(), 0755);
    }
    ratios.add(
        "group directory behind 10,000", 3,
        [folder](benchmark::State &state) {
            for (auto _ : state) {
                const QString name =
                    PathComposer::composeGroupDir(folder->host(), 1, folder->camera(), {}, Moment);
                if (!name.endsWith(numberText(Directories + 1)))
                    state.SkipWithError("another number");
            }
        },
        [texts, paths](benchmark::State &state) {
            for (auto _ : state) {
                for (int i = 0; i < Directories; ++i) {
                    struct stat own = {};
                    if (stat(paths.at(i).constData(), &own) != 0)
                        state.SkipWithError("a directory is missing");
                    LogLines::warning() << "exists" << texts.at(i);
                }
            }
        });
}

// Each device's row holds all destinations.
void addMultiPathDevices(BenchRatios &ratios)
{
    const auto host = std::make_shared<StandInHost>();
    host->setJournalEnabled(false);
    QStringList destinations;
    QStringList assignments;
    QJsonArray paths;
    for (int i = 0; i < Destinations; ++i) {
        const QString key = QLatin1String("Disk ") + QString::number(i);
        const QString path = QLatin1String("/data/recordings/") + QString::number(i);
        destinations.append(key + QLatin1Char('|') + path);
        paths.append(QJsonObject{{"key", key}, {"val", path}});
    }
    QJsonArray rows;
    for (int i = 0; i < Devices; ++i) {
        StandInCamera::Description camera;
        camera.model = QLatin1String("Device ") + QString::number(i);
        host->addCamera(camera);
        const QString number = QString::number(i % Destinations);
        assignments.append(camera.model + QLatin1String("|Disk ") + number);
        rows.append(QJsonObject{{"recid", i + 1},
                                {"device", camera.model},
                                {"paths", paths},
                                {"pathselector", QLatin1String("Disk ") + number},
                                {"path", QLatin1String("/data/recordings/") + number}});
    }
    host->settings().setValue("export/multipathlist", destinations.join(QLatin1Char('?')));
    host->settings().setValue("export/multipathdevicelist", assignments.join(QLatin1Char('?')));
    const int length = Json::compactText(rows).size();
    ratios.add(
        "1,000 devices, 1,000 destinations", 1.5,
        [host, length](benchmark::State &state) {
            JS_Mediator_SaveFile mediator(host.get(), QLatin1String("exportdialog"));
            for (auto _ : state) {
                if (mediator.getMultiPathDevices().size() != length)
                    state.SkipWithError("another text");
            }
        },
        [rows](benchmark::State &state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(Json::compactText(rows));
        });
}

}

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    qInstallMessageHandler(dropMessages);
    BenchRatios ratios;
    addFileName(ratios, 1000, 4);
    addFileName(ratios, 10000, 4);
    addFileName(ratios, 100000, 5);
    addPartitions(ratios, 10000);
    addGroupDir(ratios);
    addMultiPathDevices(ratios);
    return ratios.run(argc, argv);
}
