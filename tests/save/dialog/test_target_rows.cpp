#include "save/dialog/TargetRows.h"
#include "tests/support/TestLog.h"

#include <QJsonDocument>
#include <QJsonObject>

// The rows of a save page, from the facts of documents.

class TestTargetRows : public TestBase
{
    Q_OBJECT

private slots:
    void fileRowIsTold_data();
    void fileRowIsTold();
    void cameraRowIsTold_data();
    void cameraRowIsTold();
    void customItemsAreThereWhereTheDocumentHasThem();
    void missingTextsAreEmpty();
    void emptyPartitionIsNoRow_data();
    void emptyPartitionIsNoRow();
    void numbersRunOverAllDocuments();
    void framesAreAWholeNumber_data();
    void framesAreAWholeNumber();
    void liveCameraListsWhatIsRecorded_data();
    void liveCameraListsWhatIsRecorded();
    void cameraRowIsSelected_data();
    void cameraRowIsSelected();
    void rowWithoutACopyIsMarked_data();
    void rowWithoutACopyIsMarked();
    void rowOffAMediumIsNeverMarked();
    void textIsCompact();
    void textsPassUnchanged_data();
    void textsPassUnchanged();
};

namespace {

const QString Red = QStringLiteral("background-color:red;");

// Every text that a document can tell of a partition, each another.
QVariantMap everything()
{
    QVariantMap facts;
    for (const char *key : {"dockey",
                            "selected",
                            "filename",
                            "filepath",
                            "name",
                            "drivename",
                            "serialno",
                            "datano",
                            "slotno",
                            "devicename",
                            "cameraname",
                            "ipaddress",
                            "date",
                            "time",
                            "shutterspeed",
                            "recordrate",
                            "currentpartition",
                            "totalframes",
                            "exportframes",
                            "resolution",
                            "capacity",
                            "capacitylabel",
                            "Comments",
                            "Custom_TestNo",
                            "Custom_Project",
                            "Custom_TestType",
                            "Custom_TestTypeNo",
                            "Custom_Date",
                            "Custom_Engineer",
                            "Custom_Technician",
                            "Custom_Other"})
        facts.insert(key, QString("<%1>").arg(key));
    facts.insert("totalframesplain", 12);
    return facts;
}

QVariantMap frames(const QVariant &count)
{
    return {{"totalframesplain", count}};
}

// What rows of both kinds hold of everything().
QJsonObject commonRow()
{
    return {{"recid", 1},
            {"dockey", "<dockey>"},
            {"Comments", "<Comments>"},
            {"Custom_TestNo", "<Custom_TestNo>"},
            {"Custom_Project", "<Custom_Project>"},
            {"Custom_TestType", "<Custom_TestType>"},
            {"Custom_TestTypeNo", "<Custom_TestTypeNo>"},
            {"Custom_Date", "<Custom_Date>"},
            {"Custom_Engineer", "<Custom_Engineer>"},
            {"Custom_Technician", "<Custom_Technician>"},
            {"recordrate", "<recordrate>"},
            {"partitionno", "1"},
            {"currentpartition", "<currentpartition>"},
            {"totalframes", "<totalframes>"},
            {"saveframes", "<exportframes>"},
            {"resolution", "<resolution>"},
            {"totalframesplain", 12}};
}

QJsonObject with(QJsonObject row, const QJsonObject &more)
{
    for (auto value = more.begin(); value != more.end(); ++value)
        row.insert(value.key(), value.value());
    return row;
}

QJsonArray rowsOf(const FileTarget &file, const SavedCheck &check = {})
{
    TargetRows rows(check);
    rows.add(file);
    return rows.rows();
}

QJsonArray rowsOf(const CameraTarget &camera)
{
    TargetRows rows({});
    rows.add(camera);
    return rows.rows();
}

QStringList values(const QJsonArray &rows, const char *key)
{
    QStringList texts;
    for (const QJsonValue &row : rows)
        texts.append(row.toObject().value(QLatin1String(key)).toVariant().toString());
    return texts;
}

// Four partitions with frames.
CameraTarget fourPartitions()
{
    CameraTarget camera;
    camera.partitions = {frames(1), frames(2), frames(3), frames(4)};
    camera.current = 2;
    return camera;
}

}

void TestTargetRows::fileRowIsTold_data()
{
    QTest::addColumn<bool>("onMedium");
    QTest::addColumn<bool>("skip");
    QTest::addColumn<QJsonObject>("row");
    const QJsonObject file = with(commonRow(), {{"selected", "<selected>"},
                                                {"devicename", "<devicename>"},
                                                {"date", "<date>"},
                                                {"time", "<time>"},
                                                {"shutterspeed", "<shutterspeed>"}});
    QTest::newRow("file") << false << true
                          << with(file, {{"multiskip", true},
                                         {"filename", "<filename>"},
                                         {"path", "<filepath>"}});
    QTest::newRow("on a medium") << true << false
                                 << with(file, {{"multiskip", false},
                                                {"filename", "<name>"},
                                                {"path", "<drivename>"},
                                                {"dataname", "<name>"},
                                                {"serialno", "<serialno>"},
                                                {"datano", "<datano>"}});
}

void TestTargetRows::fileRowIsTold()
{
    QFETCH(bool, onMedium);
    QFETCH(bool, skip);
    FileTarget file;
    file.partitions = {everything()};
    file.allowsSkip = skip;
    file.isOnMedium = onMedium;
    const QJsonArray rows = rowsOf(file);
    QCOMPARE(rows.size(), 1);
    QTEST(rows.first().toObject(), "row");
}

void TestTargetRows::cameraRowIsTold_data()
{
    QTest::addColumn<bool>("skip");
    QTest::addColumn<QString>("selected");
    QTest::newRow("allows to skip") << true << "true";
    QTest::newRow("does not") << false << "false";
}

void TestTargetRows::cameraRowIsTold()
{
    QFETCH(bool, skip);
    QFETCH(QString, selected);
    CameraTarget camera;
    camera.partitions = {everything()};
    camera.allowsSkip = skip;
    const QJsonArray rows = rowsOf(camera);
    QCOMPARE(rows.size(), 1);
    QCOMPARE(rows.first().toObject(), with(commonRow(), {{"multiskip", skip},
                                                         {"selected", selected},
                                                         {"cameraname", "<cameraname>"},
                                                         {"ipaddress", "<ipaddress>"},
                                                         {"path", "<filepath>"},
                                                         {"slotno", "<slotno>"},
                                                         {"capacity", "<capacity>"},
                                                         {"capacitylabel", "<capacitylabel>"}}));
}

void TestTargetRows::customItemsAreThereWhereTheDocumentHasThem()
{
    QVariantMap facts = frames(1);
    facts.insert("Custom_Engineer", "");
    FileTarget file;
    file.partitions = {facts};
    CameraTarget camera;
    camera.partitions = {facts};
    for (const QJsonArray &rows : {rowsOf(file), rowsOf(camera)}) {
        const QStringList keys = rows.first().toObject().keys();
        QCOMPARE(keys.filter("Custom_"), QStringList("Custom_Engineer"));
        QVERIFY(keys.contains("Comments"));
    }
}

void TestTargetRows::missingTextsAreEmpty()
{
    FileTarget file;
    file.partitions = {frames(1)};
    QCOMPARE(rowsOf(file), QJsonArray({QJsonObject{{"recid", 1},
                                                   {"multiskip", false},
                                                   {"dockey", ""},
                                                   {"selected", ""},
                                                   {"filename", ""},
                                                   {"path", ""},
                                                   {"devicename", ""},
                                                   {"date", ""},
                                                   {"time", ""},
                                                   {"shutterspeed", ""},
                                                   {"recordrate", ""},
                                                   {"Comments", ""},
                                                   {"partitionno", "1"},
                                                   {"currentpartition", ""},
                                                   {"totalframes", ""},
                                                   {"saveframes", ""},
                                                   {"resolution", ""},
                                                   {"totalframesplain", 1}}}));
    CameraTarget camera;
    camera.partitions = {frames(1)};
    QCOMPARE(rowsOf(camera), QJsonArray({QJsonObject{{"recid", 1},
                                                     {"multiskip", false},
                                                     {"dockey", ""},
                                                     {"totalframesplain", 1},
                                                     {"selected", "false"},
                                                     {"cameraname", ""},
                                                     {"ipaddress", ""},
                                                     {"path", ""},
                                                     {"slotno", ""},
                                                     {"Comments", ""},
                                                     {"recordrate", ""},
                                                     {"partitionno", "1"},
                                                     {"currentpartition", ""},
                                                     {"totalframes", ""},
                                                     {"saveframes", ""},
                                                     {"resolution", ""},
                                                     {"capacity", ""},
                                                     {"capacitylabel", ""}}}));
}

void TestTargetRows::emptyPartitionIsNoRow_data()
{
    QTest::addColumn<QVariant>("count");
    QTest::newRow("no frames") << QVariant(0);
    QTest::newRow("less than none") << QVariant(-1);
    QTest::newRow("not told") << QVariant();
    QTest::newRow("no number") << QVariant("many");
}

// The row behind it takes its number, but keeps its own position.
void TestTargetRows::emptyPartitionIsNoRow()
{
    QFETCH(QVariant, count);
    FileTarget file;
    file.partitions = {frames(5), frames(count), frames(7)};
    CameraTarget camera;
    camera.partitions = file.partitions;
    for (const QJsonArray &rows : {rowsOf(file), rowsOf(camera)}) {
        QCOMPARE(values(rows, "recid"), QStringList({"1", "2"}));
        QCOMPARE(values(rows, "partitionno"), QStringList({"1", "3"}));
        QCOMPARE(values(rows, "totalframesplain"), QStringList({"5", "7"}));
    }
}

void TestTargetRows::numbersRunOverAllDocuments()
{
    FileTarget file;
    file.partitions = {frames(1), frames(0), frames(2)};
    CameraTarget camera;
    camera.partitions = {frames(3), frames(4)};
    TargetRows rows({});
    rows.add(file);
    rows.add(FileTarget());
    rows.add(camera);
    rows.add(file);
    QCOMPARE(values(rows.rows(), "recid"), QStringList({"1", "2", "3", "4", "5", "6"}));
    QCOMPARE(values(rows.rows(), "partitionno"), QStringList({"1", "3", "1", "2", "1", "3"}));
}

void TestTargetRows::framesAreAWholeNumber_data()
{
    QTest::addColumn<QVariant>("count");
    QTest::addColumn<QString>("text");
    QTest::newRow("int") << QVariant(1) << "1";
    QTest::newRow("beyond a signed int") << QVariant(4294967294u) << "4294967294";
    QTest::newRow("as a text") << QVariant("300") << "300";
}

void TestTargetRows::framesAreAWholeNumber()
{
    QFETCH(QVariant, count);
    FileTarget file;
    file.partitions = {frames(count)};
    TargetRows rows({});
    rows.add(file);
    QVERIFY(rows.rows().first().toObject().value("totalframesplain").isDouble());
    QFETCH(QString, text);
    QVERIFY2(rows.text().contains("\"totalframesplain\":" + text + "}") ||
                 rows.text().contains("\"totalframesplain\":" + text + ","),
             qPrintable(rows.text()));
}

void TestTargetRows::liveCameraListsWhatIsRecorded_data()
{
    QTest::addColumn<bool>("live");
    QTest::addColumn<bool>("loops");
    QTest::addColumn<bool>("stops");
    QTest::addColumn<int>("current");
    QTest::addColumn<QStringList>("listed");
    const QStringList all = {"1", "2", "3", "4"};
    QTest::newRow("memory") << false << false << false << 2 << all;
    QTest::newRow("memory, loops and stops") << false << true << true << 2 << all;
    QTest::newRow("live") << true << false << false << 2 << QStringList("2");
    QTest::newRow("live, stops") << true << false << true << 2 << QStringList("2");
    QTest::newRow("live, loops") << true << true << false << 2 << all;
    QTest::newRow("live, loops and stops")
        << true << true << true << 2 << QStringList({"2", "3", "4"});
    QTest::newRow("live, at the last") << true << true << true << 4 << QStringList("4");
    QTest::newRow("live, none is current") << true << false << false << 0 << QStringList();
    QTest::newRow("live, beyond the last") << true << true << true << 5 << QStringList();
}

void TestTargetRows::liveCameraListsWhatIsRecorded()
{
    QFETCH(bool, live);
    QFETCH(bool, loops);
    QFETCH(bool, stops);
    QFETCH(int, current);
    CameraTarget camera = fourPartitions();
    camera.isLive = live;
    camera.loopsOverPartitions = loops;
    camera.stopsAfterLast = stops;
    camera.current = current;
    const QJsonArray rows = rowsOf(camera);
    QTEST(values(rows, "partitionno"), "listed");
    QStringList numbers;
    for (int i = 1; i <= rows.size(); ++i)
        numbers.append(QString::number(i));
    QCOMPARE(values(rows, "recid"), numbers);
}

void TestTargetRows::cameraRowIsSelected_data()
{
    QTest::addColumn<bool>("skip");
    QTest::addColumn<bool>("selectsRecorded");
    QTest::addColumn<bool>("recordedOnce");
    QTest::addColumn<QStringList>("selected");
    const QStringList none = {"false", "false", "false", "false"};
    const QStringList all = {"true", "true", "true", "true"};
    const QStringList second = {"false", "true", "false", "false"};
    QTest::newRow("nothing recorded") << false << false << false << none;
    QTest::newRow("recorded") << false << false << true << second;
    QTest::newRow("skips") << true << false << false << all;
    QTest::newRow("skips, recorded") << true << false << true << all;
    QTest::newRow("selects what has frames") << false << true << false << all;
    QTest::newRow("selects what has frames, skips") << true << true << true << all;
}

void TestTargetRows::cameraRowIsSelected()
{
    QFETCH(bool, skip);
    QFETCH(bool, selectsRecorded);
    QFETCH(bool, recordedOnce);
    CameraTarget camera = fourPartitions();
    camera.allowsSkip = skip;
    camera.selectsRecorded = selectsRecorded;
    camera.isRecordedOnce = recordedOnce;
    QTEST(values(rowsOf(camera), "selected"), "selected");
}

void TestTargetRows::rowWithoutACopyIsMarked_data()
{
    QTest::addColumn<bool>("done");
    QTest::addColumn<QList<SavedRecord>>("copies");
    QTest::addColumn<QString>("serialNo");
    QTest::addColumn<QString>("dataNo");
    QTest::addColumn<bool>("marked");
    const QList<SavedRecord> one = {{"A1", "7"}};
    const QList<SavedRecord> empties = {{"", "7"}, {"A1", ""}, {"", ""}};
    QTest::newRow("no search yet") << false << one << "B2"
                                   << "9" << false;
    QTest::newRow("copy") << true << one << "A1"
                          << "7" << false;
    QTest::newRow("other serial number") << true << one << "A2"
                                         << "7" << true;
    QTest::newRow("other data number") << true << one << "A1"
                                       << "8" << true;
    QTest::newRow("the wrong way round") << true << one << "7"
                                         << "A1" << true;
    QTest::newRow("nothing found") << true << QList<SavedRecord>() << "A1"
                                   << "7" << true;
    QTest::newRow("no serial number") << true << empties << ""
                                      << "7" << true;
    QTest::newRow("no data number") << true << empties << "A1"
                                    << "" << true;
    QTest::newRow("neither") << true << empties << ""
                             << "" << true;
    QTest::newRow("second of two") << true << QList<SavedRecord>({{"B2", "9"}, {"A1", "7"}}) << "A1"
                                   << "7" << false;
}

void TestTargetRows::rowWithoutACopyIsMarked()
{
    QFETCH(bool, done);
    QFETCH(QList<SavedRecord>, copies);
    QFETCH(QString, serialNo);
    QFETCH(QString, dataNo);
    QFETCH(bool, marked);
    FileTarget file;
    file.isOnMedium = true;
    QVariantMap facts = frames(1);
    facts.insert("serialno", serialNo);
    facts.insert("datano", dataNo);
    file.partitions = {facts};
    const QJsonObject row = rowsOf(file, {done, copies}).first().toObject();
    QCOMPARE(row.contains("style"), marked);
    QCOMPARE(row.value("style").toString(), marked ? Red : QString());
    QCOMPARE(row.value("serialno").toString(), serialNo);
    QCOMPARE(row.value("datano").toString(), dataNo);
}

void TestTargetRows::rowOffAMediumIsNeverMarked()
{
    FileTarget file;
    file.partitions = {frames(1)};
    CameraTarget camera;
    camera.partitions = {frames(1)};
    TargetRows rows({true, {}});
    rows.add(file);
    rows.add(camera);
    QCOMPARE(rows.rows().size(), 2);
    QCOMPARE(values(rows.rows(), "style"), QStringList({"", ""}));
    QVERIFY(!rows.text().contains("style"));
}

void TestTargetRows::textIsCompact()
{
    QCOMPARE(TargetRows({}).text(), QString("[]"));
    FileTarget file;
    file.partitions = {frames(1)};
    TargetRows rows({});
    rows.add(file);
    QVERIFY(rows.text().startsWith("[{\""));
    QVERIFY(!rows.text().contains(' ') && !rows.text().contains('\n'));
    QCOMPARE(QJsonDocument::fromJson(rows.text().toUtf8()).array(), rows.rows());
}

void TestTargetRows::textsPassUnchanged_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("quotes") << "a \"b\" \\ c";
    QTest::newRow("markup") << "<b>&amp;</b>";
    QTest::newRow("place holder") << "%1 %2";
    QTest::newRow("beyond the first plane") << QString::fromUtf8("\xf0\x9f\x8e\xa5 \xc3\xa9");
    QTest::newRow("line end") << "a\nb\tc";
}

void TestTargetRows::textsPassUnchanged()
{
    QFETCH(QString, text);
    QVariantMap facts = frames(1);
    facts.insert("filename", text);
    FileTarget file;
    file.partitions = {facts};
    TargetRows rows({});
    rows.add(file);
    const QJsonArray read = QJsonDocument::fromJson(rows.text().toUtf8()).array();
    QCOMPARE(values(read, "filename"), QStringList(text));
}

int main(int argc, char *argv[])
{
    TestTargetRows test;
    return runTest(argc, argv, test);
}

#include "test_target_rows.moc"
