#include "device/settingsfile/CameraSettingsPath.h"

#include "foundation/DateTexts.h"
#include "foundation/Utilities.h"

#include <QFileInfo>

namespace CameraSettingsPath {

QString suffix()
{
    return QLatin1String("qcfg");
}

QString fileName(const NameParts &parts, const QString &cameraName, const QDateTime &now)
{
    QString name = parts.startsTyped ? parts.typed : cameraName;
    if (!parts.hasTime)
        return name;
    if (!name.isEmpty())
        name += QLatin1Char('_');
    return name + DateTexts::formatDateTime(now, parts.timeFormat);
}

QString fileNameWithSuffix(const NameParts &parts, const QString &cameraName, const QDateTime &now)
{
    return fileName(parts, cameraName, now) + QLatin1Char('.') + suffix();
}

QString path(const QString &folder, const QString &name)
{
    if (folder.isEmpty())
        return {};
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

Refusal refusal(const QString &path)
{
    const QFileInfo file(path);
    const QString base = file.completeBaseName();
    if (base.isEmpty() || file.isDir() || !UTL::isValidFileName(base) ||
        !UTL::isValidFilePath(path))
        return Refusal::InvalidName;
    return path.size() > LongestPath ? Refusal::TooLong : Refusal::None;
}

}
