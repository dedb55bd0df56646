#include "foundation/Utilities.h"
#include "tests/support/TestLog.h"

#include <QApplication>
#include <QDir>
#include <QEasingCurve>
#include <QPropertyAnimation>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QWidget>

#include <cmath>
#include <limits>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr uint MaxUint = std::numeric_limits<uint>::max();
constexpr quint64 KB = 1024;
constexpr quint64 MB = 1024 * KB;
constexpr quint64 GB = 1024 * MB;
constexpr quint64 TB = 1024 * GB;

// QCOMPARE is fuzzier than a rounding to four decimals allows.
bool same(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || a == b || std::abs(a - b) <= 1e-14 * std::abs(b);
}

}

#define COMPARE_DOUBLE(actual, expected)                                                           \
    QVERIFY2(same(actual, expected),                                                               \
             qPrintable(QString("%1, not %2").arg(actual, 0, 'g', 17).arg(expected, 0, 'g', 17)))

class TestUtilities : public TestBase
{
    Q_OBJECT

private slots:
    void cleanup();

    void gcd_data();
    void gcd();
    void roundHalf_data();
    void roundHalf();
    void roundDigits_data();
    void roundDigits();
    void framesToMsec_data();
    void framesToMsec();
    void msecToFrames_data();
    void msecToFrames();
    void nearestSkipValue_data();
    void nearestSkipValue();
    void formatCapacity_data();
    void formatCapacity();
    void formatBcdDate_data();
    void formatBcdDate();
    void formatBcdTime_data();
    void formatBcdTime();
    void parseDateTime_data();
    void parseDateTime();
    void ipToNumber_data();
    void ipToNumber();
    void formatIpAddress_data();
    void formatIpAddress();
    void forbiddenCharacters_data();
    void forbiddenCharacters();
    void validNames_data();
    void validNames();
    void isValidIpAddress_data();
    void isValidIpAddress();
    void availableBytesOfTheVolume();
    void clampToOne_data();
    void clampToOne();
    void cursorsStackUnlessReplaced_data();
    void cursorsStackUnlessReplaced();
    void restoreCursorTakesOneLevel();
    void fadeInAnimation();
    void fadeInAnimationOfNoWidget();
};

void TestUtilities::cleanup()
{
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    TestBase::cleanup();
}

void TestUtilities::gcd_data()
{
    QTest::addColumn<uint>("a");
    QTest::addColumn<uint>("b");
    QTest::addColumn<uint>("divisor");
    QTest::newRow("common divisor") << 1000u << 250u << 250u;
    QTest::newRow("either order") << 250u << 1000u << 250u;
    QTest::newRow("coprime") << 9u << 4u << 1u;
    QTest::newRow("several steps") << 1071u << 462u << 21u;
    QTest::newRow("zero first") << 0u << 60u << 60u;
    QTest::newRow("zero second") << 60u << 0u << 60u;
    QTest::newRow("both zero") << 0u << 0u << 0u;
    QTest::newRow("largest") << MaxUint << MaxUint << MaxUint;
    QTest::newRow("largest and one") << MaxUint << 1u << 1u;
}

void TestUtilities::gcd()
{
    QFETCH(uint, a);
    QFETCH(uint, b);
    QTEST(UTL::gcd(a, b), "divisor");
}

void TestUtilities::roundHalf_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<uint>("digits");
    QTest::addColumn<double>("rounded");
    QTest::newRow("3 digits keep two decimals") << 1.234 << 3u << 1.23;
    QTest::newRow("half goes up") << 0.125 << 3u << 0.13;
    QTest::newRow("negative half goes away from zero") << -0.125 << 3u << -0.13;
    QTest::newRow("negative whole half") << -2.5 << 1u << -3.0;
    QTest::newRow("whole half") << 2.5 << 1u << 3.0;
    QTest::newRow("0 digits count as 1") << 2.4 << 0u << 2.0;
    QTest::newRow("1 digit") << 2.4 << 1u << 2.0;
    QTest::newRow("2 digits") << 2.46 << 2u << 2.5;
    QTest::newRow("more digits than the number has") << 1.5 << 300u << 1.5;
    QTest::newRow("digits beyond all numbers") << 1.5 << MaxUint << 1.5;
    QTest::newRow("huge") << 1e300 << 20u << 1e300;
    QTest::newRow("infinite") << Infinity << 3u << Infinity;
    QTest::newRow("no number") << NotANumber << 3u << NotANumber;
}

void TestUtilities::roundHalf()
{
    QFETCH(double, x);
    QFETCH(uint, digits);
    QFETCH(double, rounded);
    COMPARE_DOUBLE(UTL::roundHalf(x, digits), rounded);
}

void TestUtilities::roundDigits_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<uint>("digits");
    QTest::addColumn<double>("rounded");
    QTest::newRow("5 digits keep four decimals") << 0.33333 << 5u << 0.3333;
    QTest::newRow("rounds up") << 0.66667 << 5u << 0.6667;
    QTest::newRow("whole part stays") << 7.25 << 5u << 7.25;
    QTest::newRow("0 digits count as 1") << 1.4 << 0u << 1.0;
    QTest::newRow("1 digit") << 1.6 << 1u << 2.0;
    QTest::newRow("half goes up") << 0.125 << 3u << 0.13;
    QTest::newRow("negative half goes up too") << -0.125 << 3u << -0.12;
    QTest::newRow("negative whole half goes up") << -2.5 << 1u << -2.0;
    QTest::newRow("negative") << -0.33333 << 5u << -0.3333;
    QTest::newRow("fraction rounds to a whole") << 0.99999 << 5u << 1.0;
    QTest::newRow("more digits than the number has") << 1.5 << 300u << 1.5;
    QTest::newRow("digits beyond all numbers") << 1.5 << MaxUint << 1.5;
    QTest::newRow("huge") << 1e300 << 5u << 1e300;
    QTest::newRow("infinite") << -Infinity << 5u << -Infinity;
    QTest::newRow("no number") << NotANumber << 5u << NotANumber;
}

void TestUtilities::roundDigits()
{
    QFETCH(double, x);
    QFETCH(uint, digits);
    QFETCH(double, rounded);
    COMPARE_DOUBLE(UTL::roundDigits(x, digits), rounded);
}

void TestUtilities::framesToMsec_data()
{
    QTest::addColumn<uint>("frames");
    QTest::addColumn<uint>("rate");
    QTest::addColumn<double>("msec");
    QTest::newRow("whole") << 5u << 1000u << 5.0;
    QTest::newRow("fraction") << 1u << 60u << 1000.0 / 60.0;
    QTest::newRow("no frames") << 0u << 60u << 0.0;
    QTest::newRow("rate 0") << 5u << 0u << 1.0;
    QTest::newRow("no frames at rate 0") << 0u << 0u << 1.0;
    QTest::newRow("last product of 32 bits") << 4294967u << 1u << 4294967000.0;
    QTest::newRow("the product wraps") << 4294968u << 1u << 704.0;
    QTest::newRow("largest") << MaxUint << 1u << 4294966296.0;
}

void TestUtilities::framesToMsec()
{
    QFETCH(uint, frames);
    QFETCH(uint, rate);
    QFETCH(double, msec);
    COMPARE_DOUBLE(UTL::framesToMsec(frames, rate), msec);
}

void TestUtilities::msecToFrames_data()
{
    QTest::addColumn<double>("msec");
    QTest::addColumn<uint>("rate");
    QTest::addColumn<uint>("frames");
    QTest::newRow("one") << 1.0 << 1000u << 1u;
    QTest::newRow("rounds down") << 1.4 << 1000u << 1u;
    QTest::newRow("half rounds up") << 2.5 << 1000u << 3u;
    QTest::newRow("nothing") << 0.0 << 1000u << 0u;
    QTest::newRow("rate 0") << 7.0 << 0u << 1u;
    QTest::newRow("no number at rate 0") << NotANumber << 0u << 1u;
    QTest::newRow("negative") << -5.0 << 1000u << 0u;
    QTest::newRow("too long") << 1e20 << 1000u << MaxUint;
    QTest::newRow("just too long") << 4294967296.0 << 1000u << MaxUint;
    QTest::newRow("longest") << 4294967295.0 << 1000u << MaxUint;
    QTest::newRow("infinite") << Infinity << 1u << MaxUint;
    QTest::newRow("negatively infinite") << -Infinity << 1u << 0u;
    QTest::newRow("no number") << NotANumber << 1000u << 0u;
}

void TestUtilities::msecToFrames()
{
    QFETCH(double, msec);
    QFETCH(uint, rate);
    QTEST(UTL::msecToFrames(msec, rate), "frames");
}

void TestUtilities::nearestSkipValue_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<double>("last");
    QTest::addColumn<double>("first");
    using List = QList<double>;
    QTest::newRow("below") << 1.9 << List{1.0, 2.0, 4.0} << 2.0 << 2.0;
    QTest::newRow("above") << 3.1 << List{1.0, 2.0, 4.0} << 4.0 << 4.0;
    QTest::newRow("tie") << 3.0 << List{1.0, 2.0, 4.0} << 4.0 << 2.0;
    QTest::newRow("tie out of order") << 3.0 << List{4.0, 9.0, 2.0} << 2.0 << 4.0;
    QTest::newRow("distances that agree in four decimals")
        << 3.0 << List{2.0, 4.00003} << 4.0 << 2.0;
    QTest::newRow("entry is rounded") << 0.3 << List{1.0 / 3.0} << 0.3333 << 0.3333;
    QTest::newRow("one entry") << 100.0 << List{-2.0} << -2.0 << -2.0;
    QTest::newRow("beyond 64 bits") << 1e30 << List{1.0, 1.5e30, 9e30} << 1.5e30 << 1.5e30;
    QTest::newRow("infinitely far") << Infinity << List{1.0, 2.0} << 2.0 << 1.0;
    QTest::newRow("no number") << NotANumber << List{1.0, 2.0} << 1.0 << 1.0;
    QTest::newRow("no entries") << 2.34567 << List{} << 2.34567 << 2.34567;
}

void TestUtilities::nearestSkipValue()
{
    QFETCH(double, value);
    QFETCH(QList<double>, values);
    QFETCH(double, last);
    QFETCH(double, first);
    COMPARE_DOUBLE(UTL::nearestSkipValue(value, values), last);
    COMPARE_DOUBLE(UTL::nearestSkipValue(value, values, UTL::SkipTie::Last), last);
    COMPARE_DOUBLE(UTL::nearestSkipValue(value, values, UTL::SkipTie::First), first);
}

void TestUtilities::formatCapacity_data()
{
    QTest::addColumn<quint64>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << quint64(0) << "0.00KB";
    QTest::newRow("very small") << quint64(1) << "0.00KB";
    QTest::newRow("rounds only once") << quint64(5) << "0.00KB"; // 0.0049
    QTest::newRow("half") << quint64(512) << "0.50KB";
    QTest::newRow("rounds to one") << quint64(1023) << "1.00KB";
    QTest::newRow("one") << KB << "1.00KB";
    QTest::newRow("last of KB") << MB - 1 << "1024.00KB";
    QTest::newRow("MB") << MB << "1.00MB";
    QTest::newRow("last of MB") << GB - 1 << "1024.00MB";
    QTest::newRow("GB") << GB << "1.00GB";
    QTest::newRow("one and a half GB") << GB + GB / 2 << "1.50GB";
    QTest::newRow("last of GB") << TB - 1 << "1024.00GB";
    QTest::newRow("TB") << TB << "1.00TB";
    QTest::newRow("there is no larger unit") << 1024 * TB << "1024.00TB";
    QTest::newRow("largest") << ~quint64(0) << "16777216.00TB";
}

void TestUtilities::formatCapacity()
{
    QFETCH(quint64, bytes);
    QTEST(UTL::formatCapacity(bytes), "text");
}

void TestUtilities::formatBcdDate_data()
{
    QTest::addColumn<uint>("packed");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0u << "";
    QTest::newRow("date") << 0x170605u << "2017/6/5";
    QTest::newRow("two digits each") << 0x991231u << "2099/12/31";
    QTest::newRow("empty year") << 0x000101u << "2000/1/1";
    QTest::newRow("empty month and day") << 0x170000u << "2017/0/0";
    QTest::newRow("last date") << 0xffffffu << "20ff/ff/ff";
    QTest::newRow("first day of year") << 0x1000000u << "000";
    QTest::newRow("day of year") << 0x1000123u << "291";
    QTest::newRow("day of one digit") << 0x1000007u << "007";
    QTest::newRow("only 16 bits count") << 0x1ff0007u << "007";
    QTest::newRow("largest") << MaxUint << "65535";
}

void TestUtilities::formatBcdDate()
{
    QFETCH(uint, packed);
    QTEST(UTL::formatBcdDate(packed), "text");
}

void TestUtilities::formatBcdTime_data()
{
    QTest::addColumn<uint>("date");
    QTest::addColumn<int>("packed");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0u << 0 << "";
    QTest::newRow("midnight of a date") << 0x170605u << 0 << "00:00:00";
    QTest::newRow("time without a date") << 0u << 0x123456 << "12:34:56";
    QTest::newRow("padded") << 1u << 0x010203 << "01:02:03";
    QTest::newRow("only 24 bits count") << 1u << 0x7f235959 << "23:59:59";
    QTest::newRow("negative") << 1u << -1 << "ff:ff:ff";
}

void TestUtilities::formatBcdTime()
{
    QFETCH(uint, date);
    QFETCH(int, packed);
    QTEST(UTL::formatBcdTime(date, packed), "text");
}

void TestUtilities::parseDateTime_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QDateTime>("result");
    const QDateTime none;
    QTest::newRow("with seconds") << "2017/6/5"
                                  << "12:34:56" << QDateTime(QDate(2017, 6, 5), QTime(12, 34, 56));
    QTest::newRow("without seconds") << "2017/6/5"
                                     << "12:34" << QDateTime(QDate(2017, 6, 5), QTime(12, 34));
    QTest::newRow("two digits") << "2017/12/31"
                                << "23:59" << QDateTime(QDate(2017, 12, 31), QTime(23, 59));
    QTest::newRow("five letters that are no time") << "2017/6/5"
                                                   << "1:2:3" << none;
    QTest::newRow("neither length") << "2017/6/5"
                                    << "12" << none;
    QTest::newRow("no date") << ""
                             << "12:34" << none;
    QTest::newRow("no time") << "2017/6/5"
                             << "" << none;
    QTest::newRow("nothing") << ""
                             << "" << none;
    QTest::newRow("no such day") << "2017/2/30"
                                 << "12:34" << none;
    QTest::newRow("other separator") << "2017-6-5"
                                     << "12:34" << none;
    QTest::newRow("place to fill") << "%2"
                                   << "%1" << none;
}

void TestUtilities::parseDateTime()
{
    QFETCH(QString, date);
    QFETCH(QString, time);
    QFETCH(QDateTime, result);
    const QDateTime parsed = UTL::parseDateTime(date, time);
    QCOMPARE(parsed.isValid(), result.isValid());
    if (result.isValid())
        QCOMPARE(parsed, result);
}

void TestUtilities::ipToNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<uint>("number");
    QTest::newRow("address") << "192.168.0.10" << 0xc0a8000au;
    QTest::newRow("leading zeros") << "192.168.000.010" << 0xc0a8000au;
    QTest::newRow("empty") << "" << 0u;
    QTest::newRow("empty parts count") << "1..2" << 0x10002u;
    QTest::newRow("no number counts 0") << "1.x.2.3" << 0x1000203u;
    QTest::newRow("hexadecimal is no number") << "0x10.1" << 1u;
    QTest::newRow("negative is no number") << "-1" << 0u;
    QTest::newRow("too large for a part") << "999.999.999.1" << 0xeaeae701u;
    QTest::newRow("largest part") << "4294967295" << MaxUint;
    QTest::newRow("beyond a number") << "4294967296" << 0u;
    QTest::newRow("more than four parts") << "1.2.3.4.5" << 0x02030405u;
}

void TestUtilities::ipToNumber()
{
    QFETCH(QString, text);
    QTEST(UTL::ipToNumber(text), "number");
}

void TestUtilities::formatIpAddress_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("formatted");
    QTest::newRow("nothing to do") << "192.168.0.10"
                                   << "192.168.0.10";
    QTest::newRow("leading zeros") << "192.168.000.010"
                                   << "192.168.0.10";
    QTest::newRow("zeros only") << "000.000.000.000"
                                << "0.0.0.0";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("number without a dot stays") << "007"
                                                << "007";
    QTest::newRow("zeros without a dot stay") << "000"
                                              << "000";
    QTest::newRow("a dot behind the number") << "007."
                                             << "7.";
    QTest::newRow("empty parts stay") << "01..02."
                                      << "1..2.";
    QTest::newRow("what is no number stays") << "0x1.camera01.07"
                                             << "0x1.camera01.7";
    QTest::newRow("sign and blank stay") << "-01. 01"
                                         << "-01. 01";
    QTest::newRow("longer than any number") << "00099999999999999999.1"
                                            << "99999999999999999.1";
    QTest::newRow("hardware address") << "00:0c:29:01:02:03"
                                      << "00:0c:29:01:02:03";
    QTest::newRow("hardware address with dashes") << "00-0C-29-01-02-03"
                                                  << "00-0C-29-01-02-03";
    QTest::newRow("three groups of three") << "010.020.030"
                                           << "10.20.30";
    QTest::newRow("a letter behind f") << "000g.0001.0002"
                                       << "000g.1.2";
    QTest::newRow("hardware address with dots") << "000c.2901.0203"
                                                << "000c.2901.0203";
    QTest::newRow("hardware address of digits") << "0011.2233.0044"
                                                << "0011.2233.0044";
}

void TestUtilities::formatIpAddress()
{
    QFETCH(QString, text);
    QTEST(UTL::formatIpAddress(text), "formatted");
}

void TestUtilities::forbiddenCharacters_data()
{
    QTest::addColumn<QChar>("letter");
    QTest::addColumn<bool>("inName");
    QTest::addColumn<bool>("inPath");
    const auto row = [](const char *name, char letter, bool inName, bool inPath) {
        QTest::newRow(name) << QChar(letter) << inName << inPath;
    };
    row("back slash", '\\', false, true);
    row("slash", '/', false, true);
    row("colon", ':', false, true);
    row("star", '*', false, false);
    row("question mark", '?', false, false);
    row("bar", '|', false, false);
    row("tab", '\t', false, false);
    row("line feed", '\n', false, false);
    row("double quote", '"', false, false);
    row("less-than", '<', false, false);
    row("greater-than", '>', false, false);
    row("percent", '%', false, false);
    row("carriage return", '\r', true, true);
    row("single quote", '\'', true, true);
    row("dot", '.', true, true);
    row("blank", ' ', true, true);
    row("bracket", '[', true, true);
    row("ampersand", '&', true, true);
    QTest::newRow("kana") << QChar(0x3042) << true << true;
    QTest::newRow("full-width colon") << QChar(0xff1a) << true << true;
}

void TestUtilities::forbiddenCharacters()
{
    QFETCH(QChar, letter);
    QFETCH(bool, inName);
    QFETCH(bool, inPath);
    const QStringList texts = {letter, "a" + QString(letter), letter + QString("a"),
                               "a" + QString(letter) + "b"};
    for (const QString &text : texts) {
        QCOMPARE(UTL::isValidFileName(text), inName);
        QCOMPARE(UTL::isValidFilePath(text), inPath);
    }
    QCOMPARE(UTL::forbiddenInFileName().contains(letter), !inName);
    QCOMPARE(UTL::forbiddenInFilePath().contains(letter), !inPath);
}

void TestUtilities::validNames_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("asName");
    QTest::addColumn<bool>("asPath");
    QTest::newRow("empty") << "" << true << true;
    QTest::newRow("name") << "Shot_C1S0001" << true << true;
    QTest::newRow("colon") << "a:b" << false << true;
    QTest::newRow("path") << "c:\\a" << false << true;
    QTest::newRow("path with slashes") << "D:/data/Run_C1S01" << false << true;
    QTest::newRow("path with a star") << "D:/data/*.avi" << false << false;
    QTest::newRow("dots") << ".." << true << true;
    QTest::newRow("long") << QString(100000, 'a') << true << true;
    QTest::newRow("one at the end of a long one") << QString(100000, 'a') + '%' << false << false;
}

void TestUtilities::validNames()
{
    QFETCH(QString, text);
    QFETCH(bool, asName);
    QFETCH(bool, asPath);
    QCOMPARE(UTL::isValidFileName(text), asName);
    QCOMPARE(UTL::isValidFilePath(text), asPath);
}

void TestUtilities::isValidIpAddress_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::newRow("address") << "192.168.0.10" << true;
    QTest::newRow("values do not matter") << "999.1.1.1x" << true;
    QTest::newRow("what follows does not matter") << "1.2.3.4567.8 anything" << true;
    QTest::newRow("zeros") << "000.00.0.0" << true;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("three parts") << "1.2.3" << false;
    QTest::newRow("ends in a dot") << "1.2.3." << false;
    QTest::newRow("empty part") << "1..3.4" << false;
    QTest::newRow("four digits") << "1234.1.1.1" << false;
    QTest::newRow("four digits inside") << "1.1234.1.1" << false;
    QTest::newRow("not at the beginning") << " 1.2.3.4" << false;
    QTest::newRow("letters") << "a.b.c.d" << false;
    QTest::newRow("negative") << "-1.2.3.4" << false;
    QTest::newRow("other digits") << QString(QChar(0x0661)) + ".1.1.1" << false;
    QTest::newRow("other separator") << "1,2,3,4" << false;
}

void TestUtilities::isValidIpAddress()
{
    QFETCH(QString, text);
    QTEST(UTL::isValidIpAddress(text), "valid");
}

void TestUtilities::availableBytesOfTheVolume()
{
    // Others write to the volume meanwhile: within a tenth of its size.
    QStorageInfo root(QDir("/"));
    const qint64 tolerance = root.bytesTotal() / 10;
    const auto isFreeOfRoot = [&](qint64 bytes) {
        root.refresh();
        return bytes > 0 && std::abs(bytes - root.bytesFree()) <= tolerance;
    };
    QVERIFY(isFreeOfRoot(UTL::availableBytes("/")));
    QVERIFY(isFreeOfRoot(UTL::availableBytes("/no/such/folder")));

    // The path is cut behind its first slash: what is there counts, and not what follows.
    QTemporaryDir folder;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    QVERIFY(QDir(folder.path()).mkdir("inside"));
    const qint64 ofRelative = UTL::availableBytes("inside/no/such/folder");
    const qint64 ofMissing = UTL::availableBytes("missing/folder");
    const qint64 ofMissingName = UTL::availableBytes("missing");
    const qint64 expected = QStorageInfo(folder.path()).bytesFree();
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(ofRelative > 0);
    QVERIFY(std::abs(ofRelative - expected) <= QStorageInfo(folder.path()).bytesTotal() / 10);
    QCOMPARE(ofMissing, qint64(0));
    QCOMPARE(ofMissingName, qint64(0));
    QVERIFY(UTL::availableBytes("") >= 0);
}

void TestUtilities::clampToOne_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::addColumn<int>("clampedFirst");
    QTest::addColumn<int>("clampedSecond");
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    QTest::newRow("both below") << 0 << -1 << 1 << 1;
    QTest::newRow("first below") << 0 << 5 << 1 << 5;
    QTest::newRow("second below") << 5 << 0 << 5 << 1;
    QTest::newRow("neither") << 1 << 2 << 1 << 2;
    QTest::newRow("extremes") << lowest << highest << 1 << highest;
}

void TestUtilities::clampToOne()
{
    QFETCH(int, first);
    QFETCH(int, second);
    UTL::clampToOne(first, second);
    QTEST(first, "clampedFirst");
    QTEST(second, "clampedSecond");
}

using SetCursor = void (*)(bool);
Q_DECLARE_METATYPE(SetCursor)

void TestUtilities::cursorsStackUnlessReplaced_data()
{
    QTest::addColumn<SetCursor>("setCursor");
    QTest::addColumn<int>("shape");
    QTest::newRow("all") << SetCursor(UTL::setSizeAllCursor) << 9;
    QTest::newRow("back diagonal") << SetCursor(UTL::setSizeBDiagCursor) << 7;
    QTest::newRow("forward diagonal") << SetCursor(UTL::setSizeFDiagCursor) << 8;
    QTest::newRow("horizontal") << SetCursor(UTL::setSizeHorCursor) << 6;
    QTest::newRow("vertical") << SetCursor(UTL::setSizeVerCursor) << 5;
}

void TestUtilities::cursorsStackUnlessReplaced()
{
    QFETCH(SetCursor, setCursor);
    QFETCH(int, shape);
    QApplication::setOverrideCursor(Qt::WaitCursor);

    setCursor(false);
    QCOMPARE(int(QApplication::overrideCursor()->shape()), shape);
    QApplication::restoreOverrideCursor();
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);

    setCursor(true);
    QCOMPARE(int(QApplication::overrideCursor()->shape()), shape);
    QApplication::restoreOverrideCursor();
    QVERIFY(!QApplication::overrideCursor());

    setCursor(true);
    QCOMPARE(int(QApplication::overrideCursor()->shape()), shape);
}

void TestUtilities::restoreCursorTakesOneLevel()
{
    UTL::setSizeHorCursor(false);
    UTL::setSizeVerCursor(false);
    UTL::restoreCursor();
    QCOMPARE(QApplication::overrideCursor()->shape(), Qt::SizeHorCursor);
    UTL::restoreCursor();
    QVERIFY(!QApplication::overrideCursor());
    UTL::restoreCursor();
    QVERIFY(!QApplication::overrideCursor());
}

void TestUtilities::fadeInAnimation()
{
    QPointer<QPropertyAnimation> animation;
    {
        QWidget widget;
        animation = UTL::fadeInAnimation(&widget);
        QCOMPARE(animation->targetObject(), &widget);
        QCOMPARE(animation->propertyName(), QByteArray("windowOpacity"));
        QCOMPARE(animation->duration(), 500);
        QCOMPARE(animation->easingCurve().type(), QEasingCurve::InExpo);
        QCOMPARE(int(animation->easingCurve().type()), 21);
        QCOMPARE(animation->startValue(), QVariant(0.0));
        QCOMPARE(animation->endValue(), QVariant(1.0));
        QCOMPARE(animation->state(), QAbstractAnimation::Stopped);
        QCOMPARE(widget.windowOpacity(), 1.0);
    }
    QVERIFY2(!animation, "an animation that was not started goes with its window");
}

void TestUtilities::fadeInAnimationOfNoWidget()
{
    const std::unique_ptr<QPropertyAnimation> animation(UTL::fadeInAnimation(nullptr));
    QVERIFY(!animation->targetObject());
    QCOMPARE(animation->duration(), 500);
}

int main(int argc, char **argv)
{
    TestUtilities test;
    return runTest(argc, argv, test);
}

#include "test_utilities.moc"
