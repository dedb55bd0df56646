#include "device/names/JS_Mediator_AutoCameraName.h"
#include "standin/host/StandInHost.h"
#include "tests/support/ChildRun.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QFile>
#include <QMetaMethod>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

// The names that a page completes a camera's name with, from the user's file.

class TestAutoCameraName : public TestBase
{
    Q_OBJECT

private slots:
    void slotsStandInOrder();
    void pageNameIsTheCallers();
    void fileIsAskedForWhileNamesAreCompleted_data();
    void fileIsAskedForWhileNamesAreCompleted();
    void namesAreListed();
    void listDoesNotAskWhetherNamesAreCompleted();
    void lineOfOneWordIsToldOf();
    void missingFileIsEmpty_data();
    void missingFileIsEmpty();
    void otherThanFilesAreNotOpened_data();
    void otherThanFilesAreNotOpened();
    void largeFileIsNotOpened_data();
    void largeFileIsNotOpened();
    void fileThatMayNotBeReadIsTold();
    void failedReadIsTold();
    void usedUpMemoryIsTold();
    void fileIsReadAnewAtEachCall();
    void failureOfTheHost_data();
    void failureOfTheHost();
    void callsAreTracedOnEntry();
    void fileThatMayNotBeWrittenIsRead();
    void fileIsClosedAgain();
    void fileThatGetsShorterGivesWhatIsLeft();
};

namespace {

const QString Class = QStringLiteral("JS_Mediator_AutoCameraName::");
const QString Key = QStringLiteral("usercustom/cameraNameFilePath");
const QString Switch = QStringLiteral("usercustom/completeCameraNames");
const QString PathRead = QStringLiteral("getPrefString(\"usercustom/cameraNameFilePath\", \"\")");

/// A host whose setting names a file in a folder of its own.
struct Names
{
    explicit Names(const QString &file = QStringLiteral("names.csv")) : path(folder.filePath(file))
    {
        host.settings().setValue(Switch, true);
        host.settings().setValue(Key, path);
    }

    void write(const QByteArray &bytes)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    QTemporaryDir folder;
    QString path;
    StandInHost host;
    JS_Mediator_AutoCameraName mediator{&host, QStringLiteral("names")};
};

// What a slot writes between the lines of its trace, which are held here.
QStringList inside(const LogCapture &log, const QString &slot)
{
    QStringList lines = log.texts();
    const QString name = Class + slot;
    if (lines.isEmpty() || lines.takeFirst() != "[ENTER] \"" + name + "\" \"\"" ||
        lines.isEmpty() || lines.takeLast() != "[LEAVE] \"" + name + "\"")
        return {"no trace"};
    return lines;
}

QString told(const char *what, const QString &path)
{
    return QString("%1 \"%2\" ]").arg(what, path);
}

}

void TestAutoCameraName::slotsStandInOrder()
{
    const QMetaObject &meta = JS_Mediator_AutoCameraName::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    QCOMPARE(methods, QStringList({"existsAutoCompleteFile()", "autoCompleteCameraList()"}));
}

void TestAutoCameraName::pageNameIsTheCallers()
{
    Names names;
    QCOMPARE(names.mediator.objectName(), QString("names"));
}

void TestAutoCameraName::fileIsAskedForWhileNamesAreCompleted_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("there");
    QTest::addColumn<bool>("found");
    QTest::newRow("found") << true << true << true;
    QTest::newRow("not there") << true << false << false;
    QTest::newRow("switched off") << false << true << false;
}

void TestAutoCameraName::fileIsAskedForWhileNamesAreCompleted()
{
    QFETCH(bool, enabled);
    QFETCH(bool, there);
    QFETCH(bool, found);
    Names names;
    names.host.settings().setValue(Switch, enabled);
    if (there)
        names.write("Lab,Left");
    names.host.clearJournal();
    LogCapture log;
    QCOMPARE(names.mediator.existsAutoCompleteFile(), found);
    QStringList calls("isAutoCameraNameEnabled()");
    if (enabled)
        calls.append(PathRead);
    QCOMPARE(names.host.journal(), calls);
    QStringList lines;
    if (found)
        lines.append(told("found file. [", names.path));
    QCOMPARE(inside(log, "existsAutoCompleteFile"), lines);
    QVERIFY(std::all_of(log.lines().cbegin(), log.lines().cend(),
                        [](const LogLine &line) { return line.type == QtInfoMsg; }));
}

void TestAutoCameraName::namesAreListed()
{
    Names names;
    names.write("Lab,Left,Right\r\n,Front\nLab,Right,Top\n");
    names.host.clearJournal();
    LogCapture log;
    QCOMPARE(names.mediator.autoCompleteCameraList(),
             QString("[{\"category\":\"\",\"label\":\"Front\"},"
                     "{\"category\":\"Lab\",\"label\":\"Left\"},"
                     "{\"category\":\"Lab\",\"label\":\"Right\"},"
                     "{\"category\":\"Lab\",\"label\":\"Top\"}]"));
    QCOMPARE(names.host.journal(), QStringList(PathRead));
    QCOMPARE(inside(log, "autoCompleteCameraList"), QStringList());
}

void TestAutoCameraName::listDoesNotAskWhetherNamesAreCompleted()
{
    Names names;
    names.host.settings().setValue(Switch, false);
    names.write("Lab,Left");
    LogCapture log;
    QCOMPARE(names.mediator.autoCompleteCameraList(),
             QString("[{\"category\":\"Lab\",\"label\":\"Left\"}]"));
}

void TestAutoCameraName::lineOfOneWordIsToldOf()
{
    Names names;
    names.write("Lab\nHall,\nYard\n");
    LogCapture log;
    QCOMPARE(names.mediator.autoCompleteCameraList(), QString("[]"));
    QCOMPARE(log.texts(QtWarningMsg),
             QStringList({"[only category] \"Lab\"", "[only category] \"Yard\""}));
    QCOMPARE(log.texts().size(), 4);
}

void TestAutoCameraName::missingFileIsEmpty_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no file set") << "";
    QTest::newRow("not there") << "/absent/names.csv";
}

void TestAutoCameraName::missingFileIsEmpty()
{
    QFETCH(QString, path);
    Names names;
    names.host.settings().setValue(Key, path);
    {
        LogCapture log;
        QVERIFY(!names.mediator.existsAutoCompleteFile());
        QCOMPARE(inside(log, "existsAutoCompleteFile"), QStringList());
    }
    LogCapture log;
    QCOMPARE(names.mediator.autoCompleteCameraList(), QString("[]"));
    QCOMPARE(inside(log, "autoCompleteCameraList"), QStringList());
}

void TestAutoCameraName::otherThanFilesAreNotOpened_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"folder", "pipe", "device", "link to a pipe"})
        QTest::newRow(kind) << QString(kind);
}

// A pipe that nobody writes into would be waited for without an end.
void TestAutoCameraName::otherThanFilesAreNotOpened()
{
    QFETCH(QString, kind);
    Names names;
    const QString pipe = names.folder.filePath("pipe");
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    const QString link = names.folder.filePath("link");
    QCOMPARE(symlink(qPrintable(pipe), qPrintable(link)), 0);
    const QString path = kind == "folder"   ? names.folder.path()
                         : kind == "pipe"   ? pipe
                         : kind == "device" ? QString("/dev/zero")
                                            : link;
    names.host.settings().setValue(Key, path);
    LogCapture log;
    QVERIFY(names.mediator.existsAutoCompleteFile());
    log.clear();
    QCOMPARE(names.mediator.autoCompleteCameraList(), QString("[]"));
    QCOMPARE(inside(log, "autoCompleteCameraList"), QStringList(told("file open failed. [", path)));
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
}

void TestAutoCameraName::largeFileIsNotOpened_data()
{
    QTest::addColumn<qint64>("size");
    QTest::newRow("256 MiB") << qint64(256) * 1024 * 1024;
    rlimit limit{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &limit), 0);
    if (limit.rlim_cur == RLIM_INFINITY) // where a test may write so much
        QTest::newRow("1 TiB") << qint64(1024) * 1024 * 1024 * 1024;
}

void TestAutoCameraName::largeFileIsNotOpened()
{
    QFETCH(qint64, size);
    Names names;
    names.write("Lab,Left\n");
    QVERIFY(QFile::resize(names.path, size));
    LogCapture log;
    QCOMPARE(names.mediator.autoCompleteCameraList(), QString("[]"));
    QCOMPARE(inside(log, "autoCompleteCameraList"),
             QStringList(told("file open failed. [", names.path)));
}

void TestAutoCameraName::fileThatMayNotBeReadIsTold()
{
    Names names;
    QFile::setPermissions(names.folder.path(), QFile::permissions(names.folder.path()) |
                                                   QFile::ReadOther | QFile::ExeOther);
    names.write("Lab,Left\n");
    QVERIFY(QFile::setPermissions(names.path, QFile::Permissions()));
    const QByteArray lines = ChildRun::run([&] {
        ChildRun::dropRights();
        LogCapture log;
        const QString list = names.mediator.autoCompleteCameraList();
        return (list + '\n' + log.texts(QtCriticalMsg).join('\n')).toUtf8();
    });
    QCOMPARE(QString::fromUtf8(lines), "[]\n" + told("file open failed. [", names.path));
}

// The memory of a process is a regular file that cannot be read at its beginning.
void TestAutoCameraName::failedReadIsTold()
{
    const QString path("/proc/self/mem");
    Names names;
    names.host.settings().setValue(Key, path);
    LogCapture log;
    QCOMPARE(names.mediator.autoCompleteCameraList(), QString("[]"));
    QCOMPARE(inside(log, "autoCompleteCameraList"),
             QStringList(told("file error occurred. [", path)));
    QCOMPARE(log.texts(QtCriticalMsg).size(), 1);
}

void TestAutoCameraName::usedUpMemoryIsTold()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("The sanitizer needs more memory than the limit leaves.");
#endif
    Names names;
    names.write("Lab,Left\n");
    QVERIFY(QFile::resize(names.path, 255 * 1024 * 1024));
    const QByteArray lines = ChildRun::run([&] {
        rlimit limit{};
        getrlimit(RLIMIT_AS, &limit);
        QFile status("/proc/self/statm");
        if (!status.open(QIODevice::ReadOnly))
            return QByteArray("no size");
        const rlim_t used = status.readAll().split(' ').first().toULongLong() * 4096;
        limit.rlim_cur = used + 300 * 1024 * 1024; // enough for the bytes, not for their text
        setrlimit(RLIMIT_AS, &limit);
        LogCapture log;
        const QString list = names.mediator.autoCompleteCameraList();
        return (list + '\n' + log.texts(QtCriticalMsg).join('\n')).toUtf8();
    });
    QCOMPARE(QString::fromUtf8(lines), "[]\n" + told("file error occurred. [", names.path));
    QCOMPARE(names.host.handledErrors(), QStringList());
}

void TestAutoCameraName::fileIsReadAnewAtEachCall()
{
    Names names;
    LogCapture log;
    names.write("Lab,Left");
    QCOMPARE(names.mediator.autoCompleteCameraList(),
             QString("[{\"category\":\"Lab\",\"label\":\"Left\"}]"));
    names.write("Hall,Top");
    QCOMPARE(names.mediator.autoCompleteCameraList(),
             QString("[{\"category\":\"Hall\",\"label\":\"Top\"}]"));
    QVERIFY(QFile::remove(names.path));
    QCOMPARE(names.mediator.autoCompleteCameraList(), QString("[]"));
}

void TestAutoCameraName::failureOfTheHost_data()
{
    QTest::addColumn<QString>("operation");
    QTest::newRow("switch") << "isAutoCameraNameEnabled";
    QTest::newRow("path") << "getPrefString";
}

void TestAutoCameraName::failureOfTheHost()
{
    QFETCH(QString, operation);
    Names names;
    names.write("Lab,Left");
    LogCapture log;
    names.host.failOn(operation);
    QVERIFY(!names.mediator.existsAutoCompleteFile());
    QCOMPARE(names.host.handledErrors(), QStringList(operation + " failed"));
    names.host.clearFaults();
    names.host.clearHandledErrors();
    names.host.failOn("getPrefString");
    QCOMPARE(names.mediator.autoCompleteCameraList(), QString("[]"));
    QCOMPARE(names.host.handledErrors(), QStringList("getPrefString failed"));
}

void TestAutoCameraName::callsAreTracedOnEntry()
{
    Names names;
    LogCapture log;
    QList<QStringList> before; // what stood in the log at each call of the host
    QObject context;
    connect(names.host.events(), &StandInEvents::callJournalled, &context,
            [&] { before.append(log.texts()); });
    names.mediator.existsAutoCompleteFile();
    QCOMPARE(before.value(0), QStringList("[ENTER] \"" + Class + "existsAutoCompleteFile\" \"\""));
    before.clear();
    log.clear();
    names.mediator.autoCompleteCameraList();
    QCOMPARE(before.value(0), QStringList("[ENTER] \"" + Class + "autoCompleteCameraList\" \"\""));
}

void TestAutoCameraName::fileThatMayNotBeWrittenIsRead()
{
    Names names;
    QFile::setPermissions(names.folder.path(), QFile::permissions(names.folder.path()) |
                                                   QFile::ReadOther | QFile::ExeOther);
    names.write("Lab,Left\n");
    QVERIFY(QFile::setPermissions(names.path, QFile::ReadOwner | QFile::ReadOther));
    const QByteArray list = ChildRun::run([&] {
        ChildRun::dropRights();
        LogCapture log;
        return names.mediator.autoCompleteCameraList().toUtf8();
    });
    QCOMPARE(list, QByteArray("[{\"category\":\"Lab\",\"label\":\"Left\"}]"));
}

void TestAutoCameraName::fileIsClosedAgain()
{
    const auto openFiles = [] {
        return QDir("/proc/self/fd")
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
            .size();
    };
    Names names;
    names.write("Lab,Left\n");
    LogCapture log;
    names.mediator.autoCompleteCameraList();
    const int before = openFiles();
    names.mediator.autoCompleteCameraList();
    names.host.settings().setValue(Key, "/proc/self/mem"); // cannot be read
    names.mediator.autoCompleteCameraList();
    QCOMPARE(openFiles(), before);
}

// A file that ends before the size that it was said to have.
void TestAutoCameraName::fileThatGetsShorterGivesWhatIsLeft()
{
    const QString path("/sys/devices/system/cpu/online"); // says 4096 bytes, has a few
    if (QFileInfo(path).size() != 4096)
        QSKIP("There is no such file here.");
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString word = QString::fromLatin1(file.readAll()).trimmed();
    QVERIFY(!word.contains(',')); // one range of processors
    Names names;
    names.host.settings().setValue(Key, path);
    LogCapture log;
    QCOMPARE(names.mediator.autoCompleteCameraList(), QString("[]"));
    QCOMPARE(inside(log, "autoCompleteCameraList"), QStringList("[only category] \"" + word + '"'));
}

int main(int argc, char *argv[])
{
    TestAutoCameraName test;
    return runTest(argc, argv, test);
}

#include "test_auto_camera_name.moc"
