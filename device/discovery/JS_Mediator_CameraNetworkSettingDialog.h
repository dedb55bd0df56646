#pragma once

#include "bridge/mediator/JS_Mediator_Dialog.h"

/// What the page of the dialog sees that sets how cameras are searched for in the network. Settings
/// are written as the user works. GUI thread.
class JS_Mediator_CameraNetworkSettingDialog : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    explicit JS_Mediator_CameraNetworkSettingDialog(HostServices *host);

public slots:
    /// Which way is taken, by the numbers of the host; 0 when the host fails.
    int getCameraSearchWay();

    /// An address of the subnet that is searched, where the way is to search one; empty when the
    /// host fails.
    QString getCameraSearchIPAddress();

    void setCameraSearchWay(int mode);
    void setCameraSearchIPAddress(const QString &ipAddress);

    /// End the dialog; both leave what was written.
    void ok();
    void cancel();
};
