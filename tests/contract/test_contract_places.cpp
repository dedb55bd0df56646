#include "ChangedTables.h"
#include "TablePlace.h"
#include "contract/DOC_Interface.h"
#include "contract/HostServices.h"
#include "contract/PLG_Interface.h"
#include "tests/support/TestLog.h"

#include <QHash>
#include <QVector>

namespace {

struct Row
{
    const char *table;
    const char *operation;
    int place;
};

// Wrapped in a function, so that protected destructors and incomplete types cost nothing.
QVector<Row> contractRows()
{
    return {
#include "ContractPlaces.inc"
    };
}

constexpr int FirstOfTool = 12; // behind the twelve entries of QObject

int firstPlace(const char *table)
{
    return qstrcmp(table, "PLG_Interface") == 0 ? FirstOfTool : 0;
}

// What is wrong with rows listed in table order, one text each; empty when all stand in place.
QStringList misplaced(const QVector<Row> &rows)
{
    QStringList result;
    QHash<QByteArray, int> expected;
    for (const Row &row : rows) {
        if (!expected.contains(row.table))
            expected.insert(row.table, firstPlace(row.table));
        const int place = expected[row.table]++;
        if (row.place != place)
            result.append(QStringLiteral("%1::%2 at %3, not %4")
                              .arg(QLatin1String(row.table), QLatin1String(row.operation))
                              .arg(row.place)
                              .arg(place));
    }
    return result;
}

// The length of a table shows in the place of one more virtual function.
template <class Table> struct Longer : Table
{
    virtual void behindTheTable() {}

protected:
    ~Longer() = default;
};

template <class Table> int tableLength()
{
    return tablePlace(&Longer<Table>::behindTheTable);
}

// Reaches what QObject declares as protected.
struct ObjectEvents : QObject
{
    static int timer() { return tablePlace(&ObjectEvents::timerEvent); }
    static int child() { return tablePlace(&ObjectEvents::childEvent); }
    static int custom() { return tablePlace(&ObjectEvents::customEvent); }
    static int connected() { return tablePlace(&ObjectEvents::connectNotify); }
    static int disconnected() { return tablePlace(&ObjectEvents::disconnectNotify); }
};

}

class TestContractPlaces : public TestBase
{
    Q_OBJECT

private slots:
    void everyOperationStandsInItsPlace();
    void tablesHoldNothingElse_data();
    void tablesHoldNothingElse();
    void objectsOwnEntriesComeFirst_data();
    void objectsOwnEntriesComeFirst();
    void facadesLayTheirPartsOutInOrder();
    void theCheckNoticesASwap();
    void theCheckNoticesAnInsertion();
};

void TestContractPlaces::everyOperationStandsInItsPlace()
{
    const QStringList wrong = misplaced(contractRows());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
}

void TestContractPlaces::tablesHoldNothingElse_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<int>("length");
#define TABLE(Class) QTest::newRow(#Class) << QByteArray(#Class) << tableLength<Class>()
    TABLE(PLG_Interface);
    TABLE(HostMain);
    TABLE(HostPlugins);
    TABLE(HostDocuments);
    TABLE(HostLiveControl);
    TABLE(HostRecord);
    TABLE(HostPlayback);
    TABLE(HostCameraLink);
    TABLE(HostFileExport);
    TABLE(HostViewState);
    TABLE(HostWindows);
    TABLE(HostUndoStack);
    TABLE(DOC_MainPart);
    TABLE(DOC_ViewPart);
    TABLE(DOC_CameraPart);
    TABLE(DOC_DisplayPart);
    TABLE(DOC_RefreshPart);
    TABLE(DOC_LinkPart);
#undef TABLE
}

void TestContractPlaces::tablesHoldNothingElse()
{
    QFETCH(QByteArray, table);
    QFETCH(int, length);
    int listed = firstPlace(table);
    for (const Row &row : contractRows()) {
        if (table == row.table)
            ++listed;
    }
    QCOMPARE(length, listed);
}

void TestContractPlaces::objectsOwnEntriesComeFirst_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("expected");
    QTest::newRow("metaObject") << tablePlace(&QObject::metaObject) << 0;
    QTest::newRow("qt_metacast") << tablePlace(&QObject::qt_metacast) << 1;
    QTest::newRow("qt_metacall") << tablePlace(&QObject::qt_metacall) << 2;
    // 3 and 4 are the two entries of the destructor, to which nothing points.
    QTest::newRow("event") << tablePlace(&QObject::event) << 5;
    QTest::newRow("eventFilter") << tablePlace(&QObject::eventFilter) << 6;
    QTest::newRow("timerEvent") << ObjectEvents::timer() << 7;
    QTest::newRow("childEvent") << ObjectEvents::child() << 8;
    QTest::newRow("customEvent") << ObjectEvents::custom() << 9;
    QTest::newRow("connectNotify") << ObjectEvents::connected() << 10;
    QTest::newRow("disconnectNotify") << ObjectEvents::disconnected() << 11;
}

void TestContractPlaces::objectsOwnEntriesComeFirst()
{
    QFETCH(int, place);
    QFETCH(int, expected);
    QCOMPARE(place, expected);
}

namespace {

template <class Part, class Facade> std::ptrdiff_t partOffset()
{
    // Any address will do: the conversion to a base that is not virtual reads no memory.
    auto *facade = reinterpret_cast<Facade *>(std::uintptr_t(0x10000));
    return reinterpret_cast<char *>(static_cast<Part *>(facade)) - reinterpret_cast<char *>(facade);
}

}

void TestContractPlaces::facadesLayTheirPartsOutInOrder()
{
    const auto word = std::ptrdiff_t(sizeof(void *));
    using H = HostServices;
    const QVector<std::ptrdiff_t> host = {
        partOffset<HostMain, H>(),       partOffset<HostPlugins, H>(),
        partOffset<HostDocuments, H>(),  partOffset<HostLiveControl, H>(),
        partOffset<HostRecord, H>(),     partOffset<HostPlayback, H>(),
        partOffset<HostCameraLink, H>(), partOffset<HostFileExport, H>(),
        partOffset<HostViewState, H>(),  partOffset<HostWindows, H>(),
        partOffset<HostUndoStack, H>()};
    for (int i = 0; i < host.size(); ++i)
        QCOMPARE(host[i], i * word);
    using D = DOC_Interface;
    const QVector<std::ptrdiff_t> doc = {
        partOffset<DOC_MainPart, D>(),    partOffset<DOC_ViewPart, D>(),
        partOffset<DOC_CameraPart, D>(),  partOffset<DOC_DisplayPart, D>(),
        partOffset<DOC_RefreshPart, D>(), partOffset<DOC_LinkPart, D>()};
    for (int i = 0; i < doc.size(); ++i)
        QCOMPARE(doc[i], i * word);
}

void TestContractPlaces::theCheckNoticesASwap()
{
    using T = SwappedUndoStack;
    const QVector<Row> rows = {{"T", "clearUndoStack", tablePlace(&T::clearUndoStack)},
                               {"T", "canUndo", tablePlace(&T::canUndo)},
                               {"T", "canRedo", tablePlace(&T::canRedo)},
                               {"T", "beginUndoMacro", tablePlace(&T::beginUndoMacro)}};
    QCOMPARE(misplaced(rows), QStringList({"T::canUndo at 2, not 1", "T::canRedo at 1, not 2"}));
}

void TestContractPlaces::theCheckNoticesAnInsertion()
{
    using T = LengthenedUndoStack;
    const QVector<Row> rows = {{"T", "clearUndoStack", tablePlace(&T::clearUndoStack)},
                               {"T", "canUndo", tablePlace(&T::canUndo)},
                               {"T", "canRedo", tablePlace(&T::canRedo)},
                               {"T", "beginUndoMacro", tablePlace(&T::beginUndoMacro)}};
    QCOMPARE(misplaced(rows), QStringList({"T::canUndo at 2, not 1", "T::canRedo at 3, not 2",
                                           "T::beginUndoMacro at 4, not 3"}));
    QCOMPARE(tableLength<T>(), 5);
}

int main(int argc, char *argv[])
{
    TestContractPlaces test;
    return runTest(argc, argv, test);
}

#include "test_contract_places.moc"
