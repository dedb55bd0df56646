#include "foundation/ReplaceFile.h"

#include <QFileInfo>
#include <QSaveFile>

namespace {

// Whether the disk has taken all of it. A write that a full disk cuts short tells no reason; the
// rest, tried again, does.
bool writeAll(QSaveFile &file, const QByteArray &content)
{
    qint64 written = 0;
    while (written < content.size()) {
        const qint64 more = file.write(content.constData() + written, content.size() - written);
        if (more <= 0)
            return false;
        written += more;
    }
    return file.flush() || file.flush();
}

}

ReplaceFile::Outcome ReplaceFile::write(const QString &path, const QByteArray &content)
{
    const QFileInfo target(path);
    if (target.exists() && !target.isFile()) // a device or a pipe would be replaced by a file
        return {Result::NotOpened, QLatin1String("Not a regular file")};
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return {Result::NotOpened, file.errorString()};
    // commit() replaces the old file also when its own flush fails.
    if (!writeAll(file, content) || !file.commit())
        return {Result::Failed, file.errorString()};
    return {};
}
