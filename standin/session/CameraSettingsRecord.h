#pragma once

#include "standin/documents/CameraSettings.h"

#include <QString>

#include <optional>

class StandInCamera;

/// The settings of one camera head in a file, and whose they are. A value that the file does not
/// tell is none.
struct CameraSettingsRecord
{
    QString serialNumber; ///< of the device
    int headNumber = 1;   ///< from 1
    std::optional<uint> recordRate;
    std::optional<uint> shutterSpeed;
    std::optional<QRect> region;

    /// What there is of a camera. GUI thread.
    static CameraSettingsRecord of(const StandInCamera &camera);

    /// Whether these are settings of that camera. GUI thread.
    bool isOf(const StandInCamera &camera) const;

    /// `present` with what is told here in its place.
    CameraSettings appliedTo(const CameraSettings &present) const;
};
