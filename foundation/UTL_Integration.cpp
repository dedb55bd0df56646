#include "foundation/UTL_Integration.h"

#include <QDir>
#include <QFile>

UTL_Integration::UTL_Integration(HostServices *host) : m_host(host) {}

UTL_Integration::~UTL_Integration() = default;

bool UTL_Integration::exists(const QString &directory, const QString &fileName)
{
    return !directory.isEmpty() && QFile::exists(QDir(directory).filePath(fileName));
}
