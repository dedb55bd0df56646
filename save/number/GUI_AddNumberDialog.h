#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"

/// The dialog that sets how many digits the camera, head and session part of a number have. GUI
/// thread.
class GUI_AddNumberDialog : public GUI_WebViewDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog. `targetKind` names the level of a path that has the number; the
    /// counts are those of the documents and heads that are selected. Throws what the host throws.
    GUI_AddNumberDialog(HostServices *host, QWidget *parent, int targetKind, int selectedDocs,
                        int selectedHeads);
};
