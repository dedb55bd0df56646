#include "bridge/mediator/JS_Mediator.h"
#include "bridge/operation/FileChoice.h"
#include "foundation/exceptions/APP_Exception.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/base/SupportFile.h"

#include <QDir>
#include <QFile>
#include <QFutureWatcher>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QtConcurrent>

#include <KZip>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

const QString Accented = QString::fromUtf8("Kam\xc3\xa9ra.txt");

/// All entries of a ZIP by their names.
QMap<QString, QByteArray> read(const QString &path)
{
    QMap<QString, QByteArray> entries;
    KZip zip(path);
    if (!zip.open(QIODevice::ReadOnly))
        return entries;
    for (const QString &name : zip.directory()->entries()) {
        const auto *file = zip.directory()->file(name);
        entries.insert(name, file ? file->data() : QByteArray("no file"));
    }
    return entries;
}

QImage plain(int width, int height, QRgb colour)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool put(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// Text that a ZIP hardly makes smaller.
QByteArray noise(int size)
{
    QByteArray bytes;
    quint32 value = 1;
    while (bytes.size() < size) {
        value = value * 1664525 + 1013904223;
        bytes.append(char(value >> 24));
    }
    return bytes;
}

/// While it lives no file grows beyond some bytes, as on a disk that is full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        m_signal = std::signal(SIGXFSZ, SIG_IGN); // the writer gets an error then
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        isFull = setrlimit(RLIMIT_FSIZE, &limit) == 0;
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

    bool isFull = false;

private:
    rlimit m_before = {};
    void (*m_signal)(int) = nullptr;
};

/// A host that says of a failure whether it is the toolkit's own.
class WatchingHost : public StandInHost
{
public:
    void errorHandler(std::exception &failure) override
    {
        failures.append(dynamic_cast<APP_Exception *>(&failure) ? "APP_Exception" : "other");
        StandInHost::errorHandler(failure);
    }

    QStringList failures;
};

/// A user who lets the page export a support file to `path`.
struct Export
{
    explicit Export(const QString &path, const QByteArray &content = "content")
    {
        host.answerConfirm(true);
        host.settings().setValue("support/dir", "/before");
        host.frontEnd().takeSupportSnapshot = [content] {
            SupportSnapshot snapshot;
            snapshot.texts = {{"a.txt", content}};
            return snapshot;
        };
        host.frontEnd().writeSupportFile = SupportFile::write;
        FileChoice::setAnswer([path](const FileChoice::Question &) { return QStringList(path); });
    }
    ~Export() { FileChoice::setAnswer(FileChoice::Answer()); }

    void run() { mediator.openExportSupportFileDialog(); }

    QStringList shown() const
    {
        QStringList texts;
        for (const StandInHost::Message &message : host.messages()) {
            if (message.kind != QLatin1String("confirm"))
                texts.append(message.text);
        }
        return texts;
    }

    WatchingHost host;
    JS_Mediator mediator{&host, "page"};
};

const QString MailText("Please attach preserved file to a mail.");
const QString FailureText("Failed to save support file.");

}

class TestSupportZip : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void holdsTextsAndPictures();
    void leavesOutWhatThereIsNot();
    void takesWhatTheHostKnows();
    void takesWhatTheUserInterfaceAdds();
    void masksWhatIsSecret();
    void keepsALogOfCamerasThatHaveOne_data();
    void keepsALogOfCamerasThatHaveOne();
    void takesTheMultiCameraWindowWhileItIsShown();
    void replacesAnOlderFile();
    void leavesAnOlderFileWholeWhenItFails();
    void refusesAFolderThatIsNotThere();
    void leavesAPipeWhatItIs();
    void followsALinkToAFile();
    void leavesAnOlderFileWholeOnAFullDisk_data();
    void leavesAnOlderFileWholeOnAFullDisk();
    void leavesNoHalfFileOnAFullDisk_data();
    void leavesNoHalfFileOnAFullDisk();
    void pageHearsOfAPlaceThatCannotBeWritten_data();
    void pageHearsOfAPlaceThatCannotBeWritten();
    void pageHearsOfAFullDisk();
    void isWrittenThroughTheHost();
    void failsWhenToldTo();
    void writesNothingUnlessAsked();
    void showsProgressToAUser();
    void showsNoProgressOtherwise();

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void TestSupportZip::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
}

void TestSupportZip::cleanup()
{
    m_dir.reset();
    TestBase::cleanup();
}

void TestSupportZip::holdsTextsAndPictures()
{
    SupportSnapshot snapshot;
    snapshot.texts = {{"a.txt", "first\n"}, {Accented, "\xc3\xa9"}};
    snapshot.screen = plain(40, 30, qRgb(10, 20, 30));
    snapshot.trelvikWindow = plain(20, 10, qRgb(1, 2, 3));
    snapshot.frame = plain(8, 6, qRgb(200, 100, 50));
    QVERIFY(SupportFile::write(path("s.zip"), snapshot));
    const auto entries = read(path("s.zip"));
    QCOMPARE(entries.keys(),
             QStringList({Accented, "a.txt", "frame.png", "screen.png", "trelvik-window.png"}));
    QCOMPARE(entries.value("a.txt"), QByteArray("first\n"));
    QCOMPARE(entries.value(Accented), QByteArray("\xc3\xa9"));
    const QImage screen = QImage::fromData(entries.value("screen.png"), "PNG");
    QCOMPARE(screen.size(), QSize(40, 30));
    QCOMPARE(screen.pixel(5, 5), qRgb(10, 20, 30));
    QCOMPARE(QImage::fromData(entries.value("trelvik-window.png")).size(), QSize(20, 10));
    QCOMPARE(QImage::fromData(entries.value("frame.png")).pixel(1, 1), qRgb(200, 100, 50));
}

void TestSupportZip::leavesOutWhatThereIsNot()
{
    SupportSnapshot snapshot;
    snapshot.texts = {{"a.txt", QByteArray()}};
    QVERIFY(SupportFile::write(path("s.zip"), snapshot));
    QCOMPARE(read(path("s.zip")).keys(), QStringList("a.txt"));
}

void TestSupportZip::takesWhatTheHostKnows()
{
    StandInHost host;
    QLabel window("main window");
    window.resize(300, 200);
    host.state().mainWidget = &window;
    host.state().hostVersion = "7.8.9";
    host.settings().setValue("env/style", "dark");
    StandInCamera *camera = host.addCamera();
    camera->setShutterSpeed(4000);
    host.info("hello", nullptr);
    const SupportSnapshot snapshot = SupportFile::take(host);
    QCOMPARE(snapshot.texts.keys(),
             QStringList({"cameras.txt", "environment.txt", "host-calls.txt", "operation-log.txt",
                          "settings.txt", "version.txt"}));
    QCOMPARE(snapshot.texts.value("version.txt"), QByteArray("7.8.9\n"));
    QVERIFY(snapshot.texts.value("settings.txt").contains("env/style=dark\n"));
    QVERIFY(snapshot.texts.value("cameras.txt").startsWith("Camera 1\n"));
    QVERIFY(snapshot.texts.value("cameras.txt").contains("  shutter: 1/4000 s\n"));
    QVERIFY(snapshot.texts.value("cameras.txt").contains("  record rate: 1000 fps\n"));
    QVERIFY(snapshot.texts.value("host-calls.txt").contains("info(\"hello\""));
    QVERIFY(snapshot.texts.value("environment.txt").contains("Qt: 5.15"));
    QCOMPARE(snapshot.screen.size(), QSize(300, 200));
    QCOMPARE(snapshot.frame.size(), QSize(640, 480));
    QVERIFY(snapshot.trelvikWindow.isNull());
}

void TestSupportZip::takesWhatTheUserInterfaceAdds()
{
    StandInHost host;
    host.addCamera();
    SupportFile::Extras extras;
    extras.operationLog = "[USER]\n";
    extras.frame = plain(4, 3, qRgb(9, 9, 9));
    const SupportSnapshot snapshot = SupportFile::take(host, extras);
    QCOMPARE(snapshot.texts.value("operation-log.txt"), QByteArray("[USER]\n"));
    QCOMPARE(snapshot.frame.size(), QSize(4, 3));
}

void TestSupportZip::masksWhatIsSecret()
{
    StandInHost host;
    host.settings().setValue("drive/password", "opensesame");
    const QByteArray text = SupportFile::take(host).texts.value("settings.txt");
    QVERIFY(text.contains("drive/password="));
    QVERIFY(!text.contains("opensesame"));
}

void TestSupportZip::keepsALogOfCamerasThatHaveOne_data()
{
    QTest::addColumn<int>("capability");
    QTest::addColumn<bool>("kept");
    QTest::newRow("176") << 176 << true;
    QTest::newRow("158") << 158 << true;
    QTest::newRow("another") << 157 << false;
}

void TestSupportZip::keepsALogOfCamerasThatHaveOne()
{
    QFETCH(int, capability);
    QFETCH(bool, kept);
    StandInHost host;
    host.addCamera();
    host.addCamera()->state().capabilities = {capability};
    const auto texts = SupportFile::take(host).texts;
    QVERIFY(!texts.contains("camera-log-1.txt"));
    QCOMPARE(texts.contains("camera-log-2.txt"), kept);
}

void TestSupportZip::takesTheMultiCameraWindowWhileItIsShown()
{
    StandInHost host;
    QLabel window("several cameras");
    window.resize(90, 60);
    SupportFile::Extras extras;
    extras.trelvikWindow = &window;
    QVERIFY(SupportFile::take(host, extras).trelvikWindow.isNull());
    host.state().isTrelvikWindowShown = true;
    QCOMPARE(SupportFile::take(host, extras).trelvikWindow.size(), QSize(90, 60));
}

void TestSupportZip::replacesAnOlderFile()
{
    QFile old(path("s.zip"));
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write(QByteArray(100000, 'x')) == 100000);
    old.close();
    SupportSnapshot snapshot;
    snapshot.texts = {{"a.txt", "new"}};
    QVERIFY(SupportFile::write(path("s.zip"), snapshot));
    QCOMPARE(read(path("s.zip")).value("a.txt"), QByteArray("new"));
    QVERIFY(QFile(path("s.zip")).size() < 1000);
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files), QStringList("s.zip"));
}

void TestSupportZip::leavesAnOlderFileWholeWhenItFails()
{
    // A file cannot take the place of a folder.
    QVERIFY(QDir(m_dir->path()).mkdir("s.zip"));
    QFile old(path("s.zip/old.txt"));
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    old.close();
    SupportSnapshot snapshot;
    snapshot.texts = {{"a.txt", "new"}};
    QVERIFY(!SupportFile::write(path("s.zip"), snapshot));
    QCOMPARE(contentOf(path("s.zip/old.txt")), QByteArray("old"));
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList("s.zip"));
}

void TestSupportZip::refusesAFolderThatIsNotThere()
{
    QVERIFY(!SupportFile::write(path("nowhere/s.zip"), SupportSnapshot()));
    QVERIFY(!QDir(path("nowhere")).exists());
}

void TestSupportZip::leavesAPipeWhatItIs()
{
    const QByteArray pipe = QFile::encodeName(path("pipe"));
    QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
    SupportSnapshot snapshot;
    snapshot.texts = {{"a.txt", "new"}};
    QVERIFY(!SupportFile::write(path("pipe"), snapshot));
    struct stat status = {};
    QCOMPARE(stat(pipe.constData(), &status), 0);
    QVERIFY(S_ISFIFO(status.st_mode));
}

void TestSupportZip::followsALinkToAFile()
{
    QVERIFY(put(path("old.zip"), "old"));
    QVERIFY(QFile::link(path("old.zip"), path("link.zip")));
    SupportSnapshot snapshot;
    snapshot.texts = {{"a.txt", "new"}};
    QVERIFY(SupportFile::write(path("link.zip"), snapshot));
    QVERIFY(QFileInfo(path("link.zip")).isSymLink());
    QCOMPARE(read(path("old.zip")).value("a.txt"), QByteArray("new"));
}

// A small file fails when its buffer goes out, a large one while it is written.
void TestSupportZip::leavesAnOlderFileWholeOnAFullDisk_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("room");
    QTest::newRow("no room at all, small") << 2000 << 0;
    QTest::newRow("room for a part, small") << 2000 << 1000;
    QTest::newRow("no room at all, large") << 200000 << 0;
    QTest::newRow("room for a part, large") << 200000 << 100000;
}

void TestSupportZip::leavesAnOlderFileWholeOnAFullDisk()
{
    QFETCH(int, size);
    QFETCH(int, room);
    QVERIFY(put(path("s.zip"), "old"));
    SupportSnapshot snapshot;
    snapshot.texts = {{"a.txt", noise(size)}};
    bool written = true;
    {
        FullDisk disk(room);
        QVERIFY(disk.isFull);
        written = SupportFile::write(path("s.zip"), snapshot);
    }
    QVERIFY(!written);
    QCOMPARE(contentOf(path("s.zip")), QByteArray("old"));
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files | QDir::Hidden), QStringList("s.zip"));
    QVERIFY(SupportFile::write(path("s.zip"), snapshot)); // there is room again
    QCOMPARE(read(path("s.zip")).value("a.txt"), noise(size));
}

void TestSupportZip::leavesNoHalfFileOnAFullDisk_data()
{
    leavesAnOlderFileWholeOnAFullDisk_data();
}

void TestSupportZip::leavesNoHalfFileOnAFullDisk()
{
    QFETCH(int, size);
    QFETCH(int, room);
    SupportSnapshot snapshot;
    snapshot.texts = {{"a.txt", noise(size)}};
    bool written = true;
    {
        FullDisk disk(room);
        QVERIFY(disk.isFull);
        written = SupportFile::write(path("s.zip"), snapshot);
    }
    QVERIFY(!written);
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files | QDir::Hidden), QStringList());
}

void TestSupportZip::pageHearsOfAPlaceThatCannotBeWritten_data()
{
    QTest::addColumn<QString>("target"); // in the folder of the test, where it is not absolute
    QTest::addColumn<QString>("folder");
    QTest::newRow("below a file") << "old.zip/s.zip"
                                  << "old.zip";
    QTest::newRow("a folder") << "folder"
                              << "";
    QTest::newRow("in a folder that is not there") << "nowhere/s.zip"
                                                   << "nowhere";
    // Nobody, whatever his rights, writes a file there.
    QTest::newRow("in a folder that takes no files") << "/proc/s.zip"
                                                     << "/proc";
}

void TestSupportZip::pageHearsOfAPlaceThatCannotBeWritten()
{
    QFETCH(QString, target);
    QFETCH(QString, folder);
    QVERIFY(put(path("old.zip"), "old"));
    QVERIFY(QDir(m_dir->path()).mkdir("folder"));
    Export page(QDir(m_dir->path()).absoluteFilePath(target));
    LogCapture log;
    page.run();
    QCOMPARE(page.host.handledErrors(), QStringList(FailureText));
    QCOMPARE(page.host.failures, QStringList("APP_Exception"));
    QCOMPARE(page.shown(), QStringList());
    QCOMPARE(page.host.settings().value("support/dir", QVariant()).toString(),
             QDir::cleanPath(QDir(m_dir->path()).absoluteFilePath(folder)));
    QCOMPARE(contentOf(path("old.zip")), QByteArray("old"));
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList({"folder", "old.zip"}));
}

void TestSupportZip::pageHearsOfAFullDisk()
{
    QVERIFY(put(path("s.zip"), "old"));
    Export page(path("s.zip"), noise(200000));
    {
        LogCapture log;
        FullDisk disk(1000);
        page.run();
    }
    QCOMPARE(page.host.handledErrors(), QStringList(FailureText));
    QCOMPARE(page.host.failures, QStringList("APP_Exception"));
    QCOMPARE(page.shown(), QStringList());
    QCOMPARE(page.host.settings().value("support/dir", QVariant()).toString(), m_dir->path());
    QCOMPARE(contentOf(path("s.zip")), QByteArray("old"));
    QCOMPARE(QDir(m_dir->path()).entryList(QDir::Files | QDir::Hidden), QStringList("s.zip"));

    page.run(); // there is room again
    QCOMPARE(page.host.handledErrors(), QStringList(FailureText));
    QCOMPARE(page.shown(), QStringList(MailText));
    QCOMPARE(read(path("s.zip")).value("a.txt"), noise(200000));
}

void TestSupportZip::isWrittenThroughTheHost()
{
    StandInHost host;
    host.addCamera();
    host.frontEnd().takeSupportSnapshot = [&] { return SupportFile::take(host); };
    host.frontEnd().writeSupportFile = SupportFile::write;
    SupportSnapshot snapshot;
    host.exportSupportSnapshot(snapshot);
    QVERIFY(host.writeSupportFile(path("s.zip"), snapshot));
    QVERIFY(read(path("s.zip")).contains("version.txt"));
    QVERIFY(read(path("s.zip")).contains("frame.png"));
    QVERIFY(!host.writeSupportFile(path("nowhere/s.zip"), snapshot));
}

void TestSupportZip::failsWhenToldTo()
{
    StandInHost host;
    host.frontEnd().writeSupportFile = SupportFile::write;
    host.state().supportFileSucceeds = false;
    QVERIFY(!host.writeSupportFile(path("s.zip"), SupportSnapshot()));
    QVERIFY(!QFile::exists(path("s.zip")));
}

void TestSupportZip::writesNothingUnlessAsked()
{
    StandInHost host;
    SupportSnapshot snapshot;
    host.exportSupportSnapshot(snapshot);
    QVERIFY(snapshot.texts.isEmpty());
    QVERIFY(host.writeSupportFile(path("s.zip"), snapshot));
    QVERIFY(!QFile::exists(path("s.zip")));
}

void TestSupportZip::showsProgressToAUser()
{
    StandInHost host;
    host.setInteractive(true);
    QSemaphore seen;
    QString text;
    bool cancelable = true;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        text = dialog->labelText();
        cancelable = !dialog->findChildren<QAbstractButton *>().isEmpty();
        watch.stop();
        seen.release();
    });
    watch.start(20);
    QFutureWatcher<void> watcher;
    bool waited = false;
    watcher.setFuture(QtConcurrent::run([&] { waited = seen.tryAcquire(1, 10000); }));
    host.runWithProgress("Saving...", watcher);
    QVERIFY(waited);
    QCOMPARE(text, QString("Saving..."));
    QVERIFY(!cancelable);
    QVERIFY(!QApplication::activeModalWidget());
}

void TestSupportZip::showsNoProgressOtherwise()
{
    StandInHost host;
    bool shown = false;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this,
            [&] { shown = shown || QApplication::activeModalWidget(); });
    watch.start(20);
    QFutureWatcher<void> watcher;
    watcher.setFuture(QtConcurrent::run([] { QThread::msleep(500); }));
    host.runWithProgress("Saving...", watcher);
    QVERIFY(!shown);
}

int main(int argc, char **argv)
{
    TestSupportZip test;
    return runTest(argc, argv, test);
}

#include "test_support_zip.moc"
