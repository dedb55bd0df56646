#include "save/dialog/RecordingFiles.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

#include <memory>

#include <sys/stat.h>

// The recordings that a folder import finds.

class TestRecordingFiles : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void recordingsHaveFourSuffixes();
    void allFoldersAreWalked();
    void orderIsNatural();
    void linksAreFollowed();
    void circleOfLinksEnds();
    void linkToNothingIsPassedOver();
    void pipeIsNoRecording();
    void missingFolderHasNone();

private:
    void touch(const QString &name);
    void link(const QString &target, const QString &name);
    QStringList found() const;

    std::unique_ptr<QTemporaryDir> m_dir;
    QLocale m_locale;
};

void TestRecordingFiles::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
    m_locale = QLocale();
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
}

void TestRecordingFiles::cleanup()
{
    QLocale::setDefault(m_locale);
    m_dir.reset();
    TestBase::cleanup();
}

void TestRecordingFiles::touch(const QString &name)
{
    const QString path = m_dir->filePath(name);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void TestRecordingFiles::link(const QString &target, const QString &name)
{
    QVERIFY(QFile::link(m_dir->filePath(target), m_dir->filePath(name)));
}

// Below the folder.
QStringList TestRecordingFiles::found() const
{
    QStringList names = RecordingFiles::below(m_dir->path());
    for (QString &name : names) {
        if (name.startsWith(m_dir->path() + '/'))
            name.remove(0, m_dir->path().size() + 1);
    }
    return names;
}

void TestRecordingFiles::recordingsHaveFourSuffixes()
{
    for (const char *name :
         {"1.rih", "2.rihx", "3.RIH", "4.RIHX", "5.rih.txt", "6.rihy", "rih", "7.xrih", "8.mraw"})
        touch(name);
    QVERIFY(QDir(m_dir->path()).mkdir("9.rih"));
    QCOMPARE(found(), QStringList({"1.rih", "2.rihx", "3.RIH", "4.RIHX"}));
}

void TestRecordingFiles::allFoldersAreWalked()
{
    for (const char *name : {"a/b/c/deep.rih", "a/upper.rih", "top.rih"})
        touch(name);
    QCOMPARE(found(), QStringList({"a/b/c/deep.rih", "a/upper.rih", "top.rih"}));
}

void TestRecordingFiles::orderIsNatural()
{
    for (const char *name :
         {"shot 10.rih", "shot 9.rih", "Shot 1.rih", "run 2/b.rih", "run 11/a.rih", "run 2/a.rih"})
        touch(name);
    QCOMPARE(found(), QStringList({"run 2/a.rih", "run 2/b.rih", "run 11/a.rih", "Shot 1.rih",
                                   "shot 9.rih", "shot 10.rih"}));
}

void TestRecordingFiles::linksAreFollowed()
{
    const QTemporaryDir elsewhere;
    QFile file(elsewhere.filePath("far.rih"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    touch("near.rih");
    QVERIFY(QFile::link(elsewhere.path(), m_dir->filePath("link")));
    link("near.rih", "other.rih");
    QCOMPARE(found(), QStringList({"link/far.rih", "near.rih", "other.rih"}));
}

// Up, to itself, and two that point at each other.
void TestRecordingFiles::circleOfLinksEnds()
{
    touch("a/one.rih");
    touch("b/two.rih");
    link(".", "a/up");
    link("a", "a/self");
    link("b", "a/there");
    link("a", "b/back");
    const QStringList names = found();
    QCOMPARE(names.filter("one.rih").size(), 1);
    QCOMPARE(names.filter("two.rih").size(), 1);
    QCOMPARE(names.size(), 2);
}

void TestRecordingFiles::linkToNothingIsPassedOver()
{
    link("gone.rih", "a.rih");
    link("gone", "folder");
    QCOMPARE(found(), QStringList());
}

void TestRecordingFiles::pipeIsNoRecording()
{
    QCOMPARE(mkfifo(QFile::encodeName(m_dir->filePath("a.rih")), 0600), 0);
    QCOMPARE(found(), QStringList());
}

void TestRecordingFiles::missingFolderHasNone()
{
    QCOMPARE(RecordingFiles::below(m_dir->filePath("gone")), QStringList());
}

int main(int argc, char *argv[])
{
    TestRecordingFiles test;
    return runTest(argc, argv, test);
}

#include "test_recording_files.moc"
