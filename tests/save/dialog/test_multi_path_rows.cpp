#include "foundation/exceptions/UTL_Exception.h"
#include "save/dialog/MultiPathRows.h"
#include "tests/support/TestLog.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

// The rows of destinations and devices. Rows are compared as values: the order of keys in a text
// is nobody's to rely on.
class TestMultiPathRows : public TestBase
{
    Q_OBJECT

private slots:
    void destinationsAreNumbered_data();
    void destinationsAreNumbered();
    void devicesShowTheirDestination_data();
    void devicesShowTheirDestination();
    void textsAreCompact();
    void textsPassUnchanged_data();
    void textsPassUnchanged();
    void longListsAreReadOnce();
    void moreThanCanBeShownIsRefused();
};

namespace {

QJsonArray rowsOf(const QString &text)
{
    QJsonParseError error;
    const QJsonArray rows = QJsonDocument::fromJson(text.toUtf8(), &error).array();
    if (error.error != QJsonParseError::NoError)
        qFatal("no JSON: %s", qPrintable(error.errorString()));
    return rows;
}

// What a test compares, with the quotes of a script.
QJsonArray json(QString text)
{
    return rowsOf(text.replace('\'', '"'));
}

}

void TestMultiPathRows::destinationsAreNumbered_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("rows");
    QTest::newRow("none") << ""
                          << "[]";
    QTest::newRow("one") << "A|/a/"
                         << "[{'recid':1,'name':'A','path':'/a/'}]";
    QTest::newRow("numbers run over entries of two fields only")
        << "A|/a?alone?B|/b|/c?B|/b"
        << "[{'recid':1,'name':'A','path':'/a'},{'recid':2,'name':'B','path':'/b'}]";
    QTest::newRow("repeated and empty fields are kept")
        << "A|/a?A|?|"
        << "[{'recid':1,'name':'A','path':'/a'},{'recid':2,'name':'A','path':''},"
           "{'recid':3,'name':'','path':''}]";
}

void TestMultiPathRows::destinationsAreNumbered()
{
    QFETCH(QString, list);
    QFETCH(QString, rows);
    QCOMPARE(rowsOf(MultiPathRows::destinations(list)), json(rows));
}

void TestMultiPathRows::devicesShowTheirDestination_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("assignments");
    QTest::addColumn<QString>("rows");
    const QString two = "A|/a?B|/b";
    const QString paths = "'paths':[{'key':'A','val':'/a'},{'key':'B','val':'/b'}]";

    QTest::newRow("no device") << QStringList() << two << ""
                               << "[]";
    QTest::newRow("no destination: both texts are empty, even for a device that has one")
        << QStringList("C1") << ""
        << "C1|A"
        << "[{'recid':1,'device':'C1','paths':[],'pathselector':'','path':''}]";
    QTest::newRow("without an assignment the first destination")
        << QStringList("C1") << two << ""
        << "[{'recid':1,'device':'C1'," + paths + ",'pathselector':'A','path':'/a'}]";
    QTest::newRow("assigned") << QStringList("C1") << two << "C1|B"
                              << "[{'recid':1,'device':'C1'," + paths +
                                     ",'pathselector':'B','path':'/b'}]";
    QTest::newRow("assigned to one that was removed")
        << QStringList("C1") << two << "C1|Z"
        << "[{'recid':1,'device':'C1'," + paths + ",'pathselector':'Z','path':''}]";
    QTest::newRow("a name that was seen is skipped, and not counted")
        << QStringList({"C1", "C1", "C2"}) << two << "C2|B"
        << "[{'recid':1,'device':'C1'," + paths + ",'pathselector':'A','path':'/a'}," +
               "{'recid':2,'device':'C2'," + paths + ",'pathselector':'B','path':'/b'}]";
    QTest::newRow("of two destinations with one key the first has the directory")
        << QStringList("C1") << "A|/first?A|/second"
        << "C1|A"
        << "[{'recid':1,'device':'C1','paths':[{'key':'A','val':'/first'},"
           "{'key':'A','val':'/second'}],'pathselector':'A','path':'/first'}]";
    QTest::newRow("of two assignments the later one")
        << QStringList("C1") << two << "C1|Z?C1|B"
        << "[{'recid':1,'device':'C1'," + paths + ",'pathselector':'B','path':'/b'}]";
    QTest::newRow("assigned to an empty key that is none")
        << QStringList("C1") << two << "C1|"
        << "[{'recid':1,'device':'C1'," + paths + ",'pathselector':'','path':''}]";
    QTest::newRow("a device without a name")
        << QStringList("") << two << "|B"
        << "[{'recid':1,'device':''," + paths + ",'pathselector':'B','path':'/b'}]";
}

void TestMultiPathRows::devicesShowTheirDestination()
{
    QFETCH(QStringList, names);
    QFETCH(QString, list);
    QFETCH(QString, assignments);
    QFETCH(QString, rows);
    QCOMPARE(rowsOf(MultiPathRows::devices(names, list, assignments)), json(rows));
}

void TestMultiPathRows::textsAreCompact()
{
    QCOMPARE(MultiPathRows::destinations(""), QStringLiteral("[]"));
    for (const QString &text : {MultiPathRows::destinations("A|a?B|b"),
                                MultiPathRows::devices({"C1", "C2"}, "A|a?B|b", "C1|B")}) {
        QVERIFY2(!text.contains(' ') && !text.contains('\n'), qPrintable(text));
    }
}

void TestMultiPathRows::textsPassUnchanged_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("quotes") << "a\"b\\c'";
    QTest::newRow("lines") << "a\nb\tc";
    QTest::newRow("place holders") << "%1 %2";
    QTest::newRow("braces") << "},{\"recid\":9}";
    QTest::newRow("beyond the first plane") << QString::fromUtf8("\xf0\x9f\x8e\xa5 \xc3\x9f");
}

void TestMultiPathRows::textsPassUnchanged()
{
    QFETCH(QString, text);
    const QString list = text + "|" + text;
    const QJsonObject destination = rowsOf(MultiPathRows::destinations(list)).at(0).toObject();
    QCOMPARE(destination.value("name").toString(), text);
    QCOMPARE(destination.value("path").toString(), text);
    const QJsonArray rows = rowsOf(MultiPathRows::devices({text}, list, list));
    QCOMPARE(rows.size(), 1);
    const QJsonObject device = rows.at(0).toObject();
    QCOMPARE(device.value("device").toString(), text);
    QCOMPARE(device.value("pathselector").toString(), text);
    QCOMPARE(device.value("path").toString(), text);
    QCOMPARE(device.value("paths").toArray(),
             QJsonArray({QJsonObject{{"key", text}, {"val", text}}}));
}

void TestMultiPathRows::longListsAreReadOnce()
{
    QString destinations;
    QString assignments;
    for (int i = 0; destinations.size() < 1000000; ++i) {
        destinations += QStringLiteral("K%1|/data/%1?").arg(i);
        assignments += QStringLiteral("C%1|K%1?").arg(i);
    }
    QElapsedTimer timer;
    timer.start();
    const QString rows = MultiPathRows::devices({"C7", "C9", "none"}, destinations, assignments);
    const QString listed = MultiPathRows::destinations(destinations);
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(rowsOf(rows).at(1).toObject().value("path").toString(), QStringLiteral("/data/9"));
    QCOMPARE(rowsOf(rows).at(2).toObject().value("path").toString(), QStringLiteral("/data/0"));
    QCOMPARE(rowsOf(listed).size(), destinations.count('?'));

    // Not a single entry.
    QCOMPARE(MultiPathRows::destinations(QString(1000000, '?')), QStringLiteral("[]"));
    QCOMPARE(MultiPathRows::destinations(QString(1000000, '|')), QStringLiteral("[]"));
    QCOMPARE(MultiPathRows::destinations(QString(1000000, 'x')), QStringLiteral("[]"));
    // One of a million letters.
    const QString name(1000000, 'x');
    QCOMPARE(rowsOf(MultiPathRows::destinations(name + "|p")).at(0).toObject().value("name"),
             QJsonValue(name));
}

// Half a million destinations in each of a thousand rows would be ten thousand million letters.
void TestMultiPathRows::moreThanCanBeShownIsRefused()
{
    QStringList names;
    for (int i = 0; i < 1000; ++i)
        names.append(QString::number(i));
    LogCapture log; // of the exception
    QVERIFY_EXCEPTION_THROWN(
        MultiPathRows::devices(names, QStringLiteral("|?").repeated(500000), QString()),
        UTL_Exception);
}

int main(int argc, char **argv)
{
    TestMultiPathRows test;
    return runTest(argc, argv, test);
}

#include "test_multi_path_rows.moc"
