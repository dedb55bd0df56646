#pragma once

#include <QString>

#include <stdexcept>

/// What an operation of the stand-in host throws when a test asked for it. Its text is the name of
/// the operation and " failed".
class StandInFault : public std::runtime_error
{
public:
    explicit StandInFault(const QString &operation)
        : std::runtime_error((operation + QLatin1String(" failed")).toStdString())
    {
    }
};
