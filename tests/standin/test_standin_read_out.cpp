#include "plugin/PLG_Common.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <memory>
#include <stdexcept>

namespace {

// A tool with a panel and a region for each camera.
class RegionTool : public PLG_Common
{
public:
    explicit RegionTool(const QString &name = QStringLiteral("t_region"))
    {
        m_toolName = name;
        m_hasPanel = true;
    }

    void onClosed() override
    {
        if (failing)
            throw std::runtime_error("the tool is out of order");
        PLG_Common::onClosed();
    }

    QRect region(DOC_Interface *doc) override
    {
        if (failing)
            throw std::runtime_error("the tool is out of order");
        return regions.value(doc);
    }

    void setRegion(DOC_Interface *doc, const QRect &rect, bool fromUser) override
    {
        if (failing)
            throw std::runtime_error("the tool is out of order");
        regions.insert(doc, rect);
        told.append(fromUser);
    }

    QHash<DOC_Interface *, QRect> regions;
    QList<bool> told;
    bool failing = false;
};

}

// The region of a tool becomes what the cameras read out.
class TestStandInReadOut : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void toolBeginsWithWhatTheCamerasRead();
    void picturesAreToldToChange();
    void otherToolsEditNoReadOut();
    void cameraReadsTheRegionWhenItIsSentItsSettings();
    void regionIsFittedToTheCamera();
    void lockedCamerasReadTheirOwnRegions();
    void dividedPictureLandsOnTheWholeSensor();
    void binningThatIsOffDividesNothing();
    void failingToolLeavesTheRegion();
    void toolThatFailsAtItsBeginEditsNothing();
    void cameraComesWhileTheToolFails();
    void toolThatFailsAtItsEndLeavesThePictures();
    void toolThatIsDeletedLeavesThePictures();

private:
    std::unique_ptr<StandInHost> m_host;
    StandInCamera *m_first = nullptr;
    StandInCamera *m_second = nullptr;
};

void TestStandInReadOut::init()
{
    TestBase::init();
    m_host = std::make_unique<StandInHost>();
    StandInCamera::Description description; // a sensor of 1024 by 1024
    description.region = QRect(100, 200, 640, 480);
    m_first = m_host->addCamera(description);
    m_second = m_host->addCamera(description);
    m_host->makeCurrent(m_first->key());
}

void TestStandInReadOut::cleanup()
{
    m_host.reset();
    TestBase::cleanup();
}

void TestStandInReadOut::toolBeginsWithWhatTheCamerasRead()
{
    RegionTool tool;
    m_host->addPlugin(&tool);
    QCOMPARE(m_first->pictureSize(), QSize(640, 480));
    m_host->openPluginByName("t_region");
    QVERIFY(m_host->isReadOutEdited());
    QCOMPARE(tool.told, QList<bool>({false, false}));
    QCOMPARE(tool.regions.value(m_first), QRect(100, 200, 640, 480));
    QCOMPARE(tool.regions.value(m_second), QRect(100, 200, 640, 480));
    QCOMPARE(m_first->imageSize(), QSize(1024, 1024));
    QCOMPARE(m_first->frame(0).size(), QSize(1024, 1024));

    StandInCamera *third = m_host->addCamera();
    QCOMPARE(tool.regions.value(third), QRect(192, 272, 640, 480));
    QCOMPARE(tool.told, QList<bool>({false, false, false}));

    m_host->closePluginByName("t_region");
    QVERIFY(!m_host->isReadOutEdited());
    QCOMPARE(m_first->imageSize(), QSize(640, 480));
    m_host->removePlugin(&tool);
}

// Views draw anew, and find the picture as it is then.
void TestStandInReadOut::picturesAreToldToChange()
{
    RegionTool tool;
    m_host->addPlugin(&tool);
    QHash<DOCKEY, QSize> pictures;
    connect(m_host->events(), &StandInEvents::cameraSettingsChanged, this,
            [&](DOCKEY key) { pictures.insert(key, m_host->camera(key)->pictureSize()); });
    const auto all = [this](const QSize &size) {
        return QHash<DOCKEY, QSize>{{m_first->key(), size}, {m_second->key(), size}};
    };
    m_host->openPluginByName("t_region");
    QCOMPARE(pictures, all({1024, 1024}));
    m_host->closePluginByName("t_region");
    QCOMPARE(pictures, all({640, 480}));
    m_host->removePlugin(&tool);
}

void TestStandInReadOut::otherToolsEditNoReadOut()
{
    RegionTool crop("t_crop");
    m_host->addPlugin(&crop);
    m_host->openPluginByName("t_crop");
    QVERIFY(!m_host->isReadOutEdited());
    QCOMPARE(crop.told, QList<bool>());
    crop.regions.insert(m_first, QRect(0, 0, 100, 100));
    m_first->notifyChange(1, false);
    QCOMPARE(m_first->deviceSettings().region, QRect(100, 200, 640, 480));
    QCOMPARE(m_first->pictureSize(), QSize(640, 480));
    m_host->removePlugin(&crop);

    RegionTool other("t_other");
    m_host->readOut().tools().insert("t_other");
    m_host->addPlugin(&other);
    m_host->openPluginByName("t_other");
    QVERIFY(m_host->isReadOutEdited());
    m_host->removePlugin(&other);
}

void TestStandInReadOut::cameraReadsTheRegionWhenItIsSentItsSettings()
{
    RegionTool tool;
    m_host->addPlugin(&tool);
    m_host->openPluginByName("t_region");
    tool.regions.insert(m_first, QRect(10, 20, 300, 200));
    QCOMPARE(m_first->deviceSettings().region, QRect(100, 200, 640, 480));
    QList<DOCKEY> changed;
    connect(m_host->events(), &StandInEvents::cameraSettingsChanged, this,
            [&](DOCKEY key) { changed.append(key); });
    m_first->notifyChange(1, false);
    QCOMPARE(m_first->deviceSettings().region, QRect(10, 20, 300, 200));
    QCOMPARE(m_first->settings().region, QRect(10, 20, 300, 200));
    QCOMPARE(changed, QList<DOCKEY>({m_first->key()}));
    QCOMPARE(m_second->deviceSettings().region, QRect(100, 200, 640, 480));
    m_first->notifyChange(1, false);
    QCOMPARE(changed.size(), 1); // nothing new
    QCOMPARE(m_host->undoSteps()->count(), 0);
    m_host->closePluginByName("t_region");
    QCOMPARE(m_first->pictureSize(), QSize(300, 200));
    m_host->removePlugin(&tool);
}

void TestStandInReadOut::regionIsFittedToTheCamera()
{
    RegionTool tool;
    m_host->addPlugin(&tool);
    m_host->openPluginByName("t_region");
    tool.regions.insert(m_first, QRect(1000, -5, 300, 4));
    m_first->notifyChange(1, false);
    QCOMPARE(m_first->deviceSettings().region, QRect(724, 0, 300, 16)); // 1024 - 300, at least 16
    QCOMPARE(m_first->settings(), m_first->deviceSettings());
    m_host->removePlugin(&tool);
}

void TestStandInReadOut::lockedCamerasReadTheirOwnRegions()
{
    RegionTool tool;
    m_host->addPlugin(&tool);
    m_second->setShutterSpeed(2000);
    m_second->setRecordRate(500);
    m_host->setTrelvikLock(true);
    m_host->clearUndoStack();
    m_host->openPluginByName("t_region");
    tool.regions.insert(m_first, QRect(10, 20, 300, 200));
    tool.regions.insert(m_second, QRect(30, 40, 300, 200));
    const int sent = m_second->sendCount();
    m_host->updateUI(1, false);
    QCOMPARE(m_first->deviceSettings().region, QRect(10, 20, 300, 200));
    QCOMPARE(m_second->deviceSettings().region, QRect(30, 40, 300, 200));
    QCOMPARE(m_second->sendCount(), sent + 1);
    QCOMPARE(m_second->deviceSettings().shutterSpeed, 2000u); // set before, and not by the tool
    QCOMPARE(m_second->deviceSettings().recordRate, 500u);
    QCOMPARE(m_host->undoSteps()->count(), 0); // the tool has its own steps

    // What else is set goes to all of them, and leaves the regions.
    CameraSettings edited = m_first->settings();
    edited.shutterSpeed = 4000;
    m_first->editSettings(edited);
    m_host->updateUI(1, false);
    QCOMPARE(m_second->deviceSettings().shutterSpeed, 4000u);
    QCOMPARE(m_second->deviceSettings().recordRate, 500u);
    QCOMPARE(m_second->deviceSettings().region, QRect(30, 40, 300, 200));
    edited.recordRate = 2000;
    m_first->editSettings(edited);
    m_host->updateUI(1, false);
    QCOMPARE(m_second->deviceSettings().recordRate, 2000u);
    QCOMPARE(m_second->deviceSettings().shutterSpeed, 4000u);
    m_host->removePlugin(&tool);
}

// The tool counts pixels that are read, each of which is several of the sensor.
void TestStandInReadOut::dividedPictureLandsOnTheWholeSensor()
{
    m_host->state().features.insert("binning");
    m_first->setBinningLevel(1);
    m_first->state().hasScaleDivider = true;
    m_first->state().scaleDivider = 2;
    RegionTool tool;
    m_host->addPlugin(&tool);
    m_host->openPluginByName("t_region");
    QCOMPARE(m_first->imageSize(), QSize(1024, 1024));
    tool.regions.insert(m_first, QRect(QPoint(9, 18), QPoint(309, 218)));
    m_first->notifyChange(1, false);
    // 9 / 4 = 2, 18 / 4 = 4, 309 / 4 = 77, 218 / 4 = 54: 76 by 51 pixels of 4 by 4.
    QCOMPARE(m_first->deviceSettings().region, QRect(8, 16, 304, 204));
    m_host->closePluginByName("t_region");
    QCOMPARE(m_first->imageSize(), QSize(76, 51));
    m_host->removePlugin(&tool);
}

void TestStandInReadOut::binningThatIsOffDividesNothing()
{
    m_first->setBinningLevel(1);
    RegionTool tool;
    m_host->addPlugin(&tool);
    m_host->openPluginByName("t_region");
    tool.regions.insert(m_first, QRect(9, 18, 301, 201));
    m_first->notifyChange(1, false);
    QCOMPARE(m_first->deviceSettings().region, QRect(9, 18, 301, 201));
    m_host->removePlugin(&tool);
}

void TestStandInReadOut::failingToolLeavesTheRegion()
{
    RegionTool tool;
    m_host->addPlugin(&tool);
    m_host->openPluginByName("t_region");
    tool.failing = true;
    m_first->notifyChange(1, false);
    QCOMPARE(m_first->deviceSettings().region, QRect(100, 200, 640, 480));
    QCOMPARE(m_host->handledErrors(), QStringList("the tool is out of order"));
    tool.failing = false;
    m_host->removePlugin(&tool);
}

void TestStandInReadOut::toolThatFailsAtItsBeginEditsNothing()
{
    RegionTool tool;
    m_host->addPlugin(&tool);
    tool.failing = true;
    QVERIFY_EXCEPTION_THROWN(m_host->openPluginByName("t_region"), std::runtime_error);
    QVERIFY(!m_host->isReadOutEdited());
    QCOMPARE(m_first->pictureSize(), QSize(640, 480));
    tool.failing = false;
    m_host->openPluginByName("t_region");
    QVERIFY(m_host->isReadOutEdited());
    m_host->removePlugin(&tool);
}

void TestStandInReadOut::cameraComesWhileTheToolFails()
{
    RegionTool tool;
    m_host->addPlugin(&tool);
    m_host->openPluginByName("t_region");
    tool.failing = true;
    StandInCamera *third = m_host->addCamera();
    QVERIFY(third);
    QCOMPARE(m_host->handledErrors(), QStringList("the tool is out of order"));
    tool.failing = false;
    m_host->removePlugin(&tool);
}

void TestStandInReadOut::toolThatFailsAtItsEndLeavesThePictures()
{
    RegionTool tool;
    m_host->addPlugin(&tool);
    m_host->openPluginByName("t_region");
    tool.failing = true;
    QVERIFY_EXCEPTION_THROWN(m_host->closePluginByName("t_region"), std::runtime_error);
    QVERIFY(!m_host->isReadOutEdited());
    QCOMPARE(m_first->pictureSize(), QSize(640, 480));
    tool.failing = false;
    m_host->removePlugin(&tool);
}

void TestStandInReadOut::toolThatIsDeletedLeavesThePictures()
{
    auto tool = std::make_unique<RegionTool>();
    m_host->addPlugin(tool.get());
    m_host->openPluginByName("t_region");
    QVERIFY(m_host->isReadOutEdited());
    tool.reset();
    QVERIFY(!m_host->isReadOutEdited());
    QCOMPARE(m_first->pictureSize(), QSize(640, 480));
}

int main(int argc, char **argv)
{
    TestStandInReadOut test;
    return runTest(argc, argv, test);
}

#include "test_standin_read_out.moc"
