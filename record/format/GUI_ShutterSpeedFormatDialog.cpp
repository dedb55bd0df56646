#include "record/format/GUI_ShutterSpeedFormatDialog.h"

#include "contract/HostServices.h"
#include "record/format/JS_Mediator_ShutterSpeedFormatDialog.h"

GUI_ShutterSpeedFormatDialog::GUI_ShutterSpeedFormatDialog(HostServices *host)
    : GUI_ShutterSpeedFormatDialog(host, host->mainWidget())
{
}

GUI_ShutterSpeedFormatDialog::GUI_ShutterSpeedFormatDialog(HostServices *host, QWidget *parent)
    : GUI_WebViewDialog(host, QLatin1String("Shutter speed disp"),
                        QLatin1String("qrc:/shutterspeed_format_dialog.html"),
                        new JS_Mediator_ShutterSpeedFormatDialog(host), parent)
{
    setFixedSize(300, 150);
}
