#include "save/path/DirectoryView.h"

#include <QFile>
#include <QTextCodec>

#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

constexpr int FewestPlaces = 16;
constexpr int MostTables = 16;

// FNV-1a over the units.
quint32 hashOf(const QChar *letters, int count)
{
    quint32 hash = 2166136261u;
    for (int i = 0; i < count; ++i)
        hash = (hash ^ letters[i].unicode()) * 16777619u;
    return hash ^ (hash >> 15);
}

bool isSame(const QChar *left, const QChar *right, int count)
{
    return std::memcmp(left, right, std::size_t(count) * sizeof(QChar)) == 0;
}

bool isAscii(const char *text)
{
    for (; *text != 0; ++text) {
        if (*text & 0x80)
            return false;
    }
    return true;
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
    const int length = letters.size();
    if (length > m_longest)
        return false;
    const QString folded = letters.toCaseFolded();
    const Table &table = tableOf(length);
    const quint32 mask = quint32(table.places.size()) - 1;
    const quint32 hash = hashOf(folded.constData(), length);
    for (quint32 at = hash & mask; table.places.at(int(at)) != 0; at = (at + 1) & mask) {
        if (table.hashes.at(int(at)) != hash)
            continue;
        const int file = int(table.places.at(int(at))) - 1;
        if (isSame(m_names.constData() + m_starts.at(file), folded.constData(), length))
            return true;
    }
    return false;
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
        const int count = int(std::strlen(name));
        m_names.resize(begin + count);
        QChar *out = m_names.data() + begin;
        for (int i = 0; i < count; ++i) {
            const char unit = name[i];
            out[i] = QLatin1Char(unit >= 'A' && unit <= 'Z' ? char(unit + 'a' - 'A') : unit);
        }
    } else if (isUtf8(name)) {
        // At the beginning of a text a mark of byte order would be left out.
        m_names += QFile::decodeName(QByteArray("/") + name).toCaseFolded().midRef(1);
    } else {
        return;
    }
    m_starts.append(m_names.size());
    m_longest = qMax(m_longest, lengthOf(m_starts.size() - 2));
}

const DirectoryView::Table &DirectoryView::tableOf(int length)
{
    const auto known = m_tables.constFind(length);
    if (known != m_tables.constEnd())
        return *known;
    // Numbers have few lengths. A directory is no reason for more memory than so many tables.
    if (m_tables.size() == MostTables)
        m_tables.clear();

    const int files = m_starts.size() - 1;
    int size = FewestPlaces;
    while (size < 2 * files)
        size *= 2;
    Table table;
    table.places.fill(0, size);
    table.hashes.fill(0, size);
    const quint32 mask = quint32(size) - 1;
    quint32 *places = table.places.data();
    quint32 *hashes = table.hashes.data();
    for (int file = 0; file < files; ++file) {
        if (lengthOf(file) < length)
            continue;
        const QChar *name = m_names.constData() + m_starts.at(file);
        const quint32 hash = hashOf(name, length);
        quint32 at = hash & mask;
        while (places[at] != 0 &&
               !(hashes[at] == hash &&
                 isSame(m_names.constData() + m_starts.at(int(places[at]) - 1), name, length)))
            at = (at + 1) & mask;
        places[at] = quint32(file) + 1;
        hashes[at] = hash;
    }
    return *m_tables.insert(length, table);
}
