#include "standin/journal/MessageLog.h"

#include "standin/journal/StandInEvents.h"

QString MessageLog::Message::wholeText() const
{
    return (QStringList(text) + items).join(QLatin1Char('\n'));
}

MessageLog::MessageLog(StandInEvents &events) : m_events(events) {}

void MessageLog::add(const Message &message)
{
    m_messages.append(message);
    emit m_events.messageShown(message.kind, message.wholeText());
}

void MessageLog::addError(const QString &text)
{
    m_errors.append(text);
    emit m_events.errorHandled(text);
}
