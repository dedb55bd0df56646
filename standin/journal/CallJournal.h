#pragma once

#include "standin/journal/JournalText.h"
#include "standin/journal/StandInFault.h"

#include <QHash>
#include <QMutex>
#include <QStringList>
#include <QVector>

#include <atomic>
#include <cstring>
#include <functional>

/// What a call shall answer in place of its own result.
struct CallAnswer
{
    bool null = false;  ///< a null pointer
    bool empty = false; ///< an empty list
};

/// Every call that the stand-in host and its documents get, as one line of text in call order, and
/// the faults that a test asked for. Thread-safe; a call is delayed and fails on its own thread.
///
/// "Failing" is throwing StandInFault, behind the line in the journal. The call errorHandler counts
/// for no fault but one that names it.
class CallJournal
{
public:
    CallJournal();

    CallJournal(const CallJournal &) = delete;
    CallJournal &operator=(const CallJournal &) = delete;

    /// A call that asks for something and changes nothing.
    template <class... Arguments>
    CallAnswer question(const QString &subject, const char *operation,
                        const Arguments &...arguments)
    {
        return called(true, subject, operation, arguments...);
    }

    /// A call that does something.
    template <class... Arguments>
    CallAnswer command(const QString &subject, const char *operation, const Arguments &...arguments)
    {
        return called(false, subject, operation, arguments...);
    }

    /// All lines since the last clear: `setTrelvikLock(true)`, on a document `[7].refresh(true)`.
    QStringList lines() const;

    /// lines() without the questions.
    QStringList commands() const;

    /// Forgets the lines and the count; faults stay.
    void clear();

    /// Calls since the last clear, errorHandler not counted; also while no lines are written.
    int callCount() const;

    /// Whether lines are written, as they are at the start; off for benchmarks.
    void setEnabled(bool on);
    bool isEnabled() const;

    /// Keeps the last lines only; 0: all of them, as at the start. For applications that run long.
    void setLimit(int lines);

    /// The nth such call from now fails; 0: every one. `operation` is a name, which means it on the
    /// host and on every document, or a name with its document, "[7].refresh".
    void failOn(const QString &operation, int nth);

    /// The nth call of any kind from now fails.
    void failAtCall(int nth);

    /// The nth call of any kind from now fails, and every one behind it.
    void failFromCall(int nth);

    /// The nth such call from now answers null; 0: every one.
    void answerNullOn(const QString &operation, int nth);

    /// The nth such call from now answers an empty list; 0: every one.
    void answerEmptyOn(const QString &operation, int nth);

    /// Every such call takes this long.
    void delayOn(const QString &operation, int msec);

    /// The next such call makes this document go away before it does its work.
    void removeDocumentOn(const QString &operation, DOCKEY key);

    /// Forgets all faults, answers, delays and removals.
    void clearFaults();

    /// While it lives, calls on its thread are the host's own: they leave no line, count for
    /// nothing and do not fail.
    class OwnCalls
    {
    public:
        OwnCalls();
        ~OwnCalls();

        OwnCalls(const OwnCalls &) = delete;
        OwnCalls &operator=(const OwnCalls &) = delete;
    };

    /// What makes a document go away.
    void setDocumentRemover(const std::function<void(DOCKEY)> &remover);

    /// Gets each line as it is written, on the caller's thread.
    void setListener(const std::function<void(const QString &)> &listener);

private:
    static constexpr char ErrorHandler[] = "errorHandler";

    enum class Effect { Fail, Null, Empty, Delay, RemoveDocument };

    struct Rule
    {
        QString operation; ///< empty: any
        Effect effect;
        int remaining; ///< calls until it applies; 0: every one
        bool stays;    ///< goes on applying once it did
        quint64 value; ///< milliseconds, or the key
    };

    template <class... Arguments>
    CallAnswer called(bool question, const QString &subject, const char *operation,
                      const Arguments &...arguments)
    {
        if (isOwnCall())
            return {};
        if (m_quiet.load(std::memory_order_relaxed)) {
            if (std::strcmp(operation, ErrorHandler) != 0)
                m_quietCount.fetch_add(1, std::memory_order_relaxed);
            return {};
        }
        QStringList parts;
        if (isEnabled())
            (parts.append(JournalText::text(arguments)), ...);
        return recorded(question, subject, QLatin1String(operation), parts);
    }

    static bool isOwnCall();
    CallAnswer recorded(bool question, const QString &subject, const QString &operation,
                        const QStringList &arguments);
    int firstKeptLine() const;
    void dropOldLines(int tolerated);
    void addRule(const QString &operation, Effect effect, int nth, bool stays, quint64 value);
    QVector<Rule> takeEffects(const QString &subject, const QString &operation);
    void updateQuiet();

    struct Line
    {
        QString text;
        bool question;
    };

    mutable QMutex m_mutex;
    QVector<Line> m_lines;
    int m_limit = 0; ///< 0: none
    QVector<Rule> m_rules;
    int m_count = 0;
    std::atomic<bool> m_enabled{true};
    std::atomic<bool> m_quiet{false}; ///< neither lines nor faults
    std::atomic<int> m_quietCount{0};
    std::function<void(DOCKEY)> m_remover;
    std::function<void(const QString &)> m_listener;
};
