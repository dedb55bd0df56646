#include "foundation/exceptions/APP_Exception.h"

#include "foundation/LogGroups.h"
#include "foundation/LogLines.h"

APP_Exception::APP_Exception(const QString &message, uint errorCode)
    : std::runtime_error(message.toStdString()), m_errorCode(errorCode)
{
    LogLines::critical() << QLatin1String("APP_Exception:") +
                                LogGroups::group(QLatin1String("message"), message) +
                                LogGroups::group(QLatin1String("errorCode"), errorCode);
}

APP_Exception::~APP_Exception() = default;
