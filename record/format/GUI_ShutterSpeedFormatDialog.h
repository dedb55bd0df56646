#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"

/// The dialog that sets how the shutter speed is written.
class GUI_ShutterSpeedFormatDialog : public GUI_WebViewDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog; its main widget becomes the parent. Throws what the host throws.
    explicit GUI_ShutterSpeedFormatDialog(HostServices *host);

private:
    GUI_ShutterSpeedFormatDialog(HostServices *host, QWidget *parent);
};
