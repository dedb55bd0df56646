#include "bridge/page/GUI_WebView.h"
#include "record/format/GUI_FrameFormatDialog.h"
#include "record/format/GUI_RecordRateFormatDialog.h"
#include "record/format/GUI_RectimeFormatDialog.h"
#include "record/format/GUI_ShutterSpeedFormatDialog.h"
#include "record/format/JS_Mediator_FrameFormatDialog.h"
#include "record/format/JS_Mediator_RecordRateFormatDialog.h"
#include "record/format/JS_Mediator_RectimeFormatDialog.h"
#include "record/format/JS_Mediator_ShutterSpeedFormatDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/TestLog.h"

#include <QMetaMethod>

#include <functional>
#include <memory>

// The four dialogs that set how a value is written, worked by their pages.

namespace {

/// One of the dialogs, as it is told.
struct Kind
{
    std::function<GUI_WebViewDialog *(StandInHost &)> make;
    const QMetaObject *mediator;
    QString object; ///< on the page
    QString title;
    QSize size;
    QStringList slotNames;
};

/// A setting of one of them.
struct Setting
{
    QString kind;
    QString key;
    QString type; ///< "Int" or "Bool"
    QString getter;
    QString setter;
    QString label; ///< in the trace of the setter; empty without a trace
};

}

Q_DECLARE_METATYPE(Kind)
Q_DECLARE_METATYPE(Setting)

class TestFormatDialogs : public TestBase
{
    Q_OBJECT

private slots:
    void windowIsAsTold_data();
    void windowIsAsTold();
    void slotsStandInOrder_data();
    void slotsStandInOrder();
    void settingIsReadAnewAndWrittenAtOnce_data();
    void settingIsReadAnewAndWrittenAtOnce();
    void failureGivesTheNeutralValue_data();
    void failureGivesTheNeutralValue();
    void failedWriteGoesToTheHost_data();
    void failedWriteGoesToTheHost();
    void cancelRestoresWhatWasThereAtTheBeginning_data();
    void cancelRestoresWhatWasThereAtTheBeginning();
    void failedCancelStaysOpen_data();
    void failedCancelStaysOpen();
    void settingThatCouldNotBeReadStaysAsItIs_data();
    void settingThatCouldNotBeReadStaysAsItIs();
    void wholeStory_data();
    void wholeStory();
    void recordingTimeFollowsAtOnce();
    void recordingTimeIsNotRefreshedBehindAFailedWrite();
    void recordingTimeStaysOpenBehindAFailedRefresh();
    void frameKeepsTheChangesUnlessThePageCancels_data();
    void frameKeepsTheChangesUnlessThePageCancels();
    void failureWhileConstructedReachesTheCaller_data();
    void failureWhileConstructedReachesTheCaller();
};

namespace {

template <class Dialog> GUI_WebViewDialog *make(StandInHost &host)
{
    return new Dialog(&host);
}

const QMap<QString, Kind> &kinds()
{
    static const QMap<QString, Kind> all = {
        {"shutter speed",
         {make<GUI_ShutterSpeedFormatDialog>,
          &JS_Mediator_ShutterSpeedFormatDialog::staticMetaObject,
          "shutter_format_dlg",
          "Shutter speed disp",
          {300, 150},
          {"ok()", "cancel()", "getShutterSpeedFormat()", "setShutterSpeedFormat(int)",
           "getShutterSpeedTimeUnit()", "setShutterSpeedTimeUnit(int)",
           "isShutterSpeedInsertDelimiter()", "setShutterSpeedInsertDelimiter(bool)"}}},
        {"record rate",
         {make<GUI_RecordRateFormatDialog>,
          &JS_Mediator_RecordRateFormatDialog::staticMetaObject,
          "recordRateFormatDialog",
          "recordrate disp",
          {300, 100},
          {"ok()", "cancel()", "isRecordRateInsertDelimiter()",
           "setRecordRateInsertDelimiter(bool)"}}},
        {"frame number",
         {make<GUI_FrameFormatDialog>,
          &JS_Mediator_FrameFormatDialog::staticMetaObject,
          "frameFormatDialog",
          "frame disp",
          {300, 100},
          {"ok()", "cancel()", "isFrameInsertDelimiter()", "setFrameInsertDelimiter(bool)"}}},
        {"recording time",
         {make<GUI_RectimeFormatDialog>,
          &JS_Mediator_RectimeFormatDialog::staticMetaObject,
          "rectime_format_dlg",
          "Recording time disp",
          {330, 110},
          {"ok()", "cancel()", "getRecTimeUnit()", "setRecTimeUnit(int)"}}},
    };
    return all;
}

const QVector<Setting> &settings()
{
    static const QVector<Setting> all = {
        {"shutter speed", "display/ShutterSpeed", "Int", "getShutterSpeedFormat",
         "setShutterSpeedFormat", "format"},
        {"shutter speed", "display/ShutterSpeedUnit", "Int", "getShutterSpeedTimeUnit",
         "setShutterSpeedTimeUnit", "unit"},
        {"shutter speed", "display/shutterSpeedInsertDelimiter", "Bool",
         "isShutterSpeedInsertDelimiter", "setShutterSpeedInsertDelimiter", "val"},
        {"record rate", "display/recordRateInsertDelimiter", "Bool", "isRecordRateInsertDelimiter",
         "setRecordRateInsertDelimiter", "val"},
        {"frame number", "display/frameInsertDelimiter", "Bool", "isFrameInsertDelimiter",
         "setFrameInsertDelimiter", "val"},
        {"recording time", "info/RecTimeUnit", "Int", "getRecTimeUnit", "setRecTimeUnit", ""},
    };
    return all;
}

void addKinds()
{
    QTest::addColumn<Kind>("kind");
    for (auto kind = kinds().cbegin(); kind != kinds().cend(); ++kind)
        QTest::newRow(qPrintable(kind.key())) << kind.value();
}

void addSettings()
{
    QTest::addColumn<Setting>("setting");
    for (const Setting &setting : settings())
        QTest::newRow(qPrintable(setting.key)) << setting;
}

struct Shown
{
    explicit Shown(const Kind &shownKind) : kind(shownKind)
    {
        host.state().mainWidget = &mainWidget;
        dialog.reset(kind.make(host));
        page = std::make_unique<PageProbe>(dialog->webView());
        dialog->show();
        loaded = page->waitLoaded();
        host.clearJournal();
    }
    ~Shown()
    {
        page.reset();
        dialog.reset();
    }

    QString call(const QString &slot) { return page->call(kind.object + "." + slot); }

    QWidget mainWidget;
    StandInHost host;
    Kind kind;
    std::unique_ptr<GUI_WebViewDialog> dialog;
    std::unique_ptr<PageProbe> page;
    bool loaded = false;
};

QString written(const Setting &setting, const QString &value)
{
    return "setPref" + setting.type + "(\"" + setting.key + "\", " + value + ")";
}

QString read(const Setting &setting)
{
    return "getPref" + setting.type + "(\"" + setting.key + "\", invalid)";
}

bool isFlag(const Setting &setting)
{
    return setting.type == QLatin1String("Bool");
}

}

void TestFormatDialogs::windowIsAsTold_data()
{
    addKinds();
}

void TestFormatDialogs::windowIsAsTold()
{
    QFETCH(Kind, kind);
    QWidget mainWidget;
    StandInHost host;
    host.state().mainWidget = &mainWidget;
    host.state().translations.insert(kind.title, "Anzeige");
    const std::unique_ptr<GUI_WebViewDialog> dialog(kind.make(host));
    PageProbe page(dialog->webView());
    QCOMPARE(dialog->parentWidget(), &mainWidget);
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Anzeige"));
    QCOMPARE(dialog->minimumSize(), kind.size);
    QCOMPARE(dialog->maximumSize(), kind.size);
    QCOMPARE(dialog->size(), kind.size);
    QCOMPARE(int(dialog->windowFlags() & ~Qt::WindowType_Mask), 0x8003000);
    dialog->show();
    QVERIFY(page.waitLoaded());
    QVERIFY(page.isFound());
    QCOMPARE(page.call("typeof " + kind.object + ".ok"), QStringLiteral("\"function\""));
}

void TestFormatDialogs::slotsStandInOrder_data()
{
    addKinds();
}

void TestFormatDialogs::slotsStandInOrder()
{
    QFETCH(Kind, kind);
    QStringList methods;
    for (int i = kind.mediator->methodOffset(); i < kind.mediator->methodCount(); ++i)
        methods.append(QString::fromLatin1(kind.mediator->method(i).methodSignature()));
    QCOMPARE(methods, kind.slotNames);
}

void TestFormatDialogs::settingIsReadAnewAndWrittenAtOnce_data()
{
    addSettings();
}

void TestFormatDialogs::settingIsReadAnewAndWrittenAtOnce()
{
    QFETCH(Setting, setting);
    Shown shown(kinds().value(setting.kind));
    QVERIFY(shown.loaded);
    const QString value = isFlag(setting) ? "true" : "3";
    LogCapture log;
    shown.call(setting.setter + "(" + value + ")");
    QStringList calls = {written(setting, value)};
    QStringList trace;
    if (setting.label.isEmpty()) {
        calls.append("refreshDocumentInfo(true)");
    } else {
        const QString name =
            QString::fromLatin1(shown.kind.mediator->className()) + "::" + setting.setter;
        trace = QStringList({"[ENTER] \"" + name + "\" \"[" + setting.label + ":" + value + "]\"",
                             "[LEAVE] \"" + name + "\""});
    }
    QCOMPARE(shown.host.journal(), calls);
    QCOMPARE(log.texts(), trace);
    QCOMPARE(shown.host.settings().value(setting.key, QVariant()).toString(), value);

    shown.host.clearJournal();
    QCOMPARE(shown.call(setting.getter + "()"), value);
    QCOMPARE(shown.host.journal(), QStringList({read(setting)}));
}

void TestFormatDialogs::failureGivesTheNeutralValue_data()
{
    addSettings();
}

void TestFormatDialogs::failureGivesTheNeutralValue()
{
    QFETCH(Setting, setting);
    Shown shown(kinds().value(setting.kind));
    shown.host.settings().setValue(setting.key, 1);
    shown.host.failOn("getPref" + setting.type);
    QCOMPARE(shown.call(setting.getter + "()"),
             isFlag(setting) ? QStringLiteral("false") : QStringLiteral("0"));
    QCOMPARE(shown.host.handledErrors(), QStringList({"getPref" + setting.type + " failed"}));
}

void TestFormatDialogs::failedWriteGoesToTheHost_data()
{
    addSettings();
}

void TestFormatDialogs::failedWriteGoesToTheHost()
{
    QFETCH(Setting, setting);
    Shown shown(kinds().value(setting.kind));
    shown.host.failOn("setPref" + setting.type);
    shown.call(setting.setter + "(1)");
    QCOMPARE(shown.host.handledErrors(), QStringList({"setPref" + setting.type + " failed"}));
    QVERIFY(shown.dialog->isVisible());
}

void TestFormatDialogs::cancelRestoresWhatWasThereAtTheBeginning_data()
{
    addSettings();
}

void TestFormatDialogs::cancelRestoresWhatWasThereAtTheBeginning()
{
    QFETCH(Setting, setting);
    const Kind kind = kinds().value(setting.kind);
    StandInHost host;
    host.settings().setValue(setting.key, 1);
    const std::unique_ptr<GUI_WebViewDialog> dialog(kind.make(host));
    PageProbe page(dialog->webView());
    dialog->show();
    QVERIFY(page.waitLoaded());
    const int other = isFlag(setting) ? 0 : 7; // by another component, before and behind the page
    host.settings().setValue(setting.key, other);
    page.call(kind.object + "." + setting.setter + "(0)");
    host.settings().setValue(setting.key, other);
    page.call(kind.object + ".cancel()");
    QCOMPARE(host.settings().value(setting.key, QVariant()).toInt(), 1);
    QVERIFY(!dialog->isVisible());
}

void TestFormatDialogs::failedCancelStaysOpen_data()
{
    addSettings();
}

void TestFormatDialogs::failedCancelStaysOpen()
{
    QFETCH(Setting, setting);
    Shown shown(kinds().value(setting.kind));
    QSignalSpy rejected(shown.dialog->mediator(), &JS_Mediator_Dialog::reject);
    shown.host.failOn("setPref" + setting.type);
    shown.call("cancel()");
    QCOMPARE(shown.host.handledErrors(), QStringList({"setPref" + setting.type + " failed"}));
    QCOMPARE(rejected.count(), 0);
    QVERIFY(shown.dialog->isVisible());
    shown.call("cancel()");
    QVERIFY(!shown.dialog->isVisible());
}

void TestFormatDialogs::settingThatCouldNotBeReadStaysAsItIs_data()
{
    addSettings();
}

void TestFormatDialogs::settingThatCouldNotBeReadStaysAsItIs()
{
    QFETCH(Setting, setting);
    const Kind kind = kinds().value(setting.kind);
    StandInHost host;
    for (const char *type : {"getPrefInt", "getPrefBool"}) {
        for (int nth = 1; nth <= 2; ++nth)
            host.failOn(type, nth);
    }
    const std::unique_ptr<GUI_WebViewDialog> dialog(kind.make(host));
    host.clearFaults();
    host.clearJournal();
    QMetaObject::invokeMethod(dialog->mediator(), "cancel");
    QCOMPARE(host.journal().filter(QStringLiteral("setPref")), QStringList());
    QVERIFY(!host.handledErrors().isEmpty());
}

void TestFormatDialogs::wholeStory_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("way");
    for (const QString &name : kinds().keys()) {
        for (const char *way : {"ok", "cancel"})
            QTest::newRow(qPrintable(name + ", " + way)) << name << QString::fromLatin1(way);
    }
}

// From opening to closing: all that the host is asked and told, and the trace behind it.
void TestFormatDialogs::wholeStory()
{
    QFETCH(QString, name);
    QFETCH(QString, way);
    const Kind kind = kinds().value(name);
    const QString mediator = QString::fromLatin1(kind.mediator->className());
    QStringList reads, writes;
    for (const Setting &setting : settings()) {
        if (setting.kind != name)
            continue;
        reads.append(read(setting));
        writes.append(written(setting, isFlag(setting) ? "false" : "0"));
    }
    const bool isTraced = name != QLatin1String("recording time");
    const bool isCancelled = way == QLatin1String("cancel");

    QWidget mainWidget;
    StandInHost host;
    host.state().mainWidget = &mainWidget;
    LogCapture log;
    {
        const std::unique_ptr<GUI_WebViewDialog> dialog(kind.make(host));
        PageProbe page(dialog->webView());
        dialog->show();
        QVERIFY(page.waitLoaded());
        log.clear();
        QSignalSpy finished(dialog.get(), &QDialog::finished);
        page.call(kind.object + "." + way + "()");
        QCOMPARE(finished.count(), 1);
        QCOMPARE(finished.first().first().toInt(),
                 int(isCancelled ? QDialog::Rejected : QDialog::Accepted));
    }
    QStringList calls = {"mainWidget()"};
    calls += reads;
    calls += QStringList({"needsDialogEnterNotice()", "translate(\"" + kind.title + "\")",
                          "attachMediator(GUI_WebView, " + mediator + ")", "deterUpdateUI(true)",
                          "mainWidget()", "deterUpdateUI(false)", "updateUI(4294967295, true)"});
    if (isCancelled) {
        calls += writes;
        if (!isTraced)
            calls.append("refreshDocumentInfo(true)");
    }
    QCOMPARE(host.journal(), calls);
    const QString scope = mediator + "::" + way;
    QCOMPARE(log.texts(),
             isTraced ? QStringList({"[ENTER] \"" + scope + "\" \"\"", "[LEAVE] \"" + scope + "\""})
                      : QStringList());
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestFormatDialogs::recordingTimeFollowsAtOnce()
{
    Shown shown(kinds().value(QStringLiteral("recording time")));
    shown.call("setRecTimeUnit(2)");
    shown.call("cancel()");
    QCOMPARE(shown.host.journal(),
             QStringList({"setPrefInt(\"info/RecTimeUnit\", 2)", "refreshDocumentInfo(true)",
                          "setPrefInt(\"info/RecTimeUnit\", 0)", "refreshDocumentInfo(true)"}));
}

void TestFormatDialogs::recordingTimeIsNotRefreshedBehindAFailedWrite()
{
    Shown shown(kinds().value(QStringLiteral("recording time")));
    shown.host.failOn(QStringLiteral("setPrefInt"));
    shown.call("setRecTimeUnit(2)");
    QVERIFY(!shown.host.journal().contains("refreshDocumentInfo(true)"));
}

void TestFormatDialogs::recordingTimeStaysOpenBehindAFailedRefresh()
{
    Shown shown(kinds().value(QStringLiteral("recording time")));
    shown.host.failOn(QStringLiteral("refreshDocumentInfo"));
    shown.call("cancel()");
    QCOMPARE(shown.host.handledErrors(), QStringList({"refreshDocumentInfo failed"}));
    QVERIFY(shown.dialog->isVisible());
}

void TestFormatDialogs::frameKeepsTheChangesUnlessThePageCancels_data()
{
    QTest::addColumn<Setting>("setting");
    QTest::addColumn<bool>("pageCancels");
    for (const Setting &setting : settings()) {
        QTest::newRow(qPrintable(setting.key)) << setting << false;
        QTest::newRow(qPrintable(setting.key + ", page cancels")) << setting << true;
    }
}

void TestFormatDialogs::frameKeepsTheChangesUnlessThePageCancels()
{
    QFETCH(Setting, setting);
    QFETCH(bool, pageCancels);
    Shown shown(kinds().value(setting.kind));
    QSignalSpy finished(shown.dialog.get(), &QDialog::finished);
    const QString object = shown.kind.object;
    if (pageCancels)
        shown.page->evaluate(object + ".rejected.connect(function () { " + object +
                             ".cancel(); })");
    shown.call(setting.setter + "(1)");
    LogCapture log; // the frame is traced
    QVERIFY(shown.dialog->close());
    QCOMPARE(shown.host.settings().value(setting.key, QVariant()).toInt(), pageCancels ? 0 : 1);
    QCOMPARE(finished.count(), 1);
    QVERIFY(!shown.dialog->isVisible());
}

void TestFormatDialogs::failureWhileConstructedReachesTheCaller_data()
{
    addKinds();
}

void TestFormatDialogs::failureWhileConstructedReachesTheCaller()
{
    QFETCH(Kind, kind);
    for (const char *operation : {"mainWidget", "translate", "attachMediator"}) {
        StandInHost host;
        host.failOn(QString::fromLatin1(operation));
        QVERIFY_EXCEPTION_THROWN(delete kind.make(host), StandInFault);
        QCOMPARE(host.deterrals(), 0);
    }
}

int main(int argc, char **argv)
{
    TestFormatDialogs test;
    return runTest(argc, argv, test);
}

#include "test_format_dialogs.moc"
