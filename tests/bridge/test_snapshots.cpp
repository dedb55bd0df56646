#include "bridge/data/CalibrationUnits.h"
#include "tests/bridge/support/DialogPage.h"
#include "tests/support/TestLog.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <functional>

// Device rows, units and selection, as pages get them.

using Change = std::function<void(DocumentState &)>;
Q_DECLARE_METATYPE(Change)

class TestSnapshots : public TestBase
{
    Q_OBJECT

private slots:
    void rowHoldsTheDevice();
    void rowValueFollowsTheDevice_data();
    void rowValueFollowsTheDevice();
    void selectedRowIsMarked();
    void rowsComeInTheHostsOrder();
    void textsKeepTheirCharacters();
    void miniListLeavesOutWhatIsNotFound_data();
    void miniListLeavesOutWhatIsNotFound();
    void miniListAsksInOrder();
    void deviceThatHasGoneIsLeftOut();
    void failureKeepsTheRowsSoFar();
    void failureKeepsTheKeysSoFar();
    void keysOfSixtyFourBitsPass();
    void unitsFollowTheSystem_data();
    void unitsFollowTheSystem();
    void unitsAreTranslated();
    void shortNamesAreKnown_data();
    void shortNamesAreKnown();
    void selectionIsSet_data();
    void selectionIsSet();
    void selectionFailureIsHandledInOrder();
    void allAreSelectedAndTheCurrentOneStays();
    void allAreSelectedInOrder();
    void traceOfAllStandsInside();
    void failedPreludeEndsSelectAll_data();
    void failedPreludeEndsSelectAll();
    void failedSelectAllIsUndoneInOrder();
};

namespace {

const QString ConnectedOnly = QStringLiteral("devicemanager/connectedCameraOnlyShowing");

QJsonObject rowAt(JS_Mediator &mediator, int index)
{
    const QString text = mediator.getDeviceInfoList(false).at(index).toString();
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

QStringList keysOf(const QVariantList &rows)
{
    QStringList keys;
    for (const QVariant &row : rows)
        keys.append(QJsonDocument::fromJson(row.toString().toUtf8()).object()["key"].toString());
    return keys;
}

}

void TestSnapshots::rowHoldsTheDevice()
{
    DialogPage shown;
    StandInCamera::Description description;
    description.name = QStringLiteral("Left");
    description.address = QStringLiteral("192.168.0.10");
    description.headNumber = 2;
    DocumentState &state = shown.host.addCamera(description)->state();
    state.deviceName = QStringLiteral("S-1024 No.3");
    shown.host.select(1, false);
    shown.host.clearJournal();
    QCOMPARE(QJsonDocument::fromJson(
                 shown.page.evaluate("bridge.getDeviceInfoList(false)[0]").toString().toUtf8())
                 .object(),
             QJsonObject({{"key", "1"},
                          {"cameraname", "Left"},
                          {"devicename", "S-1024 No.3"},
                          {"ipaddress", "192.168.0.10"},
                          {"headno", 2},
                          {"selected", ""},
                          {"found", "found"},
                          {"mobile", ""},
                          {"dummy", ""},
                          {"shutdown", ""},
                          {"sup-wifi", ""},
                          {"con-wifi", ""},
                          {"sup-linkspeed", ""}}));
    QCOMPARE(
        shown.host.journal(),
        QStringList({"deviceKeys(true)", "documentByKey(1)", "[1].cameraName()", "[1].deviceName()",
                     "[1].deviceName()", "[1].ipAddress()", "[1].headNumber()", "[1].isSelected()",
                     "[1].isFound()", "[1].isMobile()", "[1].isDummy()", "[1].hasCapability(117)",
                     "[1].hasCapability(112)", "[1].wirelessState()", "[1].linkSpeedState()"}));
}

void TestSnapshots::rowValueFollowsTheDevice_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value");
    QTest::addColumn<Change>("change");
    const auto row = [](const char *name, const char *field, const char *value,
                        const Change &change) {
        QTest::newRow(name) << QString::fromLatin1(field) << QString::fromLatin1(value) << change;
    };
    row("camera name", "cameraname", "Right",
        [](DocumentState &state) { state.cameraName = QStringLiteral("Right"); });
    row("device name", "devicename", "Device",
        [](DocumentState &state) { state.deviceName = QStringLiteral("Device"); });
    row("fallback name", "devicename", "Fallback", [](DocumentState &state) {
        state.deviceName.clear();
        state.fallbackName = QStringLiteral("Fallback");
    });
    row("no fallback wanted", "devicename", "Device", [](DocumentState &state) {
        state.deviceName = QStringLiteral("Device");
        state.fallbackName = QStringLiteral("Fallback");
    });
    row("address", "ipaddress", "10.0.0.7",
        [](DocumentState &state) { state.ipAddress = QStringLiteral("10.0.0.7"); });
    row("not found", "found", "", [](DocumentState &state) { state.isFound = false; });
    row("found", "found", "found", [](DocumentState &state) { state.isFound = true; });
    row("mobile", "mobile", "mobile", [](DocumentState &state) { state.isMobile = true; });
    row("dummy", "dummy", "dummy", [](DocumentState &state) { state.isDummy = true; });
    row("can be shut down", "shutdown", "sup-shutdown",
        [](DocumentState &state) { state.capabilities = {117}; });
    row("other capability", "shutdown", "",
        [](DocumentState &state) { state.capabilities = {112}; });
    row("has wireless", "sup-wifi", "sup-wifi",
        [](DocumentState &state) { state.capabilities = {112}; });
    row("has no wireless", "sup-wifi", "",
        [](DocumentState &state) { state.capabilities = {117}; });
    row("wireless is connected", "con-wifi", "connected",
        [](DocumentState &state) { state.wirelessState = 1; });
    row("wireless is something else", "con-wifi", "",
        [](DocumentState &state) { state.wirelessState = 2; });
    row("link speed", "sup-linkspeed", "sup-linkspeed",
        [](DocumentState &state) { state.linkSpeedState = 1; });
    row("link speed is something else", "sup-linkspeed", "",
        [](DocumentState &state) { state.linkSpeedState = 2; });
}

void TestSnapshots::rowValueFollowsTheDevice()
{
    QFETCH(QString, field);
    QFETCH(QString, value);
    QFETCH(Change, change);
    DialogPage shown;
    change(shown.host.addCamera()->state());
    QCOMPARE(shown.page.call(
                 QStringLiteral("JSON.parse(bridge.getDeviceInfoList(false)[0])['%1']").arg(field)),
             QLatin1Char('"') + value + QLatin1Char('"'));
}

void TestSnapshots::selectedRowIsMarked()
{
    StandInHost host;
    host.addCamera();
    host.addCamera();
    host.select(1, false);
    host.select(2, true);
    JS_Mediator mediator(&host, QStringLiteral("page"));
    QCOMPARE(rowAt(mediator, 0)["selected"].toString(), QString());
    QCOMPARE(rowAt(mediator, 1)["selected"].toString(), QStringLiteral("ui-selected"));
    QVERIFY(rowAt(mediator, 0)["headno"].isDouble());
}

void TestSnapshots::rowsComeInTheHostsOrder()
{
    DialogPage shown;
    for (int i = 0; i < 3; ++i)
        shown.host.addCamera();
    QCOMPARE(shown.page.call("bridge.getDeviceInfoList(false).map(function (row) {"
                             "    return JSON.parse(row).key; })"),
             QStringLiteral("[\"1\",\"2\",\"3\"]"));
}

void TestSnapshots::textsKeepTheirCharacters()
{
    DialogPage shown;
    shown.host.addCamera()->state().cameraName =
        QString::fromUtf8("a \"b\" \\ </script> µ \U0001F4F7");
    QCOMPARE(
        shown.page.evaluate("JSON.parse(bridge.getDeviceInfoList(false)[0]).cameraname").toString(),
        QString::fromUtf8("a \"b\" \\ </script> µ \U0001F4F7"));
}

void TestSnapshots::miniListLeavesOutWhatIsNotFound_data()
{
    QTest::addColumn<bool>("isMinilist");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("setting");
    QTest::addColumn<QStringList>("keys");
    QTest::newRow("mini list, live, wanted") << true << 0 << true << QStringList({"1", "3"});
    QTest::newRow("mini list, live, not wanted")
        << true << 0 << false << QStringList({"1", "2", "3"});
    QTest::newRow("mini list, memory") << true << 1 << true << QStringList({"1", "2", "3"});
    QTest::newRow("mini list, file") << true << 2 << true << QStringList({"1", "2", "3"});
    QTest::newRow("full list") << false << 0 << true << QStringList({"1", "2", "3"});
}

void TestSnapshots::miniListLeavesOutWhatIsNotFound()
{
    QFETCH(bool, isMinilist);
    QFETCH(int, mode);
    QFETCH(bool, setting);
    StandInHost host;
    for (int i = 0; i < 3; ++i)
        host.addCamera();
    host.camera(2)->state().isFound = false;
    host.setMode(StandInHost::Mode(mode));
    host.settings().setValue(ConnectedOnly, setting);
    JS_Mediator mediator(&host, QStringLiteral("page"));
    QTEST(keysOf(mediator.getDeviceInfoList(isMinilist)), "keys");
}

void TestSnapshots::miniListAsksInOrder()
{
    StandInHost host;
    host.addCamera();
    JS_Mediator mediator(&host, QStringLiteral("page"));
    host.clearJournal();
    QCOMPARE(keysOf(mediator.getDeviceInfoList(true)), QStringList({"1"}));
    QCOMPARE(host.journal().mid(0, 4),
             QStringList({"deviceKeys(true)", "currentMode()",
                          "getPref(\"devicemanager/connectedCameraOnlyShowing\", false)",
                          "documentByKey(1)"}));
    host.settings().setValue(ConnectedOnly, true);
    host.clearJournal();
    QCOMPARE(keysOf(mediator.getDeviceInfoList(true)), QStringList({"1"}));
    QCOMPARE(host.journal().mid(3, 3),
             QStringList({"deviceByKey(1, true)", "[1].isFound()", "documentByKey(1)"}));
}

void TestSnapshots::deviceThatHasGoneIsLeftOut()
{
    StandInHost host;
    for (int i = 0; i < 3; ++i)
        host.addCamera();
    JS_Mediator mediator(&host, QStringLiteral("page"));
    host.answerNullOn(QStringLiteral("documentByKey"), 2);
    QCOMPARE(keysOf(mediator.getDeviceInfoList(false)), QStringList({"1", "3"}));
    host.settings().setValue(ConnectedOnly, true);
    host.answerNullOn(QStringLiteral("deviceByKey"), 1);
    QCOMPARE(keysOf(mediator.getDeviceInfoList(true)), QStringList({"2", "3"}));
    QCOMPARE(host.handledErrors(), QStringList());
}

void TestSnapshots::failureKeepsTheRowsSoFar()
{
    DialogPage shown;
    for (int i = 0; i < 3; ++i)
        shown.host.addCamera();
    shown.host.failOn(QStringLiteral("[2].ipAddress"));
    QCOMPARE(shown.page.call("bridge.getDeviceInfoList(false).length"), QStringLiteral("1"));
    QCOMPARE(shown.host.handledErrors(), QStringList({"ipAddress failed"}));
}

void TestSnapshots::failureKeepsTheKeysSoFar()
{
    DialogPage shown;
    shown.host.addCamera();
    shown.host.failOn(QStringLiteral("selectedDocKeys"));
    QCOMPARE(shown.page.call("bridge.getSelectedDockey()"), QStringLiteral("[]"));
    QCOMPARE(shown.host.handledErrors(), QStringList({"selectedDocKeys failed"}));
}

void TestSnapshots::keysOfSixtyFourBitsPass()
{
    DialogPage shown;
    shown.page.call("bridge.setSelectDoc('18446744073709551614')");
    QVERIFY(shown.host.commands().contains("selectDocs([18446744073709551614], false)"));
}

void TestSnapshots::unitsFollowTheSystem_data()
{
    QTest::addColumn<int>("system");
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QStringList>("views");
    QTest::newRow("imperial") << 0 << QStringList({"Inches (in)", "Feet (ft)", "Yard (yd)"})
                              << QStringList({"inch", "feet", "yard"});
    const QStringList metric = {QString::fromUtf8("Micro (µm)"), "Milimeters (mm)", "Meters (m)"};
    const QStringList shortNames = {QString::fromUtf8("µm"), "mm", "m"};
    QTest::newRow("metric") << 1 << metric << shortNames;
    QTest::newRow("anything but zero") << -3 << metric << shortNames;
}

void TestSnapshots::unitsFollowTheSystem()
{
    QFETCH(int, system);
    DialogPage shown;
    shown.host.settings().setValue("customize/unitSystem", system);
    const QString text = shown.page.evaluate("bridge.getCalibrationUnits()").toString();
    const QJsonArray units = QJsonDocument::fromJson(text.toUtf8()).array();
    QStringList values;
    QStringList views;
    for (const QJsonValue &unit : units) {
        values.append(unit.toObject()["value"].toString());
        views.append(unit.toObject()["view"].toString());
        QCOMPARE(unit.toObject().size(), 2);
    }
    QTEST(values, "values");
    QTEST(views, "views");
}

void TestSnapshots::unitsAreTranslated()
{
    DialogPage shown;
    shown.host.state().translations = {{"inch", "Zoll"}, {"feet", "Fuß"}, {"yard", "Schritt"}};
    shown.host.settings().setValue("customize/unitSystem", 0);
    QCOMPARE(shown.page.call("JSON.parse(bridge.getCalibrationUnits()).map(function (unit) {"
                             "    return unit.view; })"),
             QStringLiteral("[\"Zoll\",\"Fuß\",\"Schritt\"]"));
}

void TestSnapshots::shortNamesAreKnown_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("name");
    QTest::newRow("inches") << "Inches (in)"
                            << "inch";
    QTest::newRow("feet") << "Feet (ft)"
                          << "feet";
    QTest::newRow("yard") << "Yard (yd)"
                          << "yard";
    QTest::newRow("micro") << QString::fromUtf8("Micro (\u00b5m)") << QString::fromUtf8("\u00b5m");
    QTest::newRow("millimetres") << "Milimeters (mm)"
                                 << "mm";
    QTest::newRow("metres") << "Meters (m)"
                            << "m";
    QTest::newRow("pixel, which no list holds") << "Pixel"
                                                << "pixel";
    QTest::newRow("unknown") << "Miles (mi)"
                             << "";
    QTest::newRow("other case") << "pixel"
                                << "";
}

void TestSnapshots::shortNamesAreKnown()
{
    QFETCH(QString, entry);
    QTEST(CalibrationUnits::shortName(entry), "name");
    QTEST(CalibrationUnits::shortName(entry), "name"); // and it stays so
    QVERIFY(!CalibrationUnits::entries(true).contains("Pixel"));
    QVERIFY(!CalibrationUnits::entries(false).contains("Pixel"));
}

void TestSnapshots::selectionIsSet_data()
{
    QTest::addColumn<QString>("docKey");
    QTest::addColumn<QString>("call");
    QTest::newRow("key") << "2"
                         << "selectDocs([2], false)";
    QTest::newRow("no number clears it") << "abc"
                                         << "selectDocs([], false)";
    QTest::newRow("empty") << ""
                           << "selectDocs([], false)";
    QTest::newRow("negative") << "-1"
                              << "selectDocs([], false)";
    QTest::newRow("fraction") << "1.5"
                              << "selectDocs([], false)";
    QTest::newRow("hexadecimal") << "0x10"
                                 << "selectDocs([], false)";
    QTest::newRow("leading zeros are decimal") << "010"
                                               << "selectDocs([10], false)";
    QTest::newRow("too large") << "18446744073709551616"
                               << "selectDocs([], false)";
    QTest::newRow("word of pages") << "Invalid"
                                   << "selectDocs([], false)";
}

void TestSnapshots::selectionIsSet()
{
    QFETCH(QString, docKey);
    QFETCH(QString, call);
    DialogPage shown;
    shown.page.call("bridge.setSelectDoc(" + scriptText(docKey) + ")");
    QCOMPARE(shown.host.commands(), QStringList({"deterUpdateUI(true)", call,
                                                 "deterUpdateUI(false)", "updateUI(63, true)"}));
}

void TestSnapshots::selectionFailureIsHandledInOrder()
{
    DialogPage shown;
    shown.mediator->setUpdateFlags(4);
    shown.host.failOn(QStringLiteral("selectDocs"));
    LogCapture log;
    shown.page.call("bridge.setSelectDoc('1')");
    QCOMPARE(shown.host.commands(),
             QStringList({"deterUpdateUI(true)", "selectDocs([1], false)", "deterUpdateUI(false)",
                          "errorHandler(\"selectDocs failed\")", "updateUI(63, true)"}));
    QCOMPARE(log.texts(), QStringList({"[ENTER] \"JS_Mediator::setSelectDocSub\" \"\"",
                                       "[LEAVE] \"JS_Mediator::setSelectDocSub\""}));
    QCOMPARE(shown.mediator->updateFlags(), 4);
}

void TestSnapshots::allAreSelectedAndTheCurrentOneStays()
{
    DialogPage shown;
    for (int i = 0; i < 3; ++i)
        shown.host.addCamera();
    shown.host.makeCurrent(2);
    shown.page.call("bridge.selectAllDocs()");
    QCOMPARE(shown.host.selection().size(), 3);
    QCOMPARE(shown.host.currentKey(), DOCKEY(2));
}

void TestSnapshots::allAreSelectedInOrder()
{
    DialogPage shown;
    shown.host.addCamera();
    shown.mediator->setUpdateFlags(4);
    int flagsOnReturn = -1;
    shown.page.call("bridge.selectAllDocs()");
    flagsOnReturn = shown.mediator->updateFlags();
    QCOMPARE(shown.host.commands(),
             QStringList({"prepareSelectAll()", "deterUpdateUI(true)",
                          "selectAllDocs(JS_Mediator_Dialog)", "deterUpdateUI(false)",
                          "updateUI(63, true)", "setCurrentDoc(1, true)"}));
    QCOMPARE(flagsOnReturn, 4);
}

void TestSnapshots::traceOfAllStandsInside()
{
    StandInHost host;
    host.addCamera();
    JS_Mediator mediator(&host, QStringLiteral("page"));
    mediator.setUpdateFlags(4);
    QStringList flags; // while the host works
    LogCapture log;
    connect(host.events(), &StandInEvents::callJournalled, host.events(), [&](const QString &line) {
        qInfo("host: %s", qPrintable(line));
        flags.append(QString::number(mediator.updateFlags()));
    });
    mediator.selectAllDocs();
    QCOMPARE(
        log.texts(),
        QStringList({"host: prepareSelectAll()", "host: currentDocKey()",
                     "[ENTER] \"JS_Mediator::selectAllDocsSub\" \"\"", "host: deterUpdateUI(true)",
                     "host: selectAllDocs(JS_Mediator)", "host: deterUpdateUI(false)",
                     "host: updateUI(63, true)", "[LEAVE] \"JS_Mediator::selectAllDocsSub\"",
                     "host: setCurrentDoc(1, true)"}));
    QCOMPARE(flags, QStringList({"4", "4", "63", "63", "63", "63", "63"}));
    QCOMPARE(mediator.updateFlags(), 4);
}

void TestSnapshots::failedPreludeEndsSelectAll_data()
{
    QTest::addColumn<QString>("operation");
    QTest::newRow("preparation") << "prepareSelectAll";
    QTest::newRow("current document") << "currentDocKey";
}

void TestSnapshots::failedPreludeEndsSelectAll()
{
    QFETCH(QString, operation);
    DialogPage shown;
    shown.host.failOn(operation);
    LogCapture log;
    shown.page.call("bridge.selectAllDocs()");
    QCOMPARE(shown.host.commands(),
             QStringList({"prepareSelectAll()", "errorHandler(\"" + operation + " failed\")"}));
    QCOMPARE(log.texts(), QStringList());
}

void TestSnapshots::failedSelectAllIsUndoneInOrder()
{
    DialogPage shown;
    shown.host.addCamera();
    shown.mediator->setUpdateFlags(4);
    shown.host.failOn(QStringLiteral("selectAllDocs"));
    shown.page.call("bridge.selectAllDocs()");
    QCOMPARE(shown.host.commands(),
             QStringList({"prepareSelectAll()", "deterUpdateUI(true)",
                          "selectAllDocs(JS_Mediator_Dialog)", "deterUpdateUI(false)",
                          "errorHandler(\"selectAllDocs failed\")", "updateUI(63, true)",
                          "setCurrentDoc(1, true)"}));
    QCOMPARE(shown.mediator->updateFlags(), 4);
}

int main(int argc, char **argv)
{
    TestSnapshots test;
    return runTest(argc, argv, test);
}

#include "test_snapshots.moc"
