#pragma once

#include "standin/documents/CameraSettings.h"
#include "standin/documents/StandInDocument.h"

/// A camera head of the stand-in host. It draws a synthetic high-speed scene.
///
/// Its shutter, record rate and region are set through the host: a change is one step of the undo
/// stack, and while the camera is locked it reaches all locked cameras, each as far as it can.
class StandInCamera : public StandInDocumentLink<DOC_Camera>
{
public:
    /// What a new camera is. Empty texts are made from its number.
    struct Description
    {
        QString name;
        QString model = QStringLiteral("S-1024");
        QString serialNumber;
        QString headSerialNumber;
        QString firmwareVersion = QStringLiteral("1.00");
        QString address;       ///< dotted text
        int cameraNumber = -1; ///< from 0, the same for all heads of a device; below 0: the next
        int headNumber = 1;    ///< from 1
        int headCount = 1;
        CameraLimits limits;
        uint recordRate = 1000;   ///< frames per second
        uint shutterSpeed = 1000; ///< parts of a second
        QRect region;             ///< on the sensor; null: 640x480 in its middle
        QList<StandInPartition> partitions{{1, QStringLiteral("Partition1"), 0, 0}};
        QList<PresetInfo> presets;
        QHash<int, CameraSettings> presetSettings; ///< by the preset's number
        QSet<int> presetsWithReboot;               ///< that act when the camera is restarted
        QVariantList customInfo;
        QString comment;
        QList<StandInSlot> mediaSlots;
        bool isConnected = true;
        bool isFound = true;
        bool isMobile = false;
        bool isDummy = false;
    };

    /// For the host, which gives the camera its key and number.
    StandInCamera(DocumentOwner &owner, DOCKEY key, const Description &description);

    QString name() const { return state().cameraName; }
    QString model() const { return state().editData.modelName; }
    QString serialNumber() const { return state().editData.deviceSerialNumber; }

    const CameraLimits &limits() const { return m_limits; }
    void setLimits(const CameraLimits &limits); ///< present settings stay as they are

    /// The document's settings.
    const CameraSettings &settings() const { return m_settings; }
    uint recordRate() const { return m_settings.recordRate; }
    uint shutterSpeed() const { return m_settings.shutterSpeed; }
    QRect sensorRegion() const { return m_settings.region; }

    /// What the device was last sent. It differs from settings() only behind editSettings().
    const CameraSettings &deviceSettings() const { return m_deviceSettings; }
    int sendCount() const { return m_sendCount; } ///< how often settings were sent

    /// Sets one value and sends it, clamped to what the camera can do, as one undo step; to all
    /// locked cameras while this one is locked.
    void setShutterSpeed(uint partsOfSecond);
    void setRecordRate(uint framesPerSecond);
    void setSensorRegion(const QRect &region);

    /// Changes the document alone, as one undo step; notifyChange() or updateUI() sends it.
    void editSettings(const CameraSettings &settings);

    /// Whether it is locked together with other cameras.
    bool isLockedTogether() const override { return m_locked; }
    void setLockedTogether(bool locked);

    void takePreset(int number) override;

    QImage frame(quint64 number) const override; ///< of the current partition
    QImage partitionFrame(quint64 number, int partitionNo) const override;
    InfoFacts infoFacts(quint64 frame, int partitionNo) const override;
    quint64 frameCount() const override; ///< of the current partition
    QSize pictureSize() const override;
    QSize sensorSize() const override { return m_limits.sensorSize; }
    bool showsWholeSensor() const override; ///< while a tool edits what is read
    void sendSettings() override;           ///< with the region that such a tool has for it

    /// For the host and its undo steps: takes the settings as they are.
    void takeSettings(const CameraSettings &settings, bool send);

private:
    QSize binnedSize(const QSize &size) const;

    CameraLimits m_limits;
    CameraSettings m_settings;
    CameraSettings m_deviceSettings;
    int m_sendCount = 0;
    bool m_locked = false;
};
