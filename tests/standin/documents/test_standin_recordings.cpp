#include "foundation/exceptions/DOC_ReadFileException.h"
#include "standin/documents/NaturalOrder.h"
#include "standin/host/StandInHost.h"
#include "tests/support/TestLog.h"

#include <QCollator>
#include <QFile>
#include <QImageWriter>
#include <QTemporaryDir>

#include <algorithm>

class TestStandInRecordings : public TestBase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void ordersNamesAsPeopleCount_data();
    void ordersNamesAsPeopleCount();
    void orderIsTheSameUnderAnyLocale();
    void orderIsStrict();
    void opensAFolderInNaturalOrder();
    void readsMixedFormats();
    void contentDecidesTheFormat();
    void leavesOutWhatIsNoImage();
    void leavesOutWhatCannotBeRead();
    void leavesOutATruncatedFirstImage();
    void emptyFolderIsAFailure_data();
    void emptyFolderIsAFailure();
    void failedOpeningUsesNoKey();
    void framesBehindTheLastRepeatIt();
    void otherSizesAreFitted();
    void fileThatWentAwayIsBlack();
    void tellsWhatItIs();
    void isNoDevice();
    void closeFileDocumentsKeepsCameras();
    void twoRecordingsOfOneFolder();
};

namespace {

constexpr int Width = 32;
constexpr int Height = 24;

// A picture of one colour that tells its number by its grey, rough enough for lossy formats.
QImage picture(int number, const QSize &size = QSize(Width, Height))
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(number * 10, number * 10, number * 10));
    return image;
}

// The number of a picture().
int numberOf(const QImage &image)
{
    return qRound(image.pixelColor(image.width() / 2, image.height() / 2).red() / 10.0);
}

QList<int> numbersOf(const StandInRecording *recording)
{
    QList<int> numbers;
    for (quint64 i = 0; i < recording->frameCount(); ++i)
        numbers.append(numberOf(recording->frame(i)));
    return numbers;
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

}

void TestStandInRecordings::initTestCase()
{
    QCOMPARE(QLocale::system().name(), QLocale().name());
}

void TestStandInRecordings::ordersNamesAsPeopleCount_data()
{
    QTest::addColumn<QString>("smaller");
    QTest::addColumn<QString>("larger");
    QTest::newRow("numbers") << "image9.png"
                             << "image10.png";
    QTest::newRow("numbers in the middle") << "a2b10"
                                           << "a2b11";
    QTest::newRow("first number decides") << "a2b11"
                                          << "a10b1";
    QTest::newRow("leading zeros") << "f009"
                                   << "f10";
    QTest::newRow("equal numbers, then the rest") << "f01a"
                                                  << "f1b";
    QTest::newRow("as they are at last") << "f01"
                                         << "f1";
    QTest::newRow("case does not matter") << "Alpha1"
                                          << "beta1";
    QTest::newRow("case decides at last") << "A1"
                                          << "a1";
    QTest::newRow("shorter first") << "a"
                                   << "a1";
    QTest::newRow("empty first") << ""
                                 << "0";
    QTest::newRow("more digits than any number type") << "n99999999999999999999998"
                                                      << "n99999999999999999999999";
    QTest::newRow("digit before letter") << "a1"
                                         << "ab";
    QTest::newRow("umlaut behind") << "z" << QString::fromUtf8("ä");
}

void TestStandInRecordings::ordersNamesAsPeopleCount()
{
    QFETCH(QString, smaller);
    QFETCH(QString, larger);
    QVERIFY(NaturalOrder::isLess(smaller, larger));
    QVERIFY(!NaturalOrder::isLess(larger, smaller));
    QVERIFY(!NaturalOrder::isLess(smaller, smaller));
}

void TestStandInRecordings::orderIsTheSameUnderAnyLocale()
{
    const QLocale before;
    QStringList names{"s10.png", "s9.png", "s1.png", "S2.png"};
    for (const QLocale &locale :
         {QLocale(QLocale::C), QLocale(QLocale::German), QLocale(QLocale::Japanese)}) {
        QLocale::setDefault(locale);
        std::sort(names.begin(), names.end(), NaturalOrder::isLess);
        QCOMPARE(names, QStringList({"s1.png", "S2.png", "s9.png", "s10.png"}));
        std::reverse(names.begin(), names.end());
    }
    QLocale::setDefault(before);
}

void TestStandInRecordings::orderIsStrict()
{
    QStringList names;
    for (const char *stem : {"a", "A", "a0", "a00", "a01", "a1", "a1a", "a1A", "1", "01", ""})
        names.append(QString::fromLatin1(stem));
    for (const QString &a : qAsConst(names)) {
        for (const QString &b : qAsConst(names)) {
            if (a != b)
                QVERIFY2(NaturalOrder::isLess(a, b) != NaturalOrder::isLess(b, a),
                         qPrintable(a + '|' + b));
            for (const QString &c : qAsConst(names)) {
                if (NaturalOrder::isLess(a, b) && NaturalOrder::isLess(b, c))
                    QVERIFY2(NaturalOrder::isLess(a, c), qPrintable(a + '|' + b + '|' + c));
            }
        }
    }
}

void TestStandInRecordings::opensAFolderInNaturalOrder()
{
    QTemporaryDir folder;
    for (int number : {1, 2, 9, 10, 11})
        QVERIFY(picture(number).save(folder.filePath(QStringLiteral("run%1.png").arg(number))));
    StandInHost host;
    StandInRecording *recording = host.openRecording(folder.path());
    QCOMPARE(recording->frameCount(), quint64(5));
    QCOMPARE(numbersOf(recording), QList<int>({1, 2, 9, 10, 11}));
    QCOMPARE(recording->files().last(), folder.filePath("run11.png"));
}

void TestStandInRecordings::readsMixedFormats()
{
    QTemporaryDir folder;
    QVERIFY(picture(1).save(folder.filePath("1.png")));
    QVERIFY(picture(2).save(folder.filePath("2.bmp")));
    QVERIFY(picture(3).save(folder.filePath("3.JPG"), "JPG", 100));
    QVERIFY(picture(4).save(folder.filePath("4.ppm")));
    StandInHost host;
    QCOMPARE(numbersOf(host.openRecording(folder.path())), QList<int>({1, 2, 3, 4}));
}

void TestStandInRecordings::contentDecidesTheFormat()
{
    QTemporaryDir folder;
    QVERIFY(picture(7).save(folder.filePath("7.png"), "BMP"));
    StandInHost host;
    QCOMPARE(numbersOf(host.openRecording(folder.path())), QList<int>({7}));
}

void TestStandInRecordings::leavesOutWhatIsNoImage()
{
    QTemporaryDir folder;
    QVERIFY(picture(1).save(folder.filePath("1.png")));
    write(folder.filePath("readme.txt"), "text");
    write(folder.filePath("settings"), "x");
    QVERIFY(QDir(folder.path()).mkdir("2.png")); // a folder
    StandInHost host;
    const StandInRecording *recording = host.openRecording(folder.path());
    QCOMPARE(recording->frameCount(), quint64(1));
    QCOMPARE(recording->unreadable().size(), 0);
}

void TestStandInRecordings::leavesOutWhatCannotBeRead()
{
    QTemporaryDir folder;
    write(folder.filePath("0.png"), "no image");
    QVERIFY(picture(1).save(folder.filePath("1.png")));
    write(folder.filePath("2.png"), "");
    QVERIFY(picture(3).save(folder.filePath("3.png")));
    StandInHost host;
    const StandInRecording *recording = host.openRecording(folder.path());
    QCOMPARE(numbersOf(recording), QList<int>({1, 3}));
    QCOMPARE(recording->unreadable().size(), 2);
    QCOMPARE(recording->unreadable().at(0).path, folder.filePath("0.png"));
    QVERIFY(!recording->unreadable().at(0).reason.isEmpty());
    QCOMPARE(recording->unreadable().at(1).path, folder.filePath("2.png"));
}

void TestStandInRecordings::leavesOutATruncatedFirstImage()
{
    QTemporaryDir folder;
    QVERIFY(picture(1).save(folder.filePath("1.png")));
    QFile first(folder.filePath("1.png"));
    QVERIFY(first.resize(40)); // the header is whole
    QVERIFY(picture(2).save(folder.filePath("2.png")));
    StandInHost host;
    LogCapture log; // the image reader complains
    const StandInRecording *recording = host.openRecording(folder.path());
    QCOMPARE(recording->files(), QStringList({folder.filePath("2.png")}));
    QCOMPARE(recording->unreadable().size(), 1);
}

void TestStandInRecordings::emptyFolderIsAFailure_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << "empty";
    QTest::newRow("without an image") << "texts";
    QTest::newRow("without an image that can be read") << "broken";
    QTest::newRow("does not exist") << "nowhere";
    QTest::newRow("a file") << "texts/readme.txt";
}

void TestStandInRecordings::emptyFolderIsAFailure()
{
    QFETCH(QString, name);
    QTemporaryDir folder;
    const QDir dir(folder.path());
    QVERIFY(dir.mkdir("empty") && dir.mkdir("texts") && dir.mkdir("broken"));
    write(folder.filePath("texts/readme.txt"), "text");
    write(folder.filePath("broken/1.png"), "no image");

    StandInHost host;
    LogCapture log;
    const QString path = folder.filePath(name);
    QVERIFY_EXCEPTION_THROWN(host.openRecording(path), DOC_ReadFileException);
    const QStringList lines = log.texts(QtCriticalMsg);
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines.at(0).contains("[message:File read failed.]"));
    QVERIFY(lines.at(1).contains("[path:" + path + "]"));
    QCOMPARE(host.documentCount(), 0);
}

void TestStandInRecordings::failedOpeningUsesNoKey()
{
    QTemporaryDir folder;
    StandInHost host;
    LogCapture log;
    QVERIFY_EXCEPTION_THROWN(host.openRecording(folder.path()), DOC_ReadFileException);
    QCOMPARE(host.addCamera()->key(), DOCKEY(1));
}

void TestStandInRecordings::framesBehindTheLastRepeatIt()
{
    QTemporaryDir folder;
    QVERIFY(picture(1).save(folder.filePath("1.png")));
    QVERIFY(picture(2).save(folder.filePath("2.png")));
    StandInHost host;
    const StandInRecording *recording = host.openRecording(folder.path());
    QCOMPARE(numberOf(recording->frame(2)), 2);
    QCOMPARE(numberOf(recording->frame(~quint64(0))), 2);
    QCOMPARE(numberOf(recording->frame(0)), 1);
}

void TestStandInRecordings::otherSizesAreFitted()
{
    QTemporaryDir folder;
    QVERIFY(picture(1).save(folder.filePath("1.png")));
    QVERIFY(picture(9, QSize(16, 48)).save(folder.filePath("2.png"))); // becomes 8x24
    StandInHost host;
    const StandInRecording *recording = host.openRecording(folder.path());
    const QImage second = recording->frame(1);
    QCOMPARE(second.size(), QSize(Width, Height));
    QCOMPARE(second.pixelColor(11, 12), QColor(Qt::black));
    QCOMPARE(second.pixelColor(12, 12), QColor(90, 90, 90));
    QCOMPARE(second.pixelColor(19, 12), QColor(90, 90, 90));
    QCOMPARE(second.pixelColor(20, 12), QColor(Qt::black));
}

void TestStandInRecordings::fileThatWentAwayIsBlack()
{
    QTemporaryDir folder;
    QVERIFY(picture(1).save(folder.filePath("1.png")));
    QVERIFY(picture(2).save(folder.filePath("2.png")));
    StandInHost host;
    const StandInRecording *recording = host.openRecording(folder.path());
    QVERIFY(QFile::remove(folder.filePath("2.png")));
    const QImage missing = recording->frame(1);
    QCOMPARE(missing.size(), QSize(Width, Height));
    QCOMPARE(numberOf(missing), 0);
}

void TestStandInRecordings::tellsWhatItIs()
{
    QTemporaryDir parent;
    QVERIFY(QDir(parent.path()).mkdir("crash"));
    const QString path = parent.filePath("crash/img_1.v2.png");
    QVERIFY(picture(1).save(path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime(QDate(2024, 2, 3), QTime(4, 5, 6)),
                             QFileDevice::FileModificationTime));
    file.close();

    StandInHost host;
    StandInRecording *recording = host.openRecording(parent.filePath("crash"));
    QCOMPARE(recording->folder(), parent.filePath("crash"));
    QCOMPARE(recording->documentKind(), 2);
    QCOMPARE(recording->documentName(), QString("crash"));
    QCOMPARE(recording->originalFilePath(), path);
    QCOMPARE(recording->originalFileName(), QString("img_1.v2"));
    QCOMPARE(recording->partitionNumbers(), QList<int>({1}));
    QCOMPARE(recording->partitionFrameCount(1), 1u);
    QCOMPARE(recording->fileRecordRate(), 0u);
    QCOMPARE(recording->imageSize(), QSize(Width, Height));
    QCOMPARE(recording->recordDate(), QString("2024/2/3"));
    QCOMPARE(recording->recordTime(), QString("04:05:06"));
    QCOMPARE(host.openedDocumentKeys(), QList<DOCKEY>({1}));
}

void TestStandInRecordings::isNoDevice()
{
    QTemporaryDir folder;
    QVERIFY(picture(1).save(folder.filePath("1.png")));
    StandInHost host;
    DOC_Interface *recording = host.openRecording(folder.path());
    QVERIFY(!dynamic_cast<DOC_Camera *>(recording));
    QVERIFY(!recording->headInterface());
    QVERIFY(!recording->isConnected());
    QVERIFY(!recording->isLocked());
    QList<DOCKEY> keys{77};
    host.deviceKeys(keys, true);
    QCOMPARE(keys, QList<DOCKEY>());
    QCOMPARE(host.documentKeys(true, false), QList<DOCKEY>({1}));
    QCOMPARE(host.deviceByKey(1, true), recording);
    host.updateUI(1, false); // nothing to send
    recording->notifyChange(1, false);
}

void TestStandInRecordings::closeFileDocumentsKeepsCameras()
{
    QTemporaryDir folder;
    QVERIFY(picture(1).save(folder.filePath("1.png")));
    StandInHost host;
    host.openRecording(folder.path());
    host.addCamera();
    host.closeFileDocuments(false);
    QCOMPARE(host.documentKeys(true, false), QList<DOCKEY>({2}));
    QCOMPARE(host.currentDocKey(), DOCKEY(2));
}

void TestStandInRecordings::twoRecordingsOfOneFolder()
{
    QTemporaryDir folder;
    QVERIFY(picture(1).save(folder.filePath("1.png")));
    StandInHost host;
    host.openRecording(folder.path());
    host.openRecording(folder.path() + '/');
    QCOMPARE(host.recordings().size(), 2);
    QCOMPARE(host.recordings().at(0)->folder(), host.recordings().at(1)->folder());
    QCOMPARE(host.openedDocumentKeys(), QList<DOCKEY>({2}));
}

int main(int argc, char **argv)
{
    // The numeric mode of a collator does not work in this locale; natural order does.
    qputenv("LC_ALL", "C");
    TestStandInRecordings test;
    return runTest(argc, argv, test);
}

#include "test_standin_recordings.moc"
