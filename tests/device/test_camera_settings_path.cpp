#include "device/settingsfile/CameraSettingsPath.h"
#include "tests/support/TestLog.h"

#include <QTemporaryDir>

using namespace CameraSettingsPath;

Q_DECLARE_METATYPE(Refusal)

// Where the settings of cameras are saved.
class TestCameraSettingsPath : public TestBase
{
    Q_OBJECT

private slots:
    void nameIsMadeFromItsParts_data();
    void nameIsMadeFromItsParts();
    void monthsAreThoseOfTheCLocale();
    void pathIsFolderAndName_data();
    void pathIsFolderAndName();
    void pathsAreRefused_data();
    void pathsAreRefused();
    void folderIsRefused();
    void pathOf260CharactersIsTheLongest();
};

void TestCameraSettingsPath::nameIsMadeFromItsParts_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("startsTyped");
    QTest::addColumn<bool>("hasTime");
    QTest::addColumn<QString>("name");
    QTest::newRow("the camera's") << "mine" << false << false << "Cam 1";
    QTest::newRow("the typed one") << "mine" << true << false << "mine";
    QTest::newRow("the camera's with time") << "mine" << false << true << "Cam 1_20261122_070809";
    QTest::newRow("the typed one with time") << "mine" << true << true << "mine_20261122_070809";
    QTest::newRow("time alone") << "" << true << true << "20261122_070809";
    QTest::newRow("nothing") << "" << true << false << "";
}

void TestCameraSettingsPath::nameIsMadeFromItsParts()
{
    QFETCH(QString, typed);
    QFETCH(bool, startsTyped);
    QFETCH(bool, hasTime);
    QFETCH(QString, name);
    const NameParts parts{typed, startsTyped, hasTime, "yyyyMMdd_HHmmss"};
    const QDateTime now(QDate(2026, 11, 22), QTime(7, 8, 9));
    QCOMPARE(fileName(parts, "Cam 1", now), name);
    QCOMPARE(fileNameWithSuffix(parts, "Cam 1", now), name + ".qcfg");
}

void TestCameraSettingsPath::monthsAreThoseOfTheCLocale()
{
    QLocale::setDefault(QLocale(QLocale::German));
    const QDateTime now(QDate(2026, 3, 1), QTime(0, 0));
    const QString name = fileName({"a", true, true, "MMMM"}, QString(), now);
    QLocale::setDefault(QLocale::c());
    QCOMPARE(name, QString("a_March"));
}

void TestCameraSettingsPath::pathIsFolderAndName_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("path");
    QTest::newRow("folder") << "/data"
                            << "/data/a.qcfg";
    QTest::newRow("folder with a slash") << "/data/"
                                         << "/data/a.qcfg";
    QTest::newRow("root") << "/"
                          << "/a.qcfg";
    QTest::newRow("no folder") << ""
                               << "";
}

void TestCameraSettingsPath::pathIsFolderAndName()
{
    QFETCH(QString, folder);
    QTEST(path(folder, "a.qcfg"), "path");
}

void TestCameraSettingsPath::pathsAreRefused_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<Refusal>("refusal");
    QTest::newRow("plain") << "/data/a.qcfg" << Refusal::None;
    QTest::newRow("dots inside") << "/data/a.b.qcfg" << Refusal::None;
    QTest::newRow("empty") << "" << Refusal::InvalidName;
    QTest::newRow("suffix alone") << "/data/.qcfg" << Refusal::InvalidName;
    for (const char letter : {'\\', '*', '?', '|', '\t', '\n', '"', ':', '<', '>', '%'}) {
        QTest::addRow("character %d", int(letter))
            << QString("/data/a%1b.qcfg").arg(QLatin1Char(letter)) << Refusal::InvalidName;
    }
    QTest::newRow("forbidden and too long")
        << "/data/" + QString(300, 'x') + ":.qcfg" << Refusal::InvalidName;
    QTest::newRow("in front of a dot") << "/data/a:b.c.qcfg" << Refusal::InvalidName;
    QTest::newRow("in the folder") << "/da*ta/a.qcfg" << Refusal::InvalidName;
    QTest::newRow("colon of a drive") << "D:/data/a.qcfg" << Refusal::None;
}

void TestCameraSettingsPath::pathsAreRefused()
{
    QFETCH(QString, path);
    QTEST(refusal(path), "refusal");
}

void TestCameraSettingsPath::folderIsRefused()
{
    const QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir("a.qcfg"));
    QCOMPARE(refusal(dir.filePath("a.qcfg")), Refusal::InvalidName);
    QCOMPARE(refusal(dir.filePath("b.qcfg")), Refusal::None);
}

void TestCameraSettingsPath::pathOf260CharactersIsTheLongest()
{
    const QString start = "/data/";
    const QString end = ".qcfg";
    const QString longest = start + QString(260 - start.size() - end.size(), 'x') + end;
    QCOMPARE(longest.size(), 260);
    QCOMPARE(refusal(longest), Refusal::None);
    QCOMPARE(refusal(start + 'x' + longest.mid(start.size())), Refusal::TooLong);
}

int main(int argc, char *argv[])
{
    TestCameraSettingsPath test;
    return runTest(argc, argv, test);
}

#include "test_camera_settings_path.moc"
