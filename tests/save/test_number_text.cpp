#include "save/path/NumberText.h"
#include "tests/support/TestLog.h"

using NumberText::Digits;

Q_DECLARE_METATYPE(Digits)

// The text of camera, head and session number.
class TestNumberText : public TestBase
{
    Q_OBJECT

private slots:
    void padsToDigitsAndKeepsWiderNumbersWhole_data();
    void padsToDigitsAndKeepsWiderNumbersWhole();
    void digitsBeyondAnyPathAreCut();
    void countHasALength_data();
    void countHasALength();
};

void TestNumberText::padsToDigitsAndKeepsWiderNumbersWhole_data()
{
    QTest::addColumn<int>("camera");
    QTest::addColumn<int>("head");
    QTest::addColumn<int>("session");
    QTest::addColumn<Digits>("digits");
    QTest::addColumn<QString>("text");
    QTest::newRow("no head part") << 3 << 1 << 12 << Digits{2, 0, 4} << "C03S0012";
    QTest::newRow("all parts") << 1 << 1 << 1 << Digits{3, 3, 4} << "C001H001S0001";
    QTest::newRow("camera alone") << 7 << 1 << 1 << Digits{1, 0, 0} << "C7";
    QTest::newRow("head alone") << 7 << 2 << 1 << Digits{0, 2, 0} << "H02";
    QTest::newRow("session alone") << 7 << 2 << 5 << Digits{0, 0, 3} << "S005";
    QTest::newRow("no digits, no text") << 3 << 1 << 12 << Digits{0, 0, 0} << "";
    QTest::newRow("digits below none") << 3 << 1 << 12 << Digits{-1, -4, -100} << "";
    QTest::newRow("as wide as its digits") << 12 << 34 << 56 << Digits{2, 2, 2} << "C12H34S56";
    QTest::newRow("wider than its digits")
        << 123 << 45 << 6789 << Digits{1, 1, 1} << "C123H45S6789";
    QTest::newRow("none of them") << 0 << 0 << 0 << Digits{1, 2, 3} << "C0H00S000";
    QTest::newRow("below none") << -3 << -12 << -1 << Digits{4, 3, 1} << "C-003H-12S-1";
    QTest::newRow("largest and smallest")
        << 2147483647 << 1 << -2147483647 - 1 << Digits{3, 0, 12} << "C2147483647S-02147483648";
}

void TestNumberText::padsToDigitsAndKeepsWiderNumbersWhole()
{
    QFETCH(int, camera);
    QFETCH(int, head);
    QFETCH(int, session);
    QFETCH(Digits, digits);
    QTEST(NumberText::compose(camera, head, session, digits), "text");
}

void TestNumberText::digitsBeyondAnyPathAreCut()
{
    const QString most = "S" + QString(4095, '0') + "1";
    QCOMPARE(NumberText::compose(1, 1, 1, {0, 0, 4096}), most);
    QCOMPARE(NumberText::compose(1, 1, 1, {0, 0, 4097}), most);
    QCOMPARE(NumberText::compose(1, 1, 1, {0, 0, 2147483647}), most);
}

void TestNumberText::countHasALength_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("length");
    QTest::newRow("none") << 0 << 1;
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("nine") << 9 << 1;
    QTest::newRow("ten") << 10 << 2;
    QTest::newRow("twelve") << 12 << 2;
    QTest::newRow("hundred") << 100 << 3;
}

void TestNumberText::countHasALength()
{
    QFETCH(int, count);
    QTEST(NumberText::decimalLength(count), "length");
}

int main(int argc, char *argv[])
{
    TestNumberText test;
    return runTest(argc, argv, test);
}

#include "test_number_text.moc"
