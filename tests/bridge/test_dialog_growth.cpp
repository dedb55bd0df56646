#include "bridge/dialog/GUI_MarqueeProgressDialog.h"
#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/dialog/GUI_SyncProgress.h"
#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/DialogRun.h"
#include "device/discovery/GUI_CameraNetworkSettingDialog.h"
#include "device/discovery/GUI_DiscoverySearchDialog.h"
#include "device/edit/GUI_AddDeviceDialog.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "device/selectbox/JS_Mediator_SelectBox.h"
#include "device/settingsfile/GUI_CameraFileDialog.h"
#include "device/settingsfile/JS_Mediator_CameraSettingsDialog.h"
#include "plugin/PLG_Common.h"
#include "record/comment/GUI_CommentDialog.h"
#include "record/display/GUI_EditInfoDialog.h"
#include "record/format/GUI_FrameFormatDialog.h"
#include "record/format/GUI_RecordRateFormatDialog.h"
#include "record/format/GUI_RectimeFormatDialog.h"
#include "record/format/GUI_ShutterSpeedFormatDialog.h"
#include "record/info/GUI_CustomInfoDialog.h"
#include "record/timecode/GUI_TimeCodeCustomDialog.h"
#include "save/convert/GUI_ConvertParameterEditDialog.h"
#include "save/dialog/GUI_FileSaveDialog.h"
#include "save/number/GUI_AddNumberDialog.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/MemoryUse.h"
#include "tests/support/ObjectCount.h"
#include "tests/support/TestLog.h"

#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

// Dialogs and pages that are opened and closed a hundred times leave nothing behind.

using Cycle = std::function<void(StandInHost &)>;
Q_DECLARE_METATYPE(Cycle)

class TestDialogGrowth : public TestBase
{
    Q_OBJECT

private slots:
    void nothingGrows_data();
    void nothingGrows();
    void nothingGrowsByOneKindOfDialog_data();
    void nothingGrowsByOneKindOfDialog();
    void memoryStays_data();
    void memoryStays();
    void countNoticesALostObject();

private:
    std::optional<MemoryUse> m_bare; // by many openings of a view alone
};

namespace {

constexpr int Warming = 10;
constexpr int Openings = 100;
constexpr int OpeningsOfAKind = 25; // what all kinds stand on has its hundred
constexpr int ManyOpenings = 400;
constexpr int SignalsPerCycle = 250; // 100,000 in many openings

// What pages may leave behind beside bare views, in megabytes.
constexpr double MostHeap = 0.5;
constexpr double MostResident = 2.0;

const QString Calls = QStringLiteral("qrc:/pages/calls.html");
const QString Connect = QStringLiteral(
    "bridge.rejected.connect(function () {}); bridge.update.connect(function () {})");

// Opened by exec() as a slot opens it, closed by its page.
template <class Dialog>
void execAndClose(Dialog &dialog, const QString &way, const QString &connecting = Connect)
{
    PageProbe page(dialog.webView());
    QObject::connect(dialog.webView(), &QWebView::loadFinished, &dialog, [&] {
        QTimer::singleShot(0, &dialog, [&] {
            page.evaluate(connecting);
            if (way.isEmpty())
                dialog.close();
            else
                page.evaluate(way);
        });
    });
    dialog.exec();
}

// A page as a tool's panel shows it, of a mediator that lives longer than many of them.
struct ShownPage
{
    ShownPage(StandInHost &host, JS_Mediator &mediator) : view(&host, nullptr), page(&view)
    {
        host.attachMediator(&view, &mediator);
        view.resize(300, 200);
        view.show();
        view.load(QUrl(Calls));
        page.waitLoaded();
        page.evaluate(Connect);
    }

    GUI_WebView view;
    PageProbe page;
};

void signal(JS_Mediator &mediator)
{
    PageSignal::send(&mediator, [&] { emit mediator.update(); });
}

using Mediator = std::shared_ptr<JS_Mediator_Dialog>;

// The cycle gets a mediator, the same one each time.
template <class Body> Cycle withMediator(Body body)
{
    return [body, mediator = Mediator()](StandInHost &host) mutable {
        if (!mediator)
            mediator = std::make_shared<JS_Mediator_Dialog>(&host, QStringLiteral("bridge"));
        body(host, *mediator);
    };
}

Cycle panelCycle()
{
    return withMediator([](StandInHost &host, JS_Mediator &mediator) {
        const ShownPage shown(host, mediator);
        signal(mediator);
    });
}

// The cycle gets a page that stays.
template <class Body> Cycle withPage(Body body)
{
    return withMediator([body, shown = std::shared_ptr<ShownPage>()](
                            StandInHost &host, JS_Mediator &mediator) mutable {
        if (!shown)
            shown = std::make_shared<ShownPage>(host, mediator);
        body(host, mediator, *shown);
    });
}

Cycle reloadCycle()
{
    return withPage([](StandInHost &, JS_Mediator &mediator, ShownPage &shown) {
        shown.view.reload();
        shown.page.waitLoaded();
        shown.page.evaluate(Connect);
        signal(mediator);
    });
}

Cycle secondViewCycle()
{
    return withPage([](StandInHost &host, JS_Mediator &mediator, ShownPage &) {
        const ShownPage second(host, mediator);
        signal(mediator);
    });
}

Cycle signalCycle()
{
    return withPage([](StandInHost &, JS_Mediator &mediator, ShownPage &) {
        for (int i = 0; i < SignalsPerCycle; ++i)
            signal(mediator);
    });
}

// The engine alone.
void showBareView(StandInHost &)
{
    QWebView view;
    PageProbe page(&view);
    view.resize(300, 200);
    view.show();
    view.load(QUrl(Calls));
    page.waitLoaded();
}

void openAndCount(const Cycle &cycle, int openings)
{
    LogCapture log;
    StandInHost host;
    host.setJournalEnabled(false);
    for (int i = 0; i < Warming; ++i)
        cycle(host);
    ObjectCount::settle();
    const int widgets = QApplication::allWidgets().size();
    const int windows = QGuiApplication::allWindows().size();
    ObjectCount count;
    for (int i = 0; i < openings; ++i)
        cycle(host);
    ObjectCount::settle();
    QCOMPARE(QApplication::allWidgets().size(), widgets);
    QCOMPARE(QGuiApplication::allWindows().size(), windows);
    QCOMPARE(count.live(), 0);
    QCOMPARE(host.deterrals(), 0);
    QCOMPARE(host.state().openDialogs, 0);
}

MemoryUse growthOf(const Cycle &cycle, StandInHost &host)
{
    const MemoryUse before = MemoryUse::now();
    for (int i = 0; i < ManyOpenings; ++i)
        cycle(host);
    const MemoryUse after = MemoryUse::now();
    return {after.heap - before.heap, after.resident - before.resident};
}

template <class Dialog> Cycle formatCycle(const QString &way)
{
    return [way](StandInHost &host) {
        Dialog dialog(&host);
        const QString mediator = dialog.mediator()->pageName();
        execAndClose(dialog, way.isEmpty() ? way : mediator + way,
                     mediator + ".rejected.connect(function () {})");
    };
}

// Its page asks for the defaults and the names, of mediators of its own each.
Cycle addDeviceCycle(const QString &way)
{
    return [way](StandInHost &host) {
        GUI_AddDeviceDialog dialog(&host, true, nullptr);
        execAndClose(dialog, way.isEmpty() ? way : "adddevice" + way,
                     QStringLiteral("adddevice.rejected.connect(function () {});"
                                    "adddevice.getAddDeviceDialogSettings();"
                                    "adddeviceAutoCameraName.autoCompleteCameraList()"));
    };
}

// On a camera that has records, which an end without acceptance may write back.
Cycle customInfoCycle(const QString &way)
{
    return [way](StandInHost &host) {
        if (host.cameraCount() == 0) {
            StandInCamera *camera = host.addCamera();
            camera->state().customInfo = {QVariantMap{{"name", "Speed"}, {"value", "3"}}};
            host.select(camera->key(), true);
        }
        GUI_CustomInfoDialog dialog(&host, nullptr, false);
        execAndClose(dialog, way.isEmpty() ? way : "CustomInfoDialog" + way,
                     QStringLiteral("CustomInfoDialog.rejected.connect(function () {});"
                                    "CustomInfoDialog.getCustomInfo(1)"));
    };
}

// Its page has a list, a preview and a font panel that it cancels, and opens another dialog.
Cycle editInfoCycle(bool saveForm, const QString &way)
{
    return [saveForm, way](StandInHost &host) {
        if (host.cameraCount() == 0)
            host.addCamera();
        GUI_EditInfoDialog dialog(&host, 1, saveForm, nullptr, 0, {}, QDateTime());
        DialogRun::setAnswer([](QDialog &) { return int(QDialog::Rejected); });
        execAndClose(dialog, way.isEmpty() ? way : "editInfo" + way,
                     QStringLiteral("editInfo.finished.connect(function () {});"
                                    "editInfo.getInfoSettingsHtml(1); editInfo.getThumbnail();"
                                    "editInfo.backupFontSettings(1); editInfo.writeFontCancel();"
                                    "editInfo.editFrameDispFormat()"));
        DialogRun::setAnswer(DialogRun::Answer());
    };
}

// Its page lists, looks at a path and chooses a partition.
Cycle fileSaveCycle(const QString &way)
{
    return [way](StandInHost &host) {
        if (host.cameraCount() == 0)
            host.addCamera();
        GUI_FileSaveDialog dialog(&host, QStringLiteral("Export"), Calls,
                                  QStringLiteral("filesavedialog"), nullptr);
        const QString page = QStringLiteral("filesavedialog.");
        execAndClose(dialog, way.isEmpty() ? way : page + way,
                     page + "selectedDocHeadCount.connect(function () {});" + page + "list();" +
                         page + "select(1, 1, 8, 8);" + page + "getExportFile();" + page +
                         "exportTarget(1, 1)");
    };
}

Cycle convertCycle(const QString &way)
{
    return [way](StandInHost &host) {
        GUI_ConvertParameterEditDialog dialog(&host, nullptr, {1}, 1, 1);
        const QString page = QStringLiteral("convertparametereditdialog.");
        execAndClose(dialog, way.isEmpty() ? way : page + way,
                     "savefile.refreshed.connect(function () {});" + page + "getExportPath()");
    };
}

// Its page lists presets, composes the name of a file, and applies a preset.
Cycle cameraSettingsCycle(const QString &way)
{
    return [way](StandInHost &host) {
        if (host.cameraCount() == 0) {
            StandInCamera::Description camera;
            camera.presets = {{1, QString(), false}};
            host.addCamera(camera);
        }
        GUI_WebViewDialog dialog(&host, QStringLiteral("Presets"), Calls,
                                 new JS_Mediator_CameraSettingsDialog(
                                     &host, JS_Mediator_CameraSettingsDialog::ApplyPresets),
                                 nullptr);
        const QString page = QStringLiteral("camerasettings.");
        execAndClose(dialog, way.isEmpty() ? way : page + way,
                     page + "rejected.connect(function () {});" + page + "getPresetList();" + page +
                         "getFileName(true);" + page + "recvFileNameDialogData()");
    };
}

// With the files, the presets, and one of them applied.
Cycle cameraFileCycle(bool isAccepted)
{
    return [isAccepted](StandInHost &host) {
        if (host.cameraCount() == 0)
            host.addCamera();
        GUI_CameraFileDialog dialog(&host, QFileDialog::AcceptOpen, nullptr);
        dialog.show();
        dialog.on_checkLoadCamera_change(true);
        if (isAccepted)
            dialog.on_ok_clicked();
        else
            dialog.on_cancel_clicked();
    };
}

class DialogTool : public PLG_Common
{
public:
    DialogTool() { m_toolName = QStringLiteral("t_dialog"); }

    GUI_ModelessPatternDialog *createModelessPatternDialog(bool) override
    {
        return new GUI_ModelessPatternDialog(
            m_host, QStringLiteral("Pattern"), Calls,
            new JS_Mediator_Dialog(m_host, QStringLiteral("bridge")), nullptr);
    }
};

template <class Dialog> Cycle nativeCycle()
{
    return [](StandInHost &) {
        Dialog dialog(nullptr, Qt::WindowCloseButtonHint, true);
        dialog.show();
        dialog.slotDisableCloseButton();
        dialog.slotEnableCloseButton();
        dialog.close();
    };
}

}

void TestDialogGrowth::nothingGrows_data()
{
    QTest::addColumn<Cycle>("cycle");
    const auto pageDialog = [](const QString &way) {
        return Cycle([way](StandInHost &host) {
            GUI_WebViewDialog dialog(&host, QStringLiteral("Calls"), Calls,
                                     new JS_Mediator_Dialog(&host, QStringLiteral("bridge")),
                                     nullptr);
            dialog.addMediator(new JS_Mediator(&host, QStringLiteral("second")));
            execAndClose(dialog, way);
        });
    };
    QTest::newRow("dialog, accepted") << pageDialog("bridge.accept()");
    QTest::newRow("dialog, rejected") << pageDialog("bridge.reject()");
    QTest::newRow("dialog, closed by its frame") << pageDialog("");
    QTest::newRow("dialog without its page") << Cycle([](StandInHost &host) {
        GUI_WebViewDialog dialog(&host, QStringLiteral("Calls"),
                                 QStringLiteral("qrc:/pages/absent.html"),
                                 new JS_Mediator_Dialog(&host, QStringLiteral("bridge")), nullptr);
        execAndClose(dialog, QString());
    });
    QTest::newRow("dialog without a mediator") << Cycle([](StandInHost &host) {
        GUI_WebViewDialog dialog(&host, QStringLiteral("Calls"), Calls, nullptr, nullptr);
        QObject::connect(dialog.webView(), &QWebView::loadFinished, &dialog,
                         [&] { QTimer::singleShot(0, &dialog, [&] { dialog.close(); }); });
        dialog.exec();
    });
    QTest::newRow("dialog that goes while it loads") << Cycle([](StandInHost &host) {
        GUI_WebViewDialog dialog(&host, QStringLiteral("Calls"), Calls,
                                 new JS_Mediator_Dialog(&host, QStringLiteral("bridge")), nullptr);
        dialog.show();
    });
    QTest::newRow("dialog with an embedded widget") << Cycle([](StandInHost &host) {
        QWidget area;
        host.state().webPageEmbeddedMdi = &area;
        GUI_WebViewDialog dialog(&host, QStringLiteral("Embed"),
                                 QStringLiteral("qrc:/pages/embed.html"),
                                 new JS_Mediator_Dialog(&host, QStringLiteral("bridge")), nullptr);
        execAndClose(dialog, QString());
    });
    QTest::newRow("tool with its modeless dialog") << Cycle([](StandInHost &host) {
        DialogTool tool;
        host.addPlugin(&tool);
        PageProbe page(tool.ensureDialog(true)->webView());
        tool.showDialog();
        page.waitLoaded();
        page.evaluate(Connect);
        tool.closeDialog();
        tool.showDialog();
        page.evaluate("bridge.reject()");
        host.removePlugin(&tool);
    });
    QTest::newRow("panel") << panelCycle();
    QTest::newRow("reload") << reloadCycle();
    QTest::newRow("second view") << secondViewCycle();
    QTest::newRow("signals") << signalCycle();
    QTest::newRow("select box") << Cycle([](StandInHost &host) {
        GUI_SelectBox box(&host);
        PageProbe page(box.webView());
        box.showPartitions({1, 2}, QRect(10, 10, 80, 20));
        page.waitLoaded();
        box.mediator()->slotNotifyPartition(QStringLiteral("1"));
    });
    QTest::newRow("plain dialog") << nativeCycle<GUI_Dialog>();
    QTest::newRow("progress") << nativeCycle<GUI_ProgressDialog>();
    QTest::newRow("marquee progress") << nativeCycle<GUI_MarqueeProgressDialog>();
    QTest::newRow("progress that is waited for") << nativeCycle<GUI_SyncProgress>();
}

void TestDialogGrowth::nothingGrows()
{
    QFETCH(Cycle, cycle);
    openAndCount(cycle, Openings);
}

void TestDialogGrowth::nothingGrowsByOneKindOfDialog_data()
{
    QTest::addColumn<Cycle>("cycle");
    QTest::newRow("frame format") << formatCycle<GUI_FrameFormatDialog>(".ok()");
    QTest::newRow("record rate format") << formatCycle<GUI_RecordRateFormatDialog>(".cancel()");
    QTest::newRow("recording time format") << formatCycle<GUI_RectimeFormatDialog>(".cancel()");
    QTest::newRow("shutter speed format") << formatCycle<GUI_ShutterSpeedFormatDialog>("");
    QTest::newRow("comments") << Cycle([](StandInHost &host) {
        GUI_CommentDialog dialog(&host);
        execAndClose(dialog, QStringLiteral("comment_mediator.comment_ok()"), QString());
    });
    for (const char *way : {".accept()", ".reject()", ""})
        QTest::addRow("custom info, %s", *way ? way + 1 : "closed by its frame")
            << customInfoCycle(QString::fromLatin1(way));
    for (const char *way : {".ok()", ".cancel()", ".hide()", ""}) {
        const char *name = *way ? way + 1 : "closed by its frame";
        QTest::addRow("information on the screen, %s", name) << editInfoCycle(false, way);
        QTest::addRow("information in what is saved, %s", name) << editInfoCycle(true, way);
    }
    for (const char *way : {".accept()", ".reject()", ""}) {
        const QString object = QStringLiteral("addnumberdialog");
        const QString end = *way ? object + way : QString();
        QTest::addRow("a new camera, %s", *way ? way + 1 : "closed by its frame")
            << addDeviceCycle(QLatin1String(way));
        QTest::addRow("digits of a number, %s", *way ? way + 1 : "closed by its frame")
            << Cycle([object, end](StandInHost &host) {
                   GUI_AddNumberDialog dialog(&host, nullptr, 2, 2, 1);
                   execAndClose(dialog, end, object + ".rejected.connect(function () {})");
               });
    }
    for (const char *way : {".accept()", ".reject()", ""}) {
        const QString object = QStringLiteral("discoverysearch");
        const QString end = *way ? object + way : QString();
        QTest::addRow("search for cameras, %s", *way ? way + 1 : "closed by its frame")
            << Cycle([object, end](StandInHost &host) {
                   if (host.cameraCount() == 0)
                       host.addCamera();
                   GUI_DiscoverySearchDialog dialog(&host, host.searchNetwork(), nullptr);
                   execAndClose(dialog, end,
                                object + ".rejected.connect(function () {});" + object +
                                    ".getSearchAgainResults();" + object +
                                    ".connect('[\"192.168.0.10\"]')");
               });
    }
    for (const char *way : {".ok()", ".cancel()", ""}) {
        const QString object = QStringLiteral("cameranetworksetting");
        const QString end = *way ? object + way : QString();
        QTest::addRow("settings of the search, %s", *way ? way + 1 : "closed by its frame")
            << Cycle([object, end](StandInHost &host) {
                   GUI_CameraNetworkSettingDialog dialog(&host, nullptr);
                   execAndClose(dialog, end,
                                object + ".rejected.connect(function () {});" + object +
                                    ".setCameraSearchWay(0)");
               });
    }
    QTest::newRow("time code") << Cycle([](StandInHost &host) {
        GUI_TimeCodeCustomDialog dialog(&host, nullptr);
        execAndClose(dialog, QStringLiteral("timecode_custom_mediator.ok()"), QString());
    });
    for (const char *way : {"accept()", "reject()", ""}) {
        const char *const end = *way ? way : "closed by its frame";
        QTest::addRow("save of a file, %s", end) << fileSaveCycle(QLatin1String(way));
        QTest::addRow("what follows a conversion, %s", end) << convertCycle(QLatin1String(way));
    }
    QTest::newRow("camera settings, accepted")
        << cameraSettingsCycle(R"(ok('{"presetList":[{"key":"1","value":1}]}'))");
    QTest::newRow("camera settings, cancelled") << cameraSettingsCycle("cancel()");
    QTest::newRow("camera settings, closed by its frame") << cameraSettingsCycle("");
    QTest::newRow("file of camera settings, accepted") << cameraFileCycle(true);
    QTest::newRow("file of camera settings, cancelled") << cameraFileCycle(false);
}

void TestDialogGrowth::nothingGrowsByOneKindOfDialog()
{
    QFETCH(Cycle, cycle);
    openAndCount(cycle, OpeningsOfAKind);
}

void TestDialogGrowth::memoryStays_data()
{
    QTest::addColumn<Cycle>("cycle");
    QTest::newRow("panel") << panelCycle();
    QTest::newRow("reload") << reloadCycle();
    QTest::newRow("second view") << secondViewCycle();
    QTest::newRow("100,000 signals") << signalCycle();
}

void TestDialogGrowth::memoryStays()
{
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the sanitizer keeps the heap");
#endif
    QFETCH(Cycle, cycle);
    StandInHost host;
    host.setJournalEnabled(false);
    for (int i = 0; i < Warming; ++i) {
        showBareView(host);
        cycle(host);
    }
    if (!m_bare) {
        growthOf(showBareView, host); // the engine's own pools
        m_bare = growthOf(showBareView, host);
    }
    const MemoryUse bare = *m_bare;
    for (int i = 0; i < ManyOpenings; ++i)
        cycle(host);
    ObjectCount::settle();
    const ObjectCount count;
    const MemoryUse ours = growthOf(cycle, host);
    qInfo("%s: %d objects, heap %.2f MB (bare views %.2f), resident %.2f MB (%.2f)",
          QTest::currentDataTag(), count.live(), ours.heap, bare.heap, ours.resident,
          bare.resident);
    QCOMPARE(count.live(), 0);
    QVERIFY(ours.heap - bare.heap <= MostHeap);
    QVERIFY(ours.resident - bare.resident <= MostResident);
}

void TestDialogGrowth::countNoticesALostObject()
{
    ObjectCount count;
    auto lost = std::make_unique<QObject>();
    QCOMPARE(count.live(), 1);
    lost.reset();
    QCOMPARE(count.live(), 0);
}

int main(int argc, char **argv)
{
    TestDialogGrowth test;
    return runTest(argc, argv, test);
}

#include "test_dialog_growth.moc"
