#include "standin/media/DriveTable.h"

#include "foundation/exceptions/DOC_Exception.h"

#include <QtDebug>

#include <algorithm>

namespace {
constexpr uint DriveLocked = 407;
}

QList<QVariantMap> DriveTable::maps() const
{
    QList<QVariantMap> maps;
    for (const StandInDrive &drive : m_drives) {
        maps.append({{QStringLiteral("driveno"), drive.driveNo},
                     {QStringLiteral("slotno"), drive.slotNo},
                     {QStringLiteral("drivetype"), drive.type},
                     {QStringLiteral("drivename"), drive.name}});
    }
    return maps;
}

int DriveTable::indexOf(int type, int driveNo, int slotNo) const
{
    for (int i = 0; i < m_drives.size(); ++i) {
        const StandInDrive &drive = m_drives.at(i);
        if (drive.type == type && drive.driveNo == driveNo && drive.slotNo == slotNo)
            return i;
    }
    qCritical().noquote() << "unknown drive: type" << type << "number" << driveNo << "slot"
                          << slotNo;
    return -1;
}

StandInDrive *DriveTable::find(int type, int driveNo, int slotNo)
{
    const int index = indexOf(type, driveNo, slotNo);
    return index < 0 ? nullptr : &m_drives[index];
}

const StandInDrive *DriveTable::openDrive() const
{
    return m_open >= 0 && m_open < m_drives.size() ? &m_drives.at(m_open) : nullptr;
}

void DriveTable::open(int type, int driveNo, int slotNo)
{
    const int index = indexOf(type, driveNo, slotNo);
    if (index >= 0 && m_drives.at(index).isLocked)
        throw DOC_Exception(QStringLiteral("The drive is locked."), DriveLocked);
    m_open = index;
}

// The call names no slot: a password belongs to a drive, whatever its slot.
template <class Change>
bool DriveTable::changeLocked(int type, int driveNo, const QString &password, Change change)
{
    bool isKnown = false;
    bool fits = false;
    for (StandInDrive &drive : m_drives) {
        if (drive.type != type || drive.driveNo != driveNo)
            continue;
        isKnown = true;
        if (drive.password != password)
            continue;
        fits = true;
        change(drive);
    }
    if (!isKnown)
        qCritical().noquote() << "unknown drive: type" << type << "number" << driveNo;
    return fits;
}

bool DriveTable::unlock(int type, int driveNo, const QString &password)
{
    return changeLocked(type, driveNo, password,
                        [](StandInDrive &drive) { drive.isLocked = false; });
}

bool DriveTable::changePassword(int type, int driveNo, const QString &oldPassword,
                                const QString &newPassword)
{
    return changeLocked(type, driveNo, oldPassword,
                        [&](StandInDrive &drive) { drive.password = newPassword; });
}

void DriveTable::lock(int type, int driveNo, int slotNo)
{
    StandInDrive *drive = find(type, driveNo, slotNo);
    if (drive && !drive->password.isEmpty())
        drive->isLocked = true;
}

double DriveTable::usedPercent(int type, int driveNo, int slotNo)
{
    const StandInDrive *drive = find(type, driveNo, slotNo);
    return drive ? std::clamp(drive->usedPercent, 0.0, 100.0) : 0.0;
}

quint64 DriveTable::writtenBytes(int type, int driveNo, int slotNo)
{
    const StandInDrive *drive = find(type, driveNo, slotNo);
    return drive ? drive->writtenBytes : 0;
}

bool DriveTable::format(int type, int driveNo, int slotNo)
{
    StandInDrive *drive = find(type, driveNo, slotNo);
    if (!drive || drive->formatFails)
        return false;
    drive->usedPercent = 0.0;
    return true;
}
