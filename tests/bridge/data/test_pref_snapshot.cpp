#include "bridge/data/PrefSnapshot.h"
#include "foundation/Keys.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

// Settings that are written back on cancel.

class TestPrefSnapshot : public TestBase
{
    Q_OBJECT

private slots:
    void writesBackWhatItRead();
    void settingThatCannotBeReadIsNotWritten();
    void failedWriteLeavesTheRest();
    void plainSettingIsWrittenBackAsItIsStored();
    void valueIsThatOfTheReading();
};

namespace {

const QString &Unit = Keys::info.recTimeUnit;
const QString &Delimiter = Keys::display.recordRateInsertDelimiter;

struct Snapshot
{
    Snapshot()
    {
        host.settings().setValue(Unit, 2);
        host.settings().setValue(Delimiter, true);
    }

    void read()
    {
        snapshot.read(&host, Unit, PrefSnapshot::Type::Int);
        snapshot.read(&host, Delimiter, PrefSnapshot::Type::Bool);
    }

    void change()
    {
        host.settings().setValue(Unit, 3);
        host.settings().setValue(Delimiter, false);
        host.clearJournal();
    }

    StandInHost host;
    PrefSnapshot snapshot;
};

}

void TestPrefSnapshot::writesBackWhatItRead()
{
    Snapshot opened;
    opened.host.clearJournal();
    opened.read();
    QCOMPARE(opened.host.journal(),
             QStringList({R"(getPrefInt("info/RecTimeUnit", invalid))",
                          R"(getPrefBool("display/recordRateInsertDelimiter", invalid))"}));
    opened.change();
    opened.snapshot.writeBack(&opened.host);
    QCOMPARE(opened.host.journal(),
             QStringList({R"(setPrefInt("info/RecTimeUnit", 2))",
                          R"(setPrefBool("display/recordRateInsertDelimiter", true))"}));
    QCOMPARE(opened.host.settings().value(Unit, {}).toInt(), 2);
    QCOMPARE(opened.host.settings().value(Delimiter, {}).toBool(), true);
}

void TestPrefSnapshot::settingThatCannotBeReadIsNotWritten()
{
    Snapshot opened;
    opened.host.failOn(QStringLiteral("getPrefInt"));
    opened.read();
    QCOMPARE(opened.host.handledErrors().size(), 1);
    opened.change();
    opened.snapshot.writeBack(&opened.host);
    QCOMPARE(opened.host.journal(),
             QStringList({R"(setPrefBool("display/recordRateInsertDelimiter", true))"}));
}

void TestPrefSnapshot::failedWriteLeavesTheRest()
{
    Snapshot opened;
    opened.read();
    opened.change();
    opened.host.failOn(QStringLiteral("setPrefInt"));
    QVERIFY_EXCEPTION_THROWN(opened.snapshot.writeBack(&opened.host), std::exception);
    QCOMPARE(opened.host.journal(), QStringList({R"(setPrefInt("info/RecTimeUnit", 2))"}));
    QCOMPARE(opened.host.settings().value(Delimiter, {}).toBool(), false);
}

void TestPrefSnapshot::plainSettingIsWrittenBackAsItIsStored()
{
    const QString &size = Keys::saveInfo.fixedFontSizeRatioBaseResolution + "0";
    StandInHost host;
    host.settings().setValue(size, QSize(640, 480));
    PrefSnapshot snapshot;
    snapshot.read(&host, size, PrefSnapshot::Type::Plain);
    host.settings().setValue(size, QSize(-1, -1));
    snapshot.writeBack(&host);
    QCOMPARE(host.settings().value(size, {}), QVariant(QSize(640, 480)));
    const QString place = QStringLiteral("\"saveinfo/FixedFontSizeRatioBaseResolution0\", ");
    QCOMPARE(host.journal(),
             QStringList({"getPref(" + place + "invalid)", "setPref(" + place + "640x480)"}));
}

void TestPrefSnapshot::valueIsThatOfTheReading()
{
    Snapshot opened;
    opened.host.failOn(QStringLiteral("getPrefInt"));
    opened.read();
    opened.change();
    QVERIFY(!opened.snapshot.value(Unit)); // it could not be read
    QCOMPARE(opened.snapshot.value(Delimiter), std::optional<QVariant>(true));
    QCOMPARE(opened.host.journal(), QStringList());
}

QTEST_GUILESS_MAIN(TestPrefSnapshot)
#include "test_pref_snapshot.moc"
