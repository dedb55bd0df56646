#include "record/info/GUI_CustomInfoDialog.h"

#include "bridge/operation/OperationLog.h"
#include "contract/HostServices.h"
#include "record/info/JS_Mediator_CustomInfoDialog.h"

#include <QPointer>

GUI_CustomInfoDialog::GUI_CustomInfoDialog(HostServices *host, QWidget *parent, bool forTemporary)
    : GUI_CustomInfoDialog(host, Parent{parent ? parent : host->mainWidget()}, forTemporary)
{
}

GUI_CustomInfoDialog::GUI_CustomInfoDialog(HostServices *host, Parent parent, bool forTemporary)
    : GUI_WebViewDialog(host, QLatin1String("Custom info"), QLatin1String("qrc:/custominfo.html"),
                        new JS_Mediator_CustomInfoDialog(host, this, forTemporary), parent.widget)
{
    setFixedSize(510, 530);
}

void GUI_CustomInfoDialog::setCallbackType(int type)
{
    customInfo()->setCallbackType(type);
}

void GUI_CustomInfoDialog::closeEvent(QCloseEvent *event)
{
    OperationLogScope trace(QLatin1String("GUI_CustomInfoDialog::closeEvent"));
    QPointer<GUI_CustomInfoDialog> self(this); // a call of the host may end it
    customInfo()->cancel();
    if (self)
        rejectOnClose(event);
}

JS_Mediator_CustomInfoDialog *GUI_CustomInfoDialog::customInfo() const
{
    return static_cast<JS_Mediator_CustomInfoDialog *>(mediator());
}
