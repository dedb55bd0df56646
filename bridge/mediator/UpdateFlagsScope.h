#pragma once

#include <QPointer>

class JS_Mediator;

/// Refreshes everything at the end of an operation: the mediator's update flags are 63 while it
/// lives, and what they were before when it goes. GUI thread.
class UpdateFlagsScope
{
public:
    explicit UpdateFlagsScope(JS_Mediator *mediator);
    ~UpdateFlagsScope();

    UpdateFlagsScope(const UpdateFlagsScope &) = delete;
    UpdateFlagsScope &operator=(const UpdateFlagsScope &) = delete;

private:
    QPointer<JS_Mediator> m_mediator;
    int m_savedFlags;
};
