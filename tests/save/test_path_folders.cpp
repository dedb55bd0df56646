#include "foundation/exceptions/UTL_Exception.h"
#include "save/path/PathComposer.h"
#include "save/path/PathComposition.h"
#include "tests/save/PathTest.h"

#include <QDir>

#include <limits>

using Mode = StandInHost::Mode;
using Settings = QVariantMap;

Q_DECLARE_METATYPE(Mode)

namespace {

const QStringList Families{"export", "convert", "snap", "report", "layout"};

}

// Group and sub directories of saves, and their numbers.
class TestPathFolders : public PathTest
{
    Q_OBJECT

private slots:
    void modeHasItsDirectories_data();
    void modeHasItsDirectories();
    void directoryIsNamed_data();
    void directoryIsNamed();
    void documentGivesTheNumbers();
    void levelHasItsDigits_data();
    void levelHasItsDigits();
    void takenNumberIsPassedOver();
    void filesAreNoDirectories();
    void numberWithoutSessionDigitsIsNotLookedFor();
    void subDirectoryIsLookedForInTheBase();
    void timeIsNotLookedFor();
    void numberPastTheLastIsRefused();
    void fixedGroupDirectoryIsTaken();
    void digitsAreRead_data();
    void digitsAreRead();
    void digitsWithoutAHost();
    void numberIsComposed();
    void settingsAreReadInTheirOrder();

private:
    void setLevels(const QString &suffix, const QVariant &value);
};

// One setting of all group and sub directories.
void TestPathFolders::setLevels(const QString &suffix, const QVariant &value)
{
    for (const QString &family : Families) {
        if (family != "layout")
            set(family + "/groupdir" + suffix, value);
        set(family + "/subdir" + suffix, value);
    }
}

void TestPathFolders::modeHasItsDirectories_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("sub");
    const QMap<int, QStringList> others{{4, {"", "layout"}},          {5, {"", "layout"}},
                                        {6, {"convert", "convert"}},  {7, {"snap", "snap"}},
                                        {11, {"convert", "convert"}}, {16, {"report", "report"}},
                                        {17, {"report", "report"}},   {18, {"export", "layout"}}};
    for (int mode = -1; mode <= 20; ++mode) {
        const QStringList names = others.value(mode, {"export", "export"});
        QTest::newRow(qPrintable(QString::number(mode))) << mode << names.first() << names.last();
    }
}

void TestPathFolders::modeHasItsDirectories()
{
    QFETCH(int, mode);
    QFETCH(QString, group);
    QFETCH(QString, sub);
    for (const QString &family : Families) {
        if (family != "layout")
            set(family + "/groupdirname", family);
        set(family + "/subdirname", family);
    }
    QCOMPARE(groupDir(mode), QString());
    QCOMPARE(subDir(mode), QString());
    setLevels("", true);
    QCOMPARE(groupDir(mode), group);
    QCOMPARE(subDir(mode), sub);
}

void TestPathFolders::directoryIsNamed_data()
{
    QTest::addColumn<Mode>("hostMode");
    QTest::addColumn<QString>("baseName");
    QTest::addColumn<Settings>("settings"); // behind the level
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, Mode mode, const QString &baseName,
                        const Settings &settings, const QString &text) {
        QTest::newRow(name) << mode << baseName << settings << text;
    };
    row("fixed name", Mode::Live, "Shot", {}, "Run");
    row("no name", Mode::Live, "Shot", {{"name", ""}}, "");
    row("wrong types", Mode::Live, "Shot",
        {{"name", 7}, {"addnumber", "yes"}, {"addnumbersessionnodigits", "three"}}, "7_C01H02");
    row("file name", Mode::Live, "Shot", {{"asfilename", true}}, "Shot");
    row("no file name", Mode::Live, "", {{"asfilename", true}}, "");
    row("number", Mode::Live, "Shot", {{"addnumber", true}}, "Run_C01H02S001");
    row("number of a file", Mode::File, "Shot", {{"addnumber", true}}, "Run_S001");
    row("sized number", Mode::Live, "Shot", {{"addnumber", true}, {"addnumberformat", "auto"}},
        "Run_C1S001");
    row("sized number of a file", Mode::File, "Shot",
        {{"addnumber", true}, {"addnumberformat", "auto"}}, "Run_S001");
    row("sized in other letters", Mode::Live, "Shot",
        {{"addnumber", true}, {"addnumberformat", "Auto"}}, "Run_C01H02S001");
    row("number alone", Mode::Live, "Shot", {{"addnumber", true}, {"name", ""}}, "C01H02S001");
    row("number behind the file name", Mode::Live, "Shot",
        {{"addnumber", true}, {"asfilename", true}}, "Shot_C01H02S001");
    row("time", Mode::Live, "Shot", {{"addtime", true}}, "Run_0708");
    row("time alone", Mode::Live, "", {{"addtime", true}, {"asfilename", true}}, "0708");
    row("time of no text", Mode::Live, "Shot", {{"addtime", true}, {"addtimeformat", ""}}, "Run");
    row("number and time", Mode::Live, "Shot", {{"addtime", true}, {"addnumber", true}},
        "Run_C01H02S001_0708");
    row("number and time alone", Mode::Live, "Shot",
        {{"addtime", true}, {"addnumber", true}, {"name", ""}}, "C01H02S001_0708");
    row("no digits", Mode::Live, "Shot",
        {{"addnumber", true},
         {"addnumbercameranodigits", 0},
         {"addnumberheadnodigits", 0},
         {"addnumbersessionnodigits", 0}},
        "Run");
    row("no digits, time", Mode::Live, "Shot",
        {{"addnumber", true},
         {"addtime", true},
         {"addnumbercameranodigits", 0},
         {"addnumberheadnodigits", 0},
         {"addnumbersessionnodigits", 0}},
        "Run_0708");
    row("no session digits", Mode::Live, "Shot",
        {{"addnumber", true}, {"addnumbersessionnodigits", 0}}, "Run_C01H02");
    row("no session digits of a file", Mode::File, "Shot",
        {{"addnumber", true}, {"addnumbersessionnodigits", 0}}, "Run");
    row("characters stay", Mode::Live, "a/b", {{"asfilename", true}}, "a/b");
    row("marks of arguments", Mode::Live, "%2",
        {{"asfilename", true}, {"addtime", true}, {"addtimeformat", "'%1'"}}, "%2_%1");
}

void TestPathFolders::directoryIsNamed()
{
    QFETCH(Mode, hostMode);
    QFETCH(QString, baseName);
    QFETCH(Settings, settings);
    QFETCH(QString, text);
    m_host->setMode(hostMode);
    m_host->addCamera();
    m_camera->state().headNumber = 2;
    for (const char *level : {"export/groupdir", "export/subdir"}) {
        Settings all{{"", true},
                     {"name", "Run"},
                     {"addnumberformat", "manual"},
                     {"addnumbercameranodigits", 2},
                     {"addnumberheadnodigits", 2},
                     {"addnumbersessionnodigits", 3},
                     {"addtimeformat", "HHmm"}};
        for (auto entry = settings.cbegin(); entry != settings.cend(); ++entry)
            all.insert(entry.key(), entry.value());
        for (auto entry = all.cbegin(); entry != all.cend(); ++entry)
            set(level + entry.key(), entry.value());
    }
    QCOMPARE(groupDir(1, baseName), text);
    QCOMPARE(subDir(1, baseName), text);
}

void TestPathFolders::documentGivesTheNumbers()
{
    for (int i = 0; i < 12; ++i)
        m_host->addCamera();
    m_camera->state().cameraNumber = 4;
    m_camera->state().headNumber = 3;
    m_camera->state().headCount = 10;
    set({{"export/groupdir", true},
         {"export/groupdiraddnumber", true},
         {"export/groupdiraddnumberformat", "manual"}});
    QCOMPARE(groupDir(1), QString("C005H003S0001"));
    set("export/groupdiraddnumberformat", "auto");
    QCOMPARE(groupDir(1), QString("C05H03S0001"));
    m_camera->state().headCount = 2;
    QCOMPARE(groupDir(1), QString("C05H3S0001"));
    m_camera->state().headCount = 1;
    QCOMPARE(groupDir(1), QString("C05S0001"));
    m_camera->state().headCount = 0;
    QCOMPARE(groupDir(1), QString("C05S0001"));
    QCOMPARE(PathComposer::composeGroupDir(m_host.get(), 1, nullptr, "", moment()),
             QString("C001H001S0001"));
    m_host->setMode(Mode::File);
    QCOMPARE(groupDir(1), QString("S0001"));
}

void TestPathFolders::levelHasItsDigits_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("sub");
    QTest::newRow("export") << 1 << "C1H1S1"
                            << "C01H01S01";
    QTest::newRow("convert") << 6 << "C001H001S001"
                             << "C0001H0001S0001";
    QTest::newRow("snap") << 7 << "C00001H00001S00001"
                          << "C000001H000001S000001";
    QTest::newRow("report") << 16 << ""
                            << "S0000001";
    QTest::newRow("layout") << 4 << ""
                            << "C00000001H00000001S00000001";
    QTest::newRow("layout preview") << 18 << "C1H1S1"
                                    << "C00000001H00000001S00000001";
}

void TestPathFolders::levelHasItsDigits()
{
    QFETCH(int, mode);
    setLevels("", true);
    setLevels("addnumber", true);
    setLevels("addnumberformat", "manual");
    int digits = 0;
    for (const char *level :
         {"export/groupdir", "export/subdir", "convert/groupdir", "convert/subdir", "snap/groupdir",
          "snap/subdir", "report/subdir", "layout/subdir"}) {
        ++digits;
        for (const char *part : {"camera", "head", "session"}) {
            if (QString(level) != "report/subdir" || QString(part) == "session")
                set(QString("%1addnumber%2nodigits").arg(level, part), digits);
        }
    }
    QTEST(groupDir(mode), "group");
    QTEST(subDir(mode), "sub");
}

void TestPathFolders::takenNumberIsPassedOver()
{
    set({{"export/groupdir", true},
         {"export/groupdirname", "Run"},
         {"export/groupdiraddnumber", true},
         {"export/groupdiraddnumbercameranodigits", 1},
         {"export/groupdiraddnumberheadnodigits", 0},
         {"export/groupdiraddnumbersessionnodigits", 2},
         {"export/groupdiraddtime", true},
         {"export/groupdiraddtimeformat", "HHmm"}});
    makeDir("Run_C1S01");
    makeDir("Run_C1S02/Sub");
    makeDir("Run_C1S04");
    makeDir("Run_C1S5");
    m_host->savePlan().addDir(base() + "Run_C1S03/");
    m_host->savePlan().addDir(base() + "Run_C1S05");
    LogCapture log;
    QCOMPARE(groupDir(1), QString("Run_C1S05_0708"));
    QStringList warnings;
    for (const char *name : {"Run_C1S01", "Run_C1S02", "Run_C1S03", "Run_C1S04"})
        warnings.append("exists \"" + base() + name + "/\"");
    QCOMPARE(log.texts(QtWarningMsg), warnings);
    QCOMPARE(log.texts(), warnings);
}

void TestPathFolders::filesAreNoDirectories()
{
    set({{"export/groupdir", true},
         {"export/groupdiraddnumber", true},
         {"export/groupdiraddnumberformat", "manual"},
         {"export/groupdiraddnumbercameranodigits", 0},
         {"export/groupdiraddnumberheadnodigits", 0}});
    touch("S0001");
    touch("S0001.avi");
    QCOMPARE(groupDir(1), QString("S0001"));
    makeDir("s0001.d");
    QCOMPARE(groupDir(1), QString("S0001"));
    QVERIFY(QFile::remove(base() + "S0001"));
    QVERIFY(QFile::link(base() + "s0001.d", base() + "S0001"));
    LogCapture log;
    QCOMPARE(groupDir(1), QString("S0002"));
    QCOMPARE(log.texts(), QStringList("exists \"" + base() + "S0001/\""));
}

void TestPathFolders::numberWithoutSessionDigitsIsNotLookedFor()
{
    makeDir("Run_C001H001");
    m_host->savePlan().addDir(base() + "Run_C001H001/");
    set({{"export/subdir", true},
         {"export/subdirname", "Run"},
         {"export/subdiraddnumber", true},
         {"export/subdiraddnumberformat", "manual"},
         {"export/subdiraddnumbersessionnodigits", 0}});
    m_host->clearJournal();
    QCOMPARE(subDir(1), QString("Run_C001H001"));
    set("export/subdiraddnumbersessionnodigits", -1);
    QCOMPARE(subDir(1), QString("Run_C001H001"));
    QVERIFY(m_host->journal().filter("isPlanned").isEmpty());
}

// Also when it finally lies in a group directory.
void TestPathFolders::subDirectoryIsLookedForInTheBase()
{
    set({{"export/groupdir", true},
         {"export/groupdirname", "G"},
         {"export/subdir", true},
         {"export/subdirname", "S"},
         {"export/subdiraddnumber", true},
         {"export/subdiraddnumberformat", "auto"},
         {"export/subdiraddnumbersessionnodigits", 1}});
    m_host->addCamera();
    makeDir("G/S_C1S1");
    makeDir("S_C1S1");
    makeDir("G/S_C1S2");
    LogCapture log;
    Maps maps;
    composeAll(1, maps);
    QCOMPARE(inBase(maps.paths.value(1)), QString("G/S_C1S2/Shot"));
    QCOMPARE(log.texts(), QStringList("exists \"" + base() + "S_C1S1/\""));
}

void TestPathFolders::timeIsNotLookedFor()
{
    set({{"export/groupdir", true},
         {"export/groupdiraddnumber", true},
         {"export/groupdiraddnumberformat", "auto"},
         {"export/groupdiraddtime", true},
         {"export/groupdiraddtimeformat", "HHmm"}});
    m_host->addCamera();
    makeDir("C1S0001_0708");
    QCOMPARE(groupDir(1), QString("C1S0001_0708"));
}

void TestPathFolders::numberPastTheLastIsRefused()
{
    set({{"export/groupdir", true},
         {"export/groupdiraddnumber", true},
         {"export/groupdiraddnumbercameranodigits", 0},
         {"export/groupdiraddnumberheadnodigits", 0},
         {"export/groupdiraddnumbersessionnodigits", 1}});
    constexpr int Last = std::numeric_limits<int>::max();
    makeDir("S2147483646");
    LogCapture log;
    QCOMPARE(PathComposition(m_host.get(), nullptr, moment(), Last - 1).groupDir(1, "").text,
             QString("S2147483647"));
    log.clear();
    makeDir("S2147483647");
    QVERIFY_EXCEPTION_THROWN(PathComposition(m_host.get(), nullptr, moment(), Last).groupDir(1, ""),
                             UTL_Exception);
    QCOMPARE(log.texts(),
             QStringList({"exists \"" + base() + "S2147483647/\"", refusal("Invalid filename.")}));
}

void TestPathFolders::fixedGroupDirectoryIsTaken()
{
    setLevels("", true);
    setLevels("name", "Run");
    setLevels("addnumber", true);
    setLevels("addtime", true);
    m_host->savePlan().setGroupDir("Fixed_S0007");
    m_host->clearJournal();
    for (int mode : {1, 6, 7, 16, 18})
        QCOMPARE(groupDir(mode), QString("Fixed_S0007"));
    QCOMPARE(groupDir(4), QString());
    QVERIFY(m_host->journal().filter("isPlannedDir").isEmpty());
    QVERIFY(subDir(1) != "Fixed_S0007");
    set("export/groupdir", false);
    QCOMPARE(groupDir(1), QString());
}

void TestPathFolders::digitsAreRead_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("camera");
    QTest::addColumn<QString>("head");
    QTest::addColumn<QString>("session");
    const QMap<int, QString> levels{
        {0, "export/groupdir"},  {1, "export/subdir"},    {2, "export/filename"},
        {3, "convert/groupdir"}, {4, "convert/subdir"},   {5, "convert/filename"},
        {6, "snap/groupdir"},    {7, "snap/subdir"},      {8, "snap/filename"},
        {10, "report/subdir"},   {11, "report/filename"}, {13, "export/kv/dataname"},
        {15, "layout/subdir"},   {16, "layout/filename"}};
    for (int kind = -1; kind <= 17; ++kind) {
        const QString level = levels.value(kind);
        const bool isReport = level.startsWith("report");
        QTest::newRow(qPrintable(QString::number(kind)))
            << kind << (level.isEmpty() || isReport ? "" : level + "addnumbercameranodigits")
            << (level.isEmpty() || isReport ? "" : level + "addnumberheadnodigits")
            << (level.isEmpty() ? "" : level + "addnumbersessionnodigits");
    }
}

void TestPathFolders::digitsAreRead()
{
    QFETCH(int, kind);
    QFETCH(QString, camera);
    QFETCH(QString, head);
    QFETCH(QString, session);
    int digits = 4;
    for (const QString &key : {camera, head, session}) {
        if (!key.isEmpty())
            set(key, ++digits);
    }
    m_host->clearJournal();
    const auto expected = [&](const QString &key) {
        return key.isEmpty() ? 0 : m_host->settings().value(key, QVariant()).toInt();
    };
    QCOMPARE(PathComposer::cameraDigits(m_host.get(), kind), expected(camera));
    QCOMPARE(PathComposer::headDigits(m_host.get(), kind), expected(head));
    QCOMPARE(PathComposer::sessionDigits(m_host.get(), kind), expected(session));
    QStringList reads;
    for (const QString &key : {camera, head, session})
        reads.append("getPrefInt(\"" + key + "\", invalid)");
    QCOMPARE(m_host->journal(), reads);
}

void TestPathFolders::digitsWithoutAHost()
{
    for (int kind : {0, 9, 12, 13, 17}) {
        QCOMPARE(PathComposer::cameraDigits(nullptr, kind), 3);
        QCOMPARE(PathComposer::headDigits(nullptr, kind), 3);
        QCOMPARE(PathComposer::sessionDigits(nullptr, kind), 4);
    }
}

void TestPathFolders::numberIsComposed()
{
    QCOMPARE(PathComposer::composeNumberText(3, 1, 12, 2, 0, 4), QString("C03S0012"));
    QCOMPARE(PathComposer::composeNumberText(1, 2, 3, 1, 2, 0), QString("C1H02"));
}

void TestPathFolders::settingsAreReadInTheirOrder()
{
    for (const char *suffix : {"", "addnumber", "addtime"})
        set(QString("export/subdir") + suffix, true);
    set("export/subdirname", "Run");
    set("export/subdiraddnumberformat", "auto");
    m_host->clearJournal();
    PathComposer::composeSubDir(m_host.get(), 1, m_camera.get(), "Shot", moment());
    QCOMPARE(m_host->journal(),
             QStringList({"getPrefBool(\"export/subdir\", invalid)",
                          "getPrefBool(\"export/subdirasfilename\", invalid)",
                          "getPrefString(\"export/subdirname\", invalid)",
                          "getPrefBool(\"export/subdiraddnumber\", invalid)",
                          "getPrefString(\"export/subdiraddnumberformat\", invalid)",
                          "getPrefInt(\"export/subdiraddnumbercameranodigits\", invalid)",
                          "getPrefInt(\"export/subdiraddnumberheadnodigits\", invalid)",
                          "getPrefInt(\"export/subdiraddnumbersessionnodigits\", invalid)",
                          "getPrefBool(\"export/subdiraddtime\", invalid)",
                          "getPrefString(\"export/subdiraddtimeformat\", invalid)",
                          "getPrefBool(\"export/subdirasfilenameincludeoption\", invalid)",
                          "isFileMode()",
                          "[100].cameraNumber()",
                          "[100].headNumber()",
                          "[100].cameraCount()",
                          "[100].headInterface()",
                          "[100].headCount()",
                          "getPrefBool(\"export/singlepath\", invalid)",
                          "getPrefString(\"export/dir\", invalid)",
                          "isPlannedDir(\"" + base() + "Run_C1S0001/\")"}));
}

int main(int argc, char *argv[])
{
    TestPathFolders test;
    return runTest(argc, argv, test);
}

#include "test_path_folders.moc"
