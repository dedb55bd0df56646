#include "workbench/pages/PageFileReply.h"

#include <QMimeDatabase>
#include <QUrl>

#include <cstring>

PageFileReply::PageFileReply(const QNetworkRequest &request, const QByteArray &content,
                             QObject *parent)
    : QNetworkReply(parent), m_content(content)
{
    setRequest(request);
    setUrl(request.url());
    setOperation(QNetworkAccessManager::GetOperation);
    QString type =
        QMimeDatabase().mimeTypeForFile(request.url().path(), QMimeDatabase::MatchExtension).name();
    if (type.startsWith(QLatin1String("text/")))
        type += QStringLiteral("; charset=utf-8");
    setHeader(QNetworkRequest::ContentTypeHeader, type);
    setHeader(QNetworkRequest::ContentLengthHeader, m_content.size());
    open(QIODevice::ReadOnly);
    setFinished(true);
    QMetaObject::invokeMethod(this, &PageFileReply::tell, Qt::QueuedConnection);
}

void PageFileReply::tell()
{
    if (!isOpen())
        return;
    emit metaDataChanged();
    emit readyRead();
    emit finished();
}

void PageFileReply::abort()
{
    close();
}

qint64 PageFileReply::bytesAvailable() const
{
    return QNetworkReply::bytesAvailable() + m_content.size() - m_read;
}

qint64 PageFileReply::readData(char *data, qint64 maximum)
{
    const qint64 size = qMin(maximum, m_content.size() - m_read);
    if (size <= 0)
        return -1;
    std::memcpy(data, m_content.constData() + m_read, size_t(size));
    m_read += size;
    return size;
}
