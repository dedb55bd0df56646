#include "save/path/DirectoryView.h"
#include "tests/support/ChildRun.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// What the toolkit's own list of plain files says.
bool isListed(const QString &path, const QString &letters)
{
    for (const QString &name : QDir(path).entryList(QDir::Files, QDir::Unsorted)) {
        if (name.startsWith(letters, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

// Of a name, each of these letters in the case that it does not have.
QString turned(const QString &name)
{
    const QString upper = name.toUpper();
    return upper == name ? name.toLower() : upper;
}

}

// The plain files of one directory.
class TestDirectoryView : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void beginningsAreFound_data();
    void beginningsAreFound();
    void seesWhatTheToolkitSees_data();
    void seesWhatTheToolkitSees();
    void caseIsThatOfAComparison_data();
    void caseIsThatOfAComparison();
    void foldedLettersKeepTheirPlace();
    void directoryIsReadOnceWhenAsked();
    void emptyPathIsTheWorkingDirectory();
    void nothingIsInWhatIsNoDirectory_data();
    void nothingIsInWhatIsNoDirectory();
    void rightsDecide();
    void manyNamesOfManyLengths();
    void namesAreNotReadTogether();
    void searchEndsAmongAnyNumberOfFiles();
    void directoriesAreClosed();
    void directoriesAreAskedOfTheDisk();

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }
    void touch(const QByteArray &name);

    std::unique_ptr<QTemporaryDir> m_dir;
    QList<QByteArray> m_touched;
};

void TestDirectoryView::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void TestDirectoryView::cleanup()
{
    for (const QByteArray &name : qAsConst(m_touched)) // Qt sees none that are no UTF-8
        unlink(name.constData());
    m_touched.clear();
    m_dir.reset();
    TestBase::cleanup();
}

void TestDirectoryView::touch(const QByteArray &name)
{
    m_touched.append(QFile::encodeName(m_dir->path()) + "/" + name);
    const int file = creat(m_touched.last().constData(), 0644);
    QVERIFY2(file >= 0, name.constData());
    ::close(file);
}

void TestDirectoryView::beginningsAreFound_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("letters");
    QTest::addColumn<bool>("isFound");
    const auto row = [](const char *file, const char *letters, bool isFound) {
        QTest::newRow(qPrintable(QString("%1 for %2").arg(file, letters)))
            << QByteArray(file) << QString(letters) << isFound;
    };
    row("A_S0001.bmp", "A_S0001", true);
    row("A_S0001_x.bmp", "A_S0001", true);
    row("A_S0001", "A_S0001", true);
    row("A_S000", "A_S0001", false);
    row("B_A_S0001", "A_S0001", false);
    row("a_s0001.bmp", "A_S0001", true);
    row("A_S0001.bmp", "a_s0001", true);
    row("A_S0001.bmp", "A_S0002", false);
    row("Shot [1].bmp", "Shot [1]", true);
    row("Shot 1.bmp", "Shot [1]", false);
    row("Shot1.bmp", "Shot*", false);
    row("Shot1.bmp", "Shot?", false);
    row("Shot*1.bmp", "Shot*", true);
    row("x", "", true);
    row(".hidden", ".h", false);
    row(".hidden", "", false);
    row("@`[{", "@`[{", true);
    row("@`[{", "`@{[", false);
    row("AZ.bmp", "az", true);
}

void TestDirectoryView::beginningsAreFound()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, letters);
    touch(file);
    DirectoryView view(m_dir->path());
    QTEST(view.hasFileBeginning(letters), "isFound");
    QCOMPARE(isListed(m_dir->path(), letters), view.hasFileBeginning(letters));
}

void TestDirectoryView::seesWhatTheToolkitSees_data()
{
    QTest::addColumn<bool>("isFile");
    QTest::newRow("file") << true;
    QTest::newRow("directory") << false;
    QTest::newRow("pipe") << false;
    QTest::newRow("link to a file") << true;
    QTest::newRow("link to a link to a file") << true;
    QTest::newRow("link to a directory") << false;
    QTest::newRow("link to nothing") << false;
    QTest::newRow("link to itself") << false;
    QTest::newRow("link to a pipe") << true;
    QTest::newRow("hidden file") << false;
    QTest::newRow("hidden link to a file") << false;
}

void TestDirectoryView::seesWhatTheToolkitSees()
{
    QFETCH(bool, isFile);
    const QString kind = QTest::currentDataTag();
    const QByteArray target = QFile::encodeName(path("other"));
    const QByteArray further = QFile::encodeName(path("further"));
    const QByteArray own = QFile::encodeName(path("Shot"));
    int made = 0;
    if (kind == "file")
        touch("Shot");
    else if (kind == "directory")
        made = mkdir(own, 0755);
    else if (kind == "pipe")
        made = mkfifo(own, 0644);
    else if (kind == "hidden file")
        touch(".Shot");
    else if (kind == "hidden link to a file") {
        touch("other");
        made = symlink(target, QFile::encodeName(path(".Shot")));
    } else {
        if (kind == "link to a directory")
            made = mkdir(target, 0755);
        else if (kind == "link to a pipe")
            made = mkfifo(target, 0644);
        else if (kind == "link to a file")
            touch("other");
        else if (kind == "link to a link to a file") {
            touch("further");
            made = symlink(further, target);
        }
        QCOMPARE(made, 0);
        made = symlink(kind == "link to itself" ? own : target, own);
    }
    QCOMPARE(made, 0);
    const QString letters = kind.startsWith("hidden") ? ".Sh" : "Sh";
    QCOMPARE(DirectoryView(m_dir->path()).hasFileBeginning(letters), isFile);
    QCOMPARE(isListed(m_dir->path(), letters), isFile);
}

void TestDirectoryView::caseIsThatOfAComparison_data()
{
    QTest::addColumn<QByteArray>("file");
    const QList<QByteArray> names{
        "Stra\xC3\x9F"
        "e",       // sharp s
        "STRASSE", //
        "STRA\xE1\xBA\x9E"
        "E",                                // capital sharp s
        "\xC4\xB0stanbul",                  // dotted I
        "I\xCC\x87stanbul",                 // I and a dot
        "\xC4\xB1stanbul",                  // dotless i
        "\xCE\xBF\xCE\xB4\xCF\x82",         // final sigma
        "\xCE\x9F\xCE\x94\xCE\xA3",         // capital sigma
        "\xCE\xBF\xCE\xB4\xCF\x83",         // sigma
        "\xF0\x90\x90\x80\xF0\x90\x90\x81", // capitals beyond the first plane
        "\xF0\x90\x90\xA8\xF0\x90\x90\xA9", // their small letters
        "\xF0\x9F\x93\xB7 1",               // a picture
        "\xEF\xBB\xBFMark",                 // mark of byte order
        "\xEF\xAC\x80",                     // ligature
        "e\xCC\x81",                        // letter and accent
        "\xC3\xA9",                         // the same as one
        "\xE2\x84\xAA"
        "elvin",                    // Kelvin sign
        "\xEF\xBF\xBEx",            // no character
        "bad\xFFname",              // no UTF-8
        "cut\xC3",                  // half a letter
        "\xC0\xAFlong",             // a slash in too many bytes
        "\xED\xA0\x81\xED\xB0\x80", // a pair in six bytes
        "\xF4\x90\x80\x80",         // behind the last plane
    };
    for (const QByteArray &name : names)
        QTest::newRow(name.toPercentEncoding().constData()) << name;
}

// All names against each other: as they stand, turned, and cut in each place, pairs too.
void TestDirectoryView::caseIsThatOfAComparison()
{
    QFETCH(QByteArray, file);
    touch(file);
    DirectoryView view(m_dir->path());
    const QList<QByteArray> files{file,
                                  "Strasse",
                                  "STRASSE",
                                  "stra\xC3\x9F"
                                  "e",
                                  "istanbul",
                                  "ISTANBUL",
                                  "\xC4\xB0STANBUL",
                                  "\xC4\xB1",
                                  "i\xCC\x87",
                                  "\xCE\x9F\xCE\x94\xCF\x82",
                                  "\xCE\x9F\xCE\x94\xCE\xA3",
                                  "\xCE\xBF\xCE\xB4\xCF\x83",
                                  "\xF0\x90\x90\xA8\xF0\x90\x90\xA9",
                                  "\xF0\x90\x90\x80\xF0\x90\x90\x81",
                                  "kelvin",
                                  "K",
                                  "mark",
                                  "\xC3\x89",
                                  "E\xCC\x81",
                                  "ff",
                                  "bad",
                                  "cut",
                                  "long"};
    for (const QByteArray &letters : files) {
        const QString text = QString::fromUtf8(letters);
        for (const QString &asked : {text, turned(text), text.toCaseFolded()}) {
            for (int length = 0; length <= asked.size(); ++length) {
                const QString cut = asked.left(length);
                if (view.hasFileBeginning(cut) != isListed(m_dir->path(), cut))
                    QFAIL(qPrintable("differs for " + cut.toUtf8().toPercentEncoding()));
            }
        }
    }
}

// A name that is cut in two folds as its parts do: each letter has as many units as before, and the
// first of two stays.
void TestDirectoryView::foldedLettersKeepTheirPlace()
{
    for (uint letter = 0; letter <= 0x10ffff; ++letter) {
        const QString text = QString::fromUcs4(&letter, 1);
        const QString folded = text.toCaseFolded();
        if (folded.size() != text.size() || (text.size() == 2 && folded.at(0) != text.at(0)))
            QFAIL(qPrintable(QString::number(letter, 16)));
    }
}

void TestDirectoryView::directoryIsReadOnceWhenAsked()
{
    DirectoryView view(m_dir->path());
    QVERIFY(!view.isRead());
    touch("before");
    QVERIFY(view.hasFileBeginning("before"));
    QVERIFY(view.isRead());
    touch("behind");
    QVERIFY(!view.hasFileBeginning("behind"));
    QVERIFY(DirectoryView(m_dir->path()).hasFileBeginning("behind"));
}

void TestDirectoryView::emptyPathIsTheWorkingDirectory()
{
    touch("here");
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_dir->path()));
    const bool isFound = DirectoryView(QString()).hasFileBeginning("here");
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(isFound);
}

void TestDirectoryView::nothingIsInWhatIsNoDirectory_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("nothing") << "missing";
    QTest::newRow("file") << "file";
    QTest::newRow("file, as a directory") << "file/";
    QTest::newRow("link to nothing") << "link";
    QTest::newRow("null character") << QString("sub") + QChar(QChar::Null) + "x";
    QTest::newRow("longer than paths are") << QString(5000, 'x');
}

void TestDirectoryView::nothingIsInWhatIsNoDirectory()
{
    QFETCH(QString, name);
    touch("file");
    QVERIFY(QDir(m_dir->path()).mkdir("sub"));
    QCOMPARE(symlink("missing", QFile::encodeName(path("link"))), 0);
    QVERIFY(!DirectoryView(path(name)).hasFileBeginning(""));
    QVERIFY(!DirectoryView::isDirectory(path(name)));
}

// Names can be listed in a directory that may not be entered, but not what stands behind a link.
void TestDirectoryView::rightsDecide()
{
    for (const char *name : {"shut", "listed", "open"}) {
        QVERIFY(QDir(m_dir->path()).mkdir(name));
        touch(QByteArray(name) + "/file");
        QCOMPARE(symlink("file", QFile::encodeName(path(name) + "/link")), 0);
    }
    QCOMPARE(chmod(QFile::encodeName(m_dir->path()), 0755), 0);
    QCOMPARE(chmod(QFile::encodeName(path("shut")), 0), 0);
    QCOMPARE(chmod(QFile::encodeName(path("listed")), 0444), 0);
    const QByteArray seen = ChildRun::run([&] {
        ChildRun::dropRights();
        QByteArray text;
        for (const char *name : {"shut", "listed", "open"}) {
            DirectoryView view(path(name));
            for (const char *letters : {"file", "link"}) {
                const bool isFound = view.hasFileBeginning(letters);
                text += isFound ? '+' : '-';
                if (isFound != isListed(path(name), letters))
                    text += " differs from the list! ";
            }
            text += DirectoryView::isDirectory(path(name)) ? "d " : "- ";
        }
        return text;
    });
    QCOMPARE(chmod(QFile::encodeName(path("shut")), 0755), 0);
    QCOMPARE(chmod(QFile::encodeName(path("listed")), 0755), 0);
    QCOMPARE(seen, QByteArray("--d +-d ++d "));
}

void TestDirectoryView::manyNamesOfManyLengths()
{
    for (int i = 1; i <= 200; ++i)
        touch(QByteArray("Shot_") + QByteArray(i, 'x') + QByteArray::number(i));
    for (int i = 0; i < 300; ++i)
        touch("Run_S0001_" + QByteArray::number(i) + ".bmp");
    DirectoryView view(m_dir->path());
    for (int round = 0; round < 2; ++round) {
        for (int i = 1; i <= 200; ++i) {
            const QString name = "SHOT_" + QString(i, 'X') + QString::number(i);
            QVERIFY2(view.hasFileBeginning(name), qPrintable(name));
            QVERIFY2(view.hasFileBeginning(name.left(name.size() - 1)), qPrintable(name));
            QVERIFY2(!view.hasFileBeginning(name + "0"), qPrintable(name));
        }
    }
    QVERIFY(view.hasFileBeginning("run_s0001_299"));
    QVERIFY(!view.hasFileBeginning("run_s0001_300"));
}

void TestDirectoryView::namesAreNotReadTogether()
{
    touch("ab");
    touch("cd");
    touch("longer");
    DirectoryView view(m_dir->path());
    for (const char *letters : {"abc", "abcd", "cda", "cdab", "abl", "cdlo"})
        QVERIFY2(!view.hasFileBeginning(letters), letters);
}

void TestDirectoryView::searchEndsAmongAnyNumberOfFiles()
{
    for (int count = 0; count <= 70; ++count) {
        DirectoryView view(m_dir->path());
        QVERIFY(!view.hasFileBeginning("missing_1"));
        QCOMPARE(view.hasFileBeginning(QString()), count > 0);
        QCOMPARE(view.hasFileBeginning("1_present"), count > 1);
        touch(QByteArray::number(count) + "_present");
    }
}

void TestDirectoryView::directoriesAreClosed()
{
    touch("file");
    const QByteArray seen = ChildRun::run([&]() -> QByteArray {
        const rlimit few{64, 64};
        if (setrlimit(RLIMIT_NOFILE, &few) != 0)
            return "no limit";
        for (int i = 0; i < 100; ++i) {
            if (!DirectoryView(m_dir->path()).hasFileBeginning("file"))
                return "lost";
        }
        return "found";
    });
    QCOMPARE(seen, QByteArray("found"));
}

void TestDirectoryView::directoriesAreAskedOfTheDisk()
{
    touch("file");
    QVERIFY(QDir(m_dir->path()).mkpath("Sub/In"));
    QCOMPARE(symlink("Sub", QFile::encodeName(path("link"))), 0);
    QVERIFY(DirectoryView::isDirectory(path("Sub")));
    QVERIFY(DirectoryView::isDirectory(path("Sub/")));
    QVERIFY(DirectoryView::isDirectory(path("Sub/In/")));
    QVERIFY(DirectoryView::isDirectory(path("link/")));
    QVERIFY(DirectoryView::isDirectory("/"));
    QVERIFY(!DirectoryView::isDirectory(path("sub/")));
    QVERIFY(!DirectoryView::isDirectory(path("file")));
    QVERIFY(!DirectoryView::isDirectory(QString()));
    QVERIFY(!DirectoryView::isDirectory(path("New")));
    QVERIFY(QDir(m_dir->path()).mkdir("New"));
    QVERIFY(DirectoryView::isDirectory(path("New")));
    QVERIFY(QDir(m_dir->path()).rmdir("New"));
    QVERIFY(!DirectoryView::isDirectory(path("New")));
}

int main(int argc, char *argv[])
{
    TestDirectoryView test;
    return runTest(argc, argv, test);
}

#include "test_directory_view.moc"
