#include "contract/PLG_Interface.h"
#include "standin/tools/PluginLoader.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QTemporaryDir>

namespace {

QString zooFile(const QString &name)
{
    return QStringLiteral(ZOO_FOLDER "/") + name;
}

// Whether the file is part of this process now.
bool isMapped(const QString &file)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(file.toUtf8());
}

QStringList texts(const QList<PluginFailure> &failures)
{
    QStringList result;
    for (const PluginFailure &failure : failures)
        result.append(failure.text());
    return result;
}

QStringList names(const QList<PLG_Interface *> &tools)
{
    QStringList result;
    for (PLG_Interface *tool : tools)
        result.append(tool->name());
    return result;
}

}

class TestPluginLoader : public TestBase
{
    Q_OBJECT

private slots:
    void tellsWhichModuleFailedAndWhy_data();
    void tellsWhichModuleFailedAndWhy();
    void unloadsWhatFailed_data();
    void unloadsWhatFailed();
    void loadsTheGoodOnesBesideTheBrokenOnes();
    void loadsTheLockTool();
    void takesOnlyFilesThatEndInOrvix();
    void reportsABrokenLinkAndAMissingFolder();
    void findsNothingToReportInAnEmptyFolder();
    void deletesTheToolBeforeItsModule();
    void deletesWhatWaitsForItsDeletionBeforeTheModuleGoes();
    void unloadsTheLastToolFirst();
    void unloadsOnlyItsOwnTools();
    void keepsAModuleUntilItsLastToolHasGone();
};

void TestPluginLoader::tellsWhichModuleFailedAndWhy_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("text");
    QTest::newRow("no library at all")
        << "zoo_no_library.orvix"
        << "zoo_no_library.orvix: it is no library of this system (file too short)";
    QTest::newRow("no factory") << "zoo_no_factory.orvix"
                                << "zoo_no_factory.orvix: it has no makeButtonPlugin";
    QTest::newRow("null") << "zoo_null.orvix"
                          << "zoo_null.orvix: its makeButtonPlugin returned no tool";
    QTest::newRow("an exception, its text on one line")
        << "zoo_throws.orvix"
        << "zoo_throws.orvix: its makeButtonPlugin failed: no camera driver was found on this "
           "machine";
    QTest::newRow("no exception")
        << "zoo_throws_no_exception.orvix"
        << "zoo_throws_no_exception.orvix: its makeButtonPlugin threw something that is no "
           "exception";
    QTest::newRow("a symbol that nobody defines")
        << "zoo_unresolved.orvix"
        << "zoo_unresolved.orvix: unresolved symbol makeMissingTool(int)";
    QTest::newRow("a library that is not there")
        << "zoo_missing_library.orvix"
        << "zoo_missing_library.orvix: libzoo_library.so: cannot open shared object file: No such "
           "file or directory";
    QTest::newRow("no file") << "zoo_escaped.orvix"
                             << "zoo_escaped.orvix: there is no such file";
    QTest::newRow("a folder") << "."
                              << "plugins: it is not a file";
}

void TestPluginLoader::tellsWhichModuleFailedAndWhy()
{
    QFETCH(QString, file);
    QFETCH(QString, text);
    PluginLoader loader;
    const QString path = QDir::cleanPath(zooFile(file));
    QCOMPARE(loader.load(path), nullptr);
    QCOMPARE(texts(loader.failures()), QStringList(text));
    QCOMPARE(loader.failures().first().file, path);
    QVERIFY(loader.tools().isEmpty());
}

void TestPluginLoader::unloadsWhatFailed_data()
{
    QTest::addColumn<QString>("file");
    for (const char *file : {"zoo_no_factory.orvix", "zoo_null.orvix", "zoo_throws.orvix",
                             "zoo_throws_no_exception.orvix", "zoo_unresolved.orvix"})
        QTest::newRow(file) << file;
}

void TestPluginLoader::unloadsWhatFailed()
{
    QFETCH(QString, file);
    PluginLoader loader;
    loader.load(zooFile(file));
    QCOMPARE(loader.failures().size(), 1);
    QVERIFY(!isMapped(zooFile(file)));
}

void TestPluginLoader::loadsTheGoodOnesBesideTheBrokenOnes()
{
    PluginLoader loader;
    const QList<PLG_Interface *> tools = loader.loadFolder(QStringLiteral(ZOO_FOLDER));
    QCOMPARE(names(tools), QStringList("t_zoo"));
    QCOMPARE(loader.tools(), tools);
    QCOMPARE(loader.fileOf(tools.first()), zooFile("zoo_good.orvix"));

    QStringList failed;
    for (const PluginFailure &failure : loader.failures())
        failed.append(QFileInfo(failure.file).fileName());
    QCOMPARE(failed, QStringList({"zoo_missing_library.orvix", "zoo_no_factory.orvix",
                                  "zoo_no_library.orvix", "zoo_null.orvix", "zoo_throws.orvix",
                                  "zoo_throws_no_exception.orvix", "zoo_unresolved.orvix"}));
}

void TestPluginLoader::loadsTheLockTool()
{
    PluginLoader loader;
    PLG_Interface *tool = loader.load(QStringLiteral(LOCK_TOOL));
    QCOMPARE(texts(loader.failures()), QStringList());
    QVERIFY(tool);
    QCOMPARE(tool->name(), QString("t_multilock"));
    QCOMPARE(tool->pluginType(), 2);
    QCOMPARE(tool->buttonKind(), 1);
}

void TestPluginLoader::takesOnlyFilesThatEndInOrvix()
{
    QTemporaryDir dir;
    for (const char *name : {"b.orvix", "a.orvix", "a.orvix.old", "a.so", "A.ORVIX", "orvix"})
        QVERIFY(QFile::copy(zooFile("zoo_good.orvix"), dir.filePath(name)));
    QVERIFY(QDir(dir.path()).mkdir("folder.orvix"));

    PluginLoader loader;
    const QList<PLG_Interface *> tools = loader.loadFolder(dir.path());
    QCOMPARE(tools.size(), 2);
    QCOMPARE(loader.fileOf(tools.at(0)), dir.filePath("a.orvix"));
    QCOMPARE(loader.fileOf(tools.at(1)), dir.filePath("b.orvix"));
    QCOMPARE(texts(loader.failures()), QStringList());
}

void TestPluginLoader::reportsABrokenLinkAndAMissingFolder()
{
    QTemporaryDir dir;
    QVERIFY(QFile::link(dir.filePath("nowhere"), dir.filePath("t_link.orvix")));

    PluginLoader loader;
    QVERIFY(loader.loadFolder(dir.path()).isEmpty());
    QVERIFY(loader.loadFolder(dir.filePath("missing")).isEmpty());
    QCOMPARE(texts(loader.failures()), QStringList({"t_link.orvix: there is no such file",
                                                    "missing: there is no such folder"}));
}

void TestPluginLoader::findsNothingToReportInAnEmptyFolder()
{
    QTemporaryDir dir;
    PluginLoader loader;
    QVERIFY(loader.loadFolder(dir.path()).isEmpty());
    QCOMPARE(texts(loader.failures()), QStringList());
}

void TestPluginLoader::deletesTheToolBeforeItsModule()
{
    PluginLoader loader;
    QPointer<QObject> tool = loader.load(zooFile("zoo_good.orvix"));
    QVERIFY(isMapped(zooFile("zoo_good.orvix")));

    bool moduleWasThere = false;
    connect(tool, &QObject::destroyed,
            [&] { moduleWasThere = isMapped(zooFile("zoo_good.orvix")); });
    loader.unloadAll();
    QVERIFY(moduleWasThere);
    QVERIFY(!tool);
    QVERIFY(loader.tools().isEmpty());
    QVERIFY(!isMapped(zooFile("zoo_good.orvix")));
}

void TestPluginLoader::deletesWhatWaitsForItsDeletionBeforeTheModuleGoes()
{
    PluginLoader loader;
    PLG_Interface *tool = loader.load(zooFile("zoo_good.orvix"));
    bool moduleWasThere = false;
    auto *dialog = new QObject;
    connect(dialog, &QObject::destroyed,
            [&] { moduleWasThere = isMapped(zooFile("zoo_good.orvix")); });
    connect(tool, &QObject::destroyed, dialog, &QObject::deleteLater);
    loader.unload(tool);
    QVERIFY(moduleWasThere);
}

void TestPluginLoader::unloadsTheLastToolFirst()
{
    QStringList order;
    PluginLoader loader;
    connect(loader.load(zooFile("zoo_good.orvix")), &QObject::destroyed,
            [&] { order.append("first"); });
    connect(loader.load(QStringLiteral(LOCK_TOOL)), &QObject::destroyed,
            [&] { order.append("second"); });
    loader.unloadAll();
    QCOMPARE(order, QStringList({"second", "first"}));
}

void TestPluginLoader::unloadsOnlyItsOwnTools()
{
    PluginLoader loader;
    PluginLoader other;
    PLG_Interface *tool = loader.load(zooFile("zoo_good.orvix"));
    other.unload(tool);
    other.unload(nullptr);
    QCOMPARE(other.fileOf(tool), QString());
    QCOMPARE(names(loader.tools()), QStringList("t_zoo"));
}

void TestPluginLoader::keepsAModuleUntilItsLastToolHasGone()
{
    PluginLoader loader;
    PLG_Interface *first = loader.load(zooFile("zoo_good.orvix"));
    PLG_Interface *second = loader.load(zooFile("zoo_good.orvix"));
    QVERIFY(first != second);
    loader.unload(first);
    QCOMPARE(second->name(), QString("t_zoo"));
    loader.unload(second);
    QVERIFY(!isMapped(zooFile("zoo_good.orvix")));
}

int main(int argc, char **argv)
{
    TestPluginLoader test;
    return runTest(argc, argv, test);
}

#include "test_plugin_loader.moc"
