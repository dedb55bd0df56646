#include "save/path/DirectoryView.h"

#include <QFile>
#include <QTextCodec>
#include <QtMath>

#include <algorithm>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

bool isAscii(const char *text)
{
    return std::all_of(text, text + std::strlen(text), [](char unit) { return unit > 0; });
}

QChar folded(QChar unit)
{
    return unit >= 'A' && unit <= 'Z' ? QChar(unit.unicode() + ('a' - 'A')) : unit;
}

bool isUtf8(const char *text)
{
    constexpr int Utf8 = 106;
    QTextCodec::ConverterState state;
    QTextCodec::codecForMib(Utf8)->toUnicode(text, int(std::strlen(text)), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

// The path as the system takes it. One with a null character has no such name; the empty text is
// none either.
QByteArray nameForSystem(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    return name.contains('\0') ? QByteArray() : name;
}

bool isPlain(DIR *folder, const dirent &entry)
{
    if (entry.d_name[0] == '.')
        return false;
    switch (entry.d_type) {
    case DT_REG:
        return true;
    case DT_LNK:
    case DT_UNKNOWN:
        break;
    default:
        return false;
    }
    struct stat own = {};
    struct stat target = {};
    if (fstatat(dirfd(folder), entry.d_name, &own, AT_SYMLINK_NOFOLLOW) != 0 ||
        fstatat(dirfd(folder), entry.d_name, &target, 0) != 0)
        return false;
    return S_ISREG(target.st_mode) || (S_ISLNK(own.st_mode) && !S_ISDIR(target.st_mode));
}

}

bool DirectoryView::isDirectory(const QString &path)
{
    const QByteArray name = nameForSystem(path);
    struct stat state = {};
    return stat(name.constData(), &state) == 0 && S_ISDIR(state.st_mode);
}

bool DirectoryView::hasFileBeginning(const QString &letters)
{
    if (!m_isRead)
        read();
    const QString begin = letters.toCaseFolded();
    const Table &table = tableOf(begin.size());
    return table.at(int(placeOf(table, begin))) != 0;
}

void DirectoryView::read()
{
    m_isRead = true;
    m_starts.append(0);
    DIR *folder = opendir(m_path.isEmpty() ? "." : nameForSystem(m_path).constData());
    if (folder == nullptr)
        return;
    while (const dirent *entry = readdir(folder)) {
        if (isPlain(folder, *entry))
            add(entry->d_name);
    }
    closedir(folder);
}

void DirectoryView::add(const char *name)
{
    if (isAscii(name)) {
        const int begin = m_names.size();
        m_names += QLatin1String(name);
        std::transform(m_names.begin() + begin, m_names.end(), m_names.begin() + begin, folded);
    } else if (isUtf8(name)) {
        // At the beginning of a text a mark of byte order would be left out.
        m_names += QFile::decodeName(QByteArray("/") + name).toCaseFolded().midRef(1);
    } else {
        return;
    }
    m_starts.append(m_names.size());
}

const DirectoryView::Table &DirectoryView::tableOf(int length)
{
    if (const Table *known = m_tables.object(length))
        return *known;
    const int files = m_starts.size() - 1;
    auto table = std::make_unique<Table>(int(qNextPowerOfTwo(2 * quint32(files))), 0);
    for (int file = 0; file < files; ++file) {
        const int begin = m_starts.at(file);
        if (m_starts.at(file + 1) - begin < length)
            continue;
        const quint32 at = placeOf(*table, QStringView(m_names).mid(begin, length));
        (*table)[int(at)] = quint32(file) + 1;
    }
    const Table &result = *table;
    m_tables.insert(length, table.release());
    return result;
}

quint32 DirectoryView::placeOf(const Table &table, QStringView letters) const
{
    const quint32 mask = quint32(table.size()) - 1;
    quint32 at = qHash(letters) & mask;
    while (const quint32 place = table.at(int(at))) {
        if (QStringView(m_names).mid(m_starts.at(int(place) - 1), letters.size()) == letters)
            break;
        at = (at + 1) & mask;
    }
    return at;
}
