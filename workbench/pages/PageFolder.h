#pragma once

#include <QString>

class QUrl;

/// The files of pages in a folder. A page names them flat: "qrc:/status.html" is the file
/// status.html of the folder itself or, when it has none, of the first of the folders in it that
/// has one, in the order of their names. Names with a path are looked for in the same way, and
/// never lead out of the folder.
class PageFolder
{
public:
    /// What a file was at one moment.
    struct State
    {
        QString file;       ///< empty: the folder has no such file
        qint64 changed = 0; ///< milliseconds since the epoch
        qint64 size = 0;    ///< bytes

        bool operator==(const State &other) const
        {
            return file == other.file && changed == other.changed && size == other.size;
        }
        bool operator!=(const State &other) const { return !(*this == other); }
    };

    /// The folder may go and come back.
    explicit PageFolder(const QString &folder);

    /// The file behind this address as it is now; no file for an address that is not "qrc:", or
    /// names nothing in the folder.
    State stateOf(const QUrl &url) const;

private:
    QString fileOf(const QString &name) const;

    QString m_folder; ///< absolute
};
