#pragma once

#include "bridge/mediator/JS_Mediator_Dialog.h"

/// What the page of the dialog sees that sets the digits of a number. It reads only: the page
/// writes the settings itself. GUI thread.
class JS_Mediator_AddNumberDialog : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    /// `callbackType` is the target kind whose digits are set. The counts, of the documents and
    /// heads that are selected, tell how many digits are enough for them.
    JS_Mediator_AddNumberDialog(HostServices *host, int callbackType, int selectedDocs,
                                int selectedHeads);

public slots:
    /// Whether numbers have no camera and no head: for files, and for everything that is converted.
    bool isFileMode() override;

    /// The target kind.
    int getCallbackType();

    /// The text of the first number with these digits; a count below 1 leaves its part out. Empty
    /// when the host fails.
    QString preview(int deviceDigits, int headDigits, int sessionDigits);

    /// Digits that are enough for the selected documents.
    int getAutoDeviceDigits();

    /// Digits that are enough for the selected heads; 0 for a single one, which needs no number.
    int getAutoHeadDigits();

private:
    bool isConversion() const;

    int m_callbackType;
    int m_autoDeviceDigits;
    int m_autoHeadDigits;
};
