#include "save/dialog/JS_Mediator_FileDialog.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <limits>

// Skipped frames of a save page: what is stored, what comes back, and the range that is offered.

class TestFileDialogSkip : public TestBase
{
    Q_OBJECT

private slots:
    void settingsFollowThePage_data();
    void settingsFollowThePage();
    void framesAreStoredWhole_data();
    void framesAreStoredWhole();
    void millisecondsWithoutARateAreStoredAlone();
    void millisecondsComeBackWithoutARate();
    void millisecondsFollowTheRate_data();
    void millisecondsFollowTheRate();
    void framesComeBackAsMilliseconds_data();
    void framesComeBackAsMilliseconds();
    void firstOfTwoNearestWins();
    void rangeIsWorkedOut();
    void rangeTakesNumbersAsTheyCome();
    void documentWithoutAKeyIsLeftOut();
    void valueIsMovedIntoTheRange_data();
    void valueIsMovedIntoTheRange();
    void modeFallsBackWithoutRates();
    void unreadSettingIsNotReplaced_data();
    void unreadSettingIsNotReplaced();
    void failuresGiveNeutralValues();
    void noPartitionsNoRange();
};

namespace {

struct Scene
{
    explicit Scene(const QString &name = QStringLiteral("filesavedialog")) : page(&host, name)
    {
        host.setMode(StandInHost::Mode::Memory);
        host.clearJournal();
    }

    // A camera with a partition of each count, all at one rate.
    void addCamera(const QList<uint> &frames, uint rate)
    {
        StandInCamera *camera = host.addCamera();
        QList<StandInPartition> partitions;
        for (uint count : frames)
            partitions.append({partitions.size() + 1, QString(), count, rate});
        camera->state().partitions = partitions;
    }

    QVariant setting(const QString &key) { return host.settings().value(key, QVariant()); }

    StandInHost host;
    JS_Mediator_FileDialog page;
};

// A page in milliseconds with 100 frames at 500 a second: 2.0, 4.0, ... 200.0.
struct TimedScene : Scene
{
    explicit TimedScene(uint rate = 500)
    {
        host.settings().setValue("export/skipunit", 1);
        addCamera({100}, rate);
        page.refreshSkipFrame({{"1", QVariantList({1})}});
        host.clearJournal();
    }
};

}

void TestFileDialogSkip::settingsFollowThePage_data()
{
    QTest::addColumn<QString>("family");
    QTest::newRow("layoutsavedialog") << "layout";
    QTest::newRow("reportExportDialog") << "report";
    for (const char *page : {"filesavedialog", "batchconverter", "snapshotdialog", ""})
        QTest::newRow(page) << "export";
}

void TestFileDialogSkip::settingsFollowThePage()
{
    QFETCH(QString, family);
    Scene scene(QString::fromLatin1(QTest::currentDataTag()));
    scene.page.setSkipMode(1);
    QCOMPARE(scene.page.getSkipMode(), 1);
    scene.page.setSkipFrames(2.5);
    QCOMPARE(scene.page.getSkipFrames(), 2.5);
    scene.page.setSkipMode(0);
    scene.page.setSkipFrames(7);
    QCOMPARE(scene.page.getSkipFrames(), 7.0);
    const QString read = "getPrefInt(\"" + family + "/skipunit\", invalid)";
    const QString frames = "getPrefInt(\"" + family + "/skipsaveframe\", invalid)";
    QCOMPARE(scene.host.journal(),
             QStringList({"setPrefInt(\"" + family + "/skipunit\", 1)", read, read,
                          "setPrefFloat(\"" + family + "/skipsavemsec\", 2.5)", frames, read,
                          "getPrefFloat(\"" + family + "/skipsavemsec\", invalid)",
                          "setPrefInt(\"" + family + "/skipunit\", 0)", read,
                          "setPrefInt(\"" + family + "/skipsaveframe\", 7)", frames, read}));
}

void TestFileDialogSkip::framesAreStoredWhole_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("stored");
    QTest::newRow("whole") << 12.0 << 12;
    QTest::newRow("with a fraction") << 2.9 << 2;
    QTest::newRow("negative") << -2.9 << -2;
    QTest::newRow("too large") << 1e12 << std::numeric_limits<int>::max();
    QTest::newRow("too small") << -1e12 << std::numeric_limits<int>::min();
    QTest::newRow("endless") << std::numeric_limits<double>::infinity()
                             << std::numeric_limits<int>::max();
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << 0;
}

void TestFileDialogSkip::framesAreStoredWhole()
{
    QFETCH(double, value);
    Scene scene;
    scene.page.setSkipFrames(value);
    QTEST(scene.setting("export/skipsaveframe").toInt(), "stored");
    QCOMPARE(scene.setting("export/skipsavemsec").toDouble(), 1.0); // as it was
}

void TestFileDialogSkip::millisecondsWithoutARateAreStoredAlone()
{
    Scene scene;
    scene.host.settings().setValue("export/skipunit", 1);
    scene.host.settings().setValue("export/skipsaveframe", 9);
    scene.page.setSkipFrames(2.345678);
    QCOMPARE(scene.setting("export/skipsavemsec").toDouble(), 2.345678);
    QCOMPARE(scene.setting("export/skipsaveframe").toInt(), 9);
    QCOMPARE(scene.host.commands(), QStringList("setPrefFloat(\"export/skipsavemsec\", 2.345678)"));
}

void TestFileDialogSkip::millisecondsComeBackWithoutARate()
{
    Scene scene;
    scene.host.settings().setValue("export/skipunit", 1);
    scene.host.settings().setValue("export/skipsaveframe", 9);
    scene.host.settings().setValue("export/skipsavemsec", 3.5);
    QCOMPARE(scene.page.getSkipFrames(), 3.5);
}

void TestFileDialogSkip::millisecondsFollowTheRate_data()
{
    QTest::addColumn<uint>("rate");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("msec");
    QTest::addColumn<int>("frames");
    QTest::newRow("a value of the list") << 500u << 8.0 << 8.0 << 4;
    QTest::newRow("between two") << 500u << 8.9 << 8.0 << 4;
    QTest::newRow("nearer to the next") << 500u << 9.1 << 10.0 << 5;
    QTest::newRow("below all") << 500u << 0.0 << 2.0 << 1;
    QTest::newRow("above all") << 500u << 1e9 << 200.0 << 100;
    QTest::newRow("frame time with decimals") << 3000u << 1.0 << 0.9999 << 3;
}

// First the milliseconds, then the frames.
void TestFileDialogSkip::millisecondsFollowTheRate()
{
    QFETCH(uint, rate);
    QFETCH(double, value);
    QFETCH(double, msec);
    QFETCH(int, frames);
    TimedScene scene(rate);
    scene.page.setSkipFrames(value);
    QCOMPARE(scene.setting("export/skipsavemsec").toDouble(), msec);
    QCOMPARE(scene.setting("export/skipsaveframe").toInt(), frames);
    const QStringList written = scene.host.commands();
    QCOMPARE(written.size(), 2);
    QVERIFY(written.at(0).startsWith("setPrefFloat(\"export/skipsavemsec\", "));
    QVERIFY(written.at(1).startsWith("setPrefInt(\"export/skipsaveframe\", "));
}

void TestFileDialogSkip::framesComeBackAsMilliseconds_data()
{
    QTest::addColumn<int>("frames");
    QTest::addColumn<double>("value");
    QTest::newRow("one") << 1 << 2.0;
    QTest::newRow("five") << 5 << 10.0;
    QTest::newRow("none") << 0 << 2.0;
    QTest::newRow("more than there are") << 1000 << 200.0;
}

void TestFileDialogSkip::framesComeBackAsMilliseconds()
{
    QFETCH(int, frames);
    TimedScene scene;
    scene.host.settings().setValue("export/skipsaveframe", frames);
    scene.host.settings().setValue("export/skipsavemsec", 77.0);
    QTEST(scene.page.getSkipFrames(), "value");
}

// 5.0 lies between 4.0 and 6.0.
void TestFileDialogSkip::firstOfTwoNearestWins()
{
    TimedScene scene;
    scene.page.setSkipFrames(5.0);
    QCOMPARE(scene.setting("export/skipsavemsec").toDouble(), 4.0);
    QCOMPARE(scene.setting("export/skipsaveframe").toInt(), 2);
}

void TestFileDialogSkip::rangeIsWorkedOut()
{
    Scene scene;
    scene.addCamera({30, 20, 0}, 1000);
    scene.addCamera({25}, 1000);
    scene.page.refreshSkipFrame({{"1", QVariantList({1, 2, 3})}});
    QCOMPARE(
        scene.host.journal(),
        QStringList({"deviceByKey(1, true)", "getPrefInt(\"export/skipunit\", invalid)",
                     "[1].partitionFrameCount(1)", "[1].partitionFrameCount(2)",
                     "[1].partitionFrameCount(3)", "getPrefInt(\"export/skipsaveframe\", invalid)",
                     "getPrefInt(\"export/skipunit\", invalid)"}));
    QCOMPARE(scene.page.getSkipMinFrames(), 1.0);
    QCOMPARE(scene.page.getSkipMaxFrames(), 20.0);
    scene.page.refreshSkipFrame({{"1", QVariantList({1})}, {"2", QVariantList({1})}});
    QCOMPARE(scene.page.getSkipMaxFrames(), 25.0);
}

// Pages send numbers or texts.
void TestFileDialogSkip::rangeTakesNumbersAsTheyCome()
{
    Scene scene;
    scene.addCamera({30, 20}, 1000);
    scene.page.refreshSkipFrame({{"1", QVariantList({1.0, QStringLiteral("2")})}});
    QCOMPARE(scene.page.getSkipMaxFrames(), 20.0);
}

void TestFileDialogSkip::documentWithoutAKeyIsLeftOut()
{
    Scene scene;
    scene.addCamera({30}, 1000);
    scene.page.refreshSkipFrame({{"1", QVariantList({1})}, {"9", QVariantList({1})}});
    QCOMPARE(scene.page.getSkipMaxFrames(), 30.0);
    scene.host.clearJournal();
    scene.page.refreshSkipFrame({{"9", QVariantList({1})}, {"x", QVariantList({1})}});
    QCOMPARE(scene.host.journal(), QStringList({"deviceByKey(9, true)", "deviceByKey(0, true)"}));
    QCOMPARE(scene.page.getSkipMaxFrames(), 30.0);
}

void TestFileDialogSkip::valueIsMovedIntoTheRange_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::newRow("inside") << 7 << 7;
    QTest::newRow("below") << 0 << 1;
    QTest::newRow("above") << 31 << 30;
}

void TestFileDialogSkip::valueIsMovedIntoTheRange()
{
    QFETCH(int, before);
    QFETCH(int, after);
    Scene scene;
    scene.addCamera({30}, 1000);
    scene.host.settings().setValue("export/skipsaveframe", before);
    scene.page.refreshSkipFrame({{"1", QVariantList({1})}});
    QCOMPARE(scene.setting("export/skipsaveframe").toInt(), after);
    QCOMPARE(scene.host.commands().size(), before == after ? 0 : 1);
}

void TestFileDialogSkip::modeFallsBackWithoutRates()
{
    Scene scene;
    scene.addCamera({30}, 0);
    scene.host.settings().setValue("export/skipunit", 1);
    scene.page.refreshSkipFrame({{"1", QVariantList({1})}});
    QCOMPARE(scene.page.getSkipMode(), 0);
    QCOMPARE(scene.host.commands(), QStringList("setPrefInt(\"export/skipunit\", 0)"));
    QCOMPARE(scene.page.getSkipMaxFrames(), 30.0);
}

void TestFileDialogSkip::unreadSettingIsNotReplaced_data()
{
    QTest::addColumn<int>("nth"); // of the reads of whole numbers
    QTest::newRow("mode, for the range") << 1;
    QTest::newRow("frames") << 2;
    QTest::newRow("mode, for the frames") << 3;
}

void TestFileDialogSkip::unreadSettingIsNotReplaced()
{
    QFETCH(int, nth);
    Scene scene;
    scene.addCamera({30}, 1000);
    scene.host.settings().setValue("export/skipsaveframe", 500);
    scene.host.failOn("getPrefInt", nth);
    scene.page.refreshSkipFrame({{"1", QVariantList({1})}});
    QCOMPARE(scene.host.handledErrors(), QStringList("getPrefInt failed"));
    QCOMPARE(scene.host.commands().filter("setPref"), QStringList());
    scene.host.clearFaults();
    scene.page.refreshSkipFrame({{"1", QVariantList({1})}});
    QCOMPARE(scene.setting("export/skipsaveframe").toInt(), 30);
}

void TestFileDialogSkip::failuresGiveNeutralValues()
{
    Scene scene;
    scene.host.settings().setValue("export/skipunit", 1);
    scene.host.settings().setValue("export/skipsaveframe", 5);
    scene.host.failOn("getPrefInt", 1);
    QCOMPARE(scene.page.getSkipMode(), 0);
    scene.host.failOn("getPrefInt", 1);
    QCOMPARE(scene.page.getSkipFrames(), 0.0);
    scene.host.failOn("getPrefInt", 1);
    scene.page.setSkipFrames(9.0);
    QCOMPARE(scene.setting("export/skipsaveframe").toInt(), 5);
    QCOMPARE(scene.setting("export/skipsavemsec").toDouble(), 1.0);
    QCOMPARE(scene.host.handledErrors().size(), 3);
}

void TestFileDialogSkip::noPartitionsNoRange()
{
    Scene scene;
    scene.addCamera({}, 0);
    scene.page.refreshSkipFrame({});
    QCOMPARE(scene.host.journal(), QStringList());
    scene.page.refreshSkipFrame({{"1", QVariant()}});
    QCOMPARE(scene.page.getSkipMaxFrames(), 4294967295.0);
    QCOMPARE(scene.host.commands(), QStringList());
}

int main(int argc, char *argv[])
{
    TestFileDialogSkip test;
    return runTest(argc, argv, test);
}

#include "test_file_dialog_skip.moc"
