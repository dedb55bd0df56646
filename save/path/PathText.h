#pragma once

#include <QString>

/// Small changes of texts that become parts of a path. Any thread.
namespace PathText {

/// `text` with each of \ / : * ? " < > | % replaced, when it holds a character that no file name
/// may hold. A tab or a line feed stays. Of a text that then is "." or ".." each point is replaced.
QString replaceInvalidChars(QString text, const QString &replacement);

/// "[" and "]" as "(" and ")".
QString bracketsToParens(QString text);

/// Appends "/" unless `text` is empty or ends in it.
void ensureTrailingSlash(QString &text);

/// `name` and `part` with "_" between them; one alone where the other is empty.
QString joined(const QString &name, const QString &part);

/// Whether a format is one of moving pictures, written in any case; `strict` leaves out the formats
/// of raw pictures.
bool isMovieFormatName(const QString &format, bool strict);

}
