#pragma once

#include <QList>

class CameraLock;
class DocumentList;
class StandInCamera;

/// The presets of devices: settings that a device keeps, and that all of its heads take. GUI
/// thread.
class CameraPresets
{
public:
    CameraPresets(DocumentList &documents, CameraLock &settings);

    /// Chooses a preset of the camera's device. Its settings are taken at once, as one undo step,
    /// or when the device is restarted where the preset says so. A number that the device does not
    /// have is kept as the one that was given last, and does nothing else.
    void apply(StandInCamera &camera, int number);

    /// Restarts the camera's device: a preset that waited for this is taken.
    void restart(StandInCamera &camera);

private:
    QList<StandInCamera *> headsOf(const StandInCamera &camera) const;
    void takeSettings(const QList<StandInCamera *> &heads, int number);

    DocumentList &m_documents;
    CameraLock &m_settings;
};
