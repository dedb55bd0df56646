#include "foundation/Clock.h"
#include "foundation/DateTexts.h"
#include "tests/support/TestLog.h"

#include <QLocale>

namespace {

const QDateTime Moment(QDate(2017, 6, 5), QTime(7, 8, 9, 12));

}

// Date and time as they stand in names.
class TestDateTexts : public TestBase
{
    Q_OBJECT

private slots:
    void timeIsFormatted_data();
    void timeIsFormatted();
    void monthsDoNotFollowTheLocale();
    void presentTimeIsThatOfTheClock();
};

void TestDateTexts::timeIsFormatted_data()
{
    QTest::addColumn<QDateTime>("time");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("numbers") << Moment << "yyyyMMdd_HHmmss"
                             << "20170605_070809";
    QTest::newRow("milliseconds") << Moment << "zzz"
                                  << "012";
    QTest::newRow("names") << Moment << "ddd d MMM yyyy"
                           << "Mon 5 Jun 2017";
    QTest::newRow("quoted text") << Moment << "'at' H"
                                 << "at 7";
    QTest::newRow("letters that mean nothing") << Moment << "xXq"
                                               << "xXq";
    QTest::newRow("forbidden characters stay") << Moment << "H:m/s"
                                               << "7:8/9";
    QTest::newRow("no format") << Moment << ""
                               << "";
    QTest::newRow("no time") << QDateTime() << "yyyy"
                             << "";
}

void TestDateTexts::timeIsFormatted()
{
    QFETCH(QDateTime, time);
    QFETCH(QString, format);
    QTEST(DateTexts::formatDateTime(time, format), "text");
}

void TestDateTexts::monthsDoNotFollowTheLocale()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    const QString text = DateTexts::formatDateTime(Moment, QStringLiteral("dddd MMMM"));
    QLocale::setDefault(before);
    QCOMPARE(text, QString("Monday June"));
}

void TestDateTexts::presentTimeIsThatOfTheClock()
{
    const Clock::Fixed now(Moment);
    QCOMPARE(DateTexts::currentDateTimeText(QStringLiteral("yyyy-MM-dd H")),
             QString("2017-06-05 7"));
}

int main(int argc, char *argv[])
{
    TestDateTexts test;
    return runTest(argc, argv, test);
}

#include "test_date_texts.moc"
