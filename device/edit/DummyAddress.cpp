#include "device/edit/DummyAddress.h"

namespace DummyAddress {

namespace {

const QLatin1String Network("999.999.999.");

// 0 for what is none: a sign, a blank or a leading zero make another address.
int numberOf(const QString &address)
{
    if (!address.startsWith(Network))
        return 0;
    int number = 0;
    for (int i = Network.size(); i < address.size(); ++i) {
        const ushort letter = address.at(i).unicode();
        if (letter < '0' || letter > '9' || (number == 0 && letter == '0'))
            return 0;
        number = 10 * number + (letter - '0');
        if (number > Count)
            return 0;
    }
    return number;
}

}

QString numbered(int number)
{
    return Network + QString::number(number);
}

void Taken::add(const QString &address)
{
    m_numbers.set(std::size_t(numberOf(address)));
}

QString Taken::firstFree() const
{
    for (int number = 1; number <= Count; ++number) {
        if (!m_numbers.test(std::size_t(number)))
            return numbered(number);
    }
    return numbered(1);
}

}
