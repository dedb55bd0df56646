#include "standin/session/CameraLock.h"

#include "standin/documents/DocumentOwner.h"
#include "standin/documents/StandInCamera.h"
#include "standin/journal/StandInEvents.h"
#include "standin/session/CameraSettingsStep.h"
#include "standin/session/DocumentList.h"
#include "standin/session/UndoHistory.h"

namespace {

void takeOver(CameraSettings &target, const CameraSettings &source, CameraSetting setting)
{
    switch (setting) {
    case CameraSetting::RecordRate:
        target.recordRate = source.recordRate;
        break;
    case CameraSetting::ShutterSpeed:
        target.shutterSpeed = source.shutterSpeed;
        break;
    case CameraSetting::Region:
        target.region = source.region;
        break;
    }
}

QString stepText(const StandInCamera &camera, CameraSetting setting)
{
    const QString pattern =
        setting == CameraSetting::RecordRate     ? QStringLiteral("Record rate of %1")
        : setting == CameraSetting::ShutterSpeed ? QStringLiteral("Shutter speed of %1")
                                                 : QStringLiteral("Region of %1");
    return pattern.arg(camera.name());
}

}

CameraLock::CameraLock(DocumentOwner &owner, DocumentList &documents, UndoHistory &history)
    : m_owner(owner), m_documents(documents), m_history(history)
{
}

void CameraLock::set(bool on)
{
    const bool changed = on != m_on;
    m_on = on;
    for (StandInCamera *camera : m_documents.cameras())
        camera->setLockedTogether(on);
    if (changed)
        emit m_owner.events()->lockChanged(on);
}

void CameraLock::changeSettings(StandInCamera &camera, const CameraSettings &wanted,
                                CameraSetting setting)
{
    const CameraSettings own = clampedSettings(wanted, camera.limits());
    CameraSettingsByKey changes{{camera.key(), own}};
    if (camera.isLockedTogether()) {
        for (const StandInCamera *other : m_documents.cameras()) {
            if (other == &camera || !other->isLockedTogether())
                continue;
            CameraSettings settings = other->settings();
            takeOver(settings, own, setting);
            changes.insert(other->key(), clampedSettings(settings, other->limits()));
        }
    }
    push(changes, stepText(camera, setting), true);
}

void CameraLock::editSettings(StandInCamera &camera, const CameraSettings &settings)
{
    push({{camera.key(), clampedSettings(settings, camera.limits())}},
         QStringLiteral("Settings of %1").arg(camera.name()), false);
}

void CameraLock::setAll(const CameraSettingsByKey &wanted, const QString &text)
{
    CameraSettingsByKey possible;
    for (auto entry = wanted.cbegin(); entry != wanted.cend(); ++entry) {
        if (const StandInCamera *camera = m_documents.camera(entry.key()))
            possible.insert(entry.key(), clampedSettings(entry.value(), camera->limits()));
    }
    push(possible, text, true);
}

void CameraLock::push(const CameraSettingsByKey &wanted, const QString &text, bool send)
{
    QMap<DOCKEY, CameraSettingsStep::Change> changes;
    for (auto entry = wanted.cbegin(); entry != wanted.cend(); ++entry) {
        const StandInCamera *target = m_documents.camera(entry.key());
        if (target && target->settings() != entry.value())
            changes.insert(entry.key(), {target->settings(), entry.value()});
    }
    if (!changes.isEmpty())
        m_history.push(new CameraSettingsStep(m_owner, text, changes, send));
}

void CameraLock::resend()
{
    StandInCamera *source = m_documents.camera(m_documents.currentKey());
    if (!source)
        return;
    const CameraSettings before = source->deviceSettings();
    source->sendSettings();
    if (!source->isLockedTogether())
        return;
    CameraSettingsByKey changes;
    for (StandInCamera *other : m_documents.cameras()) {
        if (other == source || !other->isLockedTogether())
            continue;
        CameraSettings settings = source->settings();
        // An edit of the region is no reason to send what was set before the lock.
        if (m_owner.isReadOutEdited()) {
            other->sendSettings(); // takes the region that the tool has for it
            settings.region = other->sensorRegion();
            if (settings.recordRate == before.recordRate)
                settings.recordRate = other->recordRate();
            if (settings.shutterSpeed == before.shutterSpeed)
                settings.shutterSpeed = other->shutterSpeed();
        }
        settings = clampedSettings(settings, other->limits());
        if (settings != other->settings())
            changes.insert(other->key(), settings);
        else if (!m_owner.isReadOutEdited())
            other->sendSettings();
    }
    push(changes, QStringLiteral("Settings of %1").arg(source->name()), true);
}

void CameraLock::restore(const CameraSettingsByKey &settings)
{
    for (auto entry = settings.cbegin(); entry != settings.cend(); ++entry) {
        StandInCamera *target = m_documents.camera(entry.key());
        if (target && target->settings() != entry.value())
            target->takeSettings(entry.value(), true);
    }
}

CameraSettingsByKey CameraLock::settingsOfAll() const
{
    CameraSettingsByKey all;
    for (const StandInCamera *entry : m_documents.cameras())
        all.insert(entry->key(), entry->settings());
    return all;
}
