#include "contract/PLG_Interface.h"
#include "standin/host/StandInHost.h"
#include "standin/tools/PluginLoader.h"
#include "tests/support/TestLog.h"

#include <QFile>

namespace {

QString textOf(const QString &name)
{
    QFile file(QStringLiteral(CHECKOUT "/") + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}

// The tool of the README and the guide does what they say.
class TestExample : public TestBase
{
    Q_OBJECT

private slots:
    void tellsHowManyCamerasThereAre();
    void letsAFailureOfTheHostPass();
    void standsInTheReadmeAsItIs();
    void namesEveryPackageInTheReadme();
    void tellsEveryOptionInTheGuide();
};

void TestExample::tellsHowManyCamerasThereAre()
{
    StandInHost host;
    host.addCamera();
    host.addCamera();
    PluginLoader loader;
    PLG_Interface *tool = loader.load(QStringLiteral(EXAMPLE));
    QVERIFY(tool);
    QCOMPARE(tool->name(), QString("t_count"));
    host.addPlugin(tool);
    host.clearJournal();
    tool->activate();
    QCOMPARE(host.messages().size(), 1);
    QCOMPARE(host.messages().last().text, QString("2 cameras"));
    QCOMPARE(host.journal().first(), QString("deviceKeys(true)"));
    host.removePlugin(tool);
}

void TestExample::letsAFailureOfTheHostPass()
{
    StandInHost host;
    PluginLoader loader;
    PLG_Interface *tool = loader.load(QStringLiteral(EXAMPLE));
    QVERIFY(tool);
    host.addPlugin(tool);
    host.failOn("deviceKeys");
    QVERIFY_EXCEPTION_THROWN(tool->activate(), std::exception);
    QVERIFY(host.messages().isEmpty());
    host.removePlugin(tool);
}

void TestExample::standsInTheReadmeAsItIs()
{
    const QString readme = textOf("README.md");
    for (const char *file : {"examples/t_count/PLG_count.cpp", "examples/t_count/CMakeLists.txt"}) {
        const QString text = textOf(file);
        QVERIFY2(!text.isEmpty(), file);
        QVERIFY2(readme.contains("\n" + text + "```\n"), file);
    }
}

void TestExample::namesEveryPackageInTheReadme()
{
    const QString readme = textOf("README.md");
    int packages = 0;
    for (const QString &line : textOf("packages.txt").split('\n', Qt::SkipEmptyParts)) {
        if (line.startsWith('#'))
            continue;
        ++packages;
        const QString package = line.section(' ', 0, 0);
        QVERIFY2(readme.contains("`" + package + "`"), qPrintable(package));
    }
    QVERIFY(packages > 10);
}

void TestExample::tellsEveryOptionInTheGuide()
{
    const QString guide = textOf("docs/workbench.md");
    for (const char *option :
         {"--plugins DIR", "--settings FILE", "--pages DIR", "--cameras N", "--open FOLDER",
          "--style light", "--tour DIR", "--walk NAME", "--help"})
        QVERIFY2(guide.contains(QString("| `") + option), option);
}

int main(int argc, char **argv)
{
    TestExample test;
    return runTest(argc, argv, test);
}

#include "test_example.moc"
