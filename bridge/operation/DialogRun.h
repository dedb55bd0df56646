#pragma once

#include <functional>

class QDialog;

/// The one place that runs a modal dialog of this library.
namespace DialogRun {

/// The result of the dialog, which the user ended. GUI thread.
int exec(QDialog &dialog);

using Answer = std::function<int(QDialog &)>;

/// Answers in place of the user from here on, without a dialog on the screen; an empty function
/// gives the dialogs back.
void setAnswer(const Answer &answer);

}
