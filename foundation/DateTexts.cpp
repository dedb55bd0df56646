#include "foundation/DateTexts.h"

#include "foundation/Clock.h"

#include <QLocale>

namespace DateTexts {

QString formatDateTime(const QDateTime &time, const QString &format)
{
    return QLocale::c().toString(time, format);
}

QString currentDateTimeText(const QString &format)
{
    return formatDateTime(Clock::now(), format);
}

}
