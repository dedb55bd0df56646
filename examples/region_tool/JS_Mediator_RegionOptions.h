#pragma once

#include "bridge/mediator/JS_Mediator_ModelessPatternDialog.h"

class PLG_region;

/// What the page of the options sees, under the name "regionoptions".
class JS_Mediator_RegionOptions : public JS_Mediator_ModelessPatternDialog
{
    Q_OBJECT

public:
    /// The tool outlives the mediator.
    JS_Mediator_RegionOptions(HostServices *host, PLG_region &tool);

public slots:
    void onOpen() override;
    void onClose() override;

    /// All options by their names.
    QVariantMap getOptions();

    /// Sets one of them, moved into its range; false for what is no option, or no value of it.
    bool setOption(const QString &optionName, const QVariant &value);

private:
    PLG_region &m_tool;
};
