#pragma once

#include "contract/HostTypes.h"

#include <QJsonArray>
#include <QString>

class QJsonObject;

/// The rows of a page that lists documents, numbered from 1 in the order in which they come, and
/// the row that is selected at the start.
class DocumentRows
{
public:
    /// A row of this name.
    void add(const QString &name, bool isInitial);

    /// A row that tells its document's key, as decimal text.
    void add(const QString &name, bool isInitial, DOCKEY key);

    /// {"Records":[{"recid":1,"name":"..."}],"InitSelect":1}, with "dockey" in rows that tell one.
    /// "InitSelect" is the number of the last row that was added as the initial one, 0 without.
    QString text() const;

private:
    void append(QJsonObject row, const QString &name, bool isInitial);

    QJsonArray m_rows;
    int m_initial = 0;
};
