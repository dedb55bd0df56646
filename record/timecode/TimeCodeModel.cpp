#include "record/timecode/TimeCodeModel.h"

#include "record/timecode/TimeCodeScale.h"
#include "record/timecode/TimeCodeText.h"

#include <algorithm>

using namespace TimeCodeScale;

namespace {

constexpr qint64 LeastFrames = 1;
constexpr qint64 MostFrames = 99999;
constexpr double FurthestValue = 999900000.0;
constexpr qint64 SampleNanoseconds = 2000000;

double frameValue(qint64 count, double oneFrame, double start)
{
    const double value = valueAtCount(count, oneFrame, start);
    const bool isFar = value < -FurthestValue || value > FurthestValue;
    return isFar ? value - oneFrame : value;
}

}

void TimeCodeModel::setOneFrame(const QString &value)
{
    const double amount = number(value);
    negative = amount < 0.0;
    oneFrame = text(amount);
}

void TimeCodeModel::setStartValue(const QString &value)
{
    startValue = text(number(value));
}

void TimeCodeModel::setResetValue(const QString &value)
{
    double wanted = number(value);
    if (resetUnitIndex == 0) {
        if (wanted < double(LeastFrames))
            resetValue = QString::number(LeastFrames);
        else if (wanted > double(MostFrames))
            resetValue = QString::number(MostFrames);
        else
            resetValue = value;
        return;
    }
    const double amount = number(oneFrame);
    const double start = number(startValue);
    const double limit = start + amount * double(MostFrames);
    if ((wanted > limit && limit > 0.0) || (wanted < limit && limit < 0.0))
        wanted = limit;
    resetValue = text(frameValue(frameCount(reset, amount, wanted, start), amount, start));
}

void TimeCodeModel::setResetUnitIndex(int index)
{
    const double present = number(resetValue);
    const double amount = number(oneFrame);
    const double start = number(startValue);
    if (index == 0) {
        const qint64 count = frameCount(reset, amount, present, start);
        resetValue = QString::number(std::clamp(count, LeastFrames, MostFrames));
    } else {
        resetValue = text(frameValue(toInt(present), amount, start));
    }
    resetUnitIndex = index;
}

void TimeCodeModel::updateSample()
{
    using namespace TimeCodeText;
    const QLatin1Char sign(negative ? '-' : '+');
    if (timeCodeIndex == 0)
        sample = sign +
                 timeText(SampleNanoseconds, {scopeDisplayIndex, decimalPlaceIndex, decimalDivide});
    else
        sample = sign + amountText(number(oneFrame), displayUnit);
}

void TimeCodeModel::load(const TimeCodeRecord &record)
{
    timeCodeIndex = record.timeCodeIndex;
    displayUnit = record.displayUnit;
    setOneFrame(text(record.oneFrame));
    setStartValue(text(record.startValue));
    scopeDisplayIndex = record.scopeDisplayIndex;
    decimalPlaceIndex = record.decimalPlaceIndex;
    decimalDivide = record.decimalDivide;
    usingRihFileInfo = record.usingRihFileInfo;
    overWrite = record.overWrite;
    realTime = record.realTime;
    reset = record.reset;
    resetUnitIndex = 1;
    setResetValue(text(record.resetValue));
    updateSample();
    setResetUnitIndex(0);
}

TimeCodeRecord TimeCodeModel::record() const
{
    TimeCodeRecord record;
    record.timeCodeIndex = timeCodeIndex;
    record.displayUnit = displayUnit;
    record.oneFrame = number(oneFrame);
    record.startValue = number(startValue);
    record.reset = reset;
    record.resetValue = number(resetValue);
    if (resetUnitIndex == 0) {
        const double end = record.startValue + record.oneFrame * toInt(record.resetValue);
        record.resetValue = number(text(end));
    }
    record.scopeDisplayIndex = scopeDisplayIndex;
    record.decimalPlaceIndex = decimalPlaceIndex;
    record.decimalDivide = decimalDivide;
    record.usingRihFileInfo = usingRihFileInfo;
    record.overWrite = overWrite;
    record.realTime = realTime;
    return record;
}
