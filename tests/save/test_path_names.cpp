#include "foundation/SaveModes.h"
#include "foundation/exceptions/UTL_Exception.h"
#include "save/path/PathComposer.h"
#include "save/path/PathComposition.h"
#include "tests/save/PathTest.h"

#include <QDir>
#include <QFile>

#include <limits>

using Mode = StandInHost::Mode;
using Settings = QVariantMap;

Q_DECLARE_METATYPE(Mode)

// Base directories and file names of saves: on a real disk, with the settings and documents of a
// host.
class TestPathNames : public PathTest
{
    Q_OBJECT

private slots:
    void baseIsComposed_data();
    void baseIsComposed();
    void baseWithoutADocument_data();
    void baseWithoutADocument();
    void informationFileNamesASave_data();
    void informationFileNamesASave();
    void fileIsNamed_data();
    void fileIsNamed();
    void conversionOfMemoryIsNamedAsItsExport();
    void otherDocumentGivesTheItems_data();
    void otherDocumentGivesTheItems();
    void additionsAreJoined_data();
    void additionsAreJoined();
    void freeNumberIsTaken_data();
    void freeNumberIsTaken();
    void sequenceStaysUsed();
    void nameWithoutANumberHasNoSearch();
    void plannedFileIsPassedOver();
    void fileIsLookedForWhereItWillLie_data();
    void fileIsLookedForWhereItWillLie();
    void optionOfTheModeTellsWhereAFileWillLie_data();
    void optionOfTheModeTellsWhereAFileWillLie();
    void bareNameOfAConversionIsThatOfItsExport();
    void additionThatNeverChangesIsRefused();
    void additionThatReadsTheSameIsPassedOver();
    void numberPastTheLastIsRefused();
    void documentIsAskedForItsAddition();
    void settingsAreReadInTheirOrder();
};

void TestPathNames::baseIsComposed_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<Mode>("hostMode");
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<QString>("directory");
    const Settings devices{{"export/singlepath", false},
                           {"export/multipathlist", "A|/a?B|/b/"},
                           {"export/multipathdevicelist", "Cam|A?Other|B"}};
    const auto with = [](Settings settings, const Settings &more) {
        for (auto entry = more.cbegin(); entry != more.cend(); ++entry)
            settings.insert(entry.key(), entry.value());
        return settings;
    };
    const auto row = [](const char *name, int mode, Mode hostMode, const Settings &settings,
                        const QString &directory) {
        QTest::newRow(name) << mode << hostMode << settings << directory;
    };
    row("export", 1, Mode::Live, {{"export/dir", "D:/data"}}, "D:/data/");
    row("ends in a slash", 1, Mode::Live, {{"export/dir", "D:/data/"}}, "D:/data/");
    row("empty", 1, Mode::Live, {{"export/dir", ""}}, "");
    row("snap", 7, Mode::Live, {{"snap/dir", "/s"}}, "/s/");
    row("report", 16, Mode::Live, {{"report/dir", "/r"}}, "/r/");
    row("layout", 4, Mode::Live, {{"layout/dir", "/l"}}, "/l/");
    row("layout preview", 18, Mode::Live, {{"layout/dir", "/l"}}, "/l/");
    row("convert", 6, Mode::Live, {{"convert/dir", "/c"}}, "/c/");
    row("destination", 1, Mode::Live, devices, "/a/");
    row("destination of mode 2", 2, Mode::Memory, devices, "/a/");
    row("destination ends in a slash", 1, Mode::Live,
        with(devices, {{"export/multipathdevicelist", "Cam|B"}}), "/b/");
    row("destination of no text", 1, Mode::Live, with(devices, {{"export/multipathlist", "A|"}}),
        "");
    row("no destinations for files", 1, Mode::File, with(devices, {{"export/dir", "/e"}}), "/e/");
    row("no destinations for mode 0", 0, Mode::Live, with(devices, {{"export/dir", "/e"}}), "/e/");
    row("no destinations for mode 3", 3, Mode::Live, with(devices, {{"export/dir", "/e"}}), "/e/");
    row("no destinations for previews", 10, Mode::Live, with(devices, {{"export/dir", "/e"}}),
        "/e/");
    row("no destinations for snapshots", 7, Mode::Live, with(devices, {{"snap/dir", "/s"}}), "/s/");
    row("one path for all", 1, Mode::Live,
        with(devices, {{"export/singlepath", true}, {"export/dir", "/e"}}), "/e/");
    row("device without a destination", 1, Mode::Live,
        with(devices, {{"export/multipathdevicelist", "Other|A"}, {"export/dir", "/e"}}), "/e/");
    row("destination has gone", 1, Mode::Live,
        with(devices, {{"export/multipathdevicelist", "Cam|C"}, {"export/dir", "/e"}}), "/e/");
    row("destination of three fields", 1, Mode::Live,
        with(devices, {{"export/multipathlist", "A|/a|x"}, {"export/dir", "/e"}}), "/e/");
    const Settings original{{"export/dir", "/e"},
                            {"export/dirasoriginal", true},
                            {"convert/dir", "/c"},
                            {"convert/dirasoriginal", true},
                            {"layout/dirasoriginal", true}};
    row("own directory of a file", 1, Mode::File, original, "/films/day 1/");
    row("own directory, layout", 5, Mode::File, original, "/films/day 1/");
    row("own directory is for files", 1, Mode::Memory, original, "/e/");
    row("own directory of a conversion", 6, Mode::File, original, "/films/day 1/");
    row("own directory of a conversion in memory", 11, Mode::Memory, original, "/films/day 1/");
    row("own directory before a destination", 1, Mode::File, with(devices, original),
        "/films/day 1/");
    row("not asked for", 1, Mode::File, {{"export/dir", "/e"}}, "/e/");
    row("wrong type", 1, Mode::Live, {{"export/dir", 5}}, "5/");
}

void TestPathNames::baseIsComposed()
{
    QFETCH(int, mode);
    QFETCH(Mode, hostMode);
    QFETCH(Settings, settings);
    m_host->setMode(hostMode);
    m_camera->state().originalFilePath = "/films/day 1/film.rih";
    set(settings);
    QTEST(PathComposer::composeDirectory(m_host.get(), mode, m_camera.get()), "directory");
}

void TestPathNames::baseWithoutADocument_data()
{
    QTest::addColumn<bool>("hasDocument");
    QTest::addColumn<bool>("dirAsOriginal");
    QTest::addColumn<QString>("directory");
    QTest::newRow("no document") << false << false << "/c/";
    QTest::newRow("no document, own directory") << false << true << "";
    QTest::newRow("no file, own directory") << true << true << "";
}

void TestPathNames::baseWithoutADocument()
{
    QFETCH(bool, hasDocument);
    QFETCH(bool, dirAsOriginal);
    set({{"convert/dir", "/c"}, {"convert/dirasoriginal", dirAsOriginal}});
    DOC_Interface *doc = hasDocument ? m_camera.get() : nullptr;
    QTEST(PathComposer::composeDirectory(m_host.get(), 6, doc), "directory");
    set({{"export/dir", "/e"},
         {"export/singlepath", false},
         {"export/multipathlist", "A|/a"},
         {"export/multipathdevicelist", "|A"}});
    QCOMPARE(PathComposer::composeDirectory(m_host.get(), 1, nullptr), QString("/e/"));
}

void TestPathNames::informationFileNamesASave_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<QString>("name");
    const auto on = [](const Settings &more) {
        Settings settings{
            {"export/media", "file"},  {"save/SaveInfFile", true},   {"export/saveinf", true},
            {"convert/saveinf", true}, {"export/inf_testno", "N/1"}, {"convert/filename", "Conv"},
            {"snap/filename", "Snap"}, {"report/filename", "Rep"},   {"layout/filename", "Lay"}};
        for (auto entry = more.cbegin(); entry != more.cend(); ++entry)
            settings.insert(entry.key(), entry.value());
        return settings;
    };
    QTest::newRow("setting") << 1 << on({}) << "N/1";
    QTest::newRow("conversion") << 6 << on({}) << "N/1";
    QTest::newRow("preview of a conversion") << 11 << on({}) << "N/1";
    QTest::newRow("item") << 1 << on({{"export/inf_testno", ""}}) << "T7";
    QTest::newRow("not to files") << 1 << on({{"export/media", "camera"}}) << "Shot";
    QTest::newRow("other capitals") << 1 << on({{"export/media", "File"}}) << "Shot";
    QTest::newRow("no files of information") << 1 << on({{"save/SaveInfFile", false}}) << "Shot";
    QTest::newRow("not for exports") << 1 << on({{"export/saveinf", false}}) << "Shot";
    QTest::newRow("not for conversions") << 6 << on({{"convert/saveinf", false}}) << "Conv";
    QTest::newRow("conversions alone") << 6 << on({{"export/saveinf", false}}) << "N/1";
    QTest::newRow("snapshot") << 7 << on({}) << "Snap";
    QTest::newRow("report") << 16 << on({}) << "Rep";
    QTest::newRow("layout") << 4 << on({}) << "Lay";
}

void TestPathNames::informationFileNamesASave()
{
    QFETCH(int, mode);
    QFETCH(Settings, settings);
    set(settings);
    m_camera->state().customInfo = {item("TestNo", "T7", "", "off")};
    QTEST(fileName(mode, false), "name");
    if (fileName(mode, false) == "N/1" || fileName(mode, false) == "T7") {
        m_camera->addition = numbered("");
        set(SaveModes::keys(SaveModes::family(mode)).fileName.addTime, true);
        QTEST(fileName(mode), "name");
        set("export/inf_testno", "");
        QCOMPARE(PathComposer::composeFileName(m_host.get(), mode, nullptr, 1, true, moment()),
                 QString());
    }
}

void TestPathNames::fileIsNamed_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<Mode>("hostMode");
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("nameOfNothing"); // without a document
    QTest::newRow("fixed") << 1 << Mode::Live << Settings{{"export/filename", "a:b"}} << "a:b"
                           << "a:b";
    QTest::newRow("original") << 1 << Mode::File << Settings{{"export/filenameasoriginal", true}}
                              << "film"
                              << "";
    QTest::newRow("original of a conversion of files")
        << 6 << Mode::File << Settings{{"convert/filenameasoriginal", true}} << "film"
        << "";
    QTest::newRow("partition") << 1 << Mode::Memory
                               << Settings{{"export/filenameaspartitionname", true}} << "P_1"
                               << "";
    QTest::newRow("partition before original")
        << 1 << Mode::Memory
        << Settings{{"export/filenameaspartitionname", true}, {"export/filenameasoriginal", true}}
        << "P_1"
        << "";
    QTest::newRow("partition of a file")
        << 1 << Mode::File << Settings{{"export/filenameaspartitionname", true}} << "Shot"
        << "Shot";
    QTest::newRow("items") << 7 << Mode::Memory
                           << Settings{{"snap/filenameusecustom", true},
                                       {"snap/filename", "Snap"},
                                       {"snap/filenameusecustomincludeunit", true}}
                           << "12.5mm_300fps"
                           << "Snap";
    QTest::newRow("items without unit")
        << 16 << Mode::File << Settings{{"report/filenameusecustom", true}} << "12.5_300"
        << "";
    const Settings layout{{"layout/filename", "Lay"}, {"export/filename", "Shot"}};
    for (const int mode : {4, 5, 18})
        QTest::newRow(qPrintable(QString("layout, mode %1").arg(mode)))
            << mode << Mode::Live << layout << "Lay"
            << "Lay";
    QTest::newRow("missing settings") << 4 << Mode::Live << Settings() << ""
                                      << "";
    QTest::newRow("wrong types") << 1 << Mode::Memory
                                 << Settings{{"export/filename", 7},
                                             {"export/filenameaspartitionname", "no bool"}}
                                 << "P_1"
                                 << "";
}

void TestPathNames::fileIsNamed()
{
    QFETCH(int, mode);
    QFETCH(Mode, hostMode);
    QFETCH(Settings, settings);
    m_host->setMode(hostMode);
    set(settings);
    m_camera->state().originalFileName = "film";
    m_camera->state().partitions = {{1, "P/1", 10, 0}};
    m_camera->state().customInfo = {item("A", "12.5", "mm", "on"), item("B", "x", "", "off"),
                                    item("C", "300", "fps", "on")};
    QTEST(fileName(mode, false), "name");
    QTEST(PathComposer::composeFileName(m_host.get(), mode, nullptr, 1, false, moment()),
          "nameOfNothing");
}

void TestPathNames::conversionOfMemoryIsNamedAsItsExport()
{
    m_host->setMode(Mode::Memory);
    m_camera->state().originalFileName = "film";
    m_camera->addition = [](int mode, int, int sequence, bool &usesSequence) {
        usesSequence = true;
        return QString("m%1S%2").arg(mode).arg(sequence);
    };
    set({{"convert/filenameasoriginal", true}, {"convert/filename", "Conv"}});
    QCOMPARE(fileName(6, false), QString("Shot"));
    QCOMPARE(fileName(6), QString("Shot_m1S1_m6S1"));
    QCOMPARE(fileName(11, false), QString("Shot"));
    m_camera->state().isCameraRecord = false;
    QCOMPARE(fileName(6, false), QString("film"));
    m_camera->state().isCameraRecord = true;
    m_host->setMode(Mode::Live);
    QCOMPARE(fileName(6, false), QString("film"));
    m_host->setMode(Mode::Memory);
    set("convert/filenameasoriginal", false);
    QCOMPARE(fileName(6, false), QString("Conv"));
    set({{"export/filenameasoriginal", true}, {"convert/filenameasoriginal", true}});
    QCOMPARE(fileName(1, false), QString("film"));
    QCOMPARE(fileName(6, false), QString("film"));
}

void TestPathNames::otherDocumentGivesTheItems_data()
{
    QTest::addColumn<bool>("fromTarget");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("name");
    QTest::newRow("other") << true << 5 << "other";
    QTest::newRow("not asked for") << false << 5 << "own";
    QTest::newRow("none") << true << -1 << "own";
    QTest::newRow("key 0") << true << 0 << "null";
    QTest::newRow("it has gone") << true << 6 << "own";
}

void TestPathNames::otherDocumentGivesTheItems()
{
    QFETCH(bool, fromTarget);
    QFETCH(int, key);
    m_host->setNextKey(0);
    m_host->addCamera()->state().customInfo = {item("A", "null", "", "on")};
    m_host->setNextKey(5);
    m_host->addCamera()->state().customInfo = {item("A", "other", "", "on")};
    m_camera->state().customInfo = {item("A", "own", "", "on")};
    set({{"export/filenameusecustom", true},
         {"export/filenameusecustomfromtarget", fromTarget},
         {"export/filenameusecustomfromtargetkey", key}});
    QTEST(fileName(1, false), "name");
    if (fromTarget && key >= 0 && key < 6)
        QTEST(PathComposer::composeFileName(m_host.get(), 1, nullptr, 1, false, moment()), "name");
}

void TestPathNames::additionsAreJoined_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("addition");
    QTest::addColumn<QString>("timeFormat"); // null: no time
    QTest::addColumn<QString>("full");
    QTest::newRow("nothing") << "Shot"
                             << "" << QString() << "Shot";
    QTest::newRow("addition") << "Shot"
                              << "C1" << QString() << "Shot_C1";
    QTest::newRow("addition alone") << ""
                                    << "C1" << QString() << "C1";
    QTest::newRow("addition, cleaned") << "Shot"
                                       << "a/b" << QString() << "Shot_a_b";
    QTest::newRow("addition of a point") << "Shot"
                                         << "." << QString() << "Shot__";
    QTest::newRow("time") << "Shot"
                          << ""
                          << "HHmm"
                          << "Shot_0708";
    QTest::newRow("time alone") << ""
                                << ""
                                << "HHmm"
                                << "0708";
    QTest::newRow("time of no text") << "Shot"
                                     << "C1"
                                     << ""
                                     << "Shot_C1";
    QTest::newRow("all") << "Shot"
                         << "C1"
                         << "HHmm"
                         << "Shot_C1_0708";
    QTest::newRow("time as formatted") << "Shot"
                                       << ""
                                       << "H:m/s"
                                       << "Shot_7:8/9";
    QTest::newRow("months") << "Shot"
                            << ""
                            << "MMM"
                            << "Shot_Jun";
    QTest::newRow("neither") << ""
                             << ""
                             << ""
                             << "";
    QTest::newRow("marks of arguments") << "%1"
                                        << "x"
                                        << "'%2'"
                                        << "%1_x_%2";
}

void TestPathNames::additionsAreJoined()
{
    QFETCH(QString, name);
    QFETCH(QString, addition);
    QFETCH(QString, timeFormat);
    m_camera->addition = fixed(addition);
    set({{"export/filename", name},
         {"export/filenameaddtime", !timeFormat.isNull()},
         {"export/filenameaddtimeformat", timeFormat}});
    QTEST(fileName(1), "full");
    QCOMPARE(fileName(1, false), name);
}

void TestPathNames::freeNumberIsTaken_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("full");
    QTest::newRow("nothing there") << QStringList() << "Shot_S0001";
    QTest::newRow("first exists") << QStringList({"Shot_S0001.bmp"}) << "Shot_S0002";
    QTest::newRow("any extension") << QStringList({"Shot_S0001.tar.gz"}) << "Shot_S0002";
    QTest::newRow("no extension") << QStringList({"Shot_S0001"}) << "Shot_S0002";
    QTest::newRow("further text") << QStringList({"Shot_S0001_x.bmp"}) << "Shot_S0002";
    QTest::newRow("longer number") << QStringList({"Shot_S00011.bmp"}) << "Shot_S0002";
    QTest::newRow("other capitals") << QStringList({"sHOT_s0001.BMP"}) << "Shot_S0002";
    QTest::newRow("gap") << QStringList({"Shot_S0001", "Shot_S0003"}) << "Shot_S0002";
    QTest::newRow("other name") << QStringList({"Shot2_S0001", "xShot_S0001"}) << "Shot_S0001";
    QTest::newRow("hidden") << QStringList({".Shot_S0001"}) << "Shot_S0001";
    QTest::newRow("directory") << QStringList({"Shot_S0001/x"}) << "Shot_S0001";
    QTest::newRow("in a directory") << QStringList({"sub/Shot_S0001"}) << "Shot_S0001";
}

void TestPathNames::freeNumberIsTaken()
{
    QFETCH(QStringList, files);
    for (const QString &name : files)
        touch(name);
    m_camera->addition = numbered("");
    QTEST(fileName(1), "full");

    // Where no number is used, and where it has no digits, nothing is tested.
    set("export/filenameaddnumbersessionnodigits", 0);
    m_host->clearJournal();
    QCOMPARE(fileName(1), QString("Shot_S0001"));
    set("export/filenameaddnumbersessionnodigits", 1);
    m_camera->addition = fixed("S0001");
    QCOMPARE(fileName(1), QString("Shot_S0001"));
    QVERIFY(m_host->journal().filter("isPlanned").isEmpty());
    QVERIFY(m_host->journal().filter("/dir\"").isEmpty());
}

// The flag is the document's from its first number on.
void TestPathNames::sequenceStaysUsed()
{
    touch("Shot_S0001.x");
    touch("Shot_S0002.x");
    m_camera->addition = [](int, int, int sequence, bool &usesSequence) {
        if (sequence == 1)
            usesSequence = true;
        return QString("S%1").arg(sequence, 4, 10, QChar('0'));
    };
    QCOMPARE(fileName(1), QString("Shot_S0003"));
    m_camera->addition = [](int, int, int, bool &) { return QString("S0001"); };
    QCOMPARE(fileName(1), QString("Shot_S0001"));
}

void TestPathNames::nameWithoutANumberHasNoSearch()
{
    touch("Shot_S1.x");
    m_host->savePlan().addFile(base() + "Shot_S2");
    m_camera->addition = [](int, int, int sequence, bool &usesSequence) {
        usesSequence = sequence < 3;
        return QString("S%1").arg(sequence);
    };
    const ComposedName name =
        PathComposition(m_host.get(), m_camera.get(), moment()).fileName(1, 1, true, {});
    QCOMPARE(name.text, QString("Shot_S3"));
    QCOMPARE(name.search.number, 0);
    QCOMPARE(name.search.onDisk, 0);
    QCOMPARE(name.search.planned, 0);
}

void TestPathNames::plannedFileIsPassedOver()
{
    m_camera->addition = numbered("");
    m_host->savePlan().addFile(base() + "Shot_S0001");
    m_host->savePlan().addFile(base() + "Shot_S0003");
    touch("Shot_S0002.avi");
    QCOMPARE(fileName(1), QString("Shot_S0004"));
    m_host->clearPlannedFiles();
    QCOMPARE(fileName(1), QString("Shot_S0001"));
    m_host->savePlan().addFile(base() + "shot_s0001");
    m_host->savePlan().addFile(base() + "Shot_S0001.bmp");
    QCOMPARE(fileName(1), QString("Shot_S0001"));
}

void TestPathNames::fileIsLookedForWhereItWillLie_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("full");
    const Settings both{{"export/groupdir", true},
                        {"export/groupdirname", "G"},
                        {"export/subdir", true},
                        {"export/subdirname", "S"}};
    const Settings named{{"export/groupdir", true},
                         {"export/groupdirasfilename", true},
                         {"export/subdir", true},
                         {"export/subdirasfilename", true}};
    Settings namedInFull = named;
    namedInFull.insert("export/groupdirasfilenameincludeoption", true);
    Settings subInFull = named;
    subInFull.insert("export/subdirasfilenameincludeoption", true);
    QTest::newRow("fixed") << both << "G/S/Shot_S0001.x"
                           << "Shot_S0002";
    QTest::newRow("not in the base") << both << "Shot_S0001.x"
                                     << "Shot_S0001";
    QTest::newRow("not in the group") << both << "G/Shot_S0001.x"
                                      << "Shot_S0001";
    QTest::newRow("not in the other order") << both << "S/G/Shot_S0001.x"
                                            << "Shot_S0001";
    QTest::newRow("bare names") << named << "Shot/Shot/Shot_S0001.x"
                                << "Shot_S0002";
    QTest::newRow("group by the full name") << namedInFull << "Shot_S0001/Shot/Shot_S0001.x"
                                            << "Shot_S0002";
    QTest::newRow("not by the bare name") << namedInFull << "Shot/Shot/Shot_S0001.x"
                                          << "Shot_S0001";
    QTest::newRow("sub directory by the full name") << subInFull << "Shot/Shot_S0001/Shot_S0001.x"
                                                    << "Shot_S0002";
    QTest::newRow("sub directory not by the bare name") << subInFull << "Shot/Shot/Shot_S0001.x"
                                                        << "Shot_S0001";
}

void TestPathNames::fileIsLookedForWhereItWillLie()
{
    QFETCH(Settings, settings);
    QFETCH(QString, file);
    QFETCH(QString, full);
    set(settings);
    touch(file);
    m_camera->addition = numbered("");
    QCOMPARE(fileName(1), full);
    Maps maps;
    composeAll(1, maps);
    QVERIFY(maps.paths.value(1).endsWith("/" + full));
    QVERIFY(!QDir(maps.dirs.value(1)).entryList(QDir::Files).contains(full + ".x"));
}

void TestPathNames::optionOfTheModeTellsWhereAFileWillLie_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("level"); // named as the file
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("full");
    const auto row = [](const char *name, int mode, const char *level, const char *option,
                        const char *full) {
        QTest::newRow(name) << mode << QString(level) << QString(option) << QString(full);
    };
    const char *moved = "Shot_S0002";
    const char *first = "Shot_S0001";
    row("export", 1, "export/groupdir", "export/groupdir", moved);
    row("conversion", 6, "convert/groupdir", "convert/groupdir", moved);
    row("conversion, not the export's", 6, "convert/groupdir", "export/groupdir", first);
    row("snapshot", 7, "snap/groupdir", "snap/groupdir", moved);
    row("snapshot, not the export's", 7, "snap/groupdir", "export/groupdir", first);
    row("report has the conversion's", 16, "report/groupdir", "convert/groupdir", moved);
    row("report, not its own", 16, "report/groupdir", "report/groupdir", first);
    row("layout preview has the export's", 18, "export/groupdir", "export/groupdir", moved);
    row("layout preview, not the sub directory's", 18, "export/groupdir", "layout/subdir", first);
    row("conversion's sub directory", 6, "convert/subdir", "convert/subdir", moved);
    row("snapshot's sub directory", 7, "snap/subdir", "snap/subdir", moved);
    row("report's sub directory", 16, "report/subdir", "report/subdir", moved);
    row("report's sub directory, not the conversion's", 16, "report/subdir", "convert/subdir",
        first);
    row("layout's sub directory", 18, "layout/subdir", "layout/subdir", moved);
    row("layout's sub directory, not the export's", 18, "layout/subdir", "export/subdir", first);
}

// All other options are off.
void TestPathNames::optionOfTheModeTellsWhereAFileWillLie()
{
    QFETCH(int, mode);
    QFETCH(QString, level);
    QFETCH(QString, option);
    QFETCH(QString, full);
    for (const QString family : {"export", "convert", "snap", "report", "layout"}) {
        set(family + "/filename", "Shot");
        for (const QString one : {"/groupdir", "/subdir"}) {
            if (family + one != "layout/groupdir")
                set(family + one + "asfilenameincludeoption", family + one == option);
        }
    }
    set({{level, true}, {level + "asfilename", true}});
    m_camera->addition = numbered("");
    touch("Shot_S0001/Shot_S0001.x");
    QTEST(fileName(mode), "full");
    touch("Shot/Shot_S0001.x");
    QCOMPARE(fileName(mode), QString("Shot_S0002"));
}

// The group directory is that of the bare name, which has no number of the export either.
void TestPathNames::bareNameOfAConversionIsThatOfItsExport()
{
    m_host->setMode(Mode::Memory);
    m_camera->addition = numbered("");
    set({{"convert/filenameasoriginal", true},
         {"convert/groupdir", true},
         {"convert/groupdirasfilename", true}});
    touch("Shot/Shot_S0001_S0001.x");
    touch("Shot_S0001/Shot_S0001_S0002.x");
    QCOMPARE(fileName(6), QString("Shot_S0001_S0002"));
}

void TestPathNames::additionThatNeverChangesIsRefused()
{
    LogCapture log;
    touch("Shot_same.x");
    int calls = 0;
    m_camera->addition = [&calls](int, int, int, bool &usesSequence) {
        ++calls;
        usesSequence = true;
        return QString("same");
    };
    QVERIFY_EXCEPTION_THROWN(fileName(1), UTL_Exception);
    QCOMPARE(calls, 2);
    QCOMPARE(log.texts(QtCriticalMsg), QStringList(refusal("Invalid filename.")));
    QFile::remove(base() + "Shot_same.x");
    QCOMPARE(fileName(1), QString("Shot_same"));
    touch("Shot_same.x");
    m_camera->addition = [](int, int, int sequence, bool &usesSequence) {
        usesSequence = sequence < 2;
        return QString("same");
    };
    QCOMPARE(fileName(1), QString("Shot_same"));
}

// What the document gives counts, not what is left of it in a name.
void TestPathNames::additionThatReadsTheSameIsPassedOver()
{
    touch("Shot_a_b.x");
    m_camera->addition = [](int, int, int sequence, bool &usesSequence) {
        usesSequence = true;
        return QStringList({"a:b", "a*b", "a3"}).at(sequence - 1);
    };
    QCOMPARE(fileName(1), QString("Shot_a3"));
}

void TestPathNames::numberPastTheLastIsRefused()
{
    LogCapture log;
    constexpr int Last = std::numeric_limits<int>::max();
    m_camera->addition = numbered("");
    touch("Shot_S2147483646.x");
    QCOMPARE(PathComposition(m_host.get(), m_camera.get(), moment(), Last - 1)
                 .fileName(1, 1, true, {})
                 .text,
             QString("Shot_S2147483647"));
    touch("Shot_S2147483647.x");
    QVERIFY_EXCEPTION_THROWN(
        PathComposition(m_host.get(), m_camera.get(), moment(), Last - 1).fileName(1, 1, true, {}),
        UTL_Exception);
    QCOMPARE(log.texts(), QStringList(refusal("Invalid filename.")));
}

void TestPathNames::documentIsAskedForItsAddition()
{
    m_camera->addition = numbered("");
    touch("Shot_S0001.x");
    m_host->clearJournal();
    PathComposer::composeFileName(m_host.get(), 1, m_camera.get(), 7, true, moment());
    QCOMPARE(m_host->journal().filter("fileNameAddition("),
             QStringList({"[100].fileNameAddition(1, 7, 1, \"2017-06-05T07:08:09\")",
                          "[100].fileNameAddition(1, 7, 2, \"2017-06-05T07:08:09\")"}));
}

void TestPathNames::settingsAreReadInTheirOrder()
{
    m_camera->addition = numbered("");
    m_host->clearJournal();
    PathComposer::composeFileName(m_host.get(), 1, m_camera.get(), 7, true, moment());
    QCOMPARE(m_host->journal(),
             QStringList({"getPrefString(\"export/media\", invalid)",
                          "getPrefString(\"export/filename\", invalid)",
                          "getPrefBool(\"export/filenameasoriginal\", invalid)",
                          "getPrefBool(\"export/filenameaspartitionname\", invalid)",
                          "getPrefBool(\"export/filenameusecustom\", invalid)",
                          "getPrefBool(\"export/filenameusecustomfromtarget\", invalid)",
                          "getPrefInt(\"export/filenameusecustomfromtargetkey\", invalid)",
                          "getPrefBool(\"export/filenameusecustomincludeunit\", invalid)",
                          "getPrefInt(\"export/filenameaddnumbersessionnodigits\", invalid)",
                          "getPrefBool(\"export/filenameaddtime\", invalid)",
                          "getPrefString(\"export/filenameaddtimeformat\", invalid)",
                          "isFileMode()",
                          "[100].fileNameAddition(1, 7, 1, \"2017-06-05T07:08:09\")",
                          "getPrefBool(\"export/groupdir\", invalid)",
                          "getPrefBool(\"export/groupdirasfilenameincludeoption\", invalid)",
                          "getPrefBool(\"export/subdir\", invalid)",
                          "getPrefBool(\"export/subdirasfilenameincludeoption\", invalid)",
                          "getPrefBool(\"export/singlepath\", invalid)",
                          "getPrefString(\"export/dir\", invalid)",
                          "isPlannedFile(\"" + base() + "Shot_S0001\")"}));
}

int main(int argc, char *argv[])
{
    TestPathNames test;
    return runTest(argc, argv, test);
}

#include "test_path_names.moc"
