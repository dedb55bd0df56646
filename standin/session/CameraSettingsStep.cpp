#include "standin/session/CameraSettingsStep.h"

#include "standin/documents/DocumentOwner.h"
#include "standin/documents/StandInCamera.h"

CameraSettingsStep::CameraSettingsStep(DocumentOwner &owner, const QString &text,
                                       const QMap<DOCKEY, Change> &changes, bool send)
    : QUndoCommand(text), m_owner(owner), m_changes(changes), m_send(send)
{
}

void CameraSettingsStep::undo()
{
    for (auto change = m_changes.cbegin(); change != m_changes.cend(); ++change) {
        if (StandInCamera *camera = m_owner.camera(change.key()))
            camera->takeSettings(change->before, true);
    }
}

void CameraSettingsStep::redo()
{
    for (auto change = m_changes.cbegin(); change != m_changes.cend(); ++change) {
        if (StandInCamera *camera = m_owner.camera(change.key()))
            camera->takeSettings(change->after, m_send);
    }
}
