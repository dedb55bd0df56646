#pragma once

#include <QDateTime>

/// The one source of "now".
namespace Clock {

/// The present local time, or the one that a Fixed holds. Any thread.
QDateTime now();

/// Holds the time still while it lives, for tests. One at a time.
class Fixed
{
public:
    explicit Fixed(const QDateTime &time);
    ~Fixed();

    Fixed(const Fixed &) = delete;
    Fixed &operator=(const Fixed &) = delete;

    /// Another time from here on.
    void setTime(const QDateTime &time);
};

}
