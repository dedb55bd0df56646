#include "foundation/LogGroups.h"

namespace LogGroups {

QString masked()
{
    return QLatin1String("***");
}

bool isSecretName(const QString &name)
{
    return name.contains(QLatin1String("pass"), Qt::CaseInsensitive);
}

QString group(const QString &label, const QString &value)
{
    const QString shown = isSecretName(label) && !value.isEmpty() ? masked() : value;
    return QLatin1Char('[') + label + QLatin1Char(':') + shown + QLatin1String("] ");
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

QString secretGroup(const QString &label)
{
    return QLatin1Char('[') + label + QLatin1Char(':') + masked() + QLatin1String("] ");
}

}
