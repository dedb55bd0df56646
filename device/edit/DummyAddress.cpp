#include "device/edit/DummyAddress.h"

namespace DummyAddress {

QString numbered(int number)
{
    return QLatin1String("999.999.999.") + QString::number(number);
}

QString firstFree(const QSet<QString> &taken)
{
    for (int number = 1; number <= Count; ++number) {
        const QString address = numbered(number);
        if (!taken.contains(address))
            return address;
    }
    return numbered(1);
}

}
