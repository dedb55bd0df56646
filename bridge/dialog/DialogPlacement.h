#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

class HostServices;
class QDialog;

/// Puts a dialog into the middle of the screen of the setting "main/scrno", or of the screen it is
/// on when there is no such screen. With a main widget the dialog stays where the window system put
/// it. Throws what the host throws. GUI thread.
void centerDialog(HostServices *host, QDialog *dialog);

/// How centerDialog() counts.
namespace DialogPlacement {

/// Index of the screen that is meant: `wanted`, or when there is no such screen the one that
/// `window` is on, which is the one that holds its centre; the first, which is the primary one,
/// when none does. `screens` and `window` in pixels of the virtual desktop, frames not counted;
/// there is at least one screen.
int screenNumber(int wanted, const QRect &window, const QList<QRect> &screens);

/// Top left corner that puts `window` into the middle of `screen`; both without frames, in pixels.
/// Halves are cut off towards zero.
QPoint centered(const QRect &screen, const QRect &window);

}
