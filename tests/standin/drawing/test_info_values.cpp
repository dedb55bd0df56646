#include "foundation/InfoItems.h"
#include "standin/drawing/InfoLines.h"
#include "standin/drawing/InfoValues.h"
#include "tests/support/TestLog.h"

class TestInfoValues : public TestBase
{
    Q_OBJECT

private slots:
    void valueOfEveryItem_data();
    void valueOfEveryItem();
    void nothingKnownIsNoValue();
    void unknownItemIsWhatTheDeviceTells();
    void countersFollowTheFrame();
    void livePictureHasNoFrames();
    void formatsAreObeyed();
    void endOfTheRecording_data();
    void endOfTheRecording();
    void recordingWithoutATime();
    void commentHasItsLines_data();
    void commentHasItsLines();
    void customItemsAreWrittenAsTheyAre();
    void timeCodeIsTheCodeOfTheDevice();
    void linesStandInTheirOrder();
    void blankLinesAreAChoice();
    void logoIsALineOfItsOwn();
    void textsBecomeOneLine();
    void noPictureHasRoomForMore();
};

namespace {

InfoFacts everything()
{
    InfoFacts facts;
    facts.cameraState = "LIVE";
    facts.cameraName = "Camera 1";
    facts.fileName = "crash";
    facts.deviceName = "S-1024";
    facts.headNumber = 2;
    facts.partitionNumber = 3;
    facts.recordRate = 2000;
    facts.shutterSpeed = 4000;
    facts.resolution = QSize(640, 480);
    facts.frame = 11;
    facts.frameCount = 5000;
    facts.time = QDateTime(QDate(2024, 2, 9), QTime(7, 8, 9));
    facts.recordDate = "2024/1/31";
    facts.recordTime = "23:59:59";
    facts.zoomRate = 0.5;
    facts.usesLut = true;
    facts.showsCrossCursor = true;
    facts.crossCursor = QPoint(12, 34);
    facts.comment = "first\nsecond";
    facts.customs = {{"Mass", "80", "kg"}, {"Engineer", "M", ""}};
    for (const InfoItem &item : infoItems)
        facts.readings.insert(item.key, "device: " + item.key);
    facts.readings.remove("IrigCode");
    return facts;
}

QVector<InfoItemList::Entry> entries(const QString &display, InfoItem::Target target)
{
    InfoItemList list;
    list.read(0, display);
    return list.entries(0, target);
}

InfoLines::Options options(bool blankLines = true, bool hasLogo = false)
{
    return {blankLines, hasLogo, [](const QString &id) { return "<" + id + ">"; }};
}

QStringList texts(const QVector<InfoLine> &lines)
{
    QStringList list;
    for (const InfoLine &line : lines)
        list.append(line.isLogo ? QStringLiteral("[logo]") : line.text);
    return list;
}

}

void TestInfoValues::valueOfEveryItem_data()
{
    QTest::addColumn<QStringList>("lines");
    QHash<QString, QStringList> computed{{"CameraState", {"LIVE"}},
                                         {"Camera name", {"Camera 1"}},
                                         {"File name", {"crash"}},
                                         {"Device", {"S-1024"}},
                                         {"Head", {"2"}},
                                         {"PartitionNumber", {"3"}},
                                         {"Date", {"2024/2/9"}},
                                         {"Time", {"07:08:09"}},
                                         {"RecDateTime", {"2024/1/31 23:59:59"}},
                                         {"FrameRate", {"2000 fps"}},
                                         {"ShutterSpeed", {"1/4000 sec"}},
                                         {"Resolution", {"640 x 480"}},
                                         {"FrameNumber", {"12"}},
                                         {"MaxFrames", {"5000"}},
                                         {"Length", {"2.5 sec"}},
                                         {"TimeIrigCode", {"+00:00:00.0055"}},
                                         {"TimeCode", {"+00:00:00.0055"}},
                                         {"IrigCode", {}},
                                         {"LUT", {"on"}},
                                         {"ZoomRate", {"50 %"}},
                                         {"CrossCursor", {"12, 34"}},
                                         {"Comment", {"first", "second"}},
                                         {"Custom", {"Mass: 80 kg", "Engineer: M"}},
                                         {"RecEndTime", {"2024/2/1 00:00:01"}}};
    const QStringList toldByTheDevice{
        "SyncSignalState", "ElapsedTime",       "RefreshRate",        "LiveSpeed",  "Trigger",
        "HWTriggerInfo",   "EventMarker",       "IgnoreTrigger",      "Saturation", "Logo",
        "OverSync",        "TriggerExposeTime", "Kelvault",           "CFast",      "FanStatus",
        "Battery",         "SimpleMeasurement", "AccelerationSensor", "LensInfo",   "IrigState"};
    for (const QString &id : toldByTheDevice)
        computed.insert(id, {"device: " + id});
    for (const InfoItem &item : infoItems) {
        if (item.key.isEmpty() || item.key == "<hr>")
            continue;
        QVERIFY2(computed.contains(item.key), qPrintable(item.key));
        QTest::newRow(qPrintable(item.key)) << computed.take(item.key);
    }
    QCOMPARE(computed.keys(), QStringList());
}

void TestInfoValues::valueOfEveryItem()
{
    QTEST(InfoValues().lines(QTest::currentDataTag(), everything()), "lines");
}

void TestInfoValues::nothingKnownIsNoValue()
{
    for (const InfoItem &item : infoItems)
        QCOMPARE(InfoValues().lines(item.key, InfoFacts()), QStringList());
}

void TestInfoValues::unknownItemIsWhatTheDeviceTells()
{
    InfoFacts facts;
    facts.readings.insert("Pressure", "5 bar");
    QCOMPARE(InfoValues().lines("Pressure", facts), QStringList({"5 bar"}));
    QCOMPARE(InfoValues().lines("pressure", facts), QStringList());
}

void TestInfoValues::countersFollowTheFrame()
{
    InfoFacts facts = everything();
    const QStringList counters{"FrameNumber", "TimeIrigCode", "TimeCode"};
    for (const QString &id : counters) {
        facts.frame = 11;
        const QStringList before = InfoValues().lines(id, facts);
        facts.frame = 12;
        QVERIFY2(InfoValues().lines(id, facts) != before, qPrintable(id));
    }
    QCOMPARE(InfoValues().lines("FrameNumber", facts), QStringList({"13"}));
    QCOMPARE(InfoValues().lines("TimeCode", facts), QStringList({"+00:00:00.006"}));
}

void TestInfoValues::livePictureHasNoFrames()
{
    InfoFacts facts = everything();
    facts.frameCount = 0;
    for (const char *id : {"FrameNumber", "MaxFrames", "Length", "RecEndTime"})
        QCOMPARE(InfoValues().lines(id, facts), QStringList());
    QCOMPARE(InfoValues().lines("TimeIrigCode", facts), QStringList({"+00:00:00.0055"}));
    facts.recordRate = 0;
    for (const char *id : {"FrameRate", "TimeIrigCode", "TimeCode"})
        QCOMPARE(InfoValues().lines(id, facts), QStringList());
}

void TestInfoValues::formatsAreObeyed()
{
    InfoValues values;
    values.formats.shutterSpeed = 1;
    values.formats.shutterSpeedUnit = 4;
    values.formats.shutterSpeedInsertDelimiter = true;
    values.formats.recordRateInsertDelimiter = true;
    values.formats.frameInsertDelimiter = true;
    values.formats.recTimeUnit = 4;
    values.timeCode.timeCodeIndex = 1;
    values.timeCode.oneFrame = 0.5;
    InfoFacts facts = everything();
    facts.frame = 1234;
    QCOMPARE(values.lines("ShutterSpeed", facts), QStringList({"250,000 nsec"}));
    QCOMPARE(values.lines("FrameRate", facts), QStringList({"2,000 fps"}));
    QCOMPARE(values.lines("FrameNumber", facts), QStringList({"1,235"}));
    QCOMPARE(values.lines("MaxFrames", facts), QStringList({"5,000"}));
    QCOMPARE(values.lines("Length", facts), QStringList({"00:00:02.500"}));
    QCOMPARE(values.lines("TimeCode", facts), QStringList({"+617.0000 deg"}));
    QCOMPARE(values.lines("TimeIrigCode", facts), QStringList({"+617.0000 deg"}));
}

void TestInfoValues::endOfTheRecording_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("time");
    QTest::addColumn<quint64>("frames");
    QTest::addColumn<QStringList>("lines");
    const QStringList none;
    QTest::newRow("minutes alone") << "2024/1/31"
                                   << "23:59" << quint64(4000) << QStringList("2024/1/31 23:59:02");
    QTest::newRow("parts of a second")
        << "2024/1/31"
        << "23:59:00" << quint64(3999) << QStringList("2024/1/31 23:59:01");
    QTest::newRow("no date") << ""
                             << "23:59:00" << quint64(4000) << none;
    QTest::newRow("no time") << "2024/1/31"
                             << "" << quint64(4000) << none;
    QTest::newRow("no such time") << "2024/1/31"
                                  << "25:00" << quint64(4000) << none;
}

void TestInfoValues::endOfTheRecording()
{
    QFETCH(QString, date);
    QFETCH(QString, time);
    QFETCH(quint64, frames);
    InfoFacts facts = everything();
    facts.recordDate = date;
    facts.recordTime = time;
    facts.frameCount = frames;
    QTEST(InfoValues().lines("RecEndTime", facts), "lines");
}

void TestInfoValues::recordingWithoutATime()
{
    InfoFacts facts = everything();
    facts.recordTime.clear();
    QCOMPARE(InfoValues().lines("RecDateTime", facts), QStringList({"2024/1/31"}));
}

void TestInfoValues::commentHasItsLines_data()
{
    QTest::addColumn<QString>("comment");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("one") << "a" << QStringList("a");
    QTest::newRow("separators") << "a{Separator}b{Separator}{Separator}c"
                                << QStringList({"a", "b", "", "c"});
    QTest::newRow("line breaks") << "a\r\nb\nc" << QStringList({"a", "b", "c"});
    QTest::newRow("blank end") << "a\n\n \n" << QStringList("a");
    QTest::newRow("blanks alone") << " \n " << QStringList();
}

void TestInfoValues::commentHasItsLines()
{
    QFETCH(QString, comment);
    InfoFacts facts;
    facts.comment = comment;
    QTEST(InfoValues().lines("Comment", facts), "lines");
}

void TestInfoValues::customItemsAreWrittenAsTheyAre()
{
    InfoFacts facts;
    facts.customs = {{"%1", "%2", "%3"}, {"", "", ""}, {"<b>", "&amp;", ""}};
    QCOMPARE(InfoValues().lines("Custom", facts), QStringList({"%1: %2 %3", ":", "<b>: &amp;"}));
}

void TestInfoValues::timeCodeIsTheCodeOfTheDevice()
{
    InfoFacts facts = everything();
    facts.readings.insert("IrigCode", "031:12:00:00");
    QCOMPARE(InfoValues().lines("TimeIrigCode", facts), QStringList({"031:12:00:00"}));
    QCOMPARE(InfoValues().lines("IrigCode", facts), QStringList({"031:12:00:00"}));
    QCOMPARE(InfoValues().lines("TimeCode", facts), QStringList({"+00:00:00.0055"}));
}

void TestInfoValues::linesStandInTheirOrder()
{
    const auto shown = entries("Resolution:true,<hr>,Camera name:true,FrameRate:false,Head:true,"
                               "Comment:true,Custom:true,IrigCode:true,FanStatus:true,x:true,y",
                               InfoItem::Memory);
    // The fan is told in live mode alone, and x is no item.
    QCOMPARE(texts(InfoLines::of(shown, InfoValues(), everything(), options())),
             QStringList({"<Resolution>: 640 x 480", "", "Camera 1", "<Head>: 2", "first", "second",
                          "Mass: 80 kg", "Engineer: M"}));
}

void TestInfoValues::blankLinesAreAChoice()
{
    const auto shown = entries("<hr>,Head:true,<hr>,<hr>,Device:false", InfoItem::SaveForm);
    QCOMPARE(texts(InfoLines::of(shown, InfoValues(), everything(), options(true))),
             QStringList({"", "<Head>: 2", "", ""}));
    QCOMPARE(texts(InfoLines::of(shown, InfoValues(), everything(), options(false))),
             QStringList({"<Head>: 2"}));
}

void TestInfoValues::logoIsALineOfItsOwn()
{
    const auto shown = entries("Logo:true,Head:true", InfoItem::Live);
    QCOMPARE(texts(InfoLines::of(shown, InfoValues(), everything(), options(true, true))),
             QStringList({"[logo]", "<Head>: 2"}));
    QCOMPARE(texts(InfoLines::of(shown, InfoValues(), everything(), options(true, false))),
             QStringList({"<Head>: 2"}));
    QCOMPARE(texts(InfoLines::of(entries("Logo:false", InfoItem::Live), InfoValues(), everything(),
                                 options(true, true))),
             QStringList());
}

void TestInfoValues::textsBecomeOneLine()
{
    InfoFacts facts;
    facts.cameraName = QString("a\nb\tc") + QChar(QChar::LineSeparator) + QString("d");
    const auto shown = entries("Camera name:true", InfoItem::Live);
    QCOMPARE(texts(InfoLines::of(shown, InfoValues(), facts, options())), QStringList("a b c d"));

    // Cut between two characters, not through one.
    facts.cameraName =
        QString(InfoLines::MostCharacters - 1, 'x') + QString::fromUcs4(U"\U0001F3A5");
    QCOMPARE(texts(InfoLines::of(shown, InfoValues(), facts, options())),
             QStringList(QString(InfoLines::MostCharacters - 1, 'x')));
}

void TestInfoValues::noPictureHasRoomForMore()
{
    InfoFacts facts;
    facts.comment = QString("x\n").repeated(100000);
    const auto shown = entries("Comment:true,<hr>", InfoItem::Live);
    QCOMPARE(InfoLines::of(shown, InfoValues(), facts, options()).size(), InfoLines::MostLines);
}

int main(int argc, char *argv[])
{
    TestInfoValues test;
    return runTest(argc, argv, test);
}

#include "test_info_values.moc"
