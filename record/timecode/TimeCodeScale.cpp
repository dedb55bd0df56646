#include "record/timecode/TimeCodeScale.h"

#include <cmath>
#include <limits>

namespace {

constexpr int Decimals = 4;
constexpr double UnitsPerOne = 10000.0;

template <class Integer> Integer truncated(double number)
{
    using Limits = std::numeric_limits<Integer>;
    if (number >= double(Limits::max()))
        return Limits::max();
    return number <= double(Limits::min()) ? Limits::min() : Integer(number);
}

qint64 furthest(bool below)
{
    return below ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
}

qint64 sum(qint64 a, qint64 b)
{
    qint64 result = 0;
    return __builtin_add_overflow(a, b, &result) ? furthest(b < 0) : result;
}

qint64 difference(qint64 a, qint64 b)
{
    qint64 result = 0;
    return __builtin_sub_overflow(a, b, &result) ? furthest(b > 0) : result;
}

qint64 product(qint64 a, qint64 b)
{
    qint64 result = 0;
    return __builtin_mul_overflow(a, b, &result) ? furthest((a < 0) != (b < 0)) : result;
}

}

namespace TimeCodeScale {

double number(const QString &text)
{
    const double value = text.toDouble();
    return std::isfinite(value) ? value : 0.0;
}

QString text(double number)
{
    return QString::number(number, 'f', Decimals);
}

int toInt(double number)
{
    return truncated<int>(number);
}

qint64 scaled(double number)
{
    double units = number * UnitsPerOne;
    double whole = 0.0;
    if (std::modf(units, &whole) > 0.5)
        units += 1.0;
    return truncated<qint64>(units);
}

qint64 frameCount(bool resetOn, double oneFrame, double resetValue, double start)
{
    const qint64 step = scaled(oneFrame);
    const qint64 end = scaled(resetValue);
    const qint64 begin = scaled(start);
    if (!resetOn || step == 0)
        return 1;
    if (step > 0 ? begin >= end : begin <= end)
        return 1;
    const qint64 way = difference(end, begin);
    if (step == -1)
        return product(way, step); // the longest way has no negative
    return way % step == 0 ? way / step : way / step + 1;
}

double valueAtCount(qint64 count, double oneFrame, double start)
{
    return double(sum(scaled(start), product(count, scaled(oneFrame)))) / UnitsPerOne;
}

}
