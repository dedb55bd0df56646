#pragma once

#include "contract/HostTypes.h"

#include <QString>

/// The settings of the time code as a page edits them, with a sample that shows their effect. It
/// begins with the settings that the application was shipped with.
///
/// Of the scale's end a page edits either the number of frames or the value. Numbers are texts
/// here; what is no finite number counts as 0.
struct TimeCodeModel
{
    int timeCodeIndex = 0; ///< 0 shows the time, any other value the custom scale
    QString sample;        ///< made by updateSample()
    QString displayUnit = QLatin1String("deg");   ///< of the custom scale
    QString oneFrame = QLatin1String("0.0000");   ///< amount per frame, with 4 decimals
    QString startValue = QLatin1String("0.0000"); ///< of the first frame, with 4 decimals
    bool reset = false;                           ///< whether the scale wraps
    QString resetValue = QLatin1String("1");      ///< where it wraps, by resetUnitIndex
    int resetUnitIndex = 0;       ///< 0: resetValue is a number of frames; else a value
    int scopeDisplayIndex = 0;    ///< TimeCodeText::TimeFormat
    int decimalPlaceIndex = 0;    ///< TimeCodeText::TimeFormat
    bool decimalDivide = false;   ///< TimeCodeText::TimeFormat
    bool usingRihFileInfo = true; ///< passed through
    bool overWrite = false;       ///< passed through
    bool realTime = false;        ///< passed through
    bool negative = false;        ///< oneFrame is below zero

    /// Also tells whether the amount is below zero.
    void setOneFrame(const QString &value);
    void setStartValue(const QString &value);

    /// A number of frames is kept within 1 and 99999, as it is written. A value moves on to the
    /// next frame, not further than 99999 frames from the start.
    void setResetValue(const QString &value);

    /// Converts resetValue, each time; to a number of frames within 1 and 99999.
    void setResetUnitIndex(int index);

    /// What two milliseconds look like, or one frame of the custom scale. The sign is that of
    /// oneFrame, for a time too.
    void updateSample();

    /// Takes over stored settings. The reset value moves on to the next frame, and is shown as a
    /// number of frames.
    void load(const TimeCodeRecord &record);

    /// The settings as they are stored. A reset value that is a number of frames is stored as the
    /// value that it stands for.
    TimeCodeRecord record() const;
};
