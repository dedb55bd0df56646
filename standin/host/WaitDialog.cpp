#include "standin/host/WaitDialog.h"

#include <QCloseEvent>

namespace {
constexpr int Delay = 300; // milliseconds; a short task shows nothing
}

WaitDialog::WaitDialog(const QString &text, QWidget *parent)
    : QProgressDialog(text, QString(), 0, 0, parent)
{
    setWindowFlag(Qt::WindowCloseButtonHint, false);
    setWindowModality(Qt::ApplicationModal);
    setMinimumDuration(Delay);
    setValue(0); // the delay begins here
}

void WaitDialog::reject() {}

void WaitDialog::closeEvent(QCloseEvent *event)
{
    event->ignore();
}
