#pragma once

#include "contract/HostTypes.h"
#include "foundation/SaveModes.h"
#include "save/path/ComposedPath.h"
#include "save/path/DirectoryView.h"
#include "save/path/PathRules.h"

#include <QDateTime>
#include <QHash>
#include <QSet>

#include <map>
#include <optional>

class DOC_Interface;
class HostServices;

/// One composition: what is composed for one document at one time, from the settings as they are.
///
/// It remembers settings, listed directories and numbers that are taken, so that each is asked for
/// once, and lives no longer than the call that needs it. Numbers that exist already are told in
/// the log once. Whether a directory exists is asked of the disk each time.
///
/// All functions throw what host and document throw, and UTL_Exception with "Invalid filename."
/// when a search for a number finds no end. GUI thread.
class PathComposition
{
public:
    /// What becomes of the save's plan.
    enum class Plan {
        Extend, ///< directories and files take their places in it
        Leave,  ///< they take them in this composition's own, for its later partitions
    };

    /// What a path depends on beside mode and partition.
    struct Target
    {
        bool useAlternativeDir = false; ///< the batch's, when there is one
        int reportVariant = 0;          ///< 1: names of a report without brackets
        Plan plan = Plan::Leave;
    };

    /// What takes its place beside the host's plan, which is not told.
    struct OwnPlan
    {
        QString groupDir;
        QSet<QString> dirs;
        QSet<QString> files;
    };

    /// `doc` may be null. Searches begin with `firstNumber`.
    PathComposition(HostServices *host, DOC_Interface *doc, const QDateTime &time,
                    int firstNumber = 1);

    PathComposition(const PathComposition &) = delete;
    PathComposition &operator=(const PathComposition &) = delete;

    /// The base directory, with a trailing "/" unless empty.
    QString directory(int mode);

    /// The file name with its additions, or without. Its number is free where `target` has the
    /// file.
    ComposedName fileName(int mode, int partitionNo, bool withAdditions, const Target &target);

    /// The group directory, without text when there is none. One that the batch has fixed has its
    /// text alone.
    ComposedName groupDir(int mode, const QString &baseName);

    /// The sub directory, without text when there is none.
    ComposedName subDir(int mode, const QString &baseName);

    /// The path of the small picture beside a file, the file's own when there is none.
    QString thumbnailPath(int mode, const QString &path);

    /// The whole path of one partition, in `result` as far as it came when something is thrown.
    void compose(int mode, int partitionNo, const Target &target, ComposedPath &result);

    /// What Plan::Leave has planned so far, for the composition of the batch's next document, which
    /// goes on from there.
    const OwnPlan &ownPlan() const { return m_plan; }
    void goOnFrom(const OwnPlan &plan) { m_plan = plan; }

    /// How many directories were listed.
    int listedDirectories() const;

private:
    // What a mode's settings and the document gave so far.
    struct ModeState
    {
        std::optional<QString> directory;
        std::optional<FileNameSettings> fileName;
        std::optional<FolderSettings> groupDir;
        std::optional<FolderSettings> subDir;
        std::optional<std::optional<QString>>
            testNumber; ///< inner: nothing where names are composed
        std::optional<std::optional<QVariantList>> customInfo; ///< inner: nothing to take it from
    };

    bool isFileMode();
    QString plannedGroupDir();
    bool isPlannedDir(const QString &path);
    bool isPlannedFile(const QString &path);
    void planGroupDir(Plan plan, const QString &name);
    void planFile(Plan plan, const QString &directory, const QString &path);
    PathRules::NumberFacts numberFacts(bool withCounts);
    const FileNameSettings &fileNameSettings(int mode);
    const FolderSettings &groupDirSettings(int mode);
    const FolderSettings &subDirSettings(int mode);
    FolderSettings folderSettings(const Keys::SaveFolderKeys &keys);
    const std::optional<QString> &testNumber(int mode);
    const std::optional<QVariantList> &customInfo(int mode);
    QString composeBase(int mode);
    QString bareName(int mode, int partitionNo, bool withAdditions, const Target &target);
    QString originalName(int mode, int partitionNo, bool withAdditions, const Target &target);
    QString alternativeDir(const Target &target);
    QString fileDirectory(int mode, const Target &target, const QString &bareName,
                          const QString &fullName);
    bool dependsOnFileName(int mode);
    ComposedName folder(int mode, const FolderSettings &settings, const QString &baseName);
    void searchFolderNumber(int mode, const PathRules::FolderNumber &number, ComposedName &result);
    DirectoryView &view(const QString &directory);
    bool getBool(const QString &key);
    QString getString(const QString &key);
    int getInt(const QString &key);

    HostServices *m_host;
    DOC_Interface *m_doc;
    QDateTime m_time;
    int m_firstNumber;
    OwnPlan m_plan;
    std::optional<bool> m_isFileMode;
    std::optional<QString> m_alternativeDir;
    std::map<int, ModeState> m_modes;
    std::map<QString, DirectoryView> m_views;
    QHash<QString, NumberSearch> m_searches; ///< the number taken last, by what stands before it
};
