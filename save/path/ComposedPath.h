#pragma once

#include <QString>

/// How a search came to its number: what lay on its way from the first one.
struct NumberSearch
{
    int number = 0;  ///< taken; 0: there is no number, or none that was searched for
    int onDisk = 0;  ///< passed over since files or directories of the name exist
    int planned = 0; ///< passed over since the save has planned them
};

/// A name of a path and the parts that it was joined from.
struct ComposedName
{
    QString text;   ///< the whole name
    QString name;   ///< without number and time
    QString number; ///< of a file all that its document adds
    QString time;
    NumberSearch search;
};

/// The path that a save takes, and the parts that it was joined from.
struct ComposedPath
{
    /// Why the save does not take it.
    enum class Refusal {
        None,
        NoName,           ///< the file has none
        TooLong,          ///< the path has more than 245 characters
        ThumbnailTooLong, ///< the path of the small picture has
    };

    QString base;       ///< directory, with a trailing "/" unless empty
    ComposedName group; ///< directory in the base; empty without one
    ComposedName sub;   ///< directory in the group; empty without one
    ComposedName file;
    QString directory;     ///< with a trailing "/" unless empty
    QString path;          ///< of the file, without extension
    QString thumbnail;     ///< path of the small picture, the file's own when there is none
    bool isPlaced = false; ///< directory, path and thumbnail are told
    Refusal refusal = Refusal::None;

    /// Whether the batch had fixed the group directory before, which then has no parts.
    bool isGroupFixed() const
    {
        return !group.text.isEmpty() && group.name.isEmpty() && group.number.isEmpty() &&
               group.time.isEmpty();
    }
};
