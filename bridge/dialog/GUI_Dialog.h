#pragma once

#include <QDialog>
#include <QVariant>

/// Base of all dialogs: it swallows Escape where asked, logs its closing by the window frame, and
/// can take away its close button while something runs.
class GUI_Dialog : public QDialog
{
    Q_OBJECT

public:
    GUI_Dialog(QWidget *parent, Qt::WindowFlags flags, bool ignoreEscape);

    void setVisible(bool visible) override;

signals:
    void signalEnableCloseButton();
    void signalDisableCloseButton();

public slots:
    void userOperationLogWebView(const QString &url, const QString &operation,
                                 const QString &control, const QString &id,
                                 const QString &className, const QVariant &value);
    void userOperationErrorLog(const QString &message);
    void slotEnableCloseButton();
    void slotDisableCloseButton();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

    /// Whether the window hides and shows again only because its flags change.
    bool isChangingFlags() const { return m_changingFlags; }

private:
    void changeFlags(Qt::WindowFlags flags);

    bool m_ignoreEscape;
    bool m_changingFlags = false;
};
