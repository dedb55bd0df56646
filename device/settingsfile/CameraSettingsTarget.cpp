#include "device/settingsfile/CameraSettingsTarget.h"

#include "contract/HostServices.h"
#include "device/settingsfile/CameraSettingsPath.h"

#include <QFileInfo>
#include <QPointer>
#include <QWidget>

namespace CameraSettingsTarget {

bool mayWrite(HostServices *host, const QString &path, QWidget *parent)
{
    const QPointer<QWidget> owner(parent);
    const auto refused = [&](const char *text) {
        const QString translated = host->translate(QLatin1String(text));
        host->warn(translated, owner);
        return false;
    };
    switch (CameraSettingsPath::refusal(path)) {
    case CameraSettingsPath::Refusal::InvalidName:
        return refused("Invalid filename.");
    case CameraSettingsPath::Refusal::TooLong:
        return refused("The path of the target is too long.");
    case CameraSettingsPath::Refusal::None:
        break;
    }
    if (!QFileInfo::exists(path))
        return true;
    const QString question = host->translate(QLatin1String("Do you want to overwrite it?"));
    return host->confirm(question, owner, QVariantMap());
}

}
