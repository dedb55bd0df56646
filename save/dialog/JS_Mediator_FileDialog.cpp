#include "save/dialog/JS_Mediator_FileDialog.h"

#include "bridge/operation/DialogRun.h"
#include "bridge/operation/OperationLog.h"
#include "bridge/operation/OwnedDialog.h"
#include "contract/HostGuard.h"
#include "foundation/Clock.h"
#include "foundation/LogGroups.h"
#include "foundation/SaveModes.h"
#include "record/display/GUI_EditInfoDialog.h"
#include "record/timecode/GUI_TimeCodeCustomDialog.h"

#include <QPointer>

// The selection, and the dialogs that a save page opens.

JS_Mediator_FileDialog::JS_Mediator_FileDialog(HostServices *host, const QString &name)
    : JS_Mediator_Dialog(host, name), m_exportTime(Clock::now())
{
    host->clearPlannedGroupDir(); // a new dialog does not take over the group of another
}

int JS_Mediator_FileDialog::saveModeOfPage() const
{
    const QString name = pageName();
    if (name == QLatin1String("batchconverter") ||
        name == QLatin1String("convertparametereditdialog"))
        return SaveModes::ConvertMode;
    if (name == QLatin1String("reportExportDialog"))
        return SaveModes::ReportMode;
    if (name == QLatin1String("snapshotdialog"))
        return SaveModes::SnapMode;
    if (name == QLatin1String("layoutsavedialog"))
        return SaveModes::LayoutMode;
    return SaveModes::ExportMode;
}

int JS_Mediator_FileDialog::previewModeOfPage() const
{
    switch (saveModeOfPage()) {
    case SaveModes::ConvertMode:
        return SaveModes::ConvertPreview;
    case SaveModes::ReportMode:
        return SaveModes::ReportPreview;
    case SaveModes::LayoutMode:
        return SaveModes::LayoutPreview;
    default:
        return pageName() == QLatin1String("fileopendialog") ? SaveModes::FilePreview
                                                             : SaveModes::ExportPreview;
    }
}

DOCKEY JS_Mediator_FileDialog::getSelectDocKey()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::getSelectDocKey"));
    return m_selectDocKey;
}

void JS_Mediator_FileDialog::setSelectDocKey(DOCKEY dockey)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::setSelectDocKey"),
                            LogGroups::group(QLatin1String("dockey"), dockey));
    m_selectDocKey = dockey;
}

int JS_Mediator_FileDialog::getSelectPartitionNo()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::getSelectPartitionNo"));
    return m_selectPartitionNo;
}

void JS_Mediator_FileDialog::setSelectPartitionNo(int partitionNo)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::setSelectPartitionNo"),
                            LogGroups::group(QLatin1String("partitionNo"), partitionNo));
    m_selectPartitionNo = partitionNo;
}

void JS_Mediator_FileDialog::setSelection(DOCKEY docKey, PARTITIONNUMBER partitionNo)
{
    m_selectDocKey = docKey;
    m_selectPartitionNo = partitionNo;
}

// What a conversion reads must not change under it. `make` gives null where nothing is to open.
bool JS_Mediator_FileDialog::runEditor(const std::function<QDialog *()> &make)
{
    HostServices *services = host();
    return guarded(services, false, [&] {
        if (services->isConverting()) {
            services->warn(services->translate(
                               QLatin1String("You can not edit during the conversion process.")),
                           nullptr);
            return false;
        }
        QDialog *made = make();
        if (!made)
            return false;
        const OwnedDialog dialog(made);
        return DialogRun::exec(*dialog) == QDialog::Accepted;
    });
}

bool JS_Mediator_FileDialog::openCustumTimeCodeDialog()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::openCustumTimeCodeDialog"));
    HostServices *services = host(); // its calls may end the mediator
    return runEditor(
        [services] { return new GUI_TimeCodeCustomDialog(services, services->mainWidget()); });
}

bool JS_Mediator_FileDialog::saveInfoView(const QVariantList &targets)
{
    OperationLogScope trace(QLatin1String("JS_Mediator_FileDialog::saveInfoView"),
                            LogGroups::group(QLatin1String("targets"), targets));
    HostServices *services = host(); // its calls may end the mediator
    const int mode = saveModeOfPage();
    const DOCKEY selected = m_selectDocKey;
    const int partitionNo = m_selectPartitionNo;
    const QDateTime time = m_exportTime;
    return runEditor([&] {
        QList<DOC_Interface *> documents;
        for (const QVariant &key : targets) {
            if (DOC_Interface *doc = services->deviceByKey(key.toULongLong(), true))
                documents.append(doc);
        }
        return new GUI_EditInfoDialog(services, mode, true, services->deviceByKey(selected, true),
                                      partitionNo, documents, time);
    });
}
