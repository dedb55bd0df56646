#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/page/GUI_WebView.h"
#include "standin/documents/StandInCamera.h"
#include "tests/support/TestLog.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Options.h"
#include "workbench/tour/PageHand.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/PictureArea.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/ToolBar.h"
#include "workbench/window/ToolPanel.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QWebFrame>
#include <QWindow>

#include <memory>

// The region tool as another team has it: the toolkit is installed, the project of the tool is
// built against it outside of the checkout, and the module is loaded into the workbench, where it
// is worked by mouse, keys and its own page.
class TestRegionTool : public TestBase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void installsNothingOfThisBuild();
    void showsOneSymbol();
    void opensItsPanelByItsButton();
    void closesItsPanelByItsButton();
    void drawsRegionAndHandles();
    void drawsNothingWhenItIsLeft();
    void handlesLandWhereTheyAreDragged_data();
    void handlesLandWhereTheyAreDragged();
    void aDragIsOneUndoStep();
    void aPressAloneIsNoUndoStep();
    void arrowKeysMoveAndResize();
    void reachesAllLockedCameras();
    void fitsOnASmallerSensor();
    void showsTheWholeSensorWhileItIsOpen();
    void takesInACameraThatComesLater();
    void landsOnABinnedCamera();
    void cancelReachesEveryCameraThatWasEdited();
    void undoOfAnotherSettingKeepsTheRegion();
    void staysOnOneCameraWhenToldTo();
    void cameraThatGoesInMidDragEndsIt();
    void panelShowsAndSetsTheRegion();
    void panelCountsInImagePixelsWhenThePictureIsTurned_data();
    void panelCountsInImagePixelsWhenThePictureIsTurned();
    void cancelTakesBackAndLeaves();
    void resetTakesBackAndStays();
    void appliedRegionSurvivesCancel();
    void okKeepsTheRegion();
    void closingThePanelAsksWhenSomethingChanged();
    void optionsLimitTheRegion_data();
    void optionsLimitTheRegion();
    void optionsPageSetsWhatItShows();
    void failingHostHarmsNothing();

private:
    PLG_Interface *tool() const { return m_workbench->loader().tools().value(0); }
    StandInHost &host() const { return m_workbench->host(); }
    StandInCamera *camera(int index) const { return host().cameras().at(index); }
    PictureArea *picture(int index) const;
    QRect regionOf(int index) const { return tool()->region(camera(index)->contract()); }
    QRect readBy(int index) const { return camera(index)->deviceSettings().region; }
    void setRegion(int index, const QRect &rect) const;
    void open() const;
    void press(int index, const QPoint &pixel) const;
    void drag(int index, const QPoint &from, const QPoint &to) const;
    QWindow *window() const;
    QPoint inWindow(int index, const QPoint &pixel) const;
    QPoint inView(int index, const QPoint &pixel) const;
    ToolPanel *panel() const { return m_workbench->window().findChild<ToolPanel *>(); }
    bool waitForPanel() const;
    QVariant evaluate(const QString &script) const;
    void click(const QString &id) const;
    bool setOption(const QString &name, const QVariant &value) const;
    QVariantMap options() const;

    std::unique_ptr<QTemporaryDir> m_place; // of installation and build
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<Workbench> m_workbench;
};

namespace {

const QSize Picture(320, 240);

QRect corners(int left, int top, int right, int bottom)
{
    return QRect(QPoint(left, top), QPoint(right, bottom));
}

// A command that ends with status 0 within five minutes, else its output is told.
bool run(const QStringList &command)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(command.first(), command.mid(1));
    if (process.waitForFinished(300000) && process.exitStatus() == QProcess::NormalExit &&
        process.exitCode() == 0)
        return true;
    qInfo().noquote() << command.join(' ') << process.readAll();
    return false;
}

}

void TestRegionTool::initTestCase()
{
    m_place = std::make_unique<QTemporaryDir>();
    QVERIFY(run({CMAKE, "--install", BUILD, "--prefix", m_place->filePath("prefix")}));

    QDir(m_place->path()).mkdir("project");
    for (const QFileInfo &file : QDir(EXAMPLE).entryInfoList(QDir::Files))
        QVERIFY(QFile::copy(file.filePath(), m_place->filePath("project/" + file.fileName())));
    QVERIFY(run({CMAKE, "-S", m_place->filePath("project"), "-B", m_place->filePath("build"), "-G",
                 "Ninja", "-DCMAKE_PREFIX_PATH=" + m_place->filePath("prefix"),
                 "-DCMAKE_CXX_COMPILER=" COMPILER, "-DCMAKE_CXX_COMPILER_LAUNCHER=" LAUNCHER}));
    QVERIFY(run({CMAKE, "--build", m_place->filePath("build")}));
    QVERIFY(QFileInfo::exists(m_place->filePath("build/t_region.orvix")));
}

void TestRegionTool::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
    Options options;
    options.settingsFile = m_dir->filePath("settings.ini");
    options.pluginFolder = m_place->filePath("build");
    options.cameras = 0;
    m_workbench = std::make_unique<Workbench>(options);
    m_workbench->start(options);
    StandInCamera::Description description;
    description.limits.sensorSize = Picture;
    description.limits.minRegion = QSize(4, 4);
    description.region = corners(80, 60, 239, 179);
    for (int i = 0; i < 2; ++i)
        host().addCamera(description)->setZoom(1.0);
    m_workbench->window().resize(1500, 900);
    m_workbench->window().show();
    m_workbench->window().views()->setRunning(false);
    m_workbench->window().refresh();
    // The views stand in a page, which has to load.
    QVERIFY(QTest::qWaitFor([this] { return picture(1)->width() > 340; }, 10000));
    QVERIFY(tool());
    QCOMPARE(tool()->name(), QString("t_region"));
}

void TestRegionTool::cleanup()
{
    m_workbench.reset();
    m_dir.reset();
    TestBase::cleanup();
}

PictureArea *TestRegionTool::picture(int index) const
{
    return m_workbench->window().views()->view(camera(index)->key())->findChild<PictureArea *>();
}

void TestRegionTool::setRegion(int index, const QRect &rect) const
{
    tool()->setRegion(camera(index)->contract(), rect, false);
    host().events()->viewChanged(camera(index)->key());
}

void TestRegionTool::open() const
{
    m_workbench->window().tools()->action(tool())->trigger();
}

// Events as the window system sends them: the window finds the widget.
void TestRegionTool::press(int index, const QPoint &pixel) const
{
    QTest::mouseMove(window(), inWindow(index, pixel));
    QTest::mousePress(window(), Qt::LeftButton, Qt::NoModifier, inWindow(index, pixel));
}

void TestRegionTool::drag(int index, const QPoint &from, const QPoint &to) const
{
    press(index, from);
    // Some way between, as a hand does it.
    QTest::mouseMove(window(), inWindow(index, from + (to - from) / 2));
    QTest::mouseMove(window(), inWindow(index, to));
    QTest::mouseRelease(window(), Qt::LeftButton, Qt::NoModifier, inWindow(index, to));
}

QWindow *TestRegionTool::window() const
{
    return m_workbench->window().windowHandle();
}

QPoint TestRegionTool::inWindow(int index, const QPoint &pixel) const
{
    return picture(index)->mapTo(&m_workbench->window(), inView(index, pixel));
}

// A pixel of the picture at one view pixel each, which lies in the middle of its view: turned
// clockwise, then flipped as it is seen.
QPoint TestRegionTool::inView(int index, const QPoint &pixel) const
{
    const DocumentState &state = camera(index)->state();
    QPoint point = pixel;
    QSize size = Picture;
    for (int turn = 0; turn < state.quarterTurns; ++turn) {
        point = QPoint(size.height() - 1 - point.y(), point.x());
        size.transpose();
    }
    if (state.isFlippedHorizontally)
        point.setX(size.width() - 1 - point.x());
    if (state.isFlippedVertically)
        point.setY(size.height() - 1 - point.y());
    const QSize view = picture(index)->size();
    return point + QPoint((view.width() - size.width()) / 2, (view.height() - size.height()) / 2);
}

bool TestRegionTool::waitForPanel() const
{
    return QTest::qWaitFor([this] { return panel()->isLoaded(); }, 10000);
}

QVariant TestRegionTool::evaluate(const QString &script) const
{
    return panel()->view()->page()->mainFrame()->evaluateJavaScript(script);
}

void TestRegionTool::click(const QString &id) const
{
    evaluate(QStringLiteral("document.getElementById('%1').click()").arg(id));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool TestRegionTool::setOption(const QString &name, const QVariant &value) const
{
    bool known = false;
    const bool called = QMetaObject::invokeMethod(
        tool()->ensureDialog(!tool()->ensureDialog(false))->mediator(), "setOption",
        Q_RETURN_ARG(bool, known), Q_ARG(QString, name), Q_ARG(QVariant, value));
    return called && known;
}

QVariantMap TestRegionTool::options() const
{
    QVariantMap values;
    QMetaObject::invokeMethod(tool()->ensureDialog(false)->mediator(), "getOptions",
                              Q_RETURN_ARG(QVariantMap, values));
    return values;
}

void TestRegionTool::installsNothingOfThisBuild()
{
    const QDir prefix(m_place->filePath("prefix"));
    for (const char *file :
         {"include/orvix/plugin/PLG_Button.h", "include/orvix/contract/HostServices.h",
          "include/orvix/bridge/mediator/JS_Mediator_Plugin.h",
          "include/orvix/standin/host/StandInHost.h", "include/orvix/contract/makeButtonPlugin.h"})
        QVERIFY2(prefix.exists(file), file);
    QVERIFY(!prefix.exists("include/orvix/tools"));
    QVERIFY(!prefix.exists("include/orvix/tests"));
    QVERIFY(!prefix.exists("include/orvix/workbench"));
    QFile package;
    for (const char *folder : {"lib", "lib64", "lib/x86_64-linux-gnu"}) {
        package.setFileName(
            prefix.filePath(QString(folder) + "/cmake/OrvixToolkit/OrvixToolkitConfig.cmake"));
        if (package.exists())
            break;
    }
    QVERIFY(package.open(QIODevice::ReadOnly));
    const QByteArray text = package.readAll();
    QVERIFY(!text.contains(BUILD));
    QVERIFY(!text.contains(m_place->path().toUtf8())); // the folder can be moved
    QVERIFY(!text.contains("orvix_contract"));
}

void TestRegionTool::showsOneSymbol()
{
    QProcess nm;
    nm.start("nm", {"-D", "--defined-only", m_place->filePath("build/t_region.orvix")});
    QVERIFY(nm.waitForFinished());
    const QByteArrayList lines = nm.readAllStandardOutput().trimmed().split('\n');
    QCOMPARE(lines.size(), 1);
    QVERIFY(lines.first().endsWith(" T makeButtonPlugin"));
}

void TestRegionTool::opensItsPanelByItsButton()
{
    QVERIFY(panel()->isHidden());
    open();
    QVERIFY(host().isPluginOpen(tool()));
    QVERIFY(host().isTransactionOpen("t_region"));
    QVERIFY(!panel()->isHidden());
    QVERIFY(waitForPanel());
    const QAction *button = m_workbench->window().tools()->action(tool());
    QCOMPARE(button->text(), QString("Region"));
    QVERIFY(button->isChecked());
    // Another press begins no other transaction.
    drag(0, {80, 60}, {31, 41});
    tool()->activate();
    tool()->onCancel();
    QCOMPARE(readBy(0), corners(80, 60, 239, 179));
}

void TestRegionTool::closesItsPanelByItsButton()
{
    open();
    QVERIFY(waitForPanel());
    m_workbench->window().tools()->action(tool())->trigger();
    QVERIFY(panel()->isHidden());
    QCOMPARE(host().currentPlugin(), nullptr);
    QVERIFY(!host().isTransactionOpen("t_region"));
    m_workbench->window().refresh();
    QVERIFY(!m_workbench->window().tools()->action(tool())->isChecked());
}

void TestRegionTool::drawsRegionAndHandles()
{
    open();
    setRegion(0, corners(80, 60, 199, 159));
    const QImage image = picture(0)->grab().toImage();
    const QColor yellow(0xffd23c);
    QCOMPARE(image.pixelColor(inView(0, {100, 60})), yellow);  // the top side
    QCOMPARE(image.pixelColor(inView(0, {199, 120})), yellow); // the right side
    for (const QPoint &handle :
         {QPoint(80, 60), QPoint(139, 60), QPoint(199, 60), QPoint(80, 109), QPoint(199, 109),
          QPoint(80, 159), QPoint(139, 159), QPoint(199, 159)}) {
        // Wider than the line.
        QCOMPARE(image.pixelColor(inView(0, handle + QPoint(2, 2))), yellow);
        QCOMPARE(image.pixelColor(inView(0, handle - QPoint(2, 2))), yellow);
    }
}

void TestRegionTool::drawsNothingWhenItIsLeft()
{
    const QImage before = picture(0)->grab().toImage();
    open();
    QVERIFY(picture(0)->grab().toImage() != before);
    tool()->onCancel();
    QVERIFY(picture(0)->findChildren<QWidget *>().isEmpty());
    drag(0, {80, 60}, {31, 41});
    open();
    QCOMPARE(regionOf(0), corners(80, 60, 239, 179));
}

void TestRegionTool::handlesLandWhereTheyAreDragged_data()
{
    QTest::addColumn<int>("quarterTurns");
    QTest::addColumn<bool>("horizontally");
    QTest::addColumn<bool>("vertically");
    for (int turns = 0; turns < 4; ++turns) {
        for (int flips = 0; flips < 4; ++flips) {
            const QString name =
                QStringLiteral("%1%2%3")
                    .arg(turns * 90)
                    .arg(flips & 1 ? " left to right" : "", flips & 2 ? " top to bottom" : "");
            QTest::newRow(qPrintable(name)) << turns << bool(flips & 1) << bool(flips & 2);
        }
    }
}

void TestRegionTool::handlesLandWhereTheyAreDragged()
{
    QFETCH(int, quarterTurns);
    QFETCH(bool, horizontally);
    QFETCH(bool, vertically);
    struct Drag
    {
        const char *handle;
        QPoint from; // in the picture
        QPoint to;
        QRect result;
    };
    // The region is at 80 to 199, 60 to 159.
    const Drag drags[] = {
        {"top", {140, 60}, {150, 41}, corners(80, 41, 199, 159)},
        {"bottom", {140, 159}, {130, 201}, corners(80, 60, 199, 201)},
        {"left", {80, 110}, {31, 120}, corners(31, 60, 199, 159)},
        {"right", {199, 110}, {271, 100}, corners(80, 60, 271, 159)},
        {"top left", {80, 60}, {31, 41}, corners(31, 41, 199, 159)},
        {"top right", {199, 60}, {271, 41}, corners(80, 41, 271, 159)},
        {"bottom left", {80, 159}, {31, 201}, corners(31, 60, 199, 201)},
        {"bottom right", {199, 159}, {271, 201}, corners(80, 60, 271, 201)},
        {"inside", {140, 110}, {147, 99}, corners(87, 49, 206, 148)},
        {"outside", {20, 20}, {40, 50}, corners(80, 60, 199, 159)},
    };
    camera(0)->setQuarterTurns(quarterTurns);
    camera(0)->setFlips(horizontally, vertically);
    open();
    for (const Drag &each : drags) {
        setRegion(0, corners(80, 60, 199, 159));
        drag(0, each.from, each.to);
        QVERIFY2(regionOf(0) == each.result, each.handle);
        QVERIFY2(readBy(0) == each.result, each.handle);
        QCOMPARE(regionOf(1), corners(80, 60, 239, 179));
        QCOMPARE(readBy(1), corners(80, 60, 239, 179));
        QVERIFY(!QGuiApplication::overrideCursor());
        QCOMPARE(host().openMacros(), 0);
    }
}

void TestRegionTool::aDragIsOneUndoStep()
{
    open();
    setRegion(0, corners(80, 60, 199, 159));
    QStringList calls; // the panel of the calls takes them out of the journal
    connect(host().events(), &StandInEvents::callJournalled, this,
            [&calls](const QString &line) { calls.append(line); });
    drag(0, {199, 159}, {271, 201});
    disconnect(host().events(), nullptr, this, nullptr);
    QVERIFY(calls.contains("[1].notifyChange(1, false)"));
    QCOMPARE(host().undoSteps()->count(), 1);
    host().undoSteps()->undo();
    QCOMPARE(regionOf(0), corners(80, 60, 199, 159));
    host().undoSteps()->redo();
    QCOMPARE(regionOf(0), corners(80, 60, 271, 201));
    QVERIFY(!host().undoSteps()->canRedo());
}

void TestRegionTool::aPressAloneIsNoUndoStep()
{
    open();
    drag(0, {10, 10}, {10, 10});
    QCOMPARE(host().undoSteps()->count(), 0);
    drag(1, {10, 10}, {10, 10});
    QCOMPARE(host().currentKey(), camera(1)->key());
}

void TestRegionTool::arrowKeysMoveAndResize()
{
    open();
    setRegion(0, corners(80, 60, 199, 159));
    DocumentView *view = m_workbench->window().views()->view(camera(0)->key());
    QTest::keyClick(view, Qt::Key_Right);
    QCOMPARE(regionOf(0), corners(81, 60, 200, 159));
    QTest::keyClick(view, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(regionOf(0), corners(81, 60, 200, 160));
    QTest::keyClick(view, Qt::Key_Left, Qt::ShiftModifier | Qt::ControlModifier);
    QCOMPARE(regionOf(0), corners(82, 60, 200, 160));
    QVERIFY(!tool()->isKeyHeld());
    QCOMPARE(host().undoSteps()->count(), 3);
    host().undoSteps()->undo();
    QCOMPARE(regionOf(0), corners(81, 60, 200, 160));
}

void TestRegionTool::reachesAllLockedCameras()
{
    host().setTrelvikLock(true);
    open();
    setRegion(0, corners(80, 60, 199, 159));
    QStringList calls; // the panel of the calls takes them out of the journal
    connect(host().events(), &StandInEvents::callJournalled, this,
            [&calls](const QString &line) { calls.append(line); });
    drag(0, {199, 159}, {271, 201});
    disconnect(host().events(), nullptr, this, nullptr);
    QCOMPARE(regionOf(0), corners(80, 60, 271, 201));
    QCOMPARE(regionOf(1), corners(80, 60, 271, 201));
    QVERIFY(calls.contains("updateUI(1, false)"));
    QCOMPARE(readBy(0), corners(80, 60, 271, 201));
    QCOMPARE(readBy(1), corners(80, 60, 271, 201));
    QCOMPARE(host().undoSteps()->count(), 1);
    host().undoSteps()->undo();
    QCOMPARE(regionOf(0), corners(80, 60, 199, 159));
    QCOMPARE(regionOf(1), corners(80, 60, 239, 179));
    QCOMPARE(readBy(0), corners(80, 60, 199, 159));
    QCOMPARE(readBy(1), corners(80, 60, 239, 179));
    host().undoSteps()->redo();
    QCOMPARE(readBy(0), corners(80, 60, 271, 201));
    QCOMPARE(readBy(1), corners(80, 60, 271, 201));
}

// A locked camera whose sensor is smaller gets what fits on it.
void TestRegionTool::fitsOnASmallerSensor()
{
    StandInCamera::Description small;
    small.limits.sensorSize = QSize(240, 160);
    small.limits.minRegion = QSize(4, 4);
    host().addCamera(small);
    host().setTrelvikLock(true);
    open();
    drag(0, {239, 179}, {271, 201});
    QCOMPARE(readBy(0), corners(80, 60, 271, 201));
    QCOMPARE(readBy(2), corners(48, 18, 239, 159));
}

void TestRegionTool::showsTheWholeSensorWhileItIsOpen()
{
    QCOMPARE(camera(0)->pictureSize(), QSize(160, 120));
    open();
    QCOMPARE(regionOf(0), corners(80, 60, 239, 179)); // what the camera reads
    QCOMPARE(camera(0)->pictureSize(), Picture);
    QCOMPARE(camera(0)->frame(0).size(), Picture);
    // What is not read is darker, where no text stands over it.
    host().showDisplayInfo(false);
    m_workbench->window().refresh();
    const QImage frame = picture(1)->picture();
    const QImage shown = picture(1)->grab().toImage();
    QCOMPARE(shown.pixelColor(inView(1, {80, 60})), frame.pixelColor(80, 60));
    QVERIFY(shown.pixelColor(inView(1, {79, 60})).lightness() <
            frame.pixelColor(79, 60).lightness());
    drag(0, {80, 60}, {31, 41});
    QCOMPARE(camera(0)->pictureSize(), Picture);
    tool()->onOk();
    QCOMPARE(camera(0)->pictureSize(), QSize(209, 139));
    QCOMPARE(camera(1)->pictureSize(), QSize(160, 120));
}

void TestRegionTool::takesInACameraThatComesLater()
{
    open();
    StandInCamera::Description description;
    description.limits.sensorSize = Picture;
    description.limits.minRegion = QSize(4, 4);
    description.region = corners(10, 20, 99, 109);
    host().addCamera(description);
    QCOMPARE(regionOf(2), corners(10, 20, 99, 109));
    tool()->setRegion(camera(2)->contract(), corners(0, 0, 49, 49), true);
    camera(2)->contract()->notifyChange(1, false);
    QCOMPARE(readBy(2), corners(0, 0, 49, 49));
    tool()->onCancel();
    QCOMPARE(readBy(2), corners(10, 20, 99, 109));
}

// The regions are the sensor's, and what a binned camera reads are whole binned pixels of it.
void TestRegionTool::landsOnABinnedCamera()
{
    m_workbench->window().findChild<QAction *>("bin2")->trigger();
    open();
    QCOMPARE(camera(0)->pictureSize(), Picture);
    QCOMPARE(camera(0)->frame(0).size(), Picture);
    drag(0, {239, 179}, {270, 200});
    QCOMPARE(regionOf(0), corners(80, 60, 269, 199)); // the size step counts binned pixels
    QCOMPARE(readBy(0), corners(80, 60, 269, 199));
    m_workbench->window().findChild<QAction *>("bin1")->trigger();
    host().undoSteps()->undo();
    QCOMPARE(regionOf(0), corners(80, 60, 239, 179));
    QCOMPARE(readBy(0), corners(80, 60, 239, 179));
    host().undoSteps()->redo();
    QCOMPARE(readBy(0), corners(80, 60, 269, 199));
    tool()->onOk();
    QCOMPARE(camera(0)->pictureSize(), QSize(190, 140));
}

void TestRegionTool::cancelReachesEveryCameraThatWasEdited()
{
    open();
    drag(0, {239, 179}, {271, 201});
    drag(1, {239, 179}, {200, 150});
    QCOMPARE(readBy(0), corners(80, 60, 271, 201));
    QCOMPARE(readBy(1), corners(80, 60, 200, 150));
    tool()->onCancel();
    QCOMPARE(readBy(0), corners(80, 60, 239, 179));
    QCOMPARE(readBy(1), corners(80, 60, 239, 179));
}

// A change of the shutter while the panel is open leaves the region to the tool.
void TestRegionTool::undoOfAnotherSettingKeepsTheRegion()
{
    open();
    camera(0)->setShutterSpeed(4000);
    drag(0, {239, 179}, {271, 201});
    host().undoSteps()->undo();
    host().undoSteps()->undo();
    QCOMPARE(camera(0)->deviceSettings().shutterSpeed, 1000u);
    QCOMPARE(readBy(0), corners(80, 60, 239, 179));
    host().undoSteps()->redo();
    host().undoSteps()->redo();
    QCOMPARE(camera(0)->deviceSettings().shutterSpeed, 4000u);
    QCOMPARE(readBy(0), corners(80, 60, 271, 201));
}

void TestRegionTool::staysOnOneCameraWhenToldTo()
{
    host().setTrelvikLock(true);
    open();
    QVERIFY(setOption("applyToAll", false));
    setRegion(0, corners(80, 60, 199, 159));
    drag(0, {199, 159}, {271, 201});
    QCOMPARE(regionOf(0), corners(80, 60, 271, 201));
    QCOMPARE(regionOf(1), corners(80, 60, 239, 179));
}

void TestRegionTool::cameraThatGoesInMidDragEndsIt()
{
    open();
    press(0, {140, 110});
    QCOMPARE(host().openMacros(), 1);
    host().closeDocument(camera(0)->key());
    m_workbench->window().refresh();
    QCOMPARE(host().openMacros(), 0);
    QVERIFY(!tool()->isDragging());
    QCOMPARE(host().handledErrors(), QStringList());
    drag(0, {80, 60}, {60, 50}); // the other camera
    QCOMPARE(regionOf(0), corners(60, 50, 239, 179));
}

void TestRegionTool::panelShowsAndSetsTheRegion()
{
    open();
    QVERIFY(waitForPanel());
    const auto value = [this](const char *id) {
        return evaluate(QStringLiteral("document.getElementById('%1').value").arg(id)).toInt();
    };
    QCOMPARE(value("Width"), 160);
    QCOMPARE(value("PosX"), 80);
    drag(0, {239, 120}, {219, 120}); // the right side
    QCOMPARE(value("Width"), 140);
    evaluate("var box = document.getElementById('Width'); box.value = '100';"
             "box.dispatchEvent(new Event('change'))");
    QCOMPARE(regionOf(0), corners(80, 60, 179, 179));
    evaluate("box = document.getElementById('PosY'); box.value = '500';"
             "box.dispatchEvent(new Event('change'))");
    QCOMPARE(regionOf(0), corners(80, 120, 179, 239)); // stops at the lower side of the picture
    evaluate("box = document.getElementById('Width'); box.value = 'wide';"
             "box.dispatchEvent(new Event('change'))");
    QCOMPARE(value("Width"), 100);
    QCOMPARE(evaluate("document.getElementById('camera').textContent").toString(),
             QString("Camera 1"));
    QCOMPARE(evaluate("document.getElementById('zoom').textContent").toString(),
             QStringLiteral("100 %1 120 (100 %)").arg(QChar(0xd7)));
}

void TestRegionTool::panelCountsInImagePixelsWhenThePictureIsTurned_data()
{
    QTest::addColumn<int>("quarterTurns");
    for (int turns = 0; turns < 4; ++turns)
        QTest::newRow(qPrintable(QString::number(turns * 90))) << turns;
}

void TestRegionTool::panelCountsInImagePixelsWhenThePictureIsTurned()
{
    QFETCH(int, quarterTurns);
    open();
    QVERIFY(waitForPanel());
    QVERIFY(setOption("minWidth", 60));
    QVERIFY(setOption("minHeight", 20));
    setRegion(0, corners(80, 60, 179, 89));
    camera(0)->setQuarterTurns(quarterTurns);
    tool()->update();
    const auto value = [this](const char *id) {
        return evaluate(QStringLiteral("document.getElementById('%1').value").arg(id)).toString();
    };
    const auto text = [this](const char *id) {
        return evaluate(QStringLiteral("document.getElementById('%1').textContent").arg(id))
            .toString();
    };
    const auto range = [](int low, int high) {
        return QStringLiteral("%1 %2 %3").arg(low).arg(QChar(0x2013)).arg(high);
    };
    QCOMPARE(value("Width"), QString("100"));
    QCOMPARE(value("Height"), QString("30"));
    QCOMPARE(value("PosX"), QString("80"));
    QCOMPARE(value("PosY"), QString("60"));
    QCOMPARE(text("WidthRange"), range(60, 240));
    QCOMPARE(text("HeightRange"), range(20, 180));
    QCOMPARE(text("PosXRange"), range(0, 220));
    QCOMPARE(text("PosYRange"), range(0, 210));
    QCOMPARE(text("zoom"), QStringLiteral("100 %1 30 (100 %)").arg(QChar(0xd7)));

    // At an aspect of 0.5 the 240 pixels to the right take 120 of the 180 below.
    QVERIFY(setOption("aspect", 0.5));
    QVERIFY(setOption("fixAspect", true));
    setRegion(0, corners(80, 60, 199, 119));
    tool()->update();
    QCOMPARE(text("aspect"), QString("0.5000"));
    QCOMPARE(text("WidthRange"), range(120, 240)); // 60 / 0.5
    QCOMPARE(text("HeightRange"), range(20, 120));
}

void TestRegionTool::cancelTakesBackAndLeaves()
{
    open();
    QVERIFY(waitForPanel());
    drag(0, {80, 60}, {31, 41});
    QVERIFY(tool()->isModified());
    click("cancel");
    QVERIFY(panel()->isHidden());
    QVERIFY(!host().isTransactionOpen("t_region"));
    QVERIFY(!tool()->isModified());
    QCOMPARE(readBy(0), corners(80, 60, 239, 179));
    QCOMPARE(host().undoSteps()->count(), 0);
}

void TestRegionTool::resetTakesBackAndStays()
{
    open();
    QVERIFY(waitForPanel());
    drag(0, {80, 60}, {31, 41});
    click("reset");
    QCOMPARE(regionOf(0), corners(80, 60, 239, 179));
    QVERIFY(!panel()->isHidden());
    QVERIFY(host().isTransactionOpen("t_region"));
    QVERIFY(!tool()->isModified());
    host().undoSteps()->undo(); // the reset
    QCOMPARE(regionOf(0), corners(31, 41, 239, 179));
}

void TestRegionTool::appliedRegionSurvivesCancel()
{
    open();
    QVERIFY(waitForPanel());
    drag(0, {80, 60}, {31, 41});
    click("apply");
    QVERIFY(host().isTransactionOpen("t_region"));
    QCOMPARE(host().undoSteps()->count(), 0);
    drag(0, {31, 41}, {50, 50});
    QCOMPARE(regionOf(0), corners(50, 50, 239, 179));
    click("cancel");
    QCOMPARE(readBy(0), corners(31, 41, 239, 179));
}

void TestRegionTool::okKeepsTheRegion()
{
    open();
    QVERIFY(waitForPanel());
    drag(0, {80, 60}, {31, 41});
    click("ok");
    QVERIFY(panel()->isHidden());
    QVERIFY(!host().isTransactionOpen("t_region"));
    QCOMPARE(readBy(0), corners(31, 41, 239, 179));
    open(); // as often as one likes
    QVERIFY(waitForPanel());
    QCOMPARE(regionOf(0), corners(31, 41, 239, 179));
}

void TestRegionTool::closingThePanelAsksWhenSomethingChanged()
{
    open();
    panel()->close();
    QVERIFY(panel()->isHidden());
    QCOMPARE(host().messages().size(), 0);

    open();
    drag(0, {239, 179}, {200, 150});
    panel()->close(); // no
    QCOMPARE(host().messages().size(), 1);
    QCOMPARE(host().messages().first().text, QString("Do you want to accept?"));
    QVERIFY(panel()->isHidden());
    QCOMPARE(readBy(0), corners(80, 60, 239, 179));

    host().answerConfirm(true);
    open();
    drag(0, {239, 179}, {200, 150});
    panel()->close();
    QCOMPARE(readBy(0), corners(80, 60, 200, 150));
    QVERIFY(!host().isTransactionOpen("t_region"));
}

void TestRegionTool::optionsLimitTheRegion_data()
{
    QTest::addColumn<QVariantMap>("options");
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRect>("result");
    const auto row = [](const char *name, const QVariantMap &options, QPoint from, QPoint to,
                        QRect result) { QTest::newRow(name) << options << from << to << result; };
    // The region is at 80 to 199, 60 to 159, in a picture of 320 by 240.
    const QPoint corner(199, 159);
    const QPoint inside(140, 110);
    const QPoint wide(232, 201);
    row("none", {}, corner, wide, corners(80, 60, 232, 201));
    row("maximum", {{"maxWidth", 130}, {"maxHeight", 110}}, corner, wide,
        corners(80, 60, 209, 169));
    row("maximum of one side", {{"maxWidth", 130}}, corner, wide, corners(80, 60, 209, 201));
    // 16 and a whole number of steps: 153 becomes 144, 142 becomes 136.
    row("size step", {{"sizeStepX", 16}, {"sizeStepY", 8}}, corner, wide,
        corners(80, 60, 223, 195));
    // 142 high would be 284 wide, which ends at the side of the picture: 240 wide and 120 high.
    row("aspect", {{"aspect", 0.5}, {"fixAspect", true}}, corner, wide, corners(80, 60, 319, 179));
    row("aspect of the picture", {{"originalAspect", true}, {"fixAspect", true}}, corner, wide,
        corners(80, 60, 268, 201)); // 142 / 0.75 is 189.33
    // The hand comes by 150, 120; what follows would be too small.
    row("no smaller than the minimum", {{"minWidth", 60}, {"minHeight", 50}}, corner, {100, 80},
        corners(80, 60, 150, 120));
    row("above the minimum", {{"minWidth", 60}, {"minHeight", 50}}, corner, {150, 115},
        corners(80, 60, 150, 115));
    row("centred from left to right", {{"symmetricX", true}}, corner, wide,
        corners(87, 60, 232, 201)); // 319 - 232
    row("centred from top to bottom", {{"symmetricY", true}}, corner, wide,
        corners(80, 38, 232, 201)); // 239 - 201
    row("moved without a step", {}, inside, {150, 99}, corners(90, 49, 209, 148));
    // 90 is 10 behind a multiple of 16 and goes to the next, 49 is 1 behind one of 8.
    row("position step", {{"positionStepX", 16}, {"positionStepY", 8}}, inside, {150, 99},
        corners(96, 48, 215, 147));
}

void TestRegionTool::optionsLimitTheRegion()
{
    QFETCH(QVariantMap, options);
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    open();
    for (auto option = options.cbegin(); option != options.cend(); ++option)
        QVERIFY(setOption(option.key(), option.value()));
    setRegion(0, corners(80, 60, 199, 159));
    drag(0, from, to);
    QTEST(regionOf(0), "result");
    QVERIFY(!setOption("color", 3));
    QVERIFY(!setOption("maxWidth", "wide"));
}

void TestRegionTool::optionsPageSetsWhatItShows()
{
    open();
    drag(0, {239, 179}, {271, 179});
    QCOMPARE(regionOf(0), corners(80, 60, 271, 179));
    QVERIFY(waitForPanel());
    click("options");
    GUI_ModelessPatternDialog *dialog = tool()->ensureDialog(false);
    QVERIFY(dialog);
    QVERIFY(QTest::qWaitFor([&] { return dialog->isVisible(); }));
    GUI_WebView *page = dialog->webView();
    QVERIFY(QTest::qWaitFor(
        [&] { return PageHand::read(page, "document.getElementById('minWidth').value") == "16"; }));
    const auto option = [this](const char *name) { return options().value(name); };

    QVERIFY(PageHand::click(page, "#symmetricX"));
    QCOMPARE(option("symmetricX"), QVariant(true));
    QCOMPARE(regionOf(0), corners(64, 60, 255, 179)); // at once

    QVERIFY(PageHand::click(page, "#minWidth"));
    QVERIFY(host().state().textBoxFocus);
    QVERIFY(PageHand::press(page, Qt::Key_A, Qt::ControlModifier));
    QVERIFY(PageHand::type(page, "200"));
    QVERIFY(PageHand::press(page, Qt::Key_Tab));
    QCOMPARE(option("minWidth"), QVariant(200));
    QCOMPARE(regionOf(0).width(), 200);

    // What is no number changes nothing, and the box shows again what holds.
    QVERIFY(PageHand::click(page, "#maxWidth"));
    QVERIFY(PageHand::press(page, Qt::Key_A, Qt::ControlModifier));
    QVERIFY(PageHand::type(page, "wide"));
    QVERIFY(PageHand::press(page, Qt::Key_Tab));
    QCOMPARE(option("maxWidth"), QVariant(0));
    QVERIFY(QTest::qWaitFor(
        [&] { return PageHand::read(page, "document.getElementById('maxWidth').value") == "0"; }));

    QVERIFY(PageHand::click(page, "#close"));
    QVERIFY(QTest::qWaitFor([&] { return !dialog->isVisible(); }));
    QVERIFY(!panel()->isHidden());
    QVERIFY(!host().state().textBoxFocus);
    click("options"); // shows what was chosen
    QVERIFY(QTest::qWaitFor([&] { return dialog->isVisible(); }));
    QCOMPARE(PageHand::read(page, "document.getElementById('minWidth').value"), QVariant("200"));
}

void TestRegionTool::failingHostHarmsNothing()
{
    open();
    QVERIFY(waitForPanel());
    LogCapture log; // pages tell what they miss
    host().failFromCall(1);
    drag(0, {80, 60}, {31, 41});
    click("options");
    host().clearFaults();
    QVERIFY(!host().handledErrors().isEmpty());
    QCOMPARE(host().openMacros(), 0);
    drag(0, {239, 179}, {200, 150});
    QCOMPARE(regionOf(0), corners(80, 60, 200, 150));
}

int main(int argc, char **argv)
{
    TestRegionTool test;
    return runTest(argc, argv, test);
}

#include "test_region_tool.moc"
