#pragma once

#include "foundation/exceptions/APP_Exception.h"

/// A failure of a utility or of a computation. It logs as an APP_Exception. Any thread.
class UTL_Exception : public APP_Exception
{
public:
    UTL_Exception(const QString &message, uint errorCode);
    ~UTL_Exception() override;

    UTL_Exception(const UTL_Exception &) = default;
    UTL_Exception &operator=(const UTL_Exception &) = default;
};
