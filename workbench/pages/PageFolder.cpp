#include "workbench/pages/PageFolder.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

PageFolder::PageFolder(const QString &folder) : m_folder(QDir(folder).absolutePath()) {}

PageFolder::State PageFolder::stateOf(const QUrl &url) const
{
    if (url.scheme() != QLatin1String("qrc"))
        return {};
    QString name = url.path(QUrl::FullyDecoded);
    while (name.startsWith('/'))
        name.remove(0, 1);
    name = QDir::cleanPath(name);
    if (name.isEmpty() || name == QLatin1String("..") || name.startsWith(QLatin1String("../")))
        return {};
    const QFileInfo file(fileOf(name));
    if (!file.isFile())
        return {};
    return {file.filePath(), file.lastModified().toMSecsSinceEpoch(), file.size()};
}

QString PageFolder::fileOf(const QString &name) const
{
    const QDir folder(m_folder);
    const QString direct = folder.filePath(name);
    if (QFileInfo(direct).isFile())
        return direct;
    for (const QString &room : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString file = folder.filePath(room + '/' + name);
        if (QFileInfo(file).isFile())
            return file;
    }
    return QString();
}
