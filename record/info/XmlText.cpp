#include "record/info/XmlText.h"

namespace {

// Whether a unit that is no half of a pair is a character of XML 1.0.
bool isCharacter(QChar unit)
{
    if (unit < QLatin1Char(' '))
        return unit == QLatin1Char('\t') || unit == QLatin1Char('\n') || unit == QLatin1Char('\r');
    return unit.unicode() < 0xFFFE;
}

}

QString XmlText::storable(const QString &text)
{
    QString result = text;
    const int length = text.size();
    for (int i = 0; i < length; ++i) {
        const QChar unit = text.at(i);
        if (unit.isHighSurrogate() && i + 1 < length && text.at(i + 1).isLowSurrogate())
            ++i; // a whole pair
        else if (unit.isSurrogate() || !isCharacter(unit))
            result[i] = QChar(QChar::ReplacementCharacter);
    }
    return result;
}
