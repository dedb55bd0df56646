#include "plugin/PLG_Common.h"

#include "bridge/dialog/GUI_ModelessPatternDialog.h"
#include "bridge/mediator/JS_Mediator.h"
#include "bridge/mediator/PageSignal.h"
#include "contract/DOC_Interface.h"
#include "contract/HostServices.h"
#include "contract/HostValues.h"

PLG_Common::PLG_Common() : m_toolMutex(new QMutex(QMutex::Recursive)) {}

PLG_Common::~PLG_Common()
{
    // The host may have gone before the tool: an open macro stays as it is.
    m_regionCursor.restore();
    m_toolMutex.reset();
    m_mediator.reset();
    m_fontCache.reset();
    delete m_modelessDialog.data();
}

void PLG_Common::setHost(HostServices *host)
{
    m_host = host;
}

void PLG_Common::update()
{
    if (m_viewWidget && m_viewWidget->isActiveWindow())
        m_viewWidget->repaint();
    if (JS_Mediator *mediator = m_mediator.get())
        PageSignal::send(mediator, [mediator] { emit mediator->update(); });
}

void PLG_Common::updateHookA() {}

void PLG_Common::updateHookB() {}

void PLG_Common::updateHookC() {}

void PLG_Common::panelHookA() {}

void PLG_Common::panelHookB() {}

void PLG_Common::panelHookC() {}

JS_Mediator *PLG_Common::mediator()
{
    return m_mediator.get();
}

QString PLG_Common::name()
{
    return m_toolName;
}

qint32 PLG_Common::pluginType()
{
    return m_pluginType;
}

qint32 PLG_Common::pluginSubType()
{
    return m_pluginSubType;
}

qint32 PLG_Common::layoutValueB()
{
    return m_layoutValueB;
}

qint32 PLG_Common::layoutValueA()
{
    return m_layoutValueA;
}

bool PLG_Common::capabilityA()
{
    return true;
}

void PLG_Common::setModeFlag(bool on)
{
    m_modeFlag[modeFamily()] = on;
}

void PLG_Common::setModified(bool modified)
{
    m_modified = modified;
}

bool PLG_Common::isModified()
{
    return m_modified;
}

bool PLG_Common::isModeAllowed(int mode)
{
    return mode >= 0 && mode <= HostMode::File && (m_allowedModes & (1u << mode));
}

bool PLG_Common::isAllowedInCurrentMode()
{
    return isModeAllowed(m_host->currentMode());
}

bool PLG_Common::closesOnForbiddenMode()
{
    return m_closeOnForbiddenMode;
}

void PLG_Common::setClosesOnForbiddenMode(bool closes)
{
    m_closeOnForbiddenMode = closes;
}

bool PLG_Common::modeFlag()
{
    return m_modeFlag[modeFamily()];
}

bool PLG_Common::hasPanel()
{
    return m_hasPanel;
}

bool PLG_Common::modeFlagB()
{
    return m_modeFlagB[modeFamily()];
}

void PLG_Common::clearHookA() {}

void PLG_Common::clearViewWidget()
{
    m_viewWidget = nullptr;
}

QWidget *PLG_Common::viewWidget()
{
    return m_viewWidget;
}

void PLG_Common::mouseHookA() {}

void PLG_Common::mouseHookB() {}

void PLG_Common::mouseHookC() {}

void PLG_Common::mouseHookD() {}

qint32 PLG_Common::checkKind()
{
    return m_checkKind;
}

qint32 PLG_Common::transactionKind()
{
    return m_transactionKind;
}

bool PLG_Common::capabilityB()
{
    return true;
}

qint32 PLG_Common::buttonKind()
{
    return m_buttonKind;
}

qint32 PLG_Common::layoutValueD()
{
    return m_layoutValueD;
}

qint32 PLG_Common::layoutValueE()
{
    return m_layoutValueE;
}

bool PLG_Common::flagA()
{
    return m_flagA;
}

bool PLG_Common::capabilityC()
{
    return false;
}

void PLG_Common::lock()
{
    m_toolMutex->lock();
}

void PLG_Common::unlock()
{
    m_toolMutex->unlock();
}

qint32 PLG_Common::layoutValueC()
{
    return m_layoutValueC;
}

void PLG_Common::hookD() {}

bool PLG_Common::flagB()
{
    return m_flagB;
}

void PLG_Common::hookE(int) {}

void PLG_Common::textHook(const QString &) {}

QString PLG_Common::acceptQuestion()
{
    return QLatin1String("Do you want to accept?");
}

bool PLG_Common::flagC()
{
    return m_flagC;
}

void PLG_Common::hookF() {}

bool PLG_Common::capabilityD()
{
    return false;
}

bool PLG_Common::capabilityE()
{
    return false;
}

bool PLG_Common::capabilityF()
{
    return false;
}

bool PLG_Common::capabilityG()
{
    return false;
}

bool PLG_Common::capabilityH()
{
    return false;
}

qint32 PLG_Common::quickToolMode()
{
    return m_quickToolMode;
}

bool PLG_Common::capabilityI()
{
    return false;
}

bool PLG_Common::flagD()
{
    return m_flagD;
}

void PLG_Common::hookG() {}

qint32 PLG_Common::valueA()
{
    return 0;
}

bool PLG_Common::capabilityJ()
{
    return true;
}

void PLG_Common::hookH() {}

void PLG_Common::hookI() {}

bool PLG_Common::flagE()
{
    return m_flagE;
}

void PLG_Common::setFlagE(bool on)
{
    m_flagE = on;
}

void PLG_Common::hookJ() {}

void PLG_Common::hookK() {}

qint32 PLG_Common::valueB()
{
    return 0;
}

bool PLG_Common::capabilityK()
{
    return false;
}

void PLG_Common::setStoredRect(const QRect &rect)
{
    m_storedRect = rect;
}

QRect PLG_Common::storedRect()
{
    return m_storedRect;
}

void PLG_Common::clearStoredRect()
{
    m_storedRect = QRect(QPoint(0, 0), QPoint(-1, -1));
}

void PLG_Common::setApplyOnEdit(bool apply)
{
    m_applyOnEdit = apply;
}

bool PLG_Common::applyOnEdit()
{
    return m_applyOnEdit;
}

void PLG_Common::setApplyToAllWhenLocked(bool apply)
{
    m_applyToAllWhenLocked = apply;
}

bool PLG_Common::applyToAllWhenLocked()
{
    return m_applyToAllWhenLocked;
}

bool PLG_Common::closeCurrentOnFinish()
{
    return m_closeCurrentOnFinish;
}

void PLG_Common::setCloseCurrentOnFinish(bool closes)
{
    m_closeCurrentOnFinish = closes;
}

qint32 PLG_Common::userValue()
{
    return m_userValue;
}

void PLG_Common::setUserValue(int value)
{
    m_userValue = value;
}

void PLG_Common::hookL() {}

void PLG_Common::hookM() {}

bool PLG_Common::suspendsView()
{
    return m_suspendsView;
}

bool PLG_Common::flagF()
{
    return m_flagF;
}

void PLG_Common::hookN() {}

bool PLG_Common::documentExists(const QPoint &, int docId)
{
    return m_host->deviceByKey(DOCKEY(docId), true) != nullptr;
}

void PLG_Common::slotScreenShot(QString) {}

bool PLG_Common::capabilityL()
{
    return false;
}

bool PLG_Common::customChecked()
{
    return false;
}

std::size_t PLG_Common::modeFamily()
{
    return m_host->isFileMode() ? 1 : 0;
}
