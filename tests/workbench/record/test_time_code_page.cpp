#include "bridge/page/GUI_WebView.h"
#include "contract/HostTypes.h"
#include "tests/support/TestLog.h"
#include "tests/workbench/support/PageVisit.h"
#include "workbench/tour/PageHand.h"

#include <QDialog>

#include <cmath>

using namespace PageHand;

namespace {

/// What is done to the page: by a text for a field, a number of an entry for a list, and nothing
/// for a box or a button, which is pressed.
struct Step
{
    const char *id;
    QVariant value;
};

using Steps = QVector<Step>;

bool isList(const QString &id)
{
    return QStringList({"scope", "decimals", "resetUnit"}).contains(id);
}

// By keys alone.
bool work(GUI_WebView *view, const Steps &steps)
{
    for (const Step &step : steps) {
        const bool isDone = isList(step.id) ? chooseByKeys(view, step.id, step.value.toInt())
                            : step.value.isValid()
                                ? goTo(view, step.id) &&
                                      press(view, Qt::Key_A, Qt::ControlModifier) &&
                                      type(view, step.value.toString()) && press(view, Qt::Key_Tab)
                                : goTo(view, step.id) && press(view, Qt::Key_Space);
        if (!isDone) {
            qWarning("cannot work %s", step.id);
            return false;
        }
    }
    return true;
}

QString sample(GUI_WebView *view)
{
    return shownIn(view, "sample", "textContent").toString();
}

QString note(GUI_WebView *view)
{
    return isShown(view, "#state") ? text(view, "#state") : QString();
}

/// A scale of the crank's angle that starts again.
TimeCodeRecord crank()
{
    TimeCodeRecord record;
    record.timeCodeIndex = 1;
    record.displayUnit = "CA";
    record.oneFrame = 0.1;
    record.startValue = 1.0;
    record.reset = true;
    record.resetValue = 2.0;
    record.scopeDisplayIndex = 3;
    record.decimalPlaceIndex = 6;
    record.decimalDivide = true;
    record.usingRihFileInfo = false;
    record.overWrite = true;
    record.realTime = true;
    return record;
}

QStringList told(const TimeCodeRecord &record)
{
    const auto number = [](double value) { return QString::number(value, 'f', 4); };
    const auto flag = [](bool value) { return QString(value ? "true" : "false"); };
    return {QString::number(record.timeCodeIndex),
            record.displayUnit,
            number(record.oneFrame),
            number(record.startValue),
            flag(record.reset),
            number(record.resetValue),
            QString::number(record.scopeDisplayIndex),
            QString::number(record.decimalPlaceIndex),
            flag(record.decimalDivide),
            flag(record.usingRihFileInfo),
            flag(record.overWrite),
            flag(record.realTime)};
}

struct TimeCodeVisit : PageVisit
{
    explicit TimeCodeVisit(const TimeCodeRecord &record = TimeCodeRecord())
    {
        host.setTimeCodeSetting(record);
    }

    bool open(const std::function<void(QDialog &, GUI_WebView *)> &body)
    {
        const bool came = PageVisit::open("timeCode", [&](QDialog &dialog, GUI_WebView *view) {
            QObject::connect(&dialog, &QDialog::finished, [this](int end) { result = end; });
            body(dialog, view);
        });
        written = host.commands().filter("setTimeCodeSetting").size();
        return came;
    }

    TimeCodeRecord record()
    {
        TimeCodeRecord now;
        host.getTimeCodeSetting(now);
        return now;
    }

    int result = -1;
    int written = -1; ///< how often the settings were stored
};

}

Q_DECLARE_METATYPE(Steps)

/// The page that sets how the running time code is labelled.
class TestTimeCodePage : public TestBase
{
    Q_OBJECT

private slots:
    void showsTheSettings();
    void sampleFollows_data();
    void sampleFollows();
    void sampleFollowsWhileTheUserTypes();
    void showsWhatAValueHasBecome_data();
    void showsWhatAValueHasBecome();
    void otherControlTakesTheNoteAway_data();
    void otherControlTakesTheNoteAway();
    void switchOfTheUnitConverts();
    void offersWhatTheChoiceNeeds();
    void storesEachOption_data();
    void storesEachOption();
    void storesOnlyByOk_data();
    void storesOnlyByOk();
    void escapeLeavesItOpen();
    void defaultsComeBackWithoutBeingStored();
    void keepsWhatCouldNotBeStored();
    void doesNotStoreWhatCouldNotBeRead();
    void storesFiniteNumbersOnly_data();
    void storesFiniteNumbersOnly();
    void enterLeavesAField();
    void hasRoomForAll();
};

void TestTimeCodePage::showsTheSettings()
{
    TimeCodeVisit visit(crank());
    QVERIFY(visit.open([](QDialog &dialog, GUI_WebView *view) {
        QCOMPARE(dialog.size(), QSize(450, 470));
        QCOMPARE(shownIn(view, "time", "checked"), QVariant(false));
        QCOMPARE(shownIn(view, "scale", "checked"), QVariant(true));
        QCOMPARE(shownIn(view, "oneFrame"), QVariant("0.1000"));
        QCOMPARE(shownIn(view, "unit"), QVariant("CA"));
        QCOMPARE(shownIn(view, "start"), QVariant("1.0000"));
        QCOMPARE(shownIn(view, "reset", "checked"), QVariant(true));
        QCOMPARE(shownIn(view, "resetValue"), QVariant("10")); // frames at first
        QCOMPARE(shownIn(view, "resetUnit"), QVariant("0"));
        QCOMPARE(shownIn(view, "scope"), QVariant("3"));
        QCOMPARE(shownIn(view, "decimals"), QVariant("6"));
        QCOMPARE(shownIn(view, "divide", "checked"), QVariant(true));
        QCOMPARE(shownIn(view, "usingRih", "checked"), QVariant(false));
        QCOMPARE(shownIn(view, "overWrite", "checked"), QVariant(true));
        QCOMPARE(shownIn(view, "realTime", "checked"), QVariant(true));
        QCOMPARE(sample(view), QString("+000.1000 CA"));
        QCOMPARE(note(view), QString());
    }));
}

void TestTimeCodePage::sampleFollows_data()
{
    QTest::addColumn<Steps>("steps");
    QTest::addColumn<QString>("expected");
    QTest::newRow("hours") << Steps() << "+00:00:00.002 ";
    QTest::newRow("minutes") << Steps{{"scope", 1}} << "+00:00.002 ";
    QTest::newRow("seconds") << Steps{{"scope", 2}} << "+000.002 sec";
    QTest::newRow("milliseconds") << Steps{{"scope", 3}} << "+002 msec";
    QTest::newRow("microseconds") << Steps{{"scope", 4}} << "+2000 usec";
    QTest::newRow("nanoseconds") << Steps{{"scope", 5}} << "+2000000 nsec";
    QTest::newRow("decimals") << Steps{{"decimals", 6}} << "+00:00:00.002000 ";
    QTest::newRow("decimals in groups")
        << Steps{{"decimals", 6}, {"divide", {}}} << "+00:00:00.002 000 ";
    QTest::newRow("decimals of milliseconds")
        << Steps{{"scope", 3}, {"decimals", 3}} << "+002.000 msec";
    QTest::newRow("scale") << Steps{{"time", {}}, {"scale", {}}} << "+000.0000 deg";
    QTest::newRow("amount of a frame")
        << Steps{{"scale", {}}, {"oneFrame", "0.1234"}} << "+000.1234 deg";
    QTest::newRow("amount below zero")
        << Steps{{"scale", {}}, {"oneFrame", "-0.5"}} << "-000.5000 deg";
    QTest::newRow("unit of the scale")
        << Steps{{"scale", {}}, {"oneFrame", "2"}, {"unit", "<b>mm</b>"}} << "+002.0000 <b>mm</b>";
}

void TestTimeCodePage::sampleFollows()
{
    QFETCH(Steps, steps);
    QFETCH(QString, expected);
    TimeCodeVisit visit;
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        for (const Step &step : steps) {
            // One of two radio buttons takes part in Tab, the arrows choose the other.
            if (step.id == QLatin1String("scale"))
                QVERIFY(goTo(view, "time") && press(view, Qt::Key_Down));
            else if (step.id != QLatin1String("time"))
                QVERIFY(work(view, {step}));
        }
        QCOMPARE(sample(view), expected);
    }));
}

void TestTimeCodePage::sampleFollowsWhileTheUserTypes()
{
    TimeCodeVisit visit;
    QVERIFY(visit.open([](QDialog &, GUI_WebView *view) {
        QVERIFY(click(view, "#scale"));
        QVERIFY(typeInto(view, "oneFrame", "0.25"));
        QCOMPARE(sample(view), QString("+000.2500 deg"));
        QCOMPARE(shownIn(view, "oneFrame"), QVariant("0.25")); // it is the user's
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(shownIn(view, "oneFrame"), QVariant("0.2500"));
        QCOMPARE(note(view), QString()); // the same number
    }));
}

void TestTimeCodePage::showsWhatAValueHasBecome_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("told");
    const auto row = [](const char *name, const char *id, int unit, const char *typed,
                        const char *shown, const char *told) {
        QTest::newRow(name) << id << unit << typed << shown << told;
    };
    row("next frame", "resetValue", 1, "5.0", "6.0000", "5.0 has become 6.0000.");
    row("on a frame", "resetValue", 1, "8", "8.0000", "");
    row("beyond the last frame", "resetValue", 1, "1000000", "199998.0000",
        "1000000 has become 199998.0000.");
    row("beyond 64 bits", "resetValue", 1, "99999999999999999999", "199998.0000",
        "99999999999999999999 has become 199998.0000.");
    row("before the start", "resetValue", 1, "-4", "2.0000", "-4 has become 2.0000.");
    row("infinite", "resetValue", 1, "inf", "2.0000", "inf has become 2.0000.");
    row("no frame", "resetValue", 0, "0", "1", "0 has become 1.");
    row("too many frames", "resetValue", 0, "100000", "99999", "100000 has become 99999.");
    row("frames beyond 64 bits", "resetValue", 0, "99999999999999999999", "99999",
        "99999999999999999999 has become 99999.");
    row("part of a frame", "resetValue", 0, "2.5", "2.5", "");
    row("frames that are no number", "resetValue", 0, "<b>x</b>", "1", "<b>x</b> has become 1.");
    row("start with five decimals", "start", 0, "0.12345", "0.1235", "0.12345 has become 0.1235.");
    row("start that is no number", "start", 0, "abc", "0.0000", "abc has become 0.0000.");
    row("amount that is no number", "oneFrame", 0, "nan", "0.0000", "nan has become 0.0000.");
    row("amount that is infinite", "oneFrame", 0, "1e999", "0.0000", "1e999 has become 0.0000.");
    row("amount with an exponent", "oneFrame", 0, "1e2", "100.0000", "");
}

// With a scale that advances by 2 from 0. A value that the scale never reaches ends it behind one
// frame.
void TestTimeCodePage::showsWhatAValueHasBecome()
{
    QFETCH(QString, id);
    QFETCH(int, unit);
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QFETCH(QString, told);
    TimeCodeRecord record = crank();
    record.oneFrame = 2.0;
    record.startValue = 0.0;
    record.resetValue = 20.0;
    TimeCodeVisit visit(record);
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(chooseByKeys(view, "resetUnit", unit));
        QVERIFY(typeInto(view, id, typed));
        QCOMPARE(shownIn(view, id), QVariant(typed));
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(shownIn(view, id), QVariant(shown));
        QCOMPARE(note(view), told);
        QVERIFY(typeInto(view, "start", "4")); // another field takes the note away
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(note(view), QString());
    }));
}

void TestTimeCodePage::otherControlTakesTheNoteAway_data()
{
    QTest::addColumn<QString>("id");
    for (const char *id : {"resetUnit", "reset", "usingRih", "time"})
        QTest::newRow(id) << id;
}

void TestTimeCodePage::otherControlTakesTheNoteAway()
{
    QFETCH(QString, id);
    TimeCodeVisit visit(crank());
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(chooseByKeys(view, "resetUnit", 1));
        QVERIFY(typeInto(view, "resetValue", "1.35"));
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(note(view), QString("1.35 has become 1.4000."));
        QVERIFY(isList(id) ? chooseByKeys(view, id, 0) : click(view, '#' + id));
        QCOMPARE(note(view), QString());
    }));
}

void TestTimeCodePage::switchOfTheUnitConverts()
{
    TimeCodeVisit visit(crank());
    QVERIFY(visit.open([](QDialog &, GUI_WebView *view) {
        QCOMPARE(shownIn(view, "resetValue"), QVariant("10"));
        QVERIFY(chooseByKeys(view, "resetUnit", 1));
        QCOMPARE(shownIn(view, "resetValue"), QVariant("2.0000"));
        QVERIFY(chooseByKeys(view, "resetUnit", 0));
        QCOMPARE(shownIn(view, "resetValue"), QVariant("10"));
    }));
}

void TestTimeCodePage::offersWhatTheChoiceNeeds()
{
    TimeCodeVisit visit;
    QVERIFY(visit.open([](QDialog &, GUI_WebView *view) {
        const auto offered = [view] {
            QStringList ids;
            for (const char *id : {"scope", "decimals", "divide", "oneFrame", "unit", "start",
                                   "reset", "resetValue", "resetUnit"}) {
                if (isEnabled(view, QString("#") + id))
                    ids.append(id);
            }
            return ids;
        };
        const QStringList time({"scope", "decimals", "divide"});
        const QStringList scale({"oneFrame", "unit", "start", "reset"});
        QCOMPARE(offered(), time);
        QVERIFY(click(view, "#scale"));
        QCOMPARE(offered(), scale);
        QVERIFY(click(view, "#reset"));
        QCOMPARE(offered(), scale + QStringList({"resetValue", "resetUnit"}));
        QVERIFY(click(view, "#time"));
        QCOMPARE(offered(), time);
    }));
}

void TestTimeCodePage::storesEachOption_data()
{
    QTest::addColumn<bool>("isScale");
    QTest::addColumn<Steps>("steps");
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *name, bool isScale, const Steps &steps, int field,
                        const char *value) {
        QTest::newRow(name) << isScale << steps << field << value;
    };
    row("unit", true, {{"unit", "mm"}}, 1, "mm");
    row("amount", true, {{"oneFrame", "-0.5"}}, 2, "-0.5000");
    row("start", true, {{"start", "7"}}, 3, "7.0000");
    row("reset", true, {{"reset", {}}}, 4, "false");
    row("reset value in frames", true, {{"resetValue", "25"}}, 5, "3.5000");
    row("reset value", true, {{"resetUnit", 1}, {"resetValue", "1.35"}}, 5, "1.4000");
    row("form", false, {{"scope", 5}}, 6, "5");
    row("decimals", false, {{"decimals", 9}}, 7, "9");
    row("groups", false, {{"divide", {}}}, 8, "false");
    row("file", true, {{"usingRih", {}}}, 9, "true");
    row("overwrite", true, {{"overWrite", {}}}, 10, "false");
    row("real time", false, {{"realTime", {}}}, 11, "false");
}

void TestTimeCodePage::storesEachOption()
{
    QFETCH(bool, isScale);
    QFETCH(Steps, steps);
    QFETCH(int, field);
    QFETCH(QString, value);
    TimeCodeRecord before = crank();
    before.timeCodeIndex = isScale ? 1 : 0;
    TimeCodeVisit visit(before);
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(work(view, steps));
        QVERIFY(goTo(view, "ok"));
        QVERIFY(press(view, Qt::Key_Return));
    }));
    QCOMPARE(visit.result, int(QDialog::Accepted));
    QCOMPARE(visit.written, 1);
    QStringList expected = told(before);
    expected[field] = value;
    if (field == 2)
        expected[5] = "-4.0000"; // ten frames on
    if (field == 3)
        expected[5] = "8.0000";
    QCOMPARE(told(visit.record()), expected);
}

void TestTimeCodePage::storesOnlyByOk_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"ok", "cancel", "title bar"})
        QTest::newRow(way) << way;
}

void TestTimeCodePage::storesOnlyByOk()
{
    QFETCH(QString, way);
    TimeCodeVisit visit(crank());
    QVERIFY(visit.open([&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(click(view, "#time"));
        QVERIFY(click(view, "#divide"));
        QVERIFY(way == "title bar" ? dialog.close() : click(view, '#' + way));
        QVERIFY(!dialog.isVisible());
    }));
    TimeCodeRecord expected = crank();
    if (way == "ok") {
        expected.timeCodeIndex = 0;
        expected.decimalDivide = false;
    }
    QCOMPARE(told(visit.record()), told(expected));
    QCOMPARE(visit.written, way == "ok" ? 1 : 0);
    QCOMPARE(visit.result, int(way == "ok" ? QDialog::Accepted : QDialog::Rejected));
}

void TestTimeCodePage::escapeLeavesItOpen()
{
    TimeCodeVisit visit(crank());
    QVERIFY(visit.open([](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(typeInto(view, "start", "3"));
        QVERIFY(press(view, Qt::Key_Escape));
        QVERIFY(dialog.isVisible());
        QCOMPARE(shownIn(view, "start"), QVariant("3"));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(visit.record().startValue, 3.0);
}

void TestTimeCodePage::defaultsComeBackWithoutBeingStored()
{
    TimeCodeVisit visit(crank());
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QVERIFY(typeInto(view, "start", "abc"));
        QVERIFY(click(view, "#defaults"));
        QCOMPARE(note(view), QString());
        QCOMPARE(sample(view), QString("+00:00:00.002 "));
        QCOMPARE(shownIn(view, "unit"), QVariant("deg"));
        QCOMPARE(shownIn(view, "resetValue"), QVariant("1"));
        QCOMPARE(shownIn(view, "usingRih", "checked"), QVariant(true));
        QCOMPARE(told(visit.record()), told(crank()));
        QVERIFY(click(view, "#ok"));
    }));
    QCOMPARE(told(visit.record()), told(TimeCodeRecord()));
}

void TestTimeCodePage::keepsWhatCouldNotBeStored()
{
    TimeCodeVisit visit(crank());
    QVERIFY(visit.open([&](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(typeInto(view, "start", "3"));
        visit.host.failOn("setTimeCodeSetting", 1);
        QVERIFY(click(view, "#ok"));
        QVERIFY(dialog.isVisible());
        QCOMPARE(visit.host.handledErrors(), QStringList("setTimeCodeSetting failed"));
        QCOMPARE(shownIn(view, "start"), QVariant("3.0000"));
        QVERIFY(click(view, "#ok"));
        QVERIFY(!dialog.isVisible());
    }));
    QCOMPARE(visit.record().startValue, 3.0);
}

void TestTimeCodePage::doesNotStoreWhatCouldNotBeRead()
{
    TimeCodeVisit visit(crank());
    visit.host.failOn("getTimeCodeSetting", 1);
    LogCapture log;
    QVERIFY(visit.open([&](QDialog &, GUI_WebView *view) {
        QCOMPARE(note(view), QString("The settings of the time code could not be read."));
        QCOMPARE(log.texts(QtCriticalMsg),
                 QStringList("[USER][ERROR] \"The settings of the time code could not be read.\""));
        QVERIFY(!isEnabled(view, "#ok"));
        QVERIFY(work(view, {{"decimals", 3}, {"realTime", {}}}));
        QVERIFY(click(view, "#scale"));
        QVERIFY(!isEnabled(view, "#ok"));
        QCOMPARE(note(view), QString("The settings of the time code could not be read."));
        for (const char *typed : {"0.5", "0.12345"}) { // stays, and becomes another
            QVERIFY(typeInto(view, "start", typed));
            QVERIFY(press(view, Qt::Key_Tab));
            QCOMPARE(note(view), QString("The settings of the time code could not be read."));
            QVERIFY(!isEnabled(view, "#ok"));
        }
        QVERIFY(click(view, "#defaults")); // asked for by the user
        QVERIFY(isEnabled(view, "#ok"));
        QCOMPARE(note(view), QString());
        QVERIFY(click(view, "#scale"));
        QVERIFY(typeInto(view, "start", "0.12345"));
        QVERIFY(press(view, Qt::Key_Tab));
        QCOMPARE(note(view), QString("0.12345 has become 0.1235."));
    }));
    QCOMPARE(visit.host.handledErrors(), QStringList("getTimeCodeSetting failed"));
    QCOMPARE(told(visit.record()), told(crank()));
}

void TestTimeCodePage::storesFiniteNumbersOnly_data()
{
    QTest::addColumn<QString>("typed");
    for (const char *typed : {"", "-", "abc", "nan", "inf", "-inf", "1e999", "-1e999", "1e300",
                              "99999999999999999999", "-9223372036854775809", "0x10", "1,5"})
        QTest::newRow(*typed ? typed : "nothing") << typed;
}

void TestTimeCodePage::storesFiniteNumbersOnly()
{
    QFETCH(QString, typed);
    TimeCodeVisit visit(crank());
    QVERIFY(visit.open([&](QDialog &dialog, GUI_WebView *view) {
        for (const char *id : {"oneFrame", "start", "resetValue"})
            QVERIFY(typeInto(view, id, typed));
        QVERIFY(chooseByKeys(view, "resetUnit", 1));
        QVERIFY(typeInto(view, "resetValue", typed));
        QVERIFY(click(view, "#ok"));
        QVERIFY(!dialog.isVisible());
    }));
    const TimeCodeRecord record = visit.record();
    for (const double number : {record.oneFrame, record.startValue, record.resetValue})
        QVERIFY(std::isfinite(number));
    bool isNumber = false;
    const double number = typed.toDouble(&isNumber);
    QCOMPARE(record.startValue, isNumber && std::isfinite(number) ? number : 0.0);
}

void TestTimeCodePage::enterLeavesAField()
{
    TimeCodeVisit visit(crank());
    QVERIFY(visit.open([](QDialog &dialog, GUI_WebView *view) {
        QVERIFY(typeInto(view, "start", "7"));
        QVERIFY(press(view, Qt::Key_Return));
        QVERIFY(dialog.isVisible());
        QCOMPARE(shownIn(view, "start"), QVariant("7.0000"));
        QCOMPARE(view->url(), QUrl("qrc:/prefs_customize_timecode.html"));
    }));
}

void TestTimeCodePage::hasRoomForAll()
{
    TimeCodeVisit visit(crank());
    QVERIFY(visit.open([](QDialog &, GUI_WebView *view) {
        QVERIFY(typeInto(view, "start", "abc"));
        QVERIFY(press(view, Qt::Key_Tab));
        QVERIFY(isShown(view, "#state"));
        QVERIFY(read(view, "var content = document.querySelector('.content');"
                           "content.scrollHeight <= content.clientHeight &&"
                           "content.scrollWidth <= content.clientWidth &&"
                           "document.documentElement.scrollHeight <= innerHeight")
                    .toBool());
        // The longest text of each list has its room.
        QVERIFY(click(view, "#time"));
        QVERIFY(read(view, "Page.all('select').every(function (list) {"
                           "    var widest = list.cloneNode(true);"
                           "    widest.style.cssText = 'position: absolute; width: auto';"
                           "    document.body.appendChild(widest);"
                           "    var width = widest.offsetWidth;"
                           "    widest.remove();"
                           "    return width <= list.offsetWidth;"
                           "})")
                    .toBool());
    }));
}

int main(int argc, char **argv)
{
    TestTimeCodePage test;
    return runTest(argc, argv, test);
}

#include "test_time_code_page.moc"
