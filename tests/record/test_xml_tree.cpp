#include "record/info/XmlTree.h"
#include "tests/support/TestLog.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextCodec>

#include <random>

// The tree of a file is what QDomDocument::setContent() gives, and hostile files have none.

namespace {

QDomDocument read(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    return buffer.open(QIODevice::ReadOnly) ? XmlTree::read(buffer) : QDomDocument();
}

QDomDocument plainTree(const QByteArray &bytes)
{
    QDomDocument tree;
    tree.setContent(bytes);
    return tree;
}

void appendShape(QStringList &lines, const QDomNode &node, int depth)
{
    QString line = QStringLiteral("%1%2 \"%3\" \"%4\" %5:%6")
                       .arg(QString(depth, ' '), QString::number(node.nodeType()), node.nodeName(),
                            node.nodeValue(), QString::number(node.lineNumber()),
                            QString::number(node.columnNumber()));
    const QDomNamedNodeMap attributes = node.attributes();
    QStringList texts;
    for (int i = 0; i < attributes.size(); ++i)
        texts.append(" " + attributes.item(i).nodeName() + "=" + attributes.item(i).nodeValue());
    texts.sort();
    lines.append(line + texts.join(""));
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
        appendShape(lines, child, depth + 1);
}

// All nodes with their places in the file, a line each.
QString shape(const QDomDocument &tree)
{
    QStringList lines;
    appendShape(lines, tree, 0);
    const QDomDocumentType type = tree.doctype();
    lines.append(type.name() + "|" + type.publicId() + "|" + type.systemId());
    return lines.join("\n");
}

// The names and texts of a tree: "custom(name(\"a\"))".
QString outline(const QDomNode &node)
{
    if (node.isText())
        return "\"" + node.nodeValue() + "\"";
    QStringList children;
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
        children.append(outline(child));
    return node.nodeName() + (children.isEmpty() ? QString() : "(" + children.join(" ") + ")");
}

QString rootOutline(const QDomDocument &tree)
{
    return tree.documentElement().isNull() ? QString() : outline(tree.documentElement());
}

// `levels` elements inside each other, with something in front of the innermost.
QByteArray nested(int levels, const QByteArray &root = "<a>", const QByteArray &inner = "")
{
    return root + QByteArray("<a>").repeated(levels - 1) + inner +
           QByteArray("</a>").repeated(levels);
}

QByteArray encoded(const char *codec, const QString &text)
{
    return QTextCodec::codecForName(codec)->fromUnicode(text);
}

}

class TestXmlTree : public TestBase
{
    Q_OBJECT

private slots:
    void readsWhatIsThere_data();
    void readsWhatIsThere();
    void encodings_data();
    void encodings();
    void depthHasALimit();
    void deepFilesHaveNoTree_data();
    void deepFilesHaveNoTree();
    void documentTypes_data();
    void documentTypes();
    void sizeHasALimit();
    void largeFilesAreNotRead();
    void readsFromWhereTheDeviceIs();
    void hostileFilesTakeLittleTime_data();
    void hostileFilesTakeLittleTime();
    void makesTheTreesOfQDomDocument();
};

void TestXmlTree::readsWhatIsThere_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("tree"); // of the root
    QTest::newRow("empty") << QByteArray() << "";
    QTest::newRow("blanks") << QByteArray(" \n\t") << "";
    QTest::newRow("binary") << QByteArray("\x7f"
                                          "ELF\0\x01\xff\xfe\0\0<a>",
                                          13)
                            << "";
    QTest::newRow("plain text") << QByteArray("Shot 12") << "";
    QTest::newRow("whole") << QByteArray("<?xml version=\"1.0\"?>\n<a>\n  <b>x</b>\n</a>\n")
                           << "a(b(\"x\"))";
    QTest::newRow("blank text is left out")
        << QByteArray("<a> <b>  </b> <c>\n</c></a>") << "a(b c)";
    QTest::newRow("text keeps its blanks") << QByteArray("<a> x </a>") << "a(\" x \")";
    QTest::newRow("cut off") << QByteArray("<a><b>x</b><c>y") << "a(b(\"x\") c)";
    QTest::newRow("cut off in a tag") << QByteArray("<a><b>x</b><c") << "a(b(\"x\"))";
    QTest::newRow("wrong end") << QByteArray("<a><b>x</b></c><d/></a>") << "a(b(\"x\"))";
    QTest::newRow("undefined entity") << QByteArray("<a>x&e;y<b/></a>") << "a(\"x\" e \"y\" b)";
    QTest::newRow("undefined entity in an attribute")
        << QByteArray("<a><b c=\"&e;\"/>&f;<d/></a>") << "a(b f d)";
    QTest::newRow("undeclared prefix") << QByteArray("<a><p:b>x</p:b></a>") << "a(p:b(\"x\"))";
    QTest::newRow("double attribute") << QByteArray("<a b=\"1\" b=\"2\"><c/></a>") << "a(c)";
    QTest::newRow("version 1.1") << QByteArray("<?xml version=\"1.1\"?><a><b/></a>") << "a(b)";
    QTest::newRow("definitions that break off") << QByteArray("<!DOCTYPE a [><a/>") << "";
    QTest::newRow("line ends") << QByteArray("<a>x\r\ny\rz&#xd;</a>") << "a(\"x\r\ny\rz\r\")";
}

void TestXmlTree::readsWhatIsThere()
{
    QFETCH(QByteArray, bytes);
    const QDomDocument tree = read(bytes);
    QTEST(rootOutline(tree), "tree");
    QCOMPARE(shape(tree), shape(plainTree(bytes)));
}

void TestXmlTree::encodings_data()
{
    const QString kyoto = QString::fromUtf8("京都");
    const QString file = QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?><a>%2</a>");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("no declaration") << QString("<a>" + kyoto + "</a>").toUtf8() << kyoto;
    QTest::newRow("byte-order mark")
        << "\xef\xbb\xbf" + QString("<a>" + kyoto + "</a>").toUtf8() << kyoto;
    QTest::newRow("mark and declaration")
        << "\xef\xbb\xbf" + file.arg("utf-8", kyoto).toUtf8() << kyoto;
    // Both begin with a mark.
    QTest::newRow("UTF-16") << encoded("UTF-16", file.arg("UTF-16", kyoto)) << kyoto;
    QTest::newRow("UTF-16, big first") << encoded("UTF-16BE", file.arg("UTF-16", kyoto)) << kyoto;
    QTest::newRow("ISO-8859-1") << encoded("ISO-8859-1", file.arg("ISO-8859-1", "\u00fc"))
                                << "\u00fc";
    QTest::newRow("Shift-JIS") << encoded("Shift_JIS", file.arg("Shift_JIS", kyoto)) << kyoto;
    QTest::newRow("unknown") << file.arg("x-none", "x").toUtf8() << "x";
    // Beyond the pieces in which files are read.
    const QString many = QString(kyoto + QString::fromUcs4(U"\U0001F4F7")).repeated(3000);
    QTest::newRow("long UTF-8") << QString("<a>" + many + "</a>").toUtf8() << many;
    QTest::newRow("long UTF-16") << encoded("UTF-16", "<a>" + many + "</a>") << many;
    QTest::newRow("long Shift-JIS")
        << encoded("Shift_JIS", file.arg("Shift_JIS", kyoto.repeated(3000)))
        << kyoto.repeated(3000);
    QTest::newRow("long, not UTF-8") << "<a>" +
                                            QByteArray("\xff\xe4\xba"
                                                       "x")
                                                .repeated(2000) +
                                            "</a>"
                                     << QString(QString(3, QChar(0xFFFD)) + "x").repeated(2000);
    QTest::newRow("not UTF-8") << QByteArray("<a>x\xff</a>") << QString("x") + QChar(0xFFFD);
}

void TestXmlTree::encodings()
{
    QFETCH(QByteArray, bytes);
    const QDomDocument tree = read(bytes);
    QTEST(tree.documentElement().text(), "text");
    QCOMPARE(shape(tree), shape(plainTree(bytes)));
}

void TestXmlTree::depthHasALimit()
{
    QDomElement element = read(nested(64)).documentElement();
    int levels = 0;
    for (; !element.isNull(); element = element.firstChildElement())
        ++levels;
    QCOMPARE(levels, 64);
    QCOMPARE(rootOutline(read(nested(65))), QString());
    QVERIFY(read(nested(65)).isNull());
    // Only what is open counts.
    const QByteArray wide = "<r>" + nested(63).repeated(3) + "</r>";
    QCOMPARE(read(wide).documentElement().childNodes().size(), 3);
    QCOMPARE(shape(read(wide)), shape(plainTree(wide)));
}

void TestXmlTree::deepFilesHaveNoTree_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const int levels = 100000;
    QTest::newRow("plain") << nested(levels);
    QTest::newRow("never closed") << QByteArray("<a>").repeated(levels);
    QTest::newRow("behind an undefined entity") << nested(levels, "<a>&e;");
    QTest::newRow("behind an undefined entity in an attribute") << nested(levels, "<a b=\"&e;\">");
    QTest::newRow("behind an undeclared prefix") << nested(levels, "<a><p:b/>");
    QTest::newRow("behind a double attribute") << nested(levels, "<a b=\"1\" b=\"2\">");
    QTest::newRow("behind a control character") << nested(levels, "<a>\x01");
    QTest::newRow("in version 1.1") << "<?xml version=\"1.1\"?>" + nested(levels);
    QTest::newRow("in an unknown encoding")
        << "<?xml version=\"1.0\" encoding=\"x-none\"?>" + nested(levels);
    QTest::newRow("behind a document type") << "<!DOCTYPE a>" + nested(levels);
}

void TestXmlTree::deepFilesHaveNoTree()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(read(bytes).isNull());
}

void TestXmlTree::documentTypes_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<bool>("isRead");
    QTest::newRow("name") << QByteArray("<!DOCTYPE a>") << true;
    QTest::newRow("blanks") << QByteArray("<!DOCTYPE  a \n >") << true;
    QTest::newRow("system") << QByteArray("<!DOCTYPE a SYSTEM \"none.dtd\">") << true;
    QTest::newRow("system with a bracket") << QByteArray("<!DOCTYPE a SYSTEM \"[x]\" >") << true;
    QTest::newRow("public") << QByteArray("<!DOCTYPE a PUBLIC '-//x' 'none.dtd'>") << true;
    QTest::newRow("empty definitions") << QByteArray("<!DOCTYPE a []>") << false;
    QTest::newRow("definitions") << QByteArray("<!DOCTYPE a [<!ENTITY e \"x\">]>") << false;
    QTest::newRow("definitions behind blanks") << QByteArray("<!DOCTYPE a \n[ ]>") << false;
    QTest::newRow("system and definitions") << QByteArray("<!DOCTYPE a SYSTEM \"x\"[]>") << false;
    QTest::newRow("a comment first") << QByteArray("<!-- > --><!DOCTYPE a [<!-- > -->]>") << false;
    QTest::newRow("parentheses") << "<!DOCTYPE a [<!ELEMENT a " + QByteArray("(").repeated(100000)
                                 << false;
    QTest::newRow("entities of entities")
        << QByteArray("<!DOCTYPE a [<!ENTITY b \"&c;&c;\"><!ENTITY c \"&d;&d;\">]>") << false;
}

void TestXmlTree::documentTypes()
{
    QFETCH(QByteArray, type);
    QFETCH(bool, isRead);
    const QByteArray bytes = type + "<a><b>x</b></a>";
    const QDomDocument tree = read(bytes);
    QCOMPARE(tree.isNull(), !isRead);
    QCOMPARE(rootOutline(tree), QString(isRead ? "a(b(\"x\"))" : ""));
    if (isRead)
        QCOMPARE(shape(tree), shape(plainTree(bytes)));
}

void TestXmlTree::sizeHasALimit()
{
    const QByteArray tags = "<a></a>";
    const QByteArray most = tags + QByteArray(16 * 1024 * 1024 - tags.size(), '\n');
    QCOMPARE(rootOutline(read(most)), QString("a"));
    QVERIFY(read(most + '\n').isNull());
}

void TestXmlTree::largeFilesAreNotRead()
{
    QTemporaryDir dir;
    QFile file(dir.filePath("large.xml"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.write("<a><b>x</b></a>") > 0);
    QVERIFY(file.resize(100 * 1000 * 1000));
    QVERIFY(file.seek(0));
    QElapsedTimer timer;
    timer.start();
    QVERIFY(XmlTree::read(file).isNull());
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
}

void TestXmlTree::readsFromWhereTheDeviceIs()
{
    QByteArray bytes = "junk<a/>";
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QVERIFY(buffer.seek(4));
    QCOMPARE(rootOutline(XmlTree::read(buffer)), QString("a"));
}

void TestXmlTree::hostileFilesTakeLittleTime_data()
{
    const int size = 1024 * 1024;
    const auto filled = [](const QByteArray &part) { return part.repeated(size / part.size()); };
    QByteArray attributes;
    for (int i = 0; attributes.size() < size; ++i)
        attributes += " a" + QByteArray::number(i) + "=\"\"";
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("references") << "<a>" + filled("&e;");
    QTest::newRow("references in attributes") << "<a b=\"" + filled("&e;");
    QTest::newRow("characters by number") << "<a>" + filled("&#65;") + "</a>";
    QTest::newRow("attributes") << "<a" + attributes + "/>";
    QTest::newRow("one attribute") << "<a" + filled(" b=\"\"") + "/>";
    QTest::newRow("openings") << "<a>" + filled("<");
    QTest::newRow("one comment") << "<a><!--" + filled("-x");
    QTest::newRow("comments") << "<a>" + filled("<!---->");
    QTest::newRow("sections") << "<a>" + filled("<![CDATA[]]>");
    QTest::newRow("one section") << "<a><![CDATA[" + filled("]]");
    QTest::newRow("elements") << "<a>" + filled("<b/>");
    QTest::newRow("one text") << "<a>" + filled("x");
    QTest::newRow("one name") << "<" + filled("x");
}

void TestXmlTree::hostileFilesTakeLittleTime()
{
    QFETCH(QByteArray, bytes);
    QElapsedTimer timer;
    timer.start();
    read(bytes);
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
}

// Files at random, most of them broken somewhere.
void TestXmlTree::makesTheTreesOfQDomDocument()
{
    const QList<QByteArray> parts = {"<a>",
                                     "<b>",
                                     "</a>",
                                     "</b>",
                                     "<c/>",
                                     "<a x=\"1\">",
                                     "<c x='&e;'/>",
                                     "<c x=\"a&f;b>\" y='<'/>",
                                     "<c x='>' y=\"&g;\"/>",
                                     "<p:c/>",
                                     "<c x='1' x='2'/>",
                                     "text",
                                     " ",
                                     "\n",
                                     "&e;",
                                     "&amp;",
                                     "&#65;",
                                     "&#0;",
                                     "<!-- <' -->",
                                     "<!---->",
                                     "<!-- -->",
                                     "<![CDATA[<x]]>",
                                     "<![CDATA[]]>",
                                     "<![CDATA[ ]]>",
                                     "<?pi <x?>",
                                     "<?pi?>",
                                     "]]>",
                                     "\x01",
                                     "<",
                                     ">",
                                     "\"",
                                     "'",
                                     "=",
                                     "&",
                                     "\xc3\xbc",
                                     "\xff",
                                     "</a >",
                                     "<c\n/>",
                                     "<!DOCTYPE a>"};
    const QList<QByteArray> beginnings = {"",
                                          "<a>",
                                          "<a><b>",
                                          "<?xml version=\"1.0\"?>\n<a>",
                                          "<?xml version='1.1' encoding='x'?><a>",
                                          "<!DOCTYPE a SYSTEM 's'>\n<a>",
                                          "\xef\xbb\xbf<a>"};
    std::mt19937 random(1);
    int whole = 0;
    for (int i = 0; i < 20000; ++i) {
        QByteArray bytes = beginnings.at(int(random() % uint(beginnings.size())));
        for (uint left = random() % 16; left > 0; --left) {
            // Most of the time what keeps a file whole.
            const uint among = random() % 4 ? 22 : uint(parts.size());
            bytes += parts.at(int(random() % among));
        }
        bytes += random() % 2 == 0 ? "</b></a>" : "</a>";
        QDomDocument plain;
        whole += plain.setContent(bytes);
        const QDomDocument tree = read(bytes);
        if (shape(tree) != shape(plain))
            QFAIL(
                (bytes + "\n" + shape(tree).toUtf8() + "\n\n" + shape(plain).toUtf8()).constData());
    }
    QVERIFY2(whole > 500, qPrintable(QString::number(whole)));
}

int main(int argc, char *argv[])
{
    TestXmlTree test;
    return runTest(argc, argv, test);
}

#include "test_xml_tree.moc"
