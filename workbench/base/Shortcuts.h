#pragma once

#include <QObject>

class QWidget;
class StandInHost;

/// Makes the shortcuts of the main window work in the whole application: while the dialog of a tool
/// is the active window too, but not while a modal dialog is open.
///
/// They stand aside while a text box of such a dialog has the focus, as setTextBoxFocusState() told
/// the host: then every key is the user's text.
class Shortcuts : public QObject
{
    Q_OBJECT

public:
    /// Takes what shortcuts the window has by now. Host and window outlive it.
    Shortcuts(StandInHost &host, QWidget *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    StandInHost &m_host;
};
