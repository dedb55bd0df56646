#include "standin/drawing/TimeCodeFrames.h"

#include "record/timecode/TimeCodeScale.h"
#include "record/timecode/TimeCodeText.h"

#include <cmath>
#include <limits>

namespace TimeCodeFrames {

namespace {

constexpr quint64 NanosecondsPerSecond = 1000000000;
constexpr qint64 MostFrames = std::numeric_limits<qint64>::max();
constexpr quint64 PartsOfOne = 10000;

double finite(double number)
{
    return std::isfinite(number) ? number : 0.0;
}

QString timeText(quint64 frame, uint framesPerSecond, const TimeCodeRecord &settings)
{
    const quint64 seconds = frame / framesPerSecond;
    const quint64 rest = frame % framesPerSecond * NanosecondsPerSecond;
    const quint64 nanoseconds = (rest + framesPerSecond / 2) / framesPerSecond;
    // A second less than there is room for, since the rest may make one.
    const quint64 furthest = quint64(MostFrames) / NanosecondsPerSecond - 1;
    return TimeCodeText::timeText(
        qint64(qMin(seconds, furthest) * NanosecondsPerSecond + nanoseconds),
        {settings.scopeDisplayIndex, settings.decimalPlaceIndex, settings.decimalDivide});
}

// How many frames the scale runs before it begins again; 0 when it never does.
qint64 period(const TimeCodeRecord &settings, double amount, double start)
{
    const double end = finite(settings.resetValue);
    const qint64 step = TimeCodeScale::scaled(amount);
    const qint64 first = TimeCodeScale::scaled(start);
    const qint64 last = TimeCodeScale::scaled(end);
    const bool reaches = step > 0 ? first < last : step < 0 && first > last;
    return settings.reset && reaches ? TimeCodeScale::frameCount(true, amount, end, start) : 0;
}

QString scaleText(quint64 frame, const TimeCodeRecord &settings)
{
    const double amount = finite(settings.oneFrame);
    const double start = finite(settings.startValue);
    const qint64 frames = qint64(qMin(frame, quint64(MostFrames)));
    const qint64 wrapsAt = period(settings, amount, start);
    const qint64 count = wrapsAt > 0 ? frames % wrapsAt : frames;
    const double value = TimeCodeScale::valueAtCount(count, amount, start);
    const quint64 parts = quint64(std::round(std::abs(value) * double(PartsOfOne)));
    const QLatin1Char zero('0');
    return QLatin1Char(value < 0.0 ? '-' : '+') +
           QString::number(parts / PartsOfOne).rightJustified(3, zero) + QLatin1Char('.') +
           QString::number(parts % PartsOfOne).rightJustified(4, zero) + QLatin1Char(' ') +
           settings.displayUnit;
}

}

QString text(quint64 frame, uint framesPerSecond, const TimeCodeRecord &settings)
{
    if (settings.timeCodeIndex != 0)
        return scaleText(frame, settings).trimmed();
    if (framesPerSecond == 0)
        return QString();
    return (QLatin1Char('+') + timeText(frame, framesPerSecond, settings)).trimmed();
}

}
