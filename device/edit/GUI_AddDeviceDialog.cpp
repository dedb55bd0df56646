#include "device/edit/GUI_AddDeviceDialog.h"

#include "device/edit/JS_Mediator_AddDeviceDialog.h"
#include "device/names/JS_Mediator_AutoCameraName.h"

GUI_AddDeviceDialog::GUI_AddDeviceDialog(HostServices *host, bool connect, QWidget *parent)
    : GUI_WebViewDialog(host, QLatin1String("Add Device"),
                        QLatin1String("qrc:/livecontrol_adddevice.html"),
                        new JS_Mediator_AddDeviceDialog(host, connect), parent)
{
    setWindowFlags(windowFlags() & ~(Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint |
                                     Qt::WindowContextHelpButtonHint | Qt::WindowStaysOnTopHint |
                                     Qt::WindowCloseButtonHint));
    setFixedSize(395, 195);
    addMediator(new JS_Mediator_AutoCameraName(host, QLatin1String("adddeviceAutoCameraName")));
}
