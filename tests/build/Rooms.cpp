#include "tests/build/Rooms.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace {

QString folderOf(const QString &path)
{
    return path.section('/', 0, 0);
}

// "bridge/page" for "bridge/page/GUI_WebView.h".
QString roomOf(const QString &path)
{
    return path.section('/', 0, -2);
}

// Paths from the checkout of all headers and sources of a folder, sorted.
QStringList sourcesOf(const QDir &checkout, const QString &folder)
{
    QStringList result;
    QDirIterator files(checkout.filePath(folder), {"*.h", "*.cpp"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        result.append(checkout.relativeFilePath(files.next()));
    result.sort();
    return result;
}

QStringList matchesOf(const QString &pattern, const QString &text)
{
    QStringList result;
    auto matches =
        QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (matches.hasNext())
        result.append(matches.next().captured(1));
    return result;
}

}

Rooms::Rooms(const QString &list)
{
    for (const QString &line : list.split('\n', Qt::SkipEmptyParts)) {
        if (line.startsWith('#'))
            continue;
        QStringList words = line.split(' ', Qt::SkipEmptyParts);
        const QString room = words.takeFirst();
        QSet<QString> &seen = m_seen[room];
        seen.insert(room);
        for (const QString &left : words) {
            if (m_seen.contains(left) && left != room)
                seen.unite(m_seen.value(left));
            else
                m_errors.append(room + " sees " + left + ", which has no line before it");
        }
    }
}

QStringList Rooms::strayArrows(const QString &checkout) const
{
    QStringList result;
    QStringList folders;
    for (const QString &room : m_seen.keys()) {
        if (!folders.contains(folderOf(room)))
            folders.append(folderOf(room));
    }
    const QDir root(checkout);
    for (const QString &folder : folders) {
        const QStringList sources = sourcesOf(root, folder);
        QMap<QString, QString> roomOfClass;
        for (const QString &path : sources) {
            if (path.endsWith(".h"))
                roomOfClass.insert(path.section('/', -1).chopped(2), roomOf(path));
        }
        for (const QString &path : sources) {
            const QString room = roomOf(path);
            if (!m_seen.contains(room)) {
                result.append(path + " lies in " + room + ", which is no room of the list");
                continue;
            }
            QFile file(root.filePath(path));
            if (!file.open(QIODevice::ReadOnly)) {
                result.append(path + " cannot be read");
                continue;
            }
            const QString text = QString::fromUtf8(file.readAll());
            for (const QString &header : matchesOf("^#include \"(" + folder + "/[^\"]+)\"", text)) {
                if (!m_seen[room].contains(roomOf(header)))
                    result.append(path + " includes " + header);
            }
            for (const QString &name : matchesOf("^(?:class|struct) (\\w+);", text)) {
                if (roomOfClass.contains(name) && !m_seen[room].contains(roomOfClass[name]))
                    result.append(path + " declares " + name + " of " + roomOfClass[name]);
            }
        }
    }
    return result;
}
