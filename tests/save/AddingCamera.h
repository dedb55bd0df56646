#pragma once

#include "standin/documents/StandInCamera.h"

#include <functional>

/// A camera beside the host's list whose additions to file names a test makes by itself.
class AddingCamera : public StandInCamera
{
public:
    using Addition =
        std::function<QString(int mode, int partitionNo, int sequence, bool &usesSequence)>;

    using StandInCamera::StandInCamera;

    QString fileNameAddition(int mode, int partitionNo, int sequence, bool &usesSequence,
                             const QDateTime &time) override
    {
        asked("fileNameAddition", mode, partitionNo, sequence, time);
        if (addition)
            return addition(mode, partitionNo, sequence, usesSequence);
        usesSequence = false;
        return QString();
    }

    Addition addition; ///< without one nothing is added; may leave the flag as it was
};
