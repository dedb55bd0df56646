#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"

/// The dialog that adds a camera by its address, or a dummy that exists in the application alone.
/// Its page sees the mediator as "adddevice", and names to choose from as
/// "adddeviceAutoCameraName". It has no close button: the page ends it. GUI thread.
class GUI_AddDeviceDialog : public GUI_WebViewDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog. `connect` tells whether the new camera is to be connected at
    /// once. Throws what the host throws.
    GUI_AddDeviceDialog(HostServices *host, bool connect, QWidget *parent);
};
