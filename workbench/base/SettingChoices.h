#pragma once

#include <QVector>

struct CameraLimits;

/// The usual values that a camera offers, ascending. A value that is set but is none of them joins
/// the list, so that a list shows what is true.
namespace SettingChoices {

/// Record rates in frames per second that the camera can do, and `current`.
QVector<uint> recordRates(const CameraLimits &limits, uint current);

/// Exposures in parts of a second, no longer than a frame at `recordRate`, no shorter than the
/// camera can do, and `current`.
QVector<uint> shutterSpeeds(const CameraLimits &limits, uint recordRate, uint current);

}
