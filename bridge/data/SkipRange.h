#pragma once

#include <QList>

/// How many values a list of skip values holds at most before the maximum, which ends it.
constexpr int MostSkipValues = 10'000'000;

/// The range of skip values that a page offers: every n-th frame, or every n milliseconds.
struct SkipRange
{
    double minimum = 1.0;
    double maximum = 1.0;
    uint rateDivisor = 0; ///< greatest common divisor of the record rates; milliseconds only
    QList<double> values; ///< selectable values, ascending; milliseconds only
    bool cut = false;     ///< `values` were made just now and lack some before `maximum`
};

/// What the selected partitions tell: their smallest frame count and their record rates.
class SkipSource
{
public:
    /// Frames of a partition; an empty one does not count.
    void addFrames(uint frames);

    /// Frames per second, above 0. A rate that is known already changes nothing.
    void addRate(uint framesPerSecond);

    bool hasRates() const { return !m_rates.isEmpty(); }

    /// Range in frames: 1 to the smallest count, 4294967295 when every partition is empty.
    /// `previous` keeps its divisor and values.
    SkipRange inFrames(const SkipRange &previous) const;

    /// Range in milliseconds, from the time of one frame at the rates' common divisor. Values that
    /// `previous` holds stay as they are while the divisor is the same. Where the time of one frame
    /// rounds to 0 there are no values. There is one a frame, so a list ends behind `most` of them.
    SkipRange inMilliseconds(const SkipRange &previous, int most = MostSkipValues) const;

private:
    uint m_frames = ~0u;
    QList<uint> m_rates;
};

/// `value`, moved into the range; a lower bound above the upper one wins.
double clampedSkipValue(const SkipRange &range, double value);
