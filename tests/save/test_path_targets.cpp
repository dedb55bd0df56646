#include "foundation/exceptions/UTL_Exception.h"
#include "save/path/PathComposer.h"
#include "save/path/PathComposition.h"
#include "tests/save/PathTest.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

using Settings = QVariantMap;
using Refusal = ComposedPath::Refusal;
using Files = QMap<int, QString>;

// The whole paths of saves, of all partitions of a document.
class TestPathTargets : public PathTest
{
    Q_OBJECT

private slots:
    void camerasShareTheGroupOfABatch();
    void layoutPreviewHasTheGroupOfAnExport();
    void secondNameOfABatchMovesOn();
    void partitionsShareAPlan();
    void optionDecidesForTheFullName_data();
    void optionDecidesForTheFullName();
    void reportsGetRoundBrackets_data();
    void reportsGetRoundBrackets();
    void numberOfAReportIsFreeAsWritten_data();
    void numberOfAReportIsFreeAsWritten();
    void alternativeDirectoryTakesOver_data();
    void alternativeDirectoryTakesOver();
    void alternativeOfNoDirectory();
    void numberIsFreeInTheAlternative_data();
    void numberIsFreeInTheAlternative();
    void unnamedFileIsRefused_data();
    void unnamedFileIsRefused();
    void pathHasALongestLength_data();
    void pathHasALongestLength();
    void thumbnailHasItsPath_data();
    void thumbnailHasItsPath();
    void mapsKeepWhatCameBeforeAFailure();
    void nothingIsComposedWithoutADocument();
    void partsAreHandedOut();
    void partsOfAFixedGroup();
    void refusalIsHandedOut();
    void handingOutLeavesThePlan();
    void handedOutPathIsThatOfTheMaps_data();
    void handedOutPathIsThatOfTheMaps();
    void earlierRefusalIsHandedOut();
    void handedOutPathIsThatOfTheBatch_data();
    void handedOutPathIsThatOfTheBatch();
    void refusalOfAnEarlierDocumentIsHandedOut();
    void directoryIsListedOnce();
    void partitionsAreOneComposition();
    void everyCallMayFail();
    void nothingIsWritten();
};

void TestPathTargets::camerasShareTheGroupOfABatch()
{
    m_host->addCamera();
    m_host->addCamera();
    StandInCamera::Description description;
    description.cameraNumber = 1;
    AddingCamera second(*m_host, 101, description);
    m_camera->addition = numbered("C1");
    second.addition = numbered("C2");
    set({{"export/groupdir", true},
         {"export/groupdirasfilename", false},
         {"export/groupdirname", "Run"},
         {"export/groupdiraddnumber", true},
         {"export/groupdiraddnumberformat", "auto"},
         {"export/groupdiraddnumbersessionnodigits", 2},
         {"export/subdir", true},
         {"export/subdirasfilename", true},
         {"export/subdirasfilenameincludeoption", false},
         {"export/filenameaddnumbersessionnodigits", 4}});

    Maps first;
    m_host->clearJournal();
    composeAll(1, first);
    QCOMPARE(first.groups, (QMap<int, QString>{{1, "Run_C1S01"}}));
    QCOMPARE(first.dirs, (QMap<int, QString>{{1, base() + "Run_C1S01/Shot/"}}));
    QCOMPARE(first.paths, (QMap<int, QString>{{1, base() + "Run_C1S01/Shot/Shot_C1S0001"}}));
    QCOMPARE(m_host->commands(),
             QStringList({"setPlannedGroupDir(\"Run_C1S01\")",
                          "addPlannedDir(\"" + base() + "Run_C1S01/Shot/\")",
                          "addPlannedFile(\"" + base() + "Run_C1S01/Shot/Shot_C1S0001\")"}));
    Maps other;
    composeAll(1, other, &second);
    QCOMPARE(other.groups.value(1), QString("Run_C1S01"));
    QCOMPARE(other.paths.value(1), base() + "Run_C1S01/Shot/Shot_C2S0001");
}

void TestPathTargets::layoutPreviewHasTheGroupOfAnExport()
{
    set({{"export/groupdir", true},
         {"export/groupdirname", "Group"},
         {"export/subdir", true},
         {"export/subdirname", "ExportSub"},
         {"layout/subdir", true},
         {"layout/subdirname", "LayoutSub"},
         {"layout/filename", "Lay"}});
    for (const int mode : {4, 5, 18}) {
        Maps maps;
        composeAll(mode, maps);
        QCOMPARE(maps.groups, mode == 18 ? Files({{1, "Group"}}) : Files());
        QCOMPARE(inBase(maps.paths.value(1)),
                 QString(mode == 18 ? "Group/LayoutSub/Lay" : "LayoutSub/Lay"));
    }
}

void TestPathTargets::secondNameOfABatchMovesOn()
{
    m_host->addCamera();
    AddingCamera second(*m_host, 101, {});
    m_camera->addition = numbered("");
    second.addition = numbered("");
    set({{"export/groupdir", true},
         {"export/groupdirname", "Run"},
         {"export/subdir", true},
         {"export/subdirasfilename", true}});
    Maps maps;
    composeAll(1, maps);
    QCOMPARE(inBase(maps.paths.value(1)), QString("Run/Shot/Shot_S0001"));
    composeAll(1, maps, &second);
    QCOMPARE(inBase(maps.paths.value(1)), QString("Run/Shot/Shot_S0002"));
}

void TestPathTargets::partitionsShareAPlan()
{
    m_camera->state().partitions = {{3, "A", 1, 0}, {1, "B", 1, 0}, {7, "C", 1, 0}};
    m_camera->addition = numbered("");
    set({{"export/groupdir", true},
         {"export/groupdirasfilename", true},
         {"export/filenameaspartitionname", true}});
    Maps maps;
    maps.groups = {{3, "old"}, {9, "kept"}};
    m_host->clearJournal();
    composeAll(1, maps);
    QCOMPARE(maps.groups, (Files{{1, "A"}, {3, "A"}, {7, "A"}, {9, "kept"}}));
    QCOMPARE(maps.dirs, (Files{{1, base() + "A/"}, {3, base() + "A/"}, {7, base() + "A/"}}));
    QCOMPARE(
        maps.paths,
        (Files{{1, base() + "A/B_S0001"}, {3, base() + "A/A_S0001"}, {7, base() + "A/C_S0001"}}));
    QStringList commands;
    for (const char *name : {"A", "B", "C"})
        commands += {"setPlannedGroupDir(\"A\")", "addPlannedDir(\"" + base() + "A/\")",
                     QString("addPlannedFile(\"%1A/%2_S0001\")").arg(base(), name)};
    QCOMPARE(m_host->commands(), commands);
}

void TestPathTargets::optionDecidesForTheFullName_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("groupOption");
    QTest::addColumn<QString>("subOption");
    const QString group = "%1/groupdirasfilenameincludeoption";
    const QString sub = "%1/subdirasfilenameincludeoption";
    const auto row = [&](int mode, const char *groupFamily, const char *subFamily) {
        QTest::newRow(qPrintable(QString::number(mode)))
            << mode << group.arg(groupFamily) << sub.arg(subFamily);
    };
    row(1, "export", "export");
    row(6, "convert", "convert");
    row(7, "snap", "snap");
    row(16, "convert", "report");
    row(17, "convert", "report");
    row(18, "export", "layout");
}

void TestPathTargets::optionDecidesForTheFullName()
{
    QFETCH(int, mode);
    QFETCH(QString, groupOption);
    QFETCH(QString, subOption);
    for (const QString family : {"export", "convert", "snap", "report", "layout"}) {
        set(family + "/filename", "Shot");
        for (const QString level : {"/groupdir", "/subdir"}) {
            if (family + level == "layout/groupdir")
                continue;
            set(family + level, true);
            set(family + level + "asfilename", true);
        }
    }
    m_camera->addition = fixed("x");
    for (const bool groupOn : {false, true}) {
        for (const bool subOn : {false, true}) {
            set(groupOption, groupOn);
            set(subOption, subOn);
            m_host->clearPlannedGroupDir();
            Maps maps;
            composeAll(mode, maps);
            QCOMPARE(inBase(maps.dirs.value(1)),
                     QString("%1/%2/").arg(groupOn ? "Shot_x" : "Shot", subOn ? "Shot_x" : "Shot"));
        }
    }
    if (mode == 16) {
        set({{groupOption, false}, {"report/groupdirasfilenameincludeoption", true}});
        m_host->clearPlannedGroupDir();
        Maps maps;
        composeAll(mode, maps);
        QCOMPARE(maps.groups.value(1), QString("Shot"));
    }
}

void TestPathTargets::reportsGetRoundBrackets_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("variant");
    QTest::addColumn<QString>("path");
    QTest::newRow("variant 1") << 16 << 1 << "Shot (1)/Sub (2)/Shot (1)_(x)";
    QTest::newRow("variant 0") << 16 << 0 << "Shot [1]/Sub [2]/Shot [1]_[x]";
    QTest::newRow("variant 2") << 16 << 2 << "Shot [1]/Sub [2]/Shot [1]_[x]";
    QTest::newRow("preview") << 17 << 1 << "Shot [1]/Sub [2]/Shot [1]_[x]";
}

void TestPathTargets::reportsGetRoundBrackets()
{
    QFETCH(int, mode);
    QFETCH(int, variant);
    set({{"report/filename", "Shot [1]"},
         {"report/groupdir", true},
         {"report/groupdirasfilename", true},
         {"report/subdir", true},
         {"report/subdirname", "Sub [2]"}});
    m_camera->addition = fixed("[x]");
    Maps maps;
    m_host->clearJournal();
    composeAll(mode, maps, false, variant);
    QTEST(inBase(maps.paths.value(1)), "path");
    QCOMPARE(m_host->commands().filter("addPlanned").size(), mode == 16 ? 0 : 2);
    QCOMPARE(m_host->commands().filter("setPlannedGroupDir").size(), 1);

    const ComposedPath parts =
        PathComposer::composePath(m_host.get(), mode, m_camera.get(), 1, false, moment(), variant);
    QTEST(inBase(parts.path), "path");
    QCOMPARE(parts.file.name, variant == 1 && mode == 16 ? "Shot (1)" : "Shot [1]");
}

void TestPathTargets::numberOfAReportIsFreeAsWritten_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("variant");
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("path");
    const Settings none;
    const Settings sub{{"report/subdir", true}, {"report/subdirname", "Sub [2]"}};
    const Settings group{{"report/groupdir", true}, {"report/groupdirname", "Group [3]"}};
    const Settings named{{"report/groupdir", true},
                         {"report/groupdirasfilename", true},
                         {"report/subdir", true},
                         {"report/subdirasfilename", true},
                         {"report/subdirasfilenameincludeoption", true}};
    QTest::newRow("round") << 16 << 1 << none << "Shot (1)_S0001.x"
                           << "Shot (1)_S0002";
    QTest::newRow("square") << 16 << 1 << none << "Shot [1]_S0001.x"
                            << "Shot (1)_S0001";
    QTest::newRow("variant 0, round") << 16 << 0 << none << "Shot (1)_S0001.x"
                                      << "Shot [1]_S0001";
    QTest::newRow("variant 0, square") << 16 << 0 << none << "Shot [1]_S0001.x"
                                       << "Shot [1]_S0002";
    QTest::newRow("preview, square") << 17 << 1 << none << "Shot [1]_S0001.x"
                                     << "Shot [1]_S0002";
    QTest::newRow("sub directory, round") << 16 << 1 << sub << "Sub (2)/Shot (1)_S0001.x"
                                          << "Sub (2)/Shot (1)_S0002";
    QTest::newRow("sub directory, square") << 16 << 1 << sub << "Sub [2]/Shot (1)_S0001.x"
                                           << "Sub (2)/Shot (1)_S0001";
    QTest::newRow("own name of the group") << 16 << 1 << group << "Group [3]/Shot (1)_S0001.x"
                                           << "Group [3]/Shot (1)_S0002";
    QTest::newRow("directories of the file's name")
        << 16 << 1 << named << "Shot (1)/Shot (1)_S0001/Shot (1)_S0001.x"
        << "Shot (1)/Shot (1)_S0002/Shot (1)_S0002";
}

// The plan is left alone by reports but heeded.
void TestPathTargets::numberOfAReportIsFreeAsWritten()
{
    QFETCH(int, mode);
    QFETCH(int, variant);
    QFETCH(Settings, settings);
    QFETCH(QString, file);
    set("report/filename", "Shot [1]");
    set(settings);
    m_camera->addition = numbered("");
    touch(file);
    Maps maps;
    composeAll(mode, maps, false, variant);
    QTEST(inBase(maps.paths.value(1)), "path");

    QVERIFY(QFile::remove(base() + file));
    m_host->savePlan() = SavePlan();
    m_host->savePlan().addFile(base() + file.chopped(2));
    composeAll(mode, maps, false, variant);
    QTEST(inBase(maps.paths.value(1)), "path");
}

void TestPathTargets::alternativeDirectoryTakesOver_data()
{
    QTest::addColumn<QString>("other");
    QTest::addColumn<bool>("isUsed");
    QTest::addColumn<QString>("dir");
    QTest::addColumn<QString>("path");
    QTest::newRow("used") << "/x/" << true << "/x/"
                          << "/x/Shot";
    QTest::newRow("without a slash") << "/x" << true << "/x"
                                     << "/xShot";
    QTest::newRow("none") << "" << true << "BASE"
                          << "BASEShot";
    QTest::newRow("not used") << "/x/" << false << "BASE"
                              << "BASEShot";
}

void TestPathTargets::alternativeDirectoryTakesOver()
{
    QFETCH(QString, other);
    QFETCH(bool, isUsed);
    QFETCH(QString, dir);
    QFETCH(QString, path);
    m_host->savePlan().setTargetDir(other);
    Maps maps;
    m_host->clearJournal();
    composeAll(1, maps, isUsed);
    dir.replace("BASE", base());
    path.replace("BASE", base());
    QCOMPARE(maps.dirs.value(1), dir);
    QCOMPARE(maps.paths.value(1), path);
    QCOMPARE(m_host->commands(),
             QStringList({"addPlannedDir(\"" + dir + "\")", "addPlannedFile(\"" + path + "\")"}));
}

void TestPathTargets::alternativeOfNoDirectory()
{
    set("export/dir", "");
    Maps maps;
    composeAll(1, maps);
    QCOMPARE(maps.dirs.value(1), QString());
    QCOMPARE(maps.paths.value(1), QString("Shot"));
    m_host->savePlan().setTargetDir("/x");
    composeAll(1, maps, true);
    QCOMPARE(maps.dirs.value(1), QString("/x"));
    QCOMPARE(maps.paths.value(1), QString("/x/Shot"));
}

void TestPathTargets::numberIsFreeInTheAlternative_data()
{
    QTest::addColumn<bool>("isUsed");
    QTest::addColumn<QString>("other"); // below the base
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("planned");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    const auto row = [](const char *name, bool isUsed, const char *other, const char *file,
                        const char *planned, const char *first, const char *second) {
        QTest::newRow(name) << isUsed << QString(other) << QString(file) << QString(planned)
                            << QString(first) << QString(second);
    };
    row("nothing there", true, "x/", "", "", "x/Shot_S0001", "x/Shot_S0002");
    row("file", true, "x/", "x/Shot_S0001.x", "", "x/Shot_S0002", "x/Shot_S0003");
    row("file between", true, "x/", "x/Shot_S0002.x", "", "x/Shot_S0001", "x/Shot_S0003");
    row("plan", true, "x/", "", "x/Shot_S0001", "x/Shot_S0002", "x/Shot_S0003");
    row("file where it does not lie", true, "x/", "G/Shot_S0001.x", "", "x/Shot_S0001",
        "x/Shot_S0002");
    row("plan where it does not lie", true, "x/", "", "G/Shot_S0001", "x/Shot_S0001",
        "x/Shot_S0002");
    row("without a slash", true, "x", "xShot_S0001.x", "", "xShot_S0002", "xShot_S0003");
    row("not the directory of that name", true, "x", "x/Shot_S0001.x", "", "xShot_S0001",
        "xShot_S0002");
    row("not used", false, "x/", "x/Shot_S0001.x", "", "G/Shot_S0001", "G/Shot_S0002");
    row("none", true, "", "G/Shot_S0001.x", "", "G/Shot_S0002", "G/Shot_S0003");
}

void TestPathTargets::numberIsFreeInTheAlternative()
{
    QFETCH(bool, isUsed);
    QFETCH(QString, other);
    QFETCH(QString, file);
    QFETCH(QString, planned);
    QFETCH(QString, first);
    QFETCH(QString, second);
    m_camera->state().partitions = {{1, "A", 1, 0}, {2, "B", 1, 0}};
    m_camera->addition = numbered("");
    set({{"export/groupdir", true}, {"export/groupdirname", "G"}});
    if (!file.isEmpty())
        touch(file);
    if (!planned.isEmpty())
        m_host->savePlan().addFile(base() + planned);
    if (!other.isEmpty())
        m_host->savePlan().setTargetDir(base() + other);
    Maps maps;
    composeAll(1, maps, isUsed);
    QCOMPARE(maps.paths, (Files{{1, base() + first}, {2, base() + second}}));
}

void TestPathTargets::unnamedFileIsRefused_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("isAllowed");
    for (int mode = -1; mode <= 20; ++mode)
        QTest::newRow(qPrintable(QString::number(mode)))
            << mode << QList<int>({9, 10, 11, 17, 18}).contains(mode);
}

void TestPathTargets::unnamedFileIsRefused()
{
    QFETCH(int, mode);
    QFETCH(bool, isAllowed);
    set("export/filename", "");
    Maps maps;
    if (isAllowed) {
        composeAll(mode, maps);
        QCOMPARE(maps.paths.value(1), base());
    } else {
        LogCapture log;
        m_host->clearJournal();
        QVERIFY_EXCEPTION_THROWN(composeAll(mode, maps), UTL_Exception);
        QCOMPARE(log.texts(), QStringList(refusal("Invalid filename.")));
        QVERIFY(maps.dirs.isEmpty() && maps.paths.isEmpty());
        QCOMPARE(m_host->commands(), QStringList());
    }
    set("save/EnableBlankFilename", true);
    composeAll(mode, maps);
    QCOMPARE(maps.dirs.value(1), base());
    QCOMPARE(maps.paths.value(1), base());
}

void TestPathTargets::pathHasALongestLength_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("thumbnail"); // letters behind the path, -1: none
    QTest::addColumn<bool>("isRefused");
    QTest::newRow("245") << 1 << 245 << -1 << false;
    QTest::newRow("246") << 1 << 246 << -1 << true;
    QTest::newRow("246 of a report") << 16 << 246 << -1 << false;
    QTest::newRow("1000 of a report") << 16 << 1000 << -1 << false;
    QTest::newRow("246 of a preview") << 10 << 246 << -1 << true;
    QTest::newRow("246 of a report's preview") << 17 << 246 << -1 << true;
    QTest::newRow("small picture of 245") << 1 << 240 << 5 << false;
    QTest::newRow("small picture of 246") << 1 << 240 << 6 << true;
    QTest::newRow("small picture of 246, mode 2") << 2 << 240 << 6 << true;
    QTest::newRow("small picture of 246, conversion") << 6 << 240 << 6 << true;
    QTest::newRow("no small pictures in mode 3") << 3 << 240 << 6 << false;
}

void TestPathTargets::pathHasALongestLength()
{
    QFETCH(int, mode);
    QFETCH(int, length);
    QFETCH(int, thumbnail);
    QFETCH(bool, isRefused);
    // Letters beyond the first plane count two.
    QString name(length - base().size() - 2, 'x');
    name += QString::fromUtf8("\xF0\x90\x90\x80");
    for (const QString family : {"export", "convert", "report"})
        set(family + "/filename", name);
    for (const QString family : {"export", "convert"})
        set({{family + "/savethumbnail", thumbnail >= 0},
             {family + "/savethumbnailaddtextvalue", QString(qMax(thumbnail, 0), 't')}});
    Maps maps;
    m_host->clearJournal();
    if (isRefused) {
        LogCapture log;
        QVERIFY_EXCEPTION_THROWN(composeAll(mode, maps), UTL_Exception);
        QCOMPARE(log.texts(), QStringList(refusal("The path of the target is too long.")));
    } else {
        composeAll(mode, maps);
    }
    QCOMPARE(maps.paths.value(1), base() + name);
    QCOMPARE(maps.paths.value(1).size(), length);
    QCOMPARE(m_host->commands().size(), mode == 16 ? 0 : 2);
}

void TestPathTargets::thumbnailHasItsPath_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("path");
    const QMap<int, QString> others{{1, "/a/Shot_e"}, {2, "/a/Shot_e"}, {6, "/a/Shot_c"}};
    for (int mode = -1; mode <= 20; ++mode)
        QTest::newRow(qPrintable(QString::number(mode))) << mode << others.value(mode, "/a/Shot");
}

void TestPathTargets::thumbnailHasItsPath()
{
    QFETCH(int, mode);
    QFETCH(QString, path);
    const auto thumbnail = [&] {
        return PathComposer::composeThumbnailPath(m_host.get(), mode, "/a/Shot");
    };
    set({{"export/savethumbnail", true},
         {"export/savethumbnailaddtextvalue", "_e"},
         {"convert/savethumbnail", true},
         {"convert/savethumbnailaddtextvalue", "_c"}});
    QCOMPARE(thumbnail(), path);
    set({{"export/saveinf", true}, {"convert/saveinf", true}});
    QCOMPARE(thumbnail(), path);
    set("save/SaveInfFile", true);
    QCOMPARE(thumbnail(), QString("/a/Shot"));
    set(mode == 6 ? "convert/saveinf" : "export/saveinf", false);
    QCOMPARE(thumbnail(), path);
    set({{"export/savethumbnail", false}, {"convert/savethumbnail", false}});
    QCOMPARE(thumbnail(), QString("/a/Shot"));
}

void TestPathTargets::mapsKeepWhatCameBeforeAFailure()
{
    m_camera->state().partitions = {{1, "A", 1, 0}, {2, "", 1, 0}, {3, "C", 1, 0}};
    set({{"export/groupdir", true},
         {"export/groupdirname", "G"},
         {"export/filenameaspartitionname", true}});
    LogCapture log;
    Maps maps;
    m_host->clearJournal();
    QVERIFY_EXCEPTION_THROWN(composeAll(1, maps), UTL_Exception);
    QCOMPARE(maps.groups, (Files{{1, "G"}, {2, "G"}}));
    QCOMPARE(maps.dirs, (Files{{1, base() + "G/"}}));
    QCOMPARE(maps.paths, (Files{{1, base() + "G/A"}}));
    QCOMPARE(m_host->commands(),
             QStringList({"setPlannedGroupDir(\"G\")", "addPlannedDir(\"" + base() + "G/\")",
                          "addPlannedFile(\"" + base() + "G/A\")", "setPlannedGroupDir(\"G\")"}));

    m_camera->state().partitions = {{1, "A", 1, 0}, {2, QString(250, 'x'), 1, 0}, {3, "C", 1, 0}};
    Maps longer;
    QVERIFY_EXCEPTION_THROWN(composeAll(1, longer), UTL_Exception);
    QCOMPARE(longer.groups.keys(), QList<int>({1, 2}));
    QCOMPARE(longer.dirs.keys(), QList<int>({1, 2}));
    QCOMPARE(longer.paths.keys(), QList<int>({1, 2}));
}

void TestPathTargets::nothingIsComposedWithoutADocument()
{
    Maps maps;
    maps.paths = {{1, "kept"}};
    m_host->clearJournal();
    composeAll(1, maps, nullptr);
    QCOMPARE(maps.paths, (Files{{1, "kept"}}));
    QCOMPARE(m_host->journal(), QStringList());
    m_camera->state().partitions.clear();
    composeAll(1, maps);
    QCOMPARE(maps.paths, (Files{{1, "kept"}}));
    QCOMPARE(m_host->commands(), QStringList());
}

void TestPathTargets::partsAreHandedOut()
{
    set({{"export/groupdir", true},
         {"export/groupdirname", "Run"},
         {"export/groupdiraddnumber", true},
         {"export/groupdiraddnumberformat", "auto"},
         {"export/groupdiraddnumbersessionnodigits", 2},
         {"export/groupdiraddtime", true},
         {"export/groupdiraddtimeformat", "HHmm"},
         {"export/subdir", true},
         {"export/subdirasfilename", true},
         {"export/filenameaddtime", true},
         {"export/filenameaddtimeformat", "yyyy"},
         {"export/savethumbnail", true},
         {"export/savethumbnailaddtextvalue", "_t"}});
    m_host->addCamera();
    m_camera->addition = numbered("C1");
    makeDir("Run_C1S01");
    makeDir("Run_C1S02");
    m_host->savePlan().addDir(base() + "Run_C1S03/");
    const QString directory = base() + "Run_C1S04_0708/Shot/";
    for (int i = 1; i <= 4; ++i)
        touch(QString("Run_C1S04_0708/Shot/Shot_C1S000%1_2017.x").arg(i));
    for (int i = 5; i <= 6; ++i)
        m_host->savePlan().addFile(QString("%1Shot_C1S000%2_2017").arg(directory).arg(i));
    LogCapture log;
    const ComposedPath path =
        PathComposer::composePath(m_host.get(), 1, m_camera.get(), 1, false, moment(), 0);
    QCOMPARE(path.base, base());
    QCOMPARE(path.group.text, QString("Run_C1S04_0708"));
    QCOMPARE(path.group.name, QString("Run"));
    QCOMPARE(path.group.number, QString("C1S04"));
    QCOMPARE(path.group.time, QString("0708"));
    QCOMPARE(path.group.search.number, 4);
    QCOMPARE(path.group.search.onDisk, 2);
    QCOMPARE(path.group.search.planned, 1);
    QVERIFY(!path.isGroupFixed());
    QCOMPARE(path.sub.text, QString("Shot"));
    QCOMPARE(path.sub.name, QString("Shot"));
    QCOMPARE(path.sub.number, QString());
    QCOMPARE(path.sub.search.number, 0);
    QCOMPARE(path.file.text, QString("Shot_C1S0007_2017"));
    QCOMPARE(path.file.name, QString("Shot"));
    QCOMPARE(path.file.number, QString("C1S0007"));
    QCOMPARE(path.file.time, QString("2017"));
    QCOMPARE(path.file.search.number, 7);
    QCOMPARE(path.file.search.onDisk, 4);
    QCOMPARE(path.file.search.planned, 2);
    QCOMPARE(path.directory, directory);
    QCOMPARE(path.path, directory + "Shot_C1S0007_2017");
    QCOMPARE(path.thumbnail, directory + "Shot_C1S0007_2017_t");
    QVERIFY(path.refusal == Refusal::None);
    QCOMPARE(log.texts(), QStringList({"exists \"" + base() + "Run_C1S01/\"",
                                       "exists \"" + base() + "Run_C1S02/\"",
                                       "exists \"" + base() + "Run_C1S03/\""}));
}

void TestPathTargets::partsOfAFixedGroup()
{
    set({{"export/groupdir", true}, {"export/groupdirname", "Run"}});
    const auto compose = [&] {
        return PathComposer::composePath(m_host.get(), 1, m_camera.get(), 1, false, moment(), 0);
    };
    QVERIFY(!compose().isGroupFixed());
    m_host->savePlan().setGroupDir("Fixed");
    QVERIFY(compose().isGroupFixed());
    QCOMPARE(inBase(compose().path), QString("Fixed/Shot"));
    set("export/groupdir", false);
    QVERIFY(!compose().isGroupFixed());
}

void TestPathTargets::refusalIsHandedOut()
{
    const auto compose = [&] {
        return PathComposer::composePath(m_host.get(), 1, m_camera.get(), 1, false, moment(), 0);
    };
    QVERIFY(compose().refusal == Refusal::None);
    QVERIFY(compose().isPlaced);
    set({{"export/savethumbnail", true}, {"export/savethumbnailaddtextvalue", QString(250, 't')}});
    QVERIFY(compose().refusal == Refusal::ThumbnailTooLong);
    QCOMPARE(compose().path, base() + "Shot");
    set("export/filename", QString(250, 'x'));
    QVERIFY(compose().refusal == Refusal::TooLong);
    set("export/filename", "");
    QVERIFY(compose().refusal == Refusal::NoName);
    QVERIFY(!compose().isPlaced);
    QCOMPARE(compose().path, QString());
}

void TestPathTargets::handingOutLeavesThePlan()
{
    set({{"export/groupdir", true}, {"export/groupdirname", "Run"}});
    m_camera->addition = numbered("");
    m_host->clearJournal();
    for (int mode : {1, 6, 7, 10, 16}) {
        LogCapture log;
        PathComposer::composePath(m_host.get(), mode, m_camera.get(), 1, true, moment(), 1);
    }
    QCOMPARE(m_host->commands(), QStringList());
}

void TestPathTargets::handedOutPathIsThatOfTheMaps_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<Files>("paths");
    QTest::newRow("one directory")
        << Settings() << Files{{3, "Shot_S0001"}, {1, "Shot_S0002"}, {7, "Shot_S0003"}};
    QTest::newRow("group of the first partition")
        << Settings{{"export/groupdir", true},
                    {"export/groupdirasfilename", true},
                    {"export/filenameaspartitionname", true}}
        << Files{{3, "A/A_S0001"}, {1, "A/B_S0001"}, {7, "A/A_S0002"}};
    QTest::newRow("numbered sub directory")
        << Settings{{"export/subdir", true},
                    {"export/subdirname", "Sub"},
                    {"export/subdiraddnumber", true},
                    {"export/subdiraddnumberformat", ""},
                    {"export/subdiraddnumbercameranodigits", 0},
                    {"export/subdiraddnumberheadnodigits", 0},
                    {"export/subdiraddnumbersessionnodigits", 2}}
        << Files{{3, "Sub_S01/Shot_S0001"}, {1, "Sub_S02/Shot_S0001"}, {7, "Sub_S03/Shot_S0001"}};
}

void TestPathTargets::handedOutPathIsThatOfTheMaps()
{
    QFETCH(Settings, settings);
    QFETCH(Files, paths);
    m_camera->state().partitions = {{3, "A", 1, 0}, {1, "B", 1, 0}, {7, "A", 1, 0}};
    m_camera->addition = numbered("");
    set(settings);
    LogCapture log;
    m_host->clearJournal();
    for (const int partitionNo : paths.keys()) {
        const ComposedPath path = PathComposer::composePath(m_host.get(), 1, m_camera.get(),
                                                            partitionNo, false, moment(), 0);
        QCOMPARE(inBase(path.path), paths.value(partitionNo));
    }
    QCOMPARE(m_host->commands(), QStringList());
    Maps maps;
    composeAll(1, maps);
    for (const int partitionNo : paths.keys())
        QCOMPARE(inBase(maps.paths.value(partitionNo)), paths.value(partitionNo));

    m_host->savePlan() = SavePlan();
    const ComposedPath other =
        PathComposer::composePath(m_host.get(), 1, m_camera.get(), 5, false, moment(), 0);
    QVERIFY(other.isPlaced);
    QCOMPARE(other.file.search.number, 1);
}

void TestPathTargets::handedOutPathIsThatOfTheBatch_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    const Settings group{{"export/groupdir", true},
                         {"export/groupdirname", "Run"},
                         {"export/groupdiraddnumber", true},
                         {"export/groupdiraddnumberformat", ""},
                         {"export/groupdiraddnumbercameranodigits", 1},
                         {"export/groupdiraddnumberheadnodigits", 0},
                         {"export/groupdiraddnumbersessionnodigits", 2}};
    QTest::newRow("files of one name") << Settings() << "Shot_S0002"
                                       << "Shot_S0003";
    QTest::newRow("group directory of the first") << group << "Run_C1S01/Shot_S0001"
                                                  << "Run_C1S01/Shot_S0002";
    QTest::newRow("sub directory that the first takes")
        << Settings{{"export/subdir", true},
                    {"export/subdirname", "Sub"},
                    {"export/subdiraddnumber", true},
                    {"export/subdiraddnumberformat", ""},
                    {"export/subdiraddnumbercameranodigits", 0},
                    {"export/subdiraddnumberheadnodigits", 0},
                    {"export/subdiraddnumbersessionnodigits", 2}}
        << "Sub_S01/Shot_S0001"
        << "Sub_S02/Shot_S0001";
}

void TestPathTargets::handedOutPathIsThatOfTheBatch()
{
    QFETCH(Settings, settings);
    QFETCH(QString, first);
    QFETCH(QString, second);
    touch("Shot_S0001.x");
    StandInCamera::Description description;
    description.cameraNumber = 1;
    AddingCamera other(*m_host, 101, description);
    m_camera->addition = other.addition = numbered("");
    set(settings);
    LogCapture log;
    m_host->clearJournal();
    const auto compose = [&](DOC_Interface *doc, const QVector<DOC_Interface *> &before) {
        return inBase(
            PathComposer::composePath(m_host.get(), 1, doc, 1, false, moment(), 0, before).path);
    };
    QCOMPARE(compose(m_camera.get(), {}), first);
    QCOMPARE(compose(&other, {m_camera.get()}), second);
    QCOMPARE(m_host->commands(), QStringList());
    Maps maps;
    composeAll(1, maps, m_camera.get());
    QCOMPARE(inBase(maps.paths.value(1)), first);
    composeAll(1, maps, &other);
    QCOMPARE(inBase(maps.paths.value(1)), second);
}

void TestPathTargets::refusalOfAnEarlierDocumentIsHandedOut()
{
    AddingCamera other(*m_host, 101, {});
    m_camera->state().partitions = {{1, "", 1, 0}};
    other.state().partitions = {{1, "B", 1, 0}};
    set("export/filenameaspartitionname", true);
    const auto compose = [&] {
        return PathComposer::composePath(m_host.get(), 1, &other, 1, false, moment(), 0,
                                         {m_camera.get()});
    };
    QVERIFY(compose().refusal == Refusal::NoName);
    QVERIFY(!compose().isPlaced);
    m_camera->state().partitions[0].name = "A";
    QCOMPARE(inBase(compose().path), QString("B"));
}

// A save does not come to the partitions behind one that it refuses.
void TestPathTargets::earlierRefusalIsHandedOut()
{
    m_camera->state().partitions = {{1, "A", 1, 0}, {2, "", 1, 0}, {3, "C", 1, 0}};
    set("export/filenameaspartitionname", true);
    const auto compose = [&](int partitionNo) {
        return PathComposer::composePath(m_host.get(), 1, m_camera.get(), partitionNo, false,
                                         moment(), 0);
    };
    QVERIFY(compose(1).refusal == Refusal::None);
    QCOMPARE(inBase(compose(1).path), QString("A"));
    QVERIFY(compose(2).refusal == Refusal::NoName);
    QVERIFY(compose(3).refusal == Refusal::NoName);
    QVERIFY(!compose(3).isPlaced);
    QCOMPARE(compose(3).file.text, QString());
    m_camera->state().partitions[1].name = "B";
    QVERIFY(compose(3).refusal == Refusal::None);
    QCOMPARE(inBase(compose(3).path), QString("C"));
}

void TestPathTargets::directoryIsListedOnce()
{
    set({{"export/groupdir", true},
         {"export/groupdirname", "G"},
         {"export/subdir", true},
         {"export/subdirasfilename", true},
         {"export/filenameaspartitionname", true}});
    m_camera->addition = numbered("");
    for (int i = 1; i <= 100; ++i)
        touch(QString("G/A/A_S%1.x").arg(i, 4, 10, QChar('0')));
    PathComposition composition(m_host.get(), m_camera.get(), moment());
    m_camera->state().partitions.clear();
    for (int i = 1; i <= 16; ++i)
        m_camera->state().partitions.append({i, i % 2 == 0 ? "A" : "B", 1, 0});
    for (int i = 1; i <= 16; ++i) {
        ComposedPath path;
        composition.compose(1, i, {false, 0, PathComposition::Plan::Extend}, path);
        const QString name = i % 2 == 0 ? "A" : "B";
        const int number = i % 2 == 0 ? 100 + i / 2 : (i + 1) / 2;
        QCOMPARE(inBase(path.path),
                 QString("G/%1/%1_S%2").arg(name).arg(number, 4, 10, QChar('0')));
    }
    QCOMPARE(composition.listedDirectories(), 2);
}

// A setting is read once and a warning written once, however many partitions there are.
void TestPathTargets::partitionsAreOneComposition()
{
    set({{"export/groupdir", true},
         {"export/groupdirname", "Run"},
         {"export/groupdiraddnumber", true},
         {"export/groupdiraddnumberformat", ""},
         {"export/groupdiraddnumbercameranodigits", 0},
         {"export/groupdiraddnumberheadnodigits", 0},
         {"export/groupdiraddnumbersessionnodigits", 2},
         {"export/subdir", true},
         {"export/subdirname", "Sub"},
         {"export/subdiraddnumber", true},
         {"export/subdiraddnumberformat", ""},
         {"export/subdiraddnumbercameranodigits", 0},
         {"export/subdiraddnumberheadnodigits", 0},
         {"export/subdiraddnumbersessionnodigits", 2}});
    makeDir("Run_S01");
    makeDir("Sub_S01");
    m_camera->addition = numbered("");
    m_camera->state().partitions.clear();
    Files paths;
    for (int i = 1; i <= 16; ++i) {
        m_camera->state().partitions.append({i, "A", 1, 0});
        paths.insert(i, base() + QString("Run_S02/Sub_S02/Shot_S%1").arg(i, 4, 10, QChar('0')));
    }
    LogCapture log;
    m_host->clearJournal();
    Maps maps;
    composeAll(1, maps);
    QCOMPARE(maps.paths, paths);
    QCOMPARE(m_host->journal().count("getPrefString(\"export/filename\", invalid)"), 1);
    QCOMPARE(log.texts(), QStringList({"exists \"" + base() + "Run_S01/\"",
                                       "exists \"" + base() + "Sub_S01/\""}));
}

// What host and document throw comes through, and the plan stays as far as it came.
void TestPathTargets::everyCallMayFail()
{
    m_camera->state().partitions = {{1, "A", 1, 0}, {2, "B", 1, 0}};
    m_camera->addition = numbered("");
    m_camera->state().customInfo = {item("A", "x", "u", "on")};
    set({{"export/groupdir", true},
         {"export/groupdiraddnumber", true},
         {"export/groupdiraddnumberformat", "auto"},
         {"export/subdir", true},
         {"export/subdirasfilename", true},
         {"export/subdirasfilenameincludeoption", true},
         {"export/filenameasoriginal", true},
         {"export/filenameaspartitionname", true},
         {"export/filenameusecustom", true},
         {"export/singlepath", false},
         {"export/savethumbnail", true}});
    Maps all;
    m_host->clearJournal();
    composeAll(1, all);
    const int calls = m_host->callCount();
    const QStringList commands = m_host->commands();
    QCOMPARE(commands.size(), 6);
    for (int call = 1; call <= calls; ++call) {
        m_host->savePlan() = SavePlan();
        m_host->clearJournal();
        m_host->failAtCall(call);
        Maps maps;
        QVERIFY_EXCEPTION_THROWN(composeAll(1, maps), StandInFault);
        const QStringList came = m_host->commands();
        QCOMPARE(came, commands.mid(0, came.size()));
        for (const int partition : maps.paths.keys())
            QCOMPARE(maps.paths.value(partition), all.paths.value(partition));
        // The maps are one step ahead of the plan.
        QCOMPARE(maps.groups.size(), came.filter("setPlannedGroupDir").size());
        QVERIFY(maps.paths.size() >= came.filter("addPlannedFile").size());
    }
}

void TestPathTargets::nothingIsWritten()
{
    const auto tree = [&] {
        QStringList entries;
        QDirIterator walk(m_dir->path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                          QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            walk.next();
            const QFileInfo info = walk.fileInfo();
            entries.append(QString("%1 %2 %3")
                               .arg(info.filePath(),
                                    info.lastModified().toString(Qt::ISODateWithMs),
                                    QString::number(info.size())));
        }
        entries.sort();
        return entries;
    };
    for (const QString name : {"Shot_S0001.x", "Run_S0001/x", "Run_S0002/Sub_S0001/Shot_S0001.x"}) {
        touch(name);
        QFile file(base() + name);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(moment(), QFileDevice::FileModificationTime));
    }
    for (const QString family : {"export", "convert", "snap", "report", "layout"}) {
        set(family + "/filename", "Shot");
        set(family + "/filenameaddtime", true);
        set(family + "/filenameaddtimeformat", "yyyy");
        for (const QString level : {"/groupdir", "/subdir"}) {
            const QString prefix = family + level;
            if (prefix == "layout/groupdir")
                continue;
            set({{prefix, true},
                 {prefix + "name", level == "/subdir" ? "Sub" : "Run"},
                 {prefix + "addnumber", true},
                 {prefix + "addtime", true},
                 {prefix + "addtimeformat", "HHmm"}});
        }
    }
    for (const QString family : {"export", "convert"})
        set({{family + "/savethumbnail", true}, {family + "/savethumbnailaddtextvalue", "_t"}});
    m_camera->addition = numbered("");
    SavePlan plan;
    plan.setTargetDir(base() + "other/");
    const QStringList before = tree();
    QCOMPARE(before.filter("2017-06-05T07:08:09.000 0").size(), 3);
    LogCapture log;
    for (int mode = -1; mode <= 20; ++mode) {
        for (const bool alternative : {false, true}) {
            m_host->savePlan() = plan;
            Maps maps;
            composeAll(mode, maps, alternative, 1);
            QCOMPARE(maps.paths.size(), 1);
            PathComposer::composePath(m_host.get(), mode, m_camera.get(), 1, alternative, moment(),
                                      1);
        }
        m_host->savePlan() = plan;
        fileName(mode);
        groupDir(mode);
        subDir(mode);
        PathComposer::composeDirectory(m_host.get(), mode, m_camera.get());
        PathComposer::composeThumbnailPath(m_host.get(), mode, base() + "Shot");
    }
    QCOMPARE(tree(), before);
}

int main(int argc, char *argv[])
{
    TestPathTargets test;
    return runTest(argc, argv, test);
}

#include "test_path_targets.moc"
