#pragma once

#include <QString>
#include <QVariant>
#include <QVector>

#include <functional>

/// How shutter speed, record rate, frame numbers and recording times are written over a picture,
/// and what the numbers mean under which the settings keep it. Any other number means the first
/// choice.
struct DisplayFormats
{
    /// A number of a setting and what a page calls it, a source text for translation.
    struct Choice
    {
        int number;
        const char *label;
    };

    int shutterSpeed = 0;     ///< shutterSpeedChoices()
    int shutterSpeedUnit = 0; ///< of the exposure time, shutterSpeedUnitChoices()
    bool shutterSpeedInsertDelimiter = false;
    bool recordRateInsertDelimiter = false;
    bool frameInsertDelimiter = false;
    int recTimeUnit = 0; ///< recTimeUnitChoices()

    /// From the settings, each asked by its key.
    static DisplayFormats read(const std::function<QVariant(const QString &key)> &setting);

    /// In the order in which a page offers them.
    static QVector<Choice> shutterSpeedChoices();
    static QVector<Choice> shutterSpeedUnitChoices();
    static QVector<Choice> recTimeUnitChoices();

    /// An exposure of one part of a second of so many, as fraction, as time to the nanosecond or as
    /// both: "1/1000 sec", "1 msec", "1/1000 sec (1 msec)". Empty for 0.
    QString shutterSpeedText(uint partsOfSecond) const;

    /// "1000 fps"; empty for 0.
    QString recordRateText(uint framesPerSecond) const;

    QString frameText(quint64 number) const;

    /// How long so many frames take. The forms with ":" end in milliseconds, the others in
    /// microseconds. Empty for a record rate of 0.
    QString recTimeText(quint64 frames, uint framesPerSecond) const;
};
