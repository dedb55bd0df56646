#pragma once

#include <QString>
#include <QVariant>

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

/// The lines of the log: what scopes enter and leave, what the user did, and plain messages of
/// pages and native dialogs.
namespace OperationLog {

/// "[ENTER]" with the name of a scope and its arguments as they are, at info level.
void enter(const QString &name, const QString &arguments);

/// "[LEAVE]" with the name of a scope, at info level.
void leave(const QString &name);

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
