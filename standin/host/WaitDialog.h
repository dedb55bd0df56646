#pragma once

#include <QProgressDialog>

/// Tells that the application works on something that cannot be stopped. It has no Cancel button,
/// and neither Escape nor its window's own button closes it: it goes with its owner. It comes up
/// when the work takes longer than a moment.
class WaitDialog : public QProgressDialog
{
public:
    WaitDialog(const QString &text, QWidget *parent);

    void reject() override;

protected:
    void closeEvent(QCloseEvent *event) override;
};
