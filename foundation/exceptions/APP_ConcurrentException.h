#pragma once

#include "foundation/exceptions/APP_Exception.h"

#include <QException>

/// Carries an APP_Exception out of a task on the thread pool: a future can hold a QException only.
///
/// Holds a copy, which is an APP_Exception whatever was thrown; nothing is logged. Any thread.
class APP_ConcurrentException : public QException
{
public:
    explicit APP_ConcurrentException(const APP_Exception &inner);
    ~APP_ConcurrentException() override;

    APP_ConcurrentException(const APP_ConcurrentException &) = default;
    APP_ConcurrentException &operator=(const APP_ConcurrentException &) = default;

    /// Text of the carried exception.
    const char *what() const noexcept override;
    /// Throws a copy of this object.
    void raise() const override;
    /// A copy, owned by the caller.
    APP_ConcurrentException *clone() const override;

    const APP_Exception &inner() const { return m_inner; }

private:
    APP_Exception m_inner;
};
