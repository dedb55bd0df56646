#pragma once

#include "foundation/exceptions/DOC_FileException.h"

/// A file that could not be read: "File read failed." with the error code 1. Any thread.
class DOC_ReadFileException : public DOC_FileException
{
public:
    explicit DOC_ReadFileException(const QString &path);
    ~DOC_ReadFileException() override;

    DOC_ReadFileException(const DOC_ReadFileException &) = default;
    DOC_ReadFileException &operator=(const DOC_ReadFileException &) = default;
};
