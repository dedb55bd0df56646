#include "standin/session/CameraSettingsFile.h"

#include "foundation/ReplaceFile.h"
#include "foundation/exceptions/DOC_ReadFileException.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 LargestFile = 16 * 1024 * 1024;
constexpr uint WriteFailed = 2;

// Far beyond every sensor, and so that the edges of a region can be added up.
constexpr double FarthestPixel = 1 << 24;

const QString Format = QStringLiteral("format");
const QString Cameras = QStringLiteral("cameras");
const QString SerialNumber = QStringLiteral("serialNumber");
const QString Head = QStringLiteral("head");
const QString RecordRate = QStringLiteral("recordRate");
const QString ShutterSpeed = QStringLiteral("shutterSpeed");
const QString Region = QStringLiteral("region");

QJsonObject objectOf(const CameraSettingsRecord &record)
{
    QJsonObject object{{SerialNumber, record.serialNumber}, {Head, record.headNumber}};
    if (record.recordRate)
        object.insert(RecordRate, double(*record.recordRate));
    if (record.shutterSpeed)
        object.insert(ShutterSpeed, double(*record.shutterSpeed));
    if (record.region) {
        const QRect &region = *record.region;
        object.insert(Region, QJsonArray{region.x(), region.y(), region.width(), region.height()});
    }
    return object;
}

std::optional<uint> countOf(const QJsonValue &value)
{
    if (!value.isDouble())
        return {};
    return uint(std::clamp(value.toDouble(), 0.0, double(std::numeric_limits<uint>::max())));
}

std::optional<QRect> regionOf(const QJsonValue &value)
{
    const QJsonArray numbers = value.toArray();
    const bool areFour =
        numbers.size() == 4 && std::all_of(numbers.begin(), numbers.end(),
                                           [](const QJsonValue &each) { return each.isDouble(); });
    if (!areFour)
        return {};
    const auto pixels = [&](int i, double least) {
        return int(std::clamp(numbers.at(i).toDouble(), least, FarthestPixel));
    };
    return QRect(pixels(0, -FarthestPixel), pixels(1, -FarthestPixel), pixels(2, 0), pixels(3, 0));
}

CameraSettingsRecord recordOf(const QJsonObject &object)
{
    CameraSettingsRecord record;
    record.serialNumber = object.value(SerialNumber).toString();
    record.headNumber = object.value(Head).toInt(1);
    record.recordRate = countOf(object.value(RecordRate));
    record.shutterSpeed = countOf(object.value(ShutterSpeed));
    record.region = regionOf(object.value(Region));
    return record;
}

}

namespace CameraSettingsFile {

QByteArray toJson(const QVector<CameraSettingsRecord> &records)
{
    QJsonArray cameras;
    for (const CameraSettingsRecord &record : records)
        cameras.append(objectOf(record));
    return QJsonDocument(QJsonObject{{Format, QStringLiteral("qcfg")}, {Cameras, cameras}})
        .toJson();
}

std::optional<QVector<CameraSettingsRecord>> fromJson(const QByteArray &text)
{
    const QJsonObject root = QJsonDocument::fromJson(text).object();
    if (root.value(Format) != QStringLiteral("qcfg") || !root.value(Cameras).isArray())
        return {};
    QVector<CameraSettingsRecord> records;
    const QJsonArray cameras = root.value(Cameras).toArray();
    for (const QJsonValue &camera : cameras) {
        const CameraSettingsRecord record = recordOf(camera.toObject());
        if (!record.serialNumber.isEmpty())
            records.append(record);
    }
    return records;
}

void write(const QString &path, const QVector<CameraSettingsRecord> &records)
{
    const ReplaceFile::Outcome outcome = ReplaceFile::write(path, toJson(records));
    if (outcome.result != ReplaceFile::Result::Written)
        throw DOC_FileException(QStringLiteral("File write failed."), path, WriteFailed);
}

QVector<CameraSettingsRecord> read(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) // a pipe would never end
        throw DOC_ReadFileException(path);
    const QByteArray text = file.read(LargestFile + 1);
    const auto records = text.size() > LargestFile ? std::nullopt : fromJson(text);
    if (!records)
        throw DOC_ReadFileException(path);
    return *records;
}

}
