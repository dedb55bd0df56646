#pragma once

#include "bridge/dialog/GUI_ProgressDialog.h"

/// A progress dialog for work whose length is not known. The host makes it.
class GUI_MarqueeProgressDialog : public GUI_ProgressDialog
{
    Q_OBJECT

public:
    using GUI_ProgressDialog::GUI_ProgressDialog;
};
