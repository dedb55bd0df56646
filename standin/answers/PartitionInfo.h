#pragma once

#include "contract/HostTypes.h"
#include "standin/drawing/InfoFacts.h"

#include <QVariant>

struct InfoValues;

/// A partition of a document as a row of a list of targets.
struct PartitionInfo
{
    DOCKEY docKey = NoDocKey;
    bool isSelected = false; ///< the document
    InfoFacts facts;         ///< of the partition; its count of frames is told by `frames`
    QString filePath;        ///< empty without a file
    QString ipAddress;       ///< empty for what is no camera
    int slotNumber = 0;      ///< of the medium in the camera, from 1; 0: none

    bool isOnMedium = false; ///< what follows is told of data on a medium alone
    QString dataName;
    QString driveName;
    QString serialNumber; ///< of the device that recorded it
    QString dataNumber;

    int currentPartition = 1; ///< of the document, position from 1
    uint frames = 0;
    int skip = 1; ///< every so manieth frame is saved
    int bits = 8; ///< of a pixel

    QVariantList customInfo; ///< a QVariantMap for each record

    /// Frames that a save writes.
    quint64 savedFrames() const;

    /// Bytes that they take when each pixel takes whole bytes.
    quint64 savedBytes() const;

    /// The row: texts by key, but for the plain count of frames, which is a number. What the
    /// document does not have is left out.
    QVariantMap row(const InfoValues &values) const;
};
