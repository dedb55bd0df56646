#include "bridge/data/SkipRange.h"

#include "foundation/Utilities.h"

#include <algorithm>

namespace {

constexpr uint NoFrames = ~0u;
constexpr uint Digits = 5;

// The maximum ends the list, so it is never the one that is left out.
void addSelectableValues(SkipRange &range, int most)
{
    if (!(range.minimum > 0.0))
        return;
    for (int i = 1;; ++i) {
        const double value = UTL::roundDigits(i * range.minimum, Digits);
        if (value >= range.maximum)
            break;
        range.cut = range.values.size() == most;
        if (range.cut)
            break;
        range.values.append(value);
    }
    range.values.append(range.maximum);
}

}

void SkipSource::addFrames(uint frames)
{
    if (frames != 0)
        m_frames = std::min(m_frames, frames);
}

void SkipSource::addRate(uint framesPerSecond)
{
    if (!m_rates.contains(framesPerSecond))
        m_rates.append(framesPerSecond);
}

SkipRange SkipSource::inFrames(const SkipRange &previous) const
{
    SkipRange range = previous;
    range.cut = false;
    range.minimum = 1.0;
    range.maximum = double(m_frames);
    return range;
}

SkipRange SkipSource::inMilliseconds(const SkipRange &previous, int most) const
{
    uint divisor = 0;
    for (uint rate : m_rates)
        divisor = UTL::gcd(divisor, rate);

    SkipRange range;
    range.rateDivisor = divisor;
    range.minimum = divisor == 0 ? 1.0 : UTL::roundDigits(1000.0 / divisor, Digits);
    range.maximum =
        m_frames == NoFrames ? range.minimum : UTL::roundDigits(m_frames * range.minimum, Digits);
    if (divisor == previous.rateDivisor)
        range.values = previous.values;
    if (range.values.isEmpty())
        addSelectableValues(range, most);
    return range;
}

double clampedSkipValue(const SkipRange &range, double value)
{
    if (value < range.minimum)
        return range.minimum;
    return std::min(value, range.maximum);
}
