#pragma once

#include <QStringList>
#include <QVariant>

/// The host's own defaults of the settings, by key.
namespace StandInDefaults {

/// The default of a setting, invalid for a key that the catalogue does not know.
QVariant valueOf(const QString &key);

/// Whether the catalogue has a default for this key.
bool isKnown(const QString &key);

/// All keys with a default, in ascending order.
QStringList keys();

/// Where all saves go from the start: the first that is there and can be written of the user's
/// documents, the user's home and the system's temporary files.
QString saveFolder();

/// Default of "info/display": the information items that are shown from the start.
QString infoDisplay();

}
