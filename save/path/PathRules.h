#pragma once

#include "save/path/PathSettings.h"

#include <QString>
#include <QVariantList>

#include <optional>

/// How a path follows from settings and from what a document tells, without host and disk. Any
/// thread.
namespace PathRules {

/// Longest path that is saved to, in UTF-16 units.
constexpr int LongestPath = 245;

/// What numbers of a document's directory are made of. The defaults are those without a document.
struct NumberFacts
{
    int camera = 1;
    int head = 1;
    std::optional<int> cameraCount; ///< nothing without a document, and for files
    int headCount = 0;
};

/// Numbers and digits of a directory; its session number is what a search counts.
struct FolderNumber
{
    int camera = 1;
    int head = 1;
    NumberText::Digits digits;
};

/// What a document tells of a name. What the settings do not ask for may be left out.
struct NameFacts
{
    QString originalName;
    QString partitionName;
    std::optional<QVariantList> customInfo; ///< nothing without a document to take it from
};

/// Whether a mode's saves have a group directory.
bool hasGroupDir(int mode);

/// Whether a mode's saves may go to the destinations of their devices.
bool usesDestinations(int mode);

/// Whether a mode is a preview, which may have no name.
bool mayBeUnnamed(int mode);

/// Whether a mode's saves take their places in the plan, and have a longest path.
bool isPlanned(int mode);

/// Whether a mode's saves may have a small picture beside the file.
bool hasThumbnail(int mode);

/// The name that stands for a file beside its information: the setting, without it the custom item
/// "TestNo", else nothing.
QString testNumber(const QString &setting, const QVariantList &customInfo);

/// The values of all custom items that take part in file names, in order.
QString customName(const QVariantList &customInfo, bool includesUnit);

/// The file name without number and time.
QString bareName(const FileNameSettings &settings, const NameFacts &facts, bool isFileMode);

/// The directory name without number and time.
QString folderName(const FolderSettings &settings, const QString &fileName);

/// Numbers and digits of a directory. Files have no camera and no head.
FolderNumber folderNumber(const FolderSettings &settings, const NumberFacts &facts,
                          bool isFileMode);

/// `path` of a file that lies in `dir`, moved to another directory: each occurrence of `dir`
/// becomes `other`. Nothing can be found in an empty `dir`: then it is `name` below `other`.
QString movedPath(const QString &path, const QString &dir, const QString &name,
                  const QString &other);

/// The path of the small picture beside a file, without extension; the file's own when there is
/// none.
QString thumbnailPath(const QString &path, const ThumbnailSettings &settings);

/// Whether a path is longer than LongestPath.
bool isTooLong(const QString &path);

}
