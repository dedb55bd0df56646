#include "standin/documents/StandInCamera.h"
#include "standin/documents/StandInGroup.h"
#include "standin/host/StandInHost.h"
#include "standin/session/DocumentList.h"
#include "tests/support/TestLog.h"

#include <QElapsedTimer>
#include <QSignalSpy>

#include <limits>

class TestDocumentList : public TestBase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void isEmptyAtTheStart();
    void keysCountFromOne();
    void firstDocumentIsCurrentAndSelected();
    void anyKeyCanBeGiven_data();
    void anyKeyCanBeGiven();
    void usedKeysAndAllOnesArePassedOver();
    void closedKeyIsNeverUsedAgain();
    void closingPassesTheCurrentDocumentOn();
    void closedDocumentsLeaveTheirGroup();
    void selectionKeepsItsOrder();
    void selectionLeavesUnknownKeysOut();
    void tellsOfEachChange();
    void findsInConstantTime();

private:
    StandInCamera *add();

    std::unique_ptr<StandInHost> m_owner;
    std::unique_ptr<StandInEvents> m_events;
    std::unique_ptr<DocumentList> m_list;
};

void TestDocumentList::init()
{
    TestBase::init();
    m_owner = std::make_unique<StandInHost>();
    m_events = std::make_unique<StandInEvents>();
    m_list = std::make_unique<DocumentList>(*m_events);
}

void TestDocumentList::cleanup()
{
    m_list.reset();
    TestBase::cleanup();
}

StandInCamera *TestDocumentList::add()
{
    auto camera =
        std::make_unique<StandInCamera>(*m_owner, m_list->nextKey(), StandInCamera::Description());
    StandInCamera *added = camera.get();
    m_list->add(std::move(camera));
    return added;
}

void TestDocumentList::isEmptyAtTheStart()
{
    QCOMPARE(m_list->count(), 0);
    QCOMPARE(m_list->currentKey(), NoDocKey);
    QVERIFY(!m_list->current());
    QVERIFY(!m_list->document(1));
    QVERIFY(!m_list->camera(1));
    QCOMPARE(m_list->keyOf(nullptr), NoDocKey);
    QVERIFY(m_list->selection().isEmpty());
}

void TestDocumentList::keysCountFromOne()
{
    StandInCamera *first = add();
    StandInCamera *second = add();
    QCOMPARE(m_list->keys(), QList<DOCKEY>({1, 2}));
    QCOMPARE(m_list->document(2), second);
    QCOMPARE(m_list->camera(1), first);
    QCOMPARE(m_list->keyOf(second), DOCKEY(2));
}

void TestDocumentList::firstDocumentIsCurrentAndSelected()
{
    add();
    add();
    QCOMPARE(m_list->currentKey(), DOCKEY(1));
    QCOMPARE(m_list->selection(), QList<DOCKEY>({1}));
}

void TestDocumentList::anyKeyCanBeGiven_data()
{
    QTest::addColumn<DOCKEY>("key");
    QTest::newRow("0") << DOCKEY(0);
    QTest::newRow("2^31") << (DOCKEY(1) << 31);
    QTest::newRow("2^32 - 1") << DOCKEY(0xffffffffu);
    QTest::newRow("2^53 + 1") << (DOCKEY(1) << 53) + 1;
    QTest::newRow("2^63") << (DOCKEY(1) << 63);
    QTest::newRow("2^64 - 2") << std::numeric_limits<DOCKEY>::max() - 1;
}

void TestDocumentList::anyKeyCanBeGiven()
{
    QFETCH(DOCKEY, key);
    m_list->setNextKey(key);
    StandInCamera *camera = add();
    QCOMPARE(camera->key(), key);
    QCOMPARE(m_list->document(key), camera);
    QCOMPARE(m_list->currentKey(), key);
    QCOMPARE(m_list->selection(), QList<DOCKEY>({key}));
}

void TestDocumentList::usedKeysAndAllOnesArePassedOver()
{
    add();
    m_list->setNextKey(NoDocKey - 1);
    add();
    add(); // behind the last key come 0 and, since 1 is taken, 2
    add();
    QCOMPARE(m_list->keys(), QList<DOCKEY>({1, NoDocKey - 1, 0, 2}));
}

void TestDocumentList::closedKeyIsNeverUsedAgain()
{
    add();
    m_list->close(1);
    m_list->setNextKey(1);
    QCOMPARE(add()->key(), DOCKEY(2));
    QVERIFY(!m_list->document(1));
}

void TestDocumentList::closingPassesTheCurrentDocumentOn()
{
    add();
    add();
    add();
    m_list->select(3, true);
    m_list->close(1);
    QCOMPARE(m_list->currentKey(), DOCKEY(3)); // selected last
    m_list->close(3);
    QCOMPARE(m_list->currentKey(), DOCKEY(2)); // nothing selected: the first
    QVERIFY(m_list->selection().isEmpty());
    m_list->close(2);
    QCOMPARE(m_list->currentKey(), NoDocKey);
    m_list->close(2); // no such document
    QCOMPARE(m_list->count(), 0);
}

void TestDocumentList::closedDocumentsLeaveTheirGroup()
{
    StandInCamera *first = add();
    StandInCamera *second = add();
    auto group = std::make_unique<StandInGroup>(*m_owner, m_list->nextKey(), QString("pair"),
                                                QList<StandInDocument *>({second, first}));
    StandInGroup *pair = group.get();
    m_list->add(std::move(group));
    QCOMPARE(m_list->groupMembersOf(pair), QList<DOC_Interface *>({first, second}));
    QCOMPARE(m_list->groupMembersOf(second), QList<DOC_Interface *>({first, second}));
    m_list->close(first->key());
    QCOMPARE(m_list->groupMembersOf(pair), QList<DOC_Interface *>({second}));
    QVERIFY(first->isClosed());
    QCOMPARE(m_list->keyOf(first), NoDocKey);
}

void TestDocumentList::selectionKeepsItsOrder()
{
    for (int i = 0; i < 3; ++i)
        add();
    m_list->setSelection({3, 1, 2, 3});
    QCOMPARE(m_list->selection(), QList<DOCKEY>({3, 1, 2}));
    QCOMPARE(m_list->selectionInListOrder(), QList<DOCKEY>({1, 2, 3}));
    m_list->select(1, false);
    QCOMPARE(m_list->selection(), QList<DOCKEY>({3, 2}));
}

void TestDocumentList::selectionLeavesUnknownKeysOut()
{
    add();
    add();
    m_list->setSelection({9, 2, 8});
    QCOMPARE(m_list->selection(), QList<DOCKEY>({2}));
    QCOMPARE(m_list->currentKey(), DOCKEY(2)); // the last known one
    m_list->select(9, true);
    m_list->makeCurrent(9);
    QCOMPARE(m_list->selection(), QList<DOCKEY>({2}));
    QCOMPARE(m_list->currentKey(), DOCKEY(2));
}

void TestDocumentList::tellsOfEachChange()
{
    QSignalSpy documents(m_events.get(), &StandInEvents::documentsChanged);
    QSignalSpy current(m_events.get(), &StandInEvents::currentDocumentChanged);
    QSignalSpy selection(m_events.get(), &StandInEvents::selectionChanged);
    add();
    add();
    QCOMPARE(documents.size(), 2);
    QCOMPARE(current.size(), 1);
    QCOMPARE(selection.size(), 1);
    m_list->makeCurrent(1); // it is
    m_list->setSelection({1});
    QCOMPARE(current.size(), 1);
    QCOMPARE(selection.size(), 1);
    m_list->close(1);
    QCOMPARE(documents.size(), 3);
    QCOMPARE(current.size(), 2);
    QCOMPARE(current.last().first().value<DOCKEY>(), DOCKEY(2));
    QCOMPARE(selection.size(), 2);
}

// As many look-ups in a list a hundred times as long take no more than a few times as long.
void TestDocumentList::findsInConstantTime()
{
    const auto timeOf = [this] {
        const DOCKEY last = m_list->keys().last();
        const DOC_Interface *contract = m_list->document(last)->contract();
        qint64 best = std::numeric_limits<qint64>::max();
        for (int round = 0; round < 7; ++round) {
            QElapsedTimer timer;
            timer.start();
            for (int i = 0; i < 20000; ++i) {
                if (!m_list->document(last) || m_list->keyOf(contract) != last)
                    return qint64(-1);
            }
            best = qMin(best, timer.nsecsElapsed());
        }
        return best;
    };
    for (int i = 0; i < 20; ++i)
        add();
    const qint64 few = timeOf();
    for (int i = 0; i < 1980; ++i)
        add();
    const qint64 many = timeOf();
    QVERIFY(few > 0);
    QVERIFY2(many < 10 * few, qPrintable(QString("%1 ns, %2 ns").arg(few).arg(many)));
}

int main(int argc, char *argv[])
{
    TestDocumentList test;
    return runTest(argc, argv, test);
}

#include "test_document_list.moc"
