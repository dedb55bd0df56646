#include "save/path/PathRules.h"
#include "tests/support/TestLog.h"

#include <functional>

using NumberText::Digits;
using PathRules::NameFacts;
using PathRules::NumberFacts;

Q_DECLARE_METATYPE(FileNameSettings)
Q_DECLARE_METATYPE(FolderSettings)
Q_DECLARE_METATYPE(NameFacts)
Q_DECLARE_METATYPE(NumberFacts)

namespace {

QVariantMap item(const QString &name, const QString &value, const QString &unit,
                 const QString &useFileName)
{
    return {{"name", name}, {"value", value}, {"unit", unit}, {"usefilename", useFileName}};
}

template <class Record> Record with(const std::function<void(Record &)> &change)
{
    Record record;
    change(record);
    return record;
}

QString textOf(const PathRules::FolderNumber &number)
{
    return QStringLiteral("%1 %2, %3 %4 %5")
        .arg(number.camera)
        .arg(number.head)
        .arg(number.digits.camera)
        .arg(number.digits.head)
        .arg(number.digits.session);
}

}

// How a path follows from settings and documents.
class TestPathRules : public TestBase
{
    Q_OBJECT

private slots:
    void modesDiffer_data();
    void modesDiffer();
    void testNumberIsFound_data();
    void testNumberIsFound();
    void customInfoMakesAName_data();
    void customInfoMakesAName();
    void fileHasItsName_data();
    void fileHasItsName();
    void directoryHasItsName();
    void directoryHasItsNumbers_data();
    void directoryHasItsNumbers();
    void pathMoves_data();
    void pathMoves();
    void pictureStandsBesideTheFile_data();
    void pictureStandsBesideTheFile();
    void longestPathHas245Letters();
};

void TestPathRules::modesDiffer_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("traits");
    const QMap<int, QString> others{{1, "group planned destinations thumbnail"},
                                    {2, "group planned destinations thumbnail"},
                                    {4, "planned"},
                                    {5, "planned"},
                                    {6, "group planned thumbnail"},
                                    {9, "group planned unnamed"},
                                    {10, "group planned unnamed"},
                                    {11, "group planned unnamed"},
                                    {16, "group"},
                                    {17, "group planned unnamed"},
                                    {18, "group planned unnamed"}};
    for (int mode = -1; mode <= 20; ++mode)
        QTest::newRow(qPrintable(QString::number(mode)))
            << mode << others.value(mode, "group planned");
}

void TestPathRules::modesDiffer()
{
    QFETCH(int, mode);
    QStringList traits;
    if (PathRules::hasGroupDir(mode))
        traits.append("group");
    if (PathRules::isPlanned(mode))
        traits.append("planned");
    if (PathRules::usesDestinations(mode))
        traits.append("destinations");
    if (PathRules::hasThumbnail(mode))
        traits.append("thumbnail");
    if (PathRules::mayBeUnnamed(mode))
        traits.append("unnamed");
    QTEST(traits.join(' '), "traits");
}

void TestPathRules::testNumberIsFound_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QVariantList>("customInfo");
    QTest::addColumn<QString>("number");
    const QVariantList items{item("Project", "P", "", "on"), item("TestNo", "T7", "", "off"),
                             item("TestNo", "T8", "", "on")};
    QTest::newRow("setting") << "N1" << items << "N1";
    QTest::newRow("first item of the name") << "" << items << "T7";
    QTest::newRow("no such item") << "" << QVariantList{items.first()} << "";
    QTest::newRow("other capitals") << "" << QVariantList{item("testno", "T7", "", "")} << "";
    QTest::newRow("no items") << "" << QVariantList() << "";
    QTest::newRow("no item at all") << "" << QVariantList{QVariant(), 5} << "";
    QTest::newRow("characters stay") << "a/b" << items << "a/b";
}

void TestPathRules::testNumberIsFound()
{
    QFETCH(QString, setting);
    QFETCH(QVariantList, customInfo);
    QTEST(PathRules::testNumber(setting, customInfo), "number");
}

void TestPathRules::customInfoMakesAName_data()
{
    QTest::addColumn<QVariantList>("customInfo");
    QTest::addColumn<bool>("includesUnit");
    QTest::addColumn<QString>("name");
    const QVariantList two{item("A", "12.5", "mm", "on"), item("B", "300", "fps", "on")};
    QTest::newRow("with units") << two << true << "12.5mm_300fps";
    QTest::newRow("without units") << two << false << "12.5_300";
    QTest::newRow("marked alone") << QVariantList{item("A", "a", "", "off"),
                                                  item("B", "b", "", "on"),
                                                  item("C", "c", "", "ON"), item("D", "d", "", "")}
                                  << false << "b";
    QTest::newRow("in order") << QVariantList{two.last(), two.first()} << false << "300_12.5";
    QTest::newRow("empty values") << QVariantList{item("A", "", "", "on"), item("B", "", "", "on"),
                                                  item("C", "c", "", "on"), item("D", "", "", "on")}
                                  << false << "c_";
    QTest::newRow("forbidden characters")
        << QVariantList{item("A", "1:2", "m/s", "on")} << true << "1_2m_s";
    QTest::newRow("points") << QVariantList{item("A", "..", "", "on")} << false << "__";
    QTest::newRow("none") << QVariantList() << true << "";
    QTest::newRow("no records") << QVariantList{5, QString("on")} << true << "";
    QTest::newRow("marks of arguments")
        << QVariantList{item("A", "%1", "%2", "on")} << true << "_1_2";
}

void TestPathRules::customInfoMakesAName()
{
    QFETCH(QVariantList, customInfo);
    QFETCH(bool, includesUnit);
    QTEST(PathRules::customName(customInfo, includesUnit), "name");
}

void TestPathRules::fileHasItsName_data()
{
    QTest::addColumn<FileNameSettings>("settings");
    QTest::addColumn<NameFacts>("facts");
    QTest::addColumn<bool>("isFileMode");
    QTest::addColumn<QString>("name");
    using Change = std::function<void(FileNameSettings &)>;
    const auto settings = [](const Change &change) {
        return with<FileNameSettings>([&](FileNameSettings &own) {
            own.name = "fixed:";
            change(own);
        });
    };
    const NameFacts all{"orig:", "part:", QVariantList{item("A", "cust", "u", "on")}};
    const NameFacts none;
    const NameFacts noMarks{"orig", "part", QVariantList()};
    const Change fixed = [](FileNameSettings &) {};
    const Change original = [](FileNameSettings &own) { own.asOriginal = true; };
    const Change partition = [](FileNameSettings &own) { own.asPartitionName = true; };
    const Change custom = [](FileNameSettings &own) { own.usesCustomInfo = true; };
    const Change unit = [](FileNameSettings &own) {
        own.usesCustomInfo = true;
        own.includesUnit = true;
    };
    const Change originalAndPartition = [](FileNameSettings &own) {
        own.asOriginal = true;
        own.asPartitionName = true;
    };
    const Change everything = [](FileNameSettings &own) {
        own.asOriginal = true;
        own.asPartitionName = true;
        own.usesCustomInfo = true;
    };
    QTest::newRow("fixed, as it stands") << settings(fixed) << all << false << "fixed:";
    QTest::newRow("original, as it stands") << settings(original) << all << false << "orig:";
    QTest::newRow("original of nothing") << settings(original) << none << false << "";
    QTest::newRow("partition, cleaned") << settings(partition) << all << false << "part_";
    QTest::newRow("partition of nothing") << settings(partition) << none << false << "";
    QTest::newRow("partition of a file") << settings(partition) << all << true << "fixed:";
    QTest::newRow("partition before original")
        << settings(originalAndPartition) << all << false << "part_";
    QTest::newRow("original of a file") << settings(originalAndPartition) << all << true << "orig:";
    QTest::newRow("partition .") << settings(partition) << NameFacts{"", ".", {}} << false << "_";
    QTest::newRow("partition ..") << settings(partition) << NameFacts{"", "..", {}} << false
                                  << "__";
    QTest::newRow("custom items") << settings(custom) << all << false << "cust";
    QTest::newRow("custom items with unit") << settings(unit) << all << false << "custu";
    QTest::newRow("custom items before all") << settings(everything) << all << false << "cust";
    QTest::newRow("custom items of a file") << settings(everything) << all << true << "cust";
    QTest::newRow("no marked items") << settings(everything) << noMarks << false << "";
    QTest::newRow("nothing with items") << settings(custom) << none << false << "fixed:";
}

void TestPathRules::fileHasItsName()
{
    QFETCH(FileNameSettings, settings);
    QFETCH(NameFacts, facts);
    QFETCH(bool, isFileMode);
    QTEST(PathRules::bareName(settings, facts, isFileMode), "name");
}

void TestPathRules::directoryHasItsName()
{
    FolderSettings settings;
    settings.name = "Run";
    QCOMPARE(PathRules::folderName(settings, "Shot"), QString("Run"));
    settings.isNamedAsFile = true;
    QCOMPARE(PathRules::folderName(settings, "Shot"), QString("Shot"));
    QCOMPARE(PathRules::folderName(settings, ""), QString());
}

void TestPathRules::directoryHasItsNumbers_data()
{
    QTest::addColumn<bool>("sizesDigits");
    QTest::addColumn<NumberFacts>("facts");
    QTest::addColumn<bool>("isFileMode");
    QTest::addColumn<QString>("numbers"); // camera head, their digits and the session's
    const NumberFacts none;
    QTest::newRow("no document") << false << none << false << "1 1, 2 3 4";
    QTest::newRow("no document, sized") << true << none << false << "1 1, 2 3 4";
    QTest::newRow("as set") << false << NumberFacts{5, 2, 12, 4} << false << "5 2, 2 3 4";
    QTest::newRow("sized, one head") << true << NumberFacts{5, 1, 2, 1} << false << "5 1, 1 0 4";
    QTest::newRow("sized, no heads") << true << NumberFacts{5, 1, 9, 0} << false << "5 1, 1 0 4";
    QTest::newRow("sized, two heads") << true << NumberFacts{5, 2, 10, 2} << false << "5 2, 2 1 4";
    QTest::newRow("sized, many") << true << NumberFacts{5, 2, 100, 12} << false << "5 2, 3 2 4";
    QTest::newRow("sized, no cameras") << true << NumberFacts{5, 2, 0, 0} << false << "5 2, 1 0 4";
    QTest::newRow("file") << false << none << true << "1 1, 0 0 4";
    QTest::newRow("file, sized") << true << none << true << "1 1, 0 0 4";
}

void TestPathRules::directoryHasItsNumbers()
{
    QFETCH(bool, sizesDigits);
    QFETCH(NumberFacts, facts);
    QFETCH(bool, isFileMode);
    FolderSettings settings;
    settings.sizesDigits = sizesDigits;
    settings.digits = {2, 3, 4};
    QTEST(textOf(PathRules::folderNumber(settings, facts, isFileMode)), "numbers");
}

void TestPathRules::pathMoves_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("dir");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("moved");
    QTest::newRow("below it") << "/a/b/Shot"
                              << "/a/b/"
                              << "Shot"
                              << "/x/Shot";
    QTest::newRow("each occurrence") << "a/a/Shot"
                                     << "a/"
                                     << "Shot"
                                     << "/x//x/Shot";
    QTest::newRow("no directory") << "Shot"
                                  << ""
                                  << "Shot"
                                  << "/x/Shot";
}

void TestPathRules::pathMoves()
{
    QFETCH(QString, path);
    QFETCH(QString, dir);
    QFETCH(QString, name);
    QTEST(PathRules::movedPath(path, dir, name, QStringLiteral("/x/")), "moved");
    if (dir.isEmpty())
        QTEST(PathRules::movedPath(path, dir, name, QStringLiteral("/x")), "moved");
    else
        QVERIFY(PathRules::movedPath(path, dir, name, QStringLiteral("/y")).endsWith("/yShot"));
}

void TestPathRules::pictureStandsBesideTheFile_data()
{
    QTest::addColumn<bool>("hasInformationFile");
    QTest::addColumn<bool>("isSaved");
    QTest::addColumn<QString>("path");
    QTest::newRow("saved") << false << true << "/a/Shot_thumb";
    QTest::newRow("not saved") << false << false << "/a/Shot";
    QTest::newRow("information in its place") << true << true << "/a/Shot";
    QTest::newRow("information alone") << true << false << "/a/Shot";
}

void TestPathRules::pictureStandsBesideTheFile()
{
    QFETCH(bool, hasInformationFile);
    QFETCH(bool, isSaved);
    const ThumbnailSettings settings{hasInformationFile, isSaved, "_thumb"};
    QTEST(PathRules::thumbnailPath(QStringLiteral("/a/Shot"), settings), "path");
}

void TestPathRules::longestPathHas245Letters()
{
    QVERIFY(!PathRules::isTooLong(QString(245, 'a')));
    QVERIFY(PathRules::isTooLong(QString(246, 'a')));
    QVERIFY(!PathRules::isTooLong(QString()));
}

int main(int argc, char *argv[])
{
    TestPathRules test;
    return runTest(argc, argv, test);
}

#include "test_path_rules.moc"
