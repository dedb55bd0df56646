#pragma once

#include <QDir>
#include <QPixmap>
#include <QStringList>

/// What a walk-through saw: a picture a step, and transcript.txt with every check. It is written as
/// it goes, so that a run that ends early leaves what it had.
class TourReport
{
public:
    /// Makes the folder when it is missing, and removes the pictures and the transcript of an
    /// earlier run from it.
    explicit TourReport(const QString &folder);

    /// Whether the folder can be written to.
    bool isWritable() const { return m_writable; }

    /// Begins a step; `name` becomes part of its pictures' names: "03-lock.png".
    void beginStep(const QString &name, const QString &title);

    /// One thing that was looked for. What was not seen is also written to the error channel.
    void check(bool seen, const QString &what);

    /// The same for a value; a failure tells what was seen instead.
    void compare(const QString &seen, const QString &expected, const QString &what);

    /// Keeps a picture of the step; `suffix` tells further ones from the first. A blank picture, or
    /// one that cannot be written, is a failed check.
    void addPicture(const QPixmap &picture, const QString &suffix = QString());

    /// Ends the transcript with the totals.
    void finish();

    int steps() const { return m_steps; }
    int checks() const { return m_checks; }
    int failures() const { return m_failures; }

    /// Whether a picture shows as good as nothing.
    static bool isBlank(const QImage &picture);

private:
    void write(const QString &line);

    QDir m_folder;
    bool m_writable = false;
    QString m_step;
    int m_steps = 0;
    int m_checks = 0;
    int m_failures = 0;
};
