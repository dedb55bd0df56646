#pragma once

#include "bridge/dialog/GUI_ProgressDialog.h"

/// A progress dialog that somebody waits for: exec() returns when the work tells its end. The host
/// makes it.
class GUI_SyncProgress : public GUI_ProgressDialog
{
    Q_OBJECT

public:
    using GUI_ProgressDialog::GUI_ProgressDialog;

public slots:
    /// The work has ended; `result` makes the dialog's result QDialog::Accepted or Rejected.
    void complete(bool result);
};
