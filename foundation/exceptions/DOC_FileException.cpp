#include "foundation/exceptions/DOC_FileException.h"

#include "foundation/LogGroups.h"
#include "foundation/LogLines.h"

DOC_FileException::DOC_FileException(const QString &message, const QString &path, uint errorCode)
    : DOC_Exception(message, errorCode)
{
    LogLines::critical() << QLatin1String("DOC_FileException:") +
                                LogGroups::group(QLatin1String("message"), message) +
                                LogGroups::group(QLatin1String("path"), path) +
                                LogGroups::group(QLatin1String("errorCode"), errorCode);
}

DOC_FileException::~DOC_FileException() = default;
