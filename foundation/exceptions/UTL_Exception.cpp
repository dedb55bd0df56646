#include "foundation/exceptions/UTL_Exception.h"

UTL_Exception::UTL_Exception(const QString &message, uint errorCode)
    : APP_Exception(message, errorCode)
{
}

UTL_Exception::~UTL_Exception() = default;
