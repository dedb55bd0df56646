#pragma once

#include "contract/HostTypes.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QStringList>
#include <QVariant>

class DOC_Interface;
class GUI_WebView;
class JS_Mediator;
class PLG_Interface;
class QObject;
class QWidget;

/// How an argument of a call stands in the journal, always on one line: texts in double quotes,
/// true and false, decimal numbers, points "(3,4)", sizes "10x20", rectangles "(x,y wxh)",
/// documents "[7]", objects by their class name, "null", "invalid" for an invalid variant, lists
/// "[1, 2]", maps "{key: value}".
namespace JournalText {

/// An argument whose value is never shown.
struct Secret
{
};

QString text(Secret);

/// A setting that is stored: key and value, the value masked where the key names a password.
struct Setting
{
    QString key;
    QVariant value;
};

QString text(const Setting &setting);
QString text(bool value);
QString text(int value);
QString text(uint value);
QString text(qint64 value);
QString text(DOCKEY value); ///< NoDocKey as -1
QString text(double value);
QString text(const QString &value);
QString text(const QByteArray &value); ///< taken as UTF-8
QString text(const QStringList &value);
QString text(const QList<DOCKEY> &value);
QString text(const QList<SavedRecord> &value); ///< [("serial", "data")]
QString text(const QVariant &value);
QString text(const QVariantMap &value);
QString text(const QVariantList &value);
QString text(const QPoint &value);
QString text(const QSize &value);
QString text(const QRect &value);
QString text(const QDateTime &value); ///< "2024-02-03T04:05:06", "invalid" for an invalid one
QString text(const NetworkSetting &value);
QString text(const TimeCodeRecord &value);
QString text(const SupportSnapshot &value);
QString text(DOC_Interface *doc); ///< a document that is not the stand-in's: "DOC_Interface"
QString text(QObject *object);
QString text(QWidget *widget);
QString text(PLG_Interface *plugin);
QString text(JS_Mediator *mediator);
QString text(GUI_WebView *view);
QString text(const char *) = delete; ///< would be taken for a bool

}
