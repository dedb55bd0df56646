#include "save/dialog/JS_Mediator_FileDialog.h"

#include "bridge/operation/OperationLog.h"
#include "bridge/operation/SavePlanScope.h"
#include "contract/HostGuard.h"
#include "foundation/LogGroups.h"
#include "foundation/SaveModes.h"
#include "save/dialog/PreviewSelectionScope.h"
#include "save/path/PathComposer.h"

#include <QPointer>

// Where a save would go.

QString JS_Mediator_FileDialog::getExportPath()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::getExportPath"));
    HostServices *services = host(); // its calls may end the mediator
    const int mode = saveModeOfPage();
    const DOCKEY docKey = m_selectDocKey;
    return guarded(services, QString(), [&] {
        return PathComposer::composeDirectory(services, mode, services->deviceByKey(docKey, true));
    });
}

QString JS_Mediator_FileDialog::exportFileName(bool withAdditions)
{
    HostServices *services = host(); // its calls may end the mediator
    const int mode = saveModeOfPage();
    const DOCKEY docKey = m_selectDocKey;
    const int partitionNo = m_selectPartitionNo;
    const QDateTime time = m_exportTime;
    services->clearPlannedFiles();
    return PathComposer::composeFileName(services, mode, services->deviceByKey(docKey, true),
                                         partitionNo, withAdditions, time);
}

// The group directory is that of the batch, which another document may have given.
void JS_Mediator_FileDialog::takeUpGroupDir()
{
    if (m_selectDocKey == m_previewDocKey)
        return;
    HostServices *services = host(); // its calls may end the mediator
    const QString name = getExportGroupDir(m_previewDocKey, m_previewPartitionNo);
    if (!name.isEmpty())
        services->setPlannedGroupDir(name);
}

QString JS_Mediator_FileDialog::getExportFile()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::getExportFile"));
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_FileDialog> self(this);
    return guarded(services, QString(), [&] {
        SavePlanScope plan(services, SavePlanScope::Clear::GroupDir);
        takeUpGroupDir();
        return self ? exportFileName(true) : QString();
    });
}

QString JS_Mediator_FileDialog::getExportGroupDir(DOCKEY docKey, PARTITIONNUMBER partitionNo)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::getExportGroupDir"),
                            LogGroups::group(QLatin1String("docKey"), docKey) +
                                LogGroups::group(QLatin1String("partitionNo"), partitionNo));
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_FileDialog> self(this);
    m_previewDocKey = docKey;
    m_previewPartitionNo = partitionNo;
    const int mode = saveModeOfPage();
    const QDateTime time = m_exportTime;
    const QString &option =
        SaveModes::keys(SaveModes::groupDirFamily(mode)).groupDir.asFileNameIncludeOption;
    return guarded(services, QString(), [&] {
        PreviewSelectionScope selection(this, m_selectDocKey, m_selectPartitionNo, docKey,
                                        partitionNo);
        const bool withAdditions = services->getPrefBool(option, QVariant());
        if (!self)
            return QString();
        const QString name = exportFileName(withAdditions);
        return PathComposer::composeGroupDir(services, mode, services->deviceByKey(docKey, true),
                                             name, time);
    });
}

QString JS_Mediator_FileDialog::getExportGroupDir(DOCKEY docKey)
{
    return getExportGroupDir(docKey, 0);
}

QString JS_Mediator_FileDialog::getExportGroupDir()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::getExportGroupDir"));
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_FileDialog> self(this);
    return guarded(services, QString(), [&] {
        services->clearPlannedDirs();
        const QList<DOCKEY> keys = services->liveDocumentKeys(true);
        return self && !keys.isEmpty() ? getExportGroupDir(keys.first(), 1) : QString();
    });
}

QString JS_Mediator_FileDialog::getExportSubDir()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::getExportSubDir"));
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_FileDialog> self(this);
    const int mode = saveModeOfPage();
    const DOCKEY docKey = m_selectDocKey;
    const QDateTime time = m_exportTime;
    const QString &option = SaveModes::keys(SaveModes::family(mode)).subDir.asFileNameIncludeOption;
    return guarded(services, QString(), [&] {
        SavePlanScope plan(services, SavePlanScope::Clear::GroupDir);
        takeUpGroupDir();
        services->clearPlannedDirs();
        const bool withAdditions = services->getPrefBool(option, QVariant());
        if (!self)
            return QString();
        const QString name = exportFileName(withAdditions);
        return PathComposer::composeSubDir(services, mode, services->deviceByKey(docKey, true),
                                           name, time);
    });
}
