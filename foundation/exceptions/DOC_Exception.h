#pragma once

#include "foundation/exceptions/APP_Exception.h"

/// A failure of a document or of its device. It logs as an APP_Exception. Any thread.
class DOC_Exception : public APP_Exception
{
public:
    DOC_Exception(const QString &message, uint errorCode);
    ~DOC_Exception() override;

    DOC_Exception(const DOC_Exception &) = default;
    DOC_Exception &operator=(const DOC_Exception &) = default;
};
