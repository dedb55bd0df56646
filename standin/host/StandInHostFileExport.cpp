#include "standin/host/StandInHost.h"

#include "foundation/exceptions/DOC_Exception.h"

#include <algorithm>

using JournalText::Secret;

namespace {

constexpr uint DriveLocked = 407;

QList<QVariantMap> driveMaps(const QList<StandInDrive> &drives)
{
    QList<QVariantMap> maps;
    for (const StandInDrive &drive : drives) {
        maps.append({{QStringLiteral("driveno"), drive.driveNo},
                     {QStringLiteral("slotno"), drive.slotNo},
                     {QStringLiteral("drivetype"), drive.type},
                     {QStringLiteral("drivename"), drive.name}});
    }
    return maps;
}

int indexOfDrive(const QList<StandInDrive> &drives, int type, int driveNo)
{
    for (int i = 0; i < drives.size(); ++i) {
        if (drives.at(i).type == type && drives.at(i).driveNo == driveNo)
            return i;
    }
    return -1;
}

StandInDrive *findDrive(QList<StandInDrive> &drives, int type, int driveNo)
{
    const int index = indexOfDrive(drives, type, driveNo);
    return index < 0 ? nullptr : &drives[index];
}

double usedPercent(const StandInDrive *drive)
{
    return drive ? std::clamp(drive->usedPercent, 0.0, 100.0) : 0.0;
}

bool format(StandInDrive *drive)
{
    if (!drive || drive->formatFails)
        return false;
    drive->usedPercent = 0.0;
    return true;
}

}

void StandInHost::copySelectArea(int mode)
{
    told("copySelectArea", mode);
}

void StandInHost::clearPlannedGroupDir()
{
    told("clearPlannedGroupDir");
    m_savePlan.clearGroupDir();
}

void StandInHost::clearPlannedDirs()
{
    told("clearPlannedDirs");
    m_savePlan.clearDirs();
}

void StandInHost::clearPlannedFiles()
{
    told("clearPlannedFiles");
    m_savePlan.clearFiles();
}

void StandInHost::setPlannedGroupDir(const QString &name)
{
    told("setPlannedGroupDir", name);
    m_savePlan.setGroupDir(name);
}

void StandInHost::addPlannedDir(const QString &dir)
{
    told("addPlannedDir", dir);
    m_savePlan.addDir(dir);
}

void StandInHost::addPlannedFile(const QString &path)
{
    told("addPlannedFile", path);
    m_savePlan.addFile(path);
}

bool StandInHost::isPlannedDir(const QString &dir)
{
    asked("isPlannedDir", dir);
    return m_savePlan.hasDir(dir);
}

bool StandInHost::isPlannedFile(const QString &path)
{
    asked("isPlannedFile", path);
    return m_savePlan.hasFile(path);
}

QString StandInHost::plannedGroupDir()
{
    asked("plannedGroupDir");
    return m_savePlan.groupDir();
}

QString StandInHost::plannedTargetDir()
{
    asked("plannedTargetDir");
    return m_savePlan.targetDir();
}

uint StandInHost::cardReaderDriveMask()
{
    asked("cardReaderDriveMask");
    return m_state.cardReaderDriveMask;
}

uint StandInHost::openCardReaderDrive()
{
    asked("openCardReaderDrive");
    return m_state.openCardReaderDrive;
}

void StandInHost::openCardReaderDrive(uint drive)
{
    told("openCardReaderDrive", drive);
    m_state.openCardReaderDrive = drive;
}

void StandInHost::closeCardReaderData()
{
    told("closeCardReaderData");
    m_state.openCardReaderDrive = 0;
}

QList<QVariantMap> StandInHost::kelvaultDrives()
{
    return asked("kelvaultDrives").empty ? QList<QVariantMap>() : driveMaps(m_state.kelvaultDrives);
}

QList<QVariantMap> StandInHost::cfCardDrives()
{
    return asked("cfCardDrives").empty ? QList<QVariantMap>() : driveMaps(m_state.cfCardDrives);
}

void StandInHost::openKelvaultDrive(int type, int driveNo, int slotNo, const QString &name)
{
    told("openKelvaultDrive", type, driveNo, slotNo, name);
    const int index = indexOfDrive(m_state.kelvaultDrives, type, driveNo);
    if (index >= 0 && m_state.kelvaultDrives.at(index).isLocked)
        throw DOC_Exception(QStringLiteral("The drive is locked."), DriveLocked);
    m_state.openKelvaultDrive = index;
}

bool StandInHost::unlockKelvaultDrive(int type, int driveNo, const QString &password)
{
    told("unlockKelvaultDrive", type, driveNo, Secret());
    StandInDrive *drive = findDrive(m_state.kelvaultDrives, type, driveNo);
    if (!drive || drive->password != password)
        return false;
    drive->isLocked = false;
    return true;
}

bool StandInHost::changeDrivePassword(int type, int driveNo, const QString &oldPassword,
                                      const QString &newPassword)
{
    told("changeDrivePassword", type, driveNo, Secret(), Secret());
    StandInDrive *drive = findDrive(m_state.kelvaultDrives, type, driveNo);
    if (!drive || drive->password != oldPassword)
        return false;
    drive->password = newPassword;
    return true;
}

void StandInHost::forgetDrivePassword(int type, int driveNo, int slotNo, const QString &)
{
    told("forgetDrivePassword", type, driveNo, slotNo, Secret());
    StandInDrive *drive = findDrive(m_state.kelvaultDrives, type, driveNo);
    if (drive && !drive->password.isEmpty())
        drive->isLocked = true;
}

bool StandInHost::openCFCardDrive(int *type, int *driveNo)
{
    asked("openCFCardDrive");
    if (m_state.openCFCardDrive < 0 || m_state.openCFCardDrive >= m_state.cfCardDrives.size())
        return false;
    const StandInDrive &drive = m_state.cfCardDrives.at(m_state.openCFCardDrive);
    if (type)
        *type = drive.type;
    if (driveNo)
        *driveNo = drive.driveNo;
    return true;
}

void StandInHost::openCFCardDrive(int type, int driveNo, int slotNo, const QString &name)
{
    told("openCFCardDrive", type, driveNo, slotNo, name);
    m_state.openCFCardDrive = indexOfDrive(m_state.cfCardDrives, type, driveNo);
}

void StandInHost::closeCFastData(bool flag)
{
    told("closeCFastData", flag);
    m_state.openCFCardDrive = -1;
}

double StandInHost::driveUseRatio(int type, int driveNo, int slotNo)
{
    asked("driveUseRatio", type, driveNo, slotNo);
    return usedPercent(findDrive(m_state.kelvaultDrives, type, driveNo));
}

double StandInHost::cfastUseRatio(int type, int driveNo, int slotNo)
{
    asked("cfastUseRatio", type, driveNo, slotNo);
    return usedPercent(findDrive(m_state.cfCardDrives, type, driveNo));
}

quint64 StandInHost::totalWrittenBytes(int type, int driveNo, int slotNo)
{
    asked("totalWrittenBytes", type, driveNo, slotNo);
    const StandInDrive *drive = findDrive(m_state.kelvaultDrives, type, driveNo);
    return drive ? drive->writtenBytes : 0;
}

bool StandInHost::formatKelvaultDrive(int type, int driveNo, int slotNo)
{
    told("formatKelvaultDrive", type, driveNo, slotNo);
    return format(findDrive(m_state.kelvaultDrives, type, driveNo));
}

bool StandInHost::formatCFCardDrive(int type, int driveNo, int slotNo)
{
    told("formatCFCardDrive", type, driveNo, slotNo);
    return format(findDrive(m_state.cfCardDrives, type, driveNo));
}

void StandInHost::refreshMediaView(int kind)
{
    told("refreshMediaView", kind);
}

bool StandInHost::isBackgroundSaving()
{
    asked("isBackgroundSaving");
    return m_state.isBackgroundSaving;
}

bool StandInHost::isBackgroundConverting()
{
    asked("isBackgroundConverting");
    return m_state.isBackgroundConverting;
}

bool StandInHost::isDirectSaving(bool flag)
{
    asked("isDirectSaving", flag);
    return m_state.isDirectSaving;
}

bool StandInHost::isAutoExporting()
{
    asked("isAutoExporting");
    return m_state.isAutoExporting;
}
