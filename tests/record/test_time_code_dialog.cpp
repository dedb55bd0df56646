#include "bridge/page/GUI_WebView.h"
#include "record/timecode/GUI_TimeCodeCustomDialog.h"
#include "standin/host/StandInHost.h"
#include "standin/settings/TimeCodeSetting.h"
#include "tests/bridge/support/PageProbe.h"
#include "tests/support/OwnMethods.h"
#include "tests/support/TestLog.h"

#include <memory>

// The dialog of the time code, worked by its page.

class TestTimeCodeDialog : public TestBase
{
    Q_OBJECT

private slots:
    void windowIsAsTold();
    void slotsStandInOrder();
    void objectsComeBackWithEachPage();
    void fieldIsSetAndRead_data();
    void fieldIsSetAndRead();
    void sampleFollowsWhereItIsAskedTo_data();
    void sampleFollowsWhereItIsAskedTo();
    void sampleIsEmptyBeforeTheSettingsAreLoaded();
    void resetValueIsSnapped();
    void settingsAreLoaded();
    void settingsThatWereNeverStoredAreTheDefaults();
    void failedLoadChangesNothing();
    void resetTouchesNothingOfTheHost();
    void wholeStory_data();
    void wholeStory();
    void failedSaveStaysOpen();
    void failureInStyleAndTranslationGivesNeutralValues();
    void frameStoresNothing();
    void escapeIsIgnored();
    void dialogMayGoWhileItsHostIsAsked_data();
    void dialogMayGoWhileItsHostIsAsked();
    void dialogMayGoAtItsEnd_data();
    void dialogMayGoAtItsEnd();
};

namespace {

const QString Object = QStringLiteral("timecode_custom_mediator.");

struct Shown
{
    Shown() : dialog(new GUI_TimeCodeCustomDialog(&host, nullptr))
    {
        page = std::make_unique<PageProbe>(dialog->webView());
        dialog->show();
        loaded = page->waitLoaded();
        host.clearJournal();
    }
    ~Shown()
    {
        page.reset();
        delete dialog;
    }

    QString call(const QString &slot) { return page->call(Object + slot); }

    StandInHost host;
    QPointer<GUI_TimeCodeCustomDialog> dialog;
    std::unique_ptr<PageProbe> page;
    bool loaded = false;
};

TimeCodeRecord degrees()
{
    TimeCodeRecord record;
    record.timeCodeIndex = 1;
    record.oneFrame = 2.0;
    record.reset = true;
    record.resetValue = 5.0;
    return record;
}

void store(StandInHost &host, const TimeCodeRecord &record)
{
    QVERIFY(host.settings().setValues(TimeCodeSetting::values(record)));
}

}

void TestTimeCodeDialog::windowIsAsTold()
{
    StandInHost host;
    host.state().translations.insert("Current Time Setting", "Zeit");
    QWidget parent;
    GUI_TimeCodeCustomDialog dialog(&host, &parent);
    QCOMPARE(dialog.parentWidget(), &parent);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Zeit"));
    QCOMPARE(dialog.minimumSize(), QSize(450, 470));
    QCOMPARE(dialog.maximumSize(), QSize(450, 470));
    QVERIFY(dialog.windowFlags() & Qt::MSWindowsFixedSizeDialogHint);
    QVERIFY(dialog.windowFlags() & Qt::WindowCloseButtonHint);
    QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));
    QCOMPARE(dialog.webView()->parentWidget(), static_cast<QWidget *>(&dialog));
}

void TestTimeCodeDialog::slotsStandInOrder()
{
    const QStringList fields = {"Index:int",
                                "DisplayUnit:QString",
                                "OneFrame:QString",
                                "StartValue:QString",
                                "Reset:bool",
                                "ResetValue:QString",
                                "ResetUnitIndex:int",
                                "ScopeDisplayIndex:int",
                                "DecimalPlaceIndex:int",
                                "DecimalDivide:bool",
                                "UsingRihFileInfo:bool",
                                "OverWrite:bool",
                                "RealTime:bool"};
    QStringList expected = {"void populateJavaScriptWindowObject()", "void ok()", "void cancel()"};
    for (const QString &field : fields)
        expected.append(field.section(':', 1) + " getTimeCode" + field.section(':', 0, 0) + "()");
    expected.append("QString getTimeCodeSample()");
    for (const QString &field : fields) {
        const QString setter =
            "void setTimeCode" + field.section(':', 0, 0) + "(" + field.section(':', 1);
        expected.append(setter + ",bool)");
        expected.append(setter + ")");
    }
    expected += QStringList({"void loadTimeCodeSetting()", "bool saveTimeCodeSetting()",
                             "void reset()", "QString getStyle()", "QString translate(QString)"});
    QCOMPARE(expected.size(), 48);
    QCOMPARE(ownMethods(GUI_TimeCodeCustomDialog::staticMetaObject), expected);
}

void TestTimeCodeDialog::objectsComeBackWithEachPage()
{
    Shown shown;
    QVERIFY(shown.page->isFound());
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(shown.page->call("typeof timecode_custom_mediator + app.objectName"),
                 QStringLiteral("\"objectapp\""));
        shown.dialog->webView()->reload();
        QVERIFY(shown.page->waitLoaded());
        QCOMPARE(shown.host.journal(), QStringList({"appScriptObject()"}));
        shown.host.clearJournal();
    }
}

void TestTimeCodeDialog::fieldIsSetAndRead_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("read");
    QTest::newRow("Index") << "1"
                           << "1";
    QTest::newRow("DisplayUnit") << "'\"<b>%1\"'"
                                 << "\"\\\"<b>%1\\\"\"";
    QTest::newRow("OneFrame") << "'-0.5'"
                              << "\"-0.5000\"";
    QTest::newRow("StartValue") << "'7'"
                                << "\"7.0000\"";
    QTest::newRow("Reset") << "true"
                           << "true";
    QTest::newRow("ResetValue") << "'100000'"
                                << "\"99999\"";
    QTest::newRow("ResetUnitIndex") << "1"
                                    << "1";
    QTest::newRow("ScopeDisplayIndex") << "3"
                                       << "3";
    QTest::newRow("DecimalPlaceIndex") << "6"
                                       << "6";
    QTest::newRow("DecimalDivide") << "true"
                                   << "true";
    QTest::newRow("UsingRihFileInfo") << "false"
                                      << "false";
    QTest::newRow("OverWrite") << "true"
                               << "true";
    QTest::newRow("RealTime") << "true"
                              << "true";
}

void TestTimeCodeDialog::fieldIsSetAndRead()
{
    QFETCH(QString, value);
    QFETCH(QString, read);
    const QString field = QString::fromLatin1(QTest::currentDataTag());
    Shown shown;
    shown.call("setTimeCode" + field + "(" + value + ", false)");
    QCOMPARE(shown.call("getTimeCode" + field + "()"), read);
    QCOMPARE(shown.host.journal(), QStringList());
}

void TestTimeCodeDialog::sampleFollowsWhereItIsAskedTo_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("sample");
    const QString hours = QStringLiteral("\"+00:00:00.002 \"");
    QTest::newRow("Index") << "1"
                           << "\"+000.0000 deg\"";
    QTest::newRow("DisplayUnit") << "'mm'" << hours;
    QTest::newRow("OneFrame") << "'-0.5'"
                              << "\"-00:00:00.002 \"";
    QTest::newRow("StartValue") << "'7'" << hours;
    QTest::newRow("Reset") << "true" << hours;
    QTest::newRow("ResetValue") << "'3'" << hours;
    QTest::newRow("ResetUnitIndex") << "1" << hours;
    QTest::newRow("ScopeDisplayIndex") << "3"
                                       << "\"+002 msec\"";
    QTest::newRow("DecimalPlaceIndex") << "6"
                                       << "\"+00:00:00.002000 \"";
    QTest::newRow("DecimalDivide") << "true" << hours;
    QTest::newRow("UsingRihFileInfo") << "false" << hours;
    QTest::newRow("OverWrite") << "true" << hours;
    QTest::newRow("RealTime") << "true" << hours;
}

void TestTimeCodeDialog::sampleFollowsWhereItIsAskedTo()
{
    QFETCH(QString, value);
    QFETCH(QString, sample);
    const QString set = "setTimeCode" + QString::fromLatin1(QTest::currentDataTag()) + "(" + value;
    for (const char *rest : {")", ", true)"}) {
        Shown shown;
        shown.call(set + ", false)");
        QCOMPARE(shown.call("getTimeCodeSample()"), QStringLiteral("\"\""));
        shown.call(set + rest);
        QCOMPARE(shown.call("getTimeCodeSample()"), sample);
    }
}

void TestTimeCodeDialog::sampleIsEmptyBeforeTheSettingsAreLoaded()
{
    Shown shown;
    QCOMPARE(shown.call("getTimeCodeSample()"), QStringLiteral("\"\""));
    QCOMPARE(shown.call("getTimeCodeResetValue()"), QStringLiteral("\"1\""));
    QCOMPARE(shown.call("getTimeCodeUsingRihFileInfo()"), QStringLiteral("true"));
}

void TestTimeCodeDialog::resetValueIsSnapped()
{
    Shown shown;
    shown.call("setTimeCodeReset(true)");
    shown.call("setTimeCodeOneFrame('2.0')");
    shown.call("setTimeCodeResetUnitIndex(1)");
    shown.call("setTimeCodeResetValue('5.0')");
    QCOMPARE(shown.call("getTimeCodeResetValue()"), QStringLiteral("\"6.0000\""));
    shown.call("setTimeCodeResetUnitIndex(0)");
    QCOMPARE(shown.call("getTimeCodeResetValue()"), QStringLiteral("\"3\""));
}

void TestTimeCodeDialog::settingsAreLoaded()
{
    Shown shown;
    store(shown.host, degrees());
    shown.call("loadTimeCodeSetting()");
    QCOMPARE(shown.host.journal(), QStringList({"getTimeCodeSetting()"}));
    QCOMPARE(shown.call("getTimeCodeOneFrame()"), QStringLiteral("\"2.0000\""));
    QCOMPARE(shown.call("getTimeCodeResetValue()"), QStringLiteral("\"3\""));
    QCOMPARE(shown.call("getTimeCodeResetUnitIndex()"), QStringLiteral("0"));
    QCOMPARE(shown.call("getTimeCodeSample()"), QStringLiteral("\"+002.0000 deg\""));
}

void TestTimeCodeDialog::settingsThatWereNeverStoredAreTheDefaults()
{
    Shown shown;
    shown.call("setTimeCodeDisplayUnit('mm')");
    shown.call("setTimeCodeRealTime(true)");
    shown.call("loadTimeCodeSetting()");
    QCOMPARE(shown.call("getTimeCodeDisplayUnit()"), QStringLiteral("\"deg\""));
    QCOMPARE(shown.call("getTimeCodeRealTime()"), QStringLiteral("false"));
}

void TestTimeCodeDialog::failedLoadChangesNothing()
{
    Shown shown;
    shown.call("setTimeCodeDisplayUnit('mm')");
    shown.host.failOn(QStringLiteral("getTimeCodeSetting"));
    shown.call("loadTimeCodeSetting()");
    QCOMPARE(shown.host.handledErrors(), QStringList({"getTimeCodeSetting failed"}));
    QCOMPARE(shown.call("getTimeCodeDisplayUnit()"), QStringLiteral("\"mm\""));
}

void TestTimeCodeDialog::resetTouchesNothingOfTheHost()
{
    Shown shown;
    store(shown.host, degrees());
    shown.call("loadTimeCodeSetting()");
    shown.host.clearJournal();
    shown.call("reset()");
    QCOMPARE(shown.host.journal(), QStringList());
    QCOMPARE(shown.call("getTimeCodeIndex()"), QStringLiteral("0"));
    QCOMPARE(shown.call("getTimeCodeOneFrame()"), QStringLiteral("\"0.0000\""));
    QCOMPARE(shown.call("getTimeCodeReset()"), QStringLiteral("false"));
    QCOMPARE(shown.call("getTimeCodeSample()"), QStringLiteral("\"+00:00:00.002 \""));
}

void TestTimeCodeDialog::wholeStory_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("result");
    QTest::newRow("ok") << "ok" << int(QDialog::Accepted);
    QTest::newRow("cancel") << "cancel" << int(QDialog::Rejected);
}

// From opening to closing: what the host is asked and told, and what stands in the log.
void TestTimeCodeDialog::wholeStory()
{
    QFETCH(QString, way);
    StandInHost host;
    store(host, degrees());
    LogCapture log;
    {
        GUI_TimeCodeCustomDialog dialog(&host, nullptr);
        PageProbe page(dialog.webView());
        QSignalSpy finished(&dialog, &QDialog::finished);
        dialog.show();
        QVERIFY(page.waitLoaded());
        page.call(Object + "loadTimeCodeSetting()");
        page.call(Object + "setTimeCodeDisplayUnit('mm')");
        page.call(Object + "setTimeCodeOneFrame('-0.5')");
        page.call(Object + way + "()");
        QVERIFY(!dialog.isVisible());
        QTEST(dialog.result(), "result");
        QCOMPARE(finished.count(), 1);
    }
    QStringList calls = {"translate(\"Current Time Setting\")", "appScriptObject()",
                         "getTimeCodeSetting()"};
    if (way == QLatin1String("ok"))
        calls.append("setTimeCodeSetting({timeCodeIndex: 1, displayUnit: \"mm\", oneFrame: -0.5, "
                     "startValue: 0, reset: true, resetValue: -1.5, scopeDisplayIndex: 0, "
                     "decimalPlaceIndex: 0, decimalDivide: false, usingRihFileInfo: true, "
                     "overWrite: false, realTime: false})");
    QCOMPARE(host.journal(), calls);
    QCOMPARE(log.texts(),
             QStringList({"[USER] \"[URL:GUI_TimeCodeCustomDialog] [ID:close] [Control:Button] "
                          "[Operation:clicked] [Value:] \""}));
}

void TestTimeCodeDialog::failedSaveStaysOpen()
{
    Shown shown;
    shown.host.failOn(QStringLiteral("setTimeCodeSetting"));
    QCOMPARE(shown.call("saveTimeCodeSetting()"), QStringLiteral("false"));
    shown.host.failOn(QStringLiteral("setTimeCodeSetting"));
    shown.call("ok()");
    QCOMPARE(shown.host.handledErrors(),
             QStringList({"setTimeCodeSetting failed", "setTimeCodeSetting failed"}));
    QVERIFY(shown.dialog->isVisible());
    QCOMPARE(shown.call("saveTimeCodeSetting()"), QStringLiteral("true"));
    QVERIFY(shown.dialog->isVisible());
}

void TestTimeCodeDialog::failureInStyleAndTranslationGivesNeutralValues()
{
    Shown shown;
    shown.host.settings().setValue("env/style", "dark");
    shown.host.state().translations.insert("Start", "Beginn");
    QCOMPARE(shown.call("getStyle()"), QStringLiteral("\"dark\""));
    QCOMPARE(shown.call("translate('Start')"), QStringLiteral("\"Beginn\""));
    shown.host.failOn(QStringLiteral("getPrefString"));
    shown.host.failOn(QStringLiteral("translate"));
    QCOMPARE(shown.call("getStyle()"), QStringLiteral("\"light\""));
    QCOMPARE(shown.call("translate('Start')"), QStringLiteral("\"\""));
    QCOMPARE(shown.host.handledErrors(), QStringList({"getPrefString failed", "translate failed"}));
}

void TestTimeCodeDialog::frameStoresNothing()
{
    Shown shown;
    shown.call("setTimeCodeIndex(1)");
    LogCapture log; // the frame is traced
    QVERIFY(shown.dialog->close());
    QCOMPARE(shown.dialog->result(), int(QDialog::Rejected));
    QCOMPARE(shown.host.journal(), QStringList());
    QCOMPARE(shown.host.settings().keys(), QStringList());
}

void TestTimeCodeDialog::escapeIsIgnored()
{
    Shown shown;
    QTest::keyClick(shown.dialog, Qt::Key_Escape);
    QTest::keyClick(shown.dialog->webView(), Qt::Key_Escape);
    QVERIFY(shown.dialog->isVisible());
}

void TestTimeCodeDialog::dialogMayGoWhileItsHostIsAsked_data()
{
    QTest::addColumn<QByteArray>("slot");
    for (const char *slot : {"ok", "loadTimeCodeSetting", "saveTimeCodeSetting"})
        QTest::newRow(slot) << QByteArray(slot);
}

void TestTimeCodeDialog::dialogMayGoWhileItsHostIsAsked()
{
    QFETCH(QByteArray, slot);
    Shown shown;
    shown.page.reset();
    connect(shown.host.events(), &StandInEvents::callJournalled, shown.dialog,
            [&] { delete shown.dialog; });
    QMetaObject::invokeMethod(shown.dialog, slot);
    QVERIFY(!shown.dialog);
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

void TestTimeCodeDialog::dialogMayGoAtItsEnd_data()
{
    QTest::addColumn<QByteArray>("slot");
    for (const char *slot : {"ok", "cancel"})
        QTest::newRow(slot) << QByteArray(slot);
}

void TestTimeCodeDialog::dialogMayGoAtItsEnd()
{
    QFETCH(QByteArray, slot);
    Shown shown;
    shown.page.reset();
    connect(shown.dialog, &QDialog::finished, [&] { delete shown.dialog; });
    LogCapture log;
    QMetaObject::invokeMethod(shown.dialog, slot);
    QVERIFY(!shown.dialog);
    QCOMPARE(log.texts(), QStringList());
}

int main(int argc, char **argv)
{
    TestTimeCodeDialog test;
    return runTest(argc, argv, test);
}

#include "test_time_code_dialog.moc"
