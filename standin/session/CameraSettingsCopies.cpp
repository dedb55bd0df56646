#include "standin/session/CameraSettingsCopies.h"

#include "standin/documents/StandInCamera.h"

#include <QMutexLocker>

void CameraSettingsCopies::take(const StandInCamera &camera)
{
    const CameraSettingsRecord record = CameraSettingsRecord::of(camera);
    const QMutexLocker locker(&m_mutex);
    m_records.insert(camera.key(), record);
}

void CameraSettingsCopies::drop(DOCKEY key)
{
    const QMutexLocker locker(&m_mutex);
    m_records.remove(key);
}

QVector<CameraSettingsRecord> CameraSettingsCopies::of(const QList<DOCKEY> &keys) const
{
    QVector<CameraSettingsRecord> records;
    const QMutexLocker locker(&m_mutex);
    for (DOCKEY key : keys) {
        const auto found = m_records.constFind(key);
        if (found != m_records.constEnd())
            records.append(*found);
    }
    return records;
}
