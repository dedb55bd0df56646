#include "standin/documents/StandInCamera.h"

#include "contract/HostValues.h"
#include "foundation/Keys.h"
#include "standin/documents/DocumentOwner.h"
#include "standin/drawing/SceneRenderer.h"
#include "standin/journal/StandInEvents.h"

#include <algorithm>

namespace {

QRect middleRegion(const QSize &sensor)
{
    const QSize size = QSize(640, 480).boundedTo(sensor);
    return QRect(QPoint((sensor.width() - size.width()) / 2, (sensor.height() - size.height()) / 2),
                 size);
}

// How much of the scene passes from the beginning of one partition to that of the next.
constexpr double SecondsBetweenRecordings = 0.31;

// Bits of the operating state.
constexpr int Live = 0;
constexpr int Recording = 8;

QString statusWord(int bit)
{
    const auto found =
        std::find_if(Keys::statusWords.begin(), Keys::statusWords.end(),
                     [bit](const Keys::StatusWord &entry) { return entry.bit == bit; });
    return found != Keys::statusWords.end() ? found->word : QString();
}

QString numbered(const QString &given, const QString &pattern, int number)
{
    return given.isEmpty() ? pattern.arg(number) : given;
}

}

StandInCamera::StandInCamera(DocumentOwner &owner, DOCKEY key, const Description &description)
    : StandInDocumentLink<DOC_Camera>(owner, key), m_limits(description.limits)
{
    const int number = description.cameraNumber + 1;
    DocumentState &own = state();
    own.cameraName = numbered(description.name, QStringLiteral("Camera %1"), number);
    own.documentName = own.cameraName;
    own.displayName = own.cameraName;
    own.fallbackName = own.cameraName;
    own.deviceName = description.model;
    own.cameraNumber = description.cameraNumber;
    own.headNumber = description.headNumber;
    own.headCount = description.headCount;
    own.isCameraRecord = true;
    own.partitions = description.partitions;
    own.presets = description.presets;
    own.presetSettings = description.presetSettings;
    own.presetsWithReboot = description.presetsWithReboot;
    own.customInfo = description.customInfo;
    own.comment = description.comment;
    own.mediaSlots = description.mediaSlots;
    own.isMediaManaged = !description.mediaSlots.isEmpty();
    own.isConnected = description.isConnected;
    own.isFound = description.isFound;
    own.isMobile = description.isMobile;
    own.isDummy = description.isDummy;
    own.ipAddress = numbered(description.address, QStringLiteral("192.168.0.%1"), number + 9);

    EditDeviceData &device = own.editData;
    device.headName = QStringLiteral("Head");
    device.deviceSerialNumber =
        numbered(description.serialNumber, QStringLiteral("1000%1"), number);
    device.headSerialNumber =
        numbered(description.headSerialNumber, QStringLiteral("2000%1"), number);
    device.modelName = description.model;
    device.firmwareVersion = description.firmwareVersion;
    device.network = {own.ipAddress, QStringLiteral("255.255.255.0"),
                      QStringLiteral("192.168.0.254")};
    own.networkSettings.insert(device.etherType, device.network);

    CameraSettings wanted;
    wanted.recordRate = description.recordRate;
    wanted.shutterSpeed = description.shutterSpeed;
    wanted.region =
        description.region.isNull() ? middleRegion(m_limits.sensorSize) : description.region;
    m_settings = clampedSettings(wanted, m_limits);
    m_deviceSettings = m_settings;
}

void StandInCamera::setLimits(const CameraLimits &limits)
{
    m_limits = limits;
}

void StandInCamera::setShutterSpeed(uint partsOfSecond)
{
    CameraSettings wanted = m_settings;
    wanted.shutterSpeed = partsOfSecond;
    owner().changeSettings(*this, wanted, CameraSetting::ShutterSpeed);
}

void StandInCamera::setRecordRate(uint framesPerSecond)
{
    CameraSettings wanted = m_settings;
    wanted.recordRate = framesPerSecond;
    owner().changeSettings(*this, wanted, CameraSetting::RecordRate);
}

void StandInCamera::setSensorRegion(const QRect &region)
{
    CameraSettings wanted = m_settings;
    wanted.region = region;
    owner().changeSettings(*this, wanted, CameraSetting::Region);
}

void StandInCamera::editSettings(const CameraSettings &settings)
{
    owner().editSettings(*this, settings);
}

void StandInCamera::setLockedTogether(bool locked)
{
    m_locked = locked;
    emit owner().events()->cameraSettingsChanged(key());
}

void StandInCamera::takePreset(int number)
{
    owner().applyPreset(*this, number);
}

QImage StandInCamera::frame(quint64 number) const
{
    return partitionFrame(number, 0);
}

QImage StandInCamera::partitionFrame(quint64 number, int partitionNo) const
{
    SceneRenderer scene;
    scene.sensor = m_limits.sensorSize;
    scene.region = showsWholeSensor() ? QRect(QPoint(0, 0), sensorSize()) : m_settings.region;
    scene.picture = binnedSize(scene.region.size());
    scene.frame = number;
    scene.recordRate = m_settings.recordRate;
    scene.shutterSpeed = m_settings.shutterSpeed;
    const bool isLive = owner().viewMode() == HostMode::Live;
    if (const StandInPartition *recorded = isLive ? nullptr : partitionOrCurrent(partitionNo)) {
        scene.start = SecondsBetweenRecordings * (recorded->number - 1);
        if (recorded->recordRate > 0)
            scene.recordRate = recorded->recordRate;
    }
    const QImage picture = scene.render();
    return picture.size() == pictureSize() ? picture : picture.scaled(pictureSize());
}

InfoFacts StandInCamera::infoFacts(quint64 frame, int partitionNo) const
{
    InfoFacts facts = StandInDocument::infoFacts(frame, partitionNo);
    const bool isLive = owner().viewMode() == HostMode::Live;
    if (isLive) {
        facts.cameraState = statusWord(owner().isRecordingNow() ? Recording : Live);
        facts.frameCount = 0;
    }
    if (isLive || facts.recordRate == 0)
        facts.recordRate = m_settings.recordRate;
    facts.shutterSpeed = m_settings.shutterSpeed;
    return facts;
}

quint64 StandInCamera::frameCount() const
{
    return state().partitions.value(state().currentPartition - 1).frames;
}

QSize StandInCamera::pictureSize() const
{
    return showsWholeSensor() ? sensorSize() : binnedSize(m_settings.region.size());
}

bool StandInCamera::showsWholeSensor() const
{
    return owner().isReadOutEdited();
}

QSize StandInCamera::binnedSize(const QSize &size) const
{
    int divider = 1 << state().binningLevel;
    if (state().hasScaleDivider)
        divider *= std::max(1, state().scaleDivider);
    return QSize(std::max(1, size.width() / divider), std::max(1, size.height() / divider));
}

void StandInCamera::sendSettings()
{
    const QRect before = m_settings.region;
    m_settings.region = owner().wantedReadOut(*this);
    m_deviceSettings = clampedSettings(m_settings, m_limits);
    m_settings.region = m_deviceSettings.region;
    ++m_sendCount;
    if (m_settings.region != before)
        emit owner().events()->cameraSettingsChanged(key());
}

void StandInCamera::takeSettings(const CameraSettings &settings, bool send)
{
    m_settings = settings;
    if (send)
        sendSettings();
    emit owner().events()->cameraSettingsChanged(key());
}
