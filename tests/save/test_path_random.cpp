#include "contract/DOC_Interface.h"
#include "foundation/exceptions/APP_Exception.h"
#include "save/path/PathComposer.h"
#include "tests/save/LiteralComposer.h"
#include "tests/save/PathTest.h"

#include <QDir>
#include <QFile>

#include <functional>
#include <random>

namespace {

constexpr int CasesOfATree = 10;

/// A host without a journal that keeps what changes its plan.
class PlanHost : public StandInHost
{
public:
    PlanHost() { setJournalEnabled(false); }

    void setPlannedGroupDir(const QString &name) override
    {
        changes.append("group " + name);
        StandInHost::setPlannedGroupDir(name);
    }

    void clearPlannedGroupDir() override
    {
        changes.append("no group");
        StandInHost::clearPlannedGroupDir();
    }

    void clearPlannedDirs() override
    {
        changes.append("no directories");
        StandInHost::clearPlannedDirs();
    }

    void clearPlannedFiles() override
    {
        changes.append("no files");
        StandInHost::clearPlannedFiles();
    }

    void addPlannedDir(const QString &dir) override
    {
        changes.append("directory " + dir);
        StandInHost::addPlannedDir(dir);
    }

    void addPlannedFile(const QString &path) override
    {
        changes.append("file " + path);
        StandInHost::addPlannedFile(path);
    }

    QStringList changes;
};

}

// The composer against the literal one: random settings, documents, directories and plans.
//
// ORVIX_PATH_CASES sets the number of cases, 5000 without; ORVIX_PATH_SEED the seed of the first, 1
// without. A few cases share a tree; a failure tells the seed of their first.
class TestPathRandom : public PathTest
{
    Q_OBJECT

private slots:
    void fastAndLiteralAgree();

protected:
    std::unique_ptr<StandInHost> makeHost() const override { return std::make_unique<PlanHost>(); }

private:
    struct Outcome;

    int below(int count) { return int(m_random() % uint(count)); }
    bool chance(int percent) { return below(100) < percent; }
    QString oneOf(const QStringList &texts) { return texts.at(below(texts.size())); }
    QString someName();
    QString someFormat();

    void chooseSettings();
    void chooseLevel(const QString &prefix);
    void chooseDocument();
    void chooseTree();
    void choosePlan();
    void clearTree();
    Outcome run(const std::function<QString(Maps &)> &compose);
    QString compare(int mode, bool alternative, int variant);
    QString compareParts(int mode, DOC_Interface *doc, int partitionNo, bool alternative,
                         int variant);

    std::mt19937 m_random;
    SavePlan m_plan;
    QString m_base;
};

/// All that can be seen of a composition.
struct TestPathRandom::Outcome
{
    QString result; ///< or what was thrown
    Maps maps;
    QStringList changes; ///< of the plan
    QStringList log;     ///< without lines that repeat

    QString text() const
    {
        QStringList lines{"result: " + result};
        for (const QMap<int, QString> *map : {&maps.groups, &maps.dirs, &maps.paths}) {
            lines.append("map:");
            for (auto entry = map->cbegin(); entry != map->cend(); ++entry)
                lines.append(QString::number(entry.key()) + " " + entry.value());
        }
        return (lines + changes + log).join('\n');
    }
};

QString TestPathRandom::someName()
{
    static const QStringList names{"Shot",
                                   "shot",
                                   "Run",
                                   "A",
                                   "",
                                   ".",
                                   "..",
                                   "A_S0001",
                                   "x/y",
                                   "a:b",
                                   "[1]",
                                   "(1)",
                                   "%1",
                                   "*",
                                   "Tab\tx",
                                   " A",
                                   "A ",
                                   "A.",
                                   QString::fromUtf8("Stra\xC3\x9F"
                                                     "e"),
                                   "STRASSE",
                                   QString::fromUtf8("\xC4\xB0x"),
                                   QString::fromUtf8("\xCE\xA3\xCF\x82"),
                                   QString::fromUtf8("\xF0\x90\x90\x80"),
                                   "Shot_C1S1",
                                   ".hidden"};
    return chance(60) ? names.at(below(3)) : chance(1) ? QString(300, 'x') : oneOf(names);
}

QString TestPathRandom::someFormat()
{
    static const QStringList formats{"",      "HHmm",  "yyyyMMdd", "H:m", "MMM d/M",
                                     "'text", "''x''", "qwx",      "zzz", "'%1' dddd"};
    return oneOf(formats);
}

void TestPathRandom::chooseLevel(const QString &prefix)
{
    const bool isFile = prefix.endsWith("filename");
    if (!isFile) {
        set(prefix, chance(50));
        set(prefix + "name", someName());
        set(prefix + "asfilename", chance(50));
        set(prefix + "asfilenameincludeoption", chance(40));
        set(prefix + "addnumber", chance(50));
        set(prefix + "addnumberformat", chance(50) ? "auto" : someName());
    }
    set(prefix + "addtime", chance(25));
    set(prefix + "addtimeformat", someFormat());
    for (const QString part : {"camera", "head", "session"}) {
        const QString key = prefix + "addnumber" + part + "nodigits";
        if (m_host->settings().isKnown(key))
            set(key, part == "session" ? below(5) - (chance(10) ? 1 : 0) : below(3));
    }
}

void TestPathRandom::chooseSettings()
{
    static const QList<StandInHost::Mode> modes{StandInHost::Mode::Live, StandInHost::Mode::Memory,
                                                StandInHost::Mode::File};
    m_host->setMode(modes.at(below(modes.size())));
    for (const QString family : {"export", "convert", "snap", "report", "layout"}) {
        set(family + "/dir", chance(90) ? m_base + oneOf({"", "/", "/sub", "/missing", "/file"})
                                        : oneOf({"", "relative"}));
        set(family + "/dirasoriginal", chance(20));
        set(family + "/filename", someName());
        set(family + "/filenameasoriginal", chance(30));
        set(family + "/filenameaspartitionname", chance(30));
        set(family + "/filenameusecustom", chance(30));
        set(family + "/filenameusecustomfromtarget", chance(30));
        set(family + "/filenameusecustomfromtargetkey", below(4) - 1);
        set(family + "/filenameusecustomincludeunit", chance(50));
        chooseLevel(family + "/filename");
        chooseLevel(family + "/subdir");
        if (family != "layout")
            chooseLevel(family + "/groupdir");
    }
    for (const QString family : {"export", "convert"}) {
        set(family + "/saveinf", chance(40));
        set(family + "/savethumbnail", chance(40));
        set(family + "/savethumbnailaddtextvalue", chance(95) ? someName() : QString(200, 't'));
    }
    set("export/media", chance(50) ? "file" : "camera");
    set("export/singlepath", chance(50));
    set("export/multipathlist", oneOf({"", "A|" + m_base + "/sub?B|", "A|x|y?A|" + m_base}));
    set("export/multipathdevicelist", oneOf({"", "Cam|A", "Cam|B?Other|A", "Cam|C", "Cam|A|x"}));
    set("export/inf_testno", chance(50) ? someName() : QString());
    set("save/SaveInfFile", chance(30));
    set("save/EnableBlankFilename", chance(20));
}

void TestPathRandom::chooseDocument()
{
    const auto items = [this] {
        QVariantList list;
        for (int i = below(4); i > 0; --i)
            list.append(item(oneOf({"TestNo", "Project", "testno"}), someName(),
                             oneOf({"", "mm", "m/s"}), oneOf({"on", "on", "off", "ON"})));
        return list;
    };
    for (StandInCamera *camera : m_host->cameras())
        camera->state().customInfo = items();
    DocumentState &own = m_camera->state();
    own.customInfo = items();
    own.originalFileName = someName();
    own.originalFilePath = oneOf({"", m_base + "/sub/film.rih", "film.rih"});
    own.isCameraRecord = chance(60);
    own.cameraNumber = below(12);
    own.headNumber = below(3);
    own.headCount = below(3) == 0 ? 12 : below(3);
    own.deviceName = oneOf({"Cam", "Other", ""});
    own.partitions.clear();
    for (int i = below(4); i >= 0; --i)
        own.partitions.append({below(5), someName(), 1, 0});

    const int kind = below(8);
    const QString before = oneOf({"", "C1", "a/b", someName()});
    const QString behind = oneOf({"", "", "_x"});
    const int digits = below(4);
    m_camera->addition = [=](int mode, int partitionNo, int sequence, bool &usesSequence) {
        usesSequence = kind > 1;
        const QString number = QString::number(sequence).rightJustified(digits, '0');
        switch (kind) {
        case 0:
            return QString();
        case 1:
            return before;
        case 2:
            return sequence < 3 ? before : before + number; // the same twice
        case 3:
            usesSequence = sequence < 4;
            return before + number;
        case 4:
            return QString("m%1p%2S%3").arg(mode).arg(partitionNo).arg(number) + behind;
        default:
            return before + "S" + number + behind;
        }
    };
}

void TestPathRandom::clearTree()
{
    QDir(m_base).removeRecursively();
    QVERIFY(QDir().mkpath(m_base));
}

// Directories and files whose names the settings are likely to make.
void TestPathRandom::chooseTree()
{
    clearTree();
    const QDir root(m_base);
    QVERIFY(root.mkpath("sub"));
    QStringList dirs{"", "sub"};
    for (int i = below(8); i > 0; --i) {
        const QString name =
            oneOf({"Shot", "shot", "Run", "A", "Run_S1", "Run_S2", "Shot_S01", "S1", "S01", "C1S1",
                   "Run_C1S1", "Shot_C01S1", "A_S1", "Shot_S1", "Shot_C1", "Run_H1S1"});
        const QString dir = oneOf(dirs) + "/" + name;
        if (root.mkpath(dir.mid(dir.startsWith('/') ? 1 : 0)))
            dirs.append(dir);
    }
    for (int i = below(14); i > 0; --i) {
        QString name = someName() + oneOf({"", "_", "_S", "_C1S"}) +
                       oneOf({"", "1", "01", "001", "2", "3"}) + oneOf({"", ".bmp", "_x.avi"});
        name.replace('/', '_');
        if (chance(10))
            name = name.toUpper();
        const QString path = m_base + "/" + oneOf(dirs) + "/" + name;
        if (chance(6)) {
            QFile::link(oneOf({"sub", "missing", "file", m_base}), path);
        } else {
            QFile file(path);
            file.open(QIODevice::WriteOnly);
        }
    }
    QFile file(m_base + "/file");
    file.open(QIODevice::WriteOnly);
}

void TestPathRandom::choosePlan()
{
    m_plan = SavePlan();
    if (chance(15))
        m_plan.setGroupDir(someName());
    if (chance(30))
        m_plan.setTargetDir(
            oneOf({"/x", "/x/", m_base + "/", m_base + "/sub/", m_base + "/sub", "rel"}));
    for (int i = below(4); i > 0; --i)
        m_plan.addDir(m_base + "/" +
                      oneOf({"Run_S1/", "Run_S2/", "Shot_S01/", "S1/", "Shot_C1S1/", "G/S1/"}));
    for (int i = below(4); i > 0; --i)
        m_plan.addFile(m_base + "/" +
                       oneOf({"Shot_S1", "Shot_S01", "shot_S2", "A_S1", "S1", "Run/Shot_S1",
                              "Shot/Shot_S01"}));
}

TestPathRandom::Outcome TestPathRandom::run(const std::function<QString(Maps &)> &compose)
{
    Outcome outcome;
    m_host->savePlan() = m_plan;
    QStringList &changes = static_cast<PlanHost &>(*m_host).changes;
    changes.clear();
    LogCapture log;
    try {
        outcome.result = compose(outcome.maps);
    } catch (const APP_Exception &exception) {
        outcome.result = QString("thrown: ") + exception.what();
    }
    outcome.changes = changes;
    for (const auto &line : log.lines())
        outcome.log.append(QString::number(line.type) + " " + line.text);
    outcome.log.removeDuplicates();
    return outcome;
}

// Empty, or how the two differ.
QString TestPathRandom::compare(int mode, bool alternative, int variant)
{
    LiteralComposer literal(m_host.get());
    DOC_Interface *doc = chance(8) ? nullptr : m_camera.get();
    const int partitionNo = below(5);
    const QString baseName = someName();
    const bool withAdditions = chance(80);
    StandInHost *host = m_host.get();
    using Compose = std::function<QString(Maps &)>;
    const QList<QPair<Compose, Compose>> functions{
        {[&](Maps &maps) {
             PathComposer::composeTargetPaths(host, mode, doc, alternative, maps.groups, maps.dirs,
                                              maps.paths, moment(), variant);
             return QString();
         },
         [&](Maps &maps) {
             literal.targetPaths(mode, doc, alternative, maps.groups, maps.dirs, maps.paths,
                                 moment(), variant);
             return QString();
         }},
        {[&](Maps &) {
             return PathComposer::composeFileName(host, mode, doc, partitionNo, withAdditions,
                                                  moment());
         },
         [&](Maps &) { return literal.fileName(mode, doc, partitionNo, withAdditions, moment()); }},
        {[&](Maps &) { return PathComposer::composeGroupDir(host, mode, doc, baseName, moment()); },
         [&](Maps &) { return literal.groupDir(mode, doc, baseName, moment()); }},
        {[&](Maps &) { return PathComposer::composeSubDir(host, mode, doc, baseName, moment()); },
         [&](Maps &) { return literal.subDir(mode, doc, baseName, moment()); }},
        {[&](Maps &) { return PathComposer::composeDirectory(host, mode, doc); },
         [&](Maps &) { return literal.directory(mode, doc); }},
        {[&](Maps &) { return PathComposer::composeThumbnailPath(host, mode, baseName); },
         [&](Maps &) { return literal.thumbnailPath(mode, baseName); }}};
    for (int i = 0; i < functions.size(); ++i) {
        const QString fast = run(functions.at(i).first).text();
        const QString slow = run(functions.at(i).second).text();
        if (fast != slow)
            return QString("function %1, mode %2\nfast:\n%3\nliteral:\n%4")
                .arg(QString::number(i), QString::number(mode), fast, slow);
    }
    return compareParts(mode, doc, partitionNo, alternative, variant);
}

// Empty, or how the path that is handed out with its parts differs from the one in the maps.
QString TestPathRandom::compareParts(int mode, DOC_Interface *doc, int partitionNo,
                                     bool alternative, int variant)
{
    if (!doc || doc->partitionNumbers().count(partitionNo) != 1)
        return QString();
    StandInHost *host = m_host.get();
    const Outcome all = run([&](Maps &maps) {
        PathComposer::composeTargetPaths(host, mode, doc, alternative, maps.groups, maps.dirs,
                                         maps.paths, moment(), variant);
        return QString();
    });
    ComposedPath path;
    const Outcome one = run([&](Maps &) {
        path =
            PathComposer::composePath(host, mode, doc, partitionNo, alternative, moment(), variant);
        return QString();
    });
    QStringList differences = one.changes;
    const auto hold = [&](const char *what, const QString &actual, const QString &expected) {
        if (actual != expected)
            differences.append(QString("%1: %2, not %3").arg(what, actual, expected));
    };
    if (!one.result.isEmpty()) {
        hold("thrown", one.result, all.result);
    } else {
        hold("directory", path.directory, all.maps.dirs.value(partitionNo));
        hold("path", path.path, all.maps.paths.value(partitionNo));
        hold("group", path.group.text, all.maps.groups.value(partitionNo));
        if (path.refusal != ComposedPath::Refusal::None && all.result.isEmpty())
            differences.append("refused");
    }
    if (path.isGroupFixed())
        path.group.name = path.group.text;
    for (const ComposedName &name : {path.group, path.sub, path.file}) {
        QStringList parts{name.name, name.number, name.time};
        parts.removeAll(QString());
        hold("parts", parts.join('_'), name.text);
    }
    return differences.isEmpty() ? QString()
                                 : QString("partition %1, mode %2\n%3")
                                       .arg(QString::number(partitionNo), QString::number(mode),
                                            differences.join('\n'));
}

void TestPathRandom::fastAndLiteralAgree()
{
    const auto option = [](const char *name, int otherwise) {
        bool isNumber = false;
        const int given = qEnvironmentVariableIntValue(name, &isNumber);
        return isNumber ? given : otherwise;
    };
    const int cases = option("ORVIX_PATH_CASES", 5000);
    const uint first = uint(option("ORVIX_PATH_SEED", 1));
    qInfo("seed %u, %d cases", first, cases);
    m_base = m_dir->path() + "/tree";
    const QString before = QDir::currentPath();
    for (int i = 0; i < 2; ++i)
        m_host->addCamera();
    QString difference;
    uint seed = first;
    for (int i = 0; i < cases && difference.isEmpty(); ++i) {
        if (i % CasesOfATree == 0) {
            seed = first + uint(i);
            m_random.seed(seed);
            chooseTree();
            QVERIFY(QDir::setCurrent(m_base));
        }
        chooseSettings();
        chooseDocument();
        choosePlan();
        // Conversions take the most ways.
        static const QList<int> modes{1, 2, 4, 6, 6, 6, 7, 11, 11, 16, 16, 17, 18};
        const int mode = chance(70) ? modes.at(below(modes.size())) : below(21) - 1;
        difference = compare(mode, chance(30), below(3));
    }
    QVERIFY(QDir::setCurrent(before));
    QVERIFY2(difference.isEmpty(), qPrintable(QString("seed %1, %2").arg(seed).arg(difference)));
}

int main(int argc, char *argv[])
{
    TestPathRandom test;
    return runTest(argc, argv, test);
}

#include "test_path_random.moc"
