#include "JS_Mediator_Region.h"

#include "PLG_region.h"
#include "bridge/mediator/OperationEventHandler.h"
#include "bridge/operation/OperationLog.h"
#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"
#include "contract/HostServices.h"
#include "foundation/LogGroups.h"

JS_Mediator_Region::JS_Mediator_Region(HostServices *host, PLG_region &tool)
    : JS_Mediator_Plugin(host, QLatin1String("region")), m_tool(tool)
{
}

QString JS_Mediator_Region::name()
{
    return m_tool.name();
}

QString JS_Mediator_Region::uiName()
{
    return guarded(host(), QString(), [&] { return host()->translate(QLatin1String("Region")); });
}

// The view may have come after the panel.
void JS_Mediator_Region::onOpen()
{
    guarded(host(), [&] { m_tool.update(); });
}

void JS_Mediator_Region::onApply()
{
    OperationEventHandler operation(this, QLatin1String("JS_Mediator_Region::onApply"));
    guarded(host(), [&] { m_tool.applyGuarded(true); });
}

void JS_Mediator_Region::onOK()
{
    OperationEventHandler operation(this, QLatin1String("JS_Mediator_Region::onOK"));
    guarded(host(), [&] { m_tool.onOk(); });
}

void JS_Mediator_Region::onCancel()
{
    OperationEventHandler operation(this, QLatin1String("JS_Mediator_Region::onCancel"));
    guarded(host(), [&] { m_tool.onCancel(); });
}

void JS_Mediator_Region::onReset()
{
    OperationEventHandler operation(this, QLatin1String("JS_Mediator_Region::onReset"));
    guarded(host(), [&] { m_tool.resetGuarded(true); });
}

void JS_Mediator_Region::onClose()
{
    guarded(host(), [&] { m_tool.hideDialog(); });
}

void JS_Mediator_Region::onClosed()
{
    guarded(host(), [&] { host()->closePluginByName(m_tool.name()); });
}

void JS_Mediator_Region::undo()
{
    OperationEventHandler operation(this, QLatin1String("JS_Mediator_Region::undo"));
    guarded(host(), [&] { host()->undo(); });
}

void JS_Mediator_Region::redo()
{
    OperationEventHandler operation(this, QLatin1String("JS_Mediator_Region::redo"));
    guarded(host(), [&] { host()->redo(); });
}

void JS_Mediator_Region::beginMacro()
{
    guarded(host(), [&] { host()->beginUndoMacro(QString()); });
}

void JS_Mediator_Region::endMacro()
{
    guarded(host(), [&] { host()->endUndoMacro(); });
}

bool JS_Mediator_Region::isCurrentDummy()
{
    return guarded(host(), false, [&] {
        DOC_Interface *doc = host()->currentDocument();
        return doc && doc->isDummy();
    });
}

QString JS_Mediator_Region::getCurrentWindowTitle()
{
    return guarded(host(), QString(), [&] {
        DOC_Interface *doc = host()->currentDocument();
        return doc ? doc->displayName() : QString();
    });
}

QVariantMap JS_Mediator_Region::getRegionInfo()
{
    return guarded(host(), QVariantMap(), [&] { return m_tool.panelInfo(); });
}

void JS_Mediator_Region::setRegionValue(const QString &valueName, double value)
{
    OperationLogScope operation(QLatin1String("JS_Mediator_Region::setRegionValue"),
                                LogGroups::group(QLatin1String("name"), valueName) +
                                    LogGroups::group(QLatin1String("value"), value));
    guarded(host(), [&] { m_tool.editValue(valueName, value); });
}

void JS_Mediator_Region::openOptions()
{
    OperationLogScope operation(QLatin1String("JS_Mediator_Region::openOptions"));
    guarded(host(), [&] {
        if (m_tool.ensureDialog(!m_tool.ensureDialog(false)))
            m_tool.showDialog();
    });
}
