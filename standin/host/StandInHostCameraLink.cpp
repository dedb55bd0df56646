#include "standin/host/StandInHost.h"

QString StandInHost::defaultCameraName()
{
    asked("defaultCameraName");
    return m_state.defaultCameraName.isEmpty()
               ? QStringLiteral("Camera %1").arg(cameras().size() + 1)
               : m_state.defaultCameraName;
}

void StandInHost::connectDevices(const QStringList &addresses)
{
    told("connectDevices", addresses);
    m_state.connectedAddresses = addresses;
}

void StandInHost::addDevice(const QString &name, const QString &address, bool dummy)
{
    told("addDevice", name, address, dummy);
    StandInCamera::Description description;
    description.name = name;
    description.address = address;
    description.isDummy = dummy;
    description.isConnected = !dummy;
    addCamera(description);
}

QString StandInHost::searchAgain()
{
    told("searchAgain");
    return m_state.searchResults;
}

void StandInHost::setNetworkSettings(const QString &adapter, const QString &ip, const QString &mask,
                                     const QString &gateway, const QString &mac)
{
    told("setNetworkSettings", adapter, ip, mask, gateway, mac);
}

bool StandInHost::isLowlightOn()
{
    asked("isLowlightOn");
    return m_state.isLowlightOn;
}

bool StandInHost::hasLowlightDevice()
{
    asked("hasLowlightDevice");
    return m_state.hasLowlightDevice;
}

bool StandInHost::areAllLowlight(bool on)
{
    asked("areAllLowlight", on);
    return on ? m_state.areAllLowlightOn : m_state.areAllLowlightOff;
}

bool StandInHost::isLensCalibrationRunning()
{
    asked("isLensCalibrationRunning");
    return m_state.isLensCalibrationRunning;
}

bool StandInHost::isAutoFocusing()
{
    asked("isAutoFocusing");
    return m_state.isAutoFocusing;
}

bool StandInHost::isPhaseAdjusting()
{
    asked("isPhaseAdjusting");
    return m_state.isPhaseAdjusting;
}

bool StandInHost::isShading()
{
    asked("isShading");
    return m_state.isShading;
}

bool StandInHost::isCurrentOtherThanAutoFocus(bool flag)
{
    asked("isCurrentOtherThanAutoFocus", flag);
    return m_state.isCurrentOtherThanAutoFocus;
}

void StandInHost::saveCameraSettings(const QString &path, const QList<DOCKEY> &keys)
{
    told("saveCameraSettings", path, keys);
}

void StandInHost::loadCameraSettings(const QString &path, const QList<DOCKEY> &keys)
{
    told("loadCameraSettings", path, keys);
}

void StandInHost::selectCameraPartition(int partitionNo, bool flag)
{
    told("selectCameraPartition", partitionNo, flag);
    for (StandInCamera *camera : cameras()) {
        const QList<StandInPartition> &partitions = camera->state().partitions;
        for (int i = 0; i < partitions.size(); ++i) {
            if (partitions.at(i).number == partitionNo)
                camera->state().currentPartition = i + 1;
        }
    }
    emit m_events.documentInfoChanged();
}

void StandInHost::selectVariable(uint number)
{
    told("selectVariable", number);
    m_state.selectedVariable = number;
}
