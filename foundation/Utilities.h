#pragma once

#include "contract/HostTypes.h"

#include <QDateTime>
#include <QList>
#include <QString>

class HostServices;
class QPropertyAnimation;
class QWidget;

/// Computations on the numbers and texts of camera data. All but sortDocuments(), the cursors and
/// fadeInAnimation() are free of state and callable from any thread. Arguments out of range give a
/// result, never a failure: what does not fit its type comes back as the nearest value that does.
namespace UTL {

/// Greatest common divisor. `b` is not to be 0; then the result is `a`.
uint gcd(uint a, uint b);

/// `x` rounded to `digits` minus one decimals, halves away from zero. 0 digits count as 1.
double roundHalf(double x, uint digits);

/// `x` rounded to `digits` minus one decimals, halves upwards: 5 keeps four. 0 digits count as 1.
double roundDigits(double x, uint digits);

/// Duration of `frames` at `rate` frames per second in milliseconds, 1.0 at rate 0. The
/// thousandfold of `frames` is a 32-bit number that wraps.
double framesToMsec(uint frames, uint rate);

/// Frames that `rate` frames per second make in `msec` milliseconds, halves upwards; 1 at rate 0.
uint msecToFrames(double msec, uint rate);

/// Which of two skip values that are equally near is taken.
enum class SkipTie { First, Last };

/// The entry of `values` nearest to `value`, rounded to four decimals; distances that agree in four
/// decimals are a tie. `value` itself when there are no entries.
double nearestSkipValue(double value, const QList<double> &values, SkipTie tie = SkipTie::Last);

/// Size text: "1.50GB", with two decimals in TB, GB, MB or KB; there is no smaller unit.
QString formatCapacity(quint64 bytes);

/// Date text of a camera's packed date: "2017/6/5" for 0x170605. Above 0xffffff the value holds the
/// day of the year, shown as three digits. 0 is empty.
QString formatBcdDate(uint packed);

/// Time text of a camera's packed time: "12:34:56" for 0x123456. Empty when date and time are 0.
QString formatBcdTime(uint date, int packed);

/// Local time of a "yyyy/M/d" date and a "HH:mm" or "HH:mm:ss" time; null when they are no such
/// texts.
QDateTime parseDateTime(const QString &date, const QString &time);

/// Number of a dotted address, eight bits a part; a part that is no number counts 0.
uint ipToNumber(const QString &text);

/// The address with the leading zeros of each part taken off: "192.168.0.10" for
/// "192.168.000.010". Parts that are no numbers stay, and so does a hardware address.
QString formatIpAddress(const QString &text);

/// Characters that a file name or camera name must not hold.
QString forbiddenInFileName();

/// Characters that a path must not hold: those of a name but slash, back slash and colon.
QString forbiddenInFilePath();

/// Whether `name` holds no forbidden character.
bool isValidFileName(const QString &name);

/// Whether `path` holds no forbidden character.
bool isValidFilePath(const QString &path);

/// Whether `text` begins with four dotted numbers of one to three digits. What follows them does
/// not matter, nor does their size.
bool isValidIpAddress(const QString &text);

/// Free bytes of the volume that `path` begins with, "/" or "D:/"; 0 when there is no such volume.
/// A path without a slash is taken whole.
qint64 availableBytes(const QString &path);

/// Raises each value below 1 to 1.
void clampToOne(int &first, int &second);

/// Override cursors of the application, for dragging. `replace`: the override set before is
/// restored first. GUI thread.
void setSizeAllCursor(bool replace);
void setSizeBDiagCursor(bool replace);
void setSizeFDiagCursor(bool replace);
void setSizeHorCursor(bool replace);
void setSizeVerCursor(bool replace);

/// Restores one level of override cursor; does nothing without one. GUI thread.
void restoreCursor();

/// Animation that fades a window in within half a second. It belongs to `widget`; the caller starts
/// it with QAbstractAnimation::DeleteWhenStopped. GUI thread.
QPropertyAnimation *fadeInAnimation(QWidget *widget);

/// `keys` in the order of `mode`: 1 by document name ascending, 2 descending, 3 by record time
/// oldest first, 4 newest first, 5 the host's own order, any other as given.
///
/// Names are compared by the rules of the default locale, with numbers in them as numbers. A
/// document that stands for a group counts as its first member. The sort is stable; a document that
/// has gone, or without a record time, compares equal to every other. In mode 5 `keepOrder` leaves
/// the list as given, and keys without a document follow at the end. Throws what the host throws.
/// GUI thread.
QList<DOCKEY> sortDocuments(HostServices *host, int mode, const QList<DOCKEY> &keys,
                            bool keepOrder);

}
