#include "device/discovery/GUI_CameraNetworkSettingDialog.h"

#include "device/discovery/JS_Mediator_CameraNetworkSettingDialog.h"

GUI_CameraNetworkSettingDialog::GUI_CameraNetworkSettingDialog(HostServices *host, QWidget *parent)
    : GUI_WebViewDialog(host, QLatin1String("Camera network setting"),
                        QLatin1String("qrc:/cameranetworksetting.html"),
                        new JS_Mediator_CameraNetworkSettingDialog(host), parent)
{
    resize(460, 300);
}

void GUI_CameraNetworkSettingDialog::ok()
{
    contained([this] { accept(); });
}

void GUI_CameraNetworkSettingDialog::cancel()
{
    contained([this] { reject(); });
}
