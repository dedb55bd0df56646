#include "standin/media/DriveTable.h"

#include "foundation/exceptions/DOC_Exception.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <functional>

namespace {

/// Two slots of one drive, and another drive.
DriveTable threeDrives()
{
    return {{1, 0, 0, "left", "word", false, 10.0, 100, false},
            {1, 0, 1, "right", "word", false, 20.0, 200, false},
            {1, 1, 0, "other", "", false, 250.0, 300, true}};
}

}

class TestDriveTable : public TestBase
{
    Q_OBJECT

private slots:
    void listsAllDrives();
    void slotsAreDrivesOfTheirOwn();
    void formatsTheSlotThatWasAskedFor();
    void opensTheSlotThatWasAskedFor();
    void lockedSlotStaysClosed();
    void passwordBelongsToTheWholeDrive();
    void driveWithoutPasswordIsNeverLocked();
    void hostTellsTheSlot();
    void unknownDriveLeavesALine_data();
    void unknownDriveLeavesALine();
};

void TestDriveTable::listsAllDrives()
{
    QCOMPARE(threeDrives().maps(),
             QList<QVariantMap>(
                 {{{"drivetype", 1}, {"driveno", 0}, {"slotno", 0}, {"drivename", "left"}},
                  {{"drivetype", 1}, {"driveno", 0}, {"slotno", 1}, {"drivename", "right"}},
                  {{"drivetype", 1}, {"driveno", 1}, {"slotno", 0}, {"drivename", "other"}}}));
    QVERIFY(DriveTable().maps().isEmpty());
}

void TestDriveTable::slotsAreDrivesOfTheirOwn()
{
    DriveTable drives = threeDrives();
    QCOMPARE(drives.usedPercent(1, 0, 0), 10.0);
    QCOMPARE(drives.usedPercent(1, 0, 1), 20.0);
    QCOMPARE(drives.usedPercent(1, 1, 0), 100.0); // never more
    QCOMPARE(drives.writtenBytes(1, 0, 0), quint64(100));
    QCOMPARE(drives.writtenBytes(1, 0, 1), quint64(200));
    QCOMPARE(drives.find(1, 0, 1)->name, QString("right"));
}

void TestDriveTable::formatsTheSlotThatWasAskedFor()
{
    DriveTable drives = threeDrives();
    QVERIFY(drives.format(1, 0, 1));
    QCOMPARE(drives.usedPercent(1, 0, 0), 10.0);
    QCOMPARE(drives.usedPercent(1, 0, 1), 0.0);
    QVERIFY(!drives.format(1, 1, 0)); // it fails
    QCOMPARE(drives.usedPercent(1, 1, 0), 100.0);
}

void TestDriveTable::opensTheSlotThatWasAskedFor()
{
    DriveTable drives = threeDrives();
    QVERIFY(!drives.openDrive());
    drives.open(1, 0, 1);
    QCOMPARE(drives.openDrive(), &drives.at(1));
    drives.open(1, 0, 0);
    QCOMPARE(drives.openDrive(), &drives.at(0));
    drives.close();
    QVERIFY(!drives.openDrive());
}

void TestDriveTable::lockedSlotStaysClosed()
{
    DriveTable drives = threeDrives();
    drives.open(1, 0, 0);
    drives.lock(1, 0, 1);
    LogCapture log; // the exception's own line
    try {
        drives.open(1, 0, 1);
        QFAIL("it is locked");
    } catch (const DOC_Exception &failure) {
        QCOMPARE(failure.errorCode(), 407u);
    }
    QCOMPARE(drives.openDrive(), &drives.at(0));
}

void TestDriveTable::passwordBelongsToTheWholeDrive()
{
    DriveTable drives = threeDrives();
    drives.lock(1, 0, 0);
    drives.lock(1, 0, 1);
    QVERIFY(!drives.unlock(1, 0, "wrong"));
    QVERIFY(drives.at(0).isLocked);
    QVERIFY(drives.unlock(1, 0, "word"));
    QVERIFY(!drives.at(0).isLocked);
    QVERIFY(!drives.at(1).isLocked);
    QVERIFY(!drives.changePassword(1, 0, "wrong", "new"));
    QVERIFY(drives.changePassword(1, 0, "word", "new"));
    QCOMPARE(drives.at(0).password, QString("new"));
    QCOMPARE(drives.at(1).password, QString("new"));
}

void TestDriveTable::driveWithoutPasswordIsNeverLocked()
{
    DriveTable drives = threeDrives();
    drives.lock(1, 1, 0);
    QVERIFY(!drives.at(2).isLocked);
}

void TestDriveTable::hostTellsTheSlot()
{
    StandInHost host;
    host.state().kelvaultDrives = threeDrives();
    host.state().cfCardDrives = {{2, 0, 0, "A", "", false, 1.0, 0, false},
                                 {2, 0, 1, "B", "", false, 2.0, 0, false}};
    QCOMPARE(host.driveUseRatio(1, 0, 1), 20.0);
    QCOMPARE(host.totalWrittenBytes(1, 0, 1), quint64(200));
    host.openKelvaultDrive(1, 0, 1, "right");
    QCOMPARE(host.state().kelvaultDrives.openDrive(), &host.state().kelvaultDrives.at(1));
    QVERIFY(host.formatKelvaultDrive(1, 0, 1));
    QCOMPARE(host.driveUseRatio(1, 0, 0), 10.0);
    QCOMPARE(host.cfastUseRatio(2, 0, 1), 2.0);
    QVERIFY(host.formatCFCardDrive(2, 0, 1));
    QCOMPARE(host.cfastUseRatio(2, 0, 0), 1.0);
    host.openCFCardDrive(2, 0, 1, "B");
    QCOMPARE(host.state().cfCardDrives.openDrive(), &host.state().cfCardDrives.at(1));
}

using Call = std::function<void(StandInHost &)>;
Q_DECLARE_METATYPE(Call)

void TestDriveTable::unknownDriveLeavesALine_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QString>("line");
    const QString slot = "unknown drive: type 1 number 0 slot 2";
    const QString drive = "unknown drive: type 1 number 7";
    const auto row = [](const char *name, const Call &call, const QString &line) {
        QTest::newRow(name) << call << line;
    };
    row(
        "open", [](StandInHost &host) { host.openKelvaultDrive(1, 0, 2, "x"); }, slot);
    row(
        "unlock", [](StandInHost &host) { QVERIFY(!host.unlockKelvaultDrive(1, 7, "x")); }, drive);
    row(
        "change password",
        [](StandInHost &host) { QVERIFY(!host.changeDrivePassword(1, 7, "", "x")); }, drive);
    row(
        "forget password", [](StandInHost &host) { host.forgetDrivePassword(1, 0, 2, QString()); },
        slot);
    row(
        "open card", [](StandInHost &host) { host.openCFCardDrive(1, 0, 2, "x"); }, slot);
    row(
        "use of a drive", [](StandInHost &host) { QCOMPARE(host.driveUseRatio(1, 0, 2), 0.0); },
        slot);
    row(
        "use of a card", [](StandInHost &host) { QCOMPARE(host.cfastUseRatio(1, 0, 2), 0.0); },
        slot);
    row(
        "written bytes",
        [](StandInHost &host) { QCOMPARE(host.totalWrittenBytes(1, 0, 2), quint64(0)); }, slot);
    row(
        "format a drive", [](StandInHost &host) { QVERIFY(!host.formatKelvaultDrive(1, 0, 2)); },
        slot);
    row(
        "format a card", [](StandInHost &host) { QVERIFY(!host.formatCFCardDrive(1, 0, 2)); },
        slot);
    row(
        "open card reader drive", [](StandInHost &host) { host.openCardReaderDrive(8); },
        "unknown drive: bit 8");
    row(
        "open no card reader drive", [](StandInHost &host) { host.openCardReaderDrive(0); },
        "unknown drive: bit 0");
    row(
        "open two card reader drives", [](StandInHost &host) { host.openCardReaderDrive(6); },
        "unknown drive: bit 6");
}

void TestDriveTable::unknownDriveLeavesALine()
{
    QFETCH(Call, call);
    QFETCH(QString, line);
    StandInHost host;
    host.state().kelvaultDrives = threeDrives();
    host.state().cfCardDrives = threeDrives();
    host.state().cardReaderDriveMask = 6;
    LogCapture log;
    call(host);
    QCOMPARE(log.texts(QtCriticalMsg), QStringList(line));
    QCOMPARE(log.lines().size(), 1);
}

int main(int argc, char *argv[])
{
    TestDriveTable test;
    return runTest(argc, argv, test);
}

#include "test_drive_table.moc"
