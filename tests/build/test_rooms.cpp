#include "tests/build/Rooms.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// A folder "house" with the rooms cellar <- hall <- attic, and the flat part right of all.
const char *const House = "# the house\n"
                          "\n"
                          "house/cellar\n"
                          "house/hall     house/cellar\n"
                          "house/attic    house/hall\n"
                          "house          house/attic\n";

}

// The rooms inside a folder see each other in one direction only, as the list of rooms says.
class TestRooms : public TestBase
{
    Q_OBJECT

private slots:
    void sourcesKeepToTheList();
    void everyFolderWithRoomsIsListed();
    void seesWhatIsLeftOfARoom();
    void noticesAnArrow_data();
    void noticesAnArrow();
    void noticesARoomWithoutALine();
    void noticesALineOutOfOrder();

private:
    void write(const QString &path, const QByteArray &text);

    QTemporaryDir m_dir;
};

void TestRooms::write(const QString &path, const QByteArray &text)
{
    const QDir dir(m_dir.path());
    QVERIFY(dir.mkpath(path.section('/', 0, -2)));
    QFile file(dir.filePath(path));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(text), text.size());
}

void TestRooms::sourcesKeepToTheList()
{
    const Rooms rooms(textOf(QStringLiteral(CHECKOUT "/cmake/rooms.txt")));
    QCOMPARE(rooms.errors(), QStringList());
    QCOMPARE(rooms.strayArrows(QStringLiteral(CHECKOUT)).join("\n"), QString());
}

void TestRooms::everyFolderWithRoomsIsListed()
{
    const QString list = textOf(QStringLiteral(CHECKOUT "/cmake/rooms.txt"));
    const QString layers = textOf(QStringLiteral(CHECKOUT "/cmake/layers.txt"));
    QStringList folders = {"standin", "workbench"};
    for (const QString &line : layers.split('\n', Qt::SkipEmptyParts)) {
        if (!line.startsWith('#'))
            folders.append(line.section(' ', 0, 0));
    }
    QVERIFY(folders.size() > 5);
    for (const QString &folder : folders) {
        const QDir dir(QStringLiteral(CHECKOUT "/") + folder);
        for (const QString &room : dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const bool hasSources =
                !QDir(dir.filePath(room)).entryList({"*.h", "*.cpp"}, QDir::Files).isEmpty();
            if (hasSources)
                QVERIFY2(list.contains("\n" + folder + "/" + room), qPrintable(dir.filePath(room)));
        }
    }
}

void TestRooms::seesWhatIsLeftOfARoom()
{
    write("house/cellar/Shelf.h", "#pragma once\nclass Shelf\n{\n};\n");
    write("house/attic/Trunk.h", "#include \"house/cellar/Shelf.h\"\nclass Shelf;\n"
                                 "#include <QString>\n#include \"street/Lamp.h\"\nclass Lamp;\n");
    write("house/Door.cpp", "#include \"house/attic/Trunk.h\"\n");
    const Rooms rooms(House);
    QCOMPARE(rooms.errors(), QStringList());
    QCOMPARE(rooms.strayArrows(m_dir.path()), QStringList());
}

void TestRooms::noticesAnArrow_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("problem");
    QTest::newRow("include to the right") << QByteArray("#include \"house/attic/Trunk.h\"\n")
                                          << "house/hall/Chair.cpp includes house/attic/Trunk.h";
    QTest::newRow("include of the flat part") << QByteArray("#include \"house/Door.h\"\n")
                                              << "house/hall/Chair.cpp includes house/Door.h";
    QTest::newRow("class declared ahead")
        << QByteArray("class Trunk;\n") << "house/hall/Chair.cpp declares Trunk of house/attic";
    QTest::newRow("record declared ahead")
        << QByteArray("struct Trunk;\n") << "house/hall/Chair.cpp declares Trunk of house/attic";
}

void TestRooms::noticesAnArrow()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, problem);
    write("house/attic/Trunk.h", "class Trunk\n{\n};\n");
    write("house/hall/Chair.cpp", "#include \"house/cellar/Shelf.h\"\n" + line);
    QCOMPARE(Rooms(House).strayArrows(m_dir.path()), QStringList({problem}));
    write("house/hall/Chair.cpp", "");
}

void TestRooms::noticesARoomWithoutALine()
{
    write("house/roof/Tile.h", "");
    QCOMPARE(Rooms(House).strayArrows(m_dir.path()),
             QStringList({"house/roof/Tile.h lies in house/roof, which is no room of the list"}));
    QVERIFY(QDir(m_dir.filePath("house/roof")).removeRecursively());
}

void TestRooms::noticesALineOutOfOrder()
{
    QCOMPARE(Rooms("a/hall a/cellar\na/cellar\n").errors(),
             QStringList({"a/hall sees a/cellar, which has no line before it"}));
    QCOMPARE(Rooms("a/hall a/hall\n").errors(),
             QStringList({"a/hall sees a/hall, which has no line before it"}));
}

int main(int argc, char *argv[])
{
    TestRooms test;
    return runTest(argc, argv, test);
}

#include "test_rooms.moc"
