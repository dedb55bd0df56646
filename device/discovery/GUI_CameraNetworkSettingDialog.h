#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"

/// The dialog that sets how cameras are searched for in the network. GUI thread.
class GUI_CameraNetworkSettingDialog : public GUI_WebViewDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog. Throws what the host throws.
    GUI_CameraNetworkSettingDialog(HostServices *host, QWidget *parent);

public slots:
    void ok();     ///< accepts
    void cancel(); ///< rejects
};
