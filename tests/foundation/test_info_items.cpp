#include "foundation/InfoItems.h"
#include "tests/support/TestLog.h"

namespace {

struct Row
{
    const char *key;
    bool defaultShown;
    const char *label;
    const char *shortLabel;
    bool live;
    bool memory;
    bool file;
    bool saveForm;
};

const QString earlyItem = infoItems.front().key;

}

Q_DECLARE_METATYPE(Row)

class TestInfoItems : public TestBase
{
    Q_OBJECT

private slots:
    void standInDisplayOrder_data();
    void standInDisplayOrder();
    void endAtTheEmptyKey();
    void separatorsNeverHaveAValue();
    void areThereBeforeTheyAreUsed();
    void ownTheirMemory();
};

void TestInfoItems::standInDisplayOrder_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<Row>("expected");

    int place = 0;
    const auto row = [&](const char *key, bool shown, const char *label, const char *shortLabel,
                         bool live, bool memory, bool file, bool saveForm) {
        const QString name = QString("%1 %2").arg(place).arg(QLatin1String(key));
        QTest::newRow(qPrintable(name))
            << place << Row{key, shown, label, shortLabel, live, memory, file, saveForm};
        ++place;
    };
    row("SyncSignalState", 1, "Sync signal input state", "SyncSignalState", 1, 0, 0, 0);
    row("CameraState", 1, "State of the camera", "CameraState", 1, 0, 0, 0);
    row("ElapsedTime", 1, "Elapsed time", "ElapsedTime", 1, 0, 0, 0);
    row("<hr>", 0, "", "", 1, 0, 0, 0);
    row("Camera name", 1, "Camera name", "", 1, 1, 0, 1);
    row("File name", 1, "File name", "", 0, 0, 0, 1);
    row("<hr>", 0, "", "", 1, 0, 0, 0);
    row("Device", 1, "Device name", "", 0, 0, 1, 1);
    row("Head", 1, "Head number", "", 1, 1, 0, 1);
    row("PartitionNumber", 1, "Partition number", "", 1, 1, 0, 1);
    row("<hr>", 0, "", "", 1, 0, 0, 0);
    row("Date", 0, "Date", "Date", 0, 0, 0, 1);
    row("Time", 0, "Time", "Time(Alt)", 0, 0, 0, 1);
    row("RecDateTime", 0, "Recording date and time", "Date/Time Rec", 0, 0, 1, 1);
    row("<hr>", 0, "", "", 1, 0, 0, 0);
    row("RefreshRate", 0, "Refresh rate", "Refresh rate", 1, 0, 0, 0);
    row("FrameRate", 1, "Frame rate", "Frame rate", 1, 1, 1, 1);
    row("ShutterSpeed", 1, "Shutter speed", "Shutter speed", 1, 1, 1, 1);
    row("Resolution", 1, "Resolution", "Resolution", 1, 1, 1, 1);
    row("LiveSpeed", 1, "Live speed", "Live speed", 1, 0, 0, 0);
    row("<hr>", 0, "", "", 1, 0, 0, 0);
    row("FrameNumber", 1, "Frame number", "Frame No", 0, 1, 1, 1);
    row("MaxFrames", 1, "Maximum of frames", "Frame Count", 1, 1, 1, 0);
    row("Length", 1, "Length of Time", "Rec Time", 1, 1, 1, 0);
    row("TimeIrigCode", 1, "Time code/IRIG code", "Current Time", 1, 1, 1, 0);
    row("TimeCode", 1, "Current time", "Current Time", 0, 0, 0, 1);
    row("IrigCode", 0, "IRIG code", "IRIG Time", 0, 0, 0, 1);
    row("<hr>", 0, "", "", 1, 0, 0, 0);
    row("Trigger", 1, "Trigger", "Trigger mode", 1, 1, 1, 1);
    row("HWTriggerInfo", 1, "H/W Image Trigger Info", "H/W ImageTrg", 1, 0, 0, 0);
    row("EventMarker", 1, "Event Marker", "Event", 0, 1, 1, 1);
    row("IgnoreTrigger", 0, "Number of Ignore Trigger", "Ignore Trg", 1, 1, 1, 0);
    row("<hr>", 0, "", "", 1, 0, 0, 0);
    row("LUT", 1, "LUT", "", 1, 1, 1, 0);
    row("Saturation", 1, "Saturation", "Saturation", 1, 1, 1, 0);
    row("<hr>", 0, "", "", 0, 0, 0, 0);
    row("ZoomRate", 1, "Zoom rate", "Zoom rate", 1, 1, 1, 0);
    row("CrossCursor", 1, "Cross cursor", "", 1, 1, 1, 0);
    row("<hr>", 0, "", "", 0, 0, 0, 0);
    row("Comment", 1, "Comment", "Comment", 1, 1, 1, 1);
    row("Logo", 0, "Logo", "Logo", 1, 1, 1, 1);
    row("Custom", 0, "Custom", "", 1, 1, 1, 1);
    row("<hr>", 0, "", "", 0, 0, 0, 0);
    row("OverSync", 0, "Over Sync occurred or not", "", 1, 1, 0, 0);
    row("TriggerExposeTime", 0, "Trigger and Exposure Gap time", "TRG-EXP", 0, 1, 1, 1);
    row("Kelvault", 0, "Available Kelvault space", "Kelvault Free Space", 1, 0, 0, 0);
    row("CFast", 0, "Available CFast space", "CFast Free Space", 1, 0, 0, 0);
    row("FanStatus", 1, "Fan Status", "Fan", 1, 0, 0, 0);
    row("SimpleMeasurement", 1, "Simple measurement result", "Simple measurement result", 1, 1, 1,
        1);
    row("Battery", 1, "Battery info", "Battery", 1, 0, 0, 0);
    row("AccelerationSensor", 0, "Acceleration Sensor", "Acceleration Sensor", 1, 0, 0, 0);
    row("LensInfo", 1, "Lens Info", "Lens", 1, 0, 0, 0);
    row("IrigState", 1, "IRIG State", "", 1, 0, 0, 0);
    row("RecEndTime", 0, "Rec end time", "Rec end time", 0, 1, 1, 1);
    row("", 1, "", "", 1, 1, 0, 1);
    QCOMPARE(place, 55);
}

void TestInfoItems::standInDisplayOrder()
{
    QFETCH(int, place);
    QFETCH(Row, expected);
    const InfoItem &item = infoItems[size_t(place)];
    QCOMPARE(item.key, QString(expected.key));
    QCOMPARE(item.defaultShown, expected.defaultShown);
    QCOMPARE(item.label, QString(expected.label));
    QCOMPARE(item.shortLabel, QString(expected.shortLabel));
    QCOMPARE(item.usable[InfoItem::Live], expected.live);
    QCOMPARE(item.usable[InfoItem::Memory], expected.memory);
    QCOMPARE(item.usable[InfoItem::File], expected.file);
    QCOMPARE(item.usable[InfoItem::SaveForm], expected.saveForm);
    QCOMPARE(item.usable[0], expected.live);
    QCOMPARE(item.usable[3], expected.saveForm);
}

void TestInfoItems::endAtTheEmptyKey()
{
    int rows = 0;
    for (const InfoItem *item = infoItems.data(); !item->key.isEmpty(); ++item)
        ++rows;
    QCOMPARE(rows, 54);
    QCOMPARE(int(infoItems.size()), 55);
}

void TestInfoItems::separatorsNeverHaveAValue()
{
    int separators = 0;
    for (const InfoItem &item : infoItems) {
        if (item.key != QLatin1String("<hr>"))
            continue;
        ++separators;
        QVERIFY(item.label.isEmpty());
        QVERIFY(item.shortLabel.isEmpty());
        QVERIFY(!item.defaultShown);
    }
    QCOMPARE(separators, 10);
}

void TestInfoItems::areThereBeforeTheyAreUsed()
{
    QCOMPARE(earlyItem, QString("SyncSignalState"));
}

void TestInfoItems::ownTheirMemory()
{
    for (const InfoItem &item : infoItems) {
        for (QString text : {item.key, item.label, item.shortLabel}) {
            if (!text.isEmpty())
                QVERIFY2(!text.data_ptr()->ref.isStatic(), qPrintable(text));
        }
    }
}

int main(int argc, char **argv)
{
    TestInfoItems test;
    return runTest(argc, argv, test);
}

#include "test_info_items.moc"
