#include "record/info/CustomInfoFile.h"
#include "record/info/XmlTree.h"
#include "tests/support/TestLog.h"

#include <QBuffer>

#include <random>

// The custom file, the job file, and how what is read differs from what was written.

namespace {

QVariantMap record(const QString &name, const QString &value, const QString &unit, bool selected)
{
    return {{"name", name}, {"value", value}, {"unit", unit}, {"selected", selected}};
}

// Keys that are there, "name=a value=b selected=true".
QString textOf(const QVariant &entry)
{
    QStringList texts;
    const QVariantMap map = entry.toMap();
    for (const char *key : {"name", "value", "unit", "selected"}) {
        if (map.contains(key))
            texts.append(QString(key) + "=" + map.value(key).toString());
    }
    for (const QString &key : map.keys()) {
        if (!QStringList({"name", "value", "unit", "selected"}).contains(key))
            texts.append("stray " + key);
    }
    return texts.join(" ");
}

QStringList textsOf(const QVariantList &records)
{
    QStringList texts;
    for (const QVariant &each : records)
        texts.append(textOf(each));
    return texts;
}

QDomElement rootOf(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return XmlTree::read(buffer).documentElement();
}

QVariantList load(const QByteArray &bytes)
{
    LogCapture log;
    QVariantList records;
    CustomInfoFile::loadCustomInfo(rootOf(bytes), records, CustomInfoFile::jobFields());
    return records;
}

// A custom file with these children of its only item.
QByteArray custom(const QByteArray &children)
{
    return "<custom><customItems><customItem>" + children + "</customItem></customItems></custom>";
}

QByteArray job(const QByteArray &fields)
{
    return "<job>" + fields + "</job>";
}

}

class TestCustomInfoFile : public TestBase
{
    Q_OBJECT

private slots:
    void writesTheCustomFile();
    void writesAFileWithoutItems();
    void writesWhatIsMissingAsEmptyText();
    void writesTheFlagOfThePage_data();
    void writesTheFlagOfThePage();
    void writesTextsAsTheyAre();
    void jobFieldsAreSix();
    void readsCustomFiles_data();
    void readsCustomFiles();
    void readsJobFiles_data();
    void readsJobFiles();
    void rootDecides_data();
    void rootDecides();
    void appends();
    void fieldsOfTheOneFileMeanNothingInTheOther();
    void logsTheRoot_data();
    void logsTheRoot();
    void textsComeBack_data();
    void textsComeBack();
    void orderComesBack();
    void keepsOneFlagWhicheverItWas();
    void versionIsNotRead();
    void brokenFilesHaveWhatStandsBeforeTheBreak_data();
    void brokenFilesHaveWhatStandsBeforeTheBreak();
    void anyRecordsMakeAFileThatCanBeRead();
};

void TestCustomInfoFile::writesTheCustomFile()
{
    const QVariantList customs = {record("TestNo", "12", "", true),
                                  record("Speed", "3.5", "m/s", false)};
    QCOMPARE(CustomInfoFile::toXml(customs, "1.2.3"),
             QByteArray("<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"no\"?>\n"
                        "<custom>\n"
                        "  <version>1.2.3</version>\n"
                        "  <customItems>\n"
                        "    <customItem>\n"
                        "      <name>TestNo</name>\n"
                        "      <value>12</value>\n"
                        "      <unit></unit>\n"
                        "      <display>true</display>\n"
                        "      <usefilename>true</usefilename>\n"
                        "    </customItem>\n"
                        "    <customItem>\n"
                        "      <name>Speed</name>\n"
                        "      <value>3.5</value>\n"
                        "      <unit>m/s</unit>\n"
                        "      <display>false</display>\n"
                        "      <usefilename>true</usefilename>\n"
                        "    </customItem>\n"
                        "  </customItems>\n"
                        "</custom>\n"));
}

void TestCustomInfoFile::writesAFileWithoutItems()
{
    QCOMPARE(CustomInfoFile::toXml({}, ""),
             QByteArray("<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"no\"?>\n"
                        "<custom>\n"
                        "  <version></version>\n"
                        "  <customItems/>\n"
                        "</custom>\n"));
}

void TestCustomInfoFile::writesWhatIsMissingAsEmptyText()
{
    const QByteArray item = "    <customItem>\n"
                            "      <name></name>\n"
                            "      <value></value>\n"
                            "      <unit></unit>\n"
                            "      <display></display>\n"
                            "      <usefilename>true</usefilename>\n"
                            "    </customItem>\n";
    const QByteArray file = CustomInfoFile::toXml({QVariantMap(), QVariant(7)}, "1");
    QVERIFY2(file.contains("<customItems>\n" + item + item + "  </customItems>"), file);
}

void TestCustomInfoFile::writesTheFlagOfThePage_data()
{
    QTest::addColumn<QVariant>("selected");
    QTest::addColumn<QByteArray>("display");
    QTest::newRow("true") << QVariant(true) << QByteArray("true");
    QTest::newRow("false") << QVariant(false) << QByteArray("false");
    QTest::newRow("number") << QVariant(1) << QByteArray("1");
    QTest::newRow("text") << QVariant("on") << QByteArray("on");
}

void TestCustomInfoFile::writesTheFlagOfThePage()
{
    QFETCH(QVariant, selected);
    QFETCH(QByteArray, display);
    // The record's own flags count for nothing.
    const QVariantMap custom = {
        {"name", "a"}, {"selected", selected}, {"display", "off"}, {"usefilename", "off"}};
    const QByteArray file = CustomInfoFile::toXml({custom}, "1");
    QVERIFY2(file.contains("<display>" + display +
                           "</display>\n"
                           "      <usefilename>true</usefilename>\n"),
             file);
}

void TestCustomInfoFile::writesTextsAsTheyAre()
{
    const QString camera = QString::fromUcs4(U"\U0001F4F7");
    const QByteArray file = CustomInfoFile::toXml(
        {record("a<b>&c;", QString("x") + QChar(1) + camera + QChar(0xD800), "\r\n\"'", true)},
        QString("1") + QChar(0));
    QVERIFY2(file.contains("<name>a&lt;b>&amp;c;</name>"), file);
    QVERIFY2(file.contains("<value>x\xef\xbf\xbd" + camera.toUtf8() + "\xef\xbf\xbd</value>"),
             file);
    QVERIFY2(file.contains("<unit>&#xd;\n\"'</unit>"), file);
    QVERIFY2(file.contains("<version>1\xef\xbf\xbd</version>"), file);
}

void TestCustomInfoFile::jobFieldsAreSix()
{
    QCOMPARE(CustomInfoFile::jobFields(), (QMap<QString, QString>{{"Sf_TestCode", "TestNo"},
                                                                  {"Cm_TestDate", "Date"},
                                                                  {"Cm_ProjectCode", "Project"},
                                                                  {"Cm_PlannerName", "Engineer"},
                                                                  {"Cm_TestPerson", "Technician"},
                                                                  {"Cm_Comment", "Comments"}}));
}

void TestCustomInfoFile::readsCustomFiles_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("an item")
        << custom("<name>a</name><value>b</value><unit>c</unit><display>true</display>")
        << QStringList({"name=a value=b unit=c selected=true"});
    QTest::newRow("only a name") << custom("<name>a</name>") << QStringList({"name=a"});
    QTest::newRow("an empty name")
        << custom("<name/><value>b</value>") << QStringList({"name= value=b"});
    QTest::newRow("no name") << custom("<value>b</value><unit>c</unit>") << QStringList();
    QTest::newRow("display false") << custom("<name>a</name><display>false</display>")
                                   << QStringList({"name=a selected=false"});
    QTest::newRow("display True") << custom("<name>a</name><display>True</display>")
                                  << QStringList({"name=a selected=false"});
    QTest::newRow("display TRUE") << custom("<name>a</name><display>TRUE</display>")
                                  << QStringList({"name=a selected=false"});
    QTest::newRow("display with a blank") << custom("<name>a</name><display>true </display>")
                                          << QStringList({"name=a selected=false"});
    QTest::newRow("an empty display")
        << custom("<name>a</name><display/>") << QStringList({"name=a selected=false"});
    QTest::newRow("no value") << custom("<name>a</name><unit>c</unit>")
                              << QStringList({"name=a unit=c"});
    QTest::newRow("the flag for file names")
        << custom("<name>a</name><usefilename>false</usefilename><selected>true</selected>")
        << QStringList({"name=a"});
    QTest::newRow("names of children in any case")
        << custom("<NAME>a</NAME><Value>b</Value><uNIT>c</uNIT><DISPLAY>true</DISPLAY>")
        << QStringList({"name=a value=b unit=c selected=true"});
    QTest::newRow("twice, the last counts")
        << custom("<name>a</name><value>b</value><name>c</name><VALUE>d</VALUE>"
                  "<display>true</display><display>no</display>")
        << QStringList({"name=c value=d selected=false"});
    QTest::newRow("text of descendants")
        << custom("<name>a<b>c</b><![CDATA[<d>]]></name><value><x>1</x><y>2</y></value>")
        << QStringList({"name=ac<d> value=12"});
    QTest::newRow("blanks alone") << custom("<name>a</name><value>  </value>")
                                  << QStringList({"name=a value="});
    QTest::newRow("comments and attributes")
        << custom("<!-- b --><name lang=\"en\">a</name><?pi?>") << QStringList({"name=a"});
    QTest::newRow("a name that is a job field")
        << custom("<name>Sf_TestCode</name><value>Cm_TestDate</value>")
        << QStringList({"name=TestNo value=Cm_TestDate"});
    QTest::newRow("a name that is no job field in this case")
        << custom("<name>sf_testcode</name>") << QStringList({"name=sf_testcode"});
    QTest::newRow("the comment") << custom("<name>Cm_Comment</name><value>b</value>")
                                 << QStringList({"name=Comments value=b"});
    QTest::newRow("no items") << QByteArray("<custom><customItems/></custom>") << QStringList();
    QTest::newRow("no list of items")
        << QByteArray("<custom><customItem><name>a</name></customItem></custom>") << QStringList();
    QTest::newRow("list of items in another case")
        << QByteArray("<custom><CustomItems><customItem><name>a</name></customItem></CustomItems>"
                      "</custom>")
        << QStringList();
    QTest::newRow("item in another case")
        << QByteArray("<custom><customItems><customitem><name>a</name></customitem></customItems>"
                      "</custom>")
        << QStringList();
    QTest::newRow("several lists, with others between them")
        << QByteArray("<custom><x><customItems/></x>"
                      "<customItems><customItem><name>a</name></customItem><x/>"
                      "<customItem><name>b</name></customItem></customItems><x/>"
                      "<customItems><customItem><name>c</name></customItem></customItems></custom>")
        << QStringList({"name=a", "name=b", "name=c"});
    QTest::newRow("the same name twice")
        << QByteArray("<custom><customItems><customItem><name>a</name></customItem>"
                      "<customItem><name>a</name></customItem></customItems></custom>")
        << QStringList({"name=a", "name=a"});
}

void TestCustomInfoFile::readsCustomFiles()
{
    QFETCH(QByteArray, file);
    QTEST(textsOf(load(file)), "records");
}

void TestCustomInfoFile::readsJobFiles_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("the fields") << job("<Sf_TestCode>1</Sf_TestCode><Cm_TestDate>2</Cm_TestDate>"
                                       "<Cm_ProjectCode>3</Cm_ProjectCode>"
                                       "<Cm_PlannerName>4</Cm_PlannerName>"
                                       "<Cm_TestPerson>5</Cm_TestPerson><Cm_Comment>6</Cm_Comment>")
                                << QStringList({"name=TestNo value=1 unit= selected=true",
                                                "name=Date value=2 unit= selected=true",
                                                "name=Project value=3 unit= selected=true",
                                                "name=Engineer value=4 unit= selected=true",
                                                "name=Technician value=5 unit= selected=true",
                                                "name=Comments value=6 unit= selected=true"});
    QTest::newRow("field in another case")
        << job("<cm_comment>6</cm_comment>")
        << QStringList({"name=cm_comment value=6 unit= selected=true"});
    QTest::newRow("another field") << job("<TestType>7</TestType>")
                                   << QStringList({"name=TestType value=7 unit= selected=true"});
    QTest::newRow("empty fields") << job("<a/><b></b><c> \n</c><Cm_Comment unit=\"m\"/>")
                                  << QStringList();
    QTest::newRow("unit") << job("<a unit=\"mm\">1</a>")
                          << QStringList({"name=a value=1 unit=mm selected=true"});
    QTest::newRow("unit in another case")
        << job("<a Unit=\"mm\">1</a>") << QStringList({"name=a value=1 unit= selected=true"});
    QTest::newRow("display false") << job("<a display=\"false\">1</a>")
                                   << QStringList({"name=a value=1 unit= selected=false"});
    QTest::newRow("display true") << job("<a display=\"true\" unit=\"\">1</a>")
                                  << QStringList({"name=a value=1 unit= selected=true"});
    QTest::newRow("display True") << job("<a display=\"True\">1</a>")
                                  << QStringList({"name=a value=1 unit= selected=false"});
    QTest::newRow("an empty display")
        << job("<a display=\"\">1</a>") << QStringList({"name=a value=1 unit= selected=false"});
    QTest::newRow("another attribute")
        << job("<a id=\"4\">1</a>") << QStringList({"name=a value=1 unit= selected=true"});
    QTest::newRow("text of descendants")
        << job("<a>1<b>2</b></a>") << QStringList({"name=a value=12 unit= selected=true"});
    QTest::newRow("text of the root") << job("1<a>2</a><!-- 3 --><![CDATA[4]]>&b;")
                                      << QStringList({"name=a value=2 unit= selected=true"});
}

void TestCustomInfoFile::readsJobFiles()
{
    QFETCH(QByteArray, file);
    QTEST(textsOf(load(file)), "records");
}

void TestCustomInfoFile::rootDecides_data()
{
    QTest::addColumn<QString>("root");
    QTest::addColumn<bool>("isJob");
    QTest::newRow("custom") << "custom" << false;
    QTest::newRow("settings") << "settings" << false;
    QTest::newRow("jobs") << "jobs" << false;
    QTest::newRow("job") << "job" << true;
    QTest::newRow("JOB") << "JOB" << true;
    QTest::newRow("Job") << "Job" << true;
}

void TestCustomInfoFile::rootDecides()
{
    QFETCH(QString, root);
    QFETCH(bool, isJob);
    const QString file = "<" + root + "><customItems><customItem><name>a</name></customItem>" +
                         "</customItems></" + root + ">";
    QCOMPARE(textsOf(load(file.toUtf8())),
             QStringList({isJob ? "name=customItems value=a unit= selected=true" : "name=a"}));
}

void TestCustomInfoFile::appends()
{
    const auto fields = CustomInfoFile::jobFields();
    QVariantList records = {record("z", "", "", false)};
    CustomInfoFile::loadCustomInfoCustom(rootOf(custom("<name>a</name>")), records, fields);
    CustomInfoFile::loadCustomInfoJob(rootOf(job("<b>1</b>")), records, fields);
    QCOMPARE(textsOf(records), QStringList({"name=z value= unit= selected=false", "name=a",
                                            "name=b value=1 unit= selected=true"}));
    LogCapture log;
    CustomInfoFile::loadCustomInfo(rootOf(custom("<name>c</name>")), records, {});
    CustomInfoFile::loadCustomInfo(rootOf(job("<Sf_TestCode>1</Sf_TestCode>")), records, {});
    QCOMPARE(textsOf(records.mid(3)),
             QStringList({"name=c", "name=Sf_TestCode value=1 unit= selected=true"}));
}

void TestCustomInfoFile::fieldsOfTheOneFileMeanNothingInTheOther()
{
    QCOMPARE(textsOf(load("<custom><Sf_TestCode>1</Sf_TestCode></custom>")), QStringList());
    QCOMPARE(textsOf(load("<job><name>1</name><value unit=\"u\">2</value></job>")),
             QStringList({"name=name value=1 unit= selected=true",
                          "name=value value=2 unit=u selected=true"}));
}

void TestCustomInfoFile::logsTheRoot_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("line");
    QTest::newRow("custom") << QByteArray("<custom/>") << "\"[root.nodeName():custom] \"";
    QTest::newRow("as it is spelled") << QByteArray("<JoB/>") << "\"[root.nodeName():JoB] \"";
    QTest::newRow("none") << QByteArray() << "\"[root.nodeName():] \"";
}

void TestCustomInfoFile::logsTheRoot()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, line);
    const QDomElement root = rootOf(file);
    LogCapture log;
    QVariantList records;
    CustomInfoFile::loadCustomInfo(root, records, {});
    QCOMPARE(log.texts(), QStringList({line}));
    QCOMPARE(log.texts(QtInfoMsg), QStringList({line}));
}

void TestCustomInfoFile::textsComeBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("back");
    const auto same = [](const char *name, const QString &text) {
        QTest::newRow(name) << text << text;
    };
    same("empty", "");
    same("markup", "<name>\"a\" & 'b'</name>&lt;]]>");
    same("separators", "a;b,c|d\te/f\\g:h");
    same("line breaks", "\na\r\nb\rc\n\n");
    same("blanks around", "  a  ");
    same("right to left", QString::fromUtf8("\u202eשלום (1)"));
    same("beyond the basic plane", QString::fromUcs4(U"a\U0001F4F7\U0010FFFDb"));
    same("private and special", QString(QChar(0xE000)) + QChar(0xFEFF) + QChar(0x85));
    QTest::newRow("blanks alone") << " \n "
                                  << "";
    QTest::newRow("what XML cannot hold")
        << QString("a") + QChar(0) + QChar(0x1B) + QChar(0xFFFE) + QChar(0xDC00)
        << QString("a") + QString(4, QChar(0xFFFD));
}

void TestCustomInfoFile::textsComeBack()
{
    QFETCH(QString, text);
    QFETCH(QString, back);
    const QVariantList customs = {record("n" + text, text, text, true),
                                  record("Speed", "1", "m", false)};
    const QVariantList records = load(CustomInfoFile::toXml(customs, text));
    QCOMPARE(records.size(), 2);
    const QVariantMap first = records.first().toMap();
    QCOMPARE(first.value("value").toString(), back);
    QCOMPARE(first.value("unit").toString(), back);
    QCOMPARE(first.value("name").toString(), QString(text == " \n " ? "n \n " : "n" + back));
    QCOMPARE(textOf(records.last()), QString("name=Speed value=1 unit=m selected=false"));
}

void TestCustomInfoFile::orderComesBack()
{
    QVariantList customs;
    for (int i = 0; i < 50; ++i)
        customs.append(record(QString::number(i * 37 % 50), QString::number(i), "", i % 3 == 0));
    QCOMPARE(load(CustomInfoFile::toXml(customs, "1")), customs);
}

// A file that was saved where check boxes meant file names is read where they mean the display:
// pages of both views send "selected", and the file does not tell which it was.
void TestCustomInfoFile::keepsOneFlagWhicheverItWas()
{
    const QVariantMap forFileNames = {{"name", "a"},     {"value", ""},
                                      {"unit", ""},      {"selected", false},
                                      {"display", "on"}, {"usefilename", "off"}};
    const QVariantMap forDisplay = {{"name", "a"},       {"value", ""},      {"unit", ""},
                                    {"selected", false}, {"display", "off"}, {"usefilename", "on"}};
    const QByteArray file = CustomInfoFile::toXml({forFileNames}, "1");
    QCOMPARE(file, CustomInfoFile::toXml({forDisplay}, "1"));
    QCOMPARE(textsOf(load(file)), QStringList({"name=a value= unit= selected=false"}));
    QVERIFY(file.contains("<usefilename>true</usefilename>"));
}

void TestCustomInfoFile::versionIsNotRead()
{
    const QByteArray items = "<customItems><customItem><name>a</name></customItem></customItems>";
    for (const char *version : {"", "<version>99999</version>", "<version><x/></version>"})
        QCOMPARE(textsOf(load(QByteArray("<custom>") + version + items + "</custom>")),
                 QStringList("name=a"));
}

void TestCustomInfoFile::brokenFilesHaveWhatStandsBeforeTheBreak_data()
{
    const QByteArray item = "<customItem><name>a</name><value>b</value></customItem>";
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("empty") << QByteArray() << QStringList();
    QTest::newRow("binary") << QByteArray("\0\1\2<custom>", 11) << QStringList();
    QTest::newRow("cut off behind an item")
        << "<custom><customItems>" + item + "<custom" << QStringList({"name=a value=b"});
    QTest::newRow("cut off in an item")
        << "<custom><customItems>" + item + "<customItem><name>c</name><value>d"
        << QStringList({"name=a value=b", "name=c value="});
    QTest::newRow("wrong end") << "<custom><customItems>" + item + "</x>" + item
                               << QStringList({"name=a value=b"});
    QTest::newRow("two roots") << custom("<name>a</name>") + custom("<name>b</name>")
                               << QStringList({"name=a"});
    QTest::newRow("job, cut off") << QByteArray("<job><a>1</a><b>2")
                                  << QStringList({"name=a value=1 unit= selected=true"});
}

void TestCustomInfoFile::brokenFilesHaveWhatStandsBeforeTheBreak()
{
    QFETCH(QByteArray, file);
    QTEST(textsOf(load(file)), "records");
}

void TestCustomInfoFile::anyRecordsMakeAFileThatCanBeRead()
{
    std::mt19937 random(1);
    const auto text = [&random] {
        QString result;
        for (uint left = random() % 6; left > 0; --left)
            result.append(QChar(ushort(random() % 3 == 0 ? random() % 128 : random() % 0x10000)));
        return result;
    };
    for (int i = 0; i < 2000; ++i) {
        QVariantList customs;
        for (uint left = random() % 4; left > 0; --left)
            customs.append(record(text(), text(), text(), random() % 2));
        const QByteArray file = CustomInfoFile::toXml(customs, text());
        QDomDocument tree;
        QVERIFY2(tree.setContent(file), file.toHex());
        const QVariantList records = load(file);
        QCOMPARE(records.size(), customs.size());
        for (int k = 0; k < records.size(); ++k) {
            QCOMPARE(records.at(k).toMap().value("selected"),
                     customs.at(k).toMap().value("selected"));
        }
    }
}

int main(int argc, char *argv[])
{
    TestCustomInfoFile test;
    return runTest(argc, argv, test);
}

#include "test_custom_info_file.moc"
