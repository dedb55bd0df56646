#include "foundation/UTL_Integration.h"
#include "foundation/UTL_QLN2_Integration.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// Whether the companion application is there, and whether anything can be handed to it.
class TestCompanion : public TestBase
{
    Q_OBJECT

private slots:
    void fileOfADirectoryExists_data();
    void fileOfADirectoryExists();
    void companionIsInstalledWhereItsProgramLies();
    void companionWithoutAFolderIsNotLookedFor();
    void handingOverStopsWhileTheCameraWorksByItself_data();
    void handingOverStopsWhileTheCameraWorksByItself();
    void failureReachesTheCaller();
};

namespace {

void writeFile(const QString &path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

}

void TestCompanion::fileOfADirectoryExists_data()
{
    QTest::addColumn<QString>("directory"); // "%1": one that has "there.txt" and the folder "sub"
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<bool>("exists");
    QTest::newRow("file") << "%1"
                          << "there.txt" << true;
    QTest::newRow("trailing slash") << "%1/"
                                    << "there.txt" << true;
    QTest::newRow("folder") << "%1"
                            << "sub" << true;
    QTest::newRow("other file") << "%1"
                                << "other.txt" << false;
    QTest::newRow("other folder") << "%1/other"
                                  << "there.txt" << false;
    QTest::newRow("no directory") << ""
                                  << "there.txt" << false;
    QTest::newRow("no directory, though the file is in the working directory")
        << ""
        << "here.txt" << false;
}

void TestCompanion::fileOfADirectoryExists()
{
    QFETCH(QString, directory);
    QFETCH(QString, fileName);
    const QTemporaryDir folder;
    writeFile(folder.filePath("there.txt"));
    writeFile(folder.filePath("here.txt"));
    QVERIFY(QDir(folder.path()).mkdir("sub"));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    StandInHost host;
    const bool exists =
        UTL_Integration(&host).exists(directory.replace("%1", folder.path()), fileName);
    QDir::setCurrent(before);
    QTEST(exists, "exists");
    QCOMPARE(host.journal(), QStringList());
}

void TestCompanion::companionIsInstalledWhereItsProgramLies()
{
    const QTemporaryDir folder;
    StandInHost host;
    host.state().companionInstallDir = folder.path();
    UTL_QLN2_Integration companion(&host);
    QVERIFY(!companion.isInstalled());
    writeFile(folder.filePath("qln2.exe"));
    QVERIFY(companion.isInstalled());
    QCOMPARE(host.journal(), QStringList({"companionInstallDir()", "companionInstallDir()"}));
}

void TestCompanion::companionWithoutAFolderIsNotLookedFor()
{
    const QTemporaryDir folder;
    writeFile(folder.filePath("qln2.exe"));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    StandInHost host;
    const bool isInstalled = UTL_QLN2_Integration(&host).isInstalled();
    QDir::setCurrent(before);
    QVERIFY(!isInstalled);
}

void TestCompanion::handingOverStopsWhileTheCameraWorksByItself_data()
{
    QTest::addColumn<bool>("recordsDuringDownload");
    QTest::addColumn<bool>("downloads");
    QTest::addColumn<bool>("isDisabled");
    QTest::addColumn<QStringList>("calls");
    const QString records = "getPrefBool(\"recording/RecordDuringDownload\", invalid)";
    const QString downloads = "getPrefBool(\"recording/AutoDownload\", invalid)";
    QTest::newRow("neither") << false << false << false << QStringList({records, downloads});
    QTest::newRow("records") << true << false << true << QStringList({records});
    QTest::newRow("downloads") << false << true << true << QStringList({records, downloads});
    QTest::newRow("both") << true << true << true << QStringList({records});
}

void TestCompanion::handingOverStopsWhileTheCameraWorksByItself()
{
    QFETCH(bool, recordsDuringDownload);
    QFETCH(bool, downloads);
    StandInHost host;
    host.settings().setValue("recording/RecordDuringDownload", recordsDuringDownload);
    host.settings().setValue("recording/AutoDownload", downloads);
    QTEST(UTL_QLN2_Integration(&host).isOptionDisabled(), "isDisabled");
    QTEST(host.journal(), "calls");
}

void TestCompanion::failureReachesTheCaller()
{
    StandInHost host;
    host.failOn("companionInstallDir");
    host.failOn("getPrefBool");
    UTL_QLN2_Integration companion(&host);
    QVERIFY_EXCEPTION_THROWN(companion.isInstalled(), StandInFault);
    QVERIFY_EXCEPTION_THROWN(companion.isOptionDisabled(), StandInFault);
}

int main(int argc, char **argv)
{
    TestCompanion test;
    return runTest(argc, argv, test);
}

#include "test_companion.moc"
