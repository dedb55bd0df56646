#pragma once

#include "bridge/dialog/GUI_Dialog.h"

/// A dialog that is shown while something runs. The host makes it.
class GUI_ProgressDialog : public GUI_Dialog
{
    Q_OBJECT

public:
    using GUI_Dialog::GUI_Dialog;
};
