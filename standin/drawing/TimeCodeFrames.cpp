#include "standin/drawing/TimeCodeFrames.h"

#include "record/timecode/TimeCodeText.h"

#include <cmath>
#include <limits>

namespace TimeCodeFrames {

namespace {

constexpr quint64 NanosecondsPerSecond = 1000000000;
constexpr quint64 PartsOfOne = 10000;

QString timeText(quint64 frame, uint framesPerSecond, const TimeCodeRecord &settings)
{
    const quint64 seconds = frame / framesPerSecond;
    const quint64 rest = frame % framesPerSecond * NanosecondsPerSecond;
    const quint64 nanoseconds = (rest + framesPerSecond / 2) / framesPerSecond;
    // A second less than there is room for, since the rest may make one.
    const quint64 furthest = quint64(std::numeric_limits<qint64>::max()) / NanosecondsPerSecond - 1;
    return TimeCodeText::timeText(
        qint64(qMin(seconds, furthest) * NanosecondsPerSecond + nanoseconds),
        {settings.scopeDisplayIndex, settings.decimalPlaceIndex, settings.decimalDivide});
}

// Ten-thousandths, rounded half away from zero: a whole number of them is met exactly, also below
// zero, where the dialog's own arithmetic would lose one.
qint64 parts(double number)
{
    using Limits = std::numeric_limits<qint64>;
    if (!std::isfinite(number))
        return 0;
    const double whole = std::round(number * double(PartsOfOne));
    if (whole >= double(Limits::max()))
        return Limits::max();
    return whole <= double(Limits::min()) ? Limits::min() : qint64(whole);
}

quint64 size(qint64 number)
{
    return number < 0 ? 0 - quint64(number) : quint64(number);
}

// How many frames the scale runs before it begins again, one that is begun counted whole; 0 when it
// never does.
quint64 period(qint64 start, qint64 step, qint64 end)
{
    if (step == 0 || (step > 0 ? start >= end : start <= end))
        return 0;
    const quint64 way = step > 0 ? quint64(end) - quint64(start) : quint64(start) - quint64(end);
    return way / size(step) + (way % size(step) == 0 ? 0 : 1);
}

// The first or last number there is, where the way leads beyond it.
qint64 moved(qint64 start, quint64 frames, qint64 step)
{
    const qint64 furthest =
        step < 0 ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
    const quint64 room =
        step < 0 ? quint64(start) - quint64(furthest) : quint64(furthest) - quint64(start);
    if (step != 0 && frames > room / size(step))
        return furthest;
    return qint64(quint64(start) + frames * quint64(step));
}

QLatin1Char sign(qint64 number)
{
    return QLatin1Char(number < 0 ? '-' : '+');
}

QString scaleText(quint64 frame, const TimeCodeRecord &settings)
{
    const qint64 start = parts(settings.startValue);
    const qint64 step = parts(settings.oneFrame);
    const quint64 wrapsAt = settings.reset ? period(start, step, parts(settings.resetValue)) : 0;
    const qint64 value = moved(start, wrapsAt > 0 ? frame % wrapsAt : frame, step);
    const QLatin1Char zero('0');
    return sign(value) + QString::number(size(value) / PartsOfOne).rightJustified(3, zero) +
           QLatin1Char('.') + QString::number(size(value) % PartsOfOne).rightJustified(4, zero) +
           QLatin1Char(' ') + settings.displayUnit;
}

}

QString text(quint64 frame, uint framesPerSecond, const TimeCodeRecord &settings)
{
    if (settings.timeCodeIndex != 0)
        return scaleText(frame, settings).trimmed();
    if (framesPerSecond == 0)
        return QString();
    return (sign(parts(settings.oneFrame)) + timeText(frame, framesPerSecond, settings)).trimmed();
}

}
