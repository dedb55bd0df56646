#include "foundation/Keys.h"
#include "tests/support/TestLog.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Options.h"
#include "workbench/window/MainWindow.h"

#include <QAction>
#include <QTemporaryDir>

#include <memory>

// The menu "Picture" works on the view of the current document alone.
class TestViewActions : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void turnsByQuarters();
    void flipsAsItIsSeen();
    void zoomsByPowersOfTwo();
    void zoomsFromAFittingPicture();
    void keepsZoomWithinItsLimits();
    void bins();
    void showsTheStateOfTheCurrentView();
    void offersNothingWithoutADocument();

private:
    QAction *action(const char *name) const
    {
        return m_workbench->window().findChild<QAction *>(name);
    }
    StandInCamera &camera(int index) const { return *m_workbench->host().cameras().at(index); }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Workbench> m_workbench;
};

void TestViewActions::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
    Options options;
    options.settingsFile = m_dir->filePath("settings.ini");
    options.pluginFolder = m_dir->path();
    options.cameras = 2;
    m_workbench = std::make_unique<Workbench>(options);
    m_workbench->start(options);
    m_workbench->host().makeCurrent(camera(0).key());
}

void TestViewActions::cleanup()
{
    m_workbench.reset();
    m_dir.reset();
    TestBase::cleanup();
}

void TestViewActions::turnsByQuarters()
{
    for (const float turned : {0.25f, 0.5f, 0.75f, 0.0f}) {
        action("turnRight")->trigger();
        QCOMPARE(camera(0).viewRotation(), turned);
    }
    action("turnLeft")->trigger();
    QCOMPARE(camera(0).viewRotation(), 0.75f);
    QVERIFY(camera(0).isTransposed());
    QCOMPARE(camera(1).viewRotation(), 0.0f);
}

void TestViewActions::flipsAsItIsSeen()
{
    action("flipHorizontally")->trigger();
    QVERIFY(camera(0).isFlippedHorizontally());
    QVERIFY(!camera(0).isFlippedVertically());
    action("flipVertically")->trigger();
    QVERIFY(camera(0).isFlippedHorizontally());
    QVERIFY(camera(0).isFlippedVertically());
    action("flipHorizontally")->trigger();
    QVERIFY(!camera(0).isFlippedHorizontally());
    QVERIFY(camera(0).isFlippedVertically());
    QVERIFY(!camera(1).isFlippedVertically());
}

void TestViewActions::zoomsByPowersOfTwo()
{
    action("zoomToPixels")->trigger();
    QCOMPARE(camera(0).state().zoom, 1.0);
    action("zoomIn")->trigger();
    QCOMPARE(camera(0).state().zoom, 2.0);
    action("zoomOut")->trigger();
    action("zoomOut")->trigger();
    QCOMPARE(camera(0).state().zoom, 0.5);
    action("zoomToFit")->trigger();
    QCOMPARE(camera(0).state().zoom, 0.0);
    QCOMPARE(camera(1).state().zoom, 0.0);
}

void TestViewActions::zoomsFromAFittingPicture()
{
    // 640x480 in 480x360: three quarters.
    camera(0).setViewSize(QSize(480, 360));
    action("zoomIn")->trigger();
    QCOMPARE(camera(0).state().zoom, 1.0);
    action("zoomToFit")->trigger();
    action("zoomOut")->trigger();
    QCOMPARE(camera(0).state().zoom, 0.5);
}

void TestViewActions::keepsZoomWithinItsLimits()
{
    action("zoomToPixels")->trigger();
    for (int i = 0; i < 10; ++i)
        action("zoomIn")->trigger();
    QCOMPARE(camera(0).state().zoom, 16.0);
    for (int i = 0; i < 20; ++i)
        action("zoomOut")->trigger();
    QCOMPARE(camera(0).state().zoom, 0.125);
}

void TestViewActions::bins()
{
    const QString binning = Keys::tools.binning;
    action("bin4")->trigger();
    QCOMPARE(camera(0).binningLevel(), 2);
    QCOMPARE(camera(0).imageSize(), QSize(160, 120));
    QVERIFY(camera(0).isFeatureOn(binning));
    QVERIFY(!camera(1).isFeatureOn(binning)); // each by itself
    action("bin2")->trigger();
    QCOMPARE(camera(0).binningLevel(), 1);
    action("bin1")->trigger();
    QCOMPARE(camera(0).binningLevel(), 0);
    QVERIFY(!camera(0).isFeatureOn(binning));
    QCOMPARE(camera(1).binningLevel(), 0);
}

void TestViewActions::showsTheStateOfTheCurrentView()
{
    action("flipVertically")->trigger();
    action("bin2")->trigger();
    m_workbench->host().makeCurrent(camera(1).key());
    QVERIFY(!action("flipVertically")->isChecked());
    QVERIFY(action("bin1")->isChecked());
    m_workbench->host().makeCurrent(camera(0).key());
    QVERIFY(action("flipVertically")->isChecked());
    QVERIFY(action("bin2")->isChecked());
}

void TestViewActions::offersNothingWithoutADocument()
{
    while (!m_workbench->host().cameras().isEmpty())
        m_workbench->host().closeDocument(camera(0).key());
    for (const char *name : {"turnRight", "turnLeft", "flipHorizontally", "flipVertically",
                             "zoomIn", "zoomOut", "zoomToFit", "zoomToPixels", "bin2"})
        QVERIFY2(!action(name)->isEnabled(), name);
}

int main(int argc, char **argv)
{
    TestViewActions test;
    return runTest(argc, argv, test);
}

#include "test_view_actions.moc"
