#pragma once

#include <QList>
#include <QString>

#include <functional>

class QComboBox;
class QDialog;
class QMenuBar;
class QPoint;
class QWidget;

/// A hand on mouse and keyboard: everything is done to real widgets, as a user would. Each
/// operation answers whether it could be done at all, and waits until the application has taken it
/// up.
namespace TourHand {

/// Waits up to ten seconds for something to become true; whether it did.
bool waitFor(const std::function<bool()> &condition);

/// Lets the application take up what has happened.
void settle();

/// Clicks the middle of a widget that is visible and enabled.
bool click(QWidget *widget);

/// Presses a key on the widget that has the focus, or on `widget` when it is given.
bool press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, QWidget *widget = nullptr);

/// Presses the left button on a visible widget, moves by way of the middle, and releases it; both
/// points in the widget. The events go to the window, which finds the widget as it would for a
/// user.
bool drag(QWidget *widget, const QPoint &from, const QPoint &to);

/// Opens a list and clicks the entry with this text.
bool choose(QComboBox *box, const QString &text);

/// Opens the menu and clicks the entry, both by their texts without mnemonics.
bool chooseMenu(QMenuBar *bar, const QString &menu, const QString &entry);

/// What is done to a dialog.
using Answer = std::function<void(QDialog *)>;

/// Runs `trigger`, which opens modal dialogs one behind the other, and gives each to its answer;
/// those that show progress are left alone. A dialog that its answer leaves open is closed. How
/// many dialogs came.
int answerDialogs(const std::function<void()> &trigger, const QList<Answer> &answers);

/// Types a path into a file dialog and presses its button; whether the dialog took it.
bool choosePath(QDialog *dialog, const QString &path);

}
