#include "record/format/GUI_FrameFormatDialog.h"

#include "contract/HostServices.h"
#include "record/format/JS_Mediator_FrameFormatDialog.h"

GUI_FrameFormatDialog::GUI_FrameFormatDialog(HostServices *host)
    : GUI_FrameFormatDialog(host, host->mainWidget())
{
}

GUI_FrameFormatDialog::GUI_FrameFormatDialog(HostServices *host, QWidget *parent)
    : GUI_WebViewDialog(host, QLatin1String("frame disp"),
                        QLatin1String("qrc:/frame_format_dialog.html"),
                        new JS_Mediator_FrameFormatDialog(host), parent)
{
    setFixedSize(300, 100);
}
