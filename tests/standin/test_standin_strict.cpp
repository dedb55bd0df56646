#include "plugin/PLG_Button.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <functional>

namespace {

using Call = std::function<void(StandInHost &)>;

/// A panel tool that edits in a transaction.
class PanelTool : public PLG_Button
{
public:
    explicit PanelTool(int transactionKind)
    {
        m_toolName = QStringLiteral("t_panel");
        m_hasPanel = true;
        m_checkKind = 2;
        m_transactionKind = transactionKind;
    }
};

}

Q_DECLARE_METATYPE(Call)

/// What no program may ask of its host leaves a critical line; all else leaves none.
class TestStandInStrict : public TestBase
{
    Q_OBJECT

private slots:
    void endWithoutBeginningLeavesALine_data();
    void endWithoutBeginningLeavesALine();
    void endOfWhatWasBegunIsSilent_data();
    void endOfWhatWasBegunIsSilent();
    void endOfWhatFailedToBeginIsSilent_data();
    void endOfWhatFailedToBeginIsSilent();
    void strayEndTakesNothingFromTheNextPair();
    void endBehindAClearedUndoStackIsSilent();
    void transactionsAreToldApartByTool();
    void otherKindOfTransactionBeginsNone_data();
    void otherKindOfTransactionBeginsNone();
    void unknownSettingLeavesALine_data();
    void unknownSettingLeavesALine();
    void knownSettingIsSilent_data();
    void knownSettingIsSilent();
    void settingsOfAToolGoWithIt();
    void unknownToolLeavesALine();
    void knownToolIsSilent_data();
    void knownToolIsSilent();
    void questionsAboutWhatIsNotThereAreSilent();
    void toolThatOnlyGotItsHostIsSilent();
};

namespace {

void addPairs()
{
    QTest::addColumn<Call>("begin");
    QTest::addColumn<Call>("end");
    QTest::addColumn<QString>("beginning");
    QTest::addColumn<QString>("line");
    const auto row = [](const char *name, const char *beginning, const Call &begin, const Call &end,
                        const char *line) {
        QTest::newRow(name) << begin << end << QString(beginning)
                            << QString("end without its beginning: ") + line;
    };
    row(
        "live", "pauseLive", [](StandInHost &host) { host.pauseLive(false); },
        [](StandInHost &host) { host.resumeLive(); }, "resumeLive");
    row(
        "live, exclusive", "pauseLiveExclusive",
        [](StandInHost &host) { host.pauseLiveExclusive(false, true, true); },
        [](StandInHost &host) { host.resumeLive(); }, "resumeLive");
    row(
        "playback", "pausePlayback", [](StandInHost &host) { host.pausePlayback(); },
        [](StandInHost &host) { host.resumePlayback(); }, "resumePlayback");
    row(
        "exclusive update", "beginExclusiveUpdate",
        [](StandInHost &host) { host.beginExclusiveUpdate(); },
        [](StandInHost &host) { host.endExclusiveUpdate(); }, "endExclusiveUpdate");
    row(
        "exclusive refresh", "beginExclusiveRefresh",
        [](StandInHost &host) { host.beginExclusiveRefresh(); },
        [](StandInHost &host) { host.endExclusiveRefresh(); }, "endExclusiveRefresh");
    row(
        "deterral", "deterUpdateUI", [](StandInHost &host) { host.deterUpdateUI(true); },
        [](StandInHost &host) { host.deterUpdateUI(false); }, "deterUpdateUI(false)");
    row(
        "macro", "beginUndoMacro", [](StandInHost &host) { host.beginUndoMacro("Drag"); },
        [](StandInHost &host) { host.endUndoMacro(); }, "endUndoMacro");
    row(
        "commit", "beginTransaction",
        [](StandInHost &host) { host.beginTransaction("t_a", true, true); },
        [](StandInHost &host) { host.commitTransaction(true, "t_a"); }, "commitTransaction t_a");
    row(
        "commit of nothing", "beginTransaction",
        [](StandInHost &host) { host.beginTransaction("t_a", true, true); },
        [](StandInHost &host) { host.commitTransaction(false, "t_a"); }, "commitTransaction t_a");
    row(
        "roll-back", "beginTransaction",
        [](StandInHost &host) { host.beginTransaction("t_a", false, true); },
        [](StandInHost &host) { host.rollbackTransaction("t_a"); }, "rollbackTransaction t_a");
}

}

void TestStandInStrict::endWithoutBeginningLeavesALine_data()
{
    addPairs();
}

void TestStandInStrict::endWithoutBeginningLeavesALine()
{
    QFETCH(Call, begin);
    QFETCH(Call, end);
    QFETCH(QString, line);
    StandInHost host;
    LogCapture log;
    end(host);
    QCOMPARE(log.texts(QtCriticalMsg), QStringList(line));
    begin(host);
    end(host);
    QCOMPARE(log.lines().size(), 1);
    end(host); // one too many
    QCOMPARE(log.texts(QtCriticalMsg), QStringList({line, line}));
}

void TestStandInStrict::endOfWhatWasBegunIsSilent_data()
{
    addPairs();
}

void TestStandInStrict::endOfWhatWasBegunIsSilent()
{
    QFETCH(Call, begin);
    QFETCH(Call, end);
    QFETCH(QString, beginning);
    StandInHost host;
    const bool nests = beginning != "beginTransaction";
    begin(host);
    if (nests)
        begin(host);
    end(host);
    if (nests)
        end(host);
    QCOMPARE(host.livePauses(), 0);
    QCOMPARE(host.playbackPauses(), 0);
    QCOMPARE(host.exclusiveUpdates(), 0);
    QCOMPARE(host.exclusiveRefreshes(), 0);
    QCOMPARE(host.deterrals(), 0);
    QCOMPARE(host.openMacros(), 0);
    QVERIFY(!host.isTransactionOpen("t_a"));
}

void TestStandInStrict::endOfWhatFailedToBeginIsSilent_data()
{
    addPairs();
}

void TestStandInStrict::endOfWhatFailedToBeginIsSilent()
{
    QFETCH(Call, begin);
    QFETCH(Call, end);
    QFETCH(QString, beginning);
    QFETCH(QString, line);
    StandInHost host;
    host.failOn(beginning);
    QVERIFY_EXCEPTION_THROWN(begin(host), StandInFault);
    QCOMPARE(host.livePauses() + host.playbackPauses() + host.exclusiveUpdates() +
                 host.exclusiveRefreshes() + host.deterrals() + host.openMacros(),
             0);
    end(host);
    LogCapture log;
    end(host); // the second one has no excuse
    QCOMPARE(log.texts(), QStringList(line));
}

void TestStandInStrict::strayEndTakesNothingFromTheNextPair()
{
    StandInHost host;
    {
        LogCapture log;
        host.resumeLive();
        host.deterUpdateUI(false);
    }
    host.pauseLive(false);
    QVERIFY(host.isLivePaused());
    QCOMPARE(host.livePauses(), 1);
    host.deterUpdateUI(true);
    QCOMPARE(host.deterrals(), 1);
}

void TestStandInStrict::endBehindAClearedUndoStackIsSilent()
{
    StandInHost host;
    host.beginUndoMacro(QString());
    host.beginUndoMacro(QString());
    host.clearUndoStack();
    host.endUndoMacro();
    host.endUndoMacro();
    QCOMPARE(host.openMacros(), 0);
    LogCapture log;
    host.endUndoMacro();
    QCOMPARE(log.texts(), QStringList("end without its beginning: endUndoMacro"));
}

void TestStandInStrict::transactionsAreToldApartByTool()
{
    StandInHost host;
    host.beginTransaction("t_a", true, true);
    LogCapture log;
    host.commitTransaction(true, "t_b");
    QCOMPARE(log.texts(), QStringList("end without its beginning: commitTransaction t_b"));
    QVERIFY(host.isTransactionOpen("t_a"));
}

void TestStandInStrict::otherKindOfTransactionBeginsNone_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("0") << 0 << QStringList();
    QTest::newRow("1") << 1 << QStringList();
    QTest::newRow("2") << 2 << QStringList("end without its beginning: commitTransaction t_panel");
    QTest::newRow("-1") << -1
                        << QStringList("end without its beginning: commitTransaction t_panel");
}

void TestStandInStrict::otherKindOfTransactionBeginsNone()
{
    QFETCH(int, kind);
    QFETCH(QStringList, lines);
    StandInHost host;
    PanelTool tool(kind);
    host.addPlugin(&tool);
    host.openPluginByName("t_panel");
    LogCapture log;
    tool.onOk();
    QCOMPARE(log.texts(), lines);
}

void TestStandInStrict::unknownSettingLeavesALine_data()
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<QString>("key");
    const QString key = "info/rectimeunit"; // keys have their case
    const auto row = [&key](const char *name, const Call &call) {
        QTest::newRow(name) << call << key;
    };
    row("getPref", [key](StandInHost &host) { host.getPref(key, 1); });
    row("getPrefInt", [key](StandInHost &host) { host.getPrefInt(key, 1); });
    row("getPrefBool", [key](StandInHost &host) { host.getPrefBool(key, true); });
    row("getPrefFloat", [key](StandInHost &host) { host.getPrefFloat(key, 1.0); });
    row("getPrefString", [key](StandInHost &host) { host.getPrefString(key, "x"); });
    row("setPref", [key](StandInHost &host) { host.setPref(key, 1); });
    row("setPrefInt", [key](StandInHost &host) { host.setPrefInt(key, 1); });
    row("setPrefBool", [key](StandInHost &host) { host.setPrefBool(key, true); });
    row("setPrefFloat", [key](StandInHost &host) { host.setPrefFloat(key, 1.0); });
    row("setPrefString", [key](StandInHost &host) { host.setPrefString(key, "x"); });
    row("prefDefault", [key](StandInHost &host) { host.prefDefault(key); });
    row("removePref", [key](StandInHost &host) { host.removePref(key); });
    const auto other = [](const char *name, const QString &unknown) {
        QTest::newRow(name) << Call([unknown](StandInHost &host) { host.getPrefInt(unknown, 1); })
                            << unknown;
    };
    other("a tool that is not loaded", "t_other/x");
    other("the name of a tool alone", "t_panel");
    other("the name of a tool in front", "t_panelx/y");
    other("the name of a tool, in another case", "T_panel/y");
    other("a group too many", "saveinfo/Bold7");
    QTest::newRow("stored without a name")
        << Call([](StandInHost &host) { host.setPrefInt(QString(), 1); }) << QString();
}

void TestStandInStrict::unknownSettingLeavesALine()
{
    QFETCH(Call, call);
    QFETCH(QString, key);
    StandInHost host;
    PanelTool tool(0);
    host.addPlugin(&tool);
    LogCapture log;
    call(host);
    QCOMPARE(log.texts(QtCriticalMsg), QStringList("unknown setting: " + key));
    QCOMPARE(log.lines().size(), 1);
}

void TestStandInStrict::knownSettingIsSilent_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("of the catalogue") << "info/RecTimeUnit";
    QTest::newRow("of a group") << "saveinfo/Bold6";
    QTest::newRow("declared") << "lab/own";
    QTest::newRow("declared without a value") << "lab/bare";
    QTest::newRow("of a loaded tool") << "t_panel/x";
    QTest::newRow("deep in a loaded tool") << "t_panel/x/y";
}

void TestStandInStrict::knownSettingIsSilent()
{
    QFETCH(QString, key);
    StandInHost host;
    PanelTool tool(0);
    host.addPlugin(&tool);
    host.settings().setDefault("lab/own", 7);
    host.settings().setDefault("lab/bare", QVariant());
    host.setPrefInt(key, 3);
    QCOMPARE(host.getPrefInt(key, QVariant()), 3);
    host.prefDefault(key);
    host.removePref(key);
    // Read with an empty name there is nothing, and no harm.
    QCOMPARE(host.getPrefInt(QString(), 5), 5);
    QVERIFY(!host.getPref(QString(), QVariant()).isValid());
    QVERIFY(!host.prefDefault(QString()).isValid());
}

void TestStandInStrict::settingsOfAToolGoWithIt()
{
    StandInHost host;
    {
        PanelTool tool(0);
        host.addPlugin(&tool);
        host.setPrefInt("t_panel/x", 3);
    }
    LogCapture log;
    QCOMPARE(host.getPrefInt("t_panel/x", QVariant()), 3); // it is still stored
    QCOMPARE(log.texts(), QStringList("unknown setting: t_panel/x"));
}

void TestStandInStrict::unknownToolLeavesALine()
{
    StandInHost host;
    LogCapture log;
    host.openPluginByName("t_panel");
    host.openPluginByName("sensorlut"); // as a page calls its widget, not a tool
    host.openPluginByName(QString());
    QCOMPARE(log.texts(QtCriticalMsg),
             QStringList({"unknown tool: t_panel", "unknown tool: sensorlut", "unknown tool: "}));
}

void TestStandInStrict::knownToolIsSilent_data()
{
    QTest::addColumn<QString>("tool");
    for (const char *tool :
         {"t_panel", "s_record", "livecontrol", "histogram", "lineprofile", "lut", "m_sensorlut",
          "imagetrigger", "m_analoggain", "m_focuscheck", "colorcorrection"})
        QTest::newRow(tool) << QString(tool);
}

void TestStandInStrict::knownToolIsSilent()
{
    QFETCH(QString, tool);
    StandInHost host;
    PanelTool panel(0);
    host.addPlugin(&panel);
    host.openPluginByName(tool);
    QCOMPARE(host.isPluginOpen(&panel), tool == "t_panel");
}

void TestStandInStrict::questionsAboutWhatIsNotThereAreSilent()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    QVERIFY(!host.pluginByName("t_nowhere"));
    QVERIFY(!host.deviceByKey(99, true));
    QVERIFY(!host.documentByKey(99));
    QVERIFY(!host.isToolRunning("t_nowhere"));
    QVERIFY(!camera->isToolOn("t_nowhere"));
    QVERIFY(!camera->isToolAvailable("t_nowhere", false));
    host.setCurrentDoc(99, true);
    host.unselectDoc(99);
    host.removeDocument(99);
    host.selectDocs({99}, true);
    camera->setCustomInfo("gone", "1", QString(), true, true);
    camera->removeCustomInfo("gone");
    camera->renameCustomInfo("gone", "new");
    QCOMPARE(host.currentKey(), camera->key());
}

void TestStandInStrict::toolThatOnlyGotItsHostIsSilent()
{
    StandInHost host;
    PanelTool tool(0);
    tool.setHost(&host);
    tool.activate();
    tool.onSelectQuickTool();
    tool.onReset();
    tool.onOk();
    tool.onClosed();
    tool.deactivate();
    host.closePluginByName("t_panel");
    host.setToolState("t_panel", true);
    host.setToolActive("t_panel", false);
    host.setQuickTool("t_panel");
    host.resetTransaction("t_panel");
    QVERIFY(host.plugins().isEmpty());
}

int main(int argc, char *argv[])
{
    TestStandInStrict test;
    return runTest(argc, argv, test);
}

#include "test_standin_strict.moc"
