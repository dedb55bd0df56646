#pragma once

#include "save/path/ComposedPath.h"

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QVector>

class DOC_Interface;
class HostServices;

/// Where a save goes. The path is not typed in but composed from the settings of the save's mode: a
/// base directory, a group directory that a batch shares, a sub directory, and a name that can have
/// a number and a time. Names have no extension: the writer of the file appends it.
///
/// `doc` may be null. One call sees settings and directories as they are at its time; nothing is
/// remembered from call to call, and nothing is written to disk. All functions throw what host and
/// document throw. A directory number that exists or is planned is passed over with the warning
/// "exists" in the log. GUI thread.
namespace PathComposer {

/// The paths of all partitions of `doc`, by partition number: the group directory's name where
/// there is one, the directory with a trailing "/", the path. They take their places in the host's
/// save plan, but for reports (mode 16). Entries that the maps have stay where they are not
/// overwritten.
///
/// `useAlternativeDir`: the batch's directory, when there is one, takes the place of the composed
/// one. `reportVariant` 1: names of reports get round brackets for square ones.
///
/// Throws UTL_Exception, "Invalid filename." for a partition without a name where none is allowed
/// or when no number is free, "The path of the target is too long." above 245 characters. The plan
/// and the entries of the partition that failed then stay as far as they came. Does nothing without
/// `doc`.
void composeTargetPaths(HostServices *host, int mode, DOC_Interface *doc, bool useAlternativeDir,
                        QMap<int, QString> &groupDirs, QMap<int, QString> &dirs,
                        QMap<int, QString> &paths, const QDateTime &time, int reportVariant);

/// The path that composeTargetPaths() would give one partition now, with its parts, or why it would
/// refuse it; of one that it would not come to, why it refuses an earlier one, and nothing else. A
/// partition that `doc` does not have, or that there is no `doc` for, is composed as if it were the
/// only one. `before`: the documents that the batch saves before it, whose directories and files
/// are taken then; none is null. The host's plan stays as it is.
ComposedPath composePath(HostServices *host, int mode, DOC_Interface *doc, int partitionNo,
                         bool useAlternativeDir, const QDateTime &time, int reportVariant,
                         const QVector<DOC_Interface *> &before = {});

/// The base directory, with a trailing "/" unless empty.
QString composeDirectory(HostServices *host, int mode, DOC_Interface *doc);

/// The file name; `withAdditions`: with number, details and time, else the bare name. Throws
/// UTL_Exception "Invalid filename." when no number is free.
QString composeFileName(HostServices *host, int mode, DOC_Interface *doc, int partitionNo,
                        bool withAdditions, const QDateTime &time);

/// The name of the group directory, empty when there is none. `baseName`: the file name that it may
/// take. Throws UTL_Exception "Invalid filename." when no number is free.
QString composeGroupDir(HostServices *host, int mode, DOC_Interface *doc, const QString &baseName,
                        const QDateTime &time);

/// The name of the sub directory, in the same way.
QString composeSubDir(HostServices *host, int mode, DOC_Interface *doc, const QString &baseName,
                      const QDateTime &time);

/// The number of a directory or file: 3, 1, 12 with the digits 2, 0, 4 give "C03S0012".
QString composeNumberText(int cameraNo, int headNo, int sessionNo, int cameraDigits, int headDigits,
                          int sessionDigits);

/// `path` with the text of the small picture that is saved beside it; `path` alone when there is
/// none.
QString composeThumbnailPath(HostServices *host, int mode, const QString &path);

/// Digits that the settings give the camera, head and session part of a target kind's number; 0 for
/// a kind that has no such setting. Without a host 3, 3 and 4.
int cameraDigits(HostServices *host, int kind);
int headDigits(HostServices *host, int kind);
int sessionDigits(HostServices *host, int kind);

}
