#include "standin/documents/CameraSettings.h"

#include <algorithm>

namespace {

// Start of a piece of this length inside a whole, as near to `start` as can be.
int movedInside(int start, int length, int whole)
{
    return std::clamp(start, 0, std::max(0, whole - length));
}

}

CameraSettings clampedSettings(const CameraSettings &settings, const CameraLimits &limits)
{
    CameraSettings result;
    const uint fastest = std::max(limits.minRecordRate, limits.maxRecordRate);
    result.recordRate = std::clamp(settings.recordRate, limits.minRecordRate, fastest);
    result.shutterSpeed = std::clamp(settings.shutterSpeed, result.recordRate,
                                     std::max(result.recordRate, limits.maxShutterSpeed));

    const QSize sensor = limits.sensorSize.expandedTo(QSize(1, 1));
    const QSize smallest = limits.minRegion.expandedTo(QSize(1, 1)).boundedTo(sensor);
    const QRect wanted = settings.region.normalized();
    const QSize size = wanted.size().expandedTo(smallest).boundedTo(sensor);
    result.region = QRect(QPoint(movedInside(wanted.x(), size.width(), sensor.width()),
                                 movedInside(wanted.y(), size.height(), sensor.height())),
                          size);
    return result;
}
