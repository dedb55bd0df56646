#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/dialog/GUI_WebViewDialog.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/PLG_Interface.h"
#include "tests/support/ObjectCount.h"
#include "tests/support/TestLog.h"
#include "workbench/app/Workbench.h"
#include "workbench/base/Options.h"
#include "workbench/pages/PagePanel.h"
#include "workbench/tour/PageHand.h"
#include "workbench/views/ViewArea.h"
#include "workbench/window/MainWindow.h"
#include "workbench/window/ToolBar.h"
#include "workbench/window/ToolPanel.h"

#include <QAction>
#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

using Cycle = std::function<void(Workbench &)>;
Q_DECLARE_METATYPE(Cycle)

// The dialogs of the workbench, opened and closed again and again, leave nothing behind.
class TestWindowGrowth : public TestBase
{
    Q_OBJECT

private slots:
    void nothingGrows_data();
    void nothingGrows();
};

namespace {

constexpr int Warming = 10;
constexpr int Openings = 20;
constexpr int FadeIn = 700; // milliseconds that an animation may live, with some to spare

bool isDrawn(GUI_WebView *view)
{
    return PageHand::read(view, "document.readyState === 'complete' && "
                                "document.getElementsByTagName('button').length > 0")
        .toBool();
}

// Runs a command that opens a modal dialog, which is closed by the button in its page, or by its
// frame.
void visit(Workbench &workbench, const char *action, const QString &closing)
{
    bool visited = false;
    QTimer::singleShot(0, &workbench, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        auto *view = dialog ? dialog->findChild<GUI_WebView *>() : nullptr;
        if (!view || !QTest::qWaitFor([&] { return isDrawn(view); }))
            return;
        visited = true;
        if (closing.isEmpty())
            dialog->close();
        else
            PageHand::read(view, "document.getElementById('" + closing + "').click()");
    });
    workbench.window().findChild<QAction *>(action)->trigger();
    QVERIFY(visited);
}

// A tool that is loaded anew comes last.
PLG_Interface *toolByName(Workbench &workbench, const char *name)
{
    for (PLG_Interface *tool : workbench.loader().tools()) {
        if (tool->name() == QLatin1String(name))
            return tool;
    }
    return nullptr;
}

PLG_Interface *noteTool(Workbench &workbench)
{
    return toolByName(workbench, "t_note");
}

// With text in the box, so that a refresh and a setting follow.
void openNote(Workbench &workbench)
{
    PLG_Interface *tool = noteTool(workbench);
    workbench.window().tools()->action(tool)->trigger();
    QVERIFY(tool->isDialogVisible());
    GUI_WebView *page = tool->ensureDialog(false)->webView();
    QVERIFY(QTest::qWaitFor([&] { return isDrawn(page); }));
    PageHand::read(page, "text.value = 'x'; text.dispatchEvent(new Event('input'))");
    QCOMPARE(workbench.host().settings().value("t_note/text0", QVariant()), QVariant("x"));
}

PLG_Interface *regionTool(Workbench &workbench)
{
    return toolByName(workbench, "t_region");
}

ToolPanel *regionPanel(Workbench &workbench)
{
    return workbench.window().findChild<ToolPanel *>();
}

void openRegion(Workbench &workbench)
{
    workbench.window().tools()->action(regionTool(workbench))->trigger();
    ToolPanel *panel = regionPanel(workbench);
    QVERIFY(QTest::qWaitFor([&] { return panel->isLoaded() && isDrawn(panel->view()); }));
}

void loadAnew(PagePanel *panel)
{
    QVERIFY(QTest::qWaitFor([&] { return isDrawn(panel->view()); }));
    PageHand::read(panel->view(), "window.isLeft = true");
    panel->view()->reload();
    QVERIFY(QTest::qWaitFor([&] {
        return isDrawn(panel->view()) && !PageHand::read(panel->view(), "window.isLeft").isValid();
    }));
}

// The page of the panel opens the preferences, the page in there closes the tool, and time goes by.
void closeRegionUnderItsOwnScript(Workbench &workbench)
{
    openRegion(workbench);
    const QPointer<GUI_WebView> view = regionPanel(workbench)->view();
    bool held = false;
    // The timer of the page may come after any other.
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto *dialog = dynamic_cast<GUI_WebViewDialog *>(QApplication::activeModalWidget());
        if (!dialog || !isDrawn(dialog->webView()))
            return;
        look.stop();
        PageHand::read(dialog->webView(), "preferences.closePlugin()");
        QTimer::singleShot(50, dialog, [&, dialog] {
            held = view;
            PageHand::read(dialog->webView(), "document.getElementById('close').click()");
        });
    });
    look.start(5);
    PageHand::read(view, "setTimeout(function () { region.openPrefsDialog(''); }, 0)");
    QVERIFY(QTest::qWaitFor([&] { return !view; }));
    QVERIFY(held);
    QVERIFY(!regionPanel(workbench)->view());
    workbench.window().refresh();
}

}

void TestWindowGrowth::nothingGrows_data()
{
    QTest::addColumn<Cycle>("cycle");
    const auto row = [](const char *name, const char *action, const char *closing) {
        QTest::newRow(name) << Cycle(
            [action, closing](Workbench &workbench) { visit(workbench, action, closing); });
    };
    row("preferences", "prefs", "close");
    row("preferences, closed by the frame", "prefs", "");
    row("about", "about", "close");
    row("Ethernet settings", "ethernet", "ok");
    row("limits of the search", "cameranetworksetting", "cancel");
    row("camera by address", "addDevice", "cancel");
    row("camera that is edited", "editDevice", "cancel");
    row("camera that is edited, closed by the frame", "editDevice", "");
    row("settings that are saved", "cameraSettingsSave", "cancel");
    row("settings that are loaded", "cameraSettingsLoad", "cancel");
    row("presets", "cameraPresets", "cancel");
    row("presets, closed by the frame", "cameraPresets", "");
    row("displayed information", "editinfo", "cancel");
    row("displayed information, closed by the frame", "editinfo", "");
    row("saved information", "saveinfo", "ok");
    row("time code", "timeCode", "ok");
    row("time code, closed by the frame", "timeCode", "");
    row("comments", "comments", "ok");
    row("comments, closed by the frame", "comments", "");
    row("shutter speed", "shutterSpeed", "ok");
    row("shutter speed, closed by the frame", "shutterSpeed", "");
    row("record rate", "recordRate", "cancel");
    row("frame number", "frameNumber", "ok");
    row("recording time", "recordingTime", "cancel");
    row("custom info, accepted", "custominfo", "ok");
    row("custom info, cancelled", "custominfo", "cancel");
    row("digits of a number", "addnumberdialog", "ok");
    row("digits of a number, closed by the frame", "addnumberdialog", "");
    row("recordings that are saved", "exportdialog", "cancel");
    row("recordings that are saved, closed by the frame", "exportdialog", "");
    row("automatic conversion", "convertparametereditdialog", "save");
    QTest::newRow("list of devices, loaded anew")
        << Cycle([](Workbench &workbench) { loadAnew(workbench.window().devicePanel()); });
    QTest::newRow("selection, loaded anew")
        << Cycle([](Workbench &workbench) { loadAnew(workbench.window().controlPanel()); });
    QTest::newRow("note, closed by the button") << Cycle([](Workbench &workbench) {
        openNote(workbench);
        workbench.window().tools()->action(noteTool(workbench))->trigger();
        QVERIFY(!noteTool(workbench)->isDialogVisible());
    });
    QTest::newRow("note, closed by its page") << Cycle([](Workbench &workbench) {
        openNote(workbench);
        PageHand::read(noteTool(workbench)->ensureDialog(false)->webView(),
                       "document.getElementById('close').click()");
        QVERIFY(!noteTool(workbench)->isDialogVisible());
        workbench.window().refresh(); // the button
    });
    QTest::newRow("region, closed by the button") << Cycle([](Workbench &workbench) {
        openRegion(workbench);
        workbench.window().tools()->action(regionTool(workbench))->trigger();
        QVERIFY(!regionPanel(workbench)->view());
    });
    QTest::newRow("region, closed by its page") << Cycle([](Workbench &workbench) {
        openRegion(workbench);
        PageHand::read(regionPanel(workbench)->view(), "document.getElementById('cancel').click()");
        QVERIFY(!regionPanel(workbench)->view());
        workbench.window().refresh(); // the button
    });
    QTest::newRow("region, closed by the page of a dialog that its page opened")
        << Cycle(closeRegionUnderItsOwnScript);
    QTest::newRow("note, unloaded while it is shown") << Cycle([](Workbench &workbench) {
        openNote(workbench);
        workbench.unloadTool(noteTool(workbench));
        workbench.loadTools(PLUGIN_FOLDER);
    });
}

void TestWindowGrowth::nothingGrows()
{
    QFETCH(Cycle, cycle);
    QTemporaryDir dir;
    LogCapture log;
    Options options;
    options.settingsFile = dir.filePath("settings.ini");
    options.pluginFolder = PLUGIN_FOLDER;
    options.cameras = 1;
    Workbench workbench(options);
    workbench.host().setJournalEnabled(false);
    workbench.start(options);
    workbench.window().show();
    workbench.window().views()->setRunning(false);
    QVERIFY(QTest::qWaitFor([&] { return workbench.window().views()->isVisible(); }));
    for (int i = 0; i < Warming; ++i) {
        cycle(workbench);
        if (QTest::currentTestFailed())
            return;
    }
    QTest::qWait(FadeIn);
    ObjectCount::settle();
    const int widgets = QApplication::allWidgets().size();
    const int windows = QGuiApplication::allWindows().size();
    const ObjectCount count;
    for (int i = 0; i < Openings; ++i)
        cycle(workbench);
    QTest::qWait(FadeIn);
    ObjectCount::settle();
    QCOMPARE(count.live(), 0);
    QCOMPARE(QApplication::allWidgets().size(), widgets);
    QCOMPARE(QGuiApplication::allWindows().size(), windows);
    QCOMPARE(workbench.host().deterrals(), 0);
    QCOMPARE(workbench.host().state().openDialogs, 0);
    QVERIFY(!workbench.host().state().isModalDialogOpen);
    QVERIFY(!workbench.host().state().textBoxFocus);
    QCOMPARE(workbench.host().handledErrors(), QStringList());
}

int main(int argc, char **argv)
{
    TestWindowGrowth test;
    return runTest(argc, argv, test);
}

#include "test_window_growth.moc"
