#include "standin/settings/IniText.h"

#include <QDataStream>
#include <QSize>
#include <QStringList>

namespace IniText {

namespace {

QString hex(uint value)
{
    return QString::number(value, 16);
}

bool isHexDigit(QChar letter)
{
    return QStringLiteral("0123456789abcdefABCDEF").contains(letter);
}

QString quoted(const QString &text)
{
    QString result(QLatin1Char('"'));
    bool afterCode = false; // a digit would be read as part of it
    for (const QChar letter : text) {
        const bool isCode = letter.unicode() < 0x20 || letter.unicode() == 0x7f ||
                            (afterCode && isHexDigit(letter));
        if (isCode)
            result += QLatin1String("\\x") + hex(letter.unicode());
        else if (letter == QLatin1Char('"') || letter == QLatin1Char('\\'))
            result += QLatin1Char('\\') + QString(letter);
        else
            result += letter;
        afterCode = isCode;
    }
    return result + QLatin1Char('"');
}

// With what stands behind a NUL, too.
QString latin1(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.constData(), bytes.size());
}

// A leading "@" marks a type.
QString textValue(const QString &text)
{
    return quoted(text.startsWith(QLatin1Char('@')) ? QLatin1Char('@') + text : text);
}

QString typedValue(const char *type, const QString &value)
{
    return quoted(QLatin1Char('@') + QLatin1String(type) + QLatin1Char('(') + value +
                  QLatin1Char(')'));
}

QString valueText(const QVariant &value)
{
    switch (int(value.type())) {
    case QMetaType::UnknownType:
        return QStringLiteral("@Invalid()");
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return value.toString();
    case QMetaType::QString:
        return textValue(value.toString());
    case QMetaType::QStringList: {
        QStringList entries;
        for (const QString &entry : value.toStringList())
            entries.append(textValue(entry));
        return entries.isEmpty() ? QStringLiteral("@Invalid()") : entries.join(QLatin1String(", "));
    }
    case QMetaType::QByteArray:
        return typedValue("ByteArray", latin1(value.toByteArray()));
    case QMetaType::QSize:
        return typedValue(
            "Size",
            QStringLiteral("%1 %2").arg(value.toSize().width()).arg(value.toSize().height()));
    default: {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setVersion(QDataStream::Qt_4_0);
        stream << value;
        return typedValue("Variant", latin1(bytes));
    }
    }
}

QString keyText(const QString &key)
{
    QString result;
    for (const QChar letter : key) {
        const ushort code = letter.unicode();
        if (letter == QLatin1Char('/'))
            result += QLatin1Char('\\');
        else if ((code < 0x80 && letter.isLetterOrNumber()) || letter == QLatin1Char('_') ||
                 letter == QLatin1Char('-') || letter == QLatin1Char('.'))
            result += letter;
        else if (code <= 0xff)
            result += QLatin1Char('%') + hex(code).rightJustified(2, QLatin1Char('0'));
        else
            result += QLatin1String("%U") + hex(code).rightJustified(4, QLatin1Char('0'));
    }
    return result;
}

QString sectionText(const QString &group)
{
    if (group.isEmpty())
        return QStringLiteral("General");
    const bool isOwnName = group.compare(QLatin1String("general"), Qt::CaseInsensitive) == 0;
    return isOwnName ? QLatin1Char('%') + group : keyText(group);
}

}

QByteArray text(const QMap<QString, QVariant> &settings)
{
    QMap<QString, QString> sections;
    for (auto entry = settings.cbegin(); entry != settings.cend(); ++entry) {
        const int slash = entry.key().indexOf(QLatin1Char('/'));
        sections[sectionText(entry.key().left(qMax(0, slash)))] +=
            keyText(entry.key().mid(slash + 1)) + QLatin1Char('=') + valueText(entry.value()) +
            QLatin1Char('\n');
    }
    QString result;
    for (auto section = sections.cbegin(); section != sections.cend(); ++section)
        result += QLatin1Char('[') + section.key() + QLatin1String("]\n") + *section;
    return result.toUtf8();
}

}
