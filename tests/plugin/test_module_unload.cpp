#include "contract/PLG_Interface.h"
#include "standin/host/StandInHost.h"
#include "standin/tools/PluginLoader.h"
#include "tests/support/TestLog.h"

#include <QFile>

#include <memory>

// The module in the stand-in host, and what the host still holds when the module has gone. Under
// the address sanitizer a text that the module took along ends the test.

class TestModuleUnload : public TestBase
{
    Q_OBJECT

private slots:
    void buttonBearsTheTranslatedLabel();
    void lockReachesTheCamerasThroughTheModule();
    void hostReadsAndDestroysEverythingAfterwards();
    void moduleIsLoadedAndUnloadedAgainAndAgain();
};

namespace {

bool isMapped()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("t_multilock.orvix");
}

PLG_Interface *loadInto(StandInHost &host, PluginLoader &loader)
{
    PLG_Interface *tool = loader.load(QStringLiteral(MODULE_FILE));
    if (tool)
        host.addPlugin(tool);
    return tool;
}

}

void TestModuleUnload::buttonBearsTheTranslatedLabel()
{
    StandInHost host;
    PluginLoader loader;
    PLG_Interface *tool = loadInto(host, loader);
    QVERIFY(tool);
    QCOMPARE(host.translationFiles(), QStringList({"lockcameratr_en.qm"}));
    QCOMPARE(host.toolLabel(tool), QStringLiteral("Lock Camera"));
    host.removePlugin(tool);
    QCOMPARE(host.translationFiles(), QStringList());
}

void TestModuleUnload::lockReachesTheCamerasThroughTheModule()
{
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    PluginLoader loader;
    PLG_Interface *tool = loadInto(host, loader);
    QVERIFY(tool);
    host.clearJournal();
    tool->activate();
    QCOMPARE(host.journal(), QStringList({"setTrelvikLock(true)"}));
    QVERIFY(tool->isChecked(first, false));
    second->setRecordRate(2000);
    QCOMPARE(first->recordRate(), 2000u);
    tool->deactivate();
    QVERIFY(!tool->isChecked(first, false));
    second->setRecordRate(1000);
    QCOMPARE(first->recordRate(), 2000u);
    host.removePlugin(tool);
}

void TestModuleUnload::hostReadsAndDestroysEverythingAfterwards()
{
    QStringList kept;
    {
        auto host = std::make_unique<StandInHost>();
        StandInCamera *camera = host->addCamera();
        host->addCamera();
        {
            PluginLoader loader;
            PLG_Interface *tool = loadInto(*host, loader);
            QVERIFY(tool);
            kept << tool->name() << tool->acceptQuestion() << host->toolLabel(tool);
            // Keys and values that the module makes and the host stores.
            host->openPluginByName(tool->name());
            host->setToolState(tool->name(), true);
            host->setQuickTool(tool->name());
            tool->isChecked(camera, true);
            tool->onMousePress(QPoint(5, 5), int(camera->key()));
            tool->onMouseMove(QPoint(6, 6), int(camera->key()));
            tool->onMouseRelease(QPoint(6, 6), int(camera->key()));
            {
                LogCapture log;
                tool->pageHtml();
                kept << log.texts();
            }
            host->removePlugin(tool);
        }
        QVERIFY(!isMapped());
        QVERIFY(host->journal().contains(QStringLiteral("setTrelvikLock(true)")));
        QVERIFY(host->toolState(QStringLiteral("t_multilock")));
        QCOMPARE(host->quickTool(), QStringLiteral("t_multilock"));
        kept << host->journal().join(QLatin1Char('\n'));
    }
    QCOMPARE(kept.mid(0, 4), QStringList({"t_multilock", "Do you want to accept?", "Lock Camera",
                                          "Not Found \":/t_multilock.html\""}));
}

void TestModuleUnload::moduleIsLoadedAndUnloadedAgainAndAgain()
{
    StandInHost host;
    host.addCamera();
    for (int round = 0; round < 20; ++round) {
        PluginLoader loader;
        PLG_Interface *tool = loadInto(host, loader);
        QVERIFY(tool);
        QCOMPARE(host.toolLabel(tool), QStringLiteral("Lock Camera"));
        tool->activate();
        host.removePlugin(tool);
        loader.unloadAll();
        QVERIFY(!isMapped());
        QVERIFY(host.plugins().isEmpty());
    }
}

int main(int argc, char *argv[])
{
    TestModuleUnload test;
    return runTest(argc, argv, test);
}

#include "test_module_unload.moc"
