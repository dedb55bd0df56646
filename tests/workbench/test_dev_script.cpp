#include "tests/support/TestLog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

// A checkout that holds nothing but the script, on a machine whose every command is a fake that
// writes its call into a file.
class Machine
{
public:
    Machine()
    {
        QDir(m_dir.path()).mkpath("bin");
        QDir(m_dir.path()).mkpath("checkout/foundation");
        copy("dev");
        copy("packages.txt");
        QDir(m_dir.path()).mkpath("checkout/cmake");
        copy("cmake/layers.txt");
        write("checkout/CMakePresets.json", "{}");
        write("checkout/foundation/Text.cpp", "int text;\n");
        for (const char *tool : {"bash", "cat", "chmod", "dirname", "env", "find", "grep", "mkdir",
                                 "readlink", "sed", "sort", "touch", "xargs"})
            QFile::link(QStandardPaths::findExecutable(tool), path("bin/") + tool);
        fake("apt-get");
        fake("clang-format");
        fake("clang-tidy");
        fake("ctest");
        fake("nproc", "echo 3");
        fake("id", "echo 1000");
        fake("dpkg-query", "cat " + path("installed"));
        // A configured folder, and a workbench that can be built in it.
        fake("cmake", "case \"$*\" in --fresh*)\n"
                      "mkdir -p build/$3\n"
                      "echo \"CMAKE_HOME_DIRECTORY:INTERNAL=$PWD\" > build/$3/CMakeCache.txt\n"
                      "echo '    \"file\": \"'$PWD'/foundation/Text.cpp\"' "
                      "> build/$3/compile_commands.json\n"
                      "echo > build/$3/build.ninja\n"
                      "echo '#!/usr/bin/env bash' > build/$3/orvix-workbench\n"
                      "echo 'echo $PWD > " +
                          path("where") + "; echo workbench $* $QT_QPA_PLATFORM >> " +
                          path("calls") +
                          "; exit ${WORKBENCH_STATUS:-0}'"
                          " >> build/$3/orvix-workbench\n"
                          "chmod +x build/$3/orvix-workbench\n"
                          ";; esac");
        setInstalled(packages());
    }

    QString path(const QString &name) const { return m_dir.filePath(name); }

    // A command that writes its call, then runs the body.
    void fake(const QString &name, const QString &body = QString())
    {
        write("bin/" + name, "#!/usr/bin/env bash\necho \"" + name + " $*\" >> " + path("calls") +
                                 "\n" + body + "\n");
        QFile(path("bin/" + name))
            .setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void remove(const QString &name) { QFile::remove(path(name)); }

    // The packages of the list, in its order.
    QStringList packages() const
    {
        QStringList result;
        QFile list(path("checkout/packages.txt"));
        list.open(QIODevice::ReadOnly);
        for (const QByteArray &line : list.readAll().split('\n')) {
            if (!line.isEmpty() && !line.startsWith('#'))
                result.append(QString::fromUtf8(line).section(' ', 0, 0));
        }
        return result;
    }

    void setInstalled(const QStringList &packages)
    {
        QString text;
        for (const QString &package : packages)
            text += "installed " + package + "\n";
        write("installed", text + "deinstall sl\n");
    }

    void setMutateScript(const QString &text)
    {
        QDir(path("checkout")).mkpath("scripts/mutate");
        write("checkout/scripts/mutate/__main__.py", text);
    }

    void setVariable(const QString &name, const QString &value)
    {
        m_environment.insert(name, value);
    }

    // Runs the script from another folder; its status.
    int dev(const QStringList &arguments, const QString &script = "checkout/dev")
    {
        QFile::remove(path("calls"));
        QProcess process;
        m_environment.insert("PATH", path("bin"));
        process.setProcessEnvironment(m_environment);
        process.setWorkingDirectory(QDir::rootPath());
        process.setStandardInputFile(QProcess::nullDevice());
        process.start(path(script), arguments);
        process.waitForFinished();
        m_output = QString::fromUtf8(process.readAllStandardOutput());
        m_errors = QString::fromUtf8(process.readAllStandardError());
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    // Folder in which the workbench was run.
    QString whereWorkbenchRan() const
    {
        QFile file(path("where"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed()
                                              : QString();
    }

    QString output() const { return m_output; }
    QString errors() const { return m_errors; }

    // The calls of the commands that change something, in order.
    QStringList calls() const
    {
        QFile file(path("calls"));
        QStringList result;
        if (file.open(QIODevice::ReadOnly)) {
            for (const QString &line : QString::fromUtf8(file.readAll()).split('\n')) {
                const QString name = line.section(' ', 0, 0);
                if (!QStringList({"", "id", "nproc", "dpkg-query"}).contains(name))
                    result.append(line.trimmed());
            }
        }
        return result;
    }

private:
    void copy(const QString &name)
    {
        QFile::copy(QStringLiteral(CHECKOUT "/") + name, path("checkout/" + name));
    }

    void write(const QString &name, const QString &text)
    {
        QFile file(path(name));
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        file.write(text.toUtf8());
    }

    QTemporaryDir m_dir;
    QProcessEnvironment m_environment;
    QString m_output;
    QString m_errors;
};

}

class TestDevScript : public TestBase
{
    Q_OBJECT

private slots:
    void configuresBuildsAndTests();
    void configuresOnlyWhenItMust();
    void testsUnderTheSanitizers();
    void endsWithTheStatusOfTheTests();
    void runsTheBenchmarks();
    void triesChangesToTheCode();
    void checksLayoutContractAndSources();
    void installsWhatIsMissingAsRoot();
    void installsWhatIsMissingThroughSudo();
    void printsTheLineToRunWithoutTheRight();
    void installsTheStaticChecksOnlyForLint();
    void opensTheWorkbenchOnADisplay();
    void walksThroughTheWorkbenchWithoutADisplay();
    void worksThroughALink();
    void explainsItself();
    void refusesAnUnknownCommand();
    void refusesAnUnknownFuzzSubject_data();
    void refusesAnUnknownFuzzSubject();
};

void TestDevScript::configuresBuildsAndTests()
{
    Machine machine;
    QCOMPARE(machine.dev({"test", "-R", "lock"}), 0);
    QCOMPARE(machine.calls(),
             QStringList({"cmake --fresh --preset dev", "cmake --build --preset dev",
                          "ctest --preset dev -j 6 -R lock"}));
}

void TestDevScript::configuresOnlyWhenItMust()
{
    Machine machine;
    QCOMPARE(machine.dev({"test"}), 0);
    QCOMPARE(machine.dev({"test"}), 0);
    QCOMPARE(machine.calls(),
             QStringList({"cmake --build --preset dev", "ctest --preset dev -j 6"}));

    // The whole checkout was moved.
    QVERIFY(QDir(machine.path("")).rename("checkout", "moved"));
    QCOMPARE(machine.dev({"test"}, "moved/dev"), 0);
    QCOMPARE(machine.calls().first(), QString("cmake --fresh --preset dev"));
}

void TestDevScript::testsUnderTheSanitizers()
{
    Machine machine;
    QCOMPARE(machine.dev({"sanitize"}), 0);
    QCOMPARE(machine.calls(),
             QStringList({"cmake --fresh --preset sanitize", "cmake --build --preset sanitize",
                          "ctest --preset sanitize -j 6"}));
}

void TestDevScript::endsWithTheStatusOfTheTests()
{
    Machine machine;
    machine.fake("ctest", "exit 8");
    QCOMPARE(machine.dev({"test"}), 8);
}

void TestDevScript::runsTheBenchmarks()
{
    Machine machine;
    QCOMPARE(machine.dev({"bench"}), 0);
    QCOMPARE(machine.calls(), QStringList({"cmake --fresh --preset dev",
                                           "cmake --build --preset dev --target run_bench"}));
}

void TestDevScript::triesChangesToTheCode()
{
    Machine machine;
    QStringList installed = machine.packages();
    QVERIFY(installed.removeOne("python3-clang-14"));
    machine.setInstalled(installed);
    machine.fake("id", "echo 0");
    machine.setMutateScript("import os, sys\n"
                            "print(os.getcwd(), sys.argv[1:])\n"
                            "sys.exit(1)\n");
    QCOMPARE(machine.dev({"mutate", "plugin", "--list"}), 1);
    QCOMPARE(machine.calls(),
             QStringList({"apt-get update",
                          "apt-get install -y --no-install-recommends python3-clang-14"}));
    // Paths among the arguments are the caller's.
    QVERIFY2(machine.output().endsWith("\n/ ['plugin', '--list']\n"), qPrintable(machine.output()));
}

void TestDevScript::checksLayoutContractAndSources()
{
    Machine machine;
    QCOMPARE(machine.dev({"lint"}), 0);
    QCOMPARE(
        machine.calls(),
        QStringList({"clang-format --dry-run --Werror foundation/Text.cpp",
                     "cmake --fresh --preset lint", "cmake --build --preset lint",
                     "ctest --test-dir build/lint --output-on-failure --no-tests=error -R "
                     "^test_contract_places$",
                     "clang-tidy --quiet -p build/lint "
                     "--header-filter=/(contract|foundation|bridge|plugin|record|device|save|tools|"
                     "standin|workbench)/.*\\.h$ foundation/Text.cpp"}));

    machine.fake("clang-tidy", "exit 1");
    QVERIFY(machine.dev({"lint"}) != 0);
    machine.fake("clang-format", "exit 1");
    QVERIFY(machine.dev({"lint"}) != 0);
    QCOMPARE(machine.calls().size(), 1);
}

void TestDevScript::installsWhatIsMissingAsRoot()
{
    Machine machine;
    QStringList installed = machine.packages();
    QVERIFY(installed.removeOne("cmake"));
    QVERIFY(installed.removeOne("libqt5webkit5-dev"));
    machine.setInstalled(installed);
    machine.fake("id", "echo 0");
    QCOMPARE(machine.dev({"test"}), 0);
    QCOMPARE(machine.calls().mid(0, 3),
             QStringList({"apt-get update",
                          "apt-get install -y --no-install-recommends cmake libqt5webkit5-dev",
                          "cmake --fresh --preset dev"}));
}

void TestDevScript::installsWhatIsMissingThroughSudo()
{
    Machine machine;
    QStringList installed = machine.packages();
    QVERIFY(installed.removeOne("ccache"));
    machine.setInstalled(installed);
    machine.fake("sudo");
    QCOMPARE(machine.dev({"test"}), 0);
    QCOMPARE(machine.calls().mid(0, 3),
             QStringList({"sudo -n true", "sudo apt-get update",
                          "sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y "
                          "--no-install-recommends ccache"}));
}

void TestDevScript::printsTheLineToRunWithoutTheRight()
{
    Machine machine;
    QStringList installed = machine.packages();
    QVERIFY(installed.removeOne("ninja-build"));
    machine.setInstalled(installed);
    const QString line = "apt-get update && "
                         "apt-get install -y --no-install-recommends ninja-build\n";
    QCOMPARE(machine.dev({"test"}), 1);
    QCOMPARE(machine.calls(), QStringList());
    QVERIFY2(machine.errors().endsWith("\n" + line), qPrintable(machine.errors()));

    // A sudo that would ask for a password, and nobody there to answer.
    machine.fake("sudo", "exit 1");
    QCOMPARE(machine.dev({"test"}), 1);
    QCOMPARE(machine.calls(), QStringList("sudo -n true"));
    QVERIFY2(machine.errors().endsWith("\n" + line), qPrintable(machine.errors()));
}

void TestDevScript::installsTheStaticChecksOnlyForLint()
{
    Machine machine;
    QStringList installed = machine.packages();
    QVERIFY(installed.removeOne("clang-tidy"));
    machine.setInstalled(installed);
    machine.fake("id", "echo 0");
    for (const char *command : {"run", "test", "sanitize", "bench"}) {
        QCOMPARE(machine.dev({command}), 0);
        QVERIFY2(!machine.calls().contains("apt-get update"), command);
    }
    QCOMPARE(machine.dev({"lint"}), 0);
    QCOMPARE(
        machine.calls().mid(0, 2),
        QStringList({"apt-get update", "apt-get install -y --no-install-recommends clang-tidy"}));
}

void TestDevScript::opensTheWorkbenchOnADisplay()
{
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY"}) {
        Machine machine;
        machine.setVariable(variable, ":7");
        machine.setVariable("WORKBENCH_STATUS", "3");
        QCOMPARE(machine.dev({"run", "--style", "dark"}), 3);
        QCOMPARE(machine.calls(),
                 QStringList({"cmake --fresh --preset dev",
                              "cmake --build --preset dev --target orvix-workbench",
                              "workbench --style dark"}));
        // Paths among the options are the caller's.
        QCOMPARE(machine.whereWorkbenchRan(), QDir::rootPath());
    }
}

void TestDevScript::walksThroughTheWorkbenchWithoutADisplay()
{
    Machine machine;
    QCOMPARE(machine.dev({"run"}), 0);
    QCOMPARE(machine.calls().last(),
             "workbench --tour " + machine.path("checkout/tour") + " offscreen");
    QVERIFY2(machine.output().contains(machine.path("checkout/tour")),
             qPrintable(machine.output()));
    QCOMPARE(machine.whereWorkbenchRan(), QDir::rootPath());

    machine.setVariable("WORKBENCH_STATUS", "1");
    QCOMPARE(machine.dev({"run"}), 1);
    QVERIFY2(machine.output().contains(machine.path("checkout/tour")),
             qPrintable(machine.output()));
}

void TestDevScript::worksThroughALink()
{
    Machine machine;
    QVERIFY(QFile::link(machine.path("checkout/dev"), machine.path("dev-link")));
    QCOMPARE(machine.dev({"test"}, "dev-link"), 0);
    QVERIFY(QFileInfo::exists(machine.path("checkout/build/dev/build.ninja")));
}

void TestDevScript::explainsItself()
{
    Machine machine;
    for (const QStringList &arguments :
         {QStringList(), QStringList("help"), QStringList("--help")}) {
        QCOMPARE(machine.dev(arguments), 0);
        for (const char *command :
             {"run", "test", "sanitize", "mutate", "bench", "fuzz", "lint", "help"})
            QVERIFY2(machine.output().contains(QString("./dev %1 ").arg(command)), command);
    }
    QCOMPARE(machine.calls(), QStringList());
}

void TestDevScript::refusesAnUnknownCommand()
{
    Machine machine;
    QCOMPARE(machine.dev({"tset"}), 2);
    QVERIFY(machine.errors().startsWith("./dev tset: no such command\n"));
    QCOMPARE(machine.calls(), QStringList());
}

void TestDevScript::refusesAnUnknownFuzzSubject_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList{"fuzz"};
    QTest::newRow("unknown") << QStringList{"fuzz", "nothing"};
    QTest::newRow("no time") << QStringList{"fuzz", "region", "soon"};
}

void TestDevScript::refusesAnUnknownFuzzSubject()
{
    QFETCH(QStringList, arguments);
    Machine machine;
    QCOMPARE(machine.dev(arguments), 2);
    QVERIFY(machine.errors().startsWith("./dev fuzz SUBJECT [SECONDS]; the subjects:\n"));
    QCOMPARE(machine.calls(), QStringList());
}

int main(int argc, char **argv)
{
    TestDevScript test;
    return runTest(argc, argv, test);
}

#include "test_dev_script.moc"
