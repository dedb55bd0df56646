#pragma once

#include <QDateTime>
#include <QString>

/// Date and time in names of files. Any thread.
namespace DateTexts {

/// The time in a format of QDateTime, with the names of months and days of the C locale whatever
/// the user's; empty for a time that is none.
QString formatDateTime(const QDateTime &time, const QString &format);

/// The present time in the same way.
QString currentDateTimeText(const QString &format);

}
