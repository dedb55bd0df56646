#pragma once

#include <QSet>
#include <QString>

/// What a batch of saves has fixed so far: directories and files that it will make. A text counts
/// only in exactly the form in which it was added.
class SavePlan
{
public:
    void clearGroupDir() { m_groupDir.clear(); }
    void clearDirs() { m_dirs.clear(); }
    void clearFiles() { m_files.clear(); }

    void setGroupDir(const QString &name) { m_groupDir = name; }
    QString groupDir() const { return m_groupDir; }

    void addDir(const QString &dir) { m_dirs.insert(dir); }
    bool hasDir(const QString &dir) const { return m_dirs.contains(dir); }

    void addFile(const QString &path) { m_files.insert(path); }
    bool hasFile(const QString &path) const { return m_files.contains(path); }

    /// The batch's alternative directory, empty when there is none.
    void setTargetDir(const QString &dir) { m_targetDir = dir; }
    QString targetDir() const { return m_targetDir; }

private:
    QString m_groupDir;
    QString m_targetDir;
    QSet<QString> m_dirs;
    QSet<QString> m_files;
};
