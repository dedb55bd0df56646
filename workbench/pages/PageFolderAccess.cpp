#include "workbench/pages/PageFolderAccess.h"

#include "workbench/pages/PageFileReply.h"

#include <QFile>
#include <QNetworkRequest>

PageFolderAccess::PageFolderAccess(const QString &folder, QObject *parent)
    : QNetworkAccessManager(parent), m_folder(folder)
{
}

QNetworkReply *PageFolderAccess::createRequest(Operation operation, const QNetworkRequest &request,
                                               QIODevice *data)
{
    if (operation == GetOperation && request.url().scheme() == QLatin1String("qrc")) {
        const PageFolder::State state = m_folder.stateOf(request.url());
        emit asked(request.originatingObject(), request.url(), state);
        QFile file(state.file);
        if (!state.file.isEmpty() && file.open(QIODevice::ReadOnly))
            return new PageFileReply(request, file.readAll(), this);
    }
    return QNetworkAccessManager::createRequest(operation, request, data);
}
