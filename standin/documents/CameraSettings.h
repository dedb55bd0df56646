#pragma once

#include <QRect>
#include <QSize>

/// What is set on a camera before it records.
struct CameraSettings
{
    uint recordRate = 1000;       ///< frames per second
    uint shutterSpeed = 1000;     ///< exposure in parts of a second: 2000 is 1/2000 s
    QRect region{0, 0, 640, 480}; ///< the part of the sensor that is read, in sensor pixels

    bool operator==(const CameraSettings &other) const
    {
        return recordRate == other.recordRate && shutterSpeed == other.shutterSpeed &&
               region == other.region;
    }
    bool operator!=(const CameraSettings &other) const { return !(*this == other); }
};

/// One of these values.
enum class CameraSetting { RecordRate, ShutterSpeed, Region };

/// What a camera can do.
struct CameraLimits
{
    uint minRecordRate = 50;        ///< frames per second
    uint maxRecordRate = 20000;     ///< frames per second
    uint maxShutterSpeed = 1000000; ///< shortest exposure, in parts of a second
    QSize sensorSize{1024, 1024};   ///< pixels
    QSize minRegion{16, 16};        ///< smallest region, in sensor pixels
};

/// The nearest settings that a camera can do: the record rate between its limits, an exposure no
/// longer than a frame and no shorter than it can be, the region at least as large as the smallest
/// one, no larger than the sensor, and moved inside it.
CameraSettings clampedSettings(const CameraSettings &settings, const CameraLimits &limits);
