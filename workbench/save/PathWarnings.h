#pragma once

#include "save/path/ComposedPath.h"
#include "workbench/save/PathWarning.h"

#include <QString>
#include <QVector>

/// What to say about a composed path. GUI thread.
namespace PathWarnings {

/// What its texts tell by themselves, part by part.
QVector<PathWarning> ofTexts(const ComposedPath &path);

/// What the disk tells as it is now. Only asks.
QVector<PathWarning> ofDisk(const ComposedPath &path);

/// The characters of a name that none may hold, each once; the whole name where it is "." or "..".
QString forbiddenInName(const QString &name);

/// The same for a path with all its directories.
QString forbiddenInPath(const QString &path);

/// Where the volume of `path` begins, or that of the nearest directory above it that is there.
QString volumeOf(const QString &path);

}
