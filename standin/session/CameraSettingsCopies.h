#pragma once

#include "contract/HostTypes.h"
#include "standin/session/CameraSettingsRecord.h"

#include <QHash>
#include <QMutex>
#include <QVector>

class StandInCamera;

/// The settings of all cameras as they are now, for a thread that may not touch the cameras. GUI
/// thread, but for of().
class CameraSettingsCopies
{
public:
    /// Takes the present settings of a camera.
    void take(const StandInCamera &camera);

    /// Forgets those of a camera that is closed.
    void drop(DOCKEY key);

    /// Those of these cameras, in this order; other keys are passed over. Any thread.
    QVector<CameraSettingsRecord> of(const QList<DOCKEY> &keys) const;

private:
    mutable QMutex m_mutex;
    QHash<DOCKEY, CameraSettingsRecord> m_records;
};
