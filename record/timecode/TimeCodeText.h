#pragma once

#include <QString>

/// How the running time code is written, without its sign.
namespace TimeCodeText {

/// How a time is written.
struct TimeFormat
{
    int scopeDisplayIndex = 0;  ///< 0 hours:minutes:seconds, 1 minutes:seconds, 2 to 5 one unit
    int decimalPlaceIndex = 0;  ///< digits of the fraction, at most 9; 0: as many as it needs
    bool decimalDivide = false; ///< blanks between groups of three digits, from the left
};

/// A time with its unit; without a unit it ends in a blank. Not below 0. An unknown
/// scopeDisplayIndex shows the fraction 0 alone.
QString timeText(qint64 nanoseconds, const TimeFormat &format);

/// The size of an amount of the custom scale, with 4 decimals and its unit.
QString amountText(double amount, const QString &unit);

}
