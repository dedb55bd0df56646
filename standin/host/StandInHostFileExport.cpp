#include "standin/host/StandInHost.h"

#include "save/path/PathComposer.h"

#include <QtDebug>

using JournalText::Secret;

QString StandInHost::savedFileName(int mode, DOC_Interface *document, int partitionNo,
                                   const QDateTime &time)
{
    const CallJournal::OwnCalls own;
    try {
        return PathComposer::composeFileName(this, mode, document, partitionNo, true, time);
    } catch (const std::exception &) {
        return QString(); // what is wrong with the settings is told where a path is asked for
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
    const bool isOne = drive != 0 && (drive & (drive - 1)) == 0;
    const bool isThere = isOne && (m_state.cardReaderDriveMask & drive);
    if (!isThere)
        qCritical().noquote() << "unknown drive: bit" << drive;
    m_state.openCardReaderDrive = isThere ? drive : 0;
}

void StandInHost::closeCardReaderData()
{
    told("closeCardReaderData");
    m_state.openCardReaderDrive = 0;
}

QList<QVariantMap> StandInHost::kelvaultDrives()
{
    return asked("kelvaultDrives").empty ? QList<QVariantMap>() : m_state.kelvaultDrives.maps();
}

QList<QVariantMap> StandInHost::cfCardDrives()
{
    return asked("cfCardDrives").empty ? QList<QVariantMap>() : m_state.cfCardDrives.maps();
}

void StandInHost::openKelvaultDrive(int type, int driveNo, int slotNo, const QString &name)
{
    told("openKelvaultDrive", type, driveNo, slotNo, name);
    m_state.kelvaultDrives.open(type, driveNo, slotNo);
}

bool StandInHost::unlockKelvaultDrive(int type, int driveNo, const QString &password)
{
    told("unlockKelvaultDrive", type, driveNo, Secret());
    return m_state.kelvaultDrives.unlock(type, driveNo, password);
}

bool StandInHost::changeDrivePassword(int type, int driveNo, const QString &oldPassword,
                                      const QString &newPassword)
{
    told("changeDrivePassword", type, driveNo, Secret(), Secret());
    return m_state.kelvaultDrives.changePassword(type, driveNo, oldPassword, newPassword);
}

void StandInHost::forgetDrivePassword(int type, int driveNo, int slotNo, const QString &)
{
    told("forgetDrivePassword", type, driveNo, slotNo, Secret());
    m_state.kelvaultDrives.lock(type, driveNo, slotNo);
}

bool StandInHost::openCFCardDrive(int *type, int *driveNo)
{
    asked("openCFCardDrive");
    const StandInDrive *open = m_state.cfCardDrives.openDrive();
    if (!open)
        return false;
    if (type)
        *type = open->type;
    if (driveNo)
        *driveNo = open->driveNo;
    return true;
}

void StandInHost::openCFCardDrive(int type, int driveNo, int slotNo, const QString &name)
{
    told("openCFCardDrive", type, driveNo, slotNo, name);
    m_state.cfCardDrives.open(type, driveNo, slotNo);
}

void StandInHost::closeCFastData(bool flag)
{
    told("closeCFastData", flag);
    m_state.cfCardDrives.close();
}

double StandInHost::driveUseRatio(int type, int driveNo, int slotNo)
{
    asked("driveUseRatio", type, driveNo, slotNo);
    return m_state.kelvaultDrives.usedPercent(type, driveNo, slotNo);
}

double StandInHost::cfastUseRatio(int type, int driveNo, int slotNo)
{
    asked("cfastUseRatio", type, driveNo, slotNo);
    return m_state.cfCardDrives.usedPercent(type, driveNo, slotNo);
}

quint64 StandInHost::totalWrittenBytes(int type, int driveNo, int slotNo)
{
    asked("totalWrittenBytes", type, driveNo, slotNo);
    return m_state.kelvaultDrives.writtenBytes(type, driveNo, slotNo);
}

bool StandInHost::formatKelvaultDrive(int type, int driveNo, int slotNo)
{
    told("formatKelvaultDrive", type, driveNo, slotNo);
    return m_state.kelvaultDrives.format(type, driveNo, slotNo);
}

bool StandInHost::formatCFCardDrive(int type, int driveNo, int slotNo)
{
    told("formatCFCardDrive", type, driveNo, slotNo);
    return m_state.cfCardDrives.format(type, driveNo, slotNo);
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
