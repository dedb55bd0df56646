#pragma once

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

/// The screen that is meant: `wanted`, or `own` when it is none of the `count` screens, from 0.
int screenNumber(int wanted, int own, int count);

/// Top left corner that puts `window` into the middle of `screen`; both without frames, in pixels.
/// Halves are cut off towards zero.
QPoint centered(const QRect &screen, const QRect &window);

}
