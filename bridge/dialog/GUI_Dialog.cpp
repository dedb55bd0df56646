#include "bridge/dialog/GUI_Dialog.h"

#include "bridge/operation/OperationLog.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPointer>

GUI_Dialog::GUI_Dialog(QWidget *parent, Qt::WindowFlags flags, bool ignoreEscape)
    : PageProof(parent, flags), m_ignoreEscape(ignoreEscape)
{
    connect(this, &GUI_Dialog::signalEnableCloseButton, this, &GUI_Dialog::slotEnableCloseButton);
    connect(this, &GUI_Dialog::signalDisableCloseButton, this, &GUI_Dialog::slotDisableCloseButton);
    installEventFilter(this);
}

void GUI_Dialog::userOperationLogWebView(const QString &url, const QString &operation,
                                         const QString &control, const QString &id,
                                         const QString &className, const QVariant &value)
{
    OperationLog::userOperation(url, operation, control, id, className, value);
}

void GUI_Dialog::userOperationErrorLog(const QString &message)
{
    OperationLog::userOperationError(message);
}

void GUI_Dialog::slotEnableCloseButton()
{
    if (windowFlags() & Qt::WindowCloseButtonHint)
        return;
    changeFlags(windowFlags() | Qt::WindowCloseButtonHint);
}

void GUI_Dialog::slotDisableCloseButton()
{
    if (!(windowFlags() & Qt::WindowCloseButtonHint))
        return;
    changeFlags(windowFlags() & ~Qt::WindowCloseButtonHint);
}

void GUI_Dialog::setVisible(bool visible)
{
    contained([&] {
        // A dialog that hides ends its exec(); one that only changes its flags goes on.
        if (m_changingFlags && !visible)
            QWidget::setVisible(visible); // NOLINT(bugprone-parent-virtual-call)
        else
            QDialog::setVisible(visible);
    });
}

void GUI_Dialog::done(int result)
{
    contained([&] { QDialog::done(result); });
}

bool GUI_Dialog::event(QEvent *event)
{
    bool taken = true;
    contained([&] { taken = QDialog::event(event); });
    return taken;
}

void GUI_Dialog::changeFlags(Qt::WindowFlags flags)
{
    QPointer<GUI_Dialog> self(this);
    m_changingFlags = true;
    setWindowFlags(flags);
    if (self)
        show(); // changing flags hides a window
    if (self)
        m_changingFlags = false;
}

bool GUI_Dialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == this && event->type() == QEvent::Close) {
        OperationLog::userOperation(QLatin1String(metaObject()->className()),
                                    QLatin1String("clicked"), QLatin1String("Button"),
                                    QLatin1String("close"), QString(), QVariant());
    }
    return QDialog::eventFilter(watched, event);
}

void GUI_Dialog::keyPressEvent(QKeyEvent *event)
{
    if (m_ignoreEscape && event->key() == Qt::Key_Escape)
        return;
    QDialog::keyPressEvent(event);
}
