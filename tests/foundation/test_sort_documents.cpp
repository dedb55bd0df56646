#include "foundation/Utilities.h"
#include "standin/host/StandInHost.h"
#include "standin/journal/StandInFault.h"
#include "tests/support/TestLog.h"

#include <QCollator>
#include <QRandomGenerator>

#include <algorithm>

using KeyList = QList<DOCKEY>;

namespace {

constexpr int NameUp = 1;
constexpr int NameDown = 2;
constexpr int OldestFirst = 3;
constexpr int NewestFirst = 4;
constexpr int HostOrder = 5;

DOCKEY addNamed(StandInHost &host, const QString &name)
{
    StandInDocument *document = host.addCamera();
    document->state().documentName = name;
    return document->key();
}

DOCKEY addRecorded(StandInHost &host, const QString &date, const QString &time)
{
    StandInDocument *document = host.addCamera();
    document->state().recordDate = date;
    document->state().recordTime = time;
    return document->key();
}

// The sort word by word: everything is asked anew for each comparison.
class LiteralSort
{
public:
    explicit LiteralSort(HostServices *host) : m_host(host) { m_collator.setNumericMode(true); }

    KeyList sorted(int mode, KeyList keys) const
    {
        std::stable_sort(keys.begin(), keys.end(), [&](DOCKEY a, DOCKEY b) {
            DOC_Interface *first = document(a);
            DOC_Interface *second = document(b);
            if (!first || !second)
                return false;
            switch (mode) {
            case NameUp:
                return m_collator.compare(first->documentName(), second->documentName()) < 0;
            case NameDown:
                return m_collator.compare(second->documentName(), first->documentName()) < 0;
            case OldestFirst:
                return isOlder(first, second);
            default:
                return isOlder(second, first);
            }
        });
        return keys;
    }

private:
    DOC_Interface *document(DOCKEY key) const
    {
        DOC_Interface *doc = m_host->deviceByKey(key, true);
        if (doc && doc->isGroup())
            return doc->groupMembers().first();
        return doc;
    }

    bool isOlder(DOC_Interface *first, DOC_Interface *second) const
    {
        const QString firstDate = first->recordDate();
        const QString firstTime = first->recordTime();
        const QString secondDate = second->recordDate();
        const QString secondTime = second->recordTime();
        if (firstDate.isEmpty() || firstTime.isEmpty() || secondDate.isEmpty() ||
            secondTime.isEmpty()) {
            return false;
        }
        return UTL::parseDateTime(firstDate, firstTime) <
               UTL::parseDateTime(secondDate, secondTime);
    }

    HostServices *m_host;
    QCollator m_collator;
};

}

class TestSortDocuments : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void ordersNames_data();
    void ordersNames();
    void ordersTimes_data();
    void ordersTimes();
    void keepsTheOrderOfEquals_data();
    void keepsTheOrderOfEquals();
    void comparesAGroupByItsFirstMember_data();
    void comparesAGroupByItsFirstMember();
    void comparesAGroupWithoutMembersByItself();
    void leavesDocumentsThatHaveGone_data();
    void leavesDocumentsThatHaveGone();
    void followsTheHostsOrder_data();
    void followsTheHostsOrder();
    void asksTheHostForItsOrder();
    void leavesTheListInOtherModes_data();
    void leavesTheListInOtherModes();
    void agreesWithTheLiteralSort_data();
    void agreesWithTheLiteralSort();
    void readsEachDocumentOnce_data();
    void readsEachDocumentOnce();
    void passesOnWhatTheHostThrows();
};

void TestSortDocuments::init()
{
    TestBase::init();
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
}

void TestSortDocuments::cleanup()
{
    QLocale::setDefault(QLocale::c());
    TestBase::cleanup();
}

void TestSortDocuments::ordersNames_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<KeyList>("ascending");
    QTest::addColumn<KeyList>("descending");
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    QTest::newRow("numbers count as numbers")
        << english << QStringList({"Cam10", "Cam9", "Cam1", "Cam100"}) << KeyList({3, 2, 1, 4})
        << KeyList({4, 1, 2, 3});
    QTest::newRow("no matter of case first")
        << english << QStringList({"beta", "Alpha", "alpha2", "Beta2"}) << KeyList({2, 3, 1, 4})
        << KeyList({4, 1, 3, 2});
    QTest::newRow("accents beside their letters")
        << english << QStringList({"z", QString(QChar(0xe9)), "e", "f"}) << KeyList({3, 2, 4, 1})
        << KeyList({1, 4, 2, 3});
    QTest::newRow("Swedish puts some of them last")
        << QLocale(QLocale::Swedish) << QStringList({QString(QChar(0xf6)), "z", "o"})
        << KeyList({3, 2, 1}) << KeyList({1, 2, 3});
    QTest::newRow("an empty name comes first")
        << english << QStringList({"a", "", QString(QChar(1))}) << KeyList({2, 3, 1})
        << KeyList({1, 3, 2});
    QTest::newRow("in the C locale numbers are letters")
        << QLocale::c() << QStringList({"Cam9", "Cam10", "Cam1"}) << KeyList({3, 2, 1})
        << KeyList({1, 2, 3});
    QTest::newRow("in the C locale capitals come first")
        << QLocale::c() << QStringList({"a", "B"}) << KeyList({2, 1}) << KeyList({1, 2});
    QTest::newRow("one") << english << QStringList({"a"}) << KeyList({1}) << KeyList({1});
    QTest::newRow("none") << english << QStringList() << KeyList() << KeyList();
}

void TestSortDocuments::ordersNames()
{
    QFETCH(QLocale, locale);
    QFETCH(QStringList, names);
    QLocale::setDefault(locale);
    StandInHost host;
    KeyList keys;
    for (const QString &name : names)
        keys.append(addNamed(host, name));
    const KeyList given = keys;
    QTEST(UTL::sortDocuments(&host, NameUp, keys, false), "ascending");
    QTEST(UTL::sortDocuments(&host, NameDown, keys, false), "descending");
    QTEST(UTL::sortDocuments(&host, NameUp, keys, true), "ascending");
    QCOMPARE(keys, given);
}

void TestSortDocuments::ordersTimes_data()
{
    using Times = QList<QPair<QString, QString>>;
    QTest::addColumn<Times>("times");
    QTest::addColumn<KeyList>("oldestFirst");
    QTest::addColumn<KeyList>("newestFirst");
    QTest::newRow("by day") << Times{{"2017/6/5", "12:00:00"},
                                     {"2017/10/5", "12:00:00"},
                                     {"2016/12/31", "12:00:00"}}
                            << KeyList({3, 1, 2}) << KeyList({2, 1, 3});
    QTest::newRow("by time of day")
        << Times{{"2017/6/5", "12:00:01"}, {"2017/6/5", "12:00:00"}, {"2017/6/5", "09:59:59"}}
        << KeyList({3, 2, 1}) << KeyList({1, 2, 3});
    QTest::newRow("with and without seconds")
        << Times{{"2017/6/5", "12:00:01"}, {"2017/6/5", "12:00"}} << KeyList({2, 1})
        << KeyList({1, 2});
    QTest::newRow("unknown date stays where it is")
        << Times{{"2017/6/5", "12:00"}, {"", "11:00"}, {"2016/6/5", "12:00"}} << KeyList({1, 2, 3})
        << KeyList({1, 2, 3});
    QTest::newRow("unknown time stays where it is")
        << Times{{"2016/6/5", "12:00"}, {"2018/6/5", ""}, {"2017/6/5", "12:00"}}
        << KeyList({1, 2, 3}) << KeyList({1, 2, 3});
    QTest::newRow("neighbours of known time change places")
        << Times{{"", ""}, {"2017/6/5", "12:00"}, {"2016/6/5", "12:00"}} << KeyList({1, 3, 2})
        << KeyList({1, 2, 3});
}

void TestSortDocuments::ordersTimes()
{
    using Times = QList<QPair<QString, QString>>;
    QFETCH(Times, times);
    StandInHost host;
    KeyList keys;
    for (const auto &time : times)
        keys.append(addRecorded(host, time.first, time.second));
    QTEST(UTL::sortDocuments(&host, OldestFirst, keys, false), "oldestFirst");
    QTEST(UTL::sortDocuments(&host, NewestFirst, keys, false), "newestFirst");
}

void TestSortDocuments::keepsTheOrderOfEquals_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("names up") << NameUp;
    QTest::newRow("names down") << NameDown;
    QTest::newRow("oldest first") << OldestFirst;
    QTest::newRow("newest first") << NewestFirst;
}

void TestSortDocuments::keepsTheOrderOfEquals()
{
    QFETCH(int, mode);
    StandInHost host;
    for (int i = 0; i < 4; ++i)
        host.document(addRecorded(host, "2017/6/5", "12:00"))->state().documentName = "same";
    const KeyList keys = {3, 1, 4, 2};
    QCOMPARE(UTL::sortDocuments(&host, mode, keys, false), keys);
}

void TestSortDocuments::comparesAGroupByItsFirstMember_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<KeyList>("order");
    // Keys 1 and 2 are members, 3 is their group, 4 and 5 stand alone.
    QTest::newRow("names up") << NameUp << KeyList({4, 3, 5});
    QTest::newRow("names down") << NameDown << KeyList({5, 3, 4});
    QTest::newRow("oldest first") << OldestFirst << KeyList({4, 3, 5});
    QTest::newRow("newest first") << NewestFirst << KeyList({5, 3, 4});
}

void TestSortDocuments::comparesAGroupByItsFirstMember()
{
    QFETCH(int, mode);
    StandInHost host;
    const auto add = [&](const QString &name, const QString &date) {
        StandInDocument *document = host.document(addRecorded(host, date, "12:00"));
        document->state().documentName = name;
        return document;
    };
    StandInDocument *first = add("m", "2017/6/5");
    StandInDocument *second = add("z", "2019/6/5");
    StandInDocument *group = host.addGroup("zz", {first, second});
    group->state().documentName = "zz";
    group->state().recordDate = "2020/1/1";
    group->state().recordTime = "12:00";
    add("l", "2017/6/4");
    add("n", "2017/6/6");
    QTEST(UTL::sortDocuments(&host, mode, {3, 4, 5}, false), "order");
    QTEST(UTL::sortDocuments(&host, mode, {5, 4, 3}, false), "order");
}

void TestSortDocuments::comparesAGroupWithoutMembersByItself()
{
    StandInHost host;
    addNamed(host, "b");
    StandInDocument *group = host.addGroup("a", {});
    group->state().documentName = "a";
    QCOMPARE(UTL::sortDocuments(&host, NameUp, {1, 2}, false), KeyList({2, 1}));
}

void TestSortDocuments::leavesDocumentsThatHaveGone_data()
{
    keepsTheOrderOfEquals_data();
}

void TestSortDocuments::leavesDocumentsThatHaveGone()
{
    QFETCH(int, mode);
    StandInHost host;
    host.document(addRecorded(host, "2017/6/5", "12:00"))->state().documentName = "b";
    const KeyList goneOnly = {77, NoDocKey, 33, 0};
    QCOMPARE(UTL::sortDocuments(&host, mode, goneOnly, false), goneOnly);
    const KeyList between = {77, 1, 33};
    QCOMPARE(UTL::sortDocuments(&host, mode, between, false), between);
}

void TestSortDocuments::followsTheHostsOrder_data()
{
    QTest::addColumn<KeyList>("given");
    QTest::addColumn<KeyList>("order");
    QTest::newRow("all") << KeyList({4, 3, 2, 1}) << KeyList({1, 2, 3, 4});
    QTest::newRow("some") << KeyList({4, 2}) << KeyList({2, 4});
    QTest::newRow("gone ones follow as given")
        << KeyList({99, 4, 77, 2, 88}) << KeyList({2, 4, 99, 77, 88});
    QTest::newRow("only gone ones") << KeyList({99, 77, 88}) << KeyList({99, 77, 88});
    QTest::newRow("none") << KeyList() << KeyList();
}

void TestSortDocuments::followsTheHostsOrder()
{
    QFETCH(KeyList, given);
    StandInHost host;
    for (const char *name : {"d", "c", "b", "a"})
        addNamed(host, name);
    QTEST(UTL::sortDocuments(&host, HostOrder, given, false), "order");

    host.clearJournal();
    QCOMPARE(UTL::sortDocuments(&host, HostOrder, given, true), given);
    QCOMPARE(host.journal(), QStringList());
}

void TestSortDocuments::asksTheHostForItsOrder()
{
    StandInHost host;
    for (const char *name : {"d", "c", "b", "a"})
        addNamed(host, name);
    host.clearJournal();
    UTL::sortDocuments(&host, HostOrder, {4, 99, 2}, false);
    QCOMPARE(host.journal(), QStringList({"documentKeys(true, false)", "deviceByKey(2, true)",
                                          "deviceByKey(4, true)"}));
}

void TestSortDocuments::leavesTheListInOtherModes_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("0") << 0;
    QTest::newRow("6") << 6;
    QTest::newRow("negative") << -1;
    QTest::newRow("largest") << std::numeric_limits<int>::max();
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
}

void TestSortDocuments::leavesTheListInOtherModes()
{
    QFETCH(int, mode);
    StandInHost host;
    addNamed(host, "b");
    addNamed(host, "a");
    host.clearJournal();
    QCOMPARE(UTL::sortDocuments(&host, mode, {2, 1, 77}, false), KeyList({2, 1, 77}));
    QCOMPARE(UTL::sortDocuments(&host, mode, {2, 1, 77}, true), KeyList({2, 1, 77}));
    QCOMPARE(host.journal(), QStringList());
}

void TestSortDocuments::agreesWithTheLiteralSort_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("C") << QLocale::c();
    QTest::newRow("English") << QLocale(QLocale::English, QLocale::UnitedStates);
    QTest::newRow("Japanese") << QLocale(QLocale::Japanese);
}

void TestSortDocuments::agreesWithTheLiteralSort()
{
    QFETCH(QLocale, locale);
    QLocale::setDefault(locale);
    const QList<QChar> letters = {'a',           'A',           'b',           '0',     '1',
                                  '2',           '_',           ' ',           '.',     QChar(0xe9),
                                  QChar(0x3042), QChar(0xd83d), QChar(0xff41), QChar(1)};
    QRandomGenerator random(20170605);
    const auto pick = [&](int below) { return random.bounded(below); };

    for (int round = 0; round < 25; ++round) {
        StandInHost host;
        host.setJournalEnabled(false);
        KeyList keys;
        const int count = pick(120);
        for (int i = 0; i < count; ++i) {
            QString name;
            for (int length = pick(5); length > 0; --length)
                name += letters.at(pick(letters.size()));
            StandInDocument *document = host.document(addRecorded(
                host, QString("2017/6/%1").arg(1 + pick(9)), pick(2) ? "12:00" : "12:00:30"));
            document->state().documentName = name;
            switch (pick(12)) {
            case 0:
                document->state().recordDate.clear();
                break;
            case 1:
                document->state().recordTime.clear();
                break;
            case 2:
                document->state().recordDate = "no date";
                break;
            case 3:
                keys.append(host.addGroup(name, {document})->key());
                break;
            case 4:
                keys.append(1000000 + document->key());
                break;
            }
            keys.insert(pick(keys.size() + 1), document->key());
        }
        const LiteralSort literal(&host);
        for (int mode = NameUp; mode <= NewestFirst; ++mode) {
            QCOMPARE(UTL::sortDocuments(&host, mode, keys, round % 2 == 0),
                     literal.sorted(mode, keys));
        }
    }
}

void TestSortDocuments::readsEachDocumentOnce_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("reads");
    QTest::newRow("names") << NameUp << QStringList({"documentName()"});
    QTest::newRow("times") << NewestFirst << QStringList({"recordDate()", "recordTime()"});
}

void TestSortDocuments::readsEachDocumentOnce()
{
    QFETCH(int, mode);
    QFETCH(QStringList, reads);
    StandInHost host;
    KeyList keys;
    for (int i = 0; i < 50; ++i) {
        const DOCKEY key = addRecorded(host, "2017/6/5", QString("12:%1").arg(59 - i));
        host.document(key)->state().documentName = QString::number(i * 7 % 50);
        keys.append(key);
    }
    host.clearJournal();
    UTL::sortDocuments(&host, mode, keys, false);
    const QStringList journal = host.journal();
    for (DOCKEY key : keys) {
        for (const QString &read : reads)
            QCOMPARE(journal.count(QString("[%1].").arg(key) + read), 1);
        QCOMPARE(journal.count(QString("deviceByKey(%1, true)").arg(key)), 1);
    }
    QCOMPARE(journal.size(), keys.size() * (2 + reads.size()));
}

void TestSortDocuments::passesOnWhatTheHostThrows()
{
    StandInHost host;
    addNamed(host, "b");
    addNamed(host, "a");
    host.failOn("documentName", 2);
    QVERIFY_EXCEPTION_THROWN(UTL::sortDocuments(&host, NameUp, {1, 2}, false), StandInFault);
    host.failOn("documentKeys");
    QVERIFY_EXCEPTION_THROWN(UTL::sortDocuments(&host, HostOrder, {1, 2}, false), StandInFault);
}

int main(int argc, char **argv)
{
    TestSortDocuments test;
    return runTest(argc, argv, test);
}

#include "test_sort_documents.moc"
