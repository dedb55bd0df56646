#include "standin/documents/CameraSettingsStep.h"
#include "standin/host/StandInHost.h"

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

void StandInHost::changeSettings(StandInCamera &camera, const CameraSettings &wanted,
                                 CameraSetting setting)
{
    const CameraSettings own = clampedSettings(wanted, camera.limits());
    SettingsByKey changes{{camera.key(), own}};
    if (camera.isLockedTogether()) {
        for (const StandInCamera *other : cameras()) {
            if (other == &camera || !other->isLockedTogether())
                continue;
            CameraSettings settings = other->settings();
            takeOver(settings, own, setting);
            changes.insert(other->key(), clampedSettings(settings, other->limits()));
        }
    }
    pushSettings(changes, stepText(camera, setting), true);
}

void StandInHost::editSettings(StandInCamera &camera, const CameraSettings &settings)
{
    pushSettings({{camera.key(), clampedSettings(settings, camera.limits())}},
                 QStringLiteral("Settings of %1").arg(camera.name()), false);
}

void StandInHost::pushSettings(const SettingsByKey &wanted, const QString &text, bool send)
{
    QMap<DOCKEY, CameraSettingsStep::Change> changes;
    for (auto entry = wanted.cbegin(); entry != wanted.cend(); ++entry) {
        const StandInCamera *target = camera(entry.key());
        if (target && target->settings() != entry.value())
            changes.insert(entry.key(), {target->settings(), entry.value()});
    }
    if (!changes.isEmpty())
        m_undo.push(new CameraSettingsStep(*this, text, changes, send)); // owned by the stack
}

void StandInHost::resendSettings()
{
    StandInCamera *source = camera(m_currentKey);
    if (!source)
        return;
    const CameraSettings before = source->deviceSettings();
    source->sendSettings();
    if (!source->isLockedTogether())
        return;
    SettingsByKey changes;
    for (StandInCamera *other : cameras()) {
        if (other == source || !other->isLockedTogether())
            continue;
        CameraSettings settings = source->settings();
        // An edit of the region is no reason to send what was set before the lock.
        if (isReadOutEdited()) {
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
        else if (!isReadOutEdited())
            other->sendSettings();
    }
    pushSettings(changes, QStringLiteral("Settings of %1").arg(source->name()), true);
}

void StandInHost::restoreSettings(const SettingsByKey &settings)
{
    for (auto entry = settings.cbegin(); entry != settings.cend(); ++entry) {
        StandInCamera *target = camera(entry.key());
        if (target && target->settings() != entry.value())
            target->takeSettings(entry.value(), true);
    }
}

StandInHost::SettingsByKey StandInHost::settingsOfAll() const
{
    SettingsByKey all;
    for (const StandInCamera *entry : cameras())
        all.insert(entry->key(), entry->settings());
    return all;
}
