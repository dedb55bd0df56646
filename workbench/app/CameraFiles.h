#pragma once

class HostServices;
class QWidget;

/// Settings of cameras in files, as the menu offers them without a page. GUI thread.
namespace CameraFiles {

/// Lets the user choose a file with settings for the selected cameras, or presets for those that
/// are connected. A failure goes to the host's errorHandler().
void open(HostServices *host, QWidget *parent);

/// Lets the user choose a file, and writes the settings of the selected cameras to it.
void save(HostServices *host, QWidget *parent);

}
