#pragma once

#include "standin/session/CameraSettingsRecord.h"

#include <QByteArray>
#include <QVector>

/// "qcfg" files of the stand-in: JSON text, {"format":"qcfg","cameras":[{"serialNumber":"10001",
/// "head":1,"recordRate":1000,"shutterSpeed":2000,"region":[192,272,640,480]}]}. Any thread.
namespace CameraSettingsFile {

QByteArray toJson(const QVector<CameraSettingsRecord> &records);

/// None for what is no such text. A camera without a serial number is left out; a value of another
/// type, or that is missing, is none, and one that its type cannot hold is the nearest that it can.
std::optional<QVector<CameraSettingsRecord>> fromJson(const QByteArray &text);

/// Writes the file in place of what is there. Throws a DOC_FileException when it cannot be written;
/// the old one is whole then.
void write(const QString &path, const QVector<CameraSettingsRecord> &records);

/// Reads a plain file of at most 16 MiB. Throws a DOC_ReadFileException when it is none, or none
/// with settings.
QVector<CameraSettingsRecord> read(const QString &path);

}
