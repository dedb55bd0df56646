#pragma once

#include <QCache>
#include <QString>
#include <QVector>

/// The plain files of one directory, read when first asked for, and not again. One thread.
///
/// Plain are files and links to what is no directory, but for hidden ones and names that are no
/// UTF-8. A directory that cannot be read holds none. An empty path is the working directory.
class DirectoryView
{
public:
    explicit DirectoryView(const QString &path) : m_path(path) {}

    /// Whether the name of a plain file begins with these letters, in any case. Characters that are
    /// wildcards elsewhere are ordinary ones.
    bool hasFileBeginning(const QString &letters);

    /// Whether the directory was read.
    bool isRead() const { return m_isRead; }

    /// Whether there is a directory at this path now, or a link to one. Asks the disk.
    static bool isDirectory(const QString &path);

private:
    /// The files by the first so many letters of their names: places in m_starts, each plus one, in
    /// an open table of a power of two; 0 is free.
    using Table = QVector<quint32>;

    // Numbers have few lengths. A directory is no reason for more memory than so many tables.
    static constexpr int MostTables = 16;

    void read();
    void add(const char *name);
    const Table &tableOf(int length);

    /// Where a file with these first letters stands in a table, or its free place.
    quint32 placeOf(const Table &table, QStringView letters) const;

    QString m_path;
    bool m_isRead = false;
    QString m_names; ///< all names one behind the other, folded, which keeps each letter's place
    QVector<int> m_starts;                   ///< where each name begins, and the end of the last
    QCache<int, Table> m_tables{MostTables}; ///< by length
};
