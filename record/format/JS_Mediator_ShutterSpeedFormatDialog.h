#pragma once

#include "bridge/data/PrefSnapshot.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"

/// What the page of the dialog sees that sets how the shutter speed is written.
///
/// Settings are written as the user works, and cancelling writes back what was there at the
/// beginning. Who opened the dialog refreshes the views.
class JS_Mediator_ShutterSpeedFormatDialog : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    explicit JS_Mediator_ShutterSpeedFormatDialog(HostServices *host);

public slots:
    /// Ends the dialog, which leaves what was written.
    void ok();

    /// Writes back what was there at the beginning, then ends the dialog; it stays open when the
    /// host fails.
    void cancel();

    /// As they are stored now; 0 or false when the host fails. Setters write at once.
    int getShutterSpeedFormat();
    void setShutterSpeedFormat(int format);

    int getShutterSpeedTimeUnit();
    void setShutterSpeedTimeUnit(int unit);

    bool isShutterSpeedInsertDelimiter();
    void setShutterSpeedInsertDelimiter(bool val);

private:
    PrefSnapshot m_snapshot;
};
