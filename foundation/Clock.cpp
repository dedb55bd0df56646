#include "foundation/Clock.h"

#include <QMutex>
#include <QMutexLocker>

namespace {

QBasicMutex mutex;

QDateTime &fixedTime()
{
    static QDateTime time;
    return time;
}

}

namespace Clock {

QDateTime now()
{
    {
        QMutexLocker locker(&mutex);
        if (!fixedTime().isNull())
            return fixedTime();
    }
    return QDateTime::currentDateTime();
}

Fixed::Fixed(const QDateTime &time)
{
    setTime(time);
}

Fixed::~Fixed()
{
    setTime(QDateTime());
}

void Fixed::setTime(const QDateTime &time)
{
    QMutexLocker locker(&mutex);
    fixedTime() = time;
}

}
