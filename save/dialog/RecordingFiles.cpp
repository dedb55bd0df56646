#include "save/dialog/RecordingFiles.h"

#include <QCollator>
#include <QDirIterator>

#include <algorithm>

namespace RecordingFiles {

QStringList below(const QString &folder)
{
    QStringList filters;
    for (const char *suffix : {"rih", "rihx", "RIH", "RIHX"})
        filters.append(QLatin1String("*.") + QLatin1String(suffix));
    QDirIterator entries(folder, filters, QDir::Files,
                         QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    QStringList files;
    while (entries.hasNext())
        files.append(entries.next());

    QCollator collator;
    collator.setNumericMode(true);
    std::sort(files.begin(), files.end(), [&](const QString &a, const QString &b) {
        const int order = collator.compare(a, b);
        return order == 0 ? a < b : order < 0; // the disk's own order means nothing
    });
    return files;
}

}
