#include "bridge/operation/DialogRun.h"
#include "tests/support/TestLog.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Options.h"
#include "workbench/window/MainWindow.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

// The entry that takes the current camera off the network, and puts it back.
class TestUnplugging : public TestBase
{
    Q_OBJECT

private slots:
    void currentCameraIsUnplugged();
    void entryFollowsTheCurrentCamera();
    void menuSavesTheSelectedCameras();
};

namespace {

struct Shown
{
    Shown()
    {
        options.settingsFile = dir.filePath("settings.ini");
        options.pluginFolder = dir.path();
        options.cameras = 2;
        workbench = std::make_unique<Workbench>(options);
        workbench->start(options);
        host().makeCurrent(host().cameras().first()->key());
        workbench->window().refresh();
    }

    StandInHost &host() { return workbench->host(); }
    QAction *entry() { return workbench->window().findChild<QAction *>("unplug"); }

    QTemporaryDir dir;
    Options options;
    std::unique_ptr<Workbench> workbench;
};

}

void TestUnplugging::currentCameraIsUnplugged()
{
    Shown shown;
    const StandInCamera *camera = shown.host().cameras().first();
    shown.entry()->trigger();
    QVERIFY(!camera->state().isConnected);
    QVERIFY(!camera->state().isFound);
    QVERIFY(shown.host().cameras().last()->state().isConnected);
    shown.entry()->trigger();
    QVERIFY(camera->state().isConnected);
    QVERIFY(camera->state().isFound);
    QCOMPARE(shown.host().cameras().size(), 2);
}

void TestUnplugging::entryFollowsTheCurrentCamera()
{
    Shown shown;
    QVERIFY(shown.entry()->isEnabled());
    shown.entry()->trigger();
    shown.workbench->window().refresh();
    QVERIFY(shown.entry()->isChecked());
    shown.host().makeCurrent(shown.host().cameras().last()->key());
    shown.workbench->window().refresh();
    QVERIFY(!shown.entry()->isChecked());
    shown.host().addDevice("Dummy", "999.999.999.1", true);
    shown.host().makeCurrent(shown.host().cameras().last()->key());
    shown.workbench->window().refresh();
    QVERIFY(!shown.entry()->isEnabled());
}

void TestUnplugging::menuSavesTheSelectedCameras()
{
    Shown shown;
    shown.host().settings().setValue("qcfg/path", shown.dir.path());
    shown.host().select(shown.host().cameras().first()->key(), true);
    shown.workbench->window().refresh();
    DialogRun::setAnswer([](QDialog &dialog) {
        dialog.findChild<QLineEdit *>("fileNameEdit")->setText("run");
        dialog.findChild<QPushButton *>("ok")->click();
        return dialog.result();
    });
    shown.workbench->window().findChild<QAction *>("saveCameraFile")->trigger();
    DialogRun::setAnswer({});
    QVERIFY(QFile::exists(shown.dir.filePath("run.qcfg")));
}

int main(int argc, char **argv)
{
    TestUnplugging test;
    return runTest(argc, argv, test);
}

#include "test_unplugging.moc"
