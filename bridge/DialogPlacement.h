#pragma once

class HostServices;
class QDialog;

/// Puts a dialog into the middle of the screen of the setting "main/scrno", or of the screen it is
/// on when there is no such screen. With a main widget the dialog stays where the window system put
/// it. Throws what the host throws. GUI thread.
void centerDialog(HostServices *host, QDialog *dialog);
