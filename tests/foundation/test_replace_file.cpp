#include "foundation/ReplaceFile.h"
#include "tests/support/ChildRun.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <memory>
#include <sys/stat.h>

// A file is replaced as a whole, or not at all.

namespace {

QByteArray textOf(const ReplaceFile::Outcome &outcome)
{
    static const char *const names[] = {"Written", "NotOpened", "Failed"};
    return QByteArray(names[int(outcome.result)]) + ": " + outcome.reason.toUtf8();
}

}

class TestReplaceFile : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void writesANewFile();
    void replacesAnOldFile();
    void writesNothingWhenThereIsNothing();
    void keepsThePermissionsOfTheOldFile();
    void writesTheFileThatALinkNames();
    void opensNoFileWithoutItsFolder();
    void opensNoFolderAndNoPipe();
    void leavesTheOldFileOnAFullDisk_data();
    void leavesTheOldFileOnAFullDisk();
    void opensNothingInAFolderWithoutRights();
    void writesTheOldFileItselfInAFolderWithoutRights();
    void opensNoFileThatIsReadOnly();
    void breaksOffWhenTheOldFileItselfMeetsAFullDisk();

private:
    void put(const QByteArray &text);
    QByteArray text() const;
    QStringList names() const;

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_path;
};

void TestReplaceFile::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
    QCOMPARE(::chmod(m_dir->path().toLocal8Bit().constData(), 0777), 0); // a child drops its rights
    m_path = m_dir->filePath("items.xml");
}

void TestReplaceFile::cleanup()
{
    ::chmod(m_dir->path().toLocal8Bit().constData(), 0700);
    m_dir.reset();
    TestBase::cleanup();
}

void TestReplaceFile::put(const QByteArray &text)
{
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), text.size());
}

QByteArray TestReplaceFile::text() const
{
    QFile file(m_path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

QStringList TestReplaceFile::names() const
{
    return QDir(m_dir->path())
        .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
}

void TestReplaceFile::writesANewFile()
{
    QCOMPARE(textOf(ReplaceFile::write(m_path, "new")), QByteArray("Written: "));
    QCOMPARE(text(), QByteArray("new"));
    QCOMPARE(names(), QStringList({"items.xml"}));
}

void TestReplaceFile::replacesAnOldFile()
{
    put(QByteArray(50000, 'o'));
    const QByteArray large(40000, 'n');
    QCOMPARE(textOf(ReplaceFile::write(m_path, large)), QByteArray("Written: "));
    QCOMPARE(text(), large);
    QCOMPARE(names(), QStringList({"items.xml"}));
}

void TestReplaceFile::writesNothingWhenThereIsNothing()
{
    put("old");
    QCOMPARE(textOf(ReplaceFile::write(m_path, QByteArray())), QByteArray("Written: "));
    QCOMPARE(text(), QByteArray());
}

void TestReplaceFile::keepsThePermissionsOfTheOldFile()
{
    put("old");
    QVERIFY(QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    QCOMPARE(textOf(ReplaceFile::write(m_path, "new")), QByteArray("Written: "));
    struct stat status = {};
    QCOMPARE(::stat(m_path.toLocal8Bit().constData(), &status), 0);
    QCOMPARE(int(status.st_mode & 0777), 0640);
}

void TestReplaceFile::writesTheFileThatALinkNames()
{
    put("old");
    const QString link = m_dir->filePath("link.xml");
    QVERIFY(QFile::link("items.xml", link));
    QCOMPARE(textOf(ReplaceFile::write(link, "new")), QByteArray("Written: "));
    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(text(), QByteArray("new"));
}

void TestReplaceFile::opensNoFileWithoutItsFolder()
{
    const auto outcome = ReplaceFile::write(m_dir->filePath("none/items.xml"), "new");
    QCOMPARE(textOf(outcome), "NotOpened: " + qt_error_string(ENOENT).toUtf8());
    QCOMPARE(names(), QStringList());
}

void TestReplaceFile::opensNoFolderAndNoPipe()
{
    QVERIFY(QDir(m_dir->path()).mkdir("folder"));
    QCOMPARE(textOf(ReplaceFile::write(m_dir->filePath("folder"), "new")),
             QByteArray("NotOpened: Not a regular file"));
    const QString pipe = m_dir->filePath("pipe");
    QCOMPARE(::mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    QCOMPARE(textOf(ReplaceFile::write(pipe, "new")), QByteArray("NotOpened: Not a regular file"));
    QCOMPARE(names(), QStringList({"folder", "pipe"}));
}

void TestReplaceFile::leavesTheOldFileOnAFullDisk_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("limit");
    QTest::newRow("the last flush meets it") << 5000 << 1000;
    QTest::newRow("the last byte meets it") << 5000 << 4999;
    QTest::newRow("the first write meets it") << 100000 << 1000;
    QTest::newRow("nothing fits") << 10 << 0;
}

void TestReplaceFile::leavesTheOldFileOnAFullDisk()
{
    QFETCH(int, size);
    QFETCH(int, limit);
    put("old");
    const QByteArray outcome = ChildRun::run([&] {
        ChildRun::limitFileSize(limit);
        return textOf(ReplaceFile::write(m_path, QByteArray(size, 'n')));
    });
    QCOMPARE(outcome, "Failed: " + qt_error_string(EFBIG).toUtf8());
    QCOMPARE(text(), QByteArray("old"));
    QCOMPARE(names(), QStringList({"items.xml"}));
}

void TestReplaceFile::opensNothingInAFolderWithoutRights()
{
    QCOMPARE(::chmod(m_dir->path().toLocal8Bit().constData(), 0555), 0);
    const QByteArray outcome = ChildRun::run([&] {
        ChildRun::dropRights();
        return textOf(ReplaceFile::write(m_path, "new"));
    });
    QCOMPARE(outcome, "NotOpened: " + qt_error_string(EACCES).toUtf8());
    QCOMPARE(names(), QStringList());
}

void TestReplaceFile::writesTheOldFileItselfInAFolderWithoutRights()
{
    put("an older and longer text");
    QCOMPARE(::chmod(m_path.toLocal8Bit().constData(), 0666), 0);
    QCOMPARE(::chmod(m_dir->path().toLocal8Bit().constData(), 0555), 0);
    const QByteArray outcome = ChildRun::run([&] {
        ChildRun::dropRights();
        return textOf(ReplaceFile::write(m_path, "new"));
    });
    QCOMPARE(outcome, QByteArray("Written: "));
    QCOMPARE(text(), QByteArray("new"));
}

void TestReplaceFile::opensNoFileThatIsReadOnly()
{
    put("old");
    QCOMPARE(::chmod(m_path.toLocal8Bit().constData(), 0444), 0);
    const QByteArray outcome = ChildRun::run([&] {
        ChildRun::dropRights();
        return textOf(ReplaceFile::write(m_path, "new"));
    });
    QVERIFY2(outcome.startsWith("NotOpened: "), outcome.constData());
    QVERIFY(outcome.size() > int(sizeof "NotOpened: "));
    QCOMPARE(text(), QByteArray("old"));
}

// Nothing can save the old file then; but it is told.
void TestReplaceFile::breaksOffWhenTheOldFileItselfMeetsAFullDisk()
{
    put("old");
    QCOMPARE(::chmod(m_path.toLocal8Bit().constData(), 0666), 0);
    QCOMPARE(::chmod(m_dir->path().toLocal8Bit().constData(), 0555), 0);
    const QByteArray outcome = ChildRun::run([&] {
        ChildRun::dropRights();
        ChildRun::limitFileSize(1000);
        return textOf(ReplaceFile::write(m_path, QByteArray(5000, 'n')));
    });
    QCOMPARE(outcome, "Failed: " + qt_error_string(EFBIG).toUtf8());
    QCOMPARE(names(), QStringList({"items.xml"}));
}

int main(int argc, char *argv[])
{
    TestReplaceFile test;
    return runTest(argc, argv, test);
}

#include "test_replace_file.moc"
