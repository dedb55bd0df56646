#pragma once

#include "foundation/exceptions/DOC_Exception.h"

/// A failure with a file. The path stands in a second log line and nowhere else. Any thread.
class DOC_FileException : public DOC_Exception
{
public:
    DOC_FileException(const QString &message, const QString &path, uint errorCode);
    ~DOC_FileException() override;

    DOC_FileException(const DOC_FileException &) = default;
    DOC_FileException &operator=(const DOC_FileException &) = default;
};
