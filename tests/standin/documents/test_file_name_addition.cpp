#include "standin/answers/FileNameAddition.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

using Mode = StandInHost::Mode;
using Settings = QVariantMap;

Q_DECLARE_METATYPE(Mode)

// What a document adds to the name of its file.
class TestFileNameAddition : public TestBase
{
    Q_OBJECT

private slots:
    void textNumberAndDetails_data();
    void textNumberAndDetails();
    void digitsOfTheNumber_data();
    void digitsOfTheNumber();
    void sequenceIsUsedWithItsDigits_data();
    void sequenceIsUsedWithItsDigits();
    void eachKindOfSaveHasItsSettings_data();
    void eachKindOfSaveHasItsSettings();
    void numbersOfTheDocument();
    void filesHaveNoCamera();
    void detailsAreThoseOfTheInformation();
    void detailsOfTheAskedPartitionAndTime();
    void fieldGoesBeforeTheSettings();
};

namespace {

QDateTime moment()
{
    return QDateTime(QDate(2024, 2, 3), QTime(4, 5, 6));
}

void store(StandInHost &host, const Settings &settings)
{
    for (auto entry = settings.cbegin(); entry != settings.cend(); ++entry)
        QVERIFY(host.settings().setValue(entry.key(), *entry));
}

// The addition of an export for the first partition.
QString addition(DOC_Interface *document, int sequence = 5, int partition = 1, int mode = 1)
{
    bool uses = false;
    return document->fileNameAddition(mode, partition, sequence, uses, moment());
}

}

void TestFileNameAddition::textNumberAndDetails_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("number");
    QTest::addColumn<QStringList>("details");
    QTest::addColumn<QString>("connector");
    QTest::addColumn<QString>("expected");
    const QStringList none;
    QTest::newRow("nothing") << "" << false << none << "_"
                             << "";
    QTest::newRow("text") << "run" << false << none << "_"
                          << "run";
    QTest::newRow("number") << "" << true << none << "_"
                            << "S0012";
    QTest::newRow("number directly behind") << "run" << true << none << "_"
                                            << "runS0012";
    QTest::newRow("details") << "" << false << QStringList{"a", "b"} << "_"
                             << "A_B";
    QTest::newRow("behind the number") << "run" << true << QStringList{"a"} << "-"
                                       << "runS0012-A";
    QTest::newRow("empty ones") << "" << false << QStringList{"none", "a", "none", "b", "none"}
                                << "_"
                                << "A_B";
    QTest::newRow("only empty ones") << "run" << false << QStringList{"none"} << "_"
                                     << "run";
    QTest::newRow("no connector") << "" << true << QStringList{"a", "b"} << ""
                                  << "S0012AB";
    QTest::newRow("wide connector") << "" << true << QStringList{"b"} << " - "
                                    << "S0012 - B";
}

void TestFileNameAddition::textNumberAndDetails()
{
    QFETCH(QString, text);
    QFETCH(bool, number);
    QFETCH(QStringList, details);
    QFETCH(QString, connector);
    FileNameAddition addition;
    addition.text = text;
    addition.addsNumber = number;
    addition.digits = {0, 0, 4};
    addition.addsDetails = !details.isEmpty();
    addition.details = details;
    addition.connector = connector;
    const auto detail = [](const QString &id) { return id == "none" ? QString() : id.toUpper(); };
    QTEST(addition.compose(12, {}, false, detail), "expected");
    addition.addsDetails = false;
    QCOMPARE(addition.compose(12, {}, false, detail), text + (number ? "S0012" : ""));
}

void TestFileNameAddition::digitsOfTheNumber_data()
{
    QTest::addColumn<Settings>("settings");
    QTest::addColumn<Mode>("mode");
    QTest::addColumn<int>("heads");
    QTest::addColumn<QString>("expected");
    const QString format = "export/filenameaddnumberformat";
    const Settings given{{format, "manual"},
                         {"export/filenameaddnumbercameranodigits", 2},
                         {"export/filenameaddnumberheadnodigits", 1},
                         {"export/filenameaddnumbersessionnodigits", 3}};
    QTest::newRow("given") << given << Mode::Live << 1 << "C01H1S005";
    QTest::newRow("given, of a recording") << given << Mode::Memory << 1 << "C01H1S005";
    QTest::newRow("given, of a file") << given << Mode::File << 1 << "S005";
    Settings automatic = given;
    automatic[format] = "auto";
    QTest::newRow("one head") << automatic << Mode::Live << 1 << "C1S005";
    QTest::newRow("no heads") << automatic << Mode::Live << 0 << "C1S005";
    QTest::newRow("two heads") << automatic << Mode::Live << 2 << "C1H1S005";
    QTest::newRow("ten heads") << automatic << Mode::Live << 10 << "C1H01S005";
    QTest::newRow("by what there is, of a file") << automatic << Mode::File << 2 << "S005";
    Settings camera = given;
    camera["export/filenameaddnumberheadnodigits"] = 0;
    camera["export/filenameaddnumbersessionnodigits"] = 0;
    QTest::newRow("camera alone") << camera << Mode::Live << 1 << "C01";
    Settings other = automatic;
    other[format] = "Auto";
    QTest::newRow("another word") << other << Mode::Live << 1 << "C01H1S005";
}

void TestFileNameAddition::digitsOfTheNumber()
{
    QFETCH(Settings, settings);
    QFETCH(Mode, mode);
    QFETCH(int, heads);
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->state().headCount = heads;
    host.setMode(mode);
    store(host, settings);
    QTEST(addition(camera), "expected");
}

void TestFileNameAddition::sequenceIsUsedWithItsDigits_data()
{
    QTest::addColumn<bool>("number");
    QTest::addColumn<int>("digits");
    QTest::addColumn<bool>("uses");
    QTest::newRow("number") << true << 4 << true;
    QTest::newRow("one digit") << true << 1 << true;
    QTest::newRow("no digits") << true << 0 << false;
    QTest::newRow("below zero") << true << -1 << false;
    QTest::newRow("no number") << false << 4 << false;
}

void TestFileNameAddition::sequenceIsUsedWithItsDigits()
{
    QFETCH(bool, number);
    QFETCH(int, digits);
    QFETCH(bool, uses);
    StandInHost host;
    DOC_Interface *camera = host.addCamera();
    store(host, {{"export/filenameaddnumber", number},
                 {"export/filenameaddnumbersessionnodigits", digits}});
    bool answered = !uses;
    const QString text = camera->fileNameAddition(1, 1, 5, answered, moment());
    QCOMPARE(answered, uses);
    QCOMPARE(text.contains('S'), uses);
}

void TestFileNameAddition::eachKindOfSaveHasItsSettings_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("expected");
    QTest::newRow("export") << 1 << "exportC001H001S0005";
    QTest::newRow("another number") << 0 << "exportC001H001S0005";
    QTest::newRow("preview of an export") << 10 << "exportC001H001S0005";
    QTest::newRow("convert") << 6 << "convertC001H001S0005";
    QTest::newRow("preview of a conversion") << 11 << "convertC001H001S0005";
    QTest::newRow("snapshot") << 7 << "snapC001H001S0005";
    QTest::newRow("report, without camera and head") << 16 << "reportS0005";
    QTest::newRow("preview of a report") << 17 << "reportS0005";
    QTest::newRow("layout") << 4 << "layoutC001H001S0005";
    QTest::newRow("preview of a layout") << 18 << "layoutC001H001S0005";
}

void TestFileNameAddition::eachKindOfSaveHasItsSettings()
{
    QFETCH(int, mode);
    StandInHost host;
    DOC_Interface *camera = host.addCamera();
    for (const QString family : {"export", "convert", "snap", "report", "layout"})
        store(host, {{family + "/filenameadddetail", false},
                     {family + "/filenameaddtextvalue", family},
                     {family + "/filenameaddnumberformat", "manual"}});
    QTEST(addition(camera, 5, 1, mode), "expected");
}

void TestFileNameAddition::numbersOfTheDocument()
{
    StandInHost host;
    for (int i = 0; i < 9; ++i)
        host.addCamera();
    StandInCamera::Description second;
    second.cameraNumber = 8;
    second.headNumber = 2;
    second.headCount = 2;
    StandInCamera *head = host.addCamera(second);
    // Ten cameras have two digits.
    QCOMPARE(addition(host.camera(1), 1), QString("C01S0001"));
    QCOMPARE(addition(host.camera(9), 12345), QString("C09S12345"));
    QCOMPARE(addition(head, 1), QString("C09H2S0001"));
}

void TestFileNameAddition::filesHaveNoCamera()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->state().cameraNumber = 6;
    store(host, {{"export/filenameaddnumberformat", "manual"}});
    QCOMPARE(addition(camera), QString("C007H001S0005"));
    host.setMode(Mode::File);
    QCOMPARE(addition(camera), QString("S0005"));
}

void TestFileNameAddition::detailsAreThoseOfTheInformation()
{
    StandInHost host;
    StandInCamera::Description description;
    description.name = "left";
    description.comment = "first\nsecond";
    StandInCamera *camera = host.addCamera(description);
    store(host, {{"export/filenameaddnumber", false},
                 {"export/filenameadddetail", true},
                 {"export/filenameadddetails", "Camera name,ShutterSpeed,,no such,Comment"}});
    // A text of several lines stands in one.
    QCOMPARE(addition(camera), QString("left_1/1000 sec_first second"));
    store(host, {{"export/filenameadddetailsconnect", "+"}, {"display/ShutterSpeed", 1}});
    QCOMPARE(addition(camera), QString("left+1 msec+first second"));
    store(host, {{"export/filenameadddetails", ""}});
    QCOMPARE(addition(camera), QString());
}

void TestFileNameAddition::detailsOfTheAskedPartitionAndTime()
{
    StandInHost host;
    StandInCamera::Description description;
    description.partitions = {{1, "A", 100, 500}, {2, "B", 2000, 1000}};
    StandInCamera *camera = host.addCamera(description);
    host.setMode(Mode::Memory);
    store(host, {{"snap/filenameaddnumber", false},
                 {"snap/filenameadddetail", true},
                 {"snap/filenameadddetails", "PartitionNumber,MaxFrames,FrameRate,Time"}});
    QCOMPARE(addition(camera, 1, 1, 7), QString("1_100_500 fps_04:05:06"));
    QCOMPARE(addition(camera, 1, 2, 7), QString("2_2000_1000 fps_04:05:06"));
}

void TestFileNameAddition::fieldGoesBeforeTheSettings()
{
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    camera->state().nameAddition = "";
    bool uses = true;
    QCOMPARE(camera->fileNameAddition(1, 1, 5, uses, moment()), QString());
    QVERIFY(!uses);
    camera->state().nameAddition = "_S%1";
    QCOMPARE(camera->fileNameAddition(1, 1, 5, uses, moment()), QString("_S5"));
    QVERIFY(uses);
}

int main(int argc, char *argv[])
{
    TestFileNameAddition test;
    return runTest(argc, argv, test);
}

#include "test_file_name_addition.moc"
