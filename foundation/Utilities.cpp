#include "foundation/Utilities.h"

#include "foundation/Keys.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QEasingCurve>
#include <QPropertyAnimation>
#include <QStorageInfo>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace {

constexpr double Kilo = 1024.0;
constexpr double Mega = Kilo * 1024.0;
constexpr double Giga = Mega * 1024.0;
constexpr double Tera = Giga * 1024.0;

constexpr uint SkipValueDigits = 5;
constexpr double SkipDistanceScale = 1e4;

constexpr uint LastBcdDate = 0xffffff;
constexpr int FadeInMsec = 500;

double powerOfDigits(uint digits)
{
    return std::pow(10.0, double(std::max(digits, 1u)) - 1.0);
}

uint byteOf(uint packed, int index)
{
    return (packed >> (8 * index)) & 0xff;
}

QString hexText(uint value, int width)
{
    return QString::number(value, 16).rightJustified(width, QLatin1Char('0'));
}

// What a file name must not hold; a path may hold the first three.
constexpr char Forbidden[] = "\\/:*?|\t\n\"<>%";
constexpr const char *ForbiddenInPaths = Forbidden + 3;

/// Letters below 128, a bit each.
class LetterSet
{
public:
    constexpr explicit LetterSet(const char *letters)
    {
        for (; *letters != 0; ++letters)
            m_bits[*letters / 64] |= quint64(1) << (*letters % 64);
    }

    constexpr bool holds(QChar letter) const
    {
        const ushort unit = letter.unicode();
        return unit < 128 && ((m_bits[unit / 64] >> (unit % 64)) & 1) != 0;
    }

private:
    quint64 m_bits[2] = {};
};

bool holdsNone(const QString &text, const LetterSet &forbidden)
{
    return std::none_of(text.cbegin(), text.cend(),
                        [&](QChar letter) { return forbidden.holds(letter); });
}

bool isDigit(QChar letter)
{
    return letter >= QLatin1Char('0') && letter <= QLatin1Char('9');
}

bool isNumber(const QString &text)
{
    return !text.isEmpty() && std::all_of(text.cbegin(), text.cend(), isDigit);
}

QString withoutLeadingZeros(const QString &number)
{
    int zeros = 0;
    while (zeros < number.size() - 1 && number.at(zeros) == QLatin1Char('0'))
        ++zeros;
    return number.mid(zeros);
}

// Three groups of four hexadecimal digits: a hardware address in its dotted form.
bool isDottedHardwareAddress(const QStringList &parts)
{
    return parts.size() == 3 && std::all_of(parts.cbegin(), parts.cend(), [](const QString &part) {
               bool ok = false;
               part.toUInt(&ok, 16);
               return ok && part.size() == 4;
           });
}

void setCursor(Qt::CursorShape shape, bool replace)
{
    if (replace)
        QApplication::restoreOverrideCursor();
    QApplication::setOverrideCursor(QCursor(shape));
}

}

namespace UTL {

uint gcd(uint a, uint b)
{
    return std::gcd(a, b);
}

double roundHalf(double x, uint digits)
{
    const double power = powerOfDigits(digits);
    const double scaled = power * x;
    // Beyond the range of a double there are no decimals left to round.
    return std::isfinite(power) && std::isfinite(scaled) ? std::round(scaled) / power : x;
}

double roundDigits(double x, uint digits)
{
    const double power = powerOfDigits(digits);
    const double whole = std::floor(x);
    if (!std::isfinite(power) || !std::isfinite(whole))
        return x;
    return whole + std::round((x - whole) * power) / power;
}

double framesToMsec(uint frames, uint rate)
{
    if (rate == 0)
        return 1.0;
    return double(frames * 1000u) / rate;
}

uint msecToFrames(double msec, uint rate)
{
    if (rate == 0)
        return 1;
    const double frames = std::round(msec / 1000.0 * rate);
    if (!(frames > 0.0))
        return 0;
    constexpr uint most = std::numeric_limits<uint>::max();
    return frames >= double(most) ? most : uint(frames);
}

double nearestSkipValue(double value, const QList<double> &values, SkipTie tie)
{
    if (values.isEmpty())
        return value;
    const auto distanceTo = [value](double entry) {
        return std::round(std::abs(entry - value) * SkipDistanceScale);
    };
    double nearest = values.first();
    double smallest = distanceTo(nearest);
    for (int i = 1; i < values.size(); ++i) {
        const double distance = distanceTo(values.at(i));
        if (distance < smallest || (tie == SkipTie::Last && distance == smallest)) {
            nearest = values.at(i);
            smallest = distance;
        }
    }
    return roundDigits(nearest, SkipValueDigits);
}

QString formatCapacity(quint64 bytes)
{
    double value = double(bytes);
    QLatin1String unit("KB");
    if (value >= Tera) {
        value /= Tera;
        unit = QLatin1String("TB");
    } else if (value >= Giga) {
        value /= Giga;
        unit = QLatin1String("GB");
    } else if (value >= Mega) {
        value /= Mega;
        unit = QLatin1String("MB");
    } else {
        value *= 0.0009765625;
    }
    return QString::number(roundHalf(value, 3), 'f', 2) + unit;
}

QString formatBcdDate(uint packed)
{
    if (packed == 0)
        return QString();
    if (packed > LastBcdDate)
        return QString::number(packed & 0xffff).rightJustified(3, QLatin1Char('0'));
    // The century's "2" stands in front of a year of three digits.
    return QLatin1Char('2') + hexText(byteOf(packed, 2), 3) + QLatin1Char('/') +
           hexText(byteOf(packed, 1), 0) + QLatin1Char('/') + hexText(byteOf(packed, 0), 0);
}

QString formatBcdTime(uint date, int packed)
{
    if (date == 0 && packed == 0)
        return QString();
    const uint bits = uint(packed);
    return hexText(byteOf(bits, 2), 2) + QLatin1Char(':') + hexText(byteOf(bits, 1), 2) +
           QLatin1Char(':') + hexText(byteOf(bits, 0), 2);
}

QDateTime parseDateTime(const QString &date, const QString &time)
{
    const bool withSeconds = time.size() != Keys::timeFormats.minutes.size();
    const QString &timeFormat = withSeconds ? Keys::timeFormats.seconds : Keys::timeFormats.minutes;
    return QDateTime::fromString(date + QLatin1Char(' ') + time,
                                 Keys::timeFormats.date + QLatin1Char(' ') + timeFormat);
}

uint ipToNumber(const QString &text)
{
    uint number = 0;
    const QStringList parts = text.split(QLatin1Char('.'));
    for (const QString &part : parts)
        number = (number << 8) + part.toUInt();
    return number;
}

QString formatIpAddress(const QString &text)
{
    QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() == 1 || isDottedHardwareAddress(parts))
        return text;
    for (QString &part : parts) {
        if (isNumber(part))
            part = withoutLeadingZeros(part);
    }
    return parts.join(QLatin1Char('.'));
}

QString forbiddenInFileName()
{
    return QLatin1String(Forbidden);
}

QString forbiddenInFilePath()
{
    return QLatin1String(ForbiddenInPaths);
}

bool isValidFileName(const QString &name)
{
    constexpr LetterSet letters(Forbidden);
    return holdsNone(name, letters);
}

bool isValidFilePath(const QString &path)
{
    constexpr LetterSet letters(ForbiddenInPaths);
    return holdsNone(path, letters);
}

bool isValidIpAddress(const QString &text)
{
    int at = 0;
    for (int part = 0; part < 4; ++part) {
        if (part > 0) {
            if (at >= text.size() || text.at(at) != QLatin1Char('.'))
                return false;
            ++at;
        }
        const int begin = at;
        while (at < text.size() && at < begin + 3 && isDigit(text.at(at)))
            ++at;
        if (at == begin)
            return false;
    }
    return true;
}

qint64 availableBytes(const QString &path)
{
    const int slash = path.indexOf(QLatin1Char('/'));
    const QString root = slash < 0 ? path : path.left(slash + 1);
    return std::max(QStorageInfo(QDir(root)).bytesFree(), qint64(0));
}

void clampToOne(int &first, int &second)
{
    first = std::max(first, 1);
    second = std::max(second, 1);
}

void setSizeAllCursor(bool replace)
{
    setCursor(Qt::SizeAllCursor, replace);
}

void setSizeBDiagCursor(bool replace)
{
    setCursor(Qt::SizeBDiagCursor, replace);
}

void setSizeFDiagCursor(bool replace)
{
    setCursor(Qt::SizeFDiagCursor, replace);
}

void setSizeHorCursor(bool replace)
{
    setCursor(Qt::SizeHorCursor, replace);
}

void setSizeVerCursor(bool replace)
{
    setCursor(Qt::SizeVerCursor, replace);
}

void restoreCursor()
{
    QApplication::restoreOverrideCursor();
}

QPropertyAnimation *fadeInAnimation(QWidget *widget)
{
    auto *animation = new QPropertyAnimation(widget, "windowOpacity", widget);
    animation->setDuration(FadeInMsec);
    animation->setEasingCurve(QEasingCurve::InExpo);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    return animation;
}

}
