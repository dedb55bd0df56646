#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class StandInEvents;

/// What was shown to the user, and the failures that were told.
class MessageLog
{
public:
    /// A message that was shown to the user.
    struct Message
    {
        QString kind; ///< "info", "warn", "alert" or "confirm"
        QString text;
        QStringList items;

        /// Text and items, each on a line of its own.
        QString wholeText() const;
    };

    /// The events tell of each entry.
    explicit MessageLog(StandInEvents &events);

    void add(const Message &message);
    QList<Message> messages() const { return m_messages; }
    void clearMessages() { m_messages.clear(); }

    void addError(const QString &text);
    QStringList errors() const { return m_errors; } ///< in the order of arrival
    void clearErrors() { m_errors.clear(); }

    /// What a question is answered without asking the user; no at the start.
    void answerConfirm(bool yes) { m_confirmAnswer = yes; }
    bool confirmAnswer() const { return m_confirmAnswer; }

private:
    StandInEvents &m_events;
    QList<Message> m_messages;
    QStringList m_errors;
    bool m_confirmAnswer = false;
};
