#include "standin/StandInCamera.h"
#include "standin/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/SupportFile.h"

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

void TestSupportZip::isWrittenThroughTheHost()
{
    StandInHost host;
    host.addCamera();
    host.state().takeSupportSnapshot = [&] { return SupportFile::take(host); };
    host.state().writeSupportFile = SupportFile::write;
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
    host.state().writeSupportFile = SupportFile::write;
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
