#pragma once

#include "plugin/PLG_Button.h"

#include <QHash>

/// A tool with a modeless dialog: a note for each camera, written while working.
///
/// Notes are kept in the host's settings, by the number of the camera; each change is written at
/// once. A recording is no camera: the tool is for live and memory mode, and its dialog closes in
/// file mode.
class PLG_note final : public PLG_Button
{
    Q_OBJECT

public:
    /// A camera's note, as it was written last.
    struct Note
    {
        QString text;
        QString changed;      ///< date and time as ISO 8601 text; empty when it was never written
        bool written = false; ///< the host has it
    };

    PLG_note();

    /// Lets the page of the dialog draw anew.
    void update() override;

    GUI_ModelessPatternDialog *createModelessPatternDialog(bool create) override;

    /// Number and name of the current camera; number -1 without one. Throws what the host throws,
    /// like note() and writeNotes().
    int currentCamera(QString &cameraName);

    Note note(int camera);

    /// Takes a text as a camera's note. It is safe with the tool until writeNotes() has brought it
    /// to the host.
    void setNote(int camera, const QString &text);

    /// Writes what the host does not have yet. Throws what the host throws, but for one trouble
    /// only once: the user goes on typing.
    void writeNotes();

public slots:
    /// What the host does not have yet gets one more chance.
    void slotModelessPatternDialogClosed() override;

private:
    QHash<int, Note> m_unwritten; ///< by number of the camera
    bool m_troubleTold = false;
};
