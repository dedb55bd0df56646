#pragma once

#include <QString>

/// The arithmetic of the custom scale, in which every frame advances by a fixed amount. It counts
/// in ten-thousandths, 64 bits wide; what is beyond them becomes the nearest number within.
namespace TimeCodeScale {

/// A text as number; 0 for what is no finite number.
double number(const QString &text);

/// A number as the settings show it, in fixed notation with 4 decimals.
QString text(double number);

/// A number without its fraction.
int toInt(double number);

/// A number in ten-thousandths. Only a fraction above a half rounds up, so that what is below zero
/// never rounds away from it.
qint64 scaled(double number);

/// How many frames it takes from `start` to `resetValue`, a frame that is begun counted whole. 1
/// where the scale does not wrap, stands still, or never comes to the reset value.
qint64 frameCount(bool resetOn, double oneFrame, double resetValue, double start);

/// The value of the scale `count` frames behind `start`.
double valueAtCount(qint64 count, double oneFrame, double start);

}
