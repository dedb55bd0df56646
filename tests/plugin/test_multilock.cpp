#include "contract/makeButtonPlugin.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "tools/multilock/PLG_multilock.h"

#include <memory>

class TestMultilock : public TestBase
{
    Q_OBJECT

private slots:
    void factoryMakesTheLockTool();
    void activateLocksAndNothingElse();
    void deactivateReleasesAndForgetsTheView();
    void pressingTwiceRepeatsTheCall();
    void checkedFollowsTheHost();
    void withoutDocumentItIsNeverChecked();
    void documentIsNeverAsked();
    void closeToolDoesNothingWhateverTheKind();
    void itHasNeitherPageNorDialog();
};

namespace {

std::unique_ptr<PLG_Interface> makeTool(StandInHost &host)
{
    std::unique_ptr<PLG_Interface> tool(makeButtonPlugin());
    tool->setHost(&host);
    return tool;
}

}

void TestMultilock::factoryMakesTheLockTool()
{
    std::unique_ptr<PLG_Interface> tool(makeButtonPlugin());
    QVERIFY(tool != nullptr);
    QVERIFY(dynamic_cast<PLG_multilock *>(tool.get()) != nullptr);
    QCOMPARE(tool->name(), QStringLiteral("t_multilock"));
    QCOMPARE(tool->buttonKind(), 1);
    QCOMPARE(tool->pluginType(), 2);
    QVERIFY(!tool->hasPanel());
    QVERIFY(!tool->suspendsView());
    QCOMPARE(tool->checkKind(), 0);
    QCOMPARE(tool->quickToolMode(), 0);
    for (int mode = 0; mode <= 2; ++mode)
        QVERIFY(tool->isModeAllowed(mode));
    QCOMPARE(sizeof(PLG_multilock), sizeof(PLG_Button));
}

void TestMultilock::activateLocksAndNothingElse()
{
    StandInHost host;
    auto tool = makeTool(host);
    tool->activate();
    QCOMPARE(host.journal(), QStringList({"setTrelvikLock(true)"}));
}

void TestMultilock::deactivateReleasesAndForgetsTheView()
{
    StandInHost host;
    auto tool = makeTool(host);
    tool->deactivate();
    QCOMPARE(host.journal(), QStringList({"setTrelvikLock(false)"}));
    QVERIFY(tool->viewWidget() == nullptr);
}

void TestMultilock::pressingTwiceRepeatsTheCall()
{
    StandInHost host;
    auto tool = makeTool(host);
    tool->activate();
    tool->activate();
    tool->deactivate();
    tool->deactivate();
    QCOMPARE(host.journal(), QStringList({"setTrelvikLock(true)", "setTrelvikLock(true)",
                                          "setTrelvikLock(false)", "setTrelvikLock(false)"}));
}

void TestMultilock::checkedFollowsTheHost()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    auto tool = makeTool(host);
    QVERIFY(!tool->isChecked(camera, false));
    tool->activate();
    QVERIFY(tool->isChecked(camera, false));
    host.setTrelvikLock(false); // released elsewhere in the application
    QVERIFY(!tool->isChecked(camera, false));
    host.setTrelvikLock(true);
    QVERIFY(tool->isChecked(camera, true));
}

void TestMultilock::withoutDocumentItIsNeverChecked()
{
    StandInHost host;
    auto tool = makeTool(host);
    tool->activate();
    QVERIFY(!tool->isChecked(nullptr, false));
}

void TestMultilock::documentIsNeverAsked()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    auto tool = makeTool(host);
    tool->activate();
    host.clearJournal();
    QVERIFY(tool->isChecked(camera, false));
    QCOMPARE(host.journal(), QStringList({"currentMode()", "isTrelvikLocked()"}));
}

namespace {

class LockToolWithDialogKind : public PLG_multilock
{
public:
    LockToolWithDialogKind() { m_checkKind = 6; }
    int closings = 0;
    void closeDialog() override { ++closings; }
};

}

void TestMultilock::closeToolDoesNothingWhateverTheKind()
{
    StandInHost host;
    LockToolWithDialogKind tool;
    tool.setHost(&host);
    tool.closeTool();
    QCOMPARE(tool.closings, 0);
    QCOMPARE(host.journal(), QStringList());
}

void TestMultilock::itHasNeitherPageNorDialog()
{
    StandInHost host;
    auto tool = makeTool(host);
    LogCapture log;
    QCOMPARE(tool->pageHtml(), QString());
    QCOMPARE(log.texts(QtWarningMsg), QStringList({"Not Found \":/t_multilock.html\""}));
    QVERIFY(tool->mediator() == nullptr);
    QVERIFY(tool->ensureDialog(true) == nullptr);
}

int main(int argc, char *argv[])
{
    TestMultilock test;
    return runTest(argc, argv, test);
}

#include "test_multilock.moc"
