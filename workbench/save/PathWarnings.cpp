#include "workbench/save/PathWarnings.h"

#include "foundation/Utilities.h"
#include "save/path/DirectoryView.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

namespace PathWarnings {

namespace {

using Kind = PathWarning::Kind;
using Part = PathWarning::Part;

constexpr int MostBytes = 255; // of a name, in the usual file systems

const QString TimeSeparators = QStringLiteral(":/");

// Those of `text` that stand in `letters`, each once, in their order.
QString lettersOf(const QString &text, const QString &letters)
{
    QString found;
    for (const QChar letter : text) {
        if (letters.contains(letter) && !found.contains(letter))
            found += letter;
    }
    return found;
}

bool isDots(const QString &name)
{
    return name == QLatin1String(".") || name == QLatin1String("..");
}

void addEnds(QVector<PathWarning> &warnings, Part part, const QString &name)
{
    if (name.isEmpty() || isDots(name))
        return;
    if (name.front().isSpace() || name.back().isSpace())
        warnings.append({Kind::Blank, part, name});
    if (name.back() == QLatin1Char('.'))
        warnings.append({Kind::Dot, part, name});
    if (name.toUtf8().size() > MostBytes)
        warnings.append({Kind::TooManyBytes, part, QString()});
}

void addName(QVector<PathWarning> &warnings, Part part, const ComposedName &name)
{
    addEnds(warnings, part, name.text);
    const QString separators = lettersOf(name.time, TimeSeparators);
    if (!separators.isEmpty())
        warnings.append({Kind::Time, part, separators});
    QString rest = name.time.isEmpty() ? name.text : name.name + name.number + name.time;
    for (const QChar separator : separators) {
        if (!name.name.contains(separator))
            rest.remove(separator);
    }
    const QString forbidden = forbiddenInName(rest);
    if (!forbidden.isEmpty())
        warnings.append({Kind::Forbidden, part, forbidden});
}

void addBase(QVector<PathWarning> &warnings, const QString &base)
{
    const QStringList names = base.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString &name : names)
        addEnds(warnings, Part::Base, name);
    const QString forbidden = forbiddenInPath(base);
    if (!forbidden.isEmpty())
        warnings.append({Kind::Forbidden, Part::Base, forbidden});
}

// Pictures of a sequence have the number of their frame behind the name. A name that leads
// elsewhere is no file's.
bool isTaken(const QString &directory, const QString &name)
{
    if (name.isEmpty() || name.contains(QLatin1Char('/')))
        return false;
    if (QFileInfo::exists(directory + name))
        return true;
    const QString followers = QStringLiteral(".0123456789");
    DirectoryView view(directory);
    return std::any_of(followers.begin(), followers.end(),
                       [&](QChar follower) { return view.hasFileBeginning(name + follower); });
}

}

QVector<PathWarning> ofTexts(const ComposedPath &path)
{
    QVector<PathWarning> warnings;
    addBase(warnings, path.base);
    addName(warnings, Part::Group, path.group);
    addName(warnings, Part::Sub, path.sub);
    addName(warnings, Part::File, path.file);
    return warnings;
}

QVector<PathWarning> ofDisk(const ComposedPath &path)
{
    QVector<PathWarning> warnings;
    if (path.base.isEmpty())
        warnings.append({Kind::NoFolder, Part::Base, QString()});
    else if (!DirectoryView::isDirectory(path.base))
        warnings.append({Kind::MissingFolder, Part::Base, path.base});
    if (!path.isPlaced)
        return warnings;
    if (path.file.search.number == 0 && isTaken(path.directory, path.file.text))
        warnings.append({Kind::Exists, Part::File, path.file.text});
    // The free space that is told is that of the first directory of a path.
    const int slash = path.directory.indexOf(QLatin1Char('/'));
    const QString volume = volumeOf(path.directory);
    if (volume != volumeOf(path.directory.left(slash + 1)))
        warnings.append({Kind::OtherVolume, Part::Base, volume});
    return warnings;
}

QString forbiddenInName(const QString &name)
{
    return isDots(name) ? name : lettersOf(name, UTL::forbiddenInFileName());
}

QString forbiddenInPath(const QString &path)
{
    return lettersOf(path, UTL::forbiddenInFilePath());
}

QString volumeOf(const QString &path)
{
    QString directory = QDir::cleanPath(QDir(path).absolutePath());
    while (!QFileInfo::exists(directory) && directory.contains(QLatin1Char('/')))
        directory.truncate(std::max(directory.lastIndexOf(QLatin1Char('/')), 0));
    return QStorageInfo(directory.isEmpty() ? QStringLiteral("/") : directory).rootPath();
}

}
