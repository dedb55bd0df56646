#include "standin/drawing/DisplayFormats.h"

#include "foundation/Keys.h"

namespace {

enum ShutterSpeed { Fraction, Time, Both };
enum RecTime { Seconds, Milliseconds, Microseconds, MinutesSeconds, HoursMinutesSeconds };

// A unit of exposure times, and how many digits of its fraction reach to the nanosecond.
struct TimeUnit
{
    const char *name;
    quint64 nanoseconds;
    int digits;
};

constexpr TimeUnit timeUnits[] = {
    {"sec", 1000000000, 9}, {"msec", 1000000, 6}, {"usec", 1000, 3}, {"nsec", 1, 0}};
constexpr int TimeUnitCount = int(sizeof timeUnits / sizeof *timeUnits);

constexpr quint64 NanosecondsPerSecond = 1000000000;

quint64 dividedRounded(quint64 number, quint64 divisor)
{
    return number / divisor + (number % divisor + divisor / 2) / divisor;
}

QString wholeText(quint64 number, bool insertDelimiter)
{
    QString text = QString::number(number);
    for (int i = text.size() - 3; insertDelimiter && i > 0; i -= 3)
        text.insert(i, QLatin1Char(','));
    return text;
}

QString padded(quint64 number, int digits)
{
    return QString::number(number).rightJustified(digits, QLatin1Char('0'));
}

// A number that counts parts of its unit, without zeros at its end.
QString decimalText(quint64 parts, quint64 partsOfUnit, int digits, bool insertDelimiter)
{
    QString text = wholeText(parts / partsOfUnit, insertDelimiter);
    QString fraction = digits > 0 ? padded(parts % partsOfUnit, digits) : QString();
    while (fraction.endsWith(QLatin1Char('0')))
        fraction.chop(1);
    return fraction.isEmpty() ? text : text + QLatin1Char('.') + fraction;
}

// The unit of the setting, or the largest of which there is a whole one.
const TimeUnit &timeUnit(int setting, quint64 nanoseconds)
{
    if (setting >= 1 && setting <= TimeUnitCount)
        return timeUnits[setting - 1];
    const TimeUnit *unit = timeUnits;
    while (unit->nanoseconds > nanoseconds && unit->nanoseconds > 1)
        ++unit;
    return *unit;
}

QString withUnit(const QString &number, const char *unit)
{
    return number + QLatin1Char(' ') + QLatin1String(unit);
}

// How long so many frames take, in parts of a second.
quint64 duration(quint64 frames, uint framesPerSecond, quint64 partsOfSecond)
{
    return frames / framesPerSecond * partsOfSecond +
           dividedRounded(frames % framesPerSecond * partsOfSecond, framesPerSecond);
}

}

DisplayFormats DisplayFormats::read(const std::function<QVariant(const QString &key)> &setting)
{
    const Keys::DisplayKeys &keys = Keys::display;
    DisplayFormats formats;
    formats.shutterSpeed = setting(keys.shutterSpeed).toInt();
    formats.shutterSpeedUnit = setting(keys.shutterSpeedUnit).toInt();
    formats.shutterSpeedInsertDelimiter = setting(keys.shutterSpeedInsertDelimiter).toBool();
    formats.recordRateInsertDelimiter = setting(keys.recordRateInsertDelimiter).toBool();
    formats.frameInsertDelimiter = setting(keys.frameInsertDelimiter).toBool();
    formats.recTimeUnit = setting(Keys::info.recTimeUnit).toInt();
    return formats;
}

QVector<DisplayFormats::Choice> DisplayFormats::shutterSpeedChoices()
{
    return {{Fraction, "Fraction of a second"},
            {Time, "Exposure time"},
            {Both, "Fraction and exposure time"}};
}

QVector<DisplayFormats::Choice> DisplayFormats::shutterSpeedUnitChoices()
{
    QVector<Choice> choices{{0, "Automatic"}};
    for (int i = 0; i < TimeUnitCount; ++i)
        choices.append({i + 1, timeUnits[i].name});
    return choices;
}

QVector<DisplayFormats::Choice> DisplayFormats::recTimeUnitChoices()
{
    return {{Seconds, "sec"},
            {Milliseconds, "msec"},
            {Microseconds, "usec"},
            {MinutesSeconds, "min:sec"},
            {HoursMinutesSeconds, "hour:min:sec"}};
}

QString DisplayFormats::shutterSpeedText(uint partsOfSecond) const
{
    if (partsOfSecond == 0)
        return QString();
    const quint64 nanoseconds = dividedRounded(NanosecondsPerSecond, partsOfSecond);
    const TimeUnit &unit = timeUnit(shutterSpeedUnit, nanoseconds);
    const QString time = withUnit(
        decimalText(nanoseconds, unit.nanoseconds, unit.digits, shutterSpeedInsertDelimiter),
        unit.name);
    const QString fraction =
        withUnit(QLatin1String("1/") + wholeText(partsOfSecond, shutterSpeedInsertDelimiter),
                 timeUnits[0].name);
    switch (shutterSpeed) {
    case Time:
        return time;
    case Both:
        return fraction + QLatin1String(" (") + time + QLatin1Char(')');
    default:
        return fraction;
    }
}

QString DisplayFormats::recordRateText(uint framesPerSecond) const
{
    if (framesPerSecond == 0)
        return QString();
    return withUnit(wholeText(framesPerSecond, recordRateInsertDelimiter), "fps");
}

QString DisplayFormats::frameText(quint64 number) const
{
    return wholeText(number, frameInsertDelimiter);
}

QString DisplayFormats::recTimeText(quint64 frames, uint framesPerSecond) const
{
    if (framesPerSecond == 0)
        return QString();
    const quint64 microseconds = duration(frames, framesPerSecond, 1000000);
    const quint64 milliseconds = duration(frames, framesPerSecond, 1000);
    const quint64 minutes = milliseconds / 60000;
    const QString seconds = QLatin1Char(':') + padded(milliseconds / 1000 % 60, 2) +
                            QLatin1Char('.') + padded(milliseconds % 1000, 3);
    switch (recTimeUnit) {
    case Milliseconds:
        return withUnit(decimalText(microseconds, 1000, 3, false), "msec");
    case Microseconds:
        return withUnit(wholeText(microseconds, false), "usec");
    case MinutesSeconds:
        return padded(minutes, 2) + seconds;
    case HoursMinutesSeconds:
        return padded(minutes / 60, 2) + QLatin1Char(':') + padded(minutes % 60, 2) + seconds;
    default:
        return withUnit(decimalText(microseconds, 1000000, 6, false), "sec");
    }
}
