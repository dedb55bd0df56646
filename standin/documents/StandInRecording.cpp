#include "standin/documents/StandInRecording.h"

#include "foundation/exceptions/DOC_ReadFileException.h"
#include "standin/documents/NaturalOrder.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QSet>

#include <algorithm>

namespace {

bool hasImageSuffix(const QFileInfo &file)
{
    static const QSet<QByteArray> suffixes = [] {
        const QList<QByteArray> formats = QImageReader::supportedImageFormats();
        return QSet<QByteArray>(formats.begin(), formats.end());
    }();
    return suffixes.contains(file.suffix().toLower().toLatin1());
}

}

StandInRecording::StandInRecording(DocumentOwner &owner, DOCKEY key, const QString &folder)
    : StandInDocumentLink<DOC_Interface>(owner, key), m_folder(QDir(folder).absolutePath())
{
    readFolder();
    if (m_files.isEmpty())
        throw DOC_ReadFileException(m_folder);

    const QFileInfo first(m_files.first());
    const QString name = QDir(m_folder).dirName();
    DocumentState &own = state();
    own.documentName = name;
    own.displayName = name;
    own.fallbackName = name;
    own.originalFilePath = m_files.first();
    own.originalFileName = first.completeBaseName();
    own.documentKind = 2;
    own.headCount = 0;
    own.isConnected = false;
    own.isFound = false;
    own.partitions = {{1, name, uint(m_files.size()), 0}};
    own.recordDate = first.lastModified().toString(QStringLiteral("yyyy/M/d"));
    own.recordTime = first.lastModified().toString(QStringLiteral("HH:mm:ss"));
}

void StandInRecording::readFolder()
{
    QFileInfoList entries = QDir(m_folder).entryInfoList(QDir::Files, QDir::NoSort);
    std::sort(entries.begin(), entries.end(), [](const QFileInfo &a, const QFileInfo &b) {
        return NaturalOrder::isLess(a.fileName(), b.fileName());
    });
    for (const QFileInfo &entry : qAsConst(entries)) {
        if (!hasImageSuffix(entry))
            continue;
        QImageReader reader(entry.absoluteFilePath());
        reader.setDecideFormatFromContent(true);
        reader.setAutoTransform(true);
        if (!reader.canRead()) {
            m_unreadable.append({entry.absoluteFilePath(), reader.errorString()});
            continue;
        }
        if (m_files.isEmpty()) {
            // The first picture is read whole: it gives the size of all.
            const QImage image = reader.read();
            if (image.isNull()) {
                m_unreadable.append({entry.absoluteFilePath(), reader.errorString()});
                continue;
            }
            m_size = image.size();
            m_cached = image.convertToFormat(QImage::Format_RGB32);
            m_cachedIndex = 0;
        }
        m_files.append(entry.absoluteFilePath());
    }
}

QImage StandInRecording::fitted(const QImage &image) const
{
    if (image.size() == m_size)
        return image.convertToFormat(QImage::Format_RGB32);
    QImage result(m_size, QImage::Format_RGB32);
    result.fill(Qt::black);
    if (image.isNull())
        return result;
    const QSize size = image.size().scaled(m_size, Qt::KeepAspectRatio);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(
        QRect(QPoint((m_size.width() - size.width()) / 2, (m_size.height() - size.height()) / 2),
              size),
        image);
    return result;
}

QImage StandInRecording::frame(quint64 number) const
{
    const int index = int(std::min(number, quint64(m_files.size()) - 1));
    if (index != m_cachedIndex) {
        QImageReader reader(m_files.at(index));
        reader.setDecideFormatFromContent(true);
        reader.setAutoTransform(true);
        m_cached = fitted(reader.read());
        m_cachedIndex = index;
    }
    return m_cached;
}
