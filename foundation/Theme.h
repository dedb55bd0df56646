#pragma once

#include <QString>

class HostServices;
class QWidget;

/// The light and the dark form of the user interface.
namespace Theme {

/// Gives a native widget the sheet of the setting "env/style": dark for "dark" in any case, light
/// for everything else. Throws what the host throws. GUI thread.
void applyNativeStyle(HostServices *host, QWidget *widget);

/// Text of a style sheet; empty, without a message, when it cannot be opened.
QString readStyleSheet(const QString &path);

}
