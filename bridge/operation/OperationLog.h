#pragma once

#include <QPointer>
#include <QString>
#include <QVariant>

class JS_Mediator;

/// Trace of a scope that leaves the user interface as it is: "[ENTER]" with name and arguments when
/// it is made, "[LEAVE]" with the name when it goes. Lives on the stack. GUI thread.
class OperationLogScope
{
public:
    /// `name` is "Class::method". `arguments` are groups of LogGroups, joined directly; the word
    /// that pages send for no document, "docKey:Invalid", shows as "docKey:-1".
    explicit OperationLogScope(const QString &name, const QString &arguments = QString());
    ~OperationLogScope();

    OperationLogScope(const OperationLogScope &) = delete;
    OperationLogScope &operator=(const OperationLogScope &) = delete;

private:
    QString m_name;
    QString m_arguments;
};

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

/// Lines that pages and native dialogs write: what the user did, and plain messages.
namespace OperationLog {

/// "[USER]" and the groups of one action, at info level. The control is named by `id`, or by
/// `className` when there is no id. `value` shows as its text, empty when it has none, and masked
/// when page, control, id or class tell that it is a password.
void userOperation(const QString &url, const QString &operation, const QString &control,
                   const QString &id, const QString &className, const QVariant &value);

/// "[USER][ERROR]" and the message, at critical level.
void userOperationError(const QString &message);

/// "[SCRIPT]" and what a page's script threw, at critical level.
void scriptError(const QString &error);

/// The message alone, at info level.
void info(const QString &message);

/// The message alone, at critical level.
void error(const QString &message);

}
