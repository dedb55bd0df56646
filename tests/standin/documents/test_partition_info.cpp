#include "standin/answers/PartitionInfo.h"
#include "standin/drawing/InfoValues.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QTemporaryDir>

using Mode = StandInHost::Mode;

// What lists of targets tell of the partitions of a document.
class TestPartitionInfo : public TestBase
{
    Q_OBJECT

private slots:
    void savedFrames_data();
    void savedFrames();
    void bytesOfWhatIsSaved_data();
    void bytesOfWhatIsSaved();
    void hugeCountsStayWhatTheyAre();
    void whatIsNotThereIsLeftOut();

    void rowOfACamera();
    void rowOfARecording();
    void rowOfDataOnAMedium();
    void dataNameGoesBeforeTheDocuments();
    void oneRowForEachPartition();
    void documentWithoutPartitions();
    void textsFollowTheDisplayFormats();
    void liveCameraTellsWhatItRecords();
    void skippedFramesAreNotSaved();
    void selectedDocument();
    void customItemsWithAFixedName();
    void renamedCustomItemIsToldAtOnce();
    void fieldGoesBeforeWhatThereIs();
};

namespace {

QVariantList rowsOf(DOC_Interface *document, bool layout = false)
{
    const QVariantMap map = document->documentInfoMap(true, false, false, layout, true);
    if (map.keys() != QStringList("partitions"))
        return {"more than the partitions"};
    return map.value("partitions").toList();
}

QVariantMap rowOf(DOC_Interface *document, int partition = 1)
{
    return rowsOf(document).value(partition - 1).toMap();
}

StandInCamera::Description recorded()
{
    StandInCamera::Description description;
    description.name = "left";
    description.partitions = {{1, "A", 100, 500}, {2, "B", 0, 0}, {3, "C", 2000, 1000}};
    return description;
}

StandInRecording *openPictures(StandInHost &host, const QTemporaryDir &folder)
{
    QImage image(32, 24, QImage::Format_RGB32);
    image.fill(Qt::gray);
    for (const QString name : {"shot_1.png", "shot_2.png", "shot_3.png"}) {
        if (!image.save(folder.filePath(name)))
            return nullptr;
    }
    return host.openRecording(folder.path());
}

}

void TestPartitionInfo::savedFrames_data()
{
    QTest::addColumn<uint>("frames");
    QTest::addColumn<int>("skip");
    QTest::addColumn<quint64>("saved");
    QTest::newRow("all") << 100u << 1 << quint64(100);
    QTest::newRow("every third, the first among them") << 100u << 3 << quint64(34);
    QTest::newRow("every hundredth") << 100u << 100 << quint64(1);
    QTest::newRow("one more") << 101u << 100 << quint64(2);
    QTest::newRow("fewer than one step") << 2u << 1000 << quint64(1);
    QTest::newRow("none") << 0u << 3 << quint64(0);
    QTest::newRow("no step") << 7u << 0 << quint64(7);
    QTest::newRow("below zero") << 7u << -3 << quint64(7);
    QTest::newRow("as many as there can be") << 4294967295u << 2147483647 << quint64(3);
}

void TestPartitionInfo::savedFrames()
{
    QFETCH(uint, frames);
    QFETCH(int, skip);
    PartitionInfo info;
    info.frames = frames;
    info.skip = skip;
    QTEST(info.savedFrames(), "saved");
}

void TestPartitionInfo::bytesOfWhatIsSaved_data()
{
    QTest::addColumn<int>("bits");
    QTest::addColumn<QString>("bytes");
    QTest::addColumn<QString>("label");
    // 50 pictures of 640 x 480.
    QTest::newRow("8 bits") << 8 << "15360000"
                            << "14.65MB";
    QTest::newRow("12 bits take two bytes") << 12 << "30720000"
                                            << "29.30MB";
    QTest::newRow("16 bits") << 16 << "30720000"
                             << "29.30MB";
    QTest::newRow("not known") << 0 << "0"
                               << "0.00KB";
    QTest::newRow("below zero") << -8 << "0"
                                << "0.00KB";
}

void TestPartitionInfo::bytesOfWhatIsSaved()
{
    QFETCH(int, bits);
    PartitionInfo info;
    info.frames = 99;
    info.skip = 2;
    info.bits = bits;
    info.facts.resolution = QSize(640, 480);
    const QVariantMap row = info.row(InfoValues());
    QTEST(row.value("capacity").toString(), "bytes");
    QTEST(row.value("capacitylabel").toString(), "label");
}

void TestPartitionInfo::hugeCountsStayWhatTheyAre()
{
    PartitionInfo info;
    info.frames = 4294967295u;
    info.facts.resolution = QSize(1, 1);
    const QVariantMap row = info.row(InfoValues());
    QCOMPARE(row.value("totalframes"), QVariant("4294967295"));
    QCOMPARE(row.value("totalframesplain"), QVariant(2147483647));
    QCOMPARE(row.value("capacity"), QVariant("4294967295"));
    QCOMPARE(row.value("capacitylabel"), QVariant("4.00GB"));
}

void TestPartitionInfo::whatIsNotThereIsLeftOut()
{
    PartitionInfo info;
    info.docKey = 7;
    const QVariantMap expected{{"dockey", "7"},           {"selected", "false"},
                               {"currentpartition", "1"}, {"totalframes", "0"},
                               {"totalframesplain", 0},   {"exportframes", "0"},
                               {"capacity", "0"},         {"capacitylabel", "0.00KB"}};
    QCOMPARE(info.row(InfoValues()), expected);
}

void TestPartitionInfo::rowOfACamera()
{
    StandInHost host;
    StandInCamera::Description description = recorded();
    description.address = "10.0.0.7";
    description.comment = "wet road";
    description.shutterSpeed = 2000;
    description.customInfo = {QVariantMap{{"name", "TestNo"}, {"value", "T7"}, {"unit", "x"}}};
    StandInCamera *camera = host.addCamera(description);
    camera->state().slotOfHead = {{1, 1}};
    camera->state().recordDate = "2024/2/3";
    camera->state().recordTime = "04:05";
    camera->state().currentPartition = 3;
    host.setMode(Mode::Memory);
    const QVariantMap expected{{"dockey", "1"},
                               {"selected", "true"},
                               {"slotno", "2"},
                               {"devicename", "S-1024"},
                               {"cameraname", "left"},
                               {"ipaddress", "10.0.0.7"},
                               {"date", "2024/2/3"},
                               {"time", "04:05"},
                               {"shutterspeed", "1/2000 sec"},
                               {"recordrate", "500 fps"},
                               {"currentpartition", "3"},
                               {"totalframes", "100"},
                               {"totalframesplain", 100},
                               {"exportframes", "100"},
                               {"resolution", "640 x 480"},
                               {"capacity", "30720000"},
                               {"capacitylabel", "29.30MB"},
                               {"Comments", "wet road"},
                               {"Custom_TestNo", "T7"}};
    QCOMPARE(rowOf(camera), expected);
}

void TestPartitionInfo::rowOfARecording()
{
    QTemporaryDir parent;
    StandInHost host;
    host.setMode(Mode::File);
    StandInRecording *recording = openPictures(host, parent);
    QVERIFY(recording);
    recording->state().fileRecordRate = 250;
    recording->state().recordDate = "2024/2/3";
    recording->state().recordTime = "04:05:06";
    // 3 pictures of 32 x 24.
    const QVariantMap expected{
        {"dockey", "1"},           {"selected", "true"},
        {"filename", "shot_1"},    {"filepath", parent.filePath("shot_1.png")},
        {"date", "2024/2/3"},      {"time", "04:05:06"},
        {"recordrate", "250 fps"}, {"currentpartition", "1"},
        {"totalframes", "3"},      {"totalframesplain", 3},
        {"exportframes", "3"},     {"resolution", "32 x 24"},
        {"capacity", "2304"},      {"capacitylabel", "2.25KB"}};
    QCOMPARE(rowOf(recording), expected);
}

void TestPartitionInfo::rowOfDataOnAMedium()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera(recorded());
    DocumentState &state = camera->state();
    state.documentName = "crash";
    state.driveName = "E:";
    state.dataSerialNumber = "4711";
    state.dataNumber = "12";
    const QStringList keys{"name", "drivename", "serialno", "datano"};
    const auto told = [&] {
        QStringList values;
        const QVariantMap row = rowOf(camera);
        for (const QString &key : keys)
            values.append(row.contains(key) ? row.value(key).toString() : QString("-"));
        return values;
    };
    const QStringList all{"crash", "E:", "4711", "12"};
    const QStringList none{"-", "-", "-", "-"};
    QCOMPARE(told(), none);
    for (bool DocumentState::*medium :
         {&DocumentState::isOnSdCard, &DocumentState::isOnKelvault, &DocumentState::isOnCFast}) {
        state.*medium = true;
        QCOMPARE(told(), all);
        state.*medium = false;
    }
    QCOMPARE(told(), none);
}

void TestPartitionInfo::dataNameGoesBeforeTheDocuments()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera(recorded());
    camera->state().isOnSdCard = true;
    QCOMPARE(rowOf(camera).value("name"), QVariant("left"));
    camera->setDataName("crash 2");
    QCOMPARE(rowOf(camera).value("name"), QVariant("crash 2"));
}

void TestPartitionInfo::oneRowForEachPartition()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera(recorded());
    host.setMode(Mode::Memory);
    QStringList rows;
    for (const QVariant &entry : rowsOf(camera)) {
        const QVariantMap row = entry.toMap();
        rows.append(row.value("totalframesplain").toString() + " " +
                    row.value("recordrate").toString());
    }
    // An empty partition has the rate that the camera is set to.
    QCOMPARE(rows, QStringList({"100 500 fps", "0 1000 fps", "2000 1000 fps"}));
}

void TestPartitionInfo::documentWithoutPartitions()
{
    StandInHost host;
    StandInCamera::Description description;
    description.partitions = {};
    QCOMPARE(rowsOf(host.addCamera(description)), QVariantList());
    QCOMPARE(rowsOf(host.addGroup("both", {})), QVariantList());
    host.answerEmptyOn("documentInfoMap");
    QCOMPARE(host.addCamera()->documentInfoMap(true, false, false, false, true), QVariantMap());
}

void TestPartitionInfo::textsFollowTheDisplayFormats()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera(recorded());
    host.setMode(Mode::Memory);
    for (const char *key : {"display/frameInsertDelimiter", "display/recordRateInsertDelimiter"})
        QVERIFY(host.settings().setValue(key, true));
    QVERIFY(host.settings().setValue("display/ShutterSpeed", 1));
    const QVariantMap row = rowOf(camera, 3);
    QCOMPARE(row.value("totalframes"), QVariant("2,000"));
    QCOMPARE(row.value("exportframes"), QVariant("2,000"));
    QCOMPARE(row.value("totalframesplain"), QVariant(2000));
    QCOMPARE(row.value("recordrate"), QVariant("1,000 fps"));
    QCOMPARE(row.value("shutterspeed"), QVariant("1 msec"));
}

void TestPartitionInfo::liveCameraTellsWhatItRecords()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera(recorded());
    camera->setRecordRate(2000);
    const QVariantMap row = rowOf(camera);
    QCOMPARE(row.value("recordrate"), QVariant("2000 fps"));
    QCOMPARE(row.value("totalframesplain"), QVariant(100));
}

void TestPartitionInfo::skippedFramesAreNotSaved()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera(recorded());
    QVERIFY(host.settings().setValue("export/skipsaveframe", 3));
    QVERIFY(host.settings().setValue("layout/skipsaveframe", 10));
    const QVariantMap row = rowsOf(camera).first().toMap();
    QCOMPARE(row.value("exportframes"), QVariant("34"));
    QCOMPARE(row.value("totalframes"), QVariant("100"));
    QCOMPARE(row.value("capacity"), QVariant(QString::number(34 * 640 * 480)));
    const QVariantMap layout = rowsOf(camera, true).first().toMap();
    QCOMPARE(layout.value("exportframes"), QVariant("10"));
}

void TestPartitionInfo::selectedDocument()
{
    StandInHost host;
    StandInCamera *first = host.addCamera(recorded());
    StandInCamera *second = host.addCamera(recorded());
    QCOMPARE(rowOf(first).value("selected"), QVariant("true"));
    QCOMPARE(rowOf(second).value("selected"), QVariant("false"));
    host.select(2, true);
    host.select(1, false);
    QCOMPARE(rowOf(first).value("selected"), QVariant("false"));
    QCOMPARE(rowOf(second).value("selected"), QVariant("true"));
}

void TestPartitionInfo::customItemsWithAFixedName()
{
    StandInHost host;
    DOC_Interface *camera = host.addCamera(recorded());
    const QStringList fixed{"TestNo", "Project",  "TestType",  "TestTypeNo",
                            "Date",   "Engineer", "Technician"};
    camera->addCustomInfo("Other", "no", "", true, true);
    camera->addCustomInfo("testno", "no", "", true, true);
    for (const QString &name : fixed)
        camera->addCustomInfo(name, "of " + name, "mm", false, false);
    camera->setCustomInfo("Project", "", "", true, true); // there, but empty
    QMap<QString, QString> told;
    const QVariantMap row = rowOf(camera);
    for (auto entry = row.cbegin(); entry != row.cend(); ++entry) {
        if (entry.key().startsWith("Custom_"))
            told.insert(entry.key(), entry->toString());
    }
    const QMap<QString, QString> expected{{"Custom_TestNo", "of TestNo"},
                                          {"Custom_Project", ""},
                                          {"Custom_TestType", "of TestType"},
                                          {"Custom_TestTypeNo", "of TestTypeNo"},
                                          {"Custom_Date", "of Date"},
                                          {"Custom_Engineer", "of Engineer"},
                                          {"Custom_Technician", "of Technician"}};
    QCOMPARE(told, expected);
}

void TestPartitionInfo::renamedCustomItemIsToldAtOnce()
{
    StandInHost host;
    DOC_Interface *camera = host.addCamera(recorded());
    camera->addCustomInfo("who", "Lee", "", true, true);
    QVERIFY(!rowOf(camera).contains("Custom_Engineer"));
    camera->renameCustomInfo("who", "Engineer");
    QCOMPARE(rowOf(camera).value("Custom_Engineer"), QVariant("Lee"));
    camera->setDocumentComment("a\nb");
    QCOMPARE(rowOf(camera).value("Comments"), QVariant("a\nb"));
    camera->removeCustomInfo("Engineer");
    QVERIFY(!rowOf(camera).contains("Custom_Engineer"));
}

void TestPartitionInfo::fieldGoesBeforeWhatThereIs()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera(recorded());
    camera->state().infoMap = {{"partitions", QVariantList{QVariantMap{{"name", "x"}}}}};
    QCOMPARE(camera->documentInfoMap(true, false, true, false, true), camera->state().infoMap);
}

int main(int argc, char *argv[])
{
    TestPartitionInfo test;
    return runTest(argc, argv, test);
}

#include "test_partition_info.moc"
