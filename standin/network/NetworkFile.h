#pragma once

#include "standin/network/NetworkPlan.h"

/// A network that stands in a file: a JSON object with
///
/// "searchTime": milliseconds, 1 to 60000; 3000 when it is absent.
/// "adapters": an array of objects with the texts "name", "address" and "mask".
/// "devices": an array of objects with the texts "serialNumber", "hardwareAddress", "model",
///     "address", "mask", "gateway", "adapter", the numbers "heads", 1 to 16, and "delay" in
///     milliseconds, below 0 for a device that never answers, and the flags "heldElsewhere" and
///     "plugged". Serial number, address and mask must be there.
namespace NetworkFile {

struct Outcome
{
    NetworkPlan plan;
    QString reason; ///< why it could not be read; empty when it was
};

/// The largest file that is read, in bytes.
constexpr qint64 LargestFile = 1024 * 1024;

/// Reads a plain file.
Outcome read(const QString &path);

/// Reads its content.
Outcome parse(const QByteArray &content);

}
