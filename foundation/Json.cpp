#include "foundation/Json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Json {

QString compactText(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QString compactText(const QJsonArray &array)
{
    return QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact));
}

}
