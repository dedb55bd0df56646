#include "tests/support/TestLog.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <memory>

// "./dev install" in a checkout that holds nothing but the script, where cmake only writes down
// what it was called with.
class TestDevInstall : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void installsIntoTheFolder_data();
    void installsIntoTheFolder();
    void wantsOneFolder_data();
    void wantsOneFolder();
    void failsWhenTheBuildFails();

private:
    int dev(const QStringList &arguments);
    void write(const QString &name, const QByteArray &text, bool executable = false) const;
    QStringList calls() const;

    std::unique_ptr<QTemporaryDir> m_dir;
    QByteArray m_errors;
};

void TestDevInstall::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
    QDir place(m_dir->path());
    for (const char *folder : {"bin", "checkout", "caller"})
        place.mkdir(folder);
    for (const char *tool : {"bash", "cat", "dirname", "grep", "mkdir", "readlink", "touch"})
        QFile::link(QStandardPaths::findExecutable(tool), place.filePath("bin/") + tool);
    QVERIFY(QFile::copy(CHECKOUT "/dev", place.filePath("checkout/dev")));
    write("checkout/packages.txt", "cmake base the build\n");
    write("checkout/CMakePresets.json", "{}");
    write("bin/dpkg-query", "#!/usr/bin/env bash\necho installed cmake\n", true);
    QFile::link(QStandardPaths::findExecutable("env"), place.filePath("bin/env"));
    write("bin/cmake",
          "#!/usr/bin/env bash\n"
          "echo \"$*\" >> " +
              place.filePath("calls").toUtf8() +
              "\n"
              "case \"$1\" in --fresh) mkdir -p build/$3 ;; --build) exit ${BUILD_STATUS:-0} ;; "
              "esac\n",
          true);
}

void TestDevInstall::write(const QString &name, const QByteArray &text, bool executable) const
{
    QFile file(m_dir->filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
    if (executable)
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

int TestDevInstall::dev(const QStringList &arguments)
{
    QProcess process;
    QProcessEnvironment environment;
    environment.insert("PATH", m_dir->filePath("bin"));
    environment.insert("BUILD_STATUS", qEnvironmentVariable("BUILD_STATUS", "0"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_dir->filePath("caller"));
    process.start(m_dir->filePath("checkout/dev"), arguments);
    process.waitForFinished();
    m_errors = process.readAllStandardError();
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

QStringList TestDevInstall::calls() const
{
    QFile file(m_dir->filePath("calls"));
    return file.open(QIODevice::ReadOnly)
               ? QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts)
               : QStringList();
}

void TestDevInstall::installsIntoTheFolder_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("installed");
    QTest::newRow("absolute") << "/opt/or vix"
                              << "/opt/or vix";
    QTest::newRow("of the caller") << "prefix"
                                   << "CALLER/prefix";
}

void TestDevInstall::installsIntoTheFolder()
{
    QFETCH(QString, folder);
    QFETCH(QString, installed);
    installed.replace("CALLER", QDir(m_dir->filePath("caller")).canonicalPath());
    QVERIFY2(dev({"install", folder}) == 0, m_errors);
    QCOMPARE(calls(), QStringList({"--fresh --preset dev",
                                   "--build --preset dev --target orvix_toolkit orvix_standin",
                                   "--install build/dev --prefix " + installed}));
}

void TestDevInstall::wantsOneFolder_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList{"install"};
    QTest::newRow("empty") << QStringList{"install", ""};
    QTest::newRow("two") << QStringList{"install", "a", "b"};
}

void TestDevInstall::wantsOneFolder()
{
    QFETCH(QStringList, arguments);
    QCOMPARE(dev(arguments), 2);
    QCOMPARE(m_errors, QByteArray("./dev install PREFIX\n"));
    QCOMPARE(calls(), QStringList());
}

void TestDevInstall::failsWhenTheBuildFails()
{
    qputenv("BUILD_STATUS", "1");
    QVERIFY(dev({"install", "/opt/orvix"}) != 0);
    qunsetenv("BUILD_STATUS");
    QCOMPARE(calls().filter("--install").size(), 0);
}

int main(int argc, char **argv)
{
    TestDevInstall test;
    return runTest(argc, argv, test);
}

#include "test_dev_install.moc"
