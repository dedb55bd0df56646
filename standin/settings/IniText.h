#pragma once

#include <QByteArray>
#include <QMap>
#include <QVariant>

/// Settings as the text of an INI file, in UTF-8, as QSettings reads it.
namespace IniText {

/// One section for each group, "General" for keys without one. Texts are quoted; a list of texts is
/// one value. Values of other types stand in the form that QSettings gives them.
QByteArray text(const QMap<QString, QVariant> &settings);

}
