#include "foundation/exceptions/UTL_Exception.h"
#include "save/path/PathComposer.h"
#include "standin/host/StandInHost.h"
#include "standin/settings/HostKeys.h"
#include "standin/settings/StandInDefaults.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>

using Mode = StandInHost::Mode;

Q_DECLARE_METATYPE(Mode)

// The settings that a host has before anybody saved: a first save goes somewhere.
class TestSaveDefaults : public TestBase
{
    Q_OBJECT

private slots:
    void init();

    void everyKeyOfTheHostHasADefault();
    void nobodyElseReadsThem();
    void defaultsOfTheAddition_data();
    void defaultsOfTheAddition();
    void savesGoToTheUsersOwnFolder();
    void folderOfAllKindsOfSave();
    void storedFolderGoesBeforeIt();

    void firstSave_data();
    void firstSave();
    void documentsOfOneSaveDiffer_data();
    void documentsOfOneSaveDiffer();
    void partitionsOfOneSaveDiffer_data();
    void partitionsOfOneSaveDiffer();
    void previewsOfCamerasDiffer();
    void secondSaveTakesTheNextNumber();

private:
    StandInRecording *openPictures(const QString &name);
    QMap<int, QString> paths(int mode, DOC_Interface *document);

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<StandInHost> m_host;
};

namespace {

const QStringList Families{"export", "convert", "snap", "report", "layout"};

QStringList keysOf(const HostKeys::SaveKeys &keys)
{
    const HostKeys::FileNameKeys &name = keys.fileName;
    QStringList all{name.addTextValue, name.addNumber,      name.addNumberFormat, name.addDetail,
                    name.details,      name.detailsConnect, name.sequenceDigits};
    for (const Keys::NumberDigitKeys &digits :
         {name.manualDigits, keys.groupDirManualDigits, keys.subDirManualDigits})
        all << digits.camera << digits.head << digits.session;
    all.removeAll(QString());
    all.sort();
    return all;
}

QDateTime moment()
{
    return QDateTime(QDate(2024, 2, 3), QTime(4, 5, 6));
}

}

void TestSaveDefaults::init()
{
    TestBase::init();
    m_host.reset();
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    m_host = std::make_unique<StandInHost>();
}

StandInRecording *TestSaveDefaults::openPictures(const QString &name)
{
    QImage image(32, 24, QImage::Format_RGB32);
    image.fill(Qt::gray);
    const QDir parent(m_dir->path());
    if (!parent.mkpath(name) || !image.save(parent.filePath(name + "/" + name + ".png")))
        return nullptr;
    return m_host->openRecording(parent.filePath(name));
}

QMap<int, QString> TestSaveDefaults::paths(int mode, DOC_Interface *document)
{
    QMap<int, QString> groups;
    QMap<int, QString> dirs;
    QMap<int, QString> paths;
    PathComposer::composeTargetPaths(m_host.get(), mode, document, false, groups, dirs, paths,
                                     moment(), 0);
    return paths;
}

void TestSaveDefaults::everyKeyOfTheHostHasADefault()
{
    const QStringList level{"addnumbermanualcameranodigits", "addnumbermanualheadnodigits",
                            "addnumbermanualsessionnodigits"};
    for (int i = 0; i < Families.size(); ++i) {
        QStringList expected;
        for (const QString part : {"addtextvalue", "addnumber", "addnumberformat", "adddetail",
                                   "adddetails", "adddetailsconnect", "seqdigits"})
            expected.append(Families.at(i) + "/filename" + part);
        for (const QString part : {"filename", "groupdir", "subdir"}) {
            // A layout has no group directory.
            if (Families.at(i) == "layout" && part == "groupdir")
                continue;
            for (const QString &digits : level)
                expected.append(Families.at(i) + "/" + part + digits);
        }
        expected.sort();
        const SaveModes::Family families[] = {SaveModes::Family::Export, SaveModes::Family::Convert,
                                              SaveModes::Family::Snap, SaveModes::Family::Report,
                                              SaveModes::Family::Layout};
        QCOMPARE(keysOf(HostKeys::save(families[i])), expected);
        for (const QString &key : qAsConst(expected))
            QVERIFY2(StandInDefaults::valueOf(key).isValid(), qPrintable(key));
    }
}

void TestSaveDefaults::nobodyElseReadsThem()
{
    const QStringList own = keysOf(HostKeys::save(SaveModes::Family::Export));
    for (int kind = 0; kind <= 16; ++kind) {
        const Keys::NumberDigitKeys digits = SaveModes::digitKeys(kind);
        for (const QString &key : {digits.camera, digits.head, digits.session})
            QVERIFY2(!own.contains(key), qPrintable(key));
    }
}

void TestSaveDefaults::defaultsOfTheAddition_data()
{
    QTest::addColumn<QString>("family");
    for (const QString &family : Families)
        QTest::newRow(qPrintable(family)) << family;
}

void TestSaveDefaults::defaultsOfTheAddition()
{
    QFETCH(QString, family);
    const QVector<QPair<QString, QVariant>> expected{
        {"filenameaddtextvalue", ""},
        {"filenameaddnumber", true},
        {"filenameaddnumberformat", "auto"},
        {"filenameaddnumbermanualcameranodigits", 3},
        {"filenameaddnumbermanualheadnodigits", 3},
        {"filenameaddnumbermanualsessionnodigits", 4},
        {"filenameadddetail", family == "report"},
        {"filenameadddetails", family == "report" ? "File name" : ""},
        {"filenameadddetailsconnect", "_"},
        {"filenameseqdigits", 6},
        {"subdiraddnumbermanualcameranodigits", 3},
    };
    for (const auto &entry : expected) {
        const QVariant value = StandInDefaults::valueOf(family + "/" + entry.first);
        QCOMPARE(value, entry.second);
        QCOMPARE(value.type(), entry.second.type());
    }
}

void TestSaveDefaults::savesGoToTheUsersOwnFolder()
{
    const QFileInfo folder(StandInDefaults::saveFolder());
    QVERIFY(folder.isAbsolute());
    QVERIFY(folder.isDir() && folder.isWritable());
    for (const QString &family : Families) {
        QCOMPARE(m_host->getPrefString(family + "/dir", QVariant()), folder.filePath());
        QCOMPARE(m_host->prefDefault(family + "/dir").toString(), folder.filePath());
    }
}

void TestSaveDefaults::folderOfAllKindsOfSave()
{
    m_host->settings().setSaveFolder("/elsewhere");
    for (const QString &family : Families)
        QCOMPARE(m_host->getPrefString(family + "/dir", QVariant()), QString("/elsewhere"));
}

void TestSaveDefaults::storedFolderGoesBeforeIt()
{
    m_host->setPrefString("snap/dir", "/own");
    m_host->settings().setSaveFolder("/elsewhere");
    QCOMPARE(m_host->getPrefString("snap/dir", QVariant()), QString("/own"));
    m_host->removePref("snap/dir");
    QCOMPARE(m_host->getPrefString("snap/dir", QVariant()), QString("/elsewhere"));
}

void TestSaveDefaults::firstSave_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("name");
    QTest::newRow("export") << 1 << "Recording";
    QTest::newRow("convert") << 6 << "Converted";
    QTest::newRow("snap") << 7 << "Snapshot";
    QTest::newRow("report") << 16 << "Report";
    QTest::newRow("layout") << 4 << "Layout";
}

// Nothing is set here, not even the folder.
void TestSaveDefaults::firstSave()
{
    QFETCH(int, mode);
    QFETCH(QString, name);
    const QString folder = StandInDefaults::saveFolder() + "/";
    StandInCamera *camera = m_host->addCamera();
    StandInRecording *recording = openPictures("a");
    QVERIFY(recording);
    for (const Mode hostMode : {Mode::Live, Mode::Memory, Mode::File}) {
        m_host->setMode(hostMode);
        for (DOC_Interface *document : {camera->contract(), recording->contract()}) {
            const QMap<int, QString> composed = paths(mode, document);
            QCOMPARE(composed.keys(), QList<int>({1}));
            const QString path = composed.value(1);
            QVERIFY2(path.startsWith(folder + name + "_"), qPrintable(path));
            // The number is all that follows, and nothing lies in a directory of its own.
            QVERIFY2(!path.mid(folder.size()).contains('/'), qPrintable(path));
        }
    }
}

void TestSaveDefaults::documentsOfOneSaveDiffer_data()
{
    firstSave_data();
}

void TestSaveDefaults::documentsOfOneSaveDiffer()
{
    QFETCH(int, mode);
    QFETCH(QString, name);
    m_host->settings().setSaveFolder(m_dir->path());
    StandInCamera::Description head;
    head.cameraNumber = 1;
    head.headCount = 2;
    m_host->addCamera();
    m_host->addCamera(head);
    head.headNumber = 2;
    m_host->addCamera(head);
    QStringList composed;
    for (StandInDocument *document : m_host->documents())
        composed += paths(mode, document->contract()).values();
    const QString base = m_dir->path() + "/" + name;
    QCOMPARE(composed, QStringList({base + "_C1S0001", base + "_C2H1S0001", base + "_C2H2S0001"}));

    m_host->setMode(Mode::File);
    composed.clear();
    for (const QString folder : {"a", "b"})
        composed += paths(mode, openPictures(folder)).values();
    // Reports take no place in the plan of the save, so that their numbers are the same.
    const QStringList reports{base + "_S0001_a", base + "_S0001_b"};
    const QStringList others{base + "_S0001", base + "_S0002"};
    QCOMPARE(composed, mode == 16 ? reports : others);
}

void TestSaveDefaults::partitionsOfOneSaveDiffer_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("name");
    // Reports take no place in the plan of the save.
    QTest::newRow("export") << 1 << "Recording";
    QTest::newRow("convert") << 6 << "Converted";
    QTest::newRow("snap") << 7 << "Snapshot";
    QTest::newRow("layout") << 4 << "Layout";
}

void TestSaveDefaults::partitionsOfOneSaveDiffer()
{
    QFETCH(int, mode);
    QFETCH(QString, name);
    m_host->settings().setSaveFolder(m_dir->path());
    StandInCamera::Description description;
    description.partitions = {{1, "A", 10, 0}, {2, "B", 10, 0}};
    m_host->setMode(Mode::Memory);
    const QString base = m_dir->path() + "/" + name;
    QCOMPARE(paths(mode, m_host->addCamera(description)).values(),
             QStringList({base + "_C1S0001", base + "_C1S0002"}));
}

void TestSaveDefaults::previewsOfCamerasDiffer()
{
    m_host->addCamera();
    m_host->addCamera();
    QSet<QString> names;
    for (const StandInCamera *camera : m_host->cameras())
        names.insert(PathComposer::composeFileName(
            m_host.get(), 1, m_host->document(camera->key())->contract(), 1, true, moment()));
    QCOMPARE(names, QSet<QString>({"Recording_C1S0001", "Recording_C2S0001"}));
}

void TestSaveDefaults::secondSaveTakesTheNextNumber()
{
    m_host->settings().setSaveFolder(m_dir->path());
    DOC_Interface *camera = m_host->addCamera();
    QFile file(m_dir->filePath("Recording_C1S0001.avi"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(paths(1, camera).value(1), m_dir->filePath("Recording_C1S0002"));
}

int main(int argc, char *argv[])
{
    TestSaveDefaults test;
    return runTest(argc, argv, test);
}

#include "test_save_defaults.moc"
