#pragma once

#include <QString>

class HostServices;
class QWidget;

/// What the user is told and asked before settings of cameras are written to a file.
namespace CameraSettingsTarget {

/// Whether the path may be written to. A name or path that will not do leaves a warning; a file
/// that is there is overwritten when the user says yes. `parent` is that of the messages, may be
/// null, and may go meanwhile. Throws what the host throws. GUI thread.
bool mayWrite(HostServices *host, const QString &path, QWidget *parent);

}
