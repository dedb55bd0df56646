#include "foundation/exceptions/DOC_ReadFileException.h"
#include "standin/host/StandInHost.h"
#include "standin/session/CameraSettingsFile.h"
#include "tests/support/ChildRun.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtConcurrent>

#include <sys/stat.h>

// Settings of cameras in a file: what is written, what is read, and what the host makes of it.

class TestCameraSettingsFile : public TestBase
{
    Q_OBJECT

private slots:
    void recordsAreWrittenAsJson();
    void recordsAreReadBack();
    void textsThatAreNoneAreRefused_data();
    void textsThatAreNoneAreRefused();
    void valuesOfOtherTypesAreNone_data();
    void valuesOfOtherTypesAreNone();
    void numbersAreBroughtIntoTheirRange();
    void cameraWithoutASerialNumberIsLeftOut();
    void untoldValuesStay();
    void filesThatAreNoneAreRefused_data();
    void filesThatAreNoneAreRefused();
    void fileThatCannotBeWrittenIsAFailure();
    void oldFileIsWholeAfterAFullDisk();
    void oldFileIsWholeWithoutRights();

    void hostSavesItsCameras();
    void hostSavesFromAnotherThread();
    void hostSavesNothingWithoutCameras();
    void hostLoadsBySerialNumber();
    void hostLoadsHeadsByTheirNumber();
    void hostClampsWhatItLoads_data();
    void hostClampsWhatItLoads();
    void hostLoadsOnlyIntoTheCamerasThatAreNamed();
    void loadIsOneUndoStep();
    void fileOfOtherCamerasIsAFailure();
    void presentSettingsStayWhereTheFileIsNone();
    void cameraAddedByItsAddressIsSavedByItsSerialNumber();
};

namespace {

const QByteArray Text = R"({
    "cameras": [
        {
            "head": 2,
            "recordRate": 3000,
            "region": [
                8,
                16,
                320,
                240
            ],
            "serialNumber": "10001",
            "shutterSpeed": 6000
        }
    ],
    "format": "qcfg"
}
)";

CameraSettingsRecord record()
{
    return {"10001", 2, 3000u, 6000u, QRect(8, 16, 320, 240)};
}

CameraSettings settings(uint recordRate, uint shutterSpeed, const QRect &region)
{
    CameraSettings result;
    result.recordRate = recordRate;
    result.shutterSpeed = shutterSpeed;
    result.region = region;
    return result;
}

QByteArray fileOf(const QByteArray &cameras)
{
    return R"({"format":"qcfg","cameras":[)" + cameras + "]}";
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

void put(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray failureOfWriting(const QString &path)
{
    try {
        CameraSettingsFile::write(path, {record()});
    } catch (const DOC_FileException &failure) {
        return failure.what();
    }
    return "written";
}

}

void TestCameraSettingsFile::recordsAreWrittenAsJson()
{
    QCOMPARE(CameraSettingsFile::toJson({record()}), Text);
}

void TestCameraSettingsFile::recordsAreReadBack()
{
    const auto records = CameraSettingsFile::fromJson(Text);
    QVERIFY(records);
    QCOMPARE(records->size(), 1);
    QCOMPARE(records->first().serialNumber, QStringLiteral("10001"));
    QCOMPARE(records->first().headNumber, 2);
    QCOMPARE(records->first().appliedTo({}), settings(3000, 6000, QRect(8, 16, 320, 240)));
}

void TestCameraSettingsFile::textsThatAreNoneAreRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("<xml/>");
    QTest::newRow("cut") << Text.left(40);
    QTest::newRow("another object") << QByteArray(R"({"cameras":[]})");
    QTest::newRow("another format") << QByteArray(R"({"format":"xcfg","cameras":[]})");
    QTest::newRow("no list") << QByteArray(R"({"format":"qcfg","cameras":{}})");
    QTest::newRow("deep") << QByteArray(100000, '[');
    QTest::newRow("binary") << QByteArray("\0\xff\x80", 3);
}

void TestCameraSettingsFile::textsThatAreNoneAreRefused()
{
    QFETCH(QByteArray, text);
    QVERIFY(!CameraSettingsFile::fromJson(text));
}

void TestCameraSettingsFile::valuesOfOtherTypesAreNone_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<CameraSettings>("settings");
    const CameraSettings plain = settings(1, 2, QRect(3, 4, 5, 6));
    QTest::newRow("rate") << QByteArray(R"("recordRate":"9")") << plain;
    QTest::newRow("rate null") << QByteArray(R"("recordRate":null)") << plain;
    QTest::newRow("shutter") << QByteArray(R"("shutterSpeed":[9])") << plain;
    QTest::newRow("region") << QByteArray(R"("region":9)") << plain;
    QTest::newRow("region of three") << QByteArray(R"("region":[9,9,9])") << plain;
    QTest::newRow("region of five") << QByteArray(R"("region":[9,9,9,9,9])") << plain;
    QTest::newRow("region of texts") << QByteArray(R"("region":[9,9,9,"9"])") << plain;
    QTest::newRow("shutter alone")
        << QByteArray(R"("recordRate":true,"shutterSpeed":9)") << settings(1, 9, plain.region);
}

void TestCameraSettingsFile::valuesOfOtherTypesAreNone()
{
    QFETCH(QByteArray, value);
    const auto records =
        CameraSettingsFile::fromJson(fileOf(R"({"serialNumber":"1",)" + value + "}"));
    QVERIFY(records);
    QTEST(records->first().appliedTo(settings(1, 2, QRect(3, 4, 5, 6))), "settings");
}

void TestCameraSettingsFile::numbersAreBroughtIntoTheirRange()
{
    const auto records = CameraSettingsFile::fromJson(
        fileOf(R"({"serialNumber":"1","recordRate":-5,"shutterSpeed":1e300,)"
               R"("region":[-1e300,1e300,-1,1e18]})"));
    QVERIFY(records);
    const int far = 1 << 24;
    QCOMPARE(records->first().appliedTo({}), settings(0, 4294967295u, QRect(-far, far, 0, far)));
}

void TestCameraSettingsFile::cameraWithoutASerialNumberIsLeftOut()
{
    const auto records = CameraSettingsFile::fromJson(
        fileOf(R"({"recordRate":5},{"serialNumber":7},7,{"serialNumber":"1","head":"2"})"));
    QVERIFY(records);
    QCOMPARE(records->size(), 1);
    QCOMPARE(records->first().serialNumber, QStringLiteral("1"));
    QCOMPARE(records->first().headNumber, 1);
}

void TestCameraSettingsFile::untoldValuesStay()
{
    const CameraSettings present = settings(1, 2, QRect(3, 4, 5, 6));
    CameraSettingsRecord told;
    QCOMPARE(told.appliedTo(present), present);
    told.recordRate = 7;
    QCOMPARE(told.appliedTo(present), settings(7, 2, present.region));
}

void TestCameraSettingsFile::filesThatAreNoneAreRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << "missing.qcfg";
    QTest::newRow("folder") << "folder";
    QTest::newRow("pipe") << "pipe";
    QTest::newRow("other text") << "text";
    QTest::newRow("too large") << "large";
}

void TestCameraSettingsFile::filesThatAreNoneAreRefused()
{
    QFETCH(QString, name);
    const QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir("folder"));
    QCOMPARE(::mkfifo(dir.filePath("pipe").toLocal8Bit().constData(), 0600), 0);
    put(dir.filePath("text"), "text");
    put(dir.filePath("large"), Text);
    QVERIFY(QFile::resize(dir.filePath("large"), 16 * 1024 * 1024 + 1));
    LogCapture log;
    QVERIFY_EXCEPTION_THROWN(CameraSettingsFile::read(dir.filePath(name)), DOC_ReadFileException);
}

void TestCameraSettingsFile::fileThatCannotBeWrittenIsAFailure()
{
    const QTemporaryDir dir;
    LogCapture log;
    QCOMPARE(failureOfWriting(dir.filePath("missing/a.qcfg")), QByteArray("File write failed."));
    QCOMPARE(failureOfWriting(dir.path()), QByteArray("File write failed."));
    QCOMPARE(failureOfWriting(dir.filePath("a.qcfg")), QByteArray("written"));
    QCOMPARE(contentOf(dir.filePath("a.qcfg")), Text);
}

void TestCameraSettingsFile::oldFileIsWholeAfterAFullDisk()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath("a.qcfg");
    put(path, "old");
    const QByteArray failure = ChildRun::run([&] {
        ChildRun::limitFileSize(100);
        return failureOfWriting(path);
    });
    QCOMPARE(failure, QByteArray("File write failed."));
    QCOMPARE(contentOf(path), QByteArray("old"));
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList("a.qcfg"));
}

void TestCameraSettingsFile::oldFileIsWholeWithoutRights()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath("a.qcfg");
    put(path, "old");
    QCOMPARE(::chmod(path.toLocal8Bit().constData(), 0444), 0);
    QCOMPARE(::chmod(dir.path().toLocal8Bit().constData(), 0555), 0);
    const QByteArray failure = ChildRun::run([&] {
        ChildRun::dropRights();
        return failureOfWriting(path) + ", " + failureOfWriting(dir.filePath("b.qcfg"));
    });
    ::chmod(dir.path().toLocal8Bit().constData(), 0700);
    QCOMPARE(failure, QByteArray("File write failed., File write failed."));
    QCOMPARE(contentOf(path), QByteArray("old"));
}

void TestCameraSettingsFile::hostSavesItsCameras()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath("a.qcfg");
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    host.addCamera();
    second->setRecordRate(5000);
    second->setSensorRegion(QRect(0, 0, 64, 32));
    host.saveCameraSettings(path, {second->key(), 77, first->key()});
    const auto records = CameraSettingsFile::fromJson(contentOf(path));
    QVERIFY(records);
    QCOMPARE(records->size(), 2);
    QCOMPARE(records->at(0).serialNumber, QStringLiteral("10002"));
    QCOMPARE(records->at(0).appliedTo({}), second->settings());
    QCOMPARE(records->at(0).recordRate.value_or(0), 5000u);
    QCOMPARE(records->at(1).serialNumber, QStringLiteral("10001"));
    QCOMPARE(records->at(1).appliedTo({}), first->settings());
}

void TestCameraSettingsFile::hostSavesFromAnotherThread()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath("a.qcfg");
    StandInHost host;
    const DOCKEY gone = host.addCamera()->key();
    StandInCamera *camera = host.addCamera();
    camera->setRecordRate(5000);
    camera->setRecordRate(2000);
    host.closeDocument(gone);
    // The thread of the cameras only waits, and could answer nothing.
    QtConcurrent::run([&] {
        host.saveCameraSettings(path, {gone, camera->key()});
    }).waitForFinished();
    const auto records = CameraSettingsFile::fromJson(contentOf(path));
    QVERIFY(records);
    QCOMPARE(records->size(), 1);
    QCOMPARE(records->first().recordRate.value_or(0), 2000u);
}

void TestCameraSettingsFile::hostSavesNothingWithoutCameras()
{
    const QTemporaryDir dir;
    StandInHost host;
    host.saveCameraSettings(dir.filePath("a.qcfg"), {1});
    host.loadCameraSettings(dir.filePath("a.qcfg"), {1});
    QVERIFY(QDir(dir.path()).isEmpty());
}

void TestCameraSettingsFile::hostLoadsBySerialNumber()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath("a.qcfg");
    put(path, fileOf(R"({"serialNumber":"B","recordRate":5000},)"
                     R"({"serialNumber":"C","recordRate":6000},)"
                     R"({"serialNumber":"A","recordRate":2000,"shutterSpeed":4000,)"
                     R"("region":[16,32,128,64]})"));
    StandInHost host;
    StandInCamera::Description description;
    description.serialNumber = "A";
    StandInCamera *first = host.addCamera(description);
    description.serialNumber = "B";
    description.shutterSpeed = 20000;
    StandInCamera *second = host.addCamera(description);
    const QRect region = second->sensorRegion();
    host.loadCameraSettings(path, {second->key(), first->key()});
    QCOMPARE(first->settings(), settings(2000, 4000, QRect(16, 32, 128, 64)));
    QCOMPARE(first->deviceSettings(), first->settings());
    QCOMPARE(second->settings(), settings(5000, 20000, region));
}

void TestCameraSettingsFile::hostLoadsHeadsByTheirNumber()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath("a.qcfg");
    StandInHost host;
    StandInCamera::Description description;
    description.headCount = 2;
    description.cameraNumber = 0;
    StandInCamera *first = host.addCamera(description);
    description.headNumber = 2;
    StandInCamera *second = host.addCamera(description);
    QCOMPARE(first->serialNumber(), second->serialNumber());
    second->setRecordRate(5000);
    host.saveCameraSettings(path, {first->key(), second->key()});
    first->setRecordRate(100);
    second->setRecordRate(100);
    host.loadCameraSettings(path, {first->key(), second->key()});
    QCOMPARE(first->recordRate(), 1000u);
    QCOMPARE(second->recordRate(), 5000u);
}

void TestCameraSettingsFile::hostClampsWhatItLoads_data()
{
    QTest::addColumn<QByteArray>("values");
    QTest::addColumn<CameraSettings>("settings");
    const QRect middle(192, 272, 640, 480);
    QTest::newRow("rate above the camera's")
        << QByteArray(R"("recordRate":1e9)") << settings(20000, 20000, middle);
    QTest::newRow("rate below") << QByteArray(R"("recordRate":-1)") << settings(50, 1000, middle);
    QTest::newRow("exposure longer than a frame")
        << QByteArray(R"("recordRate":2000,"shutterSpeed":10)") << settings(2000, 2000, middle);
    QTest::newRow("region outside") << QByteArray(R"("region":[2000,-100,100,4000])")
                                    << settings(1000, 1000, QRect(924, 0, 100, 1024));
}

void TestCameraSettingsFile::hostClampsWhatItLoads()
{
    QFETCH(QByteArray, values);
    const QTemporaryDir dir;
    const QString path = dir.filePath("a.qcfg");
    put(path, fileOf(R"({"serialNumber":"10001",)" + values + "}"));
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    host.loadCameraSettings(path, {camera->key()});
    QTEST(camera->settings(), "settings");
}

void TestCameraSettingsFile::hostLoadsOnlyIntoTheCamerasThatAreNamed()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath("a.qcfg");
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    host.saveCameraSettings(path, {first->key(), second->key()});
    first->setRecordRate(5000);
    second->setRecordRate(5000);
    host.loadCameraSettings(path, {second->key()});
    QCOMPARE(first->recordRate(), 5000u);
    QCOMPARE(second->recordRate(), 1000u);
}

void TestCameraSettingsFile::loadIsOneUndoStep()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath("a.qcfg");
    StandInHost host;
    StandInCamera *first = host.addCamera();
    StandInCamera *second = host.addCamera();
    host.saveCameraSettings(path, {first->key(), second->key()});
    first->setRecordRate(5000);
    second->setRecordRate(6000);
    const int steps = host.undoSteps()->count();
    host.loadCameraSettings(path, {first->key(), second->key()});
    QCOMPARE(host.undoSteps()->count(), steps + 1);
    host.undo();
    QCOMPARE(first->recordRate(), 5000u);
    QCOMPARE(second->recordRate(), 6000u);
}

void TestCameraSettingsFile::fileOfOtherCamerasIsAFailure()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath("a.qcfg");
    put(path, fileOf(R"({"serialNumber":"X","recordRate":5000})"));
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    LogCapture log;
    QVERIFY_EXCEPTION_THROWN(host.loadCameraSettings(path, {camera->key()}), DOC_FileException);
    QCOMPARE(camera->recordRate(), 1000u);
}

void TestCameraSettingsFile::presentSettingsStayWhereTheFileIsNone()
{
    const QTemporaryDir dir;
    put(dir.filePath("a.qcfg"), Text.left(60));
    StandInHost host;
    StandInCamera *camera = host.addCamera();
    const CameraSettings before = camera->settings();
    LogCapture log;
    QVERIFY_EXCEPTION_THROWN(host.loadCameraSettings(dir.filePath("a.qcfg"), {camera->key()}),
                             DOC_ReadFileException);
    QCOMPARE(camera->settings(), before);
}

Q_DECLARE_METATYPE(CameraSettings)

void TestCameraSettingsFile::cameraAddedByItsAddressIsSavedByItsSerialNumber()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath("a.qcfg");
    StandInHost host;
    NetworkDevice device;
    device.serialNumber = "70001";
    device.setting = {"192.168.0.201", "255.255.255.0", ""};
    host.network().addDevice(device);
    host.addDevice("Front", "192.168.0.201", false);
    StandInCamera *camera = host.cameras().first();
    QCOMPARE(camera->serialNumber(), QStringLiteral("70001"));
    host.saveCameraSettings(path, {camera->key()});
    const auto records = CameraSettingsFile::fromJson(contentOf(path));
    QVERIFY(records && records->size() == 1);
    QCOMPARE(records->first().serialNumber, QStringLiteral("70001"));
    host.loadCameraSettings(path, {camera->key()}); // and it is known again
}

int main(int argc, char **argv)
{
    TestCameraSettingsFile test;
    return runTest(argc, argv, test);
}

#include "test_camera_settings_file.moc"
