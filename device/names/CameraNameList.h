#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// Camera names that a user keeps in a file, by category. Any thread.
///
/// The file is plain text. A line is a category and names behind it, separated by commas; nothing
/// is quoted. A category that is empty stands for none.
namespace CameraNameList {

/// The longest name, in UTF-16 units; more is cut off.
constexpr int LongestName = 1024;

struct Content
{
    QMap<QString, QStringList> names; ///< of each category, each name once, in the file's order
    QStringList bareCategories;       ///< of lines without a name, in the file's order
};

/// The category of names that have none.
QString defaultCategory();

/// Whether bytes with other characters than those of ASCII are read as Shift-JIS, else as UTF-8:
/// they are no UTF-8, and the Shift-JIS codec turns them into text and back into the same bytes.
bool isShiftJis(const QByteArray &bytes);

/// What a file of these bytes holds. Names lose the characters that no file name may hold and the
/// blanks around them; one that is empty then is left out. Bytes that are no text give texts with
/// replacement characters.
Content read(const QByteArray &bytes);

/// The names as pages take them, compact JSON: [{"category":"","label":""}]. Those without a
/// category come first, the others by category.
QString pageText(const Content &content);

}
