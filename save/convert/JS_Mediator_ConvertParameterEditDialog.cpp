#include "save/convert/JS_Mediator_ConvertParameterEditDialog.h"

#include "bridge/operation/PartitionRestoreScope.h"
#include "bridge/operation/SavePlanScope.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "foundation/Clock.h"
#include "foundation/Keys.h"
#include "foundation/SaveModes.h"
#include "save/path/PathComposer.h"

#include <QPointer>

namespace {

// By the settings of an export, since the path is that of the save that follows the conversion.
QString automaticDirectory(HostServices *host, DOC_Interface *doc, DOCKEY key,
                           PARTITIONNUMBER partitionNo)
{
    QMap<int, QString> groupDirs;
    QMap<int, QString> dirs;
    QMap<int, QString> paths;
    SavePlanScope plan(host, SavePlanScope::Clear::Everything);
    PartitionRestoreScope partition(host, doc, key, partitionNo);
    PathComposer::composeTargetPaths(host, SaveModes::ExportMode, doc, false, groupDirs, dirs,
                                     paths, Clock::now(), 0);
    return dirs.value(partitionNo);
}

}

JS_Mediator_ConvertParameterEditDialog::JS_Mediator_ConvertParameterEditDialog(
    HostServices *host, const QVariantList &targetItems, DOCKEY selectDocKey,
    PARTITIONNUMBER selectPartitionNo)
    : JS_Mediator_FileDialog(host, QLatin1String("convertparametereditdialog")),
      m_targetItems(targetItems)
{
    setSelection(selectDocKey, selectPartitionNo);
}

QString JS_Mediator_ConvertParameterEditDialog::list(bool)
{
    HostServices *services = host(); // its calls may end the mediator
    const QVariantList targets = m_targetItems;
    guarded(services, [&] {
        const bool info = services->getPrefBool(Keys::convertSave.saveInfo, QVariant());
        for (const QVariant &key : targets) {
            if (DOC_Interface *doc = services->deviceByKey(key.toULongLong(), true))
                doc->setSaveInfoOption(info);
        }
    });
    return QString();
}

QString JS_Mediator_ConvertParameterEditDialog::list()
{
    return list(false);
}

QVariantList JS_Mediator_ConvertParameterEditDialog::getTargetItems()
{
    return m_targetItems;
}

QString JS_Mediator_ConvertParameterEditDialog::getExportPath()
{
    HostServices *services = host(); // its calls may end the mediator
    QPointer<JS_Mediator_ConvertParameterEditDialog> self(this);
    const DOCKEY key = selectDocKey();
    const int partitionNo = selectPartitionNo();
    return guarded(services, QString(), [&] {
        if (!services->getPrefBool(Keys::convertSave.dirAsOriginal, QVariant()))
            return self ? JS_Mediator_FileDialog::getExportPath() : QString();
        DOC_Interface *doc = services->deviceByKey(key, true);
        return doc ? automaticDirectory(services, doc, key, partitionNo) : QString();
    });
}
