#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVariant>

class QDomElement;

/// The XML files by which custom information goes from one recording to another: the custom file,
/// which this system writes and reads, and the job file of test planning, which it reads only.
///
/// A record stands as a map with "name", "value" and "unit" (texts) and "selected" (boolean). What
/// the readers give is no mirror of what the writer was given:
/// - The custom file keeps one of the two flags of a record, whichever its page showed as
///   "selected"; read back, it is the one for the display. The flag for file names is always
///   written as "true", and nobody reads it.
/// - The names of the job file's fields are translated in custom files, too.
/// - A value of blanks alone comes back empty (XmlTree).
///
/// Any thread.
namespace CustomInfoFile {

/// Names of records by the element names of job files.
using FieldMap = QMap<QString, QString>;

/// The fields of a job file that are records with a name of their own.
FieldMap jobFields();

/// The custom file with a record for each entry, in their order; a key that is missing is an empty
/// text. `version` is the host's. What XML cannot hold is U+FFFD.
QByteArray toXml(const QVariantList &customs, const QString &version);

/// Appends the records of a tree to `out`: as a job file when its root is called "job" in any case,
/// else as a custom file, whatever the name. An element without a name, as of a file that could not
/// be parsed, has no records. Logs the name of the root.
void loadCustomInfo(const QDomElement &root, QVariantList &out, const FieldMap &fieldMap);

/// Of a custom file: a record for each "customItem" in a "customItems" that has a name. Without
/// "value", "unit" or "display" the record has no "value", "unit" or "selected"; of several the
/// last counts.
void loadCustomInfoCustom(const QDomElement &root, QVariantList &out, const FieldMap &fieldMap);

/// Of a job file: a record for each element with a text. One whose name is no field is a record of
/// that name.
void loadCustomInfoJob(const QDomElement &root, QVariantList &out, const FieldMap &fieldMap);

}
