#include "JS_Mediator_RegionOptions.h"

#include "PLG_region.h"
#include "bridge/operation/OperationLog.h"
#include "contract/HostGuard.h"
#include "contract/HostServices.h"
#include "foundation/LogGroups.h"

JS_Mediator_RegionOptions::JS_Mediator_RegionOptions(HostServices *host, PLG_region &tool)
    : JS_Mediator_ModelessPatternDialog(host, QLatin1String("regionoptions")), m_tool(tool)
{
}

void JS_Mediator_RegionOptions::onOpen()
{
    guarded(host(), [&] { m_tool.showDialog(); });
}

void JS_Mediator_RegionOptions::onClose()
{
    guarded(host(), [&] { m_tool.closeDialog(); });
}

QVariantMap JS_Mediator_RegionOptions::getOptions()
{
    return m_tool.options().toMap();
}

bool JS_Mediator_RegionOptions::setOption(const QString &optionName, const QVariant &value)
{
    OperationLogScope operation(QLatin1String("JS_Mediator_RegionOptions::setOption"),
                                LogGroups::group(QLatin1String("name"), optionName) +
                                    LogGroups::group(QLatin1String("value"), value));
    return guarded(host(), false, [&] {
        const bool known = m_tool.setOption(optionName, value);
        m_tool.update(); // the panel shows limits and aspect
        return known;
    });
}
