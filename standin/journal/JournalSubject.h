#pragma once

#include <QString>

/// What bears a name of its own in the journal: in front of the calls on it, and in place of it as
/// an argument.
class JournalSubject
{
public:
    /// "[7]" for the document with the key 7.
    virtual QString journalName() const = 0;

protected:
    ~JournalSubject() = default;
};
