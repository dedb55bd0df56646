#include "bridge/data/RowSelection.h"
#include "tests/support/TestLog.h"

// Which of several selected rows is the current one.

class TestRowSelection : public TestBase
{
    Q_OBJECT

private slots:
    void startsEmpty();
    void currentFollowsTheSelection_data();
    void currentFollowsTheSelection();
};

using Selections = QList<QList<int>>;

void TestRowSelection::startsEmpty()
{
    const RowSelection selection;
    QCOMPARE(selection.current(), 0);
    QCOMPARE(selection.ids(), QList<int>());
}

void TestRowSelection::currentFollowsTheSelection_data()
{
    QTest::addColumn<Selections>("selections");
    QTest::addColumn<int>("current");
    // One, none, more.
    QTest::newRow("one row") << Selections{{4}} << 4;
    QTest::newRow("another one") << Selections{{4}, {7}} << 7;
    QTest::newRow("one of several, not the current") << Selections{{1}, {1, 2}, {1}} << 1;
    QTest::newRow("none") << Selections{{4}, {}} << 0;
    QTest::newRow("one more") << Selections{{1}, {1, 2}} << 2;
    QTest::newRow("one more in front") << Selections{{5}, {2, 5}} << 2;
    QTest::newRow("the last new one wins") << Selections{{1}, {3, 1, 2}} << 2;
    QTest::newRow("the last new one, not the last") << Selections{{9}, {3, 2, 9}} << 2;
    QTest::newRow("several from none") << Selections{{2, 1}} << 1;
    QTest::newRow("more, and the former ones gone") << Selections{{1}, {4, 3}} << 3;
    QTest::newRow("more, but none new") << Selections{{1, 2}, {2, 1, 1}} << 2;
    // Fewer or as many.
    QTest::newRow("current stays") << Selections{{1}, {1, 3}, {1, 3, 2}, {1, 2}} << 2;
    QTest::newRow("the next one left") << Selections{{1, 3}, {1, 2, 3}, {1, 3}} << 3;
    QTest::newRow("behind the last comes the first") << Selections{{1, 2, 3}, {1, 2}} << 1;
    QTest::newRow("behind the last, the first has gone") << Selections{{1, 2, 3, 4}, {2, 3}} << 2;
    QTest::newRow("the first of the former ones") << Selections{{1, 2, 3}, {2, 1}} << 1;
    QTest::newRow("steps over what has gone") << Selections{{1, 3, 4}, {1, 2, 3, 4}, {1, 4}} << 4;
    QTest::newRow("by the former order") << Selections{{3, 1}, {3, 2, 1}, {1, 3}} << 1;
    QTest::newRow("as many, current stays") << Selections{{1, 2}, {2, 3}} << 2;
    QTest::newRow("as many, current has gone") << Selections{{1, 2}, {1, 3}} << 1;
    QTest::newRow("as many, all others") << Selections{{1, 2}, {8, 9}} << 8;
    QTest::newRow("fewer, all others") << Selections{{1, 2, 3}, {9, 8}} << 9;
    QTest::newRow("again the same") << Selections{{1, 2}, {1, 2}} << 2;
    QTest::newRow("in another order") << Selections{{1, 2}, {2, 1}} << 2;
    QTest::newRow("behind none") << Selections{{1, 2}, {}, {1, 2}} << 2;
}

void TestRowSelection::currentFollowsTheSelection()
{
    QFETCH(Selections, selections);
    RowSelection selection;
    for (const QList<int> &ids : selections)
        selection.select(ids);
    QTEST(selection.current(), "current");
    QCOMPARE(selection.ids(), selections.last());
}

QTEST_GUILESS_MAIN(TestRowSelection)
#include "test_row_selection.moc"
