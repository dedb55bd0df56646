#include "bridge/operation/OperationLog.h"

#include "foundation/LogGroups.h"
#include "foundation/LogLines.h"

namespace {

// Pages send the word where the native side counts with -1.
QString withNumberForNoDocument(QString arguments)
{
    const QLatin1String word("docKey:Invalid");
    if (arguments.contains(word))
        arguments.replace(word, QLatin1String("docKey:-1"));
    return arguments;
}

}

OperationLogScope::OperationLogScope(const QString &name, const QString &arguments)
    : m_name(name), m_arguments(withNumberForNoDocument(arguments.trimmed()))
{
    OperationLog::enter(m_name, m_arguments);
}

OperationLogScope::~OperationLogScope()
{
    OperationLog::leave(m_name);
}

namespace OperationLog {

void enter(const QString &name, const QString &arguments)
{
    LogLines::info() << "[ENTER]" << name << arguments;
}

void leave(const QString &name)
{
    LogLines::info() << "[LEAVE]" << name;
}

void userOperation(const QString &url, const QString &operation, const QString &control,
                   const QString &id, const QString &className, const QVariant &value)
{
    using LogGroups::group;
    using LogGroups::isSecretName;

    const bool byClass = id.isEmpty() && !className.isEmpty();
    const bool secret =
        isSecretName(url) || isSecretName(control) || isSecretName(id) || isSecretName(className);
    const QLatin1String valueLabel("Value");
    const QString text = value.toString();

    QString message = group(QLatin1String("URL"), url);
    if (byClass)
        message += group(QLatin1String("Class"), className);
    else
        message += group(QLatin1String("ID"), id);
    message += group(QLatin1String("Control"), control);
    message += group(QLatin1String("Operation"), operation);
    message +=
        secret && !text.isEmpty() ? LogGroups::secretGroup(valueLabel) : group(valueLabel, text);
    LogLines::info() << "[USER]" << message;
}

void userOperationError(const QString &message)
{
    LogLines::critical() << "[USER][ERROR]" << message;
}

void scriptError(const QString &error)
{
    LogLines::critical() << "[SCRIPT]" << error;
}

void info(const QString &message)
{
    LogLines::info() << message;
}

void error(const QString &message)
{
    LogLines::critical() << message;
}

}
