#pragma once

#include "bridge/data/PrefSnapshot.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"

/// What the page of the dialog sees that sets how the record rate is written.
///
/// The setting is written as the user works, and cancelling writes back what was there at the
/// beginning. Who opened the dialog refreshes the views.
class JS_Mediator_RecordRateFormatDialog : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    explicit JS_Mediator_RecordRateFormatDialog(HostServices *host);

public slots:
    /// Ends the dialog, which leaves what was written.
    void ok();

    /// Writes back what was there at the beginning, then ends the dialog; it stays open when the
    /// host fails.
    void cancel();

    /// As it is stored now; false when the host fails. The setter writes at once.
    bool isRecordRateInsertDelimiter();
    void setRecordRateInsertDelimiter(bool val);

private:
    PrefSnapshot m_snapshot;
};
