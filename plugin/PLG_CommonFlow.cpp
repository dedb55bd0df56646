#include "plugin/PLG_Common.h"

#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "contract/HostServices.h"
#include "contract/HostValues.h"
#include "contract/ViewPauseGuard.h"
#include "foundation/Keys.h"

#include <QScopeGuard>

#include <utility>

// The flow of a tool: switched on and off, and the buttons of its panel.

void PLG_Common::closeTool()
{
    if (m_checkKind == CheckKind::Dialog)
        closeDialog();
}

void PLG_Common::activate()
{
    if (!isLockTool()) {
        if (m_buttonKind != ButtonKind::Plain) {
            m_host->setToolState(name(), true);
        } else if (hasPanel()) {
            const bool exclusive = m_quickToolMode == QuickToolMode::Exclusive;
            if (exclusive)
                m_host->setQuickTool(QString());
            m_host->setToolState(name(), exclusive);
        }
    }
    if (hasPanel()) {
        if (usesTransaction()) {
            if (m_transactionKind == 0 || m_transactionKind == 1)
                m_host->beginTransaction(name(), m_transactionKind == 0, true);
            m_transactionOpen = true;
        }
    } else if (!isLockTool() &&
               (m_buttonKind == ButtonKind::Toggle || m_buttonKind == ButtonKind::CustomToggle)) {
        m_host->setToolActive(name(), true);
    }
    if (m_checkKind != CheckKind::Dialog && m_suspendsView) {
        ViewPauseGuard pause(m_host, false, true);
        m_host->suspendView(false);
    }
}

void PLG_Common::deactivate()
{
    endDrag();
    clearViewWidget();
    if (hasPanel()) {
        setModified(false);
        leavePanel();
    } else if (!isLockTool() && m_buttonKind == ButtonKind::Toggle) {
        m_host->setToolActive(name(), false);
    }
}

void PLG_Common::onClosed()
{
    // A host that fails in between gets its transaction and its view back all the same.
    auto release = qScopeGuard([this] { guarded(m_host, [this] { releaseView(); }); });
    auto rollBack = qScopeGuard([this] { guarded(m_host, [this] { rollBackPanel(); }); });
    endDrag();
    if (hasPanel()) {
        clearViewWidget();
        m_host->clearUndoStack();
    }
    rollBack.dismiss();
    rollBackPanel();
    release.dismiss();
    releaseView();
}

void PLG_Common::onOk()
{
    finishPanel(true);
}

void PLG_Common::onAccept()
{
    finishPanel(true);
}

void PLG_Common::onCancel()
{
    finishPanel(false);
}

void PLG_Common::applyGuarded(bool guarded)
{
    if (!guarded) {
        onApply();
        return;
    }
    ViewPauseGuard pause(m_host, false, false);
    onApply();
}

void PLG_Common::onApply()
{
    if (!hasPanel())
        return;
    setModified(false);
    m_host->clearUndoStack();
}

void PLG_Common::resetGuarded(bool guarded)
{
    if (!guarded) {
        onReset();
        return;
    }
    ViewPauseGuard pause(m_host, false, false);
    onReset();
}

void PLG_Common::onReset()
{
    if (hasPanel())
        m_host->resetTransaction(name());
}

void PLG_Common::onSelectQuickTool()
{
    if (m_quickToolMode == QuickToolMode::Exclusive)
        m_host->setQuickTool(name());
}

bool PLG_Common::isChecked(DOC_Interface *doc, bool flag)
{
    if (!doc || !isAllowedInCurrentMode())
        return false;
    switch (m_checkKind) {
    case CheckKind::AlwaysOn:
    case CheckKind::AlwaysOnToo:
        return true;
    case CheckKind::Transaction:
    case CheckKind::TransactionToo:
        return doc->isToolAvailable(name(), flag);
    case CheckKind::CurrentPlugin: {
        PLG_Interface *current = m_host->currentPlugin();
        return current && current->name() == name();
    }
    case CheckKind::Dialog:
        return isDialogVisible();
    default:
        break;
    }
    if (isLockTool())
        return m_host->isTrelvikLocked();
    if (name() == Keys::tools.zoomFit)
        return m_host->zoomFactor(0) <= 0.0f;
    if (m_buttonKind == ButtonKind::CustomToggle)
        return customChecked();
    return doc->isToolOn(name());
}

bool PLG_Common::isLockTool()
{
    return name() == Keys::tools.multiLock;
}

bool PLG_Common::usesTransaction() const
{
    return m_checkKind == CheckKind::Transaction || m_checkKind == CheckKind::TransactionToo;
}

void PLG_Common::leavePanel()
{
    if (closeCurrentOnFinish())
        m_host->closeCurrentPlugin();
    else
        m_host->returnFromPlugin();
}

void PLG_Common::finishPanel(bool commit)
{
    if (!hasPanel())
        return;
    if (usesTransaction()) {
        if (commit)
            m_host->commitTransaction(true, name());
        else
            m_host->rollbackTransaction(name());
        m_transactionOpen = false;
    }
    setModified(false);
    leavePanel();
}

void PLG_Common::rollBackPanel()
{
    if (!hasPanel())
        return;
    if (usesTransaction() && std::exchange(m_transactionOpen, false))
        m_host->rollbackTransaction(name());
    setModified(false);
}

void PLG_Common::releaseView()
{
    if (!m_suspendsView)
        return;
    ViewPauseGuard pause(m_host, false, true);
    m_host->resumeView(false);
}
