#include "device/edit/DummyAddress.h"
#include "foundation/Utilities.h"
#include "tests/support/TestLog.h"

// The addresses of dummy cameras.
class TestDummyAddress : public TestBase
{
    Q_OBJECT

private slots:
    void firstFree_data();
    void firstFree();
    void lastOneIsFree();
    void allAreTaken();
    void everyOneIsAnAddressThatNobodyHas();
};

void TestDummyAddress::firstFree_data()
{
    QTest::addColumn<QStringList>("taken");
    QTest::addColumn<QString>("address");
    QTest::newRow("none taken") << QStringList() << "999.999.999.1";
    QTest::newRow("first taken") << QStringList("999.999.999.1") << "999.999.999.2";
    QTest::newRow("one and three")
        << QStringList({"999.999.999.3", "999.999.999.1"}) << "999.999.999.2";
    QTest::newRow("another address") << QStringList("192.168.0.1") << "999.999.999.1";
    QTest::newRow("out of the range")
        << QStringList({"999.999.999.0", "999.999.999.256", "999.999.999.1000"}) << "999.999.999.1";
    // Another spelling is another address.
    QTest::newRow("a leading zero") << QStringList("999.999.999.01") << "999.999.999.1";
    QTest::newRow("a sign") << QStringList("999.999.999.+1") << "999.999.999.1";
    QTest::newRow("a blank") << QStringList("999.999.999.1 ") << "999.999.999.1";
    QTest::newRow("beginning elsewhere") << QStringList("0999.999.999.1") << "999.999.999.1";
    QTest::newRow("no number") << QStringList("999.999.999.") << "999.999.999.1";
    QTest::newRow("below the digits") << QStringList("999.999.999./") << "999.999.999.1";
    QTest::newRow("above the digits") << QStringList("999.999.999.:") << "999.999.999.1";
    QTest::newRow("a digit of another script")
        << QStringList(QString("999.999.999.") + QChar(0x0661)) << "999.999.999.1";
}

void TestDummyAddress::firstFree()
{
    QFETCH(QStringList, taken);
    DummyAddress::Taken addresses;
    for (const QString &address : taken)
        addresses.add(address);
    QTEST(addresses.firstFree(), "address");
}

void TestDummyAddress::lastOneIsFree()
{
    DummyAddress::Taken taken;
    for (int number = 1; number < 255; ++number)
        taken.add(QString("999.999.999.%1").arg(number));
    QCOMPARE(taken.firstFree(), QString("999.999.999.255"));
}

void TestDummyAddress::allAreTaken()
{
    DummyAddress::Taken taken;
    for (int number = 1; number <= 255; ++number)
        taken.add(QString("999.999.999.%1").arg(number));
    QCOMPARE(taken.firstFree(), QString("999.999.999.1"));
}

void TestDummyAddress::everyOneIsAnAddressThatNobodyHas()
{
    for (int number = 1; number <= DummyAddress::Count; ++number) {
        const QString address = DummyAddress::numbered(number);
        QVERIFY(UTL::isValidIpAddress(address));
        QVERIFY(address.startsWith("999.999.999."));
    }
}

int main(int argc, char *argv[])
{
    TestDummyAddress test;
    return runTest(argc, argv, test);
}

#include "test_dummy_address.moc"
