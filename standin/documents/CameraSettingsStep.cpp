#include "standin/documents/CameraSettingsStep.h"

#include "standin/host/StandInHost.h"

CameraSettingsStep::CameraSettingsStep(StandInHost &host, const QString &text,
                                       const QMap<DOCKEY, Change> &changes, bool send)
    : QUndoCommand(text), m_host(host), m_changes(changes), m_send(send)
{
}

void CameraSettingsStep::undo()
{
    for (auto change = m_changes.cbegin(); change != m_changes.cend(); ++change) {
        if (StandInCamera *camera = m_host.camera(change.key()))
            camera->takeSettings(change->before, true);
    }
}

void CameraSettingsStep::redo()
{
    for (auto change = m_changes.cbegin(); change != m_changes.cend(); ++change) {
        if (StandInCamera *camera = m_host.camera(change.key()))
            camera->takeSettings(change->after, m_send);
    }
}
