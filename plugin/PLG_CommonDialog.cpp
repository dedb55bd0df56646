#include "plugin/PLG_Common.h"

#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator_Dialog.h"
#include "bridge/mediator/PageSignal.h"
#include "bridge/operation/DeterUpdateScope.h"
#include "contract/HostGuard.h"
#include "contract/HostValues.h"
#include "contract/ViewPauseGuard.h"

#include <QFile>
#include <QtDebug>

// The tool's page and its modeless dialog.

QString PLG_Common::pageHtml()
{
    const QString path = QLatin1String(":/") + name() + QLatin1String(".html");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qWarning() << "Not Found" << path;
        return QString();
    }
    return QString::fromUtf8(file.readAll());
}

GUI_ModelessPatternDialog *PLG_Common::ensureDialog(bool create)
{
    if (!m_modelessDialog && create) {
        m_modelessDialog = createModelessPatternDialog(create);
        if (!m_modelessDialog)
            return nullptr;
        connect(m_modelessDialog, &GUI_ModelessPatternDialog::shown, this,
                &PLG_Common::slotModelessPatternDialogShown, Qt::DirectConnection);
        connect(m_modelessDialog, &GUI_ModelessPatternDialog::closed, this,
                &PLG_Common::slotModelessPatternDialogClosed, Qt::DirectConnection);
    }
    return m_modelessDialog;
}

void PLG_Common::showDialog()
{
    if (!m_modelessDialog || (!m_modelessDialog->isHidden() && !m_modelessDialog->isMinimized()))
        return;
    if (m_modelessDialog->isMinimized())
        m_modelessDialog->setWindowState(Qt::WindowNoState);
    if (JS_Mediator_Dialog *mediator = m_modelessDialog->mediator())
        PageSignal::send(mediator, [mediator] { emit mediator->open(); });
    if (!m_modelessDialog)
        return; // the page, or who else heard of it, had it taken away
    m_modelessDialog->show();
    if (m_suspendsView) {
        ViewPauseGuard pause(m_host, false, true);
        m_host->suspendView(false);
    }
    if (m_quickToolMode == QuickToolMode::Exclusive) {
        m_host->setQuickTool(QString());
        m_host->setToolState(name(), true);
    }
}

void PLG_Common::hideDialog()
{
    // The tool's own answer may stand without a dialog.
    if (isDialogVisible() && m_modelessDialog)
        m_modelessDialog->hide();
}

void PLG_Common::closeDialog()
{
    if (m_modelessDialog && !m_modelessDialog->isHidden())
        m_modelessDialog->close();
}

void PLG_Common::onModeChanged(int mode)
{
    if (!isDialogVisible() || !m_modelessDialog)
        return;
    m_modelessDialog->modeChanged(mode);
    if (!isModeAllowed(mode) && closesOnForbiddenMode())
        closeDialog();
}

bool PLG_Common::isDialogVisible()
{
    return m_modelessDialog && m_modelessDialog->isVisible();
}

void PLG_Common::slotModelessPatternDialogShown() {}

void PLG_Common::slotModelessPatternDialogClosed()
{
    // The page may have closed the dialog from script, where no failure may arrive.
    guarded(m_host, [&] {
        endDrag();
        if (m_modelessDialog && !m_modelessDialog->mayFinishNow())
            return;
        releaseView();
        DeterUpdateScope deter(m_host);
        if (m_modelessDialog)
            m_modelessDialog->hide();
        m_host->closePluginByName(name());
    });
}

GUI_ModelessPatternDialog *PLG_Common::createModelessPatternDialog(bool)
{
    return nullptr;
}
