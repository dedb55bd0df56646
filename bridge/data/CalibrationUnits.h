#pragma once

#include <QString>
#include <QStringList>

/// Units of length that a picture can be calibrated in.
namespace CalibrationUnits {

/// The metric entries, or the imperial ones, in the order that pages list them.
QStringList entries(bool metric);

/// Short name of an entry, untranslated; "Pixel" has one too. An unknown entry gets an empty one.
/// GUI thread.
QString shortName(const QString &entry);

}
