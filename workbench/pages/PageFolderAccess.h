#pragma once

#include "workbench/pages/PageFolder.h"

#include <QNetworkAccessManager>

/// What pages load by: files of a folder in place of the resources of the same name. A file that
/// the folder does not have comes from the resources.
class PageFolderAccess : public QNetworkAccessManager
{
    Q_OBJECT

public:
    explicit PageFolderAccess(const QString &folder, QObject *parent = nullptr);

    const PageFolder &folder() const { return m_folder; }

signals:
    /// `origin`, a frame or null, asked for the address; the file was `state` just before it was
    /// read.
    void asked(QObject *origin, const QUrl &url, const PageFolder::State &state);

protected:
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request,
                                 QIODevice *data) override;

private:
    PageFolder m_folder;
};
