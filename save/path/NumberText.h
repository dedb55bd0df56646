#pragma once

#include <QString>

/// The text that numbers a directory or a file of a save. Any thread.
namespace NumberText {

/// Digits of the three parts of a number. A count below 1 leaves the part out.
struct Digits
{
    int camera = 0;
    int head = 0;
    int session = 0;
};

/// More digits than any path has room for: larger counts are taken as this one.
constexpr int MostDigits = 4096;

/// "C" camera, "H" head and "S" session number, each padded with zeros to its digits and written
/// whole where it is wider: 3, 1, 12 with the digits {2, 0, 4} give "C03S0012". The sign of a
/// number below 0 stands before its zeros and takes one digit.
QString compose(int cameraNo, int headNo, int sessionNo, const Digits &digits);

/// How many digits a count has when it is written: 1 for 0.
int decimalLength(int count);

}
