#pragma once

#include "bridge/mediator/JS_Mediator_ModelessPatternDialog.h"

class PLG_note;

/// What the page of the dialog sees, under the name "note".
class JS_Mediator_Note : public JS_Mediator_ModelessPatternDialog
{
    Q_OBJECT

public:
    /// The tool outlives the mediator.
    JS_Mediator_Note(HostServices *host, PLG_note &tool);

public slots:
    void onOpen() override;
    void onClose() override;

    /// The current camera's "camera" (its number), "name", "text", "changed" (date and time for the
    /// user) and "written" (the application has it). "camera" is -1 without a camera; nothing at
    /// all when the host fails.
    QVariantMap getNote();

    /// Keeps a text as the note of the camera with this number, current or not.
    void setNote(int camera, const QString &text);

private:
    PLG_note &m_tool;
};
