#include "workbench/base/SettingChoices.h"

#include "standin/documents/CameraSettings.h"

#include <algorithm>

namespace {

// The values between the limits, the limits themselves and the current one, each once.
QVector<uint> choices(const QVector<uint> &usual, uint least, uint most, uint current)
{
    QVector<uint> result{least, most, current};
    std::copy_if(usual.begin(), usual.end(), std::back_inserter(result),
                 [=](uint value) { return value > least && value < most; });
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

}

QVector<uint> SettingChoices::recordRates(const CameraLimits &limits, uint current)
{
    static const QVector<uint> usual{50,   60,   125,  250,   500,   1000,  2000,
                                     4000, 5000, 8000, 10000, 20000, 50000, 100000};
    return choices(usual, limits.minRecordRate, limits.maxRecordRate, current);
}

QVector<uint> SettingChoices::shutterSpeeds(const CameraLimits &limits, uint recordRate,
                                            uint current)
{
    static const QVector<uint> usual{50,    60,     125,    250,    500,    1000,
                                     2000,  4000,   5000,   8000,   10000,  20000,
                                     50000, 100000, 200000, 500000, 1000000};
    return choices(usual, recordRate, qMax(recordRate, limits.maxShutterSpeed), current);
}
