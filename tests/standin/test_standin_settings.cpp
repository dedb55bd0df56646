#include "foundation/InfoItems.h"
#include "foundation/Keys.h"
#include "foundation/exceptions/APP_Exception.h"
#include "standin/host/StandInHost.h"
#include "standin/settings/StandInDefaults.h"
#include "tests/support/TestLog.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>

class TestStandInSettings : public TestBase
{
    Q_OBJECT

private slots:
    void storedValueGoesBeforeDefaults();
    void givenDefaultGoesBeforeTheCatalogue();
    void invalidDefaultMeansTheCatalogue();
    void missingWithoutAnyDefaultIsNeutral();
    void typedGettersConvert();
    void settersKeepTheirType();
    void removeShowsTheDefaultAgain();
    void ownDefaultGoesBeforeTheCatalogue();
    void keysAreCaseSensitive();
    void iniFileKeepsValues();
    void iniFileGivesTheTypeOfTheDefault();
    void iniFileKeepsAnyText();
    void missingIniFileIsMade();
    void changeIsInTheFileAtOnce();
    void iniFileKeepsEveryValue_data();
    void iniFileKeepsEveryValue();
    void whatCannotBeRemovedIsTold();
    void whatCannotBeStoredIsTold();
    void fullDiskIsTold();
    void failureIsForgottenOnceThereIsRoom();
    void emptyKeyDisturbsNothing();
    void cameraNamesAreCompletedBySetting();
    void catalogueKnowsEveryKey();
    void defaultOfEveryKey_data();
    void defaultOfEveryKey();
    void defaultsThatOthersRelyOn();
    void informationDisplayFollowsTheTable();
    void oneGroupOfTheSavedInformationIsTicked();
    void timeCodeKeepsWhatIsNotStored();
    void timeCodeIsStoredFieldByField();
    void timeCodeThatIsNoNumberIsZero();
    void timeCodeThatCannotBeStoredIsTold();
};

namespace {

// QVariant compares 5 and "5" as equal; a setting has a type.
QString typed(const QVariant &value)
{
    const QString name = QString::fromLatin1(value.typeName());
    return name + QLatin1Char(' ') + JournalText::text(value);
}

}

void TestStandInSettings::storedValueGoesBeforeDefaults()
{
    StandInHost host;
    host.setPrefInt("info/RecTimeUnit", 3);
    QCOMPARE(host.getPrefInt("info/RecTimeUnit", 9), 3);
    QCOMPARE(typed(host.getPref("info/RecTimeUnit", QVariant())), typed(QVariant(3)));
}

void TestStandInSettings::givenDefaultGoesBeforeTheCatalogue()
{
    StandInHost host;
    QCOMPARE(host.getPrefString("env/style", "dark"), QString("dark"));
    QCOMPARE(host.getPrefInt("customize/unitSystem", 0), 0);
}

void TestStandInSettings::invalidDefaultMeansTheCatalogue()
{
    StandInHost host;
    QCOMPARE(host.getPrefString("env/style", QVariant()), QString("light"));
    QCOMPARE(host.getPrefInt("customize/unitSystem", QVariant()), 1);
    QCOMPARE(typed(host.getPref("env/style", QVariant())), typed(QVariant("light")));
    QCOMPARE(typed(host.prefDefault("env/style")), typed(QVariant("light")));
}

void TestStandInSettings::missingWithoutAnyDefaultIsNeutral()
{
    StandInHost host;
    LogCapture log; // nobody asks for it
    QVERIFY(!host.getPref("no/such", QVariant()).isValid());
    QCOMPARE(host.getPrefInt("no/such", QVariant()), 0);
    QCOMPARE(host.getPrefBool("no/such", QVariant()), false);
    QCOMPARE(host.getPrefFloat("no/such", QVariant()), 0.0);
    QCOMPARE(host.getPrefString("no/such", QVariant()), QString());
    QVERIFY(!host.prefDefault("no/such").isValid());
}

void TestStandInSettings::typedGettersConvert()
{
    StandInHost host;
    host.settings().declare({"a/number", "a/flag", "a/one", "a/none"});
    host.setPrefString("a/number", "12");
    QCOMPARE(host.getPrefInt("a/number", QVariant()), 12);
    QCOMPARE(host.getPrefFloat("a/number", QVariant()), 12.0);
    host.setPref("a/flag", QString("true"));
    QCOMPARE(host.getPrefBool("a/flag", QVariant()), true);
    host.setPrefInt("a/one", 1);
    QCOMPARE(host.getPrefBool("a/one", QVariant()), true);
    QCOMPARE(host.getPrefString("a/one", QVariant()), QString("1"));
    QCOMPARE(host.getPrefInt("a/none", QString("7")), 7);
}

void TestStandInSettings::settersKeepTheirType()
{
    StandInHost host;
    host.settings().declare({"a/b", "a/f", "a/s", "a/v"});
    host.setPrefBool("a/b", true);
    host.setPrefFloat("a/f", 0.25);
    host.setPrefString("a/s", "5");
    host.setPref("a/v", QSize(3, 4));
    QCOMPARE(typed(host.getPref("a/b", QVariant())), typed(QVariant(true)));
    QCOMPARE(typed(host.getPref("a/f", QVariant())), typed(QVariant(0.25)));
    QCOMPARE(typed(host.getPref("a/s", QVariant())), typed(QVariant(QString("5"))));
    QCOMPARE(typed(host.getPref("a/v", QVariant())), typed(QVariant(QSize(3, 4))));
}

void TestStandInSettings::removeShowsTheDefaultAgain()
{
    StandInHost host;
    host.settings().declare({"never/stored"});
    QStringList changed;
    connect(host.events(), &StandInEvents::settingChanged, this,
            [&](const QString &key) { changed.append(key); });
    host.setPref("env/style", "dark");
    host.removePref("env/style");
    QCOMPARE(host.getPrefString("env/style", QVariant()), QString("light"));
    host.removePref("never/stored");
    QCOMPARE(changed, QStringList({"env/style", "env/style", "never/stored"}));
}

void TestStandInSettings::ownDefaultGoesBeforeTheCatalogue()
{
    StandInHost host;
    host.settings().setDefault("env/style", "dark");
    QCOMPARE(typed(host.prefDefault("env/style")), typed(QVariant("dark")));
    QCOMPARE(host.getPrefString("env/style", QVariant()), QString("dark"));
    QCOMPARE(StandInHost().prefDefault("env/style"), QVariant("light"));
}

void TestStandInSettings::keysAreCaseSensitive()
{
    StandInHost host;
    host.setPrefInt("info/RecTimeUnit", 2);
    LogCapture log; // of the key that is none
    QCOMPARE(host.getPrefInt("info/rectimeunit", 8), 8);
    QVERIFY(!host.prefDefault("info/rectimeunit").isValid());
}

void TestStandInSettings::iniFileKeepsValues()
{
    QTemporaryDir folder;
    const QString file = folder.filePath("settings.ini");
    {
        StandInHost host(file);
        host.setPrefInt("info/RecTimeUnit", 2);
        host.setPref("convert/kv/datanameaddnumber", true);
        host.setPref("env/style", "dark");
        host.removePref("env/style");
    }
    StandInHost host(file);
    QCOMPARE(host.getPrefInt("info/RecTimeUnit", QVariant()), 2);
    QCOMPARE(host.getPrefBool("convert/kv/datanameaddnumber", QVariant()), true);
    QCOMPARE(host.getPrefString("env/style", QVariant()), QString("light"));
    QCOMPARE(host.settings().keys(),
             QStringList({"convert/kv/datanameaddnumber", "info/RecTimeUnit"}));
}

void TestStandInSettings::iniFileGivesTheTypeOfTheDefault()
{
    QTemporaryDir folder;
    const QString name = folder.filePath("settings.ini");
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[export]\nskipsavemsec=2.5\nsinglepath=false\nskipunit=abc\n[own]\nx=5\n");
    file.close();

    StandInHost host(name);
    host.settings().declare({"own/x"});
    QCOMPARE(typed(host.getPref("export/skipsavemsec", QVariant())), typed(QVariant(2.5)));
    QCOMPARE(typed(host.getPref("export/singlepath", QVariant())), typed(QVariant(false)));
    QCOMPARE(typed(host.getPref("export/skipunit", QVariant())),
             typed(QVariant("abc"))); // no number: as it is
    QCOMPARE(typed(host.getPref("own/x", QVariant())), typed(QVariant("5")));
}

void TestStandInSettings::iniFileKeepsAnyText()
{
    const QString text = QString::fromUtf8("D:\\x;y, \"z\" = ä\n100%");
    QTemporaryDir folder;
    const QString file = folder.filePath("settings.ini");
    {
        StandInHost host(file);
        host.settings().declare({QString::fromUtf8("käse/ä b")});
        host.setPrefString("export/dir", text);
        host.setPrefString(QString::fromUtf8("käse/ä b"), text);
    }
    StandInHost host(file);
    host.settings().declare({QString::fromUtf8("käse/ä b")});
    QCOMPARE(host.getPrefString("export/dir", QVariant()), text);
    QCOMPARE(host.getPrefString(QString::fromUtf8("käse/ä b"), QVariant()), text);
}

void TestStandInSettings::missingIniFileIsMade()
{
    QTemporaryDir folder;
    const QString file = folder.filePath("deeper/settings.ini");
    StandInHost host(file);
    QVERIFY(!QFile::exists(file));
    host.setPrefBool("display/DisplayWithRealBitDepth", true);
    QVERIFY(QFile::exists(file));
}

void TestStandInSettings::changeIsInTheFileAtOnce()
{
    QTemporaryDir folder;
    const QString file = folder.filePath("settings.ini");
    StandInHost host(file);
    host.setPrefInt("info/RecTimeUnit", 2);
    QCOMPARE(StandInSettings(file).value("info/RecTimeUnit", QVariant()), QVariant(2));
    host.removePref("info/RecTimeUnit");
    QVERIFY(!StandInSettings(file).contains("info/RecTimeUnit"));
}

void TestStandInSettings::iniFileKeepsEveryValue_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char *name, const QVariant &value) {
        QTest::newRow(name) << QString("lab/value") << value;
    };
    row("quotes and backslashes", "a \"b\" \\c\\");
    row("signs of the file", "[x]; y=1, z #c %20");
    row("lines", "one\ntwo\r\nthree\tfour");
    row("codes before digits", QString(QChar(1)) + "a" + QChar(0x1f) + "9" + QChar(0x7f) + "Fz");
    row("NUL", QString("a") + QChar(0) + "b");
    row("blanks around", "  x  ");
    row("empty", "");
    row("a type's mark", "@Size(1 2)");
    row("letters", QString::fromUtf8("Größe 日本 \xf0\x9f\x8e\xa5"));
    row("size", QSize(3, -4));
    row("bytes", QByteArray("\x00\xff\x7f\"\\)(", 7));
    row("rectangle", QRect(1, 2, 3, 4));
    row("list", QStringList({"a, b", "\"c\"", ""}));
    QTest::newRow("no group") << "bare" << QVariant("x");
    QTest::newRow("group general") << "General/x" << QVariant("x");
    QTest::newRow("group in small letters") << "general/x" << QVariant("x");
    QTest::newRow("deep") << "a/b/c" << QVariant("x");
    QTest::newRow("letters in the key") << QString::fromUtf8("käse 日/ä=b]%") << QVariant("x");
}

void TestStandInSettings::iniFileKeepsEveryValue()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QTemporaryDir folder;
    const QString file = folder.filePath("settings.ini");
    QVERIFY(StandInSettings(file).setValue(key, value));
    const StandInSettings read(file);
    QCOMPARE(read.value(key, QVariant()), value);
    QCOMPARE(read.keys().size(), 1);
}

void TestStandInSettings::whatCannotBeRemovedIsTold()
{
    QTemporaryDir folder;
    const QString deeper = folder.filePath("deeper");
    StandInHost host(deeper + "/settings.ini");
    host.setPrefString("env/style", "dark");
    QVERIFY(QDir(deeper).removeRecursively());
    QVERIFY(QFile(deeper).open(QIODevice::WriteOnly)); // a file in place of the folder
    LogCapture log;
    QVERIFY_EXCEPTION_THROWN(host.removePref("env/style"), std::exception);
    QCOMPARE(host.getPrefString("env/style", QVariant()), QString("dark"));
}

void TestStandInSettings::whatCannotBeStoredIsTold()
{
    QTemporaryDir folder;
    QFile(folder.filePath("taken")).open(QIODevice::WriteOnly);
    StandInHost host(folder.filePath("taken/settings.ini")); // below a file
    QSignalSpy changed(host.events(), &StandInEvents::settingChanged);
    LogCapture log; // of the exceptions
    try {
        host.setPrefString("env/style", "dark");
        QFAIL("nothing was stored");
    } catch (const std::exception &failure) {
        QCOMPARE(QString(failure.what()), QString("The settings could not be stored."));
    }
    QCOMPARE(host.getPrefString("env/style", QVariant()), QString("light"));
    QVERIFY_EXCEPTION_THROWN(host.setPref("env/style", "dark"), std::exception);
    QVERIFY_EXCEPTION_THROWN(host.setPrefInt("info/RecTimeUnit", 1), std::exception);
    QVERIFY_EXCEPTION_THROWN(host.setPrefBool("info/Bold", true), std::exception);
    QVERIFY_EXCEPTION_THROWN(host.setPrefFloat("export/skipsavemsec", 2.0), std::exception);
    QVERIFY(host.settings().keys().isEmpty());
    QCOMPARE(changed.size(), 0);
}

namespace {

/// While it lives, no file of this process grows beyond so many bytes.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN); // the write fails instead
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit full{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before{};
};

}

void TestStandInSettings::fullDiskIsTold()
{
    QTemporaryDir folder;
    const QString file = folder.filePath("settings.ini");
    StandInSettings settings(file);
    QVERIFY(settings.setValue("export/dir", "before"));
    {
        const FullDisk full(512);
        QVERIFY(!settings.setValue("export/dir", QString(2000, 'x')));
    }
    QCOMPARE(settings.value("export/dir", QVariant()), QVariant("before"));
    QCOMPARE(StandInSettings(file).value("export/dir", QVariant()), QVariant("before"));
}

void TestStandInSettings::failureIsForgottenOnceThereIsRoom()
{
    QTemporaryDir folder;
    const QString file = folder.filePath("deeper/settings.ini");
    QFile(folder.filePath("deeper")).open(QIODevice::WriteOnly);
    StandInSettings settings(file);
    QVERIFY(!settings.setValue("export/dir", "refused"));
    QVERIFY(QFile::remove(folder.filePath("deeper")));
    QVERIFY(settings.setValue("import/dir", "stored"));
    const StandInSettings stored(file);
    QCOMPARE(stored.keys(), QStringList("import/dir")); // and not what was refused
}

void TestStandInSettings::emptyKeyDisturbsNothing()
{
    QTemporaryDir folder;
    const QString file = folder.filePath("settings.ini");
    {
        StandInHost host(file);
        host.setPrefInt("info/RecTimeUnit", 2);
        {
            LogCapture log; // there is no setting without a name
            host.setPrefInt(QString(), 5);
            QCOMPARE(host.getPrefInt(QString(), QVariant()), 5);
            host.removePref(QString());
        }
        QCOMPARE(host.getPrefInt(QString(), QVariant()), 0);
    }
    QCOMPARE(StandInHost(file).getPrefInt("info/RecTimeUnit", QVariant()), 2);
}

void TestStandInSettings::cameraNamesAreCompletedBySetting()
{
    StandInHost host;
    QVERIFY(!host.isAutoCameraNameEnabled());
    host.setPrefBool("usercustom/completeCameraNames", true);
    QVERIFY(host.isAutoCameraNameEnabled());
    host.setPrefBool("usercustom/completeCameraNames", false);
    QVERIFY(!host.isAutoCameraNameEnabled());
}

void TestStandInSettings::catalogueKnowsEveryKey()
{
    QFile list(QStringLiteral(SETTINGS_KEYS));
    QVERIFY(list.open(QIODevice::ReadOnly | QIODevice::Text));
    const QStringList keys = QString::fromUtf8(list.readAll()).split('\n', Qt::SkipEmptyParts);
    QCOMPARE(keys.size(), 270);
    QStringList unknown;
    for (const QString &key : keys) {
        if (!StandInDefaults::isKnown(key))
            unknown.append(key);
    }
    QCOMPARE(unknown, QStringList());
    QVERIFY(!StandInDefaults::isKnown("info/rectimeunit"));
    QVERIFY(!StandInDefaults::isKnown(QString()));
}

void TestStandInSettings::defaultOfEveryKey_data()
{
    QTest::addColumn<QString>("key");
    const QStringList keys = StandInDefaults::keys();
    for (const QString &key : keys)
        QTest::newRow(qPrintable(key)) << key;
}

void TestStandInSettings::defaultOfEveryKey()
{
    QFETCH(QString, key);
    QVERIFY(StandInDefaults::valueOf(key).isValid());
    QVERIFY2(key.contains('/'), "group and name");
}

void TestStandInSettings::defaultsThatOthersRelyOn()
{
    const QVector<QPair<QString, QVariant>> expected{
        {"cameraconnection/AddIPDefault", "192.168.0.10"},
        {"cameraconnection/SearchIP", "192.168.0.0"},
        {"convert/dir", StandInDefaults::saveFolder()},
        {"convert/kv/datanameaddnumber", false},
        {"customize/unitSystem", 1},
        {"devicemanager/connectedCameraOnlyShowing", false},
        {"display/language", "en"},
        {"display/outputLanguage", 0},
        {"display/DisplayWithRealBitDepth", false},
        {"env/style", "light"},
        {"export/filenameaddnumbersessionnodigits", 4},
        {"export/filenameusecustomfromtargetkey", -1},
        {"export/groupdir", false},
        {"export/groupdiraddnumberformat", "auto"},
        {"export/inf_testno", ""},
        {"export/kv/datanameaddnumbercameranodigits", 3},
        {"export/media", "file"},
        {"export/singlepath", true},
        {"export/skipsaveframe", 1},
        {"import/dir", ""},
        {"info/BlankLine", true},
        {"info/FontSize", "12"},
        {"info/RecTimeUnit", 0},
        {"layout/subdirname", ""},
        {"main/scrno", 0},
        {"qcfg/filenameasoriginal", true},
        {"recording/AutoDownload", false},
        {"report/groupdirname", ""},
        {"save/EnableBlankFilename", false},
        {"saveinfo/ColumnSpacing6", 10},
        {"saveinfo/FixedFontSizeRatioBaseResolution0", QSize(-1, -1)},
        {"saveinfo/WithinImage", true},
        {"snap/filename", "Snapshot"},
        {"support/dir", ""},
        {"usercustom/cameraNameFilePath", ""},
        {"xml/dir", ""},
    };
    for (const auto &entry : expected)
        QCOMPARE(typed(StandInDefaults::valueOf(entry.first)), typed(entry.second));
    // A kind of save has no default for what it does not have.
    QVERIFY(!StandInDefaults::valueOf("layout/groupdir").isValid());
    QVERIFY(!StandInDefaults::valueOf("saveinfo/FontName").isValid());
}

void TestStandInSettings::informationDisplayFollowsTheTable()
{
    StandInHost host;
    const QStringList live = host.infoItemDefaultDisplay().split(',');
    QCOMPARE(live.mid(0, 6), QStringList({"SyncSignalState:true", "CameraState:true",
                                          "ElapsedTime:true", "<hr>", "Camera name:true", "<hr>"}));
    QVERIFY(!live.contains("File name:true")); // offered in the save form only
    QVERIFY(live.contains("RecDateTime:false"));
    QCOMPARE(host.prefDefault("info/display").toString(), host.infoItemDefaultDisplay());

    const QStringList saved = host.prefDefault("saveinfo/display0").toString().split(',');
    QCOMPARE(saved.mid(0, 5), QStringList({"Camera name:true", "File name:true", "Device:true",
                                           "Head:true", "PartitionNumber:true"}));
    QVERIFY(!saved.contains("<hr>"));
}

void TestStandInSettings::oneGroupOfTheSavedInformationIsTicked()
{
    StandInHost host;
    const QString first = host.prefDefault("saveinfo/display0").toString();
    QVERIFY(first.contains(":true"));
    QVERIFY(first.contains("Date:false"));
    for (int group = 1; group < 7; ++group) {
        const QString text =
            host.prefDefault("saveinfo/display" + QString::number(group)).toString();
        QCOMPARE(text, QString(first).replace(":true", ":false")); // all items, none ticked
    }
}

void TestStandInSettings::timeCodeKeepsWhatIsNotStored()
{
    StandInHost host;
    TimeCodeRecord record;
    record.displayUnit = "rad";
    host.getTimeCodeSetting(record);
    QCOMPARE(record.displayUnit, QString("rad"));
    QVERIFY(host.settings().setValue("timecode/oneframe", 1.5));
    host.getTimeCodeSetting(record);
    QCOMPARE(record.displayUnit, QString("rad"));
    QCOMPARE(record.oneFrame, 1.5);
}

void TestStandInSettings::timeCodeIsStoredFieldByField()
{
    TimeCodeRecord record;
    record.timeCodeIndex = 1;
    record.displayUnit = "5"; // a text, though it looks like a number
    record.oneFrame = -0.1;
    record.startValue = 720.0;
    record.reset = true;
    record.resetValue = 1e-7;
    record.scopeDisplayIndex = 3;
    record.decimalPlaceIndex = 6;
    record.decimalDivide = true;
    record.usingRihFileInfo = false;
    record.overWrite = true;
    record.realTime = true;
    const QVector<QPair<QString, QVariant>> fields{
        {"timecode/timecode", 1},         {"timecode/displayunit", "5"},
        {"timecode/oneframe", -0.1},      {"timecode/startvalue", 720.0},
        {"timecode/reset", true},         {"timecode/resetvalue", 1e-7},
        {"timecode/scopedisplay", 3},     {"timecode/decimalplace", 6},
        {"timecode/decimaldivide", true}, {"timecode/usingrih", false},
        {"timecode/overwrite", true},     {"timecode/realtime", true}};

    QTemporaryDir dir;
    const QString file = dir.filePath("settings.ini");
    {
        StandInHost host(file);
        QStringList changed;
        connect(host.events(), &StandInEvents::settingChanged, this,
                [&](const QString &key) { changed.append(key); });
        host.setTimeCodeSetting(record);
        QStringList keys;
        for (const auto &field : fields) {
            keys.append(field.first);
            QCOMPARE(typed(host.getPref(field.first, QVariant())), typed(field.second));
        }
        keys.sort();
        QCOMPARE(host.settings().keys(), keys);
        QCOMPARE(changed, keys);
    }
    StandInHost again(file);
    for (const auto &field : fields)
        QCOMPARE(typed(again.getPref(field.first, QVariant())), typed(field.second));
    TimeCodeRecord read;
    again.getTimeCodeSetting(read);
    QCOMPARE(JournalText::text(read), JournalText::text(record));
}

void TestStandInSettings::timeCodeThatIsNoNumberIsZero()
{
    StandInHost host;
    QVERIFY(host.settings().setValue("timecode/oneframe", "fast"));
    TimeCodeRecord record;
    record.oneFrame = 2.0;
    host.getTimeCodeSetting(record);
    QCOMPARE(record.oneFrame, 0.0);
}

void TestStandInSettings::timeCodeThatCannotBeStoredIsTold()
{
    QTemporaryDir dir;
    const QString file = dir.filePath("settings.ini");
    QVERIFY(QDir().mkpath(file)); // a folder stands in its place
    LogCapture log;
    StandInHost host(file);
    QVERIFY_EXCEPTION_THROWN(host.setTimeCodeSetting(TimeCodeRecord()), APP_Exception);
    QCOMPARE(host.settings().keys(), QStringList());
}

int main(int argc, char **argv)
{
    TestStandInSettings test;
    return runTest(argc, argv, test);
}

#include "test_standin_settings.moc"
