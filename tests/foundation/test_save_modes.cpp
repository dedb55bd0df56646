#include "foundation/SaveModes.h"
#include "tests/support/TestLog.h"

#include <limits>

using SaveModes::Family;

Q_DECLARE_METATYPE(Family)

// Which settings a save reads.
class TestSaveModes : public TestBase
{
    Q_OBJECT

private slots:
    void modeHasItsFamily_data();
    void modeHasItsFamily();
    void familyHasItsKeysAndKinds_data();
    void familyHasItsKeysAndKinds();
    void kindHasItsDigits_data();
    void kindHasItsDigits();
    void modesHaveTheirNumbers();
};

void TestSaveModes::modeHasItsFamily_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<Family>("family");
    QTest::addColumn<Family>("groupDirFamily");
    const auto row = [](int mode, Family family, Family groupDir) {
        QTest::newRow(qPrintable(QString::number(mode))) << mode << family << groupDir;
    };
    for (int mode : {std::numeric_limits<int>::min(), -1, 0, 1, 2, 3, 8, 9, 10, 12, 13, 14, 15, 19,
                     20, std::numeric_limits<int>::max()})
        row(mode, Family::Export, Family::Export);
    for (int mode : {4, 5, 18})
        row(mode, Family::Layout, Family::Export);
    for (int mode : {6, 11})
        row(mode, Family::Convert, Family::Convert);
    row(7, Family::Snap, Family::Snap);
    for (int mode : {16, 17})
        row(mode, Family::Report, Family::Report);
}

void TestSaveModes::modeHasItsFamily()
{
    QFETCH(int, mode);
    QTEST(SaveModes::family(mode), "family");
    QTEST(SaveModes::groupDirFamily(mode), "groupDirFamily");
}

void TestSaveModes::familyHasItsKeysAndKinds_data()
{
    QTest::addColumn<Family>("family");
    QTest::addColumn<QString>("dir");
    QTest::addColumn<int>("groupDir");
    QTest::addColumn<int>("subDir");
    QTest::addColumn<int>("fileName");
    QTest::newRow("export") << Family::Export << "export/dir" << 0 << 1 << 2;
    QTest::newRow("convert") << Family::Convert << "convert/dir" << 3 << 4 << 5;
    QTest::newRow("snap") << Family::Snap << "snap/dir" << 6 << 7 << 8;
    QTest::newRow("report") << Family::Report << "report/dir" << 9 << 10 << 11;
    QTest::newRow("layout") << Family::Layout << "layout/dir" << -1 << 15 << 16;
}

void TestSaveModes::familyHasItsKeysAndKinds()
{
    QFETCH(Family, family);
    QTEST(SaveModes::keys(family).dir, "dir");
    QTEST(SaveModes::groupDirKind(family), "groupDir");
    QTEST(SaveModes::subDirKind(family), "subDir");
    QTEST(SaveModes::fileNameKind(family), "fileName");
}

void TestSaveModes::kindHasItsDigits_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("camera");
    QTest::addColumn<QString>("head");
    QTest::addColumn<QString>("session");
    const auto row = [](int kind, const QString &level) {
        QTest::newRow(qPrintable(QString::number(kind)))
            << kind << level + "cameranodigits" << level + "headnodigits"
            << level + "sessionnodigits";
    };
    row(0, "export/groupdiraddnumber");
    row(1, "export/subdiraddnumber");
    row(2, "export/filenameaddnumber");
    row(3, "convert/groupdiraddnumber");
    row(4, "convert/subdiraddnumber");
    row(5, "convert/filenameaddnumber");
    row(6, "snap/groupdiraddnumber");
    row(7, "snap/subdiraddnumber");
    row(8, "snap/filenameaddnumber");
    row(13, "export/kv/datanameaddnumber");
    row(15, "layout/subdiraddnumber");
    row(16, "layout/filenameaddnumber");
    QTest::newRow("10") << 10 << ""
                        << ""
                        << "report/subdiraddnumbersessionnodigits";
    QTest::newRow("11") << 11 << ""
                        << ""
                        << "report/filenameaddnumbersessionnodigits";
    for (int kind : {-1, 9, 12, 14, 17, 1000})
        QTest::newRow(qPrintable(QString::number(kind))) << kind << ""
                                                         << ""
                                                         << "";
}

void TestSaveModes::kindHasItsDigits()
{
    QFETCH(int, kind);
    const Keys::NumberDigitKeys keys = SaveModes::digitKeys(kind);
    QTEST(keys.camera, "camera");
    QTEST(keys.head, "head");
    QTEST(keys.session, "session");
}

void TestSaveModes::modesHaveTheirNumbers()
{
    const QList<int> modes{SaveModes::ExportMode,     SaveModes::LayoutMode,
                           SaveModes::ConvertMode,    SaveModes::SnapMode,
                           SaveModes::FilePreview,    SaveModes::ExportPreview,
                           SaveModes::ConvertPreview, SaveModes::ReportMode,
                           SaveModes::ReportPreview,  SaveModes::LayoutPreview};
    QCOMPARE(modes, QList<int>({1, 4, 6, 7, 9, 10, 11, 16, 17, 18}));
}

int main(int argc, char *argv[])
{
    TestSaveModes test;
    return runTest(argc, argv, test);
}

#include "test_save_modes.moc"
