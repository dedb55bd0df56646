#include "foundation/Keys.h"
#include "standin/drawing/DisplayFormats.h"
#include "tests/support/TestLog.h"

#include <QHash>

#include <limits>

using Choices = QVector<DisplayFormats::Choice>;

class TestDisplayFormats : public TestBase
{
    Q_OBJECT

private slots:
    void choicesOfEverySetting();
    void shutterSpeed_data();
    void shutterSpeed();
    void recordRate_data();
    void recordRate();
    void frameNumber_data();
    void frameNumber();
    void recordingTime_data();
    void recordingTime();
    void readsEachSettingByItsKey();
};

namespace {

QStringList texts(const Choices &choices)
{
    QStringList list;
    for (const DisplayFormats::Choice &choice : choices)
        list.append(QString::number(choice.number) + ' ' + choice.label);
    return list;
}

constexpr uint MostParts = std::numeric_limits<uint>::max();

}

void TestDisplayFormats::choicesOfEverySetting()
{
    QCOMPARE(
        texts(DisplayFormats::shutterSpeedChoices()),
        QStringList({"0 Fraction of a second", "1 Exposure time", "2 Fraction and exposure time"}));
    QCOMPARE(texts(DisplayFormats::shutterSpeedUnitChoices()),
             QStringList({"0 Automatic", "1 sec", "2 msec", "3 usec", "4 nsec"}));
    QCOMPARE(texts(DisplayFormats::recTimeUnitChoices()),
             QStringList({"0 sec", "1 msec", "2 usec", "3 min:sec", "4 hour:min:sec"}));
}

void TestDisplayFormats::shutterSpeed_data()
{
    QTest::addColumn<uint>("speed");
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("unit");
    QTest::addColumn<bool>("delimiter");
    QTest::addColumn<QString>("text");
    QTest::newRow("fraction") << 1000u << 0 << 0 << false << "1/1000 sec";
    QTest::newRow("fraction has no unit to choose") << 1000u << 0 << 3 << false << "1/1000 sec";
    QTest::newRow("fraction, delimiter") << 20000u << 0 << 0 << true << "1/20,000 sec";
    QTest::newRow("fraction, too short for one") << 999u << 0 << 0 << true << "1/999 sec";
    QTest::newRow("fraction, two delimiters") << 1234567u << 0 << 0 << true << "1/1,234,567 sec";
    QTest::newRow("a whole second") << 1u << 0 << 0 << false << "1/1 sec";
    QTest::newRow("time, automatic second") << 1u << 1 << 0 << false << "1 sec";
    QTest::newRow("time, automatic millisecond") << 2u << 1 << 0 << false << "500 msec";
    QTest::newRow("time, one millisecond") << 1000u << 1 << 0 << false << "1 msec";
    QTest::newRow("time, automatic microsecond") << 1001u << 1 << 0 << false << "999.001 usec";
    QTest::newRow("time, automatic nanosecond") << 3000000u << 1 << 0 << false << "333 nsec";
    QTest::newRow("time in seconds") << 1000u << 1 << 1 << false << "0.001 sec";
    QTest::newRow("time in seconds to the nanosecond")
        << 3u << 1 << 1 << false << "0.333333333 sec";
    QTest::newRow("time in milliseconds") << 3u << 1 << 2 << false << "333.333333 msec";
    QTest::newRow("time in microseconds") << 8000u << 1 << 3 << false << "125 usec";
    QTest::newRow("time in nanoseconds") << 8000u << 1 << 4 << false << "125000 nsec";
    QTest::newRow("time in nanoseconds, delimiter") << 8000u << 1 << 4 << true << "125,000 nsec";
    QTest::newRow("time in microseconds, delimiter") << 3u << 1 << 3 << true << "333,333.333 usec";
    QTest::newRow("rounded up") << 600000u << 1 << 4 << false << "1667 nsec";
    QTest::newRow("shorter than a nanosecond") << MostParts << 1 << 0 << false << "0 nsec";
    QTest::newRow("both") << 1000u << 2 << 0 << false << "1/1000 sec (1 msec)";
    QTest::newRow("both, delimiter") << 8000u << 2 << 4 << true << "1/8,000 sec (125,000 nsec)";
    QTest::newRow("unknown format") << 1000u << 3 << 2 << false << "1/1000 sec";
    QTest::newRow("format below zero") << 1000u << -1 << 2 << false << "1/1000 sec";
    QTest::newRow("unknown unit") << 1000u << 1 << 5 << false << "1 msec";
    QTest::newRow("unit below zero") << 1000u << 1 << -1 << false << "1 msec";
    for (int format : {0, 1, 2})
        QTest::addRow("not known, %d", format) << 0u << format << 0 << true << "";
}

void TestDisplayFormats::shutterSpeed()
{
    QFETCH(uint, speed);
    QFETCH(int, format);
    QFETCH(int, unit);
    QFETCH(bool, delimiter);
    DisplayFormats formats;
    formats.shutterSpeed = format;
    formats.shutterSpeedUnit = unit;
    formats.shutterSpeedInsertDelimiter = delimiter;
    // The delimiters of the others have no part in it.
    formats.recordRateInsertDelimiter = !delimiter;
    formats.frameInsertDelimiter = !delimiter;
    QTEST(formats.shutterSpeedText(speed), "text");
}

void TestDisplayFormats::recordRate_data()
{
    QTest::addColumn<uint>("rate");
    QTest::addColumn<bool>("delimiter");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << 10000u << false << "10000 fps";
    QTest::newRow("delimiter") << 10000u << true << "10,000 fps";
    QTest::newRow("three digits") << 125u << true << "125 fps";
    QTest::newRow("seven digits") << 1000000u << true << "1,000,000 fps";
    QTest::newRow("not known") << 0u << true << "";
}

void TestDisplayFormats::recordRate()
{
    QFETCH(uint, rate);
    QFETCH(bool, delimiter);
    DisplayFormats formats;
    formats.recordRateInsertDelimiter = delimiter;
    formats.shutterSpeedInsertDelimiter = !delimiter;
    formats.frameInsertDelimiter = !delimiter;
    QTEST(formats.recordRateText(rate), "text");
}

void TestDisplayFormats::frameNumber_data()
{
    QTest::addColumn<quint64>("number");
    QTest::addColumn<bool>("delimiter");
    QTest::addColumn<QString>("text");
    QTest::newRow("first") << quint64(0) << true << "0";
    QTest::newRow("plain") << quint64(12345) << false << "12345";
    QTest::newRow("delimiter") << quint64(12345) << true << "12,345";
    QTest::newRow("delimiter at its limit") << quint64(1000) << true << "1,000";
    QTest::newRow("beyond 32 bits") << quint64(4294967296) << true << "4,294,967,296";
}

void TestDisplayFormats::frameNumber()
{
    QFETCH(quint64, number);
    QFETCH(bool, delimiter);
    DisplayFormats formats;
    formats.frameInsertDelimiter = delimiter;
    formats.shutterSpeedInsertDelimiter = !delimiter;
    formats.recordRateInsertDelimiter = !delimiter;
    QTEST(formats.frameText(number), "text");
}

void TestDisplayFormats::recordingTime_data()
{
    QTest::addColumn<quint64>("frames");
    QTest::addColumn<uint>("rate");
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("text");
    QTest::newRow("seconds") << quint64(2500) << 1000u << 0 << "2.5 sec";
    QTest::newRow("no frames") << quint64(0) << 1000u << 0 << "0 sec";
    QTest::newRow("seconds to the microsecond") << quint64(1) << 3u << 0 << "0.333333 sec";
    QTest::newRow("rounded up") << quint64(2) << 3u << 0 << "0.666667 sec";
    QTest::newRow("rounded up to a second") << quint64(9999999) << 10000000u << 0 << "1 sec";
    QTest::newRow("milliseconds") << quint64(2500) << 1000u << 1 << "2500 msec";
    QTest::newRow("part of a millisecond") << quint64(1) << 8000u << 1 << "0.125 msec";
    QTest::newRow("microseconds") << quint64(1) << 8000u << 2 << "125 usec";
    QTest::newRow("minutes and seconds") << quint64(3725250) << 1000u << 3 << "62:05.250";
    QTest::newRow("hours, minutes and seconds") << quint64(3725250) << 1000u << 4 << "01:02:05.250";
    QTest::newRow("less than a second") << quint64(7) << 1000u << 4 << "00:00:00.007";
    QTest::newRow("rounded up to a minute") << quint64(599999) << 10000u << 4 << "00:01:00.000";
    QTest::newRow("longer than a day") << quint64(90000) << 1u << 4 << "25:00:00.000";
    QTest::newRow("unknown unit") << quint64(2500) << 1000u << 5 << "2.5 sec";
    QTest::newRow("unit below zero") << quint64(2500) << 1000u << -1 << "2.5 sec";
    for (int unit = 0; unit < 5; ++unit)
        QTest::addRow("rate not known, %d", unit) << quint64(100) << 0u << unit << "";
}

void TestDisplayFormats::recordingTime()
{
    QFETCH(quint64, frames);
    QFETCH(uint, rate);
    QFETCH(int, unit);
    DisplayFormats formats;
    formats.recTimeUnit = unit;
    QTEST(formats.recTimeText(frames, rate), "text");
}

void TestDisplayFormats::readsEachSettingByItsKey()
{
    const QHash<QString, QVariant> store{{"display/ShutterSpeed", 2},
                                         {"display/ShutterSpeedUnit", "3"},
                                         {"display/shutterSpeedInsertDelimiter", true},
                                         {"display/recordRateInsertDelimiter", "true"},
                                         {"display/frameInsertDelimiter", true},
                                         {"info/RecTimeUnit", 4}};
    const DisplayFormats all =
        DisplayFormats::read([&](const QString &key) { return store.value(key); });
    QCOMPARE(all.shutterSpeedText(4000), QString("1/4,000 sec (250 usec)"));
    QCOMPARE(all.recordRateText(4000), QString("4,000 fps"));
    QCOMPARE(all.frameText(4000), QString("4,000"));
    QCOMPARE(all.recTimeText(4000, 4000), QString("00:00:01.000"));

    const DisplayFormats none = DisplayFormats::read([](const QString &) { return QVariant(); });
    QCOMPARE(none.shutterSpeedText(4000), QString("1/4000 sec"));
    QCOMPARE(none.recordRateText(4000), QString("4000 fps"));
    QCOMPARE(none.frameText(4000), QString("4000"));
    QCOMPARE(none.recTimeText(4000, 4000), QString("1 sec"));
}

int main(int argc, char *argv[])
{
    TestDisplayFormats test;
    return runTest(argc, argv, test);
}

#include "test_display_formats.moc"
