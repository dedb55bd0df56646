#include "foundation/Keys.h"
#include "plugin/PLG_Button.h"
#include "tests/support/TestLog.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Look.h"
#include "workbench/base/Options.h"
#include "workbench/log/HostCallPanel.h"
#include "workbench/log/LogPanel.h"
#include "workbench/tour/TourPictures.h"
#include "workbench/views/DocumentView.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/CameraPanel.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/NoticeBar.h"
#include "workbench/window/StatusLine.h"
#include "workbench/window/ToolBar.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QTemporaryDir>
#include <QThread>
#include <QToolButton>

#include <stdexcept>

namespace {

QStringList labels(const Workbench &workbench)
{
    QStringList result;
    for (const QAction *action : const_cast<Workbench &>(workbench).window().tools()->toolActions())
        result.append(action->text());
    return result;
}

// A tool that counts how often it is told to draw anew.
class DrawingTool final : public PLG_Button
{
public:
    explicit DrawingTool(const QString &name) { m_toolName = name; }

    void update() override
    {
        ++updates;
        if (failing)
            throw std::runtime_error("nothing to draw on");
    }

    int updates = 0;
    bool failing = false;
};

QChar mnemonicOf(const QString &text)
{
    const int at = text.indexOf('&');
    return at < 0 ? QChar() : text.at(at + 1).toLower();
}

}

class TestWorkbench : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void opensWithTheCamerasOfTheOptions_data();
    void opensWithTheCamerasOfTheOptions();
    void locksByAPressOfTheButton();
    void followsALockReleasedElsewhere();
    void releasesAllCameras();
    void carriesAChangeToTheOtherCamera();
    void showsNoLockWithoutADocument();
    void reportsBrokenToolsAndLoadsTheOthers();
    void reportsAMissingFolderOfTools();
    void refusesASecondToolOfTheSameName();
    void refusesAToolThatFailsAtTheStart();
    void unloadsATool();
    void opensAFolderAtTheStart();
    void opensAFolderWithAFileThatIsNoPicture();
    void refusesAFolderWithoutPictures();
    void returnsToTheCurrentDocumentOfAMode();
    void closesCamerasDownToNone();
    void keepsStyleAndPanels();
    void followsAStyleThatAPageStores();
    void letsToolsDrawAnew();
    void tellsAnErrorInTheNotice();
    void showsThatTheLivePictureIsHeld();
    void undoesOnAllLockedCameras();
    void showsTheLogLinesOfOtherThreads();
    void hasAShortcutOnceEach();
    void hasAMnemonicOnceEach();
    void namesEveryControlForScreenReaders();
    void reachesEveryControlByTab();

private:
    Options options() const
    {
        Options result;
        result.settingsFile = m_dir->filePath("settings.ini");
        result.pluginFolder = PLUGIN_FOLDER;
        return result;
    }

    static QToolButton *lockButton(Workbench &workbench)
    {
        PLG_Interface *tool = workbench.loader().tools().value(0);
        ToolBar *bar = workbench.window().tools();
        return tool ? qobject_cast<QToolButton *>(bar->widgetForAction(bar->action(tool)))
                    : nullptr;
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void TestWorkbench::init()
{
    TestBase::init();
    m_dir = std::make_unique<QTemporaryDir>();
}

void TestWorkbench::cleanup()
{
    m_dir.reset();
    TestBase::cleanup();
}

void TestWorkbench::opensWithTheCamerasOfTheOptions_data()
{
    QTest::addColumn<int>("cameras");
    QTest::newRow("none") << 0;
    QTest::newRow("two") << 2;
    QTest::newRow("sixteen") << 16;
}

void TestWorkbench::opensWithTheCamerasOfTheOptions()
{
    QFETCH(int, cameras);
    Options wanted = options();
    wanted.cameras = cameras;
    Workbench workbench(wanted);
    workbench.start(wanted);
    workbench.window().show();
    QCOMPARE(workbench.window().views()->views().size(), cameras);
    QCOMPARE(labels(workbench), QStringList("Lock Camera"));
    QCOMPARE(workbench.window().status()->modeText(), QString("Mode: live"));
    QCOMPARE(workbench.window().notice()->text(), QString());
}

void TestWorkbench::locksByAPressOfTheButton()
{
    Workbench workbench(options());
    workbench.start(options());
    workbench.window().show();
    QTest::mouseClick(lockButton(workbench), Qt::LeftButton);
    QVERIFY(workbench.host().isLockOn());
    QTRY_COMPARE(workbench.window().hostCalls()->lines(), QStringList("setTrelvikLock(true)"));
    QVERIFY(lockButton(workbench)->isChecked());
    QCOMPARE(workbench.window().status()->lockText(), QString("Cameras locked: 2"));
    for (const DocumentView *view : workbench.window().views()->views())
        QVERIFY(view->showsLock());

    QTest::mouseClick(lockButton(workbench), Qt::LeftButton);
    QVERIFY(!workbench.host().isLockOn());
    QVERIFY(!lockButton(workbench)->isChecked());
    QTRY_COMPARE(workbench.window().hostCalls()->lines(),
                 QStringList({"setTrelvikLock(true)", "setTrelvikLock(false)"}));
    QTRY_COMPARE(workbench.window().status()->lockText(), QString("Cameras released"));
}

void TestWorkbench::followsALockReleasedElsewhere()
{
    Workbench workbench(options());
    workbench.start(options());
    workbench.window().show();
    workbench.host().setTrelvikLock(true);
    QTRY_VERIFY(lockButton(workbench)->isChecked());
    workbench.host().setTrelvikLock(false);
    QTRY_VERIFY(!lockButton(workbench)->isChecked());
}

void TestWorkbench::releasesAllCameras()
{
    Workbench workbench(options());
    workbench.start(options());
    workbench.window().show();
    auto *release = workbench.window().findChild<QAction *>("releaseAll");
    QVERIFY(!release->isEnabled());
    workbench.host().setTrelvikLock(true);
    QTRY_VERIFY(release->isEnabled());
    release->trigger();
    QVERIFY(!workbench.host().isLockOn());
    QTRY_VERIFY(!release->isEnabled());
}

void TestWorkbench::carriesAChangeToTheOtherCamera()
{
    Workbench workbench(options());
    workbench.start(options());
    workbench.window().show();
    QTest::mouseClick(lockButton(workbench), Qt::LeftButton);
    QTest::mouseClick(workbench.window().views()->views().at(1), Qt::LeftButton);
    auto *name = workbench.window().cameraPanel()->findChild<QLabel *>("cameraName");
    QTRY_COMPARE(name->text(), QString("Camera 2"));
    QTest::keyClick(workbench.window().findChild<QComboBox *>("shutter"), Qt::Key_Down);
    QCOMPARE(workbench.host().cameras().at(0)->deviceSettings().shutterSpeed, 2000u);
    QTRY_VERIFY(workbench.window().views()->views().at(0)->settingsText().startsWith("1/2000 s"));
}

void TestWorkbench::showsNoLockWithoutADocument()
{
    Options none = options();
    none.cameras = 0;
    Workbench workbench(none);
    workbench.start(none);
    workbench.window().show();
    workbench.host().setTrelvikLock(true);
    QTRY_COMPARE(workbench.window().status()->lockText(), QString("Lock on, no camera"));
    QVERIFY(!lockButton(workbench)->isChecked());
    workbench.addCamera();
    QTRY_VERIFY(lockButton(workbench)->isChecked());
}

void TestWorkbench::reportsBrokenToolsAndLoadsTheOthers()
{
    LogCapture capture;
    Options zoo = options();
    zoo.pluginFolder = ZOO_FOLDER;
    Workbench workbench(zoo);
    workbench.start(zoo);
    workbench.window().show();
    QCOMPARE(labels(workbench), QStringList("t_zoo"));
    const QStringList warnings = capture.texts(QtWarningMsg);
    QCOMPARE(warnings.size(), 7);
    QVERIFY(warnings.contains("zoo_no_factory.orvix: it has no makeButtonPlugin"));
    QCOMPARE(
        workbench.window().notice()->text(),
        QString("zoo_unresolved.orvix: unresolved symbol makeMissingTool(int) (and 6 more, see "
                "the log)"));
    QTRY_COMPARE(workbench.window().logPanel()->visibleLines().filter("Warning zoo_").size(), 7);

    // A later failure tells itself and not the others again.
    workbench.loadTool(m_dir->filePath("nowhere.orvix"));
    QCOMPARE(capture.texts(QtWarningMsg).size(), 8);
    QCOMPARE(capture.texts(QtWarningMsg).last(), QString("nowhere.orvix: there is no such file"));
}

void TestWorkbench::reportsAMissingFolderOfTools()
{
    LogCapture capture;
    Options missing = options();
    missing.pluginFolder = m_dir->filePath("missing");
    Workbench workbench(missing);
    workbench.start(missing);
    QCOMPARE(capture.texts(QtWarningMsg), QStringList("missing: there is no such folder"));
    QVERIFY(labels(workbench).isEmpty());
    QVERIFY(!workbench.window().findChild<QMenuBar *>()->actions().at(4)->isEnabled());
}

void TestWorkbench::refusesASecondToolOfTheSameName()
{
    LogCapture capture;
    const QString copy = m_dir->filePath("t_copy.orvix");
    QVERIFY(QFile::copy(QStringLiteral(PLUGIN_FOLDER "/t_multilock.orvix"), copy));
    Workbench workbench(options());
    workbench.start(options());
    workbench.loadTool(copy);
    QCOMPARE(labels(workbench), QStringList("Lock Camera"));
    QCOMPARE(workbench.loader().tools().size(), 1);
    QCOMPARE(workbench.host().plugins(), workbench.loader().tools());
    QCOMPARE(capture.texts(QtWarningMsg),
             QStringList("t_copy.orvix: its tool \"t_multilock\" is loaded already"));
}

void TestWorkbench::refusesAToolThatFailsAtTheStart()
{
    LogCapture capture;
    Workbench workbench(options());
    workbench.start(options());
    workbench.loadTool(QStringLiteral(FAILING_TOOL));
    QCOMPARE(labels(workbench), QStringList("Lock Camera"));
    QCOMPARE(workbench.loader().tools().size(), 1);
    QCOMPARE(workbench.host().plugins(), workbench.loader().tools());
    const QString text =
        "tool_fails_at_start.orvix: its tool failed at the start: the host is too old";
    QCOMPARE(capture.texts(QtWarningMsg), QStringList(text));
    QCOMPARE(workbench.window().notice()->text(), text);
}

void TestWorkbench::unloadsATool()
{
    Workbench workbench(options());
    workbench.start(options());
    workbench.window().show();
    workbench.unloadTool(workbench.loader().tools().first());
    QVERIFY(labels(workbench).isEmpty());
    QVERIFY(workbench.host().plugins().isEmpty());
    QVERIFY(workbench.loader().tools().isEmpty());
    workbench.loadTools(PLUGIN_FOLDER);
    QCOMPARE(labels(workbench), QStringList("Lock Camera"));
}

void TestWorkbench::opensAFolderAtTheStart()
{
    Options wanted = options();
    wanted.openFolder = m_dir->filePath("drop");
    QVERIFY(TourPictures::write(wanted.openFolder));
    Workbench workbench(wanted);
    workbench.start(wanted);
    workbench.window().show();
    QCOMPARE(workbench.host().mode(), StandInHost::Mode::File);
    QCOMPARE(workbench.window().views()->views().size(), 1);
    const DocumentView *view = workbench.window().views()->views().first();
    QCOMPARE(view->title(), QString("drop"));
    QCOMPARE(view->frameText(), QString("Frame 1 of 12"));
    QVERIFY(view->isCurrent());
}

void TestWorkbench::opensAFolderWithAFileThatIsNoPicture()
{
    LogCapture capture;
    const QString folder = m_dir->filePath("drop");
    QVERIFY(TourPictures::write(folder));
    QFile broken(folder + "/shot 13.png");
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("no picture");
    broken.close();
    Workbench workbench(options());
    workbench.start(options());
    workbench.openFolder(folder);
    QCOMPARE(workbench.host().recordings().first()->frameCount(), quint64(12));
    QVERIFY(workbench.window().notice()->text().startsWith(folder + "/shot 13.png: "));
    QCOMPARE(capture.texts(QtWarningMsg).filter("shot 13.png").size(), 1);
}

void TestWorkbench::refusesAFolderWithoutPictures()
{
    LogCapture capture;
    Workbench workbench(options());
    workbench.start(options());
    workbench.openFolder(m_dir->path());
    QCOMPARE(workbench.host().mode(), StandInHost::Mode::Live);
    QVERIFY(workbench.host().recordings().isEmpty());
    QCOMPARE(workbench.window().notice()->text(),
             "No picture can be read in the folder " + m_dir->path());
    QVERIFY(workbench.host().handledErrors().isEmpty());
}

void TestWorkbench::returnsToTheCurrentDocumentOfAMode()
{
    const QString folder = m_dir->filePath("drop");
    QVERIFY(TourPictures::write(folder));
    Workbench workbench(options());
    workbench.start(options());
    workbench.host().makeCurrent(2);
    workbench.openFolder(folder);
    workbench.openFolder(folder);
    workbench.host().makeCurrent(3);
    workbench.host().setMode(StandInHost::Mode::Memory);
    QCOMPARE(workbench.host().currentKey(), DOCKEY(2));
    workbench.host().setMode(StandInHost::Mode::File);
    QCOMPARE(workbench.host().currentKey(), DOCKEY(3));
    workbench.host().closeDocument(3);
    QCOMPARE(workbench.host().currentKey(), DOCKEY(4));
    workbench.host().setMode(StandInHost::Mode::Live);
    QCOMPARE(workbench.host().currentKey(), DOCKEY(2));
}

void TestWorkbench::closesCamerasDownToNone()
{
    Workbench workbench(options());
    workbench.start(options());
    workbench.window().show();
    auto *close = workbench.window().findChild<QAction *>("closeCurrent");
    close->trigger();
    close->trigger();
    QVERIFY(workbench.host().cameras().isEmpty());
    QTRY_VERIFY(!close->isEnabled());
    QVERIFY(workbench.window().views()->views().isEmpty());
    QCOMPARE(workbench.window().status()->modeText(), QString("Mode: live"));
}

void TestWorkbench::keepsStyleAndPanels()
{
    {
        Options dark = options();
        dark.style = "dark";
        Workbench workbench(dark);
        workbench.start(dark);
        workbench.window().show();
        QCOMPARE(QApplication::palette(), Look::palette(true));
        workbench.window().findChild<QWidget *>("logDock")->hide();
    }
    Look::apply(false);
    {
        Workbench workbench(options());
        workbench.start(options());
        workbench.window().show();
        QCOMPARE(QApplication::palette(), Look::palette(true));
        QVERIFY(workbench.window().findChild<QAction *>("styleDark")->isChecked());
        QVERIFY(workbench.window().findChild<QWidget *>("logDock")->isHidden());
        QVERIFY(!workbench.window().findChild<QWidget *>("callsDock")->isHidden());
        workbench.setStyle("light");
    }
    QCOMPARE(QApplication::palette(), Look::palette(false));
}

void TestWorkbench::followsAStyleThatAPageStores()
{
    Workbench workbench(options());
    workbench.start(options());
    QCOMPARE(QApplication::palette(), Look::palette(false));
    workbench.host().setPref(Keys::application.style, QVariant("DARK"));
    QCOMPARE(QApplication::palette(), Look::palette(true));
    workbench.setStyle("light");
    QCOMPARE(QApplication::palette(), Look::palette(false));
}

// Without a refresh by the host, which a change of the current camera need not bring.
void TestWorkbench::letsToolsDrawAnew()
{
    Workbench workbench(options());
    workbench.start(options());
    StandInHost &host = workbench.host();
    DrawingTool first("t_first");
    DrawingTool second("t_second");
    host.addPlugin(&first);
    host.addPlugin(&second);
    workbench.window().refresh();
    first.updates = second.updates = 0;

    first.failing = true;
    host.makeCurrent(2);
    host.makeCurrent(1);
    QTRY_COMPARE(second.updates, 1); // once for what comes together
    QCOMPARE(first.updates, 1);
    QCOMPARE(host.handledErrors(), QStringList("nothing to draw on"));
    first.failing = false;
    workbench.window().refresh();
    QCOMPARE(second.updates, 1);

    workbench.setStyle("dark");
    QTRY_COMPARE(second.updates, 2);

    // Held back, and not forgotten.
    host.deterUpdateUI(true);
    host.makeCurrent(2);
    workbench.window().refresh();
    QCOMPARE(second.updates, 2);
    host.deterUpdateUI(false);
    workbench.window().refresh();
    QCOMPARE(second.updates, 3);
    host.removePlugin(&first);
    host.removePlugin(&second);
}

void TestWorkbench::tellsAnErrorInTheNotice()
{
    Workbench workbench(options());
    workbench.start(options());
    std::runtime_error failure("The camera does not answer");
    workbench.host().errorHandler(failure);
    QCOMPARE(workbench.window().notice()->text(), QString("The camera does not answer"));
}

void TestWorkbench::showsThatTheLivePictureIsHeld()
{
    Workbench workbench(options());
    workbench.start(options());
    ViewArea *views = workbench.window().views();
    views->setRunning(false);
    workbench.host().pauseLive(false);
    const quint64 before = views->views().first()->frameNumber();
    views->advance();
    QCOMPARE(views->views().first()->frameNumber(), before);
    QTRY_COMPARE(workbench.window().status()->modeText(), QString("Mode: live, held"));
    workbench.host().resumeLive();
    views->advance();
    QCOMPARE(views->views().first()->frameNumber(), before + 1);
    QTRY_COMPARE(workbench.window().status()->modeText(), QString("Mode: live"));
}

void TestWorkbench::undoesOnAllLockedCameras()
{
    Workbench workbench(options());
    workbench.start(options());
    workbench.window().show();
    auto *undo = workbench.window().findChild<QAction *>("undo");
    auto *redo = workbench.window().findChild<QAction *>("redo");
    QVERIFY(!undo->isEnabled());
    workbench.host().setTrelvikLock(true);
    workbench.host().cameras().at(1)->setShutterSpeed(4000);
    QVERIFY(undo->isEnabled());
    QCOMPARE(undo->text(), QString("&Undo Shutter speed of Camera 2"));
    QCOMPARE(undo->iconText(), QString("Undo"));
    undo->trigger();
    QCOMPARE(workbench.host().cameras().at(0)->shutterSpeed(), 1000u);
    QCOMPARE(workbench.host().cameras().at(1)->shutterSpeed(), 1000u);
    QTRY_VERIFY(workbench.window().views()->views().at(0)->settingsText().startsWith("1/1000 s"));
    redo->trigger();
    QCOMPARE(workbench.host().cameras().at(0)->shutterSpeed(), 4000u);
}

void TestWorkbench::showsTheLogLinesOfOtherThreads()
{
    LogCapture capture;
    Workbench workbench(options());
    workbench.start(options());
    workbench.window().show();
    std::unique_ptr<QThread> thread(QThread::create([] { qInfo("from the worker"); }));
    thread->start();
    thread->wait();
    QTRY_COMPARE(workbench.window().logPanel()->visibleLines().filter("from the worker").size(), 1);
    // What the platform without a display says of itself is no line of the application.
    qWarning("This plugin does not support raise()");
    qInfo("behind it");
    QTRY_COMPARE(workbench.window().logPanel()->visibleLines().filter("behind it").size(), 1);
    QVERIFY(workbench.window().logPanel()->visibleLines().filter("plugin does").isEmpty());
}

void TestWorkbench::hasAShortcutOnceEach()
{
    Workbench workbench(options());
    workbench.start(options());
    QStringList shortcuts;
    for (const QAction *action : workbench.window().findChildren<QAction *>()) {
        if (!action->shortcut().isEmpty())
            shortcuts.append(action->shortcut().toString());
    }
    QVERIFY(shortcuts.size() >= 14);
    QCOMPARE(shortcuts.removeDuplicates(), 0);
}

void TestWorkbench::hasAMnemonicOnceEach()
{
    Workbench workbench(options());
    workbench.start(options());
    MainWindow &window = workbench.window();
    QList<QPair<QString, QStringList>> places;
    // In the window: the menus, the buttons, and the labels that lead to a control.
    QStringList texts;
    for (const QAction *menu : window.menuBar()->actions())
        texts.append(menu->text());
    for (const QAbstractButton *button : window.findChildren<QAbstractButton *>())
        texts.append(button->text());
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        if (label->buddy())
            texts.append(label->text());
    }
    places.append({"window", texts});
    for (const QAction *menu : window.menuBar()->actions()) {
        texts.clear();
        for (const QAction *entry : menu->menu()->actions())
            texts.append(entry->text());
        places.append({menu->text(), texts});
    }
    for (const auto &place : qAsConst(places)) {
        QMap<QChar, QString> taken;
        for (const QString &text : place.second) {
            const QChar key = mnemonicOf(QString(text).remove("&&"));
            if (key.isNull())
                continue;
            QVERIFY2(!taken.contains(key) || taken.value(key) == text,
                     qPrintable(place.first + ": " + taken.value(key) + " and " + text));
            taken.insert(key, text);
        }
        QVERIFY2(!taken.isEmpty() || place.second.isEmpty() || place.first == "&Tools",
                 qPrintable(place.first));
    }
}

void TestWorkbench::namesEveryControlForScreenReaders()
{
    Workbench workbench(options());
    workbench.start(options());
    workbench.window().show();
    int controls = 0;
    for (QWidget *widget : workbench.window().findChildren<QWidget *>()) {
        if (!(widget->focusPolicy() & Qt::TabFocus) || !widget->isVisible())
            continue;
        ++controls;
        QString name = widget->accessibleName();
        if (name.isEmpty())
            name = widget->property("text").toString();
        // A tab says its own text.
        if (const auto *tabs = qobject_cast<QTabBar *>(widget))
            name = tabs->tabText(0);
        for (const QLabel *label : workbench.window().findChildren<QLabel *>()) {
            if (name.isEmpty() && label->buddy() == widget)
                name = label->text();
        }
        QVERIFY2(!name.isEmpty(), widget->metaObject()->className());
    }
    QVERIFY(controls > 10);
}

void TestWorkbench::reachesEveryControlByTab()
{
    Workbench workbench(options());
    workbench.start(options());
    MainWindow &window = workbench.window();
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QSet<QWidget *> reached;
    window.views()->views().first()->setFocus();
    for (int i = 0; i < 60; ++i) {
        reached.insert(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (DocumentView *view : window.views()->views())
        QVERIFY(reached.contains(view));
    for (const char *name :
         {"shutter", "recordRate", "logLevel", "logText", "logClear", "logLines"})
        QVERIFY2(reached.contains(window.findChild<QWidget *>(name)), name);
    QVERIFY(reached.contains(lockButton(workbench)));
}

int main(int argc, char **argv)
{
    TestWorkbench test;
    return runTest(argc, argv, test);
}

#include "test_workbench.moc"
