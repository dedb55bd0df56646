#include "save/path/PathText.h"

#include "foundation/Utilities.h"

namespace PathText {

namespace {

constexpr QLatin1Char Slash('/');

bool isSame(const QString &format, QLatin1String name)
{
    return format.compare(name, Qt::CaseInsensitive) == 0;
}

}

QString replaceInvalidChars(QString text, const QString &replacement)
{
    if (!UTL::isValidFileName(text)) {
        for (const char *letter = "\\/:*?\"<>|%"; *letter != 0; ++letter)
            text.replace(QLatin1Char(*letter), replacement);
    }
    if (text == QLatin1String(".") || text == QLatin1String(".."))
        text.replace(QLatin1Char('.'), replacement);
    return text;
}

QString bracketsToParens(QString text)
{
    text.replace(QLatin1Char('['), QLatin1Char('('));
    text.replace(QLatin1Char(']'), QLatin1Char(')'));
    return text;
}

void ensureTrailingSlash(QString &text)
{
    if (!text.isEmpty() && !text.endsWith(Slash))
        text += Slash;
}

QString joined(const QString &name, const QString &part)
{
    if (name.isEmpty() || part.isEmpty())
        return name + part;
    QString text;
    text.reserve(name.size() + 1 + part.size());
    text += name;
    text += QLatin1Char('_');
    text += part;
    return text;
}

bool isMovieFormatName(const QString &format, bool strict)
{
    for (const char *name : {"Avi", "Mov", "Wmv", "Mp4"}) {
        if (isSame(format, QLatin1String(name)))
            return true;
    }
    return !strict &&
           (isSame(format, QLatin1String("Mraw")) || isSame(format, QLatin1String("Graw")));
}

}
