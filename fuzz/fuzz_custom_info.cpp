#include "FuzzInput.h"

#include "record/info/CustomInfoFile.h"
#include "record/info/XmlTree.h"

#include <QBuffer>

#include <cstdio>
#include <cstdlib>

// Random bytes as files of custom information, and random tags.

namespace {

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

// The name of the root is logged each time.
void refuseMessages(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    std::fprintf(stderr, "message: %s\n", qPrintable(text));
    std::abort();
}

const char *const Parts[] = {"<custom>",
                             "</custom>",
                             "<customItems>",
                             "</customItems>",
                             "<customItem>",
                             "</customItem>",
                             "<name>",
                             "</name>",
                             "<VALUE>",
                             "</VALUE>",
                             "<unit>a</unit>",
                             "<display>true</display>",
                             "<job>",
                             "</job>",
                             "<Sf_TestCode unit='&e;' display=\"true\">",
                             "</Sf_TestCode>",
                             "<Cm_Comment>",
                             "</Cm_Comment>",
                             "Sf_TestCode",
                             "true",
                             " \n",
                             "&e;",
                             "&amp;",
                             "&#1;",
                             "<![CDATA[<]]>",
                             "<!-- < -->",
                             "<?p ?>",
                             "<!DOCTYPE job>",
                             "<!DOCTYPE job [",
                             "<!ENTITY e \"<job>\">",
                             "]>",
                             "<a>",
                             "</a>",
                             "\x01",
                             "\xff",
                             "<"};

QByteArray file(FuzzInput &input)
{
    const bool isRaw = input.flag();
    QByteArray bytes;
    while (!input.isAtEnd()) {
        const std::uint8_t byte = input.byte();
        if (isRaw)
            bytes.append(char(byte));
        else
            bytes.append(Parts[byte % std::size(Parts)]);
    }
    return bytes;
}

QDomDocument treeOf(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return XmlTree::read(buffer);
}

QVariantList recordsOf(const QDomDocument &tree)
{
    QVariantList records;
    CustomInfoFile::loadCustomInfo(tree.documentElement(), records, CustomInfoFile::jobFields());
    return records;
}

// No element lies deeper than the limit: 64 steps down from the document, each to all children.
void checkDepth(const QDomDocument &tree)
{
    QList<QDomNode> level = {tree};
    for (int depth = 0; depth <= XmlTree::MaxDepth; ++depth) {
        QList<QDomNode> next;
        for (const QDomNode &node : level) {
            for (QDomNode child = node.firstChildElement(); !child.isNull();
                 child = child.nextSiblingElement())
                next.append(child);
        }
        level = next;
    }
    require(level.isEmpty(), "a tree has a limited depth");
}

}

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qInstallMessageHandler(refuseMessages);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput input(data, size);
    const QByteArray bytes = file(input);
    const QDomDocument tree = treeOf(bytes);
    checkDepth(tree);
    if (!tree.isNull()) {
        QDomDocument plain;
        plain.setContent(bytes);
        require(tree.toString(-1) == plain.toString(-1), "a tree is the parser's own");
    }

    const QVariantList records = recordsOf(tree);
    for (const QVariant &record : records)
        require(record.toMap().contains("name"), "a record has a name");
    const QByteArray written = CustomInfoFile::toXml(records, QString::fromLatin1(bytes));
    QDomDocument again;
    require(again.setContent(written), "what is written can be read");
    require(recordsOf(again).size() == records.size(), "all records come back");
    require(CustomInfoFile::toXml(recordsOf(again), QString::fromLatin1(bytes)) ==
                CustomInfoFile::toXml(recordsOf(treeOf(written)), QString::fromLatin1(bytes)),
            "both ways of reading agree");
    return 0;
}
