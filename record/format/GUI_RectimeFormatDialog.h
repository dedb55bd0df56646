#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"

/// The dialog that sets how the recording time is written.
class GUI_RectimeFormatDialog : public GUI_WebViewDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog; its main widget becomes the parent. Throws what the host throws.
    explicit GUI_RectimeFormatDialog(HostServices *host);

private:
    GUI_RectimeFormatDialog(HostServices *host, QWidget *parent);
};
