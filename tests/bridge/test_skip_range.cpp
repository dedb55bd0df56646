#include "bridge/data/SkipRange.h"
#include "bridge/mediator/JS_Mediator.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <malloc.h>

// The range of skip values that the selected partitions allow.

class TestSkipRange : public TestBase
{
    Q_OBJECT

private slots:
    void nothingSelectedChangesNothing();
    void framesCountToTheShortestPartition_data();
    void framesCountToTheShortestPartition();
    void fileRates_data();
    void fileRates();
    void fileWithoutARateCountsNoFrames();
    void memoryAsksEachPartition();
    void oneFrameASecondIsARate_data();
    void oneFrameASecondIsARate();
    void ratesOfNothingFallBackToFrames();
    void fallBackThatIsRefusedStillCountsFrames();
    void listStaysWhileTheRatesStay();
    void listIsMadeAnewWhenTheRatesChange();
    void framesKeepListAndDivisor();
    void emptyPartitionsLeaveOneValue();
    void maximumEndsTheList();
    void listEndsBehindSoManyValues_data();
    void listEndsBehindSoManyValues();
    void listOfTheLongestRecordingEnds();
    void listThatEndsEarlyIsToldOnce();
    void oneFrameThatRoundsToNothingGivesNoList();
    void noRatesCountMilliseconds();
    void valueIsMovedIntoTheRange_data();
    void valueIsMovedIntoTheRange();
    void lowerBoundWins();
    void failureChangesNothingThatIsStored();
    void rateThatIsKnownCountsOnce();
    void mediatorMayGoWhileRatesAreRead_data();
    void mediatorMayGoWhileRatesAreRead();
};

namespace {

constexpr uint AllFrames = 4294967295u;

class SkipMediator : public JS_Mediator
{
public:
    explicit SkipMediator(HostServices *host) : JS_Mediator(host, QStringLiteral("page")) {}

    void setSkipMode(int wanted) override
    {
        modes.append(wanted);
        if (obeys)
            mode = wanted;
    }
    void applySkipFrames(double wanted) override
    {
        applied.append(wanted);
        value = wanted;
    }
    int getSkipMode() override { return mode; }
    double getSkipFrames() override { return value; }

    using JS_Mediator::refreshSkipRange;
    using JS_Mediator::skipFrameValues;
    using JS_Mediator::skipRateDivisor;

    int mode = 0;
    double value = 1.0;
    bool obeys = true;
    QList<int> modes;
    QList<double> applied;
};

using Targets = QMap<DOC_Interface *, QList<PARTITIONNUMBER>>;

/// Cameras with partitions 1, 2, ... of these frames and rates.
struct Selection
{
    explicit Selection(bool memory)
    {
        host.setMode(memory ? StandInHost::Mode::Memory : StandInHost::Mode::File);
        host.clearJournal();
    }

    StandInCamera *add(uint fileRate, const QList<QPair<uint, uint>> &framesAndRates)
    {
        StandInCamera *camera = host.addCamera();
        camera->state().fileRecordRate = fileRate;
        camera->state().partitions.clear();
        QList<PARTITIONNUMBER> numbers;
        for (const auto &partition : framesAndRates) {
            const int number = numbers.size() + 1;
            camera->state().partitions.append(
                {number, QString(), partition.first, partition.second});
            numbers.append(number);
        }
        targets.insert(camera, numbers);
        return camera;
    }

    void refresh() { mediator.refreshSkipRange(targets); }

    StandInHost host;
    SkipMediator mediator{&host};
    Targets targets;
};

}

void TestSkipRange::nothingSelectedChangesNothing()
{
    Selection selection(true);
    selection.mediator.mode = 1;
    selection.mediator.value = 7.0;
    selection.refresh();
    QCOMPARE(selection.host.journal(), QStringList());
    QCOMPARE(selection.mediator.getSkipMinFrames(), 1.0);
    QCOMPARE(selection.mediator.getSkipMaxFrames(), 1.0);
    QCOMPARE(selection.mediator.skipRateDivisor(), 0u);
    QVERIFY(selection.mediator.skipFrameValues().isEmpty());
    QVERIFY(selection.mediator.applied.isEmpty());
}

void TestSkipRange::framesCountToTheShortestPartition_data()
{
    QTest::addColumn<QList<uint>>("frames");
    QTest::addColumn<double>("maximum");
    QTest::newRow("one") << QList<uint>({100}) << 100.0;
    QTest::newRow("shortest of three") << QList<uint>({300, 100, 200}) << 100.0;
    QTest::newRow("an empty one does not count") << QList<uint>({300, 0, 200}) << 200.0;
    QTest::newRow("all empty") << QList<uint>({0, 0}) << double(AllFrames);
    QTest::newRow("none") << QList<uint>() << double(AllFrames);
}

void TestSkipRange::framesCountToTheShortestPartition()
{
    QFETCH(QList<uint>, frames);
    for (const int mode : {0, 2, -1}) { // anything but 1 counts in frames
        Selection selection(true);
        selection.mediator.mode = mode;
        QList<QPair<uint, uint>> partitions;
        for (uint count : frames)
            partitions.append({count, 1000});
        selection.add(0, partitions);
        selection.refresh();
        QCOMPARE(selection.mediator.getSkipMinFrames(), 1.0);
        QTEST(selection.mediator.getSkipMaxFrames(), "maximum");
        QVERIFY(selection.mediator.skipFrameValues().isEmpty());
        QVERIFY(selection.mediator.modes.isEmpty());
    }
}

void TestSkipRange::fileRates_data()
{
    QTest::addColumn<QList<uint>>("rates");
    QTest::addColumn<uint>("frames");
    QTest::addColumn<uint>("divisor");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<QList<double>>("values");
    QTest::newRow("1000 and 500") << QList<uint>({1000, 500}) << 4u << 500u << 2.0 << 8.0
                                  << QList<double>({2.0, 4.0, 6.0, 8.0});
    QTest::newRow("one rate") << QList<uint>({1000}) << 3u << 1000u << 1.0 << 3.0
                              << QList<double>({1.0, 2.0, 3.0});
    QTest::newRow("thirds are rounded to four decimals")
        << QList<uint>({30, 60}) << 3u << 30u << 33.3333 << 99.9999
        << QList<double>({33.3333, 66.6666, 99.9999});
    QTest::newRow("coprime rates")
        << QList<uint>({3, 2}) << 2u << 1u << 1000.0 << 2000.0 << QList<double>({1000.0, 2000.0});
    QTest::newRow("a document without a rate is left out")
        << QList<uint>({0, 500}) << 2u << 500u << 2.0 << 4.0 << QList<double>({2.0, 4.0});
    QTest::newRow("one frame") << QList<uint>({250}) << 1u << 250u << 4.0 << 4.0
                               << QList<double>({4.0});
}

void TestSkipRange::fileRates()
{
    QFETCH(QList<uint>, rates);
    QFETCH(uint, frames);
    Selection selection(false);
    selection.mediator.mode = 1;
    for (uint rate : rates)
        selection.add(rate, {{frames, 7}}); // a file's partitions are not asked for their rates
    selection.refresh();
    QTEST(selection.mediator.skipRateDivisor(), "divisor");
    QTEST(selection.mediator.getSkipMinFrames(), "minimum");
    QTEST(selection.mediator.getSkipMaxFrames(), "maximum");
    QTEST(selection.mediator.skipFrameValues(), "values");
    QVERIFY(selection.host.journal().filter("partitionRecordRate").isEmpty());
}

void TestSkipRange::fileWithoutARateCountsNoFrames()
{
    Selection selection(false);
    selection.mediator.mode = 1;
    selection.add(0, {{2, 1000}}); // the shortest
    selection.add(500, {{10, 1000}});
    selection.refresh();
    QCOMPARE(selection.mediator.getSkipMaxFrames(), 20.0);
    QCOMPARE(selection.host.journal().filter("partitionFrameCount"),
             QStringList({"[2].partitionFrameCount(1)"}));
}

void TestSkipRange::memoryAsksEachPartition()
{
    Selection selection(true);
    selection.mediator.mode = 1;
    // The partition without a rate is left out, though it is the shortest.
    selection.add(9, {{100, 1000}, {2, 0}, {5, 500}});
    selection.refresh();
    QCOMPARE(selection.mediator.skipRateDivisor(), 500u);
    QCOMPARE(selection.mediator.getSkipMaxFrames(), 10.0);
    QCOMPARE(selection.host.journal(),
             QStringList({"isMemoryMode()", "[1].partitionRecordRate(1)",
                          "[1].partitionFrameCount(1)", "[1].partitionRecordRate(2)",
                          "[1].partitionRecordRate(3)", "[1].partitionFrameCount(3)"}));
}

void TestSkipRange::oneFrameASecondIsARate_data()
{
    QTest::addColumn<bool>("memory");
    QTest::newRow("in memory") << true;
    QTest::newRow("in a file") << false;
}

void TestSkipRange::oneFrameASecondIsARate()
{
    QFETCH(bool, memory);
    Selection selection(memory);
    selection.mediator.mode = 1;
    selection.add(1, {{3, 1}});
    selection.refresh();
    QCOMPARE(selection.mediator.skipRateDivisor(), 1u);
    QCOMPARE(selection.mediator.getSkipMinFrames(), 1000.0);
    QCOMPARE(selection.mediator.getSkipMaxFrames(), 3000.0);
}

void TestSkipRange::ratesOfNothingFallBackToFrames()
{
    Selection selection(true);
    selection.mediator.mode = 1;
    selection.add(0, {{100, 0}, {80, 0}});
    selection.refresh();
    QCOMPARE(selection.mediator.modes, QList<int>({0}));
    QCOMPARE(selection.mediator.getSkipMinFrames(), 1.0);
    QCOMPARE(selection.mediator.getSkipMaxFrames(), 80.0);
}

void TestSkipRange::fallBackThatIsRefusedStillCountsFrames()
{
    Selection selection(false);
    selection.mediator.mode = 1;
    selection.mediator.obeys = false;
    selection.add(0, {{80, 1000}});
    selection.refresh();
    QCOMPARE(selection.mediator.modes, QList<int>({0}));
    QCOMPARE(selection.mediator.getSkipMaxFrames(), 80.0);
}

void TestSkipRange::listStaysWhileTheRatesStay()
{
    Selection selection(false);
    selection.mediator.mode = 1;
    StandInCamera *camera = selection.add(500, {{3, 0}});
    selection.refresh();
    const QList<double> before = {2.0, 4.0, 6.0};
    QCOMPARE(selection.mediator.skipFrameValues(), before);
    camera->state().partitions.first().frames = 10;
    selection.refresh();
    QCOMPARE(selection.mediator.getSkipMaxFrames(), 20.0);
    QCOMPARE(selection.mediator.skipFrameValues(), before);
}

void TestSkipRange::listIsMadeAnewWhenTheRatesChange()
{
    Selection selection(false);
    selection.mediator.mode = 1;
    StandInCamera *camera = selection.add(500, {{3, 0}});
    selection.refresh();
    camera->state().fileRecordRate = 250;
    selection.refresh();
    QCOMPARE(selection.mediator.skipFrameValues(), QList<double>({4.0, 8.0, 12.0}));
}

void TestSkipRange::framesKeepListAndDivisor()
{
    Selection selection(false);
    selection.mediator.mode = 1;
    selection.add(500, {{3, 0}});
    selection.refresh();
    selection.mediator.mode = 0;
    selection.refresh();
    QCOMPARE(selection.mediator.getSkipMaxFrames(), 3.0);
    QCOMPARE(selection.mediator.skipRateDivisor(), 500u);
    QCOMPARE(selection.mediator.skipFrameValues(), QList<double>({2.0, 4.0, 6.0}));
}

void TestSkipRange::emptyPartitionsLeaveOneValue()
{
    Selection selection(false);
    selection.mediator.mode = 1;
    selection.add(500, {{0, 0}});
    selection.refresh();
    QCOMPARE(selection.mediator.getSkipMinFrames(), 2.0);
    QCOMPARE(selection.mediator.getSkipMaxFrames(), 2.0);
    QCOMPARE(selection.mediator.skipFrameValues(), QList<double>({2.0}));
}

void TestSkipRange::maximumEndsTheList()
{
    SkipSource source;
    source.addRate(3000); // 0.3333 ms a frame
    source.addFrames(3);
    const SkipRange range = source.inMilliseconds(SkipRange());
    QCOMPARE(range.minimum, 0.3333);
    QCOMPARE(range.maximum, 0.9999);
    QCOMPARE(range.values, QList<double>({0.3333, 0.6666, 0.9999}));

    // A kept list does not get the new maximum.
    SkipSource longer;
    longer.addRate(3000);
    longer.addFrames(5);
    QCOMPARE(longer.inMilliseconds(range).values, range.values);
}

void TestSkipRange::listEndsBehindSoManyValues_data()
{
    QTest::addColumn<uint>("frames");
    QTest::addColumn<bool>("cut");
    QTest::addColumn<QList<double>>("values");
    QTest::newRow("fewer") << 2u << false << QList<double>({0.5, 1.0});
    QTest::newRow("as many") << 3u << false << QList<double>({0.5, 1.0, 1.5});
    QTest::newRow("as many and the maximum") << 4u << false << QList<double>({0.5, 1.0, 1.5, 2.0});
    QTest::newRow("one too many") << 5u << true << QList<double>({0.5, 1.0, 1.5, 2.5});
    QTest::newRow("many too many") << 100u << true << QList<double>({0.5, 1.0, 1.5, 50.0});
}

void TestSkipRange::listEndsBehindSoManyValues()
{
    QFETCH(uint, frames);
    SkipSource source;
    source.addRate(2000); // 0.5 ms a frame
    source.addFrames(frames);
    const SkipRange range = source.inMilliseconds(SkipRange(), 3);
    QTEST(range.cut, "cut");
    QTEST(range.values, "values");
    QVERIFY(!source.inMilliseconds(range, 3).cut); // as it was
    const SkipRange frameRange = source.inFrames(range);
    QVERIFY(!frameRange.cut);
    QCOMPARE(frameRange.minimum, 1.0);
    QCOMPARE(frameRange.maximum, double(frames));
}

void TestSkipRange::listOfTheLongestRecordingEnds()
{
    SkipSource source;
    source.addRate(1000000); // 0.001 ms a frame
    source.addFrames(4294967294u);
    const SkipRange range = source.inMilliseconds(SkipRange());
    QVERIFY(range.cut);
    QCOMPARE(range.values.size(), 10000001);
    QCOMPARE(range.values.first(), 0.001);
    QCOMPARE(range.values[9999999], 10000.0);
    QCOMPARE(range.values.last(), 4294967.294);
}

void TestSkipRange::listThatEndsEarlyIsToldOnce()
{
    Selection selection(true);
    selection.mediator.mode = 1;
    selection.add(0, {{20000000, 1000000}});
    LogCapture log;
    selection.refresh();
    QCOMPARE(log.texts(QtWarningMsg), QStringList({"skip values end at 10000000"}));
    selection.refresh();
    QCOMPARE(log.texts(QtWarningMsg).size(), 1);
    QCOMPARE(selection.mediator.getSkipMaxFrames(), 20000.0);
}

void TestSkipRange::oneFrameThatRoundsToNothingGivesNoList()
{
    SkipSource source;
    source.addRate(4000000000u);
    source.addFrames(1000);
    const SkipRange range = source.inMilliseconds(SkipRange());
    QCOMPARE(range.minimum, 0.0);
    QCOMPARE(range.maximum, 0.0);
    QVERIFY(range.values.isEmpty());
    QCOMPARE(range.rateDivisor, 4000000000u);
}

void TestSkipRange::noRatesCountMilliseconds()
{
    SkipSource source;
    source.addFrames(3);
    const SkipRange range = source.inMilliseconds(SkipRange());
    QCOMPARE(range.rateDivisor, 0u);
    QCOMPARE(range.minimum, 1.0);
    QCOMPARE(range.values, QList<double>({1.0, 2.0, 3.0}));
}

void TestSkipRange::valueIsMovedIntoTheRange_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QList<double>>("applied");
    QTest::newRow("below") << 0.5 << QList<double>({1.0});
    QTest::newRow("lowest") << 1.0 << QList<double>();
    QTest::newRow("inside") << 3.5 << QList<double>();
    QTest::newRow("highest") << 10.0 << QList<double>();
    QTest::newRow("above") << 11.0 << QList<double>({10.0});
}

void TestSkipRange::valueIsMovedIntoTheRange()
{
    QFETCH(double, value);
    Selection selection(false);
    selection.mediator.value = value;
    selection.add(0, {{10, 0}});
    selection.refresh();
    QTEST(selection.mediator.applied, "applied");
}

void TestSkipRange::lowerBoundWins()
{
    SkipRange range;
    range.minimum = 5.0;
    range.maximum = 3.0;
    QCOMPARE(clampedSkipValue(range, 4.0), 5.0);
    QCOMPARE(clampedSkipValue(range, 6.0), 3.0);
}

void TestSkipRange::failureChangesNothingThatIsStored()
{
    Selection selection(false);
    selection.mediator.mode = 1;
    selection.add(500, {{3, 0}});
    selection.refresh();
    selection.host.failOn(QStringLiteral("partitionFrameCount"));
    QVERIFY_EXCEPTION_THROWN(selection.refresh(), StandInFault);
    QCOMPARE(selection.mediator.getSkipMaxFrames(), 6.0);
    QCOMPARE(selection.mediator.skipFrameValues(), QList<double>({2.0, 4.0, 6.0}));
}

void TestSkipRange::rateThatIsKnownCountsOnce()
{
    SkipSource source;
    QVERIFY(!source.hasRates());
    source.addRate(500);
    source.addRate(500);
    QVERIFY(source.hasRates());
    QCOMPARE(source.inMilliseconds(SkipRange()).rateDivisor, 500u);
}

void TestSkipRange::mediatorMayGoWhileRatesAreRead_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("call");
    QTest::newRow("mode") << 1 << "isMemoryMode()";
    QTest::newRow("rate") << 1 << "[1].partitionRecordRate(1)";
    QTest::newRow("frames in time") << 1 << "[1].partitionFrameCount(1)";
    QTest::newRow("frames") << 0 << "[1].partitionFrameCount(1)";
}

void TestSkipRange::mediatorMayGoWhileRatesAreRead()
{
    QFETCH(int, mode);
    QFETCH(QString, call);
    Selection selection(true);
    selection.add(0, {{100, 1000}});
    QPointer<SkipMediator> mediator(new SkipMediator(&selection.host));
    mediator->mode = mode;
    mediator->value = 1e9; // would be moved into the range
    selection.host.clearJournal();
    connect(selection.host.events(), &StandInEvents::callJournalled, this,
            [&](const QString &line) {
                if (line == call)
                    delete mediator;
            });
    mediator->refreshSkipRange(selection.targets);
    QVERIFY(!mediator);
    QVERIFY(selection.host.journal().contains(call));
}

int main(int argc, char **argv)
{
    mallopt(M_PERTURB, 0xa5); // what has gone reads as nonsense
    TestSkipRange test;
    return runTest(argc, argv, test);
}

#include "test_skip_range.moc"
