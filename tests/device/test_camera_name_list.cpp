#include "device/names/CameraNameList.h"
#include "foundation/Utilities.h"
#include "tests/support/TestLog.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace CameraNameList;

// The file of camera names.
class TestCameraNameList : public TestBase
{
    Q_OBJECT

private slots:
    void linesAreRead_data();
    void linesAreRead();
    void forbiddenCharactersAreTakenOut();
    void namesAreCut_data();
    void namesAreCut();
    void bytesAreDecoded_data();
    void bytesAreDecoded();
    void pageHasNamesWithoutCategoryFirst();
    void pageOfNothing();
    void longLineIsRead();
    void zeroByteIsACharacter();
};

namespace {

// "category: name, name; category: name", the categories in their order.
QString shown(const Content &content)
{
    QStringList categories;
    for (auto each = content.names.begin(); each != content.names.end(); ++each)
        categories.append(each.key() + ": " + each.value().join(", "));
    return categories.join("; ");
}

}

void TestCameraNameList::linesAreRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("names");
    QTest::addColumn<QStringList>("bare");
    const QStringList none;
    const auto row = [&](const char *name, const char *bytes, const char *names,
                         const QStringList &bare) {
        QTest::newRow(name) << QByteArray(bytes) << QString(names) << bare;
    };
    row("nothing", "", "", none);
    row("a line", "Lab,Left,Right", "Lab: Left, Right", none);
    row("lines", "Lab,Left\nHall,Top\n", "Hall: Top; Lab: Left", none);
    row("ends of other systems", "Lab,Left\r\nHall,Top\r\n", "Hall: Top; Lab: Left", none);
    row("empty lines", "\n\nLab,Left\n\r\n\n", "Lab: Left", none);
    row("one word", "Lab\nHall,Top", "Hall: Top", {"Lab"});
    row("one word with blanks", "  Lab \n", "", {"Lab"});
    row("one word with a comma", "Lab,\n", "Lab: ", none);
    row("blanks", "   \n", "", {""});
    row("no category", ",Left,Right", "?default?: Left, Right", none);
    row("blank category", " ,Left", "?default?: Left", none);
    row("category like none", "?default?,Left\n,Right", "?default?: Left, Right", none);
    row("blanks around", " Lab , Left ,\tRight ", "Lab: Left, Right", none);
    row("empty names", "Lab,,Left, ,", "Lab: Left", none);
    row("a category twice", "Lab,Left,Right\nLab,Right,Top", "Lab: Left, Right, Top", none);
    row("a name twice in a line", "Lab,Left,Right,Left", "Lab: Left, Right", none);
    row("a name in two categories", "Lab,Left\nHall,Left", "Hall: Left; Lab: Left", none);
    row("capitals differ", "Lab,Left,left\nlab,Left", "Lab: Left, left; lab: Left", none);
    row("a colon inside", "Lab,Cam:1", "Lab: Cam1", none);
    row("blanks behind what is taken out", "Lab,* Left ?", "Lab: Left", none);
    row("nothing is left", "Lab,*?,Left", "Lab: Left", none);
    row("equal once it is cleaned", "Lab,Cam1,Cam:1", "Lab: Cam1", none);
    row("quotes mean nothing", "Lab,\"a,b\"", "Lab: a, b", none);
    row("category keeps its characters", "L:a*b,Left", "L:a*b: Left", none);
}

void TestCameraNameList::linesAreRead()
{
    QFETCH(QByteArray, bytes);
    const Content content = read(bytes);
    QTEST(shown(content), "names");
    QTEST(content.bareCategories, "bare");
}

void TestCameraNameList::forbiddenCharactersAreTakenOut()
{
    const Content content = read("Lab,a\\b/c*d?e|f\tg\"h:i<j>k%l");
    QCOMPARE(content.names.value("Lab"), QStringList("abcdefghijkl"));
}

void TestCameraNameList::namesAreCut_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("kept");
    const QString longest(1024, 'x');
    QTest::newRow("longest") << longest << longest;
    QTest::newRow("one more") << longest + 'y' << longest;
    QTest::newRow("2000") << QString(2000, 'x') << longest;
    QTest::newRow("cut behind what is taken out") << ':' + longest << longest;
    const uint clef = 0x1d11e;
    const QString two = QString::fromUcs4(&clef, 1);
    const QString before = longest.left(1023);
    QTest::newRow("whole character at the end")
        << longest.left(1022) + two << longest.left(1022) + two;
    QTest::newRow("half a character at the end") << before + two << before;
}

void TestCameraNameList::namesAreCut()
{
    QFETCH(QString, name);
    QFETCH(QString, kept);
    QCOMPARE(read("Lab," + name.toUtf8()).names.value("Lab"), QStringList(kept));
}

void TestCameraNameList::bytesAreDecoded_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isShiftJis");
    QTest::addColumn<QString>("name");
    QTest::newRow("ASCII") << QByteArray("left") << true << "left";
    // "camera" in katakana
    const QString camera = QString::fromUtf8("\xe3\x82\xab\xe3\x83\xa1\xe3\x83\xa9");
    QTest::newRow("UTF-8") << camera.toUtf8() << false << camera;
    QTest::newRow("Shift-JIS") << QByteArray("\x83\x4a\x83\x81\x83\x89") << true << camera;
    QTest::newRow("katakana of a byte each")
        << QByteArray("\xb6\xd2\xd7") << true
        << QString::fromUtf8("\xef\xbd\xb6\xef\xbe\x92\xef\xbe\x97");
    QTest::newRow("the first byte that is no ASCII")
        << QByteArray("a\x80") << false << QString("a") + QChar(QChar::ReplacementCharacter);
    QTest::newRow("neither") << QByteArray("a\xff") << false
                             << QString("a") + QChar(QChar::ReplacementCharacter);
    QTest::newRow("half a character of Shift-JIS")
        << QByteArray("a\x83") << false << QString("a") + QChar(QChar::ReplacementCharacter);
}

void TestCameraNameList::bytesAreDecoded()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, name);
    QTEST(isShiftJis(bytes), "isShiftJis");
    QCOMPARE(read("Lab," + bytes + "\n").names.value("Lab"), QStringList(name));
}

void TestCameraNameList::pageHasNamesWithoutCategoryFirst()
{
    const Content content = read("Lab,L1,L2\n,N1\nHall,H1\n,N2,L1\n!,E1\nEmpty,\n");
    const QJsonArray rows = QJsonDocument::fromJson(pageText(content).toUtf8()).array();
    QStringList shown;
    for (const QJsonValue &each : rows) {
        const QJsonObject row = each.toObject();
        QCOMPARE(row.keys(), QStringList({"category", "label"}));
        shown.append(row["category"].toString() + '/' + row["label"].toString());
    }
    QCOMPARE(shown, QStringList({"/N1", "/N2", "/L1", "!/E1", "Hall/H1", "Lab/L1", "Lab/L2"}));
    QVERIFY(!pageText(content).contains('\n'));
}

void TestCameraNameList::pageOfNothing()
{
    QCOMPARE(pageText(Content()), QString("[]"));
}

void TestCameraNameList::longLineIsRead()
{
    QByteArray bytes("Lab");
    constexpr int Names = 1500000;
    bytes.reserve(12 * Names);
    for (int name = 0; name < Names; ++name)
        bytes += ',' + QByteArray::number(name);
    QVERIFY(bytes.size() >= 10 * 1000 * 1000);
    const Content content = read(bytes);
    QCOMPARE(content.names.value("Lab").size(), Names);
    QCOMPARE(content.names.value("Lab").last(), QString::number(Names - 1));
}

void TestCameraNameList::zeroByteIsACharacter()
{
    const Content content = read(QByteArray("Lab,a\0b\n", 8));
    QCOMPARE(content.names.value("Lab"), QStringList(QString("a") + QChar(0) + "b"));
}

int main(int argc, char *argv[])
{
    TestCameraNameList test;
    return runTest(argc, argv, test);
}

#include "test_camera_name_list.moc"
