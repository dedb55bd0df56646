#include "device/discovery/JS_Mediator_CameraNetworkSettingDialog.h"

#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/OperationLog.h"
#include "contract/HostGuard.h"
#include "foundation/Keys.h"
#include "foundation/LogGroups.h"

JS_Mediator_CameraNetworkSettingDialog::JS_Mediator_CameraNetworkSettingDialog(HostServices *host)
    : JS_Mediator_Dialog(host, QLatin1String("cameranetworksetting"))
{
}

int JS_Mediator_CameraNetworkSettingDialog::getCameraSearchWay()
{
    OperationLogScope trace(
        QLatin1String("JS_Mediator_CameraNetworkSettingDialog::getCameraSearchWay"));
    return guarded(host(), 0, [this] {
        return host()->getPrefInt(Keys::cameraConnection.searchWay, QVariant());
    });
}

QString JS_Mediator_CameraNetworkSettingDialog::getCameraSearchIPAddress()
{
    OperationLogScope trace(
        QLatin1String("JS_Mediator_CameraNetworkSettingDialog::getCameraSearchIPAddress"));
    return guarded(host(), QString(), [this] {
        return host()->getPrefString(Keys::cameraConnection.searchIp, Keys::texts.searchIpDefault);
    });
}

void JS_Mediator_CameraNetworkSettingDialog::setCameraSearchWay(int mode)
{
    OperationLogScope trace(
        QLatin1String("JS_Mediator_CameraNetworkSettingDialog::setCameraSearchWay"),
        LogGroups::group(QLatin1String("mode"), mode));
    guarded(host(), [&] { host()->setPref(Keys::cameraConnection.searchWay, mode); });
}

void JS_Mediator_CameraNetworkSettingDialog::setCameraSearchIPAddress(const QString &ipAddress)
{
    OperationLogScope trace(
        QLatin1String("JS_Mediator_CameraNetworkSettingDialog::setCameraSearchIPAddress"),
        LogGroups::group(QLatin1String("ipAddress"), ipAddress));
    guarded(host(), [&] { host()->setPref(Keys::cameraConnection.searchIp, ipAddress); });
}

void JS_Mediator_CameraNetworkSettingDialog::ok()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CameraNetworkSettingDialog::ok"));
    guarded(host(), [this] { PageSignal::send(this, [this] { emit accept(); }); });
}

void JS_Mediator_CameraNetworkSettingDialog::cancel()
{
    OperationLogScope trace(QLatin1String("JS_Mediator_CameraNetworkSettingDialog::cancel"));
    guarded(host(), [this] { PageSignal::send(this, [this] { emit reject(); }); });
}
