#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"

/// The dialog that sets how the frame number is written.
class GUI_FrameFormatDialog : public GUI_WebViewDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog; its main widget becomes the parent. Throws what the host throws.
    explicit GUI_FrameFormatDialog(HostServices *host);

private:
    GUI_FrameFormatDialog(HostServices *host, QWidget *parent);
};
