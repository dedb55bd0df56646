#include "standin/journal/CallJournal.h"

#include <QMutexLocker>
#include <QThread>

namespace {

thread_local int ownCalls = 0;

}

CallJournal::CallJournal() = default;

CallJournal::OwnCalls::OwnCalls()
{
    ++ownCalls;
}

CallJournal::OwnCalls::~OwnCalls()
{
    --ownCalls;
}

bool CallJournal::isOwnCall()
{
    return ownCalls > 0;
}

CallAnswer CallJournal::recorded(bool question, const QString &subject, const QString &operation,
                                 const QStringList &arguments)
{
    QString line;
    QVector<Rule> effects;
    std::function<void(DOCKEY)> remover;
    std::function<void(const QString &)> listener;
    {
        QMutexLocker locker(&m_mutex);
        if (operation != QLatin1String(ErrorHandler))
            ++m_count;
        if (m_enabled) {
            const QString prefix = subject.isEmpty() ? subject : subject + QLatin1Char('.');
            line = prefix + operation + QLatin1Char('(') + arguments.join(QLatin1String(", ")) +
                   QLatin1Char(')');
            m_lines.append({line, question});
            dropOldLines(2 * m_limit); // now and then, not with each line
        }
        effects = takeEffects(subject, operation);
        remover = m_remover;
        listener = m_listener;
    }
    if (listener && !line.isEmpty())
        listener(line);

    CallAnswer answer;
    bool fails = false;
    for (const Rule &effect : qAsConst(effects)) {
        switch (effect.effect) {
        case Effect::Fail:
            fails = true;
            break;
        case Effect::Null:
            answer.null = true;
            break;
        case Effect::Empty:
            answer.empty = true;
            break;
        case Effect::Delay:
            QThread::msleep(static_cast<unsigned long>(effect.value));
            break;
        case Effect::RemoveDocument:
            if (remover)
                remover(effect.value);
            break;
        }
    }
    if (fails)
        throw StandInFault(operation);
    return answer;
}

QVector<CallJournal::Rule> CallJournal::takeEffects(const QString &subject,
                                                    const QString &operation)
{
    QVector<Rule> effects;
    const QString full = subject + QLatin1Char('.') + operation;
    for (int i = 0; i < m_rules.size();) {
        Rule &rule = m_rules[i];
        const bool concerned = rule.operation.isEmpty()
                                   ? operation != QLatin1String(ErrorHandler)
                                   : rule.operation == operation || rule.operation == full;
        if (!concerned || (rule.remaining > 0 && --rule.remaining > 0)) {
            ++i;
            continue;
        }
        effects.append(rule);
        if (rule.stays)
            ++i;
        else
            m_rules.removeAt(i);
    }
    if (!effects.isEmpty())
        updateQuiet();
    return effects;
}

QStringList CallJournal::lines() const
{
    QMutexLocker locker(&m_mutex);
    QStringList result;
    for (int i = firstKeptLine(); i < m_lines.size(); ++i)
        result.append(m_lines.at(i).text);
    return result;
}

QStringList CallJournal::commands() const
{
    QMutexLocker locker(&m_mutex);
    QStringList result;
    for (int i = firstKeptLine(); i < m_lines.size(); ++i) {
        if (!m_lines.at(i).question)
            result.append(m_lines.at(i).text);
    }
    return result;
}

void CallJournal::setLimit(int lines)
{
    QMutexLocker locker(&m_mutex);
    m_limit = qMax(0, lines);
    dropOldLines(m_limit);
}

int CallJournal::firstKeptLine() const
{
    return m_limit > 0 ? qMax(0, m_lines.size() - m_limit) : 0;
}

void CallJournal::dropOldLines(int tolerated)
{
    if (m_limit > 0 && m_lines.size() > tolerated)
        m_lines.remove(0, m_lines.size() - m_limit);
}

void CallJournal::clear()
{
    QMutexLocker locker(&m_mutex);
    m_lines.clear();
    m_count = 0;
    m_quietCount = 0;
}

int CallJournal::callCount() const
{
    QMutexLocker locker(&m_mutex);
    return m_count + m_quietCount;
}

void CallJournal::setEnabled(bool on)
{
    QMutexLocker locker(&m_mutex);
    m_enabled = on;
    updateQuiet();
}

bool CallJournal::isEnabled() const
{
    return m_enabled;
}

void CallJournal::failOn(const QString &operation, int nth)
{
    addRule(operation, Effect::Fail, nth, nth == 0, 0);
}

void CallJournal::failAtCall(int nth)
{
    addRule(QString(), Effect::Fail, nth, false, 0);
}

void CallJournal::failFromCall(int nth)
{
    addRule(QString(), Effect::Fail, nth, true, 0);
}

void CallJournal::answerNullOn(const QString &operation, int nth)
{
    addRule(operation, Effect::Null, nth, nth == 0, 0);
}

void CallJournal::answerEmptyOn(const QString &operation, int nth)
{
    addRule(operation, Effect::Empty, nth, nth == 0, 0);
}

void CallJournal::delayOn(const QString &operation, int msec)
{
    addRule(operation, Effect::Delay, 0, true, quint64(qMax(0, msec)));
}

void CallJournal::removeDocumentOn(const QString &operation, DOCKEY key)
{
    addRule(operation, Effect::RemoveDocument, 1, false, key);
}

void CallJournal::addRule(const QString &operation, Effect effect, int nth, bool stays,
                          quint64 value)
{
    QMutexLocker locker(&m_mutex);
    m_rules.append({operation, effect, nth, stays, value});
    updateQuiet();
}

void CallJournal::clearFaults()
{
    QMutexLocker locker(&m_mutex);
    m_rules.clear();
    updateQuiet();
}

void CallJournal::setDocumentRemover(const std::function<void(DOCKEY)> &remover)
{
    QMutexLocker locker(&m_mutex);
    m_remover = remover;
}

void CallJournal::setListener(const std::function<void(const QString &)> &listener)
{
    QMutexLocker locker(&m_mutex);
    m_listener = listener;
}

void CallJournal::updateQuiet()
{
    m_quiet = !m_enabled && m_rules.isEmpty();
}
