#pragma once

#include "contract/HostTypes.h"
#include "standin/documents/CameraSettings.h"

#include <QMap>
#include <QUndoCommand>

class DocumentOwner;

/// One change of camera settings, on one camera or on all locked ones: taken back and done again in
/// one step. Cameras that have gone meanwhile are passed over.
class CameraSettingsStep : public QUndoCommand
{
public:
    struct Change
    {
        CameraSettings before;
        CameraSettings after;
    };

    /// `send`: the change goes to the devices at once; taking it back always does.
    CameraSettingsStep(DocumentOwner &owner, const QString &text,
                       const QMap<DOCKEY, Change> &changes, bool send);

    void undo() override;
    void redo() override;

private:
    DocumentOwner &m_owner;
    QMap<DOCKEY, Change> m_changes;
    bool m_send;
};
