#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"

class JS_Mediator_CustomInfoDialog;

/// The dialog that edits the custom information of several documents at once. Closed by its frame
/// it cancels: the documents get back what they held when it was opened. GUI thread.
class GUI_CustomInfoDialog : public GUI_WebViewDialog
{
    Q_OBJECT

public:
    /// `host` outlives the dialog; without a parent its main widget becomes that. `forTemporary`
    /// takes the documents of a temporary save in place of the selected ones. Throws what the host
    /// throws.
    GUI_CustomInfoDialog(HostServices *host, QWidget *parent, bool forTemporary);

    /// Decides which flag of a record the page shows: the display's for 17, as it is at the
    /// beginning, that of file names for every other.
    void setCallbackType(int type);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    struct Parent
    {
        QWidget *widget;
    };

    GUI_CustomInfoDialog(HostServices *host, Parent parent, bool forTemporary);

    JS_Mediator_CustomInfoDialog *customInfo() const;
};
