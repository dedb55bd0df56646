#include "device/names/JS_Mediator_AutoCameraName.h"

#include "bridge/operation/OperationLog.h"
#include "contract/HostGuard.h"
#include "device/names/CameraNameList.h"
#include "foundation/Keys.h"

#include <QFile>
#include <QFileInfo>
#include <QtDebug>

#include <exception>

namespace {

constexpr qint64 TooLarge = 256 * 1024 * 1024; // bytes

// The mediator may go while the host is asked.
QString filePath(HostServices *host)
{
    return host->getPrefString(Keys::application.cameraNameFilePath, QLatin1String(""));
}

void tellFile(QDebug line, const char *what, const QString &path)
{
    line << what << path << "]";
}

// What is no regular file may never come to an end, and is not even opened.
bool canOpen(const QFileInfo &file)
{
    return file.isFile() && file.size() < TooLarge;
}

CameraNameList::Content readContent(const QString &path)
{
    if (!QFileInfo::exists(path))
        return {};
    QFile file(path);
    if (!canOpen(QFileInfo(path)) || !file.open(QIODevice::ReadOnly)) {
        tellFile(qCritical(), "file open failed. [", path);
        return {};
    }
    try {
        const QByteArray bytes = file.readAll();
        if (file.error() == QFileDevice::NoError)
            return CameraNameList::read(bytes);
    } catch (const std::exception &) { // the memory is used up, and what was read is free again
    }
    tellFile(qCritical(), "file error occurred. [", path);
    return {};
}

}

JS_Mediator_AutoCameraName::JS_Mediator_AutoCameraName(HostServices *host, const QString &name)
    : JS_Mediator(host, name)
{
}

bool JS_Mediator_AutoCameraName::existsAutoCompleteFile()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_AutoCameraName::existsAutoCompleteFile"));
    HostServices *services = host();
    return guarded(services, false, [&] {
        if (!services->isAutoCameraNameEnabled())
            return false;
        const QString path = filePath(services);
        if (!QFileInfo::exists(path))
            return false;
        tellFile(qInfo(), "found file. [", path);
        return true;
    });
}

QString JS_Mediator_AutoCameraName::autoCompleteCameraList()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_AutoCameraName::autoCompleteCameraList"));
    HostServices *services = host();
    return guarded(services, QString(QLatin1String("[]")), [&] {
        const CameraNameList::Content content = readContent(filePath(services));
        for (const QString &category : content.bareCategories)
            qWarning() << "[only category]" << category;
        return CameraNameList::pageText(content);
    });
}
