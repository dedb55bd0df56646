#include "standin/journal/JournalText.h"

#include "bridge/mediator/JS_Mediator.h"
#include "bridge/page/GUI_WebView.h"
#include "contract/DOC_Interface.h"
#include "contract/PLG_Interface.h"
#include "foundation/LogGroups.h"
#include "standin/journal/JournalSubject.h"

#include <QWidget>

namespace JournalText {

namespace {

template <class List, class Function> QString listText(const List &list, Function one)
{
    QStringList parts;
    for (const auto &entry : list)
        parts.append(one(entry));
    return QLatin1Char('[') + parts.join(QLatin1String(", ")) + QLatin1Char(']');
}

QString className(const QObject *object)
{
    return object ? QString::fromLatin1(object->metaObject()->className()) : QStringLiteral("null");
}

QString field(const char *name, const QString &value)
{
    return QLatin1String(name) + QLatin1String(": ") + value;
}

QString braces(const QStringList &fields)
{
    return QLatin1Char('{') + fields.join(QLatin1String(", ")) + QLatin1Char('}');
}

}

QString text(const Setting &setting)
{
    const bool secret = LogGroups::isSecretName(setting.key.section(QLatin1Char('/'), -1));
    return text(setting.key) + QLatin1String(", ") +
           (secret ? text(Secret()) : text(setting.value));
}

QString text(Secret)
{
    return LogGroups::masked();
}

QString text(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString text(int value)
{
    return QString::number(value);
}

QString text(uint value)
{
    return QString::number(value);
}

QString text(qint64 value)
{
    return QString::number(value);
}

QString text(DOCKEY value)
{
    return value == NoDocKey ? QStringLiteral("-1") : QString::number(value);
}

QString text(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString text(const QString &value)
{
    QString line = value;
    line.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    line.replace(QLatin1Char('\r'), QLatin1String("\\r"));
    return QLatin1Char('"') + line + QLatin1Char('"');
}

QString text(const QByteArray &value)
{
    return text(QString::fromUtf8(value));
}

QString text(const QStringList &value)
{
    return listText(value, [](const QString &entry) { return text(entry); });
}

QString text(const QList<DOCKEY> &value)
{
    return listText(value, [](DOCKEY entry) { return text(entry); });
}

QString text(const QList<SavedRecord> &value)
{
    return listText(value, [](const SavedRecord &entry) {
        return QLatin1Char('(') + text(entry.first) + QLatin1String(", ") + text(entry.second) +
               QLatin1Char(')');
    });
}

QString text(const QVariant &value)
{
    if (!value.isValid())
        return QStringLiteral("invalid");
    switch (int(value.type())) {
    case QMetaType::Bool:
        return text(value.toBool());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return value.toString();
    case QMetaType::Float:
    case QMetaType::Double:
        return text(value.toDouble());
    case QMetaType::QStringList:
        return text(value.toStringList());
    case QMetaType::QVariantList:
        return text(value.toList());
    case QMetaType::QVariantMap:
        return text(value.toMap());
    case QMetaType::QPoint:
        return text(value.toPoint());
    case QMetaType::QSize:
        return text(value.toSize());
    case QMetaType::QRect:
        return text(value.toRect());
    default:
        return text(value.toString());
    }
}

QString text(const QVariantMap &value)
{
    QStringList fields;
    for (auto entry = value.begin(); entry != value.end(); ++entry)
        fields.append(
            entry.key() + QLatin1String(": ") +
            (LogGroups::isSecretName(entry.key()) ? text(Secret()) : text(entry.value())));
    return braces(fields);
}

QString text(const QVariantList &value)
{
    return listText(value, [](const QVariant &entry) { return text(entry); });
}

QString text(const QPoint &value)
{
    return QStringLiteral("(%1,%2)").arg(value.x()).arg(value.y());
}

QString text(const QSize &value)
{
    return QStringLiteral("%1x%2").arg(value.width()).arg(value.height());
}

QString text(const QRect &value)
{
    return QStringLiteral("(%1,%2 %3x%4)")
        .arg(value.x())
        .arg(value.y())
        .arg(value.width())
        .arg(value.height());
}

QString text(const QDateTime &value)
{
    return value.isValid() ? text(value.toString(Qt::ISODate)) : QStringLiteral("invalid");
}

QString text(const NetworkSetting &value)
{
    return braces({field("ipAddress", text(value.ipAddress)),
                   field("subnetMask", text(value.subnetMask)),
                   field("defaultGateway", text(value.defaultGateway))});
}

QString text(const TimeCodeRecord &value)
{
    return braces(
        {field("timeCodeIndex", text(value.timeCodeIndex)),
         field("displayUnit", text(value.displayUnit)), field("oneFrame", text(value.oneFrame)),
         field("startValue", text(value.startValue)), field("reset", text(value.reset)),
         field("resetValue", text(value.resetValue)),
         field("scopeDisplayIndex", text(value.scopeDisplayIndex)),
         field("decimalPlaceIndex", text(value.decimalPlaceIndex)),
         field("decimalDivide", text(value.decimalDivide)),
         field("usingRihFileInfo", text(value.usingRihFileInfo)),
         field("overWrite", text(value.overWrite)), field("realTime", text(value.realTime))});
}

QString text(const SupportSnapshot &value)
{
    return braces({field("screen", text(value.screen.size())),
                   field("trelvikWindow", text(value.trelvikWindow.size())),
                   field("frame", text(value.frame.size())),
                   field("texts", text(QStringList(value.texts.keys())))});
}

QString text(DOC_Interface *doc)
{
    if (!doc)
        return QStringLiteral("null");
    const auto *known = dynamic_cast<JournalSubject *>(doc);
    return known ? known->journalName() : QStringLiteral("DOC_Interface");
}

QString text(QObject *object)
{
    return className(object);
}

QString text(QWidget *widget)
{
    return className(widget);
}

QString text(PLG_Interface *plugin)
{
    return className(plugin);
}

QString text(JS_Mediator *mediator)
{
    return className(mediator);
}

QString text(GUI_WebView *view)
{
    return className(view);
}

}
