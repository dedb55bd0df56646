#pragma once

#include <QString>

/// Something about a path that its user should know before a save. None of it keeps the save from
/// trying.
struct PathWarning
{
    enum class Kind {
        NoFolder,      ///< no base directory is set
        MissingFolder, ///< the base directory is not there
        Exists,        ///< a file without number has the name of one that is there
        Blank,         ///< a name begins or ends with a blank
        Dot,           ///< a name ends with a dot
        Time,          ///< a time brings ":" or "/" into a name
        Forbidden,     ///< a name is one that no file may have, or holds such characters
        TooManyBytes,  ///< a name has more bytes than a file system takes
        OtherVolume,   ///< the target lies on another volume than the free space that is told
    };

    /// The part of the path that it is about.
    enum class Part { Base, Group, Sub, File };

    Kind kind = Kind::NoFolder;
    Part part = Part::Base;
    QString detail; ///< characters, a name, or a volume; empty where there is nothing to tell
};
