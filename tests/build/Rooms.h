#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

/// Which rooms of the folders see which, and what the sources make of it.
///
/// A room is a folder of sources under its path from the checkout, "bridge/page"; the flat part of
/// a folder goes by the folder's own name. The list has a line for each room: its name and those
/// that it sees; what these see, it sees too. Lines that begin with "#" are comments.
class Rooms
{
public:
    /// Reads the list. A line that names a room which no line before it begins with is an error.
    explicit Rooms(const QString &list);

    /// What is wrong with the list, a line each.
    QStringList errors() const { return m_errors; }

    /// What the sources below `checkout` do against the list, a line each, in order of the files:
    /// includes of a room that is not seen, forward declarations of its classes, and rooms that the
    /// list does not name. Only folders that have a room in the list are looked at, and only what
    /// stays inside one folder: between folders the include paths decide.
    QStringList strayArrows(const QString &checkout) const;

private:
    QMap<QString, QSet<QString>> m_seen;
    QStringList m_errors;
};
