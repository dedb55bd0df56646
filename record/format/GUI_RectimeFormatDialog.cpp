#include "record/format/GUI_RectimeFormatDialog.h"

#include "contract/HostServices.h"
#include "record/format/JS_Mediator_RectimeFormatDialog.h"

GUI_RectimeFormatDialog::GUI_RectimeFormatDialog(HostServices *host)
    : GUI_RectimeFormatDialog(host, host->mainWidget())
{
}

GUI_RectimeFormatDialog::GUI_RectimeFormatDialog(HostServices *host, QWidget *parent)
    : GUI_WebViewDialog(host, QLatin1String("Recording time disp"),
                        QLatin1String("qrc:/rectime_format_dialog.html"),
                        new JS_Mediator_RectimeFormatDialog(host), parent)
{
    setFixedSize(330, 110);
}
