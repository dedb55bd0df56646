#include "record/info/CustomInfoFile.h"

#include "foundation/LogGroups.h"
#include "foundation/LogLines.h"
#include "record/info/XmlText.h"

#include <QDomDocument>
#include <QTextStream>

namespace {

constexpr int Indent = 2;

const QLatin1String CustomRoot("custom");
const QLatin1String JobRoot("job");
const QLatin1String Version("version");
const QLatin1String Items("customItems");
const QLatin1String Item("customItem");

// Texts of their own, which all records share.
const QString Name = QLatin1String("name");
const QString Value = QLatin1String("value");
const QString Unit = QLatin1String("unit");
const QString Display = QLatin1String("display");
const QString UseFileName = QLatin1String("usefilename");
const QString True = QLatin1String("true");
const QString Selected = QLatin1String("selected"); // of a record

void appendText(QDomDocument &document, QDomElement &parent, const QString &name,
                const QString &text)
{
    QDomElement element = document.createElement(name);
    element.appendChild(document.createTextNode(XmlText::storable(text)));
    parent.appendChild(element);
}

QVariantMap customItem(const QDomNode &item, const CustomInfoFile::FieldMap &fieldMap)
{
    QVariantMap record;
    for (QDomNode child = item.firstChild(); !child.isNull(); child = child.nextSibling()) {
        const QString key = child.nodeName().toLower();
        if (key == Name) {
            const QString text = child.toElement().text();
            record.insert(Name, fieldMap.value(text, text));
        } else if (key == Value || key == Unit) {
            record.insert(key, child.toElement().text());
        } else if (key == Display) {
            record.insert(Selected, child.toElement().text() == True);
        }
    }
    return record;
}

}

CustomInfoFile::FieldMap CustomInfoFile::jobFields()
{
    return {
        {QLatin1String("Sf_TestCode"), QLatin1String("TestNo")},
        {QLatin1String("Cm_TestDate"), QLatin1String("Date")},
        {QLatin1String("Cm_ProjectCode"), QLatin1String("Project")},
        {QLatin1String("Cm_PlannerName"), QLatin1String("Engineer")},
        {QLatin1String("Cm_TestPerson"), QLatin1String("Technician")},
        {QLatin1String("Cm_Comment"), QLatin1String("Comments")},
    };
}

QByteArray CustomInfoFile::toXml(const QVariantList &customs, const QString &version)
{
    QDomDocument document;
    document.appendChild(document.createProcessingInstruction(
        QLatin1String("xml"),
        QLatin1String("version=\"1.0\" encoding=\"utf-8\" standalone=\"no\"")));
    QDomElement root = document.createElement(CustomRoot);
    document.appendChild(root);
    appendText(document, root, Version, version);
    QDomElement items = document.createElement(Items);
    root.appendChild(items);
    for (const QVariant &custom : customs) {
        const QVariantMap record = custom.toMap();
        QDomElement item = document.createElement(Item);
        items.appendChild(item);
        appendText(document, item, Name, record.value(Name).toString());
        appendText(document, item, Value, record.value(Value).toString());
        appendText(document, item, Unit, record.value(Unit).toString());
        appendText(document, item, Display, record.value(Selected).toString());
        appendText(document, item, UseFileName, True);
    }

    QByteArray bytes;
    {
        QTextStream stream(&bytes); // writes what it holds back when it goes
        document.save(stream, Indent, QDomNode::EncodingFromDocument);
    }
    return bytes;
}

void CustomInfoFile::loadCustomInfo(const QDomElement &root, QVariantList &out,
                                    const FieldMap &fieldMap)
{
    const QString name = root.nodeName();
    LogLines::info() << LogGroups::group(QLatin1String("root.nodeName()"), name);
    if (name.toLower() == JobRoot)
        loadCustomInfoJob(root, out, fieldMap);
    else
        loadCustomInfoCustom(root, out, fieldMap);
}

void CustomInfoFile::loadCustomInfoCustom(const QDomElement &root, QVariantList &out,
                                          const FieldMap &fieldMap)
{
    for (QDomNode items = root.firstChild(); !items.isNull(); items = items.nextSibling()) {
        if (items.nodeName() != Items)
            continue;
        for (QDomNode item = items.firstChild(); !item.isNull(); item = item.nextSibling()) {
            if (item.nodeName() != Item)
                continue;
            const QVariantMap record = customItem(item, fieldMap);
            if (record.contains(Name))
                out.append(record);
        }
    }
}

void CustomInfoFile::loadCustomInfoJob(const QDomElement &root, QVariantList &out,
                                       const FieldMap &fieldMap)
{
    for (QDomNode child = root.firstChild(); !child.isNull(); child = child.nextSibling()) {
        const QDomElement field = child.toElement();
        const QString text = field.text();
        if (text.isEmpty())
            continue;
        const QString name = field.nodeName();
        QVariantMap record;
        record.insert(Name, fieldMap.value(name, name));
        record.insert(Value, text);
        record.insert(Unit, field.attribute(Unit));
        record.insert(Selected, field.attribute(Display, True) == True);
        out.append(record);
    }
}
