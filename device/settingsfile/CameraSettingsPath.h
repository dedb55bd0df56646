#pragma once

#include <QDateTime>
#include <QString>

/// Where the settings of cameras are saved: a file in a folder, named by the settings "qcfg/...".
/// Any thread.
namespace CameraSettingsPath {

/// The longest path that is written to, in UTF-16 units.
constexpr int LongestPath = 260;

/// What a file's name is made from.
struct NameParts
{
    QString typed;            ///< the name that the user has typed
    bool startsTyped = false; ///< the name starts with it, else with the camera's
    bool hasTime = false;     ///< "_" and a time follow; no "_" at the start
    QString timeFormat;       ///< of QDateTime, in the C locale
};

/// The suffix of such files, without its dot.
QString suffix();

/// The name of a file without its suffix. `cameraName`: of the first selected camera.
QString fileName(const NameParts &parts, const QString &cameraName, const QDateTime &now);

/// The same with ".qcfg".
QString fileNameWithSuffix(const NameParts &parts, const QString &cameraName, const QDateTime &now);

/// The path of a file in a folder; empty without a folder.
QString path(const QString &folder, const QString &name);

/// Why nothing is written to a path.
enum class Refusal {
    None,
    InvalidName, ///< it is empty, a folder, without a base name, or has forbidden characters
    TooLong
};

/// Asks the disk whether the path is a folder.
Refusal refusal(const QString &path);

}
