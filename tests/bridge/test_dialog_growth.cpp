#include "bridge/dialog/GUI_MarqueeProgressDialog.h"
#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/dialog/GUI_SyncProgress.h"
#include "device/selectbox/GUI_SelectBox.h"
#include "device/selectbox/JS_Mediator_SelectBox.h"
#include "plugin/PLG_Common.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/ObjectCount.h"
#include "tests/support/TestLog.h"

#include <QTimer>

#include <functional>

// Dialogs that are opened and closed a hundred times leave nothing behind.

using Cycle = std::function<void(StandInHost &)>;
Q_DECLARE_METATYPE(Cycle)

class TestDialogGrowth : public TestBase
{
    Q_OBJECT

private slots:
    void nothingGrows_data();
    void nothingGrows();
    void countNoticesALostObject();
};

namespace {

constexpr int Warming = 10;
constexpr int Openings = 100;

const QString Calls = QStringLiteral("qrc:/pages/calls.html");
const QString Connect = QStringLiteral(
    "bridge.rejected.connect(function () {}); bridge.update.connect(function () {})");

// Opened by exec() as a slot opens it, closed by its page.
void execAndClose(GUI_WebViewDialog &dialog, const QString &way)
{
    PageProbe page(dialog.webView());
    QObject::connect(dialog.webView(), &QWebView::loadFinished, &dialog, [&] {
        QTimer::singleShot(0, &dialog, [&] {
            page.evaluate(Connect);
            if (way.isEmpty())
                dialog.close();
            else
                page.evaluate(way);
        });
    });
    dialog.exec();
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
    LogCapture log;
    StandInHost host;
    host.setJournalEnabled(false);
    for (int i = 0; i < Warming; ++i)
        cycle(host);
    ObjectCount::settle();
    const int widgets = QApplication::allWidgets().size();
    const int windows = QGuiApplication::allWindows().size();
    ObjectCount count;
    for (int i = 0; i < Openings; ++i)
        cycle(host);
    ObjectCount::settle();
    QCOMPARE(QApplication::allWidgets().size(), widgets);
    QCOMPARE(QGuiApplication::allWindows().size(), windows);
    QCOMPARE(count.live(), 0);
    QCOMPARE(host.deterrals(), 0);
    QCOMPARE(host.state().openDialogs, 0);
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
