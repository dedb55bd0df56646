#include "workbench/app/CameraFiles.h"

#include "bridge/operation/ConcurrentTask.h"
#include "bridge/operation/DialogRun.h"
#include "contract/HostGuard.h"
#include "device/settingsfile/GUI_CameraFileDialog.h"

namespace CameraFiles {

void open(HostServices *host, QWidget *parent)
{
    guarded(host, [&] {
        GUI_CameraFileDialog dialog(host, QFileDialog::AcceptOpen, parent);
        DialogRun::exec(dialog);
    });
}

void save(HostServices *host, QWidget *parent)
{
    guarded(host, [&] {
        GUI_CameraFileDialog dialog(host, QFileDialog::AcceptSave, parent);
        if (DialogRun::exec(dialog) != QDialog::Accepted)
            return;
        QList<DOCKEY> keys;
        host->selectedDocKeys(keys, true);
        const QString path = dialog.path();
        ConcurrentTask::run(host, QStringLiteral("Saving..."),
                            [&] { host->saveCameraSettings(path, keys); });
    });
}

}
