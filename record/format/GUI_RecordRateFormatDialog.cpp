#include "record/format/GUI_RecordRateFormatDialog.h"

#include "contract/HostServices.h"
#include "record/format/JS_Mediator_RecordRateFormatDialog.h"

GUI_RecordRateFormatDialog::GUI_RecordRateFormatDialog(HostServices *host)
    : GUI_RecordRateFormatDialog(host, host->mainWidget())
{
}

GUI_RecordRateFormatDialog::GUI_RecordRateFormatDialog(HostServices *host, QWidget *parent)
    : GUI_WebViewDialog(host, QLatin1String("recordrate disp"),
                        QLatin1String("qrc:/recordrate_format_dialog.html"),
                        new JS_Mediator_RecordRateFormatDialog(host), parent)
{
    setFixedSize(300, 100);
}
