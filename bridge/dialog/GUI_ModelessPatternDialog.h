#pragma once

#include "bridge/dialog/GUI_WebViewDialog.h"

/// A tool's dialog beside the main window. It is hidden rather than destroyed when it is closed, so
/// that its page keeps its state.
class GUI_ModelessPatternDialog : public GUI_WebViewDialog
{
    Q_OBJECT

public:
    using GUI_WebViewDialog::GUI_WebViewDialog;

    /// Whether the dialog may be closed just now; while it may not, it stays on the screen.
    virtual bool mayFinish();

    /// mayFinish(), and while the dialog closes the answer that let it: it may have asked the user.
    bool mayFinishNow();

    /// The application's mode changed: 0 live, 1 memory, 2 file.
    virtual void modeChanged(int mode);

    void done(int result) override;

signals:
    void shown();
    void closed();

protected:
    void showEvent(QShowEvent *event) override;

private:
    bool m_finishing = false;
    bool m_finishGranted = false;
};
