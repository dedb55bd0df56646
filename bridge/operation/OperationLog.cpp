#include "bridge/operation/OperationLog.h"

#include "bridge/mediator/JS_Mediator.h"
#include "contract/HostGuard.h"
#include "foundation/LogGroups.h"
#include "foundation/LogLines.h"

namespace {

void logEnter(const QString &name, const QString &arguments)
{
    LogLines::info() << "[ENTER]" << name << arguments;
}

void logLeave(const QString &name)
{
    LogLines::info() << "[LEAVE]" << name;
}

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
    logEnter(m_name, m_arguments);
}

OperationLogScope::~OperationLogScope()
{
    logLeave(m_name);
}

OperationEventHandler::OperationEventHandler(JS_Mediator *mediator, const QString &name,
                                             const QString &arguments)
    : m_mediator(mediator), m_name(name), m_arguments(arguments.trimmed())
{
    logEnter(m_name, m_arguments);
}

OperationEventHandler::~OperationEventHandler()
{
    if (m_mediator) {
        HostServices *host = m_mediator->host();
        guarded(host, [&] { host->updateUI(uint(m_mediator->updateFlags()), true); });
    }
    logLeave(m_name);
}

namespace OperationLog {

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
