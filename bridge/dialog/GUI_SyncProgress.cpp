#include "bridge/dialog/GUI_SyncProgress.h"

void GUI_SyncProgress::complete(bool result)
{
    done(result ? QDialog::Accepted : QDialog::Rejected);
}
