#include "bridge/page/GUI_WebView.h"
#include "standin/documents/StandInCamera.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"
#include "workbench/log/LogModel.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/window/MainWindow.h"

#include <QAction>
#include <QDockWidget>

using namespace PageHand;

namespace {

/// The window with the list of devices and the page that works on the selection.
struct Shown
{
    explicit Shown(int cameras = 0)
    {
        for (int i = 0; i < cameras; ++i)
            host.addCamera();
    }

    bool open()
    {
        window = std::make_unique<MainWindow>(host, log);
        window->show();
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window.get()) || !QTest::qWaitFor([this] {
                return window->controlPanel()->isLoaded() && window->devicePanel()->isLoaded();
            }))
            return false;
        host.clearJournal();
        return true;
    }

    // Brings the page of the selection before that of the devices.
    bool raiseControl()
    {
        auto *dock = window->findChild<QDockWidget *>("controlDock");
        dock->raise();
        return QTest::qWaitFor([this] { return control()->isVisible(); });
    }

    void addDevice(int heads)
    {
        StandInCamera::Description description;
        description.cameraNumber = 40;
        description.headCount = heads;
        for (description.headNumber = 1; description.headNumber <= heads; ++description.headNumber)
            host.addCamera(description);
    }

    GUI_WebView *control() { return window->controlPanel()->view(); }
    QAction *action(const char *name) { return window->findChild<QAction *>(name); }

    StandInHost host;
    LogModel log{100};
    std::unique_ptr<MainWindow> window;
};

}

// What the window adds to the pages of the devices: their panels, and the groups of its menu.
class TestDevicePanels : public TestBase
{
    Q_OBJECT

private slots:
    void switchesTheInformationForAll();
    void groupIsMadeFromTheSelection();
    void groupIsUndone();
    void groupGoesWithItsLastCamera();
    void closingACameraClosesItsHeads();
};

void TestDevicePanels::switchesTheInformationForAll()
{
    Shown shown(1);
    QVERIFY(shown.open() && shown.raiseControl());
    QVERIFY(!read(shown.control(), "document.getElementById('showInfo').checked").toBool());
    QVERIFY(click(shown.control(), "#showInfo"));
    QVERIFY(shown.host.isInfoShowing());
    QTRY_VERIFY(shown.action("showInformation")->isChecked());
    shown.action("showInformation")->trigger();
    QTRY_VERIFY(!read(shown.control(), "document.getElementById('showInfo').checked").toBool());
}

void TestDevicePanels::groupIsMadeFromTheSelection()
{
    Shown shown(3);
    QVERIFY(shown.open());
    QAction *group = shown.action("group");
    QVERIFY(!group->isEnabled()); // one camera is selected
    shown.host.select(3, true);
    QVERIFY(group->isEnabled());
    group->trigger();
    const QList<DOC_Interface *> pair = {shown.host.camera(1), shown.host.camera(3)};
    QCOMPARE(shown.host.groupMembersOf(shown.host.camera(1)), pair);
    QCOMPARE(shown.host.document(4)->state().documentName, QString("Camera 1, Camera 3"));
    QVERIFY(shown.host.groupMembersOf(shown.host.camera(2)).isEmpty());

    // A camera leaves its group for another.
    shown.host.selectDocs({1, 2}, false);
    group->trigger();
    const QList<DOC_Interface *> other = {shown.host.camera(1), shown.host.camera(2)};
    QCOMPARE(shown.host.groupMembersOf(shown.host.camera(1)), other);
    QVERIFY(shown.host.groupMembersOf(shown.host.camera(3)).isEmpty());
}

void TestDevicePanels::groupIsUndone()
{
    Shown shown(2);
    shown.host.addGroup("pair", {shown.host.camera(1), shown.host.camera(2)});
    QVERIFY(shown.open());
    QAction *ungroup = shown.action("ungroup");
    shown.host.selectDocs({}, false);
    QVERIFY(!ungroup->isEnabled());
    shown.host.select(2, true);
    QVERIFY(ungroup->isEnabled());
    ungroup->trigger();
    QVERIFY(shown.host.groupMembersOf(shown.host.camera(1)).isEmpty());
    QCOMPARE(shown.host.documents().size(), 2);
    QVERIFY(!ungroup->isEnabled());
}

void TestDevicePanels::groupGoesWithItsLastCamera()
{
    Shown shown(3);
    shown.host.addGroup("pair", {shown.host.camera(1), shown.host.camera(2)});
    QVERIFY(shown.open());
    shown.host.closeDocument(1);
    QCOMPARE(shown.host.documentKeys(true, false), QList<DOCKEY>({2, 3, 4}));
    shown.host.closeDocument(2);
    QCOMPARE(shown.host.documentKeys(true, false), QList<DOCKEY>({3}));
}

void TestDevicePanels::closingACameraClosesItsHeads()
{
    Shown shown;
    shown.addDevice(2);
    QVERIFY(shown.open());
    shown.action("closeCurrent")->trigger();
    QVERIFY(shown.host.documents().isEmpty());
}

int main(int argc, char **argv)
{
    TestDevicePanels test;
    return runTest(argc, argv, test);
}

#include "test_device_panels.moc"
