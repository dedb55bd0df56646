#include "save/path/NumberText.h"

#include <algorithm>

namespace NumberText {

namespace {

void append(QString &text, char letter, int number, int digits)
{
    if (digits < 1)
        return;
    const QString written = QString::number(qAbs(qint64(number)));
    const int sign = number < 0 ? 1 : 0;
    text += QLatin1Char(letter);
    if (sign > 0)
        text += QLatin1Char('-');
    for (int i = written.size() + sign; i < std::min(digits, MostDigits); ++i)
        text += QLatin1Char('0');
    text += written;
}

}

QString compose(int cameraNo, int headNo, int sessionNo, const Digits &digits)
{
    QString text;
    append(text, 'C', cameraNo, digits.camera);
    append(text, 'H', headNo, digits.head);
    append(text, 'S', sessionNo, digits.session);
    return text;
}

int decimalLength(int count)
{
    return QString::number(count).size();
}

}
