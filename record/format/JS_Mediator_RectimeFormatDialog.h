#pragma once

#include "bridge/data/PrefSnapshot.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"

/// What the page of the dialog sees that sets how the recording time is written.
///
/// The setting is written as the user works, and cancelling writes back what was there at the
/// beginning. The views follow each change.
class JS_Mediator_RectimeFormatDialog : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    explicit JS_Mediator_RectimeFormatDialog(HostServices *host);

public slots:
    /// Ends the dialog, which leaves what was written.
    void ok();

    /// Writes back what was there at the beginning, then ends the dialog; it stays open when the
    /// host fails.
    void cancel();

    /// As it is stored now; 0 when the host fails. The setter writes at once.
    int getRecTimeUnit();
    void setRecTimeUnit(int unit);

private:
    PrefSnapshot m_snapshot;
};
