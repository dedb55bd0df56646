#include "standin/session/CameraSettingsRecord.h"

#include "standin/documents/StandInCamera.h"

CameraSettingsRecord CameraSettingsRecord::of(const StandInCamera &camera)
{
    const CameraSettings &settings = camera.settings();
    return {camera.serialNumber(), camera.state().headNumber, settings.recordRate,
            settings.shutterSpeed, settings.region};
}

bool CameraSettingsRecord::isOf(const StandInCamera &camera) const
{
    return serialNumber == camera.serialNumber() && headNumber == camera.state().headNumber;
}

CameraSettings CameraSettingsRecord::appliedTo(const CameraSettings &present) const
{
    CameraSettings result;
    result.recordRate = recordRate.value_or(present.recordRate);
    result.shutterSpeed = shutterSpeed.value_or(present.shutterSpeed);
    result.region = region.value_or(present.region);
    return result;
}
