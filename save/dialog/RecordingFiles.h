#pragma once

#include <QString>
#include <QStringList>

/// Recordings on disk, as a folder import finds them.
namespace RecordingFiles {

/// The recording files in `folder` and in all folders below it, in the natural order of the default
/// locale. Links are followed; a folder that several links lead to, or that holds itself, is read
/// once. Paths begin with `folder`. What cannot be read is passed over. Any thread.
QStringList below(const QString &folder);

}
