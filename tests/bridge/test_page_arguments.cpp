#include "tests/bridge/support/DialogPage.h"
#include "tests/support/TestLog.h"

#include <QMetaMethod>

// What scripts pass: numbers, texts, too few, too many, and nonsense. No call ends the process, and
// what cannot be taken does nothing.

class TestPageArguments : public TestBase
{
    Q_OBJECT

private slots:
    void callComesAsTheRowSays_data();
    void callComesAsTheRowSays();
    void documentFromScriptMeansTheCurrentOne();
    void keysAndPartitionsPass_data();
    void keysAndPartitionsPass();
    void everySlotTakesNonsense_data();
    void everySlotTakesNonsense();
    void everySlotWorksWithoutDocuments();
    void everySlotWorksWithANullDocument();
};

namespace {

/// Takes the types in which pages pass keys and partitions.
class KeyMediator : public JS_Mediator_Dialog
{
    Q_OBJECT

public:
    using JS_Mediator_Dialog::JS_Mediator_Dialog;

    QStringList taken;

public slots:
    void takeKey(DOCKEY key) { taken.append(QString::number(key)); }
    void takePartition(PARTITIONNUMBER number) { taken.append(QString::number(number)); }
    DOCKEY giveKey() { return 9007199254740992u; }
};

const QString Nothing = QStringLiteral("undefined");
const QString Error = QStringLiteral("error: ");

}

void TestPageArguments::callComesAsTheRowSays_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("result"); ///< what it begins with
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<QStringList>("complaints"); ///< what no program may ask of the host
    const auto row = [](const char *name, const char *script, const QString &result,
                        const QStringList &calls, const QStringList &complaints = {}) {
        QTest::newRow(name) << QString::fromUtf8(script) << result << calls << complaints;
    };
    const auto stored = [](const char *value) {
        return QStringList({QStringLiteral("setPrefInt(\"a/b\", %1)").arg(QLatin1String(value))});
    };
    row("number as text", "bridge.setPrefInt('a/b', '12', false)", Nothing, stored("12"));
    row("fraction is rounded", "bridge.setPrefInt('a/b', 1.9, false)", Nothing, stored("2"));
    row("negative", "bridge.setPrefInt('a/b', -7, false)", Nothing, stored("-7"));
    row("word counts as 0", "bridge.setPrefInt('a/b', 'x', false)", Nothing, stored("0"));
    row("object counts as 0", "bridge.setPrefInt('a/b', {}, false)", Nothing, stored("0"));
    row("not a number is not called", "bridge.setPrefInt('a/b', NaN, false)", Error, {});
    row("undefined number is not called", "bridge.setPrefInt('a/b', undefined, false)", Error, {});
    row("null number is not called", "bridge.setPrefInt('a/b', null, false)", Error, {});
    row("text is true", "bridge.setPrefBool('a/b', 'false', false)", Nothing,
        {"setPrefBool(\"a/b\", true)"});
    row("number is true", "bridge.setPrefBool('a/b', 1, false)", Nothing,
        {"setPrefBool(\"a/b\", true)"});
    row("zero is false", "bridge.setPrefBool('a/b', 0, false)", Nothing,
        {"setPrefBool(\"a/b\", false)"});
    row("number as key", "bridge.setPrefInt(5, 1, false)", Nothing, {"setPrefInt(\"5\", 1)"},
        {"unknown setting: 5"});
    row("null text is empty", "bridge.setPrefString('a/b', null, false)", Nothing,
        {"setPrefString(\"a/b\", \"\")"});
    row("number as document key", "bridge.setSelectDoc(3)", Nothing,
        {"deterUpdateUI(true)", "selectDocs([3], false)", "deterUpdateUI(false)",
         "updateUI(63, true)"});
    row("null document key", "bridge.setSelectDoc(null)", Nothing,
        {"deterUpdateUI(true)", "selectDocs([], false)", "deterUpdateUI(false)",
         "updateUI(63, true)"});
    row("no argument", "bridge.setPrefInt()", Error, {});
    row("too few arguments", "bridge.setPrefInt('a/b')", Error, {});
    row("too few for a command", "bridge.openPlugin()", Error, {});
    row("too few for a list", "bridge.getDeviceInfoList()", Error, {});
    row("too many arguments", "bridge.hideSelectBox(1, 2, 3)", Nothing, {"hideSelectBox()"});
    row("no such slot", "bridge.formatDrive()", Error, {});
    row("exception from script", "bridge.errorHandler({})", Error, {});
    row("exception from script, null", "bridge.errorHandler(null)", Error, {});
    row("not a number is no bool", "bridge.deterUpdateUI(NaN)", Error, {});
    row("list of numbers", "bridge.warn('t', [1, 2])", Nothing,
        {"warn(\"t\", [\"1\", \"2\"], null)"});
    row("text in place of a list", "bridge.warn('t', 'u')", Nothing,
        {"warn(\"t\", [\"u\"], null)"});
    row("empty list", "bridge.alert('t', [])", Nothing, {"alert(\"t\", [], null)"});
    row("list as default", "bridge.getPrefInt('a/b', [1])", QStringLiteral("0"),
        {"getPrefInt(\"a/b\", [1])"});
    row("object as default", "bridge.getPrefString('a/b', { k: 1 })", QStringLiteral("\"\""),
        {"getPrefString(\"a/b\", {k: 1})"});
    row("null as default", "bridge.getPrefBool('a/b', null)", QStringLiteral("false"),
        {"getPrefBool(\"a/b\", invalid)"});
    row("huge rectangle ends at the limit",
        "bridge.showDropDownBox('k', 2147483647, 0, 2147483647, 1)", Nothing,
        {"showDropDownBox(\"k\", (2147483647,0 1x1))"});
    row("empty rectangle", "bridge.showDropDownBox('k', 5, 6, 0, 0)", Nothing,
        {"showDropDownBox(\"k\", (5,6 0x0))"});
    row("negative rectangle", "bridge.showDropDownBox('k', -5, -6, -1, -1)", Nothing,
        {"showDropDownBox(\"k\", (-5,-6 -1x-1))"});
    row("window mode as text", "bridge.countMdiWindow('no')", QStringLiteral("0"),
        {"countMdiWindow(true, 2)"});
    row("unknown tool", "bridge.closePlugin('no such tool')", Nothing,
        {"deterUpdateUI(true)", "closePluginByName(\"no such tool\")", "deterUpdateUI(false)",
         "updateUI(63, true)"});
    row("empty tool", "bridge.openPlugin('')", Nothing,
        {"openPluginByName(\"\")", "updateUI(63, true)"}, {"unknown tool: "});
    row("per cent signs stay", "bridge.translate('%2 %1', '%1%2')", QStringLiteral("\"%2 %1%2\""),
        {});
}

void TestPageArguments::callComesAsTheRowSays()
{
    QFETCH(QString, script);
    QFETCH(QString, result);
    QFETCH(QStringList, calls);
    DialogPage shown;
    LogCapture log;
    const QString seen = shown.page.call(script);
    QVERIFY2(seen.startsWith(result), qPrintable(seen));
    QTEST(log.texts(QtCriticalMsg), "complaints");
    QStringList made = shown.host.journal();
    for (int i = made.size() - 1; i >= 0; --i) {
        if (made.at(i).startsWith("translate("))
            made.removeAt(i);
    }
    QCOMPARE(made, calls);
    QCOMPARE(shown.page.call("1 + 1"), QStringLiteral("2"));
}

void TestPageArguments::documentFromScriptMeansTheCurrentOne()
{
    DialogPage shown;
    shown.host.addCamera()->state().showsLutCurve = true;
    for (const char *argument : {"", "null", "{}", "5", "'2'", "bridge"}) {
        QCOMPARE(
            shown.page.call(QStringLiteral("JSON.parse(bridge.getControlStatus(%1)).IsLutCurve")
                                .arg(QLatin1String(argument))),
            QStringLiteral("true"));
    }
}

void TestPageArguments::keysAndPartitionsPass_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("taken");
    QTest::newRow("number") << "bridge.takeKey(12)" << QStringList({"12"});
    QTest::newRow("decimal text") << "bridge.takeKey('12')" << QStringList({"12"});
    QTest::newRow("greatest exact number")
        << "bridge.takeKey(9007199254740992)" << QStringList({"9007199254740992"});
    QTest::newRow("greatest exact text")
        << "bridge.takeKey('9007199254740992')" << QStringList({"9007199254740992"});
    QTest::newRow("key that came from here")
        << "bridge.takeKey(bridge.giveKey())" << QStringList({"9007199254740992"});
    QTest::newRow("partition") << "bridge.takePartition(3)" << QStringList({"3"});
    QTest::newRow("partition as text") << "bridge.takePartition('3')" << QStringList({"3"});
    QTest::newRow("negative partition") << "bridge.takePartition(-1)" << QStringList({"-1"});
}

void TestPageArguments::keysAndPartitionsPass()
{
    QFETCH(QString, script);
    StandInHost host;
    auto *mediator = new KeyMediator(&host, QStringLiteral("bridge"));
    GUI_WebViewDialog dialog(&host, QStringLiteral("Keys"), QStringLiteral("qrc:/pages/calls.html"),
                             mediator, nullptr);
    PageProbe page(dialog.webView());
    dialog.resize(400, 300);
    dialog.show();
    QVERIFY(page.waitLoaded());
    QCOMPARE(page.call(script), Nothing);
    QTEST(mediator->taken, "taken");
    const int slot = mediator->metaObject()->indexOfSlot("takeKey(DOCKEY)");
    QVERIFY(slot >= 0);
    QVERIFY(QMetaType::type("DOCKEY") != QMetaType::UnknownType);
    QVERIFY(QMetaType::type("PARTITIONNUMBER") != QMetaType::UnknownType);
    QCOMPARE(QMetaType::type("DOCKEY"), int(QMetaType::ULongLong));
    QCOMPARE(QMetaType::type("PARTITIONNUMBER"), int(QMetaType::Int));
}

void TestPageArguments::everySlotTakesNonsense_data()
{
    QTest::addColumn<QString>("argument");
    for (const char *argument : {"undefined",
                                 "null",
                                 "NaN",
                                 "Infinity",
                                 "-Infinity",
                                 "1e300",
                                 "-1",
                                 "''",
                                 "'x'",
                                 "{}",
                                 "[]",
                                 "[[]]",
                                 "[null, undefined, {}]",
                                 "function () {}",
                                 "new Date(0)",
                                 "/x/",
                                 "window",
                                 "document",
                                 "bridge",
                                 "bridge.update",
                                 "new Array(10000).join('y')",
                                 "(function () { var a = {}; a.a = a; return 'cycle'; })()",
                                 "'\\u0000\\uD800'"})
        QTest::newRow(argument) << QString::fromLatin1(argument);
}

// Every slot, with each number of arguments from none to seven.
void TestPageArguments::everySlotTakesNonsense()
{
    QFETCH(QString, argument);
    LogCapture log;
    DialogPage shown;
    shown.host.addCamera();
    QStringList names;
    const QMetaObject &meta = JS_Mediator_Dialog::staticMetaObject;
    for (int i = QObject::staticMetaObject.methodCount(); i < meta.methodCount(); ++i) {
        const QString name = QString::fromLatin1(meta.method(i).name());
        if (meta.method(i).methodType() == QMetaMethod::Slot && !names.contains(name))
            names.append(name);
    }
    QCOMPARE(names.size(), 69); // 67 of the base, the two of a dialog
    for (const QString &name : names) {
        shown.page.evaluate(QStringLiteral("for (var n = 0; n <= 7; ++n) {"
                                           "    var a = []; while (a.length < n) a.push(%2);"
                                           "    try { bridge.%1.apply(bridge, a); } catch (e) {}"
                                           "}")
                                .arg(name, argument));
        QCOMPARE(shown.page.evaluate("1 + 1").toInt(), 2);
    }
    // What the page held back or opened, it could do with plain arguments too.
    QCOMPARE(shown.host.handledErrors(), QStringList());
    const int enters = log.texts().filter(QRegularExpression("^\\[ENTER\\]")).size();
    const int leaves = log.texts().filter(QRegularExpression("^\\[LEAVE\\]")).size();
    QCOMPARE(enters, leaves);
}

void TestPageArguments::everySlotWorksWithoutDocuments()
{
    LogCapture log;
    DialogPage shown;
    const QString all = QStringLiteral(
        "bridge.isPlaying() + ',' + bridge.isConnected() + ',' + bridge.getRangeMax() + ',' +"
        "bridge.getFlip() + ',' + bridge.getRotate() + ',' + bridge.getSelectedDockey() + ',' +"
        "bridge.getDeviceInfoList(false) + ',' + bridge.getControlStatus().length");
    QVERIFY(shown.page.call(all).startsWith("\"false,false,255,0,0,,,"));
    shown.page.call("bridge.selectAllDocs(); bridge.setSelectDoc('1');"
                    "bridge.openExportSupportFileDialog(); bridge.openPlugin('binning')");
    QCOMPARE(shown.host.handledErrors(), QStringList());
}

void TestPageArguments::everySlotWorksWithANullDocument()
{
    LogCapture log;
    DialogPage shown;
    shown.host.addCamera();
    for (const char *operation :
         {"currentDocument", "deviceByKey", "documentByKey", "currentPlugin", "mainWidget"})
        shown.host.answerNullOn(QLatin1String(operation), 0);
    const QStringList calls = {"isPlaying()",
                               "isConnected()",
                               "getRangeMax()",
                               "getControlStatus()",
                               "getDeviceInfoList(false)",
                               "getDeviceInfoList(true)",
                               "openPlugin('binning')",
                               "openExportSupportFileDialog()",
                               "setStyle('dark')"};
    for (const QString &call : calls)
        QVERIFY2(!shown.page.call("bridge." + call).startsWith(Error), qPrintable(call));
    QCOMPARE(shown.host.handledErrors(), QStringList());
    QCOMPARE(shown.page.call("bridge.getDeviceInfoList(false)"), QStringLiteral("[]"));
}

int main(int argc, char **argv)
{
    TestPageArguments test;
    return runTest(argc, argv, test);
}

#include "test_page_arguments.moc"
