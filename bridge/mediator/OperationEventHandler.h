#pragma once

#include <QPointer>
#include <QString>

class JS_Mediator;

/// Trace of a scope that changed something: when it goes, the host refreshes the user interface
/// with the mediator's update flags, then "[LEAVE]" is written. A refresh that fails goes to the
/// host's errorHandler(), and nothing escapes. GUI thread.
class OperationEventHandler
{
public:
    /// Without a mediator, or when it has gone in between, nothing is refreshed.
    OperationEventHandler(JS_Mediator *mediator, const QString &name,
                          const QString &arguments = QString());
    ~OperationEventHandler();

    OperationEventHandler(const OperationEventHandler &) = delete;
    OperationEventHandler &operator=(const OperationEventHandler &) = delete;

private:
    QPointer<JS_Mediator> m_mediator;
    QString m_name;
    QString m_arguments;
};
