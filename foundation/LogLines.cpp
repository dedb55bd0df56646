#include "foundation/LogLines.h"

namespace LogLines {

QDebug info()
{
    return QMessageLogger(nullptr, 0, nullptr).info();
}

QDebug warning()
{
    return QMessageLogger(nullptr, 0, nullptr).warning();
}

QDebug critical()
{
    return QMessageLogger(nullptr, 0, nullptr).critical();
}

}
