#include "record/timecode/TimeCodeModel.h"
#include "standin/drawing/TimeCodeFrames.h"
#include "tests/support/TestLog.h"

#include <limits>

class TestTimeCodeFrames : public TestBase
{
    Q_OBJECT

private slots:
    void time_data();
    void time();
    void timeHasTheSignOfTheAmount_data();
    void timeHasTheSignOfTheAmount();
    void scale_data();
    void scale();
    void scaleFollowsTheStoredEnd();
    void unitIsAnyText();
};

namespace {

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinite = std::numeric_limits<double>::infinity();
constexpr quint64 LastFrame = std::numeric_limits<quint64>::max();

TimeCodeRecord custom(double amount, double start)
{
    TimeCodeRecord record;
    record.timeCodeIndex = 1;
    record.oneFrame = amount;
    record.startValue = start;
    return record;
}

}

void TestTimeCodeFrames::time_data()
{
    QTest::addColumn<quint64>("frame");
    QTest::addColumn<uint>("rate");
    QTest::addColumn<int>("scope");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<bool>("divide");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, quint64 frame, uint rate, int scope, int decimals,
                        bool divide, const char *text) {
        QTest::newRow(name) << frame << rate << scope << decimals << divide << QString(text);
    };
    row("first frame", 0, 1000, 0, 0, false, "+00:00:00");
    row("third frame at 1000 fps", 2, 1000, 0, 0, false, "+00:00:00.002");
    row("six decimals", 2, 1000, 0, 6, false, "+00:00:00.002000");
    row("six decimals in groups", 2, 1000, 0, 6, true, "+00:00:00.002 000");
    row("hours", 3725250, 1000, 0, 3, false, "+01:02:05.250");
    row("minutes", 3725250, 1000, 1, 3, false, "+62:05.250");
    row("seconds", 3725250, 1000, 2, 3, false, "+3725.250 sec");
    row("milliseconds", 2, 1000, 3, 0, false, "+002 msec");
    row("milliseconds with decimals", 1, 8000, 3, 3, false, "+000.125 msec");
    row("microseconds", 1, 8000, 4, 0, false, "+125 usec");
    row("nanoseconds", 1, 8000, 5, 0, false, "+125000 nsec");
    row("to the nanosecond", 1, 3, 0, 0, false, "+00:00:00.333333333");
    row("rounded up", 2, 3, 0, 0, false, "+00:00:00.666666667");
    row("rounded up to a second", 4294967294, 4294967295, 0, 0, false, "+00:00:01");
    row("a decimal place cuts", 2, 3, 0, 3, false, "+00:00:00.666");
    row("unknown scope", 1, 1000, 6, 0, false, "+");
    row("without a rate", 12, 0, 0, 0, false, "");
    row("beyond 64 bits of nanoseconds", LastFrame, 1, 2, 0, false, "+9223372035 sec");
}

void TestTimeCodeFrames::time()
{
    QFETCH(quint64, frame);
    QFETCH(uint, rate);
    QFETCH(int, scope);
    QFETCH(int, decimals);
    QFETCH(bool, divide);
    TimeCodeRecord record;
    record.scopeDisplayIndex = scope;
    record.decimalPlaceIndex = decimals;
    record.decimalDivide = divide;
    // Of the scale, the sign of its amount alone has a part in it.
    record.oneFrame = 2.0;
    record.startValue = 7.0;
    record.reset = true;
    record.resetValue = -9.0;
    QTEST(TimeCodeFrames::text(frame, rate, record), "text");
}

void TestTimeCodeFrames::timeHasTheSignOfTheAmount_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("text");
    QTest::newRow("above zero") << 0.5 << "+00:00:00.002";
    QTest::newRow("below zero") << -0.5 << "-00:00:00.002";
    QTest::newRow("zero") << 0.0 << "+00:00:00.002";
    QTest::newRow("least amount") << -0.0001 << "-00:00:00.002";
    QTest::newRow("rounds to zero") << -0.00001 << "+00:00:00.002";
    QTest::newRow("no number") << NotANumber << "+00:00:00.002";
    QTest::newRow("infinite below") << -Infinite << "+00:00:00.002";
}

// As the dialog's sample of 2 milliseconds.
void TestTimeCodeFrames::timeHasTheSignOfTheAmount()
{
    QFETCH(double, amount);
    TimeCodeRecord record;
    record.oneFrame = amount;
    QTEST(TimeCodeFrames::text(2, 1000, record), "text");
    TimeCodeModel model;
    model.load(record);
    QCOMPARE(model.sample.trimmed(), TimeCodeFrames::text(2, 1000, record));
}

void TestTimeCodeFrames::scale_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<double>("start");
    QTest::addColumn<bool>("reset");
    QTest::addColumn<double>("end");
    QTest::addColumn<quint64>("frame");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, double amount, double start, bool reset, double end,
                        quint64 frame, const char *text) {
        QTest::newRow(name) << amount << start << reset << end << frame << QString(text);
    };
    row("start", 0.1234, 5.0, false, 0.0, 0, "+005.0000 deg");
    row("one frame", 0.1234, 0.0, false, 0.0, 1, "+000.1234 deg");
    row("start and three frames", 0.5, 10.0, false, 0.0, 3, "+011.5000 deg");
    row("binary fraction stays exact", 0.1, 0.0, false, 0.0, 23, "+002.3000 deg");
    row("four digits", 100.0, 0.0, false, 0.0, 12, "+1200.0000 deg");
    row("below zero", -0.5, 1.0, false, 0.0, 3, "-000.5000 deg");
    row("zero has a plus", -0.5, 1.0, false, 0.0, 2, "+000.0000 deg");
    row("start below zero", 0.5, -1.0, false, 0.0, 1, "-000.5000 deg");
    row("inexact start below zero", 0.5, -0.57, false, 0.0, 0, "-000.5700 deg");
    row("inexact amount below zero", -0.57, 0.0, false, 0.0, 1000, "-570.0000 deg");
    row("inexact amount, last before the end", -0.57, 0.0, true, -5.7, 9, "-005.1300 deg");
    row("inexact amount, end is reached", -0.57, 0.0, true, -5.7, 10, "+000.0000 deg");
    row("rounds away from zero", -0.00006, 0.0, false, 0.0, 1, "-000.0001 deg");
    row("rounds to zero", -0.00004, 0.0, false, 0.0, 1, "+000.0000 deg");
    row("stands still", 0.0, 3.0, true, 9.0, 100, "+003.0000 deg");
    // 0, 2, 4, then 6 would be at 5 or behind it.
    row("before the end", 2.0, 0.0, true, 5.0, 2, "+004.0000 deg");
    row("end is reached", 2.0, 0.0, true, 5.0, 3, "+000.0000 deg");
    row("second run", 2.0, 0.0, true, 5.0, 4, "+002.0000 deg");
    row("end is hit exactly", 2.0, 0.0, true, 6.0, 3, "+000.0000 deg");
    row("last before it", 2.0, 0.0, true, 6.0, 2, "+004.0000 deg");
    row("run after run", 2.0, 0.0, true, 6.0, 3000001, "+002.0000 deg");
    row("wraps to the start value", 0.1, 1.0, true, 2.0, 10, "+001.0000 deg");
    row("each frame is the end", 2.0, 0.0, true, 1.0, 7, "+000.0000 deg");
    row("downwards", -2.0, 0.0, true, -5.0, 2, "-004.0000 deg");
    row("downwards, end is reached", -2.0, 0.0, true, -5.0, 3, "+000.0000 deg");
    row("reset is off", 2.0, 0.0, false, 5.0, 3, "+006.0000 deg");
    row("moves away from the end", 2.0, 0.0, true, -5.0, 3, "+006.0000 deg");
    row("moves away downwards", -2.0, 0.0, true, 5.0, 3, "-006.0000 deg");
    row("end is the start", 2.0, 5.0, true, 5.0, 3, "+011.0000 deg");
    row("amount is no number", NotANumber, 5.0, false, 0.0, 3, "+005.0000 deg");
    row("amount is infinite", Infinite, 5.0, false, 0.0, 3, "+005.0000 deg");
    row("start is no number", 2.0, NotANumber, false, 0.0, 3, "+006.0000 deg");
    row("start is infinite", 2.0, -Infinite, false, 0.0, 3, "+006.0000 deg");
    row("end is no number", -2.0, 5.0, true, NotANumber, 3, "+005.0000 deg"); // 5, 3, 1, 5
    row("end is infinite", 2.0, 5.0, true, Infinite, 3, "+011.0000 deg");
    row("amount beyond 64 bits", 1e300, 0.0, false, 0.0, 2, "+922337203685477.5807 deg");
    row("frames beyond 64 bits", 1.0, 0.0, false, 0.0, LastFrame, "+922337203685477.5807 deg");
    row("far below", -1e300, 0.0, false, 0.0, 2, "-922337203685477.5808 deg");
    row("from end to end", 1e300, -1e300, false, 0.0, 1, "-000.0001 deg");
    row("from end to end and back", 1e300, -1e300, true, 1e300, 4, "-000.0001 deg");
    row("wraps behind 64 bits of frames", 0.0001, -1e300, true, 1e300, LastFrame,
        "-922337203685477.5808 deg");
}

void TestTimeCodeFrames::scale()
{
    QFETCH(double, amount);
    QFETCH(double, start);
    QFETCH(bool, reset);
    QFETCH(double, end);
    QFETCH(quint64, frame);
    TimeCodeRecord record = custom(amount, start);
    record.reset = reset;
    record.resetValue = end;
    // The form of the time has no part in it, nor has the record rate.
    record.scopeDisplayIndex = 3;
    record.decimalPlaceIndex = 1;
    record.decimalDivide = true;
    QTEST(TimeCodeFrames::text(frame, 0, record), "text");
    QCOMPARE(TimeCodeFrames::text(frame, 8000, record), TimeCodeFrames::text(frame, 0, record));
}

// A page counts the frames to the end; what it stores ends the scale there.
void TestTimeCodeFrames::scaleFollowsTheStoredEnd()
{
    TimeCodeModel model;
    model.timeCodeIndex = 1;
    model.setOneFrame("0.1");
    model.setStartValue("1");
    model.reset = true;
    model.setResetValue("10");
    const TimeCodeRecord record = model.record();
    QCOMPARE(TimeCodeFrames::text(9, 0, record), QString("+001.9000 deg"));
    QCOMPARE(TimeCodeFrames::text(10, 0, record), QString("+001.0000 deg"));
    QCOMPARE(TimeCodeFrames::text(19, 0, record), QString("+001.9000 deg"));
}

void TestTimeCodeFrames::unitIsAnyText()
{
    TimeCodeRecord record = custom(1.0, 0.0);
    record.displayUnit = QString::fromUtf8("%1 \xC2\xB0<b>");
    QCOMPARE(TimeCodeFrames::text(1, 0, record), QString::fromUtf8("+001.0000 %1 \xC2\xB0<b>"));
    record.displayUnit = QString();
    QCOMPARE(TimeCodeFrames::text(1, 0, record), QString("+001.0000"));
}

int main(int argc, char *argv[])
{
    TestTimeCodeFrames test;
    return runTest(argc, argv, test);
}

#include "test_time_code_frames.moc"
