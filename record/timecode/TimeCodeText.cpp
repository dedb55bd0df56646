#include "record/timecode/TimeCodeText.h"

#include "record/timecode/TimeCodeScale.h"

#include <cmath>

namespace {

constexpr qint64 NanosecondsPerSecond = 1000000000;
constexpr double FractionOfOne = 1000000000.0;
constexpr int LeastAmountDigits = 3;
constexpr int FractionDigits = 9;
constexpr int GroupDigits = 3;

QString padded(qint64 number, int digits)
{
    return QString::number(number).rightJustified(digits, QLatin1Char('0'));
}

// One way to write a time.
struct Scope
{
    qint64 divisor; // nanoseconds in its unit
    int multiplier; // makes nine digits of the rest
    const char *unit;
};

constexpr Scope scopes[] = {{NanosecondsPerSecond, 1, ""},    {NanosecondsPerSecond, 1, ""},
                            {NanosecondsPerSecond, 1, "sec"}, {1000000, 1000, "msec"},
                            {1000, 1000000, "usec"},          {1, 1000000000, "nsec"}};
constexpr Scope unknownScope = {1, 1, ""};
constexpr int ScopeCount = int(sizeof scopes / sizeof *scopes);

bool isKnown(int scopeDisplayIndex)
{
    return scopeDisplayIndex >= 0 && scopeDisplayIndex < ScopeCount;
}

QString wholeText(int scopeDisplayIndex, qint64 whole)
{
    const QLatin1Char colon(':');
    const QString seconds = padded(whole % 60, 2);
    switch (scopeDisplayIndex) {
    case 0:
        return padded(whole / 3600, 2) + colon + padded(whole / 60 % 60, 2) + colon + seconds;
    case 1:
        return padded(whole / 60, 2) + colon + seconds;
    default:
        return isKnown(scopeDisplayIndex) ? padded(whole, LeastAmountDigits) : QString();
    }
}

QString fractionText(int fraction, const TimeCodeText::TimeFormat &format)
{
    QString digits = padded(fraction, FractionDigits);
    if (format.decimalPlaceIndex > 0)
        digits = digits.left(format.decimalPlaceIndex);
    if (format.decimalDivide) {
        for (int i = digits.size() - 1; i > 0; --i) {
            if (i % GroupDigits == 0)
                digits.insert(i, QLatin1Char(' '));
        }
    }
    QString text = QLatin1Char('.') + digits;
    if (format.decimalPlaceIndex == 0) {
        while (!text.isEmpty() && QLatin1String("0 .").contains(text.back()))
            text.chop(1);
    }
    return text;
}

}

namespace TimeCodeText {

QString timeText(qint64 nanoseconds, const TimeFormat &format)
{
    const int index = format.scopeDisplayIndex;
    const Scope &scope = isKnown(index) ? scopes[index] : unknownScope;
    const int fraction = int(nanoseconds % scope.divisor) * scope.multiplier;
    return wholeText(index, nanoseconds / scope.divisor) + fractionText(fraction, format) +
           QLatin1Char(' ') + QLatin1String(scope.unit);
}

QString amountText(double amount, const QString &unit)
{
    double size = std::abs(amount);
    double whole = 0.0;
    // Step by step: one multiplication by 10,000 would round elsewhere.
    const double units = std::modf(size, &whole) * 10 * 10 * 10 * 10;
    if (std::modf(units, &whole) > 0.5)
        size += 0.0001;
    const double fraction = std::modf(size, &whole) * FractionOfOne;
    return padded(TimeCodeScale::toInt(whole), LeastAmountDigits) + QLatin1Char('.') +
           padded(TimeCodeScale::toInt(fraction) / 100000, 4) + QLatin1Char(' ') + unit;
}

}
