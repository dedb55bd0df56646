#include "standin/host/StandInHost.h"

#include "foundation/Keys.h"
#include "foundation/exceptions/DOC_FileException.h"
#include "standin/network/NetworkSearch.h"
#include "standin/network/SearchText.h"
#include "standin/session/CameraSettingsFile.h"

#include <QProgressDialog>
#include <QSet>

namespace {

constexpr uint NoSettings = 3;
constexpr int ShortSearch = 300; // milliseconds; it shows no progress

// "Camera" and the lowest number that no camera's name is made of.
QString freeName(const QList<StandInCamera *> &cameras)
{
    QSet<QString> taken;
    for (const StandInCamera *camera : cameras)
        taken.insert(camera->name());
    for (int number = 1;; ++number) {
        const QString name = QStringLiteral("Camera %1").arg(number);
        if (!taken.contains(name))
            return name;
    }
}

}

void StandInHost::restartCamera(DOCKEY key)
{
    if (StandInCamera *restarted = camera(key))
        m_presets.restart(*restarted);
}

QString StandInHost::defaultCameraName()
{
    asked("defaultCameraName");
    return m_state.defaultCameraName.isEmpty() ? freeName(cameras()) : m_state.defaultCameraName;
}

void StandInHost::connectDevices(const QStringList &addresses)
{
    told("connectDevices", addresses);
    m_connections.connect(addresses);
}

void StandInHost::addDevice(const QString &name, const QString &address, bool dummy)
{
    told("addDevice", name, address, dummy);
    if (!dummy) {
        m_connections.add(name, address);
        return;
    }
    StandInCamera::Description description;
    description.name = name;
    description.address = address;
    description.isDummy = true;
    description.isConnected = false;
    addCamera(description);
}

QString StandInHost::searchAgain()
{
    told("searchAgain");
    return searchNetwork();
}

QString StandInHost::searchNetwork()
{
    const auto way = setting(Keys::cameraConnection.searchWay).toInt() == NetworkSearch::Subnet
                         ? NetworkSearch::Subnet
                         : NetworkSearch::Broadcast;
    NetworkSearch search(m_network, way, setting(Keys::cameraConnection.searchIp).toString());
    m_search = &search;
    std::unique_ptr<QProgressDialog> progress;
    if (m_interactive && search.duration() > 0) {
        progress = std::make_unique<QProgressDialog>(
            translation(QStringLiteral("Searching for cameras...")),
            translation(QStringLiteral("Cancel")), 0, search.duration(), messageParent(nullptr));
        progress->setWindowModality(Qt::ApplicationModal);
        progress->setMinimumDuration(ShortSearch);
        progress->setAutoClose(false);
        progress->setAutoReset(false);
        QObject::connect(progress.get(), &QProgressDialog::canceled, &search,
                         &NetworkSearch::cancel);
        QObject::connect(&search, &NetworkSearch::progressed, progress.get(),
                         &QProgressDialog::setValue);
        progress->setValue(0); // the duration begins here
    }
    const NetworkSearch::Result found = search.run();
    QHash<QString, QString> names;
    QSet<QString> connected;
    for (const QString &serialNumber : found.serialNumbers) {
        const QList<StandInCamera *> heads = m_connections.heads(serialNumber);
        if (!heads.isEmpty())
            names.insert(serialNumber, heads.first()->name());
        if (m_connections.isConnected(serialNumber))
            connected.insert(serialNumber);
    }
    return SearchText::compactText(m_network, found, names, connected);
}

void StandInHost::cancelSearch()
{
    if (m_search)
        m_search->cancel();
}

void StandInHost::setNetworkSettings(const QString &adapter, const QString &ip, const QString &mask,
                                     const QString &gateway, const QString &mac)
{
    told("setNetworkSettings", adapter, ip, mask, gateway, mac);
    m_connections.setSetting(adapter, {ip, mask, gateway}, mac);
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
    const QVector<CameraSettingsRecord> records = m_settingsCopies.of(keys);
    if (!records.isEmpty())
        CameraSettingsFile::write(path, records);
}

void StandInHost::loadCameraSettings(const QString &path, const QList<DOCKEY> &keys)
{
    told("loadCameraSettings", path, keys);
    QList<StandInCamera *> targets;
    for (DOCKEY key : keys) {
        if (StandInCamera *target = camera(key))
            targets.append(target);
    }
    if (targets.isEmpty())
        return;
    const QVector<CameraSettingsRecord> records = CameraSettingsFile::read(path);
    CameraSettingsByKey wanted;
    for (const CameraSettingsRecord &record : records) {
        for (const StandInCamera *target : qAsConst(targets)) {
            if (record.isOf(*target))
                wanted.insert(target->key(), record.appliedTo(target->settings()));
        }
    }
    if (wanted.isEmpty())
        throw DOC_FileException(QStringLiteral("The file has no settings of these cameras."), path,
                                NoSettings);
    m_lock.setAll(wanted, QStringLiteral("Settings of a file"));
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
