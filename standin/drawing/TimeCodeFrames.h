#pragma once

#include "contract/HostTypes.h"

#include <QString>

/// The running time code of the frames of a recording.
namespace TimeCodeFrames {

/// The time code of a frame, from 0, with the options of the settings and a sign in front: the time
/// since the first frame, with the sign of the scale's amount, as in the sample of the settings; or
/// the custom scale, which moves on by its amount with each frame and begins again where it reaches
/// its reset value. A scale that stands still or moves away from that value never reaches it.
/// Numbers that are not finite count as 0, and what is beyond 64 bits becomes the nearest number
/// within. Empty for a time without a record rate.
QString text(quint64 frame, uint framesPerSecond, const TimeCodeRecord &settings);

}
