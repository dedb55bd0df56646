#include "bridge/data/DocumentRows.h"

#include "foundation/Json.h"

#include <QJsonObject>

void DocumentRows::add(const QString &name, bool isInitial)
{
    append({}, name, isInitial);
}

void DocumentRows::add(const QString &name, bool isInitial, DOCKEY key)
{
    append({{QLatin1String("dockey"), QString::number(key)}}, name, isInitial);
}

QString DocumentRows::text() const
{
    return Json::compactText(
        QJsonObject{{QLatin1String("Records"), m_rows}, {QLatin1String("InitSelect"), m_initial}});
}

void DocumentRows::append(QJsonObject row, const QString &name, bool isInitial)
{
    const int number = m_rows.size() + 1;
    row.insert(QLatin1String("recid"), number);
    row.insert(QLatin1String("name"), name);
    m_rows.append(row);
    if (isInitial)
        m_initial = number;
}
