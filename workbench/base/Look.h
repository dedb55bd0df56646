#pragma once

#include <QFont>
#include <QPalette>
#include <QString>

/// The light and the dark look of native windows.
namespace Look {

/// Whether this value of the setting "env/style" means dark: "dark", in any case.
bool isDark(const QString &style);

/// The colours of that look.
QPalette palette(bool dark);

/// Style sheet of tool bars: a button that is down stands out, and the one with the focus can be
/// seen.
QString toolBarStyle(bool dark);

/// A font of fixed width, as large as this one.
QFont fixedFont(const QFont &font);

/// Gives the look to the whole application; nothing happens when it has it already.
void apply(bool dark);

}
