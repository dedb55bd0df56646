#pragma once

#include <QString>

class QJsonArray;
class QJsonObject;

/// Structured results for pages, as the compact text that they parse themselves. The order of the
/// keys is not theirs to rely on.
namespace Json {

QString compactText(const QJsonObject &object);
QString compactText(const QJsonArray &array);

}
