#include "workbench/save/SavePreview.h"

#include "contract/HostGuard.h"
#include "foundation/Clock.h"
#include "foundation/InfoItems.h"
#include "foundation/Json.h"
#include "foundation/SaveModes.h"
#include "foundation/Utilities.h"
#include "save/path/PathComposer.h"
#include "standin/host/StandInHost.h"
#include "workbench/save/PathWarnings.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStorageInfo>

#include <algorithm>

namespace {

QString refusalText(ComposedPath::Refusal refusal)
{
    switch (refusal) {
    case ComposedPath::Refusal::NoName:
        return QStringLiteral("name");
    case ComposedPath::Refusal::TooLong:
        return QStringLiteral("path");
    case ComposedPath::Refusal::ThumbnailTooLong:
        return QStringLiteral("thumbnail");
    case ComposedPath::Refusal::None:
        break;
    }
    return QString();
}

QString kindText(PathWarning::Kind kind)
{
    switch (kind) {
    case PathWarning::Kind::NoFolder:
        return QStringLiteral("noFolder");
    case PathWarning::Kind::MissingFolder:
        return QStringLiteral("missingFolder");
    case PathWarning::Kind::Exists:
        return QStringLiteral("exists");
    case PathWarning::Kind::Blank:
        return QStringLiteral("blank");
    case PathWarning::Kind::Dot:
        return QStringLiteral("dot");
    case PathWarning::Kind::Time:
        return QStringLiteral("time");
    case PathWarning::Kind::Forbidden:
        return QStringLiteral("forbidden");
    case PathWarning::Kind::TooManyBytes:
        return QStringLiteral("bytes");
    case PathWarning::Kind::OtherVolume:
        return QStringLiteral("volume");
    }
    return QString();
}

QString partText(PathWarning::Part part)
{
    switch (part) {
    case PathWarning::Part::Base:
        return QStringLiteral("base");
    case PathWarning::Part::Group:
        return QStringLiteral("group");
    case PathWarning::Part::Sub:
        return QStringLiteral("sub");
    case PathWarning::Part::File:
        return QStringLiteral("file");
    }
    return QString();
}

QJsonObject nameRecord(const ComposedName &name, int digits)
{
    return {{"text", name.text},
            {"name", name.name},
            {"number", name.number},
            {"time", name.time},
            {"next", name.search.number},
            {"onDisk", name.search.onDisk},
            {"planned", name.search.planned},
            {"digits", digits}};
}

QJsonArray warningList(const QVector<PathWarning> &warnings)
{
    QJsonArray list;
    for (const PathWarning &warning : warnings) {
        list.append(QJsonObject{{"kind", kindText(warning.kind)},
                                {"part", partText(warning.part)},
                                {"detail", warning.detail}});
    }
    return list;
}

// Of a recording, and with a text.
bool canStandInName(const InfoItem &item)
{
    const bool isOfRecording = item.usable[InfoItem::Memory] || item.usable[InfoItem::File] ||
                               item.usable[InfoItem::SaveForm];
    return isOfRecording && !item.label.isEmpty() && item.key != QLatin1String("Logo");
}

QString sizeText(const QString &volume)
{
    return UTL::formatCapacity(quint64(std::max(QStorageInfo(volume).bytesFree(), qint64(0))));
}

}

SavePreview::SavePreview(StandInHost &host, QObject *parent)
    : PageProof<QObject>(parent), m_host(host)
{
}

QString SavePreview::now() const
{
    return Clock::now().toString(Qt::ISODateWithMs);
}

QString SavePreview::path(int mode, const QString &key, int partitionNo, const QVariantList &before,
                          const QString &time)
{
    return guarded(&m_host, QString(), [&] {
        QVector<DOC_Interface *> earlier;
        for (const QVariant &each : before) {
            if (DOC_Interface *doc = m_host.deviceByKey(each.toULongLong(), false))
                earlier.append(doc);
        }
        DOC_Interface *doc = m_host.deviceByKey(key.toULongLong(), false);
        const ComposedPath path =
            PathComposer::composePath(&m_host, mode, doc, partitionNo, false,
                                      QDateTime::fromString(time, Qt::ISODateWithMs), 0, earlier);

        const auto digits = [&](int kind) { return PathComposer::sessionDigits(&m_host, kind); };
        const SaveModes::Family family = SaveModes::family(mode);
        QJsonObject record{
            {"base", path.base},
            {"directory", path.directory},
            {"path", path.path},
            {"thumbnail", path.thumbnail},
            {"group", nameRecord(path.group,
                                 digits(SaveModes::groupDirKind(SaveModes::groupDirFamily(mode))))},
            {"sub", nameRecord(path.sub, digits(SaveModes::subDirKind(family)))},
            {"file", nameRecord(path.file, digits(SaveModes::fileNameKind(family)))},
            {"isGroupFixed", path.isGroupFixed()},
            {"length", path.path.size()},
            {"refusal", refusalText(path.refusal)},
            {"warnings", warningList(PathWarnings::ofTexts(path) + PathWarnings::ofDisk(path))}};
        const QString volume = PathWarnings::volumeOf(path.directory);
        const int slash = path.directory.indexOf(QLatin1Char('/'));
        record["volume"] = volume;
        record["freeOnVolume"] = sizeText(volume);
        record["toldVolume"] = PathWarnings::volumeOf(path.directory.left(slash + 1));
        return Json::compactText(record);
    });
}

QString SavePreview::nameDetails()
{
    return guarded(&m_host, QString(), [&] {
        QJsonArray list;
        for (const InfoItem &item : infoItems) {
            if (item.key.isEmpty())
                break;
            if (canStandInName(item))
                list.append(
                    QJsonObject{{"id", item.key}, {"label", m_host.infoItemLabel(item.key)}});
        }
        return Json::compactText(list);
    });
}

QString SavePreview::forbiddenInName(const QString &name) const
{
    return PathWarnings::forbiddenInName(name);
}

QString SavePreview::forbiddenInPath(const QString &path) const
{
    return PathWarnings::forbiddenInPath(path);
}
