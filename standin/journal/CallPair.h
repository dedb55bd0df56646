#pragma once

#include <QString>

/// Two calls of which the second ends what the first began. What was begun is counted, so that it
/// nests. An end without its beginning leaves a critical line, but for one whose beginning failed
/// or was cleared.
class CallPair
{
public:
    /// `end`: the call that ends, as it stands in the critical line.
    explicit CallPair(const QString &end);

    void begin() { ++m_open; }

    /// The call that begins was made and failed. Its end may come or not.
    void beginFailed() { ++m_excused; }

    /// Whether something was begun that this ends.
    bool end();

    /// Ends all that is open. The ends that are still to come find nothing and are no mistake.
    void clear();

    /// Begun and not ended yet.
    int open() const { return m_open; }

private:
    QString m_end;
    int m_open = 0;
    int m_excused = 0; ///< ends that may come without a beginning
};
