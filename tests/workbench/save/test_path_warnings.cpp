#include "tests/support/TestLog.h"
#include "workbench/save/PathWarnings.h"

#include <QDir>
#include <QFile>
#include <QStorageInfo>
#include <QTemporaryDir>

using Kind = PathWarning::Kind;
using Part = PathWarning::Part;

namespace {

/// "file blank [ x]" for each, in order.
QStringList told(const QVector<PathWarning> &warnings)
{
    const char *const kinds[] = {"noFolder", "missing",   "exists", "blank", "dot",
                                 "time",     "forbidden", "bytes",  "volume"};
    const char *const parts[] = {"base", "group", "sub", "file"};
    QStringList lines;
    for (const PathWarning &warning : warnings) {
        lines.append(QString("%1 %2 [%3]")
                         .arg(parts[int(warning.part)], kinds[int(warning.kind)], warning.detail));
    }
    // The machine may have its temporary files elsewhere.
    lines.removeAll("base volume [" + QStorageInfo(QDir::tempPath()).rootPath() + "]");
    return lines;
}

ComposedName named(const QString &name, const QString &number = {}, const QString &time = {})
{
    ComposedName result;
    result.name = name;
    result.number = number;
    result.time = time;
    QStringList parts({name, number, time});
    parts.removeAll(QString());
    result.text = parts.join('_');
    return result;
}

}

Q_DECLARE_METATYPE(ComposedName)

/// What is said about the path of a save.
class TestPathWarnings : public TestBase
{
    Q_OBJECT

private slots:
    void looksAtNames_data();
    void looksAtNames();
    void looksAtEachPart();
    void looksAtTheBase_data();
    void looksAtTheBase();
    void looksAtAFixedGroup();
    void tellsTheFolder();
    void tellsAFileOfTheName_data();
    void tellsAFileOfTheName();
    void takesNoDirectoryForAFile();
    void findsTheVolume();
    void tellsAnotherVolume();
    void namesForbiddenCharacters_data();
    void namesForbiddenCharacters();
};

void TestPathWarnings::looksAtNames_data()
{
    QTest::addColumn<ComposedName>("name");
    QTest::addColumn<QStringList>("warnings");
    const auto row = [](const char *title, const ComposedName &name, const QStringList &warnings) {
        QTest::newRow(title) << name << warnings;
    };
    row("plain", named("Shot", "C1S0001", "20170605"), {});
    row("none", named(""), {});
    row("blank in front", named(" Shot"), {"file blank [ Shot]"});
    row("blank behind", named("Shot "), {"file blank [Shot ]"});
    row("blank inside", named("Shot 1"), {});
    row("blank before the number", named("Shot ", "S01"), {});
    row("dot behind", named("Shot."), {"file dot [Shot.]"});
    row("dot inside", named("v1.2", "S01"), {});
    row("hidden", named(".Shot"), {});
    row("colon of a time", named("Shot", "", "07:08"), {"file time [:]"});
    row("slash of a time", named("Shot", "", "5/6 07:08"), {"file time [/:]"});
    row("other letters of a time", named("Shot", "", "7?"), {"file forbidden [?]"});
    row("slash of name and time", named("a/b", "", "5/6"), {"file time [/]", "file forbidden [/]"});
    row("forbidden", named("a*b?a*"), {"file forbidden [*?]"});
    row("tab", named("a\tb"), {"file forbidden [\t]"});
    row("dot alone", named("."), {"file forbidden [.]"});
    row("two dots", named(".."), {"file forbidden [..]"});
    row("255 bytes", named(QString(255, 'x')), {});
    row("256 bytes", named(QString(256, 'x')), {"file bytes []"});
    row("128 letters of two bytes", named(QString(128, QChar(0xe4))), {"file bytes []"});
    row("127 letters of two bytes", named(QString(127, QChar(0xe4))), {});
}

void TestPathWarnings::looksAtNames()
{
    QFETCH(ComposedName, name);
    ComposedPath path;
    path.base = "/data/";
    path.file = name;
    QTEST(told(PathWarnings::ofTexts(path)), "warnings");
}

void TestPathWarnings::looksAtEachPart()
{
    ComposedPath path;
    path.base = "/data /";
    path.group = named("Run.", "", "");
    path.sub = named("Sub", "", "1:2");
    path.file = named("|");
    QCOMPARE(told(PathWarnings::ofTexts(path)),
             QStringList(
                 {"base blank [data ]", "group dot [Run.]", "sub time [:]", "file forbidden [|]"}));
}

void TestPathWarnings::looksAtTheBase_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QStringList>("warnings");
    QTest::newRow("none") << "" << QStringList();
    QTest::newRow("plain") << "/data/a b/" << QStringList();
    QTest::newRow("with a drive") << "D:/data/" << QStringList();
    QTest::newRow("relative") << "./../data/" << QStringList();
    QTest::newRow("dot behind") << "/data./x/" << QStringList("base dot [data.]");
    QTest::newRow("forbidden") << "/da?ta/x|/" << QStringList("base forbidden [?|]");
}

void TestPathWarnings::looksAtTheBase()
{
    QFETCH(QString, base);
    ComposedPath path;
    path.base = base;
    QTEST(told(PathWarnings::ofTexts(path)), "warnings");
}

// It has no parts any more.
void TestPathWarnings::looksAtAFixedGroup()
{
    ComposedPath path;
    path.group.text = "Run?.";
    QVERIFY(path.isGroupFixed());
    QCOMPARE(told(PathWarnings::ofTexts(path)),
             QStringList({"group dot [Run?.]", "group forbidden [?]"}));
}

void TestPathWarnings::tellsTheFolder()
{
    const QTemporaryDir folder;
    ComposedPath path;
    QCOMPARE(told(PathWarnings::ofDisk(path)), QStringList("base noFolder []"));
    path.base = folder.path() + "/";
    QCOMPARE(told(PathWarnings::ofDisk(path)), QStringList());
    path.base = folder.path() + "/none/";
    QCOMPARE(told(PathWarnings::ofDisk(path)), QStringList("base missing [" + path.base + "]"));
}

void TestPathWarnings::tellsAFileOfTheName_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("isTold");
    QTest::newRow("with an extension") << "Shot.avi" << 0 << true;
    QTest::newRow("in another case") << "sHOT.AVI" << 0 << true;
    QTest::newRow("picture of a sequence") << "Shot000001.bmp" << 0 << true;
    QTest::newRow("last picture") << "Shot9.bmp" << 0 << true;
    QTest::newRow("without extension") << "Shot" << 0 << true;
    QTest::newRow("longer name") << "Shots.avi" << 0 << false;
    QTest::newRow("numbered") << "Shot_S0001.avi" << 0 << false;
    QTest::newRow("with a number that was searched for") << "Shot.avi" << 1 << false;
}

void TestPathWarnings::tellsAFileOfTheName()
{
    QFETCH(QString, file);
    QFETCH(int, number);
    QFETCH(bool, isTold);
    const QTemporaryDir folder;
    QVERIFY(QFile(folder.filePath(file)).open(QIODevice::WriteOnly));
    ComposedPath path;
    path.base = path.directory = folder.path() + "/";
    path.file = named("Shot");
    path.file.search.number = number;
    path.isPlaced = true;
    QStringList expected;
    if (isTold)
        expected.append("file exists [Shot]");
    QCOMPARE(told(PathWarnings::ofDisk(path)), expected);
}

void TestPathWarnings::takesNoDirectoryForAFile()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("Shot_5"));
    ComposedPath path;
    path.base = path.directory = folder.path() + "/";
    path.isPlaced = true;
    for (const char *name : {"", "Shot_5/", "Shot_5/6"}) {
        path.file = named(name);
        QCOMPARE(told(PathWarnings::ofDisk(path)), QStringList());
    }
}

void TestPathWarnings::findsTheVolume()
{
    const QTemporaryDir folder;
    const QString volume = QStorageInfo(folder.path()).rootPath();
    QCOMPARE(PathWarnings::volumeOf(folder.path()), volume);
    QCOMPARE(PathWarnings::volumeOf(folder.path() + "/not/there/yet/"), volume);
    QCOMPARE(PathWarnings::volumeOf("/"), QString("/"));
    QCOMPARE(PathWarnings::volumeOf("/no_such_directory/x"), QString("/"));
}

void TestPathWarnings::tellsAnotherVolume()
{
    const QString volume = QStorageInfo("/proc").rootPath();
    if (volume == "/")
        QSKIP("There is one volume only.");
    ComposedPath path;
    path.base = path.directory = "/proc/none/";
    path.isPlaced = true;
    QCOMPARE(told(PathWarnings::ofDisk(path)),
             QStringList({"base missing [/proc/none/]", "base volume [" + volume + "]"}));
    path.base = path.directory = "/";
    QCOMPARE(told(PathWarnings::ofDisk(path)), QStringList());
}

void TestPathWarnings::namesForbiddenCharacters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("inName");
    QTest::addColumn<QString>("inPath");
    QTest::newRow("none") << "a b.c"
                          << ""
                          << "";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
    QTest::newRow("separators") << "D:/a\\b"
                                << ":/\\"
                                << "";
    QTest::newRow("all") << "\\/:*?\"<>|%"
                         << "\\/:*?\"<>|%"
                         << "*?\"<>|%";
    QTest::newRow("each once") << "??**?"
                               << "?*"
                               << "?*";
    QTest::newRow("dot") << "."
                         << "."
                         << "";
    QTest::newRow("dots") << ".."
                          << ".."
                          << "";
    QTest::newRow("three dots") << "..."
                                << ""
                                << "";
}

void TestPathWarnings::namesForbiddenCharacters()
{
    QFETCH(QString, text);
    QTEST(PathWarnings::forbiddenInName(text), "inName");
    QTEST(PathWarnings::forbiddenInPath(text), "inPath");
}

int main(int argc, char **argv)
{
    TestPathWarnings test;
    return runTest(argc, argv, test);
}

#include "test_path_warnings.moc"
