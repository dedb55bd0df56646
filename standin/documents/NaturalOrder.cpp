#include "standin/documents/NaturalOrder.h"

#include <QStringView>

namespace NaturalOrder {

namespace {

bool isDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

QStringView digitsAt(const QString &text, int start)
{
    int end = start;
    while (end < text.size() && isDigit(text.at(end)))
        ++end;
    return QStringView(text).mid(start, end - start);
}

// Digits may be too many for any number type, so their value is compared as text.
int compareNumbers(QStringView left, QStringView right)
{
    while (left.size() > 1 && left.front() == QLatin1Char('0'))
        left = left.mid(1);
    while (right.size() > 1 && right.front() == QLatin1Char('0'))
        right = right.mid(1);
    if (left.size() != right.size())
        return left.size() < right.size() ? -1 : 1;
    return left.compare(right);
}

}

bool isLess(const QString &left, const QString &right)
{
    int i = 0;
    int k = 0;
    while (i < left.size() && k < right.size()) {
        if (isDigit(left.at(i)) && isDigit(right.at(k))) {
            const QStringView a = digitsAt(left, i);
            const QStringView b = digitsAt(right, k);
            if (const int order = compareNumbers(a, b))
                return order < 0;
            i += int(a.size());
            k += int(b.size());
            continue;
        }
        const QChar a = left.at(i).toCaseFolded();
        const QChar b = right.at(k).toCaseFolded();
        if (a != b)
            return a < b;
        ++i;
        ++k;
    }
    const int leftRest = left.size() - i;
    const int rightRest = right.size() - k;
    if (leftRest != rightRest)
        return leftRest < rightRest;
    return left < right;
}

}
