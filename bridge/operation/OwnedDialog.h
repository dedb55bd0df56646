#pragma once

#include <QDialog>
#include <QPointer>

/// Deletes a dialog at its end, unless the dialog's parent has. For one that is run modally: while
/// it is open, anything can happen to its parent. GUI thread.
class OwnedDialog
{
public:
    explicit OwnedDialog(QDialog *dialog) : m_dialog(dialog) {}
    ~OwnedDialog() { delete m_dialog; }

    OwnedDialog(const OwnedDialog &) = delete;
    OwnedDialog &operator=(const OwnedDialog &) = delete;

    QDialog &operator*() const { return *m_dialog; }

private:
    QPointer<QDialog> m_dialog;
};
