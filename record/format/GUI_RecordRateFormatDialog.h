#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"

/// The dialog that sets how the record rate is written.
class GUI_RecordRateFormatDialog : public GUI_WebViewDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog; its main widget becomes the parent. Throws what the host throws.
    explicit GUI_RecordRateFormatDialog(HostServices *host);

private:
    GUI_RecordRateFormatDialog(HostServices *host, QWidget *parent);
};
