#include "foundation/exceptions/APP_ConcurrentException.h"

// The copy is a member and no throw that was forgotten.
APP_ConcurrentException::APP_ConcurrentException(const APP_Exception &inner)
    : m_inner(inner) // NOLINT(bugprone-throw-keyword-missing)
{
}

APP_ConcurrentException::~APP_ConcurrentException() = default;

const char *APP_ConcurrentException::what() const noexcept
{
    return m_inner.what();
}

void APP_ConcurrentException::raise() const
{
    throw *this;
}

APP_ConcurrentException *APP_ConcurrentException::clone() const
{
    return new APP_ConcurrentException(*this);
}
