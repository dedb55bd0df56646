#include "save/path/PathComposer.h"

#include "contract/DOC_Interface.h"
#include "contract/HostServices.h"
#include "foundation/exceptions/UTL_Exception.h"
#include "save/path/PathComposition.h"

namespace PathComposer {

namespace {

// Puts a partition's part of the result into the maps, also of one that failed.
class PartitionEntry
{
public:
    PartitionEntry(int partitionNo, QMap<int, QString> &groupDirs, QMap<int, QString> &dirs,
                   QMap<int, QString> &paths)
        : m_partitionNo(partitionNo), m_groupDirs(groupDirs), m_dirs(dirs), m_paths(paths)
    {
    }

    ~PartitionEntry()
    {
        if (!path.group.text.isEmpty())
            m_groupDirs.insert(m_partitionNo, path.group.text);
        if (!path.isPlaced)
            return;
        m_dirs.insert(m_partitionNo, path.directory);
        m_paths.insert(m_partitionNo, path.path);
    }

    PartitionEntry(const PartitionEntry &) = delete;
    PartitionEntry &operator=(const PartitionEntry &) = delete;

    ComposedPath path;

private:
    int m_partitionNo;
    QMap<int, QString> &m_groupDirs;
    QMap<int, QString> &m_dirs;
    QMap<int, QString> &m_paths;
};

void throwRefusal(ComposedPath::Refusal refusal)
{
    switch (refusal) {
    case ComposedPath::Refusal::None:
        break;
    case ComposedPath::Refusal::NoName:
        throw UTL_Exception(QLatin1String("Invalid filename."), 0);
    case ComposedPath::Refusal::TooLong:
    case ComposedPath::Refusal::ThumbnailTooLong:
        throw UTL_Exception(QLatin1String("The path of the target is too long."), 0);
    }
}

}

void composeTargetPaths(HostServices *host, int mode, DOC_Interface *doc, bool useAlternativeDir,
                        QMap<int, QString> &groupDirs, QMap<int, QString> &dirs,
                        QMap<int, QString> &paths, const QDateTime &time, int reportVariant)
{
    if (!doc)
        return;
    PathComposition composition(host, doc, time);
    const QList<int> partitions = doc->partitionNumbers();
    for (int partitionNo : partitions) {
        PartitionEntry entry(partitionNo, groupDirs, dirs, paths);
        composition.compose(mode, partitionNo,
                            {useAlternativeDir, reportVariant, PathComposition::Plan::Extend},
                            entry.path);
        throwRefusal(entry.path.refusal);
    }
}

ComposedPath composePath(HostServices *host, int mode, DOC_Interface *doc, int partitionNo,
                         bool useAlternativeDir, const QDateTime &time, int reportVariant,
                         const QVector<DOC_Interface *> &before)
{
    const PathComposition::Target target{useAlternativeDir, reportVariant,
                                         PathComposition::Plan::Leave};
    ComposedPath result;
    PathComposition::OwnPlan plan;
    for (DOC_Interface *earlier : before) {
        PathComposition composition(host, earlier, time);
        composition.goOnFrom(plan);
        const QList<int> partitions = earlier->partitionNumbers();
        for (int number : partitions) {
            ComposedPath path;
            composition.compose(mode, number, target, path);
            result.refusal = path.refusal;
            if (result.refusal != ComposedPath::Refusal::None)
                return result;
        }
        plan = composition.ownPlan();
    }

    QList<int> partitions = doc ? doc->partitionNumbers() : QList<int>();
    if (!partitions.contains(partitionNo))
        partitions = {partitionNo};
    PathComposition composition(host, doc, time);
    composition.goOnFrom(plan);
    for (int number : qAsConst(partitions)) {
        ComposedPath path;
        composition.compose(mode, number, target, path);
        if (number == partitionNo)
            return path;
        result.refusal = path.refusal;
        if (result.refusal != ComposedPath::Refusal::None)
            break;
    }
    return result;
}

QString composeDirectory(HostServices *host, int mode, DOC_Interface *doc)
{
    return PathComposition(host, doc, QDateTime()).directory(mode);
}

QString composeFileName(HostServices *host, int mode, DOC_Interface *doc, int partitionNo,
                        bool withAdditions, const QDateTime &time)
{
    return PathComposition(host, doc, time).fileName(mode, partitionNo, withAdditions, {}).text;
}

QString composeGroupDir(HostServices *host, int mode, DOC_Interface *doc, const QString &baseName,
                        const QDateTime &time)
{
    return PathComposition(host, doc, time).groupDir(mode, baseName).text;
}

QString composeSubDir(HostServices *host, int mode, DOC_Interface *doc, const QString &baseName,
                      const QDateTime &time)
{
    return PathComposition(host, doc, time).subDir(mode, baseName).text;
}

QString composeNumberText(int cameraNo, int headNo, int sessionNo, int cameraDigits, int headDigits,
                          int sessionDigits)
{
    return NumberText::compose(cameraNo, headNo, sessionNo,
                               {cameraDigits, headDigits, sessionDigits});
}

QString composeThumbnailPath(HostServices *host, int mode, const QString &path)
{
    return PathComposition(host, nullptr, QDateTime()).thumbnailPath(mode, path);
}

int cameraDigits(HostServices *host, int kind)
{
    return host ? host->getPrefInt(SaveModes::digitKeys(kind).camera, QVariant()) : 3;
}

int headDigits(HostServices *host, int kind)
{
    return host ? host->getPrefInt(SaveModes::digitKeys(kind).head, QVariant()) : 3;
}

int sessionDigits(HostServices *host, int kind)
{
    return host ? host->getPrefInt(SaveModes::digitKeys(kind).session, QVariant()) : 4;
}

}
