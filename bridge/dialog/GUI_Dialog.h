#pragma once

#include "bridge/page/PageProof.h"
#include "contract/HostGuard.h"

#include <QDialog>
#include <QVariant>

/// Base of all dialogs: it swallows Escape where asked, logs its closing by the window frame, and
/// can take away its close button while something runs.
///
/// A page can start what happens in a dialog, by a signal of its mediator or by a slot of QDialog
/// and QWidget. So a dialog that knows a host lets no failure out of its events, of showing and
/// hiding, and of its end: the host's errorHandler() gets it.
class GUI_Dialog : public PageProof<QDialog>
{
    Q_OBJECT

public:
    GUI_Dialog(QWidget *parent, Qt::WindowFlags flags, bool ignoreEscape);

    void setVisible(bool visible) override;
    void done(int result) override;
    bool event(QEvent *event) override;

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

    /// From here on failures go to this host, which outlives the dialog. Without one they pass on
    /// to the caller.
    void setGuardingHost(HostServices *host) { m_guardingHost = host; }

    /// Runs `body`, whose failure goes to the guarding host.
    template <typename Body> void contained(Body &&body)
    {
        if (m_guardingHost)
            guarded(m_guardingHost, std::forward<Body>(body));
        else
            std::forward<Body>(body)();
    }

    /// Whether the window hides and shows again only because its flags change.
    bool isChangingFlags() const { return m_changingFlags; }

private:
    void changeFlags(Qt::WindowFlags flags);

    HostServices *m_guardingHost = nullptr;
    bool m_ignoreEscape;
    bool m_changingFlags = false;
};
