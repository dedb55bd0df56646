#include "workbench/base/SupportFile.h"

#include "contract/HostValues.h"
#include "foundation/LogGroups.h"
#include "foundation/ReplaceFile.h"
#include "standin/host/StandInHost.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QLocale>
#include <QScreen>
#include <QSysInfo>
#include <QThread>

#include <KZip>

namespace {

// A document with one of these capabilities keeps a log of its own.
constexpr int LogCapabilities[] = {Capability::CameraLogToo, Capability::CameraLog};

QByteArray toText(const QStringList &lines)
{
    return lines.isEmpty() ? QByteArray() : lines.join('\n').toUtf8() + '\n';
}

QString line(const QString &name, const QString &value)
{
    return name + QStringLiteral(": ") + value;
}

QString rectText(const QRect &rect)
{
    return QStringLiteral("%1,%2 %3x%4")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height());
}

QStringList settingLines(const StandInSettings &settings)
{
    QStringList lines;
    for (const QString &key : settings.keys()) {
        const QVariant value = settings.value(key, QVariant());
        lines.append(key + '=' +
                     (LogGroups::isSecretName(key.section('/', -1)) ? LogGroups::masked()
                      : value.type() == QVariant::StringList        ? value.toStringList().join(',')
                                                                    : value.toString()));
    }
    return lines;
}

QStringList cameraLines(const StandInHost &host)
{
    QStringList lines;
    for (const StandInCamera *camera : host.cameras()) {
        const CameraSettings &settings = camera->settings();
        lines += {camera->name(),
                  line("  model", camera->model()),
                  line("  serial number", camera->serialNumber()),
                  line("  record rate", QString("%1 fps").arg(settings.recordRate)),
                  line("  shutter", QString("1/%1 s").arg(settings.shutterSpeed)),
                  line("  region", rectText(settings.region)),
                  line("  locked", camera->isLockedTogether() ? "yes" : "no")};
    }
    return lines;
}

QStringList environmentLines()
{
    QStringList lines{line("system", QSysInfo::prettyProductName()),
                      line("kernel", QSysInfo::kernelType() + ' ' + QSysInfo::kernelVersion()),
                      line("processor", QSysInfo::currentCpuArchitecture()),
                      line("threads", QString::number(QThread::idealThreadCount())),
                      line("Qt", qVersion()),
                      line("locale", QLocale::system().name())};
    for (const QScreen *screen : QGuiApplication::screens())
        lines.append(line("screen", rectText(screen->geometry())));
    return lines;
}

QImage pictureOf(QWidget *widget)
{
    return widget ? widget->grab().toImage() : QImage();
}

bool writePicture(KZip &zip, const QString &name, const QImage &picture)
{
    if (picture.isNull())
        return true;
    QBuffer buffer;
    return buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, "PNG") &&
           zip.writeFile(name, buffer.data());
}

bool fill(KZip &zip, const SupportSnapshot &snapshot)
{
    for (auto text = snapshot.texts.begin(); text != snapshot.texts.end(); ++text) {
        if (!zip.writeFile(text.key(), text.value()))
            return false;
    }
    return writePicture(zip, QStringLiteral("screen.png"), snapshot.screen) &&
           writePicture(zip, QStringLiteral("trelvik-window.png"), snapshot.trelvikWindow) &&
           writePicture(zip, QStringLiteral("frame.png"), snapshot.frame);
}

}

SupportSnapshot SupportFile::take(StandInHost &host, const Extras &extras)
{
    const StandInState &state = host.state();
    SupportSnapshot snapshot;
    snapshot.texts = {{"settings.txt", toText(settingLines(host.settings()))},
                      {"cameras.txt", toText(cameraLines(host))},
                      {"operation-log.txt", extras.operationLog.toUtf8()},
                      {"host-calls.txt", toText(extras.hostCalls + host.journal())},
                      {"environment.txt", toText(environmentLines())},
                      {"version.txt", toText({state.hostVersion})}};
    for (StandInDocument *document : host.documents()) {
        for (const int capability : LogCapabilities) {
            if (document->state().capabilities.contains(capability))
                snapshot.texts.insert(QStringLiteral("camera-log-%1.txt").arg(document->key()),
                                      toText({document->state().displayName}));
        }
    }
    snapshot.screen = pictureOf(state.mainWidget);
    if (state.isTrelvikWindowShown)
        snapshot.trelvikWindow = pictureOf(extras.trelvikWindow);
    snapshot.frame = extras.frame;
    const StandInDocument *current = host.document(host.currentKey());
    if (snapshot.frame.isNull() && current)
        snapshot.frame = current->frame(0);
    return snapshot;
}

// The ZIP is made in memory, so that a failure on the way cannot reach the file.
bool SupportFile::write(const QString &path, const SupportSnapshot &snapshot)
{
    QBuffer content;
    KZip zip(&content);
    if (!zip.open(QIODevice::WriteOnly))
        return false;
    const bool filled = fill(zip, snapshot);
    if (!zip.close() || !filled)
        return false;
    return ReplaceFile::write(path, content.data()).result == ReplaceFile::Result::Written;
}
