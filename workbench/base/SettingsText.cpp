#include "workbench/base/SettingsText.h"

#include "standin/documents/StandInCamera.h"

#include <QCoreApplication>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("SettingsText", text);
}

}

QString SettingsText::shutter(uint parts)
{
    return tr("1/%1 s").arg(parts);
}

QString SettingsText::recordRate(uint framesPerSecond)
{
    return tr("%1 fps").arg(framesPerSecond);
}

QString SettingsText::size(const QSize &size)
{
    return QStringLiteral("%1 × %2").arg(QString::number(size.width()),
                                         QString::number(size.height()));
}

QString SettingsText::ofDocument(const StandInDocument &document)
{
    QString picture = size(document.pictureSize());
    if (const auto *camera = dynamic_cast<const StandInCamera *>(&document)) {
        if (camera->showsWholeSensor())
            picture = size(camera->sensorRegion().size());
        return QStringList(
                   {shutter(camera->shutterSpeed()), recordRate(camera->recordRate()), picture})
            .join(QStringLiteral("   "));
    }
    return picture;
}
