#pragma once

#include <QNetworkReply>

/// The answer to a page's request: the bytes of a file, under the address that the page asked for,
/// so that script errors tell that address and their line. Complete from the beginning; it says so
/// in the next turn of the event loop.
class PageFileReply : public QNetworkReply
{
    Q_OBJECT

public:
    /// The content's type is that of the address' suffix.
    PageFileReply(const QNetworkRequest &request, const QByteArray &content, QObject *parent);

    void abort() override;
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override;

protected:
    qint64 readData(char *data, qint64 maximum) override;

private:
    void tell();

    QByteArray m_content;
    qint64 m_read = 0;
};
