#pragma once

#include <QString>

#include <stdexcept>

/// A failure that the user is told of: root of all exceptions of this system.
///
/// Construction writes its line to the log at critical level; a copy writes none. A copy made
/// through this class of an object of a derived one is an APP_Exception. Any thread.
class APP_Exception : public std::runtime_error
{
public:
    /// `message` becomes what(), in UTF-8. `errorCode` is the host's; 0 where there is none.
    APP_Exception(const QString &message, uint errorCode);
    ~APP_Exception() override;

    APP_Exception(const APP_Exception &) = default;
    APP_Exception &operator=(const APP_Exception &) = default;

    uint errorCode() const { return m_errorCode; }

private:
    uint m_errorCode;
};
