#include "save/path/MultiPath.h"
#include "tests/support/TestLog.h"

// The lists of destinations, and of the devices that are given one.
class TestMultiPath : public TestBase
{
    Q_OBJECT

private slots:
    void listIsSplit_data();
    void listIsSplit();
    void deviceHasADirectory_data();
    void deviceHasADirectory();
    void longListIsRead();
};

void TestMultiPath::listIsSplit_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QStringList>("entries");
    QTest::newRow("nothing") << "" << QStringList();
    QTest::newRow("one entry") << "A|D:/a" << QStringList({"A", "D:/a"});
    QTest::newRow("two entries") << "A|D:/a?B|/b" << QStringList({"A", "D:/a", "B", "/b"});
    QTest::newRow("one field") << "A?B|/b" << QStringList({"B", "/b"});
    QTest::newRow("three fields") << "A|/a|x?B|/b" << QStringList({"B", "/b"});
    QTest::newRow("empty fields stay") << "|?A|?|/a" << QStringList({"", "", "A", "", "", "/a"});
    QTest::newRow("empty entries") << "?A|/a??" << QStringList({"A", "/a"});
    QTest::newRow("one key twice") << "A|/a?A|/b" << QStringList({"A", "/a", "A", "/b"});
    QTest::newRow("blanks stay") << " A | /a " << QStringList({" A ", " /a "});
}

void TestMultiPath::listIsSplit()
{
    QFETCH(QString, list);
    QStringList fields;
    for (const MultiPath::Entry &entry : MultiPath::entries(list))
        fields += {entry.first, entry.second};
    QTEST(fields, "entries");
}

void TestMultiPath::deviceHasADirectory_data()
{
    QTest::addColumn<QString>("destinations");
    QTest::addColumn<QString>("devices");
    QTest::addColumn<QString>("directory"); // null: none
    QTest::newRow("assigned") << "A|/a?B|/b"
                              << "Cam|B"
                              << "/b";
    QTest::newRow("no list of devices") << "A|/a"
                                        << "" << QString();
    QTest::newRow("another device") << "A|/a"
                                    << "Cam2|A" << QString();
    QTest::newRow("other capitals") << "A|/a"
                                    << "cam|A" << QString();
    QTest::newRow("destination has gone") << "A|/a"
                                          << "Cam|B" << QString();
    QTest::newRow("no destinations") << ""
                                     << "Cam|A" << QString();
    QTest::newRow("empty directory") << "A|"
                                     << "Cam|A"
                                     << "";
    QTest::newRow("empty key") << "|/a"
                               << "Cam|"
                               << "/a";
    QTest::newRow("destination of three fields") << "A|/a|x"
                                                 << "Cam|A" << QString();
    QTest::newRow("device of three fields") << "A|/a"
                                            << "Cam|A|x" << QString();
    QTest::newRow("later destination holds") << "A|/a?A|/b"
                                             << "Cam|A"
                                             << "/b";
    QTest::newRow("later device holds") << "A|/a?B|/b"
                                        << "Cam|A?Cam|B"
                                        << "/b";
}

void TestMultiPath::deviceHasADirectory()
{
    QFETCH(QString, destinations);
    QFETCH(QString, devices);
    QFETCH(QString, directory);
    const std::optional<QString> found =
        MultiPath::directoryOf(QStringLiteral("Cam"), destinations, devices);
    QCOMPARE(found.has_value(), !directory.isNull());
    QCOMPARE(found.value_or(QString()), directory);
}

void TestMultiPath::longListIsRead()
{
    const QString million(1000000, '?');
    QCOMPARE(MultiPath::entries(million).size(), 0);
    QCOMPARE(MultiPath::entries(QString(1000000, '|')).size(), 0);
    QCOMPARE(MultiPath::entries(QString("a|b?").repeated(250000)).size(), 250000);
    QCOMPARE(MultiPath::entries("a|" + QString(1000000, 'x')).first().second.size(), 1000000);
    QVERIFY(MultiPath::directoryOf("Cam", million + "A|/a", "Cam|A" + million).has_value());
}

int main(int argc, char *argv[])
{
    TestMultiPath test;
    return runTest(argc, argv, test);
}

#include "test_multi_path.moc"
