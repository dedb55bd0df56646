#include "foundation/LogGroups.h"

#include "foundation/Json.h"

#include <QJsonArray>
#include <QJsonObject>

namespace LogGroups {

namespace {

// "password", alone or with what forms write directly in front of it.
bool isSecretWord(const QString &word)
{
    static const char *const Fronts[] = {"", "old", "new", "input", "change", "confirm"};
    static const char *const Secrets[] = {"pass",   "password",   "passwords",
                                          "passwd", "passphrase", "passcode"};
    const QString small = word.toLower();
    for (const char *front : Fronts) {
        if (!small.startsWith(QLatin1String(front)))
            continue;
        const QString rest = small.mid(int(qstrlen(front)));
        for (const char *secret : Secrets) {
            if (rest == QLatin1String(secret))
                return true;
        }
    }
    return false;
}

QString textGroup(const QString &label, const QString &text)
{
    return QLatin1Char('[') + label + QLatin1Char(':') + text + QLatin1String("] ");
}

QJsonArray maskedList(const QVariantList &list);
QJsonObject maskedMap(const QVariantMap &map);

// JSON holds numbers up to 2^53 exactly.
QJsonValue maskedValue(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return maskedList(value.toList());
    case QMetaType::QVariantMap:
    case QMetaType::QVariantHash:
        return maskedMap(value.toMap());
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return value.toString();
    default:
        return QJsonValue::fromVariant(value);
    }
}

QJsonArray maskedList(const QVariantList &list)
{
    QJsonArray array;
    for (const QVariant &value : list)
        array.append(maskedValue(value));
    return array;
}

QJsonObject maskedMap(const QVariantMap &map)
{
    QJsonObject object;
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
        object.insert(entry.key(),
                      isSecretName(entry.key()) ? QJsonValue(masked()) : maskedValue(*entry));
    return object;
}

}

QString masked()
{
    return QLatin1String("***");
}

bool isSecretName(const QString &name)
{
    QString word;
    for (int i = 0; i < name.size(); ++i) {
        const QChar letter = name[i];
        const bool cut =
            !letter.isLetter() ||
            (letter.isUpper() && i > 0 &&
             (name[i - 1].isLower() || (i + 1 < name.size() && name[i + 1].isLower())));
        if (cut) {
            if (isSecretWord(word))
                return true;
            word.clear();
        }
        if (letter.isLetter())
            word += letter;
    }
    return isSecretWord(word);
}

QString group(const QString &label, const QString &value)
{
    return textGroup(label, isSecretName(label) && !value.isEmpty() ? masked() : value);
}

QString group(const QString &label, bool value)
{
    return group(label, QString(value ? QLatin1String("true") : QLatin1String("false")));
}

QString group(const QString &label, int value)
{
    return group(label, QString::number(value));
}

QString group(const QString &label, uint value)
{
    return group(label, QString::number(value));
}

QString group(const QString &label, quint64 value)
{
    return group(label, QString::number(value));
}

QString group(const QString &label, double value)
{
    return group(label, QString::number(value));
}

QString group(const QString &label, const QVariant &value)
{
    const int type = value.userType();
    const bool isList = type == QMetaType::QVariantList || type == QMetaType::QStringList;
    const bool isMap = type == QMetaType::QVariantMap || type == QMetaType::QVariantHash;
    if (!isList && !isMap)
        return group(label, value.toString());
    const bool isEmpty = isList ? value.toList().isEmpty() : value.toMap().isEmpty();
    if (isSecretName(label) && !isEmpty)
        return secretGroup(label);
    return textGroup(label, isList ? Json::compactText(maskedList(value.toList()))
                                   : Json::compactText(maskedMap(value.toMap())));
}

QString secretGroup(const QString &label)
{
    return textGroup(label, masked());
}

}
