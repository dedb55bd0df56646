#include "foundation/Clock.h"
#include "tests/support/TestLog.h"

class TestClock : public TestBase
{
    Q_OBJECT

private slots:
    void tellsThePresentTime();
    void standsStillWhileHeld();
    void runsOnAfterwards();
};

void TestClock::tellsThePresentTime()
{
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime now = Clock::now();
    const QDateTime after = QDateTime::currentDateTime();
    QVERIFY(before <= now);
    QVERIFY(now <= after);
    QCOMPARE(now.timeSpec(), Qt::LocalTime);
}

void TestClock::standsStillWhileHeld()
{
    const QDateTime first(QDate(2017, 6, 5), QTime(4, 3, 2));
    const QDateTime second(QDate(2018, 1, 1), QTime(0, 0));
    Clock::Fixed clock(first);
    QCOMPARE(Clock::now(), first);
    QTest::qWait(2);
    QCOMPARE(Clock::now(), first);
    clock.setTime(second);
    QCOMPARE(Clock::now(), second);
}

void TestClock::runsOnAfterwards()
{
    {
        Clock::Fixed clock(QDateTime(QDate(2017, 6, 5), QTime(4, 3, 2)));
    }
    QVERIFY(Clock::now() >= QDateTime::currentDateTime().addSecs(-60));
}

int main(int argc, char **argv)
{
    TestClock test;
    return runTest(argc, argv, test);
}

#include "test_clock.moc"
