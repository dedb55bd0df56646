#include "standin/session/CameraPresets.h"

#include "standin/documents/StandInCamera.h"
#include "standin/session/CameraLock.h"
#include "standin/session/DocumentList.h"

CameraPresets::CameraPresets(DocumentList &documents, CameraLock &settings)
    : m_documents(documents), m_settings(settings)
{
}

QList<StandInCamera *> CameraPresets::headsOf(const StandInCamera &camera) const
{
    QList<StandInCamera *> heads;
    for (StandInCamera *other : m_documents.cameras()) {
        if (other->state().cameraNumber == camera.state().cameraNumber)
            heads.append(other);
    }
    return heads;
}

void CameraPresets::apply(StandInCamera &camera, int number)
{
    const bool waits = camera.state().presetsWithReboot.contains(number);
    const QList<StandInCamera *> heads = headsOf(camera);
    for (StandInCamera *head : heads) {
        DocumentState &state = head->state();
        state.appliedPreset = number;
        state.waitingPreset = waits ? number : 0;
        for (PresetInfo &preset : state.presets)
            preset.selected = preset.number == number;
    }
    if (!waits)
        takeSettings(heads, number);
}

void CameraPresets::restart(StandInCamera &camera)
{
    const int number = camera.state().waitingPreset;
    const QList<StandInCamera *> heads = headsOf(camera);
    for (StandInCamera *head : heads)
        head->state().waitingPreset = 0;
    if (number > 0)
        takeSettings(heads, number);
}

void CameraPresets::takeSettings(const QList<StandInCamera *> &heads, int number)
{
    CameraSettingsByKey wanted;
    for (const StandInCamera *head : heads) {
        const auto settings = head->state().presetSettings.constFind(number);
        if (settings != head->state().presetSettings.constEnd())
            wanted.insert(head->key(), *settings);
    }
    if (!wanted.isEmpty())
        m_settings.setAll(
            wanted,
            QStringLiteral("Preset %1 of %2").arg(QString::number(number), heads.first()->name()));
}
