#include "save/dialog/GUI_FileSaveDialog.h"

#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "save/dialog/JS_Mediator_FileSaveDialog.h"

GUI_FileSaveDialog::GUI_FileSaveDialog(HostServices *host, const QString &title, const QString &url,
                                       const QString &pageName, QWidget *parent)
    : GUI_WebViewDialog(host, title, url, new JS_Mediator_FileSaveDialog(host, pageName), parent)
{
    auto *page = static_cast<JS_Mediator_FileSaveDialog *>(mediator());
    connect(page, &JS_Mediator_FileSaveDialog::exportTarget, this,
            &GUI_FileSaveDialog::exportTarget);
}

// A page may choose what has gone.
void GUI_FileSaveDialog::exportTarget(DOCKEY dockey, PARTITIONNUMBER partitionNo)
{
    HostServices *services = host();
    QPointer<GUI_FileSaveDialog> self(this); // a call of the host may end it
    guarded(services, [&] {
        DOC_Interface *doc = services->deviceByKey(dockey, true);
        if (doc && doc->partitionNumbers().contains(partitionNo) && self)
            m_partitions.append(partitionNo);
    });
}
