#pragma once

#include <QList>
#include <QString>
#include <QVariantMap>

#include <initializer_list>

/// A medium in one of the host's drives. Type, drive number and slot number together tell it from
/// the others.
struct StandInDrive
{
    int type = 0;
    int driveNo = 0;
    int slotNo = 0;
    QString name;
    QString password;         ///< empty: never locked
    bool isLocked = false;    ///< opening throws until it is unlocked
    double usedPercent = 0.0; ///< 0 to 100
    quint64 writtenBytes = 0;
    bool formatFails = false;
};

/// The drives of one kind, of which one may be open. A call for a drive that is not there leaves a
/// critical line.
class DriveTable
{
public:
    DriveTable() = default;
    DriveTable(std::initializer_list<StandInDrive> drives) : m_drives(drives) {}

    int size() const { return m_drives.size(); }
    const StandInDrive &at(int index) const { return m_drives.at(index); } ///< 0 to size() - 1
    StandInDrive &operator[](int index) { return m_drives[index]; }

    /// Maps with "driveno", "slotno", "drivetype" (int) and "drivename" (text).
    QList<QVariantMap> maps() const;

    /// The drive with these numbers, null without one.
    StandInDrive *find(int type, int driveNo, int slotNo);

    /// The open drive, null without one.
    const StandInDrive *openDrive() const;

    /// Opens this drive in place of another; without such a drive none is open. Throws a
    /// DOC_Exception with the error code 407, and leaves all as it is, when the drive is locked.
    void open(int type, int driveNo, int slotNo);
    void close() { m_open = -1; }

    /// Unlocks what this password locks in a drive, in each of its slots; false when it locks
    /// nothing there.
    bool unlock(int type, int driveNo, const QString &password);

    /// Puts a password in place of the old one, in each slot of a drive that has it; false when
    /// none has.
    bool changePassword(int type, int driveNo, const QString &oldPassword,
                        const QString &newPassword);

    /// Locks a drive that has a password.
    void lock(int type, int driveNo, int slotNo);

    double usedPercent(int type, int driveNo, int slotNo);   ///< 0 to 100, 0 without such a drive
    quint64 writtenBytes(int type, int driveNo, int slotNo); ///< 0 without such a drive

    /// Makes the drive empty; false without such a drive and when it fails.
    bool format(int type, int driveNo, int slotNo);

private:
    int indexOf(int type, int driveNo, int slotNo) const;

    template <class Change>
    bool changeLocked(int type, int driveNo, const QString &password, Change change);

    QList<StandInDrive> m_drives;
    int m_open = -1; ///< index of the open drive
};
