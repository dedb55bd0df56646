#include "record/timecode/TimeCodeModel.h"
#include "record/timecode/TimeCodeScale.h"
#include "record/timecode/TimeCodeText.h"
#include "tests/support/TestLog.h"

#include <limits>

// The settings of the time code: arithmetic of the custom scale, texts, and what a page edits.

class TestTimeCode : public TestBase
{
    Q_OBJECT

private slots:
    void numbersAreScaled_data();
    void numbersAreScaled();
    void textsAreFiniteNumbers_data();
    void textsAreFiniteNumbers();
    void framesAreCounted_data();
    void framesAreCounted();
    void valueStandsAtACount_data();
    void valueStandsAtACount();
    void timeIsWritten_data();
    void timeIsWritten();
    void amountIsWritten_data();
    void amountIsWritten();
    void modelBeginsAsShipped();
    void amountPerFrameTellsTheSign_data();
    void amountPerFrameTellsTheSign();
    void startValueIsWrittenWithFourDecimals();
    void numberOfFramesIsKeptInItsLimits_data();
    void numberOfFramesIsKeptInItsLimits();
    void resetValueMovesToTheNextFrame_data();
    void resetValueMovesToTheNextFrame();
    void unitConverts_data();
    void unitConverts();
    void unitThereAndBackKeepsTheCount();
    void sampleShowsTwoMilliseconds_data();
    void sampleShowsTwoMilliseconds();
    void sampleShowsOneFrame_data();
    void sampleShowsOneFrame();
    void settingsAreTakenOver();
    void settingsAreTakenOverInOrder_data();
    void settingsAreTakenOverInOrder();
    void settingsAreHandedBack();
    void resetValueIsStoredAsAValue_data();
    void resetValueIsStoredAsAValue();
    void resetValueSurvivesUpToAFrame_data();
    void resetValueSurvivesUpToAFrame();
    void numbersThatAreNoneAreStoredAsZero_data();
    void numbersThatAreNoneAreStoredAsZero();
    void wholeHoursAreHours();
    void amountIsRoundedAboveAHalf_data();
    void amountIsRoundedAboveAHalf();
};

namespace {

constexpr qint64 Most = std::numeric_limits<qint64>::max();
constexpr qint64 Least = std::numeric_limits<qint64>::min();
constexpr double Infinite = std::numeric_limits<double>::infinity();
constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

const char *const MostText = "922337203685477.6250"; // 64 bits of ten-thousandths, as a double

TimeCodeModel wrapping(const QString &oneFrame, const QString &start, int unit)
{
    TimeCodeModel model;
    model.setOneFrame(oneFrame);
    model.setStartValue(start);
    model.reset = true;
    model.resetUnitIndex = unit;
    return model;
}

}

void TestTimeCode::numbersAreScaled_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<qint64>("scaled");
    QTest::newRow("whole") << 3.0 << qint64(30000);
    QTest::newRow("last place") << 0.0001 << qint64(1);
    QTest::newRow("above a half") << 0.00016 << qint64(2);
    QTest::newRow("a half") << 0.00025 << qint64(2);
    QTest::newRow("below a half") << 0.00012 << qint64(1);
    QTest::newRow("below zero, above a half") << -0.00016 << qint64(-1);
    QTest::newRow("below zero") << -2.5 << qint64(-25000);
    QTest::newRow("far above") << 1e300 << Most;
    QTest::newRow("far below") << -1e300 << Least;
    QTest::newRow("overflows") << 1.7e308 << Most;
    QTest::newRow("just above a half") << 0.000252 << qint64(3);
    QTest::newRow("one more than 64 bits") << 922337203685477.5808 << Most;
    QTest::newRow("just above") << 922337203685477.7 << Most;
}

void TestTimeCode::numbersAreScaled()
{
    QFETCH(double, number);
    QTEST(TimeCodeScale::scaled(number), "scaled");
}

void TestTimeCode::textsAreFiniteNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::addColumn<int>("whole");
    QTest::newRow("number") << "-12.75" << -12.75 << -12;
    QTest::newRow("empty") << "" << 0.0 << 0;
    QTest::newRow("words") << "12 deg" << 0.0 << 0;
    QTest::newRow("infinite") << "inf" << 0.0 << 0;
    QTest::newRow("infinite below") << "-inf" << 0.0 << 0;
    QTest::newRow("no number") << "nan" << 0.0 << 0;
    QTest::newRow("too large for a double") << "1e400" << 0.0 << 0;
    QTest::newRow("too large for an int") << "1e10" << 1e10 << std::numeric_limits<int>::max();
    QTest::newRow("too small for an int") << "-1e10" << -1e10 << std::numeric_limits<int>::min();
}

void TestTimeCode::textsAreFiniteNumbers()
{
    QFETCH(QString, text);
    const double number = TimeCodeScale::number(text);
    QTEST(number, "number");
    QTEST(TimeCodeScale::toInt(number), "whole");
}

void TestTimeCode::framesAreCounted_data()
{
    QTest::addColumn<bool>("resetOn");
    QTest::addColumn<double>("oneFrame");
    QTest::addColumn<double>("resetValue");
    QTest::addColumn<double>("start");
    QTest::addColumn<qint64>("count");
    QTest::newRow("without a reset") << false << 1.0 << 10.0 << 0.0 << qint64(1);
    QTest::newRow("stands still") << true << 0.0 << 10.0 << 0.0 << qint64(1);
    QTest::newRow("stands still in its decimals") << true << 0.00001 << 10.0 << 0.0 << qint64(1);
    QTest::newRow("ends where it starts") << true << 1.0 << 10.0 << 10.0 << qint64(1);
    QTest::newRow("rises from above") << true << 1.0 << 10.0 << 11.0 << qint64(1);
    QTest::newRow("falls from below") << true << -0.5 << 10.0 << 0.0 << qint64(1);
    QTest::newRow("falls to its start") << true << -0.5 << 10.0 << 10.0 << qint64(1);
    QTest::newRow("whole frames") << true << 2.0 << 6.0 << 0.0 << qint64(3);
    QTest::newRow("a frame that is begun") << true << 2.0 << 5.0 << 0.0 << qint64(3);
    QTest::newRow("falls whole frames") << true << -0.5 << -1.0 << 0.0 << qint64(2);
    QTest::newRow("falls a frame that is begun") << true << -0.5 << -1.2 << 0.0 << qint64(3);
    QTest::newRow("from below zero") << true << 0.25 << 1.0 << -1.0 << qint64(8);
    QTest::newRow("the longest way up") << true << 0.0001 << 1e300 << -1e300 << Most;
    QTest::newRow("the longest way down") << true << -0.0001 << -1e300 << 1e300 << Most;
    QTest::newRow("down from zero") << true << -0.0001 << -1e300 << 0.0 << Most;
    QTest::newRow("one frame beyond all") << true << 1e300 << 1e300 << 0.0 << qint64(1);
    QTest::newRow("one frame below all") << true << -1e300 << -1e300 << 0.0 << qint64(1);
}

void TestTimeCode::framesAreCounted()
{
    QFETCH(bool, resetOn);
    QFETCH(double, oneFrame);
    QFETCH(double, resetValue);
    QFETCH(double, start);
    QTEST(TimeCodeScale::frameCount(resetOn, oneFrame, resetValue, start), "count");
}

void TestTimeCode::valueStandsAtACount_data()
{
    QTest::addColumn<qint64>("count");
    QTest::addColumn<double>("oneFrame");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("value");
    QTest::newRow("start") << qint64(0) << 0.5 << 3.0 << 3.0;
    QTest::newRow("rises") << qint64(10) << 0.1 << 1.0 << 2.0;
    QTest::newRow("falls") << qint64(3) << -0.5 << 1.0 << -0.5;
    QTest::newRow("before the start") << qint64(-2) << 0.5 << 1.0 << 0.0;
    const double most = double(Most) / 10000.0;
    QTest::newRow("product overflows") << Most << 2.0 << 0.0 << most;
    QTest::newRow("product overflows below") << Most << -2.0 << 0.0 << -most;
    QTest::newRow("product of two below zero") << Least << -2.0 << 0.0 << most;
    QTest::newRow("product of one below zero") << Least << 2.0 << 0.0 << -most;
    QTest::newRow("sum overflows") << qint64(1) << 1e300 << 1e300 << most;
    QTest::newRow("sum overflows below") << qint64(1) << -1e300 << -1e300 << -most;
}

void TestTimeCode::valueStandsAtACount()
{
    QFETCH(qint64, count);
    QFETCH(double, oneFrame);
    QFETCH(double, start);
    QTEST(TimeCodeScale::valueAtCount(count, oneFrame, start), "value");
}

void TestTimeCode::timeIsWritten_data()
{
    QTest::addColumn<int>("scope");
    QTest::addColumn<int>("places");
    QTest::addColumn<bool>("divided");
    QTest::addColumn<QString>("text");
    QTest::newRow("hours") << 0 << 0 << false << "01:02:03.004005006 ";
    QTest::newRow("hours, 1 place") << 0 << 1 << false << "01:02:03.0 ";
    QTest::newRow("hours, 9 places") << 0 << 9 << false << "01:02:03.004005006 ";
    QTest::newRow("hours, more places than there are") << 0 << 12 << false << "01:02:03.004005006 ";
    QTest::newRow("hours, divided") << 0 << 0 << true << "01:02:03.004 005 006 ";
    QTest::newRow("hours, 3 places divided") << 0 << 3 << true << "01:02:03.004 ";
    QTest::newRow("hours, 4 places divided") << 0 << 4 << true << "01:02:03.004 0 ";
    QTest::newRow("minutes") << 1 << 0 << false << "62:03.004005006 ";
    QTest::newRow("seconds") << 2 << 0 << false << "3723.004005006 sec";
    QTest::newRow("milliseconds") << 3 << 0 << false << "3723004.005006 msec";
    QTest::newRow("milliseconds, below zero places")
        << 3 << -1 << false << "3723004.005006000 msec";
    QTest::newRow("microseconds") << 4 << 0 << false << "3723004005.006 usec";
    QTest::newRow("nanoseconds") << 5 << 0 << false << "3723004005006 nsec";
    QTest::newRow("nanoseconds, 2 places") << 5 << 2 << false << "3723004005006.00 nsec";
}

void TestTimeCode::timeIsWritten()
{
    QFETCH(int, scope);
    QFETCH(int, places);
    QFETCH(bool, divided);
    constexpr qint64 time = 3723004005006; // 1 h 2 min 3 s 4 ms 5 us 6 ns
    QTEST(TimeCodeText::timeText(time, {scope, places, divided}), "text");
}

void TestTimeCode::amountIsWritten_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << 0.0 << "000.0000 deg";
    QTest::newRow("fraction") << 0.1234 << "000.1234 deg";
    QTest::newRow("below zero") << -0.5 << "000.5000 deg";
    QTest::newRow("whole and fraction") << 12.25 << "012.2500 deg";
    QTest::newRow("more than three digits") << 1234.5 << "1234.5000 deg";
    // Ten thousand times the fraction, made by ten and ten, is a little less than 17.
    QTest::newRow("moved on by the rounding") << 0.0017 << "000.0018 deg";
    QTest::newRow("moved on to the next whole") << 99999.9999 << "100000.0000 deg";
    QTest::newRow("beyond an int") << 1e300 << "2147483647.0000 deg";
}

void TestTimeCode::amountIsWritten()
{
    QFETCH(double, amount);
    QTEST(TimeCodeText::amountText(amount, QStringLiteral("deg")), "text");
}

void TestTimeCode::modelBeginsAsShipped()
{
    const TimeCodeModel model;
    QCOMPARE(model.timeCodeIndex, 0);
    QCOMPARE(model.sample, QString());
    QCOMPARE(model.displayUnit, QStringLiteral("deg"));
    QCOMPARE(model.oneFrame, QStringLiteral("0.0000"));
    QCOMPARE(model.startValue, QStringLiteral("0.0000"));
    QCOMPARE(model.reset, false);
    QCOMPARE(model.resetValue, QStringLiteral("1"));
    QCOMPARE(model.resetUnitIndex, 0);
    QCOMPARE(model.scopeDisplayIndex, 0);
    QCOMPARE(model.decimalPlaceIndex, 0);
    QCOMPARE(model.decimalDivide, false);
    QCOMPARE(model.usingRihFileInfo, true);
    QCOMPARE(model.overWrite, false);
    QCOMPARE(model.realTime, false);
    QCOMPARE(model.negative, false);
}

void TestTimeCode::amountPerFrameTellsTheSign_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("negative");
    QTest::newRow("above zero") << "1.5"
                                << "1.5000" << false;
    QTest::newRow("below zero") << "-0.5"
                                << "-0.5000" << true;
    QTest::newRow("zero") << "0"
                          << "0.0000" << false;
    QTest::newRow("rounded") << "0.12346"
                             << "0.1235" << false;
    QTest::newRow("rounded to zero") << "-0.00001"
                                     << "-0.0000" << true;
    QTest::newRow("no number") << "deg"
                               << "0.0000" << false;
    QTest::newRow("infinite below") << "-inf"
                                    << "0.0000" << false;
    QTest::newRow("nan") << "nan"
                         << "0.0000" << false;
}

void TestTimeCode::amountPerFrameTellsTheSign()
{
    QFETCH(QString, value);
    TimeCodeModel model;
    model.setOneFrame(QStringLiteral("-1"));
    model.setOneFrame(value);
    QTEST(model.oneFrame, "text");
    QTEST(model.negative, "negative");
}

void TestTimeCode::startValueIsWrittenWithFourDecimals()
{
    TimeCodeModel model;
    model.setStartValue(QStringLiteral("-1.5"));
    QCOMPARE(model.startValue, QStringLiteral("-1.5000"));
    QCOMPARE(model.negative, false);
    model.setStartValue(QStringLiteral("inf"));
    QCOMPARE(model.startValue, QStringLiteral("0.0000"));
}

void TestTimeCode::numberOfFramesIsKeptInItsLimits_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << "0"
                          << "1";
    QTest::newRow("below zero") << "-3"
                                << "1";
    QTest::newRow("below one") << "0.5"
                               << "1";
    QTest::newRow("one") << "1"
                         << "1";
    QTest::newRow("fraction") << "2.5"
                              << "2.5";
    QTest::newRow("as it is written") << "007.50"
                                      << "007.50";
    QTest::newRow("most") << "99999"
                          << "99999";
    QTest::newRow("most, as it is written") << "99999.0"
                                            << "99999.0";
    QTest::newRow("fraction above the most") << "99999.5"
                                             << "99999";
    QTest::newRow("above the most") << "100000"
                                    << "99999";
    QTest::newRow("far above") << "1e300"
                               << "99999";
    QTest::newRow("no number") << "many"
                               << "1";
    QTest::newRow("infinite") << "inf"
                              << "1";
}

void TestTimeCode::numberOfFramesIsKeptInItsLimits()
{
    QFETCH(QString, value);
    TimeCodeModel model = wrapping(QStringLiteral("2"), QStringLiteral("0"), 0);
    model.setResetValue(value);
    QTEST(model.resetValue, "text");
}

void TestTimeCode::resetValueMovesToTheNextFrame_data()
{
    QTest::addColumn<QString>("oneFrame");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("between two frames") << "2.0"
                                        << "0.0"
                                        << "5.0"
                                        << "6.0000";
    QTest::newRow("at a frame") << "2.0"
                                << "0.0"
                                << "6"
                                << "6.0000";
    QTest::newRow("stands still") << "0.0"
                                  << "3.5"
                                  << "5.0"
                                  << "3.5000";
    QTest::newRow("falls, above the start") << "-0.5"
                                            << "1.0"
                                            << "5.0"
                                            << "0.5000";
    QTest::newRow("falls") << "-0.5"
                           << "0.0"
                           << "-1.2"
                           << "-1.5000";
    QTest::newRow("below the start") << "2.0"
                                     << "10.0"
                                     << "5.0"
                                     << "12.0000";
    QTest::newRow("furthest") << "1.0"
                              << "0.0"
                              << "99999"
                              << "99999.0000";
    QTest::newRow("further than the furthest") << "1.0"
                                               << "0.0"
                                               << "200000"
                                               << "99999.0000";
    QTest::newRow("further below") << "-1.0"
                                   << "0.0"
                                   << "-200000"
                                   << "-99999.0000";
    QTest::newRow("above a limit below zero") << "1.0"
                                              << "-200000"
                                              << "-50"
                                              << "-50.0000";
    QTest::newRow("above zero, limit below zero") << "1.0"
                                                  << "-200000"
                                                  << "5"
                                                  << "5.0000";
    QTest::newRow("falls, above a limit above zero") << "-1.0"
                                                     << "200000"
                                                     << "150000"
                                                     << "100001.0000";
    QTest::newRow("below a limit above zero") << "-1.0"
                                              << "200000"
                                              << "50"
                                              << "50.0000";
    QTest::newRow("below zero, limit above zero") << "-1.0"
                                                  << "200000"
                                                  << "-5"
                                                  << "-5.0000";
    QTest::newRow("a frame less where it is too far") << "10000"
                                                      << "1"
                                                      << "999950000"
                                                      << "999940001.0000";
    QTest::newRow("a frame less where it is too far below") << "-10000"
                                                            << "-1"
                                                            << "-999950000"
                                                            << "-999940001.0000";
    QTest::newRow("as far as it goes") << "10000"
                                       << "0"
                                       << "999900000"
                                       << "999900000.0000";
    QTest::newRow("no number") << "-2.0"
                               << "3.0"
                               << "deg"
                               << "-1.0000";
    QTest::newRow("infinite") << "2.0"
                              << "-3.0"
                              << "inf"
                              << "1.0000";
    QTest::newRow("start beyond 64 bits") << "0"
                                          << "1e300"
                                          << "5" << MostText;
    QTest::newRow("value beyond 64 bits") << "1"
                                          << "0"
                                          << "1e300"
                                          << "99999.0000";
}

void TestTimeCode::resetValueMovesToTheNextFrame()
{
    QFETCH(QString, oneFrame);
    QFETCH(QString, start);
    QFETCH(QString, value);
    for (int unit : {1, 2, -1}) {
        TimeCodeModel model = wrapping(oneFrame, start, unit);
        model.setResetValue(value);
        QTEST(model.resetValue, "text");
    }
}

void TestTimeCode::unitConverts_data()
{
    QTest::addColumn<bool>("reset");
    QTest::addColumn<QString>("oneFrame");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("after");
    QTest::newRow("to a value") << true << "0.1"
                                << "1.0"
                                << "10" << 1 << "2.0000";
    QTest::newRow("to a value, any unit") << true << "0.1"
                                          << "1.0"
                                          << "10" << -3 << "2.0000";
    QTest::newRow("to a value without a reset") << false << "0.1"
                                                << "1.0"
                                                << "10" << 1 << "2.0000";
    QTest::newRow("a fraction is cut") << true << "0.5"
                                       << "0.0"
                                       << "3.9" << 1 << "1.5000";
    QTest::newRow("to a count") << true << "0.1"
                                << "1.0"
                                << "2.0000" << 0 << "10";
    QTest::newRow("to a count without a reset") << false << "0.1"
                                                << "1.0"
                                                << "2.0000" << 0 << "1";
    QTest::newRow("at most 99999") << true << "0.0001"
                                   << "0.0"
                                   << "999" << 0 << "99999";
    QTest::newRow("at most 99999 of 64 bits") << true << "0.0001"
                                              << "0.0"
                                              << "1e12" << 0 << "99999";
    QTest::newRow("99999") << true << "1"
                           << "0"
                           << "99999.0000" << 0 << "99999";
    QTest::newRow("too far") << true << "10000"
                             << "1000000"
                             << "99999" << 1 << "1000980000.0000";
    QTest::newRow("too far below") << true << "-10000"
                                   << "-1000000"
                                   << "99999" << 1 << "-1000980000.0000";
    QTest::newRow("as far as it goes") << true << "10000"
                                       << "0"
                                       << "99990" << 1 << "999900000.0000";
    QTest::newRow("no number") << true << "2.0"
                               << "1.0"
                               << "many" << 1 << "1.0000";
}

void TestTimeCode::unitConverts()
{
    QFETCH(bool, reset);
    QFETCH(QString, oneFrame);
    QFETCH(QString, start);
    QFETCH(QString, before);
    QFETCH(int, unit);
    for (int unitBefore : {0, 1}) { // the unit that is set already converts again
        TimeCodeModel model = wrapping(oneFrame, start, unitBefore);
        model.reset = reset;
        model.resetValue = before;
        model.setResetUnitIndex(unit);
        QTEST(model.resetValue, "after");
        QCOMPARE(model.resetUnitIndex, unit);
    }
}

void TestTimeCode::unitThereAndBackKeepsTheCount()
{
    TimeCodeModel model = wrapping(QStringLiteral("0.1"), QStringLiteral("1.0"), 0);
    model.setResetValue(QStringLiteral("10"));
    model.setResetUnitIndex(1);
    QCOMPARE(model.resetValue, QStringLiteral("2.0000"));
    model.setResetUnitIndex(0);
    QCOMPARE(model.resetValue, QStringLiteral("10"));
}

void TestTimeCode::sampleShowsTwoMilliseconds_data()
{
    QTest::addColumn<int>("scope");
    QTest::addColumn<int>("places");
    QTest::addColumn<bool>("divided");
    QTest::addColumn<QString>("sample");
    QTest::newRow("hours") << 0 << 0 << false << "+00:00:00.002 ";
    QTest::newRow("hours, 6 places") << 0 << 6 << false << "+00:00:00.002000 ";
    QTest::newRow("hours, 6 places divided") << 0 << 6 << true << "+00:00:00.002 000 ";
    QTest::newRow("hours divided") << 0 << 0 << true << "+00:00:00.002 ";
    QTest::newRow("minutes") << 1 << 0 << false << "+00:00.002 ";
    QTest::newRow("minutes, 2 places") << 1 << 2 << false << "+00:00.00 ";
    QTest::newRow("seconds") << 2 << 0 << false << "+000.002 sec";
    QTest::newRow("milliseconds") << 3 << 0 << false << "+002 msec";
    QTest::newRow("milliseconds, 3 places") << 3 << 3 << false << "+002.000 msec";
    QTest::newRow("microseconds") << 4 << 0 << false << "+2000 usec";
    QTest::newRow("microseconds, 1 place") << 4 << 1 << false << "+2000.0 usec";
    QTest::newRow("nanoseconds") << 5 << 0 << false << "+2000000 nsec";
    QTest::newRow("beyond the scopes") << 6 << 0 << false << "+ ";
    QTest::newRow("beyond the scopes, 2 places") << 6 << 2 << false << "+.00 ";
    QTest::newRow("before the scopes") << -1 << 0 << false << "+ ";
}

void TestTimeCode::sampleShowsTwoMilliseconds()
{
    QFETCH(int, scope);
    QFETCH(int, places);
    QFETCH(bool, divided);
    QFETCH(QString, sample);
    TimeCodeModel model;
    model.scopeDisplayIndex = scope;
    model.decimalPlaceIndex = places;
    model.decimalDivide = divided;
    model.updateSample();
    QCOMPARE(model.sample, sample);
    model.setOneFrame(QStringLiteral("-1"));
    model.updateSample();
    QCOMPARE(model.sample, sample.replace(0, 1, QLatin1Char('-')));
}

void TestTimeCode::sampleShowsOneFrame_data()
{
    QTest::addColumn<QString>("oneFrame");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("sample");
    QTest::newRow("fraction") << "0.1234"
                              << "deg"
                              << "+000.1234 deg";
    QTest::newRow("below zero") << "-0.5"
                                << "deg"
                                << "-000.5000 deg";
    QTest::newRow("without a unit") << "1"
                                    << ""
                                    << "+001.0000 ";
    QTest::newRow("unit of any characters") << "1"
                                            << "%1<\""
                                            << "+001.0000 %1<\"";
}

void TestTimeCode::sampleShowsOneFrame()
{
    QFETCH(QString, oneFrame);
    QFETCH(QString, unit);
    for (int index : {1, 2, -1}) {
        TimeCodeModel model;
        model.timeCodeIndex = index;
        model.displayUnit = unit;
        model.setOneFrame(oneFrame);
        model.updateSample();
        QTEST(model.sample, "sample");
    }
}

void TestTimeCode::settingsAreTakenOver()
{
    TimeCodeRecord record;
    record.timeCodeIndex = 1;
    record.displayUnit = QStringLiteral("mm");
    record.oneFrame = -0.50004;
    record.startValue = 7.5;
    record.reset = true;
    record.resetValue = -7.25;
    record.scopeDisplayIndex = 2;
    record.decimalPlaceIndex = 3;
    record.decimalDivide = true;
    record.usingRihFileInfo = false;
    record.overWrite = true;
    record.realTime = true;
    TimeCodeModel model;
    model.load(record);
    QCOMPARE(model.timeCodeIndex, 1);
    QCOMPARE(model.displayUnit, QStringLiteral("mm"));
    QCOMPARE(model.oneFrame, QStringLiteral("-0.5000"));
    QCOMPARE(model.negative, true);
    QCOMPARE(model.startValue, QStringLiteral("7.5000"));
    QCOMPARE(model.reset, true);
    QCOMPARE(model.resetUnitIndex, 0);
    QCOMPARE(model.resetValue, QStringLiteral("30")); // 29.5 frames
    QCOMPARE(model.scopeDisplayIndex, 2);
    QCOMPARE(model.decimalPlaceIndex, 3);
    QCOMPARE(model.decimalDivide, true);
    QCOMPARE(model.usingRihFileInfo, false);
    QCOMPARE(model.overWrite, true);
    QCOMPARE(model.realTime, true);
    QCOMPARE(model.sample, QStringLiteral("-000.5000 mm"));
}

void TestTimeCode::settingsAreTakenOverInOrder_data()
{
    QTest::addColumn<double>("oneFrame");
    QTest::addColumn<bool>("negative");
    QTest::addColumn<QString>("text");
    QTest::newRow("below zero") << -0.0001 << true << "-0.0001";
    QTest::newRow("too small to be below zero") << -0.00001 << false << "0.0000";
}

// The sign is that of the amount as it is shown, and what was there before does not matter.
void TestTimeCode::settingsAreTakenOverInOrder()
{
    QFETCH(double, oneFrame);
    TimeCodeModel model = wrapping(QStringLiteral("-3"), QStringLiteral("5"), 1);
    TimeCodeRecord record;
    record.oneFrame = oneFrame;
    model.load(record);
    QTEST(model.negative, "negative");
    QTEST(model.oneFrame, "text");
    QCOMPARE(model.reset, false);
    QCOMPARE(model.resetUnitIndex, 0);
    QCOMPARE(model.resetValue, QStringLiteral("1"));
}

void TestTimeCode::settingsAreHandedBack()
{
    TimeCodeModel model = wrapping(QStringLiteral("-0.25"), QStringLiteral("1.5"), 0);
    model.timeCodeIndex = 1;
    model.displayUnit = QStringLiteral("mm");
    model.resetValue = QStringLiteral("4");
    model.scopeDisplayIndex = 2;
    model.decimalPlaceIndex = 3;
    model.decimalDivide = true;
    model.usingRihFileInfo = false;
    model.overWrite = true;
    model.realTime = true;
    const TimeCodeRecord record = model.record();
    QCOMPARE(record.timeCodeIndex, 1);
    QCOMPARE(record.displayUnit, QStringLiteral("mm"));
    QCOMPARE(record.oneFrame, -0.25);
    QCOMPARE(record.startValue, 1.5);
    QCOMPARE(record.reset, true);
    QCOMPARE(record.resetValue, 0.5);
    QCOMPARE(record.scopeDisplayIndex, 2);
    QCOMPARE(record.decimalPlaceIndex, 3);
    QCOMPARE(record.decimalDivide, true);
    QCOMPARE(record.usingRihFileInfo, false);
    QCOMPARE(record.overWrite, true);
    QCOMPARE(record.realTime, true);
    QCOMPARE(model.resetValue, QStringLiteral("4")); // of the record alone
}

void TestTimeCode::resetValueIsStoredAsAValue_data()
{
    QTest::addColumn<QString>("oneFrame");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("unit");
    QTest::addColumn<double>("stored");
    QTest::newRow("count") << "0.5"
                           << "1"
                           << "3" << 0 << 2.5;
    QTest::newRow("count with a fraction") << "0.5"
                                           << "1"
                                           << "3.9" << 0 << 2.5;
    QTest::newRow("value") << "0.5"
                           << "1"
                           << "3.9" << 1 << 3.9;
    QTest::newRow("beyond a double") << "1e305"
                                     << "1.7e308"
                                     << "99999" << 0 << 0.0;
}

void TestTimeCode::resetValueIsStoredAsAValue()
{
    QFETCH(QString, oneFrame);
    QFETCH(QString, start);
    QFETCH(QString, value);
    QFETCH(int, unit);
    TimeCodeModel model = wrapping(oneFrame, start, unit);
    model.resetValue = value;
    QTEST(model.record().resetValue, "stored");
}

void TestTimeCode::resetValueSurvivesUpToAFrame_data()
{
    QTest::addColumn<bool>("reset");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("stored");
    QTest::newRow("between two frames") << true << 5.0 << 6.0;
    QTest::newRow("at a frame") << true << 6.0 << 6.0;
    QTest::newRow("without a reset") << false << 6.0 << 2.0;
}

void TestTimeCode::resetValueSurvivesUpToAFrame()
{
    QFETCH(bool, reset);
    QFETCH(double, value);
    TimeCodeRecord record;
    record.oneFrame = 2.0;
    record.reset = reset;
    record.resetValue = value;
    TimeCodeModel model;
    model.load(record);
    QTEST(model.record().resetValue, "stored");
}

void TestTimeCode::numbersThatAreNoneAreStoredAsZero_data()
{
    QTest::addColumn<double>("number");
    QTest::newRow("infinite") << Infinite;
    QTest::newRow("infinite below") << -Infinite;
    QTest::newRow("no number") << NoNumber;
}

void TestTimeCode::numbersThatAreNoneAreStoredAsZero()
{
    QFETCH(double, number);
    TimeCodeRecord record;
    record.oneFrame = number;
    record.startValue = number;
    record.resetValue = number;
    record.reset = true;
    TimeCodeModel model;
    model.load(record);
    QCOMPARE(model.oneFrame, QStringLiteral("0.0000"));
    QCOMPARE(model.negative, false);
    QCOMPARE(model.startValue, QStringLiteral("0.0000"));
    QCOMPARE(model.resetValue, QStringLiteral("1"));
    const TimeCodeRecord back = model.record();
    QCOMPARE(back.oneFrame, 0.0);
    QCOMPARE(back.startValue, 0.0);
    QCOMPARE(back.resetValue, 0.0);
}

void TestTimeCode::wholeHoursAreHours()
{
    TimeCodeText::TimeFormat format;
    format.scopeDisplayIndex = 0;
    QCOMPARE(TimeCodeText::timeText(qint64(7200) * 1000000000, format), QString("02:00:00 "));
}

void TestTimeCode::amountIsRoundedAboveAHalf_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("text");
    QTest::newRow("above a half") << 0.00146 << "000.0015 deg";
    QTest::newRow("below a half") << 2.00004 << "002.0000 deg";
}

void TestTimeCode::amountIsRoundedAboveAHalf()
{
    QFETCH(double, amount);
    QTEST(TimeCodeText::amountText(amount, "deg"), "text");
}

int main(int argc, char **argv)
{
    TestTimeCode test;
    return runTest(argc, argv, test);
}

#include "test_time_code.moc"
